// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <limits>

#include <QGuiApplication>
#include <QPainter>
#include <QTemporaryDir>
#include <QtTest>

#include "watermarkimages_p.h"

namespace {

QPixmap filled(const QColor& color, const QSize& size = {3, 2})
{
    QPixmap pixmap(size);
    pixmap.fill(color);
    return pixmap;
}

/// A pixel as a pixmap holds it, with the colours multiplied by the alpha.
QRgb heldPixel(const QPixmap& pixmap, int x = 0)
{
    const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    return reinterpret_cast<const QRgb*>(image.constScanLine(0))[x];
}

} // namespace

Q_DECLARE_METATYPE(OwnAlpha)

class TstWatermarkImages : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void pixelGetsTheAlpha_data();
    void pixelGetsTheAlpha();
    void nullImageStaysNull();
    void sizeAndRatioStay();
    void changedImageIsShownAnew();
    void resultChangedAfterwardsIsNotShown();
    void resultIsKeptWhileThereIsRoom();
    void copyDecodesNoFileAgain();
    void changedFileIsDecodedAnew();
    void forgottenImageIsDecodedAnew();

private:
    /// Writes an image to the file "logo.png"; its path.
    QString write(const QColor& color, const QSize& size = {3, 2});

    QTemporaryDir m_folder;
};

void TstWatermarkImages::initTestCase()
{
    qRegisterMetaType<OwnAlpha>();
}

QString TstWatermarkImages::write(const QColor& color, const QSize& size)
{
    QString path = m_folder.filePath(QStringLiteral("logo.png"));
    return filled(color, size).save(path) ? path : QString();
}

void TstWatermarkImages::pixelGetsTheAlpha_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<int>("alpha");
    QTest::addColumn<OwnAlpha>("ownAlpha");
    QTest::addColumn<QRgb>("held");
    const auto row = [](const char* name, const QColor& color, int alpha, OwnAlpha ownAlpha, QRgb held) {
        QTest::newRow(name) << color << alpha << ownAlpha << held;
    };

    row("opaque stays", QColor(200, 100, 50), 255, OwnAlpha::Replaced, 0xFFC86432U);
    row("opaque under a fifth", QColor(255, 255, 0), 51, OwnAlpha::Replaced, 0x33333300U);
    row("opaque under 0", QColor(200, 100, 50), 0, OwnAlpha::Replaced, 0U);
    row("opaque under 1", QColor(255, 0, 0), 1, OwnAlpha::Replaced, 0x01010000U);
    row("opaque under 254", QColor(255, 0, 255), 254, OwnAlpha::Replaced, 0xFEFE00FEU);
    row("half under 255", QColor(255, 0, 0, 128), 255, OwnAlpha::Replaced, 0xFFFF0000U);
    row("half under a fifth", QColor(255, 255, 255, 128), 51, OwnAlpha::Replaced, 0x33333333U);
    row("transparent under 255", QColor(0, 0, 0, 0), 255, OwnAlpha::Replaced, 0xFF000000U);
    row("alpha -1", QColor(200, 100, 50), -1, OwnAlpha::Replaced, 0U);
    row("alpha 256", QColor(200, 100, 50), 256, OwnAlpha::Replaced, 0U);
    row("largest int", QColor(200, 100, 50), std::numeric_limits<int>::max(), OwnAlpha::Replaced, 0U);
    row("opaque, kept, under a fifth", QColor(255, 255, 0), 51, OwnAlpha::Kept, 0x33333300U);
    row("half, kept, under 255", QColor(255, 255, 255, 128), 255, OwnAlpha::Kept, 0x80808080U);
    row("half, kept, under a fifth", QColor(255, 255, 255, 128), 51, OwnAlpha::Kept, 0x1A1A1A1AU); // 25.6
    row("transparent, kept, under 255", QColor(0, 0, 0, 0), 255, OwnAlpha::Kept, 0U);
    row("alpha 256, kept", QColor(200, 100, 50), 256, OwnAlpha::Kept, 0U);
}

void TstWatermarkImages::pixelGetsTheAlpha()
{
    QFETCH(const QColor, color);
    QFETCH(const int, alpha);
    QFETCH(const OwnAlpha, ownAlpha);
    QFETCH(const QRgb, held);

    const QPixmap image = filled(color);
    WatermarkImages images;
    for (int i = 0; i < 2; ++i) {
        const QPixmap result = images.shown(image, alpha, ownAlpha);
        QCOMPARE(result.size(), QSize(3, 2));
        for (int x = 0; x < 3; ++x)
            QCOMPARE(heldPixel(result, x), held);
        images.shown(image, 7, OwnAlpha::Replaced); // Another one in between.
        images.shown(image, 7, OwnAlpha::Kept);
        images.shown(filled(Qt::blue), alpha, ownAlpha);
    }
}

void TstWatermarkImages::nullImageStaysNull()
{
    WatermarkImages images;
    for (int i = 0; i < 2; ++i)
        QVERIFY(images.shown(QPixmap(), 100, OwnAlpha::Replaced).isNull());
}

void TstWatermarkImages::sizeAndRatioStay()
{
    QPixmap image = filled(Qt::red, {7, 5});
    image.setDevicePixelRatio(2);
    const QPixmap result = WatermarkImages().shown(image, 100, OwnAlpha::Replaced);
    QCOMPARE(result.size(), QSize(7, 5));
    QCOMPARE(result.devicePixelRatio(), image.devicePixelRatio());
}

void TstWatermarkImages::changedImageIsShownAnew()
{
    WatermarkImages images;
    QPixmap image = filled(Qt::red);
    QCOMPARE(heldPixel(images.shown(image, 51, OwnAlpha::Replaced)), 0x33330000U);
    image.fill(Qt::green);
    QCOMPARE(heldPixel(images.shown(image, 51, OwnAlpha::Replaced)), 0x33003300U);
    QPainter(&image).fillRect(0, 0, 1, 1, Qt::blue);
    const QPixmap painted = images.shown(image, 51, OwnAlpha::Replaced);
    QCOMPARE(heldPixel(painted), 0x33000033U);
    QCOMPARE(heldPixel(painted, 1), 0x33003300U);
}

void TstWatermarkImages::resultChangedAfterwardsIsNotShown()
{
    WatermarkImages images;
    const QPixmap image = filled(Qt::red);
    images.shown(image, 51, OwnAlpha::Replaced).fill(Qt::blue);
    QCOMPARE(heldPixel(images.shown(image, 51, OwnAlpha::Replaced)), 0x33330000U);
}

void TstWatermarkImages::resultIsKeptWhileThereIsRoom()
{
    WatermarkImages images;
    const auto key = [&](const QPixmap& image, int alpha) {
        return images.shown(image, alpha, OwnAlpha::Replaced).cacheKey();
    };
    const QPixmap image = filled(Qt::red, {1024, 1024}); // 4 MB and a bit: 32 MB hold seven.
    const qint64 first = key(image, 51);
    QList<QPixmap> others;
    for (int i = 0; i < 6; ++i) {
        others << filled(Qt::red, {1024, 1024});
        key(others.last(), 51);
    }
    QCOMPARE(key(image, 51), first);
    for (const QPixmap& other : std::as_const(others))
        key(other, 52);
    QCOMPARE(key(image, 51), first);
    for (int i = 0; i < 7; ++i)
        key(filled(Qt::red, {1024, 1024}), 51);
    QVERIFY(key(image, 51) != first);
}

void TstWatermarkImages::copyDecodesNoFileAgain()
{
    const QString path = write(Qt::red);
    WatermarkImages images;
    const auto early = images.forCopy();
    const qint64 first = early->load(path, nullptr)->cacheKey();
    QCOMPARE(images.load(path, nullptr)->cacheKey(), first);
    QCOMPARE(images.forCopy()->load(path, nullptr)->cacheKey(), first);
    QVERIFY(images.forCopy()->load(path, "png")->cacheKey() != first);
    QVERIFY(WatermarkImages().load(path, nullptr)->cacheKey() != first);

    QVERIFY(QFile::remove(path));
    QVERIFY(images.forCopy()->load(path, nullptr)->isNull());
    QVERIFY(!images.load(path, nullptr)->isNull());
}

void TstWatermarkImages::changedFileIsDecodedAnew()
{
    const QString path = write(Qt::red);
    WatermarkImages images;
    QCOMPARE(images.load(path, nullptr)->size(), QSize(3, 2));
    write(Qt::red, {400, 200}); // The file is longer, too: its time may be the same.
    QCOMPARE(images.forCopy()->load(path, nullptr)->size(), QSize(400, 200));
    QCOMPARE(images.load(path, nullptr)->size(), QSize(3, 2));
}

void TstWatermarkImages::forgottenImageIsDecodedAnew()
{
    const QString path = write(Qt::red);
    WatermarkImages images;
    const auto load = [&] { return images.load(path, nullptr)->cacheKey(); };
    const qint64 first = load();
    images.forget(m_folder.filePath(QStringLiteral("other.png")));
    QCOMPARE(load(), first);
    images.forget(path);
    const qint64 second = load();
    QVERIFY(second != first);
    images.forgetAll();
    QVERIFY(load() != second);
}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    TstWatermarkImages test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_watermarkimages.moc"
