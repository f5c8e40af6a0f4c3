// Crash recovery with real processes: this program, started as a child, edits a puzzle and is
// killed; the real program, its questions answered from the environment, offers the work back.

#include "mainwindow/recovery.h"
#include "windowtest.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>

#include <cstdio>

namespace {

const char *const EditAndWait = "--edit-and-wait";
const QString ProgramName = QStringLiteral("Quillmark");

// The child: opens the puzzle, types "QX" into the first squares of its second row, and
// says "ready" once the recovery file holds the edits; then waits to be killed.
int editAndWait(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(ProgramName);
    TDialogScript dialogs;
    TProgram program;
    program.Start({QString::fromLocal8Bit(argv[2])});
    TXwdGridForm *grid = program.GridForm;
    if (!QTest::qWaitForWindowExposed(grid))
        return 3;
    QTest::mouseClick(grid, Qt::LeftButton, Qt::NoModifier, CellTopLeft(1, 2) + QPoint(4, 6));
    for (QChar ch : QStringLiteral("qx"))
        TypeChar(grid, ch);
    const QDir folder(TRecoveryStore().Folder());
    QElapsedTimer waited;
    waited.start();
    while (folder.entryList({QStringLiteral("*.qmrecovery")}, QDir::Files).isEmpty()) {
        if (waited.elapsed() > 60'000)
            return 4;
        QTest::qWait(100);
    }
    std::printf("ready\n");
    std::fflush(stdout);
    return app.exec();
}

}  // namespace

class TestRecovery : public QObject {
    Q_OBJECT

    std::unique_ptr<TScratchDir> dir;
    QString puzzle;
    QByteArray original;

    static QDir recoveryFolder() { return QDir(TRecoveryStore().Folder()); }
    static QStringList recoveryFiles(const QString &pattern = QStringLiteral("*.qmrecovery"))
    {
        return recoveryFolder().entryList({pattern}, QDir::Files);
    }

    // Edits the puzzle in a program that is then killed outright.
    void editAndKill()
    {
        QProcess editor;
        editor.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        editor.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(EditAndWait), puzzle});
        QVERIFY(editor.waitForStarted());
        QElapsedTimer waited;
        waited.start();
        while (!editor.readAllStandardOutput().contains("ready")) {
            QVERIFY2(editor.state() == QProcess::Running, "the editing program ended on its own");
            QVERIFY2(waited.elapsed() < 90'000, "no recovery file was written");
            editor.waitForReadyRead(500);
        }
        editor.kill();  // SIGKILL: nothing of the program's own runs after this
        QVERIFY(editor.waitForFinished());
        QCOMPARE(editor.exitStatus(), QProcess::CrashExit);
        QCOMPARE(recoveryFiles().size(), 1);
        QCOMPARE(ReadFileBytes(puzzle), original);
    }

    // Starts the real program with its questions answered; what it said.
    QString restart(const QString &answers)
    {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QUILLMARK_TEST_ANSWERS"), answers);
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        program.setProcessEnvironment(environment);
        program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program.start(QStringLiteral(QUILLMARK_PROGRAM), {});
        if (!program.waitForFinished(90'000))
            return QStringLiteral("(did not end)");  // killed as the object goes
        return QString::fromUtf8(program.readAllStandardOutput());
    }

    static int trashedRecoveryFiles()
    {
        const QDir trash(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/Trash/files");
        return int(trash.entryList({QStringLiteral("*.qmrecovery*")}, QDir::Files).size());
    }

private slots:
    void init()
    {
        ResetSettings();
        recoveryFolder().removeRecursively();
        dir = std::make_unique<TScratchDir>();
        puzzle = dir->path("harbour-lights.xwd");
        QVERIFY(QFile::copy(QStringLiteral(QUILLMARK_EXAMPLES "/harbour-lights.xwd"), puzzle));
        QFile::setPermissions(puzzle, QFile::ReadOwner | QFile::WriteOwner);
        original = ReadFileBytes(puzzle);
    }

    void yesBringsTheKilledProgramsEditsBack()
    {
        editAndKill();
        // Yes to the recovery, then Yes to saving the changes as the program closes.
        const QString said = restart(QStringLiteral("yes,yes"));
        QVERIFY2(said.contains(QStringLiteral("harbour-lights.xwd")), qPrintable(said));
        QVERIFY2(said.contains(QStringLiteral("Recover")), qPrintable(said));
        QVERIFY2(said.contains(QStringLiteral("Puzzle has changed. Save current changes? -> yes")), qPrintable(said));

        const TPuzzle saved = DecodePuzzle(ReadFileBytes(puzzle));
        const TPuzzle before = DecodePuzzle(original);
        QCOMPARE(char(saved.Cells(1, 2)), 'Q');
        QCOMPARE(char(saved.Cells(2, 2)), 'X');
        QCOMPARE(char(saved.Cells(3, 2)), char(before.Cells(3, 2)));
        QVERIFY(recoveryFiles().isEmpty());
    }

    void noLeavesThePuzzleAsSavedAndTrashesTheFile()
    {
        const int trashedBefore = trashedRecoveryFiles();
        editAndKill();
        const QString said = restart(QStringLiteral("no"));
        QVERIFY2(said.contains(QStringLiteral("-> no")), qPrintable(said));
        QCOMPARE(ReadFileBytes(puzzle), original);
        QVERIFY(recoveryFiles().isEmpty());
        QCOMPARE(trashedRecoveryFiles(), trashedBefore + 1);

        QVERIFY2(!restart(QString()).contains(QStringLiteral("ask:")), "nothing is offered a second time");
    }

    void aDamagedFileIsReportedAndSetAside()
    {
        QVERIFY(recoveryFolder().mkpath("."));
        QByteArray bytes = EncodeRecovery({DecodePuzzle(original), puzzle, ConstructMode, QDateTime::currentDateTime()});
        bytes.chop(1);
        QVERIFY(WriteFileBytes(recoveryFolder().filePath("20250101-120000-7.qmrecovery"), bytes));

        const QString said = restart(QString());
        QVERIFY2(said.startsWith(QStringLiteral("error: ")), qPrintable(said));
        QVERIFY2(!said.contains(QStringLiteral("ask:")), qPrintable(said));
        QVERIFY(recoveryFiles().isEmpty());
        QCOMPARE(recoveryFiles(QStringLiteral("*.damaged")).size(), 1);
        QCOMPARE(ReadFileBytes(puzzle), original);
    }
};

int main(int argc, char *argv[])
{
    // The child keeps the parent's folders, which reach it through the environment.
    if (argc == 3 && qstrcmp(argv[1], EditAndWait) == 0)
        return editAndWait(argc, argv);
    IsolateUserFolders();
    QApplication app(argc, argv);
    QApplication::setApplicationName(ProgramName);
    TestRecovery test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_recovery.moc"
