// Fill Grid and its progress window, driven through the main window.

#include "windowtest.h"
#include <QDialog>

namespace {

// An 11 x 11 grid: `top` rows, then black rows.
QString gridText(const QStringList &top)
{
    return "size 11\nlanguage 0\ngrid\n" + GridRows(top) + "clues\n";
}

// A 3 x 3 corner to fill; and no black square at all: eleven-letter words no search finds soon.
const QString Corner = gridText({"...########", "...########", "...########"});
const QString Open = gridText(QStringList(11, QStringLiteral("...........")));

bool emptyCorner()
{
    for (int c = 1; c <= 3; ++c)
        for (int r = 1; r <= 3; ++r)
            if (Puzzle.Cells(c, r) != 0)
                return false;
    return true;
}

}  // namespace

class TestFill : public TProgramTest {
    Q_OBJECT

    void openPuzzle(const QString &text)
    {
        TWindowTest::openPuzzle(writePuzzle("fill.xwd", text));
        QCOMPARE(int(PuzzleMode), int(ConstructMode));
    }

    QDialog *progressWindow() { return main()->findChild<QDialog *>(QStringLiteral("FillProgressForm")); }

private slots:
    void fillGridFillsThePuzzleAsOneChangeThatOneUndoTakesBack()
    {
        openPuzzle(Corner);
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
        openPuzzle(Open);
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
        openPuzzle(gridText({"QXZ.#######"}));
        act("FillGridAct")->trigger();
        QTRY_VERIFY_WITH_TIMEOUT(!progressWindow()->isVisible(), 30000);
        QCOMPARE((*dialogs)->Informations, QStringList({"No fill exists. The words at fault: 1 Across."}));
        QCOMPARE(grid()->Editor.WordDirection, 1);
        QCOMPARE(grid()->Editor.HighlightedSquares().size(), 4);
        QVERIFY(!PuzzleChanged);

        (*dialogs)->Informations.clear();
        WriteSetting("FillTimeLimit", 1);
        openPuzzle(Open);
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
