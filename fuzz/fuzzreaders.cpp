// A reader of puzzle files fed bytes nobody meant for it. Whatever it accepts must be a
// record the rest of the program can trust, and every exporter must take it without a fault.
// Built once per reader; QUILLMARK_FUZZ_READER names which.

#include "clues/gridlanguage.h"
#include "interchange/interchange.h"
#include "model/cp1252.h"
#include "model/puzzlefile.h"
#include "model/puzzletext.h"
#include "output/clipboardtext.h"
#include "output/eps.h"
#include "output/gridpicture.h"
#include "output/rtf.h"
#include "web/webpage.h"

#include <QGuiApplication>

#include <cstdio>
#include <cstdlib>

namespace {

enum class Reader { Xwd, Xwd5, Puz, Ipuz, Text };
constexpr Reader Target = Reader::QUILLMARK_FUZZ_READER;

void require(bool ok, const char *what)
{
    if (ok)
        return;
    std::fprintf(stderr, "accepted puzzle breaks an invariant: %s\n", what);
    std::abort();
}

// What every reader promises: a size the program draws, and a record that writes and reads
// back byte for byte. Imports build the record themselves, so they also promise every text
// within its field and every word's slot within the clue slots.
void checkRecord(const TPuzzle &p)
{
    if (Target == Reader::Text)
        require(p.Size >= 1 && p.Size <= MaxGrid, "the text form's size is 1 to 23");
    else
        require(IsPuzzleSize(p.Size), "the size is one the program makes");
    const QByteArray bytes = EncodePuzzle(p);
    if (Target == Reader::Text)
        require(EncodePuzzle(PuzzleFromText(PuzzleToText(p))) == bytes, "the text form reads back as it was written");
    else
        require(EncodePuzzle(DecodePuzzle(bytes)) == bytes, "the record reads back as it was written");
    if (Target == Reader::Xwd || Target == Reader::Xwd5)
        return;
    for (const TShortString<MaxClueLength> &clue : p.Clues)
        require(clue.Length <= MaxClueLength, "a clue holds at most 80 characters");
    require(p.Byline.Length <= MaxBylineLength, "the byline holds at most 60 characters");
    if (Target == Reader::Text)
        require(p.Language < GridLanguageCount, "the language is one the program knows");
    for (const TWordRef &w : WordsInSlotOrder(p)) {
        const int slot = p.slotAt(w.Column, w.Row, w.Dir);
        require(slot == 0 || slot == w.Index, "a clued word has the slot of its place in reading order");
        require(slot <= MaxWords, "a word's slot is one of the 179 clue slots");
    }
}

void exportAll(const TPuzzle &p)
{
    (void)EncodePuzzle5(p);
    (void)PuzzleToText(p);
    (void)ClueListText(p);
    for (const GridKind kind : {GridKind::NumberedGrid, GridKind::AnswerGrid})
        (void)EpsGridText(p, kind, EpsStyle::Light, QStringLiteral("P.eps"), QStringLiteral("1/2/2026"));
    (void)RtfManuscript(p, TRtfAddress{"Name", "Street", "Town", "", ""}, QStringLiteral("P"), QStringLiteral("spec"));
    // The pictures cost a hundred times the rest; drawing every 32nd puzzle keeps the
    // fuzzer fast and still feeds them every kind of record.
    static unsigned accepted = 0;
    if (accepted++ % 32 == 0) {
        (void)WmfExportSet(p, QStringLiteral("P.wmf"));
        (void)GridPictureSvg(DrawGridPicture(p, GridKind::NumberedAnswerGrid), QStringLiteral("P.svg"));
    }
    (void)WebPage(p, QStringLiteral("P"));
    for (const TFileKind kind : {TFileKind::Puz, TFileKind::Ipuz}) {
        try {
            (void)ExportPuzzle(p, kind, QStringLiteral("P"));
        } catch (const TInterchangeError &) {
            // A format that cannot hold this puzzle says so; that is not a fault.
        }
    }
}

bool read(const QByteArray &bytes, TPuzzle &p)
{
    try {
        switch (Target) {
        case Reader::Xwd: p = DecodePuzzle(bytes); break;
        case Reader::Xwd5: p = ConvertPuzzle5(bytes); break;
        case Reader::Puz: p = ImportPuzzle(bytes, TFileKind::Puz, {bytes.size() % 2 == 0}).Puzzle; break;
        case Reader::Ipuz: p = ImportPuzzle(bytes, TFileKind::Ipuz, {bytes.size() % 2 == 0}).Puzzle; break;
        case Reader::Text: p = PuzzleFromText(QString::fromUtf8(bytes)); break;
        }
        return true;
    } catch (const TPuzzleIOError &) {
    } catch (const TInterchangeError &) {
    } catch (const TPuzzleTextError &) {
    }
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***argv)
{
    // The pictures measure text, which needs the GUI library but no screen.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static QGuiApplication app(argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    TPuzzle p;
    if (!read(bytes, p))
        return 0;
    checkRecord(p);
    exportAll(p);
    return 0;
}
