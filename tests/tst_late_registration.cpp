// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What saved custom defaults a process finds depends on what was registered when the store of custom defaults
// was first asked for. Each order of events is played in a process of its own.

#include <QProcess>
#include <QTextStream>

#include <zoeffectitemdefaultvalmgr.h>

#include "modeltest.h"

namespace {

const EffectControlItem* tableNamed(const QString& name)
{
    static const EffectControlItem end = effectType(nullptr, nullptr);
    static const EffectControlItem small[] = {effectType("Color", BCSDefaultVal), end};
    static const EffectControlItem inner[] = {effectType("Audio", AudioDefaultVal), end};
    static const EffectControlItem nested[] = {effectType("Group", nullptr, nullptr, inner),
                                               effectType("Color", BCSDefaultVal),
                                               effectType("Audio_Speed", audioSpeed), end};
    const QMap<QString, const EffectControlItem*> tables{
        {"whole table", hostCatalogue()}, {"small table", small}, {"nested table", nested}, {"empty table", &end}};
    return tables.value(name); // Null for "null table".
}

/// The properties that the preferences have custom defaults of, by \a value(key, type).
template <typename Value>
QString three(Value value)
{
    return QStringList{described(value("bcs_contrast", "Color")), described(value("play_loop", "Audio")),
                       described(value("audio_speed_factor", "Audio_Speed"))}
        .join(", ");
}

/// One step of a process; what it says, if anything.
QString play(const QString& step)
{
    QMap<QString, QVariant>& saved = TestApplication::instance()->pref.entries;
    if (step == "store?")
        return ZoEffectItemDefaultValMgr::s_Instance ? "yes" : "no";
    if (step == "defaults?")
        return three(ZoEffectModel::defaultValue);
    if (step == "model?") {
        const ZoEffectModel model;
        return three([&model](const QString& key, const QString& type) { return model.data(key, type, -1); });
    }
    if (step == "echo?")
        return described(ZoEffectModel().data("audio_echo_decay", "Audio_Echo", -1));
    if (step == "crop?")
        return described(ZoEffectModel().data("crop_left", "Crop", -1)) + ", "
               + described(ZoEffectModel::defaultValue("crop_left", "Crop"));
    if (step == "models of one type") {
        const ZoEffectModel listed(QStringList{"Color"});
        const ZoEffectModel single("Color", {{"bcs_contrast", 3}});
        return described(ZoEffectModel(single).data("bcs_contrast", "Color", -1));
    }
    if (step.endsWith("table"))
        ZoEffectModel::InitEffectModel(tableNamed(step));
    else if (step == "store")
        ZoEffectItemDefaultValMgr::getInstance();
    else if (step == "save others")
        saved = {{"Color", QVariantMap{{"bcs_contrast", 12}}},
                 {"Audio_Echo", QVariantMap{{"audio_echo_decay", 1}}},
                 {"Crop", QVariantMap{{"crop_left", 5}}}};
    else
        return "no such step";
    return QString();
}

} // namespace

class TstLateRegistration : public QObject {
    Q_OBJECT

private slots:
    void savedDefaultsAreLoadedOnceForTheTypesKnownThen_data()
    {
        const QString saved = "int 11, bool true, int 44";
        const QString catalogue = "int 0, bool false, int 100";
        const QString none = "invalid, invalid, invalid";
        const QString colorAlone = "int 11, bool false, int 100";
        addRows<QStringList, QStringList>({
            {"table, then model",
             {"whole table", "store?", "model?", "store?", "defaults?"},
             {"no", saved, "yes", saved}},
            {"store, then table", {"store", "whole table", "model?", "defaults?"}, {catalogue, catalogue}},
            {"default asked for, then table",
             {"defaults?", "store?", "whole table", "model?", "defaults?"},
             {none, "yes", catalogue, catalogue}},
            {"small table, store, whole table",
             {"small table", "store", "whole table", "model?", "defaults?"},
             {colorAlone, colorAlone}},
            {"small table, whole table, store",
             {"small table", "whole table", "store", "model?", "defaults?"},
             {saved, saved}},
            {"whole table, small table, store",
             {"whole table", "small table", "store", "whole table", "model?"},
             {colorAlone}},
            {"whole table, null, store", {"whole table", "null table", "model?", "defaults?"}, {none, saved}},
            {"whole table, empty table, store", {"whole table", "empty table", "model?", "defaults?"}, {none, saved}},
            {"table with a nested type",
             {"nested table", "defaults?", "model?"},
             {"int 11, bool false, int 44", "int 11, invalid, int 44"}},
            {"models of one type, then table",
             {"models of one type", "store?", "whole table", "model?"},
             {"int 3", "no", saved}},
            {"preferences change after loading",
             {"whole table", "store", "save others", "whole table", "model?", "echo?"},
             {saved, "int 500"}},
            {"preferences change before loading",
             {"whole table", "save others", "model?", "echo?", "crop?"},
             {"int 12, bool false, int 100", "int 1", "int 0, int 5"}},
        });
    }

    void savedDefaultsAreLoadedOnceForTheTypesKnownThen()
    {
        const auto [steps, said] = row<QStringList, QStringList>();
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), QStringList{"steps"} + steps);
        QVERIFY(process.waitForFinished(-1));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
        QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()), said.join('\n') + '\n');
    }
};

int main(int argc, char** argv)
{
    const TestFolders folders;
    TestApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) != "steps") {
        TstLateRegistration test;
        return QTest::qExec(&test, argc, argv);
    }
    application.pref.entries = {{"Color", QVariantMap{{"bcs_contrast", 11}}},
                                {"Audio", QVariantMap{{"play_loop", true}}},
                                {"Audio_Speed", QVariantMap{{"audio_speed_factor", 44}}}};
    for (const QString& step : arguments.mid(2)) {
        const QString said = play(step);
        if (!said.isEmpty())
            QTextStream(stdout) << said << '\n';
    }
    return 0;
}
#include "tst_late_registration.moc"
