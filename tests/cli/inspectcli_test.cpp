#include "model/puzzlefile.h"
#include "clirun.h"
#include "testsupport.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

// ÉTÉS holds a Windows-1252 letter, which the JSON must carry as itself.
QString writeFixture(const TScratchDir &dir)
{
    return WritePuzzleText(dir.path("in.xwd"), QString::fromUtf8("size 11\ngrid\nÉTÉS#CAT#AB\n")
                                                   + QStringLiteral("###########\n").repeated(9)
                                                   + QString::fromUtf8(".TÉS#######\nclues\n1A Summers\n2A Pet\n"));
}

}  // namespace

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
