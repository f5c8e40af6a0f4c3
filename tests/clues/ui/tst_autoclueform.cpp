// Autoclue and its companions (definition list, special characters, byline) wired into the program.

#include "clues/ui/tautoclueform.h"
#include "clues/ui/tbylineform.h"
#include "clues/ui/tcharmapform.h"
#include "clues/ui/tdeflistform.h"
#include "mainwindow/ui/tsoundfx.h"
#include "windowtest.h"

#include <QClipboard>
#include <QScrollBar>
#include <QTableWidget>
#include <QToolBar>

namespace {

// Full, no clues yet: 1A and 1D share the top-left square; reading order 1A 1D 2D 3D 4D
// 5A 6A 7A.
const QString Full = QStringLiteral("size 5\ngrid\nABC#D\nEFG#H\nIJKLM\nN#O#P\nQRS#T\n");

void clickCell(QTableWidget *grid, int col, int row)
{
    const QRect rect = grid->visualItemRect(grid->item(row, col));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, rect.center());
}

}  // namespace

class TestAutoclueForm : public QObject, TWindowTest {
    Q_OBJECT

    TAutoclueForm *form = nullptr;

    void start(const QString &puzzle)
    {
        Puzzle = PuzzleFrom(puzzle);
        startProgram();
        form = AutoclueForm ? AutoclueForm : new TAutoclueForm(program->MainForm);
    }
    void openAutoclue()
    {
        AutoclueBtnClick(program->MainForm);
        QVERIFY(form->isVisible());
    }
    // The two labels as the user reads them: "1  Across ABC".
    QString shown() const { return form->NumLbl->text() + u' ' + form->ClueLbl->text(); }
    QList<int> sounds() const { return program->SoundFX->Played(); }

private slots:
    void init() { setUpWindowTest(30); }

    void cleanup() { tearDownWindowTest(); }

    void anUnfinishedGridAsksFirst()
    {
        start(QStringLiteral("size 5\ngrid\nABC#D\nEFG#H\nIJ.LM\nN#O#P\nQRS#T\n"));
        (*dialogs)->Answers = {TAnswer::No};
        AutoclueBtnClick(program->MainForm);
        QVERIFY(!form->isVisible());
        QCOMPARE((*dialogs)->Questions,
                 QStringList{QStringLiteral("!Running Autoclue before completing puzzle is not recommended. "
                                            "Start Autoclue anyway? [YN]")});
        QCOMPARE(sounds(), QList<int>{1});
        (*dialogs)->Answers = {TAnswer::Yes};
        openAutoclue();
        QCOMPARE(shown(), QStringLiteral("1  Across ABC"));
        for (int i = 0; i < 3; ++i)
            form->NextBtn->click();
        QCOMPARE(shown(), QStringLiteral("3  Down CG OS"));  // an empty square shows as a blank

        // Closing keeps the bounds for the next showing.
        form->move(40, 60);
        form->resize(700, form->height());
        form->OkBtn->click();
        QCOMPARE(ReadText(QStringLiteral("ScreenBoundsAutoclue")), QStringLiteral("40,60,700,%1").arg(form->height()));
        openAutoclue();
        QCOMPARE(QRect(form->pos(), form->size()), QRect(40, 60, 700, form->height()));
    }

    void typingStoresTheClueAndTheClueBoxKeys()
    {
        start(Full);
        WriteSetting(QStringLiteral("EntryCounts"), 1);
        openAutoclue();
        QVERIFY2((*dialogs)->Questions.isEmpty(), "a full grid opens at once");
        QLineEdit *edit = form->DefEdit;
        QTest::keyClicks(edit, QStringLiteral("Bread"));
        QCOMPARE(Puzzle.clue(1), QByteArray("Bread"));
        QVERIFY(PuzzleChanged);

        // Enter goes on to 1 Down and its own slot; the clue is kept in the puzzle's bytes.
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(shown(), QStringLiteral("1  Down AEINQ"));
        QCOMPARE(form->CountLbl->text(), QStringLiteral("(5)"));
        QTest::keyClicks(edit, QStringLiteral("Caf"));
        TypeChar(edit, QChar(0xE9));
        QCOMPARE(Puzzle.clue(2), QByteArray("Caf\xE9"));

        // Ctrl+U puts a blank before the selection (where exactly is the char map's test);
        // Ctrl+Y empties the box.
        edit->setSelection(1, 2);
        QTest::keyClick(edit, Qt::Key_U, Qt::ControlModifier);
        QCOMPARE(Puzzle.clue(2), QByteArray("C___af\xE9"));
        QTest::keyClick(edit, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(Puzzle.clue(2), QByteArray());

        // Ctrl+N and the count button append the count; Paste goes in at the caret.
        QTest::keyClicks(edit, QStringLiteral("Pet"));
        QTest::keyClick(edit, Qt::Key_N, Qt::ControlModifier);
        form->CtBtn->click();
        QGuiApplication::clipboard()->setText(QStringLiteral("Tom"));
        edit->setCursorPosition(0);
        form->InsertBtn->click();
        QCOMPARE(Puzzle.clue(2), QByteArray("TomPet (5) (5)"));
    }

    void theGridWordChoosesWhereAutoclueOpens()
    {
        // AB across at (1, 1) and again at (4, 3); XYBWZ down at (5, 1).
        start(QStringLiteral("size 5\ngrid\nAB#CX\n##Q#Y\nRS#AB\nTU#VW\nZZ#ZZ\n"));
        TXwdGridForm *grid = program->GridForm;
        grid->show();
        QVERIFY(QTest::qWaitForWindowExposed(grid));
        QTest::mouseClick(grid, Qt::LeftButton, Qt::NoModifier, CellTopLeft(4, 3) + QPoint(4, 6));
        QCOMPARE(grid->Editor.WordDirection, 1);
        openAutoclue();  // on the earlier word with the same letters
        QCOMPARE(shown(), QStringLiteral("1  Across AB"));

        // A grid click moves the open window to the clicked word, and what is typed next is
        // its clue, not letters over the grid.
        QTest::mouseClick(grid, Qt::RightButton, Qt::NoModifier, CellTopLeft(5, 1) + QPoint(4, 6));
        QCOMPARE(shown(), QStringLiteral("3  Down XYBWZ"));
        QTRY_COMPARE(QApplication::focusWidget(), form->DefEdit);
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Vowels"));
        QCOMPARE(Puzzle.clue(Puzzle.slotAt(5, 1, Direction::Down)), QByteArray("Vowels"));
        QCOMPARE(Puzzle.GetWord(5, 1, 'd'), QByteArray("XYBWZ"));

        // An arrow in the grid picks a word as a click does.
        grid->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(grid));
        QTest::keyClick(grid, Qt::Key_Left);
        QCOMPARE(shown(), QStringLiteral("2  Across CX"));
        QTRY_COMPARE(QApplication::focusWidget(), form->DefEdit);
    }

    void theSettingsMoveToTheAutoclueKey()
    {
        // Every clue written but 1D's and 5A's.
        start(Full + QStringLiteral("clues\n1A a\n2D c\n3D d\n4D e\n6A g\n7A h\n"));
        SetSettingsPath(QString::fromLatin1(ToolsSettingsPath));
        WriteSetting(QStringLiteral("BankDataFile"), QStringLiteral("C:/clues.dat"));
        SetSettingsPath(QString::fromLatin1(DefaultSettingsPath));
        WriteSetting(QStringLiteral("Threading"), 1);
        openAutoclue();
        QVERIFY(form->ClueBar->isVisible());
        QCOMPARE(SettingsPath(), QStringLiteral("Software\\Quillmark32\\Quillmark6"));

        // Threaded, Next takes the across words first; Next undefined word keeps to reading
        // order all the same (the walks themselves are the core's tests).
        form->NextBtn->click();
        QCOMPARE(shown(), QStringLiteral("5  Across EFG"));
        form->PrevBtn->click();
        form->BlankBtn->click();
        QCOMPARE(shown(), QStringLiteral("1  Down AEINQ"));

        // The next showing reads Threading from the new key, where it is not set.
        form->close();
        openAutoclue();
        QVERIFY(!form->Walk.ClueAcrossThenDown);
    }

    void theWordLimitStopsTheWalk()
    {
        // Black in every fourth column and row: 216 words.
        const QString open = QStringLiteral("ABC#").repeated(5) + QStringLiteral("ABC\n");
        start(QStringLiteral("size 23\ngrid\n") + (open.repeated(3) + QString(23, u'#') + u'\n').repeated(5)
              + open.repeated(3));
        openAutoclue();
        int steps = 0;
        for (; (*dialogs)->Informations.isEmpty() && steps < 200; ++steps)
            form->NextBtn->click();
        QCOMPARE(steps, 179);
        QCOMPARE((*dialogs)->Informations,
                 QStringList{QStringLiteral("Maximum word limit has been exceeded! Quillmark does not permit more than "
                                            "179 words in a puzzle. Please reconstruct grid accordingly.")});
        QCOMPARE(sounds(), QList<int>{1});
    }

    void specialCharactersGoIntoTheClueAndTheDefinitionListMovesAutoclue()
    {
        start(Full + QStringLiteral("clues\n3D Tree\n"));
        openAutoclue();
        TCharMapForm *map = form->CharMapForm;
        form->CharsBtn->click();
        QVERIFY(map && map->isVisible());
        form->DefEdit->setText(QStringLiteral("abc"));
        form->DefEdit->selectAll();
        clickCell(map->CharGrid, 9, 0);  // the selection gives way to the character
        QCOMPARE(Puzzle.clue(1), QByteArray("\xA9" "abc"));
        form->CharsBtn->click();
        QVERIFY(!map->isVisible());

        TDefListForm *list = form->DefListForm;
        QVERIFY(list && !list->isVisible());
        form->ListDefsBtn->click();
        QVERIFY(list->isVisible());
        QCOMPARE(list->DwnList->item(2)->text(), QStringLiteral("    3  Tree  | CGKOS"));
        QCOMPARE(list->DwnLbl->x(), list->AcrList->width());
        // From the first showing: room for three lines, and lines 500 pixels wide to scroll.
        QVERIFY(list->minimumHeight() >= list->AcrList->y() + 3 * list->AcrList->sizeHintForRow(0));
        QTRY_VERIFY(list->AcrList->horizontalScrollBar()->maximum() >= 500 - list->AcrList->viewport()->width());

        ClickLine(list->DwnList, 2);
        QCOMPARE(shown(), QStringLiteral("3  Down CGKOS"));
        QTRY_COMPARE(QApplication::focusWidget(), form->DefEdit);
        QCOMPARE(form->DefEdit->text(), QStringLiteral("Tree"));
        ClickLine(list->AcrList, 1);
        QCOMPARE(shown(), QStringLiteral("5  Across EFG"));
        QVERIFY2(list->DwnList->selectedItems().isEmpty(), "the other list loses its selection");

        // Storing a clue replaces the word's line, whatever the walk did to reach it.
        QTest::keyClicks(form->DefEdit, QStringLiteral("Caf"));
        TypeChar(form->DefEdit, QChar(0xE9));
        QCOMPARE(list->AcrList->item(1)->text(), QStringLiteral("    5  Caf\u00E9  | EFG"));
        QCOMPARE(Puzzle.clue(6), QByteArray("Caf\xE9"));
        QTest::keyClick(form->DefEdit, Qt::Key_Return);
        QTest::keyClicks(form->DefEdit, QStringLiteral("x"));
        TypeChar(form->DefEdit, QChar(0x4E2D));
        // A character the puzzle cannot keep shows as the "?" it is stored as.
        QCOMPARE(form->DefEdit->text(), QStringLiteral("x?"));
        QCOMPARE(list->AcrList->item(2)->text(), QStringLiteral("    6  x?  | IJKLM"));

        // Full screen edit and back.
        const QRect listBounds = list->geometry();
        const QRect autoclueBounds = form->geometry();
        list->ViewBtn->click();
        QCOMPARE(list->geometry().topLeft(), QPoint(8, form->height() + 12));
        list->ViewBtn->click();
        QCOMPARE(list->geometry(), listBounds);
        QCOMPARE(form->geometry(), autoclueBounds);

        // Closed from full screen, Autoclue keeps its own bounds; its companions go with it.
        list->ViewBtn->click();
        form->OkBtn->click();
        const QRect &b = autoclueBounds;
        QCOMPARE(ReadText("ScreenBoundsAutoclue"), QStringLiteral("%1,%2,%3,%4").arg(b.x()).arg(b.y()).arg(b.width()).arg(b.height()));
        QTRY_VERIFY(form->DefListForm.isNull());
        QVERIFY(form->CharMapForm.isNull());
    }

    void theBylineDialog()
    {
        startProgram();
        WriteSetting(QStringLiteral("Name"), QStringLiteral("Jo Maker"));
        QAction *bylineAct = act("BylineAct");
        QVERIFY(!bylineAct->isEnabled());
        (*dialogs)->Files = {TFileChoice{dir->path(QStringLiteral("new.xwd"))}};
        act("New11Act")->trigger();
        QVERIFY(bylineAct->isEnabled());
        QCOMPARE(Puzzle.Byline.text(), QByteArray("Jo Maker"));
        // Runs the dialog on a puzzle of `byline` with `script` playing the user; the byline after.
        const auto edit = [&](const QByteArray &byline, const QByteArray &after, std::function<void(TBylineForm *)> script) {
            Puzzle.Byline.setText(byline);
            PuzzleChanged = false;
            (*dialogs)->DialogScripts = {[script](QDialog *d) { script(qobject_cast<TBylineForm *>(d)); }};
            bylineAct->trigger();
            QCOMPARE(Puzzle.Byline.text(), after);
        };

        // On "--" the box is checked and the field read-only; unchecking brings the Name.
        edit("--", "--", [](TBylineForm *box) {
            QVERIFY(box->NobyChk->isChecked() && box->BylineEdit->isReadOnly());
            box->NobyChk->click();
            QCOMPARE(box->BylineEdit->text(), QStringLiteral("Jo Maker"));
            QVERIFY(!box->BylineEdit->isReadOnly());
            QTest::keyClicks(box->BylineEdit, QStringLiteral(" and friend"));
            box->CancelBtn->click();
        });
        QCOMPARE((*dialogs)->ExecutedDialogs, QStringList{QStringLiteral("BylineForm")});
        QVERIFY2(!PuzzleChanged, "Cancel changes nothing");

        // Typing stops at 58; checking "No Byline" and saving stores "--".
        edit("Someone", "Someone" + QByteArray(51, 'x'), [](TBylineForm *box) {
            QTest::keyClicks(box->BylineEdit, QString(70, u'x'));
            box->SaveBtn->click();
        });
        QVERIFY(PuzzleChanged);
        edit("Someone", "--", [](TBylineForm *box) {
            box->NobyChk->click();
            QCOMPARE(box->BylineEdit->text(), QStringLiteral("--"));
            box->SaveBtn->click();
        });

        // A byline of 60 in the widest letters is kept whole, and with the caret at the end
        // the field shows its first letter and its last.
        edit(QByteArray(60, 'W'), QByteArray(60, 'W'), [](TBylineForm *box) {
            QLineEdit *line = box->BylineEdit;
            QCOMPARE(line->cursorPosition(), 60);
            QCOMPARE(line->cursorPositionAt(QPoint(2, line->height() / 2)), 0);
            QCOMPARE(line->cursorPositionAt(QPoint(line->width() - 2, line->height() / 2)), 60);
            box->SaveBtn->click();
        });
    }
};

QUILLMARK_UI_TEST_MAIN(TestAutoclueForm)
#include "tst_autoclueform.moc"
