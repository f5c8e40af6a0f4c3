#include "model/puzzlefile.h"
#include "clirun.h"
#include "testsupport.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

QString writePuzzle(const TScratchDir &dir, const QString &name, const QStringList &rows)
{
    return WritePuzzleText(dir.path(name), "size 11\ngrid\n" + GridRows(rows));
}

// A 3 x 3 corner of an 11 x 11 grid, with T given at its top right.
QString corner(const TScratchDir &dir)
{
    return writePuzzle(dir, QStringLiteral("corner.xwd"), {"..T########", "...########", "...########"});
}

QString wordList(const TScratchDir &dir, const QByteArray &text, const char *name = "words.txt")
{
    const QString path = dir.path(name);
    WriteFileBytes(path, text);
    return path;
}

}  // namespace

TEST(FillCli, WritesTheFilledGridOnSuccessAndNothingOnFailure)
{
    TScratchDir dir;
    const QString in = corner(dir);
    const QString out = dir.path(QStringLiteral("out.xwd"));
    const QString words = wordList(dir, "bat;60\nORE\nWED\nBOW\nARE\nTED\nCAB;90\n");
    ASSERT_EQ(RunCli({"fill", "--seed", "3", "--no-default-list", "--wordlist", words, in, out}).code, 0);
    const TPuzzle filled = LoadPuzzleFile(out).Puzzle;
    EXPECT_EQ(filled.GetWord(1, 1, 'a'), "BAT");
    EXPECT_EQ(filled.GetWord(1, 3, 'a'), "WED");
    EXPECT_EQ(filled.GetWord(3, 1, 'd'), "TED");

    // Without WED no fill exists: exit 4, the slot at fault named, no file.
    const QString none = dir.path(QStringLiteral("none.xwd"));
    const TCliRun impossible = RunCli({"fill", "--no-default-list", "--wordlist",
                                    wordList(dir, "BAT\nORE\nBOW\nARE\nTED\n"), in, none});
    EXPECT_EQ(impossible.code, 4);
    EXPECT_TRUE(impossible.err.contains("Across") || impossible.err.contains("Down")) << impossible.err.toStdString();
    EXPECT_FALSE(QFile::exists(none));
}

TEST(FillCli, ExitCodesForTheTimeLimitBadArgumentsAndUnreadableOrUnwritableFiles)
{
    TScratchDir dir;
    const QString in = corner(dir);
    const QString out = dir.path(QStringLiteral("out.xwd"));
    const QString words = wordList(dir, "BAT\nORE\nWED\nBOW\nARE\nTED\n");
    // 24 separate two-letter slots and 23 words: the search runs until it is stopped.
    QStringList rows = {QStringLiteral("..#..#..#..")};
    while (rows.size() < 11)
        rows << QStringLiteral("###########") << rows.first();
    const QString endless = writePuzzle(dir, QStringLiteral("endless.xwd"), rows);
    QByteArray twoLetter;
    for (char a = 'A'; a < 'A' + 23; ++a)
        twoLetter += QByteArray(1, a) + "Z\n";
    const QString twoLetterList = wordList(dir, twoLetter, "two.txt");

    const struct {
        const char *what;
        QStringList args;
        int code;
    } cases[] = {
        {"the time limit runs out", {"fill", "--time-limit", "0.3", "--no-default-list", "--wordlist", twoLetterList, endless, out}, 5},
        {"a seed is not a number", {"fill", "--seed", "x", "--no-default-list", "--wordlist", words, in, out}, 1},
        {"a minimum score is out of range", {"fill", "--min-score", "101", "--no-default-list", "--wordlist", words, in, out}, 1},
        {"OUT is missing", {"fill", "--no-default-list", "--wordlist", words, in}, 1},
        {"IN cannot be read", {"fill", "--no-default-list", "--wordlist", words, dir.path("missing.xwd"), out}, 2},
        {"a word list cannot be read", {"fill", "--no-default-list", "--wordlist", dir.path("missing.txt"), in, out}, 2},
        {"OUT cannot be written", {"fill", "--no-default-list", "--wordlist", words, in, dir.path("no/such/dir/out.xwd")}, 3},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(RunCli(c.args).code, c.code) << "when " << c.what;
        EXPECT_FALSE(QFile::exists(out)) << "when " << c.what;
    }
}
