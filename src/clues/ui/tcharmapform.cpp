#include "clues/ui/tcharmapform.h"

#include "clues/charmap.h"
#include "clues/ui/tautoclueform.h"
#include "model/cp1252.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QScreen>
#include <QTableWidget>
#include <QVBoxLayout>

TCharMapForm::TCharMapForm(QWidget *parent) : QWidget(parent, Qt::Tool)
{
    setObjectName(QStringLiteral("CharMapForm"));
    setWindowTitle(QStringLiteral("Special Characters"));
    CharGrid = new QTableWidget(CharMapRows, CharMapColumns, this);
    CharGrid->setObjectName(QStringLiteral("CharGrid"));
    FormCreate();
    connect(CharGrid, &QTableWidget::cellClicked, this, [this](int row, int col) { CharGridSelectCell(col, row); });
}

void TCharMapForm::FormCreate()
{
    CharGrid->horizontalHeader()->hide();
    CharGrid->verticalHeader()->hide();
    CharGrid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    CharGrid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    CharGrid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    CharGrid->setSelectionMode(QAbstractItemView::SingleSelection);
    CharGrid->setFrameShape(QFrame::NoFrame);
    CharGrid->setFocusPolicy(Qt::NoFocus);
    QPalette palette = CharGrid->palette();
    palette.setColor(QPalette::Base, Qt::white);
    CharGrid->setPalette(palette);

    const qreal dpi = logicalDpiX();
    const int cellWidth = CharMapScaled(CharMapCellWidth, dpi);
    const int cellHeight = CharMapScaled(CharMapCellHeight, dpi);
    CharGrid->horizontalHeader()->setMinimumSectionSize(1);
    CharGrid->verticalHeader()->setMinimumSectionSize(1);
    CharGrid->horizontalHeader()->setDefaultSectionSize(cellWidth);
    CharGrid->verticalHeader()->setDefaultSectionSize(cellHeight);
    // A cell shows its whole text: the blank "___" is drawn smaller rather than cut to "…".
    CharGrid->setTextElideMode(Qt::ElideNone);
    for (int row = 0; row < CharMapRows; ++row) {
        for (int col = 0; col < CharMapColumns; ++col) {
            const QString text = FromCp1252(CharMapCell(col, row));
            auto *item = new QTableWidgetItem(text);
            item->setTextAlignment(Qt::AlignCenter);
            const int room = cellWidth - 2;
            const int wide = CharGrid->fontMetrics().horizontalAdvance(text);
            if (wide > room) {
                QFont small = CharGrid->font();
                small.setPixelSize(std::max(6, CharGrid->fontInfo().pixelSize() * room / wide));
                item->setFont(small);
            }
            CharGrid->setItem(row, col, item);
        }
    }

    // The grid's lines take a pixel each; on denser screens the rounding needs a little more.
    const int extraWidth = dpi > 96 ? 2 : 0;
    const int extraHeight = dpi > 96 ? 1 : 0;
    const int gridWidth = CharMapColumns * cellWidth + extraWidth + 1;
    const int gridHeight = CharMapRows * cellHeight + extraHeight + 1;
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(CharGrid);
    setFixedSize(gridWidth, gridHeight);
}

void TCharMapForm::CharGridSelectCell(int col, int row)
{
    if (!AutoclueForm)
        return;
    QLineEdit *edit = AutoclueForm->DefEdit;
    const int start = edit->hasSelectedText() ? edit->selectionStart() : edit->cursorPosition();
    const int length = edit->hasSelectedText() ? int(edit->selectedText().size()) : 0;
    int caret = 0;
    const QString text =
        InsertBeforeSelection(edit->text(), start, length, FromCp1252(CharMapCell(col, row)), &caret);
    edit->setText(text);
    edit->setCursorPosition(std::min(caret, int(edit->text().size())));
    focusAutoclue();
}

void TCharMapForm::focusAutoclue()
{
    if (!AutoclueForm)
        return;
    AutoclueForm->activateWindow();
    AutoclueForm->DefEdit->setFocus();
}

void TCharMapForm::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (placed_ || !AutoclueForm)
        return;
    // Beside Autoclue's right end, where the clue is written; inside it when the screen
    // has no room there.
    placed_ = true;
    const QRect autoclue = AutoclueForm->frameGeometry();
    const QRect area = AutoclueForm->screen() ? AutoclueForm->screen()->geometry() : QRect(0, 0, 1024, 768);
    int left = autoclue.right() + 1 + 4;
    if (left + frameGeometry().width() > area.right())
        left = autoclue.right() - frameGeometry().width();
    move(left, std::max(area.top(), autoclue.bottom() - frameGeometry().height()));
}

void TCharMapForm::closeEvent(QCloseEvent *event)
{
    event->accept();
    focusAutoclue();
}
