// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <array>

#include <QGuiApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QtTest>

#include "watermarkpictures_p.h"

namespace {

/// Pixels of any colour and alpha, the same each time.
QImage manyColours()
{
    QImage image(64, 48, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgba(x * 4, y * 5, (x * y) % 256, (x * 37 + y * 11) % 256));
    }
    return image;
}

/// The pixels as a pixmap holds them.
QImage pixelsOf(const QPixmap& pixmap)
{
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QRgb heldPixel(const QPixmap& pixmap, int x, int y)
{
    return reinterpret_cast<const QRgb*>(pixelsOf(pixmap).constScanLine(y))[x];
}

/// How many pixels of \a result are not the colour of the pixel of \a source under \a alpha.
int differingPixels(const QPixmap& result, const QPixmap& source, int alpha)
{
    const QImage shown = pixelsOf(result);
    const QImage own = source.toImage().convertToFormat(QImage::Format_ARGB32);
    int differing = 0;
    for (int y = 0; y < own.height(); ++y) {
        const auto* shownLine = reinterpret_cast<const QRgb*>(shown.constScanLine(y));
        for (int x = 0; x < own.width(); ++x) {
            const QColor colour = own.pixelColor(x, y);
            differing += shownLine[x] != qPremultiply(qRgba(colour.red(), colour.green(), colour.blue(), alpha));
        }
    }
    return differing;
}

QPixmap uniform(const QColor& colour, const QSize& size = {3, 2})
{
    QPixmap pixmap(size);
    pixmap.fill(colour);
    return pixmap;
}

/// Sets the limit of the pixmap cache, and restores it at the end.
class CacheLimit {
public:
    explicit CacheLimit(int kilobytes) : m_before(QPixmapCache::cacheLimit())
    {
        QPixmapCache::setCacheLimit(kilobytes);
    }
    ~CacheLimit() { QPixmapCache::setCacheLimit(m_before); }
    CacheLimit(const CacheLimit&) = delete;
    CacheLimit& operator=(const CacheLimit&) = delete;

private:
    int m_before;
};

} // namespace

class TstWatermarkPictures : public QObject {
    Q_OBJECT

private slots:
    void init() { QPixmapCache::clear(); }
    void pixelGetsTheAlpha_data();
    void pixelGetsTheAlpha();
    void everyPixelKeepsItsColour_data();
    void everyPixelKeepsItsColour();
    void nullPictureStaysNull();
    void sizeAndRatioStay();
    void sourceStaysAsItIs();
    void changedSourceIsShownAnew();
    void pictureBeingPaintedOnIsShownAnew();
    void resultChangedAfterwardsIsNotShown();
    void picturesAndAlphasAreToldApart();
    void resultIsKeptWithinTheLimit();
    void nothingIsKeptWithoutACache();
};

void TstWatermarkPictures::pixelGetsTheAlpha_data()
{
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<int>("alpha");
    QTest::addColumn<QRgb>("held"); // With the colours multiplied by the alpha.

    QTest::newRow("opaque stays") << QColor(200, 100, 50) << 255 << 0xFFC86432U;
    QTest::newRow("opaque under a fifth") << QColor(255, 255, 0) << 51 << 0x33333300U;
    QTest::newRow("opaque under 0") << QColor(200, 100, 50) << 0 << 0U;
    QTest::newRow("opaque under 1") << QColor(255, 0, 0) << 1 << 0x01010000U;
    QTest::newRow("opaque under 254") << QColor(255, 0, 255) << 254 << 0xFEFE00FEU;
    QTest::newRow("half under 255") << QColor(255, 0, 0, 128) << 255 << 0xFFFF0000U;
    QTest::newRow("half under a fifth") << QColor(255, 255, 255, 128) << 51 << 0x33333333U;
    QTest::newRow("transparent under 255") << QColor(0, 0, 0, 0) << 255 << 0xFF000000U;
    QTest::newRow("alpha -1") << QColor(200, 100, 50) << -1 << 0U;
    QTest::newRow("alpha 256") << QColor(200, 100, 50) << 256 << 0U;
    QTest::newRow("smallest int") << QColor(200, 100, 50) << std::numeric_limits<int>::min() << 0U;
    QTest::newRow("largest int") << QColor(200, 100, 50) << std::numeric_limits<int>::max() << 0U;
}

void TstWatermarkPictures::pixelGetsTheAlpha()
{
    QFETCH(const QColor, colour);
    QFETCH(const int, alpha);
    QFETCH(const QRgb, held);

    const QPixmap source = uniform(colour);
    for (int i = 0; i < 2; ++i) {
        const QPixmap result = watermarkpictures::withUniformAlpha(source, alpha);
        QCOMPARE(result.size(), QSize(3, 2));
        for (int x = 0; x < 3; ++x)
            QCOMPARE(heldPixel(result, x, x % 2), held);
    }
}

void TstWatermarkPictures::everyPixelKeepsItsColour_data()
{
    QTest::addColumn<int>("format");

    QTest::newRow("own alpha") << int(QImage::Format_ARGB32);
    QTest::newRow("no alpha") << int(QImage::Format_RGB32);
    QTest::newRow("two bytes a pixel") << int(QImage::Format_RGB16);
    QTest::newRow("grey") << int(QImage::Format_Grayscale8);
    QTest::newRow("palette") << int(QImage::Format_Indexed8);
    QTest::newRow("black and white") << int(QImage::Format_Mono);
}

void TstWatermarkPictures::everyPixelKeepsItsColour()
{
    QFETCH(const int, format);
    const QPixmap source = QPixmap::fromImage(manyColours().convertToFormat(static_cast<QImage::Format>(format)));
    QVERIFY(!source.isNull());
    for (int alpha = 0; alpha <= 255; alpha += 5)
        QCOMPARE(differingPixels(watermarkpictures::withUniformAlpha(source, alpha), source, alpha), 0);
}

void TstWatermarkPictures::nullPictureStaysNull()
{
    for (int i = 0; i < 2; ++i)
        QVERIFY(watermarkpictures::withUniformAlpha(QPixmap(), 100).isNull());
}

void TstWatermarkPictures::sizeAndRatioStay()
{
    QPixmap source = uniform(Qt::red, {7, 5});
    source.setDevicePixelRatio(2);
    const QPixmap result = watermarkpictures::withUniformAlpha(source, 100);
    QCOMPARE(result.size(), QSize(7, 5));
    QCOMPARE(result.devicePixelRatio(), source.devicePixelRatio());
}

void TstWatermarkPictures::sourceStaysAsItIs()
{
    const QPixmap source = QPixmap::fromImage(manyColours());
    const QImage before = source.toImage().copy();
    const qint64 key = source.cacheKey();
    watermarkpictures::withUniformAlpha(source, 100);
    QCOMPARE(source.toImage(), before);
    QCOMPARE(source.cacheKey(), key);
}

void TstWatermarkPictures::changedSourceIsShownAnew()
{
    QPixmap source = uniform(Qt::red);
    QCOMPARE(heldPixel(watermarkpictures::withUniformAlpha(source, 51), 0, 0), 0x33330000U);
    source.fill(Qt::green);
    QCOMPARE(heldPixel(watermarkpictures::withUniformAlpha(source, 51), 0, 0), 0x33003300U);
    QPainter(&source).fillRect(0, 0, 1, 1, Qt::blue);
    const QPixmap painted = watermarkpictures::withUniformAlpha(source, 51);
    QCOMPARE(heldPixel(painted, 0, 0), 0x33000033U);
    QCOMPARE(heldPixel(painted, 1, 0), 0x33003300U);
    source = uniform(Qt::white);
    QCOMPARE(heldPixel(watermarkpictures::withUniformAlpha(source, 51), 0, 0), 0x33333333U);
}

// A pixmap counts the painters that begin on it, not what they paint.
void TstWatermarkPictures::pictureBeingPaintedOnIsShownAnew()
{
    QPixmap source = uniform(Qt::red);
    QPainter painter(&source);
    QCOMPARE(heldPixel(watermarkpictures::withUniformAlpha(source, 51), 0, 0), 0x33330000U);
    painter.fillRect(source.rect(), Qt::green);
    QCOMPARE(heldPixel(watermarkpictures::withUniformAlpha(source, 51), 0, 0), 0x33003300U);
    painter.fillRect(source.rect(), Qt::blue);
    painter.end();
    QCOMPARE(heldPixel(watermarkpictures::withUniformAlpha(source, 51), 0, 0), 0x33000033U);
}

void TstWatermarkPictures::resultChangedAfterwardsIsNotShown()
{
    const QPixmap source = uniform(Qt::red);
    QPixmap result = watermarkpictures::withUniformAlpha(source, 51);
    result.fill(Qt::blue);
    QCOMPARE(heldPixel(watermarkpictures::withUniformAlpha(source, 51), 0, 0), 0x33330000U);
}

void TstWatermarkPictures::picturesAndAlphasAreToldApart()
{
    const std::array<QPixmap, 3> sources{uniform(Qt::red), uniform(Qt::green), QPixmap::fromImage(manyColours())};
    for (int round = 0; round < 2; ++round) {
        for (const QPixmap& source : sources) {
            for (const int alpha : {0, 1, 11, 111, 110, 10, 255})
                QCOMPARE(differingPixels(watermarkpictures::withUniformAlpha(source, alpha), source, alpha), 0);
        }
    }
}

void TstWatermarkPictures::resultIsKeptWithinTheLimit()
{
    const QPixmap source = uniform(Qt::red);
    const qint64 first = watermarkpictures::withUniformAlpha(source, 51).cacheKey();
    QCOMPARE(watermarkpictures::withUniformAlpha(source, 51).cacheKey(), first);
    QVERIFY(watermarkpictures::withUniformAlpha(source, 52).cacheKey() != first);

    const CacheLimit limit(1);
    const QPixmap large = uniform(Qt::red, {200, 200});
    const qint64 firstLarge = watermarkpictures::withUniformAlpha(large, 51).cacheKey();
    QVERIFY(watermarkpictures::withUniformAlpha(large, 51).cacheKey() != firstLarge);
}

void TstWatermarkPictures::nothingIsKeptWithoutACache()
{
    const CacheLimit limit(0);
    const QPixmap source = QPixmap::fromImage(manyColours());
    for (int i = 0; i < 3; ++i)
        QCOMPARE(differingPixels(watermarkpictures::withUniformAlpha(source, 77), source, 77), 0);
    QPixmapCache::clear();
    QCOMPARE(differingPixels(watermarkpictures::withUniformAlpha(source, 77), source, 77), 0);
}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    TstWatermarkPictures test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_watermarkpictures.moc"
