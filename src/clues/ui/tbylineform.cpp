#include "clues/ui/tbylineform.h"

#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/dialogs.h"
#include "mainwindow/ui/txwdmainform.h"
#include "model/cp1252.h"
#include "model/puzzle.h"
#include "settings/txwdprocs.h"

#include <QAction>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionFrame>

TBylineForm::TBylineForm(QWidget *parent)
    : QDialog(parent, Qt::Tool | Qt::WindowStaysOnTopHint)
{
    setObjectName(QStringLiteral("BylineForm"));
    setWindowTitle(QStringLiteral("Puzzle Byline"));

    auto *byLabel = new QLabel(QStringLiteral("By:"), this);
    BylineEdit = new QLineEdit(this);
    BylineEdit->setObjectName(QStringLiteral("BylineEdit"));
    BylineEdit->setMaxLength(TypedBylineLength);
    BylineEdit->setContextMenuPolicy(Qt::PreventContextMenu);
    // Room for the longest byline in the widest letters, the field's frame and margins around it.
    QStyleOptionFrame frame;
    frame.initFrom(BylineEdit);
    frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &frame, BylineEdit);
    const QFontMetrics metrics = BylineEdit->fontMetrics();
    const QSize longest(metrics.horizontalAdvance(QString(MaxBylineLength, u'W')) + 2 * 2 + 1, metrics.height());
    BylineEdit->setMinimumWidth(style()->sizeFromContents(QStyle::CT_LineEdit, &frame, longest, BylineEdit).width());
    byLabel->setBuddy(BylineEdit);
    NobyChk = new QCheckBox(QStringLiteral("No Byline"), this);
    NobyChk->setObjectName(QStringLiteral("NobyChk"));
    SaveBtn = new QPushButton(QStringLiteral("&Save"), this);
    SaveBtn->setObjectName(QStringLiteral("SaveBtn"));
    SaveBtn->setDefault(true);
    CancelBtn = new QPushButton(QStringLiteral("&Cancel"), this);
    CancelBtn->setObjectName(QStringLiteral("CancelBtn"));

    auto *grid = new QGridLayout(this);
    grid->addWidget(byLabel, 0, 0);
    grid->addWidget(BylineEdit, 0, 1, 1, 2);
    grid->addWidget(NobyChk, 1, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(SaveBtn);
    buttons->addWidget(CancelBtn);
    grid->addLayout(buttons, 2, 0, 1, 3);

    connect(NobyChk, &QCheckBox::clicked, this, &TBylineForm::NobyChkClick);
    connect(SaveBtn, &QPushButton::clicked, this, &TBylineForm::SaveBtnClick);
    connect(CancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    // What the puzzle cannot keep is shown as the "?" it will be stored as.
    connect(BylineEdit, &QLineEdit::textEdited, this, [this](const QString &text) {
        const QString kept = KeepCp1252(text);
        if (kept != text) {
            const int caret = BylineEdit->cursorPosition();
            BylineEdit->setText(kept);
            BylineEdit->setCursorPosition(caret);
        }
    });
}

void TBylineForm::showText(const QString &text)
{
    BylineEdit->setMaxLength(std::max<int>(TypedBylineLength, text.size()));
    BylineEdit->setText(text);
    BylineEdit->setMaxLength(std::max<int>(TypedBylineLength, text.size()));
    BylineEdit->end(false);
}

void TBylineForm::FormShow()
{
    const QString byline = FromCp1252(Puzzle.Byline.text());
    showText(byline);
    const bool none = byline == QLatin1String(NoBylineMarker);
    NobyChk->setChecked(none);
    BylineEdit->setReadOnly(none);
    if (none)
        CancelBtn->setFocus();
    else
        BylineEdit->setFocus();
}

void TBylineForm::NobyChkClick()
{
    if (NobyChk->isChecked()) {
        showText(QString::fromLatin1(NoBylineMarker));
        BylineEdit->setReadOnly(true);
        return;
    }
    BylineEdit->setReadOnly(false);
    showText(ReadText(Setting::Name).left(MaxBylineLength));
    BylineEdit->setFocus();
}

void TBylineForm::SaveBtnClick()
{
    Session().SetByline(ToCp1252(BylineEdit->text()).left(MaxBylineLength));
    accept();
}

void TBylineForm::setVisible(bool visible)
{
    const bool showing = visible && !isVisible();
    QDialog::setVisible(visible);
    // After the dialog's own first focus, which would select the whole field.
    if (showing)
        FormShow();
}

void BylineActExecute(QWidget *parent)
{
    TBylineForm form(parent);
    Dialogs().Exec(&form);
}

void InstallBylineCommands(TXwdMainForm *form)
{
    auto *action = new QAction(QStringLiteral("Puzzle &Byline..."), form);
    action->setObjectName(QStringLiteral("BylineAct"));
    action->setEnabled(false);
    if (QMenu *menu = form->Menu(QStringLiteral("OptionsMenu")))
        menu->addAction(action);
    QObject::connect(action, &QAction::triggered, form, [form] { BylineActExecute(form); });
    form->EnableWhen(action, [] { return Session().IsConstructing(); });
}
