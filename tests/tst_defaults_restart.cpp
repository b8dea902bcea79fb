// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What the store of custom defaults finds when a process starts. Each start is a process of its own: with a host
// that brings its preferences, and with the library's own file.

#include <functional>

#include <QColor>
#include <QFont>
#include <QProcess>
#include <QTextStream>
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

void say(const QString& line)
{
    QTextStream(stdout) << line << '\n';
}

/// "<type> {<map>}" for each of these types that has a custom default.
void sayCustomDefaults(const QStringList& types = {"Color", "Crop", "Subtitle", "Watermark", "Rotation"})
{
    for (const QString& type : types) {
        if (Manager::getInstance()->hasCustomDefaultVal(type))
            say(type + ' ' + described(Manager::getInstance()->getCustomDefaultVal(type)));
    }
    const QList<int> events = logcapture::takeEvents();
    for (int event : events)
        say("logged " + QString::number(event));
}

void sayTypes()
{
    say(Manager::supportTypes().join(", "));
}

void registerTypes()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
}

void save(const QString& type, const Map& map)
{
    Manager::getInstance()->saveAsCustomDefaultVal(type, map);
}

Map watermark()
{
    return {{"b", true},
            {"c", QColor(1, 2, 3, 4)},
            {"d", 1.0 / 3},
            {"e", QVariant()},
            {"f", QFont("Tahoma")},
            {"i", 80},
            {"m", QVariantMap{{"x", 1}}},
            {"s", QString::fromUtf8("\xc3\xa4 \"x\"\n")},
            {"w", 2.0}};
}

struct Scenario {
    const char* name;
    std::function<void()> play;
};

/// One process each, by name.
QList<Scenario> scenarios()
{
    return {
        {"stateBeforeAnything",
         [] {
             say(Manager::s_Instance ? "instance" : "no instance");
             sayTypes();
             registerTypes();
             say(Manager::s_Instance ? "instance" : "no instance");
             Manager::getInstance();
             say(Manager::s_Instance ? "instance" : "no instance");
         }},
        {"supportTypesDoNotCreateTheInstance",
         [] {
             Manager::setSupportTypes({"Crop"});
             sayTypes();
             say(Manager::s_Instance ? "instance" : "no instance");
         }},
        {"load",
         [] {
             registerTypes();
             sayCustomDefaults();
         }},
        {"saveFromAMessageHandler",
         [] {
             static int messages = 0;
             qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {
                 if (++messages == 1)
                     save("Crop", {{"a", 1}});
             });
             registerTypes();
             sayCustomDefaults();
             save("Watermark", {{"i", 81}});
             say(QString::number(messages) + " message");
         }},
        {"loadBeforeRegistration",
         [] {
             sayCustomDefaults();
             registerTypes();
             sayCustomDefaults();
         }},
        {"loadTwoTypes",
         [] {
             Manager::setSupportTypes({"Crop", "Subtitle"});
             sayCustomDefaults();
         }},
        {"loadWithTypeTwice",
         [] {
             Manager::setSupportTypes({"Crop", "Watermark", "Crop"});
             sayCustomDefaults();
         }},
        {"loadUnregisteredType",
         [] {
             Manager::setSupportTypes({"Rotation"});
             sayCustomDefaults();
         }},
        {"saveAll",
         [] {
             registerTypes();
             save("Watermark", watermark());
             save("Crop", {{"a", 1}});
             save("Rotation", {{"r", 90}});
             save("Subtitle", {});
             sayCustomDefaults();
         }},
        {"saveLess",
         [] {
             registerTypes();
             save("Watermark", {{"i", 81}});
         }},
        {"removeWatermark",
         [] {
             registerTypes();
             Manager::getInstance()->removeCustomDefaultVal("Watermark");
             sayCustomDefaults();
         }},
        {"removeWithoutLoading",
         [] {
             Manager::getInstance()->removeCustomDefaultVal("Watermark");
             sayCustomDefaults();
         }},
        {"saveOddNames",
         [] {
             save("a/b", {{"/", 1}});
             save("", {{"", 1}});
             save(QString::fromUtf8("\xc3\xa4\\"), {{QString::fromUtf8("\xc3\xb6="), 1}});
         }},
        {"loadOddNames",
         [] {
             Manager::setSupportTypes({"a/b", "", QString::fromUtf8("\xc3\xa4\\"), "a"});
             const QStringList types = Manager::supportTypes();
             for (const QString& type : types)
                 say(described(Manager::getInstance()->getCustomDefaultVal(type)).toUtf8().toPercentEncoding("{}: /="));
         }},
        {"saveFrameDefaultsThroughTheModel",
         [] {
             registerTypes();
             ZoEffectModel model;
             model.setData("bcs_brightness", 20, "Color", -1);
             model.saveAsCustomDefault("Color", -1);
         }},
        {"readDefaultsThroughTheModel",
         [] {
             registerTypes();
             say(described(ZoEffectModel::defaultValue("bcs_brightness", "Color")));
             ZoEffectModel model;
             say(described(model.data("bcs_brightness", "Color", -1)));
         }},
    };
}

/// What the preferences of the host hold when a process starts.
QMap<QString, Map> preferences()
{
    const QVariantMap a{{"a", 1}};
    const QVariantMap b{{"f", QFont("Tahoma")}, {"w", 2.0}};
    return {
        {"none", {}},
        {"two", {{"Crop", a}, {"Watermark", b}}},
        {"cleared", {{"Crop", QVariant()}, {"Watermark", b}}},
        {"empty", {{"Crop", QVariantMap()}, {"Watermark", b}}},
        {"no maps", {{"Color", 5}, {"Crop", "a"}, {"Subtitle", QVariantList{1}}, {"Watermark", b}}},
        {"other letters", {{"crop", a}, {"Watermark ", b}}},
        {"unregistered", {{"Rotation", a}}},
    };
}

int runChild(int argc, char** argv)
{
    const QString host = QString::fromUtf8(argv[2]);
    const QString name = QString::fromUtf8(argv[3]);
    // The configuration and temporary folders are those of the parent.
    std::unique_ptr<QCoreApplication> application;
    if (host == "embedded") {
        application = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        auto provider = std::make_unique<TestApplication>(argc, argv);
        provider->pref.entries = preferences().value(host);
        application = std::move(provider);
    }
    const QList<Scenario> all = scenarios();
    for (const Scenario& scenario : all) {
        if (name == scenario.name) {
            scenario.play();
            return 0;
        }
    }
    return 2;
}

/// What a process with these preferences, or with the library's own file ("embedded"), says, and then what the
/// library warns of.
QStringList played(const QString& host, const QString& name)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {"--child", host, name});
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return {"failed", QString::fromUtf8(process.readAllStandardError())};
    QStringList lines = QString::fromUtf8(process.readAllStandardOutput()).split('\n');
    lines.removeLast();
    const QStringList messages = QString::fromUtf8(process.readAllStandardError()).split('\n');
    return lines + messages.filter("zoeffect: ");
}

QString configuration()
{
    return QString::fromUtf8(qgetenv("XDG_CONFIG_HOME"));
}

/// The embedded store's file: the folder is named after the application.
QString file()
{
    return configuration() + "/tst_defaults_restart/effectdefaults.json";
}

} // namespace

class TstDefaultsRestart : public QObject {
    Q_OBJECT

private slots:
    void init();

    void startWithPreferences_data();
    void startWithPreferences();

    void startWithoutFileFindsNothingAndCreatesNone();
    void savedMapsAreThereAfterTheNextStart();
    void laterStartReplacesTheMapWhole();
    void removedMapIsGoneAfterTheNextStart();
    void typeThatWasNotLoadedIsNotRemoved();
    void oddNamesAreThereAfterTheNextStart();
    void typesThatAreNotRegisteredAreNotLoaded();
    void customDefaultOfAModelIsThereAfterTheNextStart();
    void preferencesOfTheHostLeaveTheFileAlone();
    void damagedFileIsSetAsideAndTheStoreStartsEmpty_data();
    void damagedFileIsSetAsideAndTheStoreStartsEmpty();
    void messageHandlerMaySaveWhileTheStoreIsCreated();
};

void TstDefaultsRestart::init()
{
    QVERIFY(QDir(configuration()).removeRecursively());
    QVERIFY(QDir().mkpath(configuration()));
}

void TstDefaultsRestart::startWithPreferences_data()
{
    QTest::addColumn<QString>("preferences");
    QTest::addColumn<QString>("scenario");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char* name, const char* preferences, const char* scenario, const QStringList& expected) {
        QTest::newRow(name) << preferences << scenario << expected;
    };
    const QString crop = "Crop {a: int 1}";
    const QString watermark = "Watermark {f: font Tahoma, w: double 2}";

    row("no instance before it is asked for", "none", "stateBeforeAnything",
        {"no instance", "", "no instance", "instance"});
    row("list of types without instance", "none", "supportTypesDoNotCreateTheInstance", {"Crop", "no instance"});
    row("no entry", "none", "load", {});
    row("two entries", "two", "load", {crop, watermark});
    row("cleared entry", "cleared", "load", {watermark});
    row("empty map", "empty", "load", {watermark});
    row("entries that are no maps", "no maps", "load", {watermark});
    row("entries in other letters", "other letters", "load", {});
    row("type of no catalogue", "unregistered", "load", {});
    row("type of no catalogue in the list", "unregistered", "loadUnregisteredType", {"Rotation {a: int 1}"});
    row("registered too late", "two", "loadBeforeRegistration", {});
    row("only types of the list", "two", "loadTwoTypes", {crop});
    row("type twice in the list", "two", "loadWithTypeTwice", {crop, watermark});
    row("removed without having been loaded", "two", "removeWithoutLoading", {});
}

void TstDefaultsRestart::startWithPreferences()
{
    QFETCH(QString, preferences);
    QFETCH(QString, scenario);
    QFETCH(QStringList, expected);
    QCOMPARE(played(preferences, scenario), expected);
}

void TstDefaultsRestart::startWithoutFileFindsNothingAndCreatesNone()
{
    QCOMPARE(played("embedded", "load"), QStringList());
    QCOMPARE(QDir(configuration()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
}

void TstDefaultsRestart::savedMapsAreThereAfterTheNextStart()
{
    const QString watermark = QString::fromUtf8("Watermark {b: bool true, c: color #04010203, d: double "
                                                "0.33333333333333331, e: invalid, f: font Tahoma, i: int "
                                                "80, m: map {x: int 1}, s: string \xc3\xa4 \"x\"");
    const QString rest = ", w: double 2}"; // On the next line: the string ends in a line break.
    QCOMPARE(played("embedded", "saveAll"),
             QStringList({"Crop {a: int 1}", "Subtitle {}", watermark, rest, "Rotation {r: int 90}"}));
    QCOMPARE(QDir(configuration() + "/tst_defaults_restart").entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList({"effectdefaults.json", "effectdefaults.json.lock"}));

    // The empty map counted until the process ended; "Rotation" is saved, but of no catalogue.
    QCOMPARE(played("embedded", "load"), QStringList({"Crop {a: int 1}", watermark, rest}));
    QCOMPARE(played("embedded", "loadUnregisteredType"), QStringList({"Rotation {r: int 90}"}));
}

void TstDefaultsRestart::laterStartReplacesTheMapWhole()
{
    played("embedded", "saveAll");
    QCOMPARE(played("embedded", "saveLess"), QStringList());
    QCOMPARE(played("embedded", "load"), QStringList({"Crop {a: int 1}", "Watermark {i: int 81}"}));
}

void TstDefaultsRestart::removedMapIsGoneAfterTheNextStart()
{
    played("embedded", "saveAll");
    QCOMPARE(played("embedded", "removeWatermark"), QStringList({"Crop {a: int 1}"}));
    QCOMPARE(played("embedded", "load"), QStringList({"Crop {a: int 1}"}));
}

void TstDefaultsRestart::typeThatWasNotLoadedIsNotRemoved()
{
    played("embedded", "saveLess");
    QCOMPARE(played("embedded", "removeWithoutLoading"), QStringList());
    QCOMPARE(played("embedded", "load"), QStringList({"Watermark {i: int 81}"}));
}

void TstDefaultsRestart::oddNamesAreThereAfterTheNextStart()
{
    QCOMPARE(played("embedded", "saveOddNames"), QStringList());
    QCOMPARE(played("embedded", "loadOddNames"), QStringList({"{/: int 1}", "{: int 1}", "{%C3%B6=: int 1}", "{}"}));
}

void TstDefaultsRestart::typesThatAreNotRegisteredAreNotLoaded()
{
    played("embedded", "saveAll");
    QCOMPARE(played("embedded", "loadTwoTypes"), QStringList({"Crop {a: int 1}"}));
    QCOMPARE(played("embedded", "loadBeforeRegistration"), QStringList());
}

void TstDefaultsRestart::customDefaultOfAModelIsThereAfterTheNextStart()
{
    QCOMPARE(played("embedded", "saveFrameDefaultsThroughTheModel"), QStringList());
    QCOMPARE(played("embedded", "readDefaultsThroughTheModel"), QStringList({"int 20", "int 20"}));
}

void TstDefaultsRestart::preferencesOfTheHostLeaveTheFileAlone()
{
    played("embedded", "saveLess");
    QFile before(file());
    QVERIFY(before.open(QIODevice::ReadOnly));
    const QByteArray content = before.readAll();
    QCOMPARE(played("none", "load"), QStringList());
    played("none", "saveAll");
    QFile after(file());
    QVERIFY(after.open(QIODevice::ReadOnly));
    QCOMPARE(after.readAll(), content);
}

void TstDefaultsRestart::damagedFileIsSetAsideAndTheStoreStartsEmpty_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("[Crop]\na=int 1\n");
    QTest::newRow("a value 50,000 deep") << R"({"zoeffect-defaults": 1, "types": )"
                                                + QByteArray(R"({"a": )").repeated(50000) + "1"
                                                + QByteArray(50001, '}');
    QTest::newRow("64 MB") << QByteArray(64 * 1024 * 1024, 'x');
}

void TstDefaultsRestart::damagedFileIsSetAsideAndTheStoreStartsEmpty()
{
    QFETCH(QByteArray, content);
    QVERIFY(QDir().mkpath(configuration() + "/tst_defaults_restart"));
    QFile damaged(file());
    QVERIFY(damaged.open(QIODevice::WriteOnly));
    QCOMPARE(damaged.write(content), qint64(content.size()));
    damaged.close();

    QCOMPARE(
        played("embedded", "load"),
        QStringList({QStringLiteral("zoeffect: \"%1\" is damaged and was set aside as \"%1.damaged\"").arg(file())}));
    QVERIFY(!QFile::exists(file()));
    QFile aside(file() + ".damaged");
    QVERIFY(aside.open(QIODevice::ReadOnly));
    QVERIFY(aside.readAll() == content);

    played("embedded", "saveLess");
    QCOMPARE(played("embedded", "load"), QStringList({"Watermark {i: int 81}"}));
}

void TstDefaultsRestart::messageHandlerMaySaveWhileTheStoreIsCreated()
{
    QVERIFY(QFileInfo(file()).dir().mkpath("."));
    QFile damaged(file());
    QVERIFY(damaged.open(QIODevice::WriteOnly));
    damaged.write("damaged");
    damaged.close();

    // The warning about the damaged file comes while the store is created.
    QCOMPARE(played("embedded", "saveFromAMessageHandler"), QStringList({"Crop {a: int 1}", "1 message"}));
    QCOMPARE(played("embedded", "load"), QStringList({"Crop {a: int 1}", "Watermark {i: int 81}"}));
}

int main(int argc, char** argv)
{
    if (argc == 4 && qstrcmp(argv[1], "--child") == 0)
        return runChild(argc, argv);
    const TestFolders folders;
    TestApplication application(argc, argv);
    TstDefaultsRestart test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_defaults_restart.moc"
