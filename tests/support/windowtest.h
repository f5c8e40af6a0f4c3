#pragma once
// The start every window test shares: an empty settings store, no puzzle, scripted dialogs,
// a scratch folder, and the program started when the test wants it; all of it undone after.

#include "mainwindow/ui/tprogram.h"
#include "mainwindow/ui/txwdmainform.h"
#include "scripteddialogs.h"
#include "testsupport.h"

#include <QAction>

#include <memory>

class TWindowTest {
protected:
    std::unique_ptr<TProgram> program;
    std::unique_ptr<TDialogScript> dialogs;
    std::unique_ptr<TScratchDir> dir;

    // From init(): the store emptied (then the grid's square size written when given), the
    // puzzle, its path and its flags cleared, new dialogs and folder.
    void setUpWindowTest(int screenSquare = 0);
    // From cleanup().
    void tearDownWindowTest();
    // The whole program, started without arguments.
    void startProgram();

    TXwdMainForm *main() const { return program->MainForm; }
    QAction *act(const char *name) const { return main()->findChild<QAction *>(QString::fromLatin1(name)); }
    // A puzzle file in the scratch folder, from its text form.
    QString writePuzzle(const QString &name, const char *text) const;
    // Opens a file through the Open commands, for solving or for constructing.
    void openPuzzle(const QString &path, bool solving = false);
};
