#pragma once
// The definition list: every clue of the puzzle beside its number and answer, ACROSS on the
// left and DOWN on the right, while clues are written in Autoclue. A click on a line moves
// Autoclue to that word; a button switches to a full screen layout and back.

#include <QRect>
#include <QWidget>

#include <optional>

class QLabel;
class QListWidget;
class QSplitter;
class QToolButton;

inline constexpr auto FullScreenEditHint = "Full screen edit";
inline constexpr auto NormalViewHint = "Normal view";

class TDefListForm : public QWidget {
    Q_OBJECT
public:
    explicit TDefListForm(QWidget *parent = nullptr);

    QWidget *Panel1 = nullptr;
    QLabel *AcrLbl = nullptr;
    QLabel *DwnLbl = nullptr;
    QToolButton *ViewBtn = nullptr;
    QSplitter *Splitter1 = nullptr;
    QListWidget *AcrList = nullptr;
    QListWidget *DwnList = nullptr;

    // Left, top, width, height of this window, then of Autoclue, kept for the way back
    // from full screen edit.
    int16_t SavedBounds[8] = {};
    // While the full screen layout is shown: Autoclue's bounds from before it, which are the
    // ones worth keeping when Autoclue closes.
    std::optional<QRect> AutoclueNormalBounds() const;

    void FormShow();
    // The Defs font settings, for both lists.
    void LoadFonts();
    // Both lists afresh from the puzzle.
    void Fill();
    // A click on a line of `list` moves Autoclue to the word it names.
    void DefListMouseUp(QListWidget *list);
    void ViewBtnClick();
    // Keeps the DOWN heading at the splitter.
    void Splitter1Moved();
    // After Autoclue stores a clue: the first line of the direction's list that begins with
    // the padded number becomes the word's fresh line.
    void ReplaceLine(char dir, int number, const QByteArray &clue, const QByteArray &answer);

protected:
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void layoutLists();
    void placeByAutoclue();
    QRect screenArea() const;

    bool placed_ = false;
};
