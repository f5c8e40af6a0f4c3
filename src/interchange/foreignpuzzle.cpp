#include "interchange/foreignpuzzle.h"

#include "clues/gridlanguage.h"
#include "model/cp1252.h"

#include <algorithm>
#include <utility>

namespace {

QString squareName(int column, int row)
{
    return QStringLiteral("row %1, column %2").arg(row).arg(column);
}

QString wordName(int number, Direction d)
{
    return QStringLiteral("%1 %2").arg(number).arg(d == Direction::Across ? QStringLiteral("Across")
                                                                           : QStringLiteral("Down"));
}

bool isWhite(const TForeignPuzzle &f, int column, int row)
{
    return column >= 1 && row >= 1 && column <= f.Width && row <= f.Height && !f.at(column, row).Block;
}

// Text in our code page, or a refusal that names where the character stood.
QByteArray toRecordText(const QString &text, const QString &where)
{
    for (const QChar ch : text)
        if (UnicodeToCp1252(ch) < 0 || ch.isSurrogate())
            throw TInterchangeError(QStringLiteral("%1 has a character (%2) that a Quillmark puzzle cannot keep.")
                                        .arg(where, ch.isSurrogate() ? QStringLiteral("U+%1").arg(ch.unicode(), 4, 16, QChar(u'0'))
                                                                     : QString(ch)));
    return ToCp1252(text);
}

// The letter of a square in our code page, upper-cased; 0 for none.
uint8_t squareLetter(const QString &value, int column, int row)
{
    const QString letter = UpperInCp1252(value.trimmed());
    if (letter.isEmpty())
        return 0;
    if (letter == OpenSquareLetter)
        return OpenChar;
    if (letter.size() > 1)
        throw TInterchangeError(
            QStringLiteral("The square at %1 holds several letters (%2). A Quillmark grid has one letter a square, "
                           "so rebus squares cannot be opened.")
                .arg(squareName(column, row), letter));
    const int code = UnicodeToCp1252(letter.front());
    bool inSomeLanguage = false;
    for (int language = 0; code > 0 && language < GridLanguageCount; ++language)
        inSomeLanguage = inSomeLanguage || GridCharSetFor(language).test(code);
    if (!inSomeLanguage || code == BlockChar || code == ' ' || code == '+' || code < 32)
        throw TInterchangeError(QStringLiteral("The square at %1 holds \"%2\", which a Quillmark grid does not take.")
                                    .arg(squareName(column, row), letter));
    return uint8_t(code);
}

// The first grid language whose letters hold every letter of the grid.
uint8_t languageFor(const TPuzzle &p)
{
    for (int language = 0; language < GridLanguageCount; ++language) {
        const TCharSet set = GridCharSetFor(language);
        bool all = true;
        for (int c = 1; c <= p.Size && all; ++c)
            for (int r = 1; r <= p.Size && all; ++r)
                for (const uint8_t code : {p.Cells(c, r), p.Entries(c, r)})
                    if (code != 0 && code != BlockChar && !set.test(code))
                        all = false;
        if (all)
            return uint8_t(language);
    }
    throw TInterchangeError(QStringLiteral("The grid mixes letters that no one Quillmark grid language holds."));
}

}  // namespace

QList<TForeignWord> ForeignWords(const TForeignPuzzle &f)
{
    QList<TForeignWord> words;
    int number = 0;
    for (int r = 1; r <= f.Height; ++r)
        for (int c = 1; c <= f.Width; ++c) {
            if (!isWhite(f, c, r))
                continue;
            const bool across = !isWhite(f, c - 1, r) && isWhite(f, c + 1, r);
            const bool down = !isWhite(f, c, r - 1) && isWhite(f, c, r + 1);
            if (across || down)
                ++number;
            if (across)
                words.append({number, Direction::Across, c, r});
            if (down)
                words.append({number, Direction::Down, c, r});
        }
    return words;
}

TImportedPuzzle ToQuillmark(const TForeignPuzzle &f, const TImportOptions &options)
{
    if (f.Width != f.Height)
        throw TInterchangeError(
            QStringLiteral("The grid is %1 x %2 squares. A Quillmark puzzle is square.").arg(f.Width).arg(f.Height));
    if (f.Width < 11 || f.Width > MaxGrid || f.Width % 2 == 0)
        throw TInterchangeError(QStringLiteral("The grid is %1 x %1 squares. A Quillmark puzzle is 11, 13, 15, 17, "
                                               "19, 21 or 23 squares a side.")
                                    .arg(f.Width));
    for (int r = 1; r <= f.Height; ++r)
        for (int c = 1; c <= f.Width; ++c)
            if (f.at(c, r).Circled)
                throw TInterchangeError(QStringLiteral("The square at %1 is circled. A Quillmark grid cannot show "
                                                       "circles, so the puzzle would lose its theme.")
                                            .arg(squareName(c, r)));

    TImportedPuzzle result;
    TPuzzle &p = result.Puzzle;
    p.ClearPuzzle(f.Width, 'N', {}, 0);
    for (int r = 1; r <= f.Height; ++r)
        for (int c = 1; c <= f.Width; ++c) {
            const TForeignSquare &square = f.at(c, r);
            if (square.Block) {
                p.Cells(c, r) = BlockChar;
                continue;
            }
            p.Cells(c, r) = squareLetter(square.Solution, c, r);
            if (const uint8_t entry = squareLetter(square.Entry, c, r); entry != OpenChar)
                p.Entries(c, r) = entry;
        }
    p.Language = languageFor(p);

    const QList<TWordRef> words = WordsInSlotOrder(p);
    if (words.size() > MaxWords)
        throw TInterchangeError(
            QStringLiteral("The grid has %1 words. A Quillmark puzzle has at most %2.").arg(words.size()).arg(MaxWords));

    // Every clue must belong to a word of the grid: otherwise the numbers mean something else
    // in the file, and we would attach clues to the wrong words.
    for (const auto &[clues, dir] : {std::pair{&f.Across, Direction::Across}, std::pair{&f.Down, Direction::Down}})
        for (auto it = clues->begin(); it != clues->end(); ++it) {
            const bool found = std::any_of(words.begin(), words.end(), [&](const TWordRef &w) {
                return w.Number == it.key() && w.Dir == dir;
            });
            if (!found)
                throw TInterchangeError(QStringLiteral("The clues do not fit the grid: there is a clue for %1, but "
                                                       "no such word.")
                                            .arg(wordName(it.key(), dir)));
        }

    QStringList tooLong;
    for (const TWordRef &w : words) {
        const QString text = (w.Dir == Direction::Across ? f.Across : f.Down).value(w.Number);
        const QByteArray bytes = toRecordText(text, QStringLiteral("The clue for %1").arg(wordName(w.Number, w.Dir)));
        if (bytes.size() > MaxClueLength)
            tooLong.append(wordName(w.Number, w.Dir));
        p.setSlotAt(w.Column, w.Row, w.Dir, uint16_t(w.Index));
        p.setClue(w.Index, bytes.left(MaxClueLength));
    }
    // No author is the byline "--": nothing is printed, not "a Quillmark puzzle".
    const QByteArray author = f.Author.trimmed().isEmpty() ? QByteArray("--")
                                                           : toRecordText(f.Author.trimmed(), QStringLiteral("The author"));
    const bool longAuthor = author.size() > MaxBylineLength;
    p.Byline.setText(author.left(MaxBylineLength));

    if ((!tooLong.isEmpty() || longAuthor) && !options.CutLongText) {
        QStringList parts;
        if (!tooLong.isEmpty())
            parts.append(tooLong.size() == 1 ? QStringLiteral("The clue for %1 is longer than 80 characters").arg(tooLong.front())
                                             : QStringLiteral("%1 clues are longer than 80 characters (%2)")
                                                   .arg(tooLong.size())
                                                   .arg(tooLong.join(QStringLiteral(", "))));
        if (longAuthor)
            parts.append(QStringLiteral("the author is longer than 60 characters"));
        QString text = parts.join(QStringLiteral(", and "));
        text[0] = text[0].toUpper();
        throw TLongTextError(text + QStringLiteral(", more than a Quillmark puzzle holds."));
    }
    if (!tooLong.isEmpty())
        result.Warnings.append(QStringLiteral("%1 clues were cut to 80 characters.").arg(tooLong.size()));
    if (longAuthor)
        result.Warnings.append(QStringLiteral("The author was cut to 60 characters."));

    result.Title = f.Title.trimmed();
    if (!f.Copyright.trimmed().isEmpty())
        result.Warnings.append(QStringLiteral("The copyright line is not kept: %1").arg(f.Copyright.trimmed()));
    if (!f.Notes.trimmed().isEmpty())
        result.Warnings.append(QStringLiteral("The notes are not kept: %1").arg(f.Notes.trimmed()));
    result.Warnings = f.Notices + result.Warnings;
    return result;
}

TForeignPuzzle FromQuillmark(const TPuzzle &p, const QString &title)
{
    TForeignPuzzle f;
    f.Width = f.Height = p.Size;
    f.Title = title;
    for (int r = 1; r <= p.Size; ++r)
        for (int c = 1; c <= p.Size; ++c) {
            TForeignSquare square;
            const uint8_t cell = p.Cells(c, r);
            square.Block = cell == BlockChar;
            if (!square.Block) {
                if (cell == OpenChar)
                    square.Solution = OpenSquareLetter;
                else if (cell != 0)
                    square.Solution = Cp1252ToUnicode(cell);
                if (const uint8_t entry = p.Entries(c, r); entry > ' ')
                    square.Entry = Cp1252ToUnicode(entry);
            }
            f.Squares.append(square);
        }
    for (const TWordRef &w : WordsInSlotOrder(p)) {
        const QString text = FromCp1252(p.wordClue(w.Column, w.Row, w.Dir));
        (w.Dir == Direction::Across ? f.Across : f.Down).insert(w.Number, text);
    }
    const QByteArray byline = p.Byline.text();
    f.Author = byline == "--" ? QString() : FromCp1252(byline);
    return f;
}
