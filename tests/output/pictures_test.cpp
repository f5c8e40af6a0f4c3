// The grid's pictures, each read back by an independent reader: EPS by ghostscript, the
// metafiles by libwmf, PNG and SVG by Qt.

#include "output/clipboardtext.h"
#include "model/puzzlefile.h"
#include "output/eps.h"
#include "output/gridpicture.h"
#include "testsupport.h"

#include <QImage>
#include <QProcess>
#include <QSvgRenderer>

#include <gtest/gtest.h>

namespace {

// (1,1), (5,1) and (7,7) black; (2,2) starts nothing; (13,13) an empty square.
TPuzzle thirteen()
{
    QString text = QStringLiteral("size 13\ngrid\n#IW##........\n");
    for (int r = 2; r <= 13; ++r)
        text += r == 7 ? QStringLiteral("......#......\n") : r == 13 ? QStringLiteral("QUILLMARKABC.\n")
                                                                     : QStringLiteral("QUILLMARKABCD\n");
    return PuzzleFrom(text);
}

// The thirteen drawn with squares of `square` pixels inside a one-pixel margin: each square
// shaded at a point in its lower-right corner, clear of numbers and letters.
void expectSquares(const QImage &image, int square)
{
    ASSERT_EQ(image.size(), QSize(13 * square + 2, 13 * square + 2));
    const auto shade = [&](int c, int r) { return qGray(image.pixel(square * c - 3, square * r - 3)); };
    for (const QPoint black : {QPoint(1, 1), QPoint(5, 1), QPoint(7, 7)})
        EXPECT_LT(shade(black.x(), black.y()), 80) << "black at " << black.x() << "," << black.y();
    EXPECT_GT(std::min(shade(2, 2), shade(13, 13)), 170);
    // The shared border between columns 1 and 2 (libwmf may round it one unit left).
    EXPECT_LT(std::min(qGray(image.pixel(square, square + 20)), qGray(image.pixel(square + 1, square + 20))), 120);
}

// A reader run to its end: what it wrote to its standard output.
QByteArray runReader(const QString &program, const QStringList &args)
{
    QProcess p;
    p.start(program, args);
    EXPECT_TRUE(p.waitForFinished(30000));
    EXPECT_EQ(p.exitCode(), 0) << program.toStdString() << ": " << p.readAllStandardError().constData();
    return p.readAllStandardOutput();
}

// Ghostscript's reading of an EPS through `device`, to `output` ("-" for its standard output).
QByteArray ghostscript(const TScratchDir &dir, const QByteArray &eps, const QStringList &device, const QString &output)
{
    WriteFileBytes(dir.path("in.eps"), eps);
    return runReader(QStringLiteral("gs"), QStringList{"-q", "-dSAFER", "-dBATCH", "-dNOPAUSE"} + device
                                               + QStringList{"-sOutputFile=" + output, dir.path("in.eps")});
}

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

int textItems(const TGridPicture &picture)
{
    return int(std::ranges::count(picture.Items, TPictureItem::Text, &TPictureItem::Kind));
}

}  // namespace

TEST(GridPicture, EachKindCarriesItsNumbersAndLetters)
{
    const TPuzzle p = thirteen();
    const int letters = 2 + 10 * 13 + 12;  // rows 1, 2 to 12 but 7, and 13
    const int numbered = textItems(DrawGridPicture(p, GridKind::NumberedGrid));
    EXPECT_EQ(textItems(DrawGridPicture(p, GridKind::AnswerGrid)), letters);
    // Row 1's ten starts, the first square of each further row, the two down starts under
    // row 1's blocks, and the two starts beside and under the block at (7, 7).
    EXPECT_EQ(numbered, 10 + 12 + 2 + 2);
    EXPECT_EQ(textItems(DrawGridPicture(p, GridKind::NumberedAnswerGrid)), numbered + letters);
    const TPuzzle fifteen = PuzzleFrom(QStringLiteral("size 15\ngrid\n") + QString(15, '.').append('\n').repeated(15));
    EXPECT_EQ(DrawGridPicture(fifteen, GridKind::NumberedGrid).Extent, 452);
}

TEST(GridPicture, PngAndSvgShowTheSquaresAtThirtyUnitsEach)
{
    const TGridPicture picture = DrawGridPicture(thirteen(), GridKind::NumberedAnswerGrid);
    expectSquares(QImage::fromData(GridPicturePng(picture), "PNG"), 30);
    QSvgRenderer svg(GridPictureSvg(picture, QStringLiteral("P.WMF")));
    ASSERT_TRUE(svg.isValid());
    EXPECT_EQ(svg.viewBox(), QRect(0, 0, 392, 392));
}

TEST(GridPicture, LibwmfReadsBothMetafilesWithTheirSquares)
{
    // The set's file names are ExportCommands.WriteTheFilesTheWindowWrites' test.
    const TScratchDir dir;
    const QList<TExportFile> set = WmfExportSet(thirteen(), dir.path("PUZ.wmf"));
    ASSERT_EQ(set.size(), 3);
    WriteExportSet(set);
    for (const TExportFile &file : set.mid(1)) {
        runReader(QStringLiteral("wmf2gd"), {"-t", "png", "-o", file.Path + ".png", file.Path});
        expectSquares(QImage(file.Path + ".png"), 30);
        runReader(QStringLiteral("wmf2svg"), {"-o", file.Path + ".svg", file.Path});
        EXPECT_TRUE(QSvgRenderer(file.Path + ".svg").isValid());
    }
}

TEST(GridPicture, MetafileNumbersAreDrawnClearAndTheBackgroundIsSolidAgainAfterEach)
{
    const QByteArray wmf = GridPictureWmf(DrawGridPicture(thirteen(), GridKind::NumberedGrid), "P.WMF");
    auto word = [&](qsizetype at) { return uint16_t(uchar(wmf[at]) | uchar(wmf[at + 1]) << 8); };
    int mode = 2;  // a new device context draws opaque
    int numbers = 0;
    for (qsizetype at = 18; at + 6 <= wmf.size();) {
        const qsizetype words = word(at) | qsizetype(word(at + 2)) << 16;
        const uint16_t function = word(at + 4);
        if (function == 0x0102)
            mode = word(at + 6);
        if (function == 0x0521) {
            EXPECT_EQ(mode, 1) << "a number drawn on an opaque background";
            ++numbers;
        }
        if (function == 0x041B)
            EXPECT_EQ(mode, 2) << "a square drawn after a number while the background is still clear";
        ASSERT_GE(words, 3);
        at += 2 * words;
    }
    EXPECT_EQ(numbers, 10 + 12 + 2 + 2);
    EXPECT_EQ(mode, 2);
}

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
    for (const GridKind kind : {GridKind::NumberedGrid, GridKind::AnswerGrid})
        for (const EpsStyle style : {EpsStyle::Regular, EpsStyle::Light}) {
            // At one pixel a point, cropped to the bounding box.
            ghostscript(dir, EpsGridText(thirteen(), kind, style, "P.eps", "d"), {"-dEPSCrop", "-sDEVICE=png16m", "-r72"},
                        dir.path("out.png"));
            expectSquares(QImage(dir.path("out.png")), 23);
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
