// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The store of custom defaults: one map a type, loaded once, written back at each change. It logs nothing.

#include <QColor>
#include <QFont>

#include <zoeffectitemdefaultvalmgr.h>

#include "modeltest.h"

using Manager = ZoEffectItemDefaultValMgr;

namespace {

Manager& manager()
{
    return *Manager::getInstance();
}

/// What is kept for \a type, "" when nothing is.
QString kept(const QString& type)
{
    return manager().hasCustomDefaultVal(type) ? described(manager().getCustomDefaultVal(type)) : QString();
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

class TstDefaults : public ModelTest {
    Q_OBJECT

private slots:
    void cleanup()
    {
        QCOMPARE(logcapture::takeEvents(), QList<int>());
        forgetCustomDefaults();
        for (const char* type : {"Crop", "Watermark"})
            manager().removeCustomDefaultVal(type);
        Manager::setSupportTypes({"Crop", "Watermark"});
    }

    void instanceIsOneAndTheSame()
    {
        QVERIFY(Manager::getInstance());
        QCOMPARE(Manager::getInstance(), Manager::s_Instance);
    }

    void supportTypesAreReplacedWholeAndGivenAsACopy()
    {
        QStringList given{"b", "a", "b"};
        Manager::setSupportTypes(given);
        given << "c";
        QCOMPARE(Manager::supportTypes(), QStringList({"b", "a", "b"}));
        QCOMPARE(Manager::s_supportTypes, QStringList({"b", "a", "b"}));
        Manager::supportTypes() << "c";
        Manager::setSupportTypes(Manager::s_supportTypes);
        QCOMPARE(Manager::supportTypes(), QStringList({"b", "a", "b"}));
        Manager::setSupportTypes({});
        QCOMPARE(Manager::supportTypes(), QStringList());
    }

    void typeWithoutCustomDefaultHasNothing()
    {
        manager().saveAsCustomDefaultVal("Watermark", {{"wm_fontsize", 20}});
        const QStringList types = Manager::supportTypes();
        entries().insert("Color", QVariantMap{{"b", 2}}); // What only the preferences know is none.
        takeWrites();
        for (const char* type : {"Crop", "Color", "Rotation", "watermark", "Water", "Watermarks", "Watermark ", ""}) {
            for (int times = 0; times < 2; ++times) { // Asking does not make it a custom default.
                QVERIFY(!manager().hasCustomDefaultVal(type));
                QCOMPARE(manager().getCustomDefaultVal(type), Properties());
                QVERIFY(!manager().getCustomDefaultVal(type, "wm_fontsize").isValid());
            }
            manager().removeCustomDefaultVal(type);
        }
        for (const char* key : {"wm_fontname", "WM_fontsize", "wm_font", "", "Watermark"})
            QVERIFY(!manager().getCustomDefaultVal("Watermark", key).isValid());
        QCOMPARE(takeWrites(), QStringList());
        QCOMPARE(Manager::supportTypes(), types);
        QCOMPARE(kept("Watermark"), QString("{wm_fontsize: int 20}"));
        QCOMPARE(described(entries()), QString("{Color: map {b: int 2}, Watermark: map {wm_fontsize: int 20}}"));
    }

    void savedValueKeepsItsType()
    {
        for (const QVariant& value :
             {QVariant(80), QVariant(2.0), QVariant(true), QVariant("80"), QVariant(""), QVariant(QColor(1, 2, 3, 4)),
              QVariant(QFont("Tahoma")), QVariant(), QVariant(QVariantMap{{"a", 1}})}) {
            manager().saveAsCustomDefaultVal("Watermark", {{"k", value}});
            QCOMPARE(described(manager().getCustomDefaultVal("Watermark", "k")), described(value));
            QCOMPARE(kept("Watermark"), "{k: " + described(value) + "}");
        }
    }

    void mapsAreCopies()
    {
        Properties map{{"a", 1}};
        manager().saveAsCustomDefaultVal("Watermark", map);
        map.insert("a", 2);
        Properties taken = manager().getCustomDefaultVal("Watermark");
        taken.insert("b", 3);
        QCOMPARE(kept("Watermark"), QString("{a: int 1}"));
        QCOMPARE(described(entries()), QString("{Watermark: map {a: int 1}}"));
    }

    void savingWritesTheWholeMapWithoutNotification_data()
    {
        addRows<Properties, QString>({
            {"several types", Properties{{"f", QFont("Tahoma")}, {"c", QColor(1, 2, 3)}, {"d", 0.5}, {"b", false}},
             "{b: bool false, c: color #ff010203, d: double 0.5, f: font Tahoma}"},
            {"empty map", {}, "{}"},
            {"invalid value", Properties{{"a", QVariant()}}, "{a: invalid}"},
        });
    }

    void savingWritesTheWholeMapWithoutNotification()
    {
        const auto [map, expected] = row<Properties, QString>();
        manager().saveAsCustomDefaultVal("Crop", {{"a", 2}});
        manager().saveAsCustomDefaultVal("Watermark", {{"a", 1}, {"z", 2}}); // It is replaced whole.
        takeWrites();
        for (int times = 0; times < 2; ++times) { // The same again is written again.
            manager().saveAsCustomDefaultVal("Watermark", map);
            QCOMPARE(takeWrites(), QStringList("Watermark = map " + expected + ", notify false"));
        }
        QCOMPARE(kept("Watermark"), expected);
        QCOMPARE(kept("Crop"), QString("{a: int 2}"));
    }

    void emptyMapCountsAsCustomDefault()
    {
        manager().saveAsCustomDefaultVal("Watermark", {{"a", 1}});
        manager().saveAsCustomDefaultVal("Watermark", {});
        QVERIFY(manager().hasCustomDefaultVal("Watermark"));
        QCOMPARE(kept("Watermark"), QString("{}"));
        QVERIFY(!manager().getCustomDefaultVal("Watermark", "a").isValid());
    }

    void anyTextIsATypeName()
    {
        for (const QString& type : {QString("Rotation"), QString(), QString("a/b//"), QString::fromUtf8("\xc3\xa4")}) {
            manager().saveAsCustomDefaultVal(type, {{"a", 1}});
            QCOMPARE(kept(type), QString("{a: int 1}"));
            QCOMPARE(Manager::supportTypes().constLast(), type);
            QVERIFY(entries().contains(type));
            manager().removeCustomDefaultVal(type);
            QVERIFY(!manager().hasCustomDefaultVal(type));
        }
    }

    // The entry stays, and holds nothing.
    void removingClearsTheEntry()
    {
        for (const Properties& map : {Properties{{"a", 1}}, Properties()}) {
            manager().saveAsCustomDefaultVal("Crop", {{"a", 2}});
            manager().saveAsCustomDefaultVal("Watermark", map);
            takeWrites();
            for (int times = 0; times < 2; ++times)
                manager().removeCustomDefaultVal("Watermark");
            QVERIFY(!manager().hasCustomDefaultVal("Watermark"));
            QVERIFY(!manager().getCustomDefaultVal("Watermark", "a").isValid());
            QCOMPARE(takeWrites(), QStringList("Watermark = invalid, notify false"));
            QCOMPARE(described(entries()), QString("{Crop: map {a: int 2}, Watermark: invalid}"));
            QCOMPARE(kept("Crop"), QString("{a: int 2}"));
        }
    }

    void supportTypesGrowByEachFirstSave_data()
    {
        // Steps: "+T" saves a map for T, "0T" an empty one, "-T" removes it.
        addRows<QString, QString>({
            {"saved twice", "+Watermark +Watermark", "Watermark"},
            {"saved, removed, saved", "+Watermark -Watermark +Watermark", "Watermark Watermark"},
            {"removed before", "-Watermark +Watermark", "Watermark"},
            {"empty map, then a full one", "0Watermark +Watermark", "Watermark"},
            {"unknown type saved, removed, saved", "+Rotation -Rotation +Rotation", "Rotation Rotation"},
            {"two types in turn", "+Crop +Watermark -Crop +Crop", "Crop Watermark Crop"},
            {"names that differ in letters", "+watermark +Watermark", "watermark Watermark"},
        });
    }

    void supportTypesGrowByEachFirstSave()
    {
        const auto [steps, expected] = row<QString, QString>();
        Manager::setSupportTypes({"Crop", "Watermark"});
        const QStringList all = steps.split(' ');
        for (const QString& step : all) {
            if (step.startsWith('-'))
                manager().removeCustomDefaultVal(step.mid(1));
            else
                manager().saveAsCustomDefaultVal(step.mid(1),
                                                 step.startsWith('0') ? Properties() : Properties{{"a", 1}});
        }
        QCOMPARE(Manager::supportTypes().join(' '), "Crop Watermark " + expected);
    }

    void customDefaultsDependOnNeitherTypesNorPreferencesLater()
    {
        manager().saveAsCustomDefaultVal("Watermark", {{"a", 1}});
        Manager::setSupportTypes({});
        entries() = {{"Crop", QVariantMap{{"b", 2}}}};
        QCOMPARE(kept("Watermark"), QString("{a: int 1}"));
        QVERIFY(!manager().hasCustomDefaultVal("Crop"));
        manager().saveAsCustomDefaultVal("Watermark", {{"a", 2}});
        QCOMPARE(Manager::supportTypes(), QStringList());
        manager().removeCustomDefaultVal("Watermark");
        Manager::setSupportTypes({"Watermark"});
        QVERIFY(!manager().hasCustomDefaultVal("Watermark"));
    }

    void loadingTakesTheEntriesOfTheSupportTypes_data()
    {
        const QVariantMap a{{"a", 1}};
        const QVariantMap b{{"b", 2.5}, {"c", QColor(1, 2, 3)}};
        const QStringList both{"Crop", "Watermark"};
        addRows<QStringList, Properties, QString, QString>({
            {"no entry", both, {}, "", ""},
            {"two entries", both, Properties{{"Crop", a}, {"Watermark", b}}, "{a: int 1}",
             "{b: double 2.5, c: color #ff010203}"},
            {"entry of a type that is not known",
             {"Crop", "Crop"},
             Properties{{"Crop", a}, {"Watermark", b}},
             "{a: int 1}",
             ""},
            {"entry in other letters", both, Properties{{"crop", a}, {"WATERMARK", b}}, "", ""},
            {"invalid entry before another", both, Properties{{"Crop", QVariant()}, {"Watermark", a}}, "",
             "{a: int 1}"},
            {"empty map before another", both, Properties{{"Crop", QVariantMap()}, {"Watermark", a}}, "", "{a: int 1}"},
            {"number before another", both, Properties{{"Crop", 5}, {"Watermark", a}}, "", "{a: int 1}"},
            {"text before another", both, Properties{{"Crop", "a=1"}, {"Watermark", a}}, "", "{a: int 1}"},
            {"list before another", both, Properties{{"Crop", QVariantList{1, 2}}, {"Watermark", a}}, "", "{a: int 1}"},
            {"missing entry before another", both, Properties{{"Watermark", a}}, "", "{a: int 1}"},
            {"map of an invalid value", both, Properties{{"Crop", QVariantMap{{"a", QVariant()}}}}, "{a: invalid}", ""},
        });
    }

    void loadingTakesTheEntriesOfTheSupportTypes()
    {
        const auto [types, preferences, crop, watermark] = row<QStringList, Properties, QString, QString>();
        Manager::setSupportTypes(types);
        entries() = preferences;
        manager().Init();
        QCOMPARE(kept("Crop"), crop);
        QCOMPARE(kept("Watermark"), watermark);
        QCOMPARE(Manager::supportTypes(), types);
        QCOMPARE(takeWrites(), QStringList());
        QCOMPARE(entries(), preferences);
    }

    void loadingAgainKeepsWhatThePreferencesLack()
    {
        manager().saveAsCustomDefaultVal("Crop", {{"a", 1}});
        manager().saveAsCustomDefaultVal("Watermark", {{"a", 1}});
        entries() = {{"Watermark", QVariantMap{{"b", 2}}}};
        manager().Init();
        QCOMPARE(kept("Crop"), QString("{a: int 1}"));
        QCOMPARE(kept("Watermark"), QString("{b: int 2}"));
    }
};

ZOEFFECT_TEST_MAIN(TstDefaults)
#include "tst_defaults.moc"
