#pragma once
// The program's long-lived objects, created in their fixed order and wired together. The
// desktop program makes one; so does every window test, to drive the program as a user.

#include <QApplication>

#include <memory>

class TXwdMainForm;
class TXwdProcs;
class TXwdGridForm;
class TCluesForm;
class TAutoclueForm;
class TSoundFX;
class TInfoWin;
class TRecoveryKeeper;

class TProgram {
public:
    TProgram();
    ~TProgram();

    // Shows the main window and runs its start-up with the command-line arguments.
    void Start(const QStringList &arguments);
    // Offers what a run that did not end well left to recover; the desktop program asks
    // once its splash has gone.
    void OfferRecovery();

    TXwdMainForm *MainForm = nullptr;
    TXwdProcs *Procs = nullptr;
    TXwdGridForm *GridForm = nullptr;
    TAutoclueForm *AutoclueForm = nullptr;
    TCluesForm *CluesForm = nullptr;
    TSoundFX *SoundFX = nullptr;
    TInfoWin *InfoWin = nullptr;

private:
    std::unique_ptr<TXwdMainForm> main_;
    std::unique_ptr<TXwdProcs> procs_;
    std::unique_ptr<TSoundFX> sound_;
    std::unique_ptr<TRecoveryKeeper> recovery_;
};

// Reports an exception that escapes a command as the program's error message instead of
// ending the program: a bad setting must not cost the user the puzzle.
class TQuillmarkApplication : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject *receiver, QEvent *event) override;
};
