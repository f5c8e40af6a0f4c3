#include "model/cp1252.h"
#include "model/puzzlefile.h"
#include "model/puzzletext.h"
#include "clirun.h"
#include "testsupport.h"
#include "web/webpage.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

// The JSON the page's script reads, taken back out of the page.
QJsonObject embeddedPuzzle(const QString &page)
{
    static const QRegularExpression data(QStringLiteral(R"(<script type="application/json" id="puzzle-data">(.*?)</script>)"),
                                         QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch m = data.match(page);
    EXPECT_TRUE(m.hasMatch());
    return QJsonDocument::fromJson(m.captured(1).toUtf8()).object();
}

}  // namespace

// The fifteen's own clues and byline, markup and "</script>" among them, are the expected
// page's test; a title is the user's text too.
TEST(WebPage, TheTitleIsTextNotMarkup)
{
    const QString page = QString::fromUtf8(WebPage(Fifteen(), QStringLiteral("Tom & <Jerry>")));
    EXPECT_TRUE(page.contains(QStringLiteral("<title>Tom &amp; &lt;Jerry&gt;</title>")));
    EXPECT_EQ(embeddedPuzzle(page)["title"].toString(), QStringLiteral("Tom & <Jerry>"));
}

TEST(WebPage, AnswersAreNotReadableInThePageSource)
{
    const TPuzzle p = Fifteen();
    const QString page = QString::fromUtf8(WebPage(p, QStringLiteral("fifteen")));
    for (const TWordRef &w : WordsInSlotOrder(p)) {
        const QString answer = FromCp1252(p.GetWord(w.Column, w.Row, char(w.Dir)));
        if (answer.size() >= 5) {
            EXPECT_FALSE(page.contains(answer)) << answer.toStdString();
        }
    }
}

TEST(WebPage, CliWritesPagesOrNothingWithTheUsualExitCodes)
{
    TScratchDir dir;
    const QString puzzle = dir.path("fifteen.xwd");
    WriteFileAtomically(puzzle, EncodePuzzle(Fifteen()));
    WriteFileBytes(dir.path("short.xwd"), QByteArray(100, 'x'));

    EXPECT_EQ(RunCli({"export-web", puzzle, dir.path("page.html")}).code, 0);
    EXPECT_EQ(embeddedPuzzle(QString::fromUtf8(ReadFileBytes(dir.path("page.html"))))["title"].toString(), "fifteen");
    EXPECT_EQ(RunCli({"generate-player", dir.path("player.html")}).code, 0);
    EXPECT_EQ(ReadFileBytes(dir.path("player.html")), PlayerPage());

    EXPECT_EQ(RunCli({"export-web", puzzle}).code, 1);
    EXPECT_EQ(RunCli({"export-web", dir.path("short.xwd"), dir.path("bad.html")}).code, 2);
    EXPECT_EQ(RunCli({"export-web", puzzle, dir.path("missing/folder/page.html")}).code, 3);
    EXPECT_EQ(RunCli({"player", dir.path("missing/folder/player.html")}).code, 3);
    EXPECT_FALSE(QFile::exists(dir.path("bad.html")));

    // An unfinished puzzle is refused as bad input, with its empty squares named.
    TPuzzle unfinished = Fifteen();
    unfinished.Cells(2, 1) = 0;
    unfinished.Cells(3, 1) = OpenChar;
    WriteFileAtomically(dir.path("unfinished.xwd"), EncodePuzzle(unfinished));
    const TCliRun refused = RunCli({"export-web", dir.path("unfinished.xwd"), dir.path("u.html")});
    EXPECT_EQ(refused.code, 1);
    EXPECT_TRUE(refused.err.contains(u"2 squares have no letter (row 1, column 2; row 1, column 3)"));
    EXPECT_FALSE(QFile::exists(dir.path("u.html")));
}
