#include "views/ui/txwdgridform.h"

#include "clues/ui/tautoclueform.h"
#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/appresources.h"
#include "model/cp1252.h"
#include "model/puzzle.h"
#include "settings/screenfit.h"
#include "settings/colors.h"
#include "settings/fontsetting.h"
#include "settings/txwdprocs.h"
#include "solving/scoring.h"
#include "views/gridgeometry.h"

#include <QAction>
#include <QCloseEvent>
#include <QDateTime>
#include <QRandomGenerator>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEngine>
#include <QPainter>
#include <QScreen>

TXwdGridForm *XwdGridForm = nullptr;

namespace {

const QString HideGuidelinesCaption = QStringLiteral("&Hide Guidelines");

// The reference square size for the letter font; computed from the screen when the
// settings module is not there to say.
int maxSquareSize()
{
    if (XwdProcs)
        return XwdProcs->MaxSquareSize;
    const QScreen *screen = QGuiApplication::primaryScreen();
    return ComputeMaxSquareSize(screen ? screen->availableGeometry().height() : 768, 20);
}

// The guidelines' dots: three pixels on, three off.
constexpr int DotRun = 3;

}  // namespace

TXwdGridForm::TXwdGridForm(QWidget *parent)
    : QWidget(parent, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
{
    setObjectName(QStringLiteral("XwdGridForm"));
    QPalette background = palette();
    background.setColor(QPalette::Window, Qt::white);
    setPalette(background);
    setAutoFillBackground(true);
    setFocusPolicy(Qt::StrongFocus);

    Editor.MouseSwapped = false;
    Editor.Symmetry = 1;
    setCursor(AppCursor(QStringLiteral("PENCIL")));

    if (!XwdGridForm)
        XwdGridForm = this;
    // Every change to the puzzle, whoever made it, shows here.
    connect(&Session(), &TPuzzleSession::changed, this, [this] { update(); });
    connect(&Session(), &TPuzzleSession::opened, this, [this] { update(); });
}

TXwdGridForm::~TXwdGridForm()
{
    if (XwdGridForm == this)
        XwdGridForm = nullptr;
}

void TXwdGridForm::setGuidesAction(QAction *action)
{
    if (guidesAction_)
        disconnect(guidesAction_, nullptr, this, nullptr);
    guidesAction_ = action;
    if (action)
        connect(action, &QAction::changed, this, qOverload<>(&QWidget::update));
    update();
}

bool TXwdGridForm::GuidelinesShown() const
{
    return guidesAction_ && guidesAction_->text() == HideGuidelinesCaption;
}

void TXwdGridForm::RestoreHighlight()
{
    Editor.RestoreHighlight();
    update();
}

void TXwdGridForm::DropCurrentWord()
{
    Editor.WordDirection = 0;
    update();
}

int TXwdGridForm::TakeBackWord()
{
    if (Editor.WordDirection != 0)
        RestoreHighlight();
    return Editor.WordDirection;
}

void TXwdGridForm::SelectWord(QPoint at, int direction, const QColor &colour)
{
    TakeBackWord();
    Editor.WordDirection = direction;
    Editor.HighlightWord(at, colour);
    update();
}

bool TXwdGridForm::ToggleMouseSwapped()
{
    Editor.MouseSwapped = !Editor.MouseSwapped;
    return Editor.MouseSwapped;
}

int TXwdGridForm::NextSymmetry(bool restart)
{
    const int from = restart ? 0 : Editor.Symmetry;
    Editor.Symmetry = from == 0 ? 1 : from == 1 ? 2 : 0;
    return Editor.Symmetry;
}

void TXwdGridForm::ArrangeFromSettings()
{
    const int extent = GridWindowExtent(Puzzle.Size, SquareSize);
    const QPoint origin = GridWindowOrigin(ReadText(Setting::ScreenBoundsGrid));
    move(FitBoundsToScreen(QRect(origin, QSize(extent, extent + TitleBarAllowance)), AvailableScreenArea(origin)).topLeft());
    resize(extent, extent);
}

void TXwdGridForm::SetSquare(int x, int y, bool clear)
{
    // The session's announcement repaints.
    Editor.SetSquare(x, y, clear);
}

void TXwdGridForm::ClickCell(int x, int y, Qt::MouseButton button)
{
    report(Editor.ClickCell(x, y, button == Qt::LeftButton));
    // A clue being written follows the word the user picks in the grid.
    if (Editor.WordDirection != 0)
        MoveAutoclueToGrid();
    update();
}

void TXwdGridForm::TypeKey(uchar ch)
{
    report(Editor.TypeKey(ch));
}

void TXwdGridForm::report(const TSolvingStatus &status)
{
    if (status.Cleared)
        emit clueDisplayCleared();
    if (status.SelectedSlot)
        emit clueSelected(*status.SelectedSlot);
}

void TXwdGridForm::readAppearance()
{
    if (ReadInt(Setting::UseCursors) == 1)
        setCursor(AppCursor(QStringLiteral("PENCIL")));
    else
        setCursor(Qt::ArrowCursor);
    FilledSqColor = ReadColorSetting(Setting::FilledSqColor);
    BlankSqColor = ReadColorSetting(Setting::BlankSqColor);
    HiliteSqColor = ReadColorSetting(Setting::HiliteSqColor);
    // The size is scaled to the squares when they are known.
    const TFontSetting letters = ReadFontSetting(Setting::GridFont);
    fontColor_ = letters.Color;
    setFont(letters.Font);
}

void TXwdGridForm::applyFontSize()
{
    QFont letters = font();
    letters.setPointSize(ScaledFontSize(FitFontSize(ReadInt(Setting::GridFont.sizeKey()), Setting::GridFont.Size), SquareSize, maxSquareSize()));
    setFont(letters);
}

void TXwdGridForm::ReloadSettings()
{
    readAppearance();
    applyFontSize();
    if (PuzzleMode != SolveMode)
        Editor.LoadGridCharSet();
    update();
}

void TXwdGridForm::FormShow()
{
    readAppearance();
    Editor.LoadGridCharSet();
    Editor.Cheated = false;
    const int square = ReadInt(Setting::ScreenSquare.Name, maxSquareSize());
    SquareSize = FitSquareSize(square, maxSquareSize(), Puzzle.Size, GridWindowMargin, AvailableScreenArea(pos()));
    applyFontSize();
    ArrangeFromSettings();
    // The caller captioned the window with the file name: show it without its extension.
    const QString caption = windowTitle();
    setWindowTitle(caption.left(std::max<qsizetype>(0, caption.size() - 4)).toUpper());
    Editor.WordDirection = 0;
    errorsShown_ = answersShown_ = false;
    update();
}

void TXwdGridForm::FormResize()
{
    if (snapping_ || Puzzle.Size < 1)
        return;
    if (Editor.WordDirection != 0)
        Editor.RestoreHighlight();
    // Only the width decides the square size; the window then snaps to whole squares.
    SquareSize = SquareSizeForWidth(width(), Puzzle.Size, SquareSize);
    applyFontSize();
    const int extent = GridWindowExtent(Puzzle.Size, SquareSize);
    snapping_ = true;
    resize(extent, extent);
    snapping_ = false;
    update();
}

bool TXwdGridForm::FormCloseQuery() const
{
    return ClosingAllowed;
}

void TXwdGridForm::FormPaint(QPainter &painter)
{
    if (Puzzle.Size < 1 || SquareSize < 1)
        return;
    painter.setFont(font());
    if (answersShown_) {
        // The solution layer, "?" for an open square, in grey over blank squares.
        solutionLayer_ = true;
        const QColor letters = fontColor_;
        fontColor_ = QColor(0x80, 0x80, 0x80);
        for (int r = 1; r <= Puzzle.Size; ++r)
            for (int c = 1; c <= Puzzle.Size; ++c)
                PaintCell(painter, c, r, BlankSqColor);
        fontColor_ = letters;
        solutionLayer_ = false;
        return;
    }
    for (int r = 1; r <= Puzzle.Size; ++r)
        for (int c = 1; c <= Puzzle.Size; ++c)
            PaintCell(painter, c, r, BlankSqColor);
    const QColor highlight = Editor.TakeHighlightColor();
    for (const QPoint &square : Editor.HighlightedSquares())
        if (Puzzle.inGrid(square.x(), square.y()))
            PaintCell(painter, square.x(), square.y(), highlight);
    if (errorsShown_) {
        painter.save();
        painter.setPen(QPen(QColor(0xFF, 0, 0), 2));
        for (const QPoint &square : ErrorSquares(Puzzle))
            for (const QLine &line : ErrorCross(square.x(), square.y(), SquareSize))
                painter.drawLine(line);
        painter.restore();
    }
    if (!celebration_.isNull())
        painter.drawImage(0, 0, celebration_);
}

void TXwdGridForm::paintLetter(QPainter &painter, int c, int r, uchar ch, const QColor &colour)
{
    const QString text(Cp1252ToUnicode(ch));
    const QFontMetrics metrics = painter.fontMetrics();
    const QPoint at = CellTopLeft(c, r) + QPoint((SquareSize - metrics.horizontalAdvance(text)) / 2,
                                                 (SquareSize - metrics.height()) / 2 + metrics.ascent());
    painter.setPen(colour);
    painter.drawText(at, text);
}

void TXwdGridForm::endOverlays()
{
    if (errorsShown_) {
        errorsShown_ = false;
        update();
    }
}

void TXwdGridForm::ShowAnswers()
{
    Editor.Cheated = true;
    errorsShown_ = false;
    answersShown_ = true;
    repaint();
}

void TXwdGridForm::EndAnswers()
{
    answersShown_ = false;
    update();
}

void TXwdGridForm::ShowErrors()
{
    if (XwdProcs)
        XwdProcs->Pause(5);
    errorsShown_ = true;
    repaint();
}

void TXwdGridForm::Celebrate()
{
    if (Puzzle.Size < 1 || SquareSize < 1)
        return;
    celebration_ = QImage(size() * devicePixelRatio(), QImage::Format_ARGB32_Premultiplied);
    celebration_.setDevicePixelRatio(devicePixelRatio());
    celebration_.fill(Qt::transparent);
    QRandomGenerator random{quint32(QDateTime::currentMSecsSinceEpoch())};
    for (int round = 0; round < 120; ++round) {
        {
            QPainter painter(&celebration_);
            painter.setFont(font());
            for (int draw = 0; draw < 50; ++draw) {
                const int c = int(random.bounded(Puzzle.Size)) + 1;
                const int r = int(random.bounded(Puzzle.Size)) + 1;
                const QColor colour = CelebrateColor(int(random.bounded(8)) + 1);
                const uchar ch = Puzzle.Cells(c, r);
                if (ch != BlockChar && ch != 0)
                    paintLetter(painter, c, r, ch, colour);
            }
        }
        repaint();
        if (XwdProcs)
            XwdProcs->Pause(2);
    }
    celebration_ = QImage();
    update();
}

void TXwdGridForm::PaintCell(QPainter &painter, int c, int r, const QColor &colour)
{
    const QRect outline = CellOutline(c, r);
    const bool block = Puzzle.isBlock(c, r);
    painter.fillRect(outline, FilledSqColor);
    painter.fillRect(outline.adjusted(1, 1, -1, -1), block ? FilledSqColor : colour);

    // Black squares come from the solution in every mode; the letters from the layer shown.
    const bool entries = PuzzleMode == SolveMode && !solutionLayer_;
    uchar ch = entries ? Puzzle.Entries(c, r) : Puzzle.Cells(c, r);
    if (!entries && ch == OpenChar)
        ch = '?';
    if (ch != 0 && ch != BlockChar)
        paintLetter(painter, c, r, ch, fontColor_);
    if (GuidelinesShown())
        paintGuidelines(painter, c, r);
}

void TXwdGridForm::paintGuidelines(QPainter &painter, int c, int r)
{
    const int m = MiddleLine(Puzzle.Size);
    if (c != m && r != m)
        return;
    // Red ANDed with what is there: red on white, and black stays black.
    const bool masking = painter.paintEngine() && painter.paintEngine()->hasFeature(QPaintEngine::RasterOpModes);
    if (!masking && Puzzle.isBlock(c, r))
        return;
    painter.save();
    if (masking)
        painter.setCompositionMode(QPainter::RasterOp_SourceAndDestination);
    const QPoint origin = CellTopLeft(c, r);
    const int half = SquareSize / 2;
    for (int i = 0; i <= SquareSize; ++i) {
        if (i / DotRun % 2 != 0)
            continue;
        if (c == m)
            painter.fillRect(origin.x() + half, origin.y() + i, 1, 1, Qt::red);
        if (r == m)
            painter.fillRect(origin.x() + i, origin.y() + half, 1, 1, Qt::red);
    }
    painter.restore();
}

void TXwdGridForm::FormMouseDown(Qt::MouseButton button, QPoint at)
{
    endOverlays();
    if (PuzzleMode == DesignMode)
        SetSquare(at.x(), at.y(), button != Qt::LeftButton);
    else
        ClickCell(at.x(), at.y(), button);
}

void TXwdGridForm::FormMouseMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers, QPoint at)
{
    // Dragging paints (left) or erases (right) while designing; any other combination of
    // buttons and modifier keys does nothing.
    constexpr Qt::KeyboardModifiers keys = Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (PuzzleMode != DesignMode || (modifiers & keys))
        return;
    if (buttons == Qt::LeftButton)
        SetSquare(at.x(), at.y(), false);
    else if (buttons == Qt::RightButton)
        SetSquare(at.x(), at.y(), true);
}

void TXwdGridForm::FormKeyPress(QChar ch)
{
    endOverlays();
    const int code = UnicodeToCp1252(ch);
    if (code < 0)
        return;
    // A typed letter repaints through the session's announcement.
    report(Editor.KeyPress(uchar(code)));
}

bool TXwdGridForm::FormKeyDown(int key)
{
    TGridKey gridKey;
    switch (key) {
    case Qt::Key_Left: gridKey = TGridKey::Left; break;
    case Qt::Key_Up: gridKey = TGridKey::Up; break;
    case Qt::Key_Right: gridKey = TGridKey::Right; break;
    case Qt::Key_Down: gridKey = TGridKey::Down; break;
    case Qt::Key_Delete: gridKey = TGridKey::Delete; break;
    default: return false;
    }
    endOverlays();
    report(Editor.KeyDown(gridKey));
    // An arrow picks a word as a click does, and a clue being written follows it.
    if (gridKey != TGridKey::Delete && Editor.WordDirection != 0)
        MoveAutoclueToGrid();
    update();
    return true;
}

void TXwdGridForm::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    FormPaint(painter);
}

void TXwdGridForm::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    // Restoring from the taskbar is no new showing.
    if (!event->spontaneous())
        FormShow();
}

void TXwdGridForm::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    FormResize();
}

void TXwdGridForm::mousePressEvent(QMouseEvent *event)
{
    FormMouseDown(event->button(), event->position().toPoint());
}

void TXwdGridForm::mouseMoveEvent(QMouseEvent *event)
{
    FormMouseMove(event->buttons(), event->modifiers(), event->position().toPoint());
}

void TXwdGridForm::keyPressEvent(QKeyEvent *event)
{
    if (FormKeyDown(event->key()))
        return;
    QString text = event->text();
    // Some platforms give these keys no text; they are typed characters all the same.
    if (text.isEmpty() && event->key() == Qt::Key_Backspace)
        text = QChar(8);
    else if (text.isEmpty() && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
        text = QChar(13);
    if (text.isEmpty()) {
        QWidget::keyPressEvent(event);
        return;
    }
    for (const QChar ch : text)
        FormKeyPress(ch);
}

void TXwdGridForm::closeEvent(QCloseEvent *event)
{
    if (FormCloseQuery())
        event->accept();
    else
        event->ignore();
}
