// The Autoclue window in the whole program, driven with keys and clicks, its questions and
// warnings answered by script.

#include "clues/ui/tautoclueform.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/tprogram.h"
#include "mainwindow/ui/tsoundfx.h"
#include "mainwindow/ui/txwdmainform.h"
#include "model/cp1252.h"
#include "scripteddialogs.h"
#include "settings/txwdprocs.h"
#include "uitestmain.h"
#include "views/gridgeometry.h"
#include "views/ui/txwdgridform.h"

#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QToolBar>
#include <QToolButton>

#include <memory>

namespace {

// Full, no clues yet. 1A and 1D share the top-left square; the last word is 7A.
const char *const Full =
    "size 5\ngrid\n"
    "ABC#D\nEFG#H\nIJKLM\nN#O#P\nQRS#T\n";

// AB across at (1, 1) and again at (4, 3); XYBWZ down at (5, 1).
const char *const Repeated = "size 5\ngrid\nAB#CX\n##Q#Y\nRS#AB\nTU#VW\nZZ#ZZ\n";

// Black in every fourth column and row: 216 words.
QString manyWords()
{
    QString text = QStringLiteral("size 23\ngrid\n");
    for (int r = 1; r <= 23; ++r) {
        for (int c = 1; c <= 23; ++c)
            text += c % 4 == 0 || r % 4 == 0 ? u'#' : QChar(u'A' + (c * 7 + r) % 26);
        text += u'\n';
    }
    return text;
}

QPoint at(int c, int r)
{
    return {(c - 1) * SquareSize + 4, (r - 1) * SquareSize + 6};
}

}  // namespace

class TestAutoclueForm : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TDialogScript> dialogs;
    std::unique_ptr<TProgram> program;
    TAutoclueForm *form = nullptr;

    void start(const QString &puzzle)
    {
        Puzzle = PuzzleFrom(puzzle);
        PuzzleMode = ConstructMode;
        program = std::make_unique<TProgram>();
        program->Start({});
        if (!AutoclueForm)
            new TAutoclueForm(program->MainForm);
        form = AutoclueForm;
    }
    void start(const char *puzzle) { start(QString::fromLatin1(puzzle)); }

    void openAutoclue()
    {
        AutoclueBtnClick(program->MainForm);
        QVERIFY(form->isVisible());
    }
    QString numLbl() const { return form->NumLbl->text(); }
    QString clueLbl() const { return form->ClueLbl->text(); }
    QList<int> sounds() const { return program->SoundFX->Played(); }

private slots:
    void init()
    {
        ResetSettings();
        WriteSetting(QStringLiteral("ScreenSquare"), 30);
        PuzzleChanged = false;
        dialogs = std::make_unique<TDialogScript>();
    }

    void cleanup()
    {
        program.reset();
        dialogs.reset();
        form = nullptr;
        ResetSettings();
    }

    void opensOnTheFirstWordWithItsControls()
    {
        start(Full);
        SetSettingsPath(QString::fromLatin1(ToolsSettingsPath));
        WriteSetting(QStringLiteral("BankDataFile"), QStringLiteral("C:/clues.dat"));
        SetSettingsPath(QString::fromLatin1(DefaultSettingsPath));
        openAutoclue();
        QVERIFY2((*dialogs)->Questions.isEmpty(), "a full grid opens at once");

        QCOMPARE(form->windowTitle(), QStringLiteral("Autoclue"));
        QVERIFY(form->windowFlags() & Qt::Tool);
        QCOMPARE(clueLbl(), QStringLiteral("ABC"));
        QCOMPARE(numLbl(), QStringLiteral("1  Across"));
        QCOMPARE(form->DefEdit->maxLength(), 80);
        QCOMPARE(form->DefEdit->contextMenuPolicy(), Qt::PreventContextMenu);
        QCOMPARE(form->OkBtn->text(), QStringLiteral("&Close"));
        for (const char *name : {"PrevBtn", "NextBtn", "BlankBtn", "InsertBtn", "CharsBtn", "ListDefsBtn"})
            QVERIFY2(form->ToolBar1->findChild<QToolButton *>(QString::fromLatin1(name)), name);
        QCOMPARE(form->NextBtn->toolTip(), QStringLiteral("Next definition"));
        QVERIFY(!form->CharsBtn->isEnabled());
        QVERIFY(!form->ListDefsBtn->isEnabled());
        QVERIFY(form->findChild<QToolBar *>(QStringLiteral("ClueBar"))->isVisible());
        QVERIFY(!form->CountLbl->isVisible());
        QVERIFY(!form->CtBtn->isVisible());
        QVERIFY(form->minimumHeight() == form->maximumHeight());

        // From here on the program's settings live under the Quillmark6 key.
        QCOMPARE(SettingsPath(), QStringLiteral("Software\\Quillmark32\\Quillmark6"));

        // Placed by the screen: a quarter in, half as wide, centred in height.
        const QRect screen = form->screen()->geometry();
        QCOMPARE(form->x(), screen.width() / 4);
        QCOMPARE(form->width(), screen.width() / 2);
        QCOMPARE(form->y(), (screen.height() - form->height()) / 2);
        // The Close button ends with the clue box, on the tool bar row.
        QCOMPARE(form->OkBtn->geometry().right(), form->DefEdit->geometry().right());
        QVERIFY(form->OkBtn->y() > form->DefEdit->geometry().bottom());

        // Closing keeps the bounds for the next showing.
        form->move(40, 60);
        form->resize(700, form->height());
        form->OkBtn->click();
        QVERIFY(!form->isVisible());
        QCOMPARE(ReadText(QStringLiteral("ScreenBoundsAutoclue")),
                 QStringLiteral("40,60,700,%1").arg(form->height()));
        openAutoclue();
        QCOMPARE(form->pos(), QPoint(40, 60));
        QCOMPARE(form->width(), 700);
    }

    void anUnfinishedGridAsksFirst()
    {
        start("size 5\ngrid\nABC#D\nEFG#H\nIJ.LM\nN#O#P\nQRS#T\n");
        (*dialogs)->Answers = {TAnswer::No};
        AutoclueBtnClick(program->MainForm);
        QVERIFY(!form->isVisible());
        QCOMPARE((*dialogs)->Questions,
                 QStringList{QStringLiteral("Running Autoclue before completing puzzle is not recommended. "
                                            "Start Autoclue anyway? [YN]")});
        QCOMPARE(sounds(), QList<int>{1});

        (*dialogs)->Answers = {TAnswer::Yes};
        AutoclueBtnClick(program->MainForm);
        QVERIFY(form->isVisible());
        QCOMPARE(clueLbl(), QStringLiteral("ABC"));
    }

    void typingStoresTheClueInItsSlot()
    {
        start(Full);
        openAutoclue();
        QTest::keyClicks(form->DefEdit, QStringLiteral("Bread"));
        QCOMPARE(Puzzle.clue(1), QByteArray("Bread"));
        QCOMPARE(Puzzle.slotAt(1, 1, Direction::Across), 1);
        QVERIFY(PuzzleChanged);

        // Enter goes on to 1 Down, the same square's number, and its own slot.
        QTest::keyClick(form->DefEdit, Qt::Key_Return);
        QCOMPARE(numLbl(), QStringLiteral("1  Down"));
        QCOMPARE(clueLbl(), QStringLiteral("AEINQ"));
        QCOMPARE(form->DefEdit->text(), QString());
        QTest::keyClicks(form->DefEdit, QStringLiteral("Caf"));
        QKeyEvent accented(QEvent::KeyPress, 0, Qt::NoModifier, QString(QChar(0xE9)));
        QApplication::sendEvent(form->DefEdit, &accented);
        QCOMPARE(Puzzle.clue(2), QByteArray("Caf\xE9"));
        QCOMPARE(Puzzle.slotAt(1, 1, Direction::Down), 2);
        QCOMPARE(Puzzle.clue(1), QByteArray("Bread"));

        // Back again, the clue comes back into the box.
        form->PrevBtn->click();
        QCOMPARE(numLbl(), QStringLiteral("1  Across"));
        QCOMPARE(form->DefEdit->text(), QStringLiteral("Bread"));

        // Next undefined word skips the two written clues.
        form->BlankBtn->click();
        QCOMPARE(numLbl(), QStringLiteral("2  Down"));
        QCOMPARE(clueLbl(), QStringLiteral("BFJ"));
    }

    void clueBoxKeys()
    {
        start(Full);
        WriteSetting(QStringLiteral("EntryCounts"), 1);
        openAutoclue();
        QVERIFY(form->CountLbl->isVisible());
        QCOMPARE(form->CountLbl->text(), QStringLiteral("(3)"));
        QCOMPARE(form->CountLbl->x(), form->ClueLbl->geometry().right() + 1 + 8);

        QLineEdit *edit = form->DefEdit;
        QTest::keyClicks(edit, QStringLiteral("cat"));
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_U, Qt::ControlModifier);
        QCOMPARE(edit->text(), QStringLiteral("___cat"));
        QTest::keyClick(edit, Qt::Key_Home);
        QTest::keyClick(edit, Qt::Key_U, Qt::ControlModifier);
        QCOMPARE(edit->text(), QStringLiteral("______cat"));
        QCOMPARE(Puzzle.clue(1), QByteArray("______cat"));

        QTest::keyClick(edit, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(edit->text(), QString());
        QCOMPARE(Puzzle.clue(1), QByteArray());

        QTest::keyClicks(edit, QStringLiteral("Pet"));
        QTest::keyClick(edit, Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(edit->text(), QStringLiteral("Pet (3)"));
        QCOMPARE(edit->cursorPosition(), edit->text().size());
        form->CtBtn->click();
        QCOMPARE(edit->text(), QStringLiteral("Pet (3) (3)"));

        // Paste at the caret.
        QGuiApplication::clipboard()->setText(QStringLiteral("Tom"));
        edit->setCursorPosition(0);
        form->InsertBtn->click();
        QCOMPARE(edit->text(), QStringLiteral("TomPet (3) (3)"));

        // Without counts Ctrl+N is still the clue box's, and does nothing.
        form->close();
        WriteSetting(QStringLiteral("EntryCounts"), 0);
        openAutoclue();
        QVERIFY(!form->CountLbl->isVisible());
        QTest::keyClick(edit, Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(edit->text(), QStringLiteral("TomPet (3) (3)"));
    }

    void theGridWordChoosesWhereAutoclueOpens()
    {
        start(Repeated);
        TXwdGridForm *grid = program->GridForm;
        grid->show();
        QVERIFY(QTest::qWaitForWindowExposed(grid));
        QTest::mouseClick(grid, Qt::LeftButton, Qt::NoModifier, at(4, 3));
        QCOMPARE(grid->Editor.WordDirection, 1);

        // The same letters earlier in the grid win.
        openAutoclue();
        QCOMPARE(clueLbl(), QStringLiteral("AB"));
        QCOMPARE(numLbl(), QStringLiteral("1  Across"));
        QCOMPARE(form->Walk.WalkRow, 1);

        // A grid click moves the open window to the clicked word.
        QTest::mouseClick(grid, Qt::RightButton, Qt::NoModifier, at(5, 1));
        MoveAutoclueToGrid();
        QCOMPARE(clueLbl(), QStringLiteral("XYBWZ"));
        QCOMPARE(numLbl(), QStringLiteral("3  Down"));
    }

    void nextFromTheLastWordSaysNoMoreClues()
    {
        // Every clue written but 1D's.
        start(QString::fromLatin1(Full) + QStringLiteral("clues\n1A a\n2D c\n3D d\n4D e\n5A f\n6A g\n7A h\n"));
        WriteSetting(QStringLiteral("Threading"), 1);
        openAutoclue();

        // Next undefined word walks in reading order, threading or not.
        form->BlankBtn->click();
        QCOMPARE(numLbl(), QStringLiteral("1  Down"));
        QTest::keyClicks(form->DefEdit, QStringLiteral("b"));
        form->BlankBtn->click();
        QCOMPARE(numLbl(), QStringLiteral("7  Across"));
        QCOMPARE(clueLbl(), QStringLiteral("QRS"));
        QCOMPARE(sounds(), QList<int>{4});

        // The first showing moved the program's settings to the Quillmark6 key, so the
        // next showing reads Threading from there.
        form->close();
        openAutoclue();
        QCOMPARE(form->Walk.ClueAcrossThenDown, false);
        form->close();
        WriteSetting(QStringLiteral("Threading"), 1);
        openAutoclue();
        QStringList seen{numLbl()};
        for (int i = 0; i < 7; ++i) {
            form->NextBtn->click();
            seen << numLbl();
        }
        QCOMPARE(seen, (QStringList{"1  Across", "5  Across", "6  Across", "7  Across", "1  Down", "2  Down", "3  Down",
                                    "4  Down"}));
        form->NextBtn->click();
        QCOMPARE(numLbl(), QStringLiteral("4  Down"));
        QCOMPARE(clueLbl(), QStringLiteral("DHMPT"));
        QCOMPARE(form->DefEdit->text(), QStringLiteral("e"));
        QCOMPARE(sounds(), (QList<int>{4, 4}));
        QCOMPARE(form->NumLbl->palette().color(QPalette::WindowText), QColor(0, 0, 128));
    }

    void theWordLimitStopsTheWalk()
    {
        start(manyWords());
        openAutoclue();
        int steps = 0;
        while ((*dialogs)->Informations.isEmpty() && steps < 200) {
            form->NextBtn->click();
            ++steps;
        }
        QCOMPARE(steps, 179);
        QCOMPARE((*dialogs)->Informations,
                 QStringList{QStringLiteral("Maximum word limit has been exceeded! Quillmark does not permit more than "
                                            "179 words in a puzzle. Please reconstruct grid accordingly.")});
        QCOMPARE(sounds(), QList<int>{1});
        // The display keeps the 179th word: the fifth across word of row 19.
        QCOMPARE(numLbl(), QStringLiteral("%1  Across").arg(SquareNumbers(Puzzle)(17, 19)));
        QCOMPARE(clueLbl(), QString::fromLatin1(Puzzle.GetWord(17, 19, 'a')));
    }
};

QUILLMARK_UI_TEST_MAIN(TestAutoclueForm)
#include "tst_autoclueform.moc"
