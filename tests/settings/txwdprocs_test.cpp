#include "settings/colors.h"
#include "settings/fontsetting.h"
#include "settings/txwdprocs.h"
#include "testsupport.h"

#include <QElapsedTimer>
#include <QRect>
#include <QSettings>

#include <gtest/gtest.h>

#include <tuple>

class SettingsStore : public ::testing::Test {
protected:
    void SetUp() override { ResetSettings(); }
    void TearDown() override { ResetSettings(); }
};

TEST_F(SettingsStore, ValuesReadBackWithTheDefaultsType)
{
    EXPECT_EQ(ReadSetting(QStringLiteral("FontName"), QStringLiteral("Arial")), QVariant(QStringLiteral("Arial")))
        << "never written: the default, with its type";
    EXPECT_EQ(ReadText(Setting::NameShown), "Quillmark") << "the preferences dialog's placeholder for an empty Name";
    WriteSetting(QStringLiteral("Name"), QString());
    EXPECT_EQ(ReadSetting(QStringLiteral("Name"), QStringLiteral("default")).toString(), QString())
        << "an empty text is a value, not a missing one";

    WriteSetting(QStringLiteral("PlaySounds"), 2);
    EXPECT_EQ(ReadSetting(QStringLiteral("PlaySounds"), 1), QVariant(2)) << "an integer, typed as one";

    WriteSetting(QStringLiteral("Colour"), QStringLiteral("$00FF00FF"));
    EXPECT_EQ(ReadText(QStringLiteral("Colour"), QStringLiteral("clBlack")), "$00FF00FF");

    WriteSetting(QStringLiteral("Other"), 2.5);  // neither text nor integer: nothing written
    EXPECT_EQ(ReadInt(QStringLiteral("Other"), 7), 7);
}

// A hand-edited file must never keep the program from starting: every reader falls back.
TEST_F(SettingsStore, GarbageReadsAsTheDefaultInEveryReader)
{
    for (const char *name : {"PlaySounds", "StatusFontSize", "StatusFontStyle", "ScreenSquare"})
        WriteSetting(QString::fromLatin1(name), QStringLiteral("big"));
    WriteSetting(QStringLiteral("StatusFontColor"), QStringLiteral("nonsense"));
    WriteSetting(QStringLiteral("HiliteSqColor"), QStringLiteral("$GG"));

    EXPECT_EQ(ReadSetting(QStringLiteral("PlaySounds"), 1), QVariant(1));
    EXPECT_EQ(ReadInt(QStringLiteral("ScreenSquare"), 31), 31);
    EXPECT_EQ(ReadColorSetting(Setting::HiliteSqColor), QColor(255, 255, 0));

    const TFontSetting status = ReadFontSetting(Setting::StatusFont);
    EXPECT_EQ(std::tuple(status.Font.pointSize(), status.Font.bold(), status.Color), std::tuple(11, true, QColor(0, 0, 128)));

    WriteSetting(QStringLiteral("StatusFontSize"), -4);
    EXPECT_EQ(ReadFontSetting(Setting::StatusFont).Font.pointSize(), 11) << "a size below one point is no size";
}

TEST_F(SettingsStore, AFontIsFourValues)
{
    WriteSetting("SolveFontName", QStringLiteral("Courier New"));
    WriteSetting("SolveFontSize", 14);
    WriteSetting("SolveFontStyle", 2 | 4 | 8);
    WriteSetting("SolveFontColor", QStringLiteral("$000000FF"));
    const TFontSetting solve = ReadFontSetting(Setting::SolveFont);
    EXPECT_EQ(std::tuple(solve.Font.family(), solve.Font.pointSize(), solve.Font.bold()), std::tuple(QString("Courier New"), 14, false));
    EXPECT_TRUE(solve.Font.italic() && solve.Font.underline() && solve.Font.strikeOut());
    EXPECT_EQ(solve.Color, QColor(255, 0, 0)) << "colour references keep red in the low byte";
}

TEST_F(SettingsStore, BoundsAreFourNumbersJoinedByCommas)
{
    WriteBounds(QStringLiteral("ScreenBoundsMain"), 10, 20, 300, 400);
    QSettings raw(QStringLiteral("Quillmark32"), QStringLiteral("Quillmark6Demo"));
    EXPECT_EQ(raw.value(QStringLiteral("ScreenBoundsMain")).toString(), "10,20,300,400");
    EXPECT_EQ(ReadBounds(QStringLiteral("ScreenBoundsMain")), QRect(10, 20, 300, 400));

    EXPECT_EQ(ParseBounds(QStringLiteral("-4, 7,300 ,400")), QRect(-4, 7, 300, 400)) << "spaces around a number";
    for (const char *unreadable : {"", "15", "1,2,3", "1,2,3,4,5", "1,2,x,4", "1,,3,4"})
        EXPECT_EQ(ParseBounds(QString::fromLatin1(unreadable)), std::nullopt) << unreadable;
}

TEST_F(SettingsStore, TheKeyPathCanBeSwitched)
{
    WriteSetting(QStringLiteral("Name"), QStringLiteral("Demo"));
    SetSettingsPath(QString::fromLatin1(ToolsSettingsPath));
    EXPECT_EQ(ReadText(QStringLiteral("Name"), QStringLiteral("none")), "none");
    WriteSetting(QStringLiteral("BankDataFile"), QStringLiteral("/data/bank"));
    SetSettingsPath(QString::fromLatin1(DefaultSettingsPath));
    EXPECT_EQ(std::pair(ReadText(QStringLiteral("Name")), ReadText(QStringLiteral("BankDataFile"))), std::pair(QStringLiteral("Demo"), QString()));
    EXPECT_EQ(QSettings(QStringLiteral("Quillmark32"), QStringLiteral("Tools")).value("BankDataFile").toString(),
              "/data/bank");
}

TEST(Pause, WaitsWhileEventsKeepFlowing)
{
    TXwdProcs procs;
    bool ran = false;
    QTimer::singleShot(10, [&] { ran = true; });
    QElapsedTimer clock;
    clock.start();
    procs.Pause(60);
    EXPECT_TRUE(ran) << "events are processed during the pause";
    EXPECT_GE(clock.elapsed(), 55);
    EXPECT_FALSE(procs.XwdTimer.isActive());
}
