// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Pictures against those painted step by step, pixel by pixel, on random scenes: whatever the library remembers of
// texts, images and earlier pictures, it must paint what is there now.

#include <memory>

#include <QtTest>

#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "paintingscene.h"
#include "testapplication.h"

class TstReferencePainting : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void randomScenes_data();
    void randomScenes();
    void eachPropertyCounts_data();
    void eachPropertyCounts();
    void largestLetters();
    void applicationFontCounts();
    void listenersInTheMiddle();
    void changedFileStaysAsLoaded();

private:
    ImageFiles m_files;
};

namespace {

QByteArray where(int seed, int scene, const QString& difference)
{
    return QStringLiteral("seed %1, scene %2: %3").arg(seed).arg(scene).arg(difference).toUtf8();
}

/// Changes of the rest of the model between two pictures.
void changeSomething(Twins& twins, SceneSource& source)
{
    const int items = twins.items();
    if (items == 0)
        return;
    const int row = source.below(items);
    const int other = source.below(items);
    switch (source.below(6)) {
    case 0:
        twins.both([&](ZoEffectModel& model) { model.changeDataItemPos("Watermark", row, other); });
        break;
    case 1:
        twins.both([&](ZoEffectModel& model) { model.delDataItem("Watermark", row); });
        break;
    case 2: {
        const QMap<QString, QVariant> item = source.item();
        twins.both([&](ZoEffectModel& model) { model.insertDataItem("Watermark", item, row); });
        break;
    }
    case 3: {
        const QSize size = source.frame();
        twins.both([&](ZoEffectModel& model) { model.adjustEffectInfo(size.width(), size.height()); });
        break;
    }
    case 4: {
        const bool shown = source.oneIn(2);
        twins.both([&](ZoEffectModel& model) { model.setData("_checkstate", shown, "Watermark", row); });
        break;
    }
    default: {
        const QString key = SceneSource::keys().at(source.below(static_cast<int>(SceneSource::keys().size())));
        twins.setValue(row, key, source.value(key), source.oneIn(2));
    }
    }
}

} // namespace

void TstReferencePainting::initTestCase()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
}

void TstReferencePainting::randomScenes_data()
{
    QTest::addColumn<int>("seed");
    for (int seed = 41; seed <= 45; ++seed)
        QTest::addRow("seed %d", seed) << seed;
}

/// Four pictures of each scene: the first, the same again, one after a change, one at another size or as the first.
void TstReferencePainting::randomScenes()
{
    QFETCH(const int, seed);
    constexpr int scenes = 300 / ZOEFFECT_REFERENCE_PART;
    constexpr int scenesOfAModel = 20;

    SceneSource source(static_cast<unsigned>(seed), m_files);
    std::unique_ptr<Twins> twins;
    int painted = 0;
    for (int scene = 0; scene < scenes; ++scene) {
        if (scene % scenesOfAModel == 0)
            twins = std::make_unique<Twins>();
        twins->newScene(source);
        const bool honourIgnore = source.oneIn(2);
        QString difference = twins->difference(honourIgnore);
        painted += twins->hasPainted() ? 1 : 0;
        if (difference.isEmpty())
            difference = twins->difference(source.oneIn(2));
        if (difference.isEmpty()) {
            changeSomething(*twins, source);
            difference = twins->difference(honourIgnore);
        }
        if (difference.isEmpty())
            difference = twins->difference(source.between(1, 100), source.between(1, 100), honourIgnore);
        if (difference.isEmpty())
            difference = twins->difference(honourIgnore);
        QVERIFY2(difference.isEmpty(), where(seed, scene, difference));
    }
    QVERIFY(painted > scenes / 3);
}

void TstReferencePainting::eachPropertyCounts_data()
{
    QTest::addColumn<QString>("key");
    for (const QString& key : SceneSource::keys())
        QTest::newRow(qPrintable(key)) << key;
}

/// A picture, the same scene with another value under one key, and the first value again.
void TstReferencePainting::eachPropertyCounts()
{
    QFETCH(const QString, key);
    constexpr int seed = 51;

    SceneSource source(seed, m_files);
    Twins twins;
    for (int scene = 0; scene < 12; ++scene) {
        twins.newScene(source);
        if (twins.items() == 0)
            continue;
        const int row = source.below(twins.items());
        QVariant before;
        twins.both([&](ZoEffectModel& model) { before = model.data(key, "Watermark", row); });
        QString difference = twins.difference(false);
        for (int change = 0; change < 3 && difference.isEmpty(); ++change) {
            twins.setValue(row, key, source.value(key), change == 1);
            difference = twins.difference(false);
        }
        twins.setValue(row, key, before, false);
        if (difference.isEmpty())
            difference = twins.difference(false);
        QVERIFY2(difference.isEmpty(), where(seed, scene, difference));
    }
}

void TstReferencePainting::largestLetters()
{
    constexpr int seed = 55;
    SceneSource source(seed, m_files);
    Twins twins;
    for (int scene = 0; scene < 60; ++scene) {
        twins.newScene(source);
        for (int row = 0; row < twins.items(); ++row)
            twins.setValue(row, "wm_fontsize", source.between(48, 72), false);
        twins.drawLettersOnce();
        const QString difference = twins.difference(source.oneIn(2));
        QVERIFY2(difference.isEmpty(), where(seed, scene, difference));
    }
}

/// Fonts that leave something open take it from the application's font, as it is when they are drawn.
void TstReferencePainting::applicationFontCounts()
{
    constexpr int seed = 61;
    const QFont original = QGuiApplication::font();
    QFont underlined("DejaVu Sans Mono", 7);
    underlined.setUnderline(true);
    const QList<QFont> fonts{QFont("DejaVu Sans", 20), QFont("DejaVu Sans Mono", 9, QFont::Bold), underlined, original};

    SceneSource source(seed, m_files);
    Twins twins;
    for (int scene = 0; scene < 25; ++scene) {
        twins.newScene(source);
        for (const QFont& font : fonts) {
            QGuiApplication::setFont(font);
            const QString difference = twins.difference(false);
            QGuiApplication::setFont(original);
            QVERIFY2(difference.isEmpty(), where(seed, scene, difference));
        }
    }
}

void TstReferencePainting::listenersInTheMiddle()
{
    constexpr int seed = 71;
    using Model = ZoEffectModel;
    using Render = Twins::Render;
    const auto forEach = [](Model& model, const QString& key, const QVariant& value) {
        for (int row = 0; row < model.childCount("Watermark"); ++row)
            model.getDataItem("Watermark", row)->setData(key, value);
    };
    const QList<std::function<void(Model&, const Render&)>> bites{
        [&](Model& model, const Render&) { forEach(model, "wm_fontsize", 13); },
        [&](Model& model, const Render&) { forEach(model, "wm_transparency", 60); },
        [&](Model& model, const Render&) { forEach(model, "wm_textcontent", "by a listener"); },
        [](Model& model, const Render&) { model.delDataItem("Watermark", 0); },
        [](Model& model, const Render&) {
            model.insertDataItem("Watermark", {{"wm_istextwatermark", true}, {"wm_textcontent", "new"}}, 0);
        },
        [](Model& model, const Render&) { model.setData("_checkstate", false, "Watermark", 0); },
        [](Model& model, const Render&) { model.setData("wm_hposition", 3, "Watermark", 0); },
        [](Model& model, const Render&) { model.getDataItem("Watermark", -1)->clear(); },
        [](Model& model, const Render&) { model.changeDataItemPos("Watermark", 0, model.childCount("Watermark") - 1); },
        [](Model&, const Render& render) { render(); },
    };

    SceneSource source(seed, m_files);
    Twins twins;
    for (int scene = 0; scene < 12; ++scene) {
        for (const auto& bite : bites) {
            twins.setBite(nullptr);
            twins.newScene(source);
            twins.setBite(bite);
            QString difference = twins.difference(true);
            if (difference.isEmpty())
                difference = twins.difference(true);
            QVERIFY2(difference.isEmpty(), where(seed, scene, difference));
        }
    }
}

/// Once a model has loaded a file, it keeps that picture; another model loads the file as it is by then.
void TstReferencePainting::changedFileStaysAsLoaded()
{
    const QString path = m_files.path("changing.png");
    const auto show = [&](Twins& twins) {
        twins.both([&](ZoEffectModel& model) {
            model.setVideoSize(40, 30);
            model.insertDataItem("Watermark", {{"wm_imageurl", path}, {"wm_imagewidth", 20}, {"wm_imageheight", 20}},
                                 0);
        });
    };
    Twins early;
    show(early);
    QCOMPARE(early.difference(false), QString());
    QVERIFY(early.hasPainted());

    const QList<QColor> colors{Qt::green, Qt::blue, Qt::yellow};
    for (const QColor& color : colors) {
        QImage image(6, 6, QImage::Format_ARGB32);
        image.fill(color);
        m_files.write("changing.png", image);
        QCOMPARE(early.difference(false), QString());
        Twins late;
        show(late);
        QCOMPARE(late.difference(false), QString());
    }
    QVERIFY(QFile::remove(path));
    QCOMPARE(early.difference(false), QString());
    Twins last;
    show(last);
    QCOMPARE(last.difference(false), QString());
    QVERIFY(!last.hasPainted());
}

ZOEFFECT_TEST_MAIN(TstReferencePainting)

#include "tst_reference_painting.moc"
