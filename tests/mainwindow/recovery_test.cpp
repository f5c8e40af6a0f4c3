#include "mainwindow/puzzlestate.h"
#include "mainwindow/recovery.h"
#include "testsupport.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QThread>

#include <gtest/gtest.h>

#include <tuple>

namespace {

TRecoveredPuzzle sample()
{
    return {PuzzleFrom("size 11\nbyline Ann Setter\ngrid\nCAT#.......\n" + QStringLiteral("...........\n").repeated(9)
                       + "..........#\nclues\n1A Pet\n"),
            QStringLiteral("/home/ann/puzzles/café.xwd"), ConstructMode,
            QDateTime::fromMSecsSinceEpoch(1'700'000'000'123)};
}

// Runs the event loop until `done` holds or ten seconds have passed.
template <typename Done>
bool eventually(Done done)
{
    QDeadlineTimer deadline(10'000);
    while (!done() && !deadline.hasExpired()) {
        QCoreApplication::processEvents();
        QThread::msleep(5);
    }
    return done();
}

}  // namespace

TEST(Recovery, OnlyAFileNoRunningProgramHoldsIsOfferedAndItComesBackWhole)
{
    TScratchDir dir;
    {
        TRecoveryStore running(dir.path("recovery"));
        ASSERT_TRUE(running.Write(sample()));
        ASSERT_TRUE(running.Write(sample())) << "written again in place";
        EXPECT_TRUE(TRecoveryStore(dir.path("recovery")).Orphans().isEmpty()) << "its program is still running";
    }  // gone without removing its file, as a killed program would be

    const QList<TRecoveryFile> found = TRecoveryStore(dir.path("recovery")).Orphans();
    ASSERT_EQ(found.size(), 1);
    ASSERT_TRUE(found[0].Content);
    const TRecoveredPuzzle &back = *found[0].Content, expected = sample();
    EXPECT_TRUE(SameRecord(back.Puzzle, expected.Puzzle));
    EXPECT_EQ(std::tuple(back.OriginalPath, back.Mode, back.Written), std::tuple(expected.OriginalPath, ConstructMode, expected.Written));
}

TEST(Recovery, ADamagedFileIsNeverReadAsAPuzzle)
{
    const QByteArray good = EncodeRecovery(sample());
    ASSERT_TRUE(DecodeRecovery(good));
    QByteArray flipped = good;
    flipped[100] = char(flipped[100] ^ 0x20);  // inside the record, where only the checksum notices
    TRecoveredPuzzle tooSmall = sample();
    tooSmall.Puzzle.Size = 9;
    for (const QByteArray &bad : {good.left(good.size() - 1), flipped, QByteArray(), EncodeRecovery(tooSmall)})
        EXPECT_FALSE(DecodeRecovery(bad));
}

TEST(Recovery, TheKeeperWritesOnceChangesPauseOrRunLongAndRemovesTheFileWhenUnchanged)
{
    TScratchDir dir;
    const QDir folder(dir.path("recovery"));
    const auto kept = [&] { return !folder.entryList({"*.qmrecovery"}, QDir::Files).isEmpty(); };
    Puzzle = sample().Puzzle;
    CurrentPuzzlePath = "/home/ann/puzzles/kept.xwd";
    PuzzleMode = SolveMode;
    PuzzleChanged = true;
    {
        TRecoveryKeeper keeper(folder.path(), 50, 60'000);
        keeper.PuzzleStateChanged();
        EXPECT_FALSE(kept()) << "never on the typing path";
        ASSERT_TRUE(eventually(kept));
        const auto found = DecodeRecovery(ReadFileBytes(keeper.Store().OwnFile()));
        ASSERT_TRUE(found);
        EXPECT_EQ(std::pair(found->OriginalPath, found->Mode), std::pair(CurrentPuzzlePath, SolveMode));

        PuzzleChanged = false;
        keeper.PuzzleStateChanged();
        EXPECT_FALSE(kept()) << "unchanged again: nothing to recover";
    }
    {
        // Typing that never pauses is still kept.
        TRecoveryKeeper keeper(folder.path(), 60'000, 100);
        PuzzleChanged = true;
        EXPECT_TRUE(eventually([&] {
            keeper.PuzzleStateChanged();
            return kept();
        }));
        keeper.PuzzleClosed();
        EXPECT_TRUE(folder.isEmpty()) << "neither the file nor its lock is left";
    }
    PuzzleChanged = false;
    CurrentPuzzlePath.clear();
    PuzzleMode = ConstructMode;
}
