#pragma once
// The grid languages: which capitals besides A to Z the grid accepts.

#include "model/puzzle.h"

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

// The preferences' language choice also marks the open puzzle: the last character of clue
// slot 180, the slot no word uses, is replaced by the chosen value's digit.
void MarkLanguageChoice(TPuzzle &p, int language);
