// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What a model remembers of pictures and texts is bounded: after thousands of different ones it takes no more memory
// than after hundreds.

#include <functional>

#include <QPixmapCache>
#include <QTemporaryDir>
#include <QtTest>

#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "testapplication.h"

#ifdef __has_feature
#if __has_feature(address_sanitizer)
#define WITH_ADDRESS_SANITIZER
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define WITH_ADDRESS_SANITIZER
#endif

#ifdef WITH_ADDRESS_SANITIZER
#include <sanitizer/allocator_interface.h>
#else
#include <malloc.h>
#endif

namespace {

/// In bytes. What is in use is counted, not what is resident: it tells a growth of few megabytes without noise.
qint64 allocated()
{
#ifdef WITH_ADDRESS_SANITIZER
    return static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
#else
    const struct mallinfo2 now = mallinfo2();
    return static_cast<qint64>(now.uordblks) + static_cast<qint64>(now.hblkhd);
#endif
}

/// Room for a memory that is not full after the warm-up; what is kept without bound takes more in each test.
constexpr qint64 limit = qint64{3} * 1024 * 1024;

} // namespace

class TstReferenceMemory : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void alphasOfImages();
    void alphasOfManyItems();
    void texts();
    void fontsOfAText();
    void colorsOfAText();
    void sizesOfTheFrame();
    void manyModels();
    void unreadableImages();
    void namesLookedUp();

private:
    /// What \a paintings cost after those of a warm-up of a third of them; each number is painted once.
    static qint64 growth(int paintings, const std::function<void(int)>& paint);
    static void addText(ZoEffectModel& model);
    static void addImage(ZoEffectModel& model, const QString& path);

    QTemporaryDir m_folder;
    QStringList m_images;
};

void TstReferenceMemory::initTestCase()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    QPixmapCache::setCacheLimit(0);                // Qt's own memory of images does not count here.
    QImage image(128, 128, QImage::Format_ARGB32); // 64 KB
    for (int i = 0; i < 8; ++i) {
        image.fill(QColor(200, 100, 10 * i, 128));
        m_images << m_folder.filePath(QStringLiteral("image%1.png").arg(i));
        QVERIFY(image.save(m_images.last()));
    }
}

qint64 TstReferenceMemory::growth(int paintings, const std::function<void(int)>& paint)
{
    for (int i = 0; i < paintings / 3; ++i)
        paint(i);
    const qint64 before = allocated();
    for (int i = paintings / 3; i < paintings; ++i)
        paint(i);
    return allocated() - before;
}

void TstReferenceMemory::addText(ZoEffectModel& model)
{
    model.setVideoSize(64, 32);
    model.insertDataItem("Watermark", {{"wm_istextwatermark", true}, {"wm_textcontent", "text"}, {"wm_fontsize", 8}},
                         -1);
}

void TstReferenceMemory::addImage(ZoEffectModel& model, const QString& path)
{
    model.setVideoSize(64, 32);
    model.insertDataItem("Watermark", {{"wm_imageurl", path}, {"wm_imagewidth", 20}, {"wm_imageheight", 20}}, -1);
}

/// Kept one and all, the 400 pictures after the warm-up would take 25 MB.
void TstReferenceMemory::alphasOfImages()
{
    ZoEffectModel model;
    addImage(model, QString());
    const qint64 bytes = growth(600, [&](int i) {
        model.getDataItem("Watermark", 0)->setData("wm_imageurl", m_images.at(i % 8));
        model.getDataItem("Watermark", 0)->setData("wm_transparency", i / 8);
        QVERIFY(!model.getWatermark(64, 32, false).isNull());
    });
    QVERIFY2(bytes < limit, QByteArray::number(bytes));
}

/// The same by items that are deleted again.
void TstReferenceMemory::alphasOfManyItems()
{
    ZoEffectModel model;
    const qint64 bytes = growth(600, [&](int i) {
        addImage(model, m_images.at(i % 8));
        model.getDataItem("Watermark", 0)->setData("wm_transparency", i / 8);
        QVERIFY(!model.getWatermark(64, 32, false).isNull());
        model.delDataItem("Watermark", 0);
    });
    QVERIFY2(bytes < limit, QByteArray::number(bytes));
}

/// The 300 texts after the warm-up take 4.6 MB as they are, and several times that laid out.
void TstReferenceMemory::texts()
{
    ZoEffectModel model;
    addText(model);
    const QString text = QString("0123456789 ").repeated(700);
    const qint64 bytes = growth(450, [&](int i) {
        model.getDataItem("Watermark", 0)->setData("wm_textcontent", text + QString::number(i));
        QVERIFY(!model.getWatermark(64, 32, false).isNull());
    });
    QVERIFY2(bytes < limit, QByteArray::number(bytes));
}

/// Spacings, so that Qt keeps no font of its own for each; the text of 2 KB is laid out for each.
void TstReferenceMemory::fontsOfAText()
{
    ZoEffectModel model;
    addText(model);
    model.getDataItem("Watermark", 0)->setData("wm_textcontent", QString("abc ").repeated(250));
    const qint64 bytes = growth(600, [&](int i) {
        QFont font("DejaVu Sans", 8);
        font.setWordSpacing(i * 0.01);
        model.getDataItem("Watermark", 0)->setData("wm_fontname", font);
        QVERIFY(!model.getWatermark(64, 32, false).isNull());
    });
    QVERIFY2(bytes < limit, QByteArray::number(bytes));
}

void TstReferenceMemory::colorsOfAText()
{
    ZoEffectModel model;
    addText(model);
    model.getDataItem("Watermark", 0)->setData("wm_textcontent", QString("abc ").repeated(250));
    const qint64 bytes = growth(600, [&](int i) {
        model.getDataItem("Watermark", 0)->setData("wm_fontcolor", QColor(i % 256, i / 256, 7));
        QVERIFY(!model.getWatermark(64, 32, false).isNull());
    });
    QVERIFY2(bytes < limit, QByteArray::number(bytes));
}

/// At another size than the model's, through a copy of the model that goes again.
void TstReferenceMemory::sizesOfTheFrame()
{
    ZoEffectModel model;
    addText(model);
    addImage(model, m_images.first());
    const qint64 bytes =
        growth(600, [&](int i) { QVERIFY(!model.getWatermark(100 + i % 50, 100 + i / 50, false).isNull()); });
    QVERIFY2(bytes < limit, QByteArray::number(bytes));
}

void TstReferenceMemory::manyModels()
{
    const qint64 bytes = growth(300, [&](int i) {
        ZoEffectModel model;
        addText(model);
        addImage(model, m_images.first());
        model.getDataItem("Watermark", 0)->setData("wm_textcontent", QString("abc ").repeated(250 + i));
        QVERIFY(!model.getWatermark(64, 32, false).isNull());
    });
    QVERIFY2(bytes < limit, QByteArray::number(bytes));
}

/// Names of 4 KB each.
void TstReferenceMemory::unreadableImages()
{
    ZoEffectModel model;
    addImage(model, m_images.first());
    const QString folder = m_folder.filePath("absent/").append(QString("x/").repeated(1000));
    const qint64 bytes = growth(2100, [&](int i) {
        model.getDataItem("Watermark", 0)->setData("wm_imageurl", folder + QString::number(i));
        QVERIFY(model.getWatermark(64, 32, false).isNull());
    });
    QVERIFY2(bytes < limit, QByteArray::number(bytes));
}

/// Found or not, by names of 2 KB each.
void TstReferenceMemory::namesLookedUp()
{
    ZoEffectModel model;
    const QString name = QString("n").repeated(1000);
    const qint64 bytes = growth(9000, [&](int i) {
        const QString type = name + QString::number(i);
        QVERIFY(!model.findDataItem(type, -1));
        auto* node = new ZoEffectItemData(type, model.getDataItem("Audio", -1));
        QCOMPARE(model.findDataItem(type, -1), node);
        model.getDataItem("Audio", -1)->clear();
        QVERIFY(!model.findDataItem(type, -1));
    });
    QVERIFY2(bytes < limit, QByteArray::number(bytes));
}

ZOEFFECT_TEST_MAIN(TstReferenceMemory)

#include "tst_reference_memory.moc"
