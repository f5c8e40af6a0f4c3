#include "output/clipboardtext.h"
#include "model/puzzlefile.h"
#include "output/eps.h"
#include "testsupport.h"

#include <QImage>
#include <QProcess>

#include <gtest/gtest.h>

namespace {

// An open eleven but for `first`, its first row.
TPuzzle openEleven(const QString &first = QStringLiteral("#.........."))
{
    return PuzzleFrom("size 11\ngrid\n" + GridRows({first}, 11, u'.'));
}

QList<QByteArray> lines(const QByteArray &file)
{
    EXPECT_TRUE(file.endsWith("\r\n"));
    QList<QByteArray> out = file.split('\n');
    out.removeLast();
    for (QByteArray &line : out) {
        EXPECT_TRUE(line.endsWith('\r'));
        line.chop(1);
    }
    return out;
}

// Ghostscript's reading of an EPS through `device`, to `output` ("-" for its standard output).
QByteArray ghostscript(const TScratchDir &dir, const QByteArray &eps, const QStringList &device, const QString &output)
{
    WriteFileBytes(dir.path("in.eps"), eps);
    QProcess gs;
    gs.start(QStringLiteral("gs"), QStringList{"-q", "-dSAFER", "-dBATCH", "-dNOPAUSE"} + device
                                       + QStringList{"-sOutputFile=" + output, dir.path("in.eps")});
    EXPECT_TRUE(gs.waitForFinished(30000));
    EXPECT_EQ(gs.exitCode(), 0) << gs.readAllStandardError().constData();
    return gs.readAllStandardOutput();
}

}  // namespace

TEST(EpsExport, AnswerGridMarksIAndWAndWritesEveryOtherSquareAsALetterBox)
{
    const QList<QByteArray> l =
        lines(EpsGridText(openEleven("IWA#......."), GridKind::AnswerGrid, EpsStyle::Regular, "P.eps", "d"));
    EXPECT_EQ(l.mid(13, 3), (QList<QByteArray>{"/lb {wb x y mv 5 -17 rm} def", "/ib {wb x y mv 8 -17 rm} def",
                                               "/ww {wb x y mv 4 -17 rm} def"}));
    EXPECT_EQ(l[22], "/Helvetica-Bold findfont 16 scalefont setfont");
    EXPECT_TRUE(l[23].startsWith("nc ib (I) sh ww (W) sh lb (A) sh bb lb (" + QByteArray(1, '\0') + ") sh"));
}

TEST(EpsExport, RowLinesAreCutAt255Characters)
{
    const TPuzzle p = PuzzleFrom(QStringLiteral("size 23\ngrid\n") + QStringLiteral(".").repeated(23).append('\n').repeated(23));
    for (const QByteArray &line : lines(EpsGridText(p, GridKind::NumberedGrid, EpsStyle::Regular, "P.eps", "d")))
        EXPECT_LE(line.size(), 255);
}

TEST(EpsExport, TheSetIsNamedAfterTheChosenFileWithTheFixedFourCharacterCut)
{
    QStringList paths;
    for (const TExportFile &file : EpsExportSet(openEleven(), "/x/PUZZLE.eps", EpsStyle::Regular, "d"))
        paths << file.Path;
    EXPECT_EQ(paths, QStringList({"/x/PUZZLE.TXT", "/x/PUZZLE.EPS", "/x/PUZZLE-A.EPS"}));
    EXPECT_EQ(AnswerFilePath("/x/P.ps", "-A.EPS"), "/x/-A.EPS");
    EXPECT_EQ(ChangeFileExt("/x.d/NOEXT", ".EPS"), "/x.d/NOEXT.EPS");
}

TEST(ClueListText, ListsAcrossThenDownWithNumbersPaddedToThree)
{
    const TPuzzle p = PuzzleFrom(QStringLiteral("size 11\ngrid\n") + QStringLiteral("AB#########\nCD#########\n")
                                 + QStringLiteral("###########\n").repeated(9)
                                 + QStringLiteral("clues\n1A First across\n1D First down\n3A Third\n"));
    EXPECT_EQ(ClueListText(p), "ACROSS\r\n  1 First across\r\n  3 Third\r\nDOWN\r\n  1 First down\r\n  2 \r\n");
}

TEST(EpsExport, GhostscriptDrawsTheBlackSquaresOfEveryFile)
{
    const TScratchDir dir;
    QString text = QStringLiteral("size 13\ngrid\n#IW##........\n");
    for (int r = 2; r <= 13; ++r)
        text += r == 7 ? QStringLiteral("......#......\n") : QStringLiteral("QUILLMARKABCD\n");
    const TPuzzle p = PuzzleFrom(text);
    for (const GridKind kind : {GridKind::NumberedGrid, GridKind::AnswerGrid})
        for (const EpsStyle style : {EpsStyle::Regular, EpsStyle::Light}) {
            // At one pixel a point, cropped to the bounding box.
            ghostscript(dir, EpsGridText(p, kind, style, "P.eps", "d"), {"-dEPSCrop", "-sDEVICE=png16m", "-r72"},
                        dir.path("out.png"));
            const QImage image(dir.path("out.png"));
            ASSERT_EQ(image.size(), QSize(301, 301));
            // A square's lower-right quarter holds no number or letter ink.
            auto shade = [&](int c, int r) { return qGray(image.pixel(1 + 23 * (c - 1) + 19, 1 + 23 * (r - 1) + 19)); };
            for (const QPoint black : {QPoint(1, 1), QPoint(7, 7), QPoint(5, 1)})
                EXPECT_LT(shade(black.x(), black.y()), 80) << "black at " << black.x() << "," << black.y();
            EXPECT_GT(std::min(shade(2, 2), shade(13, 13)), 170);
        }
}

TEST(EpsExport, AGermanAnswerGridPrintsEveryLetterThroughItsOwnCharacterSet)
{
    const TScratchDir dir;
    TPuzzle p = PuzzleFrom(QStringLiteral("size 11\nlanguage 4\ngrid\nÄÖÜßWEIT###\n") + QString(11, '.').append('\n').repeated(10));
    const QByteArray eps = EpsGridText(p, GridKind::AnswerGrid, EpsStyle::Regular, "G.eps", "1.1.2026");
    for (const QByteArray &line : eps.split('\n'))
        EXPECT_LE(line.size(), 256);
    const QString text =
        QString::fromUtf8(ghostscript(dir, eps, {"-sDEVICE=txtwrite"}, QStringLiteral("-"))).simplified().remove(u' ');
    EXPECT_TRUE(text.startsWith(QStringLiteral("ÄÖÜßWEIT"))) << text.toStdString();

    // An English grid keeps its plain font line.
    const QByteArray english =
        EpsGridText(PuzzleFrom(QStringLiteral("size 11\ngrid\n") + QString(11, 'W').append('\n').repeated(11)),
                    GridKind::AnswerGrid, EpsStyle::Regular, "E.eps", "1.1.2026");
    EXPECT_TRUE(english.contains("\r\n/Helvetica-Bold findfont 16 scalefont setfont\r\n"));
    EXPECT_FALSE(english.contains("1252"));
}
