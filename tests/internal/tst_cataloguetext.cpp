// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <array>

#include <QtTest>

#include "cataloguetext_p.h"

class TstCatalogueText : public QObject {
    Q_OBJECT

private slots:
    void textEqualsWhatTheBytesSay_data();
    void textEqualsWhatTheBytesSay();
    void shortTextsEqualWhatQtReads();
    void stringIsWhatTheBytesSay_data();
    void stringIsWhatTheBytesSay();
    void shortStringIsKept_data();
    void shortStringIsKept();
    void textChangedInPlaceIsReadAnew();
    void textThatGetsLongerOrShorterIsReadAnew();
    void sameTextElsewhereIsTheSame();
    void manyMoreTextsThanAreKept();
};

void TstCatalogueText::textEqualsWhatTheBytesSay_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("utf8");
    QTest::addColumn<bool>("expected");

    const auto row = [](const char* name, const QString& text, const QByteArray& utf8, bool expected) {
        QTest::newRow(name) << text << utf8 << expected;
    };
    row("ASCII", QStringLiteral("Watermark"), "Watermark", true);
    row("other case", QStringLiteral("Watermark"), "watermark", false);
    row("other last letter", QStringLiteral("Crop"), "Crow", false);
    row("text is longer", QStringLiteral("Crops"), "Crop", false);
    row("text is shorter", QStringLiteral("Cro"), "Crop", false);
    row("both empty", QLatin1String(""), "", true);
    row("null text", QString(), "", true);
    row("empty text", QString(), "a", false);
    row("empty bytes", QStringLiteral("a"), "", false);
    row("DEL", QString(QChar(0x7F)), "\x7F", true);
    row("two bytes", QString(QChar(0xE9)), "\xC3\xA9", true);
    row("letter of Latin-1 as one byte", QString(QChar(0xE9)), "\xE9", false);
    row("first letter beyond ASCII as one byte", QString(QChar(0x80)), "\x80", false);
    row("three bytes", QString(QChar(0x20AC)), "\xE2\x82\xAC", true);
    row("four bytes", QString::fromUcs4(U"\U0001F3AC", 1), "\xF0\x9F\x8E\xAC", true);
    row("half of a pair", QString(QChar(0xD83C)), "\xF0\x9F\x8E\xAC", false);
    row("ASCII before and behind", QStringLiteral("a\u00E9z"), "a\xC3\xA9z", true);
    row("text ends before two bytes", QStringLiteral("a"), "a\xC3\xA9", false);
    row("bytes end before a letter", QStringLiteral("a\u00E9"), "a", false);
    row("other letter beyond ASCII", QStringLiteral("a\u00E8"), "a\xC3\xA9", false);
    row("ASCII against two bytes", QStringLiteral("ab"), "a\xC3\xA9", false);
    row("two bytes against ASCII", QStringLiteral("a\u00E9"), "ab", false);
    row("invalid byte", QStringLiteral("a\uFFFDz"), "a\xFFz", true);
    row("invalid byte, other letter", QStringLiteral("a\u00FFz"), "a\xFFz", false);
    row("cut short", QStringLiteral("a\uFFFD"), "a\xC3", true);
    row("mark at the begin", QStringLiteral("a"),
        "\xEF\xBB\xBF"
        "a",
        true);
    row("mark alone", QLatin1String(""), "\xEF\xBB\xBF", true);
    row("null letter at the end", QString(QStringLiteral("Crop")) + QChar(0), "Crop", false);
    row("null letter inside", QStringLiteral("Cr") + QChar(0) + QStringLiteral("op"), "Cr", false);
    row("null letter alone", QString(QChar(0)), "", false);
}

void TstCatalogueText::textEqualsWhatTheBytesSay()
{
    QFETCH(const QString, text);
    QFETCH(const QByteArray, utf8);
    QFETCH(const bool, expected);

    QCOMPARE(cataloguetext::equals(text, utf8.constData()), expected);
}

void TstCatalogueText::shortTextsEqualWhatQtReads()
{
    const QByteArray bytes("a\x01\x7F\x80\xA9\xBB\xBF\xC3\xE9\xEF\xFF");
    QVector<QByteArray> texts{QByteArray()};
    for (int i = 0; texts.at(i).size() < 3; ++i) {
        for (const char byte : bytes)
            texts.append(texts.at(i) + byte);
    }
    QStringList strings;
    for (const QByteArray& text : std::as_const(texts))
        strings << QString::fromUtf8(text.constData());
    int differing = 0;
    for (int i = 0; i < texts.size(); ++i) {
        for (int j = 0; j < strings.size(); ++j)
            differing +=
                cataloguetext::equals(strings.at(j), texts.at(i).constData()) != (strings.at(j) == strings.at(i));
    }
    QCOMPARE(differing, 0);
}

void TstCatalogueText::stringIsWhatTheBytesSay_data()
{
    QTest::addColumn<QByteArray>("utf8");
    QTest::addColumn<QString>("expected");

    QTest::newRow("ASCII") << QByteArray("Watermark") << QStringLiteral("Watermark");
    QTest::newRow("empty") << QByteArray("") << QString("");
    QTest::newRow("beyond ASCII") << QByteArray("\xC3\xA9\xE2\x82\xAC") << QStringLiteral("\u00E9\u20AC");
    QTest::newRow("invalid") << QByteArray("a\xFF") << QStringLiteral("a\uFFFD");
    for (const int length : {62, 63, 64, 65, 1000})
        QTest::newRow(qPrintable(QStringLiteral("%1 bytes").arg(length)))
            << QByteArray(length, 'x') << QString(length, QLatin1Char('x'));
}

void TstCatalogueText::stringIsWhatTheBytesSay()
{
    QFETCH(const QByteArray, utf8);
    QFETCH(const QString, expected);

    for (int i = 0; i < 3; ++i) {
        const QString string = cataloguetext::string(utf8.constData());
        QCOMPARE(string, expected);
        QVERIFY(!string.isNull());
    }
}

void TstCatalogueText::shortStringIsKept_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("expected");

    QTest::newRow("a few bytes") << 9 << true;
    QTest::newRow("63 bytes") << 63 << true;
    QTest::newRow("64 bytes") << 64 << false;
    QTest::newRow("65 bytes") << 65 << false;
}

void TstCatalogueText::shortStringIsKept()
{
    QFETCH(const int, length);
    QFETCH(const bool, expected);

    const QByteArray utf8(length, 'k');
    const QString first = cataloguetext::string(utf8.constData());
    const QString second = cataloguetext::string(utf8.constData());
    QCOMPARE(second, first);
    QCOMPARE(first.constData() == second.constData(), expected);
}

void TstCatalogueText::textChangedInPlaceIsReadAnew()
{
    char utf8[] = "Crop";
    QString before = cataloguetext::string(utf8);
    utf8[0] = 'D';
    QCOMPARE(cataloguetext::string(utf8), QStringLiteral("Drop"));
    QCOMPARE(before, QStringLiteral("Crop"));
    utf8[0] = 'C';
    QCOMPARE(cataloguetext::string(utf8), QStringLiteral("Crop"));
    before[0] = QLatin1Char('X'); // What is kept does not change with it.
    QCOMPARE(cataloguetext::string(utf8), QStringLiteral("Crop"));
}

void TstCatalogueText::textThatGetsLongerOrShorterIsReadAnew()
{
    std::array<char, 101> utf8{};
    for (const std::size_t length : {4U, 3U, 5U, 0U, 63U, 64U, 63U, 100U, 62U, 1U}) {
        utf8.fill('x');
        utf8[length] = 0;
        for (int i = 0; i < 2; ++i)
            QCOMPARE(cataloguetext::string(utf8.data()), QString(static_cast<int>(length), QLatin1Char('x')));
    }
}

void TstCatalogueText::sameTextElsewhereIsTheSame()
{
    const char inner[] = "FrameEffect";
    const QByteArray other(inner);
    QCOMPARE(cataloguetext::string(inner), QStringLiteral("FrameEffect"));
    QCOMPARE(cataloguetext::string(other.constData()), QStringLiteral("FrameEffect"));
    QCOMPARE(cataloguetext::string(inner + 5), QStringLiteral("Effect")); // Begins inside of the other.
    QCOMPARE(cataloguetext::string(inner), QStringLiteral("FrameEffect"));
}

void TstCatalogueText::manyMoreTextsThanAreKept()
{
    QVector<QByteArray> texts;
    for (int i = 0; i < 3000; ++i)
        texts.append("text " + QByteArray::number(i));
    const QString held = cataloguetext::string(texts.at(0).constData());
    for (int round = 0; round < 3; ++round) {
        for (int i = 0; i < texts.size(); ++i)
            QCOMPARE(cataloguetext::string(texts.at(i).constData()), QStringLiteral("text %1").arg(i));
    }
    QCOMPARE(held, QStringLiteral("text 0"));
}

QTEST_GUILESS_MAIN(TstCatalogueText)

#include "tst_cataloguetext.moc"
