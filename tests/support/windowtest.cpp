#include "windowtest.h"

void TypeChar(QWidget *widget, QChar ch)
{
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(ch));
    QApplication::sendEvent(widget, &press);
}

int RedPixels(const QImage &image, const QRect &area)
{
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x) {
            const QColor c = image.pixelColor(x, y);
            count += c.red() > 200 && c.green() < 80 && c.blue() < 80;
        }
    return count;
}

void TWindowTest::setUpWindowTest(int screenSquare)
{
    ResetSettings();
    if (screenSquare > 0)
        WriteSetting(Setting::ScreenSquare, screenSquare);
    Puzzle = TPuzzle{};
    PuzzleChanged = false;
    PuzzleMode = ConstructMode;
    CurrentPuzzlePath.clear();
    dir = std::make_unique<TScratchDir>();
    dialogs = std::make_unique<TDialogScript>();
}

void TWindowTest::tearDownWindowTest()
{
    program.reset();
    dialogs.reset();
    dir.reset();
    PuzzleMode = ConstructMode;
}

void TWindowTest::openPuzzle(const QString &path, bool solving)
{
    (*dialogs)->Files.append(TFileChoice{path, 1});
    (solving ? main()->OpenSolveAct : main()->ConstructOpenAct)->trigger();
}
