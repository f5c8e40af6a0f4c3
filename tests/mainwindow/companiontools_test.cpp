#include "mainwindow/companiontools.h"

#include "testsupport.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <utility>

// A failure names the tool from its caption; our own companions are known by file name in any case.
TEST(CompanionTools, FailureMessagesAndOurOwnCompanionsWindowTitles)
{
    const char *const expected[] = {"Dictionary", "Thesaurus", "Cluevault", "Scratchpad", "Postrunner"};
    for (int i = 0; i < CompanionToolCount; ++i)
        EXPECT_EQ(ToolFailureMessage(QString::fromLatin1(CompanionTools().at(i).Caption)),
                  QString::fromLatin1(expected[i]) + " has not been properly configured.");
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

    // (program, arguments), or nothing to run.
    const auto command = [](const QString &setting) {
        const auto c = ToolCommand(setting);
        return c ? std::pair(c->Program, c->Arguments) : std::pair(QStringLiteral("(none)"), QStringList());
    };
    EXPECT_EQ(command(spaced), std::pair(spaced, QStringList()));
    EXPECT_EQ(command(QStringLiteral("\"%1\" -x \"two words\"").arg(spaced)), std::pair(spaced, QStringList({"-x", "two words"})));
    const auto onPath = command("sh -c true");
    EXPECT_TRUE(QFileInfo(onPath.first).isAbsolute()) << onPath.first.toStdString();
    EXPECT_EQ(onPath.second, QStringList({"-c", "true"}));
    for (const QString &nothing : {dir.path("missing") + " -x", QStringLiteral("no-such-program-anywhere"), QStringLiteral("   ")})
        EXPECT_EQ(command(nothing).first, "(none)") << nothing.toStdString();
}
