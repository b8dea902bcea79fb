// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QColor>
#include <QFont>
#include <QtTest>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

using Manager = ZoEffectItemDefaultValMgr;
using Map = QMap<QString, QVariant>;

namespace {

Manager& manager()
{
    return *Manager::getInstance();
}

QStringList takeWrites()
{
    return TestApplication::instance()->pref.takeWrites();
}

QMap<QString, QVariant>& entries()
{
    return TestApplication::instance()->pref.entries;
}

} // namespace

class TstDefaults : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void instanceIsOneAndTheSame();
    void supportTypesAreReplacedWhole();
    void supportTypesAreGivenAsACopy();
    void registrationGivesTheTypesInTableOrder();

    void typeWithoutCustomDefaultHasNothing_data();
    void typeWithoutCustomDefaultHasNothing();
    void savedTypeIsMatchedExactly_data();
    void savedTypeIsMatchedExactly();
    void savedValueKeepsItsType_data();
    void savedValueKeepsItsType();
    void missingKeyIsInvalid_data();
    void missingKeyIsInvalid();
    void mapIsGivenAsACopy();
    void mapIsTakenAsACopy();

    void savingWritesTheWholeMapWithoutNotification_data();
    void savingWritesTheWholeMapWithoutNotification();
    void savedMapReplacesTheEarlierWhole();
    void emptyMapCountsAsCustomDefault();
    void typesKeepToThemselves();
    void anyTextIsATypeName_data();
    void anyTextIsATypeName();

    void removingClearsTheEntry();
    void removingWithoutCustomDefaultTouchesNothing_data();
    void removingWithoutCustomDefaultTouchesNothing();
    void removingAnEmptyMapClearsTheEntry();

    void supportTypesGrowByEachFirstSave_data();
    void supportTypesGrowByEachFirstSave();
    void customDefaultsDoNotDependOnTheSupportTypes();
    void customDefaultsDoNotDependOnThePreferencesLater();

    void loadingTakesTheEntriesOfTheSupportTypes_data();
    void loadingTakesTheEntriesOfTheSupportTypes();
    void loadingAgainKeepsWhatThePreferencesLack();
    void loadingWritesNothing();
};

void TstDefaults::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    Manager::setSupportTypes({"Crop", "Watermark"});
    logcapture::takeEvents();
}

void TstDefaults::cleanup()
{
    // Whatever happened, nothing was logged.
    QCOMPARE(logcapture::takeEvents(), QList<int>());
    const QStringList types = Manager::supportTypes();
    for (const QString& type : types)
        manager().removeCustomDefaultVal(type);
}

void TstDefaults::instanceIsOneAndTheSame()
{
    Manager* const instance = Manager::getInstance();
    QVERIFY(instance);
    QCOMPARE(Manager::getInstance(), instance);
    QCOMPARE(Manager::s_Instance, instance);
}

void TstDefaults::supportTypesAreReplacedWhole()
{
    Manager::setSupportTypes({"b", "a", "b"});
    QCOMPARE(Manager::supportTypes(), QStringList({"b", "a", "b"}));
    QCOMPARE(Manager::s_supportTypes, QStringList({"b", "a", "b"}));
    Manager::setSupportTypes({"c"});
    QCOMPARE(Manager::supportTypes(), QStringList({"c"}));
    Manager::setSupportTypes(Manager::s_supportTypes);
    QCOMPARE(Manager::supportTypes(), QStringList({"c"}));
    Manager::setSupportTypes({});
    QCOMPARE(Manager::supportTypes(), QStringList());
}

void TstDefaults::supportTypesAreGivenAsACopy()
{
    QStringList types = Manager::supportTypes();
    types << "Audio";
    QCOMPARE(Manager::supportTypes(), QStringList({"Crop", "Watermark"}));

    QStringList given{"a"};
    Manager::setSupportTypes(given);
    given << "b";
    QCOMPARE(Manager::supportTypes(), QStringList({"a"}));
}

void TstDefaults::registrationGivesTheTypesInTableOrder()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    QCOMPARE(Manager::supportTypes(), QStringList({"Crop", "Watermark", "Subtitle", "Audio", "Color", "Effect",
                                                   "Audio_Fade_Inout", "Audio_Normalize", "Audio_BandPass",
                                                   "Audio_Chorus", "Audio_Flanger", "Audio_Echo", "Audio_Speed"}));
}

void TstDefaults::typeWithoutCustomDefaultHasNothing_data()
{
    QTest::addColumn<QString>("type");
    QTest::newRow("registered type") << "Watermark";
    QTest::newRow("unknown type") << "Rotation";
    QTest::newRow("empty name") << "";
    QTest::newRow("null name") << QString();
}

void TstDefaults::typeWithoutCustomDefaultHasNothing()
{
    QFETCH(QString, type);
    QVERIFY(!manager().hasCustomDefaultVal(type));
    QCOMPARE(manager().getCustomDefaultVal(type), Map());
    QVERIFY(!manager().getCustomDefaultVal(type, "wm_fontsize").isValid());
    QVERIFY(!manager().getCustomDefaultVal(type, "").isValid());

    // Asking for it does not make it a custom default.
    QVERIFY(!manager().hasCustomDefaultVal(type));
    QCOMPARE(takeWrites(), QStringList());
    QCOMPARE(Manager::supportTypes(), QStringList({"Crop", "Watermark"}));
}

void TstDefaults::savedTypeIsMatchedExactly_data()
{
    QTest::addColumn<QString>("asked");
    QTest::addColumn<bool>("found");
    QTest::newRow("same name") << "Watermark" << true;
    QTest::newRow("other letters") << "watermark" << false;
    QTest::newRow("beginning") << "Water" << false;
    QTest::newRow("longer name") << "Watermarks" << false;
    QTest::newRow("blank behind") << "Watermark " << false;
    QTest::newRow("other registered type") << "Crop" << false;
}

void TstDefaults::savedTypeIsMatchedExactly()
{
    QFETCH(QString, asked);
    QFETCH(bool, found);
    manager().saveAsCustomDefaultVal("Watermark", {{"wm_fontsize", 20}});
    QCOMPARE(manager().hasCustomDefaultVal(asked), found);
    QCOMPARE(manager().getCustomDefaultVal(asked).size(), found ? 1 : 0);
    QCOMPARE(manager().getCustomDefaultVal(asked, "wm_fontsize").isValid(), found);
}

void TstDefaults::savedValueKeepsItsType_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("int") << QVariant(80) << "int 80";
    QTest::newRow("double") << QVariant(0.25) << "double 0.25";
    QTest::newRow("double that is whole") << QVariant(2.0) << "double 2";
    QTest::newRow("bool") << QVariant(true) << "bool true";
    QTest::newRow("string") << QVariant("80") << "string 80";
    QTest::newRow("empty string") << QVariant("") << "string ";
    QTest::newRow("colour") << QVariant(QColor(1, 2, 3, 4)) << "color #04010203";
    QTest::newRow("font") << QVariant(QFont("Tahoma")) << "font Tahoma";
    QTest::newRow("invalid") << QVariant() << "invalid";
    QTest::newRow("map") << QVariant(QVariantMap{{"a", 1}}) << "map {a: int 1}";
}

void TstDefaults::savedValueKeepsItsType()
{
    QFETCH(QVariant, value);
    QFETCH(QString, expected);
    manager().saveAsCustomDefaultVal("Watermark", {{"k", value}});
    QCOMPARE(described(manager().getCustomDefaultVal("Watermark", "k")), expected);
    QCOMPARE(described(manager().getCustomDefaultVal("Watermark")), "{k: " + expected + "}");
}

void TstDefaults::missingKeyIsInvalid_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("other key") << "wm_fontname";
    QTest::newRow("other letters") << "WM_fontsize";
    QTest::newRow("beginning") << "wm_font";
    QTest::newRow("empty key") << "";
    QTest::newRow("type name") << "Watermark";
}

void TstDefaults::missingKeyIsInvalid()
{
    QFETCH(QString, key);
    manager().saveAsCustomDefaultVal("Watermark", {{"wm_fontsize", 20}});
    QVERIFY(!manager().getCustomDefaultVal("Watermark", key).isValid());
    QCOMPARE(described(manager().getCustomDefaultVal("Watermark")), QString("{wm_fontsize: int 20}"));
}

void TstDefaults::mapIsGivenAsACopy()
{
    manager().saveAsCustomDefaultVal("Watermark", {{"a", 1}});
    Map map = manager().getCustomDefaultVal("Watermark");
    map.insert("a", 2);
    map.insert("b", 3);
    QCOMPARE(described(manager().getCustomDefaultVal("Watermark")), QString("{a: int 1}"));
}

void TstDefaults::mapIsTakenAsACopy()
{
    Map map{{"a", 1}};
    manager().saveAsCustomDefaultVal("Watermark", map);
    map.insert("a", 2);
    QCOMPARE(described(manager().getCustomDefaultVal("Watermark")), QString("{a: int 1}"));
    QCOMPARE(described(entries().value("Watermark")), QString("map {a: int 1}"));
}

void TstDefaults::savingWritesTheWholeMapWithoutNotification_data()
{
    QTest::addColumn<Map>("map");
    QTest::addColumn<QString>("expected");
    QTest::newRow("one value") << Map{{"a", 1}} << "Watermark = map {a: int 1}, notify false";
    QTest::newRow("several types")
        << Map{{"f", QFont("Tahoma")}, {"c", QColor(1, 2, 3)}, {"d", 0.5}, {"b", false}, {"s", "x"}}
        << "Watermark = map {b: bool false, c: color #ff010203, d: double 0.5, f: font Tahoma, s: string x}, notify "
           "false";
    QTest::newRow("empty map") << Map() << "Watermark = map {}, notify false";
    QTest::newRow("invalid value") << Map{{"a", QVariant()}} << "Watermark = map {a: invalid}, notify false";
}

void TstDefaults::savingWritesTheWholeMapWithoutNotification()
{
    QFETCH(Map, map);
    QFETCH(QString, expected);
    manager().saveAsCustomDefaultVal("Watermark", map);
    QCOMPARE(takeWrites(), QStringList({expected}));

    // The same again is written again.
    manager().saveAsCustomDefaultVal("Watermark", map);
    QCOMPARE(takeWrites(), QStringList({expected}));
}

void TstDefaults::savedMapReplacesTheEarlierWhole()
{
    manager().saveAsCustomDefaultVal("Watermark", {{"a", 1}, {"b", 2}});
    takeWrites();
    manager().saveAsCustomDefaultVal("Watermark", {{"b", "3"}, {"c", 4}});
    QCOMPARE(described(manager().getCustomDefaultVal("Watermark")), QString("{b: string 3, c: int 4}"));
    QVERIFY(!manager().getCustomDefaultVal("Watermark", "a").isValid());
    QCOMPARE(takeWrites(), QStringList({"Watermark = map {b: string 3, c: int 4}, notify false"}));
}

void TstDefaults::emptyMapCountsAsCustomDefault()
{
    manager().saveAsCustomDefaultVal("Watermark", {{"a", 1}});
    manager().saveAsCustomDefaultVal("Watermark", {});
    QVERIFY(manager().hasCustomDefaultVal("Watermark"));
    QCOMPARE(manager().getCustomDefaultVal("Watermark"), Map());
    QVERIFY(!manager().getCustomDefaultVal("Watermark", "a").isValid());

    // It counts in the list of types, too: no further name for the next save.
    manager().saveAsCustomDefaultVal("Watermark", {{"a", 1}});
    QCOMPARE(Manager::supportTypes(), QStringList({"Crop", "Watermark", "Watermark"}));
}

void TstDefaults::typesKeepToThemselves()
{
    manager().saveAsCustomDefaultVal("Watermark", {{"a", 1}});
    manager().saveAsCustomDefaultVal("Crop", {{"a", 2}});
    manager().removeCustomDefaultVal("Watermark");
    QVERIFY(!manager().hasCustomDefaultVal("Watermark"));
    QCOMPARE(described(manager().getCustomDefaultVal("Crop")), QString("{a: int 2}"));
    QCOMPARE(takeWrites(), QStringList({"Watermark = map {a: int 1}, notify false",
                                        "Crop = map {a: int 2}, notify false", "Watermark = invalid, notify false"}));
}

void TstDefaults::anyTextIsATypeName_data()
{
    QTest::addColumn<QString>("type");
    QTest::newRow("unknown to the catalogue") << "Rotation";
    QTest::newRow("empty") << "";
    QTest::newRow("blank") << " ";
    QTest::newRow("slashes") << "a/b//";
    QTest::newRow("accents") << QString::fromUtf8("\xc3\xa4");
    QTest::newRow("root of the tree") << "effect root";
}

void TstDefaults::anyTextIsATypeName()
{
    QFETCH(QString, type);
    manager().saveAsCustomDefaultVal(type, {{"a", 1}});
    QVERIFY(manager().hasCustomDefaultVal(type));
    QCOMPARE(described(manager().getCustomDefaultVal(type, "a")), QString("int 1"));
    QCOMPARE(Manager::supportTypes(), QStringList({"Crop", "Watermark", type}));
    QCOMPARE(entries().keys(), QStringList({type}));
    manager().removeCustomDefaultVal(type);
    QVERIFY(!manager().hasCustomDefaultVal(type));
    QVERIFY(!entries().value(type).isValid());
}

void TstDefaults::removingClearsTheEntry()
{
    manager().saveAsCustomDefaultVal("Watermark", {{"a", 1}});
    takeWrites();
    manager().removeCustomDefaultVal("Watermark");
    QVERIFY(!manager().hasCustomDefaultVal("Watermark"));
    QCOMPARE(manager().getCustomDefaultVal("Watermark"), Map());
    QVERIFY(!manager().getCustomDefaultVal("Watermark", "a").isValid());
    QCOMPARE(takeWrites(), QStringList({"Watermark = invalid, notify false"}));

    // The entry stays, and holds nothing.
    QVERIFY(entries().contains("Watermark"));
    QVERIFY(!entries().value("Watermark").isValid());

    manager().removeCustomDefaultVal("Watermark");
    QCOMPARE(takeWrites(), QStringList());
}

void TstDefaults::removingWithoutCustomDefaultTouchesNothing_data()
{
    QTest::addColumn<QString>("type");
    QTest::newRow("registered type") << "Crop";
    QTest::newRow("unknown type") << "Rotation";
    QTest::newRow("other letters") << "watermark";
    QTest::newRow("empty name") << "";
    QTest::newRow("type that only the preferences know") << "Color";
}

void TstDefaults::removingWithoutCustomDefaultTouchesNothing()
{
    QFETCH(QString, type);
    manager().saveAsCustomDefaultVal("Watermark", {{"a", 1}});
    entries().insert("Color", QVariantMap{{"b", 2}});
    takeWrites();
    const QStringList types = Manager::supportTypes();
    manager().removeCustomDefaultVal(type);
    QCOMPARE(takeWrites(), QStringList());
    QCOMPARE(Manager::supportTypes(), types);
    QCOMPARE(described(entries()), QString("{Color: map {b: int 2}, Watermark: map {a: int 1}}"));
    QVERIFY(manager().hasCustomDefaultVal("Watermark"));
}

void TstDefaults::removingAnEmptyMapClearsTheEntry()
{
    manager().saveAsCustomDefaultVal("Watermark", {});
    takeWrites();
    manager().removeCustomDefaultVal("Watermark");
    QVERIFY(!manager().hasCustomDefaultVal("Watermark"));
    QCOMPARE(takeWrites(), QStringList({"Watermark = invalid, notify false"}));
}

void TstDefaults::supportTypesGrowByEachFirstSave_data()
{
    // Steps: "+T" saves a map for T, "0T" an empty one, "-T" removes it.
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char* name, const QStringList& steps, const QStringList& added) {
        QTest::newRow(name) << steps << QStringList({"Crop", "Watermark"}) + added;
    };
    row("nothing", {}, {});
    row("registered type saved", {"+Watermark"}, {"Watermark"});
    row("registered type saved twice", {"+Watermark", "+Watermark"}, {"Watermark"});
    row("saved, removed", {"+Watermark", "-Watermark"}, {"Watermark"});
    row("saved, removed, saved", {"+Watermark", "-Watermark", "+Watermark"}, {"Watermark", "Watermark"});
    row("saved and removed three times",
        {"+Watermark", "-Watermark", "+Watermark", "-Watermark", "+Watermark", "-Watermark"},
        {"Watermark", "Watermark", "Watermark"});
    row("removed before", {"-Watermark", "+Watermark"}, {"Watermark"});
    row("empty map saved", {"0Watermark"}, {"Watermark"});
    row("empty map, then a full one", {"0Watermark", "+Watermark"}, {"Watermark"});
    row("unknown type saved", {"+Rotation"}, {"Rotation"});
    row("unknown type saved, removed, saved", {"+Rotation", "-Rotation", "+Rotation"}, {"Rotation", "Rotation"});
    row("two types", {"+Watermark", "+Crop", "+Watermark", "+Crop"}, {"Watermark", "Crop"});
    row("two types in turn", {"+Crop", "+Watermark", "-Crop", "+Crop"}, {"Crop", "Watermark", "Crop"});
    row("names that differ in letters", {"+watermark", "+Watermark"}, {"watermark", "Watermark"});
}

void TstDefaults::supportTypesGrowByEachFirstSave()
{
    QFETCH(QStringList, steps);
    QFETCH(QStringList, expected);
    for (const QString& step : steps) {
        const QString type = step.mid(1);
        if (step.startsWith('-'))
            manager().removeCustomDefaultVal(type);
        else
            manager().saveAsCustomDefaultVal(type, step.startsWith('0') ? Map() : Map{{"a", 1}});
    }
    QCOMPARE(Manager::supportTypes(), expected);
}

void TstDefaults::customDefaultsDoNotDependOnTheSupportTypes()
{
    manager().saveAsCustomDefaultVal("Watermark", {{"a", 1}});
    Manager::setSupportTypes({});
    QVERIFY(manager().hasCustomDefaultVal("Watermark"));
    QCOMPARE(described(manager().getCustomDefaultVal("Watermark", "a")), QString("int 1"));
    manager().saveAsCustomDefaultVal("Watermark", {{"a", 2}});
    QCOMPARE(Manager::supportTypes(), QStringList());
    manager().removeCustomDefaultVal("Watermark");
    QVERIFY(!manager().hasCustomDefaultVal("Watermark"));
    Manager::setSupportTypes({"Watermark"});
    QVERIFY(!manager().hasCustomDefaultVal("Watermark"));
}

void TstDefaults::customDefaultsDoNotDependOnThePreferencesLater()
{
    manager().saveAsCustomDefaultVal("Watermark", {{"a", 1}});
    entries().clear();
    entries().insert("Crop", QVariantMap{{"b", 2}});
    QVERIFY(manager().hasCustomDefaultVal("Watermark"));
    QCOMPARE(described(manager().getCustomDefaultVal("Watermark")), QString("{a: int 1}"));
    QVERIFY(!manager().hasCustomDefaultVal("Crop"));
}

void TstDefaults::loadingTakesTheEntriesOfTheSupportTypes_data()
{
    QTest::addColumn<QStringList>("types");
    QTest::addColumn<Map>("preferences");
    QTest::addColumn<QString>("crop"); // "" when there is no custom default.
    QTest::addColumn<QString>("watermark");
    const QVariantMap a{{"a", 1}};
    const QVariantMap b{{"b", 2.5}, {"c", QColor(1, 2, 3)}};
    const auto row = [](const char* name, const QStringList& types, const Map& preferences, const char* crop,
                        const char* watermark) { QTest::newRow(name) << types << preferences << crop << watermark; };
    row("no entry", {"Crop", "Watermark"}, {}, "", "");
    row("one entry", {"Crop", "Watermark"}, {{"Crop", a}}, "{a: int 1}", "");
    row("two entries", {"Crop", "Watermark"}, {{"Crop", a}, {"Watermark", b}}, "{a: int 1}",
        "{b: double 2.5, c: color #ff010203}");
    row("entry of a type that is not known", {"Crop"}, {{"Crop", a}, {"Watermark", b}}, "{a: int 1}", "");
    row("no type known", {}, {{"Crop", a}, {"Watermark", b}}, "", "");
    row("type known twice", {"Crop", "Crop"}, {{"Crop", a}}, "{a: int 1}", "");
    row("entry in other letters", {"Crop", "Watermark"}, {{"crop", a}, {"WATERMARK", b}}, "", "");
    row("invalid entry before another", {"Crop", "Watermark"}, {{"Crop", QVariant()}, {"Watermark", a}}, "",
        "{a: int 1}");
    row("empty map before another", {"Crop", "Watermark"}, {{"Crop", QVariantMap()}, {"Watermark", a}}, "",
        "{a: int 1}");
    row("number before another", {"Crop", "Watermark"}, {{"Crop", 5}, {"Watermark", a}}, "", "{a: int 1}");
    row("text before another", {"Crop", "Watermark"}, {{"Crop", "a=1"}, {"Watermark", a}}, "", "{a: int 1}");
    row("list before another", {"Crop", "Watermark"}, {{"Crop", QVariantList{1, 2}}, {"Watermark", a}}, "",
        "{a: int 1}");
    row("missing entry before another", {"Nothing", "Crop", "Watermark"}, {{"Watermark", a}}, "", "{a: int 1}");
    row("map of an invalid value", {"Crop"}, {{"Crop", QVariantMap{{"a", QVariant()}}}}, "{a: invalid}", "");
}

void TstDefaults::loadingTakesTheEntriesOfTheSupportTypes()
{
    QFETCH(QStringList, types);
    QFETCH(Map, preferences);
    QFETCH(QString, crop);
    QFETCH(QString, watermark);
    Manager::setSupportTypes(types);
    entries() = preferences;

    manager().Init();

    const auto custom = [](const char* type) {
        return manager().hasCustomDefaultVal(type) ? described(manager().getCustomDefaultVal(type)) : QString("");
    };
    QCOMPARE(custom("Crop"), crop);
    QCOMPARE(custom("Watermark"), watermark);
    QCOMPARE(Manager::supportTypes(), types);
    QCOMPARE(takeWrites(), QStringList());
    manager().removeCustomDefaultVal("Crop");
    manager().removeCustomDefaultVal("Watermark");
}

void TstDefaults::loadingAgainKeepsWhatThePreferencesLack()
{
    manager().saveAsCustomDefaultVal("Crop", {{"a", 1}});
    manager().saveAsCustomDefaultVal("Watermark", {{"a", 1}});
    entries().remove("Crop");
    entries().insert("Watermark", QVariantMap{{"b", 2}});
    manager().Init();
    QCOMPARE(described(manager().getCustomDefaultVal("Crop")), QString("{a: int 1}"));
    QCOMPARE(described(manager().getCustomDefaultVal("Watermark")), QString("{b: int 2}"));
}

void TstDefaults::loadingWritesNothing()
{
    entries() = {{"Crop", QVariantMap{{"a", 1}}}, {"Watermark", QVariant()}};
    manager().Init();
    QCOMPARE(takeWrites(), QStringList());
    QCOMPARE(described(entries()), QString("{Crop: map {a: int 1}, Watermark: invalid}"));
    QCOMPARE(Manager::supportTypes(), QStringList({"Crop", "Watermark"}));
}

ZOEFFECT_TEST_MAIN(TstDefaults)
#include "tst_defaults.moc"
