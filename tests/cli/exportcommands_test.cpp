#include "model/puzzlefile.h"
#include "clirun.h"
#include "testsupport.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

namespace {

QString example() { return QStringLiteral(QUILLMARK_EXAMPLES "/sunday-stroll.xwd"); }

}  // namespace

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
