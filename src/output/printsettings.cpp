#include "output/printsettings.h"

#include "output/pageobjects.h"
#include "settings/screenfit.h"
#include "settings/txwdprocs.h"

#include <algorithm>

void ReadPrintSettings(TPrintJob &job)
{
    job.ManuscriptFont = ReadPageFont(Setting::ManuscriptFont);
    job.PuzzlePageFont = ReadPageFont(Setting::PuzzlePageFont);
    job.Address[0] = ReadText(Setting::NameOnPages);
    for (int i = 0; i < 4; ++i)
        job.Address[i + 1] = ReadText(Setting::Address[i]);
    job.DefsOnLeft = ReadInt(Setting::DefsOnLeft) != 0;
    // Kept to what a page can take, so no line count below wraps.
    job.PageBottomMargin = std::clamp(ReadInt(Setting::PageBottomMargin), 0, 9);
    job.PageLength = std::clamp(ReadInt(Setting::PageLength), -LetterHeight, LetterHeight);
}

void ReadPrintFormats(TPrintJob &job)
{
    for (int f = 0; f < PageFormatCount; ++f)
        job.Formats[f] = ReadInt(Setting::PrintFormats[f]) != 0;
}

bool ReadGraySquares()
{
    return ReadInt(Setting::PrintGSq) != 0;
}

TPageFontChoice ReadPageFont(const TFontKeys &keys)
{
    // The puzzle page's size is stored less the grid's step, so it may be below 1.
    return {ReadText(keys.nameKey()), std::clamp(ReadInt(keys.sizeKey()), -MaxFontPointSize, MaxFontPointSize),
            ReadInt(keys.styleKey())};
}

void WritePageFont(const TFontKeys &keys, const TPageFontChoice &font)
{
    WriteSetting(keys.nameKey(), font.Name);
    WriteSetting(keys.styleKey(), font.Style);
    WriteSetting(keys.sizeKey(), font.Size);
}
