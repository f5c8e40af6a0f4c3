#pragma once
// The preferences dialog: every user setting on six pages, read from the settings store
// when it is shown and written back, all of it, with Save.

#include "settings/fontsetting.h"

#include <QColor>
#include <QDialog>
#include <QHash>
#include <QIcon>
#include <QList>

class QAbstractButton;
class QButtonGroup;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPainter;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;
class QStackedWidget;

class TWordListsPage;

class TXwdPrefForm : public QDialog {
    Q_OBJECT
public:
    explicit TXwdPrefForm(QWidget *parent = nullptr);

    enum Page { GeneralPage, ViewPage, PrintPage, ToolsPage, FontsPage, LanguagePage, WordListsPage };

    void FormCreate();
    void FormShow();
    void PickListClick();
    void PickListDrawItem(QPainter &painter, int index, const QRect &rect, bool selected);
    void PageControl1Change();
    void SoundChkClick();
    void SpeechChkClick();
    void ViewChkClick();
    void ArrangeBtnClick();
    void SaveAllChkClick();
    void ColorGrid1MouseUp(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint at);
    void GridPadPaint(QPainter &painter);
    void PrintPaintPaint(QPainter &painter);
    void FontBtnClick();
    void SampleFontClick(QWidget *sample);
    void BrowseBtnClick(QPushButton *button);
    // Enter in an address field; true when consumed.
    bool NameEdKeyPress(QLineEdit *field);
    void LangGroupClick(int index);
    void DefaultsBtnClick();
    void SaveBtnClick();

    // The arrangement code: 0 to 4, or 'c' once a custom arrangement was saved.
    int ArrangeCode = 0;
    QColor BlankColor;
    QColor FilledColor;
    QColor HiliteColor;

    // The standard 16 colours of the colour grid, in grid order.
    static const QList<QColor> &GridColours();
    // The page list's icons and the pictures of the screen arrangements ("SCREEN1" to "SCREEN5").
    static QIcon PageIcon(int page);
    static QPixmap ScreenPicture(int number);

    QListWidget *PickList = nullptr;
    QStackedWidget *PageControl1 = nullptr;
    QPushButton *CancelBtn = nullptr;
    QPushButton *SaveBtn = nullptr;
    QPushButton *DefaultsBtn = nullptr;

    QCheckBox *SoundChk = nullptr;
    QCheckBox *SpeechChk = nullptr;
    QCheckBox *CursorsChk = nullptr;
    QCheckBox *ThreadChk = nullptr;
    QCheckBox *CountsChk = nullptr;
    QCheckBox *ViewChk = nullptr;
    QPushButton *ArrangeBtn = nullptr;
    QCheckBox *SaveAllChk = nullptr;
    QLabel *ScrImg = nullptr;
    QLabel *UserCfg = nullptr;
    QString ScrImgName;  // the picture shown: "SCREEN1" to "SCREEN5"

    QWidget *ColorGrid1 = nullptr;
    QLabel *Shape1 = nullptr;
    QLabel *Shape2 = nullptr;
    QLabel *Shape3 = nullptr;
    QWidget *GridPad = nullptr;
    QPushButton *FontBtn = nullptr;

    QWidget *PrintPaint = nullptr;
    QLineEdit *NameEd = nullptr;
    QList<QLineEdit *> AddEds;  // Add1Ed .. Add4Ed
    QCheckBox *DefLeftChk = nullptr;
    QSpinBox *UpDown1 = nullptr;

    QList<QLineEdit *> PathEdits;  // DictEdit, ClueEdit, PadEdit, MailEdit, ThesEdit
    QList<QPushButton *> BrowseBtns;

    QListWidget *SolveList = nullptr;
    QListWidget *DefsList = nullptr;
    QPlainTextEdit *AutoclueEdit = nullptr;
    QListWidget *StatusList = nullptr;

    QGroupBox *LangGroup = nullptr;
    QButtonGroup *LangButtons = nullptr;
    TWordListsPage *WordListsPane = nullptr;

protected:
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void createGeneral(QWidget *page);
    void createView(QWidget *page);
    void createPrint(QWidget *page);
    void createTools(QWidget *page);
    void createFonts(QWidget *page);
    void createLanguage(QWidget *page);
    void showPicture(const QString &name);
    void showColours();
    void setSampleFont(QWidget *sample, const TFontSetting &font);
    void readAddresses();
    void readPaths();
    void fillControls();

    // The font each sample carries (GridPad's is the grid font).
    QHash<QWidget *, TFontSetting> fonts_;
};

class TXwdMainForm;
// PreferencesAct in the Options menu: runs the dialog and, after Save, has the main window
// apply what was saved.
void InstallPreferencesCommand(TXwdMainForm *form);
