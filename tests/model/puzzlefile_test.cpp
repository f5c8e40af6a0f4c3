#include "model/puzzlefile.h"
#include "model/puzzletext.h"
#include "testsupport.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <csignal>
#include <tuple>
#include <sys/resource.h>

namespace {

TPuzzle small()
{
    return PuzzleFrom("size 11\nbyline Ann Example\nlanguage 3\ngrid\n" + GridRows({"CAT#DOG#EEL"}, 11, u'.')
                      + "clues\n1A Purring pet\n4A Barking pet\n");
}

// Random bytes everywhere, unused string bytes included: a record must survive whole.
QByteArray noise(int size)
{
    QByteArray bytes(size, '\0');
    QRandomGenerator gen(42);
    for (char &b : bytes)
        b = char(gen.bounded(256));
    return bytes;
}

// Lets files grow only to `bytes` while it lives, as a full disk would.
struct TFileSizeLimit {
    explicit TFileSizeLimit(rlim_t bytes)
    {
        signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &saved);
        const rlimit limit{bytes, saved.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~TFileSizeLimit() { setrlimit(RLIMIT_FSIZE, &saved); }
    rlimit saved{};
};

}  // namespace

TEST(CurrentFormat, RoundTripsEveryByteIsLittleEndianAndReadsTheFirst17818Bytes)
{
    const QByteArray bytes = QByteArray("\x0f\0", 2) + noise(PuzzleFileSize - 2);
    EXPECT_EQ(EncodePuzzle(DecodePuzzle(bytes)), bytes);

    TPuzzle p = small();
    p.Size = 0x0102;
    p.CellWords(2, 1).DownSlot = 0x0304;
    const QByteArray out = EncodePuzzle(p);
    ASSERT_EQ(out.size(), PuzzleFileSize);
    EXPECT_EQ(out.left(2), "\x02\x01");
    EXPECT_EQ(out.mid(1060 + 92 + 2, 2), "\x04\x03");
    EXPECT_EQ(out[17817], 3) << "language is the last byte";

    // A longer file is read for its first 17818 bytes.
    TScratchDir dir;
    ASSERT_TRUE(WriteFileBytes(dir.path("long.xwd"), EncodePuzzle(small()) + "more"));
    ReadPuzzle(dir.path("long.xwd"));
    EXPECT_EQ(Puzzle.GetWord(1, 1, 'a'), "CAT");
    EXPECT_THROW(ReadPuzzle(dir.path("missing.xwd")), TPuzzleIOError);
}

TEST(Version5, WritingKeepsTheGridAndCutsCluesAndBylineWithItsLanguageDigit)
{
    TPuzzle p = small();
    p.setClue(1, QByteArray(75, 'q'));
    p.setClue(180, "the spare slot");
    p.Language = 12;
    const QByteArray v5 = EncodePuzzle5(p);
    ASSERT_EQ(v5.size(), PuzzleFile5Size);
    EXPECT_EQ(v5.left(3176), EncodePuzzle(p).left(3176)) << "size, cells, entries and slots unchanged";
    EXPECT_EQ(uint8_t(v5[3176]), 60) << "a 75-character clue keeps its first 60";
    EXPECT_EQ(v5.mid(14095, 15), QByteArray("\x0e" "Ann Example|12", 15));

    const TPuzzle back = ConvertPuzzle5(v5);
    EXPECT_EQ(back.clue(1), QByteArray(60, 'q'));
    EXPECT_EQ(back.clue(5), "Barking pet");
    EXPECT_TRUE(back.clue(180).isEmpty());
    EXPECT_EQ(std::pair(back.Byline.text(), int(back.Language)), std::pair(QByteArray("Ann Example"), 2))
        << "only the language's last digit comes back";
    EXPECT_EQ(back.GetWord(5, 1, 'a'), "DOG");

    p.Language = 7;
    // Text after a byline's own bar is lost; a full byline crowds out bar and language.
    for (const auto &[byline, kept, language] : {std::tuple{QByteArray("Name|With Bar"), QByteArray("Name"), 7},
                                                  {QByteArray(60, 'b'), QByteArray(60, 'b'), 0}}) {
        p.Byline.setText(byline);
        const TPuzzle back = ConvertPuzzle5(EncodePuzzle5(p));
        EXPECT_EQ(std::pair(back.Byline.text(), int(back.Language)), std::pair(kept, language)) << byline.constData();
    }
    p.Byline.setText(QByteArray(59, 'b'));
    EXPECT_THROW(ConvertPuzzle5(EncodePuzzle5(p)), TPuzzleIOError) << "a bar with no digit cannot be read";
}

TEST(OpenPuzzleFile, ConvertsAVersion5FileOnDisk)
{
    TScratchDir dir;
    const QString path = dir.path("old.xwd");
    ASSERT_TRUE(WriteFileBytes(path, EncodePuzzle5(small())));
    ASSERT_EQ(QFile(path).size(), PuzzleFile5Size);

    EXPECT_EQ(LoadPuzzleFile(path).Format, PuzzleFormat::Version5);
    EXPECT_EQ(QFile(path).size(), PuzzleFile5Size) << "loading alone never rewrites";

    OpenPuzzleFile(path);
    EXPECT_EQ(std::pair(Puzzle.Byline.text(), int(Puzzle.Language)), std::pair(QByteArray("Ann Example"), 3));
    EXPECT_EQ(ReadFileBytes(path), EncodePuzzle(Puzzle)) << "rewritten in the current format";
    EXPECT_EQ(LoadPuzzleFile(path).Format, PuzzleFormat::Current);
}

// Whatever is refused leaves both the file and the open puzzle as they were.
TEST(OpenPuzzleFile, RefusesWhatTheProgramDoesNotMakeAndTouchesNothing)
{
    TScratchDir dir;
    Puzzle = small();
    const QByteArray open = EncodePuzzle(Puzzle);
    const auto expectRefused = [&](const QString &name, const QByteArray &bytes) {
        SCOPED_TRACE(name.toStdString());
        const QString path = dir.path(name);
        ASSERT_TRUE(WriteFileBytes(path, bytes));
        EXPECT_THROW(OpenPuzzleFile(path), TPuzzleIOError);
        EXPECT_THROW(LoadPuzzleFile(path), TPuzzleIOError);
        EXPECT_EQ(ReadFileBytes(path), bytes);
        EXPECT_EQ(EncodePuzzle(Puzzle), open);
    };

    // Sizes that overran the 23 x 23 arrays or made grids the program never draws.
    for (const int size : {0, -1, 9, 12, 24, 25, 3000, 32767}) {
        TPuzzle p = small();
        p.Size = int16_t(size);
        expectRefused(QStringLiteral("size%1.xwd").arg(size), EncodePuzzle(p));
        expectRefused(QStringLiteral("size%1-v5.xwd").arg(size), EncodePuzzle5(p));
    }
    expectRefused(QStringLiteral("cut.xwd"), open.left(16000));
    expectRefused(QStringLiteral("short.xwd"), noise(PuzzleFile5Size - 1));
    expectRefused(QStringLiteral("picture.xwd"), QByteArray("\x89PNG\r\n\x1a\n") + noise(PuzzleFileSize));
    TPuzzle broken = small();
    broken.Byline.setText(QByteArray(59, 'b'));
    expectRefused(QStringLiteral("no-language-digit.xwd"), EncodePuzzle5(broken));

    for (int size = 11; size <= 23; size += 2) {
        TPuzzle p;
        p.ClearPuzzle(size, 'N', {}, 0);
        ASSERT_TRUE(WriteFileBytes(dir.path("ok.xwd"), EncodePuzzle(p)));
        OpenPuzzleFile(dir.path("ok.xwd"));
        EXPECT_EQ(Puzzle.Size, size);
    }
}

TEST(WritePuzzle, ReplacesAFileWholeOrReportsAndKeepsTheOld)
{
    TScratchDir dir;
    const QString path = dir.path("p.xwd");
    Puzzle = small();
    WritePuzzle(path);
    const QByteArray before = ReadFileBytes(path);

    // A disk that fills up mid-save: files may grow to 4 KiB only.
    Puzzle.setClue(1, "Changed");
    {
        TFileSizeLimit limit(4096);
        EXPECT_THROW(WritePuzzle(path), TPuzzleIOError);
    }
    EXPECT_EQ(ReadFileBytes(path), before) << "the previous file stays whole";

    EXPECT_THROW(WritePuzzle(dir.path("no/such/folder/p.xwd")), TPuzzleIOError);
    EXPECT_THROW(WritePuzzle5(dir.path("no/such/folder/p.xwd")), TPuzzleIOError);
}

TEST(WritePuzzle, RemovesTheTemporaryFilesOfAKilledSaveOfThatPuzzleOnly)
{
    TScratchDir dir;
    Puzzle = small();
    ASSERT_TRUE(WriteFileBytes(dir.path("p.xwd.a1B2c3"), QByteArray(9000, 'x')));  // killed mid-write
    ASSERT_TRUE(WriteFileBytes(dir.path("p.xwd.Zz9Zz9"), QByteArray()));
    const QStringList kept{"p.xwd.big123", "p.xwd.notes", "p.xwd.a1B2c3d", "q.xwd.a1B2c3"};
    for (const QString &name : kept)
        ASSERT_TRUE(WriteFileBytes(dir.path(name), QByteArray(name == u"p.xwd.big123" ? 20000 : 10, 'u')));

    WritePuzzle(dir.path("p.xwd"));
    EXPECT_EQ(QDir(dir.path("")).entryList({"p.xwd.*"}, QDir::Files),
              (QStringList{"p.xwd.a1B2c3d", "p.xwd.big123", "p.xwd.notes"}))
        << "only six-character leftovers no larger than a record go";
    EXPECT_TRUE(QFile::exists(dir.path("q.xwd.a1B2c3"))) << "another puzzle's save may still be running";

    ASSERT_TRUE(WriteFileBytes(dir.path("p.xwd.QQQQQQ"), "x"));
    WritePuzzle5(dir.path("p.xwd"));
    EXPECT_FALSE(QFile::exists(dir.path("p.xwd.QQQQQQ")));
}
