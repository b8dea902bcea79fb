// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Where the custom defaults are kept: the preferences that the host has set, else those that its application object
// gives at the moment, else the library's own file.

#include <memory>

#include <QProcess>
#include <QtTest>

#include <zoeffectitemdefaultvalmgr.h>

#include "memorypref.h"
#include "signalrecorder.h"
#include "testapplication.h"

using Manager = ZoEffectItemDefaultValMgr;

namespace {

/// A host that can bring its preferences late, or take them away.
class SwitchingApplication : public QGuiApplication, public ZoPrefProvider {
public:
    using QGuiApplication::QGuiApplication;

    ZoPref* preferences() override { return pref; }

    static SwitchingApplication& instance()
    {
        return *dynamic_cast<SwitchingApplication*>(QCoreApplication::instance());
    }

    ZoPref* pref = nullptr;
};

/// Keeps a text for each call, and tells what the manager knows when it writes.
class TalkingPref : public ZoPref {
public:
    bool hasKey(const QString& key) const override
    {
        calls << "hasKey " + key;
        return entries.contains(key);
    }
    QVariant value(const QString& key, const QVariant& defaultValue) const override
    {
        calls << "value " + key + ", " + described(defaultValue);
        return entries.value(key, defaultValue);
    }
    void setValue(const QString& key, const QVariant& value, bool notify) override
    {
        const Manager& manager = *Manager::getInstance();
        calls << "setValue " + key + ", " + described(value) + (notify ? ", notify" : "") + "; known: "
                     + (manager.hasCustomDefaultVal(key) ? described(manager.getCustomDefaultVal(key)) : "none")
                     + "; types: " + Manager::supportTypes().join(' ');
    }

    QStringList take()
    {
        QStringList taken;
        taken.swap(calls);
        return taken;
    }

    QMap<QString, QVariant> entries;
    mutable QStringList calls;
};

QString configuration()
{
    return QString::fromUtf8(qgetenv("XDG_CONFIG_HOME"));
}

QString file()
{
    return configuration() + "/Maker/Converter/effectdefaults.json";
}

bool fileHolds(const QByteArray& text)
{
    QFile stored(file());
    return stored.open(QIODevice::ReadOnly) && stored.readAll().contains(text);
}

Manager& manager()
{
    return *Manager::getInstance();
}

// --- Processes of their own: hosts that provide nothing. "save" and "load" are two starts.

void saveOrLoad(const QByteArray& what)
{
    Manager::setSupportTypes({"Crop"});
    if (what == "save")
        manager().saveAsCustomDefaultVal("Crop", {{"a", 1}});
    QTextStream(stdout) << described(manager().getCustomDefaultVal("Crop")) << '\n';
}

int runChild(int argc, char** argv)
{
    const QByteArray host = argv[2];
    const QByteArray what = argv[3];
    if (host == "without application") {
        saveOrLoad(what);
    } else if (host == "application of Core") {
        const QCoreApplication application(argc, argv);
        saveOrLoad(what);
    } else if (host == "application of Gui") {
        const QGuiApplication application(argc, argv);
        saveOrLoad(what);
    } else if (host == "preferences that were set") {
        static MemoryPref pref; // Without an application object.
        ZoPrefProvider::setStore(&pref);
        saveOrLoad(what);
        QTextStream(stdout) << pref.takeWrites().join('\n') << '\n';
    } else if (host == "provider of nothing") {
        const SwitchingApplication application(argc, argv);
        saveOrLoad(what);
    } else if (host == "after the application") {
        {
            const SwitchingApplication application(argc, argv);
        }
        saveOrLoad(what);
    }
    return 0;
}

QByteArray outputOf(const QString& host, const QString& what)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {"--child", host, what});
    const bool ended = process.waitForFinished() && process.exitStatus() == QProcess::NormalExit;
    return ended && process.exitCode() == 0 ? process.readAllStandardOutput() : QByteArray("failed");
}

} // namespace

class TstPreferenceStore : public QObject {
    Q_OBJECT

private slots:
    void init();

    void hostsPreferencesAreUsed();
    void loadingAsksForTheEntryBeforeItsValue();
    void savingWritesLast();
    void removingWritesLast();
    void hostWithoutPreferencesGetsTheFile();
    void preferencesThatComeLateAreUsedFromThenOn();
    void preferencesThatAreTakenAwayGiveWayToTheFile();
    void otherPreferencesAreUsedAtOnce();
    void preferencesThatAreSetComeFirst();
    void preferencesAreSetWithoutAnApplicationObject();

    void hostThatProvidesNothingGetsTheFile_data();
    void hostThatProvidesNothingGetsTheFile();
};

void TstPreferenceStore::init()
{
    SwitchingApplication::instance().pref = nullptr;
    ZoPrefProvider::setStore(nullptr);
    const QStringList types = Manager::supportTypes();
    for (const QString& type : types)
        manager().removeCustomDefaultVal(type);
    Manager::setSupportTypes({"Crop", "Watermark"});
}

void TstPreferenceStore::hostsPreferencesAreUsed()
{
    MemoryPref pref;
    SwitchingApplication::instance().pref = &pref;
    manager().saveAsCustomDefaultVal("Crop", {{"a", 1}});
    QCOMPARE(pref.takeWrites(), QStringList({"Crop = map {a: int 1}, notify false"}));
    manager().removeCustomDefaultVal("Crop");
    QCOMPARE(pref.takeWrites(), QStringList({"Crop = invalid, notify false"}));
    SwitchingApplication::instance().pref = nullptr;
}

void TstPreferenceStore::loadingAsksForTheEntryBeforeItsValue()
{
    TalkingPref pref;
    pref.entries = {{"Watermark", QVariantMap{{"a", 1}}}, {"Color", QVariantMap{{"a", 1}}}};
    SwitchingApplication::instance().pref = &pref;
    Manager::setSupportTypes({"Watermark", "Crop", "Watermark"});
    manager().Init();
    QCOMPARE(pref.take(), QStringList({"hasKey Watermark", "value Watermark, invalid", "hasKey Crop",
                                       "hasKey Watermark", "value Watermark, invalid"}));
    SwitchingApplication::instance().pref = nullptr;
    manager().removeCustomDefaultVal("Watermark");
}

void TstPreferenceStore::savingWritesLast()
{
    TalkingPref pref;
    SwitchingApplication::instance().pref = &pref;
    manager().saveAsCustomDefaultVal("Crop", {{"a", 1}});
    QCOMPARE(pref.take(),
             QStringList({"setValue Crop, map {a: int 1}; known: {a: int 1}; types: Crop Watermark Crop"}));
    manager().saveAsCustomDefaultVal("Crop", {});
    QCOMPARE(pref.take(), QStringList({"setValue Crop, map {}; known: {}; types: Crop Watermark Crop"}));
    SwitchingApplication::instance().pref = nullptr;
}

void TstPreferenceStore::removingWritesLast()
{
    TalkingPref pref;
    SwitchingApplication::instance().pref = &pref;
    manager().saveAsCustomDefaultVal("Crop", {{"a", 1}});
    pref.take();
    manager().removeCustomDefaultVal("Crop");
    QCOMPARE(pref.take(), QStringList({"setValue Crop, invalid; known: none; types: Crop Watermark Crop"}));
    manager().removeCustomDefaultVal("Crop");
    QCOMPARE(pref.take(), QStringList());

    // Reading is answered without the preferences.
    manager().hasCustomDefaultVal("Crop");
    manager().getCustomDefaultVal("Crop");
    manager().getCustomDefaultVal("Crop", "a");
    QCOMPARE(pref.take(), QStringList());
    SwitchingApplication::instance().pref = nullptr;
}

void TstPreferenceStore::hostWithoutPreferencesGetsTheFile()
{
    manager().saveAsCustomDefaultVal("Crop", {{"first", 1}});
    QVERIFY(fileHolds("\"first\": {"));
    manager().removeCustomDefaultVal("Crop");
    QVERIFY(!fileHolds("\"first\": {"));
    QVERIFY(!fileHolds("\"Crop\": {"));
}

void TstPreferenceStore::preferencesThatComeLateAreUsedFromThenOn()
{
    manager().saveAsCustomDefaultVal("Crop", {{"early", 1}});
    MemoryPref pref;
    SwitchingApplication::instance().pref = &pref;
    manager().saveAsCustomDefaultVal("Watermark", {{"late", 1}});
    QCOMPARE(pref.takeWrites(), QStringList({"Watermark = map {late: int 1}, notify false"}));
    QVERIFY(!fileHolds("\"late\": {"));

    // What is already known stays known; removing it clears the entry where entries are kept now.
    QCOMPARE(described(manager().getCustomDefaultVal("Crop")), QString("{early: int 1}"));
    manager().removeCustomDefaultVal("Crop");
    QCOMPARE(pref.takeWrites(), QStringList({"Crop = invalid, notify false"}));
    QVERIFY(fileHolds("\"early\": {"));
    SwitchingApplication::instance().pref = nullptr;
}

void TstPreferenceStore::preferencesThatAreTakenAwayGiveWayToTheFile()
{
    {
        MemoryPref pref;
        SwitchingApplication::instance().pref = &pref;
        manager().saveAsCustomDefaultVal("Crop", {{"a", 1}});
        SwitchingApplication::instance().pref = nullptr;
    }
    manager().saveAsCustomDefaultVal("Crop", {{"afterwards", 1}});
    QVERIFY(fileHolds("\"afterwards\": {"));
}

void TstPreferenceStore::otherPreferencesAreUsedAtOnce()
{
    MemoryPref first;
    MemoryPref second;
    second.entries = {{"Watermark", QVariantMap{{"b", 2}}}};
    SwitchingApplication::instance().pref = &first;
    manager().saveAsCustomDefaultVal("Crop", {{"a", 1}});
    SwitchingApplication::instance().pref = &second;
    manager().Init();
    manager().saveAsCustomDefaultVal("Crop", {{"a", 2}});
    QCOMPARE(described(manager().getCustomDefaultVal("Watermark")), QString("{b: int 2}"));
    QCOMPARE(first.takeWrites(), QStringList({"Crop = map {a: int 1}, notify false"}));
    QCOMPARE(second.takeWrites(), QStringList({"Crop = map {a: int 2}, notify false"}));
    SwitchingApplication::instance().pref = nullptr;
}

void TstPreferenceStore::preferencesThatAreSetComeFirst()
{
    MemoryPref given;
    MemoryPref set;
    set.entries = {{"Watermark", QVariantMap{{"b", 2}}}};
    SwitchingApplication::instance().pref = &given;
    ZoPrefProvider::setStore(&set);
    manager().Init();
    manager().saveAsCustomDefaultVal("Crop", {{"a", 1}});
    QCOMPARE(described(manager().getCustomDefaultVal("Watermark")), QString("{b: int 2}"));
    QCOMPARE(set.takeWrites(), QStringList({"Crop = map {a: int 1}, notify false"}));
    ZoPrefProvider::setStore(nullptr);
    manager().saveAsCustomDefaultVal("Crop", {{"a", 2}});
    QCOMPARE(given.takeWrites(), QStringList({"Crop = map {a: int 2}, notify false"}));
    SwitchingApplication::instance().pref = nullptr;
    manager().saveAsCustomDefaultVal("Crop", {{"unset", 3}});
    QVERIFY(fileHolds("\"unset\": {"));
    QCOMPARE(set.takeWrites() + given.takeWrites(), QStringList());
}

void TstPreferenceStore::preferencesAreSetWithoutAnApplicationObject()
{
    QCOMPARE(outputOf("preferences that were set", "save"),
             QByteArray("{a: int 1}\nCrop = map {a: int 1}, notify false\n"));
    QVERIFY(!QFile::exists(configuration() + "/effectdefaults.json"));
}

void TstPreferenceStore::hostThatProvidesNothingGetsTheFile_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("path"); // Below the configuration folder.
    QTest::newRow("application of Core") << "application of Core"
                                         << "tst_preferencestore/effectdefaults.json";
    QTest::newRow("application of Gui") << "application of Gui"
                                        << "tst_preferencestore/effectdefaults.json";
    QTest::newRow("provider of nothing") << "provider of nothing"
                                         << "tst_preferencestore/effectdefaults.json";
    QTest::newRow("application object is gone") << "after the application"
                                                << "tst_preferencestore/effectdefaults.json";
    QTest::newRow("no application object") << "without application"
                                           << "effectdefaults.json";
}

void TstPreferenceStore::hostThatProvidesNothingGetsTheFile()
{
    QFETCH(QString, host);
    QFETCH(QString, path);
    QFile::remove(configuration() + '/' + path);
    QCOMPARE(outputOf(host, "load"), QByteArray("{}\n"));
    QVERIFY(!QFile::exists(configuration() + '/' + path));
    QCOMPARE(outputOf(host, "save"), QByteArray("{a: int 1}\n"));
    QVERIFY(QFile::exists(configuration() + '/' + path));
    QCOMPARE(outputOf(host, "load"), QByteArray("{a: int 1}\n"));
}

int main(int argc, char** argv)
{
    if (argc == 4 && qstrcmp(argv[1], "--child") == 0)
        return runChild(argc, argv);
    const TestFolders folders;
    QCoreApplication::setOrganizationName("Maker");
    QCoreApplication::setApplicationName("Converter");
    SwitchingApplication application(argc, argv);
    TstPreferenceStore test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_preferencestore.moc"
