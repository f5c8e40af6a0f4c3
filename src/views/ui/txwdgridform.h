#pragma once
// The grid window: the one puzzle's grid, painted square by square, edited with the mouse
// in design mode and typed into while constructing or solving. The rules live in
// TGridEditor; this window turns events into its calls and paints its state.

#include "views/grideditor.h"

#include <QColor>
#include <QImage>
#include <QPointer>
#include <QWidget>

class QAction;
class QPainter;

class TXwdGridForm : public QWidget {
    Q_OBJECT
public:
    explicit TXwdGridForm(QWidget *parent = nullptr);
    ~TXwdGridForm() override;

    // Editing state: cursor, current word, Cheated, MouseSwapped, Symmetry.
    TGridEditor Editor;
    QColor FilledSqColor = Qt::black;
    // The editor decides with these colours, so the window's fields are its very colours.
    QColor &BlankSqColor = Editor.BlankSqColor;
    QColor &HiliteSqColor = Editor.HiliteSqColor;

    // Guidelines are drawn while this action's text is "&Hide Guidelines".
    void setGuidesAction(QAction *action);

    // Shows the current word in the blank colour again (which with a pure white blank
    // colour drops it).
    void RestoreHighlight();
    // Forgets the current word.
    void DropCurrentWord();
    // Takes the current word's highlight back; the direction the grid is left with.
    int TakeBackWord();
    // The one way other windows pick a word: the current one taken back, then the word
    // through the pixel point `at` in `direction` (1 across, 2 down) shown in `colour`.
    void SelectWord(QPoint at, int direction, const QColor &colour);
    // The mouse-button swap toggled; the new state.
    bool ToggleMouseSwapped();
    // The next symmetry (off, diagonal, horizontal, off...); `restart` counts from off, as
    // every opened puzzle does. The new value.
    int NextSymmetry(bool restart = false);
    // Left and top from ScreenBoundsGrid (else 2, 2); size from SquareSize.
    void ArrangeFromSettings();
    // Colours, font, cursor and (when not solving) the admitted characters read again.
    void ReloadSettings();

    void SetSquare(int x, int y, bool clear);
    void ClickCell(int x, int y, Qt::MouseButton button);
    void TypeKey(uchar ch);

    void FormShow();
    void FormPaint(QPainter &painter);
    void FormMouseDown(Qt::MouseButton button, QPoint at);
    void FormMouseMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers, QPoint at);
    // One typed character; one with no Windows-1252 byte is refused.
    void FormKeyPress(QChar ch);
    // Arrows and Delete; true when the key was one of them.
    bool FormKeyDown(int key);
    void FormResize();
    bool FormCloseQuery() const;

    bool GuidelinesShown() const;

    // While the answer button is held: the solution in grey over every square; sets Cheated.
    void ShowAnswers();
    // The answer button is released: back to the solver's letters.
    void EndAnswers();
    // Red crosses on every wrong or empty square, until the grid is next edited.
    void ShowErrors();
    // 120 rounds of 50 solution letters in random colours, then the grid as it was.
    void Celebrate();

signals:
    // While solving: clear the current-clue display and the clue list's selection.
    void clueDisplayCleared();
    // While solving, after a click: select clue list item slot - 1 (slot 0: none) and show it.
    void clueSelected(int slot);

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void PaintCell(QPainter &painter, int c, int r, const QColor &colour);
    void paintGuidelines(QPainter &painter, int c, int r);
    void report(const TSolvingStatus &status);
    void readAppearance();
    void applyFontSize();
    void paintLetter(QPainter &painter, int c, int r, uchar ch, const QColor &colour);
    // An edit, a click or a new showing ends the error marks.
    void endOverlays();

    QPointer<QAction> guidesAction_;
    QColor fontColor_ = Qt::black;
    bool snapping_ = false;
    bool answersShown_ = false;
    bool solutionLayer_ = false;  // painting the answers over the solver's letters
    bool errorsShown_ = false;
    // The celebration's letters pile up here, over the grid, as they are drawn.
    QImage celebration_;
};

// The one grid window, while it exists.
extern TXwdGridForm *XwdGridForm;
