// Every export of a sample puzzle compared byte for byte with the files kept in
// tests/data/expected. A deliberate change to a format is made by running this test once
// with QUILLMARK_WRITE_EXPECTED=1 in the environment, which writes the files anew (and fails,
// so that it cannot pass unnoticed), and reviewing their diff before committing it.

#include "model/puzzlefile.h"
#include "model/puzzletext.h"
#include "output/eps.h"
#include "output/gridpicture.h"
#include "output/rtf.h"
#include "testsupport.h"
#include "web/webpage.h"

#include <QFileInfo>

#include <gtest/gtest.h>

namespace {

const QString Expected = QStringLiteral(QUILLMARK_TEST_DATA "/expected/");

void compareWithExpected(const QString &name, const QByteArray &bytes)
{
    if (qEnvironmentVariableIsSet("QUILLMARK_WRITE_EXPECTED")) {
        ASSERT_TRUE(WriteFileBytes(Expected + name, bytes));
        FAIL() << "wrote " << name.toStdString() << "; unset QUILLMARK_WRITE_EXPECTED and review the diff";
    }
    const QByteArray expected = ReadFileBytes(Expected + name);
    ASSERT_FALSE(expected.isEmpty()) << name.toStdString() << " is missing";
    if (bytes == expected)
        return;
    qsizetype at = 0;
    while (at < bytes.size() && at < expected.size() && bytes[at] == expected[at])
        ++at;
    FAIL() << name.toStdString() << " differs from byte " << at << " on (" << bytes.size() << " bytes, expected "
           << expected.size() << ")";
}

void compareSet(const QList<TExportFile> &files)
{
    for (const TExportFile &file : files)
        compareWithExpected(QFileInfo(file.Path).fileName(), file.Bytes);
}

}  // namespace

TEST(ExpectedFiles, MetafilesAndTheirClueList)
{
    compareSet(WmfExportSet(SamplePuzzle(), QStringLiteral("/out/stroll.wmf")));
}

TEST(ExpectedFiles, EpsGridsInBothStyles)
{
    compareSet(EpsExportSet(SamplePuzzle(), "/out/stroll.eps", EpsStyle::Regular, "1/2/03"));
    compareSet(EpsExportSet(SamplePuzzle(), "/out/light.eps", EpsStyle::Light, "1/2/03"));
    // Other sizes: an eleven, its first square black, and an open fifteen in the light style.
    const TPuzzle eleven =
        PuzzleFrom(QStringLiteral("size 11\ngrid\n#..........\n") + QString(11, '.').append('\n').repeated(10));
    compareWithExpected(QStringLiteral("eleven.eps"), EpsGridText(eleven, GridKind::NumberedGrid, EpsStyle::Regular,
                                                                 "/any/PUZZLE.eps", "21/01/2003"));
    const TPuzzle fifteen = PuzzleFrom(QStringLiteral("size 15\ngrid\n") + QString(15, '.').append('\n').repeated(15));
    compareWithExpected(QStringLiteral("fifteen-light.eps"),
                        EpsGridText(fifteen, GridKind::NumberedGrid, EpsStyle::Light, "/d/P.eps", "x"));
}

// The address block has four lines, or five with Add4; only the first four carry the
// specification beside them.
TEST(ExpectedFiles, RtfManuscripts)
{
    const QString spec =
        QStringLiteral("Size of Grid: 15\u00d7\r\n Black Squares: 38  Par: 37\r\n Word Count: 78  Par: 78");
    compareWithExpected(QStringLiteral("stroll.rtf"),
                        RtfManuscript(SamplePuzzle(), {"Zo\xEB Maker", "1 Main St", "Town", "Country", ""}, "STROLL", spec));
    // 1 Across AB, 1 Down AC, 2 Down BD, 3 Across CD, with quotes and RTF's own characters.
    const TPuzzle four = PuzzleFrom(QStringLiteral("size 11\ngrid\nAB#########\nCD#########\n")
                                    + QStringLiteral("###########\n").repeated(9)
                                    + QStringLiteral("clues\n1A He said \"yes\" and \"no\"\n1D It's {\\b x}\n3A Odd \"one\n"));
    compareWithExpected(QStringLiteral("four.rtf"),
                        RtfManuscript(four, {"N", "A1", "A2", "A3", "A4"}, "MYPUZ", spec));
}

// The fifteen's clues hold markup, "</script>" and "<!--<script", which must stay text.
TEST(ExpectedFiles, WebPage)
{
    compareWithExpected(QStringLiteral("fifteen.html"), WebPage(Fifteen(), QStringLiteral("fifteen")));
}
