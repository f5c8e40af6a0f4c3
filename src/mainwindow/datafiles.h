#pragma once
// Where the files the program reads at run time live: beside the program in the build
// folder, or under share/quillmark/ of the prefix it is installed in.

#include <QString>

// The path of `relative` (such as "help/quillmark.qhc") in the first of the program's data
// folders that holds it, or an empty string when none does.
QString DataFile(const QString &relative);
// The folders DataFile looks in, in order; for messages that say where a file was looked for.
QStringList DataFolders();
