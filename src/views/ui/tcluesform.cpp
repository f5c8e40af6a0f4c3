#include "views/ui/tcluesform.h"

#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/appresources.h"
#include "mainwindow/ui/txwdmainform.h"
#include "model/cp1252.h"
#include "model/puzzle.h"
#include "settings/screenfit.h"
#include "settings/fontsetting.h"
#include "settings/txwdprocs.h"
#include "views/cluelayout.h"
#include "views/gridgeometry.h"
#include "views/ui/txwdgridform.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QStyledItemDelegate>

TCluesForm *CluesForm = nullptr;

namespace {

// A picked clue's word is shown in this colour, whatever the grid's highlight colour is.
const QColor PickedWordColor(255, 255, 0);

int scrollBarWidth(const QWidget *list)
{
    return list->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, list);
}

// Measures and draws the items by the clue list's own line breaking.
class TClueItemDelegate : public QStyledItemDelegate {
public:
    explicit TClueItemDelegate(QListWidget *list) : QStyledItemDelegate(list), list_(list) {}

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const QString text = index.data(Qt::DisplayRole).toString();
        const int height = ClueListMeasureItem(text, MeasureOf(option.fontMetrics), list_->width(),
                                               scrollBarWidth(list_));
        return QSize(list_->viewport()->width(), height);
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const QRect rect = option.rect;
        const bool selected = option.state & QStyle::State_Selected;
        painter->save();
        painter->setClipRect(rect);
        painter->fillRect(rect, option.palette.brush(selected ? QPalette::Highlight : QPalette::Base));
        painter->setFont(option.font);
        painter->setPen(option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));

        const QFontMetrics metrics(option.font);
        const TClueItemLayout layout =
            ClueListDrawLayout(index.data(Qt::DisplayRole).toString(), MeasureOf(metrics), list_->width(),
                               scrollBarWidth(list_), rect.height());
        for (int i = 0; i < 3; ++i) {
            if (i > 0 && layout.Lines[i].isEmpty())
                continue;
            const QPoint at = rect.topLeft() + layout.Origins[i];
            painter->drawText(at.x(), at.y() + metrics.ascent(), layout.Lines[i]);
        }
        painter->restore();
    }

private:
    QListWidget *list_;
};

bool isNavigationKey(int key)
{
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        return true;
    default:
        return false;
    }
}

}  // namespace

TCluesForm::TCluesForm(QWidget *parent) : QWidget(parent, Qt::Tool)
{
    setObjectName(QStringLiteral("CluesForm"));
    setWindowTitle(QStringLiteral("Clues"));
    handCursor_ = AppCursor(QStringLiteral("HANDPNT"));
    connect(&Session(), &TPuzzleSession::restored, this, [this] {
        if (isVisible())
            Fill();
    });

    ClueList = new QListWidget(this);
    ClueList->setObjectName(QStringLiteral("ClueList"));
    ClueList->setItemDelegate(new TClueItemDelegate(ClueList));
    ClueList->setSelectionMode(QAbstractItemView::SingleSelection);
    ClueList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    ClueList->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    ClueList->setUniformItemSizes(false);
    ClueList->setTextElideMode(Qt::ElideNone);
    ClueList->setSpacing(0);
    ClueList->installEventFilter(this);
    connect(ClueList, &QListWidget::itemClicked, this, &TCluesForm::ClueListClick);

    resize(260, 400);
    if (!CluesForm)
        CluesForm = this;
}

TCluesForm::~TCluesForm()
{
    if (CluesForm == this)
        CluesForm = nullptr;
}

void TCluesForm::Fill()
{
    ClueList->clear();
    for (const QByteArray &clue : ClueListItems(Puzzle))
        ClueList->addItem(FromCp1252(clue));
    ClearSelection();
}

void TCluesForm::SelectSlot(int slot)
{
    ClueList->setCurrentRow(slot - 1);
}

void TCluesForm::ClearSelection()
{
    // Through the view, so that the list does not make its first item current when it
    // gets the focus.
    ClueList->setCurrentIndex(QModelIndex());
}

QString TCluesForm::CurrentLine() const
{
    const QListWidgetItem *item = ClueList->currentItem();
    return item ? item->text() : QString();
}

void TCluesForm::FormShow()
{
    LoadFonts();
    place();
    Fill();
}

void TCluesForm::LoadFonts()
{
    const TFontSetting solveFont = ReadFontSetting(Setting::SolveFont);
    ClueList->setFont(solveFont.Font);
    QPalette palette = ClueList->palette();
    palette.setColor(QPalette::Text, solveFont.Color);
    ClueList->setPalette(palette);

    if (ReadInt(Setting::UseCursors) == 1)
        ClueList->viewport()->setCursor(handCursor_);
    else
        ClueList->viewport()->setCursor(Qt::ArrowCursor);
}

void TCluesForm::place()
{
    if (const std::optional<QRect> bounds = ReadScreenBounds(Setting::ScreenBoundsClues.Name)) {
        move(bounds->topLeft());
        resize(bounds->size());
        return;
    }

    // Beside the main window: to its left, or to its right when there is no room, and
    // within the screen either way.
    const QScreen *screen = this->screen() ? this->screen() : QGuiApplication::primaryScreen();
    const QRect area = screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768);
    const QRect main = XwdMainForm ? XwdMainForm->frameGeometry() : QRect(area.right() - 240, area.top(), 240, 300);
    const int w = std::min(280, area.width());
    const int h = std::min(std::max(400, main.height()), area.height());
    int left = main.left() - 4 - w;
    if (left < area.left())
        left = main.right() + 1 + 4;
    left = std::clamp(left, area.left(), area.right() + 1 - w);
    const int top = std::clamp(main.top(), area.top(), area.bottom() + 1 - h);
    move(left, top);
    resize(w, h);
}

void TCluesForm::FormResize()
{
    ClueList->setGeometry(rect());
    Fill();
}

bool TCluesForm::FormCloseQuery() const
{
    return ClosingAllowed;
}

void TCluesForm::ClueListClick()
{
    const int row = ClueList->currentRow();
    if (row < 0 || !XwdGridForm)
        return;
    const int slot = row + 1;
    // Where the word is found depends on the direction left once the old one is taken back.
    const TClueListPick pick = ClueListPickWord(Puzzle, slot, XwdGridForm->TakeBackWord(), SquareSize);
    XwdGridForm->SelectWord(pick.Point, pick.WordDirection, PickedWordColor);
    if (XwdMainForm)
        XwdMainForm->ShowSolvingClue(slot);
}

bool TCluesForm::ClueListKeyPress(QChar key)
{
    char16_t code = key.unicode();
    if (code >= u'a' && code <= u'z')
        code = char16_t(code - u'a' + u'A');
    const bool forwarded = code == 8 || code == u'+' || (code >= u'A' && code <= u'Z');
    if (forwarded && XwdGridForm) {
        XwdGridForm->activateWindow();
        XwdGridForm->setFocus();
        XwdGridForm->FormKeyPress(QChar(code));
    }
    return forwarded;
}

void TCluesForm::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    // Restoring from the taskbar is no new showing.
    if (!event->spontaneous())
        FormShow();
}

void TCluesForm::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    FormResize();
}

void TCluesForm::closeEvent(QCloseEvent *event)
{
    if (FormCloseQuery())
        event->accept();
    else
        event->ignore();
}

bool TCluesForm::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ClueList && event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Backspace)
            return ClueListKeyPress(QChar(8));
        if (key->text().size() == 1 && ClueListKeyPress(key->text().front()))
            return true;
        if (isNavigationKey(key->key())) {
            // Choosing a clue with the keys picks it as a click does.
            const int before = ClueList->currentRow();
            static_cast<QObject *>(ClueList)->event(event);
            if (ClueList->currentRow() != before)
                ClueListClick();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
