#include "model/puzzletext.h"
#include "model/cp1252.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

const QString Rows = QStringLiteral("...........\n").repeated(9);
const QString Text = QString::fromUtf8("; a comment\nsize 11\nbyline Zoë Maker\nlanguage 1\ngrid\nÉTÉ#DOG#EEL\n") + Rows
                     + QString::fromUtf8("?..........\nentries\nÉ..........\n") + Rows
                     + "...........\nclues\n1A Summer, in Lyon\n4A Barking pet\n3D Third down\n";

}  // namespace

TEST(PuzzleText, CluesTakeTheSlotOfTheirPlaceInReadingOrder)
{
    const TPuzzle p = PuzzleFromText(Text);
    EXPECT_EQ(std::tuple(int(p.Size), int(p.Language), FromCp1252(p.Byline.text())), std::tuple(11, 1, QString::fromUtf8("Zoë Maker")));
    EXPECT_EQ(std::tuple(p.Cells(1, 1), p.Cells(4, 1), p.Cells(1, 11), p.Entries(1, 1)), std::tuple(201, BlockChar, OpenChar, 201));
    // Reading order: 1A, 1D, 2D, 3D, then 4A at (5, 1): 3D is word 4, 4A word 5.
    EXPECT_EQ(p.slotAt(1, 1, Direction::Across), 1);
    EXPECT_EQ(p.slotAt(1, 1, Direction::Down), 0) << "an unclued word has no slot";
    EXPECT_EQ(p.slotAt(3, 1, Direction::Down), 4);
    EXPECT_EQ(p.clue(4), "Third down");
    EXPECT_EQ(p.slotAt(5, 1, Direction::Across), 5);
    EXPECT_EQ(p.clue(5), "Barking pet");

    // And it writes what it reads.
    const TPuzzle again = PuzzleFromText(PuzzleToText(p));
    EXPECT_EQ(PuzzleToText(again), PuzzleToText(p));
    EXPECT_EQ(again.clue(5), "Barking pet");
}

// Mistakes, and each field out of its range, are refused on their own line, never wrapped, cut or replaced.
struct OutOfRange {
    const char *name;
    QString text;
    QString error;
};

class PuzzleTextRefuses : public testing::TestWithParam<OutOfRange> {};

TEST_P(PuzzleTextRefuses, TheFieldOnItsLine)
{
    try {
        PuzzleFromText(GetParam().text);
        FAIL() << "accepted";
    } catch (const TPuzzleTextError &e) {
        EXPECT_EQ(std::string(e.what()), GetParam().error.toStdString());
    }
}

const QString Grid3 = QStringLiteral("grid\nABC\nD#E\nFGH\n");

INSTANTIATE_TEST_SUITE_P(
    EveryField, PuzzleTextRefuses,
    testing::Values(
        OutOfRange{"AGridBeforeTheSize", "grid\nABC\n", "line 1: the size must come first, from 1 to 23"},
        OutOfRange{"ASpaceInTheGrid", "size 3\ngrid\nABC\nA C\nABC\n", "line 4: ' ' cannot stand in a square"},
        OutOfRange{"AShortGridRow", "size 3\ngrid\nABC\nAB\nABC\n", "line 4: the grid must be 3 rows of 3 squares"},
        OutOfRange{"AClueForNoWord", "size 3\ngrid\nABC\nABC\nABC\nclues\n9A No such word\n",
                   "line 7: no word 9A for its clue"},
        OutOfRange{"AnUnknownField", "size 3\ncolour red\n", "line 2: unknown heading 'colour'"},
        OutOfRange{"SizeBeyondTheArrayBeforeAnyGrid", "size 26\nclues\n1A Clue\n", "line 1: the size must be from 1 to 23"},
        OutOfRange{"SizeThatWouldWrapTo11", "size 65547\n", "line 1: the size must be from 1 to 23"},
        OutOfRange{"SizeThatIsNoNumber", "size eleven\n", "line 1: the size must be from 1 to 23"},
        OutOfRange{"LanguageThatWouldWrap", "size 3\nlanguage 300\n", "line 2: the language must be from 0 to 8"},
        OutOfRange{"LanguageTheProgramDoesNotKnow", "size 3\nlanguage 9\n", "line 2: the language must be from 0 to 8"},
        OutOfRange{"BylineOver60Characters", "size 3\nbyline " + QString(61, u'b') + "\n",
                   "line 2: the byline holds at most 60 characters"},
        OutOfRange{"BylineOutsideWindows1252", QString::fromUtf8("size 3\nbyline Zoë 中\n"),
                   QString::fromUtf8("line 2: '中' in the byline is a character a puzzle cannot keep")},
        OutOfRange{"ClueOver80Characters", "size 3\n" + Grid3 + "clues\n1A ok\n1D " + QString(81, u'c') + "\n",
                   "line 8: the clue holds at most 80 characters"},
        OutOfRange{"ClueOutsideWindows1252", "size 3\n" + Grid3 + "clues\n1A " + QString::fromUtf8("→ east") + "\n",
                   QString::fromUtf8("line 7: '→' in the clue is a character a puzzle cannot keep")}),
    [](const testing::TestParamInfo<OutOfRange> &info) { return std::string(info.param.name); });

TEST(PuzzleText, FieldsAtTheirLimitsAreKeptWhole)
{
    const TPuzzle p = PuzzleFromText("size 23\nlanguage 8\nbyline " + QString(60, u'b') + "\ngrid\n"
                                     + QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVW\n").repeated(23) + "clues\n1A "
                                     + QString(80, u'c') + "\n");
    EXPECT_EQ(std::tuple(int(p.Size), int(p.Language), p.Byline.text(), p.clue(1)), std::tuple(23, 8, QByteArray(60, 'b'), QByteArray(80, 'c')));
}

TEST(PuzzleText, ABlackSquareKeepsNoSolversLetter)
{
    for (const char *text : {"size 3\ngrid\nAB#\nCDE\nFGH\nentries\nA,X\n...\n...\n",
                             "size 3\nentries\nA,X\n...\n...\ngrid\nAB#\nCDE\nFGH\n"}) {
        const TPuzzle p = PuzzleFromText(text);
        EXPECT_EQ(p.Entries(3, 1), 0) << text;
        EXPECT_EQ(p.Entries(2, 1), ',');
        EXPECT_EQ(PuzzleToText(PuzzleFromText(PuzzleToText(p))), PuzzleToText(p));
    }
}
