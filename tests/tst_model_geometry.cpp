// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <limits>

#include <zoeffectitemdata.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

using Properties = QMap<QString, QVariant>;

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

const QSize fullHd(1920, 1080);
const QSize vga(640, 480);

/// A node of a model; the root under the name "effect root".
ZoEffectItemData& node(const ZoEffectModel& model, const QString& type, int pos = -1)
{
    ZoEffectItemData* found = model.getDataItem(type, pos);
    if (!found)
        qFatal("no such node");
    return *found;
}

ZoEffectItemData& root(const ZoEffectModel& model)
{
    return node(model, "effect root");
}

void store(ZoEffectItemData& target, const Properties& properties)
{
    for (auto it = properties.cbegin(); it != properties.cend(); ++it)
        target.setData(it.key(), it.value());
}

ZoEffectItemData& addItem(ZoEffectItemData& typeNode, const Properties& properties = {})
{
    auto* item = new ZoEffectItemData(QString(), &typeNode);
    store(*item, properties);
    return *item;
}

QString described(const ZoEffectItemData& item)
{
    return described(item.properties());
}

/// The whole subtree with names, check states and properties.
QString snapshot(const ZoEffectItemData& item)
{
    QString text = item.name() + QLatin1Char(' ') + QString::number(item.checkState()) + QLatin1Char(' ')
                   + described(item.properties());
    for (int row = 0; row < item.childCount(); ++row) {
        if (item.child(row))
            text += QStringLiteral(" [") + snapshot(*item.child(row)) + QLatin1Char(']');
    }
    return text;
}

QString described(const CropData& crop)
{
    return QStringLiteral("%1,%2 %3x%4, %5, %6")
        .arg(crop.left)
        .arg(crop.top)
        .arg(crop.width)
        .arg(crop.height)
        .arg(crop.reserved)
        .arg(crop.valid ? "valid" : "invalid");
}

Properties cropOf(const QVariant& left, const QVariant& top, const QVariant& width, const QVariant& height)
{
    return {{"crop_left", left}, {"crop_top", top}, {"crop_width", width}, {"crop_height", height}};
}

Properties with(Properties properties, const Properties& more)
{
    for (auto it = more.cbegin(); it != more.cend(); ++it)
        properties.insert(it.key(), it.value());
    return properties;
}

} // namespace

/// Base size, rescaling, and the crop that applies.
class TstModelGeometry : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void baseSizeIsNothingUntilSet();
    void videoSizeIsStoredAsGiven_data();
    void videoSizeIsStoredAsGiven();
    void baseSizeReadsWholeNumbers_data();
    void baseSizeReadsWholeNumbers();
    void videoSizeMovesNothing();
    void videoSizeIsCopiedWithTheModel();

    void firstSizeIsOnlyRecorded();
    void currentSizeIsNotEvenRewritten();
    void sizeOfNothingOnFreshModelStoresNothing();
    void zeroSizeIsRecordedAndRescalesNothing_data();
    void zeroSizeIsRecordedAndRescalesNothing();
    void sizeAfterAZeroSizeIsOnlyRecorded();
    void onePassTouchesEveryTypeWithGeometry();
    void rescalingThereAndBackLosesFractions();
    void everyChildOfTheRootIsRescaled();
    void nodesBelowTheTypesAreNotTypes();

    void itemIsRescaledFromTheOldToTheNewSize();
    void itemIsLeftAlone_data();
    void itemIsLeftAlone();
    void nullItemIsLeftAlone();
    void otherTypesHaveNoGeometry_data();
    void otherTypesHaveNoGeometry();
    void itemNeedNotStandInTheModel();

    void watermarkIsRescaled_data();
    void watermarkIsRescaled();
    void watermarkTypeNodeKeepsItsOwnValues();
    void uncheckedWatermarksAreRescaledToo();
    void emptyEntriesAmongWatermarksArePassedOver();

    void cropIsRescaled_data();
    void cropIsRescaled();
    void uncheckedCropBecomesTheWholeFrame_data();
    void uncheckedCropBecomesTheWholeFrame();
    void freshCropBecomesTheWholeFrame();
    void cropIsJudgedByTheBaseSize();
    void cropOfAnotherTreeIsJudgedByTheModelsOwn();

    void subtitleIsRescaledOncePerTrack_data();
    void subtitleIsRescaledOncePerTrack();
    void subtitleTracksKeepTheirValues();

    void isCroped_data();
    void isCroped();
    void isCropedWithoutCropNode();
    void isCropedIgnoresItsArguments();
    void cropDataHoldsTheCropThatApplies_data();
    void cropDataHoldsTheCropThatApplies();
    void cropDataWithoutCropNode();
};

void TstModelGeometry::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

void TstModelGeometry::cleanup()
{
    QCOMPARE(logcapture::takeEvents(),
             QList<int>()); // Nothing here is ever logged.
}

void TstModelGeometry::baseSizeIsNothingUntilSet()
{
    const ZoEffectModel model;
    QCOMPARE(model.baseSize(), QSize(0, 0));
    QVERIFY(!root(model).hasData("w"));
    QVERIFY(!root(model).hasData("h"));
}

void TstModelGeometry::videoSizeIsStoredAsGiven_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<QString>("expected");

    QTest::newRow("usual") << 1920 << 1080 << "{h: int 1080, w: int 1920}";
    QTest::newRow("nothing") << 0 << 0 << "{h: int 0, w: int 0}";
    QTest::newRow("negative") << -640 << -480 << "{h: int -480, w: int -640}";
    QTest::newRow("largest and smallest") << largest << smallest << "{h: int -2147483648, w: int 2147483647}";
}

void TstModelGeometry::videoSizeIsStoredAsGiven()
{
    QFETCH(const int, width);
    QFETCH(const int, height);
    QFETCH(const QString, expected);

    ZoEffectModel model;
    SignalRecorder recorder(model);
    model.setVideoSize(width, height);
    QCOMPARE(described(root(model)), expected);
    QCOMPARE(model.baseSize(), QSize(width, height));
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelGeometry::baseSizeReadsWholeNumbers_data()
{
    QTest::addColumn<QVariant>("width");
    QTest::addColumn<QVariant>("height");
    QTest::addColumn<QSize>("expected");

    QTest::newRow("texts") << QVariant("640") << QVariant("480") << QSize(640, 480);
    QTest::newRow("doubles are rounded") << QVariant(12.7) << QVariant(-0.5) << QSize(13, 0);
    QTest::newRow("words") << QVariant("wide") << QVariant("12.7") << QSize(0, 0);
    QTest::newRow("invalid values") << QVariant() << QVariant() << QSize(0, 0);
}

void TstModelGeometry::baseSizeReadsWholeNumbers()
{
    QFETCH(const QVariant, width);
    QFETCH(const QVariant, height);
    QFETCH(const QSize, expected);

    const ZoEffectModel model;
    store(root(model), {{"w", width}, {"h", height}});
    QCOMPARE(model.baseSize(), expected);
}

void TstModelGeometry::videoSizeMovesNothing()
{
    ZoEffectModel model;
    model.setVideoSize(1920, 1080);
    addItem(node(model, "Watermark"), {{"wm_hposition", 100}, {"wm_imagewidth", 50}, {"wm_imageheight", 20}});
    addItem(node(model, "Subtitle"));
    store(node(model, "Crop"), cropOf(100, 50, 800, 600));
    const QString watermarks = snapshot(node(model, "Watermark"));
    const QString crop = snapshot(node(model, "Crop"));
    const QString subtitle = snapshot(node(model, "Subtitle"));

    model.setVideoSize(960, 540);
    QCOMPARE(snapshot(node(model, "Watermark")), watermarks);
    QCOMPARE(snapshot(node(model, "Crop")), crop);
    QCOMPARE(snapshot(node(model, "Subtitle")), subtitle);
}

void TstModelGeometry::videoSizeIsCopiedWithTheModel()
{
    ZoEffectModel model;
    model.setVideoSize(1920, 1080);
    const ZoEffectModel copy(model);
    model.setVideoSize(640, 480);
    QCOMPARE(copy.baseSize(), QSize(1920, 1080));
}

void TstModelGeometry::firstSizeIsOnlyRecorded()
{
    ZoEffectModel model;
    SignalRecorder recorder(model);
    ZoEffectItemData& item = addItem(node(model, "Watermark"), {{"wm_hposition", 100}});
    store(node(model, "Crop"), cropOf(100, 50, 800, 600));
    addItem(node(model, "Subtitle"));

    model.adjustEffectInfo(640, 480);
    QCOMPARE(model.baseSize(), QSize(640, 480));
    QCOMPARE(described(item), QStringLiteral("{wm_hposition: int 100}"));
    QCOMPARE(node(model, "Crop").data("crop_left"), QVariant(100));
    QCOMPARE(node(model, "Crop").data("crop_width"), QVariant(800));
    QCOMPARE(node(model, "Subtitle").data("sub_vposition"), QVariant(200));
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelGeometry::currentSizeIsNotEvenRewritten()
{
    ZoEffectModel model;
    store(root(model), {{"w", "640"}, {"h", 480.2}});
    addItem(node(model, "Watermark"), {{"wm_hposition", "100"}});
    const QString before = snapshot(root(model));

    model.adjustEffectInfo(640, 480);
    QCOMPARE(snapshot(root(model)), before);
}

void TstModelGeometry::sizeOfNothingOnFreshModelStoresNothing()
{
    ZoEffectModel model;
    model.adjustEffectInfo(0, 0);
    QCOMPARE(described(root(model)), QStringLiteral("{}"));
}

void TstModelGeometry::zeroSizeIsRecordedAndRescalesNothing_data()
{
    QTest::addColumn<QSize>("oldSize");
    QTest::addColumn<QSize>("newSize");

    QTest::newRow("new width 0") << vga << QSize(0, 960);
    QTest::newRow("new height 0") << vga << QSize(1280, 0);
    QTest::newRow("both new sides 0") << vga << QSize(0, 0);
    QTest::newRow("old width 0") << QSize(0, 480) << QSize(1280, 960);
    QTest::newRow("old height 0") << QSize(640, 0) << QSize(1280, 960);
}

void TstModelGeometry::zeroSizeIsRecordedAndRescalesNothing()
{
    QFETCH(const QSize, oldSize);
    QFETCH(const QSize, newSize);

    ZoEffectModel model;
    SignalRecorder recorder(model);
    model.setVideoSize(oldSize.width(), oldSize.height());
    addItem(node(model, "Watermark"), {{"wm_hposition", 100}, {"wm_imagewidth", 50}, {"wm_imageheight", 20}});
    addItem(node(model, "Subtitle"));
    store(node(model, "Crop"), cropOf(10, 20, 300, 200));
    const QString watermarks = snapshot(node(model, "Watermark"));
    const QString crop = snapshot(node(model, "Crop"));
    const QString subtitle = snapshot(node(model, "Subtitle"));

    model.adjustEffectInfo(newSize.width(), newSize.height());
    QCOMPARE(model.baseSize(), newSize);
    QCOMPARE(snapshot(node(model, "Watermark")), watermarks);
    QCOMPARE(snapshot(node(model, "Crop")), crop);
    QCOMPARE(snapshot(node(model, "Subtitle")), subtitle);
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelGeometry::sizeAfterAZeroSizeIsOnlyRecorded()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    ZoEffectItemData& item = addItem(node(model, "Watermark"), {{"wm_hposition", 100}});

    model.adjustEffectInfo(0, 480);
    model.adjustEffectInfo(1280, 960);
    QCOMPARE(described(item), QStringLiteral("{wm_hposition: int 100}"));
    QCOMPARE(model.baseSize(), QSize(1280, 960));

    model.adjustEffectInfo(640, 480);
    QCOMPARE(item.data("wm_hposition"), QVariant(50));
}

void TstModelGeometry::onePassTouchesEveryTypeWithGeometry()
{
    ZoEffectModel model;
    model.setVideoSize(1920, 1080);
    SignalRecorder recorder(model);
    ZoEffectItemData& first = addItem(node(model, "Watermark"), {{"wm_hposition", 100}, {"wm_vposition", 60}});
    ZoEffectItemData& second = addItem(node(model, "Watermark"), {{"wm_hposition", 10}, {"wm_vposition", 30}});
    store(node(model, "Crop"), with(cropOf(100, 50, 800, 600), {{"crop_keepaspectratio", false}}));
    addItem(node(model, "Subtitle"));

    model.adjustEffectInfo(960, 540);
    QCOMPARE(described(first), QStringLiteral("{wm_hposition: int 50, wm_vposition: int 30}"));
    QCOMPARE(described(second), QStringLiteral("{wm_hposition: int 5, wm_vposition: int 15}"));
    QCOMPARE(described(model.cropData()), QStringLiteral("50,25 400x300, 0, valid"));
    QCOMPARE(node(model, "Subtitle").data("sub_vposition"), QVariant(100));
    QCOMPARE(described(root(model)), QStringLiteral("{h: int 540, w: int 960}"));
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelGeometry::rescalingThereAndBackLosesFractions()
{
    ZoEffectModel model;
    model.setVideoSize(1920, 1080);
    ZoEffectItemData& item = addItem(node(model, "Watermark"), {{"wm_hposition", 101}, {"wm_vposition", -51}});

    model.adjustEffectInfo(960, 540);
    QCOMPARE(described(item), QStringLiteral("{wm_hposition: int 50, wm_vposition: int -25}"));
    model.adjustEffectInfo(1920, 1080);
    QCOMPARE(described(item), QStringLiteral("{wm_hposition: int 100, wm_vposition: int -50}"));
}

void TstModelGeometry::everyChildOfTheRootIsRescaled()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    ZoEffectItemData& item = addItem(node(model, "Watermark"), {{"wm_hposition", 100}, {"wm_vposition", 60}});
    auto* second = new ZoEffectItemData("Watermark");
    root(model).appendChild(nullptr);
    root(model).appendChild(second);
    ZoEffectItemData& ofSecond = addItem(*second, {{"wm_hposition", 10}, {"wm_vposition", 20}});

    model.adjustEffectInfo(1280, 960);
    QCOMPARE(described(item), QStringLiteral("{wm_hposition: int 200, wm_vposition: int 120}"));
    QCOMPARE(described(ofSecond), QStringLiteral("{wm_hposition: int 20, wm_vposition: int 40}"));
}

void TstModelGeometry::nodesBelowTheTypesAreNotTypes()
{
    ZoEffectModel model(QStringList{"Audio"});
    model.setVideoSize(640, 480);
    auto* nested = new ZoEffectItemData("Watermark", &node(model, "Audio"));
    ZoEffectItemData& item = addItem(*nested, {{"wm_hposition", 100}});

    model.adjustEffectInfo(1280, 960);
    QCOMPARE(described(item), QStringLiteral("{wm_hposition: int 100}"));
}

void TstModelGeometry::itemIsRescaledFromTheOldToTheNewSize()
{
    ZoEffectModel model;
    model.setVideoSize(1, 2); // Plays no part for a watermark.
    SignalRecorder recorder(model);
    ZoEffectItemData& item = addItem(node(model, "Watermark"), {{"wm_hposition", 100}, {"wm_vposition", 60}});

    model.adjustEffectItem(&node(model, "Watermark"), 1280, 1440, 640,
                           480); // The new size first.
    QCOMPARE(described(item), QStringLiteral("{wm_hposition: int 200, wm_vposition: int 180}"));
    QCOMPARE(model.baseSize(), QSize(1, 2));
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelGeometry::itemIsLeftAlone_data()
{
    QTest::addColumn<QSize>("newSize");
    QTest::addColumn<QSize>("oldSize");

    QTest::newRow("new width 0") << QSize(0, 960) << vga;
    QTest::newRow("new height 0") << QSize(1280, 0) << vga;
    QTest::newRow("old width 0") << QSize(1280, 960) << QSize(0, 480);
    QTest::newRow("old height 0") << QSize(1280, 960) << QSize(640, 0);
    QTest::newRow("same size") << vga << vga;
}

void TstModelGeometry::itemIsLeftAlone()
{
    QFETCH(const QSize, newSize);
    QFETCH(const QSize, oldSize);

    ZoEffectModel model;
    model.setVideoSize(640, 480);
    addItem(node(model, "Watermark"), {{"wm_hposition", "100"}});
    addItem(node(model, "Subtitle"));
    for (const char* type : {"Watermark", "Crop", "Subtitle"}) {
        const QString before = snapshot(node(model, type));
        model.adjustEffectItem(&node(model, type), newSize.width(), newSize.height(), oldSize.width(),
                               oldSize.height());
        QCOMPARE(snapshot(node(model, type)), before);
    }
}

void TstModelGeometry::nullItemIsLeftAlone()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    const QString before = snapshot(root(model));
    model.adjustEffectItem(nullptr, 1280, 960, 640, 480);
    QCOMPARE(snapshot(root(model)), before);
}

void TstModelGeometry::otherTypesHaveNoGeometry_data()
{
    QTest::addColumn<QString>("name");

    for (const char* name :
         {"Audio", "Color", "Effect", "Audio_Fade_Inout", "Audio_Normalize", "Audio_BandPass", "Audio_Chorus",
          "Audio_Flanger", "Audio_Echo", "Audio_Speed", "effect root", "watermark", "CROP", "Subtitle ", ""})
        QTest::addRow("'%s'", name) << name;
}

void TstModelGeometry::otherTypesHaveNoGeometry()
{
    QFETCH(const QString, name);

    const Properties geometry =
        with(cropOf(10, 20, 30, 40),
             {{"wm_hposition", 10}, {"wm_imagewidth", 10}, {"wm_imageheight", 10}, {"sub_vposition", 10}});
    auto* typeNode = new ZoEffectItemData(name);
    store(*typeNode, geometry);
    addItem(*typeNode, geometry);
    const QString before = snapshot(*typeNode);

    ZoEffectModel model;
    root(model).appendChild(typeNode);
    model.setVideoSize(640, 480);
    model.adjustEffectItem(typeNode, 1280, 960, 640, 480);
    QCOMPARE(snapshot(*typeNode), before);
    model.adjustEffectInfo(1280, 960);
    QCOMPARE(snapshot(*typeNode), before);
}

void TstModelGeometry::itemNeedNotStandInTheModel()
{
    ZoEffectModel model;
    ZoEffectItemData typeNode("Watermark");
    ZoEffectItemData& item = addItem(typeNode, {{"wm_hposition", 100}, {"wm_vposition", 60}});
    ZoEffectItemData subtitle("Subtitle");
    addItem(subtitle);
    subtitle.setData("sub_vposition", 100);

    model.adjustEffectItem(&typeNode, 320, 240, 640, 480);
    model.adjustEffectItem(&subtitle, 320, 240, 640, 480);
    QCOMPARE(described(item), QStringLiteral("{wm_hposition: int 50, wm_vposition: int 30}"));
    QCOMPARE(described(subtitle), QStringLiteral("{sub_vposition: int 50}"));
}

void TstModelGeometry::watermarkIsRescaled_data()
{
    QTest::addColumn<Properties>("properties");
    QTest::addColumn<QSize>("newSize");
    QTest::addColumn<QSize>("oldSize");
    QTest::addColumn<QString>("expected");

    const QSize doubled(1280, 960);
    const QSize halved(320, 240);
    const Properties text{{"wm_istextwatermark", true}, {"wm_fontsize", 21}, {"wm_hposition", 0}, {"wm_vposition", 0}};

    QTest::newRow("position doubled") << Properties{{"wm_hposition", 101}, {"wm_vposition", 53}} << doubled << vga
                                      << "{wm_hposition: int 202, wm_vposition: int 106}";
    QTest::newRow("position halved, fractions dropped")
        << Properties{{"wm_hposition", 101}, {"wm_vposition", 53}} << halved << vga
        << "{wm_hposition: int 50, wm_vposition: int 26}";
    QTest::newRow("negative position moves toward zero")
        << Properties{{"wm_hposition", -101}, {"wm_vposition", -1}} << halved << vga
        << "{wm_hposition: int -50, wm_vposition: int 0}";
    QTest::newRow("left by the width, top by the height")
        << Properties{{"wm_hposition", 100}, {"wm_vposition", 100}} << QSize(1280, 240) << vga
        << "{wm_hposition: int 200, wm_vposition: int 50}";
    QTest::newRow("only the width changes")
        << Properties{{"wm_hposition", 100}, {"wm_vposition", 101}} << QSize(320, 480) << vga
        << "{wm_hposition: int 50, wm_vposition: int 101}";
    QTest::newRow("only the height changes")
        << Properties{{"wm_hposition", 101}, {"wm_vposition", 100}} << QSize(640, 240) << vga
        << "{wm_hposition: int 101, wm_vposition: int 50}";
    // 11 x 480 / 352 is 15, but the factor is a double just below it, and so for
    // 105 x 1080 / 1050.
    QTest::newRow("factors are doubles") << Properties{{"wm_hposition", 11}, {"wm_vposition", 105}} << QSize(480, 1080)
                                         << QSize(352, 1050) << "{wm_hposition: int 14, wm_vposition: int 107}";
    QTest::newRow("missing position is stored as 0")
        << Properties{} << doubled << vga << "{wm_hposition: int 0, wm_vposition: int 0}";
    QTest::newRow("texts and doubles become int, rounded first")
        << Properties{{"wm_hposition", "100"}, {"wm_vposition", 12.7}} << doubled << vga
        << "{wm_hposition: int 200, wm_vposition: int 26}";
    QTest::newRow("words become 0") << Properties{{"wm_hposition", "left"}, {"wm_vposition", QVariant()}} << doubled
                                    << vga << "{wm_hposition: int 0, wm_vposition: int 0}";
    QTest::newRow("position beyond the numbers saturates")
        << Properties{{"wm_hposition", largest}, {"wm_vposition", smallest}} << doubled << vga
        << "{wm_hposition: int 2147483647, wm_vposition: int -2147483648}";
    QTest::newRow("negative new size turns the sign")
        << Properties{{"wm_hposition", 100}, {"wm_vposition", 50}} << QSize(-640, -480) << vga
        << "{wm_hposition: int -100, wm_vposition: int -50}";
    QTest::newRow("from a negative old size")
        << Properties{{"wm_hposition", 100}, {"wm_vposition", 50}} << doubled << QSize(-640, -480)
        << "{wm_hposition: int -200, wm_vposition: int -100}";

    QTest::newRow("font size of a text follows the height")
        << text << QSize(320, 960) << vga
        << "{wm_fontsize: int 42, wm_hposition: int 0, wm_istextwatermark: bool true, wm_vposition: int 0}";
    QTest::newRow("font size of a text: the width plays no part")
        << text << QSize(1280, 480) << vga
        << "{wm_fontsize: int 21, wm_hposition: int 0, wm_istextwatermark: bool true, wm_vposition: int 0}";
    QTest::newRow("font size of a text is truncated")
        << text << halved << vga
        << "{wm_fontsize: int 10, wm_hposition: int 0, wm_istextwatermark: bool true, wm_vposition: int 0}";
    QTest::newRow("missing font size of a text is stored as 0")
        << Properties{{"wm_istextwatermark", true}} << doubled << vga
        << "{wm_fontsize: int 0, wm_hposition: int 0, wm_istextwatermark: bool true, wm_vposition: int 0}";
    QTest::newRow("font size of an image stays")
        << with(text, {{"wm_istextwatermark", false}}) << doubled << vga
        << "{wm_fontsize: int 21, wm_hposition: int 0, wm_istextwatermark: bool false, wm_vposition: int 0}";
    QTest::newRow("font size without the text flag stays")
        << Properties{{"wm_fontsize", 21}} << doubled << vga
        << "{wm_fontsize: int 21, wm_hposition: int 0, wm_vposition: int 0}";
    QTest::newRow("text flag as text")
        << with(text, {{"wm_istextwatermark", "true"}}) << doubled << vga
        << "{wm_fontsize: int 42, wm_hposition: int 0, wm_istextwatermark: string true, wm_vposition: int 0}";
    QTest::newRow("text flag 'false'")
        << with(text, {{"wm_istextwatermark", "false"}}) << doubled << vga
        << "{wm_fontsize: int 21, wm_hposition: int 0, wm_istextwatermark: string false, wm_vposition: int 0}";

    const auto image = [](const QVariant& width, const QVariant& height) {
        return Properties{
            {"wm_imagewidth", width}, {"wm_imageheight", height}, {"wm_hposition", 0}, {"wm_vposition", 0}};
    };
    const auto imageText = [](const char* width, const char* height) {
        return QStringLiteral("{wm_hposition: int 0, wm_imageheight: %2, wm_imagewidth: %1, wm_vposition: int 0}")
            .arg(width, height);
    };

    QTest::newRow("image doubled") << image(200, 100) << doubled << vga << imageText("int 400", "int 200");
    QTest::newRow("image follows the width, not the height")
        << image(200, 100) << QSize(320, 960) << vga << imageText("int 100", "int 50");
    QTest::newRow("image stays when only the height changes")
        << image(200, 100) << QSize(640, 960) << vga << imageText("int 200", "int 100");
    QTest::newRow("image: the height follows the truncated width") // 101 -> 50; 50 x 100 /
                                                                   // 101 = 49.5
        << image(101, 100) << halved << vga << imageText("int 50", "int 49");
    QTest::newRow("image: own ratio in doubles") // 58 / 2 is 29; 5 / (10 / 58) is
                                                 // a little less.
        << image(10, 58) << halved << vga << imageText("int 5", "int 28");
    QTest::newRow("image: own ratio in doubles, even when its size would not change")
        << image(1, 93) << QSize(640, 960) << vga << imageText("int 1", "int 92");
    QTest::newRow("image of height 0 stays") << image(200, 0) << doubled << vga << imageText("int 200", "int 0");
    QTest::newRow("image of height 0 is not even rewritten")
        << image("200", "0") << doubled << vga << imageText("string 200", "string 0");
    QTest::newRow("image of width 0 loses its height")
        << image(0, 100) << doubled << vga << imageText("int 0", "int 0");
    QTest::newRow("image shrunk to width 0 loses its height")
        << image(1, 100) << halved << vga << imageText("int 0", "int 0");
    QTest::newRow("image size as text becomes int")
        << image("200", "100") << doubled << vga << imageText("int 400", "int 200");
    QTest::newRow("image of negative height")
        << image(10, -7) << QSize(960, 960) << vga << imageText("int 15", "int -10");
    QTest::newRow("measured size of a text is an image size too")
        << with(image(200, 100), {{"wm_istextwatermark", true}, {"wm_fontsize", 10}}) << doubled << vga
        << "{wm_fontsize: int 20, wm_hposition: int 0, wm_imageheight: int 200, wm_imagewidth: int 400, "
           "wm_istextwatermark: bool true, wm_vposition: int 0}";
    QTest::newRow("other properties stay")
        << Properties{{"wm_hposition", 10}, {"wm_vposition", 20}, {"wm_hposfactor", 0.1}, {"wm_transparency", 50}}
        << doubled << vga
        << "{wm_hposfactor: double 0.10000000000000001, wm_hposition: int 20, wm_transparency: int 50, wm_vposition: "
           "int 40}";
}

void TstModelGeometry::watermarkIsRescaled()
{
    QFETCH(const Properties, properties);
    QFETCH(const QSize, newSize);
    QFETCH(const QSize, oldSize);
    QFETCH(const QString, expected);

    ZoEffectModel model;
    ZoEffectItemData& typeNode = node(model, "Watermark");
    addItem(typeNode, properties);
    addItem(typeNode, properties);

    model.adjustEffectItem(&typeNode, newSize.width(), newSize.height(), oldSize.width(), oldSize.height());
    QCOMPARE(described(*typeNode.child(0)), expected);
    QCOMPARE(described(*typeNode.child(1)), expected);
}

void TstModelGeometry::watermarkTypeNodeKeepsItsOwnValues()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    store(node(model, "Watermark"), {{"wm_imagewidth", 10}, {"wm_imageheight", 10}});
    const QString before = described(node(model, "Watermark"));
    addItem(node(model, "Watermark"));

    model.adjustEffectInfo(1280, 960);
    QCOMPARE(described(node(model, "Watermark")), before);
    QCOMPARE(node(model, "Watermark").data("wm_hposition"), QVariant(30));
}

void TstModelGeometry::uncheckedWatermarksAreRescaledToo()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    ZoEffectItemData& item = addItem(node(model, "Watermark"), {{"wm_hposition", 100}, {"wm_vposition", 50}});
    item.setCheckState(0);
    node(model, "Watermark").setCheckState(0);

    model.adjustEffectInfo(1280, 960);
    QCOMPARE(described(item), QStringLiteral("{wm_hposition: int 200, wm_vposition: int 100}"));
    QCOMPARE(item.checkState(), 0);
}

void TstModelGeometry::emptyEntriesAmongWatermarksArePassedOver()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    ZoEffectItemData& typeNode = node(model, "Watermark");
    typeNode.appendChild(nullptr);
    ZoEffectItemData& item = addItem(typeNode, {{"wm_hposition", 100}, {"wm_vposition", 50}});

    model.adjustEffectInfo(1280, 960);
    QCOMPARE(described(item), QStringLiteral("{wm_hposition: int 200, wm_vposition: int 100}"));
}

void TstModelGeometry::cropIsRescaled_data()
{
    QTest::addColumn<QSize>("oldSize");
    QTest::addColumn<Properties>("properties");
    QTest::addColumn<QSize>("newSize");
    QTest::addColumn<QString>("expected");

    const QSize half(960, 540);
    const Properties wide = cropOf(100, 50, 800, 600);
    const auto ratio = [&wide](const QVariant& keep, const QVariant& name) {
        return with(wide, {{"crop_keepaspectratio", keep}, {"crop_aspectratio", name}});
    };
    const auto text = [](int left, int top, int width, int height) {
        return QStringLiteral("crop_height: int %4, crop_left: int %1, crop_top: int %2, crop_width: int %3")
            .arg(left)
            .arg(top)
            .arg(width)
            .arg(height);
    };

    QTest::newRow("half size") << fullHd << wide << half << text(50, 25, 400, 300);
    QTest::newRow("half size, frame ratio kept")
        << fullHd << ratio(true, "Original Ratio") << half << text(50, 25, 400, 225);
    QTest::newRow("frame ratio named but not kept")
        << fullHd << ratio(false, "Original Ratio") << half << text(50, 25, 400, 300);
    QTest::newRow("frame ratio named, no flag")
        << fullHd << with(wide, {{"crop_aspectratio", "Original Ratio"}}) << half << text(50, 25, 400, 300);
    QTest::newRow("ratio kept, none named")
        << fullHd << with(wide, {{"crop_keepaspectratio", true}}) << half << text(50, 25, 400, 300);
    QTest::newRow("flag as text") << fullHd << ratio("true", "Original Ratio") << half << text(50, 25, 400, 225);
    QTest::newRow("flag as number") << fullHd << ratio(2, "Original Ratio") << half << text(50, 25, 400, 225);
    for (const char* name : {"Original", "Crop Area", "Crop Ratio", "16:9", "4:3", "3:2", "original ratio",
                             "Original Ratio ", "anything", ""})
        QTest::addRow("kept '%s' means its own ratio", name)
            << fullHd << ratio(true, name) << half << text(50, 25, 400, 300);

    QTest::newRow("the whole frame") << fullHd << cropOf(0, 0, 1920, 1080) << half << text(0, 0, 960, 540);
    QTest::newRow("size of the whole frame, moved: back to the corner")
        << fullHd << cropOf(100, 50, 1920, 1080) << half << text(0, 0, 960, 540);
    QTest::newRow("width 0: the whole frame") << fullHd << cropOf(100, 50, 0, 600) << half << text(0, 0, 960, 540);
    QTest::newRow("height 0: the whole frame") << fullHd << cropOf(100, 50, 800, 0) << half << text(0, 0, 960, 540);
    QTest::newRow("size of the source: the whole frame")
        << fullHd << cropOf(100, 50, "source_val", "source_val") << half << text(0, 0, 960, 540);
    QTest::newRow("nothing stored: the whole frame") << fullHd << Properties{} << half << text(0, 0, 960, 540);
    QTest::newRow("full width, half the height")
        << fullHd << cropOf(0, 270, 1920, 540) << half << text(0, 135, 960, 270);
    QTest::newRow("larger than the frame")
        << fullHd << cropOf(-100, -50, 2000, 1100) << half << text(-50, -25, 1000, 550);
    QTest::newRow("negative position moves toward zero")
        << fullHd << cropOf(-101, -51, 800, 600) << half << text(-50, -25, 400, 300);
    QTest::newRow("texts are read as numbers")
        << fullHd << cropOf("100", "50", "800", "600") << half << text(50, 25, 400, 300);
    QTest::newRow("missing position is 0")
        << fullHd << Properties{{"crop_width", 800}, {"crop_height", 600}} << half << text(0, 0, 400, 300);
    QTest::newRow("smallest sizes are not looked at")
        << fullHd << with(cropOf(100, 50, 30, 20), {{"crop_minwidth", 24}, {"crop_minheight", 24}}) << half
        << "crop_height: int 10, crop_left: int 50, crop_minheight: int 24, crop_minwidth: int 24, crop_top: int 25, "
           "crop_width: int 15";
    QTest::newRow("rotation is not looked at") << fullHd << with(wide, {{"crop_rotation_angle", 90}}) << half
                                               << "crop_height: int 300, crop_left: int 50, crop_rotation_angle: int "
                                                  "90, crop_top: int 25, crop_width: int 400";

    // Only one side of the frame changes.
    QTest::newRow("only the height halves: the rectangle does not shrink")
        << vga << cropOf(100, 50, 300, 200) << QSize(640, 240) << text(100, 25, 300, 200);
    QTest::newRow("only the width halves")
        << vga << cropOf(100, 50, 300, 200) << QSize(320, 480) << text(50, 50, 150, 100);

    // Taken from the height when top and height reach the height of the old
    // frame.
    QTest::newRow("one pixel short of the old height")
        << vga << cropOf(0, 79, 320, 200) << QSize(1280, 480) << text(0, 79, 640, 400);
    QTest::newRow("exactly the old height")
        << vga << cropOf(0, 80, 320, 200) << QSize(1280, 480) << text(0, 80, 320, 200);
    QTest::newRow("beyond the old height, within the new") // 400 + 300 against 480 and 960
        << vga << cropOf(0, 200, 640, 300) << QSize(640, 960) << text(0, 400, 1280, 600);
    QTest::newRow("beyond the new height, within the old") // 1000 against 1080 and 540
        << fullHd << cropOf(0, 0, 1000, 1000) << QSize(1920, 540) << text(0, 0, 1000, 1000);
    QTest::newRow("doubled in a frame of twice the size") // 80 + 480 reach 480: taken from
                                                          // the height, the same
        << vga << cropOf(20, 40, 320, 240) << QSize(1280, 960) << text(40, 80, 640, 480);
    QTest::newRow("frame ratio, taken from the height") // 640 / (1280 / 960) =
                                                        // 480: H 400, W 533.3
        << vga << with(cropOf(0, 0, 320, 200), {{"crop_keepaspectratio", true}, {"crop_aspectratio", "Original Ratio"}})
        << QSize(1280, 960) << text(0, 0, 533, 400);
    QTest::newRow("ratio that no double holds, from the width") // 12 / (24 / 450) = 225
        << fullHd << cropOf(0, 0, 24, 450) << half << text(0, 0, 12, 224);
    QTest::newRow("ratio that no double holds, from the height") // 807 x 164 / 538 = 246
        << QSize(1280, 720) << cropOf(0, 0, 164, 538) << fullHd << text(0, 0, 245, 807);
}

void TstModelGeometry::cropIsRescaled()
{
    QFETCH(const QSize, oldSize);
    QFETCH(const Properties, properties);
    QFETCH(const QSize, newSize);
    QFETCH(const QString, expected);

    ZoEffectModel model("Crop", properties);
    SignalRecorder recorder(model);
    model.setVideoSize(oldSize.width(), oldSize.height());
    model.adjustEffectInfo(newSize.width(), newSize.height());

    // What the table does not name stays as it was.
    for (const char* key : {"crop_keepaspectratio", "crop_aspectratio"}) {
        QCOMPARE(node(model, "Crop").data(key), properties.value(key));
        node(model, "Crop").delData(key);
    }
    QCOMPARE(described(node(model, "Crop")), QLatin1Char('{') + expected + QLatin1Char('}'));
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelGeometry::uncheckedCropBecomesTheWholeFrame_data()
{
    QTest::addColumn<int>("checkState");
    QTest::addColumn<QString>("expected");

    const QString whole =
        QStringLiteral("{crop_height: int 540, crop_left: int 0, crop_top: int 0, crop_width: int 960}");
    QTest::newRow("unchecked") << 0 << whole;
    QTest::newRow("partly checked") << 1 << whole;
    QTest::newRow("checked") << 2 << "{crop_height: int 300, crop_left: int 50, crop_top: int 25, crop_width: int 400}";
    QTest::newRow("another state") << 3 << whole;
}

void TstModelGeometry::uncheckedCropBecomesTheWholeFrame()
{
    QFETCH(const int, checkState);
    QFETCH(const QString, expected);

    ZoEffectModel model("Crop", cropOf(100, 50, 800, 600));
    model.setVideoSize(1920, 1080);
    node(model, "Crop").setCheckState(checkState);
    model.adjustEffectInfo(960, 540);
    QCOMPARE(described(node(model, "Crop")), expected);
    QCOMPARE(node(model, "Crop").checkState(), checkState);
}

void TstModelGeometry::freshCropBecomesTheWholeFrame()
{
    ZoEffectModel model;
    model.setVideoSize(1920, 1080);
    model.adjustEffectInfo(960, 540);
    QCOMPARE(
        described(node(model, "Crop")),
        QStringLiteral(
            "{crop_aspectratio: string Original Ratio, crop_height: int 540, crop_keepaspectratio: bool true, "
            "crop_left: int 0, crop_minheight: int 24, crop_minwidth: int 24, crop_top: int 0, crop_width: int 960}"));
}

void TstModelGeometry::cropIsJudgedByTheBaseSize()
{
    // 800 x 600 is a crop of the old frame that is named, but the whole of the
    // base frame.
    ZoEffectModel model("Crop", cropOf(100, 50, 800, 600));
    model.setVideoSize(800, 600);
    model.adjustEffectItem(&node(model, "Crop"), 960, 540, 1920, 1080);
    QCOMPARE(described(node(model, "Crop")),
             QStringLiteral("{crop_height: int 540, crop_left: int 0, crop_top: int 0, crop_width: int 960}"));

    // 800 x 600 is the whole of the old frame that is named, but a crop of the
    // base frame.
    ZoEffectModel other("Crop", cropOf(100, 50, 800, 600));
    other.setVideoSize(1920, 1080);
    other.adjustEffectItem(&node(other, "Crop"), 400, 300, 800, 600);
    QCOMPARE(described(node(other, "Crop")),
             QStringLiteral("{crop_height: int 300, crop_left: int 50, crop_top: int 25, crop_width: int 400}"));

    // Without a base size nothing is cropped.
    ZoEffectModel sizeless("Crop", cropOf(100, 50, 800, 600));
    sizeless.adjustEffectItem(&node(sizeless, "Crop"), 960, 540, 1920, 1080);
    QCOMPARE(described(node(sizeless, "Crop")),
             QStringLiteral("{crop_height: int 540, crop_left: int 0, crop_top: int 0, crop_width: int 960}"));
}

void TstModelGeometry::cropOfAnotherTreeIsJudgedByTheModelsOwn()
{
    ZoEffectModel model("Crop", cropOf(1, 2, 300, 200));
    model.setVideoSize(640, 480);
    ZoEffectItemData foreign("Crop");
    store(foreign, cropOf(100, 50, 640, 480));
    model.adjustEffectItem(&foreign, 320, 240, 640, 480);
    // 640 x 480 would be no crop of the model itself; halved, 25 + 240 stay below
    // 480.
    QCOMPARE(described(foreign),
             QStringLiteral("{crop_height: int 240, crop_left: int 50, crop_top: int 25, crop_width: int 320}"));
    QCOMPARE(described(node(model, "Crop")),
             QStringLiteral("{crop_height: int 200, crop_left: int 1, crop_top: int 2, crop_width: int 300}"));

    // A foreign rectangle without size: ratios of and by nothing give nothing.
    store(foreign, cropOf(100, 50, 300, 0));
    model.adjustEffectItem(&foreign, 320, 240, 640, 480);
    QCOMPARE(described(foreign),
             QStringLiteral("{crop_height: int 0, crop_left: int 50, crop_top: int 25, crop_width: int 150}"));
    store(foreign, cropOf(100, 50, 0, 0));
    model.adjustEffectItem(&foreign, 320, 240, 640, 480);
    QCOMPARE(described(foreign),
             QStringLiteral("{crop_height: int 0, crop_left: int 50, crop_top: int 25, crop_width: int 0}"));
}

void TstModelGeometry::subtitleIsRescaledOncePerTrack_data()
{
    QTest::addColumn<Properties>("properties");
    QTest::addColumn<int>("tracks");
    QTest::addColumn<QSize>("newSize");
    QTest::addColumn<QString>("expected");

    const QSize doubled(1280, 960);
    const QSize halved(320, 240);
    const Properties plain{{"sub_vposition", 101}, {"sub_fontsize", 21}};
    const Properties fromFile = with(plain, {{"sub_fromfile", true}});

    QTest::newRow("no track") << plain << 0 << halved << "{sub_fontsize: int 21, sub_vposition: int 101}";
    QTest::newRow("no track, nothing stored") << Properties{} << 0 << halved << "{}";
    QTest::newRow("one track") << plain << 1 << halved << "{sub_fontsize: int 21, sub_vposition: int 50}";
    QTest::newRow("two tracks") << plain << 2 << halved << "{sub_fontsize: int 21, sub_vposition: int 25}";
    QTest::newRow("three tracks") << plain << 3 << halved << "{sub_fontsize: int 21, sub_vposition: int 12}";
    QTest::newRow("ten tracks") << plain << 10 << halved << "{sub_fontsize: int 21, sub_vposition: int 0}";
    QTest::newRow("three tracks, larger") << plain << 3 << doubled << "{sub_fontsize: int 21, sub_vposition: int 808}";
    QTest::newRow("from a file, no track")
        << fromFile << 0 << halved << "{sub_fontsize: int 21, sub_fromfile: bool true, sub_vposition: int 101}";
    QTest::newRow("from a file, one track")
        << fromFile << 1 << halved << "{sub_fontsize: int 10, sub_fromfile: bool true, sub_vposition: int 50}";
    QTest::newRow("from a file, two tracks")
        << fromFile << 2 << halved << "{sub_fontsize: int 5, sub_fromfile: bool true, sub_vposition: int 25}";
    QTest::newRow("from a file as text") << with(plain, {{"sub_fromfile", "true"}}) << 1 << halved
                                         << "{sub_fontsize: int 10, sub_fromfile: string true, sub_vposition: int 50}";
    QTest::newRow("not from a file") << with(plain, {{"sub_fromfile", false}}) << 1 << halved
                                     << "{sub_fontsize: int 21, sub_fromfile: bool false, sub_vposition: int 50}";
    // 5 -> 7 -> 10 -> 15; 5 x 1.5^3 would be 16.
    QTest::newRow("each pass starts from the truncated value")
        << Properties{{"sub_vposition", 5}} << 3 << QSize(640, 720) << "{sub_vposition: int 15}";
    QTest::newRow("negative position moves toward zero")
        << Properties{{"sub_vposition", -101}} << 2 << halved << "{sub_vposition: int -25}";
    QTest::newRow("only the height counts")
        << plain << 1 << QSize(1280, 480) << "{sub_fontsize: int 21, sub_vposition: int 101}";
    QTest::newRow("the width plays no part")
        << plain << 1 << QSize(10, 240) << "{sub_fontsize: int 21, sub_vposition: int 50}";
    QTest::newRow("missing position is stored as 0") << Properties{} << 1 << halved << "{sub_vposition: int 0}";
    QTest::newRow("missing font size from a file is stored as 0")
        << Properties{{"sub_fromfile", true}} << 1 << halved
        << "{sub_fontsize: int 0, sub_fromfile: bool true, sub_vposition: int 0}";
    QTest::newRow("text becomes int") << Properties{{"sub_vposition", "100"}} << 1 << QSize(1280, 480)
                                      << "{sub_vposition: int 100}";
    QTest::newRow("growth saturates") << Properties{{"sub_vposition", 1000}} << 40 << doubled
                                      << "{sub_vposition: int 2147483647}";
    QTest::newRow("the user's mark stays")
        << with(plain, {{"dvdsubtitleposeditbyuser", true}}) << 1 << halved
        << "{dvdsubtitleposeditbyuser: bool true, sub_fontsize: int 21, sub_vposition: int 50}";
}

void TstModelGeometry::subtitleIsRescaledOncePerTrack()
{
    QFETCH(const Properties, properties);
    QFETCH(const int, tracks);
    QFETCH(const QSize, newSize);
    QFETCH(const QString, expected);

    ZoEffectModel model("Subtitle", properties);
    model.setVideoSize(640, 480);
    for (int i = 0; i < tracks; ++i)
        addItem(node(model, "Subtitle"));
    SignalRecorder recorder(model);

    model.adjustEffectInfo(newSize.width(), newSize.height());
    QCOMPARE(described(node(model, "Subtitle")), expected);
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelGeometry::subtitleTracksKeepTheirValues()
{
    ZoEffectModel model("Subtitle", {{"sub_vposition", 100}});
    model.setVideoSize(640, 480);
    ZoEffectItemData& track =
        addItem(node(model, "Subtitle"), {{"sub_vposition", 100}, {"sub_fontsize", 20}, {"sub_fromfile", true}});
    node(model, "Subtitle").appendChild(nullptr); // Counts as a pass.

    model.adjustEffectInfo(1280, 960);
    QCOMPARE(described(track),
             QStringLiteral("{sub_fontsize: int 20, sub_fromfile: bool true, sub_vposition: int 100}"));
    QCOMPARE(described(node(model, "Subtitle")), QStringLiteral("{sub_vposition: int 400}"));
}

void TstModelGeometry::isCroped_data()
{
    QTest::addColumn<QSize>("baseSize");
    QTest::addColumn<int>("checkState");
    QTest::addColumn<Properties>("properties");
    QTest::addColumn<bool>("expected");

    QTest::newRow("part of the frame") << vga << 2 << cropOf(10, 20, 300, 200) << true;
    QTest::newRow("unchecked") << vga << 0 << cropOf(10, 20, 300, 200) << false;
    QTest::newRow("partly checked") << vga << 1 << cropOf(10, 20, 300, 200) << false;
    QTest::newRow("another state") << vga << 3 << cropOf(10, 20, 300, 200) << false;
    QTest::newRow("nothing stored") << vga << 2 << Properties{} << false;
    QTest::newRow("width 0") << vga << 2 << cropOf(10, 20, 0, 200) << false;
    QTest::newRow("height 0") << vga << 2 << cropOf(10, 20, 300, 0) << false;
    QTest::newRow("width is a word") << vga << 2 << cropOf(10, 20, "source_val", 200) << false;
    QTest::newRow("whole frame") << vga << 2 << cropOf(0, 0, 640, 480) << false;
    QTest::newRow("whole frame as text") << vga << 2 << cropOf(0, 0, "640", "480") << false;
    QTest::newRow("size of the whole frame, moved") << vga << 2 << cropOf(100, 50, 640, 480) << false;
    QTest::newRow("full width") << vga << 2 << cropOf(0, 0, 640, 479) << true;
    QTest::newRow("full height") << vga << 2 << cropOf(0, 0, 639, 480) << true;
    QTest::newRow("larger than the frame") << vga << 2 << cropOf(0, 0, 1000, 1000) << true;
    QTest::newRow("negative size") << vga << 2 << cropOf(0, 0, -10, -10) << true;
    QTest::newRow("no base size") << QSize(0, 0) << 2 << cropOf(10, 20, 300, 200) << false;
    QTest::newRow("base width 0") << QSize(0, 480) << 2 << cropOf(10, 20, 300, 200) << false;
    QTest::newRow("base height 0") << QSize(640, 0) << 2 << cropOf(10, 20, 300, 200) << true;
    QTest::newRow("negative base size") << QSize(-640, -480) << 2 << cropOf(10, 20, 300, 200) << true;
}

void TstModelGeometry::isCroped()
{
    QFETCH(const QSize, baseSize);
    QFETCH(const int, checkState);
    QFETCH(const Properties, properties);
    QFETCH(const bool, expected);

    ZoEffectModel model("Crop", properties);
    model.setVideoSize(baseSize.width(), baseSize.height());
    node(model, "Crop").setCheckState(checkState);
    QCOMPARE(model.isCroped(baseSize.width(), baseSize.height()), expected);
    QCOMPARE(model.cropData().valid, expected);
}

void TstModelGeometry::isCropedWithoutCropNode()
{
    ZoEffectModel model(QStringList{"Watermark"});
    model.setVideoSize(640, 480);
    QVERIFY(!model.isCroped(640, 480));
}

void TstModelGeometry::isCropedIgnoresItsArguments()
{
    ZoEffectModel cropped("Crop", cropOf(10, 20, 300, 200));
    cropped.setVideoSize(640, 480);
    ZoEffectModel whole("Crop", cropOf(0, 0, 640, 480));
    whole.setVideoSize(640, 480);

    for (const QSize& size : {QSize(0, 0), QSize(300, 200), QSize(640, 480), QSize(-1, -1), QSize(largest, smallest)}) {
        QVERIFY(cropped.isCroped(size.width(), size.height()));
        QVERIFY(!whole.isCroped(size.width(), size.height()));
    }
}

void TstModelGeometry::cropDataHoldsTheCropThatApplies_data()
{
    QTest::addColumn<int>("checkState");
    QTest::addColumn<Properties>("properties");
    QTest::addColumn<QString>("expected");

    const QString none = QStringLiteral("0,0 0x0, 0, invalid");
    QTest::newRow("crop") << 2 << cropOf(10, 20, 300, 200) << "10,20 300x200, 0, valid";
    QTest::newRow("negative position") << 2 << cropOf(-10, -20, 300, 200) << "-10,-20 300x200, 0, valid";
    QTest::newRow("missing position") << 2 << Properties{{"crop_width", 300}, {"crop_height", 200}}
                                      << "0,0 300x200, 0, valid";
    QTest::newRow("texts and doubles") << 2 << cropOf("10", 20.5, "300", 200.4) << "10,21 300x200, 0, valid";
    QTest::newRow("unchecked") << 0 << cropOf(10, 20, 300, 200) << none;
    QTest::newRow("partly checked") << 1 << cropOf(10, 20, 300, 200) << none;
    QTest::newRow("whole frame") << 2 << cropOf(0, 0, 640, 480) << none;
    QTest::newRow("size of the whole frame, moved") << 2 << cropOf(100, 50, 640, 480) << none;
    QTest::newRow("without size") << 2 << cropOf(10, 20, 0, 0) << none;
    QTest::newRow("nothing stored") << 2 << Properties{} << none;
}

void TstModelGeometry::cropDataHoldsTheCropThatApplies()
{
    QFETCH(const int, checkState);
    QFETCH(const Properties, properties);
    QFETCH(const QString, expected);

    ZoEffectModel model("Crop", properties);
    model.setVideoSize(640, 480);
    node(model, "Crop").setCheckState(checkState);
    QCOMPARE(described(model.cropData()), expected);
}

void TstModelGeometry::cropDataWithoutCropNode()
{
    ZoEffectModel model(QStringList{"Watermark"});
    model.setVideoSize(640, 480);
    QCOMPARE(described(model.cropData()), QStringLiteral("0,0 0x0, 0, invalid"));
    QCOMPARE(described(CropData()), QStringLiteral("0,0 0x0, 0, invalid"));
}

ZOEFFECT_TEST_MAIN(TstModelGeometry)

#include "tst_model_geometry.moc"
