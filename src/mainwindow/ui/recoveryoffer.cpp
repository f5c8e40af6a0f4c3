#include "mainwindow/ui/recoveryoffer.h"

#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/recovery.h"
#include "mainwindow/ui/dialogs.h"
#include "mainwindow/ui/tsoundfx.h"
#include "mainwindow/ui/txwdmainform.h"

#include <QDir>
#include <QFile>
#include <QLocale>

namespace {

QString question(const TRecoveredPuzzle &recovered)
{
    const QString puzzle = recovered.OriginalPath.isEmpty()
                               ? QStringLiteral("a puzzle that was never saved")
                               : QStringLiteral("the puzzle %1").arg(QDir::toNativeSeparators(recovered.OriginalPath));
    const QString kept = QLocale().toString(recovered.Written, QLocale::LongFormat);
    return QStringLiteral("Quillmark did not close properly while %1 was being %2. Its changes were kept on %3.\n\n"
                          "Recover them?")
        .arg(puzzle, recovered.Mode == SolveMode ? QStringLiteral("solved") : QStringLiteral("constructed"), kept);
}

}  // namespace

void OfferRecovery(QWidget *parent, TRecoveryKeeper &keeper)
{
    for (const TRecoveryFile &file : keeper.Store().Orphans()) {
        if (!file.Content) {
            const QString aside = TRecoveryStore::SetAside(file.Path);
            ShowPuzzleError(QStringLiteral("A recovery file could not be read: it is damaged and will not be offered "
                                           "again. It was kept as %1.")
                                .arg(QDir::toNativeSeparators(aside.isEmpty() ? file.Path : aside)));
            continue;
        }
        const TRecoveredPuzzle &recovered = *file.Content;
        PlayQuestionSound();
        if (Dialogs().Ask(parent, question(recovered), false) != TAnswer::Yes) {
            TRecoveryStore::Discard(file.Path);
            continue;
        }
        if (Session().OpenRecovered(recovered.Puzzle, recovered.OriginalPath, recovered.Mode)) {
            // Kept again by this run before the old file goes.
            keeper.WriteNow();
            QFile::remove(file.Path);
        }
        return;
    }
}
