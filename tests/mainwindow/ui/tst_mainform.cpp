// The main window: the puzzle's lifecycle, its undo, its tools and its help.

#include "clues/ui/tautoclueform.h"
#include "mainwindow/tlaunchmodule.h"
#include "mainwindow/ui/thelpform.h"
#include "mainwindow/ui/tinfowin.h"
#include "mainwindow/ui/tsoundfx.h"
#include "settings/screenfit.h"
#include "windowtest.h"
#include "views/ui/tcluesform.h"

#include <QFileInfo>
#include <QHelpContentModel>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRegularExpression>
#include <QTextBrowser>

#include <csignal>

namespace {

const char *const Clued =
    "size 11\nbyline Ann Example\nlanguage 3\ngrid\n"
    "CAT#DOG#EEL\n...........\n...........\n...........\n...........\n"
    "...........\n...........\n...........\n...........\n...........\n.........#.\n"
    "clues\n1A Purring pet\n4A Barking pet\n";

// Full, so that Autoclue opens without a question; (1, 1) starts 1A and 1D, whose clues a
// black square there (and at its partner (11, 11)) takes away.
const char *const Full = "size 11\ngrid\n"
                         "ABCDEFGHIJK\nBCDEFGHIJKL\nCDEFGHIJKLM\nDEFGHIJKLMN\nEFGHIJKLMNO\nFGHIJKLMNOP\n"
                         "GHIJKLMNOPQ\nHIJKLMNOPQR\nIJKLMNOPQRS\nJKLMNOPQRST\nKLMNOPQRSTU\n"
                         "clues\n1A Alphabet\n1D Also the alphabet\n";

}  // namespace

class TestMainForm : public TProgramTest {
    Q_OBJECT

    QString makePuzzle(const QString &name, const char *text = Clued) const { return writePuzzle(name, text); }
    void restart(const QStringList &arguments)
    {
        program.reset();
        program = std::make_unique<TProgram>();
        program->Start(arguments);
    }

    QString undoText() const { return act("UndoAct")->text(); }
    QString redoText() const { return act("RedoAct")->text(); }
    void openFull()
    {
        openPuzzle(writePuzzle("full.xwd", Full));
        QVERIFY(QTest::qWaitForWindowExposed(grid()));
    }
    void click(int c, int r, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(grid(), button, Qt::NoModifier, CellTopLeft(c, r) + QPoint(4, 6));
    }
    void type(QChar ch) { TypeChar(grid(), ch); }
    static void ctrlZ(QWidget *window) { QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier); }
    QString specifications() const { return main()->DataMemo->toPlainText(); }

    // A tool that notes each start in its log and then keeps running.
    QString makeTool(const QString &name)
    {
        const QString path = dir->path(name);
        WriteFileBytes(path, QStringLiteral("#!/bin/sh\necho started >> '%1.log'\nexec sleep 30\n").arg(path).toUtf8());
        QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        return path;
    }

    static int starts(const QString &tool) { return int(ReadFileBytes(tool + ".log").count("started")); }

private slots:
    // Tools the test started end with it.
    void cleanup()
    {
        for (int slot = 0; slot < 5; ++slot)
            if (const qint64 pid = LaunchModule ? LaunchModule->RunningProcess(slot) : 0)
                ::kill(pid_t(pid), SIGTERM);
        tearDownWindowTest();
    }

    void newPuzzleIsWrittenAtOnceAndOpenedForConstructing()
    {
        const QString path = dir->path("fresh.xwd");
        (*dialogs)->Files.append(TFileChoice{path, 1});
        act("New15Act")->trigger();

        QCOMPARE((*dialogs)->FileRequests.size(), 1);
        const TFileRequest request = (*dialogs)->FileRequests.first();
        QCOMPARE(request.Title, QStringLiteral("New 15x puzzle for constructing"));
        QCOMPARE(request.FileName, QStringLiteral("untitled.xwd"));
        QCOMPARE(ReadFileBytes(path).size(), PuzzleFileSize);
        QCOMPARE(int(PuzzleMode), int(ConstructMode));
        QCOMPARE(CurrentPuzzlePath, path);
        QCOMPARE(main()->ModeLabel->text(), QStringLiteral("Specifications"));
        QVERIFY(program->GridForm->isVisible());
        QCOMPARE(program->GridForm->windowTitle(), QStringLiteral("FRESH"));
        QVERIFY(!program->CluesForm->isVisible() && main()->SaveAct->isEnabled());

        // A second New with unsaved changes asks first, with a sound; Cancel stays, No goes on.
        Puzzle.Cells(1, 1) = 'Q';
        PuzzleChanged = true;
        (*dialogs)->Answers.append(TAnswer::Cancel);
        act("New11Act")->trigger();
        QCOMPARE((*dialogs)->Questions, QStringList{"Puzzle has changed. Save current changes? [YNC]"});
        QCOMPARE(program->SoundFX->Played(), QList<int>{1});
        QCOMPARE(int(Puzzle.Size), 15);  // the other answers are the session's test
    }

    void aForeignExtensionIsRefusedWithoutWritingAndAWrongFileKeepsThePreviousPuzzle()
    {
        (*dialogs)->Files.append(TFileChoice{dir->path("puzzle.txt"), 1});
        act("New13Act")->trigger();
        QCOMPARE((*dialogs)->Errors, QStringList{"Not a valid Quillmark puzzle."});
        QVERIFY(!QFile::exists(dir->path("puzzle.txt")) && CurrentPuzzlePath.isEmpty());
        QCOMPARE(program->SoundFX->Played(), QList<int>{7});

        const QString good = makePuzzle("good.xwd");
        openPuzzle(good, false);
        // A picture renamed; every other refusal is the file's own test, with the same message.
        const QByteArray picture = QByteArray("\x89PNG\r\n\x1a\n").leftJustified(PuzzleFileSize + 99, '\xff');
        QVERIFY(WriteFileBytes(dir->path("picture.xwd"), picture));
        openPuzzle(dir->path("picture.xwd"), true);
        QCOMPARE((*dialogs)->Errors.last(), QStringLiteral("Puzzle not in Quillmark format or is corrupt."));
        QCOMPARE(CurrentPuzzlePath, good);
        QCOMPARE(int(PuzzleMode), int(ConstructMode));
        QCOMPARE(Puzzle.GetWord(1, 1, 'a'), QByteArray("CAT"));
        QCOMPARE(ReadFileBytes(dir->path("picture.xwd")), picture);
    }

    void aVersion5FileIsConvertedOnDisk()
    {
        const QString path = dir->path("old.xwd");
        QVERIFY(WriteFileBytes(path, EncodePuzzle5(PuzzleFromText(QString::fromUtf8(Clued)))));
        openPuzzle(path, true);
        QVERIFY((*dialogs)->Errors.isEmpty());
        QCOMPARE(int(PuzzleMode), int(SolveMode));
        QVERIFY(program->CluesForm->isVisible());
        QCOMPARE(main()->Byline->text(), QStringLiteral("by Ann Example"));
        QCOMPARE(main()->ModeLabel->text(), QString());

        // A word without a clue still names its direction on the mode line.
        click(1, 2);
        QCOMPARE(main()->ModeLabel->text(), QStringLiteral("Across Clue"));
        click(1, 2, Qt::RightButton);
        QCOMPARE(main()->ModeLabel->text(), QStringLiteral("Down Clue"));
    }

    void aLongBylineShowsWholeInItsPanelWhileSolving()
    {
        const QByteArray wide = QByteArray(Clued).replace("Ann Example", QByteArray(60, 'W'));
        openPuzzle(makePuzzle("wide.xwd", wide.constData()), true);
        QCoreApplication::processEvents();
        const QLabel *byline = main()->Byline;
        const int room = byline->contentsRect().width() - byline->indent();
        const int lines = (byline->fontMetrics().horizontalAdvance(byline->text()) + room - 1) / room;
        QVERIFY(lines > 1 && byline->contentsRect().height() >= lines * byline->fontMetrics().height());
    }

    void historyKeepsThreeEntriesWithTheirModes()
    {
        const QString a = makePuzzle("alpha.xwd"), b = makePuzzle("beta.xwd"), c = makePuzzle("gamma.xwd");
        openPuzzle(a, false);
        openPuzzle(b, true);
        openPuzzle(c, false);
        QCOMPARE(ReadText("HistoryPuzzle1"), c + " /c");
        QCOMPARE(ReadText("HistoryPuzzle2"), b + " /s");
        QCOMPARE(ReadText("HistoryPuzzle3"), a + " /c");
        QVERIFY(main()->History3Act->isVisible());  // the captions are the history's test

        // The open puzzle in the same mode: nothing happens.
        Puzzle.Cells(2, 2) = 'Z';
        main()->History1Act->trigger();
        QCOMPARE(Puzzle.Cells(2, 2), uint8_t('Z'));

        // In the other mode it is opened again.
        main()->History2Act->trigger();
        QCOMPARE(CurrentPuzzlePath, b);
        QCOMPARE(int(PuzzleMode), int(SolveMode));
        QCOMPARE(ReadText("HistoryPuzzle1"), b + " /s");

        QFile::remove(a);
        main()->History3Act->trigger();
        QCOMPARE((*dialogs)->Errors, QStringList{"Unable to locate this puzzle from path in history list."});
        QCOMPARE(CurrentPuzzlePath, b);
    }

    void startUpOffersThePreviousRunsHistory()
    {
        const QString a = makePuzzle("alpha.xwd");
        WriteSetting("CurrentPuzzle", a);
        WriteSetting("HistoryPuzzle1", a + " /s");
        restart({});
        QVERIFY(CurrentPuzzlePath.isEmpty() && !program->GridForm->isVisible());
        QCOMPARE(main()->History1Act->text(), QStringLiteral("&1 ALPHA"));
        QVERIFY(main()->History1Act->isVisible() && !main()->History2Act->isVisible());
        QVERIFY(!main()->SaveAct->isEnabled());

        restart({a, "-s"});
        QCOMPARE(int(PuzzleMode), int(SolveMode));
        QCOMPARE(CurrentPuzzlePath, a);

        // A relative path is kept absolute, so the history finds it from anywhere.
        const QString cwd = QDir::currentPath();
        QDir::setCurrent(QFileInfo(a).absolutePath());
        restart({QStringLiteral("alpha.xwd")});
        QDir::setCurrent(cwd);
        QCOMPARE(CurrentPuzzlePath, a);
        QCOMPARE(ReadText("HistoryPuzzle1"), a + " /c");

        // A wrong file or a malformed setting never keeps the program from starting.
        WriteSetting("PlaySounds", QStringLiteral("abc"));
        TPuzzle oversized = PuzzleFromText(QString::fromUtf8(Clued));
        oversized.Size = 3000;
        QVERIFY(WriteFileBytes(dir->path("oversized.xwd"), EncodePuzzle(oversized)));
        restart({dir->path("oversized.xwd")});
        QCOMPARE((*dialogs)->Errors, QStringList{"Puzzle not in Quillmark format or is corrupt."});
        QVERIFY(CurrentPuzzlePath.isEmpty() && main()->isVisible());
        QCOMPARE(program->SoundFX->Played(), QList<int>{7});  // sounds stay on by default
    }

    // What each command writes is the session's test; here the window's part in them.
    void saveAsVersion5KeepsTheWindowAndCopyGridAsTakesTheSettings()
    {
        WriteSetting("Name", QStringLiteral("New Setter"));
        WriteSetting("GridLanguage", 5);
        openPuzzle(makePuzzle("alpha.xwd"), false);
        PuzzleChanged = true;
        const QString history = ReadText("HistoryPuzzle1");
        (*dialogs)->Files.append(TFileChoice{dir->path("five"), 2});
        main()->SavePuzzleAsAct->trigger();
        QVERIFY(QFile::exists(dir->path("five.xwd")));
        QCOMPARE(grid()->windowTitle(), QStringLiteral("ALPHA"));
        QCOMPARE(ReadText("HistoryPuzzle1"), history);
        QVERIFY(PuzzleChanged);

        (*dialogs)->Files.append(TFileChoice{dir->path("copy.xwd"), 1});
        main()->CopyGridAsAct->trigger();
        QCOMPARE((*dialogs)->FileRequests.last().Title, QStringLiteral("Copy grid as..."));
        const TPuzzle copy = DecodePuzzle(ReadFileBytes(dir->path("copy.xwd")));
        QCOMPARE(copy.Byline.text(), QByteArray("New Setter"));
        QCOMPARE(int(copy.Language), 5);
        QCOMPARE(grid()->windowTitle(), QStringLiteral("COPY"));
    }

    void saveFromTheMenuOrWithCtrlSInTheGridAndRevert()
    {
        const QString a = makePuzzle("alpha.xwd");
        openPuzzle(a, false);
        Puzzle.Cells(2, 2) = 'Z';
        PuzzleChanged = true;
        main()->SaveAct->trigger();
        QVERIFY(!PuzzleChanged);
        QCOMPARE(DecodePuzzle(ReadFileBytes(a)).Cells(2, 2), uint8_t('Z'));
        // The progress window ran its ten steps and went away.
        QCOMPARE(program->InfoWin->findChild<QProgressBar *>("ProgBar")->value(), 10);
        QCOMPARE(program->InfoWin->findChild<QLabel *>("Panel")->text(), QStringLiteral("Saving puzzle ...    "));
        QVERIFY(!program->InfoWin->isVisible());

        Puzzle.Cells(3, 3) = 'K';
        PuzzleChanged = true;
        program->GridForm->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(program->GridForm));
        QTest::keyClick(program->GridForm, Qt::Key_S, Qt::ControlModifier);
        QVERIFY(!PuzzleChanged);
        QCOMPARE(DecodePuzzle(ReadFileBytes(a)).Cells(3, 3), uint8_t('K'));

        Puzzle.Cells(2, 2) = 'Y';
        PuzzleChanged = true;
        (*dialogs)->Answers.append(TAnswer::Yes);
        main()->RevertToSavedAct->trigger();
        QCOMPARE((*dialogs)->Questions.last(), QStringLiteral("Discard all recent changes and return to last saved puzzle? [YN]"));
        QCOMPARE(Puzzle.Cells(2, 2), uint8_t('Z'));
        QVERIFY(!PuzzleChanged);
    }

    // When a solved puzzle saves unasked, or an imported one asks, is the session's test.
    void aSaveFallsBackWhereNoNewFileCanBeMadeAndClosingAsksWhenConstructing()
    {
        const QString b = makePuzzle("beta.xwd");
        openPuzzle(b, false);

        // A write-fallback keeps the save alive in a folder that takes no new files.
        QVERIFY(QFile::setPermissions(dir->path(QString()), QFileDevice::ReadOwner | QFileDevice::ExeOwner));
        PuzzleChanged = true;
        main()->SaveAct->trigger();
        QVERIFY(QFile::setPermissions(dir->path(QString()), QFileDevice::ReadOwner | QFileDevice::WriteOwner
                                                                | QFileDevice::ExeOwner));
        QVERIFY((*dialogs)->Errors.isEmpty() && !PuzzleChanged);

        // (Cancel keeping the window open is the failed save's test below.)
        Puzzle.Cells(5, 5) = 'W';
        PuzzleChanged = true;
        (*dialogs)->Answers.append(TAnswer::Yes);
        QVERIFY(main()->close());
        QCOMPARE(DecodePuzzle(ReadFileBytes(b)).Cells(5, 5), uint8_t('W'));
        QVERIFY(!program->GridForm->isVisible());
    }

    void aFailedSaveWhileSolvingAsksAndLetsTheUserLeave()
    {
        const QString leave = QStringLiteral("!The changes to the puzzle were not saved. Go on without saving them? [YN]");
        QDir(dir->path(QString())).mkdir("gone");
        openPuzzle(makePuzzle("gone/solving.xwd"), true);
        Puzzle.Entries(1, 2) = 'R';
        PuzzleChanged = true;
        QDir(dir->path("gone")).removeRecursively();

        (*dialogs)->Answers = {TAnswer::No};
        QVERIFY(!main()->close());
        QCOMPARE((*dialogs)->Errors.size(), 1);
        QVERIFY((*dialogs)->Errors.first().startsWith("The puzzle could not be saved."));
        QCOMPARE((*dialogs)->Questions, QStringList{leave});
        QVERIFY(PuzzleChanged);
        // The grid and clue windows close only with the program.
        QVERIFY(!program->GridForm->close() && !program->CluesForm->close());

        (*dialogs)->Answers = {TAnswer::Yes};
        QVERIFY(main()->close());
        QCOMPARE((*dialogs)->Questions, QStringList({leave, leave}));
        QVERIFY(!program->GridForm->isVisible());
    }

    void symmetryCyclesWhileDesigning()
    {
        openPuzzle(makePuzzle("alpha.xwd"), false);
        QCOMPARE(program->GridForm->Editor.Symmetry, 1);
        QVERIFY(!main()->SymmetryBtn->isEnabled());
        QCOMPARE(main()->SymmetryBtn->toolTip(), QStringLiteral("DIAGONAL symmetry"));

        QTest::mouseClick(main()->SquaresBtn, Qt::LeftButton);
        QCOMPARE(int(PuzzleMode), int(DesignMode));
        QVERIFY(main()->SymmetryBtn->isEnabled());
        QTest::mouseClick(main()->SymmetryBtn, Qt::LeftButton);
        QCOMPARE(main()->SymmetryBtn->toolTip(), QStringLiteral("HORIZONTAL symmetry"));
        QCOMPARE(program->GridForm->Editor.Symmetry, 2);

        QTest::mouseClick(main()->LettersBtn, Qt::LeftButton);
        QCOMPARE(int(PuzzleMode), int(ConstructMode));
        QVERIFY(!main()->SymmetryBtn->isEnabled());

        QTest::mouseClick(main()->MouseBtn, Qt::LeftButton);
        QVERIFY(program->GridForm->Editor.MouseSwapped);
    }

    // Writing the bounds is the preferences' test (Save All Settings).
    void arrangingTakesTheStoredBoundsOrTheSmallestWindow()
    {
        openPuzzle(makePuzzle("alpha.xwd"), false);
        WriteSetting("ScreenBoundsMain", QStringLiteral("10,20,500,350"));
        main()->AutoArrangeAct->trigger();
        QCOMPARE(main()->size(), QSize(500, 350));

        WriteSetting("ScreenBoundsMain", QString());
        main()->AutoArrangeAct->trigger();
        QCOMPARE(main()->size(), main()->minimumSize());
        QVERIFY(main()->minimumWidth() >= 270);
    }

    // Settings saved on another screen, or edited by hand, never put a window where the user
    // cannot see or reach it: the program starts with each and its windows are on the screen.
    void windowsStayOnTheScreen_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("main window bounds at the limits of a number")
            << "ScreenBoundsMain" << QVariant(QStringLiteral("2147483647,2147483647,2147483647,2147483647"));
        QTest::newRow("grid window far past the left edge") << "ScreenBoundsGrid" << QVariant(QStringLiteral("-5000,-5000,300,300"));
        QTest::newRow("square size of the largest number") << "ScreenSquare" << QVariant(2147483647);
        QTest::newRow("status font of 700 points") << "StatusFontSize" << QVariant(700);
        QTest::newRow("grid letters of 700 points") << "FontSize" << QVariant(700);
    }

    void windowsStayOnTheScreen()
    {
        QFETCH(QString, name);
        QFETCH(QVariant, value);
        program.reset();  // the run the test began with writes its own bounds as it ends
        WriteSetting(name, value);
        TPuzzle p;
        p.ClearPuzzle(23, 'N', "A. Setter", 0);
        const QString path = dir->path("big.xwd");
        WriteFileAtomically(path, EncodePuzzle(p));
        restart({path});
        QVERIFY(QTest::qWaitForWindowExposed(main()));
        QVERIFY(QTest::qWaitForWindowExposed(grid()));

        const QRect screen = main()->screen()->availableGeometry();
        const QMenuBar *menus = main()->menuBar();
        const QRect menuBar(menus->mapToGlobal(QPoint(0, 0)), menus->size());
        const auto at = [](const QRect &r) { return QStringLiteral(" at %1,%2 %3x%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height()); };
        QVERIFY2(screen.contains(menuBar), qPrintable("menu bar" + at(menuBar)));
        QVERIFY2(screen.contains(grid()->frameGeometry()), qPrintable("grid window" + at(grid()->frameGeometry())));
        QVERIFY(SquareSize >= 1);
        QCOMPARE(grid()->width(), GridWindowExtent(23, SquareSize));
        QVERIFY(grid()->font().pointSize() <= MaxFontPointSize);
        QVERIFY(main()->frameGeometry().height() <= screen.height());
    }

    // Undo and redo as the user meets them: the Edit menu, its captions, Ctrl+Z from the grid,
    // every window showing the puzzle as it now is, and text fields keeping their own keys.
    void theEditMenuFollowsPuzzleAndEveryTitleFitsTheMenuLine()
    {
        QMenu *edit = main()->Menu(QStringLiteral("EditMenu"));
        QVERIFY(edit);
        QVERIFY2(!edit->menuAction()->isVisible(), "no puzzle, no Edit: the logo-wide window keeps its titles");
        openFull();
        QCOMPARE(undoText(), QStringLiteral("&Undo"));
        QVERIFY(!act("UndoAct")->isEnabled() && !act("RedoAct")->isEnabled());

        QMenuBar *bar = main()->menuBar();
        QStringList titles;
        for (QAction *title : bar->actions()) {
            if (!title->isVisible())
                continue;
            titles.append(title->text());
            const QRect at = bar->actionGeometry(title);
            QVERIFY2(!at.isEmpty() && bar->rect().contains(at), qPrintable(title->text() + " is cut off"));
        }
        QCOMPARE(titles, QStringList({"&Puzzle", "&Edit", "&Options", "&Grid", "T&ools", "&Help"}));
    }

    void ctrlZTakesBackALetterABlackPairAndAFlip()
    {
        openFull();
        const QByteArray saved = EncodePuzzle(Puzzle);
        TPaintCounter paints(grid());

        click(4, 3);
        type(u'z');
        QCOMPARE(char(Puzzle.Cells(4, 3)), 'Z');
        QCOMPARE(undoText(), QStringLiteral("&Undo Typing"));
        click(9, 9);
        paints.Paints = 0;
        ctrlZ(grid());
        QCOMPARE(char(Puzzle.Cells(4, 3)), 'F');
        QTRY_VERIFY(paints.Paints > 0);
        QCOMPARE(CellAt(grid()->Editor.CursorPos), QPoint(4, 3));
        QCOMPARE(redoText(), QStringLiteral("&Redo Typing"));
        QVERIFY2(!PuzzleChanged, "back to the saved puzzle");

        QTest::mouseClick(main()->SquaresBtn, Qt::LeftButton);
        const QString before = specifications();
        click(1, 1);
        QVERIFY(Puzzle.isBlock(1, 1) && Puzzle.isBlock(11, 11) && Puzzle.clue(1).isEmpty());
        QCOMPARE(undoText(), QStringLiteral("&Undo Black Square"));
        QVERIFY(!act("RedoAct")->isEnabled());
        main()->UpdateBtn->click();
        QVERIFY(specifications() != before);
        ctrlZ(grid());
        QVERIFY(!Puzzle.isBlock(1, 1) && !Puzzle.isBlock(11, 11));
        QCOMPARE(Puzzle.clue(1), QByteArray("Alphabet"));
        QCOMPARE(specifications(), before);

        QTest::mouseClick(main()->LettersBtn, Qt::LeftButton);
        (*dialogs)->Answers = {TAnswer::Yes};
        act("FlipAct")->trigger();
        QCOMPARE(char(Puzzle.Cells(1, 1)), 'K');
        QCOMPARE(undoText(), QStringLiteral("&Undo Flip"));
        ctrlZ(main());
        QCOMPARE(EncodePuzzle(Puzzle), saved);
        QCOMPARE(redoText(), QStringLiteral("&Redo Flip"));
        QTest::keyClick(grid(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(char(Puzzle.Cells(1, 1)), 'K');
        act("UndoAct")->trigger();

        (*dialogs)->Questions.clear();
        QVERIFY(main()->close());
        QVERIFY2((*dialogs)->Questions.isEmpty(), "undone to the saved puzzle: nothing to ask");
    }

    void autoclueKeepsCtrlYAndItsFieldItsOwnCtrlZ()
    {
        openFull();
        click(4, 3);
        type(u'z');
        AutoclueBtnClick(main());
        QLineEdit *field = AutoclueForm->DefEdit;
        QVERIFY(AutoclueForm->isVisible());
        QCOMPARE(field->text(), QStringLiteral("Alphabet"));
        QTest::keyClicks(field, QStringLiteral("s"));
        QCOMPARE(Puzzle.clue(1), QByteArray("Alphabets"));
        QCOMPARE(undoText(), QStringLiteral("&Undo Clue"));

        // The field's own undo: the typed "s" goes, the letter in the grid stays.
        ctrlZ(field);
        QCOMPARE(field->text(), QStringLiteral("Alphabet"));
        QCOMPARE(char(Puzzle.Cells(4, 3)), 'Z');

        QTest::keyClick(field, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(Puzzle.clue(1), QByteArray());
        QCOMPARE(field->text(), QString());

        // Edit > Undo brings the emptied clue back, and Autoclue shows it.
        act("UndoAct")->trigger();
        QCOMPARE(Puzzle.clue(1), QByteArray("Alphabet"));
        QCOMPARE(field->text(), QStringLiteral("Alphabet"));
        QCOMPARE(char(Puzzle.Cells(4, 3)), 'Z');
    }

    // The Tools menu starting real programs, the help window reading the collection the build
    // made, and the about box.
    void aToolIsAvailableExactlyWhenItsPathIsSetAndAPathToNothingIsReportedByName()
    {
        auto *button = program->MainForm->findChild<QToolButton *>("DictBtn");
        QVERIFY(button && !act("DictionaryAct")->isEnabled() && !button->isEnabled());

        WriteSetting("DictPath", "/opt/dict");
        WriteSetting("ThesPath", dir->path("missing"));
        WriteSetting("ScraPath", dir->path("missing too"));
        program->MainForm->ApplyPreferences(false, 0);
        QVERIFY(act("DictionaryAct")->isEnabled() && button->isEnabled());
        QCOMPARE(button->toolTip(), QStringLiteral("Open dictionary"));
        QVERIFY(!act("CluevaultAct")->isEnabled());
        act("ThesaurusAct")->trigger();
        act("ScratchpadAct")->trigger();
        QCOMPARE((*dialogs)->Errors, QStringList({"Thesaurus has not been properly configured.",
                                                  "Scratchpad has not been properly configured."}));
    }

    void aToolStartsOnceWithItsArgumentsAndASecondChoiceDoesNotStartAnotherCopy()
    {
        const QString tool = makeTool("dict tool");
        WriteSetting("DictPath", tool);
        program->MainForm->ApplyPreferences(false, 0);
        act("DictionaryAct")->trigger();
        QTRY_COMPARE(starts(tool), 1);
        program->MainForm->findChild<QToolButton *>("DictBtn")->click();
        act("DictionaryAct")->trigger();
        QTest::qWait(300);
        QCOMPARE(starts(tool), 1);
        QVERIFY((*dialogs)->Errors.isEmpty());

        // Once it has ended, the next choice starts it again.
        const qint64 pid = LaunchModule->RunningProcess(0);
        QVERIFY(pid > 0);
        ::kill(pid_t(pid), SIGTERM);
        QTRY_COMPARE(LaunchModule->RunningProcess(0), 0);
        act("DictionaryAct")->trigger();
        QTRY_COMPARE(starts(tool), 2);

        // A setting is a whole command line (how it splits is the companion tools' test).
        const QString thes = makeTool("thes");
        WriteFileBytes(thes, QStringLiteral("#!/bin/sh\necho started \"$1\" >> '%1.log'\nexec sleep 30\n").arg(thes).toUtf8());
        WriteSetting("ThesPath", thes + " \"big words\"");
        program->MainForm->ApplyPreferences(false, 0);
        act("ThesaurusAct")->trigger();
        QTRY_VERIFY(ReadFileBytes(thes + ".log").contains("started big words"));
        QVERIFY((*dialogs)->Errors.isEmpty());
    }


    void helpLinksLeadToItsPagesAndTheIndexFindsOurKeywords()
    {
        QVERIFY2(QFileInfo::exists(THelpForm::CollectionFile()), qPrintable(THelpForm::CollectionFile()));
        act("HelpContentsAct")->trigger();
        auto *help = program->MainForm->findChild<THelpForm *>();
        QVERIFY(help && help->isVisible());
        QCOMPARE(help->Tabs->currentIndex(), 0);
        QHelpContentModel *contents = help->Engine->contentModel();
        QTRY_VERIFY(contents->rowCount() > 0);
        QVERIFY(contents->rowCount(contents->index(0, 0)) > 10);
        // Every link of every page leads to a page of the collection.
        const QList<QUrl> pages = help->Engine->files(QStringLiteral("org.quillmark.help"), QString(), QStringLiteral("html"));
        QVERIFY(pages.size() > 10);
        const QRegularExpression href(QStringLiteral("(?:href|src)=\"([^\"#]+)[^\"]*\""));
        for (const QUrl &page : pages) {
            const QString html = QString::fromUtf8(help->Engine->fileData(page));
            for (auto m = href.globalMatch(html); m.hasNext();) {
                const QUrl target = page.resolved(QUrl(m.next().captured(1)));
                QVERIFY2(!help->Engine->fileData(target).isEmpty(),
                         qPrintable(page.fileName() + QStringLiteral(" links to a missing ") + target.toString()));
            }
        }
        QTRY_VERIFY(help->Browser->toPlainText().contains("Quillmark builds and solves crossword puzzles"));

        act("HelpKeywordAct")->trigger();
        QCOMPARE(help->Tabs->currentIndex(), 1);
        QHelpIndexWidget *index = help->Engine->indexWidget();
        QTRY_VERIFY(index->model()->rowCount() > 0);
        const auto lookUp = [&](const char *keyword) {
            help->IndexEdit->setText(keyword);
            const bool one = QTest::qWaitFor([&] { return index->model()->rowCount() == 1; });
            index->setCurrentIndex(index->model()->index(0, 0));
            index->activateCurrentItem();
            return one ? index->model()->index(0, 0).data().toString() : QString();
        };
        QCOMPARE(lookUp("Symm"), QStringLiteral("Symmetry"));
        QTRY_COMPARE(help->Browser->source().fileName(), QStringLiteral("constructing.html"));
        QVERIFY(help->Browser->toPlainText().contains("diagonal symmetry"));

        // Back, Forward and Home walk the pages seen.
        help->BackBtn->click();
        QCOMPARE(help->Browser->source().fileName(), QStringLiteral("index.html"));
        help->ForwardBtn->click();
        QCOMPARE(help->Browser->source().fileName(), QStringLiteral("constructing.html"));
        help->HomeBtn->click();
        QCOMPARE(help->Browser->source().fileName(), QStringLiteral("index.html"));

        // The help window goes with the main window.
        program->MainForm->close();
        QVERIFY(!help->isVisible());
    }
};

QUILLMARK_UI_TEST_MAIN(TestMainForm)
#include "tst_mainform.moc"
