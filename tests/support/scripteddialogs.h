#pragma once
// Dialogs that answer from a script and remember what they were asked, so a window test
// never blocks on a modal box.

#include "mainwindow/ui/dialogs.h"

#include <QDialog>
#include <QList>

#include <functional>
#include <QStringList>

class TScriptedDialogs : public TDialogs {
public:
    QStringList Errors;
    QStringList Informations;
    QStringList Questions;  // each with its buttons, and "!" before a warning
    QList<TFileRequest> FileRequests;

    QList<TAnswer> Answers;              // answered in order; Yes when the script runs out
    QList<std::optional<TFileChoice>> Files;  // chosen in order; cancel when it runs out

    void Error(QWidget *, const QString &text) override { Errors.append(text); }
    void Inform(QWidget *, const QString &text) override { Informations.append(text); }
    TAnswer Ask(QWidget *, const QString &text, bool withCancel) override
    {
        Questions.append(text + (withCancel ? QStringLiteral(" [YNC]") : QStringLiteral(" [YN]")));
        return Answers.isEmpty() ? TAnswer::Yes : Answers.takeFirst();
    }
    TAnswer AskWarning(QWidget *parent, const QString &text, bool withCancel) override
    {
        return Ask(parent, QStringLiteral("!") + text, withCancel);
    }
    std::optional<TFileChoice> ChooseFile(QWidget *, const TFileRequest &request) override
    {
        FileRequests.append(request);
        return Files.isEmpty() ? std::nullopt : Files.takeFirst();
    }
    QList<QFont> Fonts;  // chosen in order; cancel when it runs out
    std::optional<QFont> ChooseFont(QWidget *, const QFont &) override
    {
        return Fonts.isEmpty() ? std::nullopt : std::optional<QFont>(Fonts.takeFirst());
    }
    int PrinterRequests = 0;
    bool PrinterAccepted = false;  // the printer dialog's answer
    bool ChoosePrinter(QWidget *, QPrinter &) override
    {
        ++PrinterRequests;
        return PrinterAccepted;
    }
    QList<std::optional<TFontChoice>> FontChoices;  // chosen in order; cancel when it runs out
    std::optional<TFontChoice> ChooseFontWithColor(QWidget *, const QFont &, const QColor &) override
    {
        return FontChoices.isEmpty() ? std::nullopt : FontChoices.takeFirst();
    }

    // Plays the user's part in one of the program's own modal windows: the window is shown,
    // the script acts on it (clicks a button, say), and its result comes back.
    QList<std::function<void(QDialog *)>> DialogScripts;
    QStringList ExecutedDialogs;
    int Exec(QDialog *dialog) override
    {
        ExecutedDialogs.append(dialog->objectName());
        dialog->show();
        if (!DialogScripts.isEmpty())
            DialogScripts.takeFirst()(dialog);
        if (dialog->isVisible())
            dialog->reject();
        return dialog->result();
    }
};

// Installs scripted dialogs for the life of the object.
class TDialogScript {
public:
    TDialogScript()
    {
        auto owned = std::make_unique<TScriptedDialogs>();
        dialogs_ = owned.get();
        previous_ = SetDialogs(std::move(owned));
    }
    ~TDialogScript() { SetDialogs(std::move(previous_)); }
    TScriptedDialogs *operator->() { return dialogs_; }
    TScriptedDialogs &operator*() { return *dialogs_; }

private:
    TScriptedDialogs *dialogs_;
    std::unique_ptr<TDialogs> previous_;
};
