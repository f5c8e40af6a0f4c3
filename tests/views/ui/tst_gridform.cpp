// The grid window driven with real mouse and key events, its pixels read from a grab.

#include "mainwindow/puzzlestate.h"
#include "settings/txwdprocs.h"
#include "uitestmain.h"
#include "views/gridgeometry.h"
#include "views/ui/txwdgridform.h"

#include <QAction>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalSpy>

#include <cmath>
#include <memory>

namespace {

constexpr int Side = 30;

const char *const Open15 =
    "size 15\ngrid\n"
    "...............\n...............\n...............\n...............\n...............\n"
    "...............\n...............\n...............\n...............\n...............\n"
    "...............\n...............\n...............\n...............\n...............\n";

QPoint at(int c, int r)
{
    return {(c - 1) * SquareSize + 4, (r - 1) * SquareSize + 6};
}

bool isRed(QRgb p)
{
    return qRed(p) > 200 && qGreen(p) < 80 && qBlue(p) < 80;
}

// The ink of a square: every interior pixel that differs from the square's fill.
QRect inkBounds(const QImage &image, int c, int r)
{
    const QPoint origin = CellTopLeft(c, r);
    const QRgb fill = image.pixel(origin + QPoint(1, 1));
    QRect bounds;
    for (int y = 1; y < SquareSize; ++y)
        for (int x = 1; x < SquareSize; ++x)
            if (image.pixel(origin + QPoint(x, y)) != fill)
                bounds |= QRect(origin + QPoint(x, y), QSize(1, 1));
    return bounds;
}

QImage squareImage(const QImage &image, int c, int r)
{
    return image.copy(CellOutline(c, r));
}

}  // namespace

class TestGridForm : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TXwdProcs> procs;
    std::unique_ptr<TXwdGridForm> form;

    void open(const char *text, uint8_t mode = ConstructMode)
    {
        Puzzle = PuzzleFrom(QString::fromUtf8(text));
        PuzzleMode = mode;
        form = std::make_unique<TXwdGridForm>();
        form->setWindowTitle(QStringLiteral("sample.xwd"));
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
    }
    QImage shot() { return form->grab().toImage().convertToFormat(QImage::Format_RGB32); }
    QRgb fillOf(const QImage &image, int c, int r) { return image.pixel(CellTopLeft(c, r) + QPoint(2, 2)); }
    void click(int c, int r, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(form.get(), button, Qt::NoModifier, at(c, r));
    }
    void typeChar(QChar ch)
    {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(ch));
        QApplication::sendEvent(form.get(), &press);
    }
    static int expectedFontSize(int squareSize)
    {
        return int(std::lround(11.0 * squareSize / XwdProcs->MaxSquareSize));
    }

private slots:
    void initTestCase() { procs = std::make_unique<TXwdProcs>(); }

    void init()
    {
        ResetSettings();
        WriteSetting(QStringLiteral("ScreenSquare"), Side);
        ClosingAllowed = false;
        PuzzleChanged = false;
    }

    void cleanup()
    {
        form.reset();
        PuzzleMode = ConstructMode;
    }

    void cleanupTestCase() { ResetSettings(); }

    void showingSetsTitleSizePlaceAndFont()
    {
        WriteSetting(QStringLiteral("ScreenBoundsGrid"), QStringLiteral("40,50,999,999"));
        open(Open15);
        QCOMPARE(form->objectName(), QStringLiteral("XwdGridForm"));
        QVERIFY(form->windowFlags() & Qt::Tool);
        QCOMPARE(form->windowTitle(), QStringLiteral("SAMPLE"));
        QCOMPARE(SquareSize, Side);
        QCOMPARE(form->width(), 15 * Side + 9);
        QCOMPARE(form->height(), 15 * Side + 9);
        QCOMPARE(form->pos(), QPoint(40, 50));
        QCOMPARE(form->font().pointSize(), expectedFontSize(Side));
        QCOMPARE(form->Editor.Symmetry, 1);
        QVERIFY(!form->Editor.MouseSwapped);
        QCOMPARE(form->Editor.WordDirection, 0);
        QCOMPARE(XwdGridForm, form.get());

        ResetSettings();
        WriteSetting(QStringLiteral("ScreenSquare"), Side);
        form->ArrangeFromSettings();
        QCOMPARE(form->pos(), QPoint(2, 2));
    }

    void paintsSquaresLettersAndOpenMarks()
    {
        WriteSetting(QStringLiteral("FilledSqColor"), QStringLiteral("$00808000"));  // teal
        open("size 5\ngrid\n#....\n..W.?\n.....\n.....\n.....\n");
        const QImage image = shot();
        const QRgb teal = qRgb(0, 128, 128);
        QCOMPARE(fillOf(image, 1, 1), teal);
        QCOMPARE(image.pixel(Side / 2, Side / 2), teal);
        QCOMPARE(fillOf(image, 2, 1), qRgb(255, 255, 255));
        QCOMPARE(image.pixel(2 * Side, Side + 3), teal);  // outlines in the filled colour
        QVERIFY2(inkBounds(image, 2, 2).isNull(), "an empty square shows nothing");

        const QRect ink = inkBounds(image, 3, 2);
        QVERIFY(!ink.isNull());
        const QPointF centre = QRectF(CellTopLeft(3, 2), QSizeF(Side, Side)).center();
        const QPointF inkCentre = QRectF(ink).center();
        QVERIFY2(std::abs(inkCentre.x() - centre.x()) <= 2.5 && std::abs(inkCentre.y() - centre.y()) <= 2.5,
                 qPrintable(QStringLiteral("ink centred at %1,%2, square at %3,%4")
                                .arg(inkCentre.x()).arg(inkCentre.y()).arg(centre.x()).arg(centre.y())));

        // The open square shows exactly what a "?" letter would.
        const QImage open = squareImage(image, 5, 2);
        QVERIFY(!inkBounds(image, 5, 2).isNull());
        Puzzle.Cells(5, 2) = '?';
        form->repaint();
        QCOMPARE(squareImage(shot(), 5, 2), open);
    }

    void solvingShowsTheEntriesNotTheSolution()
    {
        open("size 5\ngrid\nCAT#.\n.....\n.....\n.....\n.....\n");
        const QImage letterE = [&] {
            Puzzle.Cells(5, 5) = 'E';
            form->repaint();
            return squareImage(shot(), 5, 5);
        }();

        PuzzleMode = SolveMode;
        Puzzle.Entries(1, 1) = 'E';
        Puzzle.Entries(4, 1) = 'E';
        form->repaint();
        const QImage image = shot();
        QCOMPARE(squareImage(image, 1, 1), letterE);  // the entry, not the solution's C
        QVERIFY2(inkBounds(image, 2, 1).isNull(), "no entry: nothing, whatever the solution holds");
        QCOMPARE(fillOf(image, 4, 1), qRgb(0, 0, 0));  // black squares come from the solution
        QCOMPARE(image.pixel(CellTopLeft(4, 1) + QPoint(Side / 2, Side / 2)), qRgb(0, 0, 0));
    }

    void highlightCoversTheRestOfTheWord()
    {
        open("size 7\ngrid\n.......\n.....#.\n.......\n.......\n.......\n.......\n.......\n");
        click(3, 2);
        QCOMPARE(form->Editor.WordDirection, 1);
        const QImage image = shot();
        const QRgb yellow = qRgb(255, 255, 0);
        const QRgb white = qRgb(255, 255, 255);
        for (int c = 1; c <= 7; ++c)
            for (int r = 1; r <= 7; ++r) {
                const bool lit = r == 2 && c >= 3 && c <= 5;
                if (c == 6 && r == 2)
                    continue;
                QVERIFY2(fillOf(image, c, r) == (lit ? yellow : white), qPrintable(QStringLiteral("%1,%2").arg(c).arg(r)));
            }

        click(6, 2);
        QCOMPARE(form->Editor.WordDirection, 0);
        QCOMPARE(fillOf(shot(), 3, 2), white);  // a black square drops the word
    }

    void guidelinesRunThroughTheMiddleColumnAndRow()
    {
        open(Open15);
        Puzzle.Cells(8, 3) = BlockChar;
        QAction guides(QStringLiteral("S&how Guidelines"));
        form->setGuidesAction(&guides);
        auto redPixels = [&] {
            const QImage image = shot();
            QList<QPoint> red;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    if (isRed(image.pixel(x, y)))
                        red.append({x, y});
            return red;
        };
        QVERIFY(redPixels().isEmpty());

        guides.setText(QStringLiteral("&Hide Guidelines"));
        QApplication::processEvents();
        const QList<QPoint> red = redPixels();
        const int middle = 7 * Side + Side / 2;
        QVERIFY(red.size() > 2 * 15 * Side / 3);
        bool vertical = false;
        bool horizontal = false;
        for (const QPoint &p : red) {
            QVERIFY2(p.x() == middle || p.y() == middle, qPrintable(QStringLiteral("red at %1,%2").arg(p.x()).arg(p.y())));
            QVERIFY2(!CellOutline(8, 3).adjusted(1, 1, -1, -1).contains(p), "a black square stays black");
            vertical |= p.x() == middle && p.y() < 2 * Side;
            horizontal |= p.y() == middle && p.x() > 13 * Side;
        }
        QVERIFY(vertical && horizontal);

        form->setGuidesAction(nullptr);
        QVERIFY(redPixels().isEmpty());
    }

    void resizingSnapsToWholeSquares()
    {
        open(Open15);
        form->resize(10 * 15 + 9, 500);
        QTRY_COMPARE(SquareSize, 10);
        QTRY_COMPARE(form->width(), 10 * 15 + 9);
        QTRY_COMPARE(form->height(), 10 * 15 + 9);
        QCOMPARE(form->font().pointSize(), std::max(1, expectedFontSize(10)));

        form->resize(333, form->height());
        QTRY_COMPARE(SquareSize, 22);
        QTRY_COMPARE(form->width(), 22 * 15 + 9);

        form->resize(form->width(), 200);
        QTRY_COMPARE(form->height(), 22 * 15 + 9);
        QCOMPARE(SquareSize, 22);  // the height alone changes nothing

        click(2, 2);
        form->resize(400, 400);
        QTRY_COMPARE(SquareSize, 400 / 15);
        QCOMPARE(form->Editor.WordDirection, 0);  // the restore drops the word with a white blank colour

        form->BlankSqColor = QColor(250, 250, 240);
        click(2, 2);
        form->resize(300, 300);
        QTRY_COMPARE(SquareSize, 20);
        QCOMPARE(form->Editor.WordDirection, 1);  // any other blank colour keeps it
    }

    void closingIsRefusedUnlessAllowed()
    {
        open(Open15);
        QVERIFY(!form->close());
        QVERIFY(form->isVisible());
        ClosingAllowed = true;
        QVERIFY(form->close());
        QVERIFY(!form->isVisible());
        ClosingAllowed = false;
    }

    void designClicksFollowTheSymmetry()
    {
        open(Open15, DesignMode);
        click(1, 2);
        QCOMPARE(Puzzle.Cells(1, 2), BlockChar);
        QCOMPARE(Puzzle.Cells(15, 14), BlockChar);
        QVERIFY(PuzzleChanged);
        QCOMPARE(fillOf(shot(), 15, 14), qRgb(0, 0, 0));

        form->Editor.Symmetry = 2;
        click(1, 4);
        QCOMPARE(Puzzle.Cells(15, 4), BlockChar);
        form->Editor.Symmetry = 0;
        click(1, 6);
        QCOMPARE(Puzzle.Cells(15, 6), uint8_t(0));

        Puzzle.Cells(15, 14) = 'L';
        form->Editor.Symmetry = 1;
        click(1, 2, Qt::RightButton);
        QCOMPARE(Puzzle.Cells(1, 2), uint8_t(0));
        QCOMPARE(Puzzle.Cells(15, 14), uint8_t(0));  // the partner is cleared even when it held a letter

        // Dragging paints with the left button and erases with the right.
        form->Editor.Symmetry = 0;
        QTest::mousePress(form.get(), Qt::LeftButton, Qt::NoModifier, at(3, 10));
        QMouseEvent drag(QEvent::MouseMove, at(5, 10), form->mapToGlobal(at(5, 10)), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(form.get(), &drag);
        QTest::mouseRelease(form.get(), Qt::LeftButton, Qt::NoModifier, at(5, 10));
        QCOMPARE(Puzzle.Cells(3, 10), BlockChar);
        QCOMPARE(Puzzle.Cells(5, 10), BlockChar);
        QMouseEvent erase(QEvent::MouseMove, at(3, 10), form->mapToGlobal(at(3, 10)), Qt::NoButton, Qt::RightButton,
                          Qt::NoModifier);
        QApplication::sendEvent(form.get(), &erase);
        QCOMPARE(Puzzle.Cells(3, 10), uint8_t(0));
        QMouseEvent shifted(QEvent::MouseMove, at(7, 10), form->mapToGlobal(at(7, 10)), Qt::NoButton, Qt::LeftButton,
                            Qt::ShiftModifier);
        QApplication::sendEvent(form.get(), &shifted);
        QCOMPARE(Puzzle.Cells(7, 10), uint8_t(0));  // not with a modifier key
    }

    void typingFollowsTheLanguage()
    {
        open("size 5\ngrid\n.....\n.....\n.....\n.....\n.....\n");
        click(1, 1);
        QTest::keyClicks(form.get(), QStringLiteral("ab"));
        QCOMPARE(Puzzle.Cells(1, 1), uint8_t('A'));
        QCOMPARE(Puzzle.Cells(2, 1), uint8_t('B'));
        typeChar(QChar(0xE9));  // é
        typeChar(QChar(0x0160));  // Š: not in the grid's language
        typeChar(QChar(0x4E00));  // no Windows-1252 byte at all
        QCOMPARE(Puzzle.Cells(3, 1), uint8_t(0));
        typeChar(QChar(0xC9));  // É
        QCOMPARE(Puzzle.Cells(3, 1), uint8_t(0));  // English has no É

        for (int language : {0, 1, 4}) {
            WriteSetting(QStringLiteral("GridLanguage"), language);
            form->hide();
            form->show();
            Puzzle.Cells(1, 3) = 0;
            click(1, 3);
            typeChar(QChar(0xC9));
            QCOMPARE(Puzzle.Cells(1, 3) == 201, language == 1);
        }

        click(1, 4);
        QTest::keyClick(form.get(), Qt::Key_Plus);
        QCOMPARE(Puzzle.Cells(1, 4), OpenChar);
        QVERIFY2(!inkBounds(shot(), 1, 4).isNull(), "shown as ?");
    }

    void solvingTypingRevealsAndReportsTheClue()
    {
        open("size 5\ngrid\nCAT#.\n.....\n.....\n.....\n.....\nclues\n1A Feline\n1D Down\n");
        PuzzleMode = SolveMode;
        QSignalSpy cleared(form.get(), &TXwdGridForm::clueDisplayCleared);
        QSignalSpy selected(form.get(), &TXwdGridForm::clueSelected);
        click(3, 1);
        QCOMPARE(cleared.count(), 1);
        QCOMPARE(selected.count(), 1);
        QCOMPARE(selected.takeFirst().at(0).toInt(), 1);
        click(1, 4, Qt::RightButton);
        QCOMPARE(selected.takeFirst().at(0).toInt(), 2);

        click(2, 1);
        QTest::keyClick(form.get(), Qt::Key_Plus);
        QCOMPARE(Puzzle.Entries(2, 1), uint8_t('A'));
        QVERIFY(form->Editor.Cheated);
        QTest::keyClick(form.get(), Qt::Key_X);
        QCOMPARE(Puzzle.Entries(3, 1), uint8_t('X'));
        QCOMPARE(Puzzle.Cells(3, 1), uint8_t('T'));
        QCOMPARE(form->Editor.WordDirection, 0);  // the last square ends the word
        QCOMPARE(cleared.count(), 4);
        QTest::keyClick(form.get(), Qt::Key_Y);
        QCOMPARE(Puzzle.Entries(3, 1), uint8_t('X'));  // the next key does nothing

        selected.clear();
        cleared.clear();
        click(4, 1);
        QCOMPARE(form->Editor.WordDirection, 0);
        QCOMPARE(cleared.count(), 1);
        QVERIFY(selected.isEmpty());
    }

    void backspaceAndArrowsAtTheEdges()
    {
        open("size 5\ngrid\nABCDE\n.....\n.....\n.....\n.....\n");
        click(1, 1);
        QTest::keyClick(form.get(), Qt::Key_Backspace);
        QCOMPARE(CellAt(form->Editor.CursorPos), QPoint(1, 1));
        QCOMPARE(Puzzle.Cells(1, 1), uint8_t('A'));
        QCOMPARE(form->Editor.WordDirection, 1);

        click(3, 1);
        QTest::keyClick(form.get(), Qt::Key_Backspace);
        QCOMPARE(CellAt(form->Editor.CursorPos), QPoint(2, 1));
        QCOMPARE(Puzzle.Cells(2, 1), uint8_t('B'));

        form->Editor.MouseSwapped = true;
        click(1, 3, Qt::RightButton);  // swapped: across
        QCOMPARE(form->Editor.WordDirection, 1);
        QTest::keyClick(form.get(), Qt::Key_Left);
        QCOMPARE(CellAt(form->Editor.CursorPos), QPoint(1, 3));
        QCOMPARE(form->Editor.WordDirection, 1);
        QTest::keyClick(form.get(), Qt::Key_Up);
        QCOMPARE(CellAt(form->Editor.CursorPos), QPoint(1, 2));
        QCOMPARE(form->Editor.WordDirection, 2);  // arrows ignore the swapped buttons
        click(5, 5);  // swapped: down
        QTest::keyClick(form.get(), Qt::Key_Right);
        QCOMPARE(CellAt(form->Editor.CursorPos), QPoint(5, 5));
        QCOMPARE(form->Editor.WordDirection, 1);  // the edge re-selects the same square across
        QTest::keyClick(form.get(), Qt::Key_Down);
        QCOMPARE(form->Editor.WordDirection, 2);
        QVERIFY(form->Editor.MouseSwapped);

        click(2, 1, Qt::RightButton);
        QTest::keyClick(form.get(), Qt::Key_Delete);
        QCOMPARE(Puzzle.Cells(2, 1), uint8_t(0));
    }
};

QUILLMARK_UI_TEST_MAIN(TestGridForm)
#include "tst_gridform.moc"
