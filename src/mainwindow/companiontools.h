#pragma once
// The companion programs of the Tools menu: which action starts which program, where its
// path is kept, and what the user is told when it cannot be started.

#include "settings/settingkeys.h"

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

struct TCompanionTool {
    const char *ActionName;   // "DictionaryAct", ...
    const char *Caption;      // "&Dictionary..."
    const TSettingKey *PathSetting;
    // Our own companions are found by their file name and the title of their window.
    const char *CompanionFile;
    const char *WindowTitle;
};

constexpr int CompanionToolCount = 5;
const std::array<TCompanionTool, CompanionToolCount> &CompanionTools();

// The tool's path as stored; empty when none is set.
QString CompanionToolPath(int tool);
// The caption's text between "&" and "..." followed by " has not been properly configured.".
QString ToolFailureMessage(const QString &caption);
// The window title looked for when the command line names one of our own companions.
QString CompanionWindowTitle(const QString &commandLine);

// What a tool's setting starts: the program, found by its path or on PATH, and its arguments.
struct TToolCommand {
    QString Program;  // absolute path of an executable file
    QStringList Arguments;
};
// The setting is the whole command line. A setting that names an executable file as it
// stands is that program (its path may hold blanks); otherwise the first word is the
// program and the rest are its arguments, a word with blanks in double quotes. Nothing when
// no executable program is found.
std::optional<TToolCommand> ToolCommand(const QString &commandLine);
