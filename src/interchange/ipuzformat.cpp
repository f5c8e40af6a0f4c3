#include "interchange/ipuzformat.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <utility>

namespace {

const QString Version = QStringLiteral("http://ipuz.org/v2");
const QString CrosswordKind = QStringLiteral("http://ipuz.org/crossword#1");

QString notIpuz(const QString &why)
{
    return QStringLiteral("The file is not an ipuz crossword: %1.").arg(why);
}

// A number given as a JSON number or as digits in a string; -1 otherwise.
int numberOf(const QJsonValue &v)
{
    if (v.isDouble())
        return v.toInt(-1);
    bool ok = false;
    const int n = v.toString().trimmed().toInt(&ok);
    return ok ? n : -1;
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

// One direction's clues into `into`, by number.
void readClues(const QJsonArray &list, QMap<int, QString> &into, const QString &direction)
{
    for (const QJsonValue &item : list) {
        int number = -1;
        QString text;
        if (item.isArray()) {
            number = numberOf(item.toArray().at(0));
            text = item.toArray().at(1).toString();
        } else if (item.isObject()) {
            const QJsonObject o = item.toObject();
            number = numberOf(o.value(u"number"));
            text = o.value(u"clue").toString();
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
    for (auto it = clues.begin(); it != clues.end(); ++it) {
        const QString direction = it.key().section(u':', 0, 0).trimmed();
        if (direction.compare(u"Across", Qt::CaseInsensitive) == 0)
            readClues(it.value().toArray(), f.Across, QStringLiteral("Across"));
        else if (direction.compare(u"Down", Qt::CaseInsensitive) == 0)
            readClues(it.value().toArray(), f.Down, QStringLiteral("Down"));
        else
            throw TInterchangeError(QStringLiteral("The puzzle has %1 clues; a Quillmark puzzle has Across and Down "
                                                   "clues only.")
                                        .arg(direction));
    }

    f.Title = root.value(u"title").toString();
    f.Author = root.value(u"author").toString();
    f.Copyright = root.value(u"copyright").toString();
    f.Notes = root.value(u"notes").toString();
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
