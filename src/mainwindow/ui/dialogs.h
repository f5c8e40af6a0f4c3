#pragma once
// Every modal interaction of the program goes through TDialogs, so that tests can answer
// message boxes and file dialogs without a window ever blocking.

#include "mainwindow/sessionprompts.h"

#include <QColor>
#include <QFont>
#include <QString>

#include <memory>
#include <optional>

class QDialog;
class QPrinter;
class QWidget;

struct TFontChoice {
    QFont Font;
    QColor Color;
};

class TDialogs {
public:
    virtual ~TDialogs() = default;
    // An error message with an OK button.
    virtual void Error(QWidget *parent, const QString &text) = 0;
    // An information message with an OK button.
    virtual void Inform(QWidget *parent, const QString &text) = 0;
    // A question with Yes and No, and Cancel when `withCancel`.
    virtual TAnswer Ask(QWidget *parent, const QString &text, bool withCancel) = 0;
    // The same with the warning icon, for a question that warns of a risk.
    virtual TAnswer AskWarning(QWidget *parent, const QString &text, bool withCancel) = 0;
    // The chosen file, or nothing when cancelled.
    virtual std::optional<TFileChoice> ChooseFile(QWidget *parent, const TFileRequest &request) = 0;
    virtual std::optional<QFont> ChooseFont(QWidget *parent, const QFont &initial) = 0;
    // The printer dialog on `printer`; false when cancelled.
    virtual bool ChoosePrinter(QWidget *parent, QPrinter &printer) = 0;
    // The font dialog with its effects: colour, underline and strike-out. Unless replaced,
    // ChooseFont's answer with the colour kept.
    virtual std::optional<TFontChoice> ChooseFontWithColor(QWidget *parent, const QFont &initial, const QColor &color);
    // Runs one of the program's own modal windows and returns its result code.
    virtual int Exec(QDialog *dialog);
};

// The dialogs in use: the real ones unless replaced.
TDialogs &Dialogs();
// The real dialogs, for a test that drives them.
std::unique_ptr<TDialogs> MakeQtDialogs();
// Replaces the dialogs (tests); returns the previous ones.
std::unique_ptr<TDialogs> SetDialogs(std::unique_ptr<TDialogs> dialogs);

// The puzzle session's questions asked with these dialogs over the main window, each after
// its sound (the question sound, or the error box's own).
std::shared_ptr<TSessionPrompts> DialogPrompts();

// "Description|pattern|..." as Qt's "Description (pattern);;...".
QString QtFileFilter(const QString &windowsFilter);
