#pragma once
// Where the program's windows stand: the main window's place at start, Auto Arrange by the
// stored bounds, the preferences' screen layouts and the bounds they store.

#include <QSize>

class QWidget;

class TWindowArrangement {
public:
    explicit TWindowArrangement(QWidget *main) : main_(main) {}

    // At start, before a puzzle is open: where ScreenBoundsMain puts it, else the top right
    // of the screen, clear of the grid window at the top left.
    void PlaceAtStart();
    // Auto Arrange: the main window by ScreenBoundsMain (else the top right of the screen at
    // `minimum` size), then every visible tool window by its own stored bounds.
    void AutoArrange(QSize minimum);
    // The preferences' arrangement `code` (1 to 4) applied to the main, grid and clue windows.
    void Arrange(int code, QSize minimum);
    // The main window at its fitted size once a puzzle first opens, never more than the
    // screen holds whatever the status font, and on the screen.
    void FitMainWindow(QSize fitted);
    // Stores every window's bounds and the grid's square size.
    void WriteWindowBounds();

private:
    QWidget *main_;
};
