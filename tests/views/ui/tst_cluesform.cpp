// The clue list window in the whole program while a puzzle is solved: its items, their
// heights and line breaks as drawn, and clicks and keys that reach the grid.

#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/tprogram.h"
#include "mainwindow/ui/txwdmainform.h"
#include "scripteddialogs.h"
#include "settings/txwdprocs.h"
#include "uitestmain.h"
#include "views/cluelayout.h"
#include "views/gridgeometry.h"
#include "views/ui/tcluesform.h"
#include "views/ui/txwdgridform.h"

#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScreen>

#include <memory>

namespace {

const QString LongClue = QStringLiteral("A clue long enough that it cannot fit on one line of this narrow list");
const QString NoSpaces = QStringLiteral("Antidisestablishmentarianismsupercalifragilistic");

// An open 15 x 15 grid: the top-left square starts 1 Across (slot 1) and 1 Down (slot 2).
QString solving15()
{
    QString text = QStringLiteral("size 15\ngrid\n");
    for (int r = 0; r < 15; ++r)
        text += QStringLiteral("ABCDEFGHIJKLMNO\n");
    text += QStringLiteral("clues\n1A Across first\n1D Down second\n2D %1\n3D %2\n4D Short\n").arg(LongClue, NoSpaces);
    return text;
}

QPoint at(int c, int r)
{
    return {(c - 1) * SquareSize + 4, (r - 1) * SquareSize + 6};
}

bool isInk(QRgb p)
{
    return qGray(p) < 128;
}

// The leftmost dark pixel between rows `top` and `bottom` (exclusive), or -1.
int leftmostInk(const QImage &image, int top, int bottom)
{
    for (int x = 0; x < image.width(); ++x)
        for (int y = std::max(0, top); y < std::min(bottom, image.height()); ++y)
            if (isInk(image.pixel(x, y)))
                return x;
    return -1;
}

}  // namespace

class TestCluesForm : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TDialogScript> dialogs;
    std::unique_ptr<TProgram> program;

    TCluesForm *form() { return program->CluesForm; }
    QListWidget *list() { return program->CluesForm->ClueList; }
    int itemHeight(int row) { return list()->visualItemRect(list()->item(row)).height(); }

    void start()
    {
        Puzzle = PuzzleFrom(solving15());
        PuzzleMode = SolveMode;
        program = std::make_unique<TProgram>();
        program->Start({});
        program->GridForm->show();
        QVERIFY(QTest::qWaitForWindowExposed(program->GridForm));
        form()->show();
        QVERIFY(QTest::qWaitForWindowExposed(form()));
    }

private slots:
    void init()
    {
        ResetSettings();
        WriteSetting(QStringLiteral("ScreenSquare"), 24);
        WriteSetting(QStringLiteral("ScreenBoundsClues"), QStringLiteral("30,40,260,420"));
        dialogs = std::make_unique<TDialogScript>();
        ClosingAllowed = false;
    }

    void cleanup()
    {
        program.reset();
        dialogs.reset();
        PuzzleMode = ConstructMode;
    }

    void listsTheCluesInSlotOrder()
    {
        start();
        QCOMPARE(form()->windowTitle(), QStringLiteral("Clues"));
        QCOMPARE(form()->pos(), QPoint(30, 40));
        QCOMPARE(form()->size(), QSize(260, 420));
        QCOMPARE(list()->count(), 30);
        QCOMPARE(list()->item(0)->text(), QStringLiteral("Across first"));
        QCOMPARE(list()->item(1)->text(), QStringLiteral("Down second"));
        QCOMPARE(list()->item(2)->text(), LongClue);
        QCOMPARE(list()->item(5)->text(), QString());
        QCOMPARE(list()->currentRow(), -1);
        QCOMPARE(list()->font().family(), QStringLiteral("Times New Roman"));
        QCOMPARE(list()->font().pointSize(), 11);
        QCOMPARE(list()->viewport()->cursor().shape(), Qt::BitmapCursor);

        // Only the main window's closing lets the list go.
        QVERIFY(!form()->close());
        ClosingAllowed = true;
        QVERIFY(form()->close());
    }

    void itemsAreMeasuredAndBrokenByTheList()
    {
        start();
        // The list's one-line height is 17 pixels: a line of its default font, Times New
        // Roman at 11 points, on a 96 dots-per-inch screen (15 pixels to the em, ascent and
        // descent 17). Liberation Serif, which stands in for it where it is missing, comes
        // to 16 here, as Qt rounds the 14.7-pixel em down. The item is the list's 17 + 2
        // either way, so the default font always fits its line.
        const QFontMetrics metrics(list()->font());
        QVERIFY2(qAbs(metrics.height() - 17) <= 1, qPrintable(QString::number(metrics.height())));
        QCOMPARE(ClueListMeasureItem(QStringLiteral("Across first"), MeasureOf(metrics), list()->width(),
                                     list()->style()->pixelMetric(QStyle::PM_ScrollBarExtent)),
                 17 + 2);
        QCOMPARE(itemHeight(0), 17 + 2);
        QCOMPARE(itemHeight(4), 17 + 2);
        QCOMPARE(itemHeight(5), 17 + 2);  // an empty clue

        // The long clue wraps at a space, its second line hung one "M" in.
        const int wrapped = itemHeight(2);
        QVERIFY(wrapped == 2 * 17 + 2 || wrapped == 3 * 17 + 2);
        const QImage image = list()->viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QRect item = list()->visualItemRect(list()->item(2));
        const int lineStep = metrics.height();
        const QImage rows = image.copy(item);
        const int firstLeft = leftmostInk(rows, 0, lineStep - 2);
        const int secondLeft = leftmostInk(rows, lineStep + 1, 2 * lineStep - 2);
        const int em = metrics.horizontalAdvance(u'M');
        QVERIFY2(firstLeft >= 1 && firstLeft <= 4, qPrintable(QString::number(firstLeft)));
        QVERIFY2(secondLeft >= 2 + em - 1 && secondLeft <= 2 + em + 3, qPrintable(QString::number(secondLeft)));
        const TClueItemLayout layout = ClueListDrawLayout(LongClue, MeasureOf(metrics), list()->width(),
                                                          list()->style()->pixelMetric(QStyle::PM_ScrollBarExtent),
                                                          wrapped);
        QStringList lines;
        for (const QString &line : layout.Lines)
            if (!line.isEmpty())
                lines << line;
        QVERIFY(lines.size() >= 2);
        QCOMPARE(lines.join(u' '), LongClue);

        // A clue without spaces gets the second line's room, but stays on one line.
        QCOMPARE(itemHeight(3), 2 * 17 + 2);
        const QImage unbroken = image.copy(list()->visualItemRect(list()->item(3)));
        QCOMPARE(leftmostInk(unbroken, lineStep + 1, 2 * 17), -1);
        QVERIFY(leftmostInk(unbroken, 0, lineStep - 2) >= 0);

        // Every resize fills the list again and measures anew; the selection goes.
        form()->SelectSlot(3);
        QCOMPARE(list()->currentRow(), 2);
        form()->resize(900, 420);
        QCOMPARE(list()->currentRow(), -1);
        QCOMPARE(itemHeight(2), 17 + 2);
    }

    void clickingAClueShowsItsWordInTheGrid()
    {
        WriteSetting(QStringLiteral("HiliteSqColor"), QStringLiteral("clAqua"));
        start();
        TXwdGridForm *grid = program->GridForm;
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          list()->visualItemRect(list()->item(2)).center());
        QCOMPARE(list()->currentRow(), 2);
        // Word 3 is 2 Down, from its first square.
        QCOMPARE(grid->Editor.WordDirection, 2);
        QCOMPARE(grid->Editor.CursorPos, CellTopLeft(2, 1));
        QCOMPARE(program->MainForm->DataMemo->toPlainText(), LongClue);
        QCOMPARE(program->MainForm->ModeLabel->text(), QStringLiteral("Down Clue"));
        const QImage shot = grid->grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QRgb yellow = qRgb(255, 255, 0);
        QCOMPARE(shot.pixel(CellTopLeft(2, 1) + QPoint(2, 2)), yellow);
        QCOMPARE(shot.pixel(CellTopLeft(2, 15) + QPoint(2, 2)), yellow);
        QVERIFY(shot.pixel(CellTopLeft(3, 1) + QPoint(2, 2)) != yellow);

        // The first clue, 1 Across.
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          list()->visualItemRect(list()->item(0)).center());
        QCOMPARE(grid->Editor.WordDirection, 1);
        QCOMPARE(grid->Editor.CursorPos, CellTopLeft(1, 1));
        QCOMPARE(program->MainForm->ModeLabel->text(), QStringLiteral("Across Clue"));

        // Choosing with the arrow keys picks as a click does.
        QTest::keyClick(list(), Qt::Key_Down);
        QCOMPARE(list()->currentRow(), 1);
        QCOMPARE(grid->Editor.WordDirection, 2);
        QCOMPARE(grid->Editor.CursorPos, CellTopLeft(1, 1));
    }

    void lettersTypedInTheListGoToTheGrid()
    {
        start();
        TXwdGridForm *grid = program->GridForm;
        QTest::mouseClick(grid, Qt::LeftButton, Qt::NoModifier, at(3, 2));
        QCOMPARE(grid->Editor.WordDirection, 1);

        QTest::keyClick(list(), Qt::Key_Q, Qt::NoModifier);
        QCOMPARE(Puzzle.Entries(3, 2), uint8_t('Q'));
        QTest::keyClick(list(), Qt::Key_Space, Qt::NoModifier);
        QCOMPARE(Puzzle.Entries(4, 2), uint8_t(0));
        QTest::keyClicks(list(), QStringLiteral("+"));
        QCOMPARE(Puzzle.Entries(4, 2), uint8_t('D'));
        QVERIFY(grid->Editor.Cheated);
        QTest::keyClick(list(), Qt::Key_Backspace);
        QTest::keyClicks(list(), QStringLiteral("z"));
        QCOMPARE(Puzzle.Entries(4, 2), uint8_t('Z'));
    }

    void takesADefaultPlaceBesideTheMainWindow()
    {
        WriteSetting(QStringLiteral("ScreenBoundsClues"), QString());
        WriteSetting(QStringLiteral("UseCursors"), 0);
        start();
        const QRect main = program->MainForm->frameGeometry();
        const QRect clues = form()->frameGeometry();
        const QRect screen = form()->screen()->availableGeometry();
        QVERIFY(!clues.intersects(main));
        QVERIFY(screen.contains(clues));
        QCOMPARE(clues.top(), std::clamp(main.top(), screen.top(), screen.bottom() + 1 - clues.height()));
        QCOMPARE(list()->viewport()->cursor().shape(), Qt::ArrowCursor);
    }
};

QUILLMARK_UI_TEST_MAIN(TestCluesForm)
#include "tst_cluesform.moc"
