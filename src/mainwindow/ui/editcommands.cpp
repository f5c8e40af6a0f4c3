#include "mainwindow/ui/editcommands.h"

#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/txwdmainform.h"
#include "views/gridgeometry.h"
#include "views/ui/txwdgridform.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace {

// The grid's cursor on the square the step changed: its word current (the step's own
// direction, else the one in use, else across) unless the square is black or the grid is
// being designed.
void showPlace(const TUndoPlace &place)
{
    if (!XwdGridForm)
        return;
    const int c = place.Square.x();
    const int r = place.Square.y();
    if (!Puzzle.inGrid(c, r) || Puzzle.isBlock(c, r) || PuzzleMode == DesignMode) {
        XwdGridForm->DropCurrentWord();
        return;
    }
    int direction = place.WordDirection;
    if (direction == 0)
        direction = XwdGridForm->Editor.WordDirection != 0 ? XwdGridForm->Editor.WordDirection : 1;
    XwdGridForm->SelectWord(CellTopLeft(c, r) + QPoint(SquareSize / 2, SquareSize / 2), direction,
                            XwdGridForm->Editor.HiliteSqColor);
}

void step(bool back)
{
    if (const auto place = back ? Session().Undo() : Session().Redo())
        showPlace(*place);
}

QAction *makeAction(TXwdMainForm *form, QMenu *menu, const char *name, const QKeySequence &shortcut)
{
    auto *action = new QAction(form);
    action->setObjectName(QString::fromLatin1(name));
    action->setShortcut(shortcut);
    // From whichever window has the focus; a text field with the focus keeps Ctrl+Z for
    // its own undo, as every text field does.
    action->setShortcutContext(Qt::ApplicationShortcut);
    menu->addAction(action);
    return action;
}

}  // namespace

void InstallEditCommands(TXwdMainForm *form)
{
    QMenuBar *bar = form->menuBar();
    auto *edit = new QMenu(QStringLiteral("&Edit"), bar);
    edit->setObjectName(QStringLiteral("EditMenu"));
    QMenu *options = form->Menu(QStringLiteral("OptionsMenu"));
    bar->insertMenu(options ? options->menuAction() : nullptr, edit);

    QAction *undo = makeAction(form, edit, "UndoAct", QKeySequence(Qt::CTRL | Qt::Key_Z));
    QAction *redo = makeAction(form, edit, "RedoAct", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    QObject::connect(undo, &QAction::triggered, form, [] { step(true); });
    QObject::connect(redo, &QAction::triggered, form, [] { step(false); });

    const auto update = [undo, redo] {
        const TUndoHistory &history = Session().History();
        const bool open = Session().IsOpen();
        undo->setText(history.CanUndo() ? QStringLiteral("&Undo ") + history.UndoCaption() : QStringLiteral("&Undo"));
        redo->setText(history.CanRedo() ? QStringLiteral("&Redo ") + history.RedoCaption() : QStringLiteral("&Redo"));
        undo->setEnabled(open && history.CanUndo());
        redo->setEnabled(open && history.CanRedo());
        // Without a puzzle the menu hides, and the logo-wide window keeps its menu line.
        undo->setVisible(open);
        redo->setVisible(open);
    };
    QObject::connect(&Session(), &TPuzzleSession::historyChanged, form, update);
    QObject::connect(form, &TXwdMainForm::ActionsUpdated, form, update);
    update();
}
