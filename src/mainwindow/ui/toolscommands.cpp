#include "mainwindow/ui/toolscommands.h"

#include "mainwindow/companiontools.h"
#include "mainwindow/tlaunchmodule.h"
#include "mainwindow/ui/appresources.h"
#include "mainwindow/ui/dialogs.h"
#include "mainwindow/ui/taboutbox.h"
#include "mainwindow/ui/thelpform.h"
#include "mainwindow/ui/txwdmainform.h"

#include <QAction>
#include <QBoxLayout>
#include <QEvent>
#include <QMenu>
#include <QPointer>
#include <QToolButton>

namespace {

const QString DictHint = QStringLiteral("Open dictionary");

// The help window, made when first asked for (start-up does not wait for it) and closed
// with the main window.
class THelpCommands : public QObject {
public:
    explicit THelpCommands(TXwdMainForm *form) : QObject(form), form_(form) { form->installEventFilter(this); }
    THelpForm *Help()
    {
        if (!help_)
            help_ = new THelpForm(form_);
        return help_;
    }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Close && help_)
            help_->close();
        return false;
    }

private:
    TXwdMainForm *form_;
    QPointer<THelpForm> help_;
};

}  // namespace

void ToolsMenuItemClick(int tool)
{
    const QString path = CompanionToolPath(tool);
    if (!LaunchModule || !LaunchModule->Launch(tool, path))
        ShowPuzzleError(ToolFailureMessage(QString::fromLatin1(CompanionTools().at(tool).Caption)));
}

void InstallToolsCommands(TXwdMainForm *form)
{
    new TLaunchModule(form);
    QMenu *menu = form->Menu(QStringLiteral("ToolsMenu"));
    QList<QAction *> actions;
    for (int i = 0; i < CompanionToolCount; ++i) {
        const TCompanionTool &tool = CompanionTools().at(i);
        auto *action = new QAction(QString::fromLatin1(tool.Caption), form);
        action->setObjectName(QString::fromLatin1(tool.ActionName));
        if (i == 0) {
            action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_D));
            action->setShortcutContext(Qt::ApplicationShortcut);
        }
        QObject::connect(action, &QAction::triggered, form, [i] { ToolsMenuItemClick(i); });
        menu->addAction(action);
        actions.append(action);
    }

    auto *dictBtn = new QToolButton(form->ToolPanel);
    dictBtn->setObjectName(QStringLiteral("DictBtn"));
    dictBtn->setIcon(Glyph(QStringLiteral("DICT")));
    dictBtn->setIconSize(QSize(22, 22));
    dictBtn->setAutoRaise(true);
    dictBtn->setFocusPolicy(Qt::TabFocus);
    QObject::connect(dictBtn, &QToolButton::clicked, actions.first(), &QAction::trigger);
    if (auto *row = qobject_cast<QBoxLayout *>(form->ToolPanel->layout()))
        row->insertWidget(row->count() - 1, dictBtn);

    // Each tool is available exactly when its program is linked.
    for (int i = 0; i < CompanionToolCount; ++i)
        form->EnableWhen(actions[i], [i] { return !CompanionToolPath(i).isEmpty(); });
    form->EnableWhen(dictBtn, [] { return !CompanionToolPath(0).isEmpty(); });
    // The button's hint shows exactly while it acts.
    QObject::connect(form, &TXwdMainForm::ActionsUpdated, dictBtn,
                     [dictBtn] { dictBtn->setToolTip(dictBtn->isEnabled() ? DictHint : QString()); });
}

void InstallHelpCommands(TXwdMainForm *form)
{
    QMenu *menu = form->Menu(QStringLiteral("HelpMenu"));
    auto *contents = new QAction(QStringLiteral("&Contents..."), form);
    contents->setObjectName(QStringLiteral("HelpContentsAct"));
    auto *keyword = new QAction(QStringLiteral("&Keyword Index"), form);
    keyword->setObjectName(QStringLiteral("HelpKeywordAct"));
    auto *about = new QAction(QStringLiteral("&About..."), form);
    about->setObjectName(QStringLiteral("HelpAboutAct"));
    menu->addAction(contents);
    menu->addAction(keyword);
    menu->addSeparator();
    menu->addAction(about);

    auto *help = new THelpCommands(form);
    QObject::connect(contents, &QAction::triggered, help, [help] { help->Help()->ShowContents(); });
    QObject::connect(keyword, &QAction::triggered, help, [help] { help->Help()->ShowIndex(QString()); });
    QObject::connect(about, &QAction::triggered, form, [form] {
        TAboutBox box(form);
        Dialogs().Exec(&box);
    });
}
