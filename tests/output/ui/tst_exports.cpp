// The export and clipboard commands as the user reaches them from the main window.

#include "output/ui/texportform.h"
#include "windowtest.h"

#include <QClipboard>
#include <QMimeData>

namespace {

const QString Clued = QStringLiteral("size 11\ngrid\nCAT#DOG#EEL\nAREAREAREAR\nTEN#TEN#TEN\n")
                     + QStringLiteral("AREAREAREAR\n").repeated(8) + "clues\n1A Purring pet\n1D Feline\n";

}  // namespace

class TestExports : public QObject, TWindowTest {
    Q_OBJECT

    QStringList opened;

private slots:
    void init()
    {
        setUpWindowTest();
        startProgram();
        opened.clear();
        TExportForm::OpenDocument = [this](const QString &path) { opened.append(path); };
        openPuzzle(writePuzzle("clued.xwd", Clued));
    }

    void cleanup() { tearDownWindowTest(); }

    void exportEpsWritesTheThreeFilesOfTheChosenStyle()
    {
        (*dialogs)->Files.append(TFileChoice{dir->path("out.eps"), 2});
        act("ExportEPSAct")->trigger();
        const TFileRequest request = (*dialogs)->FileRequests.last();
        QCOMPARE(request.FileName, QStringLiteral("clued.eps"));
        QVERIFY((*dialogs)->Errors.isEmpty());
        QVERIFY(ReadFileBytes(dir->path("out.TXT")).startsWith("ACROSS\r\n  1 Purring pet\r\n"));
        QVERIFY(ReadFileBytes(dir->path("out.EPS")).contains("%%Title: out.eps [light]\r\n"));
        QVERIFY(ReadFileBytes(dir->path("out-A.EPS")).contains("nc lb (C) sh lb (A) sh lb (T) sh bb"));
    }

    void aFolderThatIsGoneShowsTheReasonAndLeavesNoFile()
    {
        // Root ignores folder permissions, so the unwritable folder is one that is gone.
        const QString gone = dir->path("gone");
        (*dialogs)->Files.append(TFileChoice{gone + "/out.eps", 1});
        act("ExportEPSAct")->trigger();
        (*dialogs)->Files.append(TFileChoice{gone + "/out.wmf", 1});
        act("ExportWMFAct")->trigger();
        (*dialogs)->Files.append(TFileChoice{gone + "/out.rtf", 1});
        act("ExportRTFAct")->trigger();
        QCOMPARE((*dialogs)->Errors.size(), 3);
        QVERIFY((*dialogs)->Errors.first().contains("out.TXT") && opened.isEmpty());
        QVERIFY(QDir(dir->path("")).entryList(QDir::Files).filter("out").isEmpty());
    }

    void exportRtfInformsWritesPutsTheGridOnTheClipboardAndOpensTheDocument()
    {
        WriteSetting("Name", "Ann Author");
        (*dialogs)->Files.append(TFileChoice{dir->path("man.rtf"), 1});
        act("ExportRTFAct")->trigger();
        QVERIFY((*dialogs)->Informations.first().startsWith("Selecting Export RTF Manuscript places an image"));
        const QByteArray rtf = ReadFileBytes(dir->path("man.RTF"));
        QVERIFY(rtf.contains("{\\title man}"));
        QVERIFY(rtf.contains("\\f4\\fs22 Ann Author\r\n\\par Address 1\\tab Size of Grid: 11\xD7\r\n"));
        QCOMPARE(opened, QStringList{dir->path("man.RTF")});
        QVERIFY(QGuiApplication::clipboard()->mimeData()->hasFormat("image/svg+xml"));
    }

    void clipboardCommandsCarryThePictureOrTheClueText()
    {
        act("SolutiontoClipAct")->trigger();
        const QMimeData *data = QGuiApplication::clipboard()->mimeData();
        QVERIFY(data->hasFormat("image/svg+xml") && data->data("image/svg+xml").contains("<svg"));
        QImage png = QImage::fromData(data->data("image/png"), "PNG");
        QCOMPARE(png.size(), QSize(332, 332));
        act("CluestoClipAct")->trigger();
        const QString text = QGuiApplication::clipboard()->text();
        QVERIFY(text.startsWith("ACROSS\r\n  1 Purring pet\r\n  4 \r\n"));
        QVERIFY(text.contains("\r\nDOWN\r\n  1 Feline\r\n  2 \r\n"));
    }
};

QUILLMARK_UI_TEST_MAIN(TestExports)
#include "tst_exports.moc"
