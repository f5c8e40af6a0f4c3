#pragma once
// The word finder: for the grid's current word, the words that fit with their scores, each
// checked against the words crossing it (dead ends after the viable ones), the letters still
// possible under each square, and the grid's fill report. Double-click or Enter writes the
// chosen word into the grid as one change.

#include "fill/wordfinder.h"
#include "fill/wordlistservice.h"

#include <QWidget>

#include <memory>

class QLabel;
class QLineEdit;
class QTimer;
class QTreeView;
class TCandidateModel;
class TPossibleLettersView;

class TWordFinderForm : public QWidget {
    Q_OBJECT
public:
    explicit TWordFinderForm(QWidget *parent = nullptr);
    ~TWordFinderForm() override;

    // Follows the grid's current word again and recomputes the list.
    void Refresh();
    // Writes the candidate on `row` of the list into the grid's word; false when it cannot
    // (not constructing, no word of that length, nothing loaded).
    bool WriteCandidate(int row);

    const TFinderList &List() const { return list_; }
    const TFillSlot &Slot() const { return slot_; }
    // The word on a row of the list, as the grid holds it.
    QByteArray CandidateWord(int row) const;

    QLineEdit *PatternEdit = nullptr;
    QLabel *CountLabel = nullptr;
    TPossibleLettersView *LettersView = nullptr;
    QTreeView *CandidateList = nullptr;
    QLabel *ReportLabel = nullptr;
    QLabel *NoteLabel = nullptr;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    // Many events (a key held down) come in a burst: one recomputation after them.
    void scheduleRefresh();
    void patternEdited();
    void recompute();

    std::shared_ptr<const TLexicon> lexicon_;
    TFillSlot slot_;
    bool overridden_ = false;  // the pattern was typed into the window
    bool placed_ = false;
    TFinderList list_;
    TCandidateModel *model_ = nullptr;
    QTimer *refreshTimer_ = nullptr;
};
