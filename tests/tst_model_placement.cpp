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

/// A watermark that stands beside the new one.
struct Other {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    int checkState = 2;
};

using Others = QVector<Other>;

ZoEffectItemData& watermarks(const ZoEffectModel& model)
{
    ZoEffectItemData* found = model.getDataItem("Watermark", -1);
    if (!found)
        qFatal("no watermarks");
    return *found;
}

ZoEffectItemData& addItem(ZoEffectItemData& typeNode, const Properties& properties = {}, int checkState = 2)
{
    auto* item = new ZoEffectItemData(QString(), &typeNode);
    for (auto it = properties.cbegin(); it != properties.cend(); ++it)
        item->setData(it.key(), it.value());
    item->setCheckState(checkState);
    return *item;
}

ZoEffectItemData& addOther(ZoEffectItemData& typeNode, const Other& other)
{
    return addItem(typeNode,
                   {{"wm_hposition", other.left},
                    {"wm_vposition", other.top},
                    {"wm_imagewidth", other.width},
                    {"wm_imageheight", other.height}},
                   other.checkState);
}

Properties at(const QVariant& left, const QVariant& top)
{
    return {{"wm_hposition", left}, {"wm_vposition", top}};
}

QString described(const ZoEffectItemData& item)
{
    return described(item.properties());
}

QString atText(int left, int top)
{
    return QStringLiteral("{wm_hposition: int %1, wm_vposition: int %2}").arg(left).arg(top);
}

} // namespace

Q_DECLARE_METATYPE(Other)

/// The place of a new watermark.
class TstModelPlacement : public QObject {
    Q_OBJECT

private slots:
    void init();

    void newWatermarkIsPlaced_data();
    void newWatermarkIsPlaced();
    void valuesAreReadAsWholeNumbers_data();
    void valuesAreReadAsWholeNumbers();
    void missingValuesReadAsNothing();
    void orderInTheListPlaysNoPart();
    void onlyThePositionIsWritten();
    void positionThatStaysIsWrittenAsInt();
    void positionWithoutPlaceIsNotRewritten_data();
    void positionWithoutPlaceIsNotRewritten();
    void nothingIsSignalledOrLogged();
    void nullIsLogged();
    void itemWithoutParentIsLeftAlone();
    void parentOfTheItemCountsNotTheType();
    void itemThatWasTakenOutLooksAtItsFormerNeighbours();
    void frameIsThatOfTheModelAsked();
    void emptyEntriesArePassedOver();
    void emptyEntryCountsAsAChildButBlocksNothing();
    void addedWatermarksStandInADiagonal();
    void placingIsQuickInAHugeFrame();
};

void TstModelPlacement::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

void TstModelPlacement::newWatermarkIsPlaced_data()
{
    QTest::addColumn<Others>("others");
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<QSize>("baseSize");
    QTest::addColumn<QPoint>("expected");

    const QSize vga(640, 480);

    QTest::newRow("alone") << Others{} << QPoint(5, 5) << vga << QPoint(5, 5);
    QTest::newRow("the other is unchecked") << Others{{0, 0, 100, 50, 0}} << QPoint(0, 0) << vga << QPoint(0, 0);
    QTest::newRow("the other is partly checked") << Others{{0, 0, 100, 50, 1}} << QPoint(0, 0) << vga << QPoint(0, 0);
    QTest::newRow("the other has another state") << Others{{0, 0, 100, 50, 3}} << QPoint(0, 0) << vga << QPoint(0, 0);
    QTest::newRow("all others are unchecked")
        << Others{{0, 0, 100, 50, 0}, {0, 0, 100, 50, 0}} << QPoint(0, 0) << vga << QPoint(0, 0);
    QTest::newRow("unchecked ones block nothing")
        << Others{{0, 0, 100, 50, 0}, {300, 300, 50, 50, 2}} << QPoint(0, 0) << vga << QPoint(0, 0);

    QTest::newRow("beside one at the same corner") << Others{{0, 0, 100, 50}} << QPoint(0, 0) << vga << QPoint(60, 60);
    QTest::newRow("free at once") << Others{{0, 0, 100, 50}} << QPoint(300, 200) << vga << QPoint(300, 200);
    QTest::newRow("sizeless other blocks its two rows")
        << Others{{100, 100, 0, 0}} << QPoint(100, 99) << vga << QPoint(130, 129);
    QTest::newRow("sizeless other is 30 wide")
        << Others{{100, 100, 0, 0}} << QPoint(131, 100) << vga << QPoint(131, 100);
    QTest::newRow("grown by one pixel on the right")
        << Others{{0, 0, 100, 50}} << QPoint(100, 0) << vga << QPoint(130, 30);
    QTest::newRow("probe 30 to the right") << Others{{100, 100, 50, 50}} << QPoint(69, 100) << vga << QPoint(129, 160);
    QTest::newRow("negative start") << Others{{-100, -100, 30, 30}} << QPoint(-100, -100) << vga << QPoint(-40, -40);

    QTest::newRow("start on the right limit: right of the other")
        << Others{{0, 40, 100, 50}} << QPoint(610, 0) << vga << QPoint(119, 40);
    QTest::newRow("start before the right limit stays")
        << Others{{0, 40, 100, 50}} << QPoint(609, 0) << vga << QPoint(609, 0);
    QTest::newRow("start on the bottom limit: right of the other")
        << Others{{0, 40, 100, 50}} << QPoint(0, 450) << vga << QPoint(119, 40);
    QTest::newRow("start before the bottom limit stays")
        << Others{{0, 40, 100, 50}} << QPoint(0, 449) << vga << QPoint(0, 449);
    QTest::newRow("right of the one with the leftmost right edge")
        << Others{{300, 10, 50, 50}, {0, 50, 100, 10}} << QPoint(610, 0) << vga << QPoint(119, 50);
    QTest::newRow("equal right edges: the first in the list")
        << Others{{0, 100, 100, 10}, {50, 20, 50, 10}} << QPoint(610, 0) << vga << QPoint(119, 100);
    QTest::newRow("right of it blocked: right of the next")
        << Others{{0, 0, 100, 50}, {110, 0, 50, 50}} << QPoint(610, 0) << vga << QPoint(179, 0);
    QTest::newRow("top above the frame ends the right search") // Right of the second,
                                                               // 269,100, is never tried.
        << Others{{0, -20, 20, 10}, {200, 100, 50, 50}} << QPoint(610, 0) << vga << QPoint(10, 100);
    QTest::newRow("at the left margin") << Others{{50, 0, 590, 480}} << QPoint(60, 10) << vga << QPoint(10, 0);
    QTest::newRow("shifted from the first, over the second")
        << Others{{0, 0, 640, 480}, {30, 30, 5, 5}} << QPoint(0, 0) << vga << QPoint(30, 30);
    QTest::newRow("shifted into the outer 30 pixels")
        << Others{{600, 440, 40, 40}, {0, 0, 640, 480}} << QPoint(0, 0) << vga << QPoint(630, 470);
    QTest::newRow("no place at all") << Others{{615, 460, 40, 40}, {0, 0, 640, 480}} << QPoint(7, 8) << vga
                                     << QPoint(7, 8);
    QTest::newRow("no base size") << Others{{0, 0, 10, 10}} << QPoint(5, 5) << QSize(0, 0) << QPoint(5, 5);
}

void TstModelPlacement::newWatermarkIsPlaced()
{
    QFETCH(const Others, others);
    QFETCH(const QPoint, start);
    QFETCH(const QSize, baseSize);
    QFETCH(const QPoint, expected);

    ZoEffectModel model;
    model.setVideoSize(baseSize.width(), baseSize.height());
    for (const Other& other : others)
        addOther(watermarks(model), other);
    ZoEffectItemData& item = addItem(watermarks(model), at(start.x(), start.y()));

    model.adjustWatermarkPos(&item);
    QCOMPARE(described(item), atText(expected.x(), expected.y()));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelPlacement::valuesAreReadAsWholeNumbers_data()
{
    QTest::addColumn<Properties>("other");
    QTest::addColumn<Properties>("item");
    QTest::addColumn<QString>("expected");

    const Properties plain{{"wm_hposition", 0}, {"wm_vposition", 0}, {"wm_imagewidth", 100}, {"wm_imageheight", 50}};

    QTest::newRow("whole numbers") << plain << at(0, 0) << atText(60, 60);
    QTest::newRow("texts") << Properties{{"wm_hposition", "0"},
                                         {"wm_vposition", "0"},
                                         {"wm_imagewidth", "100"},
                                         {"wm_imageheight", "50"}}
                           << at("0", "0") << atText(60, 60);
    QTest::newRow("doubles are rounded") << Properties{{"wm_hposition", 0.2},
                                                       {"wm_vposition", 0.4},
                                                       {"wm_imagewidth", 99.5},
                                                       {"wm_imageheight", 49.5}}
                                         << at(0.3, 0.6) << atText(60, 61);
    QTest::newRow("words count as 0") << Properties{{"wm_hposition", "left"},
                                                    {"wm_vposition", "top"},
                                                    {"wm_imagewidth", 100},
                                                    {"wm_imageheight", 50}}
                                      << at("left", "top") << atText(60, 60);
}

void TstModelPlacement::valuesAreReadAsWholeNumbers()
{
    QFETCH(const Properties, other);
    QFETCH(const Properties, item);
    QFETCH(const QString, expected);

    ZoEffectModel model;
    model.setVideoSize(640, 480);
    addItem(watermarks(model), other);
    ZoEffectItemData& added = addItem(watermarks(model), item);
    model.adjustWatermarkPos(&added);
    QCOMPARE(described(added), expected);
}

void TstModelPlacement::missingValuesReadAsNothing()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    addItem(watermarks(model)); // At 0,0, without size: blocks the rows -1 and 0.
    ZoEffectItemData& item = addItem(watermarks(model));
    model.adjustWatermarkPos(&item);
    QCOMPARE(described(item), atText(30, 30));
}

void TstModelPlacement::orderInTheListPlaysNoPart()
{
    for (int pos = 0; pos <= 2; ++pos) {
        ZoEffectModel model;
        model.setVideoSize(640, 480);
        addOther(watermarks(model), {0, 0, 100, 50});
        addOther(watermarks(model), {0, 0, 30, 90});
        auto* item = new ZoEffectItemData(QString(), &watermarks(model), pos);
        QCOMPARE(item->childNumber(), pos);
        model.adjustWatermarkPos(item);
        QCOMPARE(described(*item), atText(60, 60));
    }
}

void TstModelPlacement::onlyThePositionIsWritten()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    ZoEffectItemData& other = addOther(watermarks(model), {0, 0, 100, 50});
    ZoEffectItemData& item = addItem(watermarks(model),
                                     {{"wm_hposition", 0},
                                      {"wm_vposition", 0},
                                      {"wm_imagewidth", 11},
                                      {"wm_imageheight", 12},
                                      {"wm_hposfactor", 0.5}},
                                     0);
    const QString otherBefore = described(other);

    model.adjustWatermarkPos(&item); // The check state of the new one plays no part.
    QCOMPARE(described(item), QStringLiteral("{wm_hposfactor: double 0.5, wm_hposition: int 60, wm_imageheight: int "
                                             "12, wm_imagewidth: int 11, wm_vposition: int 60}"));
    QCOMPARE(item.checkState(), 0);
    QCOMPARE(described(other), otherBefore);
    QCOMPARE(watermarks(model).data("wm_hposition"), QVariant(30));
}

void TstModelPlacement::positionThatStaysIsWrittenAsInt()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    addOther(watermarks(model), {0, 0, 100, 50});
    ZoEffectItemData& item = addItem(watermarks(model), at("300", 200.0));
    model.adjustWatermarkPos(&item);
    QCOMPARE(described(item), atText(300, 200));
}

void TstModelPlacement::positionWithoutPlaceIsNotRewritten_data()
{
    QTest::addColumn<Others>("others");

    QTest::newRow("alone") << Others{};
    QTest::newRow("the others are unchecked") << Others{{0, 0, 100, 50, 0}, {0, 0, 100, 50, 0}};
    QTest::newRow("every search fails") << Others{{615, 460, 40, 40}, {0, 0, 640, 480}};
}

void TstModelPlacement::positionWithoutPlaceIsNotRewritten()
{
    QFETCH(const Others, others);

    ZoEffectModel model;
    model.setVideoSize(640, 480);
    for (const Other& other : others)
        addOther(watermarks(model), other);
    ZoEffectItemData& bare = addItem(watermarks(model), {}, 0);
    model.adjustWatermarkPos(&bare);
    QCOMPARE(described(bare), QStringLiteral("{}"));
    watermarks(model).removeChildren(bare.childNumber(), 1);

    ZoEffectItemData& item = addItem(watermarks(model), at("10", 20.0));
    model.adjustWatermarkPos(&item);
    QCOMPARE(described(item), QStringLiteral("{wm_hposition: string 10, wm_vposition: double 20}"));
}

void TstModelPlacement::nothingIsSignalledOrLogged()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    addOther(watermarks(model), {0, 0, 100, 50});
    ZoEffectItemData& item = addItem(watermarks(model), at(0, 0));
    SignalRecorder recorder(model);
    model.adjustWatermarkPos(&item);
    QCOMPARE(described(item), atText(60, 60));
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelPlacement::nullIsLogged()
{
    ZoEffectModel model;
    SignalRecorder recorder(model);
    model.adjustWatermarkPos(nullptr);
    QCOMPARE(logcapture::takeEvents(), QList<int>{1392});
    model.adjustWatermarkPos(nullptr);
    model.adjustWatermarkPos(nullptr);
    QCOMPARE(logcapture::takeEvents(), (QList<int>{1392, 1392}));
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelPlacement::itemWithoutParentIsLeftAlone()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    addOther(watermarks(model), {0, 0, 100, 50});
    ZoEffectItemData item("free");
    item.setData("wm_hposition", "0");
    model.adjustWatermarkPos(&item);
    QCOMPARE(described(item), QStringLiteral("{wm_hposition: string 0}"));

    auto* appended = new ZoEffectItemData("appended"); // In the list, but created without parent.
    watermarks(model).appendChild(appended);
    model.adjustWatermarkPos(appended);
    QCOMPARE(described(*appended), QStringLiteral("{}"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelPlacement::parentOfTheItemCountsNotTheType()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    addOther(watermarks(model), {0, 0, 300, 300}); // Not beside the item.
    ZoEffectItemData* audio = model.getDataItem("Audio", -1);
    QVERIFY(audio);
    addOther(*audio, {0, 0, 100, 50});
    ZoEffectItemData& item = addItem(*audio, at(0, 0));
    model.adjustWatermarkPos(&item);
    QCOMPARE(described(item), atText(60, 60));
}

void TstModelPlacement::itemThatWasTakenOutLooksAtItsFormerNeighbours()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    addOther(watermarks(model), {0, 0, 100, 50});
    addItem(watermarks(model), at(0, 0));
    const QScopedPointer<ZoEffectItemData> item(watermarks(model).takeAt(1));

    model.adjustWatermarkPos(item.data()); // One child is left: fewer than two.
    QCOMPARE(described(*item), atText(0, 0));

    addOther(watermarks(model), {0, 0, 30, 90});
    model.adjustWatermarkPos(item.data());
    QCOMPARE(described(*item), atText(60, 60));
}

void TstModelPlacement::frameIsThatOfTheModelAsked()
{
    ZoEffectModel owner;
    owner.setVideoSize(640, 480);
    addOther(watermarks(owner), {0, 0, 100, 50});
    ZoEffectItemData& item = addItem(watermarks(owner), at(0, 0));

    ZoEffectModel other;
    other.setVideoSize(80, 80); // Limits 50 and 50: 0,0 and 30,30 are blocked,
                                // the others lie beyond.
    other.adjustWatermarkPos(&item);
    QCOMPARE(described(item), atText(30, 30)); // Shifted from the first.
    owner.adjustWatermarkPos(&item);
    QCOMPARE(described(item), atText(60, 60));
}

void TstModelPlacement::emptyEntriesArePassedOver()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    watermarks(model).appendChild(nullptr);
    addOther(watermarks(model), {0, 0, 100, 50});
    watermarks(model).appendChild(nullptr);
    ZoEffectItemData& item = addItem(watermarks(model), at(0, 0));
    model.adjustWatermarkPos(&item);
    QCOMPARE(described(item), atText(60, 60));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelPlacement::emptyEntryCountsAsAChildButBlocksNothing()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    watermarks(model).appendChild(nullptr);
    ZoEffectItemData& item = addItem(watermarks(model), at("0", 0));
    model.adjustWatermarkPos(&item);
    QCOMPARE(described(item), QStringLiteral("{wm_hposition: string 0, wm_vposition: int 0}"));
}

void TstModelPlacement::addedWatermarksStandInADiagonal()
{
    // Each starts at a tenth of the frame, 64,48, and has no size: it blocks the
    // rows 47 and 48 and so on.
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    for (int i = 0; i < 4; ++i)
        QVERIFY(model.addDataItem("Watermark", {}));
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(model.data("wm_hposition", "Watermark", i), QVariant(64 + 30 * i));
        QCOMPARE(model.data("wm_vposition", "Watermark", i), QVariant(48 + 30 * i));
    }
}

void TstModelPlacement::placingIsQuickInAHugeFrame()
{
    ZoEffectModel model;
    model.setVideoSize(largest, largest);
    addOther(watermarks(model), {0, 0, 2147483000, 2147483000});
    ZoEffectItemData& item = addItem(watermarks(model));

    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 1000; ++i) {
        item.setData("wm_hposition", 0);
        item.setData("wm_vposition", 0);
        model.adjustWatermarkPos(&item);
        QCOMPARE(described(item), atText(2147483010, 2147483010));
    }
    QVERIFY2(timer.elapsed() < 5000, "the steps are walked one by one");
}

ZOEFFECT_TEST_MAIN(TstModelPlacement)

#include "tst_model_placement.moc"
