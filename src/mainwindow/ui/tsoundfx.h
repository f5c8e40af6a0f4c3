#pragma once
// The sound effects WAVE_1 to WAVE_7, played from the program's own resources.

#include <QList>
#include <QObject>

class TSoundFX : public QObject {
    Q_OBJECT
public:
    explicit TSoundFX(QObject *parent = nullptr);
    ~TSoundFX() override;

    // Starts sound `wave` (1 to 7) and returns at once.
    void Play(int wave);
    // Plays sound `wave` and returns when it has finished.
    void PlaySync(int wave);

    // Every sound asked for, in order, for the program's own checks.
    const QList<int> &Played() const { return played_; }

private:
    QList<int> played_;
    struct Impl;
    Impl *impl_ = nullptr;
};

// The one sound module, while it exists.
extern TSoundFX *SoundFX;

// Before a question: WAVE_1 when PlaySounds is 1, WAVE_6 when it is above 1.
void PlayQuestionSound();
// Before an error message: WAVE_7 when PlaySounds is above 0.
void PlayErrorSound();
