#include "solving/ui/tscoreform.h"

#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/appresources.h"
#include "mainwindow/ui/tsoundfx.h"
#include "mainwindow/ui/txwdmainform.h"
#include "model/puzzlefile.h"
#include "solving/scoring.h"
#include "views/ui/txwdgridform.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

TScoreForm::TScoreForm(QWidget *parent) : QDialog(parent, Qt::Tool | Qt::WindowStaysOnTopHint)
{
    setObjectName(QStringLiteral("ScoreForm"));
    setWindowTitle(QStringLiteral("Score Card"));

    auto *picture = new QLabel(this);
    picture->setObjectName(QStringLiteral("Picture"));
    picture->setPixmap(Glyph(QStringLiteral("SCORE")).pixmap(64, 64));

    BannerLbl = new QLabel(QStringLiteral("CONGRATULATIONS!"), this);
    BannerLbl->setObjectName(QStringLiteral("BannerLbl"));
    QFont banner(QStringLiteral("Arial"));
    banner.setPixelSize(24);
    banner.setBold(true);
    BannerLbl->setFont(banner);
    BannerLbl->setAlignment(Qt::AlignCenter);
    CheatLbl = new QLabel(QStringLiteral("(but you cheated)"), this);
    CheatLbl->setObjectName(QStringLiteral("CheatLbl"));
    CheatLbl->setAlignment(Qt::AlignCenter);
    CheatLbl->setVisible(false);

    ShowErrsBtn = new QPushButton(QStringLiteral("Show &Errors"), this);
    ShowErrsBtn->setObjectName(QStringLiteral("ShowErrsBtn"));
    ShowErrsBtn->setEnabled(false);
    StartOverBtn = new QPushButton(QStringLiteral("&Start Over"), this);
    StartOverBtn->setObjectName(QStringLiteral("StartOverBtn"));
    DeleteBtn = new QPushButton(QStringLiteral("&Recycle Bin"), this);
    DeleteBtn->setObjectName(QStringLiteral("DeleteBtn"));
    DeleteBtn->setEnabled(false);
    CancelBtn = new QPushButton(QStringLiteral("&Cancel"), this);
    CancelBtn->setObjectName(QStringLiteral("CancelBtn"));
    CancelBtn->setDefault(true);
    connect(ShowErrsBtn, &QPushButton::clicked, this, [this] { done(ShowErrorsResult); });
    connect(DeleteBtn, &QPushButton::clicked, this, [this] { done(DeleteResult); });
    connect(CancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    connect(StartOverBtn, &QPushButton::clicked, this, &TScoreForm::StartOverBtnClick);

    auto *layout = new QGridLayout(this);
    layout->addWidget(picture, 0, 0, 2, 1, Qt::AlignTop);
    layout->addWidget(BannerLbl, 0, 1, 1, 2);
    layout->addWidget(CheatLbl, 1, 1, 1, 2);
    layout->addWidget(ShowErrsBtn, 2, 1);
    layout->addWidget(StartOverBtn, 2, 2);
    layout->addWidget(DeleteBtn, 3, 1);
    layout->addWidget(CancelBtn, 3, 2);
}

void TScoreForm::FormShow()
{
    correct_ = IsPuzzleCorrect(Puzzle);
    QPalette palette = BannerLbl->palette();
    if (!correct_) {
        ShowErrsBtn->setEnabled(true);
        DeleteBtn->setEnabled(false);
        palette.setColor(QPalette::WindowText, QColor(0xFF, 0, 0));
        BannerLbl->setText(QStringLiteral("PUZZLE INCORRECT!"));
        CheatLbl->setVisible(false);
        if (SoundFX && PlaySounds > 0)
            SoundFX->Play(3);
    } else {
        if (SoundFX && PlaySounds > 0)
            SoundFX->Play(2);
        if (XwdGridForm)
            XwdGridForm->Celebrate();
        ShowErrsBtn->setEnabled(false);
        DeleteBtn->setEnabled(true);
        palette.setColor(QPalette::WindowText, QColor(0, 0, 0x80));
        BannerLbl->setText(QStringLiteral("CONGRATULATIONS!"));
        CheatLbl->setVisible(XwdGridForm && XwdGridForm->Editor.Cheated);
    }
    BannerLbl->setPalette(palette);
}

void TScoreForm::StartOverBtnClick()
{
    Session().Edit(QStringLiteral("Start Over"), TChangeKind::Entries, [](TPuzzle &p) { ClearEntries(p); });
    Session().Save();
    reject();
}
