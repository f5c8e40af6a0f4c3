// Built-in pictures, cursors and sounds: each draws or sounds, look-alikes differ, playing never blocks.

#include "mainwindow/puzzlestate.h"
#include "mainwindow/ui/appresources.h"
#include "mainwindow/ui/tsoundfx.h"
#include "uitestmain.h"

#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QSet>
#include <QtEndian>

#include <cstdlib>

namespace {

// The share of pixels in which two pictures clearly differ; without a second picture, the
// share the first one covers.
double DifferingShare(const QImage &first, const QImage &second = {})
{
    const QImage a = first.convertToFormat(QImage::Format_ARGB32);
    QImage b = second.isNull() ? QImage(a.size(), QImage::Format_ARGB32) : second.convertToFormat(QImage::Format_ARGB32);
    if (second.isNull())
        b.fill(Qt::transparent);
    int differing = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            differing += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) + std::abs(qBlue(p) - qBlue(q))
                             + std::abs(qAlpha(p) - qAlpha(q)) > 96;
        }
    return a.isNull() ? 0 : double(differing) / (a.width() * a.height());
}

QImage GlyphImage(const QString &name, int side)
{
    return Glyph(name).pixmap(QSize(side, side)).toImage();
}

} // namespace

class TestResources : public QObject {
    Q_OBJECT

private slots:
    void glyphsAndCursorsDrawLookAlikesDifferAndCursorsPointWithTheirTips()
    {
        for (const char *name : {"MOUSEACR", "MOUSEDWN", "DIAGSYMMETRY", "HORSYMMETRY", "NOTSYMMETRY", "OFFSYMMETRY",
                                 "SQUARES", "LETTERS", "AUTOCLUE", "CHEAT", "DICT", "UPDATE", "CONSTRUCT", "SOLVE",
                                 "SAVE", "PRINT", "SCORE", "LOGO", "PASTE", "CHARMAP", "LISTDEFS", "NEXTBLANK"})
            for (int side : {16, 64})
                QVERIFY2(DifferingShare(GlyphImage(name, side)) > 0.1, qPrintable(QStringLiteral("%1 at %2 px").arg(name).arg(side)));

        // Glyphs that swap for one another on one button differ in a clear share of their pixels.
        const QList<QStringList> groups = {{"MOUSEACR", "MOUSEDWN"}, {"DIAGSYMMETRY", "HORSYMMETRY", "NOTSYMMETRY", "OFFSYMMETRY"}};
        for (const QStringList &group : groups)
            for (qsizetype i = 0; i < group.size(); ++i)
                for (qsizetype j = i + 1; j < group.size(); ++j)
                    for (int side : {16, 24})
                        QVERIFY2(DifferingShare(GlyphImage(group[i], side), GlyphImage(group[j], side)) > 0.05,
                                 qPrintable(QStringLiteral("%1 looks like %2 at %3 px").arg(group[i], group[j]).arg(side)));

        // Cursors: where the tip is in the 32 x 32 picture: the pencil's point bottom left, the fingertip top left.
        const QList<std::pair<QString, QRect>> cursors = {{"PENCIL", QRect(0, 24, 8, 8)}, {"HANDPNT", QRect(0, 0, 16, 8)}};
        for (const auto &[name, tipArea] : cursors) {
            const QCursor cursor = AppCursor(name);
            QCOMPARE(cursor.pixmap().deviceIndependentSize(), QSizeF(32, 32));
            QVERIFY2(DifferingShare(cursor.pixmap().toImage()) > 0.05, qPrintable(name));
            QVERIFY2(tipArea.contains(cursor.hotSpot()), qPrintable(name));
        }
        QCOMPARE(AppCursor("NOSUCHCURSOR").shape(), Qt::ArrowCursor);
    }

    void soundsAreWellFormedWaveFiles()
    {
        QSet<QByteArray> distinct;
        for (int number = 1; number <= 7; ++number) {
            QFile file(QStringLiteral(":/sounds/WAVE_%1.wav").arg(number));
            QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
            const QByteArray bytes = file.readAll();
            const auto *raw = reinterpret_cast<const uchar *>(bytes.constData());
            const auto u16 = [&](qsizetype at) { return qFromLittleEndian<quint16>(raw + at); };
            const auto u32 = [&](qsizetype at) { return qFromLittleEndian<quint32>(raw + at); };
            QVERIFY(bytes.size() > 44 && bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WAVE");
            QCOMPARE(u32(4), quint32(bytes.size() - 8));
            // 16-bit PCM whose block alignment, byte rate and data length agree, the data in the file.
            const qsizetype format = bytes.indexOf("fmt ") + 8, data = bytes.indexOf("data", format);
            QVERIFY(format > 8 && data > format && u16(format) == 1 && u16(format + 14) == 16);
            QVERIFY(u16(format + 12) == 2 * u16(format + 2));
            QCOMPARE(u32(format + 8), u32(format + 4) * u16(format + 12));
            const quint32 length = u32(data + 4);
            QVERIFY(data + 8 + qsizetype(length) <= bytes.size() && length % u16(format + 12) == 0);
            const double seconds = double(length) / u32(format + 8);
            QVERIFY2(seconds > 0.01 && seconds < 1.2, qPrintable(QString::number(seconds)));
            int peak = 0;
            for (quint32 i = 0; i < length; i += 2)
                peak = std::max(peak, std::abs(int(qFromLittleEndian<qint16>(raw + data + 8 + i))));
            QVERIFY2(peak > 3000, "too quiet to hear");
            distinct.insert(bytes.mid(data + 8, length));
        }
        QCOMPARE(distinct.size(), 7);
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
        // The question sound, then the error sound, by PlaySounds.
        const QList<std::pair<int, QList<int>>> cases = {{0, {}}, {1, {1, 7}}, {2, {6, 7}}, {5, {6, 7}}};
        for (const auto &[playSounds, played] : cases) {
            PlaySounds = playSounds;
            TSoundFX sounds;
            QCOMPARE(SoundFX, &sounds);
            PlayQuestionSound();
            PlayErrorSound();
            QCOMPARE(sounds.Played(), played);
        }
        QCOMPARE(SoundFX, nullptr);
        PlayQuestionSound(); // no sound module: nothing happens
        PlaySounds = saved;
    }
};

QUILLMARK_UI_TEST_MAIN(TestResources)
#include "tst_resources.moc"
