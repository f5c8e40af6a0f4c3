#include "mainwindow/ui/tinfowin.h"

#include "mainwindow/ui/appresources.h"
#include "settings/txwdprocs.h"

#include <QLabel>
#include <QProgressBar>

TInfoWin *InfoWin = nullptr;

TInfoWin::TInfoWin(QWidget *parent)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setObjectName(QStringLiteral("InfoWin"));
    setFixedSize(194, 87);
    setAutoFillBackground(true);

    Panel = new QLabel(this);
    Panel->setObjectName(QStringLiteral("Panel"));
    Panel->setGeometry(0, 0, 194, 40);
    Panel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QFont font(QStringLiteral("Arial"));
    font.setBold(true);
    font.setItalic(true);
    Panel->setFont(font);
    Panel->setStyleSheet(QStringLiteral("color: navy; border: 1px solid gray;"));

    SavImg = new QLabel(this);
    SavImg->setObjectName(QStringLiteral("SavImg"));
    PntImg = new QLabel(this);
    PntImg->setObjectName(QStringLiteral("PntImg"));
    for (auto [image, glyph] : {std::pair{SavImg, "SAVE"}, std::pair{PntImg, "PRINT"}}) {
        image->setGeometry(6, 4, 32, 32);
        image->setPixmap(Glyph(QString::fromLatin1(glyph)).pixmap(32, 32));
    }

    ProgBar = new QProgressBar(this);
    ProgBar->setObjectName(QStringLiteral("ProgBar"));
    ProgBar->setGeometry(8, 52, 178, 20);
    ProgBar->setRange(0, 10);
    ProgBar->setTextVisible(false);

    if (!InfoWin)
        InfoWin = this;
}

QString TInfoWin::KindText(int kind)
{
    switch (kind) {
    case Saving: return QStringLiteral("Saving puzzle ...    ");
    case Printing: return QStringLiteral("Printing puzzle ...   ");
    case Exporting: return QStringLiteral("Exporting puzzle ...  ");
    default: return {};
    }
}

void TInfoWin::ShowProgress(int kind, QPoint topLeft)
{
    Panel->setText(KindText(kind));
    SavImg->setVisible(kind != Printing);
    PntImg->setVisible(kind == Printing);
    ProgBar->setValue(0);
    move(topLeft);
    show();
    raise();
    StepProgress();
    close();
}

void TInfoWin::StepProgress()
{
    for (int i = 0; i < 10; ++i) {
        ProgBar->setValue(ProgBar->value() + 1);
        if (XwdProcs)
            XwdProcs->Pause(50);
    }
}
