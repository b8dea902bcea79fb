// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QtTest>

#include "propertyvalues_p.h"
#include "zoeffectitemdata.h"

using Values = QMap<QString, QVariant>;

class TstPropertyValues : public QObject {
    Q_OBJECT

private slots:
    void valueIsFoundWhereItIsStored();
    void valueIsStoredInPlace();
    void absentValueIsStored();
    void storingDoesNotReachWhatSharesTheValues();
    void valueOfAnotherKeyIsKept();
    void ownValueCanBeStored();
    void sharedValuesChangeOnOneSideOnly();
    void valuesAreStoredInOneWalk_data();
    void valuesAreStoredInOneWalk();
    void missingValueComparesAsTheNodeReadsIt();
    void walkFindsAscendingKeys_data();
    void walkFindsAscendingKeys();
    void walkFindsWhatFindDoes();
};

namespace {

QVariant valueAt(const QVariant* value)
{
    return value ? *value : QVariant(QStringLiteral("none"));
}

/// A key whose letters no other string shares.
QString ownLetters(const char* key)
{
    return QString::fromUtf8(key);
}

const QString width = QStringLiteral("width");

} // namespace

void TstPropertyValues::valueIsFoundWhereItIsStored()
{
    ZoEffectItemData node(QStringLiteral("node"));
    QVERIFY(!propertyvalues::find(node, width));
    node.setData(width, 12);
    node.setData(QString(), QStringLiteral("of the empty key"));
    node.setData(QStringLiteral("height"), QVariant());
    QCOMPARE(valueAt(propertyvalues::find(node, ownLetters("width"))), QVariant(12));
    QCOMPARE(propertyvalues::find(node, width), &node.properties().constFind(width).value());
    QCOMPARE(valueAt(propertyvalues::find(node, QLatin1String(""))), QVariant(QStringLiteral("of the empty key")));
    QVERIFY(propertyvalues::find(node, QStringLiteral("height")));
    QVERIFY(!propertyvalues::find(node, QStringLiteral("height"))->isValid());
    QVERIFY(!propertyvalues::find(node, QStringLiteral("widt")));
    QVERIFY(!propertyvalues::find(node, QStringLiteral("trackid"))); // Only the node itself reads it as -1.
}

void TstPropertyValues::valueIsStoredInPlace()
{
    ZoEffectItemData node(QStringLiteral("node"));
    node.setData(width, 12);
    const QVariant* const present = propertyvalues::find(node, width);
    propertyvalues::store(node, width, QStringLiteral("wide"), present);
    QCOMPARE(node.properties(), (Values{{width, QStringLiteral("wide")}}));
    QCOMPARE(propertyvalues::find(node, width), present);
}

void TstPropertyValues::absentValueIsStored()
{
    ZoEffectItemData node(QStringLiteral("node"));
    propertyvalues::store(node, width, 12, nullptr);
    QCOMPARE(node.properties(), (Values{{width, 12}}));
    // Null also where the value is present.
    propertyvalues::store(node, width, 13, nullptr);
    QCOMPARE(node.properties(), (Values{{width, 13}}));
}

void TstPropertyValues::storingDoesNotReachWhatSharesTheValues()
{
    ZoEffectItemData node(QStringLiteral("node"));
    node.setData(width, 12);
    const Values taken = node.properties();
    const ZoEffectItemData copy(node);
    ZoEffectItemData assigned(QStringLiteral("other"));
    assigned = node;

    propertyvalues::store(node, width, 13, propertyvalues::find(node, width));
    QCOMPARE(node.properties(), (Values{{width, 13}}));
    QCOMPARE(taken, (Values{{width, 12}}));
    QCOMPARE(copy.properties(), (Values{{width, 12}}));
    QCOMPARE(assigned.properties(), (Values{{width, 12}}));

    // The node's values are its own by now; those of the others are still shared.
    propertyvalues::store(node, width, 14, propertyvalues::find(node, width));
    propertyvalues::store(assigned, width, 15, propertyvalues::find(assigned, width));
    QCOMPARE(node.properties(), (Values{{width, 14}}));
    QCOMPARE(assigned.properties(), (Values{{width, 15}}));
    QCOMPARE(taken, (Values{{width, 12}}));
    QCOMPARE(copy.properties(), (Values{{width, 12}}));
}

void TstPropertyValues::valueOfAnotherKeyIsKept()
{
    ZoEffectItemData node(QStringLiteral("node"));
    for (int i = 0; i < 100; ++i)
        node.setData(QString::number(i), i);
    propertyvalues::store(node, QStringLiteral("50"), -1, propertyvalues::find(node, QStringLiteral("50")));
    QCOMPARE(node.properties().size(), 100);
    for (int i = 0; i < 100; ++i)
        QCOMPARE(node.data(QString::number(i)), QVariant(i == 50 ? -1 : i));
}

void TstPropertyValues::ownValueCanBeStored()
{
    ZoEffectItemData node(QStringLiteral("node"));
    node.setData(width, QStringLiteral("wide"));
    const QVariant* const present = propertyvalues::find(node, width);
    propertyvalues::store(node, width, *present, present);
    QCOMPARE(node.data(width), QVariant(QStringLiteral("wide")));
}

void TstPropertyValues::sharedValuesChangeOnOneSideOnly()
{
    Values values{{width, 12}};
    ZoEffectItemData first(QStringLiteral("first"));
    ZoEffectItemData second(QStringLiteral("second"));
    first.setData(QStringLiteral("goes"), 1);
    for (ZoEffectItemData* node : {&first, &second}) {
        propertyvalues::share(*node, values);
        QCOMPARE(node->properties(), (Values{{width, 12}}));
    }
    propertyvalues::store(first, width, 13, propertyvalues::find(first, width));
    second.setData(QStringLiteral("height"), 5);
    values.insert(width, 14);
    QCOMPARE(first.properties(), (Values{{width, 13}}));
    QCOMPARE(second.properties(), (Values{{width, 12}, {QStringLiteral("height"), 5}}));
    QCOMPARE(values, (Values{{width, 14}}));
    propertyvalues::share(first, first.properties());
    QCOMPARE(first.properties(), (Values{{width, 13}}));
}

void TstPropertyValues::valuesAreStoredInOneWalk_data()
{
    QTest::addColumn<Values>("before");
    QTest::addColumn<Values>("values");
    QTest::addColumn<Values>("after");

    const QString b = QStringLiteral("b");
    const QString d = QStringLiteral("d");
    QTest::newRow("into nothing") << Values{} << Values{{b, 1}, {d, 2}} << Values{{b, 1}, {d, 2}};
    QTest::newRow("nothing") << Values{{b, 1}} << Values{} << Values{{b, 1}};
    QTest::newRow("same keys") << Values{{b, 1}, {d, 2}} << Values{{b, 3}, {d, 4}} << Values{{b, 3}, {d, 4}};
    QTest::newRow("before") << Values{{d, 2}} << Values{{QStringLiteral("a"), 1}, {b, 2}}
                            << Values{{QStringLiteral("a"), 1}, {b, 2}, {d, 2}};
    QTest::newRow("between") << Values{{b, 1}, {d, 2}} << Values{{QStringLiteral("c"), 3}}
                             << Values{{b, 1}, {QStringLiteral("c"), 3}, {d, 2}};
    QTest::newRow("behind") << Values{{b, 1}} << Values{{d, 2}, {QStringLiteral("e"), 3}}
                            << Values{{b, 1}, {d, 2}, {QStringLiteral("e"), 3}};
    QTest::newRow("in turn") << Values{{b, 1}, {d, 2}}
                             << Values{{QStringLiteral("a"), 5}, {b, 6}, {QStringLiteral("c"), 7}, {d, 8}}
                             << Values{{QStringLiteral("a"), 5}, {b, 6}, {QStringLiteral("c"), 7}, {d, 8}};
    QTest::newRow("empty key") << Values{{b, 1}} << Values{{QString(), 2}} << Values{{QString(), 2}, {b, 1}};
    QTest::newRow("invalid value") << Values{{b, 1}} << Values{{b, QVariant()}} << Values{{b, QVariant()}};
}

void TstPropertyValues::valuesAreStoredInOneWalk()
{
    QFETCH(const Values, before);
    QFETCH(const Values, values);
    QFETCH(const Values, after);
    ZoEffectItemData node(QStringLiteral("node"));
    propertyvalues::share(node, before);
    const ZoEffectItemData copy(node);
    propertyvalues::storeAll(node, values);
    QCOMPARE(node.properties(), after);
    QCOMPARE(node.properties().keys(), after.keys());
    QCOMPARE(copy.properties(), before);
}

void TstPropertyValues::missingValueComparesAsTheNodeReadsIt()
{
    const QString trackId = QStringLiteral("trackid");
    ZoEffectItemData node(QStringLiteral("node"));
    QVERIFY(propertyvalues::equals(node, trackId, nullptr, -1));
    QVERIFY(!propertyvalues::equals(node, trackId, nullptr, QVariant()));
    QVERIFY(propertyvalues::equals(node, width, nullptr, QVariant()));
    QVERIFY(!propertyvalues::equals(node, width, nullptr, 0));
    const QVariant stored = 5;
    QVERIFY(propertyvalues::equals(node, width, &stored, QStringLiteral("5")));
    QVERIFY(!propertyvalues::equals(node, width, &stored, 6));
}

void TstPropertyValues::walkFindsAscendingKeys_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QStringList>("asked");
    QTest::addColumn<QStringList>("expected");

    const auto row = [](const char* name, const char* present, const char* asked, const char* expected) {
        const auto list = [](const char* text) {
            return *text ? QString::fromUtf8(text).split(QLatin1Char(' ')) : QStringList();
        };
        QTest::newRow(name) << list(present) << list(asked) << list(expected);
    };
    row("no values", "", "a b", "none none");
    row("all", "a b c", "a b c", "a b c");
    row("before", "c d", "a b", "none none");
    row("behind", "c d", "e f", "none none");
    row("between", "b d f", "c e", "none none");
    row("before, at, between and behind", "b d f", "a b c d e f g", "none b none d none f none");
    row("some are passed over", "a b c d e", "b e", "b e");
    row("the same twice", "a b c", "b b c c", "b b c c");
    row("absent one twice", "a c", "b b c", "none none c");
    row("behind the end twice", "a", "a b b", "a none none");
    row("longer begins like shorter", "ab", "a ab abc", "none ab none");
    row("shorter stands before longer", "a ab abc", "a abc", "a abc");
    row("order of letters beyond ASCII", "Z a \xC3\xA9", "Z \xC3\xA9 \xE2\x82\xAC", "Z \xC3\xA9 none");
}

void TstPropertyValues::walkFindsAscendingKeys()
{
    QFETCH(const QStringList, present);
    QFETCH(const QStringList, asked);
    QFETCH(const QStringList, expected);

    ZoEffectItemData node(QStringLiteral("node"));
    for (const QString& key : present)
        node.setData(key, key);
    propertyvalues::Finder sharing(node);
    propertyvalues::Finder owning(node);
    QStringList found;
    QStringList foundByOwn;
    for (const QString& key : asked) {
        const int index = static_cast<int>(present.indexOf(key));
        found << valueAt(sharing.find(index < 0 ? key : present.at(index))).toString();
        foundByOwn << valueAt(owning.find(QString(key.constData(), key.size()))).toString();
    }
    QCOMPARE(found, expected);
    QCOMPARE(foundByOwn, expected);
}

// Also where two keys share letters and differ in length.
void TstPropertyValues::walkFindsWhatFindDoes()
{
    const QString letters(100, QLatin1Char('k'));
    ZoEffectItemData node(QStringLiteral("node"));
    for (int length = 0; length < 100; length += 3)
        node.setData(QString::fromRawData(letters.constData(), length), length);
    propertyvalues::Finder finder(node);
    for (int length = 0; length <= 100; ++length) {
        const QVariant* const found = finder.find(QString::fromRawData(letters.constData(), length));
        QCOMPARE(valueAt(found), length % 3 == 0 ? QVariant(length) : QVariant(QStringLiteral("none")));
        QCOMPARE(found, propertyvalues::find(node, QString(length, QLatin1Char('k'))));
    }
}

QTEST_GUILESS_MAIN(TstPropertyValues)

#include "tst_propertyvalues.moc"
