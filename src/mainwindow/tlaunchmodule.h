#pragma once
// The launcher of the companion programs: starts a tool once and, while that copy runs,
// brings its window forward instead of starting another.

#include <QObject>
#include <QString>

#include <array>

class TLaunchModule : public QObject {
    Q_OBJECT
public:
    explicit TLaunchModule(QObject *parent = nullptr);
    ~TLaunchModule() override;

    // Brings the tool in `slot` up, or starts `commandLine` (see ToolCommand: a program's
    // path, or a program with its arguments). False when it cannot be started.
    bool Launch(int slot, const QString &commandLine);

    // The process started for `slot` while it still runs, else 0.
    qint64 RunningProcess(int slot) const;

private:
    // The process is the handle we keep: a tool without a window of its own (a script) is
    // still not started twice, and its window is looked up whenever it is to come forward.
    std::array<qint64, 8> processes_{};
    std::array<QString, 8> commandLines_{};
};

// The one launcher, while it exists.
extern TLaunchModule *LaunchModule;

// Asks the desktop to bring forward (and restore) the top-level window of process `pid`,
// or, when `title` is given, the window with that title. False where the desktop offers no
// way to do so or no such window exists.
bool BringWindowForward(qint64 pid, const QString &title);
