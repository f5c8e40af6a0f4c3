#pragma once
// The session's questions answered by a core test.

#include "mainwindow/puzzlesession.h"

#include <deque>

// Answers from a script, and remembers what was asked.
class TScriptedPrompts : public TSessionPrompts {
public:
    std::deque<TAnswer> Answers;
    TAnswer Otherwise = TAnswer::Cancel;  // once the script runs out
    std::deque<std::optional<TFileChoice>> Files;
    QStringList Asked;
    QStringList Errors;

    TAnswer Ask(const QString &text, bool, bool) override
    {
        Asked.append(text);
        if (Answers.empty())
            return Otherwise;
        const TAnswer answer = Answers.front();
        Answers.pop_front();
        return answer;
    }
    std::optional<TFileChoice> ChooseFile(const TFileRequest &request) override
    {
        Asked.append(request.Title);
        if (Files.empty())
            return std::nullopt;
        auto choice = Files.front();
        Files.pop_front();
        return choice;
    }
    void Error(const QString &text) override { Errors.append(text); }
    void Inform(const QString &) override {}
};
