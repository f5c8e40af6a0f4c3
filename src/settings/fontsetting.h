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
