#include "model/cp1252.h"
#include "model/puzzlefile.h"
#include "output/pagelayout.h"
#include "output/printsettings.h"
#include "settings/txwdprocs.h"
#include "testsupport.h"

#include <QFontMetrics>
#include <QImage>
#include <QMap>
#include <QPageSize>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <tuple>

namespace {

// A grid with a clue of `clueLength` characters in every slot: open (one word a row and a
// column), or with a black square every fourth square of every other row for more words.
TPuzzle openGrid(int size, int clueLength = 20, bool blocks = false)
{
    TPuzzle p;
    p.ClearPuzzle(size, 'N', "Tester", 0);
    for (int r = 1; r <= size; ++r)
        for (int c = 1; c <= size; ++c)
            p.Cells(c, r) = blocks && r % 2 == 0 && c % 4 == 0 ? BlockChar : uint8_t('A' + (c + r) % 26);
    for (const TWordRef &w : WordsInSlotOrder(p)) {
        p.setSlotAt(w.Column, w.Row, w.Dir, uint16_t(w.Index));
        QByteArray clue = QByteArray::number(w.Number) + (w.Dir == Direction::Across ? " across" : " down");
        while (clue.size() < clueLength)
            clue += " word";
        p.setClue(w.Index, clue.left(clueLength));
    }
    return p;
}

TPrintJob jobOf(TPageFormat f)
{
    TPrintJob job;
    job.Title = QStringLiteral("Test Title");
    job.SpecText = QStringLiteral("Size of Grid: 15\u00d7\r\n Black Squares: 0  Par: 38\r\n Word Count: 30  Par: 78");
    job.set(f, true);
    return job;
}

QList<TPageObject> ofKind(const TPage &page, TPageObject::TKind kind, int penWidth = 0)
{
    QList<TPageObject> result;
    for (const TPageObject &o : page.Objects)
        if (o.Kind == kind && (penWidth == 0 || o.PenWidth == penWidth))
            result.append(o);
    return result;
}

const TPageObject *findText(const TPage &page, const QString &text)
{
    for (const TPageObject &o : page.Objects)
        if (o.Kind == TPageObject::TextItem && o.Text == text)
            return &o;
    return nullptr;
}

// Metrics at the pages' own resolution, 254 units an inch.
QFontMetrics metrics(const TPageObject &o)
{
    static QImage device = [] {
        QImage image(1, 1, QImage::Format_RGB32);
        image.setDotsPerMeterX(10000);
        image.setDotsPerMeterY(10000);
        return image;
    }();
    return QFontMetrics(o.Font, &device);
}

int textWidth(const TPageObject &o, const QString &text) { return metrics(o).horizontalAdvance(text); }

// The pages read nothing but the job: a stored setting changes nothing until the job is
// filled from the settings.
class PageLayout : public ::testing::Test {
protected:
    void SetUp() override { ResetSettings(); }
    void TearDown() override { ResetSettings(); }
};

}  // namespace

TEST_F(PageLayout, GridPageSquaresAre86UnitsAndSitTwoSquaresBelowTheCentre)
{
    const QList<TPage> pages = ComposePages(openGrid(15), jobOf(TPageFormat::NumberedGrid));
    ASSERT_EQ(pages.size(), 1);
    const QList<TPageObject> squares = ofKind(pages[0], TPageObject::RectangleItem, 2);
    ASSERT_EQ(squares.size(), 15 * 15);
    EXPECT_EQ(squares[1].X - squares[0].X, 86);
    EXPECT_EQ(squares[0].X2 - squares[0].X, 87);
    const int gridMiddle = squares[0].Y + 15 * 86 / 2;
    EXPECT_NEAR(gridMiddle, LetterHeight / 2 + 2 * 86, 1);
    EXPECT_NEAR(squares[0].X + 15 * 86 / 2, LetterWidth / 2, 1);
    // The grid page's heading has the address but no specification column.
    EXPECT_NE(findText(pages[0], QStringLiteral("Your Name")), nullptr);
    EXPECT_NE(findText(pages[0], QStringLiteral("Page 1")), nullptr);
    EXPECT_EQ(findText(pages[0], QStringLiteral("Size of Grid: 15\u00d7")), nullptr);
}

TEST_F(PageLayout, SolutionLettersStandInsideAndCentredInTheirSquares)
{
    const QList<TPage> pages = ComposePages(openGrid(15), jobOf(TPageFormat::SolutionGrid));
    ASSERT_EQ(pages.size(), 1);
    const QList<TPageObject> squares = ofKind(pages[0], TPageObject::RectangleItem, 2);
    ASSERT_EQ(squares.size(), 15 * 15);
    int letters = 0;
    for (const TPageObject &o : pages[0].Objects) {
        if (o.Kind != TPageObject::TextItem || o.Text.size() != 1 || !o.Text[0].isLetter() || o.Y < squares[0].Y)
            continue;
        ++letters;
        const QRect ink = metrics(o).tightBoundingRect(o.Text).translated(o.X, o.Y + o.Baseline);
        const auto square = std::find_if(squares.begin(), squares.end(), [&](const TPageObject &s) {
            return QRect(QPoint(s.X, s.Y), QPoint(s.X2, s.Y2)).contains(ink.center());
        });
        ASSERT_NE(square, squares.end()) << o.Text.toStdString();
        const QRect box(QPoint(square->X, square->Y), QPoint(square->X2, square->Y2));
        EXPECT_TRUE(box.adjusted(4, 4, -4, -4).contains(ink)) << o.Text.toStdString() << " runs to the square's border";
        EXPECT_NEAR(ink.center().x(), box.center().x(), 6) << o.Text.toStdString();
        EXPECT_NEAR(ink.center().y(), box.center().y(), 8) << o.Text.toStdString();
        EXPECT_GE(ink.height(), 12) << "a capital about 2 mm tall";
    }
    EXPECT_EQ(letters, 15 * 15);
}

TEST_F(PageLayout, ManuscriptCarriesTheSpecificationColumnAndEndsWithItsGrid)
{
    const QList<TPage> pages = ComposePages(openGrid(15), jobOf(TPageFormat::Manuscript));
    ASSERT_GE(pages.size(), 2);
    EXPECT_NE(findText(pages[0], QStringLiteral("Size of Grid: 15\u00d7")), nullptr);
    EXPECT_NE(findText(pages[0], QStringLiteral("Black Squares: 0  ")), nullptr);
    EXPECT_NE(findText(pages[0], QStringLiteral("Word Count: 30 ")), nullptr);
    EXPECT_EQ(ofKind(pages.last(), TPageObject::RectangleItem, 2).size(), 15 * 15);
    // Later manuscript pages carry only the title line.
    for (int i = 1; i + 1 < pages.size(); ++i)
        EXPECT_EQ(findText(pages[i], QStringLiteral("Your Name")), nullptr) << "page " << i + 1;
}

TEST_F(PageLayout, DefinitionsOnTheRightPutAnswersAtTheLeftMargin)
{
    const TPuzzle p = openGrid(15);
    const QString firstAnswer = FromCp1252(p.GetWord(1, 1, 'a'));
    for (const bool left : {true, false}) {
        WriteSetting(QStringLiteral("DefsOnLeft"), left ? 1 : 0);
        TPrintJob job = jobOf(TPageFormat::Manuscript);
        ReadPrintSettings(job);
        const TPage page = ComposePages(p, job).first();
        const TPageObject *across = findText(page, QStringLiteral("ACROSS"));
        const TPageObject *answer = findText(page, firstAnswer);
        ASSERT_TRUE(across && answer);
        const int m = textWidth(*across, QStringLiteral("M"));
        if (left) {
            EXPECT_EQ(across->X, LetterWidth / 17);
            EXPECT_GT(answer->X, across->X);
        } else {
            EXPECT_EQ(answer->X, LetterWidth / 17);
            EXPECT_EQ(across->X, LetterWidth / 17 + 25 * m);
        }
    }
}

TEST_F(PageLayout, ManuscriptCutsAClueWithoutSpacesWithAHyphenAndKeepsEveryCharacter)
{
    TPuzzle p = openGrid(11);
    const QByteArray clue(78, 'W');
    p.setClue(1, clue);
    const TPage page = ComposePages(p, jobOf(TPageFormat::Manuscript)).first();
    const QStringList texts = page.texts();
    const qsizetype first = texts.indexOf(QRegularExpression(QStringLiteral("^W+-$")));
    ASSERT_GE(first, 0) << texts.join(u'|').toStdString();
    QString joined = texts[first].chopped(1);
    for (qsizetype i = first + 1; i < texts.size() && texts[i].startsWith(u'W'); ++i)
        joined += texts[i].endsWith(u'-') ? texts[i].chopped(1) : texts[i];
    EXPECT_EQ(joined, QString::fromLatin1(clue));
}

TEST_F(PageLayout, PuzzlePageColumnsFollowTheGridSize)
{
    for (const auto &[size, columns, secondBesideGrid] : {std::tuple{15, 3, false}, {21, 5, true}}) {
        SCOPED_TRACE(QStringLiteral("a %1 grid").arg(size).toStdString());
        const QList<TPage> pages = ComposePages(openGrid(size, 78, true), jobOf(TPageFormat::PuzzlePage));
        ASSERT_FALSE(pages.isEmpty());
        const TPageObject frame = ofKind(pages[0], TPageObject::RectangleItem, 4).first();
        const int m = LetterWidth / 34;
        const int w = (LetterWidth - 2 * m) / columns;
        QMap<int, int> columnTop;
        for (const TPageObject &o : pages[0].Objects) {
            if (o.Kind != TPageObject::TextItem || o.Y < frame.Y || (o.X > frame.X - 3 && o.Y < frame.Y2))
                continue;
            const int column = (o.X - m) / w;
            columnTop[column] = columnTop.contains(column) ? std::min(columnTop[column], o.Y) : o.Y;
        }
        EXPECT_EQ(columnTop.size(), columns);
        for (int col = 0; col < columns; ++col)
            EXPECT_EQ(columnTop.value(col) < frame.Y2, col == 0 || (col == 1 && secondBesideGrid))
                << "column " << col + 1 << " starts beside the grid, not below it, or the other way round";
        // No clue text runs into the grid beside it.
        for (const TPageObject &o : pages[0].Objects) {
            if (o.Kind == TPageObject::TextItem && o.X < frame.X && o.Y > frame.Y && o.Y < frame.Y2) {
                EXPECT_LE(o.X + textWidth(o, o.Text), frame.X) << o.Text.toStdString();
            }
        }
    }
}

TEST_F(PageLayout, PuzzlePageTextGrowsForSmallerGrids)
{
    const auto acrossSize = [](int size) {
        const TPage page = ComposePages(openGrid(size), jobOf(TPageFormat::PuzzlePage)).first();
        return findText(page, QStringLiteral("ACROSS"))->Font.pixelSize();
    };
    EXPECT_EQ(acrossSize(13), qRound(12 * 254 / 72.0));
    EXPECT_EQ(acrossSize(21), qRound(9 * 254 / 72.0));
}

// Every clue standing whole on the paper is the papers' test below.
TEST_F(PageLayout, PuzzlePageBylineIsTheSettersOrTheProgramsOrNone)
{
    TPuzzle p = openGrid(23, 80);
    for (const auto &[byline, printed] : {std::pair<QByteArray, QString>{"--", QString()},
                                          {"", QStringLiteral("a Quillmark puzzle")},
                                          {"Ann Setter", QStringLiteral("by Ann Setter")}}) {
        p.Byline.setText(byline);
        const QStringList texts = ComposePages(p, jobOf(TPageFormat::PuzzlePage)).first().texts();
        EXPECT_EQ(texts.filter(QRegularExpression(QStringLiteral("^(by |a Quillmark)"))),
                  printed.isEmpty() ? QStringList() : QStringList{printed});
    }
}

// Pages composed for the paper they print on: A4, the narrower A5, and Ledger, named wider
// than tall and turned upright. Everything stays on the paper and every clue stands whole
// on the manuscript and on the puzzle page, its pieces read in the order they were placed.
TEST_F(PageLayout, EachPaperGetsPagesThatKeepEveryClueWholeAndOnThePaper)
{
    const TPuzzle sample = SamplePuzzle();
    const TPuzzle crowded = openGrid(23, 66, true);
    for (const auto &[name, paper, width, height] : {std::tuple{"Letter", QPageSize::Letter, LetterWidth, LetterHeight},
                                                     {"A4", QPageSize::A4, 2100, 2970},
                                                     {"A5", QPageSize::A5, 1480, 2100},
                                                     {"Ledger", QPageSize::Ledger, 2794, 4318}}) {
        for (const TPuzzle *p : {&sample, &crowded})
            for (const TPageFormat f : {TPageFormat::Manuscript, TPageFormat::PuzzlePage}) {
                SCOPED_TRACE(QStringLiteral("%1, a %2 grid, format %3").arg(name).arg(p->Size).arg(int(f)).toStdString());
                TPrintJob job = jobOf(f);
                job.setPaper(QPageSize(paper));
                ASSERT_EQ(QSize(job.PageWidth, job.PageHeight), QSize(width, height));
                const QList<TPage> pages = ComposePages(*p, job);
                QStringList read;
                for (const TPage &page : pages) {
                    EXPECT_EQ(QSize(page.Width, page.Height), QSize(width, height));
                    read.append(u' ' + page.texts().join(u' '));
                    for (const TPageObject &o : page.Objects) {
                        const QRect box = o.Kind == TPageObject::TextItem
                                              ? QRect(o.X, o.Y, textWidth(o, o.Text), QFontMetrics(o.Font).height())
                                              : QRect(QPoint(o.X, o.Y), QPoint(o.X2, o.Y2));
                        EXPECT_TRUE(QRect(0, 0, width, height).contains(box)) << o.Text.toStdString();
                    }
                }
                for (const TWordRef &w : WordsInSlotOrder(*p)) {
                    const QString clue = u' ' + FromCp1252(ConvertQuotes(p->wordClue(w.Column, w.Row, w.Dir)));
                    EXPECT_TRUE(std::any_of(read.begin(), read.end(), [&](const QString &t) { return t.contains(clue); }))
                        << clue.toStdString();
                }
            }
    }
}

TEST(PageLayoutText, QuotesTurnCurly)
{
    EXPECT_EQ(ConvertQuotes("He said \"yes\" and 'no' \""), QByteArray("He said \x93yes\x94 and \x92no\x92 \x93"));
}
