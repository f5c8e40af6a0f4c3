// Scan Grid, Puzzle Analysis and the transforms, driven through the main window.

#include "inspect/ui/tanalysisform.h"
#include "inspect/ui/tscangridform.h"
#include "clirun.h"
#include "windowtest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

// CART across and ARCH down share the A; STONES, STORM and STORM again look alike.
const char *const Fixture =
    "size 11\nlanguage 1\ngrid\n"
    "CART#STONES\n#R#########\n#C#########\n#H#########\n###########\n###########\n"
    "###########\n###########\nSTORM######\n###########\nSTORM#PHONE\n"
    "clues\n1A Wagon\n";

QJsonObject cliJson(const QStringList &args)
{
    const TCliRun run = RunCli(args);
    return run.code == 0 ? QJsonDocument::fromJson(run.out).object() : QJsonObject();
}

}  // namespace

class TestInspect : public QObject, TWindowTest {
    Q_OBJECT

    QString path;
    template <typename Form>
    Form *tool(const char *action)
    {
        act(action)->trigger();
        return main()->findChild<Form *>();
    }

private slots:
    void init()
    {
        setUpWindowTest(30);
        startProgram();
        path = writePuzzle("inspect.xwd", Fixture);
        openPuzzle(path);
    }

    void cleanup() { tearDownWindowTest(); }

    void typedLettersListTheirWordsAndAClickShowsOneInTheGrid()
    {
        auto *scan = tool<TScanGridForm>("ScanGridAct");
        QVERIFY(scan && scan->isVisible());
        QTest::keyClicks(scan->ScanEdit, "ar");
        QCOMPARE(scan->ScanEdit->text(), QStringLiteral("AR"));
        QTest::keyClick(scan->ScanEdit, Qt::Key_Return);
        QCOMPARE(scan->ScanList->count(), 2);
        QCOMPARE(scan->ScanList->item(0)->text(), QStringLiteral("CART"));
        QCOMPARE(scan->ScanList->item(1)->text(), QStringLiteral("ARCH"));

        TXwdGridForm *grid = program->GridForm;
        ClickLine(scan->ScanList, 1);
        QCOMPARE(grid->Editor.CursorPos, CellTopLeft(2, 1));
        QCOMPARE(grid->Editor.WordDirection, 2);
        QCOMPARE(grid->Editor.HighlightedSquares(),
                 (QList<QPoint>{QPoint(2, 1), QPoint(2, 2), QPoint(2, 3), QPoint(2, 4)}));

        // A new letter starts over.
        QTest::keyClicks(scan->ScanEdit, "x");
        QCOMPARE(scan->ScanList->count(), 0);  // how letters are upper-cased is the code page's test
    }

    void flipAsksFirstAndNoLeavesThePuzzleAlone()
    {
        QVERIFY(act("FlipAct")->isVisible());
        const TPuzzle before = Puzzle;
        (*dialogs)->Answers = {TAnswer::No, TAnswer::Yes};
        act("FlipAct")->trigger();
        QCOMPARE((*dialogs)->Questions,
                 QStringList{QStringLiteral("!Some definitions may be lost in transformation. Flip..? [YN]")});
        QVERIFY(SameRecord(before, Puzzle) && !PuzzleChanged);

        act("FlipAct")->trigger();
        QCOMPARE(Puzzle.Cells(1, 11), uint8_t('C'));
        QCOMPARE(Puzzle.clue(Puzzle.slotAt(1, 11, Direction::Across)), QByteArray("Wagon"));
        QVERIFY(PuzzleChanged);
        QCOMPARE(program->GridForm->Editor.WordDirection, 0);
    }

    void theWindowsShowWhatTheCommandLineReports()
    {
        auto *scan = tool<TScanGridForm>("ScanGridAct");
        QTest::mouseClick(scan->AllBtn, Qt::LeftButton);
        const QJsonObject cliScan = cliJson({"scan", "--all", "--json", path});
        const QJsonArray items = cliScan["items"].toArray();
        QCOMPARE(items.size(), scan->ScanList->count());
        for (int i = 0; i < items.size(); ++i)  // where a line leads is the click's test above
            QCOMPARE(items[i].toObject()["text"].toString(), scan->ScanList->item(i)->text());
        QVERIFY(cliScan["repeats"].toBool() && scan->ExImg->isVisibleTo(scan));
        // The repeated STORM is drawn red, its base word not.
        scan->ScanList->doItemsLayout();
        const QImage list = scan->ScanList->viewport()->grab().toImage();
        const int repeated = scan->ScanList->count() - 1;
        QVERIFY(scan->ScanList->item(repeated)->text().endsWith(u' '));
        QVERIFY(RedPixels(list, scan->ScanList->visualItemRect(scan->ScanList->item(repeated))) > 5);
        QCOMPARE(RedPixels(list, scan->ScanList->visualItemRect(scan->ScanList->item(0))), 0);

        auto *analysis = tool<TAnalysisForm>("AnalysisAct");
        QVERIFY(analysis && analysis->isVisible());
        const QJsonObject cliAnalysis = cliJson({"analyze", "--json", path});
        QCOMPARE(cliAnalysis["caption"].toString(), analysis->windowTitle());
        QCOMPARE(cliAnalysis["identifier"].toString(), analysis->IDLbl->text());
        QCOMPARE(cliAnalysis["symmetry"].toString(), analysis->SymLbl->text());
        const QList<std::pair<const char *, QLabel *>> values = {
            {"blackSquares", analysis->BkSqLbl}, {"acrossWords", analysis->AcrLbl},
            {"downWords", analysis->DwnLbl},     {"words", analysis->WdsLbl},
            {"threeLetterWords", analysis->Ltr3Lbl}, {"twoLetterWords", analysis->Ltr2Lbl},
            {"wordsEndingInS", analysis->EndSLbl},   {"averageLength", analysis->AvgLbl},
            {"unkeyedSquares", analysis->UnkLbl}};
        for (const auto &[key, label] : values)
            QCOMPARE(QString::number(cliAnalysis[QLatin1String(key)].toInt()), label->text());
        // No two-letter words: their count and caption are greyed; the missing symmetry is red.
        const QColor grey(0x80, 0x80, 0x80);
        QCOMPARE(analysis->Ltr2Lbl->palette().color(QPalette::WindowText), grey);
        QCOMPARE(analysis->Ltr2Caption->palette().color(QPalette::WindowText), grey);
        QCOMPARE(analysis->SymLbl->palette().color(QPalette::WindowText), QColor(Qt::red));
    }

    void transformsAreHiddenWhileSolving()
    {
        (*dialogs)->Answers = {TAnswer::No};
        (*dialogs)->Files.append(TFileChoice{path, 1});
        main()->OpenSolveAct->trigger();
        QCOMPARE(int(PuzzleMode), int(SolveMode));
        for (const char *name : {"InvertAct", "RotateAct", "FlipAct"})
            QVERIFY2(!act(name)->isVisible(), name);
        QVERIFY(!act("ScanGridAct")->isEnabled() && !act("AnalysisAct")->isEnabled());
    }
};

QUILLMARK_UI_TEST_MAIN(TestInspect)
#include "tst_inspect.moc"
