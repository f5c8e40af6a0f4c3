// Opening .puz and .ipuz files as unsaved puzzles, and the Export commands.

#include "interchange/interchange.h"
#include "interchange/ipuzformat.h"
#include "windowtest.h"

namespace {

const QString Finished = QStringLiteral(QUILLMARK_EXAMPLES "/sunday-stroll.xwd");
const QString Unfinished = QStringLiteral(QUILLMARK_EXAMPLES "/harbour-lights.xwd");

}  // namespace

class TestInterchange : public TProgramTest {
    Q_OBJECT

    QString exported(const QString &xwd, TFileKind kind, const QString &name)
    {
        const QString path = dir->path(name);
        WriteFileAtomically(path, ExportPuzzle(LoadPuzzleFile(xwd).Puzzle, kind, QStringLiteral("Title")));
        return path;
    }

private slots:
    void anOpenedPuzFileIsUnsavedUntilSaveNamesAnXwd()
    {
        openPuzzle(exported(Finished, TFileKind::Puz, "stroll.puz"), false);
        const QString filter = (*dialogs)->FileRequests.first().Filter;
        QVERIFY(filter.contains(u"*.puz") && filter.contains(u"*.ipuz") && (*dialogs)->Errors.isEmpty());
        QCOMPARE(ContentDifference(Puzzle, LoadPuzzleFile(Finished).Puzzle), QString());
        QVERIFY(CurrentPuzzlePath.isEmpty() && PuzzleChanged);
        QCOMPARE(program->GridForm->windowTitle(), QStringLiteral("STROLL (not saved)"));
        QVERIFY(!main()->RevertToSavedAct->isEnabled());

        // The file's title is listed as not kept, and offered as the name.
        QVERIFY((*dialogs)->Informations.last().contains(u"The title (Title)"));
        (*dialogs)->Files.append(TFileChoice{dir->path("stroll"), 1});
        main()->SaveAct->trigger();
        QCOMPARE((*dialogs)->FileRequests.last().DefaultExtension, QStringLiteral("xwd"));
        QCOMPARE((*dialogs)->FileRequests.last().FileName, QStringLiteral("Title.xwd"));
        QCOMPARE(CurrentPuzzlePath, dir->path("stroll.xwd"));
        QVERIFY(!PuzzleChanged);
        QCOMPARE(ContentDifference(DecodePuzzle(ReadFileBytes(CurrentPuzzlePath)), Puzzle), QString());
        QVERIFY(main()->RevertToSavedAct->isEnabled());
    }

    void aRefusedFileOrALongClueTheUserWillNotCutLeavesTheOpenPuzzle()
    {
        openPuzzle(Finished, false);
        TForeignPuzzle small;
        small.Width = small.Height = 5;
        small.Squares = QList<TForeignSquare>(25, TForeignSquare{false, QStringLiteral("A"), {}, false});
        WriteFileAtomically(dir->path("small.ipuz"), WriteIpuz(small));
        openPuzzle(dir->path("small.ipuz"), false);
        QCOMPARE((*dialogs)->Errors.size(), 1);
        QVERIFY((*dialogs)->Errors.first().contains(u"5 x 5"));

        TForeignPuzzle f = FromQuillmark(LoadPuzzleFile(Finished).Puzzle, QStringLiteral("Long"));
        f.Across[1] = QString(85, u'x');
        const QString path = dir->path("long.ipuz");
        WriteFileAtomically(path, WriteIpuz(f));
        (*dialogs)->Answers.append(TAnswer::No);
        openPuzzle(path, false);
        QVERIFY((*dialogs)->Questions.first().contains(u"1 Across is longer than 80"));
        QCOMPARE(CurrentPuzzlePath, Finished);
        QCOMPARE(ContentDifference(Puzzle, LoadPuzzleFile(Finished).Puzzle), QString());

        (*dialogs)->Answers.append(TAnswer::Yes);
        openPuzzle(path, false);
        QCOMPARE(Puzzle.clue(1), QByteArray(80, 'x'));
        QCOMPARE((*dialogs)->Informations.size(), 1);
        QVERIFY((*dialogs)->Informations.first().contains(u"cut to 80"));
    }

    void exportWritesBothFormatsAndRefusesAnUnfinishedPuz()
    {
        QVERIFY(!act("ExportPuzAct")->isEnabled());
        openPuzzle(Unfinished, false);
        QVERIFY(act("ExportPuzAct")->isEnabled());

        (*dialogs)->Files.append(TFileChoice{dir->path("harbour"), 1});
        act("ExportPuzAct")->trigger();
        QCOMPARE((*dialogs)->FileRequests.last().FileName, QStringLiteral("harbour-lights.puz"));
        QCOMPARE((*dialogs)->Errors.size(), 1);
        QVERIFY((*dialogs)->Errors.first().contains(u"not finished") && !QFile::exists(dir->path("harbour.puz")));

        (*dialogs)->Files.append(TFileChoice{dir->path("harbour"), 1});
        act("ExportIpuzAct")->trigger();
        const TImportedPuzzle back = ImportPuzzleFile(dir->path("harbour.ipuz"));
        QCOMPARE(ContentDifference(back.Puzzle, Puzzle), QString());
        QCOMPARE(back.Title, QStringLiteral("harbour-lights"));
        QCOMPARE(CurrentPuzzlePath, Unfinished);  // an export leaves the open puzzle as it was
    }
};

QUILLMARK_UI_TEST_MAIN(TestInterchange)
#include "tst_interchange.moc"
