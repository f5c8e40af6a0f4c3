#include "model/cp1252.h"

#include <array>

namespace {

// 0x80 to 0x9F; the rest of the codes equal their Unicode code points.
constexpr std::array<char16_t, 32> HighTable = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

}  // namespace

QChar Cp1252ToUnicode(uint8_t code)
{
    if (code >= 0x80 && code <= 0x9F)
        return QChar(HighTable[code - 0x80]);
    return QChar(char16_t(code));
}

int UnicodeToCp1252(QChar ch)
{
    const char16_t u = ch.unicode();
    if (u < 0x80 || (u >= 0xA0 && u <= 0xFF))
        return u;
    for (int i = 0; i < int(HighTable.size()); ++i)
        if (HighTable[i] == u)
            return 0x80 + i;
    return -1;
}

QString FromCp1252(const QByteArray &bytes)
{
    QString text;
    text.reserve(bytes.size());
    for (char b : bytes)
        text.append(Cp1252ToUnicode(uint8_t(b)));
    return text;
}

QByteArray ToCp1252(const QString &text, char replacement)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar ch = text.at(i);
        // A character outside the BMP is one character to the user: one replacement.
        if (ch.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            ++i;
        const int code = UnicodeToCp1252(ch);
        bytes.append(code < 0 ? replacement : char(code));
    }
    return bytes;
}

QString KeepCp1252(const QString &text, char replacement)
{
    return FromCp1252(ToCp1252(text, replacement));
}

QString UpperInCp1252(const QString &text)
{
    QString upper = text;
    for (QChar &ch : upper) {
        const QChar capital = ch.toUpper();
        if (capital != ch && UnicodeToCp1252(capital) >= 0)
            ch = capital;
    }
    return upper;
}

QString ShownText(const QByteArray &bytes)
{
    return FromCp1252(QByteArray(bytes).replace('\0', ' '));
}
