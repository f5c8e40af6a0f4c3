// The puzzle file types the package declares, read the way a desktop reads them: beside the
// system's own types, in a MIME database of their own, so a double click on each kind of
// puzzle file opens Quillmark and an X window dump (which shares the .xwd extension) does not.

#include "interchange/interchange.h"
#include "model/puzzlefile.h"
#include "testsupport.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QMimeDatabase>

namespace {

class MimeTypes : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        // Before the process's first look at the database, which reads these folders once.
        const QString share = scratch_->path(QStringLiteral("share"));
        QDir().mkpath(share + QStringLiteral("/mime/packages"));
        QFile::copy(QStringLiteral("/usr/share/mime/packages/freedesktop.org.xml"),
                    share + QStringLiteral("/mime/packages/freedesktop.org.xml"));
        QFile::copy(QStringLiteral(QUILLMARK_EXAMPLES "/../packaging/quillmark.xml"),
                    share + QStringLiteral("/mime/packages/quillmark.xml"));
        qputenv("XDG_DATA_DIRS", share.toLocal8Bit());
        qputenv("XDG_DATA_HOME", scratch_->path(QStringLiteral("home")).toLocal8Bit());
    }

    // The type of a file of that name and contents; and of the contents alone, as a file
    // with a foreign or no extension is sniffed, which must agree.
    static std::string TypeOfFile(const QString &name, const QByteArray &bytes)
    {
        const QString path = scratch_->path(name);
        WriteFileBytes(path, bytes);
        const QString byName = QMimeDatabase().mimeTypeForFile(path).name();
        const QString byContents = QMimeDatabase().mimeTypeForData(bytes).name();
        return (byName == byContents ? byName : byName + QStringLiteral(" but by contents ") + byContents).toStdString();
    }

    static inline TScratchDir *scratch_ = new TScratchDir;
};

TEST_F(MimeTypes, EveryPuzzleFileIsKnownByItsTypeAndAnXWindowDumpKeepsItsOwn)
{
    ASSERT_TRUE(QFile::exists(QStringLiteral("/usr/share/mime/packages/freedesktop.org.xml")));
    const TPuzzle sample = SamplePuzzle();
    EXPECT_EQ(TypeOfFile("sample.xwd", EncodePuzzle(sample)), "application/x-quillmark-puzzle");
    EXPECT_EQ(TypeOfFile("version5.xwd", EncodePuzzle5(sample)), "application/x-quillmark-puzzle");
    for (const int side : {11, 23}) {
        TPuzzle p;
        p.Size = side;
        EXPECT_EQ(TypeOfFile(QStringLiteral("side%1.xwd").arg(side), EncodePuzzle(p)),
                  "application/x-quillmark-puzzle")
            << "an empty puzzle of side " << side;
    }
    EXPECT_EQ(TypeOfFile("sample.puz", ExportPuzzle(sample, TFileKind::Puz, "sample")), "application/x-crossword");
    const QString ipuz = scratch_->path(QStringLiteral("sample.ipuz"));
    WriteFileBytes(ipuz, ExportPuzzle(sample, TFileKind::Ipuz, "sample"));
    EXPECT_EQ(QMimeDatabase().mimeTypeForFile(ipuz).name().toStdString(), "application/x-ipuz");

    // A dump's header: its size (100) and the format's version (7), both 32-bit big-endian.
    QByteArray dump("\x00\x00\x00\x64\x00\x00\x00\x07", 8);
    dump.append(200, '\0');
    EXPECT_EQ(TypeOfFile("screen.xwd", dump), "image/x-xwindowdump");
}

}  // namespace
