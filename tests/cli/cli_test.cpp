// quillmark-cli's puzzle, inspection and export commands, run as a script runs them: their
// output, their exit codes, and nothing written when they fail.

#include "model/puzzlefile.h"
#include "model/puzzletext.h"
#include "clirun.h"
#include "testsupport.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

const char *const Clued =
    "size 11\nbyline Zoë Maker\nlanguage 4\ngrid\n"
    "CAT#DOG#EEL\n...........\n...........\n...........\n...........\n"
    "...........\n...........\n...........\n...........\n...........\n?........#.\n"
    "clues\n1A Purring pet\n4A Barking “pet”\n";

QString writeClued(const TScratchDir &dir)
{
    return WritePuzzleText(dir.path("clued.xwd"), QString::fromUtf8(Clued));
}

// ÉTÉS holds a Windows-1252 letter, which the JSON must carry as itself.
QString writeFixture(const TScratchDir &dir)
{
    return WritePuzzleText(dir.path("in.xwd"), QString::fromUtf8("size 11\ngrid\nÉTÉS#CAT#AB\n")
                                                   + QStringLiteral("###########\n").repeated(9)
                                                   + QString::fromUtf8(".TÉS#######\nclues\n1A Summers\n2A Pet\n"));
}

QString example() { return QStringLiteral(QUILLMARK_EXAMPLES "/sunday-stroll.xwd"); }

}  // namespace

TEST(Cli, InfoShowsTheSpecificationLinesAndTheRest)
{
    TScratchDir dir;
    const TCliRun r = RunCli({"info", writeClued(dir)});
    ASSERT_EQ(r.code, 0) << r.err.toStdString();
    EXPECT_EQ(r.text().split(u'\n').mid(0, 6),
              (QStringList{" Size of Grid: 11×", " Black Squares: 3  Par: 20", " Word Count: 24  Par: 40",
                           "Byline: Zoë Maker", "Language: 4 (German)", "Grid full: no"}));
}

TEST(Cli, InfoJsonListsEveryWordInSlotOrderAndWritesNothing)
{
    TScratchDir dir;
    const QString path = writeClued(dir);
    const QByteArray before = ReadFileBytes(path);
    const TCliRun r = RunCli({"info", "--json", path});
    ASSERT_EQ(r.code, 0) << r.err.toStdString();
    const QJsonObject o = QJsonDocument::fromJson(r.out).object();
    // The figures are the text form's, tested above; here the entries.
    EXPECT_EQ(o["format"].toInt(), 6);
    const QJsonArray entries = o["entries"].toArray();
    ASSERT_EQ(entries.size(), o["words"].toInt());
    const auto entry = [](int number, const char *dir, int column, int slot, const char *answer, const char *clue) {
        return QJsonObject{{"number", number}, {"direction", dir}, {"column", column}, {"row", 1},
                           {"slot", slot}, {"answer", answer}, {"clue", QString::fromUtf8(clue)}};
    };
    EXPECT_EQ(entries[0], entry(1, "across", 1, 1, "CAT", "Purring pet"));
    EXPECT_EQ(entries[1], entry(1, "down", 1, 0, "C.........?", "")) << "empty squares read '.', open ones '?'";
    EXPECT_EQ(entries[4], entry(4, "across", 5, 5, "DOG", "Barking “pet”"));
    EXPECT_EQ(ReadFileBytes(path), before) << "info never writes";

    // Nor does it rewrite a version 5 file, as opening one in the program does.
    const QString old = dir.path("old.xwd");
    ASSERT_EQ(RunCli({"convert", "--version5", path, old}).code, 0);
    EXPECT_EQ(ReadFileBytes(old).size(), PuzzleFile5Size);

    const TCliRun v5 = RunCli({"info", "--json", old});
    ASSERT_EQ(v5.code, 0);
    EXPECT_EQ(QJsonDocument::fromJson(v5.out).object()["format"].toInt(), 5);
    EXPECT_EQ(ReadFileBytes(old).size(), PuzzleFile5Size);
}

TEST(Cli, NewWritesAnEmptyPuzzleOfALegalSize)
{
    TScratchDir dir;
    const QString out = dir.path("new.xwd");
    const TCliRun r = RunCli({"new", "--size", "13", "--language", "french", "--byline", "Jo", out});
    ASSERT_EQ(r.code, 0) << r.err.toStdString();
    EXPECT_TRUE(SameRecord(DecodePuzzle(ReadFileBytes(out)), PuzzleFrom("size 13\nlanguage 1\nbyline Jo\n")));

    for (const char *size : {"12", "9", "25", "x"}) {
        const TCliRun bad = RunCli({"new", "--size", size, dir.path("bad.xwd")});
        EXPECT_EQ(bad.code, 1) << size;
        EXPECT_TRUE(bad.err.contains("--size")) << bad.err.toStdString();
        EXPECT_FALSE(QFile::exists(dir.path("bad.xwd")));
    }
    EXPECT_EQ(RunCli({"new", "--size", "11", "--language", "Klingon", out}).code, 1);
}

TEST(Cli, UnreadableInputAndBadArgumentsFailWithOneLine)
{
    TScratchDir dir;
    ASSERT_TRUE(WriteFileBytes(dir.path("short.xwd"), QByteArray(100, 'x')));
    // Which files are refused is the file format's test; here how a refusal ends.
    for (const QStringList &args : {QStringList{"info", dir.path("short.xwd")}, QStringList{"info", dir.path("none.xwd")},
                                    QStringList{"convert", dir.path("short.xwd"), dir.path("out.xwd")}}) {
        const TCliRun r = RunCli(args);
        EXPECT_EQ(r.code, 2);
        EXPECT_EQ(r.err, "quillmark-cli: Puzzle not in Quillmark format or is corrupt.\n");
        EXPECT_TRUE(r.out.isEmpty());
    }
    EXPECT_FALSE(QFile::exists(dir.path("out.xwd")));
    EXPECT_EQ(ReadFileBytes(dir.path("short.xwd")), QByteArray(100, 'x'));

    for (const QStringList &args : {QStringList{}, QStringList{"frobnicate"}, QStringList{"info"},
                                    QStringList{"info", "--xml", "a.xwd"}, QStringList{"new", "--size"}}) {
        const TCliRun r = RunCli(args);
        EXPECT_EQ(r.code, 1) << args.join(' ').toStdString();
        EXPECT_EQ(r.err.count(u'\n'), 1);
    }
    const TCliRun help = RunCli({"--help"});
    EXPECT_EQ(help.code, 0);
    for (const char *command : {"info", "new", "convert", "import", "export-text"})
        EXPECT_TRUE(help.text().contains(command));
}

TEST(Cli, ImportAndExportTextRoundTrip)
{
    TScratchDir dir;
    ASSERT_TRUE(WriteFileBytes(dir.path("p.txt"), Clued));
    ASSERT_EQ(RunCli({"import", dir.path("p.txt"), dir.path("p.xwd")}).code, 0);
    const TCliRun r = RunCli({"export-text", dir.path("p.xwd"), "-"});
    ASSERT_EQ(r.code, 0);
    EXPECT_EQ(PuzzleToText(PuzzleFromText(r.text())), PuzzleToText(PuzzleFromText(QString::fromUtf8(Clued))));

    ASSERT_TRUE(WriteFileBytes(dir.path("p.txt"), "size 11\ngrid\nABC\n"));
    const TCliRun bad = RunCli({"import", dir.path("p.txt"), dir.path("q.xwd")});
    EXPECT_EQ(bad.code, 2);
    EXPECT_TRUE(bad.err.contains("line 3")) << bad.err.toStdString();
    ASSERT_TRUE(WriteFileBytes(dir.path("p.txt"), "size 5\ngrid\nABCDE\n.....\n.....\n.....\n.....\n"));
    EXPECT_EQ(RunCli({"import", dir.path("p.txt"), dir.path("q.xwd")}).code, 2) << "no file the program would refuse";
    EXPECT_FALSE(QFile::exists(dir.path("q.xwd")));
}

TEST(Cli, NeedsNoDisplayAndRefusesOptionsItDoesNotKnow)
{
    TScratchDir dir;
    const QString in = writeClued(dir);
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("QT_QPA_PLATFORM", "xcb");  // a desktop's setting, over ssh with no display
    env.remove("DISPLAY");
    env.remove("WAYLAND_DISPLAY");
    p.setProcessEnvironment(env);
    p.start(QStringLiteral(QUILLMARK_CLI), {"info", in});
    ASSERT_TRUE(p.waitForFinished(30000));
    EXPECT_EQ(p.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().constData();

    for (const QStringList &args : {QStringList{"-platform", "bogus", "info", in}, QStringList{"info", "-platform", "bogus", in},
                                    QStringList{"info", in, "-reverse"}, QStringList{"export-text", in, "-", "-style=x"}}) {
        const TCliRun r = RunCli(args);
        EXPECT_EQ(r.code, 1) << args.join(' ').toStdString();
        EXPECT_TRUE(r.out.isEmpty());
    }
}

TEST(Cli, DeflistAndBylineReachTheClueTools)
{
    TScratchDir dir;
    const QString in = writeClued(dir);
    const TCliRun list = RunCli({"deflist", in});
    ASSERT_EQ(list.code, 0) << list.err.toStdString();
    const QStringList lines = list.text().split(u'\n');
    EXPECT_EQ(lines.mid(0, 3), (QStringList{"ACROSS", "    1  Purring pet  | CAT", QString::fromUtf8("    4  Barking “pet”  | DOG")}));
    EXPECT_TRUE(lines.contains("DOWN"));

    const QString out = dir.path("out.xwd");
    EXPECT_EQ(RunCli({"byline", "--text", QString::fromUtf8("Zoë 中"), in, out}).code, 1);
    EXPECT_FALSE(QFile::exists(out)) << "a byline the puzzle cannot keep writes nothing";
    EXPECT_EQ(RunCli({"byline", "--none", in, out}).code, 0);
    EXPECT_EQ(LoadPuzzleFile(out).Puzzle.Byline.text(), QByteArray("--"));
    EXPECT_EQ(RunCli({"byline", "--text", QString(61, u'x'), in, dir.path("long.xwd")}).code, 1);
    EXPECT_FALSE(QFile::exists(dir.path("long.xwd"))) << "a byline over 60 characters is refused, not cut";
    EXPECT_EQ(RunCli({"byline", "--text", QString(60, u'x'), in, out}).code, 0);
    EXPECT_EQ(LoadPuzzleFile(out).Puzzle.Byline.text(), QByteArray(60, 'x'));
    EXPECT_EQ(RunCli({"byline", in, out}).code, 1);
}

TEST(InspectCli, AnalyzeJsonHasEveryStatisticAndAllLetters)
{
    TScratchDir dir;
    const TCliRun r = RunCli({"analyze", "--json", writeFixture(dir)});
    ASSERT_EQ(r.code, 0);
    const QJsonObject o = QJsonDocument::fromJson(r.out).object();
    // The other figures are compared with the analysis window's in its test.
    EXPECT_EQ(o["identifier"].toString(), QString::fromUtf8("ÉTÉS - CAT    11x"));
    const QJsonObject letters = o["letters"].toObject();
    EXPECT_EQ(letters.size(), 27);
    EXPECT_EQ(letters["T"].toInt(), 3);
    EXPECT_EQ(letters["?"].toInt(), 0);
}

TEST(InspectCli, ScanForDecodesTheGridAndUpperCasesTheText)
{
    TScratchDir dir;
    const TCliRun r = RunCli({"scan", "--for", QString::fromUtf8("tés"), "--json", writeFixture(dir)});
    ASSERT_EQ(r.code, 0);
    const QJsonArray items = QJsonDocument::fromJson(r.out).object()["items"].toArray();
    ASSERT_EQ(items.size(), 2);
    EXPECT_EQ(items[0].toObject()["text"].toString(), QString::fromUtf8("ÉTÉS"));
    EXPECT_EQ(items[1].toObject()["row"].toInt(), 11);
    EXPECT_EQ(items[1].toObject()["direction"].toString(), "across");
    EXPECT_FALSE(QJsonDocument::fromJson(r.out).object().contains("repeats"));
}

TEST(InspectCli, TransformWritesTheTurnedGridAndFailuresWriteNothing)
{
    TScratchDir dir;
    const QString in = writeFixture(dir);
    const QString out = dir.path("out.xwd");
    // The turned grid is compared with the window's in its test.
    ASSERT_EQ(RunCli({"transform", "flip", in, out}).code, 0);

    const QString none = dir.path("none.xwd");
    EXPECT_EQ(RunCli({"transform", "spin", in, none}).code, 1);
    EXPECT_EQ(RunCli({"scan", "--json", in}).code, 1);
    WriteFileBytes(dir.path("bad.xwd"), "not a puzzle");
    EXPECT_EQ(RunCli({"transform", "invert", dir.path("bad.xwd"), none}).code, 2);
    EXPECT_EQ(RunCli({"analyze", dir.path("bad.xwd")}).code, 2);
    EXPECT_EQ(RunCli({"transform", "rotate", in, dir.path("no/such/folder/out.xwd")}).code, 3);
    EXPECT_FALSE(QFile::exists(none));
}

TEST(ExportCommands, WriteTheFilesTheWindowWrites)
{
    const TScratchDir dir;
    EXPECT_EQ(RunCli({"export-eps", "--light", example(), dir.path("s.eps")}).code, 0);
    EXPECT_EQ(RunCli({"export-wmf", example(), dir.path("s.wmf")}).code, 0);
    EXPECT_EQ(RunCli({"export-rtf", example(), dir.path("s.rtf")}).code, 0);
    EXPECT_EQ(RunCli({"export-picture", "--kind", "answers", example(), dir.path("s.png")}).code, 0);
    QStringList files = QDir(dir.path("")).entryList(QDir::Files);
    files.sort();
    EXPECT_EQ(files, QStringList({"s-A.EPS", "s-A.WMF", "s.EPS", "s.RTF", "s.TXT", "s.WMF", "s.png"}));
    EXPECT_TRUE(ReadFileBytes(dir.path("s.EPS")).contains("%%Title: s.eps [light]\r\n"));
    EXPECT_TRUE(ReadFileBytes(dir.path("s.RTF")).contains("{\\info{\\title s}")) << "named after the chosen file";
    const TPuzzle p = DecodePuzzle(ReadFileBytes(example()));
    EXPECT_EQ(QImage(dir.path("s.png")).width(), 30 * p.Size + 2);

    const TCliRun clues = RunCli({"export-clues", example(), "-"});
    EXPECT_EQ(clues.code, 0);
    EXPECT_EQ(clues.out, ReadFileBytes(dir.path("s.TXT")));
}

TEST(ExportCommands, FailuresEndWithTheirCodesAndWriteNothing)
{
    const TScratchDir dir;
    WriteFileBytes(dir.path("bad.xwd"), "not a puzzle");
    EXPECT_EQ(RunCli({"export-eps", example()}).code, 1);
    EXPECT_EQ(RunCli({"export-picture", "--kind", "pretty", example(), dir.path("p.png")}).code, 1);
    EXPECT_EQ(RunCli({"export-picture", "--kind", "answers", example(), dir.path("p.gif")}).code, 1);
    EXPECT_EQ(RunCli({"export-wmf", dir.path("bad.xwd"), dir.path("b.wmf")}).code, 2);
    EXPECT_EQ(RunCli({"export-eps", example(), dir.path("gone/s.eps")}).code, 3);
    EXPECT_EQ(RunCli({"export-rtf", example(), dir.path("gone/s.rtf")}).code, 3);
    EXPECT_EQ(QDir(dir.path("")).entryList(QDir::Files), QStringList{"bad.xwd"});

    // A set that fails at its answer picture (its name taken by a folder) leaves the earlier
    // export as it was: the file it had stays, the file the set made goes again.
    ASSERT_TRUE(WriteFileBytes(dir.path("old.TXT"), "old clues"));
    ASSERT_TRUE(QDir(dir.path("")).mkdir("old-A.WMF"));
    EXPECT_EQ(RunCli({"export-wmf", example(), dir.path("old.wmf")}).code, 3);
    EXPECT_EQ(ReadFileBytes(dir.path("old.TXT")), "old clues");
    EXPECT_FALSE(QFile::exists(dir.path("old.WMF")));
}
