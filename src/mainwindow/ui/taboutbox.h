#pragma once
// The about box, and the splash shown while the program's windows are being built.

#include <QDialog>
#include <QSplashScreen>

class TAboutBox : public QDialog {
    Q_OBJECT
public:
    explicit TAboutBox(QWidget *parent = nullptr);
    // "Quillmark <version>", the version given by the build.
    static QString VersionText();
};

// The logo on a plain card, for the seconds the main window takes to build.
class TSplashForm : public QSplashScreen {
    Q_OBJECT
public:
    TSplashForm();
};
