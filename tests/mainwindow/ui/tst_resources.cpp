// The program's built-in pictures, cursors and sounds: each one is there and draws something
// at small and large sizes, look-alike glyphs can be told apart, the cursors point with their
// tips, the sounds are well-formed wave files, and playing them never holds the program up.

#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/appresources.h"
#include "mainwindow/ui/tsoundfx.h"
#include "uitestmain.h"

#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTest>
#include <QtEndian>

#include <cstdlib>
#include <vector>

namespace {

const QStringList GlyphNames = {
    "MOUSEACR", "MOUSEDWN", "DIAGSYMMETRY", "HORSYMMETRY", "NOTSYMMETRY", "OFFSYMMETRY",
    "SQUARES",  "LETTERS",  "AUTOCLUE",     "CHEAT",       "DICT",        "UPDATE",
    "CONSTRUCT", "SOLVE",   "SAVE",         "PRINT",       "SCORE",       "LOGO",
};
const QStringList CursorNames = {"PENCIL", "HANDPNT"};

// The share of a picture's pixels that are not (nearly) transparent.
double CoveredShare(const QImage &picture)
{
    const QImage image = picture.convertToFormat(QImage::Format_ARGB32);
    int covered = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            covered += qAlpha(image.pixel(x, y)) > 64;
    return image.isNull() ? 0 : double(covered) / (image.width() * image.height());
}

double DifferingShare(const QImage &a, const QImage &b)
{
    const QImage left = a.convertToFormat(QImage::Format_ARGB32);
    const QImage right = b.convertToFormat(QImage::Format_ARGB32);
    int differing = 0;
    for (int y = 0; y < left.height(); ++y)
        for (int x = 0; x < left.width(); ++x) {
            const QRgb p = left.pixel(x, y), q = right.pixel(x, y);
            differing += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q))
                             + std::abs(qBlue(p) - qBlue(q)) + std::abs(qAlpha(p) - qAlpha(q))
                         > 96;
        }
    return double(differing) / (left.width() * left.height());
}

QImage GlyphImage(const QString &name, int side)
{
    return Glyph(name).pixmap(QSize(side, side)).toImage();
}

// A wave file read independently of the program: the fields of its header and its samples.
struct Wave {
    QString problem; // empty when the file is well formed
    quint16 format = 0, channels = 0, blockAlign = 0, bits = 0;
    quint32 rate = 0, byteRate = 0;
    std::vector<qint16> samples;
};

Wave ReadWave(const QByteArray &bytes)
{
    Wave wave;
    const auto *data = reinterpret_cast<const uchar *>(bytes.constData());
    auto u16 = [&](qsizetype at) { return qFromLittleEndian<quint16>(data + at); };
    auto u32 = [&](qsizetype at) { return qFromLittleEndian<quint32>(data + at); };
    if (bytes.size() < 12 || bytes.left(4) != "RIFF" || bytes.mid(8, 4) != "WAVE") {
        wave.problem = "no RIFF/WAVE header";
        return wave;
    }
    if (u32(4) != quint32(bytes.size() - 8)) {
        wave.problem = "RIFF size does not match the file";
        return wave;
    }
    bool haveFormat = false;
    for (qsizetype at = 12; at + 8 <= bytes.size();) {
        const QByteArray id = bytes.mid(at, 4);
        const quint32 size = u32(at + 4);
        if (at + 8 + qsizetype(size) > bytes.size()) {
            wave.problem = "chunk " + QString::fromLatin1(id) + " runs past the end";
            return wave;
        }
        if (id == "fmt ") {
            haveFormat = size >= 16;
            wave.format = u16(at + 8);
            wave.channels = u16(at + 10);
            wave.rate = u32(at + 12);
            wave.byteRate = u32(at + 16);
            wave.blockAlign = u16(at + 20);
            wave.bits = u16(at + 22);
        } else if (id == "data") {
            if (!haveFormat) {
                wave.problem = "data before format";
                return wave;
            }
            if (size % 2 != 0) {
                wave.problem = "odd data length for 16-bit samples";
                return wave;
            }
            for (quint32 i = 0; i < size; i += 2)
                wave.samples.push_back(qFromLittleEndian<qint16>(data + at + 8 + i));
        }
        at += 8 + size + (size & 1);
    }
    if (!haveFormat || wave.samples.empty())
        wave.problem = "format or data chunk missing";
    return wave;
}

Wave ReadWaveResource(int number)
{
    QFile file(QStringLiteral(":/sounds/WAVE_%1.wav").arg(number));
    if (!file.open(QIODevice::ReadOnly)) {
        Wave missing;
        missing.problem = "resource missing";
        return missing;
    }
    return ReadWave(file.readAll());
}

// Sign changes a second: a rough measure of how high a sound is.
double CrossingsPerSecond(const Wave &wave)
{
    int crossings = 0;
    for (std::size_t i = 1; i < wave.samples.size(); ++i)
        crossings += (wave.samples[i - 1] < 0) != (wave.samples[i] < 0);
    return crossings * double(wave.rate) / wave.samples.size();
}

} // namespace

class TestResources : public QObject {
    Q_OBJECT

private slots:
    void picturesDrawAtSmallAndLargeSizes_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("glyph");
        for (const QString &name : GlyphNames)
            QTest::newRow(qPrintable(name)) << ":/glyphs/" + name + ".svg" << name;
        for (const QString &name : CursorNames)
            QTest::newRow(qPrintable(name)) << ":/cursors/" + name + ".svg" << QString();
    }

    void picturesDrawAtSmallAndLargeSizes()
    {
        QFETCH(QString, path);
        QFETCH(QString, glyph);
        QSvgRenderer renderer(path);
        QVERIFY2(renderer.isValid(), qPrintable(path + " is missing or does not parse"));
        for (int side : {16, 64}) {
            // Drawn into a side x side square, keeping the picture's proportions.
            const QSize size = renderer.defaultSize().scaled(side, side, Qt::KeepAspectRatio);
            QImage image(size, QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            renderer.render(&painter);
            painter.end();
            QVERIFY2(CoveredShare(image) > 0.1,
                     qPrintable(QStringLiteral("%1 is nearly empty at %2 px").arg(path).arg(side)));
            if (!glyph.isEmpty()) {
                const QImage icon = GlyphImage(glyph, side);
                QVERIFY(!icon.isNull());
                QVERIFY2(CoveredShare(icon) > 0.1,
                         qPrintable(QStringLiteral("Glyph(%1) is empty at %2 px").arg(glyph).arg(side)));
            }
        }
    }

    void lookAlikeGlyphsDiffer()
    {
        const QList<QStringList> groups = {
            {"MOUSEACR", "MOUSEDWN"},
            {"DIAGSYMMETRY", "HORSYMMETRY", "NOTSYMMETRY", "OFFSYMMETRY"},
        };
        for (const QStringList &group : groups)
            for (qsizetype i = 0; i < group.size(); ++i)
                for (qsizetype j = i + 1; j < group.size(); ++j)
                    for (int side : {16, 24}) {
                        const double share =
                            DifferingShare(GlyphImage(group[i], side), GlyphImage(group[j], side));
                        QVERIFY2(share > 0.05, qPrintable(QStringLiteral("%1 and %2 look alike at %3 px")
                                                              .arg(group[i], group[j])
                                                              .arg(side)));
                    }
    }

    void cursorsPointWithTheirTips()
    {
        struct Expected {
            QString name;
            QRect hotSpotArea; // where the tip is drawn in the 32 x 32 picture
        };
        const Expected cursors[] = {
            {"PENCIL", QRect(0, 24, 8, 8)},  // point at the bottom left
            {"HANDPNT", QRect(0, 0, 16, 8)}, // fingertip at the top left
        };
        for (const Expected &expected : cursors) {
            const QCursor cursor = AppCursor(expected.name);
            QCOMPARE(cursor.shape(), Qt::BitmapCursor);
            const QPixmap pixmap = cursor.pixmap();
            QCOMPARE(pixmap.deviceIndependentSize(), QSizeF(32, 32));
            const QPoint hot = cursor.hotSpot();
            QVERIFY2(expected.hotSpotArea.contains(hot), qPrintable(expected.name));

            // The tip itself is drawn right at the hot spot.
            const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
            const qreal ratio = pixmap.devicePixelRatio();
            bool tipDrawn = false;
            for (int dy = -2; dy <= 2; ++dy)
                for (int dx = -2; dx <= 2; ++dx) {
                    const QPoint at = ((hot + QPoint(dx, dy)) * ratio);
                    if (image.rect().contains(at) && qAlpha(image.pixel(at)) > 128)
                        tipDrawn = true;
                }
            QVERIFY2(tipDrawn, qPrintable(expected.name + " has nothing drawn at its hot spot"));
        }
        QCOMPARE(AppCursor("NOSUCHCURSOR").shape(), Qt::ArrowCursor);
    }

    void soundsAreWellFormedWaveFiles_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<double>("shortest");
        QTest::addColumn<double>("longest");
        QTest::newRow("WAVE_1 question") << 1 << 0.3 << 1.2;
        QTest::newRow("WAVE_2 right") << 2 << 0.6 << 1.0;
        QTest::newRow("WAVE_3 wrong") << 3 << 0.3 << 1.2;
        QTest::newRow("WAVE_4 tick") << 4 << 0.01 << 0.15;
        QTest::newRow("WAVE_5 blip") << 5 << 0.1 << 0.3;
        QTest::newRow("WAVE_6 question") << 6 << 0.3 << 1.2;
        QTest::newRow("WAVE_7 error") << 7 << 0.2 << 1.0;
    }

    void soundsAreWellFormedWaveFiles()
    {
        QFETCH(int, number);
        QFETCH(double, shortest);
        QFETCH(double, longest);
        const Wave wave = ReadWaveResource(number);
        QVERIFY2(wave.problem.isEmpty(), qPrintable(wave.problem));
        QCOMPARE(wave.format, quint16(1)); // PCM
        QCOMPARE(wave.channels, quint16(1));
        QCOMPARE(wave.rate, quint32(22050));
        QCOMPARE(wave.bits, quint16(16));
        QCOMPARE(wave.blockAlign, quint16(wave.channels * wave.bits / 8));
        QCOMPARE(wave.byteRate, wave.rate * wave.blockAlign);

        const double seconds = double(wave.samples.size()) / wave.rate;
        QVERIFY2(seconds >= shortest && seconds <= longest, qPrintable(QString::number(seconds)));

        // Audible but not clipped, and faded at both ends so it neither starts nor stops with
        // a click.
        int peak = 0;
        for (qint16 sample : wave.samples)
            peak = std::max(peak, std::abs(int(sample)));
        QVERIFY(peak > 3000);
        QVERIFY(peak < 32767);
        QVERIFY(std::abs(int(wave.samples.front())) < 200);
        QVERIFY(std::abs(int(wave.samples.back())) < 200);
    }

    void soundsAreDistinct()
    {
        const Wave question1 = ReadWaveResource(1);
        const Wave question2 = ReadWaveResource(6);
        const Wave error = ReadWaveResource(7);
        QVERIFY(question1.problem.isEmpty() && question2.problem.isEmpty() && error.problem.isEmpty());
        QVERIFY(question1.samples != question2.samples);
        // The error buzz sits well below both question chimes.
        QVERIFY(CrossingsPerSecond(error) * 2 < CrossingsPerSecond(question1));
        QVERIFY(CrossingsPerSecond(error) * 2 < CrossingsPerSecond(question2));
    }

    void playingNeverHoldsTheProgramUp()
    {
        TSoundFX sounds;
        QElapsedTimer clock;
        clock.start();
        sounds.PlaySync(5);
        sounds.PlaySync(2); // the longest sound, about 0.8 s
        QVERIFY2(clock.elapsed() < 4000, qPrintable(QString::number(clock.elapsed())));
        clock.restart();
        sounds.Play(4);
        sounds.Play(3);
        QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
        sounds.PlaySync(0); // no such sound: still recorded, and nothing to wait for
        QCOMPARE(sounds.Played(), QList<int>({5, 2, 4, 3, 0}));
    }

    void questionAndErrorSoundsFollowPlaySounds()
    {
        const int saved = PlaySounds;
        struct Case {
            int playSounds;
            QList<int> question, error;
        };
        const Case cases[] = {
            {0, {}, {}},
            {1, {1}, {7}},
            {2, {6}, {7}},
            {5, {6}, {7}},
        };
        for (const Case &c : cases) {
            PlaySounds = c.playSounds;
            TSoundFX sounds;
            QCOMPARE(SoundFX, &sounds);
            PlayQuestionSound();
            QCOMPARE(sounds.Played(), c.question);
            PlayErrorSound();
            QCOMPARE(sounds.Played(), c.question + c.error);
        }
        QCOMPARE(SoundFX, nullptr);
        PlayQuestionSound(); // no sound module: nothing happens
        PlaySounds = saved;
    }
};

QUILLMARK_UI_TEST_MAIN(TestResources)
#include "tst_resources.moc"
