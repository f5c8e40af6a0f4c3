// Fill Grid and its progress window, and the word finder, driven through the main window.

#include "fill/ui/twordfinderform.h"
#include "fill/ui/twordlistspage.h"
#include "windowtest.h"

#include <QDialog>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTreeView>

namespace {

// An 11 x 11 grid: `top` rows, then black rows.
QString gridText(const QStringList &top)
{
    return "size 11\nlanguage 0\ngrid\n" + GridRows(top) + "clues\n";
}

// A 3 x 3 corner to fill; and no black square at all: eleven-letter words no search finds soon.
const QString Corner = gridText({"...########", "...########", "...########"});
const QString Open = gridText(QStringList(11, QStringLiteral("...........")));

// Two rows of three open squares in a black grid: CA? across above ??? across, and three
// two-letter down words. No word starts with T, so CAT leaves its down word nothing.
const QString Fixture = "size 11\ngrid\n" + GridRows({"CA.########", "...########"});
const char *const Words = "cat;90\ncar;60\nre;50\nan;50\nco;50\nore;40\n";

}  // namespace

class TestFill : public QObject, TWindowTest {
    Q_OBJECT

    void openGrid(const QString &text) { openPuzzle(writePuzzle("fill.xwd", text)); }
    // Only the test's list: the installed default list is switched off.
    void openWithTestList()
    {
        WriteFileBytes(dir->path("words.txt"), Words);
        WriteSetting("WordLists", QStringLiteral("1\t%1\n0\t").arg(dir->path("words.txt")));
        WordLists().Invalidate();
        openGrid(Fixture);
    }
    void click(int c, int r, Qt::MouseButton button)
    {
        QTest::mouseClick(grid(), button, {}, CellTopLeft(c, r) + QPoint(SquareSize / 2, SquareSize / 2));
    }
    TWordFinderForm *openFinder()
    {
        act("WordFinderAct")->trigger();
        auto *finder = main()->findChild<TWordFinderForm *>();
        WordLists().WaitForLoad();
        return finder;
    }
    QString cell(TWordFinderForm *finder, int row, int column)
    {
        return finder->CandidateList->model()->index(row, column).data().toString();
    }


    QDialog *progressWindow() { return main()->findChild<QDialog *>(QStringLiteral("FillProgressForm")); }

private slots:
    void init()
    {
        setUpWindowTest(30);
        WordLists().Invalidate();  // a list an earlier test chose goes with it
        startProgram();
    }
    void cleanup() { tearDownWindowTest(); }

    void fillGridFillsThePuzzleAsOneChangeThatOneUndoTakesBack()
    {
        openGrid(Corner);
        const QByteArray before = EncodePuzzle(Puzzle);
        act("FillGridAct")->trigger();
        QVERIFY(progressWindow() && progressWindow()->isVisible() && !act("FillGridAct")->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(!progressWindow()->isVisible(), 30000);
        QVERIFY((*dialogs)->Informations.isEmpty());
        for (int c = 1; c <= 3; ++c)
            for (int r = 1; r <= 3; ++r)
                QVERIFY(Puzzle.Cells(c, r) >= 'A' && Puzzle.Cells(c, r) <= 'Z');
        QVERIFY(PuzzleChanged && act("FillAgainAct")->isEnabled());

        QVERIFY(Session().Undo());
        QCOMPARE(EncodePuzzle(Puzzle), before);
        QVERIFY2(!Session().Undo(), "the fill was one step");
    }

    void cancelLeavesTheGridAsItWas()
    {
        openGrid(Open);
        const QByteArray before = EncodePuzzle(Puzzle);
        act("FillGridAct")->trigger();
        QDialog *progress = progressWindow();
        QVERIFY(progress && progress->isVisible());
        QTest::qWait(300);
        QVERIFY(progress->isVisible());
        QTest::mouseClick(progress->findChild<QPushButton *>(QStringLiteral("CancelBtn")), Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(!progress->isVisible(), 10000);
        QVERIFY((*dialogs)->Informations.isEmpty());
        QCOMPARE(EncodePuzzle(Puzzle), before);
        QVERIFY(!PuzzleChanged && act("FillGridAct")->isEnabled());
    }

    void noFillNamesTheWordAtFaultAndTheTimeLimitKeepsTheGrid()
    {
        // QXZ. fits no word: 1 Across is at fault and becomes the current word.
        openGrid(gridText({"QXZ.#######"}));
        act("FillGridAct")->trigger();
        QTRY_VERIFY_WITH_TIMEOUT(!progressWindow()->isVisible(), 30000);
        QCOMPARE((*dialogs)->Informations, QStringList({"No fill exists. The words at fault: 1 Across."}));
        QCOMPARE(grid()->Editor.WordDirection, 1);
        QCOMPARE(grid()->Editor.HighlightedSquares().size(), 4);
        auto *faults = grid()->findChild<QWidget *>(QStringLiteral("FillFaultOverlay"));
        QVERIFY(faults && faults->isVisible());
        QCOMPARE(faults->property("squares").value<QList<QPoint>>(),
                 QList<QPoint>({QPoint(1, 1), QPoint(2, 1), QPoint(3, 1), QPoint(4, 1)}));
        QVERIFY(!PuzzleChanged);

        (*dialogs)->Informations.clear();
        WriteSetting("FillTimeLimit", 1);
        openGrid(Open);
        QVERIFY(faults->property("squares").value<QList<QPoint>>().isEmpty());
        act("FillGridAct")->trigger();
        QTRY_VERIFY_WITH_TIMEOUT(!progressWindow()->isVisible(), 20000);
        QCOMPARE((*dialogs)->Informations,
                 QStringList({"The time limit ran out before a fill was found; the grid is as it was."}));
        QCOMPARE(int(Puzzle.Cells(1, 1)), 0);
        QVERIFY(!PuzzleChanged);
    }

    // The word finder window, the dead squares and the most constrained word, with a small
    // word list of the test's own.
    void followsTheCursorAndTypedLettersAndMarksDeadEnds()
    {
        openWithTestList();
        click(1, 1, Qt::LeftButton);
        TWordFinderForm *finder = openFinder();
        QVERIFY(finder && finder->isVisible());
        QTRY_COMPARE(finder->PatternEdit->text(), QStringLiteral("CA?"));
        QTRY_COMPARE(finder->CountLabel->text(), QStringLiteral("2 fit, 1 viable"));
        // CAT scores higher, but T starts no down word: it comes last, marked.
        QCOMPARE(cell(finder, 0, 0), QStringLiteral("CAR"));
        QCOMPARE(cell(finder, 1, 0), QStringLiteral("CAT"));
        QCOMPARE(cell(finder, 1, 2), QStringLiteral("dead end"));

        click(3, 1, Qt::RightButton);
        QTRY_COMPARE(finder->PatternEdit->text(), QStringLiteral("??"));
        QTest::keyClick(grid(), 'r');
        QTRY_COMPARE(finder->PatternEdit->text(), QStringLiteral("R?"));
        QCOMPARE(cell(finder, 0, 0), QStringLiteral("RE"));

        // A typed pattern stands in for the grid's until the cursor moves on.
        finder->PatternEdit->clear();
        QTest::keyClicks(finder->PatternEdit, "?re");
        QCOMPARE(cell(finder, 0, 0), QStringLiteral("ORE"));
        click(1, 2, Qt::LeftButton);
        QTRY_COMPARE(finder->PatternEdit->text(), QStringLiteral("???"));
    }

    void enterWritesTheWordAsOneChange()
    {
        openWithTestList();
        click(1, 1, Qt::LeftButton);
        TWordFinderForm *finder = openFinder();
        QTRY_COMPARE(cell(finder, 0, 0), QStringLiteral("CAR"));
        finder->CandidateList->setCurrentIndex(finder->CandidateList->model()->index(0, 0));
        QTest::keyClick(finder->CandidateList, Qt::Key_Return);
        QCOMPARE(char(Puzzle.Cells(3, 1)), 'R');
        QCOMPARE(Session().LastEdit().Caption, QStringLiteral("Word Finder"));
        QVERIFY(PuzzleChanged);
    }

    void deadSquaresAreShadedAndTheTightestWordIsOneCommandAway()
    {
        openWithTestList();
        Session().SetCell(3, 1, 'T');
        act("ShadeDeadSquaresAct")->setChecked(true);
        WordLists().FromSettings();
        WordLists().WaitForLoad();
        auto *overlay = grid()->findChild<QWidget *>(QStringLiteral("DeadSquareOverlay"));
        QVERIFY(overlay && overlay->isVisible());
        // T? down has no word, so (3, 2) cannot be filled; under C, O fits CO down and ORE across.
        QTRY_VERIFY(overlay->property("squares").value<QList<QPoint>>().contains(QPoint(3, 2)));
        QVERIFY(!overlay->property("squares").value<QList<QPoint>>().contains(QPoint(1, 2)));

        TWordFinderForm *finder = openFinder();
        act("MostConstrainedAct")->trigger();
        QCOMPARE(grid()->Editor.WordDirection, 2);
        QCOMPARE(CellAt(grid()->Editor.CursorPos), QPoint(3, 1));
        QCOMPARE(finder->PatternEdit->text(), QStringLiteral("T?"));
    }

    void theWordListsPageKeepsOrderSwitchesAndTheLowestScore()
    {
        openWithTestList();
        TWordListsPage page;
        page.Load();
        QCOMPARE(page.ListsList->count(), 2);
        QCOMPARE(page.ListsList->item(1)->text(), QStringLiteral("Default list (English)"));
        QCOMPARE(page.ListsList->item(1)->checkState(), Qt::Unchecked);
        page.ListsList->setCurrentRow(1);
        page.UpBtn->click();
        page.ListsList->item(0)->setCheckState(Qt::Checked);
        page.ListsList->item(1)->setCheckState(Qt::Unchecked);
        QCOMPARE(page.ListsList->currentRow(), 0);
        page.RemoveListBtn->click();
        QCOMPARE(page.ListsList->count(), 2);  // the default list can be switched off, not removed
        page.MinScoreSpin->setValue(30);
        page.PersonalEdit->setPlainText(QStringLiteral("zebra;80\n-cat"));
        page.Save();
        const TWordListConfig config = WordListConfigFromSettings(0);
        QCOMPARE(config.Sources.size(), 2);
        QVERIFY(config.Sources[0].isDefault() && config.Sources[0].Enabled);
        QCOMPARE(config.Sources[1].Path, dir->path("words.txt"));
        QVERIFY(!config.Sources[1].Enabled);
        QCOMPARE(config.MinScore, 30);
        const TPersonalList personal = ReadPersonalList(config.PersonalPath);
        QCOMPARE(personal.Excluded, QStringList{QStringLiteral("cat")});
        QCOMPARE(personal.Added.size(), 1);
    }
};

QUILLMARK_UI_TEST_MAIN(TestFill)
#include "tst_fill.moc"
