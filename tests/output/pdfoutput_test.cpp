#include "model/cp1252.h"
#include "model/puzzlefile.h"
#include "output/pagelayout.h"
#include "output/pdfoutput.h"
#include "testsupport.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>

#include <algorithm>

#include <gtest/gtest.h>

// poppler's tools read back what the PDF writer wrote.

namespace {

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

TPrintJob job(std::initializer_list<TPageFormat> formats, const QString &title = QStringLiteral("Sunday Stroll"))
{
    TPrintJob j;
    j.Title = title;
    for (TPageFormat f : formats)
        j.set(f, true);
    return j;
}

class PdfOutput : public ::testing::Test {
protected:
    void SetUp() override { ResetSettings(); }
    TScratchDir dir;
};

}  // namespace

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
    QList<TPageObject> squares = ComposePages(p, j).first().Objects;
    squares.removeIf([](const TPageObject &o) { return o.Kind != TPageObject::RectangleItem || o.PenWidth != 2; });
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
