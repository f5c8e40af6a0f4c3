#include "output/rtf.h"
#include "testsupport.h"

#include <gtest/gtest.h>

namespace {

// Four words: 1 Across AB, 1 Down AC, 2 Down BD, 3 Across CD.
TPuzzle fourWords()
{
    return PuzzleFrom(QStringLiteral("size 11\ngrid\nAB#########\nCD#########\n")
                      + QStringLiteral("###########\n").repeated(9)
                      + QStringLiteral("clues\n1A He said \"yes\" and \"no\"\n1D It's {\\b x}\n3A Odd \"one\n"));
}

const QString Spec = QStringLiteral("Size of Grid: 15×\r\n Black Squares: 38  Par: 37\r\n Word Count: 78  Par: 78");

const QByteArray Header = "{\\rtf\\ansi \\deff4\\deff5\\deflang1033\\margl1250\\margr1150\r\n"
                          "{\\fonttbl{\\f4\\froman\\fcharset0\\fprq2\\ftruetype Times New Roman;}"
                          "{\\f5\\fswiss\\fcharset0\\fprq2\\ftruetype Arial;}}\r\n"
                          "{\\info{\\title MYPUZ}{\\author Quillmark 6}{\\creatim\\yr2003\\mo1\\dy21\\hr4\\min01}{\\version1}}\r\n"
                          "{\\sectd\\header\\pgnucltr\\pgnx1180\\pard\\plain\\tqr\\tx9525\\f4\\fs20 MYPUZ\\tab Page\r\n";

const QByteArray Clues = "\\par{\\f5\\fs22\\sl440\\b ACROSS}{\\tqr\\tx350\\tx500\\tx6400\\f4\\fs22\\sl440\r\n"
                         "\\par\\tab 1\\tab He said \x93yes\x94 and \x93no\x94\\tab AB\r\n"
                         "\\par\\tab 3\\tab Odd \x93one\\tab CD\r\n"
                         "\\par}\r\n"
                         "\\par{\\f5\\fs22\\sl440\\b DOWN}{\\tqr\\tx350\\tx500\\tx6400\\f4\\fs22\\sl440\r\n"
                         "\\par\\tab 1\\tab It\x92s {\\b x}\\tab AC\r\n"
                         "\\par\\tab 2\\tab \\tab BD\r\n"
                         "{\\sect\\header\\pgnucltr\\pgnx1180\\pard\\plain\\tqr\\tx9525\\f4\\fs20 MYPUZ\\tab Page\\par}\r\n";

const QByteArray Footer = "\\par\\par}\r\n"
                          "{\\f4\\fs20\\b\\qc Insert puzzle grid as graphic file or paste from clipboard.\\par}\r\n"
                          "\\par}}\r\n";

}  // namespace

TEST(RtfManuscript, WithoutAdd4TheAddressBlocksHaveFourLines)
{
    const TRtfAddress address{"Zo\xEB Maker", "1 Main St", "Town", "Country", ""};
    const QByteArray expected = Header
                                + "\\par}{\\tx6400\\f4\\fs22 Zo\xEB Maker\r\n"
                                  "\\par 1 Main St\\tab Size of Grid: 15\xD7\r\n"
                                  "\\par Town\\tab Black Squares: 38 \r\n"
                                  "\\par Country\\tab Word Count: 78 \r\n"
                                  "\\par}\r\n"
                                + Clues
                                + "{\\pard\\f4\\fs22 Zo\xEB Maker\r\n\\par 1 Main St\r\n\\par Town\r\n\\par Country\r\n"
                                + Footer;
    EXPECT_EQ(RtfManuscript(fourWords(), address, "MYPUZ", Spec), expected);
}

TEST(RtfManuscript, Add4GivesAFifthLineWithoutStatistics)
{
    const TRtfAddress address{"N", "A1", "A2", "A3", "A4"};
    const QByteArray expected = Header
                                + "\\par}{\\tx6400\\f4\\fs22 N\r\n"
                                  "\\par A1\\tab Size of Grid: 15\xD7\r\n"
                                  "\\par A2\\tab Black Squares: 38 \r\n"
                                  "\\par A3\\tab Word Count: 78 \r\n"
                                  "\\par A4\r\n"
                                  "\\par}\r\n"
                                + Clues + "{\\pard\\f4\\fs22 N\r\n\\par A1\r\n\\par A2\r\n\\par A3\r\n\\par A4\r\n" + Footer;
    EXPECT_EQ(RtfManuscript(fourWords(), address, "MYPUZ", Spec), expected);
}

TEST(RtfManuscript, QuotesAlternateAndApostrophesClose)
{
    EXPECT_EQ(ConvertClueQuotes("He said \"yes\" and \"no\""), "He said \x93yes\x94 and \x93no\x94");
    EXPECT_EQ(ConvertClueQuotes("\"a\" \"b"), "\x93" "a\x94 \x93" "b");
    EXPECT_EQ(ConvertClueQuotes("It's \\ {}"), "It\x92s \\ {}");
}

TEST(RtfManuscript, FileAndBaseNamesComeFromTheChosenPath)
{
    EXPECT_EQ(RtfFilePath("C:\\X\\MYPUZ.rtf"), "C:\\X\\MYPUZ.RTF");
    EXPECT_EQ(RtfBaseName("C:\\X\\MYPUZ.rtf"), "MYPUZ");
    EXPECT_EQ(RtfBaseName("/home/u/puzzles/Sunday.rtf"), "Sunday");
}
