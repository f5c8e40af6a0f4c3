#pragma once
// The puzzle keeps Windows-1252 bytes. Text crosses to and from Unicode only here, at the
// user-interface and export boundaries.

#include <QByteArray>
#include <QString>

// Every one of the 256 codes has a character: the five codes 1252 leaves undefined
// (0x81, 0x8D, 0x8F, 0x90, 0x9D) map to the C1 controls of the same value, so the
// conversion is lossless both ways.
QChar Cp1252ToUnicode(uint8_t code);
// The byte for a character, or -1 when Windows-1252 has none.
int UnicodeToCp1252(QChar ch);

QString FromCp1252(const QByteArray &bytes);
// Characters with no Windows-1252 code become `replacement`.
QByteArray ToCp1252(const QString &text, char replacement = '?');
// The text as it will be stored: every character with no Windows-1252 code becomes
// `replacement`, so an edit can show the user what the puzzle keeps.
QString KeepCp1252(const QString &text, char replacement = '?');
// A word or line as the windows show it: an empty square (a zero byte) is a blank, never
// a box glyph.
QString ShownText(const QByteArray &bytes);
// Capitals as the puzzle keeps them: each letter with a capital in Windows-1252 becomes that
// capital (ÿ becomes Ÿ); a letter without one stays as it is (ß, µ), where Unicode's own
// upper-casing would write "SS" or leave the code page.
QString UpperInCp1252(const QString &text);
