// The word finder window, the dead squares and the most constrained word, driven through
// the main window with a small word list of the test's own.

#include "windowtest.h"

#include <QSpinBox>
#include <QPlainTextEdit>
#include <QTreeView>
#include "fill/ui/twordfinderform.h"
#include "fill/ui/twordlistspage.h"


namespace {

// Two rows of three open squares in a black grid: CA? across above ??? across, and three
// two-letter down words. No word starts with T, so CAT leaves its down word nothing.
const QString Fixture = "size 11\ngrid\n" + GridRows({"CA.########", "...########"});
const char *const Words = "cat;90\ncar;60\nre;50\nan;50\nco;50\nore;40\n";

}  // namespace

class TestWordFinder : public QObject, TWindowTest {
    Q_OBJECT

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

private slots:
    void init()
    {
        setUpWindowTest(30);
        WriteFileBytes(dir->path("words.txt"), Words);
        // Only the test's list: the installed default list is switched off.
        WriteSetting("WordLists", QStringLiteral("1\t%1\n0\t").arg(dir->path("words.txt")));
        WordLists().Invalidate();
        startProgram();
        openPuzzle(writePuzzle("finder.xwd", Fixture));
        QCOMPARE(int(PuzzleMode), int(ConstructMode));
    }
    void cleanup() { tearDownWindowTest(); }

    void followsTheCursorAndTypedLettersAndMarksDeadEnds()
    {
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
        click(1, 1, Qt::LeftButton);
        TWordFinderForm *finder = openFinder();
        QTRY_COMPARE(cell(finder, 0, 0), QStringLiteral("CAR"));
        finder->CandidateList->setCurrentIndex(finder->CandidateList->model()->index(0, 0));
        QTest::keyClick(finder->CandidateList, Qt::Key_Return);
        QCOMPARE(char(Puzzle.Cells(3, 1)), 'R');
        QCOMPARE(Session().LastEdit().Caption, QStringLiteral("Word Finder"));
        QCOMPARE(int(Session().LastEdit().Before.Cells(3, 1)), 0);
        QCOMPARE(int(Puzzle.Cells(4, 1)), int(BlockChar));
        QVERIFY(PuzzleChanged);
    }

    void deadSquaresAreShadedAndTheTightestWordIsOneCommandAway()
    {
        Session().SetCell(3, 1, 'T');
        act("ShadeDeadSquaresAct")->setChecked(true);
        WordLists().FromSettings();
        WordLists().WaitForLoad();
        auto *overlay = grid()->findChild<QWidget *>(QStringLiteral("DeadSquareOverlay"));
        QVERIFY(overlay && overlay->isVisible());
        // T? down has no word, so (3, 2) cannot be filled; under C, O fits CO down and ORE across.
        QTRY_VERIFY(overlay->property("deadSquares").value<QList<QPoint>>().contains(QPoint(3, 2)));
        QVERIFY(!overlay->property("deadSquares").value<QList<QPoint>>().contains(QPoint(1, 2)));

        TWordFinderForm *finder = openFinder();
        act("MostConstrainedAct")->trigger();
        QCOMPARE(grid()->Editor.WordDirection, 2);
        QCOMPARE(CellAt(grid()->Editor.CursorPos), QPoint(3, 1));
        QCOMPARE(finder->PatternEdit->text(), QStringLiteral("T?"));
    }

    void theWordListsPageKeepsOrderSwitchesAndTheLowestScore()
    {
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
        QCOMPARE(personal.Added[0].Score, 80);
    }
};

QUILLMARK_UI_TEST_MAIN(TestWordFinder)
#include "tst_wordfinder.moc"
