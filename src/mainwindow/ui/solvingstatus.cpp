#include "mainwindow/ui/solvingstatus.h"

#include "mainwindow/puzzlestate.h"
#include "views/ui/tcluesform.h"
#include "views/ui/txwdgridform.h"

#include <QLabel>
#include <QPlainTextEdit>

void TSolvingStatusLine::Show(int slot)
{
    if (!CluesForm)
        return;
    CluesForm->SelectSlot(slot);
    if (slot > 0)
        text_->setPlainText(CluesForm->CurrentLine());
    const bool across = XwdGridForm && XwdGridForm->Editor.WordDirection == 1;
    mode_->setText(across ? QStringLiteral("Across Clue") : QStringLiteral("Down Clue"));
}

void TSolvingStatusLine::Clear()
{
    text_->clear();
    if (PuzzleMode == SolveMode)
        mode_->clear();
    if (CluesForm)
        CluesForm->ClearSelection();
}
