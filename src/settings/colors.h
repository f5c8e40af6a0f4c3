#pragma once
// Colours as the settings store keeps them: a colour identifier ("clBlack", "clNavy", ...)
// for the standard colours, otherwise "$" and eight hexadecimal digits of the colour
// reference 0x00BBGGRR (red in the low byte). Plain decimal numbers are read too.

#include "settings/settingkeys.h"

#include <QColor>
#include <QString>

#include <cstdint>

// The 32-bit colour reference of a colour: 0x00BBGGRR.
uint32_t ColorRef(const QColor &color);
QColor ColorFromRef(uint32_t ref);

// The colour a setting names; an invalid QColor when the text is neither an identifier
// nor a number.
QColor ColorFromSetting(const QString &text);
// A colour setting read with its default identifier; an unreadable value gives the default.
QColor ReadColorSetting(const TSettingKey &key);
// The identifier of a standard colour, else "$" and eight upper-case hexadecimal digits.
QString ColorToSetting(const QColor &color);
