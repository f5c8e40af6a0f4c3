#include "settings/settingkeys.h"

#include <iterator>

QList<TSettingKey> SettingKeys()
{
    using namespace Setting;
    QList<TSettingKey> keys = {PlaySounds, UseCursors, Threading, EntryCounts, AutoArrange,
                               FilledSqColor, BlankSqColor, HiliteSqColor, Name, DefsOnLeft, PageBottomMargin,
                               DictPath, ThesPath, CluePath, ScraPath, MailPath, GridLanguage, PageLength, PrintGSq,
                               ScreenBoundsMain, ScreenBoundsGrid, ScreenBoundsClues, ScreenBoundsAutoclue,
                               ScreenSquare, CurrentPuzzle, BankDataFile};
    keys.append(QList<TSettingKey>(std::begin(Address), std::end(Address)));
    keys.append(QList<TSettingKey>(std::begin(PrintFormats), std::end(PrintFormats)));
    keys.append(QList<TSettingKey>(std::begin(HistoryPuzzle), std::end(HistoryPuzzle)));
    for (const TFontKeys &font :
         {GridFont, SolveFont, DefsFont, AutoFont, StatusFont, ManuscriptFont, PuzzlePageFont}) {
        keys += {font.nameKey(), font.sizeKey(), font.styleKey()};
        if (!font.Color.isEmpty())
            keys.append(font.colorKey());
    }
    return keys;
}
