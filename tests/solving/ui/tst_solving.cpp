// Solving through the program: score card, errors, answers, start over, trash and clock.

#include "mainwindow/ui/tsoundfx.h"
#include "solving/ui/tscoreform.h"
#include "solving/ui/txwdclockform.h"
#include "windowtest.h"

#include <QStandardPaths>

namespace {

// Solved but for the square (3, 3).
const QString Solution = QStringLiteral("CAT#DOG#EEL\nAREAREAREAR\nTEN#TEN#TEN\n") + QStringLiteral("AREAREAREAR\n").repeated(8);
const QString AlmostSolved = "size 11\ngrid\n" + Solution + "entries\n"
                             + QString(Solution).replace("TEN#TEN#TEN", "TE.#TEN#TEN") + "clues\n1A Purring pet\n";

}  // namespace

class TestSolving : public QObject, TWindowTest {
    Q_OBJECT

    QString path;

    // Scores the puzzle and answers the card by clicking `button` (none: just look).
    QStringList score(const char *button = nullptr)
    {
        QStringList seen;
        (*dialogs)->DialogScripts.append([&seen, button](QDialog *card) {
            auto *form = qobject_cast<TScoreForm *>(card);
            seen << form->BannerLbl->text() << form->BannerLbl->palette().color(QPalette::WindowText).name()
                 << (form->CheatLbl->isVisibleTo(form) ? "cheated" : "honest")
                 << (form->ShowErrsBtn->isEnabled() ? "errors" : "no errors")
                 << (form->DeleteBtn->isEnabled() ? "delete" : "no delete");
            if (button)
                QTest::mouseClick(form->findChild<QPushButton *>(button), Qt::LeftButton);
        });
        main()->ScorePuzzleAct->trigger();
        return seen;
    }

    void solveSquare33()
    {
        Puzzle.Entries(3, 3) = 'N';
        PuzzleChanged = true;
    }

private slots:
    void init()
    {
        setUpWindowTest(30);
        startProgram();
        path = writePuzzle("solve.xwd", AlmostSolved);
        openPuzzle(path, true);
    }

    void cleanup() { tearDownWindowTest(); }

    void oneEmptySquareIsIncorrectAndShowErrorsCrossesIt()
    {
        QCOMPARE(score("ShowErrsBtn"), (QStringList{"PUZZLE INCORRECT!", "#ff0000", "honest", "errors", "no delete"}));
        QCOMPARE(program->SoundFX->Played(), QList<int>{3});
        const QImage image = grid()->grab().toImage();
        QVERIFY(RedPixels(image, QRect(CellTopLeft(3, 3), QSize(SquareSize, SquareSize))) > 20);
        QCOMPARE(RedPixels(image, QRect(CellTopLeft(2, 3), QSize(SquareSize, SquareSize))), 0);

        // The marks last until the grid is next touched.
        QTest::mouseClick(grid(), Qt::LeftButton, {}, CellTopLeft(1, 2) + QPoint(5, 5));
        QCOMPARE(RedPixels(grid()->grab().toImage(), QRect(CellTopLeft(3, 3), QSize(SquareSize, SquareSize))), 0);
    }

    void aRevealedLetterIsCheatingUntilTheNextPuzzle()
    {
        grid()->activateWindow();
        QTest::mouseClick(grid(), Qt::LeftButton, {}, CellTopLeft(1, 3) + QPoint(5, 5));
        QTest::keyClick(grid(), Qt::Key_Right);
        QTest::keyClick(grid(), Qt::Key_Right);
        QTest::keyClick(grid(), '+');
        QCOMPARE(Puzzle.Entries(3, 3), uint8_t('N'));
        QCOMPARE(score(), (QStringList{"CONGRATULATIONS!", "#000080", "cheated", "no errors", "delete"}));

        const QString other = dir->path("other.xwd");
        QVERIFY(QFile::copy(path, other));
        openPuzzle(other, true);
        QVERIFY(!grid()->Editor.Cheated);
        solveSquare33();
        QCOMPARE(score(), (QStringList{"CONGRATULATIONS!", "#000080", "honest", "no errors", "delete"}));
    }

    void holdingTheAnswerButtonShowsTheSolutionAndCountsAsCheating()
    {
        const QRect square(CellTopLeft(3, 3), QSize(SquareSize, SquareSize));
        const QImage before = grid()->grab().toImage().copy(square);
        QTest::mousePress(main()->CheatBtn, Qt::LeftButton);
        const QImage during = grid()->grab().toImage().copy(square);
        QTest::mouseRelease(main()->CheatBtn, Qt::LeftButton);
        const QImage after = grid()->grab().toImage().copy(square);
        QVERIFY(grid()->Editor.Cheated);
        QCOMPARE(after, before);
        int grey = 0;  // the empty square shows the N in grey
        for (int i = 0; i < during.width() * during.height(); ++i) {
            const QColor c = during.pixelColor(i % during.width(), i / during.width());
            grey += c.red() == c.green() && c.green() == c.blue() && c.red() > 60 && c.red() < 200;
        }
        QVERIFY(grey > 0);
    }

    void startOverEmptiesAndSaves()
    {
        solveSquare33();
        QCOMPARE(score("StartOverBtn").first(), QStringLiteral("CONGRATULATIONS!"));
        QCOMPARE(DecodePuzzle(ReadFileBytes(path)).Entries(3, 3), uint8_t(0));  // emptied on disk too
        QVERIFY(!PuzzleChanged);
        QCOMPARE(score().first(), QStringLiteral("PUZZLE INCORRECT!"));
    }

    void recycleBinSendsTheSolvedPuzzleToTheTrash()
    {
        QCOMPARE(score("DeleteBtn").last(), QStringLiteral("no delete"));  // incorrect: disabled
        QVERIFY(QFile::exists(path));

        solveSquare33();
        score("DeleteBtn");
        QVERIFY(!QFile::exists(path));
        const QString trash = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/Trash/files";
        QVERIFY2(QFile::exists(trash + "/solve.xwd"), qPrintable(trash));
        QVERIFY2(trash.startsWith(QDir::homePath()), "the test's own home, never the user's");
        QCOMPARE(main()->Byline->text(), QStringLiteral("!!! DELETED !!!"));
        QVERIFY(!grid()->isVisible() && !main()->SaveAct->isEnabled() && !main()->CheatBtn->isEnabled());
        QCOMPARE(ReadText("CurrentPuzzle", "x"), QString());
        QVERIFY(!ReadText("HistoryPuzzle1").contains("solve.xwd") && !PuzzleChanged);
    }

    void clockCountsPausesAndResets()
    {
        main()->ClockAct->trigger();
        QCOMPARE(main()->ClockAct->text(), QStringLiteral("&Clock Off"));
        auto *clock = main()->findChild<TXwdClockForm *>();
        QVERIFY(clock && clock->isVisible() && clock->Timer1.isActive());

        // The counting itself is the clock time's own test; a tick must reach the label.
        clock->Timer1Timer();
        QCOMPARE(clock->TimeLbl->text(), QStringLiteral("0:00:01"));

        QTest::mouseClick(clock->ClockBtn, Qt::LeftButton);
        QVERIFY(!clock->Timer1.isActive() && !clock->ResetBtn->isEnabled());
        QTest::mouseClick(clock->ClockBtn, Qt::LeftButton);
        QVERIFY(clock->ResetBtn->isEnabled());
        clock->Timer1Timer();
        QTest::mouseClick(clock->ResetBtn, Qt::LeftButton);
        QCOMPARE(clock->TimeLbl->text(), QStringLiteral("0:00:00"));
        QVERIFY(clock->Timer1.isActive());

        // Opening a puzzle stops the clock; the next one starts from zero.
        openPuzzle(path, true);
        QCOMPARE(main()->ClockAct->text(), QStringLiteral("&Clock On"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!main()->findChild<TXwdClockForm *>());
        main()->ClockAct->trigger();
        auto *fresh = main()->findChild<TXwdClockForm *>();
        QVERIFY(fresh && fresh->isVisible());
        QCOMPARE(fresh->TimeLbl->text(), QStringLiteral("0:00:00"));
    }
};

QUILLMARK_UI_TEST_MAIN(TestSolving)
#include "tst_solving.moc"
