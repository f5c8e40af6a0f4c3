#include "scriptedrun.h"

#include "mainwindow/ui/dialogs.h"
#include "mainwindow/ui/tprogram.h"
#include "mainwindow/ui/txwdmainform.h"

#include <QDialog>
#include <QTimer>

#include <cstdio>

namespace {

class TAnswerScript final : public TDialogs {
public:
    explicit TAnswerScript(const QStringList &answers) : answers_(answers) {}

    void Error(QWidget *, const QString &text) override { say("error", text); }
    void Inform(QWidget *, const QString &text) override { say("inform", text); }
    TAnswer Ask(QWidget *, const QString &text, bool withCancel) override
    {
        const QString answer = answers_.isEmpty() ? QStringLiteral("cancel") : answers_.takeFirst().trimmed().toLower();
        const TAnswer given = answer == u"yes" ? TAnswer::Yes
                              : answer == u"no" || !withCancel ? TAnswer::No
                                                               : TAnswer::Cancel;
        const char *said = given == TAnswer::Yes ? "yes" : given == TAnswer::No ? "no" : "cancel";
        say("ask", text + QStringLiteral(" -> ") + QLatin1String(said));
        return given;
    }
    TAnswer AskWarning(QWidget *parent, const QString &text, bool withCancel) override
    {
        return Ask(parent, text, withCancel);
    }
    std::optional<TFileChoice> ChooseFile(QWidget *, const TFileRequest &request) override
    {
        say("file", request.Title);
        return std::nullopt;
    }
    std::optional<QFont> ChooseFont(QWidget *, const QFont &) override { return std::nullopt; }
    bool ChoosePrinter(QWidget *, QPrinter &) override { return false; }
    int Exec(QDialog *dialog) override
    {
        say("window", dialog->objectName());
        return QDialog::Rejected;
    }

private:
    static void say(const char *kind, const QString &text)
    {
        std::printf("%s: %s\n", kind, text.toUtf8().constData());
        std::fflush(stdout);
    }

    QStringList answers_;
};

}  // namespace

bool InstallScriptedRun()
{
    if (!qEnvironmentVariableIsSet("QUILLMARK_TEST_ANSWERS"))
        return false;
    const QString script = qEnvironmentVariable("QUILLMARK_TEST_ANSWERS");
    SetDialogs(std::make_unique<TAnswerScript>(script.split(u',', Qt::SkipEmptyParts)));
    return true;
}

void FinishScriptedRun(TProgram &program)
{
    QTimer::singleShot(0, program.MainForm, [&program] { program.MainForm->close(); });
}
