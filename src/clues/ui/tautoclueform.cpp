#include "clues/ui/tautoclueform.h"

#include "clues/deflist.h"
#include "clues/ui/tcharmapform.h"
#include "clues/ui/tdeflistform.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/appresources.h"
#include "mainwindow/ui/dialogs.h"
#include "mainwindow/ui/tsoundfx.h"
#include "model/cp1252.h"
#include "settings/fontsetting.h"
#include "settings/txwdprocs.h"
#include "views/gridgeometry.h"
#include "views/ui/txwdgridform.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

TAutoclueForm *AutoclueForm = nullptr;

namespace {

// Once Autoclue has looked up the clue database's data file, the whole program reads and
// writes its settings under this key: the window has always done so, and users' settings
// live there.
const QString AutoclueSettingsPath = QStringLiteral("Software\\Quillmark32\\Quillmark6");

const QColor Navy(0, 0, 128);
const QColor Red(255, 0, 0);

// The designed layout: a label row, the clue box and the tool bar row.
constexpr int Margin = 8;
constexpr int LabelTop = 6;
constexpr int EditTop = 32;
constexpr int EditHeight = 26;
constexpr int BarTop = EditTop + EditHeight + 6;

QLabel *makeLabel(QWidget *parent, const char *name)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, Navy);
    label->setPalette(palette);
    QFont font = label->font();
    font.setBold(true);
    font.setPointSize(12);
    label->setFont(font);
    return label;
}

QToolButton *makeToolButton(QToolBar *bar, const char *name, const QString &hint, const QIcon &icon)
{
    auto *button = new QToolButton(bar);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(hint);
    button->setIcon(icon);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    bar->addWidget(button);
    return button;
}

}  // namespace

TAutoclueForm::TAutoclueForm(QWidget *parent) : QWidget(parent, Qt::Tool)
{
    setObjectName(QStringLiteral("AutoclueForm"));
    setWindowTitle(QStringLiteral("Autoclue"));

    ClueLbl = makeLabel(this, "ClueLbl");
    NumLbl = makeLabel(this, "NumLbl");
    CountLbl = makeLabel(this, "CountLbl");
    CountLbl->hide();

    CtBtn = new QToolButton(this);
    CtBtn->setObjectName(QStringLiteral("CtBtn"));
    CtBtn->setText(QStringLiteral("#"));
    CtBtn->setToolTip(QStringLiteral("Add the letter count to the clue"));
    CtBtn->setAutoRaise(true);
    CtBtn->setFocusPolicy(Qt::NoFocus);
    CtBtn->hide();

    DefEdit = new QLineEdit(this);
    DefEdit->setObjectName(QStringLiteral("DefEdit"));
    DefEdit->setMaxLength(MaxClueLength);
    DefEdit->setContextMenuPolicy(Qt::PreventContextMenu);
    DefEdit->installEventFilter(this);

    OkBtn = new QPushButton(QStringLiteral("&Close"), this);
    OkBtn->setObjectName(QStringLiteral("OkBtn"));
    OkBtn->setFocusPolicy(Qt::TabFocus);

    ToolBar1 = new QToolBar(this);
    ToolBar1->setObjectName(QStringLiteral("ToolBar1"));
    ToolBar1->setIconSize(QSize(20, 20));
    // The style's own pictures for the arrows; our glyphs for the commands a style has no
    // picture of (its "detailed view" or "open folder" would show another command).
    PrevBtn = makeToolButton(ToolBar1, "PrevBtn", QStringLiteral("Previous definition"),
                             style()->standardIcon(QStyle::SP_ArrowBack));
    NextBtn = makeToolButton(ToolBar1, "NextBtn", QStringLiteral("Next definition"),
                             style()->standardIcon(QStyle::SP_ArrowForward));
    BlankBtn = makeToolButton(ToolBar1, "BlankBtn", QStringLiteral("Next undefined word"),
                              Glyph(QStringLiteral("NEXTBLANK")));
    ToolBar1->addSeparator();
    InsertBtn = makeToolButton(ToolBar1, "InsertBtn", QStringLiteral("Paste"), Glyph(QStringLiteral("PASTE")));
    CharsBtn = makeToolButton(ToolBar1, "CharsBtn", QStringLiteral("Insert special character"),
                              Glyph(QStringLiteral("CHARMAP")));
    ToolBar1->addSeparator();
    ListDefsBtn = makeToolButton(ToolBar1, "ListDefsBtn", QStringLiteral("List all definitions"),
                                 Glyph(QStringLiteral("LISTDEFS")));

    ClueBar = new QToolBar(this);
    ClueBar->setObjectName(QStringLiteral("ClueBar"));
    ClueBar->hide();

    connect(PrevBtn, &QToolButton::clicked, this, &TAutoclueForm::PrevBtnClick);
    connect(NextBtn, &QToolButton::clicked, this, &TAutoclueForm::NextBtnClick);
    connect(BlankBtn, &QToolButton::clicked, this, &TAutoclueForm::BlankBtnClick);
    connect(InsertBtn, &QToolButton::clicked, this, &TAutoclueForm::InsertBtnClick);
    connect(CharsBtn, &QToolButton::clicked, this, &TAutoclueForm::CharsBtnClick);
    connect(ListDefsBtn, &QToolButton::clicked, this, &TAutoclueForm::ListdefsBtnClick);
    connect(CtBtn, &QToolButton::clicked, this, &TAutoclueForm::CtBtnClick);
    connect(OkBtn, &QPushButton::clicked, this, &TAutoclueForm::OkBtnClick);
    connect(DefEdit, &QLineEdit::textChanged, this, &TAutoclueForm::DefEditChange);

    // The height is the designed one; the width may grow but keeps the Close button clear
    // of the tool bars.
    const QSize bar = ToolBar1->sizeHint();
    setFixedHeight(BarTop + bar.height() + Margin);
    setMinimumWidth(Margin + bar.width() + Margin + ClueBar->sizeHint().width() + Margin + OkBtn->sizeHint().width()
                    + Margin);
    resize(minimumWidth() + 200, height());

    if (!AutoclueForm)
        AutoclueForm = this;
}

TAutoclueForm::~TAutoclueForm()
{
    if (AutoclueForm == this)
        AutoclueForm = nullptr;
}

void TAutoclueForm::FormShow()
{
    createCompanions();
    LoadSettings();
    place();
    Walk.Reset();
    Walk.WalkTo(gridTarget());
}

void TAutoclueForm::LoadSettings()
{
    ShowCounts = ReadInt(Setting::EntryCounts) != 0;
    Walk.ClueAcrossThenDown = ReadInt(Setting::Threading) != 0;
    const TFontSetting clueFont = ReadFontSetting(Setting::AutoFont);
    DefEdit->setFont(clueFont.Font);
    QPalette palette = DefEdit->palette();
    palette.setColor(QPalette::Text, clueFont.Color);
    DefEdit->setPalette(palette);
    CountLbl->setVisible(ShowCounts);
    CtBtn->setVisible(ShowCounts);
    if (DefListForm && DefListForm->isVisible())
        DefListForm->LoadFonts();

    SetSettingsPath(QString::fromLatin1(ToolsSettingsPath));
    ClueBar->setVisible(!ReadText(Setting::BankDataFile).isEmpty());
    SetSettingsPath(AutoclueSettingsPath);
}

void TAutoclueForm::place()
{
    if (const std::optional<QRect> bounds = ReadBounds(Setting::ScreenBoundsAutoclue.Name)) {
        move(bounds->topLeft());
        resize(bounds->size());
        FormResize();
        return;
    }
    const QScreen *screen = this->screen() ? this->screen() : QGuiApplication::primaryScreen();
    const QRect area = screen ? screen->geometry() : QRect(0, 0, 1024, 768);
    move(area.width() / 4, (area.height() - height()) / 2);
    resize(area.width() / 2, height());
    FormResize();
}

void TAutoclueForm::FormResize()
{
    ClueLbl->adjustSize();
    ClueLbl->move(Margin, LabelTop);
    NumLbl->adjustSize();
    NumLbl->move(width() - Margin - NumLbl->width(), LabelTop);
    DefEdit->setGeometry(Margin, EditTop, width() - 2 * Margin, EditHeight);

    const QSize bar = ToolBar1->sizeHint();
    ToolBar1->setGeometry(Margin, BarTop, bar.width(), bar.height());
    ClueBar->setGeometry(ToolBar1->geometry().right() + 1 + Margin, BarTop,
                         std::max(ClueBar->sizeHint().width(), 24), bar.height());
    // The Close button ends where the clue box ends, centred on the clue bar's row.
    const QSize ok = OkBtn->sizeHint();
    OkBtn->setGeometry(DefEdit->geometry().right() + 1 - ok.width(),
                       ClueBar->y() + (ClueBar->height() - ok.height()) / 2, ok.width(), ok.height());
}

QByteArray TAutoclueForm::gridTarget() const
{
    const int direction = GridWordDirection();
    if (direction == 0 || !XwdGridForm)
        return TAutoclueWalk::AnyWord;
    const QPoint cell = CellAt(XwdGridForm->Editor.CursorPos);
    return TAutoclueWalk::ChooseTarget(direction, cell.x(), cell.y());
}

void TAutoclueForm::MoveToGridWord()
{
    Walk.ResetForGrid();
    Walk.StepForward(gridTarget());
}

void TAutoclueForm::NextBtnClick()
{
    if (Walk.ClueAcrossThenDown)
        Walk.ThreadForward(TAutoclueWalk::AnyWord);
    else
        Walk.StepForward(TAutoclueWalk::AnyWord);
}

void TAutoclueForm::PrevBtnClick()
{
    if (Walk.ClueAcrossThenDown)
        Walk.ThreadBack();
    else
        Walk.StepBack();
}

void TAutoclueForm::BlankBtnClick()
{
    Walk.StepForward({});
}

void TAutoclueForm::InsertBtnClick()
{
    DefEdit->setFocus();
    DefEdit->paste();
}

void TAutoclueForm::CtBtnClick()
{
    appendCount();
}

void TAutoclueForm::OkBtnClick()
{
    close();
}

void TAutoclueForm::appendCount()
{
    if (!ShowCounts)
        return;
    DefEdit->setText(DefEdit->text() + QStringLiteral(" (%1)").arg(Walk.CurrentWord().size()));
    DefEdit->end(false);
}

void TAutoclueForm::DefEditChange()
{
    // What the puzzle cannot keep is shown as the "?" it will be stored as.
    const QString kept = KeepCp1252(DefEdit->text());
    if (kept != DefEdit->text()) {
        const int caret = DefEdit->cursorPosition();
        DefEdit->setText(kept);
        DefEdit->setCursorPosition(caret);
        return;
    }
    if (Walk.StoreClue(ToCp1252(DefEdit->text())))
        replaceDefLine();
}

void TAutoclueForm::replaceDefLine()
{
    if (!DefListForm || !DefListForm->isVisible())
        return;
    const int number = NumLbl->text().section(QStringLiteral("  "), 0, 0).toInt();
    DefListForm->ReplaceLine(Walk.WalkDir, number, Puzzle.clue(Walk.WalkSlot),
                             Puzzle.GetWord(Walk.WalkCol, Walk.WalkRow, Walk.WalkDir));
}

void TAutoclueForm::createCompanions()
{
    releaseCompanions();
    CharMapForm = new TCharMapForm(this);
    DefListForm = new TDefListForm(this);
}

void TAutoclueForm::releaseCompanions()
{
    // Deleted, not closed: closing the character map would hand the focus back to this
    // window while it is going away.
    delete CharMapForm.data();
    delete DefListForm.data();
}

void TAutoclueForm::CharsBtnClick()
{
    if (CharMapForm)
        CharMapForm->setVisible(!CharMapForm->isVisible());
    activateWindow();
    DefEdit->setFocus();
}

void TAutoclueForm::ListdefsBtnClick()
{
    if (DefListForm)
        DefListForm->setVisible(!DefListForm->isVisible());
}

bool TAutoclueForm::DefEditKeyPress(int key, Qt::KeyboardModifiers modifiers)
{
    const bool control = modifiers & Qt::ControlModifier;
    if (!control && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
        NextBtnClick();
        return true;
    }
    if (!control)
        return false;
    switch (key) {
    case Qt::Key_N:
        appendCount();
        return true;
    case Qt::Key_U:
        // Fill-in-the-blank clues: the blank goes before whatever was selected.
        DefEdit->insert(QStringLiteral("___") + DefEdit->selectedText());
        return true;
    case Qt::Key_Y:
        DefEdit->setText(QString());
        return true;
    default:
        return false;
    }
}

void TAutoclueForm::ShowCurrentWord(char dir)
{
    DefEdit->setFocus();
    const int slot = Walk.WalkSlot;
    DefEdit->setText(slot >= 1 && slot <= ClueSlots ? FromCp1252(Puzzle.clue(slot)) : QString());
    DefEdit->end(false);

    const QByteArray word = Puzzle.GetWord(Walk.WalkCol, Walk.WalkRow, dir);
    // An empty square is a zero byte in the word; it shows as a gap, not as a box glyph.
    ClueLbl->setText(ShownText(word));
    ClueLbl->adjustSize();
    if (ShowCounts) {
        CountLbl->setText(QStringLiteral("(%1)").arg(word.size()));
        CountLbl->adjustSize();
        CountLbl->move(ClueLbl->geometry().right() + 1 + 8, ClueLbl->y());
        CtBtn->move(CountLbl->geometry().right() + 1 + 2, ClueLbl->y() + (ClueLbl->height() - CtBtn->height()) / 2);
    }
    NumLbl->setText(WalkNumberCaption(Walk.WalkNumber, dir));
    NumLbl->adjustSize();
    NumLbl->move(width() - Margin - NumLbl->width(), LabelTop);
}

int TAutoclueForm::GridWordDirection() const
{
    return XwdGridForm ? XwdGridForm->Editor.WordDirection : 0;
}

QByteArray TAutoclueForm::ClueText() const
{
    return ToCp1252(DefEdit->text());
}

QString TAutoclueForm::NumberCaption() const
{
    return NumLbl->text();
}

void TAutoclueForm::WordLimitExceeded()
{
    PlayQuestionSound();
    Dialogs().Inform(this, QString::fromLatin1(WordLimitText));
}

void TAutoclueForm::setNumberColour(const QColor &colour)
{
    QPalette palette = NumLbl->palette();
    palette.setColor(QPalette::WindowText, colour);
    NumLbl->setPalette(palette);
}

void TAutoclueForm::NoMoreClues()
{
    setNumberColour(Red);
    NumLbl->setText(QString::fromLatin1(NoMoreCluesText));
    NumLbl->adjustSize();
    NumLbl->move(width() - Margin - NumLbl->width(), LabelTop);
    if (XwdProcs)
        XwdProcs->Pause(5);
    if (SoundFX && PlaySounds == 1)
        SoundFX->Play(4);
    else if (SoundFX && PlaySounds >= 2)
        SoundFX->PlaySync(5);
    if (PlaySounds < 2 && XwdProcs)
        XwdProcs->Pause(500);
    setNumberColour(Navy);
}

void TAutoclueForm::FirstWordPassed()
{
    if (SoundFX && PlaySounds >= 1)
        SoundFX->Play(4);
}

void TAutoclueForm::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    // Restoring from the taskbar is no new showing.
    if (!event->spontaneous())
        FormShow();
}

void TAutoclueForm::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    FormResize();
}

void TAutoclueForm::closeEvent(QCloseEvent *event)
{
    // Closed from the definition list's full screen layout, Autoclue keeps its own bounds,
    // not the strip across the top of the screen.
    const std::optional<QRect> normal = DefListForm ? DefListForm->AutoclueNormalBounds() : std::nullopt;
    const QRect bounds = normal.value_or(QRect(x(), y(), width(), height()));
    WriteBounds(Setting::ScreenBoundsAutoclue.Name, bounds.x(), bounds.y(), bounds.width(), bounds.height());
    releaseCompanions();
    event->accept();
}

bool TAutoclueForm::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == DefEdit && (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride)) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (event->type() == QEvent::ShortcutOverride) {
            // Ctrl+U and Ctrl+Y are the clue box's own, not shortcuts of the program or
            // the edit's standard editing keys.
            const bool control = key->modifiers() & Qt::ControlModifier;
            if (control && (key->key() == Qt::Key_N || key->key() == Qt::Key_U || key->key() == Qt::Key_Y)) {
                event->accept();
                return true;
            }
            return false;
        }
        if (DefEditKeyPress(key->key(), key->modifiers()))
            return true;
    }
    return QWidget::eventFilter(watched, event);
}

void AutoclueBtnClick(QWidget *parent)
{
    if (!Puzzle.IsGridFull()) {
        PlayQuestionSound();
        if (Dialogs().AskWarning(parent, QString::fromLatin1(AutoclueQuestion), false) != TAnswer::Yes)
            return;
    }
    if (!AutoclueForm)
        return;
    AutoclueForm->show();
    AutoclueForm->raise();
    AutoclueForm->activateWindow();
}

void MoveAutoclueToGrid()
{
    if (!AutoclueForm || !AutoclueForm->isVisible())
        return;
    AutoclueForm->MoveToGridWord();
    // The user picked the word to write its clue: typing goes to the clue box, not over the
    // grid's letters. Once the click is over, or the window system would hand the grid the
    // activation back.
    QTimer::singleShot(0, AutoclueForm, [] {
        AutoclueForm->raise();
        AutoclueForm->activateWindow();
        AutoclueForm->DefEdit->setFocus();
    });
}
