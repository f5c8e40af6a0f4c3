#include "mainwindow/ui/dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QFontDialog>
#include <QMessageBox>
#include <QPrintDialog>

namespace {

QString caption()
{
    return QApplication::applicationDisplayName();
}

class TQtDialogs final : public TDialogs {
public:
    void Error(QWidget *parent, const QString &text) override
    {
        QMessageBox::critical(parent, caption(), text, QMessageBox::Ok);
    }

    void Inform(QWidget *parent, const QString &text) override
    {
        QMessageBox::information(parent, caption(), text, QMessageBox::Ok);
    }

    TAnswer Ask(QWidget *parent, const QString &text, bool withCancel) override
    {
        return ask(QMessageBox::Question, parent, text, withCancel);
    }

    TAnswer AskWarning(QWidget *parent, const QString &text, bool withCancel) override
    {
        return ask(QMessageBox::Warning, parent, text, withCancel);
    }

    static TAnswer ask(QMessageBox::Icon icon, QWidget *parent, const QString &text, bool withCancel)
    {
        QMessageBox::StandardButtons buttons = QMessageBox::Yes | QMessageBox::No;
        if (withCancel)
            buttons |= QMessageBox::Cancel;
        QMessageBox box(icon, caption(), text, buttons, parent);
        switch (box.exec()) {
        case QMessageBox::Yes: return TAnswer::Yes;
        case QMessageBox::No: return TAnswer::No;
        default: return withCancel ? TAnswer::Cancel : TAnswer::No;
        }
    }

    std::optional<TFileChoice> ChooseFile(QWidget *parent, const TFileRequest &request) override
    {
        QFileDialog dialog(parent, request.Title, request.Directory);
        const bool open = request.Kind == TFileRequest::Open;
        dialog.setAcceptMode(open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
        dialog.setFileMode(open ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
        dialog.setDefaultSuffix(request.DefaultExtension);
        const QStringList filters = QtFileFilter(request.Filter).split(QStringLiteral(";;"));
        dialog.setNameFilters(filters);
        if (!request.FileName.isEmpty())
            dialog.selectFile(request.FileName);
        if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
            return std::nullopt;
        return TFileChoice{dialog.selectedFiles().first(), int(filters.indexOf(dialog.selectedNameFilter())) + 1};
    }

    std::optional<QFont> ChooseFont(QWidget *parent, const QFont &initial) override
    {
        bool ok = false;
        const QFont font = QFontDialog::getFont(&ok, initial, parent);
        return ok ? std::optional<QFont>(font) : std::nullopt;
    }

    bool ChoosePrinter(QWidget *parent, QPrinter &printer) override
    {
        QPrintDialog dialog(&printer, parent);
        return dialog.exec() == QDialog::Accepted;
    }
};

std::unique_ptr<TDialogs> &current()
{
    static std::unique_ptr<TDialogs> dialogs = std::make_unique<TQtDialogs>();
    return dialogs;
}

}  // namespace

int TDialogs::Exec(QDialog *dialog)
{
    return dialog->exec();
}

TDialogs &Dialogs()
{
    return *current();
}

std::unique_ptr<TDialogs> SetDialogs(std::unique_ptr<TDialogs> dialogs)
{
    std::swap(current(), dialogs);
    return dialogs;
}

QString QtFileFilter(const QString &windowsFilter)
{
    const QStringList parts = windowsFilter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        filters.append(QStringLiteral("%1 (%2)").arg(parts[i].trimmed(), parts[i + 1].split(u';').join(u' ')));
    return filters.join(QStringLiteral(";;"));
}
