#include "interchange/ipuzformat.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <optional>
#include <tuple>
#include <utility>

namespace {

const QString Version = QStringLiteral("http://ipuz.org/v2");
const QString CrosswordKind = QStringLiteral("http://ipuz.org/crossword#1");

QString notIpuz(const QString &why)
{
    return QStringLiteral("The file is not an ipuz crossword: %1.").arg(why);
}

// A number given as a JSON number or as digits in a string ("8", or "1/8" for linked
// clues, whose first number is their own); -1 otherwise.
int numberOf(const QJsonValue &v)
{
    if (v.isDouble())
        return v.toInt(-1);
    static const QRegularExpression leading(QStringLiteral("^\\s*(\\d+)"));
    const QRegularExpressionMatch m = leading.match(v.toString());
    return m.hasMatch() ? m.captured(1).toInt() : -1;
}

// ipuz text may carry HTML: tags are dropped, character references decoded.
QString plainText(const QString &html)
{
    if (!html.contains(u'<') && !html.contains(u'&'))
        return html;
    static const QRegularExpression lineBreak(QStringLiteral("<br\\s*/?>"), QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression tag(QStringLiteral("</?[A-Za-z][^<>]*>"));
    static const QRegularExpression reference(QStringLiteral("&(#[0-9]+|#[xX][0-9A-Fa-f]+|[A-Za-z][A-Za-z0-9]*);"));
    static const QHash<QString, char32_t> named = {
        {"amp", u'&'}, {"lt", u'<'}, {"gt", u'>'}, {"quot", u'"'}, {"apos", u'\''}, {"nbsp", u' '},
        {"ndash", 0x2013}, {"mdash", 0x2014}, {"hellip", 0x2026}, {"lsquo", 0x2018}, {"rsquo", 0x2019},
        {"ldquo", 0x201C}, {"rdquo", 0x201D}, {"laquo", 0xAB}, {"raquo", 0xBB}, {"deg", 0xB0},
        {"frac12", 0xBD}, {"frac14", 0xBC}, {"frac34", 0xBE}, {"times", 0xD7}, {"pound", 0xA3},
        {"euro", 0x20AC}, {"copy", 0xA9}, {"szlig", 0xDF}, {"aelig", 0xE6}, {"AElig", 0xC6},
        {"oelig", 0x153}, {"OElig", 0x152},
    };
    // The accented letters: &eacute; and the like, by the Latin-1 letter they name.
    static const QHash<QString, char32_t> accents = [] {
        QHash<QString, char32_t> table;
        const QList<std::pair<QString, QString>> marks = {{"grave", "AEIOUaeiou"}, {"acute", "AEIOUYaeiouy"},
                                                          {"circ", "AEIOUaeiou"},  {"tilde", "ANOano"},
                                                          {"uml", "AEIOUaeiouy"},  {"ring", "Aa"},
                                                          {"cedil", "Cc"},         {"slash", "Oo"}};
        const QString decomposed[] = {QStringLiteral("\u0300"), QStringLiteral("\u0301"), QStringLiteral("\u0302"),
                                      QStringLiteral("\u0303"), QStringLiteral("\u0308"), QStringLiteral("\u030A"),
                                      QStringLiteral("\u0327")};
        for (int k = 0; k < marks.size(); ++k)
            for (const QChar letter : marks[k].second) {
                const QString composed = k < 7 ? (QString(letter) + decomposed[k]).normalized(QString::NormalizationForm_C)
                                               : QString(letter == u'O' ? QChar(0xD8) : QChar(0xF8));
                if (composed.size() == 1)
                    table.insert(letter + marks[k].first, composed.front().unicode());
            }
        return table;
    }();
    QString text = html;
    text.replace(lineBreak, QStringLiteral(" "));
    text.remove(tag);
    QString out;
    qsizetype at = 0;
    for (QRegularExpressionMatchIterator it = reference.globalMatch(text); it.hasNext();) {
        const QRegularExpressionMatch m = it.next();
        out += text.mid(at, m.capturedStart() - at);
        at = m.capturedEnd();
        const QString name = m.captured(1);
        char32_t code = 0;
        if (name.startsWith(u"#x") || name.startsWith(u"#X"))
            code = name.mid(2).toUInt(nullptr, 16);
        else if (name.startsWith(u'#'))
            code = name.mid(1).toUInt();
        else
            code = named.value(name, accents.value(name, 0));
        if (code == 0 || code > 0x10FFFF)
            out += m.captured(0);  // not a reference we know: left as written
        else
            out += QString::fromUcs4(&code, 1);
    }
    out += text.mid(at);
    return out;
}

struct TPuzzleCell {
    bool Block = false;
    bool Omitted = false;
    int Number = 0;
    bool Circled = false;
    bool Styled = false;
    bool Barred = false;
};

TPuzzleCell puzzleCell(const QJsonValue &v, const QString &block, const QString &empty)
{
    TPuzzleCell cell;
    if (v.isNull()) {
        cell.Omitted = true;
    } else if (v.isObject()) {
        const QJsonObject o = v.toObject();
        if (o.contains(u"cell"))
            cell = puzzleCell(o.value(u"cell"), block, empty);
        const QJsonObject style = o.value(u"style").toObject();
        cell.Circled = style.value(u"shapebg").toString() == u"circle";
        cell.Barred = style.contains(u"barred");
        cell.Styled = !style.isEmpty() && !cell.Circled && !cell.Barred;
    } else if (v.isString() && v.toString() == block) {
        cell.Block = true;
    } else if (!(v.isString() && v.toString() == empty)) {
        cell.Number = std::max(0, numberOf(v));
    }
    return cell;
}

// A letter of the solution or the saved grid: a string, or an object with a "value".
QString letterOf(const QJsonValue &v, const QString &block)
{
    const QJsonValue value = v.isObject() ? v.toObject().value(u"value") : v;
    if (!value.isString() || value.toString() == block)
        return {};
    return value.toString().trimmed();
}

QJsonArray rowAt(const QJsonValue &grid, int row, int width, const QString &what)
{
    const QJsonArray cells = grid.toArray().at(row).toArray();
    if (cells.size() != width)
        throw TInterchangeError(QStringLiteral("The %1 grid of the ipuz file does not match its dimensions.").arg(what));
    return cells;
}

QString directionName(const QString &direction)
{
    return direction.compare(u"Down", Qt::CaseInsensitive) == 0 ? QStringLiteral("Down") : QStringLiteral("Across");
}

// A word's place in another clue: {"direction": "Down", "number": 8}, or "8 Down".
std::optional<std::pair<QString, int>> wordReference(const QJsonValue &v, const QString &ownDirection)
{
    if (v.isObject()) {
        const int number = numberOf(v.toObject().value(u"number"));
        const QString direction = v.toObject().value(u"direction").toString(ownDirection);
        return number > 0 ? std::optional(std::pair(directionName(direction), number)) : std::nullopt;
    }
    static const QRegularExpression reference(QStringLiteral("^\\s*(\\d+)\\s*(Across|Down)?"),
                                              QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch m = reference.match(v.toString());
    if (!m.hasMatch())
        return std::nullopt;
    return std::pair(directionName(m.captured(2).isEmpty() ? ownDirection : m.captured(2)), m.captured(1).toInt());
}

// The clue as setters print it: its enumeration after it, unless it ends with one already.
QString withEnumeration(const QString &clue, const QString &enumeration)
{
    QString e = enumeration.trimmed();
    if (e.startsWith(u'(') && e.endsWith(u')'))
        e = e.mid(1, e.size() - 2).trimmed();
    static const QRegularExpression printed(QStringLiteral("\\(\\s*[0-9][0-9,\\-\\s.'’/]*\\)\\s*$"));
    if (e.isEmpty() || clue.contains(printed))
        return clue;
    return clue.trimmed().isEmpty() ? QStringLiteral("(%1)").arg(e) : QStringLiteral("%1 (%2)").arg(clue.trimmed(), e);
}

struct TClueReading {
    bool ShowEnumerations = false;
    // "See 1 Across" for the words that continue another, by direction and number.
    QMap<std::pair<QString, int>, QString> Continuations;
};

// One direction's clues into `into`, by number.
void readClues(const QJsonArray &list, QMap<int, QString> &into, const QString &direction, TClueReading &reading)
{
    for (const QJsonValue &item : list) {
        int number = -1;
        QString text;
        if (item.isArray()) {
            number = numberOf(item.toArray().at(0));
            text = plainText(item.toArray().at(1).toString());
        } else if (item.isObject()) {
            const QJsonObject o = item.toObject();
            number = numberOf(o.value(u"number"));
            text = plainText(o.value(u"clue").toString());
            if (reading.ShowEnumerations)
                text = withEnumeration(text, o.value(u"enumeration").toString());
            if (const auto see = wordReference(o.value(u"see"), direction); see && text.trimmed().isEmpty())
                text = QStringLiteral("See %1 %2").arg(see->second).arg(see->first);
            for (const QJsonValue &next : o.value(u"continued").toArray())
                if (const auto word = wordReference(next, direction); word && number > 0)
                    reading.Continuations.insert(*word, QStringLiteral("See %1 %2").arg(number).arg(direction));
        } else {
            text = item.toString();
        }
        if (number <= 0)
            throw TInterchangeError(QStringLiteral("The %1 clue \"%2\" is not tied to one numbered square, so it "
                                                   "cannot be matched to its word.")
                                        .arg(direction, text));
        into.insert(number, text);
    }
}

}  // namespace

TForeignPuzzle ReadIpuz(const QByteArray &bytes)
{
    QByteArray json = bytes.trimmed();
    // Files served for the web wrap the object as ipuz({...}).
    if (json.startsWith("ipuz(") && json.endsWith(')'))
        json = json.mid(5, json.size() - 6);
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError || !doc.isObject())
        throw TInterchangeError(notIpuz(QStringLiteral("it is not a JSON object")));
    const QJsonObject root = doc.object();
    if (!root.value(u"version").toString().startsWith(u"http://ipuz.org/v"))
        throw TInterchangeError(notIpuz(QStringLiteral("it names no ipuz version")));
    bool crossword = false;
    for (const QJsonValue &kind : root.value(u"kind").toArray())
        crossword = crossword || kind.toString().startsWith(u"http://ipuz.org/crossword");
    if (!crossword)
        throw TInterchangeError(notIpuz(QStringLiteral("it holds another kind of puzzle")));

    TForeignPuzzle f;
    const QJsonObject dimensions = root.value(u"dimensions").toObject();
    f.Width = dimensions.value(u"width").toInt();
    f.Height = dimensions.value(u"height").toInt();
    if (f.Width <= 0 || f.Height <= 0 || f.Width > 255 || f.Height > 255)
        throw TInterchangeError(notIpuz(QStringLiteral("its dimensions are missing")));
    if (root.value(u"puzzle").toArray().size() != f.Height)
        throw TInterchangeError(QStringLiteral("The puzzle grid of the ipuz file does not match its dimensions."));

    const QString block = root.value(u"block").toString(QStringLiteral("#"));
    const QJsonValue emptyValue = root.value(u"empty");
    const QString empty = emptyValue.isDouble() ? QString::number(emptyValue.toInt()) : emptyValue.toString(QStringLiteral("0"));
    const QJsonValue solution = root.value(u"solution");
    const QJsonValue saved = root.value(u"saved");
    bool omitted = false;
    bool styled = false;
    QList<int> numbers;
    for (int r = 0; r < f.Height; ++r) {
        const QJsonArray puzzleRow = rowAt(root.value(u"puzzle"), r, f.Width, QStringLiteral("puzzle"));
        const QJsonArray solutionRow = solution.isArray() ? rowAt(solution, r, f.Width, QStringLiteral("solution")) : QJsonArray();
        const QJsonArray savedRow = saved.isArray() ? rowAt(saved, r, f.Width, QStringLiteral("saved")) : QJsonArray();
        for (int c = 0; c < f.Width; ++c) {
            const TPuzzleCell cell = puzzleCell(puzzleRow.at(c), block, empty);
            if (cell.Barred)
                throw TInterchangeError(QStringLiteral("The grid has bars between squares, which a Quillmark grid "
                                                       "cannot show."));
            TForeignSquare square;
            // A square left out of the grid's shape parts words as a black square does.
            square.Block = cell.Block || cell.Omitted;
            square.Circled = cell.Circled;
            if (!square.Block) {
                square.Solution = letterOf(solutionRow.at(c), block);
                square.Entry = letterOf(savedRow.at(c), block);
            }
            omitted = omitted || cell.Omitted;
            styled = styled || cell.Styled;
            numbers.append(cell.Number);
            f.Squares.append(square);
        }
    }

    // The clues are matched to words by number, so the file's numbers must be the usual ones.
    for (const TForeignWord &w : ForeignWords(f)) {
        const int given = numbers[(w.Row - 1) * f.Width + (w.Column - 1)];
        if (given != 0 && given != w.Number)
            throw TInterchangeError(QStringLiteral("The square at row %1, column %2 is numbered %3 where the usual "
                                                   "numbering gives %4, so the clues cannot be matched to their words.")
                                        .arg(w.Row)
                                        .arg(w.Column)
                                        .arg(given)
                                        .arg(w.Number));
    }

    const QJsonObject clues = root.value(u"clues").toObject();
    TClueReading reading;
    reading.ShowEnumerations = root.value(u"showenumerations").toBool();
    bool across = false, down = false;
    for (auto it = clues.begin(); it != clues.end(); ++it) {
        const QString direction = it.key().section(u':', 0, 0).trimmed();
        if (direction.compare(u"Across", Qt::CaseInsensitive) == 0) {
            readClues(it.value().toArray(), f.Across, QStringLiteral("Across"), reading);
            across = true;
        } else if (direction.compare(u"Down", Qt::CaseInsensitive) == 0) {
            readClues(it.value().toArray(), f.Down, QStringLiteral("Down"), reading);
            down = true;
        } else {
            throw TInterchangeError(QStringLiteral("The puzzle has %1 clues; a Quillmark puzzle has Across and Down "
                                                   "clues only.")
                                        .arg(direction));
        }
    }
    for (auto it = reading.Continuations.begin(); it != reading.Continuations.end(); ++it) {
        QMap<int, QString> &list = it.key().first == u"Down" ? f.Down : f.Across;
        if (list.value(it.key().second).trimmed().isEmpty())
            list.insert(it.key().second, it.value());
    }
    const QList<TForeignWord> words = ForeignWords(f);
    for (const auto &[listed, dir, name] : {std::tuple{across, Direction::Across, QStringLiteral("Across")},
                                            std::tuple{down, Direction::Down, QStringLiteral("Down")}})
        if (!listed && std::any_of(words.begin(), words.end(), [d = dir](const TForeignWord &w) { return w.Dir == d; }))
            f.Notices.append(QStringLiteral("The file has no %1 clues: the %1 words were opened without them.").arg(name));

    f.Title = plainText(root.value(u"title").toString());
    f.Author = plainText(root.value(u"author").toString());
    f.Copyright = plainText(root.value(u"copyright").toString());
    f.Notes = plainText(root.value(u"notes").toString());
    if (omitted)
        f.Notices.append(QStringLiteral("Squares outside the grid's shape became black squares."));
    if (styled)
        f.Notices.append(QStringLiteral("The colours and marks of squares are not kept."));
    return f;
}

QByteArray WriteIpuz(const TForeignPuzzle &f)
{
    QMap<int, int> numberAt;  // square index to printed number
    for (const TForeignWord &w : ForeignWords(f))
        numberAt.insert((w.Row - 1) * f.Width + (w.Column - 1), w.Number);

    QJsonArray puzzle, solution, saved;
    bool anySaved = false;
    for (int r = 0; r < f.Height; ++r) {
        QJsonArray puzzleRow, solutionRow, savedRow;
        for (int c = 0; c < f.Width; ++c) {
            const int i = r * f.Width + c;
            const TForeignSquare &square = f.Squares[i];
            if (square.Block) {
                puzzleRow.append(QStringLiteral("#"));
                solutionRow.append(QStringLiteral("#"));
                savedRow.append(QStringLiteral("#"));
                continue;
            }
            puzzleRow.append(numberAt.value(i, 0));
            solutionRow.append(square.Solution);
            savedRow.append(square.Entry);
            anySaved = anySaved || !square.Entry.isEmpty();
        }
        puzzle.append(puzzleRow);
        solution.append(solutionRow);
        saved.append(savedRow);
    }
    const auto clueList = [](const QMap<int, QString> &clues) {
        QJsonArray list;
        for (auto it = clues.begin(); it != clues.end(); ++it)
            list.append(QJsonArray{it.key(), it.value()});
        return list;
    };

    QJsonObject root{
        {"version", Version},
        {"kind", QJsonArray{CrosswordKind}},
        {"dimensions", QJsonObject{{"width", f.Width}, {"height", f.Height}}},
        {"puzzle", puzzle},
        {"solution", solution},
        {"clues", QJsonObject{{"Across", clueList(f.Across)}, {"Down", clueList(f.Down)}}},
    };
    if (anySaved)
        root.insert(u"saved", saved);
    for (const auto &[key, value] : {std::pair{"title", &f.Title}, std::pair{"author", &f.Author},
                                     std::pair{"copyright", &f.Copyright}, std::pair{"notes", &f.Notes}})
        if (!value->isEmpty())
            root.insert(QLatin1StringView(key), *value);
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}
