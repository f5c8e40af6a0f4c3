#pragma once
// A font kept in the settings as four values: <prefix>FontName, <prefix>FontSize (points),
// <prefix>FontStyle (bold 1, italic 2, underline 4, strike-out 8) and <prefix>FontColor.

#include "settings/settingkeys.h"

#include <QColor>
#include <QFont>
#include <QString>

struct TFontSetting {
    QFont Font;
    QColor Color;
};

// The font's four values with their defaults; an unreadable colour gives the default.
TFontSetting ReadFontSetting(const TFontKeys &keys);
// The font the settings give when nothing is stored.
TFontSetting DefaultFontSetting(const TFontKeys &keys);
// The font's four values, as the preferences dialog saves them.
void WriteFontSetting(const TFontKeys &keys, const TFontSetting &font);
// The style bits of a font, and the bits applied to a font.
int FontStyleBits(const QFont &font);
void ApplyFontStyle(QFont &font, int style);

// The font a font dialog opens on for a stored font: the stored one where its family is
// installed under that name, else the face the system draws it with (Liberation Sans for
// Arial), so the dialog does not fall back to its first family.
QFont FontForDialog(const QFont &stored);
// The dialog's answer as it is kept: where the user changed nothing of what the dialog
// showed, the stored font with its own name and style, so that OK alone changes nothing.
QFont KeepStoredFont(const QFont &stored, const QFont &shown, const QFont &chosen);
