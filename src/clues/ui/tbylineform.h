#pragma once
// "Puzzle Byline": the constructor's credit line, kept in the puzzle; "--" means none.

#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPushButton;
class TXwdMainForm;

inline constexpr auto NoBylineMarker = "--";
// What can be typed; a byline set from the Name setting may hold up to 60.
inline constexpr int TypedBylineLength = 58;

class TBylineForm : public QDialog {
    Q_OBJECT
public:
    explicit TBylineForm(QWidget *parent = nullptr);

    QLineEdit *BylineEdit = nullptr;
    QCheckBox *NobyChk = nullptr;
    QPushButton *SaveBtn = nullptr;
    QPushButton *CancelBtn = nullptr;

    void FormShow();
    void NobyChkClick();
    void SaveBtnClick();

    void setVisible(bool visible) override;

private:
    // Shows `text` whole: a byline from the Name setting may be longer than can be typed.
    void showText(const QString &text);
};

// BylineAct: the dialog, modal, released when it closes.
void BylineActExecute(QWidget *parent);
// Adds BylineAct to the Options menu, enabled while constructing an open puzzle.
void InstallBylineCommands(TXwdMainForm *form);
