#include "settings/colors.h"

#include "settings/txwdprocs.h"

#include <array>
#include <cstdint>

namespace {

struct NamedColor {
    const char *name;
    uint32_t ref;
};

// The standard colours with identifiers, in the order identifiers are looked up when
// writing, so each reference is written under its first name.
constexpr std::array<NamedColor, 22> NamedColors = {{
    {"clBlack", 0x000000},
    {"clMaroon", 0x000080},
    {"clGreen", 0x008000},
    {"clOlive", 0x008080},
    {"clNavy", 0x800000},
    {"clPurple", 0x800080},
    {"clTeal", 0x808000},
    {"clGray", 0x808080},
    {"clSilver", 0xC0C0C0},
    {"clRed", 0x0000FF},
    {"clLime", 0x00FF00},
    {"clYellow", 0x00FFFF},
    {"clBlue", 0xFF0000},
    {"clFuchsia", 0xFF00FF},
    {"clAqua", 0xFFFF00},
    {"clWhite", 0xFFFFFF},
    {"clMoneyGreen", 0xC0DCC0},
    {"clSkyBlue", 0xF0CAA6},
    {"clCream", 0xF0FBFF},
    {"clMedGray", 0xA4A0A0},
    // Older aliases, accepted when reading.
    {"clLtGray", 0xC0C0C0},
    {"clDkGray", 0x808080},
}};

}  // namespace

uint32_t ColorRef(const QColor &color)
{
    const QColor rgb = color.toRgb();
    return uint32_t(rgb.red()) | uint32_t(rgb.green()) << 8 | uint32_t(rgb.blue()) << 16;
}

QColor ColorFromRef(uint32_t ref)
{
    return QColor(int(ref & 0xFF), int(ref >> 8 & 0xFF), int(ref >> 16 & 0xFF));
}

QColor ColorFromSetting(const QString &text)
{
    const QString value = text.trimmed();
    for (const NamedColor &named : NamedColors)
        if (value.compare(QLatin1String(named.name), Qt::CaseInsensitive) == 0)
            return ColorFromRef(named.ref);

    bool ok = false;
    qlonglong number = 0;
    if (value.startsWith(u'$'))
        number = value.mid(1).toLongLong(&ok, 16);
    else if (value.startsWith(QLatin1String("0x"), Qt::CaseInsensitive))
        number = value.mid(2).toLongLong(&ok, 16);
    else
        number = value.toLongLong(&ok, 10);
    if (!ok || number < INT32_MIN || number > UINT32_MAX)
        return {};
    // The high byte only says how a platform palette is consulted; the colour is the rest.
    return ColorFromRef(uint32_t(number) & 0xFFFFFF);
}

QColor ReadColorSetting(const TSettingKey &key)
{
    const QColor color = ColorFromSetting(ReadText(key));
    return color.isValid() ? color : ColorFromSetting(key.Default.toString());
}

QString ColorToSetting(const QColor &color)
{
    const uint32_t ref = ColorRef(color);
    for (const NamedColor &named : NamedColors)
        if (named.ref == ref)
            return QString::fromLatin1(named.name);
    return QStringLiteral("$%1").arg(ref, 8, 16, QLatin1Char('0')).toUpper();
}
