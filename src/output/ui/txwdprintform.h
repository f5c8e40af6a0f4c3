#pragma once
// "Print Puzzle": which page formats, the title, copies and grey squares, and from here to
// the preview, the printer or a PDF file; a second tab sets the text fonts.

#include "output/pagelayout.h"

#include <QDialog>
#include <QPointer>

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QSpinBox;
class QTabWidget;
class QWidget;
class TPreviewForm;

class TXwdPrintForm : public QDialog {
    Q_OBJECT
public:
    explicit TXwdPrintForm(TPreviewForm *preview, QWidget *parent = nullptr);

    // The puzzle specification handed on to the pages' headings.
    QString PuzzleSpecText;

    // Reloads the format boxes from the settings and sets the rest for a new showing.
    void FormShow();
    // Preview and Print share one handler.
    void PrintBtnClick(bool preview);
    void PDFBtnClick();
    void DefChkClick();
    void MSTextBtnClick();
    void PPTextBtnClick();
    void ResetBtnClick();
    void MSLayoutPaint(QWidget *box);
    void PPLayoutPaint(QWidget *box);

    // The choices as a print job.
    TPrintJob Job() const;

    QTabWidget *PageControl = nullptr;
    QCheckBox *MSChk = nullptr;
    QCheckBox *MSGChk = nullptr;
    QCheckBox *NGChk = nullptr;
    QCheckBox *SGChk = nullptr;
    QCheckBox *PPChk = nullptr;
    QCheckBox *GrayChk = nullptr;
    QCheckBox *DefChk = nullptr;
    QLineEdit *TitleEdit = nullptr;
    QSpinBox *CopyEd = nullptr;
    QLabel *PrnLbl = nullptr;
    QProgressBar *PrintBar = nullptr;
    QPushButton *PDFBtn = nullptr;
    QWidget *MSLayout = nullptr;
    QWidget *PPLayout = nullptr;
    QPushButton *MSTextBtn = nullptr;
    QPushButton *PPTextBtn = nullptr;
    QPushButton *ResetBtn = nullptr;
    QCheckBox *ByChk = nullptr;
    QPushButton *PrevBtn = nullptr;
    QPushButton *PrintBtn = nullptr;
    QPushButton *CancelBtn = nullptr;

protected:
    void showEvent(QShowEvent *event) override;

private:
    QCheckBox *formatBox(TPageFormat f) const;
    int checkedFormats() const;
    void samplePaint(QWidget *box, bool puzzlePage);

    QPointer<TPreviewForm> preview_;
};

// The puzzle page's text font as its sample shows it: base size plus the grid's step.
QFont PuzzlePageSampleFont();
QFont ManuscriptSampleFont();
