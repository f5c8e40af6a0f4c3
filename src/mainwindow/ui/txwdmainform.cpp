#include "mainwindow/ui/txwdmainform.h"

#include "mainwindow/puzzlestate.h"
#include "mainwindow/specifications.h"
#include "model/puzzlefile.h"

#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>

TXwdMainForm::TXwdMainForm(QWidget *parent) : QMainWindow(parent)
{
    setObjectName(QStringLiteral("XwdMainForm"));
    setWindowTitle(QStringLiteral("Quillmark"));
    auto *central = new QWidget(this);
    auto *layout = new QVBoxLayout(central);
    ModeLabel = new QLabel(central);
    ModeLabel->setObjectName(QStringLiteral("ModeLabel"));
    DataMemo = new QPlainTextEdit(central);
    DataMemo->setObjectName(QStringLiteral("DataMemo"));
    DataMemo->setReadOnly(true);
    Byline = new QLabel(central);
    Byline->setObjectName(QStringLiteral("Byline"));
    layout->addWidget(ModeLabel);
    layout->addWidget(DataMemo);
    layout->addWidget(Byline);
    setCentralWidget(central);
    resize(320, 200);
}

void TXwdMainForm::OpenFromCommandLine(const QStringList &arguments)
{
    if (arguments.isEmpty())
        return;
    CurrentPuzzlePath = arguments.at(0);
    try {
        OpenPuzzleFile(CurrentPuzzlePath);
    } catch (const TPuzzleIOError &) {
        CurrentPuzzlePath.clear();
        QMessageBox::critical(this, windowTitle(), QStringLiteral("Puzzle not in Quillmark format or is corrupt."));
        return;
    }
    PuzzleMode = arguments.value(1).toUpper() == u"-S" ? SolveMode : ConstructMode;
    PuzzleOpened();
}

void TXwdMainForm::PuzzleOpened()
{
    setWindowTitle(QStringLiteral("Quillmark - %1").arg(QFileInfo(CurrentPuzzlePath).fileName()));
    ModeLabel->setText(PuzzleMode == SolveMode ? QString() : QStringLiteral("Specifications"));
    DataMemo->setPlainText(PuzzleSpecText(Puzzle));
}
