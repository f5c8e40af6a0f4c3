#include "output/printsettings.h"

#include "settings/txwdprocs.h"

void ReadPrintSettings(TPrintJob &job)
{
    job.ManuscriptFont = ReadPageFont(Setting::ManuscriptFont);
    job.PuzzlePageFont = ReadPageFont(Setting::PuzzlePageFont);
    job.Address[0] = ReadText(Setting::NameOnPages);
    for (int i = 0; i < 4; ++i)
        job.Address[i + 1] = ReadText(Setting::Address[i]);
    job.DefsOnLeft = ReadInt(Setting::DefsOnLeft) != 0;
    job.PageBottomMargin = ReadInt(Setting::PageBottomMargin);
    job.PageLength = ReadInt(Setting::PageLength);
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
    return {ReadText(keys.nameKey()), ReadInt(keys.sizeKey()), ReadInt(keys.styleKey())};
}

void WritePageFont(const TFontKeys &keys, const TPageFontChoice &font)
{
    WriteSetting(keys.nameKey(), font.Name);
    WriteSetting(keys.styleKey(), font.Style);
    WriteSetting(keys.sizeKey(), font.Size);
}
