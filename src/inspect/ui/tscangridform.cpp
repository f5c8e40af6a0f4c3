#include "inspect/ui/tscangridform.h"

#include "inspect/scangrid.h"
#include "model/cp1252.h"
#include "settings/colors.h"
#include "settings/txwdprocs.h"
#include "views/gridgeometry.h"
#include "views/ui/txwdgridform.h"

#include <QEventLoop>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int ItemHeight = 15;

// The list is owner-drawn: every item goes through the window's ScanListDrawItem.
class TScanListDelegate : public QStyledItemDelegate {
public:
    explicit TScanListDelegate(TScanGridForm *form) : QStyledItemDelegate(form), form_(form) {}
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        form_->ScanListDrawItem(*painter, index.row(), option.rect, option.state & QStyle::State_Selected);
    }
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return {QStyledItemDelegate::sizeHint(option, index).width(), ItemHeight};
    }

private:
    TScanGridForm *form_;
};

// Enter in the edit scans and goes no further.
class TEnterFilter : public QObject {
public:
    TEnterFilter(TScanGridForm *form) : QObject(form), form_(form) {}
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent *>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter) {
                form_->ScanBtnClick();
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    TScanGridForm *form_;
};

}  // namespace

TScanGridForm::TScanGridForm(QWidget *parent) : QWidget(parent, Qt::Tool | Qt::WindowStaysOnTopHint)
{
    setObjectName(QStringLiteral("ScanGridForm"));
    setWindowTitle(QStringLiteral("Scan Grid"));

    ScanEdit = new QLineEdit(this);
    ScanEdit->setObjectName(QStringLiteral("ScanEdit"));
    ScanEdit->setMaxLength(MaxGrid);
    ScanEdit->setContextMenuPolicy(Qt::NoContextMenu);
    ScanEdit->installEventFilter(new TEnterFilter(this));
    ScanBtn = new QPushButton(QStringLiteral("Scan &For..."), this);
    ScanBtn->setObjectName(QStringLiteral("ScanBtn"));
    ScanBtn->setToolTip(QStringLiteral("Find any letters in the grid"));
    AllBtn = new QPushButton(QStringLiteral("Scan &All..."), this);
    AllBtn->setObjectName(QStringLiteral("AllBtn"));
    AllBtn->setToolTip(QStringLiteral("Check grid for matching entries"));
    OkBtn = new QPushButton(QStringLiteral("&Close"), this);
    OkBtn->setObjectName(QStringLiteral("OkBtn"));
    ScanList = new QListWidget(this);
    ScanList->setObjectName(QStringLiteral("ScanList"));
    ScanList->setItemDelegate(new TScanListDelegate(this));
    ScanList->setUniformItemSizes(true);
    ScanList->setStyleSheet(QStringLiteral("QListWidget { background: white; }"));
    ExImg = new QLabel(this);
    ExImg->setObjectName(QStringLiteral("ExImg"));
    ExImg->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(24, 24));
    ExImg->setToolTip(QStringLiteral("A word occurs more than once"));
    ExImg->hide();
    Errpanel = new QLabel(QStringLiteral("Nothing to Scan For"), this);
    Errpanel->setObjectName(QStringLiteral("Errpanel"));
    Errpanel->setAlignment(Qt::AlignCenter);
    Errpanel->setStyleSheet(QStringLiteral("QLabel { background: white; border: 1px solid grey; padding: 2px 8px; }"));
    Errpanel->hide();

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(ScanBtn);
    buttons->addWidget(AllBtn);
    buttons->addWidget(ExImg);
    buttons->addStretch();
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(ScanEdit);
    layout->addLayout(buttons);
    layout->addWidget(ScanList, 1);
    layout->addWidget(OkBtn, 0, Qt::AlignRight);
    resize(300, 360);

    // The edit takes capitals only; any change of text starts a new scan.
    connect(ScanEdit, &QLineEdit::textChanged, this, [this](const QString &text) {
        const QString upper = UpperInCp1252(text);
        if (upper != text) {
            const int at = ScanEdit->cursorPosition();
            ScanEdit->setText(upper.left(MaxGrid));
            ScanEdit->setCursorPosition(at);
            return;
        }
        ScanEditChange();
    });
    connect(ScanBtn, &QPushButton::clicked, this, &TScanGridForm::ScanBtnClick);
    connect(AllBtn, &QPushButton::clicked, this, &TScanGridForm::AllBtnClick);
    connect(OkBtn, &QPushButton::clicked, this, &QWidget::close);
    connect(ScanList, &QListWidget::itemClicked, this, &TScanGridForm::ScanListClick);
    // A mouse click or Enter on an item; a current row set by the list itself is no choice.
    connect(ScanList, &QListWidget::itemActivated, this, &TScanGridForm::ScanListClick);
}

void TScanGridForm::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    FormShow();
}

void TScanGridForm::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    FormResize();
}

void TScanGridForm::FormShow()
{
    // The layout keeps the buttons above the window's bottom edge; the width stays usable.
    setMinimumWidth(269);
    ExImg->hide();
    ScanEdit->clear();
    clearList();
    ScanEdit->setFocus();
}

void TScanGridForm::FormResize()
{
    const QRect list = ScanList->geometry();
    Errpanel->move(Errpanel->x(), list.top() + (list.height() - 24) / 2);
}

void TScanGridForm::ScanEditChange()
{
    ExImg->hide();
    clearList();
}

void TScanGridForm::clearList()
{
    ScanList->clear();
    records_.clear();
}

void TScanGridForm::addItem(const QByteArray &text, int c, int r, int direction)
{
    ScanList->addItem(ShownText(text));
    records_.append({QPoint((c - 1) * SquareSize, (r - 1) * SquareSize), direction});
}

void TScanGridForm::ShowNote(const QString &text)
{
    Errpanel->setText(text);
    Errpanel->adjustSize();
    const QRect list = ScanList->geometry();
    Errpanel->move(list.left() + (list.width() - Errpanel->width()) / 2,
                   list.top() + (list.height() - Errpanel->height()) / 2);
    Errpanel->show();
    Errpanel->raise();
    if (XwdProcs) {
        XwdProcs->Pause(1000);
    } else {
        QEventLoop loop;
        QTimer::singleShot(1000, &loop, &QEventLoop::quit);
        loop.exec();
    }
    Errpanel->hide();
}

void TScanGridForm::ScanBtnClick()
{
    ExImg->hide();
    if (ScanEdit->text().isEmpty()) {
        clearList();
        ShowNote(QStringLiteral("Nothing to Scan For"));
        return;
    }
    // Scanning again with the same text lists the matches again, as it always has.
    for (const TScanItem &item : ScanFor(Puzzle, ToCp1252(ScanEdit->text(), '\0')))
        addItem(item.Text, item.Column, item.Row, item.Direction);
    if (ScanList->count() == 0)
        ShowNote(QStringLiteral("Scan Entry Not Found"));
}

void TScanGridForm::AllBtnClick()
{
    ExImg->hide();
    ScanEdit->clear();
    clearList();
    const TScanResult result = ScanAll(Puzzle);
    for (const TScanItem &item : result.Items)
        addItem(item.Text, item.Column, item.Row, item.Direction);
    ExImg->setVisible(result.Repeats);
    if (ScanList->count() == 0)
        ShowNote(QStringLiteral("No Matches Found"));
}

void TScanGridForm::ScanListDrawItem(QPainter &painter, int index, const QRect &rect, bool selected)
{
    const QString text = ScanList->item(index)->text();
    QFont font = ScanList->font();
    font.setBold(ScanEdit->text().isEmpty());
    QColor colour = Qt::black;
    if (text.endsWith(u' '))
        colour = Qt::red;
    else if (text.startsWith(u' '))
        font.setBold(false);
    if (selected) {
        painter.fillRect(rect, ScanList->palette().color(QPalette::Highlight));
        colour = Qt::white;
    } else {
        painter.fillRect(rect, Qt::white);
    }
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(rect.adjusted(2, 0, 0, 0), Qt::AlignLeft | Qt::AlignTop, text);
}

void TScanGridForm::ScanListClick()
{
    const int row = ScanList->currentRow();
    if (row < 0 || row >= records_.size() || !XwdGridForm)
        return;
    const TScanRecord &record = records_[row];
    XwdGridForm->SelectWord(record.Pixel, record.Direction, ColorFromRef(0x00FFFF));
}
