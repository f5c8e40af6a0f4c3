#include "interchange/interchange.h"
#include "interchange/ipuzformat.h"
#include "interchange/puzformat.h"
#include "model/cp1252.h"
#include "model/puzzlefile.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>

#include "clirun.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <utility>

namespace {

// A puzzle of `size` with a random symmetric pattern, letters (some foreign), part of the
// grid typed in by a solver, and a clue for every word; `full` leaves no square empty.
TPuzzle generated(int size, quint32 seed, bool full)
{
    QRandomGenerator random(seed);
    TPuzzle p;
    for (double density = 0.18;; density -= 0.02) {
        p.ClearPuzzle(size, 'N', "Gen Erated", 0);
        for (int c = 1; c <= size; ++c)
            for (int r = 1; r <= size; ++r)
                if (random.generateDouble() < density)
                    p.Cells(c, r) = p.Cells(size + 1 - c, size + 1 - r) = BlockChar;
        if (WordCount(p) <= MaxWords)
            break;
    }
    for (int c = 1; c <= size; ++c)
        for (int r = 1; r <= size; ++r) {
            if (p.isBlock(c, r))
                continue;
            const int pick = random.bounded(30);
            if (!full && pick < 6)
                continue;
            // 201 is É (even seeds: odd ones hold only A to Z); 223 is ß, which has no capital and
            // must come back as itself.
            p.Cells(c, r) = pick == 29 && seed % 2 == 0 ? uint8_t(201) : pick == 28 && seed % 2 == 0 ? uint8_t(223) : uint8_t('A' + pick % 26);
            if (random.bounded(3) == 0)
                p.Entries(c, r) = uint8_t('A' + random.bounded(26));
        }
    // Odd seeds write clues Latin-1 cannot hold over a grid of A to Z, so both .puz encodings
    // are exercised.
    const QString quote = seed % 2 ? QStringLiteral("“%1” — %2") : QStringLiteral("'%1' é %2");
    for (const TWordRef &w : WordsInSlotOrder(p)) {
        p.setSlotAt(w.Column, w.Row, w.Dir, uint16_t(w.Index));
        const QString clue = quote.arg(w.Number).arg(QString(random.bounded(60), u'x'));
        p.setClue(w.Index, ToCp1252(clue).left(MaxClueLength));
    }
    return p;
}

void expectSameContent(const TPuzzle &a, const TPuzzle &b)
{
    EXPECT_EQ(ContentDifference(a, b).toStdString(), "");
}

TPuzzle throughFormat(const TPuzzle &p, TFileKind kind)
{
    return ImportPuzzle(ExportPuzzle(p, kind, QStringLiteral("Title")), kind).Puzzle;
}

QByteArray section(const QByteArray &name, const QByteArray &data)
{
    QByteArray s = name;
    for (uint16_t v : {uint16_t(data.size()), PuzChecksum(data)})
        s += char(v & 0xFF), s += char(v >> 8);
    return s + data + '\0';
}

// A 5 x 5 open grid of A's: the right shape for nothing, the right content for the rest.
TForeignPuzzle smallForeign(int width, int height)
{
    TForeignPuzzle f;
    f.Width = width;
    f.Height = height;
    f.Squares = QList<TForeignSquare>(width * height, TForeignSquare{false, QStringLiteral("A"), {}, false});
    return f;
}

QString refusal(const QByteArray &bytes, TFileKind kind, const TImportOptions &options = {})
{
    try {
        ImportPuzzle(bytes, kind, options);
    } catch (const TInterchangeError &e) {
        return e.message();
    }
    return QStringLiteral("(accepted)");
}

}  // namespace

TEST(Interchange, GeneratedPuzzlesOfEverySizeKeepTheirContent)
{
    for (int size = 11; size <= MaxGrid; size += 2)
        for (quint32 seed : {1u, 2u}) {
            SCOPED_TRACE(QStringLiteral("a %1 x %1 puzzle, seed %2").arg(size).arg(seed).toStdString());
            const TPuzzle full = generated(size, 100 * size + seed, true);
            const QByteArray puz = ExportPuzzle(full, TFileKind::Puz, QStringLiteral("T"));
            // Latin-1 text is version 1.3; anything beyond it needs version 2.0's UTF-8.
            EXPECT_EQ(puz.mid(0x18, 3), seed % 2 ? "2.0" : "1.3");
            expectSameContent(full, throughFormat(full, TFileKind::Puz));
            expectSameContent(full, throughFormat(full, TFileKind::Ipuz));
            const TPuzzle unfinished = generated(size, 100 * size + seed, false);
            expectSameContent(unfinished, throughFormat(unfinished, TFileKind::Ipuz));
            EXPECT_THROW(ExportPuzzle(unfinished, TFileKind::Puz, {}), TInterchangeError) << "a .puz needs every letter";
        }
}

TEST(Interchange, PuzChecksumsAreRightOnWriteAndADamagedFileOpensWithAWarning)
{
    const QByteArray puz = ExportPuzzle(generated(15, 7, true), TFileKind::Puz, QString());
    EXPECT_TRUE(ImportPuzzle(puz, TFileKind::Puz).Warnings.isEmpty());

    for (const int at : {0x34, int(puz.size()) - 10}) {  // a letter of the solution; a clue
        QByteArray damaged = puz;
        damaged[at] = damaged[at] == 'Q' ? 'R' : 'Q';
        EXPECT_TRUE(ImportPuzzle(damaged, TFileKind::Puz).Warnings.value(0).contains(u"checksums")) << at;
    }
    // A damaged extra section is noticed too.
    QByteArray gext = section("GEXT", QByteArray(15 * 15, '\0'));
    gext[6] = char(gext[6] ^ 1);
    EXPECT_TRUE(ImportPuzzle(puz + gext, TFileKind::Puz).Warnings.value(0).contains(u"checksums"));

    // The timer and the marks of checked squares read without error; what is lost is told.
    const QByteArray extras = section("GEXT", QByteArray(15 * 15, '\x10')) + section("LTIM", "125,1");
    EXPECT_EQ(ImportPuzzle(puz + extras, TFileKind::Puz).Warnings,
              QStringList{QStringLiteral("The solving time so far (2:05) is not kept.")});
}

TEST(Interchange, BadInputIsRefusedWithItsReason)
{
    const QByteArray puz = ExportPuzzle(generated(15, 9, true), TFileKind::Puz, QStringLiteral("Title"));
    QByteArray wrongMagic = puz;
    wrongMagic[3] = 'X';
    QByteArray scrambled = puz;  // locked, but with a digit no key could have made
    scrambled[0x32] = 4;
    const int white = int(std::find_if(puz.begin() + 0x34, puz.end(), [](char c) { return c != '.'; }) - puz.begin()) - 0x34;
    QByteArray rebusGrid(15 * 15, '\0');
    rebusGrid[white] = 1;
    scrambled[0x34 + white] = '7';

    TForeignPuzzle ipuzRebus = smallForeign(15, 15);
    ipuzRebus.Squares[0].Solution = QStringLiteral("AB");
    TForeignPuzzle strayClue = smallForeign(15, 15);
    strayClue.Across.insert(2, QStringLiteral("No word starts at 2 Across"));
    TForeignPuzzle arrow = smallForeign(15, 15);
    arrow.Across.insert(1, QStringLiteral("Go → there"));
    QJsonObject sudoku = QJsonDocument::fromJson(WriteIpuz(smallForeign(15, 15))).object();
    sudoku.insert(u"kind", QJsonArray{QStringLiteral("http://ipuz.org/sudoku#1")});

    const struct {
        const char *what;
        QByteArray bytes;
        TFileKind kind;
        const char *reason;
    } cases[] = {
        {"a .puz cut inside its header", puz.left(40), TFileKind::Puz, "cut short"},
        {"a .puz cut inside its grids", puz.left(300), TFileKind::Puz, "cut short"},
        {"a .puz cut inside its clues", puz.left(puz.size() - 2), TFileKind::Puz, "cut short"},
        {"a .puz with the wrong magic", wrongMagic, TFileKind::Puz, "ACROSS&DOWN"},
        {"an empty .puz", QByteArray(), TFileKind::Puz, "too short"},
        {"a scrambled .puz", scrambled, TFileKind::Puz, "scrambled"},
        {"a .puz with a rebus square", puz + section("GRBS", rebusGrid) + section("RTBL", " 0:STAR;"),
         TFileKind::Puz, "several letters (STAR)"},
        {"a 5 x 5 .puz", WritePuz(smallForeign(5, 5)), TFileKind::Puz, "5 x 5"},
        {"a 15 x 16 .puz", WritePuz(smallForeign(15, 16)), TFileKind::Puz, "15 x 16"},
        {"JSON that is not an object", "[1, 2]", TFileKind::Ipuz, "not an ipuz"},
        {"text that is not JSON", "crossword", TFileKind::Ipuz, "not an ipuz"},
        {"JSON with no ipuz version", R"({"kind": ["http://ipuz.org/crossword#1"]})", TFileKind::Ipuz, "version"},
        {"an ipuz sudoku", QJsonDocument(sudoku).toJson(), TFileKind::Ipuz, "another kind"},
        {"a 5 x 5 .ipuz", WriteIpuz(smallForeign(5, 5)), TFileKind::Ipuz, "5 x 5"},
        {"a 15 x 16 .ipuz", WriteIpuz(smallForeign(15, 16)), TFileKind::Ipuz, "15 x 16"},
        {"an .ipuz with a rebus square", WriteIpuz(ipuzRebus), TFileKind::Ipuz, "several letters (AB)"},
        {"an .ipuz clue for a word the grid lacks", WriteIpuz(strayClue), TFileKind::Ipuz, "2 Across"},
        {"an .ipuz clue with a character Windows-1252 lacks", WriteIpuz(arrow), TFileKind::Ipuz, "(→)"},
    };
    for (const auto &c : cases)
        EXPECT_TRUE(refusal(c.bytes, c.kind).contains(QString::fromUtf8(c.reason)))
            << c.what << " is refused saying \"" << c.reason << "\", not: " << refusal(c.bytes, c.kind).toStdString();
}

namespace {

// Locks a .puz's answers as the programs that lock them do with a four-digit key: the
// letters read column by column, then a round a digit of shifting every letter on by the
// key's digits in turn, cutting the letters at the round's digit, and interleaving the
// second half with the first.
QByteArray locked(QByteArray puz, int side, const std::array<int, 4> &key)
{
    QList<int> at;
    QByteArray letters;
    for (int c = 0; c < side; ++c)
        for (int r = 0; r < side; ++r)
            if (const int i = 0x34 + r * side + c; puz[i] != '.') {
                at.append(i);
                letters.append(puz[i]);
            }
    const uint16_t check = PuzChecksum(letters);
    for (const int digit : key) {
        for (int i = 0; i < letters.size(); ++i)
            letters[i] = char('A' + (letters[i] - 'A' + key[i % 4]) % 26);
        letters = letters.mid(digit) + letters.left(digit);
        const int half = int(letters.size()) / 2;
        QByteArray mixed;
        for (int i = 0; i < half; ++i)
            mixed.append(letters[half + i]).append(letters[i]);
        if (letters.size() % 2)
            mixed.append(letters.back());
        letters = mixed;
    }
    for (int k = 0; k < at.size(); ++k)
        puz[at[k]] = letters[k];
    puz[0x1E] = char(check & 0xFF);
    puz[0x1F] = char(check >> 8);
    puz[0x32] = 4;
    return puz;
}

}  // namespace

TEST(Interchange, PuzFilesFromOtherProgramsOpenAndSayWhatTheyLose)
{
    const TPuzzle source = generated(15, 9, true);
    const QByteArray puz = ExportPuzzle(source, TFileKind::Puz, QStringLiteral("Sunday Best"));

    expectSameContent(source, ImportPuzzle("Downloaded from the paper\r\n" + puz, TFileKind::Puz).Puzzle);

    const TImportedPuzzle unlocked = ImportPuzzle(locked(puz, 15, {2, 7, 4, 1}), TFileKind::Puz);
    expectSameContent(source, unlocked.Puzzle);
    EXPECT_TRUE(unlocked.Warnings.join(u' ').contains(u"unlocked with the key 2741")) << unlocked.Warnings.join(u' ').toStdString();

    QByteArray circles(15 * 15, '\0');
    for (int i = 0, marked = 0; marked < 3; ++i)
        if (puz[0x34 + i] != '.')
            circles[i] = char(0x80), ++marked;
    const TImportedPuzzle circled = ImportPuzzle(puz + section("GEXT", circles), TFileKind::Puz);
    expectSameContent(source, circled.Puzzle);
    EXPECT_EQ(circled.Title, u"Sunday Best");
    const QString warnings = circled.Warnings.join(u' ');
    EXPECT_TRUE(warnings.contains(u"3 squares lose their circles")) << warnings.toStdString();
    EXPECT_TRUE(warnings.contains(u"The title (Sunday Best)")) << warnings.toStdString();
}

TEST(Interchange, AGridBeyondAsciiIsWrittenAsLatin1WithPlainQuotesAndDashes)
{
    TPuzzle p = generated(15, 2, true);
    const TWordRef first = WordsInSlotOrder(p).front();
    p.Cells(first.Column, first.Row) = 196;  // Ä
    p.setClue(1, ToCp1252(QStringLiteral("„Straße“ – ‘kurz’…")));
    QStringList warnings;
    const QByteArray puz = ExportPuzzle(p, TFileKind::Puz, QStringLiteral("Rätsel"), &warnings);
    EXPECT_EQ(puz.mid(0x18, 3), "1.3");
    ASSERT_EQ(warnings.size(), 1);
    EXPECT_TRUE(warnings.front().contains(QStringLiteral("in %1 ").arg(first.Number))) << warnings.front().toStdString();

    const TImportedPuzzle back = ImportPuzzle(puz, TFileKind::Puz);
    EXPECT_EQ(back.Puzzle.Cells(first.Column, first.Row), 196);
    EXPECT_EQ(FromCp1252(back.Puzzle.clue(1)), QStringLiteral("\"Straße\" - 'kurz'..."));
    EXPECT_EQ(back.Title, QStringLiteral("Rätsel"));
}

TEST(Interchange, IpuzCluesReadAsSettersPrintThem)
{
    // An open 11 x 11 grid: 1 to 11 Down, and the Across words of the rows numbered 1, 12, 13, ...
    QJsonObject o = QJsonDocument::fromJson(WriteIpuz(smallForeign(11, 11))).object();
    const QString longClue = QStringLiteral("clever ").repeated(12).trimmed();  // 80 falls inside the 12th word
    o.insert(u"showenumerations", true);
    o.insert(u"clues", QJsonObject{
        {"Across", QJsonArray{
            QJsonObject{{"number", 1}, {"clue", "<i>Waterloo Bridge</i> star, &quot;Dame&quot; &amp; co&#8230;"},
                        {"enumeration", "5,6"}},
            QJsonObject{{"number", "12"}, {"clue", "Printed already (11)"}, {"enumeration", "11"}},
            QJsonObject{{"number", "13/2"}, {"clue", "Linked start"}, {"enumeration", "11-11"},
                        {"continued", QJsonArray{QJsonObject{{"direction", "Down"}, {"number", 2}}}}},
            QJsonObject{{"number", 14}, {"clue", longClue}, {"enumeration", "3,4,4"}},
        }},
        {"Down", QJsonArray{QJsonObject{{"number", 3}, {"clue", ""}, {"see", QJsonObject{{"direction", "Across"}, {"number", 12}}}}}},
    });
    const QByteArray bytes = QJsonDocument(o).toJson();
    EXPECT_TRUE(refusal(bytes, TFileKind::Ipuz).contains(u"14 Across is longer than 80"));

    const TPuzzle p = ImportPuzzle(bytes, TFileKind::Ipuz, {true}).Puzzle;
    const auto clue = [&p](int number, Direction d) {
        for (const TWordRef &w : WordsInSlotOrder(p))
            if (w.Number == number && w.Dir == d)
                return FromCp1252(p.wordClue(w.Column, w.Row, w.Dir));
        return QStringLiteral("(no such word)");
    };
    EXPECT_EQ(clue(1, Direction::Across), QStringLiteral("Waterloo Bridge star, \"Dame\" & co… (5,6)"));
    EXPECT_EQ(clue(12, Direction::Across), QStringLiteral("Printed already (11)"));
    EXPECT_EQ(clue(13, Direction::Across), QStringLiteral("Linked start (11-11)"));
    EXPECT_EQ(clue(2, Direction::Down), QStringLiteral("See 13 Across"));
    EXPECT_EQ(clue(3, Direction::Down), QStringLiteral("See 12 Across"));
    // Cut at the last whole word that fits, never inside one.
    EXPECT_EQ(clue(14, Direction::Across), QStringLiteral("clever ").repeated(11).trimmed());

    // A grid with Down words and no Down list opens, and says so.
    // A list of one [number, clue] pair: spelled out, since braces around one array copy it.
    QJsonArray onlyAcross;
    onlyAcross.append(QJsonArray{1, "Only across"});
    o.insert(u"clues", QJsonObject{{"Across", onlyAcross}});
    const QStringList warnings = ImportPuzzle(QJsonDocument(o).toJson(), TFileKind::Ipuz).Warnings;
    EXPECT_TRUE(warnings.join(u' ').contains(u"no Down clues")) << warnings.join(u' ').toStdString();
}

TEST(Interchange, IpuzShapesAndStylesHaveASafeReading)
{
    // A square left out of the shape parts the words as a black square does.
    QJsonObject o = QJsonDocument::fromJson(WriteIpuz(smallForeign(11, 11))).object();
    QJsonArray puzzle = o.value(u"puzzle").toArray();
    QJsonArray last = puzzle.at(10).toArray();
    last[10] = QJsonValue::Null;
    puzzle[10] = last;
    QJsonArray row = puzzle.at(0).toArray();
    row[0] = QJsonObject{{"cell", 1}, {"style", QJsonObject{{"color", "FF0000"}}}};
    puzzle[0] = row;
    o.insert(u"puzzle", puzzle);
    const TImportedPuzzle imported = ImportPuzzle(QJsonDocument(o).toJson(), TFileKind::Ipuz);
    EXPECT_TRUE(imported.Puzzle.isBlock(11, 11));
    EXPECT_EQ(imported.Warnings.size(), 2);
    EXPECT_EQ(imported.Puzzle.Byline.text(), "--");  // no author prints no byline
    // Numbers that are not the usual ones would tie clues to the wrong words.
    row[2] = 7;
    puzzle[0] = row;
    o.insert(u"puzzle", puzzle);
    EXPECT_TRUE(refusal(QJsonDocument(o).toJson(), TFileKind::Ipuz).contains(u"numbered 7"));
}

TEST(Interchange, TheCommandLineConvertsByExtensionAndWritesNothingOnFailure)
{
    const TScratchDir dir;
    const QString finished = QStringLiteral(QUILLMARK_EXAMPLES "/sunday-stroll.xwd");
    const QString unfinished = QStringLiteral(QUILLMARK_EXAMPLES "/harbour-lights.xwd");
    for (const auto &[from, to] : {std::pair{finished, dir.path("s.puz")}, {dir.path("s.puz"), dir.path("s.ipuz")}, {dir.path("s.ipuz"), dir.path("s.xwd")}})
        EXPECT_EQ(RunCli({"convert", from, to}).code, 0) << to.toStdString();
    expectSameContent(LoadPuzzleFile(finished).Puzzle, LoadPuzzleFile(dir.path("s.xwd")).Puzzle);
    EXPECT_EQ(QJsonDocument::fromJson(ReadFileBytes(dir.path("s.ipuz"))).object().value(u"title").toString(), u"s");
    EXPECT_EQ(RunCli({"info", dir.path("s.puz")}).code, 0);

    const TCliRun refused = RunCli({"convert", unfinished, dir.path("h.puz")});
    EXPECT_TRUE(refused.code == 3 && refused.err.contains(u"not finished")) << refused.err.toStdString();
    EXPECT_FALSE(QFile::exists(dir.path("h.puz")));

    ASSERT_TRUE(WriteFileBytes(dir.path("bad.puz"), ReadFileBytes(dir.path("s.puz")).left(200)));
    EXPECT_EQ(RunCli({"convert", dir.path("bad.puz"), dir.path("bad.xwd")}).code, 2);
    EXPECT_FALSE(QFile::exists(dir.path("bad.xwd")));
    EXPECT_EQ(RunCli({"convert", "--version5", finished, dir.path("v5.puz")}).code, 1);
}
