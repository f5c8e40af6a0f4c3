#pragma once
// Every setting the program keeps, with the default its readers fall back on when nothing is
// stored. The default's type is the type the value is stored with: text or integer. Readers
// and writers name a setting through these entries, so that each default is written once.

#include <QList>
#include <QString>
#include <QVariant>

struct TSettingKey {
    QString Name;
    QVariant Default;  // a QString for a text setting, an int for an integer one

    bool isText() const { return Default.typeId() == QMetaType::QString; }
};

// A font kept as four settings: <Prefix>FontName, <Prefix>FontSize (points), <Prefix>FontStyle
// (bold 1, italic 2, underline 4, strike-out 8) and, where it has one, <Prefix>FontColor.
struct TFontKeys {
    QString Prefix;
    QString Name;
    int Size = 11;
    int Style = 0;
    QString Color;  // empty for the printed fonts, which are always black

    TSettingKey nameKey() const { return {Prefix + QStringLiteral("FontName"), Name}; }
    TSettingKey sizeKey() const { return {Prefix + QStringLiteral("FontSize"), Size}; }
    TSettingKey styleKey() const { return {Prefix + QStringLiteral("FontStyle"), Style}; }
    TSettingKey colorKey() const { return {Prefix + QStringLiteral("FontColor"), Color}; }
};

namespace Setting {

// General
inline const TSettingKey PlaySounds{QStringLiteral("PlaySounds"), 1};  // 0 off, 1 sounds, 2 speech
// The grid and clue windows use their own cursors unless told not to; the preferences dialog
// shows the box unchecked until the user has saved a choice.
inline const TSettingKey UseCursors{QStringLiteral("UseCursors"), 1};
inline const TSettingKey UseCursorsShown{QStringLiteral("UseCursors"), 0};
inline const TSettingKey Threading{QStringLiteral("Threading"), 0};
inline const TSettingKey EntryCounts{QStringLiteral("EntryCounts"), 0};
inline const TSettingKey AutoArrange{QStringLiteral("AutoArrange"), 0};  // stored only

// View
inline const TSettingKey FilledSqColor{QStringLiteral("FilledSqColor"), QStringLiteral("clBlack")};
inline const TSettingKey BlankSqColor{QStringLiteral("BlankSqColor"), QStringLiteral("clWhite")};
inline const TSettingKey HiliteSqColor{QStringLiteral("HiliteSqColor"), QStringLiteral("clYellow")};
inline const TFontKeys GridFont{QString(), QStringLiteral("Arial"), 11, 0, QStringLiteral("clBlack")};

// Print: the user's name and address. A new puzzle's byline is the bare name; the printed
// address block and the preferences dialog put a placeholder where none is stored.
inline const TSettingKey Name{QStringLiteral("Name"), QString()};
inline const TSettingKey NameOnPages{QStringLiteral("Name"), QStringLiteral("Your Name")};
inline const TSettingKey NameShown{QStringLiteral("Name"), QStringLiteral("Quillmark")};
inline const TSettingKey Address[4] = {
    {QStringLiteral("Add1"), QStringLiteral("Address 1")},
    {QStringLiteral("Add2"), QStringLiteral("Address 2")},
    {QStringLiteral("Add3"), QStringLiteral("Address 3")},
    {QStringLiteral("Add4"), QString()},
};
inline const TSettingKey DefsOnLeft{QStringLiteral("DefsOnLeft"), 1};
inline const TSettingKey PageBottomMargin{QStringLiteral("PageBottomMargin"), 1};

// Tools: the companion programs' paths
inline const TSettingKey DictPath{QStringLiteral("DictPath"), QString()};
inline const TSettingKey ThesPath{QStringLiteral("ThesPath"), QString()};
inline const TSettingKey CluePath{QStringLiteral("CluePath"), QString()};
inline const TSettingKey ScraPath{QStringLiteral("ScraPath"), QString()};
inline const TSettingKey MailPath{QStringLiteral("MailPath"), QString()};

// Fonts
inline const TFontKeys SolveFont{QStringLiteral("Solve"), QStringLiteral("Times New Roman"), 11, 0,
                                QStringLiteral("clBlack")};
inline const TFontKeys DefsFont{QStringLiteral("Defs"), QStringLiteral("Times New Roman"), 10, 0,
                               QStringLiteral("clBlack")};
inline const TFontKeys AutoFont{QStringLiteral("Auto"), QStringLiteral("Times New Roman"), 11, 0,
                               QStringLiteral("clBlack")};
inline const TFontKeys StatusFont{QStringLiteral("Status"), QStringLiteral("Times New Roman"), 11, 1,
                                 QStringLiteral("clNavy")};

// Language
inline const TSettingKey GridLanguage{QStringLiteral("GridLanguage"), 0};

// Print options and page composition
inline const TFontKeys ManuscriptFont{QStringLiteral("MS"), QStringLiteral("Courier New"), 12, 0, QString()};
// Its size is a base that the puzzle page steps up for smaller grids.
inline const TFontKeys PuzzlePageFont{QStringLiteral("PP"), QStringLiteral("Times New Roman"), 9, 0, QString()};
inline const TSettingKey PageLength{QStringLiteral("PageLength"), 1};
// In the order of the page formats.
inline const TSettingKey PrintFormats[5] = {
    {QStringLiteral("PrintMSS"), 0}, {QStringLiteral("PrintMSG"), 0}, {QStringLiteral("PrintNGr"), 0},
    {QStringLiteral("PrintSGr"), 0}, {QStringLiteral("PrintPPg"), 0},
};
inline const TSettingKey PrintGSq{QStringLiteral("PrintGSq"), 0};

// Window placement: absent until the main window stores it, and then four numbers.
inline const TSettingKey ScreenBoundsMain{QStringLiteral("ScreenBoundsMain"), QString()};
inline const TSettingKey ScreenBoundsGrid{QStringLiteral("ScreenBoundsGrid"), QString()};
inline const TSettingKey ScreenBoundsClues{QStringLiteral("ScreenBoundsClues"), QString()};
inline const TSettingKey ScreenBoundsAutoclue{QStringLiteral("ScreenBoundsAutoclue"), QString()};
// Its default is the largest square that fits the screen, known only when the program runs.
inline const TSettingKey ScreenSquare{QStringLiteral("ScreenSquare"), 0};

// The puzzle lifecycle
inline const TSettingKey CurrentPuzzle{QStringLiteral("CurrentPuzzle"), QString()};
inline const TSettingKey HistoryPuzzle[3] = {
    {QStringLiteral("HistoryPuzzle1"), QString()},
    {QStringLiteral("HistoryPuzzle2"), QString()},
    {QStringLiteral("HistoryPuzzle3"), QString()},
};

// Under the tools key, written by the clue database program.
inline const TSettingKey BankDataFile{QStringLiteral("BankDataFile"), QString()};

}  // namespace Setting

// Every entry above, fonts as their four settings each.
QList<TSettingKey> SettingKeys();
