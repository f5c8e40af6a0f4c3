#pragma once
// The print options as the settings keep them, read into and written from a print job.

#include "output/pagelayout.h"

// The fonts, address block, columns and margins the pages are laid out with.
void ReadPrintSettings(TPrintJob &job);
// The formats chosen for printing and the grey-squares choice.
void ReadPrintFormats(TPrintJob &job);
bool ReadGraySquares();

TPageFontChoice ReadPageFont(const TFontKeys &keys);
void WritePageFont(const TFontKeys &keys, const TPageFontChoice &font);
