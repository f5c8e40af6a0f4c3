#pragma once
// What the puzzle's lifecycle asks of the user, in words the core can say without a
// window: answers, file requests and the interface the windows implement to ask them.

#include <QString>

#include <optional>

enum class TAnswer { Yes, No, Cancel };

struct TFileRequest {
    enum Kind { Open, Save } Kind = Open;
    QString Title;
    // Windows form: "Description|pattern|Description|pattern".
    QString Filter;
    QString DefaultExtension;
    QString Directory;
    QString FileName;
    // Lists only files the user may run (and folders to reach them).
    bool ExecutablesOnly = false;
};

struct TFileChoice {
    QString Path;
    int FilterIndex = 1;  // 1-based, as the filter lists them
};

// The questions the session asks. The program answers them with its message boxes and
// file dialogs (the sound first, as every question and error of the program has one);
// tests answer them from a script.
class TSessionPrompts {
public:
    virtual ~TSessionPrompts() = default;
    // A question with Yes and No, and Cancel when `withCancel`; `warning` marks one that
    // warns of a risk.
    virtual TAnswer Ask(const QString &text, bool withCancel, bool warning) = 0;
    // The chosen file, or nothing when cancelled.
    virtual std::optional<TFileChoice> ChooseFile(const TFileRequest &request) = 0;
    // The program's error box.
    virtual void Error(const QString &text) = 0;
    virtual void Inform(const QString &text) = 0;
};
