// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The meaning of values: what equals what, and what converts to what. All expectations are Qt 5.15's own answers
// on 64-bit x86; they hold on every Qt and processor.

#include <limits>

#include <QBitmap>
#include <QDateTime>
#include <QGuiApplication>
#include <QKeySequence>
#include <QPixmap>
#include <QUrl>
#include <QUuid>
#include <QVector>
#include <QtTest>

#include "qtcompat_p.h"

#include "../support/rows.h"

namespace {

constexpr int smallest = std::numeric_limits<int>::min();
constexpr qulonglong largest = std::numeric_limits<qulonglong>::max();

// All digits, so that neighbouring doubles differ.
QString exact(double number)
{
    return QString::number(number, 'g', 17);
}

QVariant nullOf(int type)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QVariant(static_cast<QVariant::Type>(type));
#else
    return QVariant(QMetaType(type));
#endif
}

// "Tahoma, 12 points, 50, italic", with pixels where the size is in pixels.
QString described(const QFont& font)
{
    QStringList parts{font.family()};
    parts << (font.pixelSize() > 0 ? QStringLiteral("%1 pixels").arg(font.pixelSize())
                                   : QStringLiteral("%1 points").arg(font.pointSizeF()));
    if (font.bold())
        parts << QStringLiteral("bold");
    if (font.italic())
        parts << QStringLiteral("italic");
    if (font.underline())
        parts << QStringLiteral("underlined");
    if (font.strikeOut())
        parts << QStringLiteral("struck out");
    if (font.fixedPitch())
        parts << QStringLiteral("fixed");
    if (!font.styleName().isEmpty())
        parts << font.styleName();
    return parts.join(QStringLiteral(", "));
}

QFont tahoma(void (*change)(QFont&))
{
    QFont font(QStringLiteral("Tahoma"), 12);
    change(font);
    return font;
}

/// Types of a host, without operator==.
struct Small {
    int number;
};
struct Large {
    qint64 numbers[8];
};

} // namespace

Q_DECLARE_METATYPE(Small)
Q_DECLARE_METATYPE(Large)

class TstQtCompat : public QObject {
    Q_OBJECT

private slots:
    void orderOfComparison_data()
    {
        addRows<QVariant, QVariant, bool, bool>({
            {"tolerance met", 1e6, 1e6 + 0.9e-6, true, true},
            {"tolerance exceeded", 1e6, 1e6 + 1.2e-6, false, false},
            {"tolerance met by an integer", 5, 5.000000000001, true, true},
            {"tolerance met by a signed char", QVariant::fromValue(static_cast<signed char>(5)), 5.000000000001, true,
             true},
            {"tolerance met by an unsigned long", QVariant::fromValue(5UL), 5.000000000001, true, true},
            {"tolerance met by a huge integer", std::numeric_limits<qlonglong>::max(), 9223372036854774784.0, true,
             true},
            {"tolerance is relative", 1e-20, 1.1e-20, false, false},
            {"nothing is close to zero", 0.0, 1e-300, false, false},
            {"infinity and the largest", qInf(), 1.7e308, false, false},
            {"float tenth and its own double", 0.1F, double(0.1F), true, true},
            {"float half and close double", 0.5F, 0.49999999999999994, true, true},
            {"text has no tolerance", 0.3, "0.30000000000000004", false, false},
            {"text that rounds to the same float", 0.1F, "0.100000001", true, false},
            {"text too large for a float", float(qInf()), "1e308", false, false},
            {"text too small for a float", 0.0F, "1e-50", false, false},
            {"text infinite as a float", float(qInf()), "inf", true, true},
            {"text NaN", qQNaN(), "nan", false, true},
            {"text beyond a double", qInf(), "1e400", false, false},
            {"100000 and its text", 100000.0, "100000", true, true},
            {"text of 100000 with exponent", 100000.0, "1e+05", true, false},
            {"0.0001 and bytes", 0.0001, QByteArray("0.0001"), true, true},
            {"negative and unsigned number", -1, 4294967295U, true, true},
            {"negative int and wide unsigned number", -1, largest, true, true},
            {"negative qlonglong and unsigned number", qlonglong(-1), 4294967295U, false, false},
            {"true and any text", true, "abc", true, false},
            {"colour and its name", QColor(Qt::white), "#ffffff", true, true},
            {"true and a space", true, " ", true, false},
            {"false and a space", false, " ", false, false},
            {"bool and character 0", true, QChar('0'), true, true},
            {"text wraps around in an int", 1410065408, "10000000000", true, false},
            {"typographic minus", -5, QString::fromUtf8("\u22125"), true, false},
            {"text with group separator", 1000, "1,000", false, false},
            {"wide digit", 5, QString::fromUtf8("\uff15"), false, false},
            {"character and its number", QChar('A'), 65, true, true},
            {"character and its double", QChar('A'), 65.0, false, false},
            {"char and its number", QVariant::fromValue('A'), 65, true, true},
            {"character and a longer text", QChar('A'), "AB", false, false},
            {"char and bytes", QVariant::fromValue('A'), QByteArray("A"), false, true},
            {"byte and text", QVariant::fromValue(uchar(65)), "A", false, false},
            {"long and its text with a zero", QVariant::fromValue(5L), "05", true, true},
            {"long and bytes with a zero", QVariant::fromValue(5L), QByteArray("05"), true, true},
            {"unsigned long and its text with a zero", QVariant::fromValue(5UL), "05", true, true},
            {"character cut to a byte", QChar(0x141), QVariant::fromValue(uchar(0x41)), true, true},
            {"long not cut to a character", QChar(0x41), QVariant::fromValue(0x10041L), false, false},
            {"unsigned long not cut to a character", QChar(0x41), QVariant::fromValue(0x10041UL), false, false},
            {"signed char and bytes", QVariant::fromValue(static_cast<signed char>(65)), QByteArray("A"), false, true},
            {"float 100000 and its text", 100000.0F, "100000", true, true},
            {"float and its character", 65.0F, QChar('A'), false, false},
            {"bytes too small for a float", 0.0F, QByteArray("1e-50"), false, false},
            {"text and bytes of UTF-8", QString::fromUtf8("\u00e4"), QByteArray("\xc3\xa4"), true, true},
            {"bytes end at the null byte", "a", QByteArray("a\0b", 3), true, false},
            {"colour names in any case", QColor(Qt::red), "RED", true, false},
            {"colour with alpha", QColor(255, 0, 0, 128), "#80ff0000", true, true},
            {"no colour text", QColor(), "nothing", false, false},
            {"no colour bytes", QColor(), QByteArray("nothing"), true, false},
            {"colour of another model", QColor(Qt::white), QColor::fromHsv(0, 0, 255), false, false},
            {"font of another size", QFont("Tahoma", 12), QFont("Tahoma", 13), false, false},
            {"font and its family", QFont("Tahoma"), "Tahoma", true, false},
            {"font and family with size", QFont("Tahoma", 22), "Tahoma,22", true, false},
            {"default font and empty text", QFont(), "", true, false},
            {"default font and broken text", QFont(), "Tahoma,12,-1", true, false},
            {"default font and text of twelve fields", QFont(), "Tahoma,12,-1,5,50,0,0,0,0,0,Regular,1", true, false},
            {"font and text of nine fields", QFont("Tahoma", 12), "Tahoma,12,5,50,0,0,0,0,0", true, false},
            {"catalogue's font", QFont("Tahoma", -1, -1, false), "Tahoma,12,-1,5,50,0,0,0,0,0", true, true},
            {"font and bytes", QFont("Tahoma"), QByteArray("Tahoma"), false, false},
            {"list: true is any text", QVariantList{true}, QVariantList{"abc"}, true, false},
            {"list: nested rule", QVariantList{QVariant(QVariantList{true})},
             QVariantList{QVariant(QVariantList{"abc"})}, true, false},
            {"list of numbers and texts", QVariantList{100000.0, 5}, QStringList{"100000", "5"}, true, true},
            {"map: white and its name", QVariantMap{{"a", QColor(Qt::white)}}, QVariantMap{{"a", "white"}}, true,
             false},
            {"map: invalid entry and none", QVariantMap{{"a", QVariant()}}, QVariantMap(), false, false},
            {"map in a map", QVariantMap{{"a", QVariantMap{{"b", true}}}},
             QVariantMap{{"a", QVariantMap{{"b", "abc"}}}}, true, false},
            {"map and hash inside", QVariantMap{{"a", QVariantMap{{"b", 5}}}},
             QVariantMap{{"a", QVariantHash{{"b", "5"}}}}, true, true},
            {"hash: either order will do", QVariantHash{{"a", true}}, QVariantHash{{"a", "abc"}}, true, true},
            {"hash: more entries", QVariantHash{{"a", 1}}, QVariantHash{{"a", 1}, {"b", 2}}, false, false},
            {"hash and map", QVariantHash{{"a", "abc"}}, QVariantMap{{"a", true}}, true, true},
            {"point rounded", QPoint(1, 3), QPointF(1.4, 2.6), true, false},
            {"time and text without seconds", QTime(12, 34), "12:34", true, false},
            {"time and text with a rest", QTime(12, 34, 56), "12:34:56 o'clock", true, false},
            {"time and text with a fraction", QTime(12, 34, 56, 500), "12:34:56.5", true, false},
            {"time and text with a comma", QTime(12, 34, 56, 500), "12:34:56,5", true, false},
            {"date and its noon", QDate(2020, 2, 29), QDateTime(QDate(2020, 2, 29), QTime(12, 0)), true, false},
            {"invalid date and invalid date and time", QDate(), QDateTime(), false, false},
            {"invalid time and invalid date and time", QTime(), QDateTime(), false, false},
            {"date and time, and text", QDateTime(QDate(2020, 2, 29), QTime(12, 34, 56)), "2020-02-29T12:34:56", true,
             false},
            {"url and encoded text", QUrl("http://a.b/c d"), "http://a.b/c%20d", true, false},
            {"uuid and text in capitals", QUuid("{67c8770b-44f1-410a-ab9a-f9b5446f13ee}"),
             "{67C8770B-44F1-410A-AB9A-F9B5446F13EE}", true, false},
            {"uuid and bytes", QUuid("{67c8770b-44f1-410a-ab9a-f9b5446f13ee}"),
             QByteArray("{67c8770b-44f1-410a-ab9a-f9b5446f13ee}"), true, true},
            {"null uuid and any text", QUuid(), "abc", true, false},
            {"key sequence and its number", QKeySequence(Qt::Key_A), 65, true, true},
        });
    }

    void orderOfComparison()
    {
        const auto [first, second, firstEqualsSecond, secondEqualsFirst] = row<QVariant, QVariant, bool, bool>();
        QCOMPARE(qtcompat::equal(first, second), firstEqualsSecond);
        QCOMPARE(qtcompat::equal(second, first), secondEqualsFirst);
    }

    void nullValueComparesButDoesNotConvert_data()
    {
        addRows<int, QVariant, bool, bool>({
            {"double, same type", int(QMetaType::Double), 0.0, true, true},
            {"double and an integer", int(QMetaType::Double), 0, true, true},
            {"double and text", int(QMetaType::Double), "0", true, false},
            {"double and bytes", int(QMetaType::Double), QByteArray("0"), true, false},
            {"int and text", int(QMetaType::Int), "0", true, false},
            {"text, same type", int(QMetaType::QString), "", true, true},
            {"text and bytes", int(QMetaType::QString), QByteArray(), true, false},
            {"text and bool", int(QMetaType::QString), false, false, false},
            {"text and font", int(QMetaType::QString), QFont(), false, false},
            {"bytes and text", int(QMetaType::QByteArray), "", true, false},
            {"bytes and colour", int(QMetaType::QByteArray), QColor(), false, false},
            {"list, same type", int(QMetaType::QVariantList), QVariantList(), true, true},
            {"list and texts", int(QMetaType::QVariantList), QStringList(), true, false},
            {"int and invalid", int(QMetaType::Int), QVariant(), false, false},
        });
    }

    void nullValueComparesButDoesNotConvert()
    {
        const auto [type, other, nullEqualsOther, otherEqualsNull] = row<int, QVariant, bool, bool>();
        const QVariant null = nullOf(type);
        QVERIFY(null.isNull());
        QCOMPARE(qtcompat::equal(null, other), nullEqualsOther);
        QCOMPARE(qtcompat::equal(other, null), otherEqualsNull);
    }

    void textOfANullValueIsThatOfItsContent()
    {
        QCOMPARE(qtcompat::toText(nullOf(QMetaType::Double)), QString("0"));
        QCOMPARE(qtcompat::toText(nullOf(QMetaType::Bool)), QString("false"));
        QCOMPARE(qtcompat::toText(nullOf(QMetaType::QString)), QString());
    }

    void sharedContainerEqualsItselfWhateverIsInIt_data()
    {
        QTest::addColumn<QVariant>("shared");
        QTest::addColumn<QVariant>("other");
        const QVariantList list{qQNaN()};
        const QVariantMap map{{"a", qQNaN()}};
        const QVariantHash hash{{"a", qQNaN()}};
        QTest::newRow("list") << QVariant(list) << QVariant(QVariantList{qQNaN()});
        QTest::newRow("map") << QVariant(map) << QVariant(QVariantMap{{"a", qQNaN()}});
        QTest::newRow("hash") << QVariant(hash) << QVariant(QVariantHash{{"a", qQNaN()}});
    }

    void sharedContainerEqualsItselfWhateverIsInIt()
    {
        QFETCH(QVariant, shared);
        QFETCH(QVariant, other);
        const QVariant copy = shared;
        QVERIFY(qtcompat::equal(shared, copy));
        QVERIFY(!qtcompat::equal(shared, other));
    }

    void pixmapsAreEqualWhenTheyAreOnePicture()
    {
        QPixmap picture(2, 2);
        picture.fill(Qt::red);
        QPixmap sameColour(2, 2);
        sameColour.fill(Qt::red);
        QVERIFY(qtcompat::equal(QVariant(picture), QVariant(QPixmap(picture))));
        QVERIFY(!qtcompat::equal(QVariant(picture), QVariant(sameColour)));
        QVERIFY(!qtcompat::equal(QVariant(picture), QVariant(QPixmap())));
        QVERIFY(qtcompat::equal(QVariant(QPixmap()), QVariant(QPixmap())));
        QVERIFY(qtcompat::equal(QVariant(QBitmap()), QVariant(QBitmap())));
    }

    void valuesWithoutComparisonAreComparedByBytes()
    {
        const QVariant small = QVariant::fromValue(Small{7});
        const QVariant smallCopy = small; // NOLINT(performance-unnecessary-copy-initialization): the copy is the point.
        const QVariant large = QVariant::fromValue(Large{{1, 2, 3, 4, 5, 6, 7, 8}});
        const QVariant largeCopy = large; // NOLINT(performance-unnecessary-copy-initialization)
        QVERIFY(qtcompat::equal(small, smallCopy));
        QVERIFY(qtcompat::equal(large, largeCopy));
        QVERIFY(!qtcompat::equal(small, QVariant::fromValue(Small{8})));
        QVERIFY(qtcompat::equal(small, QVariant::fromValue(Small{7})));
        QVERIFY(qtcompat::equal(large, QVariant::fromValue(Large{{1, 2, 3, 4, 5, 6, 7, 8}})));
        QVERIFY(!qtcompat::equal(large, QVariant::fromValue(Large{{1, 2, 3, 4, 5, 6, 7, 9}})));
        QVERIFY(!qtcompat::equal(small, large));
        QVERIFY(!qtcompat::equal(QVariant(), small));
        QVERIFY(!qtcompat::equal(small, QVariant()));
    }

    void conversions_data()
    {
        addRows<QVariant, bool, int, double, bool, QString>({
            {"positive number", 5, true, 5, 5.0, true, "5"},
            {"highest unsigned number", largest, true, -1, 1.8446744073709552e19, true, "18446744073709551615"},
            {"unsigned number beyond int", 4294967295U, true, -1, 4294967295.0, true, "4294967295"},
            {"number beyond int", qlonglong(10000000000), true, 1410065408, 1e10, true, "10000000000"},
            {"short", QVariant::fromValue(short(-5)), true, -5, -5.0, true, "-5"},
            {"byte", QVariant::fromValue(uchar(200)), true, 200, 200.0, true, "\303\210"},
            {"char", QVariant::fromValue('A'), true, 65, 65.0, true, "A"},
            {"long", QVariant::fromValue(7L), true, 7, 7.0, true, "7"},
            {"float", 0.5F, true, 1, 0.5, true, "0.5"},
            {"float of 100000", 100000.0F, true, 100000, 100000.0, true, "100000"},
            {"negative half as float", -1.5F, true, -1, -1.5, true, "-1.5"},
            {"float above 2^23, rounded in float", 8388609.0F, true, 8388610, 8388609.0, true, "8388609"},
            {"float below 2^24, rounded in float", 12582913.0F, true, 12582914, 12582913.0, true, "12582913"},
            {"float just below a half, rounded in float", 0.49999997F, true, 1, 0.4999999701976776, true,
             "0.4999999701976776"},
            {"float just above minus a half", -0.49999997F, false, 0, -0.4999999701976776, true, "-0.4999999701976776"},
            {"float NaN", float(qQNaN()), false, 0, qQNaN(), true, "nan"},
            {"just below a half", 0.49999999999999994, true, 1, 0.49999999999999994, true, "0.49999999999999994"},
            {"just above minus a half", -0.49999999999999994, false, 0, -0.49999999999999994, true,
             "-0.49999999999999994"},
            {"just below minus a half", -0.5000000000000001, true, -1, -0.5000000000000001, true,
             "-0.5000000000000001"},
            {"highest int and a half", 2147483647.5, true, smallest, 2147483647.5, true, "2147483647.5"},
            {"below the lowest int", -2147483649.0, true, 2147483647, -2147483649.0, true, "-2147483649"},
            {"2^32", 4294967296.0, true, 0, 4294967296.0, true, "4294967296"},
            {"1e10", 1e10, true, 1410065408, 1e10, true, "1e+10"},
            {"1e15 and a half", 1000000000000000.5, true, -1530494975, 1000000000000000.5, true, "1000000000000000.5"},
            {"2^63", 9223372036854775808.0, true, 0, 9.223372036854776e18, true, "9223372036854776000"},
            {"-2^63", -9223372036854775808.0, true, 0, -9.223372036854776e18, true, "-9223372036854776000"},
            {"1e19", 1e19, true, 0, 1e19, true, "1e+19"},
            {"-1e19", -1e19, true, 1981284352, -1e19, true, "-1e+19"},
            {"1e30", 1e30, true, 0, 1e30, true, "1e+30"},
            {"1000000", 1000000.0, true, 1000000, 1000000.0, true, "1e+06"},
            {"123456", 123456.0, true, 123456, 123456.0, true, "123456"},
            {"123456789012", 123456789012.0, true, -1097262572, 123456789012.0, true, "123456789012"},
            {"0.001", 0.001, false, 0, 0.001, true, "0.001"},
            {"0.00001", 0.00001, false, 0, 1e-05, true, "1e-05"},
            {"space", " ", true, 0, 0.0, false, " "},
            {"text 00", "00", true, 0, 0.0, true, "00"},
            {"text -5", "-5", true, -5, -5.0, true, "-5"},
            {"text 5 and a null character", QString("5") + QChar(0), true, 0, 0.0, false, QString("5") + QChar(0)},
            {"text 5 between wide spaces", QString::fromUtf8("\u00a05\u3000"), true, 5, 5.0, true,
             "\302\2405\343\200\200"},
            {"typographic minus", QString::fromUtf8("\u22125"), true, -5, -5.0, true, "\342\210\2225"},
            {"text 5.7", "5.7", true, 0, 5.7, true, "5.7"},
            {"octal text", "010", true, 10, 10.0, true, "010"},
            {"text with a group separator", "1,000", true, 0, 0.0, false, "1,000"},
            {"text 10000000000", "10000000000", true, 1410065408, 1e10, true, "10000000000"},
            {"text 9223372036854775808", "9223372036854775808", true, 0, 9.223372036854776e18, true,
             "9223372036854775808"},
            {"text inf", "inf", true, 0, qInf(), true, "inf"},
            {"bytes 1e999", QByteArray("1e999"), true, 0, qInf(), false, "1e999"},
            {"text false", "false", false, 0, 0.0, false, "false"},
            {"false after a space", " false", true, 0, 0.0, false, " false"},
            {"text no", "no", true, 0, 0.0, false, "no"},
            {"bytes of UTF-8", QByteArray("\xc3\xa4"), true, 0, 0.0, false, "\303\244"},
            {"key sequence", QKeySequence("Ctrl+A"), false, 67108929, 0.0, false, "Ctrl+A"},
            {"time with milliseconds", QTime(12, 34, 56, 789), false, 0, 0.0, false, "12:34:56.789"},
            {"date and time with milliseconds", QDateTime(QDate(2020, 2, 29), QTime(12, 34, 56, 789)), false, 0, 0.0,
             false, "2020-02-29T12:34:56.789"},
            {"date and time of UTC", QDateTime(QDate(2020, 2, 29), QTime(12, 34, 56), Qt::UTC), false, 0, 0.0, false,
             "2020-02-29T12:34:56.000Z"},
        });
    }

    void conversions()
    {
        const auto [value, asBool, asInt, asDouble, convertsToDouble, asText] =
            row<QVariant, bool, int, double, bool, QString>();
        QCOMPARE(qtcompat::toBool(value), asBool);
        QCOMPARE(qtcompat::toInt(value), asInt);
        bool converts = false;
        QCOMPARE(exact(qtcompat::toDouble(value, &converts)), exact(asDouble));
        QCOMPARE(converts, convertsToDouble);
        QCOMPARE(qtcompat::toText(value), asText);
    }

    void okMayBeLeftOut()
    {
        QCOMPARE(exact(qtcompat::toDouble(QVariant("0.3"))), exact(0.3));
        QCOMPARE(exact(qtcompat::toDouble(QVariant("abc"))), exact(0.0));
    }

    void textOfAFont_data()
    {
        addRows<QFont, QString>({
            {"plain", QFont("Tahoma", 12), "Tahoma,12,-1,5,50,0,0,0,0,0"},
            {"size not told", QFont("Tahoma", -1, -1, false), "Tahoma,12,-1,5,50,0,0,0,0,0"},
            {"broken size", tahoma([](QFont& f) { f.setPointSizeF(12.5); }), "Tahoma,12.5,-1,5,50,0,0,0,0,0"},
            {"pixels", tahoma([](QFont& f) { f.setPixelSize(16); }), "Tahoma,-1,16,5,50,0,0,0,0,0"},
            {"thin", tahoma([](QFont& f) { f.setWeight(QFont::Thin); }), "Tahoma,12,-1,5,0,0,0,0,0,0"},
            {"extra light", tahoma([](QFont& f) { f.setWeight(QFont::ExtraLight); }), "Tahoma,12,-1,5,12,0,0,0,0,0"},
            {"light", tahoma([](QFont& f) { f.setWeight(QFont::Light); }), "Tahoma,12,-1,5,25,0,0,0,0,0"},
            {"medium", tahoma([](QFont& f) { f.setWeight(QFont::Medium); }), "Tahoma,12,-1,5,57,0,0,0,0,0"},
            {"demi-bold", tahoma([](QFont& f) { f.setWeight(QFont::DemiBold); }), "Tahoma,12,-1,5,63,0,0,0,0,0"},
            {"bold", tahoma([](QFont& f) { f.setBold(true); }), "Tahoma,12,-1,5,75,0,0,0,0,0"},
            {"extra bold", tahoma([](QFont& f) { f.setWeight(QFont::ExtraBold); }), "Tahoma,12,-1,5,81,0,0,0,0,0"},
            {"black", tahoma([](QFont& f) { f.setWeight(QFont::Black); }), "Tahoma,12,-1,5,87,0,0,0,0,0"},
            {"italic", tahoma([](QFont& f) { f.setItalic(true); }), "Tahoma,12,-1,5,50,1,0,0,0,0"},
            {"oblique", tahoma([](QFont& f) { f.setStyle(QFont::StyleOblique); }), "Tahoma,12,-1,5,50,2,0,0,0,0"},
            {"underlined", tahoma([](QFont& f) { f.setUnderline(true); }), "Tahoma,12,-1,5,50,0,1,0,0,0"},
            {"struck out", tahoma([](QFont& f) { f.setStrikeOut(true); }), "Tahoma,12,-1,5,50,0,0,1,0,0"},
            {"fixed pitch", tahoma([](QFont& f) { f.setFixedPitch(true); }), "Tahoma,12,-1,5,50,0,0,0,1,0"},
            {"style hint", tahoma([](QFont& f) { f.setStyleHint(QFont::Serif); }), "Tahoma,12,-1,1,50,0,0,0,0,0"},
            {"style name", tahoma([](QFont& f) { f.setStyleName("Narrow"); }), "Tahoma,12,-1,5,50,0,0,0,0,0,Narrow"},
            {"capitalization and spacing are not told", tahoma([](QFont& f) {
                 f.setCapitalization(QFont::SmallCaps);
                 f.setLetterSpacing(QFont::AbsoluteSpacing, 3);
                 f.setStretch(150);
             }),
             "Tahoma,12,-1,5,50,0,0,0,0,0"},
        });
    }

    void textOfAFont()
    {
        const auto [font, text] = row<QFont, QString>();
        QCOMPARE(qtcompat::toText(QVariant(font)), text);
    }

    void fontFromAValue_data()
    {
        addRows<QVariant, QString>({
            {"font", QFont("Tahoma", 22, QFont::Bold), "Tahoma, 22 points, bold"},
            {"family", "Tahoma", "Tahoma, 12 points"},
            {"family with size", "Tahoma,22", "Tahoma, 22 points"},
            {"family with size 0", "Tahoma,0", "Tahoma, 12 points"},
            {"number as family", "5", "5, 12 points"},
            {"ten fields", "Tahoma,22,-1,5,75,1,1,1,1,0",
             "Tahoma, 22 points, bold, italic, underlined, struck out, fixed"},
            {"weight 50 is normal", "Tahoma,12,-1,5,50,0,0,0,0,0", "Tahoma, 12 points"},
            {"pixels", "Tahoma,-1,16,5,50,0,0,0,0,0", "Tahoma, 16 pixels"},
            {"style name", "Tahoma,12,-1,5,50,0,0,0,0,0,Narrow", "Tahoma, 12 points, Narrow"},
            {"nine fields of old", "Tahoma,22,5,75,1,1,1,1,0",
             "Tahoma, 22 points, bold, italic, underlined, struck out, fixed"},
        });
    }

    void fontFromAValue()
    {
        const auto [value, font] = row<QVariant, QString>();
        QCOMPARE(described(qtcompat::fontFrom(value)), font);
    }

    void valueWithoutFontGivesTheDefaultFont()
    {
        const QVariant values[] = {QVariant(),
                                   12,
                                   QColor(Qt::white),
                                   QByteArray("Tahoma"),
                                   QStringList("Tahoma"),
                                   QVariantMap{{"family", "Tahoma"}}};
        for (const QVariant& value : values)
            QCOMPARE(qtcompat::fontFrom(value), QFont());
        for (const char* text : {"", ",12", "Tahoma,12,-1", "Tahoma,12,-1,5,50,0,0,0", // Of 3 and 8 fields, 12 and 16.
                                 "Tahoma,12,-1,5,50,0,0,0,0,0,Narrow,1", "Tahoma,12,-1,5,400,0,0,0,0,0,0,0,0,0,0,1"})
            QCOMPARE(qtcompat::fontFrom(text), QFont());
    }

    void colourFromAValue_data()
    {
        addRows<QVariant, QString>({
            {"colour", QColor(255, 0, 0, 128), "#80ff0000"},
            {"name", "white", "#ffffffff"},
            {"name in capitals", "WHITE", "#ffffffff"},
            {"name in two words", "light blue", "#ffadd8e6"},
            {"transparent", "transparent", "#00000000"},
            {"six digits", "#ff8000", "#ffff8000"},
            {"three digits", "#f80", "#ffff8800"},
            {"eight digits, alpha first", "#80ff0000", "#80ff0000"},
            {"bytes", QByteArray("#ff8000"), "#ffff8000"},
            {"invalid", QVariant(), "none"},
            {"invalid colour", QColor(), "none"},
            {"number", 0xff0000, "none"},
            {"empty text", "", "none"},
            {"unknown name", "nothing", "none"},
            {"unknown name as bytes", QByteArray("nothing"), "none"},
            {"digits without hash", "ff8000", "none"},
            {"five digits", "#ff800", "none"},
            {"font", QFont("Tahoma", 12), "none"},
            {"texts", QStringList("white"), "none"},
        });
    }

    void colourFromAValue()
    {
        const auto [value, expected] = row<QVariant, QString>();
        const QColor colour = qtcompat::colorFrom(value);
        QCOMPARE(colour.isValid() ? colour.name(QColor::HexArgb) : QStringLiteral("none"), expected);
    }
};

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // Fonts, key sequences and pixmaps need it.
    const QGuiApplication application(argc, argv);
    TstQtCompat test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_qtcompat.moc"
