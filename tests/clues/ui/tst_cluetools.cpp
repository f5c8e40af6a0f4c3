// The clue-writing tools around Autoclue, driven with clicks: the definition list, the
// special characters and the byline dialog. Their lines, cells and walks are the core tests'.

#include "clues/ui/tautoclueform.h"
#include "clues/ui/tbylineform.h"
#include "clues/ui/tcharmapform.h"
#include "clues/ui/tdeflistform.h"
#include "windowtest.h"

#include <QScrollBar>
#include <QTableWidget>

namespace {

// Full; reading order 1A 1D 2D 3D 4D 5A 6A 7A.
const QString Full = QStringLiteral("size 5\ngrid\nABC#D\nEFG#H\nIJKLM\nN#O#P\nQRS#T\nclues\n3D Tree\n");

void clickLine(QListWidget *list, int row)
{
    const QRect rect = list->visualItemRect(list->item(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rect.center());
}

void clickCell(QTableWidget *grid, int col, int row)
{
    const QRect rect = grid->visualItemRect(grid->item(row, col));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, rect.center());
}

}  // namespace

class TestClueTools : public QObject, TWindowTest {
    Q_OBJECT

    TAutoclueForm *autoclue = nullptr;

    void openAutoclue(const QString &puzzle)
    {
        Puzzle = PuzzleFrom(puzzle);
        startProgram();
        autoclue = AutoclueForm;
        QVERIFY(autoclue);
        AutoclueBtnClick(program->MainForm);
        QVERIFY(autoclue->isVisible());
    }
    QString shown() const { return autoclue->NumLbl->text() + u' ' + autoclue->ClueLbl->text(); }

private slots:
    void init() { setUpWindowTest(); }

    void cleanup() { tearDownWindowTest(); }

    void theDefinitionListMovesAutoclueAndFollowsItsClues()
    {
        openAutoclue(Full);
        TDefListForm *list = autoclue->DefListForm;
        QVERIFY(list && !list->isVisible());
        autoclue->ListDefsBtn->click();
        QVERIFY(list->isVisible());
        QCOMPARE(list->DwnList->item(2)->text(), QStringLiteral("    3  Tree  | CGKOS"));
        QCOMPARE(list->DwnLbl->x(), list->AcrList->width());
        // From the first showing: room for three lines, and lines 500 pixels wide to scroll.
        QVERIFY(list->minimumHeight() >= list->AcrList->y() + 3 * list->AcrList->sizeHintForRow(0));
        QTRY_VERIFY(list->AcrList->horizontalScrollBar()->maximum() >= 500 - list->AcrList->viewport()->width());

        clickLine(list->DwnList, 2);
        QCOMPARE(shown(), QStringLiteral("3  Down CGKOS"));
        QTRY_COMPARE(QApplication::focusWidget(), autoclue->DefEdit);
        QCOMPARE(autoclue->DefEdit->text(), QStringLiteral("Tree"));
        clickLine(list->AcrList, 1);
        QCOMPARE(shown(), QStringLiteral("5  Across EFG"));
        QVERIFY2(list->DwnList->selectedItems().isEmpty(), "the other list loses its selection");

        // Storing a clue replaces the word's line, whatever the walk did to reach it.
        QTest::keyClicks(autoclue->DefEdit, QStringLiteral("Caf"));
        TypeChar(autoclue->DefEdit, QChar(0xE9));
        QCOMPARE(list->AcrList->item(1)->text(), QStringLiteral("    5  Caf\u00E9  | EFG"));
        QCOMPARE(Puzzle.clue(6), QByteArray("Caf\xE9"));
        QTest::keyClick(autoclue->DefEdit, Qt::Key_Return);
        QTest::keyClicks(autoclue->DefEdit, QStringLiteral("x"));
        TypeChar(autoclue->DefEdit, QChar(0x4E2D));
        // A character the puzzle cannot keep shows as the "?" it is stored as.
        QCOMPARE(autoclue->DefEdit->text(), QStringLiteral("x?"));
        QCOMPARE(list->AcrList->item(2)->text(), QStringLiteral("    6  x?  | IJKLM"));

        // Full screen edit and back.
        const QRect listBounds = list->geometry();
        const QRect autoclueBounds = autoclue->geometry();
        list->ViewBtn->click();
        QCOMPARE(list->ViewBtn->toolTip(), QStringLiteral("Normal view"));
        QCOMPARE(autoclue->geometry().topLeft(), QPoint(8, 8));
        QCOMPARE(list->geometry().topLeft(), QPoint(8, autoclue->height() + 12));
        list->ViewBtn->click();
        QCOMPARE(list->ViewBtn->toolTip(), QStringLiteral("Full screen edit"));
        QCOMPARE(list->geometry(), listBounds);
        QCOMPARE(autoclue->geometry(), autoclueBounds);

        // Closed from full screen, Autoclue keeps its own bounds; its companions go with it.
        list->ViewBtn->click();
        autoclue->OkBtn->click();
        const QRect kept = autoclueBounds;
        QCOMPARE(ReadText("ScreenBoundsAutoclue"),
                 QStringLiteral("%1,%2,%3,%4").arg(kept.x()).arg(kept.y()).arg(kept.width()).arg(kept.height()));
        QTRY_VERIFY(autoclue->DefListForm.isNull());
        QVERIFY(autoclue->CharMapForm.isNull());
    }

    void specialCharactersGoIntoTheClue()
    {
        openAutoclue(Full);
        TCharMapForm *map = autoclue->CharMapForm;
        QVERIFY(map);
        autoclue->CharsBtn->click();
        QVERIFY(map->isVisible());
        QCOMPARE(map->CharGrid->item(0, 9)->text(), QStringLiteral("\u00A9"));

        QLineEdit *edit = autoclue->DefEdit;
        clickCell(map->CharGrid, 0, 0);
        QCOMPARE(edit->text(), QStringLiteral("___"));
        edit->setText(QStringLiteral("abc"));
        edit->selectAll();
        clickCell(map->CharGrid, 9, 0);
        QCOMPARE(edit->text(), QStringLiteral("\u00A9abc"));
        QCOMPARE(Puzzle.clue(1), QByteArray("\xA9" "abc"));

        autoclue->CharsBtn->click();
        QVERIFY(!map->isVisible());
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
        // Runs the dialog on a puzzle of `byline` with `script` playing the user.
        const auto edit = [&](const QByteArray &byline, std::function<void(TBylineForm *)> script) {
            Puzzle.Byline.setText(byline);
            PuzzleChanged = false;
            (*dialogs)->DialogScripts = {[script](QDialog *d) { script(qobject_cast<TBylineForm *>(d)); }};
            bylineAct->trigger();
            return Puzzle.Byline.text();
        };

        // On "--" the box is checked and the field read-only; unchecking brings the Name.
        QCOMPARE(edit("--", [](TBylineForm *form) {
                     QVERIFY(form->NobyChk->isChecked() && form->BylineEdit->isReadOnly());
                     form->NobyChk->click();
                     QCOMPARE(form->BylineEdit->text(), QStringLiteral("Jo Maker"));
                     QVERIFY(!form->BylineEdit->isReadOnly());
                     QTest::keyClicks(form->BylineEdit, QStringLiteral(" and friend"));
                     form->CancelBtn->click();
                 }),
                 QByteArray("--"));
        QCOMPARE((*dialogs)->ExecutedDialogs, QStringList{QStringLiteral("BylineForm")});
        QVERIFY2(!PuzzleChanged, "Cancel changes nothing");

        // Typing stops at 58; checking "No Byline" and saving stores "--".
        QCOMPARE(edit("Someone", [](TBylineForm *form) {
                     QTest::keyClicks(form->BylineEdit, QString(70, u'x'));
                     form->SaveBtn->click();
                 }),
                 "Someone" + QByteArray(51, 'x'));
        QVERIFY(PuzzleChanged);
        QCOMPARE(edit("Someone", [](TBylineForm *form) {
                     form->NobyChk->click();
                     QCOMPARE(form->BylineEdit->text(), QStringLiteral("--"));
                     form->SaveBtn->click();
                 }),
                 QByteArray("--"));

        // A byline of 60 in the widest letters is kept whole, and with the caret at the end
        // the field shows its first letter and its last.
        QCOMPARE(edit(QByteArray(60, 'W'), [](TBylineForm *form) {
                     QLineEdit *line = form->BylineEdit;
                     QCOMPARE(line->cursorPosition(), 60);
                     QCOMPARE(line->cursorPositionAt(QPoint(2, line->height() / 2)), 0);
                     QCOMPARE(line->cursorPositionAt(QPoint(line->width() - 2, line->height() / 2)), 60);
                     form->SaveBtn->click();
                 }),
                 QByteArray(60, 'W'));
    }
};

QUILLMARK_UI_TEST_MAIN(TestClueTools)
#include "tst_cluetools.moc"
