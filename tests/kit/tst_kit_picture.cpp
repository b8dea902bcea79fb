// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What the real ffmpeg makes of pictures by the graphs of the kit.

#include <algorithm>
#include <cmath>

#include <QColor>
#include <QFont>
#include <QTemporaryDir>
#include <QtTest>

#include <zokit/graph.h>
#include <zokit/properties.h>
#include <zokit/subtitlescript.h>

#include "graphsupport.h"
#include "kitsupport.h"
#include "testapplication.h"

using graphsupport::append;
using graphsupport::clip;
using graphsupport::ffmpeg;
using graphsupport::filtered;
using graphsupport::Frame;
using graphsupport::frame;
using graphsupport::pattern;
using graphsupport::plain;
using graphsupport::set;
using graphsupport::useEffect;
using zokit::GraphParts;
using zokit::MediaInfo;
using zokit::Settings;

namespace {

/// What a sample of a plane is to be.
struct Pixel {
    int plane = 0;
    QPoint place;
    int value = 0;
    int range = 0; ///< How far beside it is right, too.
};

} // namespace

Q_DECLARE_METATYPE(zokit::Values)
Q_DECLARE_METATYPE(Pixel)

namespace {

const QString yuv420 = QStringLiteral("yuv420p");
const QSize small(160, 120);

/// Values of a plane at the middle of five patches beside each other.
QVector<int> patches(const Frame& picture, int plane)
{
    QVector<int> values;
    const QSize size = picture.planeSize(plane);
    for (int patch = 0; patch < 5; ++patch)
        values.append(picture.at(plane, (2 * patch + 1) * size.width() / 10, size.height() / 2));
    return values;
}

/// A frame of five luma patches and one colour.
Frame patched(const QVector<int>& luma, int u, int v, const QString& format = yuv420)
{
    Frame picture = frame(small, format);
    for (int y = 0; y < small.height(); ++y) {
        for (int x = 0; x < small.width(); ++x)
            picture.put(0, x, y, luma.at(x * 5 / small.width()));
    }
    picture.fill(1, u);
    picture.fill(2, v);
    return picture;
}

MediaInfo inRange(const QSize& size, const char* range, const QString& format = yuv420)
{
    MediaInfo media = clip(size, format);
    media.streams.first().range = QString::fromLatin1(range);
    return media;
}

/// Rows of luma that are lighter than \a threshold, from the first to the last; columns the same.
QRect inkOf(const Frame& picture, int threshold)
{
    QRect ink;
    for (int y = 0; y < picture.size.height(); ++y) {
        for (int x = 0; x < picture.size.width(); ++x) {
            if (picture.at(0, x, y) >= threshold)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

QByteArray srt(const char* text)
{
    return QByteArray(
               "[Script Info]\nPlayResX: 384\nPlayResY: 288\n\n[Events]\nFormat: Layer, Start, End, Style, Name, "
               "MarginL, MarginR, MarginV, Effect, Text\nDialogue: 0,0:00:00.00,0:00:09.00,Default,,0,0,0,,")
           + text + "\n";
}

QString written(const QTemporaryDir& folder, const char* name, const QByteArray& content)
{
    const QString path = folder.filePath(QString::fromLatin1(name));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        return QString();
    return path;
}

} // namespace

class TestKitPicture : public QObject {
    Q_OBJECT

private slots:
    void colourChangesLevels_data();
    void colourChangesLevels();
    void cropIsExact_data();
    void cropIsExact();
    void oddFramesLoseOneRowAndColumn();
    void fullRangeStaysFullRange();
    void effectChangesLevels_data();
    void effectChangesLevels();
    void effectHasItsPixels_data();
    void effectHasItsPixels();
    void noiseIsAsStrongAsItSays();
    void effectMovesPixels();
    void effectsRunAtEveryDepth_data();
    void effectsRunAtEveryDepth();
    void pictureIsTurned_data();
    void pictureIsTurned();
    void watermarkLiesOverEffectsAndIsCropped();
    void subtitleStandsAtItsPlace_data();
    void subtitleStandsAtItsPlace();
    void subtitleHasItsColour();
    void previewIsTheOutput();
    void hdrIsMapped();

private:
    QTemporaryDir m_folder;
};

void TestKitPicture::colourChangesLevels_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("value");
    QTest::addColumn<QVector<int>>("luma");
    QTest::addColumn<QVector<int>>("colours");

    using Row = QVector<int>;
    const Row same{100, 160};
    const auto row = [](const char* name, const char* key, int value, const Row& luma, const Row& colours) {
        QTest::newRow(name) << QString::fromLatin1(key) << value << luma << colours;
    };
    row("brightness -50", "bcs_brightness", -50, {16, 16, 18, 70, 125}, same);
    row("brightness -25", "bcs_brightness", -25, {16, 16, 73, 125, 180}, same);
    row("brightness 25", "bcs_brightness", 25, {70, 118, 182, 234, 235}, same);
    row("brightness 50", "bcs_brightness", 50, {125, 173, 235, 235, 235}, same);
    row("contrast -50", "bcs_contrast", -50, {70, 94, 126, 152, 180}, same);
    row("contrast -25", "bcs_contrast", -25, {43, 79, 127, 166, 207}, same);
    row("contrast 25", "bcs_contrast", 25, {16, 48, 128, 193, 235}, same);
    row("contrast 50", "bcs_contrast", 50, {16, 33, 129, 207, 235}, same);
    row("saturation -50", "bcs_saturation", -50, {16, 64, 128, 180, 235}, {128, 128});
    row("saturation -25", "bcs_saturation", -25, {16, 64, 128, 180, 235}, {114, 144});
    row("saturation 25", "bcs_saturation", 25, {16, 64, 128, 180, 235}, {86, 176});
    row("saturation 50", "bcs_saturation", 50, {16, 64, 128, 180, 235}, {72, 192});
}

void TestKitPicture::colourChangesLevels()
{
    QFETCH(const QString, key);
    QFETCH(const int, value);
    QFETCH(const QVector<int>, luma);
    QFETCH(const QVector<int>, colours);
    Settings settings = plain(small);
    set(settings, "Color", key.toLatin1().constData(), value);
    const Frame out = filtered(settings, clip(small), patched({16, 64, 128, 180, 235}, 100, 160));
    QCOMPARE(patches(out, 0), luma);
    QCOMPARE((QVector<int>{out.at(1, 40, 30), out.at(2, 40, 30)}), colours);

    if (value != 25)
        return;
    // Ten bits stay: four codes for one, and those between.
    const QString deep = QStringLiteral("yuv420p10le");
    const Frame deepOut = filtered(settings, clip(small, deep), patched({64, 256, 512, 720, 940}, 400, 640, deep));
    for (int patch = 0; patch < 5; ++patch)
        QCOMPARE(patches(deepOut, 0).at(patch) / 4, luma.at(patch));
}

void TestKitPicture::cropIsExact_data()
{
    QTest::addColumn<QRect>("crop");
    QTest::addColumn<QRect>("kept");

    QTest::newRow("even") << QRect(20, 10, 80, 60) << QRect(20, 10, 80, 60);
    QTest::newRow("at an odd place, of an odd size") << QRect(21, 11, 81, 61) << QRect(21, 11, 80, 60);
    QTest::newRow("beyond the frame") << QRect(100, 70, 80, 60) << QRect(100, 70, 60, 50);
}

void TestKitPicture::cropIsExact()
{
    QFETCH(const QRect, crop);
    QFETCH(const QRect, kept);
    Settings settings = plain(small);
    set(settings, "Crop", "crop_left", crop.left());
    set(settings, "Crop", "crop_top", crop.top());
    set(settings, "Crop", "crop_width", crop.width());
    set(settings, "Crop", "crop_height", crop.height());
    const Frame source = pattern(small);
    const Frame out = filtered(settings, clip(small), source);
    QCOMPARE(out.size, kept.size());
    QCOMPARE(out.bytes.size(), kept.width() * kept.height() * 3 / 2);
    int different = 0;
    for (int y = 0; y < kept.height(); ++y) {
        for (int x = 0; x < kept.width(); ++x)
            different += out.at(0, x, y) != source.at(0, x + kept.left(), y + kept.top()) ? 1 : 0;
    }
    QCOMPARE(different, 0);
}

void TestKitPicture::oddFramesLoseOneRowAndColumn()
{
    const QSize odd(161, 121);
    const Frame source = pattern(odd);
    const Frame out = filtered(plain(odd), clip(odd), source);
    QCOMPARE(out.size, small);
    QCOMPARE(out.bytes.size(), 160 * 120 * 3 / 2);
    QCOMPARE(out.at(0, 159, 119), source.at(0, 159, 119));
    QCOMPARE(out.at(0, 0, 0), source.at(0, 0, 0));
}

void TestKitPicture::fullRangeStaysFullRange()
{
    const Frame source = patched({0, 16, 128, 235, 255}, 0, 255);
    const auto levels = [&](const char* effect, const QString& format) {
        Settings settings = plain(small);
        useEffect(settings, QString::fromLatin1(effect));
        Frame given = source;
        given.format = format;
        GraphParts parts;
        parts.pixelFormat = yuv420;
        const Frame out = filtered(settings, inRange(small, "pc", format), given, parts);
        return patches(out, 0) + QVector<int>{out.at(1, 40, 30), out.at(2, 40, 30)};
    };
    using Row = QVector<int>;
    QCOMPARE(levels("", yuv420), (Row{0, 16, 128, 235, 255, 0, 255}));
    QCOMPARE(levels("", QStringLiteral("yuvj420p")), (Row{0, 16, 128, 235, 255, 0, 255}));
    QCOMPARE(levels("Greyscale", yuv420), (Row{0, 16, 128, 235, 255, 128, 128}));
    QCOMPARE(levels("Greyscale", QStringLiteral("yuvj420p")), (Row{0, 16, 128, 235, 255, 128, 128}));
    QCOMPARE(levels("Negative", yuv420), (Row{255, 239, 127, 20, 0, 255, 1}));

    Settings scaled = plain(small);
    scaled.output.insert(QStringLiteral("size"), QStringLiteral("80x60"));
    const Frame out = filtered(scaled, inRange(small, "pc"), source);
    QCOMPARE(out.size, QSize(80, 60));
    QCOMPARE(patches(out, 0), (Row{0, 16, 128, 235, 255}));
}

void TestKitPicture::effectChangesLevels_data()
{
    QTest::addColumn<QVector<int>>("luma");
    QTest::addColumn<QVector<int>>("colours");

    using Row = QVector<int>;
    const Row same{16, 64, 128, 180, 235};
    QTest::newRow("Sepia") << same << Row{110, 146};
    QTest::newRow("Greyscale") << same << Row{128, 128};
    QTest::newRow("Negative") << Row{235, 187, 123, 71, 16} << Row{156, 96};
    QTest::newRow("Posterize") << Row{16, 78, 141, 172, 235} << Row{100, 160}; // Steps of 219/7.
    QTest::newRow("Warm") << same << Row{90, 170};
    QTest::newRow("Cool") << same << Row{110, 154};
    QTest::newRow("Edge") << Row{16, 16, 16, 16, 16} << Row{128, 128};
    QTest::newRow("Blur") << same << Row{100, 160};
    QTest::newRow("Sharpen") << same << Row{100, 160};
}

void TestKitPicture::effectChangesLevels()
{
    QFETCH(const QVector<int>, luma);
    QFETCH(const QVector<int>, colours);
    Settings settings = plain(small);
    useEffect(settings, QString::fromLatin1(QTest::currentDataTag()));
    const Frame out = filtered(settings, clip(small), patched({16, 64, 128, 180, 235}, 100, 160));
    QCOMPARE(patches(out, 0), luma);
    QCOMPARE((QVector<int>{out.at(1, 40, 30), out.at(2, 40, 30)}), colours);
}

void TestKitPicture::effectHasItsPixels_data()
{
    QTest::addColumn<QVector<int>>("luma"); // Of the patches, with colours of 100 and 160; empty: the pattern.
    QTest::addColumn<QVector<Pixel>>("pixels");

    const QVector<int> step{100, 100, 120, 120, 120}; // From column 64 on it is lighter.
    const QVector<int> flat(5, 100);
    const QVector<int> light(5, 202);
    const QVector<Pixel> sameColours{{1, {40, 30}, 100}, {2, {40, 30}, 160}};
    // Column 63: -3 * 100 + 100 + 3 * 120; column 64: -3 * 100 + 4 * 120.
    QTest::newRow("Emboss") << step
                            << QVector<Pixel>{{0, {20, 60}, 100},
                                              {0, {63, 60}, 160},
                                              {0, {64, 60}, 180},
                                              {0, {100, 60}, 120}}
                                   + sameColours;
    // Four times the step on both sides of it; black elsewhere.
    QTest::newRow("Edge") << step
                          << QVector<Pixel>{
                                 {0, {20, 60}, 16}, {0, {63, 60}, 80}, {0, {64, 60}, 80}, {1, {40, 30}, 128}};
    // Twice itself without the mean by 1, 4, 6, 4, 1 sixteenths: 101, 106, 114, 119.
    QTest::newRow("Sharpen") << step
                             << QVector<Pixel>{{0, {61, 60}, 100}, {0, {62, 60}, 99},  {0, {63, 60}, 94},
                                               {0, {64, 60}, 126}, {0, {65, 60}, 121}, {0, {66, 60}, 120}}
                                    + sameColours;
    // The fourth power of the cosine of an eighth of a circle in the corner, 100 pixels from the middle: a quarter.
    // Colours come nearer to 127.
    QTest::newRow("Vignette") << light
                              << QVector<Pixel>{{0, {80, 60}, 202}, {0, {120, 90}, 147}, {0, {0, 60}, 86},
                                                {0, {0, 0}, 50},    {1, {0, 0}, 120},    {2, {0, 0}, 135}}
                                     + sameColours;
    // Colours of 110 and 146, seven levels of noise in both directions, and the vignette.
    QTest::newRow("Old Film") << light
                              << QVector<Pixel>{{0, {80, 60}, 202, 7}, {0, {120, 90}, 147, 5}, {0, {0, 0}, 50, 2},
                                                {1, {40, 30}, 110},    {2, {40, 30}, 146},     {1, {0, 0}, 122},
                                                {2, {0, 0}, 131}};
    // What was 30 and 40 pixels from the middle, half of the way to the corner, was 1.08125 times as far.
    QTest::newRow("Fisheye") << QVector<int>()
                             << QVector<Pixel>{{0, {80, 60}, 182},   // Of the same place.
                                               {0, {110, 100}, 143}, // Of (112, 103).
                                               {0, {50, 20}, 183},   // Of (48, 17).
                                               {0, {0, 0}, 16}};     // Of none.
    // 100 on 100: 255 - 155 * 155 / 255 is 161; four tenths of the way there.
    QTest::newRow("Glow") << flat << QVector<Pixel>{{0, {80, 60}, 124}} + sameColours;
    // Two of 20 columns and of 15 rows are half white: 127 / 255 of the way from 100 to 235.
    QTest::newRow("Grid") << flat << QVector<Pixel>{{0, {19, 8}, 100},  {0, {20, 8}, 167},  {0, {21, 8}, 167},
                                                    {0, {22, 8}, 100},  {0, {10, 14}, 100}, {0, {10, 15}, 167},
                                                    {0, {10, 16}, 167}, {0, {10, 17}, 100}, {0, {140, 105}, 167}};
}

void TestKitPicture::effectHasItsPixels()
{
    QFETCH(const QVector<int>, luma);
    QFETCH(const QVector<Pixel>, pixels);
    Settings settings = plain(small);
    useEffect(settings, QString::fromLatin1(QTest::currentDataTag()));
    const Frame out = filtered(settings, clip(small), luma.isEmpty() ? pattern(small) : patched(luma, 100, 160));
    for (const Pixel& pixel : pixels) {
        const int value = out.at(pixel.plane, pixel.place.x(), pixel.place.y());
        const QString found = QStringLiteral("%1 instead of %2 at (%3, %4) of plane %5")
                                  .arg(value)
                                  .arg(pixel.value)
                                  .arg(pixel.place.x())
                                  .arg(pixel.place.y())
                                  .arg(pixel.plane);
        QVERIFY2(std::abs(value - pixel.value) <= pixel.range, qPrintable(found));
    }
}

void TestKitPicture::noiseIsAsStrongAsItSays()
{
    Settings settings = plain(small);
    useEffect(settings, QStringLiteral("Noise"));
    const Frame out = filtered(settings, clip(small), patched(QVector<int>(5, 128), 128, 128));
    for (int plane = 0; plane < 3; ++plane) {
        const QSize size = out.planeSize(plane);
        double sum = 0;
        double squares = 0;
        for (int i = 0; i < size.width() * size.height(); ++i) {
            const int off = out.at(plane, i % size.width(), i / size.width()) - 128;
            sum += off;
            squares += off * off;
        }
        const double count = double(size.width()) * size.height();
        QVERIFY2(std::abs(sum / count) < 1, QByteArray::number(sum / count));
        // 20 divided by the root of 3, of which each sample loses what is behind the point.
        const double deviation = std::sqrt(squares / count);
        QVERIFY2(std::abs(deviation - 11.15) < 0.7, QByteArray::number(deviation));
    }

    // Up to seven levels in both directions, in the middle, of which the vignette takes less than one.
    Settings film = plain(small);
    useEffect(film, QStringLiteral("Old Film"));
    const Frame old = filtered(film, clip(small), patched(QVector<int>(5, 202), 128, 128));
    int lowest = 255;
    int highest = 0;
    for (int i = 0; i < 64; ++i) {
        const int value = old.at(0, 76 + i % 8, 56 + i / 8);
        lowest = std::min(lowest, value);
        highest = std::max(highest, value);
    }
    QVERIFY2(lowest >= 194 && lowest <= 196, QByteArray::number(lowest));
    QVERIFY2(highest >= 207 && highest <= 209, QByteArray::number(highest));
}

void TestKitPicture::effectMovesPixels()
{
    const auto with = [](const char* effect, const Frame& source) {
        Settings settings = plain(source.size);
        useEffect(settings, QString::fromLatin1(effect));
        return filtered(settings, clip(source.size), source);
    };
    const Frame source = pattern(small);
    const Frame mirror = with("Mirror", source);
    const Frame flip = with("Flip", source);
    const Frame tiles = with("Mosaic", source);
    int wrong = 0;
    for (int y = 0; y < 120; ++y) {
        for (int x = 0; x < 160; ++x) {
            wrong += mirror.at(0, x, y) != source.at(0, 159 - x, y) ? 1 : 0;
            wrong += flip.at(0, x, y) != source.at(0, x, 119 - y) ? 1 : 0;
            wrong += tiles.at(0, x, y) != tiles.at(0, x / 2 * 2, y / 2 * 2) ? 1 : 0; // 120 / 45, even.
        }
    }
    QCOMPARE(wrong, 0);

    // Also where the half of the width is odd.
    for (const int width : {160, 158}) {
        const Frame wide = pattern(QSize(width, 120));
        const Frame both = with("Kaleidoscope", wide);
        QCOMPARE(both.size, wide.size);
        QCOMPARE(both.bytes.size(), wide.bytes.size());
        QCOMPARE(both.at(0, 3, 50), wide.at(0, 3, 50));
        QCOMPARE(both.at(0, 156, 50), wide.at(0, 3, 50));
    }
}

void TestKitPicture::effectsRunAtEveryDepth_data()
{
    QTest::addColumn<QString>("format");
    for (const char* format : {"yuv420p", "yuv420p10le", "yuv444p", "yuv422p10le"})
        QTest::newRow(format) << QString::fromLatin1(format);
}

void TestKitPicture::effectsRunAtEveryDepth()
{
    // All twenty after each other: each of them runs, and labels do not meet.
    QFETCH(const QString, format);
    Settings settings = plain(small);
    for (const zokit::FrameEffect& effect : zokit::frameEffects())
        useEffect(settings, QString::fromLatin1(effect.name));
    const Frame source = pattern(small, format);
    const Frame out = filtered(settings, clip(small, format), source);
    QCOMPARE(out.bytes.size(), source.bytes.size());
    QVERIFY(out.bytes != source.bytes);
    // Each of them alone changes the picture.
    if (format != yuv420)
        return;
    for (const zokit::FrameEffect& effect : zokit::frameEffects()) {
        Settings one = plain(small);
        useEffect(one, QString::fromLatin1(effect.name));
        const Frame changed = filtered(one, clip(small), source);
        QVERIFY2(changed.bytes.size() == source.bytes.size() && changed.bytes != source.bytes, effect.name);
    }
}

void TestKitPicture::pictureIsTurned_data()
{
    QTest::addColumn<int>("angle");
    QTest::addColumn<int>("action");
    QTest::addColumn<QPoint>("corner"); // Where the left upper pixel comes to.

    QTest::newRow("90") << 90 << 0 << QPoint(119, 0);
    QTest::newRow("180") << 180 << 0 << QPoint(159, 119);
    QTest::newRow("270") << 270 << 0 << QPoint(0, 159);
    QTest::newRow("left and right") << 0 << 1 << QPoint(159, 0);
    QTest::newRow("top and bottom") << 0 << 2 << QPoint(0, 119);
    QTest::newRow("both") << 0 << 3 << QPoint(159, 119);
    QTest::newRow("90, then left and right") << 90 << 1 << QPoint(0, 0);
}

void TestKitPicture::pictureIsTurned()
{
    QFETCH(const int, angle);
    QFETCH(const int, action);
    QFETCH(const QPoint, corner);
    Settings settings = plain(small);
    set(settings, "Crop", "player_map_flag", true);
    set(settings, "Effect", "crop_rotation_angle", angle);
    set(settings, "Effect", "crop_rotation_action", action);
    Frame source = frame(small);
    source.put(0, 0, 0, 235);
    const Frame out = filtered(settings, clip(small), source);
    QCOMPARE(out.size, angle == 90 || angle == 270 ? QSize(120, 160) : small);
    QCOMPARE(inkOf(out, 200), QRect(corner, QSize(1, 1)));
}

void TestKitPicture::watermarkLiesOverEffectsAndIsCropped()
{
    QImage mark(small, QImage::Format_RGBA8888);
    mark.fill(Qt::transparent);
    for (int y = 20; y < 30; ++y) {
        for (int x = 20; x < 40; ++x)
            mark.setPixelColor(x, y, Qt::white);
    }
    const QString path = m_folder.filePath(QStringLiteral("over.png"));
    QVERIFY(mark.save(path));
    Settings settings = plain(small);
    useEffect(settings, QStringLiteral("Mirror"));
    useEffect(settings, QStringLiteral("Negative"));
    set(settings, "Crop", "crop_left", 11);
    set(settings, "Crop", "crop_top", 7);
    set(settings, "Crop", "crop_width", 100);
    set(settings, "Crop", "crop_height", 100);
    GraphParts parts;
    parts.watermarkInput = 1;
    Frame source = frame(small);
    source.fill(0, 235); // Which becomes black.
    const Frame out = filtered(settings, clip(small), source, parts,
                               {QStringLiteral("-f"), QStringLiteral("png_pipe"), QStringLiteral("-i"), path});
    QCOMPARE(inkOf(out, 230), QRect(9, 13, 20, 10));
}

void TestKitPicture::subtitleStandsAtItsPlace_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("top");
    QTest::addColumn<double>("from");
    QTest::addColumn<int>("inkTop");
    QTest::addColumn<int>("inkHeight");

    // 22 points are 29.3 pixels: capitals are 21 pixels high, and the ascent is 6 higher. A pixel of outline is dark.
    QTest::newRow("720 lines") << QSize(640, 720) << 22 << 100 << 0.0 << 106 << 21;
    QTest::newRow("after a seek") << QSize(640, 720) << 22 << 100 << 2.5 << 106 << 21;
    QTest::newRow("360 lines, 12 points") << QSize(640, 360) << 12 << 100 << 0.0 << 103 << 12;
    QTest::newRow("below the frame") << QSize(640, 360) << 22 << 400 << 0.0 << 332 << 21;
}

void TestKitPicture::subtitleStandsAtItsPlace()
{
    QFETCH(const QSize, size);
    QFETCH(const int, points);
    QFETCH(const int, top);
    QFETCH(const double, from);
    QFETCH(const int, inkTop);
    QFETCH(const int, inkHeight);
    const zokit::Values style{{QStringLiteral("sub_fontsize"), points}, {QStringLiteral("sub_vposition"), top}};
    const QByteArray text = from > 0 ? QByteArray(srt("H")).replace("0:00:00.00", "0:00:02.50") : srt("H");
    const zokit::OwnSubtitles own = zokit::ownSubtitles(text, style, {size, false, false});
    Settings settings = plain(size);
    append(settings, "Subtitle", style);
    GraphParts parts;
    parts.subtitleScript = written(m_folder, "it's [own],50%;1.ass", own.script);
    parts.from = from;
    Frame grey = frame(size);
    grey.fill(0, 60);
    const Frame out = filtered(settings, clip(size), grey, parts);
    const QRect ink = inkOf(out, 150);
    QVERIFY2(std::abs(ink.top() - inkTop) <= 1, QByteArray::number(ink.top()));
    QVERIFY2(std::abs(ink.height() - inkHeight) <= 1, QByteArray::number(ink.height()));
    QVERIFY2(std::abs(ink.center().x() - size.width() / 2) <= 1, QByteArray::number(ink.center().x()));
    // Before its time it is not there.
    if (from > 0) {
        parts.from = 2.4;
        QCOMPARE(inkOf(filtered(settings, clip(size), grey, parts), 150), QRect());
    }
}

void TestKitPicture::subtitleHasItsColour()
{
    const QSize size(320, 240);
    const auto drawn = [&](const QColor& colour, int transparency) {
        const zokit::Values style{{QStringLiteral("sub_fontsize"), 72},
                                  {QStringLiteral("sub_fontstyle"), QStringLiteral("Bold")},
                                  {QStringLiteral("sub_vposition"), 60},
                                  {QStringLiteral("sub_transparency"), transparency},
                                  {QStringLiteral("sub_fontcolor"), colour}};
        const zokit::OwnSubtitles own = zokit::ownSubtitles(srt("I"), style, {size, false, false});
        Settings settings = plain(size);
        append(settings, "Subtitle", style);
        GraphParts parts;
        parts.subtitleScript = written(m_folder, "colour.ass", own.script);
        parts.subtitleInColour = own.inColour;
        Frame grey = frame(size);
        grey.fill(0, 128);
        const Frame out = filtered(settings, clip(size), grey, parts);
        const QVector<int> outside{out.at(0, 5, 5), out.at(1, 2, 2), out.at(2, 2, 2)};
        // The middle of the letter: an I stands in the middle of the frame.
        return QVector<int>{out.at(0, 160, 120), out.at(1, 80, 60), out.at(2, 80, 60)} + outside;
    };
    const auto isNear = [](const QVector<int>& left, const QVector<int>& right) {
        for (int i = 0; i < right.size(); ++i) {
            if (std::abs(left.at(i) - right.at(i)) > 1) {
                qWarning() << left << "instead of" << right;
                return false;
            }
        }
        return true;
    };
    QVERIFY(isNear(drawn(Qt::white, 0), {235, 128, 128, 128, 128, 128}));
    QVERIFY(isNear(drawn(Qt::red, 0), {63, 102, 240, 128, 128, 128}));
    QVERIFY(isNear(drawn(Qt::white, 50), {181, 128, 128, 128, 128, 128})); // 127/255 of the way from 128 to 235.
    QVERIFY(isNear(drawn(Qt::red, 50), {96, 115, 184, 128, 128, 128}));
}

void TestKitPicture::previewIsTheOutput()
{
    const QString path = m_folder.filePath(QStringLiteral("clip.mkv"));
    ffmpeg({QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"),
            QStringLiteral("testsrc2=s=160x120:r=25:d=2"), QStringLiteral("-c:v"), QStringLiteral("ffv1"),
            QStringLiteral("-g"), QStringLiteral("10"), QStringLiteral("-pix_fmt"), yuv420, path});
    QVERIFY(QFileInfo(path).size() > 0);
    QImage mark(small, QImage::Format_RGBA8888);
    mark.fill(QColor(200, 30, 60, 90));
    const QString markPath = m_folder.filePath(QStringLiteral("shade.png"));
    QVERIFY(mark.save(markPath));

    Settings settings = plain(small);
    set(settings, "Color", "bcs_contrast", 20);
    set(settings, "Crop", "crop_left", 11);
    set(settings, "Crop", "crop_top", 7);
    set(settings, "Crop", "crop_width", 100);
    set(settings, "Crop", "crop_height", 100);
    useEffect(settings, QStringLiteral("Noise"));
    useEffect(settings, QStringLiteral("Vignette"));
    append(settings, "Subtitle", {{QStringLiteral("sub_vposition"), 50}});
    const QByteArray text = QByteArray(srt("now")).replace("0:00:00.00", "0:00:01.00");
    GraphParts parts;
    parts.watermarkInput = 1;
    parts.subtitleScript =
        written(m_folder, "now.ass",
                zokit::ownSubtitles(text, settings.find(QStringLiteral("Subtitle"))->items.first().values,
                                    {small, false, false})
                    .script);
    const auto run = [&](const QStringList& seek, const QStringList& end) {
        const zokit::PictureGraph graph = zokit::pictureGraph(settings, clip(small), parts);
        return ffmpeg(seek
                      + QStringList{QStringLiteral("-i"), path, QStringLiteral("-i"), markPath,
                                    QStringLiteral("-filter_complex"), graph.text, QStringLiteral("-map"),
                                    QStringLiteral("[picture]")}
                      + end + QStringList{QStringLiteral("-f"), QStringLiteral("rawvideo"), QStringLiteral("pipe:1")});
    };
    const QByteArray whole = run({}, {});
    constexpr int frameBytes = 100 * 100 * 3 / 2;
    QCOMPARE(whole.size(), 50 * frameBytes);
    for (const int number : {0, 24, 25, 49}) {
        parts.from = number == 0 ? 0 : (number - 0.5) / 25;
        const QByteArray one = run({QStringLiteral("-ss"), QString::number(parts.from)},
                                   {QStringLiteral("-frames:v"), QStringLiteral("1")});
        QVERIFY2(one == whole.mid(number * frameBytes, frameBytes), QByteArray::number(number));
    }
    QVERIFY(whole.mid(24 * frameBytes, frameBytes) != whole.mid(25 * frameBytes, frameBytes));

    // The kept frame goes the same way.
    const zokit::PictureGraph source = zokit::sourceGraph(settings, clip(small));
    const QByteArray kept = ffmpeg({QStringLiteral("-ss"), QStringLiteral("1.18"), QStringLiteral("-i"), path,
                                    QStringLiteral("-filter_complex"), source.text, QStringLiteral("-map"),
                                    QStringLiteral("[picture]"), QStringLiteral("-frames:v"), QStringLiteral("1"),
                                    QStringLiteral("-f"), QStringLiteral("rawvideo"), QStringLiteral("pipe:1")});
    parts.from = 1.2;
    const Frame shown = filtered(settings, clip(small), {small, yuv420, kept}, parts, {QStringLiteral("-i"), markPath});
    QVERIFY(shown.bytes == whole.mid(30 * frameBytes, frameBytes));
}

void TestKitPicture::hdrIsMapped()
{
    MediaInfo media = clip(small, QStringLiteral("yuv420p10le"));
    zokit::MediaStream& stream = media.streams.first();
    stream.isHdr = true;
    stream.matrix = QStringLiteral("bt2020");
    stream.colorSpace = QStringLiteral("bt2020nc");
    stream.primaries = QStringLiteral("bt2020");
    stream.transfer = QStringLiteral("smpte2084");
    Frame source = frame(small, QStringLiteral("yuv420p10le"));
    source.fill(0, 509); // 100 candelas in PQ.
    Settings settings = plain(small);
    GraphParts parts;
    parts.pixelFormat = yuv420;
    settings.output.insert(QStringLiteral("hdr"), QStringLiteral("map"));
    const Frame mapped = filtered(settings, media, source, parts);
    QCOMPARE(mapped.bytes.size(), 160 * 120 * 3 / 2);
    settings.output.insert(QStringLiteral("hdr"), QStringLiteral("keep"));
    const Frame kept = filtered(settings, media, source, parts);
    QCOMPARE(kept.at(0, 80, 60), 127); // The codes as they are, in eight bits.
    QVERIFY2(mapped.at(0, 80, 60) > 140, QByteArray::number(mapped.at(0, 80, 60)));
    QCOMPARE(mapped.at(1, 40, 30), 128);
}

ZOEFFECT_TEST_MAIN(TestKitPicture)
#include "tst_kit_picture.moc"
