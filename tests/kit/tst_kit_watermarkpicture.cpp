// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What the real ffmpeg makes of watermarks by the graphs of the kit.

#include <array>
#include <cmath>

#include <QColor>
#include <QFont>
#include <QTemporaryDir>
#include <QtTest>

#include <zokit/graph.h>

#include "graphsupport.h"
#include "kitsupport.h"
#include "testapplication.h"

using graphsupport::append;
using graphsupport::clip;
using graphsupport::filtered;
using graphsupport::Frame;
using graphsupport::pattern;
using graphsupport::plain;
using graphsupport::set;
using zokit::GraphParts;
using zokit::MediaInfo;
using zokit::Settings;

Q_DECLARE_METATYPE(zokit::Values)

namespace {

const QString yuv420 = QStringLiteral("yuv420p");
const QSize small(160, 120);

} // namespace

class TestKitWatermarkPicture : public QObject {
    Q_OBJECT

private slots:
    void watermarkHasItsColours_data();
    void watermarkHasItsColours();
    void watermarkIsDrawnByTheLibrary();
    void watermarkKeys_data();
    void watermarkKeys();

private:
    QTemporaryDir m_folder;
};

void TestKitWatermarkPicture::watermarkHasItsColours_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("matrix");
    QTest::addColumn<QString>("range");

    for (const char* format : {"yuv420p", "yuv422p", "yuv444p", "yuv420p10le", "yuv422p10le"})
        QTest::newRow(format) << QString::fromLatin1(format) << "bt709"
                              << "tv";
    QTest::newRow("bt601") << yuv420 << "bt601"
                           << "tv";
    QTest::newRow("bt2020, ten bits") << "yuv420p10le"
                                      << "bt2020"
                                      << "tv";
    QTest::newRow("full range") << yuv420 << "bt709"
                                << "pc";
    QTest::newRow("full range by name") << "yuvj420p"
                                        << "bt709"
                                        << "pc";
}

namespace {

/// How much of the luma red and blue are.
struct Weights {
    double red = 0;
    double blue = 0;
};

Weights weightsOf(const QString& matrix)
{
    if (matrix == QLatin1String("bt709"))
        return {0.2126, 0.0722};
    if (matrix == QLatin1String("bt601"))
        return {0.299, 0.114};
    return {0.2627, 0.0593};
}

/// Luma and both differences of \a colour, in eight bits.
std::array<double, 3> planesOf(const QColor& colour, const Weights& weights, bool full)
{
    const double luma = weights.red * colour.redF() + (1 - weights.red - weights.blue) * colour.greenF()
                        + weights.blue * colour.blueF();
    const double u = (colour.blueF() - luma) / (2 * (1 - weights.blue));
    const double v = (colour.redF() - luma) / (2 * (1 - weights.red));
    const int reach = full ? 255 : 224;
    return {full ? luma * 255 : 16 + luma * 219, std::min(128 + u * reach, 255.0), std::min(128 + v * reach, 255.0)};
}

/// Patches of 16x16 on \a picture, with clear space between.
void paintPatches(QImage& picture, const QVector<QColor>& colours)
{
    for (int patch = 0; patch < colours.size(); ++patch) {
        for (int y = 32; y < 48; ++y) {
            for (int x = 0; x < 16; ++x)
                picture.setPixelColor(patch * 20 + x, y, colours.at(patch));
        }
    }
}

} // namespace

void TestKitWatermarkPicture::watermarkHasItsColours()
{
    QFETCH(const QString, format);
    QFETCH(const QString, matrix);
    QFETCH(const QString, range);
    const QVector<QColor> colours{Qt::white, Qt::black,  Qt::red,  Qt::green,
                                  Qt::blue,  Qt::yellow, Qt::gray, QColor(200, 100, 50)};
    QImage mark(small, QImage::Format_RGBA8888);
    mark.fill(Qt::transparent);
    paintPatches(mark, colours);
    const QString path = m_folder.filePath(QStringLiteral("mark.png"));
    QVERIFY(mark.save(path));

    MediaInfo media = clip(small, format);
    media.streams.first().matrix = matrix;
    media.streams.first().range = range;
    GraphParts parts;
    parts.watermarkInput = 1;
    const Frame source = pattern(small, format);
    const Frame out = filtered(plain(small), media, source, parts,
                               {QStringLiteral("-f"), QStringLiteral("png_pipe"), QStringLiteral("-i"), path});
    QCOMPARE(out.bytes.size(), source.bytes.size());

    const double unit = out.depth() > 8 ? 4 : 1;
    double worstLuma = 0;
    double worstColour = 0;
    for (int patch = 0; patch < colours.size(); ++patch) {
        const auto expected = planesOf(colours.at(patch), weightsOf(matrix), range == QLatin1String("pc"));
        const int x = patch * 20 + 8;
        const int across = out.planeSize(0).width() / out.planeSize(1).width();
        const int down = out.planeSize(0).height() / out.planeSize(1).height();
        worstLuma = std::max(worstLuma, std::abs(out.at(0, x, 40) - expected[0] * unit));
        for (const int plane : {1, 2}) {
            const double found = out.at(plane, x / across, 40 / down);
            worstColour = std::max(worstColour, std::abs(found - expected.at(std::size_t(plane)) * unit));
        }
    }
    qInfo() << "worst error of luma and colours" << worstLuma << worstColour;
    QVERIFY(worstLuma <= 0.55);
    QVERIFY(worstColour <= 1.0 * unit);

    int changed = 0;
    for (int plane = 0; plane < 3; ++plane) {
        const QSize size = out.planeSize(plane);
        const int down = out.planeSize(0).height() / size.height();
        for (int y = 0; y < size.height(); ++y) {
            const bool outside = y * down < 32 || y * down >= 48;
            for (int x = 0; outside && x < size.width(); ++x)
                changed += out.at(plane, x, y) != source.at(plane, x, y) ? 1 : 0;
        }
    }
    QCOMPARE(changed, 0);
}

void TestKitWatermarkPicture::watermarkIsDrawnByTheLibrary()
{
    QVERIFY(zokit::watermarkPicture(plain(small)).isNull());
    Settings settings = plain(small);
    append(settings, "Watermark",
           {{QStringLiteral("wm_istextwatermark"), false},
            {QStringLiteral("wm_imageurl"), kitsupport::logoPath(20, 10)},
            {QStringLiteral("wm_imagewidth"), 20},
            {QStringLiteral("wm_imageheight"), 10},
            {QStringLiteral("wm_hposition"), 30},
            {QStringLiteral("wm_vposition"), 40}});
    const QImage picture = zokit::watermarkPicture(settings);
    QCOMPARE(picture.size(), small);
    QCOMPARE(picture.format(), QImage::Format_RGBA8888);
    QCOMPARE(picture.pixelColor(29, 40).alpha(), 0);
    QCOMPARE(picture.pixelColor(30, 40), QColor(0, 0, 255, 254));
    QCOMPARE(picture.pixelColor(49, 49), QColor(0, 0, 255, 254));
    QCOMPARE(picture.pixelColor(50, 49).alpha(), 0);
    QVERIFY(zokit::watermarkWarnings(settings).isEmpty());

    set(settings, "Crop", "crop_left", 60);
    set(settings, "Crop", "crop_top", 0);
    set(settings, "Crop", "crop_width", 40);
    set(settings, "Crop", "crop_height", 40);
    append(settings, "Watermark",
           {{QStringLiteral("wm_imageurl"), QStringLiteral("/none/logo.png")}, {QStringLiteral("wm_imagewidth"), 5}});
    settings.find(QStringLiteral("Watermark"))->items.append(settings.find(QStringLiteral("Watermark"))->items.last());
    settings.find(QStringLiteral("Watermark"))->items.last().selected = false;
    const zokit::Messages warnings = zokit::watermarkWarnings(settings);
    QCOMPARE(warnings.size(), 2);
    QCOMPARE(warnings.at(0).text(), QStringLiteral("Watermark:0 lies outside of the part that is kept and cannot be "
                                                   "seen. Move it, or make the crop larger."));
    QCOMPARE(warnings.at(1).text(), QStringLiteral("/none/logo.png: no such file."));
    // What is not drawn is not missed.
    append(settings, "Watermark",
           {{QStringLiteral("wm_istextwatermark"), true},
            {QStringLiteral("wm_textcontent"), QStringLiteral("far away")},
            {QStringLiteral("wm_hposition"), -400}});
    QCOMPARE(zokit::watermarkWarnings(settings).size(), 3);
    settings.find(QStringLiteral("Watermark"))->items.last().values.insert(QStringLiteral("wm_ingnore"), true);
    QCOMPARE(zokit::watermarkWarnings(settings).size(), 2);
    QVERIFY(zokit::watermarkWarnings(Settings()).isEmpty());
}

void TestKitWatermarkPicture::watermarkKeys_data()
{
    QTest::addColumn<zokit::Values>("changed");
    QTest::addColumn<int>("alpha");
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<bool>("otherShape");

    const auto row = [](const char* key, const QVariant& value, int alpha, const QColor& colour, bool otherShape) {
        QTest::newRow(key) << zokit::Values{{QString::fromLatin1(key), value}} << alpha << colour << otherShape;
    };
    row("id", 0, 254, Qt::white, false); // Nothing changed.
    row("wm_transparency", 50, 127, Qt::white, false);
    row("wm_transfactor", 1.0, 100, Qt::white, false);
    row("wm_fontcolor", QColor(Qt::red), 254, Qt::red, false);
    row("wm_fontstyle", QStringLiteral("Bold"), 254, Qt::white, true);
    row("wm_fontsize", 30, 254, Qt::white, true);
    row("wm_fontname", QFont(QStringLiteral("DejaVu Serif")), 254, Qt::white, true);
    row("wm_textcontent", QStringLiteral("HI"), 254, Qt::white, true);
    row("wm_ingnore", true, 0, Qt::white, true);
    row("wm_istextwatermark", false, 254, Qt::blue, true);
}

void TestKitWatermarkPicture::watermarkKeys()
{
    QFETCH(const zokit::Values, changed);
    QFETCH(const int, alpha);
    QFETCH(const QColor, colour);
    QFETCH(const bool, otherShape);
    const zokit::Values usual{{QStringLiteral("wm_istextwatermark"), true},
                              {QStringLiteral("wm_textcontent"), QStringLiteral("HH")},
                              {QStringLiteral("wm_imageurl"), kitsupport::logoPath(20, 10)},
                              {QStringLiteral("wm_imagewidth"), 20},
                              {QStringLiteral("wm_imageheight"), 10},
                              {QStringLiteral("wm_fontname"), QFont(QStringLiteral("DejaVu Sans"))},
                              {QStringLiteral("wm_hposition"), 30},
                              {QStringLiteral("wm_vposition"), 40}};
    const auto drawn = [](const zokit::Values& values) {
        Settings settings = plain(small);
        append(settings, "Watermark", values);
        return zokit::watermarkPicture(settings);
    };
    zokit::Values values = usual;
    for (auto it = changed.cbegin(); it != changed.cend(); ++it)
        values.insert(it.key(), it.value());
    const QImage picture = drawn(values);
    const QImage before = drawn(usual);
    int most = 0;
    QColor found = colour;
    int differs = 0;
    for (int y = 0; y < small.height(); ++y) {
        for (int x = 0; x < small.width(); ++x) {
            const QColor pixel = picture.isNull() ? QColor(Qt::transparent) : picture.pixelColor(x, y);
            if (pixel.alpha() > most) {
                most = pixel.alpha();
                found = QColor(pixel.red(), pixel.green(), pixel.blue());
            }
            differs += (pixel.alpha() > 0) != (before.pixelColor(x, y).alpha() > 0) ? 1 : 0;
        }
    }
    QCOMPARE(most, alpha);
    QCOMPARE(found, colour);
    QCOMPARE(differs > 20, otherShape);

    // An image is read as the format that is said.
    values.insert(QStringLiteral("wm_istextwatermark"), false);
    values.insert(QStringLiteral("wm_imageformat"), QStringLiteral("png"));
    QVERIFY(!drawn(values).isNull());
    values.insert(QStringLiteral("wm_imageformat"), QStringLiteral("bmp"));
    QVERIFY(drawn(values).isNull() || drawn(values).pixelColor(35, 45).alpha() == 0);
}

ZOEFFECT_TEST_MAIN(TestKitWatermarkPicture)
#include "tst_kit_watermarkpicture.moc"
