// Fill Grid and its progress window, driven through the main window.

#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/tprogram.h"
#include "mainwindow/ui/txwdmainform.h"
#include "model/puzzlefile.h"
#include "model/puzzletext.h"
#include "scripteddialogs.h"
#include "settings/txwdprocs.h"
#include "uitestmain.h"
#include "views/ui/txwdgridform.h"

#include <QAction>
#include <QDialog>
#include <QPushButton>
#include <QSignalSpy>

namespace {

QString gridText(const QStringList &rows)
{
    return QStringLiteral("size 11\nlanguage 0\ngrid\n%1\nclues\n").arg(rows.join(u'\n'));
}

// A 3 x 3 corner to fill; every other square black.
QString corner()
{
    QStringList rows = {"...########", "...########", "...########"};
    while (rows.size() < 11)
        rows.append(QStringLiteral("###########"));
    return gridText(rows);
}

// No black square at all: a square of eleven-letter words, which no search finds soon.
QString open()
{
    QStringList rows;
    while (rows.size() < 11)
        rows.append(QStringLiteral("..........."));
    return gridText(rows);
}

bool emptyCorner()
{
    for (int c = 1; c <= 3; ++c)
        for (int r = 1; r <= 3; ++r)
            if (Puzzle.Cells(c, r) != 0)
                return false;
    return true;
}

}  // namespace

class TestFill : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TProgram> program;
    std::unique_ptr<TDialogScript> dialogs;
    std::unique_ptr<TScratchDir> dir;

    TXwdMainForm *main() { return program->MainForm; }
    QAction *act(const char *name) { return main()->findChild<QAction *>(QString::fromLatin1(name)); }

    void openPuzzle(const QString &text)
    {
        const QString path = dir->path("fill.xwd");
        WriteFileAtomically(path, EncodePuzzle(PuzzleFromText(text)));
        (*dialogs)->Files.append(TFileChoice{path, 1});
        main()->ConstructOpenAct->trigger();
        QCOMPARE(int(PuzzleMode), int(ConstructMode));
    }

    QDialog *progressWindow() { return main()->findChild<QDialog *>(QStringLiteral("FillProgressForm")); }

private slots:
    void init()
    {
        ResetSettings();
        Puzzle = TPuzzle{};
        PuzzleChanged = false;
        dir = std::make_unique<TScratchDir>();
        dialogs = std::make_unique<TDialogScript>();
        program = std::make_unique<TProgram>();
        program->Start({});
    }

    void cleanup()
    {
        program.reset();
        dialogs.reset();
        dir.reset();
    }

    void fillGridFillsThePuzzleAsOneChangeThatOneUndoTakesBack()
    {
        openPuzzle(corner());
        QVERIFY(act("FillGridAct")->isEnabled());
        act("FillGridAct")->trigger();
        QVERIFY(progressWindow() && progressWindow()->isVisible());
        QVERIFY(!act("FillGridAct")->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(!progressWindow()->isVisible(), 30000);
        QVERIFY((*dialogs)->Informations.isEmpty());
        for (int c = 1; c <= 3; ++c)
            for (int r = 1; r <= 3; ++r)
                QVERIFY(Puzzle.Cells(c, r) >= 'A' && Puzzle.Cells(c, r) <= 'Z');
        QVERIFY(PuzzleChanged);
        QVERIFY(act("FillAgainAct")->isEnabled());

        QVERIFY(Session().Undo());
        QVERIFY(emptyCorner());
        QVERIFY2(!Session().Undo(), "the fill was one step");
    }

    void cancelLeavesTheGridAsItWas()
    {
        openPuzzle(open());
        act("FillGridAct")->trigger();
        QDialog *progress = progressWindow();
        QVERIFY(progress && progress->isVisible());
        QTest::qWait(300);
        QVERIFY(progress->isVisible());
        QTest::mouseClick(progress->findChild<QPushButton *>(QStringLiteral("CancelBtn")), Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(!progress->isVisible(), 10000);
        QVERIFY((*dialogs)->Informations.isEmpty());
        for (int c = 1; c <= 11; ++c)
            for (int r = 1; r <= 11; ++r)
                QCOMPARE(int(Puzzle.Cells(c, r)), 0);
        QVERIFY(!PuzzleChanged);
        QVERIFY(act("FillGridAct")->isEnabled());
    }

    void noFillNamesTheWordAtFaultAndTheTimeLimitKeepsTheGrid()
    {
        // QXZ. fits no word: 1 Across is at fault and becomes the current word.
        QStringList rows = {"QXZ.#######"};
        while (rows.size() < 11)
            rows.append(QStringLiteral("###########"));
        openPuzzle(gridText(rows));
        act("FillGridAct")->trigger();
        QTRY_VERIFY_WITH_TIMEOUT(!progressWindow()->isVisible(), 30000);
        QCOMPARE((*dialogs)->Informations, QStringList({"No fill exists. The words at fault: 1 Across."}));
        QCOMPARE(program->GridForm->Editor.WordDirection, 1);
        QCOMPARE(program->GridForm->Editor.HighlightedSquares().size(), 4);
        auto *faults = program->GridForm->findChild<QWidget *>(QStringLiteral("FillFaultOverlay"));
        QVERIFY(faults && faults->isVisible());
        QCOMPARE(faults->property("squares").value<QList<QPoint>>(),
                 QList<QPoint>({QPoint(1, 1), QPoint(2, 1), QPoint(3, 1), QPoint(4, 1)}));
        QVERIFY(!PuzzleChanged);

        (*dialogs)->Informations.clear();
        WriteSetting("FillTimeLimit", 1);
        openPuzzle(open());
        QVERIFY(faults->property("squares").value<QList<QPoint>>().isEmpty());
        act("FillGridAct")->trigger();
        QTRY_VERIFY_WITH_TIMEOUT(!progressWindow()->isVisible(), 20000);
        QCOMPARE((*dialogs)->Informations,
                 QStringList({"The time limit ran out before a fill was found; the grid is as it was."}));
        QCOMPARE(int(Puzzle.Cells(1, 1)), 0);
        QVERIFY(!PuzzleChanged);
    }
};

QUILLMARK_UI_TEST_MAIN(TestFill)
#include "tst_fill.moc"
