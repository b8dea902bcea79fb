// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <limits>
#include <vector>

#include <QColor>
#include <QtTest>

#include "cataloguetable_p.h"
#include "zoeffectcatalogue.h"

namespace {

using cataloguetable::prepared;
using cataloguetable::Row;
using cataloguetable::Table;
using Pointer = QExplicitlySharedDataPointer<const Table>;
using Properties = std::vector<EffectDefaultVal>;
using Values = QMap<QString, QVariant>;

EffectDefaultVal entry(const char* key, const QVariant& value = 0)
{
    return {key, value, nullptr, 0, 0};
}

/// "key=value" of each row, the value as the table has it now; '!' where the row is the check state's.
QStringList described(const Pointer& table)
{
    QStringList texts;
    for (const Row& row : table->rows)
        texts << row.key + QLatin1Char('=') + row.entry->defaultValue.toString()
                     + QLatin1String(row.isCheckState ? "!" : "");
    return texts;
}

QStringList described(const Properties& properties)
{
    return described(prepared(properties.data()));
}

/// A value of a host's own type.
struct HostValue {
    int number = 0;
};

/// A value whose comparison changes while its bytes stay.
struct Moody {
    int number = 0;
    static bool equalsItself;
};

bool Moody::equalsItself = true;

bool operator==(const Moody& /*left*/, const Moody& /*right*/)
{
    return Moody::equalsItself;
}

QStringList list(const char* text)
{
    return *text ? QString::fromUtf8(text).split(QLatin1Char(' ')) : QStringList();
}

} // namespace

Q_DECLARE_METATYPE(HostValue)
Q_DECLARE_METATYPE(Moody)

class TstCatalogueTable : public QObject {
    Q_OBJECT

private slots:
    void tablesAreKeptUntilTheyAreForgotten();
    void tableWithoutRows();
    void rowsAreSorted_data();
    void rowsAreSorted();
    void rowsPointIntoTheTable();
    void valuesAreReadFromTheTable();
    void changedTableIsReadAnew();
    void keyChangedInPlaceIsReadAnew();
    void tableTakenBeforeStays();
    void defaultsAreThoseStoredInTheirOrder();
    void defaultsFollowTheValues_data();
    void defaultsFollowTheValues();
    void textAtTheAddressOfAnOlderOneIsReadAnew();
    void tableHoldsItself_data();
    void tableHoldsItself();
    void valueOfAHostsTypeIsComparedEachTime();
    void manyMoreTablesThanAreKept();
};

void TstCatalogueTable::tablesAreKeptUntilTheyAreForgotten()
{
    const Properties properties{entry("a", 1), entry(nullptr)};
    const Pointer first = prepared(properties.data());
    QVERIFY(prepared(properties.data()) == first);
    cataloguetable::forgetAll();
    const Pointer second = prepared(properties.data());
    QVERIFY(second != first);
    QCOMPARE(described(second), QStringList{"a=1"});

    // What a value of a host's own type does when it goes is the host's affair, and its code may be gone by then.
    const Properties hosts{entry("a", QVariant::fromValue(HostValue{})), entry(nullptr)};
    const Pointer unkept = prepared(hosts.data());
    QVERIFY(prepared(hosts.data()) != unkept);
}

void TstCatalogueTable::tableWithoutRows()
{
    QVERIFY(prepared(nullptr)->rows.isEmpty() && prepared(nullptr)->defaults.isEmpty());
    const Properties empty{entry(nullptr)};
    for (int i = 0; i < 2; ++i)
        QVERIFY(prepared(empty.data())->rows.isEmpty() && prepared(empty.data())->defaults.isEmpty());
    QVERIFY(prepared(nullptr)->rows.isEmpty() && prepared(nullptr)->defaults.isEmpty());
}

void TstCatalogueTable::rowsAreSorted_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char* name, const char* keys, const char* expected) {
        QTest::newRow(name) << QString::fromUtf8(keys) << QString::fromUtf8(expected);
    };
    row("one", "a", "a=0");
    row("in order", "a b c", "a=0 b=1 c=2");
    row("backward", "c b a", "a=2 b=1 c=0");
    row("capitals before small letters", "b B a _ A", "A=4 B=1 _=3 a=2 b=0");
    row("longer behind shorter", "ab abc a", "a=2 ab=0 abc=1");
    row("doubled keys", "b a b a b", "a=1 a=3 b=0 b=2 b=4");
    row("check state", "width _checkstate height", "_checkstate=1! height=2 width=0");
    row("check state twice", "_checkstate a _checkstate", "_checkstate=0! _checkstate=2! a=1");
    row("like the check state", "_CheckState checkstate _checkstat _checkstate2",
        "_CheckState=0 _checkstat=2 _checkstate2=3 checkstate=1");
    row("beyond ASCII", "\xE2\x82\xAC \xC3\xA9 z", "z=2 \xC3\xA9=1 \xE2\x82\xAC=0");
}

void TstCatalogueTable::rowsAreSorted()
{
    QFETCH(const QString, keys);
    QFETCH(const QString, expected);

    const QList<QByteArray> texts = keys.toUtf8().split(' ');
    Properties table;
    for (int i = 0; i < texts.size(); ++i)
        table.push_back(entry(texts.at(i).constData(), i));
    table.push_back(entry(nullptr));
    for (int i = 0; i < 2; ++i)
        QCOMPARE(described(table), expected.split(QLatin1Char(' ')));
}

void TstCatalogueTable::rowsPointIntoTheTable()
{
    const Properties table{entry("b"), entry("a"), entry("b"), entry(nullptr)};
    const QVector<Row> rows = prepared(table.data())->rows;
    QCOMPARE(rows.size(), 3);
    QCOMPARE(rows.at(0).entry, &table[1]);
    QCOMPARE(rows.at(1).entry, table.data());
    QCOMPARE(rows.at(2).entry, &table[2]);
}

void TstCatalogueTable::valuesAreReadFromTheTable()
{
    Properties table{entry("b", 1), entry("a", 2), entry(nullptr)};
    const Pointer taken = prepared(table.data());
    QCOMPARE(described(taken), list("a=2 b=1"));
    QCOMPARE(prepared(table.data()), taken); // Kept.
    table[0].defaultValue = QStringLiteral("new");
    QCOMPARE(described(taken), list("a=2 b=new"));
    QCOMPARE(described(table), list("a=2 b=new"));
}

void TstCatalogueTable::changedTableIsReadAnew()
{
    Properties table{entry("c", 1), entry("a", 2), entry("d", 3), entry(nullptr), entry(nullptr)};
    QCOMPARE(described(table), list("a=2 c=1 d=3"));
    table[0].key = "b";
    QCOMPARE(described(table), list("a=2 b=1 d=3"));
    table[1].key = "_checkstate";
    QCOMPARE(described(table), list("_checkstate=2! b=1 d=3"));
    table[3] = entry("a", 4);
    QCOMPARE(described(table), list("_checkstate=2! a=4 b=1 d=3"));
    table[3].key = nullptr;
    QCOMPARE(described(table), list("_checkstate=2! b=1 d=3"));
    table[2].key = nullptr;
    QCOMPARE(described(table), list("_checkstate=2! b=1"));
    std::swap(table[0], table[1]);
    QCOMPARE(described(table), list("_checkstate=2! b=1"));
    QCOMPARE(prepared(table.data())->rows.at(0).entry, table.data());
    table[0].key = nullptr;
    QCOMPARE(described(table), QStringList());
    table[0].key = "z";
    QCOMPARE(described(table), list("b=1 z=2"));
}

void TstCatalogueTable::keyChangedInPlaceIsReadAnew()
{
    char key[] = "width";
    const Properties table{entry(key, 1), entry("top", 2), entry(nullptr)};
    QCOMPARE(described(table), list("top=2 width=1"));
    key[0] = 'a';
    QCOMPARE(described(table), list("aidth=1 top=2"));
    key[1] = 0; // Shorter.
    QCOMPARE(described(table), list("a=1 top=2"));
    key[1] = 'i';
    QCOMPARE(described(table), list("aidth=1 top=2"));
}

void TstCatalogueTable::tableTakenBeforeStays()
{
    Properties table{entry("b", 1), entry("a", 2), entry(nullptr)};
    const Pointer taken = prepared(table.data());
    table[0] = entry("_checkstate", 3);
    QCOMPARE(described(table), list("_checkstate=3! a=2"));
    QCOMPARE(taken->rows.at(0).key, QStringLiteral("a"));
    QCOMPARE(taken->rows.at(1).key, QStringLiteral("b"));
    QVERIFY(!taken->rows.at(1).isCheckState);
    QCOMPARE(taken->defaults, (Values{{QStringLiteral("a"), 2}, {QStringLiteral("b"), 1}}));
}

void TstCatalogueTable::defaultsAreThoseStoredInTheirOrder()
{
    const Properties table{entry("b", 1), entry("a", QStringLiteral("x")), entry("_checkstate", 2),
                           entry("b", 3), entry("none", QVariant()),       entry(nullptr)};
    const Values expected{{QStringLiteral("_checkstate"), 2},
                          {QStringLiteral("a"), QStringLiteral("x")},
                          {QStringLiteral("b"), 3},
                          {QStringLiteral("none"), QVariant()}};
    for (int i = 0; i < 2; ++i)
        QCOMPARE(prepared(table.data())->defaults, expected);
}

void TstCatalogueTable::defaultsFollowTheValues_data()
{
    QTest::addColumn<QVariant>("before");
    QTest::addColumn<QVariant>("after");

    QTest::newRow("number") << QVariant(1) << QVariant(2);
    QTest::newRow("large number") << QVariant(qint64(1)) << QVariant(qint64(1) << 40);
    QTest::newRow("real number") << QVariant(0.5) << QVariant(0.25);
    QTest::newRow("truth") << QVariant(true) << QVariant(false);
    QTest::newRow("type of a number") << QVariant(1) << QVariant(1U);
    QTest::newRow("text") << QVariant(QStringLiteral("ab")) << QVariant(QStringLiteral("ac"));
    QTest::newRow("text instead of a number") << QVariant(1) << QVariant(QStringLiteral("1"));
    QTest::newRow("invalid") << QVariant(0) << QVariant();
    QTest::newRow("null text") << QVariant(QString()) << QVariant(QLatin1String(""));
    QTest::newRow("list") << QVariant(QStringList{QStringLiteral("a")}) << QVariant(QStringList{QStringLiteral("b")});
    QTest::newRow("rectangle") << QVariant(QRect(1, 2, 3, 4)) << QVariant(QRect(1, 2, 3, 5));
    QTest::newRow("colour") << QVariant(QColor(1, 2, 3)) << QVariant(QColor(1, 2, 4));
    QTest::newRow("type of a host") << QVariant::fromValue(HostValue{1}) << QVariant::fromValue(HostValue{2});
}

void TstCatalogueTable::defaultsFollowTheValues()
{
    QFETCH(const QVariant, before);
    QFETCH(const QVariant, after);
    const auto isDefault = [](const Pointer& table, const QVariant& value) {
        const QVariant held = table->defaults.value(QStringLiteral("a"));
        return held.userType() == value.userType() && held.toString().isNull() == value.toString().isNull()
               && (value.canConvert<HostValue>() ? held.value<HostValue>().number == value.value<HostValue>().number
                                                 : held == value);
    };
    Properties table{entry("a", before), entry("b", 7), entry(nullptr)};
    for (const QVariant& value : {before, after, before}) {
        table[0].defaultValue = value;
        for (int i = 0; i < 2; ++i)
            QVERIFY(isDefault(prepared(table.data()), value));
    }
}

// Each text is freed before the next comes into being, often at the same address.
void TstCatalogueTable::textAtTheAddressOfAnOlderOneIsReadAnew()
{
    Properties table{entry("a"), entry("b"), entry("a"), entry(nullptr)};
    for (int i = 0; i < 1000; ++i) {
        for (std::size_t row = 0; row < 3; ++row) {
            table[row].defaultValue = QVariant();
            table[row].defaultValue = QString::number(1000 + i);
        }
        QCOMPARE(described(table),
                 QStringList({QStringLiteral("a=%1").arg(1000 + i), QStringLiteral("a=%1").arg(1000 + i),
                              QStringLiteral("b=%1").arg(1000 + i)}));
        QCOMPARE(prepared(table.data())->defaults.value(QStringLiteral("a")), QVariant(QString::number(1000 + i)));
        QCOMPARE(prepared(table.data())->defaults.value(QStringLiteral("b")), QVariant(QString::number(1000 + i)));
    }
}

void TstCatalogueTable::tableHoldsItself_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("doubled");
    QTest::addColumn<bool>("expected");

    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("number") << QVariant(1) << false << true;
    QTest::newRow("invalid") << QVariant() << false << true;
    QTest::newRow("doubled key") << QVariant(1) << true << false;
    QTest::newRow("no number") << QVariant(nan) << false << false;
}

void TstCatalogueTable::tableHoldsItself()
{
    QFETCH(const QVariant, value);
    QFETCH(const bool, doubled);
    QFETCH(const bool, expected);
    Properties table{entry("a", 1), entry("b", value), entry(doubled ? "b" : "c", value), entry(nullptr)};
    QCOMPARE(prepared(table.data())->holdsItself, expected);
    table[1] = table[2] = entry("b", 1);
    table[2].key = "c";
    QVERIFY(prepared(table.data())->holdsItself);
}

void TstCatalogueTable::valueOfAHostsTypeIsComparedEachTime()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QVERIFY(QMetaType::registerEqualsComparator<Moody>());
#endif
    const Properties table{entry("a", QVariant::fromValue(Moody())), entry(nullptr)};
    for (const bool expected : {true, false, true}) {
        Moody::equalsItself = expected;
        QCOMPARE(prepared(table.data())->holdsItself, expected);
    }
}

// Tables that lie together, so that some begin where others have a row in the midst.
void TstCatalogueTable::manyMoreTablesThanAreKept()
{
    constexpr int tables = 400;
    Properties together;
    for (int i = 0; i < tables; ++i) {
        together.push_back(entry("b", i));
        together.push_back(entry("a", -i));
        together.push_back(entry(nullptr));
    }
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < tables; ++i) {
            const EffectDefaultVal* table = &together[3 * std::size_t(i)];
            QCOMPARE(described(prepared(table)),
                     (QStringList{QStringLiteral("a=%1").arg(-i), QStringLiteral("b=%1").arg(i)}));
            QCOMPARE(described(prepared(table + 1)), QStringList(QStringLiteral("a=%1").arg(-i)));
            QVERIFY(prepared(table + 2)->rows.isEmpty());
        }
    }
}

QTEST_GUILESS_MAIN(TstCatalogueTable)

#include "tst_cataloguetable.moc"
