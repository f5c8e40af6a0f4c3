// Writes the program's seven sound effects, WAVE_1.wav to WAVE_7.wav, into the folder named on
// the command line. The sounds are synthesized here rather than kept as recordings, so the
// build makes them and anyone can change a note in the table below.
//
// Every sound is 16-bit PCM, mono, 22050 Hz. Each note has its own attack and release, and
// the whole sound fades in and out over a few milliseconds, so no sound starts or stops with
// a click.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iostream>
#include <numbers>
#include <string>
#include <vector>

namespace {

constexpr int SampleRate = 22050;

using Signal = std::vector<double>;

// One partial of a note's timbre: a multiple of the base frequency and its strength.
struct Partial {
    double ratio;
    double level;
};

// A sine-based note laid into a signal: pitch glides linearly from `freq` to `freqEnd`,
// the level rises over `attack` seconds and then decays exponentially with time constant
// `decay` (0: held), and the last `release` seconds fade to silence.
struct Note {
    double start = 0;
    double length = 0.2;
    double freq = 440;
    double freqEnd = 0; // 0: no glide
    double level = 0.5;
    double attack = 0.005;
    double decay = 0;
    double release = 0.03;
    std::vector<Partial> timbre{{1, 1}};
    double tremolo = 0; // depth of a 30 Hz level wobble, for the buzz
};

double Envelope(const Note &note, double t)
{
    double level = 1;
    if (t < note.attack)
        level = t / note.attack;
    if (note.decay > 0)
        level *= std::exp(-t / note.decay);
    const double untilEnd = note.length - t;
    if (untilEnd < note.release)
        level *= std::max(0.0, untilEnd / note.release);
    return level;
}

void Add(Signal &signal, const Note &note)
{
    const auto first = static_cast<std::size_t>(note.start * SampleRate);
    const auto count = static_cast<std::size_t>(note.length * SampleRate);
    if (signal.size() < first + count)
        signal.resize(first + count, 0.0);
    const double glideTo = note.freqEnd > 0 ? note.freqEnd : note.freq;
    double phase = 0; // integrated so a glide stays continuous
    for (std::size_t i = 0; i < count; ++i) {
        const double t = static_cast<double>(i) / SampleRate;
        const double freq = note.freq + (glideTo - note.freq) * (t / note.length);
        phase += 2 * std::numbers::pi * freq / SampleRate;
        double value = 0;
        for (const Partial &partial : note.timbre) {
            // Partials above the Nyquist limit would fold back as harsh noise.
            if (freq * partial.ratio < SampleRate / 2.0 - 500)
                value += partial.level * std::sin(phase * partial.ratio);
        }
        if (note.tremolo > 0)
            value *= 1 - note.tremolo * (0.5 + 0.5 * std::sin(2 * std::numbers::pi * 30 * t));
        signal[first + i] += note.level * Envelope(note, t) * value;
    }
}

// Scales the sound to a comfortable peak and fades its very ends.
std::vector<std::int16_t> Finish(Signal signal, double peak)
{
    double highest = 0;
    for (double v : signal)
        highest = std::max(highest, std::abs(v));
    const double gain = highest > 0 ? peak / highest : 0;
    const std::size_t fade = SampleRate * 4 / 1000;
    std::vector<std::int16_t> samples(signal.size());
    for (std::size_t i = 0; i < signal.size(); ++i) {
        double v = signal[i] * gain;
        const std::size_t fromEnd = signal.size() - 1 - i;
        if (i < fade)
            v *= static_cast<double>(i) / fade;
        if (fromEnd < fade)
            v *= static_cast<double>(fromEnd) / fade;
        samples[i] = static_cast<std::int16_t>(std::lround(std::clamp(v, -1.0, 1.0) * 32767));
    }
    return samples;
}

const std::vector<Partial> Bell{{1, 1}, {2, 0.35}, {3, 0.12}, {4.2, 0.06}};
const std::vector<Partial> Soft{{1, 1}, {2, 0.15}};
const std::vector<Partial> Mellow{{1, 1}, {2, 0.3}, {3, 0.1}};
// Odd harmonics falling off gently: a reedy, buzzing tone without the edge of a square wave.
const std::vector<Partial> Buzz{{1, 1}, {3, 0.45}, {5, 0.25}, {7, 0.14}, {9, 0.08}};

// WAVE_1: a gentle question: two bell notes, the second a fourth higher.
Signal Question1()
{
    Signal s;
    Add(s, {.start = 0.0, .length = 0.45, .freq = 659.26, .level = 0.8, .decay = 0.22, .release = 0.08, .timbre = Bell});
    Add(s, {.start = 0.16, .length = 0.55, .freq = 880.0, .level = 0.8, .decay = 0.25, .release = 0.1, .timbre = Bell});
    return s;
}

// WAVE_6: the other question: three soft notes, down and then up past the start.
Signal Question2()
{
    Signal s;
    Add(s, {.start = 0.0, .length = 0.3, .freq = 587.33, .level = 0.7, .attack = 0.01, .decay = 0.2, .release = 0.06, .timbre = Soft});
    Add(s, {.start = 0.14, .length = 0.3, .freq = 440.0, .level = 0.7, .attack = 0.01, .decay = 0.2, .release = 0.06, .timbre = Soft});
    Add(s, {.start = 0.28, .length = 0.5, .freq = 659.26, .freqEnd = 680.0, .level = 0.75, .attack = 0.01, .decay = 0.3, .release = 0.1, .timbre = Soft});
    return s;
}

// WAVE_7: the error: a low, short buzz that wobbles a little.
Signal ErrorBuzz()
{
    Signal s;
    Add(s, {.start = 0.0, .length = 0.38, .freq = 138.59, .freqEnd = 130.81, .level = 0.9, .attack = 0.01, .release = 0.08, .timbre = Buzz, .tremolo = 0.25});
    return s;
}

// WAVE_2: the puzzle is right: a major arpeggio climbing to the octave.
Signal HappyArpeggio()
{
    Signal s;
    const double notes[] = {523.25, 659.26, 783.99, 1046.5};
    for (int i = 0; i < 4; ++i) {
        const bool last = i == 3;
        Add(s, {.start = 0.11 * i,
                .length = last ? 0.47 : 0.3,
                .freq = notes[i],
                .level = 0.7,
                .decay = last ? 0.25 : 0.15,
                .release = last ? 0.15 : 0.08,
                .timbre = Bell});
    }
    return s;
}

// WAVE_3: the puzzle is wrong: two notes falling a tritone, the second a little flat.
Signal WrongTwoTone()
{
    Signal s;
    Add(s, {.start = 0.0, .length = 0.28, .freq = 392.0, .level = 0.8, .attack = 0.01, .release = 0.05, .timbre = Mellow});
    Add(s, {.start = 0.26, .length = 0.42, .freq = 277.18, .freqEnd = 270.0, .level = 0.8, .attack = 0.01, .decay = 0.35, .release = 0.12, .timbre = Mellow});
    return s;
}

// WAVE_4: a light tick.
Signal Tick()
{
    Signal s;
    Add(s, {.start = 0.0, .length = 0.045, .freq = 2200, .freqEnd = 1800, .level = 0.8, .attack = 0.001, .decay = 0.008, .release = 0.01, .timbre = {{1, 1}, {1.5, 0.3}}});
    return s;
}

// WAVE_5: a short confirmation blip that lifts at the end.
Signal Blip()
{
    Signal s;
    Add(s, {.start = 0.0, .length = 0.08, .freq = 880.0, .level = 0.7, .attack = 0.004, .release = 0.02, .timbre = Soft});
    Add(s, {.start = 0.07, .length = 0.13, .freq = 1318.5, .level = 0.7, .attack = 0.004, .decay = 0.08, .release = 0.04, .timbre = Soft});
    return s;
}

void PutLittleEndian(std::ofstream &out, std::uint32_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        out.put(static_cast<char>((value >> (8 * i)) & 0xFF));
}

bool WriteWave(const std::string &path, const std::vector<std::int16_t> &samples)
{
    std::ofstream out(path, std::ios::binary);
    if (!out)
        return false;
    const std::uint32_t dataBytes = static_cast<std::uint32_t>(samples.size() * 2);
    out.write("RIFF", 4);
    PutLittleEndian(out, 36 + dataBytes, 4);
    out.write("WAVE", 4);
    out.write("fmt ", 4);
    PutLittleEndian(out, 16, 4);             // size of the format chunk
    PutLittleEndian(out, 1, 2);              // PCM
    PutLittleEndian(out, 1, 2);              // mono
    PutLittleEndian(out, SampleRate, 4);
    PutLittleEndian(out, SampleRate * 2, 4); // bytes a second
    PutLittleEndian(out, 2, 2);              // bytes a sample frame
    PutLittleEndian(out, 16, 2);             // bits a sample
    out.write("data", 4);
    PutLittleEndian(out, dataBytes, 4);
    for (std::int16_t sample : samples)
        PutLittleEndian(out, static_cast<std::uint16_t>(sample), 2);
    return static_cast<bool>(out.flush());
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::cerr << "usage: make_sounds OUTPUT-FOLDER\n";
        return 2;
    }
    const std::string folder = argv[1];
    struct Sound {
        int number;
        std::function<Signal()> make;
        double peak;
    };
    const Sound sounds[] = {
        {1, Question1, 0.6},   {2, HappyArpeggio, 0.6}, {3, WrongTwoTone, 0.55}, {4, Tick, 0.45},
        {5, Blip, 0.5},        {6, Question2, 0.6},     {7, ErrorBuzz, 0.5},
    };
    for (const Sound &sound : sounds) {
        const std::string path = folder + "/WAVE_" + std::to_string(sound.number) + ".wav";
        if (!WriteWave(path, Finish(sound.make(), sound.peak))) {
            std::cerr << "make_sounds: cannot write " << path << "\n";
            return 1;
        }
    }
    return 0;
}
