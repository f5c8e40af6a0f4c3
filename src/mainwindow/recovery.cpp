#include "mainwindow/recovery.h"

#include "mainwindow/puzzlestate.h"
#include "mainwindow/trash.h"
#include "model/puzzlefile.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>
#include <QStandardPaths>

namespace {

const QByteArray Magic = QByteArrayLiteral("QMRECOVR");
constexpr quint32 FormatVersion = 1;
constexpr auto Hash = QCryptographicHash::Sha256;
const QString Suffix = QStringLiteral(".qmrecovery");
const QString DamagedSuffix = QStringLiteral(".damaged");

QString lockPathOf(const QString &file)
{
    return file + QStringLiteral(".lock");
}

}  // namespace

QByteArray EncodeRecovery(const TRecoveredPuzzle &recovered)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_6_0);
    out.writeRawData(Magic.constData(), int(Magic.size()));
    out << FormatVersion << qint64(recovered.Written.toMSecsSinceEpoch()) << quint8(recovered.Mode)
        << recovered.OriginalPath.toUtf8() << EncodePuzzle(recovered.Puzzle);
    bytes += QCryptographicHash::hash(bytes, Hash);
    return bytes;
}

std::optional<TRecoveredPuzzle> DecodeRecovery(const QByteArray &bytes)
{
    const qsizetype hashSize = QCryptographicHash::hashLength(Hash);
    if (bytes.size() < Magic.size() + hashSize || !bytes.startsWith(Magic))
        return std::nullopt;
    const QByteArray body = bytes.left(bytes.size() - hashSize);
    if (QCryptographicHash::hash(body, Hash) != bytes.right(hashSize))
        return std::nullopt;

    QDataStream in(body);
    in.setVersion(QDataStream::Qt_6_0);
    in.skipRawData(int(Magic.size()));
    quint32 version = 0;
    qint64 written = 0;
    quint8 mode = 0;
    QByteArray path;
    QByteArray record;
    in >> version >> written >> mode >> path >> record;
    if (in.status() != QDataStream::Ok || !in.atEnd() || version != FormatVersion ||
        (mode != SolveMode && mode != DesignMode && mode != ConstructMode) || record.size() != PuzzleFileSize)
        return std::nullopt;
    try {
        return TRecoveredPuzzle{DecodePuzzle(record), QString::fromUtf8(path), mode,
                                QDateTime::fromMSecsSinceEpoch(written)};
    } catch (const TPuzzleIOError &) {
        return std::nullopt;
    }
}

TRecoveryStore::TRecoveryStore(const QString &folder)
    : folder_(folder.isEmpty()
                  ? QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/recovery")
                  : folder)
{
}

TRecoveryStore::~TRecoveryStore() = default;

bool TRecoveryStore::Write(const TRecoveredPuzzle &recovered)
{
    if (ownFile_.isEmpty()) {
        if (!QDir().mkpath(folder_))
            return false;
        const QString name = QStringLiteral("%1-%2")
                                 .arg(QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss")))
                                 .arg(QCoreApplication::applicationPid());
        const QString file = QDir(folder_).filePath(name + Suffix);
        // Held for the life of the program: a file whose lock is free was left behind.
        auto lock = std::make_unique<QLockFile>(lockPathOf(file));
        lock->setStaleLockTime(0);
        if (!lock->tryLock(0))
            return false;
        ownFile_ = file;
        lock_ = std::move(lock);
    }
    QSaveFile out(ownFile_);
    if (!out.open(QIODevice::WriteOnly))
        return false;
    const QByteArray bytes = EncodeRecovery(recovered);
    return out.write(bytes) == bytes.size() && out.commit();
}

void TRecoveryStore::Remove()
{
    if (ownFile_.isEmpty())
        return;
    QFile::remove(ownFile_);
    ownFile_.clear();
    lock_.reset();  // unlocks and removes the lock file
}

QList<TRecoveryFile> TRecoveryStore::Orphans() const
{
    QList<TRecoveryFile> found;
    const QFileInfoList files =
        QDir(folder_).entryInfoList({QStringLiteral("*") + Suffix}, QDir::Files, QDir::Time);  // newest first
    for (const QFileInfo &info : files) {
        const QString path = info.absoluteFilePath();
        if (path == ownFile_)
            continue;
        QLockFile lock(lockPathOf(path));
        // A lock left by a program that has ended counts as free; a living program's is not.
        lock.setStaleLockTime(0);
        if (!lock.tryLock(0))
            continue;
        lock.unlock();
        TRecoveryFile file{path, std::nullopt};
        QFile in(path);
        if (in.open(QIODevice::ReadOnly))
            file.Content = DecodeRecovery(in.readAll());
        found.append(file);
    }
    return found;
}

bool TRecoveryStore::Discard(const QString &path)
{
    if (MoveToTrash(path))
        return true;
    QFile::remove(path);
    return false;
}

QString TRecoveryStore::SetAside(const QString &path)
{
    QString target = path + DamagedSuffix;
    for (int n = 2; QFile::exists(target); ++n)
        target = path + QStringLiteral(".%1").arg(n) + DamagedSuffix;
    if (!QFile::rename(path, target)) {
        QFile::remove(path);
        return {};
    }
    return target;
}

TRecoveryKeeper::TRecoveryKeeper(const QString &folder, int quietMs, int latestMs, QObject *parent)
    : QObject(parent), store_(folder)
{
    for (QTimer *timer : {&quiet_, &latest_}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, &TRecoveryKeeper::write);
    }
    quiet_.setInterval(quietMs);
    latest_.setInterval(latestMs);
}

TRecoveryKeeper::~TRecoveryKeeper()
{
    store_.Remove();
}

void TRecoveryKeeper::PuzzleStateChanged()
{
    if (!PuzzleChanged) {
        PuzzleClosed();
        return;
    }
    quiet_.start();
    if (!latest_.isActive())
        latest_.start();
}

void TRecoveryKeeper::PuzzleClosed()
{
    quiet_.stop();
    latest_.stop();
    store_.Remove();
}

void TRecoveryKeeper::WriteNow()
{
    if (PuzzleChanged)
        write();
}

void TRecoveryKeeper::write()
{
    quiet_.stop();
    latest_.stop();
    // A full disk or a read-only folder costs the safety net, never the editing.
    store_.Write({Puzzle, CurrentPuzzlePath, PuzzleMode, QDateTime::currentDateTime()});
}
