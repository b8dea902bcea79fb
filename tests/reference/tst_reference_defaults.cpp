// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Defaults against a step-by-step filling, on random tables of a host's: whatever the library prepares from a table, it
// must store and compare what the table and the custom defaults hold at that moment.

#include <memory>

#include <QtTest>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "hosttable.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "stepbystepdefaults.h"
#include "testapplication.h"

using stepbystep::Node;
using stepbystep::Properties;

namespace {

QByteArray where(int seed, int round, const QString& difference)
{
    return QStringLiteral("seed %1, round %2: %3").arg(seed).arg(round).arg(difference).toUtf8();
}

ZoEffectItemData& rootOf(ZoEffectModel& model)
{
    return *model.getDataItem("effect root", -1);
}

/// Random tables and custom defaults, for the library and for the reference alike.
struct World {
    explicit World(int seed) : source(static_cast<std::mt19937::result_type>(seed)) {}

    ~World()
    {
        forgetCustomDefaults();
        ZoEffectModel::InitEffectModel(nullptr);
        logcapture::takeEvents();
    }

    /// Another table, or other content at the same address, made known in one way or the other.
    void newTable()
    {
        HostTable& table = first.oneIn(2) ? first : second;
        table.fill();
        reference.table = first.oneIn(30) ? nullptr : table.types();
        if (first.oneIn(2))
            ZoEffectModel::InitEffectModel(reference.table);
        else
            ZoEffectModel::s_EffectItems = reference.table;
    }

    void newCustomDefaults(int types, int mostKeys)
    {
        forgetCustomDefaults();
        for (; types > 0; --types) {
            const QString type = first.anyOf(HostTable::typeNames());
            save(type, type == "Effect" ? Properties{{"Effect", first.summary()}} : first.map(mostKeys));
        }
    }

    void save(const QString& type, const Properties& values)
    {
        ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal(type, values);
        reference.saved.insert(type, values);
    }

    void forgetCustomDefaults()
    {
        const QStringList types = reference.saved.keys();
        for (const QString& type : types)
            ZoEffectItemDefaultValMgr::getInstance()->removeCustomDefaultVal(type);
        reference.saved.clear();
    }

    std::mt19937 source;
    HostTable first{source};
    HostTable second{source};
    stepbystep::Defaults reference;
};

/// Properties of a caller. Watermarks are not shown, so that none is placed beside others.
Properties given(World& world, const QString& type)
{
    Properties props = world.first.map(5);
    if (type == "Watermark")
        props.insert("_checkstate", false);
    return props;
}

void addSeeds()
{
    QTest::addColumn<int>("seed");
    for (int seed = 81; seed <= 84; ++seed)
        QTest::addRow("seed %d", seed) << seed;
}

} // namespace

class TstReferenceDefaults : public QObject {
    Q_OBJECT

private slots:
    void modelsAreFilled_data() { addSeeds(); }
    void modelsAreFilled();
    void modelsDoNotShare_data() { addSeeds(); }
    void modelsDoNotShare();
    void subItemsOfAPassingTable_data() { addSeeds(); }
    void subItemsOfAPassingTable();
    void customDefaultsAreLaidOver_data() { addSeeds(); }
    void customDefaultsAreLaidOver();
    void checksKeyByKey_data() { addSeeds(); }
    void checksKeyByKey();
    void convertingPairs_data();
    void convertingPairs();
};

/// Construction, then resets, new items and replaced ones in a row, on tables that change all the time.
void TstReferenceDefaults::modelsAreFilled()
{
    QFETCH(const int, seed);
    World world(seed);
    HostTable& random = world.first;

    for (int round = 0; round < 250; ++round) {
        world.newTable();
        world.newCustomDefaults(random.below(4), 5);
        const QStringList types =
            random.oneIn(2) ? QStringList()
                            : QStringList{random.anyOf(HostTable::typeNames()), random.anyOf(HostTable::typeNames())};
        ZoEffectModel model(types);
        Node expected = world.reference.tree(types);
        QString difference = stepbystep::difference(rootOf(model), expected);
        QVERIFY2(difference.isEmpty(), where(seed, round, "construction: " + difference));

        for (const auto& [key, size] : {std::pair("w", random.below(800)), {"h", random.below(600)}}) {
            rootOf(model).setData(key, size);
            expected.properties.insert(key, size);
        }
        for (int step = 0; step < 8; ++step) {
            const QString type = random.anyOf(HostTable::typeNames());
            const Properties props = given(world, type);
            const int pos = random.below(5) - 1;
            const int kind = random.below(5);
            if (kind == 0) {
                world.newTable(); // The model was built from another one.
            } else if (kind == 1) {
                model.resetDataItem(type, pos);
                world.reference.reset(expected, type);
            } else if (kind == 2) {
                const bool isReplaced = model.replaceData(type, pos, props);
                QCOMPARE(isReplaced, world.reference.replace(expected, type, pos, props));
            } else {
                model.insertDataItem(type, props, pos);
                world.reference.insert(expected, type, props, pos);
            }
            difference = stepbystep::difference(rootOf(model), expected);
            QVERIFY2(difference.isEmpty(), where(seed, round, QString("step kind %1: ").arg(kind) + difference));
        }
    }
}

/// What happens to a node of one model shows in no other, neither in one that is there nor in one that comes later.
void TstReferenceDefaults::modelsDoNotShare()
{
    QFETCH(const int, seed);
    World world(seed);
    HostTable& random = world.first;

    for (int round = 0; round < 60; ++round) {
        world.newTable();
        world.newCustomDefaults(2, 5);
        ZoEffectModel changing;
        ZoEffectModel other;
        const Node expected = world.reference.tree({});
        for (int step = 0; step < 5; ++step) {
            const ZoEffectItemData& root = rootOf(changing);
            if (root.childCount() == 0)
                break;
            ZoEffectItemData* node = root.child(random.below(root.childCount()));
            if (node->childCount() > 0 && random.oneIn(2))
                node = node->child(random.below(node->childCount()));
            const Properties props = random.map(6);
            for (auto it = props.cbegin(); it != props.cend(); ++it)
                node->setData(it.key(), it.value());
            node->delData(random.anyOf(HostTable::keys()));
            node->setCheckState(random.below(3));
            node->setInternalData(&world);

            QString difference = stepbystep::difference(rootOf(other), expected);
            QVERIFY2(difference.isEmpty(), where(seed, round, "beside: " + difference));
            ZoEffectModel later;
            difference = stepbystep::difference(rootOf(later), expected);
            QVERIFY2(difference.isEmpty(), where(seed, round, "later: " + difference));
        }
    }
}

/// Tables of sub-items that live as long as the call, each at the address of the last one.
void TstReferenceDefaults::subItemsOfAPassingTable()
{
    QFETCH(const int, seed);
    World world(seed);
    world.newTable();
    ZoEffectModel model;

    for (int round = 0; round < 300; ++round) {
        ZoEffectItemData item("host's");
        Node expected;
        expected.name = "host's";
        world.first.fill();
        for (int call = 0; call < 2; ++call) {
            std::array<SubEffectItem, 5> table{};
            world.first.fillSubItems(table, world.first.below(5));
            model.InitSubItemData(&item, table.data());
            stepbystep::Defaults::addSubItems(expected, table.data());
            const QString difference = stepbystep::difference(item, expected);
            QVERIFY2(difference.isEmpty(), where(seed, round, difference));
        }
    }
}

/// Custom defaults with fewer, more and interleaved keys, on items alone and among others.
void TstReferenceDefaults::customDefaultsAreLaidOver()
{
    QFETCH(const int, seed);
    World world(seed);
    HostTable& random = world.first;

    for (int round = 0; round < 1000; ++round) {
        const QString type = random.anyOf({"Watermark", "Watermark", "Subtitle", "Color", "Crop", "Never there"});
        world.forgetCustomDefaults();
        world.save(type, random.map(round % 20));

        ZoEffectModel model;
        const Properties base{{"w", random.below(800)}, {"h", random.oneIn(5) ? 0 : random.below(600)}};
        for (auto it = base.cbegin(); it != base.cend(); ++it)
            rootOf(model).setData(it.key(), it.value());
        Node root;
        root.name = "effect root";
        root.properties = base;

        ZoEffectItemData list("list");
        Node expected;
        expected.name = "list";
        for (int count = 1 + random.below(5); count > 0; --count) {
            Properties properties = random.map(20);
            properties.insert("wm_imagewidth", random.below(4) * 100);
            properties.insert("wm_imageheight", random.below(4) * 100);
            auto* item = new ZoEffectItemData("item", &list);
            item->setCheckState(random.oneIn(3) ? 0 : 2);
            for (auto it = properties.cbegin(); it != properties.cend(); ++it)
                item->setData(it.key(), it.value());
            Node copy;
            copy.name = "item";
            copy.state = item->checkState();
            copy.properties = properties;
            expected.children.push_back(copy);
        }
        const int row = random.below(list.childCount());
        const bool direct = random.oneIn(3);
        model.getCustomDefaultVal(list.child(row), type, direct);
        world.reference.layOver(root, expected.children.at(static_cast<std::size_t>(row)), type, direct,
                                expected.children);
        QString difference = stepbystep::difference(list, expected);
        QVERIFY2(difference.isEmpty(), where(seed, round, difference));
        QCOMPARE(described(rootOf(model).properties()), described(root.properties));
    }
}

/// Each type and each key, on models that were changed a little.
void TstReferenceDefaults::checksKeyByKey()
{
    QFETCH(const int, seed);
    World world(seed);
    HostTable& random = world.first;
    int defaults = 0;
    int others = 0;

    for (int round = 0; round < 120; ++round) {
        world.newTable();
        world.newCustomDefaults(random.below(3), 4);
        ZoEffectModel model;
        Node root = world.reference.tree({});
        if (random.oneIn(2))
            world.newCustomDefaults(random.below(3), 4);
        for (int change = random.below(5); change > 0; --change) {
            const QString type = random.anyOf(HostTable::typeNames());
            const QString key = random.anyOf(HostTable::keys());
            const int pos = random.below(4) - 1;
            Node* node = stepbystep::find(root, type);
            if (!node || pos >= static_cast<int>(node->children.size()))
                continue;
            Node& changed = pos == -1 ? *node : node->children.at(static_cast<std::size_t>(pos));
            ZoEffectItemData* found = model.getDataItem(type, pos);
            const QVariant value = random.value(key);
            changed.properties.insert(key, value);
            found->setData(key, value);
            changed.state = random.oneIn(2) ? 2 : 0;
            found->setCheckState(changed.state);
        }
        logcapture::takeEvents();
        for (const QString& type : HostTable::typeNames()) {
            const bool expected = world.reference.isDefault(root, type);
            (expected ? defaults : others) += 1;
            QVERIFY2(model.dataIsDefault(type) == expected, where(seed, round, type));
            const bool isKnown = stepbystep::findRecord(type, world.reference.table) != nullptr;
            QCOMPARE(logcapture::takeEvents().contains(518), !isKnown);
            for (const QString& key : HostTable::keys()) {
                const int pos = random.below(4) - 1;
                const bool isDefault = model.SingleDataIsDefault(type, key, pos);
                QVERIFY2(isDefault == world.reference.isDefault(root, type, key, pos),
                         where(seed, round, type + ", " + key));
            }
        }
    }
    QVERIFY(defaults > 100);
    QVERIFY(others > 50);
}

void TstReferenceDefaults::convertingPairs_data()
{
    QTest::addColumn<QVariant>("present");
    QTest::addColumn<QVariant>("standard");
    QTest::addColumn<bool>("expected");

    const QColor white(Qt::white);
    QTest::newRow("5 and text 5") << QVariant(5) << QVariant("5") << true;
    QTest::newRow("text 5 and 5") << QVariant("5") << QVariant(5) << true;
    QTest::newRow("true and 1") << QVariant(true) << QVariant(1) << true;
    QTest::newRow("true and 2") << QVariant(true) << QVariant(2) << false;
    QTest::newRow("true and text true") << QVariant(true) << QVariant("true") << true;
    QTest::newRow("true and text abc") << QVariant(true) << QVariant("abc") << true;
    QTest::newRow("text abc and true") << QVariant("abc") << QVariant(true) << false;
    QTest::newRow("2 and 2.0") << QVariant(2) << QVariant(2.0) << true;
    QTest::newRow("2 and 1.5") << QVariant(2) << QVariant(1.5) << false;
    QTest::newRow("0 and empty text") << QVariant(0) << QVariant("") << false;
    QTest::newRow("0 and text abc") << QVariant(0) << QVariant("abc") << false;
    QTest::newRow("0.1 + 0.2 and 0.3") << QVariant(0.1 + 0.2) << QVariant(0.3) << true;
    QTest::newRow("nothing and 0") << QVariant() << QVariant(0) << false;
    QTest::newRow("nothing and empty text") << QVariant() << QVariant("") << false;
    QTest::newRow("nothing and nothing") << QVariant() << QVariant() << true;
    QTest::newRow("white and its number") << QVariant(white) << QVariant("#ffffff") << true;
    QTest::newRow("number of white and white") << QVariant("#ffffff") << QVariant(white) << true;
    QTest::newRow("white and its name") << QVariant(white) << QVariant("white") << true;
    QTest::newRow("name of white and white") << QVariant("white") << QVariant(white) << false;
    QTest::newRow("font and its family") << QVariant(QFont("Tahoma")) << QVariant("Tahoma") << true;
    QTest::newRow("family and its font") << QVariant("Tahoma") << QVariant(QFont("Tahoma")) << false;
    QTest::newRow("text and list of it") << QVariant("a") << QVariant(QStringList("a")) << true;
    QTest::newRow("bytes and number") << QVariant(QByteArray("5")) << QVariant(5) << true;
}

/// Values of two types, the present one on the left: by the catalogue's default, and by a custom one.
void TstReferenceDefaults::convertingPairs()
{
    QFETCH(const QVariant, present);
    QFETCH(const QVariant, standard);
    QFETCH(const bool, expected);

    std::array<EffectDefaultVal, 3> properties{};
    std::array<EffectControlItem, 2> table{};
    properties.at(0).key = "key";
    properties.at(0).defaultValue = standard;
    table.at(0).name = "Other";
    table.at(0).properties = properties.data();
    World world(0); // Forgets everything at the end.
    ZoEffectModel::InitEffectModel(table.data());

    ZoEffectModel model;
    model.getDataItem("Other", -1)->setData("key", present);
    QCOMPARE(model.dataIsDefault("Other"), expected);
    QCOMPARE(model.SingleDataIsDefault("Other", "key", -1), expected);

    properties.at(0).defaultValue = QStringLiteral("quite another one");
    if (standard.isValid())
        world.save("Other", {{"key", standard}});
    else
        properties.at(0).defaultValue = QVariant();
    QCOMPARE(model.dataIsDefault("Other"), expected);
    QCOMPARE(model.SingleDataIsDefault("Other", "key", -1), expected);
}

ZOEFFECT_TEST_MAIN(TstReferenceDefaults)

#include "tst_reference_defaults.moc"
