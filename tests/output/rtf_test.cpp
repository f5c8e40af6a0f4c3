#include "output/rtf.h"
#include "testsupport.h"

#include <gtest/gtest.h>

TEST(RtfManuscript, FileAndBaseNamesComeFromTheChosenPath)
{
    EXPECT_EQ(RtfFilePath("C:\\X\\MYPUZ.rtf"), "C:\\X\\MYPUZ.RTF");
    EXPECT_EQ(RtfBaseName("C:\\X\\MYPUZ.rtf"), "MYPUZ");
    EXPECT_EQ(RtfBaseName("/home/u/puzzles/Sunday.rtf"), "Sunday");
}
