#include "mainwindow/ui/taboutbox.h"

#include "mainwindow/ui/appresources.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString Credit = QStringLiteral("For puzzle makers who construct and solve crosswords\n"
                                      "on square grids of 11 to 23 squares.\n\n"
                                      "Built with Qt %1.");

QPixmap card()
{
    QPixmap pixmap(360, 170);
    pixmap.fill(Qt::white);
    QPainter p(&pixmap);
    p.setPen(QColor(0x00, 0x00, 0x80));
    p.drawRect(pixmap.rect().adjusted(0, 0, -1, -1));
    p.drawPixmap(45, 20, Glyph(QStringLiteral("LOGO")).pixmap(QSize(270, 90)));
    p.setFont(QFont(QStringLiteral("Arial"), 9));
    p.drawText(QRect(0, 120, 360, 40), Qt::AlignCenter, TAboutBox::VersionText());
    return pixmap;
}

}  // namespace

QString TAboutBox::VersionText()
{
    return QStringLiteral("Quillmark %1").arg(QStringLiteral(QUILLMARK_VERSION));
}

TAboutBox::TAboutBox(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("AboutBox"));
    setWindowTitle(QStringLiteral("About Quillmark"));
    auto *column = new QVBoxLayout(this);
    auto *logo = new QLabel(this);
    logo->setObjectName(QStringLiteral("ProgramIcon"));
    logo->setPixmap(Glyph(QStringLiteral("LOGO")).pixmap(QSize(270, 90)));
    logo->setAlignment(Qt::AlignCenter);
    auto *version = new QLabel(VersionText(), this);
    version->setObjectName(QStringLiteral("Version"));
    QFont bold = version->font();
    bold.setBold(true);
    bold.setPointSize(bold.pointSize() + 2);
    version->setFont(bold);
    version->setAlignment(Qt::AlignCenter);
    auto *credit = new QLabel(Credit.arg(QString::fromLatin1(qVersion())), this);
    credit->setObjectName(QStringLiteral("Comments"));
    credit->setAlignment(Qt::AlignCenter);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("OKButton"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    column->addWidget(logo);
    column->addWidget(version);
    column->addWidget(credit);
    column->addWidget(buttons);
    setFixedSize(sizeHint());
}

TSplashForm::TSplashForm() : QSplashScreen(card())
{
    setObjectName(QStringLiteral("SplashForm"));
}
