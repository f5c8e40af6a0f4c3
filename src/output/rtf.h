#pragma once
// The RTF manuscript: the constructor's address with the puzzle's statistics, the across
// and down clues with their answers, and a second section that waits for the pasted grid.

#include "model/puzzle.h"

#include <QByteArray>
#include <QString>

// The address block, as Windows-1252 bytes.
struct TRtfAddress {
    QByteArray Name;
    QByteArray Add1;
    QByteArray Add2;
    QByteArray Add3;
    QByteArray Add4;
};

// Name and Add1..Add4 from the settings, with their defaults.
TRtfAddress RtfAddressFromSettings();

// Straight double quotes become opening and closing marks in turn, apostrophes closing
// single marks; nothing else changes (backslashes and braces stay as they are).
QByteArray ConvertClueQuotes(const QByteArray &clue);

// The file actually written: the chosen path with the extension ".RTF".
QString RtfFilePath(const QString &chosen);
// The title and header text: the chosen file name, no folder, less its last four characters.
QString RtfBaseName(const QString &chosen);

// The whole document, CR LF lines. `specText` is the main window's three specification
// lines, trimmed, joined by CR LF.
QByteArray RtfManuscript(const TPuzzle &p, const TRtfAddress &address, const QString &baseName,
                         const QString &specText);
