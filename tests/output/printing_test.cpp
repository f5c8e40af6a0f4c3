// The printed pages: composed, then written as PDF and read back by poppler's tools.

#include "model/cp1252.h"
#include "model/puzzlefile.h"
#include "output/pagelayout.h"
#include "output/pdfoutput.h"
#include "output/printsettings.h"
#include "settings/txwdprocs.h"
#include "testsupport.h"

#include <QFile>
#include <QFontMetrics>
#include <QImage>
#include <QMap>
#include <QPageSize>
#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>
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

TPrintJob job(std::initializer_list<TPageFormat> formats)
{
    TPrintJob j;
    j.Title = QStringLiteral("Sunday Stroll");
    j.SpecText = QStringLiteral("Size of Grid: 15\u00d7\r\n Black Squares: 0  Par: 38\r\n Word Count: 30  Par: 78");
    for (TPageFormat f : formats)
        j.set(f, true);
    return j;
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

class PdfOutput : public PageLayout {
protected:
    TScratchDir dir;
};



QString run(const QString &program, const QStringList &args, int *code = nullptr)
{
    QProcess p;
    // A reader's complaints (a broken cross-reference table, say) show among its output.
    p.setProcessChannelMode(program == u"pdfinfo" ? QProcess::MergedChannels : QProcess::SeparateChannels);
    p.start(program, args);
    EXPECT_TRUE(p.waitForFinished(60000)) << program.toStdString();
    if (code)
        *code = p.exitCode();
    return QString::fromUtf8(p.readAllStandardOutput());
}

QString infoField(const QString &info, const QString &name)
{
    const QRegularExpression re(QStringLiteral("^%1:\\s*(.*)$").arg(name), QRegularExpression::MultilineOption);
    const auto match = re.match(info);
    return match.hasMatch() ? match.captured(1).trimmed() : QString();
}

}  // namespace

TEST_F(PageLayout, GridPageSquaresAre86UnitsAndSitTwoSquaresBelowTheCentre)
{
    const QList<TPage> pages = ComposePages(openGrid(15), job({TPageFormat::NumberedGrid}));
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
    const QList<TPage> pages = ComposePages(openGrid(15), job({TPageFormat::SolutionGrid}));
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
    const QList<TPage> pages = ComposePages(openGrid(15), job({TPageFormat::Manuscript}));
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
        TPrintJob chosen = job({TPageFormat::Manuscript});
        ReadPrintSettings(chosen);
        const TPage page = ComposePages(p, chosen).first();
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
    const TPage page = ComposePages(p, job({TPageFormat::Manuscript})).first();
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
        const QList<TPage> pages = ComposePages(openGrid(size, 78, true), job({TPageFormat::PuzzlePage}));
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
        const TPage page = ComposePages(openGrid(size), job({TPageFormat::PuzzlePage})).first();
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
        const QStringList texts = ComposePages(p, job({TPageFormat::PuzzlePage})).first().texts();
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
                TPrintJob chosen = job({f});
                chosen.setPaper(QPageSize(paper));
                ASSERT_EQ(QSize(chosen.PageWidth, chosen.PageHeight), QSize(width, height));
                const QList<TPage> pages = ComposePages(*p, chosen);
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

TEST_F(PdfOutput, LetterPagesCountedPerFormatWithTitleAndSubject)
{
    const TPuzzle p = SamplePuzzle();
    const int manuscriptPages = int(ComposePages(p, job({TPageFormat::Manuscript})).size());
    ASSERT_GE(manuscriptPages, 2);
    for (const auto &[chosen, pages] : {std::pair{job({TPageFormat::PuzzlePage}), 1},
                                         {job({TPageFormat::NumberedGrid, TPageFormat::PuzzlePage}), 2},
                                         {job({TPageFormat::Manuscript, TPageFormat::SolutionGrid}), manuscriptPages + 1}}) {
        const QString path = dir.path(QStringLiteral("out.pdf"));
        PrintToPdf(p, chosen, path);
        const QString info = run(QStringLiteral("pdfinfo"), {path});
        EXPECT_EQ(infoField(info, QStringLiteral("Pages")).toInt(), pages);
        EXPECT_TRUE(infoField(info, QStringLiteral("Page size")).contains(QStringLiteral("letter"))) << info.toStdString();
        EXPECT_EQ(infoField(info, QStringLiteral("Title")), QStringLiteral("Sunday Stroll"));
        EXPECT_FALSE(info.contains(QStringLiteral("Error"))) << info.toStdString();
        EXPECT_EQ(infoField(info, QStringLiteral("Subject")), FromCp1252(p.Byline.text()));
    }
    // A subject beyond ASCII (which byline stands for none or the program is BylineText's, as
    // the puzzle page's byline test shows).
    TPuzzle q = p;
    q.Byline.setText("by Zo\xEB");
    PrintToPdf(q, job({TPageFormat::PuzzlePage}), dir.path(QStringLiteral("subject.pdf")));
    EXPECT_EQ(infoField(run(QStringLiteral("pdfinfo"), {dir.path(QStringLiteral("subject.pdf"))}), QStringLiteral("Subject")),
              QString::fromUtf8("by Zoë"));
}

// The expected lines come from the sample's source text: the numbers its author gave the
// clues, the answers cut from its grid rows and columns at the black squares.
TEST_F(PdfOutput, ManuscriptTextHoldsEveryNumberAndAnswer)
{
    QFile source(QStringLiteral(QUILLMARK_EXAMPLES "/sources/sunday-stroll.txt"));
    ASSERT_TRUE(source.open(QIODevice::ReadOnly | QIODevice::Text));
    QStringList rows;
    QList<int> numbers[2];  // across, down
    QString section;
    for (const QString &line : QString::fromUtf8(source.readAll()).split(u'\n')) {
        if (line == u"grid" || line == u"clues")
            section = line;
        else if (section == u"grid" && !line.isEmpty())
            rows.append(line);
        else if (section == u"clues" && !line.isEmpty()) {
            const QString label = line.section(u' ', 0, 0);  // "12A"
            numbers[label.endsWith(u'D')].append(label.chopped(1).toInt());
        }
    }
    for (QList<int> &list : numbers)
        std::ranges::sort(list);
    QStringList answers[2];
    for (const QString &row : rows)
        for (const QString &word : row.split(u'#'))
            if (word.size() > 1)
                answers[0].append(word);
    // Down words in reading order of their first letters.
    for (int r = 0; r < rows.size(); ++r)
        for (int c = 0; c < rows.size(); ++c) {
            QString word;
            for (int k = r; k < rows.size() && rows[k][c] != u'#'; ++k)
                word += rows[k][c];
            if ((r == 0 || rows[r - 1][c] == u'#') && word.size() > 1)
                answers[1].append(word);
        }

    const QString path = dir.path(QStringLiteral("ms.pdf"));
    PrintToPdf(SamplePuzzle(), job({TPageFormat::Manuscript}), path);
    const QString text = run(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), path, QStringLiteral("-")});
    for (const QString &s : {QStringLiteral("Sunday Stroll"), QStringLiteral("Page 1"), QStringLiteral("ACROSS"),
                             QStringLiteral("DOWN")})
        EXPECT_TRUE(text.contains(s)) << s.toStdString();
    for (int d = 0; d < 2; ++d) {
        ASSERT_EQ(numbers[d].size(), answers[d].size());
        for (int i = 0; i < numbers[d].size(); ++i) {
            const QRegularExpression line(
                QStringLiteral("(^|\\s)%1\\s.*\\s%2\\s*$").arg(numbers[d][i]).arg(answers[d][i]),
                QRegularExpression::MultilineOption);
            EXPECT_TRUE(line.match(text).hasMatch()) << numbers[d][i] << (d ? "D " : "A ") << answers[d][i].toStdString();
        }
    }
}

TEST_F(PdfOutput, BlackSquaresPrintDarkAndOpenSquaresLight)
{
    const TPuzzle p = SamplePuzzle();
    const QString path = dir.path(QStringLiteral("ng.pdf"));
    const TPrintJob j = job({TPageFormat::NumberedGrid});
    PrintToPdf(p, j, path);
    // 127 dots per inch: half a pixel to a page unit.
    run(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QStringLiteral("127"), QStringLiteral("-png"), path,
                                     dir.path(QStringLiteral("ng"))});
    QImage image(dir.path(QStringLiteral("ng-1.png")));
    ASSERT_FALSE(image.isNull());
    const QList<TPageObject> squares = ofKind(ComposePages(p, j).first(), TPageObject::RectangleItem, 2);
    ASSERT_EQ(squares.size(), p.Size * p.Size);
    int i = 0;
    for (int r = 1; r <= p.Size; ++r)
        for (int c = 1; c <= p.Size; ++c, ++i) {
            const QPoint centre((squares[i].X + squares[i].X2) / 4, (squares[i].Y + squares[i].Y2) / 4);
            const int gray = qGray(image.pixel(centre));
            if (p.isBlock(c, r))
                EXPECT_LT(gray, 60) << c << "," << r;
            else
                EXPECT_GT(gray, 200) << c << "," << r;
        }
}

TEST_F(PdfOutput, CommandLineWritesTheChosenFormatsOrNothing)
{
    const QString in = QStringLiteral(QUILLMARK_EXAMPLES "/sunday-stroll.xwd");
    const QString out = dir.path(QStringLiteral("cli.pdf"));
    int code = -1;
    run(QStringLiteral(QUILLMARK_CLI), {QStringLiteral("export-pdf"), QStringLiteral("--formats"), QStringLiteral("ng,pp"), in, out}, &code);
    EXPECT_EQ(code, 0);
    const QString info = run(QStringLiteral("pdfinfo"), {out});
    EXPECT_EQ(infoField(info, QStringLiteral("Pages")).toInt(), 2);
    EXPECT_EQ(infoField(info, QStringLiteral("Title")), QStringLiteral("sunday-stroll"));
    QFile::remove(out);

    // No format chosen in the settings, an unknown format, an unreadable puzzle, an
    // unwritable folder: each its exit code, and no file.
    const QString missing = dir.path(QStringLiteral("missing.xwd"));
    const QString badFolder = dir.path(QStringLiteral("no/such/folder/x.pdf"));
    for (const auto &[args, expected] : {std::pair{QStringList{in, out}, 1}, {{"--formats", "ms,xx", in, out}, 1},
                                         {{"--formats", "pp", missing, out}, 2}, {{"--formats", "pp", in, badFolder}, 3}}) {
        run(QStringLiteral(QUILLMARK_CLI), QStringList{QStringLiteral("export-pdf")} + args, &code);
        EXPECT_EQ(code, expected) << args.join(u' ').toStdString();
        EXPECT_FALSE(QFile::exists(out));
        EXPECT_FALSE(QFile::exists(badFolder));
    }
}
