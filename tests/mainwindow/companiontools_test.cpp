#include "mainwindow/companiontools.h"

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
