#include "clirun.h"
#include "testsupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

// Only the test's own list, so the answers do not hang on the installed lists.
QStringList withList(const TScratchDir &dir, const QStringList &args)
{
    WriteFileBytes(dir.path("words.txt"), "cat;60\ncot;70\ncut\ndog;90\ntea;20\nat\n");
    return QStringList{args.first(), "--no-default-list", "--wordlist", dir.path("words.txt")} + args.mid(1);
}

}  // namespace

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
