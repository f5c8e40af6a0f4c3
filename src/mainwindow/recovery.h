#pragma once
// Crash recovery: the puzzle being edited, written now and then to a file of its own in the
// user's data folder, so that a crash or a power cut loses a few seconds of work at most.
// Each running program holds a lock on its own file; a file whose lock nobody holds was
// left behind by a program that did not end well, and is offered at the next start.

#include "model/puzzle.h"

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>
#include <optional>

class QLockFile;

// What a recovery file holds.
struct TRecoveredPuzzle {
    TPuzzle Puzzle;
    QString OriginalPath;  // where the puzzle lives; empty for one never saved
    uint8_t Mode = 0;      // the PuzzleMode it was edited in
    QDateTime Written;     // when the file was written
};

// A recovery file left behind: its puzzle, or why it cannot be read.
struct TRecoveryFile {
    QString Path;
    std::optional<TRecoveredPuzzle> Content;  // nothing when the file is damaged
};

// The recovery file's bytes, and back; nothing when the bytes are not a whole, unchanged
// recovery file (a checksum covers everything).
QByteArray EncodeRecovery(const TRecoveredPuzzle &recovered);
std::optional<TRecoveredPuzzle> DecodeRecovery(const QByteArray &bytes);

class TRecoveryStore {
public:
    // `folder` empty: "recovery" in the user's data folder.
    explicit TRecoveryStore(const QString &folder = {});
    ~TRecoveryStore();

    QString Folder() const { return folder_; }

    // Writes this program's recovery file atomically; false when it cannot be written.
    bool Write(const TRecoveredPuzzle &recovered);
    // Removes this program's recovery file: the puzzle was saved, closed or replaced.
    void Remove();
    // This program's recovery file; empty until the first write.
    QString OwnFile() const { return ownFile_; }

    // The recovery files no running program holds, newest first.
    QList<TRecoveryFile> Orphans() const;
    // A file the user declined goes to the trash; false when it could not be moved there
    // (it is then removed, so it is not offered again).
    static bool Discard(const QString &path);
    // A damaged file is renamed so that it is kept for a look but never offered again.
    static QString SetAside(const QString &path);

private:
    QString folder_;
    QString ownFile_;
    std::unique_ptr<QLockFile> lock_;
};

// Keeps this program's recovery file in step with the puzzle: written a moment after the
// changes pause (and at the latest a while after the first one, however fast the typing),
// so no keystroke waits for the disk; removed once the puzzle is unchanged again (saved,
// reverted, undone to its saved state), closed or replaced.
class TRecoveryKeeper : public QObject {
    Q_OBJECT
public:
    static constexpr int DefaultQuietMs = 2000;
    static constexpr int DefaultLatestMs = 15000;

    explicit TRecoveryKeeper(const QString &folder = {}, int quietMs = DefaultQuietMs, int latestMs = DefaultLatestMs,
                             QObject *parent = nullptr);
    // An orderly end: the puzzle was saved or its changes declined on the way out.
    ~TRecoveryKeeper() override;

    // After anything that may have changed Puzzle or PuzzleChanged: a changed puzzle is
    // written soon, an unchanged one's file removed at once.
    void PuzzleStateChanged();
    // No puzzle any more: the file goes.
    void PuzzleClosed();
    // Writes the changed puzzle at once (a recovered puzzle, so it is kept again before the
    // file it came from goes).
    void WriteNow();

    TRecoveryStore &Store() { return store_; }

private:
    void write();

    TRecoveryStore store_;
    QTimer quiet_;
    QTimer latest_;
};
