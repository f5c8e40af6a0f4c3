#pragma once
// The settings store: named values under one per-user key, each read with a default
// whose type (text or integer) decides how the value is read. Also the blocking pause
// and the largest square size that fits the screen.

#include "settings/settingkeys.h"

#include <QObject>
#include <QRect>
#include <QTimer>
#include <QVariant>

#include <optional>

constexpr auto DefaultSettingsPath = "Software\\Quillmark32\\Quillmark6Demo";
constexpr auto ToolsSettingsPath = "Software\\Quillmark32\\Tools";

// The value of `name`, read as text when `defaultValue` holds text and as an integer when
// it holds an integer; `defaultValue` itself when the value was never written or is no
// whole number where one is expected.
QVariant ReadSetting(const QString &name, const QVariant &defaultValue);
// Text is stored as text, integers as integers; any other type writes nothing.
void WriteSetting(const QString &name, const QVariant &value);
void WriteBounds(const QString &name, int left, int top, int width, int height);
// Window bounds as WriteBounds stores them: four whole numbers, left, top, width, height,
// joined by commas; nothing for any other text, so the window keeps its own placement.
std::optional<QRect> ParseBounds(const QString &text);
std::optional<QRect> ReadBounds(const QString &name);

// Convenience wrappers with the type in the name.
QString ReadText(const QString &name, const QString &defaultValue = {});
int ReadInt(const QString &name, int defaultValue);

// A setting of the key table, read with its own default.
QString ReadText(const TSettingKey &key);
int ReadInt(const TSettingKey &key);
void WriteSetting(const TSettingKey &key, const QVariant &value);

// The key every read and write goes to, as a registry-style path whose last two parts
// name the organisation and the application of the per-user store.
void SetSettingsPath(const QString &path);
QString SettingsPath();

// (screen client height of a maximised window - menu bar height) / 23.
int ComputeMaxSquareSize(int maximisedClientHeight, int menuBarHeight);

class TXwdProcs : public QObject {
    Q_OBJECT
public:
    explicit TXwdProcs(QObject *parent = nullptr);
    ~TXwdProcs() override;

    // Waits `milliseconds` while the application keeps processing its events.
    void Pause(int milliseconds);
    // The windows know the real caption and menu bar heights; they refine the estimate.
    void SetScreenMetrics(int maximisedClientHeight, int menuBarHeight);

    int MaxSquareSize = 0;
    QTimer XwdTimer;

private:
    void XwdTimerTimer();
};

// The one settings module, while it exists.
extern TXwdProcs *XwdProcs;
