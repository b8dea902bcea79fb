// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <limits>

#include <QBitArray>
#include <QCryptographicHash>
#include <QtTest>

#include "guardedini_p.h"

using guardedini::Entries;
using guardedini::Merge;

namespace {

/// \a body with the first and the last line that make it a whole file.
QByteArray sealed(const QByteArray& body)
{
    const QByteArray text = "; Custom defaults of effects. Kept by the program: the last line is a checksum.\n" + body;
    return text + "; sha1 " + QCryptographicHash::hash(text, QCryptographicHash::Sha1).toHex() + '\n';
}

} // namespace

/// The last value that is still accepted, and the first that is not, at the limits of the store's file.
class TstStoreFileLimits : public QObject {
    Q_OBJECT

private slots:
    void streamOfAnotherLengthIsDamaged_data();
    void streamOfAnotherLengthIsDamaged();
    void escapeAtTheEndOfTheFileIsDamaged();
    void entryThatIsNotOpenedIsDamaged();
    void bitsTakeWholeBytes_data();
    void bitsTakeWholeBytes();
    void hashNestsAsDeepAsAMap();
    void keyOfTheOutermostLettersIsBare();
    void keyBesideTheLettersIsQuoted_data();
    void keyBesideTheLettersIsQuoted();
    void entryWithTooLongAKeyIsLeftOut_data();
    void entryWithTooLongAKeyIsLeftOut();
    void propertyWithTooLongAKeyIsLeftOut_data();
    void propertyWithTooLongAKeyIsLeftOut();
};

void TstStoreFileLimits::streamOfAnotherLengthIsDamaged_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("polygon of three bytes") << QByteArray("QPolygon 000000");
    QTest::newRow("exact polygon of one byte") << QByteArray("QPolygonF 00");
    QTest::newRow("bits of three bytes") << QByteArray("QBitArray 000000");
    QTest::newRow("keys of two bytes") << QByteArray("QKeySequence 0000");
    QTest::newRow("four keys of which one is missing") << "QKeySequence 00000004" + QByteArray("00000041").repeated(3);
    QTest::newRow("keys of other digits") << QByteArray("QKeySequence 0000000g");
    QTest::newRow("font of other digits") << QByteArray("QFont \"Tahoma\" 0g");
}

void TstStoreFileLimits::streamOfAnotherLengthIsDamaged()
{
    QFETCH(QByteArray, value);
    QVERIFY(!guardedini::parsed(sealed("[T]\np=" + value + "\n")));
}

void TstStoreFileLimits::escapeAtTheEndOfTheFileIsDamaged()
{
    QVERIFY(!guardedini::parsed(sealed("[T]\np=QString \"\\u00")));
}

void TstStoreFileLimits::entryThatIsNotOpenedIsDamaged()
{
    QVERIFY(!guardedini::parsed(sealed("T]\np=int 1\n")));
    QVERIFY(guardedini::parsed(sealed("[T]\np=int 1\n")));
}

void TstStoreFileLimits::bitsTakeWholeBytes_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("one") << 1 << QByteArray("0000000101");
    QTest::newRow("a byte") << 8 << QByteArray("00000008ff");
    QTest::newRow("a byte and one") << 9 << QByteArray("00000009ff01");
    QTest::newRow("two bytes and one") << 17 << QByteArray("00000011ffff01");
    QTest::newRow("eight bytes") << 64 << QByteArray("00000040ffffffffffffffff");
}

void TstStoreFileLimits::bitsTakeWholeBytes()
{
    QFETCH(int, count);
    QFETCH(QByteArray, text);
    const std::optional<Entries> read = guardedini::parsed(sealed("[T]\n=QBitArray " + text + "\n"));
    QVERIFY(read);
    QCOMPARE(read->value(QStringLiteral("T")).toBitArray(), QBitArray(count, true));
}

void TstStoreFileLimits::hashNestsAsDeepAsAMap()
{
    QVariant value = 1;
    for (int depth = 1; depth <= 32; ++depth)
        value = QVariantHash{{QStringLiteral("h"), value}};
    const Merge deepest = guardedini::merged({}, {{QStringLiteral("T"), value}});
    QCOMPARE(deepest.file, sealed("[T]\n=" + QByteArray("QVariantHash {h=").repeated(32) + "int 1"
                                  + QByteArray("}").repeated(32) + "\n"));
    QVERIFY(guardedini::parsed(deepest.file));

    value = QVariantHash{{QStringLiteral("h"), value}};
    QCOMPARE(guardedini::merged({}, {{QStringLiteral("T"), value}}).leftOut.keys(), QStringList(QStringLiteral("T")));
}

void TstStoreFileLimits::keyOfTheOutermostLettersIsBare()
{
    QCOMPARE(guardedini::merged({}, {{QStringLiteral("azAZ09_"), 1}}).file, sealed("[azAZ09_]\n=int 1\n"));
}

void TstStoreFileLimits::keyBesideTheLettersIsQuoted_data()
{
    QTest::addColumn<QChar>("letter");
    for (const char letter : {'/', ':', '@', '[', '^', '`', '{'}) {
        const QChar beside = QLatin1Char(letter);
        QTest::newRow(QByteArray(1, letter).constData()) << beside;
    }
}

void TstStoreFileLimits::keyBesideTheLettersIsQuoted()
{
    QFETCH(QChar, letter);
    const QByteArray quoted = '"' + QString(letter).toUtf8() + '"';
    QCOMPARE(guardedini::merged({}, {{QString(letter), 1}}).file, sealed("[" + quoted + "]\n=int 1\n"));
}

void TstStoreFileLimits::entryWithTooLongAKeyIsLeftOut_data()
{
    QTest::addColumn<QString>("key");
    constexpr int tooMany = 2 * 1024 * 1024;
    QTest::newRow("word") << QString(tooMany + 1, QLatin1Char('k'));
    QTest::newRow("word that only its bracket makes too long") << QString(tooMany, QLatin1Char('k'));
    QTest::newRow("in quotes") << QString(tooMany + 1, QLatin1Char('/'));
}

void TstStoreFileLimits::entryWithTooLongAKeyIsLeftOut()
{
    QFETCH(QString, key);
    const Merge written = guardedini::merged({}, {{key, 1}, {QStringLiteral("Short"), 2}});
    QCOMPARE(written.file, sealed("[Short]\n=int 2\n"));
    QCOMPARE(written.leftOut.keys(), QStringList(key));
    QCOMPARE(written.entries.keys(), QStringList(QStringLiteral("Short")));
}

void TstStoreFileLimits::propertyWithTooLongAKeyIsLeftOut_data()
{
    entryWithTooLongAKeyIsLeftOut_data();
}

void TstStoreFileLimits::propertyWithTooLongAKeyIsLeftOut()
{
    QFETCH(QString, key);
    const Entries changes{{QStringLiteral("Long"), QVariantMap{{key, 1}}}, {QStringLiteral("Short"), 2}};
    const Merge written = guardedini::merged({}, changes);
    QCOMPARE(written.file, sealed("[Short]\n=int 2\n"));
    QCOMPARE(written.leftOut.keys(), QStringList(QStringLiteral("Long")));
}

QTEST_GUILESS_MAIN(TstStoreFileLimits)

#include "tst_storefile_limits.moc"
