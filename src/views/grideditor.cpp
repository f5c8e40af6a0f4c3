#include "views/grideditor.h"

#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "model/puzzle.h"
#include "settings/colors.h"
#include "settings/txwdprocs.h"
#include "views/gridgeometry.h"

namespace {

constexpr uchar BackspaceKey = 8;
constexpr uchar EnterKey = 13;
constexpr uchar SpaceKey = ' ';
constexpr uchar RevealKey = '+';
constexpr uchar UnknownLetter = '?';

}  // namespace

void TGridEditor::LoadGridCharSet()
{
    const int language = PuzzleMode == SolveMode ? int(Puzzle.Language) : ReadInt(QStringLiteral("GridLanguage"), 0);
    if (language >= 0 && language < GridLanguageCount)
        GridCharSet = GridCharSetFor(language);
}

namespace {

void changeSquare(TPuzzle &p, int c, int r, bool clear)
{
    p.Cells(c, r) = clear ? 0 : BlockChar;
    // The clues of the words that started here no longer fit; numbering is left as it is.
    for (Direction d : {Direction::Across, Direction::Down}) {
        const int slot = p.slotAt(c, r, d);
        if (slot == 0)
            continue;
        if (slot <= ClueSlots)
            p.setClue(slot, {});
        p.setSlotAt(c, r, d, 0);
    }
}

}  // namespace

void TGridEditor::SetSquare(int x, int y, bool clear)
{
    const QPoint cell = CellAt({x, y});
    // The square and its partner are one step.
    Session().Edit(clear ? QStringLiteral("Clear Square") : QStringLiteral("Black Square"), TChangeKind::Grid,
                   [&](TPuzzle &p) {
                       if (!p.inGrid(cell.x(), cell.y()))
                           return;
                       changeSquare(p, cell.x(), cell.y(), clear);
                       if (const auto partner = SymmetryPartner(cell.x(), cell.y(), p.Size, Symmetry))
                           if (p.inGrid(partner->x(), partner->y()))
                               changeSquare(p, partner->x(), partner->y(), clear);
                   },
                   {cell.x(), cell.y()});
}

TSolvingStatus TGridEditor::ClickCell(int x, int y, bool leftButton)
{
    TSolvingStatus status;
    const QPoint cell = CellAt({x, y});
    if (WordDirection != 0)
        RestoreHighlight();
    if (PuzzleMode == SolveMode)
        status.Cleared = true;

    if (!Puzzle.inGrid(cell.x(), cell.y()) || Puzzle.isBlock(cell.x(), cell.y())) {
        WordDirection = 0;
        return status;
    }

    CursorPos = {x, y};
    bool down = !leftButton;
    if (MouseSwapped)
        down = !down;
    WordDirection = down ? 2 : 1;
    HighlightWord({x, y}, HiliteSqColor);

    if (PuzzleMode == SolveMode) {
        const QPoint start = WordStart(Puzzle, cell.x(), cell.y(), WordDirection);
        const Direction d = WordDirection == 1 ? Direction::Across : Direction::Down;
        status.SelectedSlot = Puzzle.slotAt(start.x(), start.y(), d);
    }
    return status;
}

uchar TGridEditor::heldChar(int c, int r) const
{
    if (PuzzleMode == SolveMode) {
        const uchar entry = Puzzle.Entries(c, r);
        return entry == 0 ? SpaceKey : entry;
    }
    const uchar cell = Puzzle.Cells(c, r);
    if (cell == 0)
        return SpaceKey;
    return cell == OpenChar ? UnknownLetter : cell;
}

void TGridEditor::BackOneSquare(int &c, int &r, uchar &ch)
{
    if (WordDirection == 1) {
        if (c > 1 && !Puzzle.isBlock(c - 1, r)) {
            --c;
            CursorPos.rx() -= SquareSize;
        }
    } else if (WordDirection == 2) {
        if (r >= 2 && !Puzzle.isBlock(c, r - 1)) {
            --r;
            CursorPos.ry() -= SquareSize;
        }
    }
    ch = heldChar(c, r);
    // One square further back, so that the advance after storing lands on the new square.
    if (WordDirection == 1)
        CursorPos.rx() -= SquareSize;
    else
        CursorPos.ry() -= SquareSize;
}

TSolvingStatus TGridEditor::TypeKey(uchar ch)
{
    TSolvingStatus status;
    const QPoint cell = CellAt(CursorPos);
    int c = cell.x();
    int r = cell.y();
    if (!Puzzle.inGrid(c, r))
        return status;

    switch (ch) {
    case BackspaceKey:
        BackOneSquare(c, r, ch);
        break;
    case EnterKey:
        ch = heldChar(c, r);
        break;
    case RevealKey:
        if (PuzzleMode == SolveMode) {
            ch = Puzzle.Cells(c, r);
            Cheated = true;
        } else {
            ch = UnknownLetter;
        }
        break;
    default:
        break;
    }

    if (PuzzleMode == SolveMode)
        Session().SetEntry(c, r, ch == SpaceKey ? 0 : ch);
    else
        Session().SetCell(c, r, ch == SpaceKey ? 0 : ch == UnknownLetter ? OpenChar : ch,
                          ch == SpaceKey ? QStringLiteral("Clear Square") : QStringLiteral("Typing"));

    // Black squares always come from the solution, also while solving.
    bool advanced = false;
    if (WordDirection == 1) {
        if (c != Puzzle.Size && !Puzzle.isBlock(c + 1, r)) {
            CursorPos.rx() += SquareSize;
            advanced = true;
        }
    } else if (r != Puzzle.Size && !Puzzle.isBlock(c, r + 1)) {
        CursorPos.ry() += SquareSize;
        advanced = true;
    }
    if (!advanced) {
        // The word is finished: keys do nothing until the next click.
        WordDirection = 0;
        if (PuzzleMode == SolveMode)
            status.Cleared = true;
    }
    return status;
}

std::optional<uchar> TGridEditor::FilterTypedChar(uchar ch) const
{
    if (ch >= 'a' && ch <= 'z')
        ch = uchar(ch - 'a' + 'A');
    if (ch < 8 || ch > 223 || !GridCharSet.test(ch))
        return std::nullopt;
    return ch;
}

TSolvingStatus TGridEditor::KeyPress(uchar ch)
{
    if (PuzzleMode == DesignMode || WordDirection == 0)
        return {};
    if (const auto accepted = FilterTypedChar(ch))
        return TypeKey(*accepted);
    return {};
}

TSolvingStatus TGridEditor::KeyDown(TGridKey key)
{
    if (PuzzleMode == DesignMode || WordDirection == 0)
        return {};
    if (key == TGridKey::Delete)
        return TypeKey(SpaceKey);

    const bool swapped = MouseSwapped;
    MouseSwapped = false;

    const bool across = key == TGridKey::Left || key == TGridKey::Right;
    const int step = key == TGridKey::Left || key == TGridKey::Up ? -1 : 1;
    const QPoint cell = CellAt(CursorPos);
    int &pixel = across ? CursorPos.rx() : CursorPos.ry();
    const int start = across ? cell.x() : cell.y();
    int i = start;
    const auto blockAt = [&](int k) { return across ? Puzzle.isBlock(k, cell.y()) : Puzzle.isBlock(cell.x(), k); };
    const auto beforeEdge = [&](int k) { return step < 0 ? k > 1 : k < Puzzle.Size; };

    if (beforeEdge(i)) {
        do {
            pixel += step * SquareSize;
            i += step;
        } while (beforeEdge(i) && blockAt(i));
        // Stopped at the edge on a black square: come back to the nearest open one.
        while (blockAt(i) && i != start) {
            pixel -= step * SquareSize;
            i -= step;
        }
    }
    const TSolvingStatus status = ClickCell(CursorPos.x(), CursorPos.y(), across);
    MouseSwapped = swapped;
    return status;
}

void TGridEditor::HighlightWord(QPoint point, const QColor &colour)
{
    CursorPos = point;
    const bool restore = ColorRef(colour) == RestoreColorRef;
    const QColor used = restore ? BlankSqColor : colour;
    if (!restore)
        fixedHighlight_ = ColorRef(colour) == ColorRef(HiliteSqColor) ? std::nullopt : std::optional<QColor>(colour);
    // Tested on the colour actually used, so a restore drops the word only with a pure
    // white blank colour; other blank colours keep it and the next paint shows it again.
    if (ColorRef(used) == RestoreColorRef)
        WordDirection = 0;
}

void TGridEditor::RestoreHighlight()
{
    HighlightWord(CursorPos, ColorFromRef(RestoreColorRef));
}

QColor TGridEditor::TakeHighlightColor()
{
    const QColor colour = fixedHighlight_.value_or(HiliteSqColor);
    fixedHighlight_.reset();
    return colour;
}

void TGridEditor::SetHighlightColor(const QColor &colour)
{
    fixedHighlight_ = colour;
}

QList<QPoint> TGridEditor::HighlightedSquares() const
{
    if (WordDirection == 0)
        return {};
    const QPoint cell = CellAt(CursorPos);
    return HighlightSquares(Puzzle, cell.x(), cell.y(), WordDirection);
}
