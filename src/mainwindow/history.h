#pragma once
// The three-entry history of recent puzzles: each entry is a full path followed by " /s"
// (opened for solving) or " /c" (opened for constructing).

#include <QString>
#include <QStringList>

constexpr int HistorySize = 3;

// The entries the history menu shows, at most three: the open puzzle first (when there is
// one) with the suffix of its mode, then the stored entries not already listed.
QStringList HistoryEntries(const QString &currentPuzzle, bool puzzleOpen, bool solving,
                           const QStringList &stored);
// "&1 NAME": the upper-cased file name without its extension and mode suffix.
QString HistoryCaption(int k, const QString &entry);
QString HistoryPath(const QString &entry);
bool HistoryIsSolving(const QString &entry);

// A chosen file name: without an extension it gets ".xwd".
QString WithPuzzleExtension(const QString &path);
// Has the name an extension other than "xwd"?
bool HasForeignExtension(const QString &path);
