#include "settings/fontsetting.h"

#include "settings/colors.h"
#include "settings/txwdprocs.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <algorithm>

void ApplyFontStyle(QFont &font, int style)
{
    font.setBold(style & 1);
    font.setItalic(style & 2);
    font.setUnderline(style & 4);
    font.setStrikeOut(style & 8);
}

TFontSetting ReadFontSetting(const TFontKeys &keys)
{
    TFontSetting setting;
    setting.Font.setFamily(ReadText(keys.nameKey()));
    const int size = ReadInt(keys.sizeKey());
    setting.Font.setPointSize(size >= 1 ? size : keys.Size);
    ApplyFontStyle(setting.Font, ReadInt(keys.styleKey()));
    setting.Color = ReadColorSetting(keys.colorKey());
    return setting;
}

int FontStyleBits(const QFont &font)
{
    return (font.bold() ? 1 : 0) | (font.italic() ? 2 : 0) | (font.underline() ? 4 : 0) | (font.strikeOut() ? 8 : 0);
}

void WriteFontSetting(const TFontKeys &keys, const TFontSetting &font)
{
    WriteSetting(keys.nameKey(), font.Font.family());
    WriteSetting(keys.colorKey(), ColorToSetting(font.Color));
    WriteSetting(keys.sizeKey(), std::max(1, font.Font.pointSize()));
    WriteSetting(keys.styleKey(), FontStyleBits(font.Font));
}

TFontSetting DefaultFontSetting(const TFontKeys &keys)
{
    TFontSetting setting;
    setting.Font = QFont(keys.Name, keys.Size);
    ApplyFontStyle(setting.Font, keys.Style);
    setting.Color = ColorFromSetting(keys.Color);
    return setting;
}

QFont FontForDialog(const QFont &stored)
{
    if (QFontDatabase::families().contains(stored.family()))
        return stored;
    QFont shown = stored;
    shown.setFamily(QFontInfo(stored).family());
    return shown;
}

QFont KeepStoredFont(const QFont &stored, const QFont &shown, const QFont &chosen)
{
    const bool unchanged = chosen.family() == shown.family() && chosen.pointSize() == shown.pointSize() &&
                           chosen.bold() == shown.bold() && chosen.italic() == shown.italic() &&
                           chosen.underline() == shown.underline() && chosen.strikeOut() == shown.strikeOut();
    return unchanged ? stored : chosen;
}
