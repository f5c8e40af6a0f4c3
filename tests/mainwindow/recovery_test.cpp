#include "mainwindow/puzzlestate.h"
#include "mainwindow/recovery.h"
#include "testsupport.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QThread>
#include <QFile>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include <cstring>

namespace {

TRecoveredPuzzle sample()
{
    TRecoveredPuzzle r;
    r.Puzzle = PuzzleFrom("size 11\nbyline Ann Setter\ngrid\nCAT#.......\n"
                          "...........\n...........\n...........\n...........\n...........\n"
                          "...........\n...........\n...........\n...........\n..........#\n"
                          "clues\n1A Pet\n");
    r.OriginalPath = QStringLiteral("/home/ann/puzzles/café.xwd");
    r.Mode = ConstructMode;
    r.Written = QDateTime::fromMSecsSinceEpoch(1'700'000'000'123);
    return r;
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

TEST(Recovery, AFileLeftBehindIsFoundWhole)
{
    TScratchDir dir;
    {
        TRecoveryStore crashed(dir.path("recovery"));
        ASSERT_TRUE(crashed.Write(sample()));
        EXPECT_TRUE(crashed.OwnFile().startsWith(dir.path("recovery")));
    }  // gone without removing its file, as a killed program would be

    const QList<TRecoveryFile> found = TRecoveryStore(dir.path("recovery")).Orphans();
    ASSERT_EQ(found.size(), 1);
    ASSERT_TRUE(found[0].Content);
    const TRecoveredPuzzle expected = sample();
    EXPECT_EQ(std::memcmp(&found[0].Content->Puzzle, &expected.Puzzle, sizeof(TPuzzle)), 0);
    EXPECT_EQ(found[0].Content->OriginalPath, expected.OriginalPath);
    EXPECT_EQ(found[0].Content->Mode, ConstructMode);
    EXPECT_EQ(found[0].Content->Written, expected.Written);
}

TEST(Recovery, ALivingProgramsFileIsNotOfferedAndGoesWhenRemoved)
{
    TScratchDir dir;
    TRecoveryStore running(dir.path("recovery"));
    ASSERT_TRUE(running.Write(sample()));
    ASSERT_TRUE(running.Write(sample())) << "written again in place";
    EXPECT_TRUE(TRecoveryStore(dir.path("recovery")).Orphans().isEmpty());

    const QString file = running.OwnFile();
    running.Remove();
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_TRUE(QDir(dir.path("recovery")).isEmpty()) << "no lock left either";
}

TEST(Recovery, ADamagedFileIsNeverReadAsAPuzzleAndIsSetAside)
{
    const QByteArray good = EncodeRecovery(sample());
    ASSERT_TRUE(DecodeRecovery(good));
    QByteArray flipped = good;
    flipped[100] = char(flipped[100] ^ 0x20);
    const TRecoveredPuzzle tooSmall = [] {
        TRecoveredPuzzle r = sample();
        r.Puzzle.Size = 9;
        return r;
    }();
    for (const QByteArray &bad : {good.left(good.size() - 1), flipped, QByteArray(), EncodeRecovery(tooSmall)})
        EXPECT_FALSE(DecodeRecovery(bad));

    TScratchDir dir;
    QDir().mkpath(dir.path("recovery"));
    const QString path = dir.path("recovery/20250101-120000-1.qmrecovery");
    ASSERT_TRUE(WriteFileBytes(path, flipped));
    TRecoveryStore store(dir.path("recovery"));
    const QList<TRecoveryFile> found = store.Orphans();
    ASSERT_EQ(found.size(), 1);
    EXPECT_FALSE(found[0].Content);
    const QString aside = TRecoveryStore::SetAside(path);
    EXPECT_EQ(ReadFileBytes(aside), flipped) << "kept for a look";
    EXPECT_TRUE(store.Orphans().isEmpty());
}

TEST(Recovery, ADeclinedFileGoesToTheTrash)
{
    TScratchDir dir;
    QDir().mkpath(dir.path("recovery"));
    const QString path = dir.path("recovery/declined.qmrecovery");
    ASSERT_TRUE(WriteFileBytes(path, EncodeRecovery(sample())));
    EXPECT_TRUE(TRecoveryStore::Discard(path));
    EXPECT_FALSE(QFile::exists(path));
    const QString trash = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/Trash/files";
    EXPECT_TRUE(QFile::exists(trash + "/declined.qmrecovery"));
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
        EXPECT_EQ(found->OriginalPath, CurrentPuzzlePath);
        EXPECT_EQ(found->Mode, SolveMode);

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
        EXPECT_FALSE(kept());
    }
    PuzzleChanged = false;
    CurrentPuzzlePath.clear();
    PuzzleMode = ConstructMode;
}
