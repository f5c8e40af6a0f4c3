#include "fill/ui/fillcommands.h"

#include "fill/ui/squareoverlay.h"
#include "fill/ui/twordfinderform.h"
#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/appresources.h"
#include "mainwindow/ui/txwdmainform.h"
#include "settings/txwdprocs.h"
#include "views/gridgeometry.h"
#include "views/ui/txwdgridform.h"

#include <QAction>
#include <QBoxLayout>
#include <QMenu>
#include <QToolButton>

namespace {

const QString ShadeKey = QStringLiteral("ShadeDeadSquares");

// Shades each empty square where no letter fits both its across and its down word.
class TDeadSquareOverlay : public TSquareOverlay {
public:
    explicit TDeadSquareOverlay(QWidget *grid)
        : TSquareOverlay(grid, QStringLiteral("DeadSquareOverlay"), QColor(200, 40, 40, 70))
    {
        connect(&Session(), &TPuzzleSession::changed, this, &TDeadSquareOverlay::refresh);
        connect(&Session(), &TPuzzleSession::opened, this, &TDeadSquareOverlay::refresh);
        connect(&WordLists(), &TWordListService::ready, this, &TDeadSquareOverlay::refresh);
    }
    void refresh()
    {
        QList<QPoint> dead;
        if (isVisible() && Puzzle.Size > 0 && PuzzleMode != SolveMode)
            if (const auto lexicon = WordLists().FromSettings())
                dead = DeadSquares(lexicon->Index, Puzzle);
        setSquares(dead);
    }

protected:
    void showEvent(QShowEvent *) override { refresh(); }
};

TWordFinderForm *finder(TXwdMainForm *form)
{
    auto *window = form->findChild<TWordFinderForm *>(QStringLiteral("WordFinderForm"), Qt::FindDirectChildrenOnly);
    return window ? window : new TWordFinderForm(form);
}

TDeadSquareOverlay *overlay()
{
    if (!XwdGridForm)
        return nullptr;
    auto *o = XwdGridForm->findChild<TDeadSquareOverlay *>(QString(), Qt::FindDirectChildrenOnly);
    return o ? o : new TDeadSquareOverlay(XwdGridForm);
}

// Moves the grid's cursor to the unfilled word with the fewest words that fit.
void MostConstrainedClick(TXwdMainForm *form)
{
    const auto lexicon = WordLists().FromSettings();
    if (!lexicon || !XwdGridForm || Puzzle.Size == 0)
        return;
    const std::optional<TFillSlot> slot = MostConstrainedSlot(lexicon->Index, Puzzle);
    if (!slot)
        return;
    const QPoint at = CellTopLeft(slot->Column, slot->Row) + QPoint(SquareSize / 2, SquareSize / 2);
    // The arrows' rule: the direction is the button's, whatever MouseSwapped says.
    const bool swapped = XwdGridForm->Editor.MouseSwapped;
    XwdGridForm->Editor.MouseSwapped = false;
    XwdGridForm->ClickCell(at.x(), at.y(), slot->Dir == Direction::Across ? Qt::LeftButton : Qt::RightButton);
    XwdGridForm->Editor.MouseSwapped = swapped;
    XwdGridForm->activateWindow();
    // No click reached the grid, so the finder is told of its new word.
    if (auto *window = form->findChild<TWordFinderForm *>(QStringLiteral("WordFinderForm"), Qt::FindDirectChildrenOnly))
        if (window->isVisible())
            window->Refresh();
}

}  // namespace

void InstallFillCommands(TXwdMainForm *form)
{
    QMenu *grid = form->Menu(QStringLiteral("GridMenu"));
    auto *finderAct = new QAction(QStringLiteral("&Word Finder..."), form);
    finderAct->setObjectName(QStringLiteral("WordFinderAct"));
    finderAct->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_F));
    auto *constrainedAct = new QAction(QStringLiteral("&Most Constrained Word"), form);
    constrainedAct->setObjectName(QStringLiteral("MostConstrainedAct"));
    constrainedAct->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_M));
    auto *shadeAct = new QAction(QStringLiteral("Shade &Dead Squares"), form);
    shadeAct->setObjectName(QStringLiteral("ShadeDeadSquaresAct"));
    shadeAct->setCheckable(true);
    shadeAct->setChecked(ReadInt(ShadeKey, 0) != 0);
    grid->addSeparator();
    for (QAction *action : {finderAct, constrainedAct, shadeAct}) {
        action->setShortcutContext(Qt::ApplicationShortcut);
        grid->addAction(action);
    }

    auto *button = new QToolButton(form->ToolPanel);
    button->setObjectName(QStringLiteral("WordFinderBtn"));
    button->setIcon(Glyph(QStringLiteral("WORDFINDER")));
    button->setIconSize(QSize(22, 22));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(QStringLiteral("Find the words that fit"));
    QObject::connect(button, &QToolButton::clicked, finderAct, &QAction::trigger);
    if (auto *row = qobject_cast<QBoxLayout *>(form->ToolPanel->layout()))
        row->insertWidget(row->count() - 1, button);

    QObject::connect(finderAct, &QAction::triggered, form, [form] {
        TWordFinderForm *window = finder(form);
        window->show();
        window->raise();
    });
    QObject::connect(constrainedAct, &QAction::triggered, form, [form] { MostConstrainedClick(form); });
    QObject::connect(shadeAct, &QAction::toggled, form, [](bool on) {
        WriteSetting(ShadeKey, on ? 1 : 0);
        if (TDeadSquareOverlay *o = overlay())
            o->setVisible(on);
    });

    const auto update = [form, finderAct, constrainedAct, shadeAct, button] {
        const bool constructing = form->IsPuzzleOpen() && PuzzleMode != SolveMode;
        for (QAction *action : {finderAct, constrainedAct, shadeAct})
            action->setEnabled(constructing);
        button->setEnabled(constructing);
        button->setVisible(constructing);
        if (TDeadSquareOverlay *o = overlay())
            o->setVisible(constructing && shadeAct->isChecked());
    };
    QObject::connect(form, &TXwdMainForm::ActionsUpdated, form, update);
    update();
}
