#include "settings/fontsetting.h"

#include "settings/colors.h"
#include "settings/txwdprocs.h"

#include <QFontDatabase>
#include <QFontInfo>

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
    setting.Font.setPointSize(size >= 1 ? size : defaults.Size);
    ApplyFontStyle(setting.Font, ReadInt(prefix + QStringLiteral("FontStyle"), defaults.Style));
    setting.Color = ReadColorSetting(prefix + QStringLiteral("FontColor"), defaults.Color);
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
