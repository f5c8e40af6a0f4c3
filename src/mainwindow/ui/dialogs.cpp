#include "mainwindow/ui/dialogs.h"

#include "settings/fontsetting.h"
#include "mainwindow/ui/tsoundfx.h"
#include "mainwindow/ui/txwdmainform.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QVBoxLayout>
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
        if (request.ExecutablesOnly)
            dialog.setFilter(QDir::AllDirs | QDir::Files | QDir::Executable | QDir::NoDotAndDotDot);
        if (!request.FileName.isEmpty())
            dialog.selectFile(request.FileName);
        if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
            return std::nullopt;
        return TFileChoice{dialog.selectedFiles().first(), int(filters.indexOf(dialog.selectedNameFilter())) + 1};
    }

    std::optional<QFont> ChooseFont(QWidget *parent, const QFont &initial) override
    {
        bool ok = false;
        const QFont shown = FontForDialog(initial);
        const QFont font = QFontDialog::getFont(&ok, shown, parent);
        return ok ? std::optional<QFont>(KeepStoredFont(initial, shown, font)) : std::nullopt;
    }

    bool ChoosePrinter(QWidget *parent, QPrinter &printer) override
    {
        QPrintDialog dialog(&printer, parent);
        return dialog.exec() == QDialog::Accepted;
    }
    // Qt's font dialog has no colour: it is embedded here beside a choice of the sixteen
    // standard colours.
    std::optional<TFontChoice> ChooseFontWithColor(QWidget *parent, const QFont &initial, const QColor &color) override
    {
        QDialog dialog(parent);
        dialog.setWindowTitle(QStringLiteral("Font"));
        auto *column = new QVBoxLayout(&dialog);
        const QFont shown = FontForDialog(initial);
        auto *fonts = new QFontDialog(shown, &dialog);
        fonts->setWindowFlags(Qt::Widget);
        fonts->setOptions(QFontDialog::NoButtons | QFontDialog::ScalableFonts);
        column->addWidget(fonts);
        auto *colours = new QComboBox(&dialog);
        static const std::pair<const char *, QRgb> standard[] = {
            {"Black", 0x000000}, {"Maroon", 0x800000}, {"Green", 0x008000}, {"Olive", 0x808000},
            {"Navy", 0x000080},  {"Purple", 0x800080}, {"Teal", 0x008080},  {"Gray", 0x808080},
            {"Silver", 0xC0C0C0}, {"Red", 0xFF0000},   {"Lime", 0x00FF00},  {"Yellow", 0xFFFF00},
            {"Blue", 0x0000FF},  {"Fuchsia", 0xFF00FF}, {"Aqua", 0x00FFFF}, {"White", 0xFFFFFF}};
        for (const auto &[name, rgb] : standard) {
            QPixmap swatch(16, 16);
            swatch.fill(QColor(rgb));
            colours->addItem(QIcon(swatch), QString::fromLatin1(name), QColor(rgb));
        }
        int at = colours->findData(color);
        if (at < 0) {
            colours->addItem(QStringLiteral("Custom"), color);
            at = colours->count() - 1;
        }
        colours->setCurrentIndex(at);
        auto *row = new QFormLayout;
        row->addRow(QStringLiteral("Colour:"), colours);
        column->addLayout(row);
        auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
        QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
        QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
        column->addWidget(buttons);
        if (dialog.exec() != QDialog::Accepted)
            return std::nullopt;
        return TFontChoice{KeepStoredFont(initial, shown, fonts->currentFont()), colours->currentData().value<QColor>()};
    }
};

std::unique_ptr<TDialogs> &current()
{
    static std::unique_ptr<TDialogs> dialogs = std::make_unique<TQtDialogs>();
    return dialogs;
}

}  // namespace

std::optional<TFontChoice> TDialogs::ChooseFontWithColor(QWidget *parent, const QFont &initial, const QColor &color)
{
    if (const auto font = ChooseFont(parent, initial))
        return TFontChoice{*font, color};
    return std::nullopt;
}

int TDialogs::Exec(QDialog *dialog)
{
    return dialog->exec();
}

std::unique_ptr<TDialogs> MakeQtDialogs()
{
    return std::make_unique<TQtDialogs>();
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
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString patterns = parts[i + 1].split(u';').join(u' ');
        const QString label = parts[i].trimmed();
        // A description that already shows its patterns is not given them twice.
        if (label.endsWith(QStringLiteral("(%1)").arg(patterns)))
            filters.append(QStringLiteral("%1 (%2)").arg(label.left(label.lastIndexOf(u'(')).trimmed(), patterns));
        else
            filters.append(QStringLiteral("%1 (%2)").arg(label, patterns));
    }
    return filters.join(QStringLiteral(";;"));
}

namespace {

class TDialogPrompts final : public TSessionPrompts {
public:
    TAnswer Ask(const QString &text, bool withCancel, bool warning) override
    {
        PlayQuestionSound();
        return warning ? Dialogs().AskWarning(XwdMainForm, text, withCancel)
                       : Dialogs().Ask(XwdMainForm, text, withCancel);
    }
    std::optional<TFileChoice> ChooseFile(const TFileRequest &request) override
    {
        return Dialogs().ChooseFile(XwdMainForm, request);
    }
    void Error(const QString &text) override { ShowPuzzleError(text); }
    void Inform(const QString &text) override { Dialogs().Inform(XwdMainForm, text); }
};

}  // namespace

std::shared_ptr<TSessionPrompts> DialogPrompts()
{
    return std::make_shared<TDialogPrompts>();
}

void ShowPuzzleError(const QString &text)
{
    PlayErrorSound();
    Dialogs().Error(XwdMainForm, text);
}
