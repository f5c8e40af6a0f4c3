// The clue list while solving: its lines as drawn, and clicks and keys that reach the grid.

#include "windowtest.h"
#include "views/ui/tcluesform.h"

#include <QImage>
#include <QPlainTextEdit>

namespace {

const QString LongClue = QStringLiteral("A clue long enough that it cannot fit on one line of this narrow list");
const QString NoSpaces = QStringLiteral("Antidisestablishmentarianismsupercalifragilistic");

// An open 15 x 15 grid: the top-left square starts 1 Across (slot 1) and 1 Down (slot 2).
const QString Solving15 =
    QStringLiteral("size 15\ngrid\n") + QStringLiteral("ABCDEFGHIJKLMNO\n").repeated(15)
    + QStringLiteral("clues\n1A Across first\n1D Down second\n2D %1\n3D %2\n").arg(LongClue, NoSpaces);

// The leftmost dark pixel of `image` in rows top .. bottom - 1, or -1.
int leftmostInk(const QImage &image, int top, int bottom)
{
    for (int x = 0; x < image.width(); ++x)
        for (int y = std::max(0, top); y < std::min(bottom, image.height()); ++y)
            if (qGray(image.pixel(x, y)) < 128)
                return x;
    return -1;
}

}  // namespace

class TestCluesForm : public QObject, TWindowTest {
    Q_OBJECT

    TCluesForm *form() { return program->CluesForm; }
    QListWidget *list() { return program->CluesForm->ClueList; }
    QRect item(int row) { return list()->visualItemRect(list()->item(row)); }

    void start()
    {
        Puzzle = PuzzleFrom(Solving15);
        PuzzleMode = SolveMode;
        startProgram();
        program->GridForm->show();
        QVERIFY(QTest::qWaitForWindowExposed(program->GridForm));
        form()->show();
        QVERIFY(QTest::qWaitForWindowExposed(form()));
    }

private slots:
    void init()
    {
        setUpWindowTest(24);
        WriteSetting(QStringLiteral("ScreenBoundsClues"), QStringLiteral("30,40,260,420"));
    }

    void cleanup() { tearDownWindowTest(); }

    void listsTheCluesAcrossFirstOnLinesOfTheirOwn()
    {
        start();
        QCOMPARE(QRect(form()->pos(), form()->size()), QRect(30, 40, 260, 420));
        QCOMPARE(list()->count(), 30);
        QCOMPARE(list()->item(0)->text(), QStringLiteral("Across first"));
        QCOMPARE(list()->item(1)->text(), QStringLiteral("Down second"));
        QCOMPARE(list()->currentRow(), -1);

        // One line is the list's 17 pixels + 2, which the default font (Times New Roman 11,
        // or Liberation Serif in its place) fits: a line of it is 16 or 17 pixels.
        const int line = QFontMetrics(list()->font()).height();
        QVERIFY2(qAbs(line - 17) <= 1, qPrintable(QString::number(line)));
        QCOMPARE(item(0).height(), 17 + 2);

        // The long clue wraps at a space, its second line hung one "M" in.
        QVERIFY(item(2).height() == 2 * 17 + 2 || item(2).height() == 3 * 17 + 2);
        const QImage image = list()->viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QImage wrapped = image.copy(item(2));
        const int em = QFontMetrics(list()->font()).horizontalAdvance(u'M');
        const int firstLeft = leftmostInk(wrapped, 0, line - 2);
        const int secondLeft = leftmostInk(wrapped, line + 1, 2 * line - 2);
        QVERIFY2(firstLeft >= 1 && firstLeft <= 4, qPrintable(QString::number(firstLeft)));
        QVERIFY2(secondLeft >= 2 + em - 1 && secondLeft <= 2 + em + 3, qPrintable(QString::number(secondLeft)));

        // A clue without spaces gets the second line's room (that it stays on one is the layout's test).
        QCOMPARE(item(3).height(), 2 * 17 + 2);

        // Every resize fills the list again and measures anew; the selection goes.
        form()->SelectSlot(3);
        QCOMPARE(list()->currentRow(), 2);
        form()->resize(900, 420);
        QCOMPARE(list()->currentRow(), -1);
        QCOMPARE(item(2).height(), 17 + 2);
    }

    void clicksAndKeysInTheListReachTheGrid()
    {
        WriteSetting(QStringLiteral("HiliteSqColor"), QStringLiteral("clAqua"));
        start();
        TXwdGridForm *grid = program->GridForm;
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, item(2).center());
        // Word 3 is 2 Down, from its first square, in yellow whatever the highlight colour.
        QCOMPARE(grid->Editor.WordDirection, 2);
        QCOMPARE(grid->Editor.CursorPos, CellTopLeft(2, 1));
        QCOMPARE(program->MainForm->DataMemo->toPlainText(), LongClue);
        QCOMPARE(program->MainForm->ModeLabel->text(), QStringLiteral("Down Clue"));
        const QImage shot = grid->grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QRgb yellow = qRgb(255, 255, 0);
        QCOMPARE(shot.pixel(CellTopLeft(2, 1) + QPoint(2, 2)), yellow);
        QCOMPARE(shot.pixel(CellTopLeft(2, 15) + QPoint(2, 2)), yellow);
        QVERIFY(shot.pixel(CellTopLeft(3, 1) + QPoint(2, 2)) != yellow);
        // The yellow is the pick's alone: the next paint shows the highlight colour.
        QCOMPARE(grid->grab().toImage().pixel(CellTopLeft(2, 15) + QPoint(2, 2)), qRgb(0, 255, 255));

        // Letters typed in the list go to the grid's cursor there, and so do "+" (reveal) and
        // Backspace; a space does not.
        QTest::keyClick(list(), Qt::Key_Q);
        QCOMPARE(Puzzle.Entries(2, 1), uint8_t('Q'));
        QTest::keyClick(list(), Qt::Key_Space);
        QCOMPARE(Puzzle.Entries(2, 2), uint8_t(0));
        QTest::keyClicks(list(), QStringLiteral("+"));
        QCOMPARE(Puzzle.Entries(2, 2), uint8_t('B'));
        QTest::keyClick(list(), Qt::Key_Backspace);
        QTest::keyClicks(list(), QStringLiteral("z"));
        QCOMPARE(Puzzle.Entries(2, 2), uint8_t('Z'));

        // The arrow keys pick as a click does: up to 1 Down.
        QTest::keyClick(list(), Qt::Key_Up);
        QCOMPARE(grid->Editor.CursorPos, CellTopLeft(1, 1));
        QCOMPARE(grid->Editor.WordDirection, 2);
    }

    void takesADefaultPlaceBesideTheMainWindow()
    {
        WriteSetting(QStringLiteral("ScreenBoundsClues"), QString());
        start();
        const QRect clues = form()->frameGeometry();
        QVERIFY(!clues.intersects(program->MainForm->frameGeometry()));
        QVERIFY(form()->screen()->availableGeometry().contains(clues));
    }
};

QUILLMARK_UI_TEST_MAIN(TestCluesForm)
#include "tst_cluesform.moc"
