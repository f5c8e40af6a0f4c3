#include "clues/ui/tdeflistform.h"

#include "clues/deflist.h"
#include "clues/ui/tautoclueform.h"
#include "mainwindow/ui/appresources.h"
#include "model/cp1252.h"
#include "settings/fontsetting.h"

#include <QApplication>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QShowEvent>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

// Every line is at least 500 pixels wide, so a narrow list scrolls across its long lines.
class TWideLines : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QSize size = QStyledItemDelegate::sizeHint(option, index);
        size.setWidth(std::max(size.width(), 500));
        return size;
    }
};

QListWidget *makeList(QWidget *parent, const char *name)
{
    auto *list = new QListWidget(parent);
    list->setItemDelegate(new TWideLines(list));
    list->setObjectName(QString::fromLatin1(name));
    list->setMinimumWidth(1);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    QPalette palette = list->palette();
    palette.setColor(QPalette::Base, Qt::white);
    list->setPalette(palette);
    return list;
}

// The item shows the line with blanks for empty squares and keeps its bytes, by which the
// line's word is found again.
void setLine(QListWidgetItem *item, const QByteArray &line)
{
    item->setText(ShownText(line));
    item->setData(Qt::UserRole, line);
}

QByteArray lineOf(const QListWidgetItem *item)
{
    return item->data(Qt::UserRole).toByteArray();
}

void fillList(QListWidget *list, const QList<QByteArray> &lines)
{
    list->clear();
    for (const QByteArray &line : lines)
        setLine(new QListWidgetItem(list), line);
}

}  // namespace

TDefListForm::TDefListForm(QWidget *parent) : QWidget(parent, Qt::Tool)
{
    setObjectName(QStringLiteral("DefListForm"));
    setWindowTitle(QStringLiteral("Definitions"));

    Panel1 = new QWidget(this);
    Panel1->setObjectName(QStringLiteral("Panel1"));
    AcrLbl = new QLabel(QStringLiteral("ACROSS"), Panel1);
    AcrLbl->setObjectName(QStringLiteral("AcrLbl"));
    DwnLbl = new QLabel(QStringLiteral("    DOWN"), Panel1);
    DwnLbl->setObjectName(QStringLiteral("DwnLbl"));
    ViewBtn = new QToolButton(Panel1);
    ViewBtn->setObjectName(QStringLiteral("ViewBtn"));
    ViewBtn->setAutoRaise(true);
    ViewBtn->setFocusPolicy(Qt::NoFocus);
    ViewBtn->setIconSize(QSize(20, 20));
    ViewBtn->setIcon(Glyph(QStringLiteral("LISTMAX")));
    ViewBtn->setToolTip(QString::fromLatin1(FullScreenEditHint));
    Panel1->setFixedHeight(ViewBtn->sizeHint().height() + 4);

    Splitter1 = new QSplitter(Qt::Horizontal, this);
    Splitter1->setObjectName(QStringLiteral("Splitter1"));
    Splitter1->setOpaqueResize(true);
    Splitter1->setChildrenCollapsible(false);
    Splitter1->setHandleWidth(4);
    AcrList = makeList(Splitter1, "AcrList");
    DwnList = makeList(Splitter1, "DwnList");
    Splitter1->addWidget(AcrList);
    Splitter1->addWidget(DwnList);
    Splitter1->setStretchFactor(0, 0);
    Splitter1->setStretchFactor(1, 1);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(Panel1);
    column->addWidget(Splitter1, 1);

    connect(ViewBtn, &QToolButton::clicked, this, &TDefListForm::ViewBtnClick);
    connect(Splitter1, &QSplitter::splitterMoved, this, &TDefListForm::Splitter1Moved);
    connect(AcrList, &QListWidget::itemClicked, this, [this] { DefListMouseUp(AcrList); });
    connect(DwnList, &QListWidget::itemClicked, this, [this] { DefListMouseUp(DwnList); });
    resize(560, 320);
}

QRect TDefListForm::screenArea() const
{
    const QScreen *screen = this->screen() ? this->screen() : QGuiApplication::primaryScreen();
    return screen ? screen->geometry() : QRect(0, 0, 1024, 768);
}

void TDefListForm::FormShow()
{
    ViewBtn->setIcon(Glyph(QStringLiteral("LISTMAX")));
    ViewBtn->setToolTip(QString::fromLatin1(FullScreenEditHint));
    LoadFonts();
    Fill();
    // Three lines of the list's own font, measured once the lines are there.
    const int caption = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const int line = AcrList->count() > 0 ? AcrList->sizeHintForRow(0) : AcrList->fontMetrics().height();
    setMinimumHeight(caption + Panel1->sizeHint().height() + 3 * line);
    if (!placed_)
        placeByAutoclue();
    layoutLists();
}

void TDefListForm::placeByAutoclue()
{
    placed_ = true;
    if (!AutoclueForm)
        return;
    // Below Autoclue, as wide, where the screen has room; above it otherwise.
    const QRect area = screenArea();
    const QRect autoclue = AutoclueForm->frameGeometry();
    resize(std::max(autoclue.width(), minimumWidth()), height());
    const int below = autoclue.bottom() + 1 + 4;
    const int top = below + height() <= area.bottom() ? below : std::max(area.top(), autoclue.top() - 4 - height());
    move(autoclue.left(), top);
}

void TDefListForm::LoadFonts()
{
    const TFontSetting font =
        ReadFontSetting(Setting::DefsFont);
    for (QListWidget *list : {AcrList, DwnList}) {
        list->setFont(font.Font);
        QPalette palette = list->palette();
        palette.setColor(QPalette::Text, font.Color);
        list->setPalette(palette);
    }
}

void TDefListForm::Fill()
{
    const TDefLists lists = FillDefLists(Puzzle);
    fillList(AcrList, lists.Across);
    fillList(DwnList, lists.Down);
    AcrList->setCurrentRow(-1);
    DwnList->setCurrentRow(-1);
}

void TDefListForm::layoutLists()
{
    const int across = std::max(1, (width() - 14) / 2);
    Splitter1->setSizes({across, std::max(1, width() - across - Splitter1->handleWidth())});
    AcrLbl->move(4, (Panel1->height() - AcrLbl->sizeHint().height()) / 2);
    AcrLbl->adjustSize();
    ViewBtn->move(width() - 53, (Panel1->height() - ViewBtn->sizeHint().height()) / 2);
    ViewBtn->adjustSize();
    Splitter1Moved();
}

void TDefListForm::Splitter1Moved()
{
    DwnLbl->adjustSize();
    DwnLbl->move(AcrList->width(), AcrLbl->y());
}

void TDefListForm::DefListMouseUp(QListWidget *list)
{
    QListWidget *other = list == AcrList ? DwnList : AcrList;
    other->clearSelection();
    other->setCurrentRow(-1);
    const QListWidgetItem *item = list->currentItem();
    if (!item || !AutoclueForm)
        return;
    const Direction d = list == AcrList ? Direction::Across : Direction::Down;
    const TDefListTarget target = FindDefLineWord(Puzzle, lineOf(item), d);
    if (!target.Found)
        return;
    TAutoclueWalk &walk = AutoclueForm->Walk;
    walk.WalkSlot = target.Slot;
    walk.WalkCol = target.Col;
    walk.WalkRow = target.Row;
    walk.WalkNumber = target.Number;
    walk.WalkDir = target.Dir;
    AutoclueForm->ShowCurrentWord(target.Dir);
    // The user goes on typing the clue.
    AutoclueForm->activateWindow();
    AutoclueForm->DefEdit->setFocus();
}

std::optional<QRect> TDefListForm::AutoclueNormalBounds() const
{
    if (ViewBtn->toolTip() == QLatin1String(FullScreenEditHint))
        return std::nullopt;
    return QRect(SavedBounds[4], SavedBounds[5], SavedBounds[6], SavedBounds[7]);
}

void TDefListForm::ReplaceLine(char dir, int number, const QByteArray &clue, const QByteArray &answer)
{
    QListWidget *list = dir == 'a' ? AcrList : DwnList;
    QList<QByteArray> lines;
    for (int i = 0; i < list->count(); ++i)
        lines.append(lineOf(list->item(i)));
    const int row = FindDefLineIndex(lines, number);
    if (row >= 0)
        setLine(list->item(row), DefLine(number, clue, answer));
}

void TDefListForm::ViewBtnClick()
{
    QWidget *autoclue = AutoclueForm;
    const QRect area = screenArea();
    if (ViewBtn->toolTip() == QLatin1String(FullScreenEditHint)) {
        const QRect own = geometry();
        const QRect other = autoclue ? autoclue->geometry() : QRect();
        const int values[8] = {own.x(),   own.y(),   own.width(),   own.height(),
                               other.x(), other.y(), other.width(), other.height()};
        for (int i = 0; i < 8; ++i)
            SavedBounds[i] = int16_t(values[i]);
        const int autoclueHeight = autoclue ? autoclue->height() : 0;
        if (autoclue)
            autoclue->setGeometry(8, 8, area.width() - 16, autoclueHeight);
        setGeometry(8, autoclueHeight + 12, area.width() - 16, area.height() - autoclueHeight - 16);
        ViewBtn->setIcon(Glyph(QStringLiteral("LISTMIN")));
        ViewBtn->setToolTip(QString::fromLatin1(NormalViewHint));
    } else {
        setGeometry(SavedBounds[0], SavedBounds[1], SavedBounds[2], SavedBounds[3]);
        if (autoclue)
            autoclue->setGeometry(SavedBounds[4], SavedBounds[5], SavedBounds[6], SavedBounds[7]);
        ViewBtn->setIcon(Glyph(QStringLiteral("LISTMAX")));
        ViewBtn->setToolTip(QString::fromLatin1(FullScreenEditHint));
    }
    layoutLists();
}

void TDefListForm::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous())
        FormShow();
}

void TDefListForm::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    // The view button keeps to the right; the DOWN heading to the splitter.
    ViewBtn->move(width() - 53, ViewBtn->y());
    Splitter1Moved();
}
