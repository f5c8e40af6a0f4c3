#include "settings/fontsetting.h"
#include "settings/txwdprocs.h"
#include "testsupport.h"

#include <gtest/gtest.h>

TEST(FontSetting, FourValuesWithTheirDefaults)
{
    // The defaults are the settings tests'.
    ResetSettings();
    WriteSetting("SolveFontName", QStringLiteral("Courier New"));
    WriteSetting("SolveFontSize", 14);
    WriteSetting("SolveFontStyle", 2 | 4 | 8);
    WriteSetting("SolveFontColor", QStringLiteral("$000000FF"));
    const TFontSetting solve = ReadFontSetting("Solve", {"Times New Roman"});
    EXPECT_EQ(solve.Font.family(), "Courier New");
    EXPECT_EQ(solve.Font.pointSize(), 14);
    EXPECT_FALSE(solve.Font.bold());
    EXPECT_TRUE(solve.Font.italic() && solve.Font.underline() && solve.Font.strikeOut());
    EXPECT_EQ(solve.Color, QColor(255, 0, 0)) << "colour references keep red in the low byte";
    ResetSettings();
}
