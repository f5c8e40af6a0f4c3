#pragma once
// The grid languages: which capitals besides A to Z the grid accepts.

#include <QString>

#include <bitset>

constexpr int GridLanguageCount = 9;

// One bit per character code; only codes 8 to 223 are ever members.
using TCharSet = std::bitset<256>;

// "English", "French", ... for 0 to 8; empty for any other value.
QString GridLanguageName(int language);
// " (French)" and so on; empty for English and unknown values.
QString GridLanguageSuffix(int language);
// Backspace, Enter, space, "+" and A to Z, with the language's extra capitals.
TCharSet GridCharSetFor(int language);
// Resolves a name (any case) or a number from 0 to 8; -1 when neither.
int ParseGridLanguage(const QString &text);
