// Undo and redo as the user meets them: the Edit menu, its captions, Ctrl+Z from the grid,
// every window showing the puzzle as it now is, and text fields keeping their own keys.

#include "windowtest.h"
#include "clues/ui/tautoclueform.h"

#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>

namespace {

// Full, so that Autoclue opens without a question; (1, 1) starts 1A and 1D, whose clues a
// black square there (and at its partner (11, 11)) takes away.
const char *const Full = "size 11\ngrid\n"
                         "ABCDEFGHIJK\nBCDEFGHIJKL\nCDEFGHIJKLM\nDEFGHIJKLMN\nEFGHIJKLMNO\nFGHIJKLMNOP\n"
                         "GHIJKLMNOPQ\nHIJKLMNOPQR\nIJKLMNOPQRS\nJKLMNOPQRST\nKLMNOPQRSTU\n"
                         "clues\n1A Alphabet\n1D Also the alphabet\n";

}  // namespace

class TestUndo : public QObject, TWindowTest {
    Q_OBJECT

    QString path;

    QString undoText() const { return act("UndoAct")->text(); }
    QString redoText() const { return act("RedoAct")->text(); }

    void openPuzzle()
    {
        TWindowTest::openPuzzle(path);
        QVERIFY(QTest::qWaitForWindowExposed(grid()));
    }
    void click(int c, int r, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(grid(), button, Qt::NoModifier, CellTopLeft(c, r) + QPoint(4, 6));
    }
    void type(QChar ch) { TypeChar(grid(), ch); }
    static void ctrlZ(QWidget *window) { QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier); }
    QString specifications() const { return main()->DataMemo->toPlainText(); }

private slots:
    void init()
    {
        setUpWindowTest(30);
        path = writePuzzle("full.xwd", Full);
        startProgram();
    }
    void cleanup() { tearDownWindowTest(); }

    void theEditMenuFollowsPuzzleAndEveryTitleFitsTheMenuLine()
    {
        QMenu *edit = main()->Menu(QStringLiteral("EditMenu"));
        QVERIFY(edit);
        QVERIFY2(!edit->menuAction()->isVisible(), "no puzzle, no Edit: the logo-wide window keeps its titles");
        openPuzzle();
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
        openPuzzle();
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
        QVERIFY(Puzzle.isBlock(1, 1) && Puzzle.isBlock(11, 11));
        QVERIFY(Puzzle.clue(1).isEmpty());
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
        openPuzzle();
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
};

QUILLMARK_UI_TEST_MAIN(TestUndo)
#include "tst_undo.moc"
