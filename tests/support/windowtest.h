#pragma once
// The start every window test shares: an empty settings store, no puzzle, scripted dialogs,
// a scratch folder, and the program started when the test wants it; all of it undone after.
// It brings the headers nearly every window test uses, so each test names only its own.

#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/tprogram.h"
#include "mainwindow/ui/txwdmainform.h"
#include "model/puzzlefile.h"
#include "model/puzzletext.h"
#include "scripteddialogs.h"
#include "settings/txwdprocs.h"
#include "testsupport.h"
#include "uitestmain.h"
#include "views/gridgeometry.h"
#include "views/ui/txwdgridform.h"

#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QToolButton>

#include <memory>

// Counts the paints a widget receives: a grab paints by itself and would hide a missing repaint.
class TPaintCounter : public QObject {
public:
    explicit TPaintCounter(QWidget *widget) { widget->installEventFilter(this); }
    int Paints = 0;
    bool eventFilter(QObject *, QEvent *event) override
    {
        Paints += event->type() == QEvent::Paint;
        return false;
    }
};

// A typed character as a keyboard without its key sends it.
void TypeChar(QWidget *widget, QChar ch);
// A left click in the middle of a list's line.
inline void ClickLine(QListWidget *list, int row)
{
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
}
// How many pixels of `area` are a strong red (error marks, repeats, guidelines).
int RedPixels(const QImage &image, const QRect &area);

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
    void startProgram() { (program = std::make_unique<TProgram>())->Start({}); }

    TXwdMainForm *main() const { return program->MainForm; }
    TXwdGridForm *grid() const { return program->GridForm; }
    QAction *act(const char *name) const { return main()->findChild<QAction *>(QString::fromLatin1(name)); }
    // A puzzle file in the scratch folder, from its text form.
    QString writePuzzle(const QString &name, const QString &text) const { return WritePuzzleText(dir->path(name), text); }
    // Opens a file through the Open commands, for solving or for constructing.
    void openPuzzle(const QString &path, bool solving = false);
};

// A window test of the whole program, started afresh before every test function.
class TProgramTest : public QObject, protected TWindowTest {
    Q_OBJECT

protected slots:
    void init()
    {
        setUpWindowTest();
        startProgram();
    }
    void cleanup() { tearDownWindowTest(); }
};
