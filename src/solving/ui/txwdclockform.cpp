#include "solving/ui/txwdclockform.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QShowEvent>
#include <QStyle>
#include <QToolButton>

TXwdClockForm::TXwdClockForm(QWidget *parent)
    : QWidget(parent, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
{
    setObjectName(QStringLiteral("XwdClockForm"));
    setWindowTitle(QStringLiteral("Clock"));
    setAttribute(Qt::WA_DeleteOnClose);

    TimeLbl = new QLabel(QStringLiteral("0:00:00"), this);
    TimeLbl->setObjectName(QStringLiteral("TimeLbl"));
    TimeLbl->setAlignment(Qt::AlignCenter);
    TimeLbl->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(24);
    font.setBold(true);
    TimeLbl->setFont(font);
    TimeLbl->setStyleSheet(QStringLiteral("color: blue;"));
    TimeLbl->setMinimumWidth(QFontMetrics(font).horizontalAdvance(QStringLiteral("0:00:00")) + 24);

    ResetBtn = new QToolButton(this);
    ResetBtn->setObjectName(QStringLiteral("ResetBtn"));
    ResetBtn->setIcon(style()->standardIcon(QStyle::SP_BrowserReload));
    ResetBtn->setToolTip(QStringLiteral("Reset clock"));
    ClockBtn = new QToolButton(this);
    ClockBtn->setObjectName(QStringLiteral("ClockBtn"));
    ClockBtn->setIcon(style()->standardIcon(QStyle::SP_MediaPause));
    ClockBtn->setToolTip(QStringLiteral("Pause clock"));
    connect(ResetBtn, &QToolButton::clicked, this, &TXwdClockForm::ResetBtnClick);
    connect(ClockBtn, &QToolButton::clicked, this, &TXwdClockForm::ClockBtnClick);

    auto *row = new QHBoxLayout(this);
    row->addWidget(TimeLbl, 1);
    row->addWidget(ResetBtn);
    row->addWidget(ClockBtn);

    Timer1.setInterval(1000);
    connect(&Timer1, &QTimer::timeout, this, &TXwdClockForm::Timer1Timer);
}

void TXwdClockForm::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous())
        FormShow();
}

void TXwdClockForm::FormShow()
{
    if (const QScreen *screen = this->screen())
        move(8, screen->geometry().height() - frameGeometry().height() - 8);
    Timer1.start();
    Time.Reset();
    TimeLbl->setText(Time.Text());
}

void TXwdClockForm::Timer1Timer()
{
    Time.Tick();
    TimeLbl->setText(Time.Text());
}

void TXwdClockForm::ResetBtnClick()
{
    Time.Reset();
    TimeLbl->setText(Time.Text());
}

void TXwdClockForm::ClockBtnClick()
{
    const bool running = Timer1.isActive();
    if (running)
        Timer1.stop();
    else
        Timer1.start();
    // Reset is offered only while the clock runs.
    ClockBtn->setToolTip(running ? QStringLiteral("Continue clock") : QStringLiteral("Pause clock"));
    ClockBtn->setIcon(style()->standardIcon(running ? QStyle::SP_MediaPlay : QStyle::SP_MediaPause));
    ResetBtn->setEnabled(!running);
    ResetBtn->setToolTip(ResetBtn->isEnabled() ? QStringLiteral("Reset clock") : QString());
}
