#include "settings/txwdprocs.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QThread>

#include <memory>

TXwdProcs *XwdProcs = nullptr;

namespace {

QString &settingsPath()
{
    static QString path = QString::fromLatin1(DefaultSettingsPath);
    return path;
}

// QSettings maps organisation and application onto the registry on Windows and onto an
// INI file under the user's config folder elsewhere.
std::unique_ptr<QSettings> openKey()
{
    const QStringList parts = settingsPath().split(u'\\', Qt::SkipEmptyParts);
    const QString application = parts.size() >= 2 ? parts.last() : QString();
    const QString organisation = parts.size() >= 2 ? parts.at(parts.size() - 2) : parts.value(0);
    return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, organisation, application);
}

bool holdsText(const QVariant &v)
{
    return v.typeId() == QMetaType::QString;
}

bool holdsInteger(const QVariant &v)
{
    switch (v.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
        return true;
    default:
        return false;
    }
}

// An INI value with commas and no quotes comes back as a list; it was one text.
QString storedText(const QVariant &stored)
{
    if (stored.typeId() == QMetaType::QStringList)
        return stored.toStringList().join(u',');
    return stored.toString();
}

}  // namespace

QVariant ReadSetting(const QString &name, const QVariant &defaultValue)
{
    const auto key = openKey();
    if (!key->contains(name))
        return defaultValue;
    const QVariant stored = key->value(name);
    if (holdsText(defaultValue))
        return storedText(stored);
    if (holdsInteger(defaultValue)) {
        // A value that is not a whole number (edited by hand, or left by another program)
        // must not keep the program from starting: it reads as never written.
        bool ok = false;
        const int value = storedText(stored).trimmed().toInt(&ok);
        if (!ok)
            return defaultValue;
        return value;
    }
    return defaultValue;
}

void WriteSetting(const QString &name, const QVariant &value)
{
    if (holdsText(value))
        openKey()->setValue(name, value.toString());
    else if (holdsInteger(value))
        openKey()->setValue(name, value.toLongLong());
}

void WriteBounds(const QString &name, int left, int top, int width, int height)
{
    WriteSetting(name, QStringLiteral("%1,%2,%3,%4").arg(left).arg(top).arg(width).arg(height));
}

namespace {
constexpr int MaxBoundsValue = 1000000;
}

std::optional<QRect> ParseBounds(const QString &text)
{
    const QStringList parts = text.split(u',');
    if (parts.size() != 4)
        return std::nullopt;
    int values[4];
    for (int i = 0; i < 4; ++i) {
        bool ok = false;
        values[i] = parts[i].trimmed().toInt(&ok);
        // No screen is a million pixels across: such a number is no place a window was
        // saved at, and would overflow the rectangle's edges.
        if (!ok || values[i] < -MaxBoundsValue || values[i] > MaxBoundsValue)
            return std::nullopt;
    }
    return QRect(values[0], values[1], values[2], values[3]);
}

QString ReadText(const TSettingKey &key)
{
    return ReadSetting(key.Name, key.Default).toString();
}

int ReadInt(const TSettingKey &key)
{
    return ReadSetting(key.Name, key.Default).toInt();
}

void WriteSetting(const TSettingKey &key, const QVariant &value)
{
    WriteSetting(key.Name, value);
}

std::optional<QRect> ReadBounds(const QString &name)
{
    return ParseBounds(ReadText(name));
}

QString ReadText(const QString &name, const QString &defaultValue)
{
    return ReadSetting(name, defaultValue).toString();
}

int ReadInt(const QString &name, int defaultValue)
{
    return ReadSetting(name, defaultValue).toInt();
}

void SetSettingsPath(const QString &path)
{
    settingsPath() = path;
}

QString SettingsPath()
{
    return settingsPath();
}

int ComputeMaxSquareSize(int maximisedClientHeight, int menuBarHeight)
{
    return std::max(1, (maximisedClientHeight - menuBarHeight) / 23);
}

TXwdProcs::TXwdProcs(QObject *parent) : QObject(parent)
{
    XwdTimer.setSingleShot(false);
    connect(&XwdTimer, &QTimer::timeout, this, &TXwdProcs::XwdTimerTimer);

    // Until the windows tell better: a typical caption and menu bar at 96 dpi.
    constexpr int CaptionEstimate = 23;
    constexpr int MenuBarEstimate = 20;
    int available = 768 - 40;
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        if (const QScreen *screen = QGuiApplication::primaryScreen())
            available = screen->availableGeometry().height();
    MaxSquareSize = ComputeMaxSquareSize(available - CaptionEstimate, MenuBarEstimate);

    if (!XwdProcs)
        XwdProcs = this;
}

TXwdProcs::~TXwdProcs()
{
    if (XwdProcs == this)
        XwdProcs = nullptr;
}

void TXwdProcs::Pause(int milliseconds)
{
    if (!QCoreApplication::instance()) {
        QThread::msleep(milliseconds);
        return;
    }
    XwdTimer.setInterval(milliseconds);
    XwdTimer.start();
    while (XwdTimer.isActive())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void TXwdProcs::SetScreenMetrics(int maximisedClientHeight, int menuBarHeight)
{
    MaxSquareSize = ComputeMaxSquareSize(maximisedClientHeight, menuBarHeight);
}

void TXwdProcs::XwdTimerTimer()
{
    XwdTimer.stop();
}
