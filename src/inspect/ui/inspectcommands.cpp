#include "inspect/ui/inspectcommands.h"

#include "inspect/transforms.h"
#include "inspect/ui/tanalysisform.h"
#include "inspect/ui/tscangridform.h"
#include "mainwindow/puzzlesession.h"
#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/dialogs.h"
#include "mainwindow/ui/tsoundfx.h"
#include "mainwindow/ui/txwdmainform.h"
#include "views/ui/txwdgridform.h"

#include <QAction>
#include <QMenu>

#include <type_traits>

namespace {

QAction *makeAction(TXwdMainForm *form, const char *name, const QString &caption, const QString &menu)
{
    auto *action = new QAction(caption, form);
    action->setObjectName(QString::fromLatin1(name));
    if (QMenu *m = form->Menu(menu))
        m->addAction(action);
    return action;
}

// Shows a tool window, made on first use and kept with the main window.
template <typename Form>
void showTool(TXwdMainForm *form, const char *name)
{
    auto *window = form->findChild<Form *>(QString::fromLatin1(name), Qt::FindDirectChildrenOnly);
    if (!window)
        window = new Form(form);
    // The analysis is worked out afresh even when its window is already up.
    if constexpr (std::is_same_v<Form, TAnalysisForm>)
        if (window->isVisible())
            window->FormShow();
    window->show();
    window->raise();
    window->activateWindow();
}

}  // namespace

void TransformClick(TXwdMainForm *form, QAction *action)
{
    static const QHash<QString, TTransformKind> kinds = {{QStringLiteral("InvertAct"), TTransformKind::Invert},
                                                         {QStringLiteral("RotateAct"), TTransformKind::Rotate},
                                                         {QStringLiteral("FlipAct"), TTransformKind::Flip}};
    const TTransformKind kind = kinds.value(action->objectName(), TTransformKind::Invert);
    PlayQuestionSound();
    // Six characters of the caption after its "&": "Flip.." for Flip, as it always read.
    const QString question =
        QStringLiteral("Some definitions may be lost in transformation. ") + action->text().mid(1, 6) + u'?';
    // The question warns that clues can be lost.
    if (Dialogs().AskWarning(form, question, false) != TAnswer::Yes)
        return;
    Session().Edit(action->text().remove(u'&').remove(QStringLiteral("...")), TChangeKind::Whole,
                   [kind](TPuzzle &p) { TransformPuzzle(p, kind); });
    if (XwdGridForm)
        XwdGridForm->DropCurrentWord();
}

void InstallInspectCommands(TXwdMainForm *form)
{
    QAction *scan = makeAction(form, "ScanGridAct", QStringLiteral("Scan &Grid..."), QStringLiteral("GridMenu"));
    QAction *analysis = makeAction(form, "AnalysisAct", QStringLiteral("&Analysis..."), QStringLiteral("GridMenu"));
    QObject::connect(scan, &QAction::triggered, form, [form] { showTool<TScanGridForm>(form, "ScanGridForm"); });
    QObject::connect(analysis, &QAction::triggered, form,
                     [form] { showTool<TAnalysisForm>(form, "AnalysisForm"); });

    const QList<QAction *> transforms = {
        makeAction(form, "InvertAct", QStringLiteral("&Invert..."), QStringLiteral("TransformMenu")),
        makeAction(form, "RotateAct", QStringLiteral("&Rotate..."), QStringLiteral("TransformMenu")),
        makeAction(form, "FlipAct", QStringLiteral("&Flip..."), QStringLiteral("TransformMenu")),
    };
    for (QAction *action : transforms)
        QObject::connect(action, &QAction::triggered, form, [form, action] { TransformClick(form, action); });

    const auto constructing = [] { return Session().IsConstructing(); };
    form->EnableWhen(scan, constructing);
    form->EnableWhen(analysis, constructing);
    for (QAction *action : transforms) {
        form->EnableWhen(action, constructing);
        form->ShowWhen(action, constructing);
    }
}
