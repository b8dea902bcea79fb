// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <climits>

#include <QPointer>

#include <zoeffectcatalogue.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

using Properties = QMap<QString, QVariant>;

ZoEffectItemData* rootOf(const ZoEffectModel& model)
{
    return model.getDataItem(QStringLiteral("effect root"), -1);
}

/// Appends an item with nothing but \a properties to \a type, past the model.
ZoEffectItemData* appendBare(const ZoEffectModel& model, const QString& type, const Properties& properties)
{
    auto* item = new ZoEffectItemData(QString(), model.getDataItem(type, -1));
    for (auto it = properties.cbegin(); it != properties.cend(); ++it)
        item->setData(it.key(), it.value());
    return item;
}

/// Subtitle tracks in the order of \a kinds: e embedded, f from a file.
void appendTracks(const ZoEffectModel& model, const QString& kinds)
{
    for (const QChar kind : kinds)
        appendBare(model, "Subtitle", {{"sub_fromfile", kind == QLatin1Char('f')}});
}

QStringList one(const QString& signal)
{
    return {signal};
}

/// What a model sends when it spreads a style with \a keyCount keys to one track and hands it on.
QStringList spreadOnce(int keyCount, const QString& map, int applyto)
{
    return {QStringLiteral("effectDataChanged(Subtitle, reset, invalid, %1)").arg(keyCount),
            QStringLiteral("applyItemDataSomePropertyTo(%1, Subtitle, -1, %2)").arg(map).arg(applyto)};
}

template <typename Listener>
void listen(const ZoEffectModel& model, QObject* context, Listener listener)
{
    QObject::connect(
        &model, QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
        context, [listener](const QString&, const QString& key, const QVariant&, int pos) { listener(key, pos); });
}

} // namespace

class TstModelApply : public QObject {
    Q_OBJECT

private slots:
    void init();

    void nodeIsHandedOut_data();
    void nodeIsHandedOut();
    void nodeIsTheModelsOwn();
    void whatIsNotThereIsNotHandedOut_data();
    void whatIsNotThereIsNotHandedOut();
    void handingOutChangesNothing();
    void unselectedNodeIsHandedOut();
    void applytoIsPassedOn_data();
    void applytoIsPassedOn();
    void otherModelTakesTheHandedNode();
    void handedTypeNodeIsRescaledByItsTaker();
    void listenerMayDeleteTheHandedNode();
    void blockedModelHandsOutNothing();

    void styleOfASelectedTrackIsHandedOn_data();
    void styleOfASelectedTrackIsHandedOn();
    void styleOfWhatIsNoSelectedTrackIsNotHandedOn_data();
    void styleOfWhatIsNoSelectedTrackIsNotHandedOn();
    void checkStateOfTheTypePlaysNoPart();
    void positionIsTheStoredOne();
    void heightIsTheRootsInteger_data();
    void heightIsTheRootsInteger();
    void styleIsSpreadOverTheModelsOwnTracks_data();
    void styleIsSpreadOverTheModelsOwnTracks();
    void trackThatIsNotReachedKeepsItsValues();
    void sizesBecomeIntegersWhenTheVideoHasAHeight_data();
    void sizesBecomeIntegersWhenTheVideoHasAHeight();
    void spreadingComesBeforeHandingOn();
    void handingOnCountsAsEditedByUser_data();
    void handingOnCountsAsEditedByUser();
    void otherModelTakesTheStyleRescaled();
    void listenerMayChangeTheModelInBetween_data();
    void listenerMayChangeTheModelInBetween();
    void argumentsThatAListenerChangesCountAsTheyWere();
};

void TstModelApply::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

// --- Handing out a node ------------------------------------------------------------------------------------

void TstModelApply::nodeIsHandedOut_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");
    QTest::addColumn<QString>("expected");

    QTest::newRow("whole watermark list") << "Watermark" << -1 << "applyItemDataTo(node Watermark, Watermark, -1, 7)";
    QTest::newRow("first watermark") << "Watermark" << 0 << "applyItemDataTo(node first, Watermark, 0, 7)";
    QTest::newRow("last watermark") << "Watermark" << 2 << "applyItemDataTo(node third, Watermark, 2, 7)";
    QTest::newRow("crop") << "Crop" << -1 << "applyItemDataTo(node Crop, Crop, -1, 7)";
    QTest::newRow("subtitles") << "Subtitle" << -1 << "applyItemDataTo(node Subtitle, Subtitle, -1, 7)";
    QTest::newRow("frame effect by its place") << "Effect" << 2 << "applyItemDataTo(node Mirror, Effect, 2, 7)";
    QTest::newRow("frame effect by its name") << "Mirror" << -1 << "applyItemDataTo(node Mirror, Mirror, -1, 7)";
    QTest::newRow("root") << "effect root" << -1 << "applyItemDataTo(node effect root, effect root, -1, 7)";
    QTest::newRow("type by its place") << "effect root" << 4 << "applyItemDataTo(node Color, effect root, 4, 7)";
}

void TstModelApply::nodeIsHandedOut()
{
    QFETCH(QString, type);
    QFETCH(int, pos);
    QFETCH(QString, expected);
    ZoEffectModel model;
    for (const char* name : {"first", "second", "third"})
        new ZoEffectItemData(name, model.getDataItem("Watermark", -1));
    SignalRecorder recorder(model);

    model.applyDataTo(type, pos, 7);

    QCOMPARE(recorder.take(), one(expected));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelApply::nodeIsTheModelsOwn()
{
    ZoEffectModel model;
    ZoEffectItemData* item = appendBare(model, "Watermark", {});
    QList<ZoEffectItemData*> handed;
    connect(&model, &ZoEffectModel::applyItemDataTo, this,
            [&](ZoEffectItemData* node, const QString&, int, int) { handed << node; });

    model.applyDataTo("Watermark", 0, 0);
    model.applyDataTo("Watermark", -1, 0);

    QCOMPARE(handed, (QList<ZoEffectItemData*>{item, model.getDataItem("Watermark", -1)}));
}

void TstModelApply::whatIsNotThereIsNotHandedOut_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");

    QTest::newRow("right behind the end") << "Watermark" << 3;
    QTest::newRow("behind the end") << "Watermark" << 5;
    QTest::newRow("greatest int") << "Watermark" << INT_MAX;
    QTest::newRow("-2") << "Watermark" << -2;
    QTest::newRow("smallest int") << "Watermark" << INT_MIN;
    QTest::newRow("empty list") << "Audio" << 0;
    QTest::newRow("null entry") << "Color" << 0;
    QTest::newRow("unknown type") << "Rotation" << -1;
    QTest::newRow("item of an unknown type") << "Rotation" << 0;
    QTest::newRow("other letter case") << "watermark" << -1;
}

void TstModelApply::whatIsNotThereIsNotHandedOut()
{
    QFETCH(QString, type);
    QFETCH(int, pos);
    ZoEffectModel model;
    for (int i = 0; i < 3; ++i)
        appendBare(model, "Watermark", {});
    ZoEffectItemData* const nothing = nullptr;
    model.getDataItem("Color", -1)->appendChild(nothing);
    SignalRecorder recorder(model);

    model.applyDataTo(type, pos, 7);

    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelApply::handingOutChangesNothing()
{
    ZoEffectModel model;
    ZoEffectItemData* item = appendBare(model, "Subtitle", {{"sub_fontsize", 30}});

    model.applyDataTo("Subtitle", 0, 1);
    model.applyDataTo("Subtitle", -1, 1);

    QCOMPARE(described(item->properties()), QStringLiteral("{sub_fontsize: int 30}"));
    QCOMPARE(item->checkState(), 2);
    QCOMPARE(model.childCount("Subtitle"), 1);
    QCOMPARE(model.editByUser(), false);
}

void TstModelApply::unselectedNodeIsHandedOut()
{
    ZoEffectModel model;
    appendBare(model, "Subtitle", {})->setCheckState(0);
    model.getDataItem("Subtitle", -1)->setCheckState(0);
    SignalRecorder recorder(model);

    model.applyDataTo("Subtitle", 0, 1);
    model.applyDataTo("Subtitle", -1, 1);

    QCOMPARE(recorder.take(), (QStringList{"applyItemDataTo(node , Subtitle, 0, 1)",
                                           "applyItemDataTo(node Subtitle, Subtitle, -1, 1)"}));
}

void TstModelApply::applytoIsPassedOn_data()
{
    QTest::addColumn<int>("applyto");

    for (const int applyto : {0, 1, -1, 12345, INT_MAX, INT_MIN})
        QTest::addRow("%d", applyto) << applyto;
}

void TstModelApply::applytoIsPassedOn()
{
    QFETCH(int, applyto);
    ZoEffectModel model;
    appendBare(model, "Subtitle", {{"sub_fontsize", 30}});
    SignalRecorder recorder(model);

    model.applyDataTo("Crop", -1, applyto);
    model.applySomePropertytoOther("Subtitle", 0, applyto);

    QCOMPARE(recorder.take(), one(QStringLiteral("applyItemDataTo(node Crop, Crop, -1, %1)").arg(applyto))
                                  + spreadOnce(5, "{h: int 0, sub_fontsize: int 30}", applyto));
}

void TstModelApply::otherModelTakesTheHandedNode()
{
    ZoEffectModel model;
    appendBare(model, "Audio", {{"tag", "a"}})->setCheckState(0);
    ZoEffectModel other;
    appendBare(other, "Audio", {{"tag", "x"}});
    appendBare(other, "Audio", {{"tag", "y"}});
    connect(
        &model, &ZoEffectModel::applyItemDataTo, this,
        [&](ZoEffectItemData* node, const QString& type, int, int applyto) { other.replaceData(type, applyto, node); });
    SignalRecorder recorder(other);

    model.applyDataTo("Audio", 0, 1);
    QCOMPARE(described(other.getDataItem("Audio", 1)->properties()), QStringLiteral("{tag: string a}"));
    QCOMPARE(other.getDataItem("Audio", 1)->checkState(), 0);
    QCOMPARE(described(other.getDataItem("Audio", 0)->properties()), QStringLiteral("{tag: string x}"));

    model.applyDataTo("Audio", -1, -1);
    QCOMPARE(other.childCount("Audio"), 1);
    QCOMPARE(described(other.getDataItem("Audio", 0)->properties()), QStringLiteral("{tag: string a}"));
    QVERIFY(other.getDataItem("Audio", 0) != model.getDataItem("Audio", 0));

    QCOMPARE(recorder.take(), (QStringList{"effectDataChanged(Audio, reset, invalid, 1)",
                                           "effectDataChanged(Audio, reset, invalid, -1)"}));
}

void TstModelApply::handedTypeNodeIsRescaledByItsTaker()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    appendBare(model, "Watermark", {{"wm_hposition", 101}, {"wm_vposition", 51}});
    ZoEffectModel other;
    other.setVideoSize(1280, 240);
    connect(&model, &ZoEffectModel::applyItemDataTo, this,
            [&](ZoEffectItemData* node, const QString& type, int pos, int) { other.replaceData(type, pos, node); });

    model.applyDataTo("Watermark", -1, 0);

    QCOMPARE(described(other.getDataItem("Watermark", 0)->properties()),
             QStringLiteral("{wm_hposition: int 202, wm_vposition: int 25}"));
}

void TstModelApply::listenerMayDeleteTheHandedNode()
{
    ZoEffectModel model;
    const QPointer<ZoEffectItemData> item = appendBare(model, "Audio", {});
    connect(&model, &ZoEffectModel::applyItemDataTo, this,
            [&](ZoEffectItemData*, const QString& type, int pos, int) { model.delDataItem(type, pos); });

    model.applyDataTo("Audio", 0, 0);

    QVERIFY(item.isNull());
    QCOMPARE(model.childCount("Audio"), 0);
}

void TstModelApply::blockedModelHandsOutNothing()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    appendTracks(model, "ff");
    model.getDataItem("Subtitle", 1)->setData("sub_linemargin", 9);
    SignalRecorder recorder(model);
    model.blockSignals(true);

    model.applyDataTo("Subtitle", 1, 0);
    model.applySomePropertytoOther("Subtitle", 1, 0);

    // The model's own tracks take the style all the same.
    QCOMPARE(described(model.data("sub_linemargin", "Subtitle", 0)), QStringLiteral("int 9"));
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(model.signalsBlocked(), true);
}

// --- Handing on a style ------------------------------------------------------------------------------------

void TstModelApply::styleOfASelectedTrackIsHandedOn_data()
{
    QTest::addColumn<Properties>("track");
    QTest::addColumn<QString>("map");
    QTest::addColumn<int>("keyCount");

    const Properties all{{"sub_fontname", "n"},
                         {"sub_fontcolor", "c"},
                         {"sub_fontstyle", "s"},
                         {"sub_linemargin", 1},
                         {"sub_fontsize", 2},
                         {"sub_transparency", 3},
                         {"sub_vposition", 4},
                         {"sub_hposition", 5},
                         {"fontstyleusedefault", false},
                         {"sub_framecolor", "f"},
                         {"sub_vposfactor", 0.5},
                         {"trackid", 6},
                         {"_checkstate", false},
                         {"own", "x"},
                         {"h", 123},
                         {"w", 456},
                         {"dvdsubtitleposeditbyuser", 1}};
    const QString style = "{h: int 480, sub_fontcolor: string c, sub_fontname: string n, sub_fontsize: int 2, "
                          "sub_fontstyle: string s, sub_linemargin: int 1, sub_transparency: int 3, "
                          "sub_vposition: int 4}";
    Properties fromFile = all;
    fromFile.insert("sub_fromfile", true);
    QTest::newRow("embedded: the same seven keys as from a file") << all << style << 5;
    QTest::newRow("from a file") << fromFile << style << 7;
    QTest::newRow("two keys only") << Properties{{"sub_fontsize", 20}, {"sub_fontcolor", "c"}}
                                   << "{h: int 480, sub_fontcolor: string c, sub_fontsize: int 20}" << 5;
    QTest::newRow("one key") << Properties{{"sub_transparency", 0}} << "{h: int 480, sub_transparency: int 0}" << 5;
    QTest::newRow("false and empty values are values")
        << Properties{{"sub_fontname", ""}, {"sub_fontstyle", QString()}, {"sub_linemargin", false}}
        << "{h: int 480, sub_fontname: string , sub_fontstyle: string , sub_linemargin: bool false}" << 5;
    QTest::newRow("invalid values are none")
        << Properties{{"sub_fontname", QVariant()}, {"sub_fontstyle", "Bold"}, {"sub_fontsize", QVariant()}}
        << "{h: int 480, sub_fontstyle: string Bold}" << 5;
    QTest::newRow("values keep their types")
        << Properties{{"sub_fontcolor", QVariant(QColor(Qt::white))},
                      {"sub_fontname", QVariant(QFont("Tahoma"))},
                      {"sub_fontsize", "20"},
                      {"sub_vposition", 20.5}}
        << "{h: int 480, sub_fontcolor: color #ffffffff, sub_fontname: font Tahoma, sub_fontsize: string 20, "
           "sub_vposition: double 20.5}"
        << 5;
}

void TstModelApply::styleOfASelectedTrackIsHandedOn()
{
    QFETCH(Properties, track);
    QFETCH(QString, map);
    QFETCH(int, keyCount);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    appendBare(model, "Subtitle", track);
    SignalRecorder recorder(model);

    model.applySomePropertytoOther("Subtitle", 0, 7);

    QCOMPARE(recorder.take(), spreadOnce(keyCount, map, 7));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelApply::styleOfWhatIsNoSelectedTrackIsNotHandedOn_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");

    QTest::newRow("unselected track") << "Subtitle" << 1;
    QTest::newRow("partly selected track") << "Subtitle" << 2;
    QTest::newRow("track without style") << "Subtitle" << 3;
    QTest::newRow("track with invalid values only") << "Subtitle" << 4;
    QTest::newRow("null entry") << "Subtitle" << 5;
    QTest::newRow("the type itself") << "Subtitle" << -1;
    QTest::newRow("-2") << "Subtitle" << -2;
    QTest::newRow("smallest int") << "Subtitle" << INT_MIN;
    QTest::newRow("behind the end") << "Subtitle" << 6;
    QTest::newRow("greatest int") << "Subtitle" << INT_MAX;
    QTest::newRow("watermark") << "Watermark" << 0;
    QTest::newRow("audio") << "Audio" << 0;
    QTest::newRow("other letter case") << "subtitle" << 0;
    QTest::newRow("unknown type") << "Rotation" << 0;
    QTest::newRow("subtitles through the root") << "effect root" << 2;
    QTest::newRow("no name") << "" << 0;
}

void TstModelApply::styleOfWhatIsNoSelectedTrackIsNotHandedOn()
{
    QFETCH(QString, type);
    QFETCH(int, pos);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    const Properties style{{"sub_fontsize", 30}, {"sub_transparency", 3}};
    appendBare(model, "Subtitle", {{"sub_fromfile", true}});
    appendBare(model, "Subtitle", style)->setCheckState(0);
    appendBare(model, "Subtitle", style)->setCheckState(1);
    appendBare(model, "Subtitle", {{"sub_hposition", 5}, {"sub_framecolor", "f"}, {"trackid", 1}, {"h", 3}});
    appendBare(model, "Subtitle", {{"sub_fontsize", QVariant()}});
    ZoEffectItemData* const nothing = nullptr;
    model.getDataItem("Subtitle", -1)->appendChild(nothing);
    appendBare(model, "Watermark", style);
    appendBare(model, "Audio", style);
    SignalRecorder recorder(model);

    model.applySomePropertytoOther(type, pos, 7);

    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(described(model.getDataItem("Subtitle", 0)->properties()), QStringLiteral("{sub_fromfile: bool true}"));
    QCOMPARE(model.editByUser(), false);
    QCOMPARE(logcapture::takeEvents(), QList<int>());

    ZoEffectModel withoutSubtitles(QStringList{"Crop"});
    SignalRecorder silent(withoutSubtitles);
    withoutSubtitles.applySomePropertytoOther("Subtitle", pos, 7);
    QCOMPARE(silent.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelApply::checkStateOfTheTypePlaysNoPart()
{
    ZoEffectModel model;
    model.getDataItem("Subtitle", -1)->setCheckState(0);
    appendBare(model, "Subtitle", {{"sub_fontsize", 30}});
    SignalRecorder recorder(model);

    model.applySomePropertytoOther("Subtitle", 0, 7);

    QCOMPARE(recorder.take(), spreadOnce(5, "{h: int 0, sub_fontsize: int 30}", 7));
}

void TstModelApply::positionIsTheStoredOne()
{
    ZoEffectModel model;
    model.setVideoSize(640, 500);
    appendBare(model, "Subtitle", {{"sub_vposition", 30}});
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", 0)), QStringLiteral("double 400"));
    SignalRecorder recorder(model);

    model.applySomePropertytoOther("Subtitle", 0, 7);

    QCOMPARE(recorder.take(), spreadOnce(5, "{h: int 500, sub_vposition: int 30}", 7));
}

void TstModelApply::heightIsTheRootsInteger_data()
{
    QTest::addColumn<QVariant>("height");
    QTest::addColumn<QString>("expected");

    QTest::newRow("whole number") << QVariant(720) << "int 720";
    QTest::newRow("never set") << QVariant() << "int 0";
    QTest::newRow("text") << QVariant("720") << "int 720";
    QTest::newRow("double, rounded") << QVariant(719.6) << "int 720";
    QTest::newRow("no number") << QVariant("high") << "int 0";
    QTest::newRow("negative") << QVariant(-5) << "int -5";
}

void TstModelApply::heightIsTheRootsInteger()
{
    QFETCH(QVariant, height);
    QFETCH(QString, expected);
    ZoEffectModel model;
    if (height.isValid())
        rootOf(model)->setData("h", height);
    model.getDataItem("Subtitle", -1)->setData("h", 99);
    appendBare(model, "Subtitle", {{"sub_linemargin", 3}});
    SignalRecorder recorder(model);

    model.applySomePropertytoOther("Subtitle", 0, 7);

    QCOMPARE(recorder.take(), spreadOnce(5, QStringLiteral("{h: %1, sub_linemargin: int 3}").arg(expected), 7));
}

void TstModelApply::styleIsSpreadOverTheModelsOwnTracks_data()
{
    QTest::addColumn<QString>("tracks");
    QTest::addColumn<int>("pos");
    QTest::addColumn<QList<int>>("styledRows");
    QTest::addColumn<QList<int>>("announced");

    using Rows = QList<int>;
    QTest::newRow("one from a file") << "f" << 0 << Rows{0} << Rows{7};
    QTest::newRow("one embedded") << "e" << 0 << Rows{0} << Rows{5};
    QTest::newRow("second of two") << "ff" << 1 << Rows{0, 1} << Rows{7};
    QTest::newRow("fourth of ten from files") << "ffffffffff" << 3 << Rows{0, 3, 8} << Rows{7, 7};
    QTest::newRow("last of seven embedded") << "eeeeeee" << 6 << Rows{0, 6} << Rows{5, 5};
    QTest::newRow("embedded and from files") << "eeeeeefff" << 1 << Rows{0, 1, 6, 8} << Rows{5, 7, 7};
}

void TstModelApply::styleIsSpreadOverTheModelsOwnTracks()
{
    QFETCH(QString, tracks);
    QFETCH(int, pos);
    QFETCH(QList<int>, styledRows);
    QFETCH(QList<int>, announced);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    appendTracks(model, tracks);
    model.getDataItem("Subtitle", pos)->setData("sub_transparency", 77);
    SignalRecorder recorder(model);

    model.applySomePropertytoOther("Subtitle", pos, 7);

    QList<int> rows;
    for (int i = 0; i < model.childCount("Subtitle"); ++i) {
        if (model.getDataItem("Subtitle", i)->data("sub_transparency") == QVariant(77))
            rows << i;
    }
    QCOMPARE(rows, styledRows);
    QStringList expected;
    for (const int keyCount : announced)
        expected << QStringLiteral("effectDataChanged(Subtitle, reset, invalid, %1)").arg(keyCount);
    expected << "applyItemDataSomePropertyTo({h: int 480, sub_transparency: int 77}, Subtitle, -1, 7)";
    QCOMPARE(recorder.take(), expected);
}

void TstModelApply::trackThatIsNotReachedKeepsItsValues()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    appendTracks(model, "fff");
    model.getDataItem("Subtitle", 1)->setData("sub_fontsize", "20");
    model.getDataItem("Subtitle", 2)->setData("sub_fontsize", 50);

    model.applySomePropertytoOther("Subtitle", 1, 7);

    // Not even the track whose style it is.
    QCOMPARE(described(model.data("sub_fontsize", "Subtitle", 0)), QStringLiteral("int 20"));
    QCOMPARE(described(model.data("sub_fontsize", "Subtitle", 1)), QStringLiteral("string 20"));
    QCOMPARE(described(model.data("sub_fontsize", "Subtitle", 2)), QStringLiteral("int 50"));
}

void TstModelApply::sizesBecomeIntegersWhenTheVideoHasAHeight_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");

    QTest::newRow("whole number") << 480 << QVariant(20) << "int 20";
    QTest::newRow("text") << 480 << QVariant("20") << "int 20";
    QTest::newRow("double, rounded") << 480 << QVariant(20.6) << "int 21";
    QTest::newRow("text that is no number") << 480 << QVariant("big") << "int 0";
    QTest::newRow("whole number, no height") << 0 << QVariant(20) << "int 20";
    QTest::newRow("text, no height") << 0 << QVariant("20") << "string 20";
    QTest::newRow("double, no height") << 0 << QVariant(20.5) << "double 20.5";
    QTest::newRow("text, negative height") << -480 << QVariant("20") << "int 20";
}

void TstModelApply::sizesBecomeIntegersWhenTheVideoHasAHeight()
{
    QFETCH(int, height);
    QFETCH(QVariant, value);
    QFETCH(QString, expected);
    ZoEffectModel model;
    model.setVideoSize(640, height);
    appendBare(model, "Subtitle",
               {{"sub_fromfile", true}, {"sub_fontsize", value}, {"sub_vposition", value}, {"sub_linemargin", value}});
    SignalRecorder recorder(model);

    model.applySomePropertytoOther("Subtitle", 0, 7);

    QCOMPARE(described(model.getDataItem("Subtitle", 0)->data("sub_fontsize")), expected);
    QCOMPARE(described(model.getDataItem("Subtitle", 0)->data("sub_vposition")), expected);
    QCOMPARE(described(model.getDataItem("Subtitle", 0)->data("sub_linemargin")), described(value));
    // What is handed on keeps its type.
    QCOMPARE(recorder.take(), spreadOnce(7,
                                         QStringLiteral("{h: int %1, sub_fontsize: %2, sub_linemargin: %2, "
                                                        "sub_vposition: %2}")
                                             .arg(height)
                                             .arg(described(value)),
                                         7));
}

void TstModelApply::spreadingComesBeforeHandingOn()
{
    ZoEffectModel model;
    appendTracks(model, "fffffffff");
    model.getDataItem("Subtitle", 4)->setData("sub_linemargin", 9);
    QStringList seen;
    connect(&model, &ZoEffectModel::applyItemDataSomePropertyTo, this,
            [&](const QMap<QString, QVariant>&, const QString&, int, int) {
                for (const int row : {0, 8})
                    seen << described(model.data("sub_linemargin", "Subtitle", row));
            });

    model.applySomePropertytoOther("Subtitle", 4, 7);

    QCOMPARE(seen, (QStringList{"int 9", "int 9"}));
}

void TstModelApply::handingOnCountsAsEditedByUser_data()
{
    QTest::addColumn<Properties>("track");
    QTest::addColumn<bool>("expected");

    QTest::newRow("style") << Properties{{"sub_fontsize", 3}} << true;
    QTest::newRow("no style") << Properties{{"sub_hposition", 3}} << false;
}

void TstModelApply::handingOnCountsAsEditedByUser()
{
    QFETCH(Properties, track);
    QFETCH(bool, expected);
    ZoEffectModel model;
    appendBare(model, "Subtitle", track);

    model.applySomePropertytoOther("Subtitle", 0, 7);

    QCOMPARE(model.editByUser(), expected);
    QCOMPARE(model.getDataItem("Subtitle", 0)->hasData("dvdsubtitleposeditbyuser"), false);
}

void TstModelApply::otherModelTakesTheStyleRescaled()
{
    ZoEffectModel model;
    model.setVideoSize(640, 360);
    appendBare(model, "Subtitle", {{"sub_fontsize", 21}, {"sub_vposition", 301}, {"sub_linemargin", 5}});
    ZoEffectModel other;
    other.setVideoSize(1280, 720);
    appendTracks(other, "f");
    connect(&model, &ZoEffectModel::applyItemDataSomePropertyTo, this,
            [&](const QMap<QString, QVariant>& props, const QString& type, int, int) {
                other.replaceItemDataProperty(type, props);
            });

    model.applySomePropertytoOther("Subtitle", 0, 7);

    QCOMPARE(described(other.getDataItem("Subtitle", 0)->properties()),
             QStringLiteral("{sub_fontsize: int 42, sub_fromfile: bool true, sub_linemargin: int 5, "
                            "sub_vposition: int 602}"));
    QCOMPARE(other.editByUser(), true);
    // In the model itself nothing is scaled.
    QCOMPARE(described(model.getDataItem("Subtitle", 0)->properties()),
             QStringLiteral("{sub_fontsize: int 21, sub_linemargin: int 5, sub_vposition: int 301}"));
}

void TstModelApply::listenerMayChangeTheModelInBetween_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<int>("announcements");

    QTest::newRow("deletes the track whose style it is") << "delete track" << 2;
    QTest::newRow("deletes all tracks") << "delete all" << 1;
    QTest::newRow("deletes the type") << "delete type" << 1;
    QTest::newRow("resets everything") << "reset all" << 1;
    QTest::newRow("changes the style of the track") << "change style" << 2;
    QTest::newRow("changes the video size") << "change size" << 2;
    QTest::newRow("adds a track") << "add" << 2;
}

void TstModelApply::listenerMayChangeTheModelInBetween()
{
    QFETCH(QString, action);
    QFETCH(int, announcements);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    appendTracks(model, "ffffffffff");
    model.getDataItem("Subtitle", 3)->setData("sub_linemargin", 9);
    SignalRecorder recorder(model);
    int heard = 0;
    listen(model, this, [&](const QString& key, int) {
        if (key != "reset")
            return;
        ++heard;
        if (action == "delete track" && heard == 1)
            model.delDataItem("Subtitle", 3);
        while (action == "delete all" && model.childCount("Subtitle") > 0)
            model.delDataItem("Subtitle", 0);
        if (action == "delete type")
            model.delDataItem("effect root", 2);
        if (action == "reset all")
            model.resetAllEffect();
        if (action == "change style" && heard == 1)
            model.setData("sub_linemargin", 1, "Subtitle", 3);
        if (action == "change size")
            model.setVideoSize(1280, 960);
        if (action == "add")
            model.addDataItem("Subtitle", {});
    });

    model.applySomePropertytoOther("Subtitle", 3, 7);

    QCOMPARE(heard, announcements);
    // What is handed on is the style and the height of the beginning.
    QCOMPARE(recorder.take().constLast(),
             QStringLiteral("applyItemDataSomePropertyTo({h: int 480, sub_linemargin: int 9}, Subtitle, -1, 7)"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelApply::argumentsThatAListenerChangesCountAsTheyWere()
{
    ZoEffectModel model;
    appendTracks(model, "fffffffff");
    model.getDataItem("Subtitle", 0)->setData("sub_linemargin", 9);
    SignalRecorder recorder(model);
    QString type = "Subtitle";
    listen(model, this, [&](const QString&, int) { type = "Audio"; });

    model.applySomePropertytoOther(type, 0, 7);

    QCOMPARE(
        recorder.take(),
        (QStringList{"effectDataChanged(Subtitle, reset, invalid, 7)", "effectDataChanged(Subtitle, reset, invalid, 7)",
                     "applyItemDataSomePropertyTo({h: int 0, sub_linemargin: int 9}, Subtitle, -1, 7)"}));
}

ZOEFFECT_TEST_MAIN(TstModelApply)

#include "tst_model_apply.moc"
