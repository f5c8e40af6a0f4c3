#include "mainwindow/ui/tsoundfx.h"

#include "mainwindow/puzzlestate.h"

#include <QAudioDevice>
#include <QEventLoop>
#include <QFile>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QTimer>
#include <QUrl>
#include <QtEndian>

#include <array>

TSoundFX *SoundFX = nullptr;

namespace {

constexpr int WaveCount = 7;
// Time allowed beyond a sound's own length for loading it and for the audio device's
// buffering, before a synchronous sound is given up.
constexpr int SyncMarginMs = 750;

QString WaveResource(int wave)
{
    return QStringLiteral(":/sounds/WAVE_%1.wav").arg(wave);
}

// The playing time of a PCM wave resource in milliseconds, read from its chunks; 0 when the
// resource is missing or not a wave file.
int WaveMilliseconds(int wave)
{
    QFile file(WaveResource(wave));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray bytes = file.readAll();
    if (bytes.size() < 12 || !bytes.startsWith("RIFF") || bytes.mid(8, 4) != "WAVE")
        return 0;
    const auto *data = reinterpret_cast<const uchar *>(bytes.constData());
    quint32 byteRate = 0;
    quint32 dataBytes = 0;
    for (qsizetype at = 12; at + 8 <= bytes.size();) {
        const QByteArray id = bytes.mid(at, 4);
        const quint32 size = qFromLittleEndian<quint32>(data + at + 4);
        if (id == "fmt " && at + 20 <= bytes.size())
            byteRate = qFromLittleEndian<quint32>(data + at + 16);
        else if (id == "data")
            dataBytes = size;
        at += 8 + size + (size & 1); // chunks are padded to an even length
    }
    if (byteRate == 0)
        return 0;
    return static_cast<int>(quint64(dataBytes) * 1000 / byteRate);
}

} // namespace

struct TSoundFX::Impl {
    // One player for each sound, made when the sound is first asked for; they are children of
    // the TSoundFX.
    std::array<QSoundEffect *, WaveCount> effects{};

    // The player for `wave`, or none when the number is unknown or there is nothing to play
    // on (a machine without an audio device stays silent rather than failing).
    QSoundEffect *Effect(QObject *owner, int wave)
    {
        if (wave < 1 || wave > WaveCount || QMediaDevices::audioOutputs().isEmpty())
            return nullptr;
        QSoundEffect *&effect = effects[wave - 1];
        if (!effect) {
            effect = new QSoundEffect(owner);
            effect->setSource(QUrl(QStringLiteral("qrc") + WaveResource(wave)));
        }
        return effect;
    }
};

TSoundFX::TSoundFX(QObject *parent) : QObject(parent), impl_(new Impl)
{
    if (!SoundFX)
        SoundFX = this;
}

TSoundFX::~TSoundFX()
{
    delete impl_;
    if (SoundFX == this)
        SoundFX = nullptr;
}

void TSoundFX::Play(int wave)
{
    played_.append(wave);
    if (QSoundEffect *effect = impl_->Effect(this, wave))
        effect->play();
}

void TSoundFX::PlaySync(int wave)
{
    played_.append(wave);
    QSoundEffect *effect = impl_->Effect(this, wave);
    if (!effect)
        return;

    effect->stop();
    QEventLoop loop;
    QTimer giveUp;
    giveUp.setSingleShot(true);
    connect(&giveUp, &QTimer::timeout, &loop, &QEventLoop::quit);
    bool started = false;
    connect(effect, &QSoundEffect::playingChanged, &loop, [&] {
        if (effect->isPlaying())
            started = true;
        else if (started)
            loop.quit();
    });
    connect(effect, &QSoundEffect::statusChanged, &loop, [&] {
        if (effect->status() == QSoundEffect::Error)
            loop.quit();
    });
    effect->play();
    if (effect->status() == QSoundEffect::Error)
        return;
    giveUp.start(WaveMilliseconds(wave) + SyncMarginMs);
    // The caller waits for the sound; the user's clicks and keys wait with it.
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

void PlayQuestionSound()
{
    if (SoundFX && PlaySounds > 0)
        SoundFX->Play(PlaySounds == 1 ? 1 : 6);
}

void PlayErrorSound()
{
    if (SoundFX && PlaySounds > 0)
        SoundFX->Play(7);
}
