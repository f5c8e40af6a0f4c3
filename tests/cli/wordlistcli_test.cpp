// The word-list commands, fill among them, each with only the test's own list so that the
// answers do not hang on the installed lists.

#include "model/puzzlefile.h"
#include "clirun.h"
#include "testsupport.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

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

// The command in `args` reading the list at `list` alone.
QStringList onlyList(const QString &list, const QStringList &args)
{
    return QStringList{args.first(), "--no-default-list", "--wordlist", list} + args.mid(1);
}

QStringList withList(const TScratchDir &dir, const QStringList &args)
{
    return onlyList(wordList(dir, "cat;60\ncot;70\ncut\ndog;90\ntea;20\nat\n"), args);
}

}  // namespace

TEST(FillCli, WritesTheFilledGridOnSuccessAndNothingOnFailure)
{
    TScratchDir dir;
    const QString in = corner(dir);
    const QString out = dir.path(QStringLiteral("out.xwd"));
    const QString words = wordList(dir, "bat;60\nORE\nWED\nBOW\nARE\nTED\nCAB;90\n");
    ASSERT_EQ(RunCli(onlyList(words, {"fill", "--seed", "3", in, out})).code, 0);
    const TPuzzle filled = LoadPuzzleFile(out).Puzzle;
    EXPECT_EQ(filled.GetWord(1, 1, 'a'), "BAT");
    EXPECT_EQ(filled.GetWord(1, 3, 'a'), "WED");
    EXPECT_EQ(filled.GetWord(3, 1, 'd'), "TED");

    // Without WED no fill exists: exit 4, the slot at fault named, no file.
    const QString none = dir.path(QStringLiteral("none.xwd"));
    const TCliRun impossible = RunCli(onlyList(wordList(dir, "BAT\nORE\nBOW\nARE\nTED\n"), {"fill", in, none}));
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
        {"the time limit runs out", onlyList(twoLetterList, {"fill", "--time-limit", "0.3", endless, out}), 5},
        {"a seed is not a number", onlyList(words, {"fill", "--seed", "x", in, out}), 1},
        {"a minimum score is out of range", onlyList(words, {"fill", "--min-score", "101", in, out}), 1},
        {"OUT is missing", onlyList(words, {"fill", in}), 1},
        {"IN cannot be read", onlyList(words, {"fill", dir.path("missing.xwd"), out}), 2},
        {"a word list cannot be read", onlyList(dir.path("missing.txt"), {"fill", in, out}), 2},
        {"OUT cannot be written", onlyList(words, {"fill", in, dir.path("no/such/dir/out.xwd")}), 3},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(RunCli(c.args).code, c.code) << "when " << c.what;
        EXPECT_FALSE(QFile::exists(out)) << "when " << c.what;
    }
}

TEST(WordListCli, MatchListsBestScoreFirstThenAlphabetical)
{
    TScratchDir dir;
    EXPECT_EQ(RunCli(withList(dir, {"match", "c?t"})).out, "COT\t70\nCAT\t60\nCUT\t50\n");
    EXPECT_EQ(RunCli(withList(dir, {"match", "--min-score", "55", "C?T"})).out, "COT\t70\nCAT\t60\n");
    EXPECT_EQ(RunCli(withList(dir, {"match", "--count", "???"})).out, "5\n");
    EXPECT_EQ(QJsonDocument::fromJson(RunCli(withList(dir, {"match", "--json", "?O?"})).out).object(),
              (QJsonObject{{"count", 2}, {"words", QJsonArray{QJsonObject{{"word", "DOG"}, {"score", 90}},
                                                              QJsonObject{{"word", "COT"}, {"score", 70}}}}}));
}

TEST(WordListCli, BadPatternsAndListsEndWithTheirExitCodes)
{
    TScratchDir dir;
    const TCliRun accented = RunCli(withList(dir, {"match", QString::fromUtf8("É?")}));
    EXPECT_EQ(accented.code, 1) << "É is no English letter";
    EXPECT_TRUE(accented.out.isEmpty());
    EXPECT_EQ(RunCli(withList(dir, {"match", "--language", "French", QString::fromUtf8("É?")})).code, 0);
    EXPECT_EQ(RunCli(withList(dir, {"match", "C1T"})).code, 1);
    EXPECT_EQ(RunCli(withList(dir, {"match", "--min-score", "101", "C?T"})).code, 1);
    EXPECT_EQ(RunCli({"match", "--wordlist", dir.path("missing.txt"), "C?T"}).code, 2);
}

TEST(WordListCli, FillReportScoresEveryCompleteEntry)
{
    TScratchDir dir;
    const QString path =
        WritePuzzleText(dir.path("in.xwd"), "size 11\ngrid\n" + GridRows({"CAT#CAT#ZZ#", "O##########", "T#DO.######"}));
    const QJsonObject o = QJsonDocument::fromJson(RunCli(withList(dir, {"fill-report", "--json", path})).out).object();
    EXPECT_EQ(o["entries"].toArray().size(), 4) << "the unfinished DO? is not an entry";
    ASSERT_EQ(o["notInList"].toArray().size(), 1);
    EXPECT_EQ(o["notInList"].toArray()[0].toObject()["word"].toString(), "ZZ");
    EXPECT_EQ(o["repeated"].toArray(), QJsonArray{"CAT"});
    EXPECT_EQ(o["lowest"].toArray()[0].toObject()["word"].toString(), "CAT");
    EXPECT_DOUBLE_EQ(o["averageScore"].toDouble(), (60 + 60 + 70) / 3.0);
    EXPECT_EQ(RunCli({"fill-report", dir.path("missing.xwd")}).code, 2);
}
