#include "clues/gridlanguage.h"

#include <array>
#include <initializer_list>

namespace {

struct Language {
    const char *name;
    std::initializer_list<int> extra;  // Windows-1252 codes
};

const std::array<Language, GridLanguageCount> &languages()
{
    static const std::array<Language, GridLanguageCount> table = {{
        {"English", {}},
        {"French", {192, 199, 200, 201, 217}},
        {"Spanish", {201, 209}},
        {"Italian", {192, 200, 201, 210, 217}},
        {"German", {196, 214, 220, 223}},
        {"Swedish", {196, 197, 214}},
        {"Norwegian", {197, 198, 216}},
        {"Danish", {197, 198, 216}},
        // Multilingual: Š Œ Ÿ and À to Ý and ß, without × (215) and Þ (222).
        {"Multilingual", {138, 140, 159, 192, 193, 194, 195, 196, 197, 198, 199, 200, 201, 202, 203, 204,
                          205, 206, 207, 208, 209, 210, 211, 212, 213, 214, 216, 217, 218, 219, 220, 221, 223}},
    }};
    return table;
}

bool known(int language)
{
    return language >= 0 && language < GridLanguageCount;
}

}  // namespace

QString GridLanguageName(int language)
{
    return known(language) ? QString::fromLatin1(languages()[language].name) : QString();
}

QString GridLanguageSuffix(int language)
{
    if (language <= 0 || !known(language))
        return {};
    return QStringLiteral(" (%1)").arg(GridLanguageName(language));
}

TCharSet GridCharSetFor(int language)
{
    TCharSet set;
    for (int code : {8, 13, 32, 43})
        set.set(code);
    for (int code = 'A'; code <= 'Z'; ++code)
        set.set(code);
    if (known(language))
        for (int code : languages()[language].extra)
            set.set(code);
    return set;
}

int ParseGridLanguage(const QString &text)
{
    bool ok = false;
    const int number = text.toInt(&ok);
    if (ok)
        return known(number) ? number : -1;
    for (int i = 0; i < GridLanguageCount; ++i)
        if (text.compare(GridLanguageName(i), Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

void MarkLanguageChoice(TPuzzle &p, int language)
{
    QByteArray text = p.clue(ClueSlots);
    text.chop(1);
    p.setClue(ClueSlots, (text + QByteArray::number(language)).left(MaxClueLength));
}
