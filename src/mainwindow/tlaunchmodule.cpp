#include "mainwindow/tlaunchmodule.h"

#include "mainwindow/companiontools.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QProcess>

#include <csignal>

#ifdef QUILLMARK_HAVE_XCB
#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#endif

TLaunchModule *LaunchModule = nullptr;

namespace {

// A process that has ended but was not yet reaped counts as gone.
bool processRuns(qint64 pid)
{
    if (pid <= 0 || ::kill(static_cast<pid_t>(pid), 0) != 0)
        return false;
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!stat.open(QIODevice::ReadOnly))
        return true;
    const QByteArray line = stat.readAll();
    const qsizetype close = line.lastIndexOf(')');
    return close < 0 || close + 2 >= line.size() || line.at(close + 2) != 'Z';
}

#ifdef QUILLMARK_HAVE_XCB

template <typename T>
using TXcbReply = std::unique_ptr<T, decltype(&std::free)>;

xcb_atom_t atom(xcb_connection_t *c, const char *name)
{
    TXcbReply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(c, xcb_intern_atom(c, 0, uint16_t(strlen(name)), name), nullptr), &std::free);
    return reply ? reply->atom : XCB_ATOM_NONE;
}

QByteArray property(xcb_connection_t *c, xcb_window_t window, xcb_atom_t name, xcb_atom_t type)
{
    TXcbReply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(c, xcb_get_property(c, 0, window, name, type, 0, 4096), nullptr), &std::free);
    if (!reply || reply->type == XCB_ATOM_NONE)
        return {};
    return QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())),
                      xcb_get_property_value_length(reply.get()));
}

QList<xcb_window_t> windowList(const QByteArray &bytes)
{
    QList<xcb_window_t> windows;
    for (qsizetype at = 0; at + 4 <= bytes.size(); at += 4)
        windows.append(*reinterpret_cast<const xcb_window_t *>(bytes.constData() + at));
    return windows;
}

#endif

}  // namespace

bool BringWindowForward(qint64 pid, const QString &title)
{
#ifdef QUILLMARK_HAVE_XCB
    auto *x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    xcb_connection_t *c = x11 ? x11->connection() : nullptr;
    if (!c)
        return false;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
    const xcb_atom_t clientList = atom(c, "_NET_CLIENT_LIST");
    const bool managed = !property(c, root, atom(c, "_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW).isEmpty();

    QList<xcb_window_t> candidates = windowList(property(c, root, clientList, XCB_ATOM_WINDOW));
    if (candidates.isEmpty()) {
        TXcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(c, xcb_query_tree(c, root), nullptr), &std::free);
        if (tree) {
            const xcb_window_t *children = xcb_query_tree_children(tree.get());
            for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i)
                candidates.append(children[i]);
        }
    }
    const xcb_atom_t wmPid = atom(c, "_NET_WM_PID");
    const xcb_atom_t wmName = atom(c, "_NET_WM_NAME");
    const xcb_atom_t utf8 = atom(c, "UTF8_STRING");
    xcb_window_t found = XCB_WINDOW_NONE;
    for (xcb_window_t window : candidates) {
        if (!title.isEmpty()) {
            QByteArray name = property(c, window, wmName, utf8);
            if (name.isEmpty())
                name = property(c, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING);
            if (QString::fromUtf8(name) == title) {
                found = window;
                break;
            }
            continue;
        }
        const QByteArray owner = property(c, window, wmPid, XCB_ATOM_CARDINAL);
        if (owner.size() >= 4 && *reinterpret_cast<const uint32_t *>(owner.constData()) == uint32_t(pid)) {
            found = window;
            break;
        }
    }
    if (found == XCB_WINDOW_NONE)
        return false;

    if (managed) {
        // The window manager decides about focus; the activation request (which also
        // restores a minimised window) is the polite way to ask it.
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = found;
        event.type = atom(c, "_NET_ACTIVE_WINDOW");
        event.data.data32[0] = 2;  // a request on the user's behalf
        event.data.data32[1] = XCB_CURRENT_TIME;
        xcb_send_event(c, 0, root, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char *>(&event));
    } else {
        const uint32_t above = XCB_STACK_MODE_ABOVE;
        xcb_map_window(c, found);
        xcb_configure_window(c, found, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    }
    xcb_flush(c);
    return true;
#else
    Q_UNUSED(pid);
    Q_UNUSED(title);
    return false;
#endif
}

TLaunchModule::TLaunchModule(QObject *parent) : QObject(parent)
{
    if (!LaunchModule)
        LaunchModule = this;
}

TLaunchModule::~TLaunchModule()
{
    if (LaunchModule == this)
        LaunchModule = nullptr;
}

qint64 TLaunchModule::RunningProcess(int slot) const
{
    if (slot < 0 || slot >= int(processes_.size()))
        return 0;
    return processRuns(processes_[slot]) ? processes_[slot] : 0;
}

bool TLaunchModule::Launch(int slot, const QString &commandLine)
{
    if (slot < 0 || slot >= int(processes_.size()) || commandLine.trimmed().isEmpty())
        return false;
    const QString title = CompanionWindowTitle(commandLine);
    // Our own companions may have been started by the user: their window is found by title.
    if (!title.isEmpty() && BringWindowForward(0, title))
        return true;
    if (commandLines_[slot] == commandLine && RunningProcess(slot)) {
        // Where the desktop cannot bring the window forward (no X11 window manager, Wayland
        // or no window yet), the copy that runs is left as it is: a second copy would
        // compete with the first for the same files.
        BringWindowForward(processes_[slot], QString());
        return true;
    }
    processes_[slot] = 0;
    const auto command = ToolCommand(commandLine);
    if (!command)
        return false;
    qint64 pid = 0;
    if (!QProcess::startDetached(command->Program, command->Arguments, QFileInfo(command->Program).absolutePath(), &pid))
        return false;
    processes_[slot] = pid;
    commandLines_[slot] = commandLine;
    return true;
}
