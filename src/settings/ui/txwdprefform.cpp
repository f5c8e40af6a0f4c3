#include "settings/ui/txwdprefform.h"

#include "clues/gridlanguage.h"
#include "fill/ui/twordlistspage.h"
#include "mainwindow/puzzlesession.h"
#include "mainwindow/screenlayout.h"
#include "mainwindow/ui/appresources.h"
#include "mainwindow/ui/dialogs.h"
#include "mainwindow/ui/txwdmainform.h"
#include "model/puzzle.h"
#include "settings/colors.h"
#include "settings/txwdprocs.h"
#include "views/gridgeometry.h"

#include <QAction>
#include <QButtonGroup>
#include <QMenu>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSpinBox>
#include <QStackedWidget>
#include <QStyledItemDelegate>
#include <QTextDocument>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

const char *const PageNames[] = {"General", "View", "Print", "Tools", "Fonts", "Language", "Word Lists"};
const char *const PageObjects[] = {"GeneralPg", "ViewPg", "PrintPg", "ToolsPg", "FontsPg", "LanguagePg", "WordListsPg"};
const char *const Languages[] = {"English", "French",    "Spanish", "Italian",     "German",
                                 "Swedish", "Norwegian", "Danish",  "Multilingual"};

struct TPathRow {
    const char *Edit;
    const char *Button;
    const char *Caption;
    const TSettingKey *Setting;
    const char *FileName;
    const char *Title;
    const char *Filter;
};
// In the order the page shows them.
const TPathRow PathRows[] = {
    {"DictEdit", "DictBtn", "Dictionary", &Setting::DictPath, "*.exe", "Link Dictionary",
     "Dictionary Files (*.EXE)|*.EXE"},
    {"ClueEdit", "ClueBtn", "Cluevault", &Setting::CluePath, "XwdCluevault.exe", "Link Cluevault",
     "Quillmark Cluevault (*.EXE)|*.EXE"},
    {"PadEdit", "PadBtn", "Scratchpad", &Setting::ScraPath, "*.exe", "Link Text Editor", "Editor Files (*.EXE)|*.EXE"},
    {"MailEdit", "MailBtn", "Postrunner", &Setting::MailPath, "Postrunner.exe", "Link Postrunner",
     "Quillmark Postrunner (*.EXE)|*.EXE"},
    {"ThesEdit", "ThesBtn", "Thesaurus", &Setting::ThesPath, "*.exe", "Link Thesaurus",
     "Thesaurus Files (*.EXE)|*.EXE"},
};


// A widget whose painting and mouse release go to the dialog's handlers.
class TPaintBox : public QWidget {
public:
    TPaintBox(QWidget *parent, std::function<void(QPainter &)> paint) : QWidget(parent), paint_(std::move(paint)) {}
    std::function<void(QMouseEvent *)> MouseUp;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        paint_(painter);
    }
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        if (MouseUp)
            MouseUp(event);
    }

private:
    std::function<void(QPainter &)> paint_;
};

class TPickDelegate : public QStyledItemDelegate {
public:
    TPickDelegate(TXwdPrefForm *form) : QStyledItemDelegate(form), form_(form) {}
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        form_->PickListDrawItem(*painter, index.row(), option.rect, option.state & QStyle::State_Selected);
    }

private:
    TXwdPrefForm *form_;
};

QCheckBox *makeCheck(QWidget *parent, const char *name, const QString &caption, const QString &hint = {})
{
    auto *check = new QCheckBox(caption, parent);
    check->setObjectName(QString::fromLatin1(name));
    check->setToolTip(hint);
    return check;
}

QPushButton *makeButton(QWidget *parent, const char *name, const QString &caption, const QString &hint = {})
{
    auto *button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(hint);
    button->setAutoDefault(false);
    return button;
}

}  // namespace

const QList<QColor> &TXwdPrefForm::GridColours()
{
    static const QList<QColor> colours = [] {
        QList<QColor> list;
        for (const char *name : {"clBlack", "clMaroon", "clGreen", "clOlive", "clNavy", "clPurple", "clTeal", "clGray",
                                 "clSilver", "clRed", "clLime", "clYellow", "clBlue", "clFuchsia", "clAqua", "clWhite"})
            list.append(ColorFromSetting(QString::fromLatin1(name)));
        return list;
    }();
    return colours;
}

QIcon TXwdPrefForm::PageIcon(int page)
{
    if (page == WordListsPage)
        return Glyph(QStringLiteral("WORDFINDER"));
    QPixmap pixmap(24, 24);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(0x20, 0x30, 0x60), 1.5));
    switch (page) {
    case GeneralPage:  // a loudspeaker
        p.setBrush(QColor(0x70, 0x90, 0xD0));
        p.drawPolygon(QPolygonF({QPointF(3, 9), QPointF(8, 9), QPointF(14, 4), QPointF(14, 20), QPointF(8, 15), QPointF(3, 15)}));
        p.drawArc(QRectF(12, 7, 8, 10), -60 * 16, 120 * 16);
        break;
    case ViewPage:  // a small grid
        for (int c = 0; c < 3; ++c)
            for (int r = 0; r < 3; ++r) {
                p.setBrush((c + r) % 3 == 1 ? Qt::black : Qt::white);
                p.drawRect(QRectF(3 + 6 * c, 3 + 6 * r, 6, 6));
            }
        break;
    case PrintPage:  // a page with lines
        p.setBrush(Qt::white);
        p.drawRect(QRectF(5, 2, 14, 20));
        for (int y = 6; y <= 18; y += 4)
            p.drawLine(QPointF(8, y), QPointF(16, y));
        break;
    case ToolsPage:  // a book
        p.setBrush(QColor(0xB0, 0x40, 0x30));
        p.drawRect(QRectF(5, 3, 14, 18));
        p.setPen(Qt::white);
        p.drawLine(QPointF(8, 8), QPointF(16, 8));
        break;
    case FontsPage:
        p.setFont(QFont(QStringLiteral("Times New Roman"), 14, QFont::Bold));
        p.drawText(QRect(0, 0, 24, 24), Qt::AlignCenter, QStringLiteral("Aa"));
        break;
    default:  // a globe
        p.setBrush(QColor(0x60, 0xB0, 0xE0));
        p.drawEllipse(QRectF(3, 3, 18, 18));
        p.drawLine(QPointF(3, 12), QPointF(21, 12));
        p.drawEllipse(QRectF(8, 3, 8, 18));
        break;
    }
    return QIcon(pixmap);
}

QPixmap TXwdPrefForm::ScreenPicture(int number)
{
    const QSize size(120, 90);
    QPixmap pixmap(size);
    pixmap.fill(QColor(0x00, 0x80, 0x80));
    QPainter p(&pixmap);
    auto window = [&p](const QRect &r, const QColor &fill, const QString &text) {
        p.setPen(Qt::black);
        p.setBrush(fill);
        p.drawRect(r.adjusted(0, 0, -1, -1));
        p.fillRect(QRect(r.left() + 1, r.top() + 1, r.width() - 2, 4), QColor(0x00, 0x00, 0x80));
        p.setFont(QFont(QStringLiteral("Arial"), 6));
        p.drawText(r.adjusted(1, 5, -1, -1), Qt::AlignCenter, text);
    };
    if (number >= 1 && number <= ArrangementCount) {
        // Laid out on a screen five times the picture's size (less a margin) with windows of
        // ordinary sizes, then drawn a fifth as large: the layouts' gaps and least sizes are
        // screen pixels, and on the picture's own size they would run the windows off its edges.
        constexpr int scale = 5;
        constexpr int margin = 2;
        const QSize screen = (size - QSize(2 * margin, 2 * margin)) * scale;
        const TScreenLayout layout =
            ArrangementLayout(number, QRect(QPoint(0, 0), screen), QSize(180, 120), QSize(300, 300));
        const auto shrink = [](const QRect &r) {
            return QRect(QPoint(r.left() / scale, r.top() / scale), QPoint(r.right() / scale, r.bottom() / scale))
                .translated(margin, margin);
        };
        window(shrink(layout.Clues), Qt::white, QStringLiteral("Clues"));
        window(shrink(layout.Grid), QColor(0xF0, 0xF0, 0xF0), QStringLiteral("Grid"));
        window(shrink(layout.Main), QColor(0xD4, 0xD0, 0xC8), QStringLiteral("Main"));
    } else {
        // The windows wherever the user put them.
        window(QRect(6, 14, 56, 56), QColor(0xF0, 0xF0, 0xF0), QStringLiteral("Grid"));
        window(QRect(70, 4, 40, 26), QColor(0xD4, 0xD0, 0xC8), QStringLiteral("Main"));
        window(QRect(58, 40, 46, 44), Qt::white, QStringLiteral("Clues"));
    }
    return pixmap;
}

TXwdPrefForm::TXwdPrefForm(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("XwdPrefForm"));
    setWindowTitle(QStringLiteral("Quillmark Preferences"));
    setWindowFlags(Qt::Tool | Qt::WindowStaysOnTopHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);

    auto *outer = new QVBoxLayout(this);
    auto *top = new QHBoxLayout;
    outer->addLayout(top, 1);

    PickList = new QListWidget(this);
    PickList->setObjectName(QStringLiteral("PickList"));
    PickList->setItemDelegate(new TPickDelegate(this));
    PickList->setFixedWidth(120);
    PickList->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    PickList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (const char *name : PageNames)
        PickList->addItem(QString::fromLatin1(name));
    connect(PickList, &QListWidget::currentRowChanged, this, [this] { PickListClick(); });
    top->addWidget(PickList);

    PageControl1 = new QStackedWidget(this);
    PageControl1->setObjectName(QStringLiteral("PageControl1"));
    for (const char *name : PageObjects) {
        auto *page = new QWidget(PageControl1);
        page->setObjectName(QString::fromLatin1(name));
        PageControl1->addWidget(page);
    }
    createGeneral(PageControl1->widget(GeneralPage));
    createView(PageControl1->widget(ViewPage));
    createPrint(PageControl1->widget(PrintPage));
    createTools(PageControl1->widget(ToolsPage));
    createFonts(PageControl1->widget(FontsPage));
    createLanguage(PageControl1->widget(LanguagePage));
    WordListsPane = new TWordListsPage(PageControl1->widget(WordListsPage));
    (new QVBoxLayout(PageControl1->widget(WordListsPage)))->addWidget(WordListsPane);
    connect(PageControl1, &QStackedWidget::currentChanged, this, [this] { PageControl1Change(); });
    top->addWidget(PageControl1, 1);

    auto *panel = new QWidget(this);
    panel->setObjectName(QStringLiteral("Panel1"));
    auto *buttons = new QHBoxLayout(panel);
    buttons->setContentsMargins(0, 0, 0, 0);
    DefaultsBtn = makeButton(panel, "DefaultsBtn", QStringLiteral("&Defaults"));
    CancelBtn = makeButton(panel, "CancelBtn", QStringLiteral("&Cancel"));
    SaveBtn = makeButton(panel, "SaveBtn", QStringLiteral("&Save"));
    buttons->addWidget(DefaultsBtn);
    buttons->addStretch(1);
    buttons->addWidget(CancelBtn);
    buttons->addWidget(SaveBtn);
    connect(DefaultsBtn, &QPushButton::clicked, this, &TXwdPrefForm::DefaultsBtnClick);
    connect(CancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    connect(SaveBtn, &QPushButton::clicked, this, &TXwdPrefForm::SaveBtnClick);
    outer->addWidget(panel);

    // No edit field of the dialog offers a context menu.
    for (QWidget *edit : findChildren<QWidget *>())
        if (qobject_cast<QLineEdit *>(edit) || qobject_cast<QPlainTextEdit *>(edit))
            edit->setContextMenuPolicy(Qt::NoContextMenu);
    resize(560, 360);
    FormCreate();
}

void TXwdPrefForm::FormCreate()
{
    // The list's inside, so that every item fits without scrolling.
    const int height = std::max(24, PickList->viewport()->height() / PickList->count() - 1);
    for (int i = 0; i < PickList->count(); ++i)
        PickList->item(i)->setSizeHint(QSize(PickList->width(), height));
}

void TXwdPrefForm::createGeneral(QWidget *page)
{
    auto *grid = new QGridLayout(page);
    SoundChk = makeCheck(page, "SoundChk", QStringLiteral("SOUNDS"), QStringLiteral("Turn sounds on or off"));
    SpeechChk = makeCheck(page, "SpeechChk", QStringLiteral("SPEECH"), QStringLiteral("Use speaking messages"));
    CursorsChk = makeCheck(page, "CursorsChk", QStringLiteral("CURSORS"), QStringLiteral("Use fancy cursors"));
    ThreadChk = makeCheck(page, "ThreadChk", QStringLiteral("ALL ACROSS"), QStringLiteral("Clue Across then Down"));
    CountsChk = makeCheck(page, "CountsChk", QStringLiteral("COUNTS"), QStringLiteral("Show word lengths in Autoclue"));
    ViewChk = makeCheck(page, "ViewChk", QStringLiteral("Change Screen Layout"));
    ArrangeBtn = makeButton(page, "ArrangeBtn", QStringLiteral("Arrange"),
                            QStringLiteral("Set screen elements to auto arrange as shown at left"));
    SaveAllChk = makeCheck(page, "SaveAllChk", QStringLiteral("SAVE CUSTOM ARRANGEMENT"));
    ScrImg = new QLabel(page);
    ScrImg->setObjectName(QStringLiteral("ScrImg"));
    UserCfg = new QLabel(QStringLiteral("USER CONFIGURED"), page);
    UserCfg->setObjectName(QStringLiteral("UserCfg"));
    UserCfg->setStyleSheet(QStringLiteral("color: navy; font-weight: bold"));
    auto *label2 = new QLabel(QStringLiteral("Options"), page);
    label2->setObjectName(QStringLiteral("Label2"));
    auto *label3 = new QLabel(QStringLiteral("Screen"), page);
    label3->setObjectName(QStringLiteral("Label3"));

    grid->addWidget(label2, 0, 0);
    int row = 1;
    for (QCheckBox *check : {SoundChk, SpeechChk, CursorsChk, ThreadChk, CountsChk})
        grid->addWidget(check, row++, 0);
    grid->addWidget(label3, 0, 1);
    grid->addWidget(ViewChk, 1, 1, 1, 2);
    grid->addWidget(ScrImg, 2, 1, 4, 1);
    grid->addWidget(ArrangeBtn, 2, 2);
    grid->addWidget(UserCfg, 3, 2);
    grid->addWidget(SaveAllChk, 6, 1, 1, 2);
    grid->setRowStretch(7, 1);

    connect(SoundChk, &QCheckBox::clicked, this, &TXwdPrefForm::SoundChkClick);
    connect(SpeechChk, &QCheckBox::clicked, this, &TXwdPrefForm::SpeechChkClick);
    connect(ViewChk, &QCheckBox::clicked, this, &TXwdPrefForm::ViewChkClick);
    connect(ArrangeBtn, &QPushButton::clicked, this, &TXwdPrefForm::ArrangeBtnClick);
    connect(SaveAllChk, &QCheckBox::clicked, this, &TXwdPrefForm::SaveAllChkClick);
}

void TXwdPrefForm::createView(QWidget *page)
{
    auto *grid = new QGridLayout(page);
    auto *colourGrid = new TPaintBox(page, [](QPainter &p) {
        const QList<QColor> &colours = GridColours();
        const QRect area = p.viewport();
        for (int i = 0; i < 16; ++i) {
            const QRect cell(area.width() * (i % 4) / 4, area.height() * (i / 4) / 4, area.width() / 4, area.height() / 4);
            p.fillRect(cell.adjusted(1, 1, -1, -1), colours[i]);
            p.setPen(Qt::gray);
            p.drawRect(cell.adjusted(1, 1, -2, -2));
        }
    });
    colourGrid->MouseUp = [this](QMouseEvent *e) { ColorGrid1MouseUp(e->button(), e->modifiers(), e->position().toPoint()); };
    colourGrid->setToolTip(QStringLiteral("Left: blank squares. Right: black squares. Ctrl+Right: highlight."));
    ColorGrid1 = colourGrid;
    ColorGrid1->setObjectName(QStringLiteral("ColorGrid1"));
    ColorGrid1->setFixedSize(112, 112);

    auto sample = [page](const char *name, const QString &caption) {
        auto *shape = new QLabel(page);
        shape->setObjectName(QString::fromLatin1(name));
        shape->setFixedSize(24, 24);
        shape->setFrameShape(QFrame::Box);
        shape->setAutoFillBackground(true);
        shape->setToolTip(caption);
        return shape;
    };
    Shape1 = sample("Shape1", QStringLiteral("Blank squares"));
    Shape2 = sample("Shape2", QStringLiteral("Black squares"));
    Shape3 = sample("Shape3", QStringLiteral("Highlight"));

    GridPad = new TPaintBox(page, [this](QPainter &p) { GridPadPaint(p); });
    GridPad->setObjectName(QStringLiteral("GridPad"));
    GridPad->setMinimumSize(150, 150);
    FontBtn = makeButton(page, "FontBtn", QStringLiteral("Set Font..."), QStringLiteral("Select a typeface for the puzzle grid"));
    connect(FontBtn, &QPushButton::clicked, this, &TXwdPrefForm::FontBtnClick);

    grid->addWidget(ColorGrid1, 0, 0, 1, 2);
    const QString captions[] = {QStringLiteral("Blank"), QStringLiteral("Filled"), QStringLiteral("Highlight")};
    int row = 1;
    for (QLabel *shape : {Shape1, Shape2, Shape3}) {
        grid->addWidget(shape, row, 0);
        grid->addWidget(new QLabel(captions[row - 1], page), row, 1);
        ++row;
    }
    grid->addWidget(GridPad, 0, 2, 4, 1);
    grid->addWidget(FontBtn, 4, 2);
    grid->setColumnStretch(2, 1);
}

void TXwdPrefForm::createPrint(QWidget *page)
{
    auto *column = new QVBoxLayout(page);
    PrintPaint = new TPaintBox(page, [this](QPainter &p) { PrintPaintPaint(p); });
    PrintPaint->setObjectName(QStringLiteral("PrintPaint"));
    PrintPaint->setMinimumSize(300, 160);
    auto *fields = new QVBoxLayout(PrintPaint);
    fields->setContentsMargins(16, 12, 20, 16);
    NameEd = new QLineEdit(PrintPaint);
    NameEd->setObjectName(QStringLiteral("NameEd"));
    NameEd->setMaxLength(58);
    fields->addWidget(NameEd);
    for (int i = 1; i <= 4; ++i) {
        auto *edit = new QLineEdit(PrintPaint);
        edit->setObjectName(QStringLiteral("Add%1Ed").arg(i));
        fields->addWidget(edit);
        AddEds.append(edit);
    }
    for (QLineEdit *edit : QList<QLineEdit *>{NameEd} + AddEds)
        edit->installEventFilter(this);
    column->addWidget(PrintPaint, 1);

    auto *row = new QHBoxLayout;
    DefLeftChk = makeCheck(page, "DefLeftChk", QStringLiteral("Definitions At Left"));
    row->addWidget(DefLeftChk);
    row->addStretch(1);
    row->addWidget(new QLabel(QStringLiteral("Bottom Margin"), page));
    UpDown1 = new QSpinBox(page);
    UpDown1->setObjectName(QStringLiteral("UpDown1"));
    UpDown1->setRange(0, 9);
    if (auto *display = UpDown1->findChild<QLineEdit *>())
        display->setObjectName(QStringLiteral("PBMarg"));
    row->addWidget(UpDown1);
    column->addLayout(row);
}

void TXwdPrefForm::createTools(QWidget *page)
{
    auto *grid = new QGridLayout(page);
    int row = 0;
    for (const TPathRow &path : PathRows) {
        grid->addWidget(new QLabel(QString::fromLatin1(path.Caption), page), row, 0);
        auto *edit = new QLineEdit(page);
        edit->setObjectName(QString::fromLatin1(path.Edit));
        auto *button = makeButton(page, path.Button, QStringLiteral("Browse..."),
                                  QStringLiteral("Link the %1 program").arg(QString::fromLatin1(path.Caption)));
        connect(button, &QPushButton::clicked, this, [this, button] { BrowseBtnClick(button); });
        grid->addWidget(edit, row, 1);
        grid->addWidget(button, row, 2);
        PathEdits.append(edit);
        BrowseBtns.append(button);
        ++row;
    }
    grid->setRowStretch(row, 1);
}

void TXwdPrefForm::createFonts(QWidget *page)
{
    auto *grid = new QGridLayout(page);
    auto list = [page](const char *name, const QString &text, int lines) {
        auto *sample = new QListWidget(page);
        sample->setObjectName(QString::fromLatin1(name));
        for (int i = 0; i < lines; ++i)
            sample->addItem(text);
        sample->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        sample->setSelectionMode(QAbstractItemView::NoSelection);
        return sample;
    };
    SolveList = list("SolveList", QStringLiteral("Solve mode clues list"), 6);
    DefsList = list("DefsList", QStringLiteral("Definitions listing"), 6);
    AutoclueEdit = new QPlainTextEdit(QStringLiteral("Autoclue puzzle definitions"), page);
    AutoclueEdit->setObjectName(QStringLiteral("AutoclueEdit"));
    AutoclueEdit->setReadOnly(true);
    StatusList = list("StatusList", QStringLiteral("Status Box"), 1);

    struct TRow {
        QWidget *Sample;
        const char *Button;
        const char *Hint;
    };
    const TRow rows[] = {
        {SolveList, "SolveFontBtn", "Select a typeface for the clue list in Solve mode (preview at left)"},
        {DefsList, "DefsListBtn", "Select a typeface for the definitions list in Construct mode (preview at left)"},
        {AutoclueEdit, "AutoFontBtn", "Select a typeface for the Autoclue dialog in Construct mode (preview at left)"},
        {StatusList, "StatusBoxBtn", "Select a typeface for the status box (preview at left)"},
    };
    int row = 0;
    for (const TRow &r : rows) {
        auto *button = makeButton(page, r.Button, QStringLiteral("Font..."), QString::fromLatin1(r.Hint));
        QWidget *sample = r.Sample;
        connect(button, &QPushButton::clicked, this, [this, sample] { SampleFontClick(sample); });
        grid->addWidget(sample, row, 0);
        grid->addWidget(button, row, 1, Qt::AlignTop);
        ++row;
    }
}

void TXwdPrefForm::createLanguage(QWidget *page)
{
    auto *column = new QVBoxLayout(page);
    LangGroup = new QGroupBox(QStringLiteral("Grid language"), page);
    LangGroup->setObjectName(QStringLiteral("LangGroup"));
    LangButtons = new QButtonGroup(this);
    auto *grid = new QGridLayout(LangGroup);
    // Three columns, filled column by column.
    for (int i = 0; i < 9; ++i) {
        auto *radio = new QRadioButton(QString::fromLatin1(Languages[i]), LangGroup);
        radio->setObjectName(QStringLiteral("Lang%1").arg(i));
        LangButtons->addButton(radio, i);
        grid->addWidget(radio, i % 3, i / 3);
    }
    connect(LangButtons, &QButtonGroup::idClicked, this, &TXwdPrefForm::LangGroupClick);
    column->addWidget(LangGroup);
    column->addStretch(1);
}

void TXwdPrefForm::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    FormCreate();
}

void TXwdPrefForm::FormShow()
{
    PageControl1->setCurrentIndex(GeneralPage);
    ViewChk->setChecked(false);
    showPicture(QStringLiteral("SCREEN5"));
    ArrangeBtn->setEnabled(false);
    SaveAllChk->setChecked(false);
    SaveAllChk->setEnabled(false);
    UserCfg->setVisible(false);
    const qreal dpi = screen() ? screen()->logicalDotsPerInch() : 96;
    if (dpi > 96)
        for (const char *name : {"SaveAllChk", "ViewChk", "Label2", "Label3"})
            if (auto *widget = findChild<QWidget *>(QString::fromLatin1(name))) {
                QFont small = widget->font();
                small.setPointSize(int(std::lround(8 * 96 / dpi)));
                widget->setFont(small);
            }
    fillControls();
    WordListsPane->Load();
    PickList->setCurrentRow(GeneralPage);
}

void TXwdPrefForm::fillControls()
{
    SoundChk->setChecked(ReadInt(Setting::PlaySounds) != 0);
    SpeechChk->setChecked(ReadInt(Setting::PlaySounds) == 2);
    CursorsChk->setChecked(ReadInt(Setting::UseCursorsShown) != 0);
    ThreadChk->setChecked(ReadInt(Setting::Threading) != 0);
    CountsChk->setChecked(ReadInt(Setting::EntryCounts) != 0);

    FilledColor = ReadColorSetting(Setting::FilledSqColor);
    BlankColor = ReadColorSetting(Setting::BlankSqColor);
    HiliteColor = ReadColorSetting(Setting::HiliteSqColor);
    showColours();
    setSampleFont(GridPad, ReadFontSetting(Setting::GridFont));

    readAddresses();
    DefLeftChk->setChecked(ReadInt(Setting::DefsOnLeft) != 0);
    UpDown1->setValue(std::clamp(ReadInt(Setting::PageBottomMargin), 0, 9));
    readPaths();

    setSampleFont(SolveList, ReadFontSetting(Setting::SolveFont));
    setSampleFont(DefsList, ReadFontSetting(Setting::DefsFont));
    setSampleFont(AutoclueEdit, ReadFontSetting(Setting::AutoFont));
    setSampleFont(StatusList, ReadFontSetting(Setting::StatusFont));

    if (QAbstractButton *language = LangButtons->button(std::clamp(ReadInt(Setting::GridLanguage), 0, 8)))
        language->setChecked(true);
}

void TXwdPrefForm::readAddresses()
{
    NameEd->setText(ReadText(Setting::NameShown));
    for (int i = 0; i < 4; ++i)
        AddEds[i]->setText(ReadText(Setting::Address[i]));
}

void TXwdPrefForm::readPaths()
{
    for (int i = 0; i < int(std::size(PathRows)); ++i)
        PathEdits[i]->setText(ReadText(*PathRows[i].Setting));
}

void TXwdPrefForm::setSampleFont(QWidget *sample, const TFontSetting &font)
{
    fonts_[sample] = font;
    if (sample == GridPad) {
        GridPad->update();
        return;
    }
    sample->setFont(font.Font);
    QPalette palette = sample->palette();
    palette.setColor(QPalette::Text, font.Color);
    sample->setPalette(palette);
    // Three whole lines of the sample's own font, however large, none cut through.
    if (auto *list = qobject_cast<QListWidget *>(sample))
        list->setFixedHeight(3 * list->sizeHintForRow(0) + 2 * list->frameWidth());
    else if (auto *edit = qobject_cast<QPlainTextEdit *>(sample))
        edit->setFixedHeight(3 * edit->fontMetrics().lineSpacing() + 2 * edit->frameWidth() +
                             2 * int(std::ceil(edit->document()->documentMargin())));
}

void TXwdPrefForm::showColours()
{
    for (auto [shape, colour] : {std::pair{Shape1, BlankColor}, std::pair{Shape2, FilledColor}, std::pair{Shape3, HiliteColor}}) {
        QPalette palette = shape->palette();
        palette.setColor(QPalette::Window, colour);
        shape->setPalette(palette);
    }
    GridPad->update();
}

void TXwdPrefForm::showPicture(const QString &name)
{
    ScrImgName = name;
    ScrImg->setPixmap(ScreenPicture(name.right(1).toInt()));
}

void TXwdPrefForm::PickListClick()
{
    if (PickList->currentRow() >= 0)
        PageControl1->setCurrentIndex(PickList->currentRow());
}

void TXwdPrefForm::PickListDrawItem(QPainter &painter, int index, const QRect &rect, bool selected)
{
    painter.save();
    painter.fillRect(rect, selected ? palette().highlight() : palette().base());
    const QPixmap icon = PageIcon(index).pixmap(24, 24);
    painter.drawPixmap(rect.left() + 8, rect.top() + (rect.height() - icon.height()) / 2, icon);
    painter.setPen(selected ? palette().highlightedText().color() : palette().text().color());
    const QFontMetrics metrics(painter.font());
    const int baseline = rect.top() + (rect.height() + metrics.tightBoundingRect(QStringLiteral("M")).height()) / 2;
    painter.drawText(rect.left() + 8 + icon.width() + 8, baseline, PickList->item(index)->text());
    painter.restore();
}

void TXwdPrefForm::PageControl1Change()
{
    if (PageControl1->currentIndex() == PrintPage) {
        NameEd->setFocus();
        NameEd->setCursorPosition(NameEd->text().size());
    }
}

void TXwdPrefForm::SoundChkClick()
{
    if (!SoundChk->isChecked())
        SpeechChk->setChecked(false);
}

void TXwdPrefForm::SpeechChkClick()
{
    if (SpeechChk->isChecked())
        SoundChk->setChecked(true);
}

void TXwdPrefForm::ViewChkClick()
{
    const bool on = ViewChk->isChecked();
    ArrangeBtn->setEnabled(on);
    SaveAllChk->setEnabled(on);
    SaveAllChk->setChecked(false);
    UserCfg->setVisible(false);
    if (on) {
        showPicture(QStringLiteral("SCREEN1"));
        ArrangeCode = 1;
    } else {
        showPicture(QStringLiteral("SCREEN5"));
    }
}

void TXwdPrefForm::ArrangeBtnClick()
{
    SaveAllChk->setChecked(false);
    UserCfg->setVisible(false);
    ArrangeCode = (ArrangeCode >= 4 || ArrangeCode == 'c') ? 1 : ArrangeCode + 1;
    showPicture(QStringLiteral("SCREEN%1").arg(ArrangeCode));
}

void TXwdPrefForm::SaveAllChkClick()
{
    UserCfg->setVisible(SaveAllChk->isChecked());
    if (SaveAllChk->isChecked()) {
        showPicture(QStringLiteral("SCREEN5"));
    } else {
        showPicture(QStringLiteral("SCREEN1"));
        ArrangeCode = 1;
    }
}

void TXwdPrefForm::ColorGrid1MouseUp(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint at)
{
    const int column = std::clamp(at.x() * 4 / std::max(1, ColorGrid1->width()), 0, 3);
    const int row = std::clamp(at.y() * 4 / std::max(1, ColorGrid1->height()), 0, 3);
    const QColor colour = GridColours().at(row * 4 + column);
    if (button == Qt::LeftButton)
        BlankColor = colour;
    else if (button == Qt::RightButton && (modifiers & Qt::ControlModifier))
        HiliteColor = colour;
    else if (button == Qt::RightButton)
        FilledColor = colour;
    else
        return;
    showColours();
}

void TXwdPrefForm::GridPadPaint(QPainter &painter)
{
    const int square = std::max(8, SquareSize > 0 ? SquareSize : (XwdProcs ? XwdProcs->MaxSquareSize : 24));
    const QRect box = GridPad->rect();
    painter.setPen(FilledColor);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    QFont letters = fonts_.value(GridPad).Font;
    const int maxSquare = XwdProcs && XwdProcs->MaxSquareSize > 0 ? XwdProcs->MaxSquareSize : square;
    letters.setPointSize(std::max(1, ScaledFontSize(letters.pointSize(), square, maxSquare)));
    painter.setFont(letters);
    const int columns = box.width() / square + 1;
    const int rows = box.height() / square + 1;
    for (int r = 1; r <= rows; ++r)
        for (int c = 1; c <= columns; ++c) {
            const QRect cell((c - 1) * square + 1, (r - 1) * square + 1, square - 1, square - 1);
            const bool filled = (c == 4 && r < 4) || (c == 5 && r == 1);
            if (filled) {
                painter.fillRect(cell, FilledColor);
                continue;
            }
            painter.fillRect(cell, (c < 4 && r == 3) ? HiliteColor : BlankColor);
            painter.setPen(fonts_.value(GridPad).Color);
            painter.drawText(cell, Qt::AlignCenter, QString(QChar(63 + c + r)));
        }
    // The grid lines, in the filled colour, as in the grid window.
    painter.setPen(FilledColor);
    for (int c = 0; c <= columns; ++c)
        painter.drawLine(c * square, 0, c * square, box.height());
    for (int r = 0; r <= rows; ++r)
        painter.drawLine(0, r * square, box.width(), r * square);
}

void TXwdPrefForm::PrintPaintPaint(QPainter &painter)
{
    const int w = PrintPaint->width();
    const int h = PrintPaint->height();
    painter.fillRect(QRect(QPoint(4, 4), QPoint(w - 1, h - 1)), Qt::gray);
    painter.fillRect(QRect(QPoint(0, 0), QPoint(w - 5, h - 5)), Qt::white);
    painter.setPen(Qt::black);
    painter.drawPolygon(QPolygon({QPoint(0, 0), QPoint(w - 4, 0), QPoint(w - 4, h - 4), QPoint(0, h - 4)}));
}

void TXwdPrefForm::FontBtnClick()
{
    SampleFontClick(GridPad);
}

void TXwdPrefForm::SampleFontClick(QWidget *sample)
{
    TFontSetting font = fonts_.value(sample);
    if (const auto chosen = Dialogs().ChooseFontWithColor(this, font.Font, font.Color)) {
        font.Font = chosen->Font;
        font.Color = chosen->Color;
        setSampleFont(sample, font);
    }
}

void TXwdPrefForm::BrowseBtnClick(QPushButton *button)
{
    const int i = int(BrowseBtns.indexOf(button));
    if (i < 0)
        return;
    const TPathRow &path = PathRows[i];
    TFileRequest request;
    request.Kind = TFileRequest::Open;
    request.Title = QString::fromLatin1(path.Title);
#ifdef Q_OS_WIN
    request.DefaultExtension = QStringLiteral("EXE");
    request.FileName = QString::fromLatin1(path.FileName);
    request.Filter = QString::fromLatin1(path.Filter);
#else
    // Programs here carry no extension: any file the user may run, and nothing added to a
    // typed name. Our own companions are offered by their name.
    const QString name = QString::fromLatin1(path.FileName);
    request.FileName = name.startsWith(u'*') ? QString() : name.section(u'.', 0, 0);
    request.Filter = QStringLiteral("Programs|*");
    request.ExecutablesOnly = true;
#endif
    if (const auto choice = Dialogs().ChooseFile(this, request))
        PathEdits[i]->setText(choice->Path);
}

bool TXwdPrefForm::NameEdKeyPress(QLineEdit *field)
{
    if (field == AddEds.last())
        NameEd->setFocus();
    else
        focusNextChild();
    return true;
}

bool TXwdPrefForm::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        auto *field = qobject_cast<QLineEdit *>(watched);
        if (field && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter))
            return NameEdKeyPress(field);
    }
    return QDialog::eventFilter(watched, event);
}

void TXwdPrefForm::LangGroupClick(int index)
{
    // The last chosen language travels in the clue slot no word uses; nothing reads it back.
    Session().SetLanguageMark(index);
}

void TXwdPrefForm::DefaultsBtnClick()
{
    switch (PageControl1->currentIndex()) {
    case GeneralPage:
        ArrangeCode = 0;
        SoundChk->setChecked(true);
        for (QCheckBox *check : {SpeechChk, CursorsChk, ThreadChk, CountsChk})
            check->setChecked(false);
        ViewChk->setChecked(true);
        ArrangeBtn->setEnabled(true);
        SaveAllChk->setEnabled(true);
        SaveAllChk->setChecked(false);
        UserCfg->setVisible(false);
        ArrangeBtnClick();
        break;
    case ViewPage:
        BlankColor = ColorFromSetting(Setting::BlankSqColor.Default.toString());
        FilledColor = ColorFromSetting(Setting::FilledSqColor.Default.toString());
        HiliteColor = ColorFromSetting(Setting::HiliteSqColor.Default.toString());
        showColours();
        setSampleFont(GridPad, DefaultFontSetting(Setting::GridFont));
        break;
    case PrintPage:
        UpDown1->setValue(Setting::PageBottomMargin.Default.toInt());
        DefLeftChk->setChecked(Setting::DefsOnLeft.Default.toInt() != 0);
        readAddresses();
        break;
    case ToolsPage:
        readPaths();
        break;
    case FontsPage:
        setSampleFont(SolveList, DefaultFontSetting(Setting::SolveFont));
        setSampleFont(DefsList, DefaultFontSetting(Setting::DefsFont));
        setSampleFont(AutoclueEdit, DefaultFontSetting(Setting::AutoFont));
        setSampleFont(StatusList, DefaultFontSetting(Setting::StatusFont));
        break;
    case LanguagePage:
        LangButtons->button(Setting::GridLanguage.Default.toInt())->setChecked(true);
        break;
    case WordListsPage:
        WordListsPane->Defaults();
        break;
    }
}

void TXwdPrefForm::SaveBtnClick()
{
    if (ViewChk->isChecked()) {
        if (SaveAllChk->isChecked())
            ArrangeCode = 'c';
        WriteSetting(Setting::AutoArrange, ArrangeCode == 'c' ? 99 : ArrangeCode);
    }
    WriteSetting(Setting::PlaySounds, SpeechChk->isChecked() ? 2 : SoundChk->isChecked() ? 1 : 0);
    WriteSetting(Setting::UseCursors, CursorsChk->isChecked() ? 1 : 0);
    WriteSetting(Setting::Threading, ThreadChk->isChecked() ? 1 : 0);
    // The store keeps booleans as the integers 0 and 1.
    WriteSetting(Setting::EntryCounts, CountsChk->isChecked() ? 1 : 0);
    WriteSetting(Setting::FilledSqColor, ColorToSetting(FilledColor));
    WriteSetting(Setting::BlankSqColor, ColorToSetting(BlankColor));
    WriteSetting(Setting::HiliteSqColor, ColorToSetting(HiliteColor));
    WriteFontSetting(Setting::GridFont, fonts_.value(GridPad));
    WriteSetting(Setting::Name, NameEd->text());
    for (int i = 0; i < 4; ++i)
        WriteSetting(Setting::Address[i], AddEds[i]->text());
    WriteSetting(Setting::DefsOnLeft, DefLeftChk->isChecked() ? 1 : 0);
    WriteSetting(Setting::PageBottomMargin, UpDown1->value());
    for (int i = 0; i < int(std::size(PathRows)); ++i)
        WriteSetting(*PathRows[i].Setting, PathEdits[i]->text());
    WriteFontSetting(Setting::SolveFont, fonts_.value(SolveList));
    WriteFontSetting(Setting::DefsFont, fonts_.value(DefsList));
    WriteFontSetting(Setting::AutoFont, fonts_.value(AutoclueEdit));
    WriteFontSetting(Setting::StatusFont, fonts_.value(StatusList));
    WriteSetting(Setting::GridLanguage, std::max(0, LangButtons->checkedId()));
    WordListsPane->Save();
    accept();
}

void InstallPreferencesCommand(TXwdMainForm *form)
{
    auto *action = new QAction(QStringLiteral("&Preferences..."), form);
    action->setObjectName(QStringLiteral("PreferencesAct"));
    form->Menu(QStringLiteral("OptionsMenu"))->addAction(action);
    QObject::connect(action, &QAction::triggered, form, [form] {
        TXwdPrefForm dialog(form);
        dialog.FormShow();
        if (Dialogs().Exec(&dialog) != QDialog::Accepted)
            return;
        form->ApplyPreferences(dialog.ViewChk->isChecked(), dialog.ArrangeCode);
    });
}
