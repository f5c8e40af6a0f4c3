#include "mainwindow/companiontools.h"

#include "testsupport.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

TEST(CompanionTools, FailureMessageNamesTheToolFromItsCaption)
{
    const char *const expected[] = {"Dictionary", "Thesaurus", "Cluevault", "Scratchpad", "Postrunner"};
    for (int i = 0; i < CompanionToolCount; ++i)
        EXPECT_EQ(ToolFailureMessage(QString::fromLatin1(CompanionTools().at(i).Caption)),
                  QString::fromLatin1(expected[i]) + " has not been properly configured.");
}

TEST(CompanionTools, OurOwnCompanionsAreKnownByFileNameInAnyCase)
{
    EXPECT_EQ(CompanionWindowTitle("/opt/q/xwdcluevault.EXE"), "Quillmark Cluevault");
    EXPECT_EQ(CompanionWindowTitle("C:/tools/Jotpad.exe"), "Quillmark Scratchpad");
    EXPECT_EQ(CompanionWindowTitle("/usr/bin/dict"), "");
}

TEST(CompanionTools, ASettingIsAProgramWithItsArgumentsOrAPathWithBlanks)
{
    TScratchDir dir;
    const QString spaced = dir.path("my tool");
    WriteFileBytes(spaced, "#!/bin/sh\n");
    QFile::setPermissions(spaced, QFileDevice::ReadOwner | QFileDevice::ExeOwner);

    const auto whole = ToolCommand(spaced);
    ASSERT_TRUE(whole);
    EXPECT_EQ(whole->Program, spaced);
    EXPECT_TRUE(whole->Arguments.isEmpty());

    const auto quoted = ToolCommand(QStringLiteral("\"%1\" -x \"two words\"").arg(spaced));
    ASSERT_TRUE(quoted);
    EXPECT_EQ(quoted->Program, spaced);
    EXPECT_EQ(quoted->Arguments, QStringList({"-x", "two words"}));

    const auto onPath = ToolCommand("sh -c true");
    ASSERT_TRUE(onPath);
    EXPECT_TRUE(QFileInfo(onPath->Program).isAbsolute());
    EXPECT_EQ(onPath->Arguments, QStringList({"-c", "true"}));

    EXPECT_FALSE(ToolCommand(dir.path("missing") + " -x"));
    EXPECT_FALSE(ToolCommand("no-such-program-anywhere"));
    EXPECT_FALSE(ToolCommand("   "));
}
