// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <cmath>
#include <functional>
#include <limits>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "hostile.h"
#include "hostilevalues.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

using Properties = QMap<QString, QVariant>;
using Int = std::numeric_limits<int>;

void addValues()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < hostileValues().size(); ++i)
        QTest::newRow(hostileValues().at(i).name) << i;
}

ZoEffectItemData* addItem(ZoEffectModel& model, const QString& type, const Properties& properties)
{
    auto* item = new ZoEffectItemData(QString(), model.getDataItem(type, -1));
    for (auto it = properties.cbegin(); it != properties.cend(); ++it)
        item->setData(it.key(), it.value());
    return item;
}

} // namespace

/// What the operations make of hostile values: literal results.
class TstHostileResults : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void wholeNumbers_data() { addValues(); }
    void wholeNumbers();
    void truthValues_data() { addValues(); }
    void truthValues();
    void realNumbers_data() { addValues(); }
    void realNumbers();
    void texts_data() { addValues(); }
    void texts();
    void valuesEqualThemselves_data() { addValues(); }
    void valuesEqualThemselves();

    void watermarkIsRescaled_data();
    void watermarkIsRescaled();
    void cropIsRescaled_data();
    void cropIsRescaled();
    void subtitleIsRescaled_data();
    void subtitleIsRescaled();
    void baseSizes_data();
    void baseSizes();
    void styleIsSpread_data();
    void styleIsSpread();
    void positionFactors_data();
    void positionFactors();
    void savedFactors_data();
    void savedFactors();
    void placement_data();
    void placement();
    void positionsAreDefault_data();
    void positionsAreDefault();
};

void TstHostileResults::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

void TstHostileResults::cleanup()
{
    QCOMPARE(logcapture::takeEvents(), QList<int>());
    forgetCustomDefaults();
}

// --- Conversions --------------------------------------------------------------------------------------------

void TstHostileResults::wholeNumbers()
{
    QFETCH(const int, index);
    const HostileValue& hostile = hostileValues().at(index);

    ZoEffectModel model;
    model.setVideoSize(640, 480);
    ZoEffectItemData* crop = model.getDataItem("Crop", -1);
    crop->setData("crop_width", 5);
    crop->setData("crop_height", 5);
    crop->setData("crop_left", hostile.value);
    crop->setData("crop_top", hostile.value);
    QCOMPARE(model.cropData().left, hostile.whole);
    QCOMPARE(model.cropData().top, hostile.whole);

    model.getDataItem("Color", -1)->setData("bcs_contrast", hostile.value);
    crop->setCheckState(0);
    ZoEffectModel videoOnly(QStringList{"Color"});
    videoOnly.getDataItem("Color", -1)->setData("bcs_contrast", hostile.value);
    QCOMPARE(videoOnly.hasRealEffect(), hostile.whole != 0);

    addItem(model, "Audio", {{"trackid", hostile.value}});
    QCOMPARE(model.getEmbededAudioID(), hostile.whole);

    ZoEffectItemData* root = model.getDataItem("effect root", -1);
    root->setData("w", hostile.value);
    root->setData("h", hostile.value);
    QCOMPARE(model.baseSize(), QSize(hostile.whole, hostile.whole));
}

void TstHostileResults::truthValues()
{
    QFETCH(const int, index);
    const HostileValue& hostile = hostileValues().at(index);

    ZoEffectModel model;
    ZoEffectItemData* subtitle = addItem(model, "Subtitle", {{"sub_fromfile", hostile.value}});
    addItem(model, "Audio", {{"audio_isfile", hostile.value}});
    QCOMPARE(model.useCustomSubtitle(), hostile.truth);
    QCOMPARE(model.useEmbededSubtitle(), !hostile.truth);
    QCOMPARE(model.getEmbededSutitleID(), hostile.truth ? -1 : 0);
    QCOMPARE(model.useCustomAudio(), hostile.truth);
    QCOMPARE(model.useEmbededAudio(), !hostile.truth);

    subtitle->setCheckState(1);
    QVERIFY(model.setData("_checkstate", hostile.value, "Subtitle", 0));
    QCOMPARE(subtitle->checkState(), hostile.truth ? 2 : 0);
    QVERIFY(!subtitle->hasData("_checkstate"));
    QVERIFY(model.addDataItem("Color", {{"_checkstate", hostile.value}}));
    QCOMPARE(model.getDataItem("Color", 0)->checkState(), hostile.truth ? 2 : 0);

    model.getDataItem("effect root", -1)->setData("editbydefault", hostile.value);
    QCOMPARE(model.editByDefault(), hostile.truth);
    model.getDataItem("Audio_Echo", -1)->setData("audio_effect_flag", hostile.value);
    QCOMPARE(model.getValidAudioEffectItem() != nullptr, hostile.truth);
    QCOMPARE(model.hasRealEffect(), hostile.truth);

    model.resetAllEffect();
    QCOMPARE(model.childCount("Subtitle"), hostile.truth ? 0 : 1);
}

// The product with the height is not rounded, so the factor comes out as it is.
void TstHostileResults::realNumbers()
{
    QFETCH(const int, index);
    const HostileValue& hostile = hostileValues().at(index);
    // A factor that is invalid counts as none, and then the catalogue's 0.8 holds; a text beyond the range of double
    // is told as infinity although it does not convert, one below it as 0.
    const QByteArray name = hostile.name;
    const QByteArray expected = name == "invalid" ? "0.80000000000000004"
                                : name == "text 1e999" || name == "bytes 1e999" || name == "100000 nines" ? "inf"
                                : name == "text -1e999"                                                   ? "-inf"
                                : hostile.real                                                            ? hostile.real
                                                                                                          : "0";

    ZoEffectModel model;
    model.setVideoSize(1, 1);
    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal("Subtitle", {{"sub_vposfactor", hostile.value}});
    const QVariant position = model.data("sub_vposition", "Subtitle", -1);
    QCOMPARE(position.userType(), int(QMetaType::Double));
    char told[40] = {};
    qsnprintf(told, sizeof told, "%.17g", position.toDouble());
    QCOMPARE(QByteArray(told), expected);
}

void TstHostileResults::texts()
{
    QFETCH(const int, index);
    const HostileValue& hostile = hostileValues().at(index);

    // What UTF-8 in a C string cannot say.
    static const QMap<QByteArray, QString> others{
        {"lowest signed char", QString(QChar(0x80))},
        {"highest uchar", QString(QChar(0xff))},
        {"text of a null character", QString(QChar(0))},
        {"text 5 and a null character", QString(QChar('5')) + QChar(0)},
        {"null character", QString(QChar(0))},
        {"lone surrogate", QString(QChar(0xd800))},
        {"100000 nines", QString(100000, QChar('9'))},
    };
    QVERIFY(hostile.text || others.contains(hostile.name));
    const QString text = hostile.text ? QString::fromUtf8(hostile.text) : others.value(hostile.name);
    ZoEffectModel model(QStringList{"Watermark"});
    ZoEffectItemData* item = addItem(
        model, "Watermark", {{"key", hostile.value}, {"wm_istextwatermark", true}, {"wm_textcontent", hostile.value}});
    model.selectItemByKeyEx("Watermark", "key", {"another", text});
    QCOMPARE(item->checkState(), 2);
    model.selectItemByKeyEx("Watermark", "key", {text + QLatin1Char('x'), QStringLiteral("\x01")});
    QCOMPARE(item->checkState(), 0);

    item->setCheckState(2);
    QCOMPARE(model.hasRealEffect(), !text.isEmpty());
}

void TstHostileResults::valuesEqualThemselves()
{
    QFETCH(const int, index);
    const HostileValue& hostile = hostileValues().at(index);

    ZoEffectModel model;
    SignalRecorder recorder(model);
    addItem(model, "Audio", {{"key", QVariant::fromValue(HostSmall{77})}});
    QVERIFY(model.setData("key", hostile.value, "Audio", 0));
    QCOMPARE(recorder.take().size(), 1);
    QVERIFY(identical(model.data("key", "Audio", 0), hostile.value));
    QVERIFY(model.setData("key", hostile.value, "Audio", 0));
    QCOMPARE(recorder.take().size(), hostile.equalsItself ? 0 : 1);
    QCOMPARE(model.haveSameItem("Audio", "key", hostile.value), hostile.equalsItself);
    model.selectItemByKey("Audio", "key", hostile.value);
    QCOMPARE(model.getDataItem("Audio", 0)->checkState(), hostile.equalsItself ? 2 : 0);
}

// --- Geometry -----------------------------------------------------------------------------------------------

void TstHostileResults::watermarkIsRescaled_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QSize>("image");
    QTest::addColumn<QSize>("from");
    QTest::addColumn<QSize>("to");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<QSize>("size");

    const int most = Int::max();
    const int least = Int::min();
    QTest::newRow("highest, doubled") << most << QSize(most, most) << QSize(1, 1) << QSize(2, 2) << QPoint(most, most)
                                      << QSize(most, most);
    QTest::newRow("lowest, doubled") << least << QSize(least, least) << QSize(1, 1) << QSize(2, 2)
                                     << QPoint(least, least) << QSize(least, least);
    QTest::newRow("highest, turned over")
        << most << QSize(most, most) << QSize(1, 1) << QSize(-1, -1) << QPoint(-most, -most) << QSize(-most, -most);
    QTest::newRow("lowest, turned over") << least << QSize(least, least) << QSize(1, 1) << QSize(-1, -1)
                                         << QPoint(most, most) << QSize(most, most);
    QTest::newRow("highest, halved") << most << QSize(most, 2) << QSize(2, 2) << QSize(1, 1)
                                     << QPoint(1073741823, 1073741823) << QSize(1073741823, 0);
    QTest::newRow("-1, halved") << -1 << QSize(-1, -1) << QSize(2, 2) << QSize(1, 1) << QPoint(0, 0) << QSize(0, 0);
    QTest::newRow("to the largest frame")
        << 3 << QSize(3, 3) << QSize(1, 1) << QSize(most, most) << QPoint(most, most) << QSize(most, most);
    QTest::newRow("from the largest frame")
        << most << QSize(most, most) << QSize(most, most) << QSize(1, 1) << QPoint(1, 1) << QSize(1, 1);
    QTest::newRow("to the lowest frame") << 1 << QSize(1, 1) << QSize(1, 1) << QSize(least, least)
                                         << QPoint(least, least) << QSize(least, least);
    QTest::newRow("from the lowest frame")
        << least << QSize(least, 1) << QSize(least, least) << QSize(1, 1) << QPoint(1, 1) << QSize(1, 0);
    QTest::newRow("from negative to positive")
        << 100 << QSize(100, 50) << QSize(-100, -100) << QSize(100, 100) << QPoint(-100, -100) << QSize(-100, -50);
    QTest::newRow("to nothing") << 100 << QSize(100, 50) << QSize(100, 100) << QSize(0, 0) << QPoint(100, 100)
                                << QSize(100, 50);
    QTest::newRow("to no height") << 100 << QSize(100, 50) << QSize(100, 100) << QSize(50, 0) << QPoint(100, 100)
                                  << QSize(100, 50);
    QTest::newRow("from nothing") << 100 << QSize(100, 50) << QSize(0, 0) << QSize(100, 100) << QPoint(100, 100)
                                  << QSize(100, 50);
    QTest::newRow("width only") << 100 << QSize(100, 50) << QSize(100, 100) << QSize(200, 100) << QPoint(200, 100)
                                << QSize(200, 100);
    QTest::newRow("height only") << 100 << QSize(100, 50) << QSize(100, 100) << QSize(100, 200) << QPoint(100, 200)
                                 << QSize(100, 50);
    QTest::newRow("image of no height") << 100 << QSize(100, 0) << QSize(100, 100) << QSize(200, 200)
                                        << QPoint(200, 200) << QSize(100, 0);
    QTest::newRow("image of no width") << 100 << QSize(0, 50) << QSize(100, 100) << QSize(200, 200) << QPoint(200, 200)
                                       << QSize(0, 0);
    QTest::newRow("flat image") << 0 << QSize(most, 1) << QSize(2, 2) << QSize(3, 3) << QPoint(0, 0) << QSize(most, 1);
    QTest::newRow("thin image") << 0 << QSize(1, most) << QSize(2, 2) << QSize(3, 3) << QPoint(0, 0) << QSize(1, most);
}

void TstHostileResults::watermarkIsRescaled()
{
    QFETCH(const int, position);
    QFETCH(const QSize, image);
    QFETCH(const QSize, from);
    QFETCH(const QSize, to);
    QFETCH(const QPoint, place);
    QFETCH(const QSize, size);

    ZoEffectModel model;
    model.setVideoSize(from.width(), from.height());
    const ZoEffectItemData* item = addItem(model, "Watermark",
                                           {{"wm_hposition", position},
                                            {"wm_vposition", position},
                                            {"wm_imagewidth", image.width()},
                                            {"wm_imageheight", image.height()}});
    model.adjustEffectInfo(to.width(), to.height());
    QCOMPARE(item->properties(), (Properties{{"wm_hposition", place.x()},
                                             {"wm_vposition", place.y()},
                                             {"wm_imagewidth", size.width()},
                                             {"wm_imageheight", size.height()}}));
    QCOMPARE(model.baseSize(), to);
}

void TstHostileResults::cropIsRescaled_data()
{
    QTest::addColumn<QVariantList>("crop"); // Left, top, width, height.
    QTest::addColumn<QSize>("from");
    QTest::addColumn<QSize>("to");
    QTest::addColumn<QVariantList>("result");

    const int most = Int::max();
    const int least = Int::min();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const auto row = [](const char* name, const QVariantList& crop, const QSize& from, const QSize& to,
                        const QVariantList& result) { QTest::newRow(name) << crop << from << to << result; };
    // A height that reaches the old frame's is carried over by itself, and the width follows it.
    row("highest, doubled", {most, most, most, most}, {1, 1}, {2, 2}, {most, most, most, most});
    row("lowest, doubled", {least, least, least, least}, {1, 1}, {2, 2}, {least, least, least, least});
    row("highest, halved", {most, 0, most, most}, {2, 2}, {1, 1}, {1073741823, 0, 1073741823, 1073741823});
    row("NaN for a width", {1, 1, nan, 5}, {10, 10}, {20, 20}, {0, 0, 20, 20});
    row("NaN for a place", {nan, nan, 2, 2}, {10, 10}, {20, 20}, {0, 0, 4, 4});
    row("infinity for a height", {1, 1, 5, infinity}, {10, 10}, {20, 20}, {0, 0, 20, 20});
    row("text of the whole source", {1, 1, "source_val", "source_val"}, {10, 10}, {20, 20}, {0, 0, 20, 20});
    row("number in a text", {"1", " 2 ", "3", "3"}, {10, 10}, {20, 20}, {2, 4, 6, 6});
    row("fraction in a text", {"1.5", 0, 3, 3}, {10, 10}, {20, 20}, {0, 0, 6, 6});
    row("fraction", {1.5, 2.5, 3, 3}, {10, 10}, {20, 20}, {4, 6, 6, 6});
    row("whole frame at a place", {5, 5, 10, 10}, {10, 10}, {20, 20}, {0, 0, 20, 20});
    row("negative width", {0, 0, -4, 4}, {10, 10}, {20, 20}, {0, 0, -8, 8});
    row("colour for a width", {0, 0, QColor(Qt::red), 4}, {10, 10}, {20, 20}, {0, 0, 20, 20});
    row("to the largest frame", {1, 1, 1, 1}, {3, 3}, {most, most}, {715827882, 715827882, 715827882, 715827882});
    row("to the lowest frame", {1, 1, 1, 1}, {2, 2}, {least, least},
        {-1073741824, -1073741824, -1073741824, -1073741824});
}

void TstHostileResults::cropIsRescaled()
{
    QFETCH(const QVariantList, crop);
    QFETCH(const QSize, from);
    QFETCH(const QSize, to);
    QFETCH(const QVariantList, result);

    ZoEffectModel model;
    model.setVideoSize(from.width(), from.height());
    ZoEffectItemData* typeNode = model.getDataItem("Crop", -1);
    const QStringList keys{"crop_left", "crop_top", "crop_width", "crop_height"};
    for (int i = 0; i < keys.size(); ++i)
        typeNode->setData(keys.at(i), crop.at(i));
    typeNode->setData("crop_keepaspectratio", false);
    model.adjustEffectInfo(to.width(), to.height());
    for (int i = 0; i < keys.size(); ++i)
        QVERIFY2(identical(typeNode->data(keys.at(i)), result.at(i)),
                 qPrintable(described(typeNode->data(keys.at(i)))));
}

void TstHostileResults::subtitleIsRescaled_data()
{
    QTest::addColumn<QVariant>("position");
    QTest::addColumn<int>("tracks");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QVariant>("result");

    const QVariant most = Int::max();
    const QVariant least = Int::min();
    QTest::newRow("no track") << QVariant(100) << 0 << 1 << 2 << QVariant(100);
    QTest::newRow("no track, text") << QVariant("abc") << 0 << 1 << 2 << QVariant("abc");
    QTest::newRow("text") << QVariant("abc") << 1 << 1 << 2 << QVariant(0);
    QTest::newRow("one track") << QVariant(100) << 1 << 1 << 2 << QVariant(200);
    QTest::newRow("three tracks") << QVariant(100) << 3 << 1 << 2 << QVariant(800);
    QTest::newRow("doubled beyond the range") << QVariant(1) << 40 << 1 << 2 << most;
    QTest::newRow("-1 doubled beyond the range") << QVariant(-1) << 40 << 1 << 2 << least;
    QTest::newRow("a thousand tracks, shrinking") << QVariant(1000000) << 1000 << 1000 << 999 << QVariant(367375);
    QTest::newRow("turned over and over") << QVariant(5) << 3 << 1 << -1 << QVariant(-5);
    QTest::newRow("lowest, turned over twice") << least << 2 << 1 << -1 << QVariant(-2147483647);
    QTest::newRow("NaN") << QVariant(std::numeric_limits<double>::quiet_NaN()) << 2 << 1 << 2 << QVariant(0);
    QTest::newRow("1e10") << QVariant(1e10) << 1 << 2 << 1 << QVariant(705032704);
    QTest::newRow("float 8388609") << QVariant::fromValue(8388609.0F) << 1 << 1 << 2 << QVariant(16777220);
}

void TstHostileResults::subtitleIsRescaled()
{
    QFETCH(const QVariant, position);
    QFETCH(const int, tracks);
    QFETCH(const int, from);
    QFETCH(const int, to);
    QFETCH(const QVariant, result);

    ZoEffectModel model;
    model.setVideoSize(1, from);
    ZoEffectItemData* typeNode = model.getDataItem("Subtitle", -1);
    for (int i = 0; i < tracks; ++i)
        addItem(model, "Subtitle", {});
    typeNode->setData("sub_vposition", position);
    model.adjustEffectInfo(1, to);
    QVERIFY2(identical(typeNode->data("sub_vposition"), result),
             qPrintable(described(typeNode->data("sub_vposition"))));
    QCOMPARE(typeNode->data("sub_fontsize"), QVariant(22));
}

void TstHostileResults::baseSizes_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<QString>("position"); // Of a subtitle, with the factor 0.8.
    QTest::addColumn<bool>("croped");      // Of 5 x 5.

    const int most = Int::max();
    const int least = Int::min();
    QTest::newRow("nothing") << 0 << 0 << "int 200" << false;
    QTest::newRow("no width") << 0 << 10 << "double 8" << false;
    QTest::newRow("no height") << 10 << 0 << "int 200" << true;
    QTest::newRow("one pixel") << 1 << 1 << "double 0.80000000000000004" << true;
    QTest::newRow("the crop's") << 5 << 5 << "double 4" << false;
    QTest::newRow("highest") << most << most << "double 1717986917.6000001" << true;
    QTest::newRow("lowest") << least << least << "double -1717986918.4000001" << true;
    QTest::newRow("negative") << -5 << -5 << "double -4" << true;
}

void TstHostileResults::baseSizes()
{
    QFETCH(const int, width);
    QFETCH(const int, height);
    QFETCH(const QString, position);
    QFETCH(const bool, croped);

    ZoEffectModel model(QStringList{"Crop", "Watermark", "Subtitle"});
    model.setVideoSize(width, height);
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", -1)), position);
    ZoEffectItemData* crop = model.getDataItem("Crop", -1);
    crop->setData("crop_width", 5);
    crop->setData("crop_height", 5);
    QCOMPARE(model.isCroped(7, 7), croped);
    QCOMPARE(model.cropData().valid, croped);
    QCOMPARE(model.hasRealEffect(), croped && height != 0);
    QVERIFY(model.getWatermark(width, height, true).isNull());
    QVERIFY(model.getWatermark(Int::max(), Int::max(), false).isNull());
    QVERIFY(model.getWatermark(Int::min(), Int::min(), false).isNull());
    QCOMPARE(model.baseSize(), QSize(width, height));
}

void TstHostileResults::styleIsSpread_data()
{
    QTest::addColumn<QVariant>("size");
    QTest::addColumn<QVariant>("from"); // The height that the style was made for.
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("result");

    const int most = Int::max();
    const int least = Int::min();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("doubled") << QVariant(20) << QVariant(360) << 720 << "int 40";
    QTest::newRow("no height told") << QVariant(20.5) << QVariant() << 720 << "double 20.5";
    QTest::newRow("height of 0") << QVariant("x") << QVariant(0) << 720 << "string x";
    QTest::newRow("no height of its own") << QVariant("x") << QVariant(360) << 0 << "string x";
    QTest::newRow("NaN for a height") << QVariant("x") << QVariant(nan) << 720 << "string x";
    QTest::newRow("text for a height") << QVariant(20) << QVariant("360") << 720 << "int 40";
    QTest::newRow("colour for a height") << QVariant(20) << QVariant(QColor(Qt::red)) << 720 << "int 20";
    QTest::newRow("2^32 for a height") << QVariant(20) << QVariant(qint64(4294967296)) << 720 << "int 20";
    QTest::newRow("2^32 + 360 for a height") << QVariant(20) << QVariant(qint64(4294967656)) << 720 << "int 40";
    QTest::newRow("NaN") << QVariant(nan) << QVariant(360) << 720 << "int 0";
    QTest::newRow("text") << QVariant("abc") << QVariant(360) << 720 << "int 0";
    QTest::newRow("invalid") << QVariant() << QVariant(360) << 720 << "int 0";
    QTest::newRow("highest") << QVariant(most) << QVariant(1) << 2 << "int 2147483647";
    QTest::newRow("lowest") << QVariant(least) << QVariant(1) << 2 << "int -2147483648";
    QTest::newRow("lowest, turned over") << QVariant(least) << QVariant(1) << -1 << "int 2147483647";
    QTest::newRow("from the lowest height") << QVariant(least) << QVariant(least) << 1 << "int 1";
    QTest::newRow("to the lowest height") << QVariant(1) << QVariant(1) << least << "int -2147483648";
    QTest::newRow("same height, fraction") << QVariant(20.5) << QVariant(720) << 720 << "int 21";
}

void TstHostileResults::styleIsSpread()
{
    QFETCH(const QVariant, size);
    QFETCH(const QVariant, from);
    QFETCH(const int, to);
    QFETCH(const QString, result);

    ZoEffectModel model;
    model.setVideoSize(1, to);
    const ZoEffectItemData* item = addItem(model, "Subtitle", {{"sub_fromfile", true}});
    SignalRecorder recorder(model);
    model.replaceItemDataProperty("Subtitle", {{"h", from}, {"sub_fontsize", size}, {"sub_linemargin", size}});
    QCOMPARE(described(item->data("sub_fontsize")), result);
    QVERIFY(identical(item->data("sub_linemargin"), size));
    QCOMPARE(recorder.take(), QStringList{"effectDataChanged(Subtitle, reset, invalid, 7)"});
    QVERIFY(model.editByUser());
}

// --- Factors ------------------------------------------------------------------------------------------------

void TstHostileResults::positionFactors_data()
{
    QTest::addColumn<QVariant>("factor");
    QTest::addColumn<QSize>("base");
    QTest::addColumn<QPoint>("place");

    const int most = Int::max();
    const int least = Int::min();
    const double infinity = std::numeric_limits<double>::infinity();
    QTest::newRow("NaN") << QVariant(std::numeric_limits<double>::quiet_NaN()) << QSize(640, 480) << QPoint(0, 0);
    QTest::newRow("infinity") << QVariant(infinity) << QSize(640, 480) << QPoint(most, most);
    QTest::newRow("-infinity") << QVariant(-infinity) << QSize(640, 480) << QPoint(least, least);
    QTest::newRow("infinity of nothing") << QVariant(infinity) << QSize(0, 0) << QPoint(0, 0);
    QTest::newRow("infinity of a negative size") << QVariant(infinity) << QSize(-640, -480) << QPoint(least, least);
    QTest::newRow("1e300") << QVariant(1e300) << QSize(640, 480) << QPoint(most, most);
    QTest::newRow("-1e300") << QVariant(-1e300) << QSize(640, 480) << QPoint(least, least);
    QTest::newRow("smallest") << QVariant(std::numeric_limits<double>::denorm_min()) << QSize(640, 480) << QPoint(0, 0);
    QTest::newRow("-0.0") << QVariant(-0.0) << QSize(640, 480) << QPoint(0, 0);
    QTest::newRow("negative") << QVariant(-0.1) << QSize(645, 485) << QPoint(-64, -48);
    QTest::newRow("text") << QVariant("0.5") << QSize(640, 480) << QPoint(320, 240);
    QTest::newRow("no number") << QVariant("abc") << QSize(640, 480) << QPoint(0, 0);
    QTest::newRow("text beyond the range") << QVariant("1e999") << QSize(640, 480) << QPoint(most, most);
    QTest::newRow("invalid") << QVariant() << QSize(640, 480) << QPoint(0, 0);
    QTest::newRow("colour") << QVariant(QColor(Qt::red)) << QSize(640, 480) << QPoint(0, 0);
    QTest::newRow("float 0.1") << QVariant::fromValue(0.1F) << QSize(640, 480) << QPoint(64, 48);
    QTest::newRow("true") << QVariant(true) << QSize(640, 480) << QPoint(640, 480);
    QTest::newRow("of the largest size") << QVariant(2.0) << QSize(most, most) << QPoint(most, most);
    QTest::newRow("of the lowest size") << QVariant(2.0) << QSize(least, least) << QPoint(least, least);
}

// A catalogue of the host's own gives the factors.
void TstHostileResults::positionFactors()
{
    QFETCH(const QVariant, factor);
    QFETCH(const QSize, base);
    QFETCH(const QPoint, place);

    const EffectDefaultVal properties[] = {::property("wm_hposfactor", factor), ::property("wm_vposfactor", factor),
                                           ::property(nullptr, 0)};
    const EffectControlItem table[] = {effectType("Watermark", properties), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    ZoEffectModel model;
    model.setVideoSize(base.width(), base.height());
    QVERIFY(model.addDataItem("Watermark", {}));
    QCOMPARE(model.getDataItem("Watermark", 0)->properties(),
             (Properties{{"wm_hposition", place.x()}, {"wm_vposition", place.y()}}));
    QVERIFY(model.replaceData("Watermark", 0, Properties()));
    QCOMPARE(model.data("wm_hposition", "Watermark", 0), QVariant(place.x()));
    QCOMPARE(model.data("wm_vposition", "Watermark", 0), QVariant(place.y()));
    ZoEffectModel::InitEffectModel(hostCatalogue());
}

void TstHostileResults::savedFactors_data()
{
    positionFactors_data();
}

// The custom default of a watermark: factors that are saved are taken over even when they are invalid.
void TstHostileResults::savedFactors()
{
    QFETCH(const QVariant, factor);
    QFETCH(const QSize, base);
    QFETCH(const QPoint, place);

    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal(
        "Watermark", {{"wm_hposfactor", factor}, {"wm_vposfactor", factor}});
    ZoEffectModel model;
    model.setVideoSize(base.width(), base.height());
    QVERIFY(model.addDataItem("Watermark", {}));
    const ZoEffectItemData* item = model.getDataItem("Watermark", 0);
    QCOMPARE(item->data("wm_hposition"), QVariant(place.x()));
    QCOMPARE(item->data("wm_vposition"), QVariant(place.y()));
    QVERIFY(!item->hasData("wm_hposfactor"));
    QVERIFY(identical(ZoEffectModel::customDefaultVal("wm_hposfactor", "Watermark"), factor));
}

// --- Places -------------------------------------------------------------------------------------------------

void TstHostileResults::placement_data()
{
    QTest::addColumn<QVariantList>("other"); // Left, top, width, height.
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<QSize>("base");
    QTest::addColumn<QPoint>("place");

    const int most = Int::max();
    const int least = Int::min();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const auto row = [](const char* name, const QVariantList& other, const QPoint& start, const QSize& base,
                        const QPoint& place) { QTest::newRow(name) << other << start << base << place; };
    row("beside a common one", {0, 0, 100, 50}, {0, 0}, {640, 480}, {60, 60});
    row("NaN for all", {nan, nan, nan, nan}, {0, 0}, {640, 480}, {30, 30});
    row("texts", {"0", "0", "100", "50"}, {0, 0}, {640, 480}, {60, 60});
    row("one from the lowest place to -2", {least, least, most, most}, {-5, -5}, {640, 480}, {25, 25});
    row("one without an end", {0, 0, most, most}, {0, 0}, {640, 480}, {30, 30});
    row("in no frame", {0, 0, 10, 10}, {0, 0}, {0, 0}, {0, 0});
    row("in a negative frame", {0, 0, 10, 10}, {5, 5}, {-640, -480}, {5, 5});
    row("in the lowest frame", {0, 0, 10, 10}, {5, 5}, {least, least}, {5, 5});
    row("at the lowest place", {0, 0, 10, 10}, {least, least}, {640, 480}, {least, least});
    row("at the highest place", {0, 0, 10, 10}, {most, most}, {640, 480}, {29, 0});
    row("in the largest frame", {0, 0, most, most}, {0, 0}, {most, most}, {30, 30});
    row("along the largest frame", {0, 0, 1000000000, 1000000000}, {0, 0}, {most, most}, {1000000020, 1000000020});
    row("of negative size", {100, 100, -50, -50}, {60, 60}, {640, 480}, {120, 120});
}

void TstHostileResults::placement()
{
    QFETCH(const QVariantList, other);
    QFETCH(const QPoint, start);
    QFETCH(const QSize, base);
    QFETCH(const QPoint, place);

    ZoEffectModel model;
    model.setVideoSize(base.width(), base.height());
    addItem(model, "Watermark",
            {{"wm_hposition", other.at(0)},
             {"wm_vposition", other.at(1)},
             {"wm_imagewidth", other.at(2)},
             {"wm_imageheight", other.at(3)}});
    ZoEffectItemData* item = addItem(model, "Watermark", {{"wm_hposition", start.x()}, {"wm_vposition", start.y()}});
    const hostile::Stopwatch stopwatch;
    model.adjustWatermarkPos(item);
    QVERIFY(stopwatch.milliseconds() < 250.0 * hostile::slowness);
    QCOMPARE(QPoint(item->data("wm_hposition").toInt(), item->data("wm_vposition").toInt()), place);
}

void TstHostileResults::positionsAreDefault_data()
{
    QTest::addColumn<QVariant>("position");
    QTest::addColumn<QVariant>("factor");
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("isDefault");

    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    QTest::newRow("exact") << QVariant(360) << QVariant(0.5) << 720 << true;
    QTest::newRow("text") << QVariant("360") << QVariant("0.5") << 720 << true;
    QTest::newRow("rounded") << QVariant(359.6) << QVariant(0.5) << 720 << true;
    QTest::newRow("product with a fraction") << QVariant(360) << QVariant(0.5) << 721 << false;
    QTest::newRow("NaN for a factor") << QVariant(0) << QVariant(nan) << 720 << false;
    QTest::newRow("infinity for a factor") << QVariant(Int::max()) << QVariant(infinity) << 720 << false;
    QTest::newRow("infinity of nothing") << QVariant(0) << QVariant(infinity) << 0 << false;
    QTest::newRow("NaN for a position") << QVariant(nan) << QVariant(0.0) << 720 << true;
    QTest::newRow("-0.0") << QVariant(-0.0) << QVariant(-0.0) << 720 << true;
    QTest::newRow("highest") << QVariant(Int::max()) << QVariant(1.0) << Int::max() << true;
    QTest::newRow("lowest") << QVariant(Int::min()) << QVariant(1.0) << Int::min() << true;
    QTest::newRow("beyond the range") << QVariant(Int::max()) << QVariant(2.0) << Int::max() << false;
    QTest::newRow("missing position") << QVariant() << QVariant(0.0) << 720 << true;
}

void TstHostileResults::positionsAreDefault()
{
    QFETCH(const QVariant, position);
    QFETCH(const QVariant, factor);
    QFETCH(const int, width);
    QFETCH(const bool, isDefault);

    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal("Watermark", {{"wm_hposfactor", factor}});
    ZoEffectModel model;
    model.setVideoSize(width, 1);
    addItem(model, "Watermark", {{"wm_hposition", position}});
    QCOMPARE(model.SingleDataIsDefault("Watermark", "wm_hposition", 0), isDefault);
}

ZOEFFECT_TEST_MAIN(TstHostileResults)
#include "tst_hostile_results.moc"
