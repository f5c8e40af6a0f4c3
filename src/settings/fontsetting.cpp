#include "settings/fontsetting.h"

#include "settings/colors.h"
#include "settings/screenfit.h"
#include "settings/txwdprocs.h"

void ApplyFontStyle(QFont &font, int style)
{
    font.setBold(style & 1);
    font.setItalic(style & 2);
    font.setUnderline(style & 4);
    font.setStrikeOut(style & 8);
}

TFontSetting ReadFontSetting(const QString &prefix, const TFontDefaults &defaults)
{
    TFontSetting setting;
    setting.Font.setFamily(ReadText(prefix + QStringLiteral("FontName"), defaults.Name));
    const int size = ReadInt(prefix + QStringLiteral("FontSize"), defaults.Size);
    setting.Font.setPointSize(FitFontSize(size, defaults.Size));
    ApplyFontStyle(setting.Font, ReadInt(prefix + QStringLiteral("FontStyle"), defaults.Style));
    setting.Color = ReadColorSetting(prefix + QStringLiteral("FontColor"), defaults.Color);
    return setting;
}
