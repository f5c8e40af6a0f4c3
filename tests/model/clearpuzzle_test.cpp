#include "model/clearpuzzle.h"
#include "model/cp1252.h"
#include "model/puzzle.h"
#include "settings/txwdprocs.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <tuple>

TEST(ClearPuzzleFromSettings, TakesBylineAndLanguageFromTheSettings)
{
    ResetSettings();
    ClearPuzzle(13, 'N');
    EXPECT_EQ(std::tuple(Puzzle.Size, Puzzle.Byline.isEmpty(), Puzzle.Language), std::tuple(13, true, 0)) << "Name defaults to empty";

    WriteSetting(QStringLiteral("Name"), QString::fromUtf8("Zoë ") + QString(70, u'z'));
    WriteSetting(QStringLiteral("GridLanguage"), 6);
    ClearPuzzle(11, 'N');
    EXPECT_EQ(Puzzle.Byline.text().left(4), ToCp1252(QString::fromUtf8("Zoë ")));
    EXPECT_EQ(Puzzle.Byline.text().size(), 60);
    EXPECT_EQ(Puzzle.Language, 6);
    ResetSettings();
}
