// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What saved custom defaults a process finds depends on what was registered when the store of custom defaults
// was first asked for. Each order of events is played in a process of its own.

#include <functional>

#include <QProcess>
#include <QTextStream>
#include <QtTest>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

const EffectControlItem* smallTable()
{
    static const EffectControlItem table[] = {effectType("Color", BCSDefaultVal), effectType(nullptr, nullptr)};
    return table;
}

const EffectControlItem* nestedTable()
{
    static const EffectControlItem inner[] = {effectType("Audio", AudioDefaultVal), effectType(nullptr, nullptr)};
    static const EffectControlItem table[] = {effectType("Group", nullptr, nullptr, inner),
                                              effectType("Color", BCSDefaultVal), effectType("Audio_Speed", audioSpeed),
                                              effectType(nullptr, nullptr)};
    return table;
}

const EffectControlItem* emptyTable()
{
    static const EffectControlItem table[] = {effectType(nullptr, nullptr)};
    return table;
}

void say(const QString& line)
{
    QTextStream(stdout) << line << '\n';
}

void sayWhetherTheStoreExists()
{
    say(ZoEffectItemDefaultValMgr::s_Instance ? QStringLiteral("store") : QStringLiteral("no store"));
}

/// The defaults of one property of each type that has a custom default in the preferences.
void sayDefaults()
{
    say(QStringList{described(ZoEffectModel::defaultValue("bcs_contrast", "Color")),
                    described(ZoEffectModel::defaultValue("play_loop", "Audio")),
                    described(ZoEffectModel::defaultValue("audio_speed_factor", "Audio_Speed"))}
            .join(QStringLiteral(", ")));
}

/// The same properties in a new model.
void sayModel()
{
    const ZoEffectModel model;
    say(QStringList{described(model.data("bcs_contrast", "Color", -1)), described(model.data("play_loop", "Audio", -1)),
                    described(model.data("audio_speed_factor", "Audio_Speed", -1))}
            .join(QStringLiteral(", ")));
}

struct Scenario {
    const char* name;
    std::function<void()> play;
    QStringList said;
};

QList<Scenario> scenarios()
{
    const auto init = [](const EffectControlItem* table) { ZoEffectModel::InitEffectModel(table); };
    const auto store = [] { ZoEffectItemDefaultValMgr::getInstance(); };
    const QString saved = QStringLiteral("int 11, bool true, int 44");
    const QString catalogue = QStringLiteral("int 0, bool false, int 100");

    return {
        {"table, then model",
         [=] {
             init(hostCatalogue());
             sayWhetherTheStoreExists();
             sayModel();
             sayWhetherTheStoreExists();
             sayDefaults();
         },
         {"no store", saved, "store", saved}},
        {"store, then table",
         [=] {
             store();
             init(hostCatalogue());
             sayModel();
             sayDefaults();
         },
         {catalogue, catalogue}},
        {"default asked for, then table",
         [=] {
             say(described(ZoEffectModel::defaultValue("bcs_contrast", "Color")));
             sayWhetherTheStoreExists();
             init(hostCatalogue());
             sayModel();
             sayDefaults();
         },
         {"invalid", "store", catalogue, catalogue}},
        {"small table, store, whole table",
         [=] {
             init(smallTable());
             store();
             init(hostCatalogue());
             sayModel();
             sayDefaults();
         },
         {"int 11, bool false, int 100", "int 11, bool false, int 100"}},
        {"small table, whole table, store",
         [=] {
             init(smallTable());
             init(hostCatalogue());
             store();
             sayModel();
             sayDefaults();
         },
         {saved, saved}},
        {"whole table, small table, store",
         [=] {
             init(hostCatalogue());
             init(smallTable());
             store();
             init(hostCatalogue());
             sayModel();
         },
         {"int 11, bool false, int 100"}},
        {"whole table, null, store",
         [=] {
             init(hostCatalogue());
             init(nullptr);
             sayModel();
             sayDefaults();
         },
         {"invalid, invalid, invalid", saved}},
        {"whole table, empty table, store",
         [=] {
             init(hostCatalogue());
             init(emptyTable());
             sayModel();
             sayDefaults();
         },
         {"invalid, invalid, invalid", saved}},
        {"table with a nested type",
         [=] {
             init(nestedTable());
             sayDefaults();
             sayModel();
         },
         {"int 11, bool false, int 44", "int 11, invalid, int 44"}},
        {"model, then table",
         [=] {
             const ZoEffectModel model;
             const ZoEffectModel listed(QStringList{"Color"});
             sayWhetherTheStoreExists();
             init(hostCatalogue());
             sayModel();
         },
         {"no store", saved}},
        {"model of one type, then table",
         [=] {
             const ZoEffectModel model("Color", {{"bcs_contrast", 3}});
             const ZoEffectModel copy(model);
             say(described(copy.data("bcs_contrast", "Color", -1)));
             init(hostCatalogue());
             sayModel();
         },
         {"int 3", saved}},
        {"preferences change after loading",
         [=] {
             init(hostCatalogue());
             store();
             TestApplication::instance()->pref.entries.insert("Color", QVariantMap{{"bcs_contrast", 12}});
             TestApplication::instance()->pref.entries.insert("Audio_Echo", QVariantMap{{"audio_echo_decay", 1}});
             init(hostCatalogue());
             sayModel();
             say(described(ZoEffectModel().data("audio_echo_decay", "Audio_Echo", -1)));
         },
         {saved, "int 500"}},
        {"preferences change before loading",
         [=] {
             init(hostCatalogue());
             TestApplication::instance()->pref.entries.insert("Color", QVariantMap{{"bcs_contrast", 12}});
             TestApplication::instance()->pref.entries.remove("Audio");
             sayModel();
         },
         {"int 12, bool false, int 44"}},
        {"first model is for one type only",
         [=] {
             init(hostCatalogue());
             const ZoEffectModel model(QStringList{"Color"});
             sayModel();
         },
         {saved}},
        {"crop and watermark keep the catalogue's",
         [=] {
             TestApplication::instance()->pref.entries.insert("Crop", QVariantMap{{"crop_left", 5}});
             TestApplication::instance()->pref.entries.insert("Watermark", QVariantMap{{"wm_transparency", 5}});
             init(hostCatalogue());
             const ZoEffectModel model;
             say(described(model.data("crop_left", "Crop", -1)));
             say(described(model.data("wm_transparency", "Watermark", -1)));
             say(described(ZoEffectModel::defaultValue("crop_left", "Crop")));
             say(described(ZoEffectModel::defaultValue("wm_transparency", "Watermark")));
         },
         {"int 0", "int 0", "int 5", "int 5"}},
    };
}

int playScenario(const QString& name, int& argc, char** argv)
{
    const TestFolders folders;
    TestApplication application(argc, argv);
    application.pref.entries = {{"Color", QVariantMap{{"bcs_contrast", 11}}},
                                {"Audio", QVariantMap{{"play_loop", true}}},
                                {"Audio_Speed", QVariantMap{{"audio_speed_factor", 44}}}};
    const QList<Scenario> all = scenarios();
    for (const Scenario& scenario : all) {
        if (name == QLatin1String(scenario.name)) {
            scenario.play();
            return 0;
        }
    }
    return 1;
}

} // namespace

class TstLateRegistration : public QObject {
    Q_OBJECT

private slots:
    void savedDefaultsAreLoadedOnceForTheTypesKnownThen_data();
    void savedDefaultsAreLoadedOnceForTheTypesKnownThen();
};

void TstLateRegistration::savedDefaultsAreLoadedOnceForTheTypesKnownThen_data()
{
    QTest::addColumn<QStringList>("said");
    const QList<Scenario> all = scenarios();
    for (const Scenario& scenario : all)
        QTest::newRow(scenario.name) << scenario.said;
}

void TstLateRegistration::savedDefaultsAreLoadedOnceForTheTypesKnownThen()
{
    QFETCH(QStringList, said);

    QProcess process;
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("scenario"), QString::fromUtf8(QTest::currentDataTag())});
    QVERIFY(process.waitForFinished());

    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    const QStringList lines = QString::fromUtf8(process.readAllStandardOutput()).split(QLatin1Char('\n'));
    QCOMPARE(lines, said + QStringList{QString()});
}

int main(int argc, char** argv)
{
    if (argc == 3 && qstrcmp(argv[1], "scenario") == 0)
        return playScenario(QString::fromLocal8Bit(argv[2]), argc, argv);
    const TestFolders folders;
    TestApplication application(argc, argv);
    TstLateRegistration test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_late_registration.moc"
