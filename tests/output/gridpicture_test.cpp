#include "output/gridpicture.h"
#include "testsupport.h"

#include <QImage>
#include <QProcess>
#include <QSvgRenderer>

#include <gtest/gtest.h>

namespace {

// (1,1) and (7,7) black; (2,2) starts nothing; (13,13) an empty square.
TPuzzle thirteen()
{
    QString text = QStringLiteral("size 13\ngrid\n#IW##........\n");
    for (int r = 2; r <= 13; ++r)
        text += r == 7 ? QStringLiteral("......#......\n") : r == 13 ? QStringLiteral("QUILLMARKABC.\n")
                                                                     : QStringLiteral("QUILLMARKABCD\n");
    return PuzzleFrom(text);
}

// A point in a square's lower-right corner, clear of numbers and letters.
int shade(const QImage &image, int c, int r)
{
    return qGray(image.pixel(1 + 30 * (c - 1) + 27, 1 + 30 * (r - 1) + 27));
}

void expectSquares(const QImage &image)
{
    ASSERT_EQ(image.size(), QSize(392, 392));
    EXPECT_LT(shade(image, 1, 1), 80);
    EXPECT_LT(shade(image, 7, 7), 80);
    EXPECT_GT(shade(image, 2, 2), 170);
    EXPECT_GT(shade(image, 13, 13), 170);
    // The shared border between columns 1 and 2 (libwmf may round it one unit left).
    EXPECT_LT(std::min(qGray(image.pixel(30, 50)), qGray(image.pixel(31, 50))), 120);
}

int textItems(const TGridPicture &picture)
{
    return int(std::ranges::count(picture.Items, TPictureItem::Text, &TPictureItem::Kind));
}

// One of libwmf's converters run on a metafile.
void convert(const QString &program, const QStringList &args)
{
    QProcess p;
    p.start(program, args);
    ASSERT_TRUE(p.waitForFinished(30000));
    EXPECT_EQ(p.exitCode(), 0) << program.toStdString() << ": " << p.readAllStandardError().constData();
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
    expectSquares(QImage::fromData(GridPicturePng(picture), "PNG"));
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
        convert(QStringLiteral("wmf2gd"), {"-t", "png", "-o", file.Path + ".png", file.Path});
        expectSquares(QImage(file.Path + ".png"));
        convert(QStringLiteral("wmf2svg"), {"-o", file.Path + ".svg", file.Path});
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
