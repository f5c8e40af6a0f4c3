#include "output/pagelayout.h"

#include "clues/byline.h"
#include "model/cp1252.h"
#include "settings/fontsetting.h"

#include <QFileInfo>
#include <QFontMetrics>
#include <QImage>

#include <algorithm>
#include <cmath>
#include <optional>

bool TPrintJob::any() const
{
    for (bool f : Formats)
        if (f)
            return true;
    return false;
}

void TPrintJob::setPaper(const QPageSize &paper)
{
    const QSizeF mm = paper.size(QPageSize::Millimeter);
    const int width = int(std::lround(std::min(mm.width(), mm.height()) * 10));
    const int height = int(std::lround(std::max(mm.width(), mm.height()) * 10));
    // A grid page needs a height of about six fifths of the width for its grid under the
    // heading, and the manuscript about an A6 width for its widest answers: paper narrower or
    // squarer than that gets pages of that shape, drawn scaled down to fit it.
    PageWidth = std::max(width, 1050);
    PageHeight = std::max(height, PageWidth * 6 / 5);
}

QColor BlockColorFor(bool gray)
{
    return gray ? QColor(0xC0, 0xC0, 0xC0) : QColor(Qt::black);
}

int PuzzlePageSizeStep(int size)
{
    if (size <= 15)
        return 3;
    if (size == 17)
        return 2;
    if (size == 19)
        return 1;
    return 0;
}

QByteArray ConvertQuotes(const QByteArray &clue)
{
    QByteArray out = clue;
    bool opening = true;
    for (char &c : out) {
        if (c == '"') {
            c = char(opening ? 147 : 148);
            opening = !opening;
        } else if (c == '\'') {
            c = char(146);
        }
    }
    return out;
}

QString TitleForPuzzlePath(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    return name.left(std::max<qsizetype>(0, name.size() - 4));
}

TPageFontChoice DefaultPageFont(const TFontKeys &keys)
{
    return {keys.Name, keys.Size, keys.Style};
}

QFont PageFont(const QString &family, int points, int style)
{
    QFont font(family);
    font.setPixelSize(std::max(1, int(std::lround(points * double(PageUnitsDpi) / 72.0))));
    // Unhinted, so that text measures the same at every scale it is drawn at.
    font.setHintingPreference(QFont::PreferNoHinting);
    ApplyFontStyle(font, style);
    return font;
}

QFont PageFontOfHeight(const QString &family, int height, int style)
{
    QFont font = PageFont(family, 1, style);
    font.setPixelSize(std::max(1, height));
    // The height is the font's cell (ascent and descent), as the page measures text.
    const int cell = QFontMetrics(font).height();
    if (cell > 0 && cell != height)
        font.setPixelSize(std::max(1, (height * height + cell / 2) / cell));
    return font;
}

namespace {

// Text is measured at the page's own resolution, one pixel to a page unit.
const QImage &measuringDevice()
{
    static const QImage device = [] {
        QImage image(1, 1, QImage::Format_RGB32);
        image.setDotsPerMeterX(10000);
        image.setDotsPerMeterY(10000);
        return image;
    }();
    return device;
}

class TComposer {
public:
    TComposer(const TPuzzle &p, const TPrintJob &job)
        : p_(p), job_(job), numbers_(SquareNumbers(p)), words_(WordsInSlotOrder(p))
    {
    }

    QList<TPage> run()
    {
        bool first = true;
        for (int f = 0; f < PageFormatCount; ++f) {
            if (!job_.Formats[f])
                continue;
            if (!first)
                newPage();
            first = false;
            if (pages_.isEmpty())
                newPage();
            switch (TPageFormat(f)) {
            case TPageFormat::Manuscript:
                manuscript();
                break;
            case TPageFormat::ManuscriptGridOnly:
            case TPageFormat::NumberedGrid:
            case TPageFormat::SolutionGrid:
                gridPage(TPageFormat(f));
                break;
            case TPageFormat::PuzzlePage:
                puzzlePage();
                break;
            }
        }
        return pages_;
    }

private:
    const TPuzzle &p_;
    const TPrintJob &job_;
    const TGridArray<int> numbers_;
    const QList<TWordRef> words_;
    QList<TPage> pages_;
    int pageNumber_ = 0;
    QFont font_;
    std::optional<QFontMetrics> metrics_;
    QFont manuscriptFonts_[2];
    bool manuscriptRead_ = false;
    int penWidth_ = 1;
    QColor brush_ = Qt::white;

    // Manuscript metrics.
    bool specFlag_ = false;
    int lineHeight_ = 0;
    int leftMargin_ = 0;
    int topMargin_ = 0;
    int rightColumnOffset_ = 0;
    int linesPerPage_ = 0;

    void newPage()
    {
        TPage page;
        page.Width = job_.PageWidth;
        page.Height = job_.PageHeight;
        pages_.append(page);
        ++pageNumber_;
    }
    TPage &page() { return pages_.last(); }

    void setFont(const QFont &font)
    {
        if (font == font_ && metrics_)
            return;
        font_ = font;
        metrics_.emplace(font_, &measuringDevice());
    }
    const QFontMetrics &metrics() const { return *metrics_; }
    int width(const QString &text) const { return metrics().horizontalAdvance(text); }
    int height() const { return metrics().height(); }

    void text(int x, int y, const QString &s)
    {
        TPageObject o;
        o.Kind = TPageObject::TextItem;
        o.X = x;
        o.Y = y;
        o.Text = s;
        o.Font = font_;
        o.Baseline = metrics().ascent();
        page().Objects.append(o);
    }
    // Right-aligned so that it ends at `right`.
    void textEndingAt(int right, int y, const QString &s) { text(right - width(s), y, s); }
    void line(int x1, int y1, int x2, int y2)
    {
        TPageObject o;
        o.Kind = TPageObject::LineItem;
        o.X = x1;
        o.Y = y1;
        o.X2 = x2;
        o.Y2 = y2;
        o.PenWidth = penWidth_;
        page().Objects.append(o);
    }
    void rectangle(int x1, int y1, int x2, int y2)
    {
        TPageObject o;
        o.Kind = TPageObject::RectangleItem;
        o.X = x1;
        o.Y = y1;
        o.X2 = x2;
        o.Y2 = y2;
        o.PenWidth = penWidth_;
        o.Brush = brush_;
        page().Objects.append(o);
    }

    QString clueText(int c, int r, Direction d) const
    {
        const int slot = p_.slotAt(c, r, d);
        if (slot < 1 || slot > ClueSlots)
            return {};
        return FromCp1252(ConvertQuotes(p_.clue(slot)));
    }
    QString answer(int c, int r, Direction d) const
    {
        return ShownText(p_.GetWord(c, r, char(d)));
    }

    // ---- Heading and manuscript ----

    QFont manuscriptFont(bool bold)
    {
        if (!manuscriptRead_) {
            const TPageFontChoice &font = job_.ManuscriptFont;
            manuscriptFonts_[0] = PageFont(font.Name, font.Size, font.Style);
            manuscriptFonts_[1] = manuscriptFonts_[0];
            manuscriptFonts_[1].setBold(true);
            manuscriptRead_ = true;
        }
        return manuscriptFonts_[bold ? 1 : 0];
    }

    void pageMetrics()
    {
        setFont(manuscriptFont(false));
        lineHeight_ = std::max(1, height() - 1);
        leftMargin_ = job_.PageWidth / 17;
        topMargin_ = job_.PageHeight / 22;
        rightColumnOffset_ = job_.PageWidth - 2 * leftMargin_ - 25 * width(QStringLiteral("M"));
        linesPerPage_ = (job_.PageHeight - 2 * topMargin_) / lineHeight_ + 1 - job_.PageBottomMargin;
    }

    void titleLine()
    {
        setFont(manuscriptFont(true));
        text(leftMargin_, topMargin_, job_.Title);
        text(job_.PageWidth - leftMargin_ - width(QStringLiteral("Page 00")), topMargin_,
             QStringLiteral("Page %1").arg(pageNumber_));
    }

    void fullHeading()
    {
        titleLine();
        setFont(manuscriptFont(false));
        for (int i = 0; i < 5; ++i)
            if (i < 4 || !job_.Address[4].isEmpty())
                text(leftMargin_, topMargin_ + (2 + i) * lineHeight_, job_.Address[i]);
        if (specFlag_) {
            const QString spec = job_.SpecText;
            const int x = leftMargin_ + rightColumnOffset_ + 2 * width(QStringLiteral("M"));
            const auto from = [&](const QString &marker, int n) {
                const qsizetype at = spec.indexOf(marker);
                return at < 0 ? QString() : spec.mid(at, n);
            };
            text(x, topMargin_ + 3 * lineHeight_, spec.left(17));
            text(x, topMargin_ + 4 * lineHeight_, from(QStringLiteral("Bl"), 18));
            text(x, topMargin_ + 5 * lineHeight_, from(QStringLiteral("Wo"), 15));
        }
    }

    struct TColumns {
        int Clue = 0;
        int Answer = 0;
    };

    TColumns manuscriptColumns()
    {
        const int m = width(QStringLiteral("M"));
        if (job_.DefsOnLeft)
            return {leftMargin_, leftMargin_ + rightColumnOffset_ + 2 * m};
        return {leftMargin_ + 25 * m, leftMargin_};
    }

    // A clue line: the number right-aligned in three characters, a space and the clue.
    void numberedLine(int clueX, int y, const QString &line)
    {
        textEndingAt(clueX + width(QStringLiteral("999")), y, line.left(3).trimmed());
        // The whole clue, however wide the paper: nothing of it is cut.
        text(clueX + width(QStringLiteral("999M")), y, line.mid(4));
    }

    // Splits a line too wide for the column at a space, or with a hyphen where a word
    // alone is too wide, drawing each piece two lines apart.
    void wrapManuscript(int clueX, int &y, QString line, bool numbered)
    {
        const int column = rightColumnOffset_;
        const int textX = clueX + width(QStringLiteral("999M"));
        for (;;) {
            QString part = line;
            QString rest;
            while (part.size() > 5) {
                rest.prepend(part.back());
                part.chop(1);
                if (rest.startsWith(u' ') && width(part) < column)
                    break;
            }
            if (part.size() <= 5 && !(rest.startsWith(u' ') && width(part) < column)) {
                const int limit = column - width(QStringLiteral("MMMM"));
                while (!rest.isEmpty() && width(part + rest.front()) <= limit) {
                    part += rest.front();
                    rest.remove(0, 1);
                }
                part += u'-';
                rest.prepend(u' ');
            }
            if (rest.startsWith(u' '))
                rest.remove(0, 1);
            // Only a clue's first piece carries its number; a later piece whose fourth
            // character happens to be a space is still plain text.
            if (numbered && part.size() > 3 && part.at(3) == u' ')
                numberedLine(clueX, y, part);
            else
                text(textX, y, part);
            numbered = false;
            y += 2 * lineHeight_;
            if (rest.isEmpty())
                return;
            if (width(rest) <= column || rest.size() <= 5) {
                text(textX, y, rest);
                return;
            }
            line = rest;
        }
    }

    void manuscriptWords(Direction d, const TColumns &cols, int &y)
    {
        for (const TWordRef &w : words_) {
            if (w.Dir != d)
                continue;
            setFont(manuscriptFont(false));
            text(cols.Answer, y, answer(w.Column, w.Row, d));
            const QString line = QStringLiteral("%1 ").arg(w.Number, 3) + clueText(w.Column, w.Row, d);
            if (width(line) <= rightColumnOffset_)
                numberedLine(cols.Clue, y, line);
            else
                wrapManuscript(cols.Clue, y, line, true);
            y += 2 * lineHeight_;
            if (linesPerPage_ * lineHeight_ < y) {
                newPage();
                pageMetrics();
                titleLine();
                y = 3 * lineHeight_ + topMargin_;
            }
        }
    }

    void manuscript()
    {
        specFlag_ = true;
        pageMetrics();
        fullHeading();
        setFont(manuscriptFont(false));
        int y = (job_.Address[4].isEmpty() ? 10 : 11) * lineHeight_;
        const TColumns cols = manuscriptColumns();
        text(cols.Clue, y, QStringLiteral("ACROSS"));
        y += 2 * lineHeight_;
        manuscriptWords(Direction::Across, cols, y);
        setFont(manuscriptFont(false));
        text(cols.Clue, y, QStringLiteral("DOWN"));
        y += 2 * lineHeight_;
        manuscriptWords(Direction::Down, cols, y);
        newPage();
        gridPage(TPageFormat::ManuscriptGridOnly);
    }

    // ---- Grid pages ----

    void gridPage(TPageFormat format)
    {
        pageMetrics();
        const int q = job_.PageWidth / 26 + 3;
        specFlag_ = false;
        fullHeading();
        const QString arial = QStringLiteral("Arial");
        // The solution letters' cell height, round(q / 2.3) - 14, is in page units: about
        // 2.3 mm on Letter, so a letter sits inside its square with room around it.
        QFont gridFont = format == TPageFormat::SolutionGrid
                             ? PageFontOfHeight(arial, int(std::lround(q / 2.3)) - 14, 1)
                             : PageFont(arial, 9);
        const int S = p_.Size;
        const int W = S * q;
        const int X0 = (job_.PageWidth - W) / 2;
        const int Y0 = (job_.PageHeight - W) / 2 + 2 * q;
        brush_ = Qt::white;
        penWidth_ = 4;
        rectangle(X0 - 3, Y0 - 3, X0 + W + 4, Y0 + W + 4);
        penWidth_ = 2;
        for (int r = 1; r <= S; ++r)
            for (int c = 1; c <= S; ++c) {
                const int x = X0 + (c - 1) * q;
                const int y = Y0 + (r - 1) * q;
                const bool block = p_.isBlock(c, r);
                brush_ = block ? job_.BlockColor : QColor(Qt::white);
                rectangle(x, y, x + q + 1, y + q + 1);
                if (block)
                    continue;
                const uint8_t cell = p_.Cells(c, r);
                const QString letter = cell > OpenChar ? QString(Cp1252ToUnicode(cell)) : QString();
                switch (format) {
                case TPageFormat::NumberedGrid:
                    setFont(gridFont);
                    if (numbers_(c, r))
                        text(x + width(QStringLiteral(" ")) / 2, y + 4, QString::number(numbers_(c, r)));
                    break;
                case TPageFormat::SolutionGrid:
                    setFont(gridFont);
                    if (!letter.isEmpty())
                        text(x + (q - width(letter)) / 2, y + (q - height()) / 2, letter);
                    break;
                default:
                    setFont(PageFont(arial, 8));
                    if (numbers_(c, r))
                        text(x + width(QStringLiteral(" ")) / 2, y + 4, QString::number(numbers_(c, r)));
                    if (!letter.isEmpty()) {
                        setFont(PageFont(arial, 12));
                        int dx = q - width(QStringLiteral("M "));
                        if (letter == u"I")
                            dx += width(QStringLiteral(" "));
                        else if (letter == u"M")
                            dx -= 2;
                        else if (letter == u"W")
                            dx -= 3;
                        text(x + dx, y + q - height() - 2, letter);
                    }
                    break;
                }
            }
        penWidth_ = 1;
        brush_ = Qt::white;
    }

    // ---- Puzzle page ----

    void puzzlePage()
    {
        const int S = p_.Size;
        const int q = ((job_.PageWidth / 28) * 17) / S;
        const int m = job_.PageWidth / 34;
        const int cols = S < 19 ? 3 : 5;
        const int w = (job_.PageWidth - 2 * m) / cols;
        const int k = PuzzlePageSizeStep(S);
        const int base = job_.PuzzlePageFont.Size;
        const QString arial = QStringLiteral("Arial");
        setFont(PageFont(arial, base + k));
        const int h = std::max(1, height() - 1);
        const QFont clueFont = PageFont(job_.PuzzlePageFont.Name, base + k, job_.PuzzlePageFont.Style);
        const QFont headFont = PageFont(arial, base + k, 1);
        const QFont titleFont = PageFont(arial, k + 12, 1);

        // The rule sits at one line height, or under the title where the title is the
        // taller, so that it never strikes through the title's letters.
        setFont(titleFont);
        const int rule = std::max(h, 8 + height());
        penWidth_ = 4;
        line(m, rule, m + cols * w + 2, rule);
        penWidth_ = 1;
        const QString byline = job_.PrintByline ? BylineCaption(p_) : QString();
        setFont(titleFont);
        text(m, 8, job_.Title);
        if (!byline.isEmpty())
            text(job_.PageWidth - width(byline) - 63, rule + 8, byline);

        const int L = job_.PageHeight / h - 3 - job_.PageLength;
        const int Y0 = 3 * h + 10;
        const int gridRight = m + cols * w;
        const int gridLeft = gridRight - q * S;
        const int gridBottom = Y0 + q * S;
        puzzleGrid(gridLeft, Y0, q);

        int column = 1;
        int x = m;
        int y = Y0;
        int columnStart = y;
        const auto belowGrid = [&] { return q * S + Y0 + h; };
        // The second of five columns stands beside the grid; every other later column
        // starts below it, on every page.
        const auto columnTop = [&](int col) { return cols == 5 && col == 2 ? Y0 : belowGrid(); };
        const auto nextColumn = [&] {
            ++column;
            x += w;
            if (column > cols) {
                // Clues past the last column go on to a further page rather than off the
                // paper, whichever list they belong to.
                newPage();
                column = 1;
                x = m;
                y = h;
                setFont(titleFont);
                text(x, y, job_.Title + QStringLiteral(" / page %1").arg(pages_.size() - firstPuzzlePage_ + 1));
                y += 2 * h;
            } else {
                y = columnTop(column);
            }
            columnStart = y;
        };
        const auto clues = [&](Direction d) {
            for (const TWordRef &word : words_) {
                if (word.Dir != d)
                    continue;
                setFont(clueFont);
                const QString clue = clueText(word.Column, word.Row, d);
                const auto pieces = [&] {
                    const bool beside = cols == 5 && column == 2 && y < gridBottom + 3 && pages_.size() == firstPuzzlePage_;
                    return wrapPuzzleClue(clue, (beside ? 4 * w - q * S : w) - width(QStringLiteral("999NM")));
                };
                QStringList lines = pieces();
                // A clue of many lines that would run off the paper's foot starts the next
                // column instead (on Letter only narrow columns of long clues come to that).
                if (y + int(lines.size()) * h > job_.PageHeight - h && y > columnStart) {
                    nextColumn();
                    setFont(clueFont);
                    lines = pieces();
                }
                textEndingAt(x + width(QStringLiteral("999")), y, QString::number(word.Number));
                const int textX = x + width(QStringLiteral("999")) + width(QStringLiteral("N"));
                for (qsizetype i = 0; i < lines.size(); ++i) {
                    if (i > 0)
                        y += h;
                    text(textX, y, lines[i]);
                }
                y += h;
                if (L * h < y)
                    nextColumn();
            }
        };

        firstPuzzlePage_ = int(pages_.size());
        setFont(headFont);
        text(x, y, QStringLiteral("ACROSS"));
        y += h;
        clues(Direction::Across);
        // A blank line before DOWN, except at the top of a column or of a further page.
        const bool atFurtherPageTop = pages_.size() > firstPuzzlePage_ && column == 1 && y == 3 * h;
        if (y != Y0 && !atFurtherPageTop)
            y += h;
        setFont(headFont);
        text(x, y, QStringLiteral("DOWN"));
        y += h;
        clues(Direction::Down);
    }
    int firstPuzzlePage_ = 0;

    // The lines of a clue in a column `usable` wide.
    QStringList wrapPuzzleClue(QString clue, int usable) const
    {
        QStringList lines;
        while (width(clue) > usable && clue.size() > 1) {
            qsizetype cut = -1;
            for (qsizetype i = clue.lastIndexOf(u' '); i > 0; i = clue.lastIndexOf(u' ', i - 1)) {
                if (width(clue.left(i)) < usable) {
                    cut = i;
                    break;
                }
            }
            QString part;
            if (cut > 0) {
                part = clue.left(cut);
                clue = clue.mid(cut + 1);
            } else {
                qsizetype n = 1;
                while (n < clue.size() && width(clue.left(n + 1)) <= usable - width(QStringLiteral("M")))
                    ++n;
                part = clue.left(n) + u'-';
                clue = clue.mid(n);
            }
            lines.append(part);
        }
        lines.append(clue);
        return lines;
    }

    void puzzleGrid(int left, int top, int q)
    {
        const int S = p_.Size;
        const int numberSize = S <= 15 ? 9 : S == 17 ? 8 : S <= 21 ? 7 : 6;
        brush_ = Qt::white;
        penWidth_ = 4;
        rectangle(left - 3, top - 2, left + q * S + 2, top + q * S + 3);
        penWidth_ = 2;
        setFont(PageFont(QStringLiteral("Arial"), numberSize));
        for (int r = 1; r <= S; ++r)
            for (int c = 1; c <= S; ++c) {
                const int x = left + (c - 1) * q;
                const int y = top + (r - 1) * q;
                brush_ = p_.isBlock(c, r) ? job_.BlockColor : QColor(Qt::white);
                rectangle(x, y, x + q + 1, y + q + 1);
                if (!p_.isBlock(c, r) && numbers_(c, r))
                    text(x + width(QStringLiteral(" ")) / 2, y + 2, QString::number(numbers_(c, r)));
            }
        penWidth_ = 1;
        brush_ = Qt::white;
    }
};

}  // namespace

QList<TPage> ComposePages(const TPuzzle &p, const TPrintJob &job)
{
    return TComposer(p, job).run();
}
