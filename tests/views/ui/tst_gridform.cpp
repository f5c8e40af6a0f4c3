// The grid window with real mouse and key events: they reach the editor, and the paint shows it.

#include "windowtest.h"

#include <QImage>
#include <QMouseEvent>
#include <QSignalSpy>

#include <cmath>
#include <functional>

namespace {

constexpr int Side = 30;

QString OpenGrid(int size)
{
    return QStringLiteral("size %1\ngrid\n").arg(size) + QString(QString(size, u'.') + u'\n').repeated(size);
}

// A point inside the square like a real click's, and the square's fill.
QPoint at(int c, int r) { return CellTopLeft(c, r) + QPoint(4, 6); }
QRgb fillOf(const QImage &image, int c, int r) { return image.pixel(CellTopLeft(c, r) + QPoint(2, 2)); }

// The ink of a square: every interior pixel that differs from the square's fill.
QRect inkBounds(const QImage &image, int c, int r)
{
    const QPoint origin = CellTopLeft(c, r);
    QRect bounds;
    for (int y = 1; y < SquareSize; ++y)
        for (int x = 1; x < SquareSize; ++x)
            if (image.pixel(origin + QPoint(x, y)) != image.pixel(origin + QPoint(1, 1)))
                bounds |= QRect(origin + QPoint(x, y), QSize(1, 1));
    return bounds;
}

}  // namespace

class TestGridForm : public QObject, TWindowTest {
    Q_OBJECT

    std::unique_ptr<TXwdProcs> procs;
    std::unique_ptr<TXwdGridForm> form;

    void open(const QString &text, uint8_t mode = ConstructMode)
    {
        Puzzle = PuzzleFrom(text);
        PuzzleMode = mode;
        form = std::make_unique<TXwdGridForm>();
        form->setWindowTitle(QStringLiteral("sample.xwd"));
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
    }
    QImage shot() { return form->grab().toImage().convertToFormat(QImage::Format_RGB32); }
    QImage squareShot(int c, int r) { return shot().copy(CellOutline(c, r)); }
    void click(int c, int r, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(form.get(), button, Qt::NoModifier, at(c, r));
    }
    void drag(int c, int r, Qt::MouseButton button, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        QMouseEvent move(QEvent::MouseMove, at(c, r), form->mapToGlobal(at(c, r)), Qt::NoButton, button, keys);
        QApplication::sendEvent(form.get(), &move);
    }
    static int fontSizeFor(int squareSize) { return ScaledFontSize(11, squareSize, XwdProcs->MaxSquareSize); }

private slots:
    void initTestCase() { procs = std::make_unique<TXwdProcs>(); }
    void init()
    {
        setUpWindowTest(Side);
        ClosingAllowed = false;
    }
    void cleanup()
    {
        form.reset();
        ClosingAllowed = false;
        tearDownWindowTest();
    }

    void showingArrangesTheWindowAndOnlyAllowedClosing()
    {
        WriteSetting(QStringLiteral("ScreenBoundsGrid"), QStringLiteral("40,50,999,999"));
        open(OpenGrid(15));
        QCOMPARE(QRect(form->pos(), form->size()), QRect(40, 50, 15 * Side + 9, 15 * Side + 9));
        QCOMPARE(form->font().pointSize(), fontSizeFor(Side));

        QVERIFY(!form->close());
        QVERIFY(form->isVisible());
        ClosingAllowed = true;
        QVERIFY(form->close());
    }

    void paintsSquaresLettersAndOpenMarks()
    {
        WriteSetting(QStringLiteral("FilledSqColor"), QStringLiteral("$00808000"));  // teal
        open(QStringLiteral("size 5\ngrid\n#....\n..W.?\n.....\n.....\n.....\n"));
        const QImage image = shot();
        const QRgb teal = qRgb(0, 128, 128);
        QCOMPARE(fillOf(image, 1, 1), teal);
        QCOMPARE(image.pixel(2 * Side, Side + 3), teal);  // outlines in the filled colour
        QVERIFY2(inkBounds(image, 2, 2).isNull(), "an empty square shows nothing");

        const QPointF ink = QRectF(inkBounds(image, 3, 2)).center();
        const QPointF centre = QRectF(CellTopLeft(3, 2), QSizeF(Side, Side)).center();
        QVERIFY2(std::abs(ink.x() - centre.x()) <= 2.5 && std::abs(ink.y() - centre.y()) <= 2.5,
                 qPrintable(QStringLiteral("ink centred at %1,%2").arg(ink.x()).arg(ink.y())));

        // The open square (32) shows exactly what a "?" letter would.
        const QImage open = squareShot(5, 2);
        QVERIFY(!inkBounds(image, 5, 2).isNull());
        Puzzle.Cells(5, 2) = '?';
        QCOMPARE(squareShot(5, 2), open);
    }

    void solvingShowsTheEntriesAndReportsTheClue()
    {
        open(QStringLiteral("size 5\ngrid\nCAT#.\n.....\n.....\n.....\nE....\nclues\n1A Feline\n1D Down\n"));
        const QImage letterE = squareShot(1, 5);
        PuzzleMode = SolveMode;
        Puzzle.Entries(1, 1) = Puzzle.Entries(4, 1) = 'E';
        const QImage image = shot();
        QCOMPARE(image.copy(CellOutline(1, 1)), letterE);  // the entry, not the solution's C
        QVERIFY2(inkBounds(image, 2, 1).isNull(), "no entry: nothing, whatever the solution holds");
        QCOMPARE(fillOf(image, 4, 1), qRgb(0, 0, 0));  // black squares come from the solution
        QVERIFY2(inkBounds(image, 4, 1).isNull(), "nor an entry on a black square");

        QSignalSpy cleared(form.get(), &TXwdGridForm::clueDisplayCleared);
        QSignalSpy selected(form.get(), &TXwdGridForm::clueSelected);
        click(3, 1);
        click(1, 4, Qt::RightButton);
        click(2, 1);
        QTest::keyClicks(form.get(), QStringLiteral("xy"));
        QCOMPARE(Puzzle.Entries(3, 1), uint8_t('Y'));
        QCOMPARE(cleared.count(), 4);  // three clicks, and the last square ending the word
        click(4, 1);
        QCOMPARE(cleared.count(), 5);
        QList<int> picked;  // nothing for the black square
        for (const QList<QVariant> &arguments : selected)
            picked.append(arguments.at(0).toInt());
        QCOMPARE(picked, QList<int>({1, 2, 1}));
    }

    void highlightCoversTheRestOfTheWord()
    {
        const QString grid = QStringLiteral("size 7\ngrid\n.......\n.....#.\n.......\n.......\n.......\n.......\n.......\n");
        open(grid);
        click(3, 2);
        QCOMPARE(fillOf(shot(), 4, 2), qRgb(255, 255, 0));  // nothing stored: yellow on white
        QCOMPARE(fillOf(shot(), 4, 3), qRgb(255, 255, 255));

        // Then the colours come from the settings.
        WriteSetting(QStringLiteral("BlankSqColor"), QStringLiteral("clCream"));
        WriteSetting(QStringLiteral("HiliteSqColor"), QStringLiteral("clLime"));
        const QRgb cream = qRgb(0xFF, 0xFB, 0xF0);
        open(grid);
        click(3, 2);
        const QImage image = shot();
        for (int c = 1; c <= 7; ++c)
            for (int r = 1; r <= 7; ++r)
                if (c != 6 || r != 2)
                    QVERIFY2(fillOf(image, c, r) == (r == 2 && c >= 3 && c <= 5 ? qRgb(0, 255, 0) : cream),
                             qPrintable(QStringLiteral("%1,%2").arg(c).arg(r)));
        click(6, 2);
        QCOMPARE(fillOf(shot(), 3, 2), cream);  // a black square drops the word
    }

    void guidelinesRunThroughTheMiddleColumnAndRow()
    {
        open(OpenGrid(15));
        Puzzle.Cells(8, 3) = BlockChar;
        QAction guides(QStringLiteral("S&how Guidelines"));
        form->setGuidesAction(&guides);
        const QRect all = shot().rect();
        QCOMPARE(RedPixels(shot(), all), 0);
        guides.setText(QStringLiteral("&Hide Guidelines"));
        const QImage image = shot();
        const int middle = 7 * Side + Side / 2, red = RedPixels(image, all);
        const QRect column(middle, 0, 1, all.height()), row(0, middle, all.width(), 1);
        QVERIFY(red > 2 * 15 * Side / 3);  // dotted, the whole width and height, and nowhere else
        QCOMPARE(red, RedPixels(image, column) + RedPixels(image, row) - RedPixels(image, column & row));
        QCOMPARE(RedPixels(image, CellOutline(8, 3).adjusted(1, 1, -1, -1)), 0);  // a black square stays black
    }

    void resizingSnapsToWholeSquaresOfTheWidth()
    {
        open(OpenGrid(15));
        // The width decides the squares, the window snaps to them; the height alone changes nothing.
        const struct { QSize asked; int side; } sizes[] = {
            {{10 * 15 + 9, 500}, 10}, {{333, 150}, 22}, {{22 * 15 + 9, 200}, 22}, {{400, 400}, 26}};
        for (const auto &resize : sizes) {
            form->resize(resize.asked);
            QTRY_COMPARE(SquareSize, resize.side);
            QTRY_COMPARE(form->size(), QSize(15 * resize.side + 9, 15 * resize.side + 9));
            QCOMPARE(form->font().pointSize(), fontSizeFor(resize.side));
        }
        click(2, 2);
        form->resize(300, 300);
        QTRY_COMPARE(SquareSize, 20);
        QCOMPARE(form->Editor.WordDirection, 0);  // the restore drops the word with a white blank colour
    }

    void designClicksAndDragsSetSquares()
    {
        open(OpenGrid(15), DesignMode);
        click(1, 2);
        QCOMPARE(Puzzle.Cells(1, 2), BlockChar);
        QVERIFY(PuzzleChanged);
        QCOMPARE(fillOf(shot(), 15, 14), qRgb(0, 0, 0));  // the partner, by the window's diagonal symmetry
        click(1, 2, Qt::RightButton);
        QCOMPARE(Puzzle.Cells(1, 2), uint8_t(0));
        // Dragging paints with the left button and erases with the right, never with a modifier key.
        drag(3, 10, Qt::LeftButton);
        QCOMPARE(Puzzle.Cells(3, 10), BlockChar);
        drag(3, 10, Qt::RightButton);
        QCOMPARE(Puzzle.Cells(3, 10), uint8_t(0));
        drag(7, 10, Qt::LeftButton, Qt::ShiftModifier);
        QCOMPARE(Puzzle.Cells(7, 10), uint8_t(0));
    }

    void typedKeysReachTheEditor()
    {
        open(QStringLiteral("size 5\ngrid\n.B...\n.....\n.....\n.....\n.....\n"));
        click(1, 1);
        QTest::keyClick(form.get(), 'a');
        TypeChar(form.get(), QChar(u'É'));  // not English: which letters pass is the editor's test
        QCOMPARE(Puzzle.Cells(2, 1), uint8_t('B'));
        QTest::keyClick(form.get(), Qt::Key_Backspace);
        QCOMPARE(CellAt(form->Editor.CursorPos), QPoint(1, 1));
        QCOMPARE(Puzzle.Cells(1, 1), uint8_t('A'));

        // An arrow makes the word in its direction current (the moves are the editor's tests').
        QTest::keyClick(form.get(), Qt::Key_Down);
        QCOMPARE(form->Editor.WordDirection, 2);
        QTest::keyClick(form.get(), Qt::Key_Up);
        QTest::keyClick(form.get(), Qt::Key_Delete);
        QCOMPARE(Puzzle.Cells(1, 1), uint8_t(0));

        WriteSetting(QStringLiteral("GridLanguage"), 1);  // French, read when the window is next shown
        form->hide();
        form->show();
        click(1, 1);
        TypeChar(form.get(), QChar(u'É'));
        QCOMPARE(Puzzle.Cells(1, 1), uint8_t(201));
    }

    // Paints are counted, never grabbed: a grab paints by itself and would hide a missing repaint.
    void everyEditAndClickRepaints()
    {
        open(OpenGrid(5));
        TPaintCounter counter(form.get());
        int &paints = counter.Paints;
        click(5, 5);  // the window is active before anything is counted
        const auto repaints = [&](const char *what, const std::function<void()> &act) {
            QTest::qWait(20);
            paints = 0;
            act();
            QTRY_VERIFY2_WITH_TIMEOUT(paints > 0, what, 1000);
        };
        repaints("a click picks a word", [&] { click(2, 2); });
        repaints("a typed letter", [&] { TypeChar(form.get(), u'K'); });
        repaints("an arrow", [&] { QTest::keyClick(form.get(), Qt::Key_Down); });
        PuzzleMode = DesignMode;
        repaints("a black square", [&] { click(3, 3); });
    }
};

QUILLMARK_UI_TEST_MAIN(TestGridForm)
#include "tst_gridform.moc"
