#include "mainwindow/history.h"

#include <gtest/gtest.h>

TEST(History, OpenPuzzleHeadsTheListAndDuplicatesGo)
{
    const QStringList stored = {"/p/a.xwd /c", "/p/b.xwd /s", "/p/a.xwd /c"};
    EXPECT_EQ(HistoryEntries("/p/b.xwd", true, false, stored),
              (QStringList{"/p/b.xwd /c", "/p/a.xwd /c", "/p/b.xwd /s"}))
        << "the same file in the other mode is another entry";
    EXPECT_EQ(HistoryEntries("/p/a.xwd", true, false, stored), (QStringList{"/p/a.xwd /c", "/p/b.xwd /s"}));
    EXPECT_EQ(HistoryEntries("/p/z.xwd", false, false, stored), (QStringList{"/p/a.xwd /c", "/p/b.xwd /s"}))
        << "without an open puzzle the current one is not added";
    EXPECT_EQ(HistoryEntries("", true, true, {"", "/p/c.xwd /s", ""}), (QStringList{"/p/c.xwd /s"}));
    EXPECT_EQ(HistoryEntries("/p/d.xwd", true, true, {"/1.xwd /c", "/2.xwd /c", "/3.xwd /c"}).size(), 3);
}

TEST(History, CaptionsPathsModesAndExtensions)
{
    EXPECT_EQ(HistoryCaption(1, "/home/me/puzzles/Sunday Stroll.xwd /s"), "&1 SUNDAY STROLL");
    EXPECT_EQ(HistoryCaption(3, "C:\\Puzzles\\daily.xwd /c"), "&3 DAILY");
    EXPECT_EQ(HistoryPath("/home/me/a b.xwd /c"), "/home/me/a b.xwd");
    EXPECT_TRUE(HistoryIsSolving("/x.xwd /s") && !HistoryIsSolving("/x.xwd /c"));
    // A name without an extension gets the puzzle's own.
    EXPECT_EQ(WithPuzzleExtension("/p/new"), "/p/new.xwd");
    EXPECT_EQ(WithPuzzleExtension("/p/new.txt"), "/p/new.txt");
    EXPECT_TRUE(HasForeignExtension("/p/new.txt"));
    EXPECT_FALSE(HasForeignExtension("/p/new.xwd") || HasForeignExtension("/p/NEW.XWD"));
}
