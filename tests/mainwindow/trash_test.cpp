#include "mainwindow/trash.h"
#include "testsupport.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <gtest/gtest.h>

TEST(Trash, AFileGoesToTheUsersTrashEvenBeforeItsDataFolderExists)
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    ASSERT_TRUE(data.startsWith(QDir::homePath())) << "the test's own home";
    QDir(data).removeRecursively();

    TScratchDir dir;
    ASSERT_TRUE(WriteFileBytes(dir.path("gone.xwd"), "puzzle"));
    EXPECT_TRUE(MoveToTrash(dir.path("gone.xwd")));
    EXPECT_FALSE(QFile::exists(dir.path("gone.xwd")));
    EXPECT_TRUE(QFile::exists(data + "/Trash/files/gone.xwd"));
    EXPECT_FALSE(QDir("files").exists()) << "nothing beside the working folder";

    EXPECT_FALSE(MoveToTrash(dir.path("never-there.xwd")));
}
