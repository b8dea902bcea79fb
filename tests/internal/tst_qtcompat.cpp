// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The meaning of values: what equals what, and what converts to what. All expectations are Qt 5.15's own answers
// on 64-bit x86; they hold on every Qt and processor.

#include <limits>

#include <QBitmap>
#include <QDateTime>
#include <QGuiApplication>
#include <QKeySequence>
#include <QLineF>
#include <QPixmap>
#include <QRectF>
#include <QUrl>
#include <QUuid>
#include <QVector>
#include <QtTest>

#include "qtcompat_p.h"

namespace {

struct Value {
    QString name;
    QVariant value;
};

// The values that are compared in all ordered pairs. Each stands for a kind of content; the name is the row's.
const QVector<Value>& values()
{
    using Map = QVariantMap;
    using Hash = QVariantHash;
    using List = QVariantList;
    static const QVector<Value> all = {
        {"invalid", QVariant()},
        {"false", false},
        {"true", true},
        {"0", 0},
        {"1", 1},
        {"5", 5},
        {"-1", -1},
        {"uint 5", 5U},
        {"uint 4294967295", 4294967295U},
        {"qlonglong 5", qlonglong(5)},
        {"qulonglong, the highest", std::numeric_limits<qulonglong>::max()},
        {"short 5", QVariant::fromValue(short(5))},
        {"char '5'", QVariant::fromValue('5')},
        {"uchar 5", QVariant::fromValue(uchar(5))},
        {"long 5", QVariant::fromValue(5L)},
        {"float 5", 5.0F},
        {"float 0.1", 0.1F},
        {"0.0", 0.0},
        {"-0.0", -0.0},
        {"0.1", 0.1},
        {"0.3", 0.3},
        {"0.1 + 0.2", 0.1 + 0.2},
        {"1.0", 1.0},
        {"1.0 within the tolerance", 1.0000000000005},
        {"1.0 beyond the tolerance", 1.000000000002},
        {"1.5", 1.5},
        {"5.0", 5.0},
        {"NaN", qQNaN()},
        {"infinity", qInf()},
        {"the smallest double", 5e-324},
        {"character 5", QChar('5')},
        {"character a", QChar('a')},
        {"null text", QString()},
        {"text, empty", ""},
        {"text 0", "0"},
        {"text 1", "1"},
        {"text 5", "5"},
        {"text 5 between spaces", " 5 "},
        {"text 5 between wide spaces", QString::fromUtf8("\u00a05\u3000")},
        {"text 5.0", "5.0"},
        {"text 0x5", "0x5"},
        {"text 0.3", "0.3"},
        {"text -1", "-1"},
        {"text true", "true"},
        {"text TRUE", "TRUE"},
        {"text false", "false"},
        {"text abc", "abc"},
        {"text a", "a"},
        {"text white", "white"},
        {"text #ffffff", "#ffffff"},
        {"text #FFFFFF", "#FFFFFF"},
        {"text Tahoma", "Tahoma"},
        {"text of the font", "Tahoma,12,-1,5,50,0,0,0,0,0"},
        {"text of the bold font", "Tahoma,12,-1,5,75,0,0,0,0,0"},
        {"text 2020-02-29", "2020-02-29"},
        {"text 12:34:56", "12:34:56"},
        {"text of the url", "http://a.b/c"},
        {"text of the uuid", "{67c8770b-44f1-410a-ab9a-f9b5446f13ee}"},
        {"null bytes", QByteArray()},
        {"bytes 5", QByteArray("5")},
        {"bytes a", QByteArray("a")},
        {"bytes true", QByteArray("true")},
        {"bytes #ffffff", QByteArray("#ffffff")},
        {"texts, none", QStringList()},
        {"texts a", QStringList("a")},
        {"texts 5", QStringList("5")},
        {"texts a, b", QStringList{"a", "b"}},
        {"list, empty", List()},
        {"list of text a", List{"a"}},
        {"list of 5", List{5}},
        {"list of text 5", List{"5"}},
        {"list of 0.3", List{0.3}},
        {"list of 0.1 + 0.2", List{0.1 + 0.2}},
        {"list of white", List{QColor(Qt::white)}},
        {"list of text white", List{"white"}},
        {"map, empty", Map()},
        {"map to 5", Map{{"a", 5}}},
        {"map to text 5", Map{{"a", "5"}}},
        {"map to 5 under another key", Map{{"b", 5}}},
        {"map to true", Map{{"a", true}}},
        {"map to text abc", Map{{"a", "abc"}}},
        {"map of two", Map{{"a", 5}, {"b", 6}}},
        {"hash, empty", Hash()},
        {"hash to 5", Hash{{"a", 5}}},
        {"hash to 5 under another key", Hash{{"b", 5}}},
        {"hash to true", Hash{{"a", true}}},
        {"hash to text abc", Hash{{"a", "abc"}}},
        {"colour, invalid", QColor()},
        {"colour white", QColor(Qt::white)},
        {"colour red, half transparent", QColor(255, 0, 0, 128)},
        {"font", QFont("Tahoma", 12)},
        {"font, bold", QFont("Tahoma", 12, QFont::Bold)},
        {"point", QPoint(1, 2)},
        {"point, floating", QPointF(1, 2)},
        {"size", QSize(1, 2)},
        {"size, floating", QSizeF(1, 2)},
        {"rectangle", QRect(1, 2, 3, 4)},
        {"rectangle, floating", QRectF(1, 2, 3, 4)},
        {"date", QDate(2020, 2, 29)},
        {"date, invalid", QDate()},
        {"time", QTime(12, 34, 56)},
        {"date and time", QDateTime(QDate(2020, 2, 29), QTime(0, 0))},
        {"date and time, invalid", QDateTime()},
        {"url", QUrl("http://a.b/c")},
        {"uuid", QUuid("{67c8770b-44f1-410a-ab9a-f9b5446f13ee}")},
    };
    return all;
}

QVariant valueNamed(const QString& name)
{
    for (const Value& value : values()) {
        if (value.name == name)
            return value.value;
    }
    qFatal("no value named %s", qPrintable(name));
}

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
    void valueEqualsTheseOthers_data();
    void valueEqualsTheseOthers();
    void onlyNaNDiffersFromItself();
    void orderOfComparison_data();
    void orderOfComparison();
    void nullValueComparesButDoesNotConvert_data();
    void nullValueComparesButDoesNotConvert();
    void textOfANullValueIsThatOfItsContent();
    void sharedContainerEqualsItselfWhateverIsInIt_data();
    void sharedContainerEqualsItselfWhateverIsInIt();
    void pixmapsAreEqualWhenTheyAreOnePicture();
    void valuesWithoutComparisonAreComparedByBytes();
    void conversions_data();
    void conversions();
    void okMayBeLeftOut();
    void textOfAFont_data();
    void textOfAFont();
    void fontFromAValue_data();
    void fontFromAValue();
    void valueWithoutFontGivesTheDefaultFont_data();
    void valueWithoutFontGivesTheDefaultFont();
    void colourFromAValue_data();
    void colourFromAValue();
};

void TstQtCompat::valueEqualsTheseOthers_data()
{
    // Read: this one on the left equals each of these on the right, and no other.
    QTest::addColumn<QString>("others");

    QTest::newRow("invalid") << "";
    QTest::newRow("false") << "0; 0.0; -0.0; null text; text, empty; text 0; text false; null bytes";
    QTest::newRow("true")
        << "1; 1.0; 1.0 within the tolerance; character 5; character a; text 1; text 5; text 5 between spaces; text 5 "
           "between wide spaces; text 5.0; text 0x5; text 0.3; text -1; text true; text TRUE; text abc; text a; text "
           "white; text #ffffff; text #FFFFFF; text Tahoma; text of the font; text of the bold font; text 2020-02-29; "
           "text 12:34:56; text of the url; text of the uuid; bytes 5; bytes a; bytes true; bytes #ffffff";
    QTest::newRow("0") << "false; 0.0; -0.0; text 0";
    QTest::newRow("1") << "true; 1.0; 1.0 within the tolerance; text 1";
    QTest::newRow("5") << "uint 5; qlonglong 5; short 5; uchar 5; long 5; float 5; 5.0; text 5; text 5 between spaces; "
                          "text 5 between wide spaces; bytes 5";
    QTest::newRow("-1") << "uint 4294967295; qulonglong, the highest; text -1";
    QTest::newRow("uint 5") << "5; qlonglong 5; short 5; uchar 5; long 5; float 5; 5.0; text 5; text 5 between spaces; "
                               "text 5 between wide spaces; bytes 5";
    QTest::newRow("uint 4294967295") << "-1";
    QTest::newRow("qlonglong 5") << "5; uint 5; short 5; uchar 5; long 5; float 5; 5.0; text 5; text 5 between spaces; "
                                    "text 5 between wide spaces; bytes 5";
    QTest::newRow("qulonglong, the highest") << "-1";
    QTest::newRow("short 5") << "5; uint 5; qlonglong 5; uchar 5; long 5; float 5; 5.0; text 5; text 5 between spaces; "
                                "text 5 between wide spaces; bytes 5";
    QTest::newRow("char '5'") << "character 5";
    QTest::newRow("uchar 5") << "5; uint 5; qlonglong 5; short 5; long 5; float 5; 5.0; text 5; text 5 between spaces; "
                                "text 5 between wide spaces; bytes 5";
    QTest::newRow("long 5") << "5; uint 5; qlonglong 5; short 5; uchar 5; float 5; 5.0; text 5; text 5 between spaces; "
                               "text 5 between wide spaces; bytes 5";
    QTest::newRow("float 5") << "5; uint 5; qlonglong 5; short 5; uchar 5; long 5; 5.0; text 5; text 5 between spaces; "
                                "text 5 between wide spaces; text 5.0; bytes 5";
    QTest::newRow("float 0.1") << "";
    QTest::newRow("0.0") << "false; 0; -0.0; text 0";
    QTest::newRow("-0.0") << "false; 0; 0.0; text 0";
    QTest::newRow("0.1") << "";
    QTest::newRow("0.3") << "0.1 + 0.2; text 0.3";
    QTest::newRow("0.1 + 0.2") << "0.3";
    QTest::newRow("1.0") << "true; 1; 1.0 within the tolerance; text 1";
    QTest::newRow("1.0 within the tolerance") << "true; 1; 1.0";
    QTest::newRow("1.0 beyond the tolerance") << "";
    QTest::newRow("1.5") << "";
    QTest::newRow("5.0") << "5; uint 5; qlonglong 5; short 5; uchar 5; long 5; float 5; text 5; text 5 between spaces; "
                            "text 5 between wide spaces; text 5.0; bytes 5";
    QTest::newRow("NaN") << "";
    QTest::newRow("infinity") << "";
    QTest::newRow("the smallest double") << "";
    QTest::newRow("character 5") << "true; char '5'; text 5";
    QTest::newRow("character a") << "true; text a";
    QTest::newRow("null text") << "text, empty; null bytes; date, invalid; date and time, invalid";
    QTest::newRow("text, empty") << "null text; null bytes; date, invalid; date and time, invalid";
    QTest::newRow("text 0") << "0; 0.0; -0.0";
    QTest::newRow("text 1") << "1; 1.0";
    QTest::newRow("text 5")
        << "5; uint 5; qlonglong 5; short 5; char '5'; uchar 5; long 5; float 5; 5.0; character 5; bytes 5; texts 5";
    QTest::newRow("text 5 between spaces") << "uchar 5; long 5";
    QTest::newRow("text 5 between wide spaces") << "uchar 5; long 5";
    QTest::newRow("text 5.0") << "";
    QTest::newRow("text 0x5") << "";
    QTest::newRow("text 0.3") << "0.3";
    QTest::newRow("text -1") << "-1";
    QTest::newRow("text true") << "true; bytes true";
    QTest::newRow("text TRUE") << "";
    QTest::newRow("text false") << "false";
    QTest::newRow("text abc") << "";
    QTest::newRow("text a") << "character a; bytes a; texts a";
    QTest::newRow("text white") << "";
    QTest::newRow("text #ffffff") << "bytes #ffffff; colour white";
    QTest::newRow("text #FFFFFF") << "";
    QTest::newRow("text Tahoma") << "";
    QTest::newRow("text of the font") << "font";
    QTest::newRow("text of the bold font") << "font, bold";
    QTest::newRow("text 2020-02-29") << "date";
    QTest::newRow("text 12:34:56") << "";
    QTest::newRow("text of the url") << "url";
    QTest::newRow("text of the uuid") << "uuid";
    QTest::newRow("null bytes") << "null text; text, empty";
    QTest::newRow("bytes 5") << "5; uint 5; qlonglong 5; short 5; char '5'; uchar 5; long 5; float 5; 5.0; text 5";
    QTest::newRow("bytes a") << "text a";
    QTest::newRow("bytes true") << "true; text true";
    QTest::newRow("bytes #ffffff") << "text #ffffff; colour white";
    QTest::newRow("texts, none") << "list, empty";
    QTest::newRow("texts a") << "text a; list of text a";
    QTest::newRow("texts 5") << "text 5; list of 5; list of text 5";
    QTest::newRow("texts a, b") << "";
    QTest::newRow("list, empty") << "texts, none";
    QTest::newRow("list of text a") << "texts a";
    QTest::newRow("list of 5") << "texts 5; list of text 5";
    QTest::newRow("list of text 5") << "texts 5; list of 5";
    QTest::newRow("list of 0.3") << "list of 0.1 + 0.2";
    QTest::newRow("list of 0.1 + 0.2") << "list of 0.3";
    QTest::newRow("list of white") << "list of text white";
    QTest::newRow("list of text white") << "";
    QTest::newRow("map, empty") << "hash, empty";
    QTest::newRow("map to 5") << "map to text 5; hash to 5";
    QTest::newRow("map to text 5") << "map to 5; hash to 5";
    QTest::newRow("map to 5 under another key") << "hash to 5 under another key";
    QTest::newRow("map to true") << "map to text 5; map to text abc; hash to true; hash to text abc";
    QTest::newRow("map to text abc") << "hash to text abc";
    QTest::newRow("map of two") << "";
    QTest::newRow("hash, empty") << "map, empty";
    QTest::newRow("hash to 5") << "map to 5; map to text 5";
    QTest::newRow("hash to 5 under another key") << "map to 5 under another key";
    QTest::newRow("hash to true") << "map to text 5; map to true; map to text abc; hash to text abc";
    QTest::newRow("hash to text abc") << "map to true; map to text abc; hash to true";
    QTest::newRow("colour, invalid") << "null bytes; bytes 5; bytes a; bytes true";
    QTest::newRow("colour white") << "text white; text #ffffff; text #FFFFFF; bytes #ffffff";
    QTest::newRow("colour red, half transparent") << "";
    QTest::newRow("font") << "text Tahoma; text of the font";
    QTest::newRow("font, bold") << "text of the bold font";
    QTest::newRow("point") << "point, floating";
    QTest::newRow("point, floating") << "point";
    QTest::newRow("size") << "size, floating";
    QTest::newRow("size, floating") << "size";
    QTest::newRow("rectangle") << "rectangle, floating";
    QTest::newRow("rectangle, floating") << "rectangle";
    QTest::newRow("date") << "text 2020-02-29; date and time";
    QTest::newRow("date, invalid") << "";
    QTest::newRow("time") << "text 12:34:56";
    QTest::newRow("date and time") << "text 2020-02-29; date";
    QTest::newRow("date and time, invalid") << "";
    QTest::newRow("url") << "text of the url";
    QTest::newRow("uuid") << "text of the uuid";
}

void TstQtCompat::valueEqualsTheseOthers()
{
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const QVariant left = valueNamed(name);

    QStringList equal;
    for (const Value& right : values()) {
        if (right.name != name && qtcompat::equal(left, right.value))
            equal << right.name;
    }
    QTEST(equal.join(QStringLiteral("; ")), "others");
}

void TstQtCompat::onlyNaNDiffersFromItself()
{
    QStringList different;
    for (const Value& value : values()) {
        if (!qtcompat::equal(value.value, value.value))
            different << value.name;
    }
    QCOMPARE(different, QStringList("NaN"));
    QCOMPARE(values().size(), 105);
}

void TstQtCompat::orderOfComparison_data()
{
    QTest::addColumn<QVariant>("first");
    QTest::addColumn<QVariant>("second");
    QTest::addColumn<bool>("firstEqualsSecond");
    QTest::addColumn<bool>("secondEqualsFirst");

    QTest::newRow("sum of tenths") << QVariant(0.3) << QVariant(0.1 + 0.2) << true << true;
    QTest::newRow("tolerance met") << QVariant(1e6) << QVariant(1e6 + 0.9e-6) << true << true;
    QTest::newRow("tolerance exceeded") << QVariant(1e6) << QVariant(1e6 + 1.2e-6) << false << false;
    QTest::newRow("tolerance met by an integer") << QVariant(5) << QVariant(5.000000000001) << true << true;
    QTest::newRow("tolerance exceeded by an integer") << QVariant(5) << QVariant(5.00000000001) << false << false;
    QTest::newRow("tolerance met by a signed char")
        << QVariant::fromValue(static_cast<signed char>(5)) << QVariant(5.000000000001) << true << true;
    QTest::newRow("tolerance met by an unsigned short")
        << QVariant::fromValue(ushort(5)) << QVariant(5.000000000001) << true << true;
    QTest::newRow("tolerance met by an unsigned long")
        << QVariant::fromValue(5UL) << QVariant(5.000000000001) << true << true;
    QTest::newRow("tolerance met by a byte")
        << QVariant::fromValue(uchar(5)) << QVariant(5.000000000001) << true << true;
    QTest::newRow("tolerance met by a bool") << QVariant(true) << QVariant(1.0000000000005) << true << true;
    QTest::newRow("tolerance met by a huge integer")
        << QVariant(std::numeric_limits<qlonglong>::max()) << QVariant(9223372036854774784.0) << true << true;
    QTest::newRow("tolerance is relative") << QVariant(1e-20) << QVariant(1.1e-20) << false << false;
    QTest::newRow("nothing is close to zero") << QVariant(0.0) << QVariant(1e-300) << false << false;
    QTest::newRow("integer zero and a tiny number") << QVariant(0) << QVariant(1e-13) << false << false;
    QTest::newRow("opposite signs") << QVariant(0.1) << QVariant(-0.1) << false << false;
    QTest::newRow("infinities of both signs") << QVariant(qInf()) << QVariant(-qInf()) << false << false;
    QTest::newRow("infinity and infinity") << QVariant(qInf()) << QVariant(qInf()) << true << true;
    QTest::newRow("infinity and the largest") << QVariant(qInf()) << QVariant(1.7e308) << false << false;
    QTest::newRow("float and double infinity") << QVariant(float(qInf())) << QVariant(qInf()) << true << true;
    QTest::newRow("NaN and NaN") << QVariant(qQNaN()) << QVariant(qQNaN()) << false << false;
    QTest::newRow("NaN and 0") << QVariant(qQNaN()) << QVariant(0) << false << false;
    QTest::newRow("float tenth and double tenth") << QVariant(0.1F) << QVariant(0.1) << false << false;
    QTest::newRow("float tenth and its own double") << QVariant(0.1F) << QVariant(double(0.1F)) << true << true;
    QTest::newRow("floats close together") << QVariant(1.0F) << QVariant(1.000001F) << false << false;
    QTest::newRow("float half and close double") << QVariant(0.5F) << QVariant(0.49999999999999994) << true << true;
    QTest::newRow("text has no tolerance") << QVariant(0.3) << QVariant("0.30000000000000004") << false << false;
    QTest::newRow("text that rounds to the same float") << QVariant(0.1F) << QVariant("0.100000001") << true << false;
    QTest::newRow("text too large for a float") << QVariant(float(qInf())) << QVariant("1e308") << false << false;
    QTest::newRow("text too small for a float") << QVariant(0.0F) << QVariant("1e-50") << false << false;
    QTest::newRow("text infinite as a float") << QVariant(float(qInf())) << QVariant("inf") << true << true;
    QTest::newRow("text NaN") << QVariant(qQNaN()) << QVariant("nan") << false << true;
    QTest::newRow("text beyond a double") << QVariant(qInf()) << QVariant("1e400") << false << false;
    QTest::newRow("text below a double") << QVariant(0.0) << QVariant("1e-400") << false << false;
    QTest::newRow("100000 and its text") << QVariant(100000.0) << QVariant("100000") << true << true;
    QTest::newRow("text of 100000 with exponent") << QVariant(100000.0) << QVariant("1e+05") << true << false;
    QTest::newRow("0.0001 and bytes") << QVariant(0.0001) << QVariant(QByteArray("0.0001")) << true << true;
    QTest::newRow("1e+06 and its text") << QVariant(1e6) << QVariant("1e+06") << true << true;
    QTest::newRow("negative and unsigned number") << QVariant(-1) << QVariant(4294967295U) << true << true;
    QTest::newRow("negative int and wide unsigned number")
        << QVariant(-1) << QVariant(std::numeric_limits<qulonglong>::max()) << true << true;
    QTest::newRow("negative qlonglong and unsigned number")
        << QVariant(qlonglong(-1)) << QVariant(4294967295U) << false << false;
    QTest::newRow("bool and 2") << QVariant(true) << QVariant(2) << false << false;
    QTest::newRow("true and a space") << QVariant(true) << QVariant(" ") << true << false;
    QTest::newRow("false and a space") << QVariant(false) << QVariant(" ") << false << false;
    QTest::newRow("bool and 1.0") << QVariant(true) << QVariant(1.0) << true << true;
    QTest::newRow("bool and 0.4") << QVariant(true) << QVariant(0.4) << false << false;
    QTest::newRow("bool and white") << QVariant(true) << QVariant(QColor(Qt::white)) << false << false;
    QTest::newRow("bool and a list") << QVariant(false) << QVariant(QVariantList()) << false << false;
    QTest::newRow("bool and character 0") << QVariant(true) << QVariant(QChar('0')) << true << true;
    QTest::newRow("text wraps around in an int") << QVariant(1410065408) << QVariant("10000000000") << true << false;
    QTest::newRow("text above the int") << QVariant(-1) << QVariant("4294967295") << true << false;
    QTest::newRow("typographic minus") << QVariant(-5) << QVariant(QString::fromUtf8("\u22125")) << true << false;
    QTest::newRow("typographic minus as a double")
        << QVariant(-5.0) << QVariant(QString::fromUtf8("\u22125")) << true << false;
    QTest::newRow("text with group separator") << QVariant(1000) << QVariant("1,000") << false << false;
    QTest::newRow("wide digit") << QVariant(5) << QVariant(QString::fromUtf8("\uff15")) << false << false;
    QTest::newRow("character and its number") << QVariant(QChar('A')) << QVariant(65) << true << true;
    QTest::newRow("character and its double") << QVariant(QChar('A')) << QVariant(65.0) << false << false;
    QTest::newRow("character and char") << QVariant(QChar('A')) << QVariant::fromValue('A') << true << true;
    QTest::newRow("char and its number") << QVariant::fromValue('A') << QVariant(65) << true << true;
    QTest::newRow("character and a longer text") << QVariant(QChar('A')) << QVariant("AB") << false << false;
    QTest::newRow("char and bytes") << QVariant::fromValue('A') << QVariant(QByteArray("A")) << false << true;
    QTest::newRow("bytes and char") << QVariant(QByteArray("A")) << QVariant::fromValue('A') << true << false;
    QTest::newRow("byte and text") << QVariant::fromValue(uchar(65)) << QVariant("A") << false << false;
    QTest::newRow("long and its text with a zero") << QVariant::fromValue(5L) << QVariant("05") << true << true;
    QTest::newRow("int and its text with a zero") << QVariant(5) << QVariant("05") << true << false;
    QTest::newRow("long and bytes with a zero")
        << QVariant::fromValue(5L) << QVariant(QByteArray("05")) << true << true;
    QTest::newRow("unsigned long and its text with a zero")
        << QVariant::fromValue(5UL) << QVariant("05") << true << true;
    QTest::newRow("unsigned long and bytes with a zero")
        << QVariant::fromValue(5UL) << QVariant(QByteArray("05")) << true << true;
    QTest::newRow("character cut to a byte")
        << QVariant(QChar(0x141)) << QVariant::fromValue(uchar(0x41)) << true << true;
    QTest::newRow("long not cut to a character")
        << QVariant(QChar(0x41)) << QVariant::fromValue(0x10041L) << false << false;
    QTest::newRow("unsigned long not cut to a character")
        << QVariant(QChar(0x41)) << QVariant::fromValue(0x10041UL) << false << false;
    QTest::newRow("signed char and bytes")
        << QVariant::fromValue(static_cast<signed char>(65)) << QVariant(QByteArray("A")) << false << true;
    QTest::newRow("float 100000 and its text") << QVariant(100000.0F) << QVariant("100000") << true << true;
    QTest::newRow("float 100000 and bytes") << QVariant(100000.0F) << QVariant(QByteArray("100000")) << true << true;
    QTest::newRow("float and its character") << QVariant(65.0F) << QVariant(QChar('A')) << false << false;
    QTest::newRow("bytes too small for a float") << QVariant(0.0F) << QVariant(QByteArray("1e-50")) << false << false;
    QTest::newRow("texts that are no numbers") << QVariant(5) << QVariant("5x") << false << false;
    QTest::newRow("invalid and null text") << QVariant() << QVariant(QString()) << false << false;
    QTest::newRow("invalid and 0") << QVariant() << QVariant(0) << false << false;
    QTest::newRow("invalid and false") << QVariant() << QVariant(false) << false << false;
    QTest::newRow("invalid and invalid") << QVariant() << QVariant() << true << true;
    QTest::newRow("invalid and an empty map") << QVariant() << QVariant(QVariantMap()) << false << false;
    QTest::newRow("text and bytes of UTF-8")
        << QVariant(QString::fromUtf8("\u00e4")) << QVariant(QByteArray("\xc3\xa4")) << true << true;
    QTest::newRow("bytes end at the null byte") << QVariant("a") << QVariant(QByteArray("a\0b", 3)) << true << false;
    QTest::newRow("colour names in any case") << QVariant(QColor(Qt::red)) << QVariant("RED") << true << false;
    QTest::newRow("colour with alpha") << QVariant(QColor(255, 0, 0, 128)) << QVariant("#80ff0000") << true << true;
    QTest::newRow("colour without alpha") << QVariant(QColor(255, 0, 0, 128)) << QVariant("#ff0000") << false << false;
    QTest::newRow("short colour text") << QVariant(QColor(Qt::white)) << QVariant("#fff") << true << false;
    QTest::newRow("no colour text") << QVariant(QColor()) << QVariant("nothing") << false << false;
    QTest::newRow("no colour bytes") << QVariant(QColor()) << QVariant(QByteArray("nothing")) << true << false;
    QTest::newRow("colour of another model")
        << QVariant(QColor(Qt::white)) << QVariant(QColor::fromHsv(0, 0, 255)) << false << false;
    QTest::newRow("black and the invalid colour")
        << QVariant(QColor(Qt::black)) << QVariant(QColor()) << false << false;
    QTest::newRow("colour and number") << QVariant(QColor(Qt::black)) << QVariant(0) << false << false;
    QTest::newRow("font of another size")
        << QVariant(QFont("Tahoma", 12)) << QVariant(QFont("Tahoma", 13)) << false << false;
    QTest::newRow("font and its family") << QVariant(QFont("Tahoma")) << QVariant("Tahoma") << true << false;
    QTest::newRow("font and another family") << QVariant(QFont("Tahoma")) << QVariant("Arial") << false << false;
    QTest::newRow("font and family with size")
        << QVariant(QFont("Tahoma", 22)) << QVariant("Tahoma,22") << true << false;
    QTest::newRow("default font and empty text") << QVariant(QFont()) << QVariant("") << true << false;
    QTest::newRow("default font and broken text") << QVariant(QFont()) << QVariant("Tahoma,12,-1") << true << false;
    QTest::newRow("default font and text of twelve fields")
        << QVariant(QFont()) << QVariant("Tahoma,12,-1,5,50,0,0,0,0,0,Regular,1") << true << false;
    QTest::newRow("font and text of nine fields")
        << QVariant(QFont("Tahoma", 12)) << QVariant("Tahoma,12,5,50,0,0,0,0,0") << true << false;
    QTest::newRow("catalogue's font") << QVariant(QFont("Tahoma", -1, -1, false))
                                      << QVariant("Tahoma,12,-1,5,50,0,0,0,0,0") << true << true;
    QTest::newRow("font and bytes") << QVariant(QFont("Tahoma")) << QVariant(QByteArray("Tahoma")) << false << false;
    QTest::newRow("list order") << QVariant(QVariantList{1, 2}) << QVariant(QVariantList{2, 1}) << false << false;
    QTest::newRow("list length") << QVariant(QVariantList{1}) << QVariant(QVariantList{1, 1}) << false << false;
    QTest::newRow("list: true is any text")
        << QVariant(QVariantList{true}) << QVariant(QVariantList{"abc"}) << true << false;
    QTest::newRow("list: nested rule") << QVariant(QVariantList{QVariant(QVariantList{true})})
                                       << QVariant(QVariantList{QVariant(QVariantList{"abc"})}) << true << false;
    QTest::newRow("list of numbers and texts")
        << QVariant(QVariantList{100000.0, 5}) << QVariant(QStringList{"100000", "5"}) << true << true;
    QTest::newRow("list of a font and its text")
        << QVariant(QVariantList{QFont("Tahoma", 12)}) << QVariant(QStringList("Tahoma,12,-1,5,50,0,0,0,0,0")) << true
        << true;
    QTest::newRow("list of white and the text white")
        << QVariant(QVariantList{QColor(Qt::white)}) << QVariant(QStringList("white")) << true << false;
    QTest::newRow("text and a list") << QVariant("a") << QVariant(QVariantList{"a"}) << false << false;
    QTest::newRow("empty list and empty text") << QVariant(QVariantList()) << QVariant("") << false << false;
    QTest::newRow("no texts and the empty text") << QVariant(QStringList()) << QVariant("") << false << false;
    QTest::newRow("two texts and a text") << QVariant(QStringList{"a", "b"}) << QVariant("a") << false << false;
    QTest::newRow("map: 0.3 and the sum")
        << QVariant(QVariantMap{{"a", 0.3}}) << QVariant(QVariantMap{{"a", 0.1 + 0.2}}) << true << true;
    QTest::newRow("map: white and its text")
        << QVariant(QVariantMap{{"a", QColor(Qt::white)}}) << QVariant(QVariantMap{{"a", "#ffffff"}}) << true << true;
    QTest::newRow("map: white and its name")
        << QVariant(QVariantMap{{"a", QColor(Qt::white)}}) << QVariant(QVariantMap{{"a", "white"}}) << true << false;
    QTest::newRow("map: more entries") << QVariant(QVariantMap{{"a", 1}}) << QVariant(QVariantMap{{"a", 1}, {"b", 2}})
                                       << false << false;
    QTest::newRow("map: invalid entry and none")
        << QVariant(QVariantMap{{"a", QVariant()}}) << QVariant(QVariantMap()) << false << false;
    QTest::newRow("map in a map") << QVariant(QVariantMap{{"a", QVariantMap{{"b", true}}}})
                                  << QVariant(QVariantMap{{"a", QVariantMap{{"b", "abc"}}}}) << true << false;
    QTest::newRow("map and hash inside") << QVariant(QVariantMap{{"a", QVariantMap{{"b", 5}}}})
                                         << QVariant(QVariantMap{{"a", QVariantHash{{"b", "5"}}}}) << true << true;
    QTest::newRow("map and list") << QVariant(QVariantMap()) << QVariant(QVariantList()) << false << false;
    QTest::newRow("hash: either order will do")
        << QVariant(QVariantHash{{"a", true}}) << QVariant(QVariantHash{{"a", "abc"}}) << true << true;
    QTest::newRow("hash: white and its name")
        << QVariant(QVariantHash{{"a", "white"}}) << QVariant(QVariantHash{{"a", QColor(Qt::white)}}) << true << true;
    QTest::newRow("hash: other key") << QVariant(QVariantHash{{"a", 1}}) << QVariant(QVariantHash{{"b", 1}}) << false
                                     << false;
    QTest::newRow("hash: more entries") << QVariant(QVariantHash{{"a", 1}})
                                        << QVariant(QVariantHash{{"a", 1}, {"b", 2}}) << false << false;
    QTest::newRow("hash and map") << QVariant(QVariantHash{{"a", "abc"}}) << QVariant(QVariantMap{{"a", true}}) << true
                                  << true;
    QTest::newRow("point rounded") << QVariant(QPoint(1, 3)) << QVariant(QPointF(1.4, 2.6)) << true << false;
    QTest::newRow("points close together")
        << QVariant(QPointF(1, 2)) << QVariant(QPointF(1.0000000000001, 2)) << true << true;
    QTest::newRow("rectangle rounded") << QVariant(QRect(1, 3, 3, 4)) << QVariant(QRectF(1.4, 2.6, 3, 4)) << true
                                       << false;
    QTest::newRow("time and text without seconds") << QVariant(QTime(12, 34)) << QVariant("12:34") << true << false;
    QTest::newRow("time and hours alone") << QVariant(QTime(12, 0)) << QVariant("12") << false << false;
    QTest::newRow("time and text with a rest")
        << QVariant(QTime(12, 34, 56)) << QVariant("12:34:56 o'clock") << true << false;
    QTest::newRow("time and text with a fraction")
        << QVariant(QTime(12, 34, 56, 500)) << QVariant("12:34:56.5") << true << false;
    QTest::newRow("time and text with a comma")
        << QVariant(QTime(12, 34, 56, 500)) << QVariant("12:34:56,5") << true << false;
    QTest::newRow("invalid time and text") << QVariant(QTime()) << QVariant("nonsense") << false << false;
    QTest::newRow("date and its midnight")
        << QVariant(QDate(2020, 2, 29)) << QVariant(QDateTime(QDate(2020, 2, 29), QTime(0, 0))) << true << true;
    QTest::newRow("date and its noon") << QVariant(QDate(2020, 2, 29))
                                       << QVariant(QDateTime(QDate(2020, 2, 29), QTime(12, 0))) << true << false;
    QTest::newRow("time and date with time")
        << QVariant(QTime(12, 0)) << QVariant(QDateTime(QDate(2020, 2, 29), QTime(12, 0))) << true << true;
    QTest::newRow("invalid date and invalid date and time")
        << QVariant(QDate()) << QVariant(QDateTime()) << false << false;
    QTest::newRow("invalid time and invalid date and time")
        << QVariant(QTime()) << QVariant(QDateTime()) << false << false;
    QTest::newRow("date and time, and text") << QVariant(QDateTime(QDate(2020, 2, 29), QTime(12, 34, 56)))
                                             << QVariant("2020-02-29T12:34:56") << true << false;
    QTest::newRow("url and its text") << QVariant(QUrl("http://a.b/c d")) << QVariant("http://a.b/c d") << true << true;
    QTest::newRow("url and encoded text")
        << QVariant(QUrl("http://a.b/c d")) << QVariant("http://a.b/c%20d") << true << false;
    QTest::newRow("uuid and text in capitals") << QVariant(QUuid("{67c8770b-44f1-410a-ab9a-f9b5446f13ee}"))
                                               << QVariant("{67C8770B-44F1-410A-AB9A-F9B5446F13EE}") << true << false;
    QTest::newRow("uuid and bytes") << QVariant(QUuid("{67c8770b-44f1-410a-ab9a-f9b5446f13ee}"))
                                    << QVariant(QByteArray("{67c8770b-44f1-410a-ab9a-f9b5446f13ee}")) << true << true;
    QTest::newRow("null uuid and any text") << QVariant(QUuid()) << QVariant("abc") << true << false;
    QTest::newRow("key sequence and its text")
        << QVariant(QKeySequence("Ctrl+A")) << QVariant("Ctrl+A") << true << true;
    QTest::newRow("key sequence and its number") << QVariant(QKeySequence(Qt::Key_A)) << QVariant(65) << true << true;
}

void TstQtCompat::orderOfComparison()
{
    QFETCH(QVariant, first);
    QFETCH(QVariant, second);
    QTEST(qtcompat::equal(first, second), "firstEqualsSecond");
    QTEST(qtcompat::equal(second, first), "secondEqualsFirst");
}

void TstQtCompat::nullValueComparesButDoesNotConvert_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QVariant>("other");
    QTest::addColumn<bool>("nullEqualsOther");
    QTest::addColumn<bool>("otherEqualsNull");

    QTest::newRow("double, same type") << int(QMetaType::Double) << QVariant(0.0) << true << true;
    QTest::newRow("double and an integer") << int(QMetaType::Double) << QVariant(0) << true << true;
    QTest::newRow("double and text") << int(QMetaType::Double) << QVariant("0") << true << false;
    QTest::newRow("double and bytes") << int(QMetaType::Double) << QVariant(QByteArray("0")) << true << false;
    QTest::newRow("int and text") << int(QMetaType::Int) << QVariant("0") << true << false;
    QTest::newRow("text, same type") << int(QMetaType::QString) << QVariant("") << true << true;
    QTest::newRow("text and bytes") << int(QMetaType::QString) << QVariant(QByteArray()) << true << false;
    QTest::newRow("text and bool") << int(QMetaType::QString) << QVariant(false) << false << false;
    QTest::newRow("text and font") << int(QMetaType::QString) << QVariant(QFont()) << false << false;
    QTest::newRow("bytes and text") << int(QMetaType::QByteArray) << QVariant("") << true << false;
    QTest::newRow("bytes and colour") << int(QMetaType::QByteArray) << QVariant(QColor()) << false << false;
    QTest::newRow("list, same type") << int(QMetaType::QVariantList) << QVariant(QVariantList()) << true << true;
    QTest::newRow("list and texts") << int(QMetaType::QVariantList) << QVariant(QStringList()) << true << false;
    QTest::newRow("int and invalid") << int(QMetaType::Int) << QVariant() << false << false;
}

void TstQtCompat::nullValueComparesButDoesNotConvert()
{
    QFETCH(int, type);
    QFETCH(QVariant, other);
    const QVariant null = nullOf(type);
    QVERIFY(null.isNull());
    QTEST(qtcompat::equal(null, other), "nullEqualsOther");
    QTEST(qtcompat::equal(other, null), "otherEqualsNull");
}

void TstQtCompat::textOfANullValueIsThatOfItsContent()
{
    QCOMPARE(qtcompat::toText(nullOf(QMetaType::Double)), QString("0"));
    QCOMPARE(qtcompat::toText(nullOf(QMetaType::Bool)), QString("false"));
    QCOMPARE(qtcompat::toText(nullOf(QMetaType::QString)), QString());
}

void TstQtCompat::sharedContainerEqualsItselfWhateverIsInIt_data()
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

void TstQtCompat::sharedContainerEqualsItselfWhateverIsInIt()
{
    QFETCH(QVariant, shared);
    QFETCH(QVariant, other);
    const QVariant copy = shared;
    QVERIFY(qtcompat::equal(shared, copy));
    QVERIFY(!qtcompat::equal(shared, other));
}

void TstQtCompat::pixmapsAreEqualWhenTheyAreOnePicture()
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

void TstQtCompat::valuesWithoutComparisonAreComparedByBytes()
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

void TstQtCompat::conversions_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("asBool");
    QTest::addColumn<int>("asInt");
    QTest::addColumn<double>("asDouble");
    QTest::addColumn<bool>("convertsToDouble");
    QTest::addColumn<QString>("asText");

    QTest::newRow("invalid") << QVariant() << false << 0 << 0.0 << false << "";
    QTest::newRow("false") << QVariant(false) << false << 0 << 0.0 << true << "false";
    QTest::newRow("true") << QVariant(true) << true << 1 << 1.0 << true << "true";
    QTest::newRow("zero") << QVariant(0) << false << 0 << 0.0 << true << "0";
    QTest::newRow("positive number") << QVariant(5) << true << 5 << 5.0 << true << "5";
    QTest::newRow("negative number") << QVariant(-5) << true << -5 << -5.0 << true << "-5";
    QTest::newRow("unsigned number beyond int")
        << QVariant(4294967295U) << true << -1 << 4294967295.0 << true << "4294967295";
    QTest::newRow("number beyond int") << QVariant(qlonglong(10000000000)) << true << 1410065408 << 1e10 << true
                                       << "10000000000";
    QTest::newRow("lowest int") << QVariant(std::numeric_limits<int>::min()) << true << (-2147483647 - 1)
                                << -2147483648.0 << true << "-2147483648";
    QTest::newRow("highest unsigned number") << QVariant(std::numeric_limits<qulonglong>::max()) << true << -1
                                             << 1.8446744073709552e19 << true << "18446744073709551615";
    QTest::newRow("short") << QVariant::fromValue(short(-5)) << true << -5 << -5.0 << true << "-5";
    QTest::newRow("byte") << QVariant::fromValue(uchar(200)) << true << 200 << 200.0 << true << "\303\210";
    QTest::newRow("char") << QVariant::fromValue('A') << true << 65 << 65.0 << true << "A";
    QTest::newRow("long") << QVariant::fromValue(7L) << true << 7 << 7.0 << true << "7";
    QTest::newRow("float") << QVariant(0.5F) << true << 1 << 0.5 << true << "0.5";
    QTest::newRow("float that is no short decimal")
        << QVariant(0.1F) << false << 0 << 0.10000000149011612 << true << "0.10000000149011612";
    QTest::newRow("float of 100000") << QVariant(100000.0F) << true << 100000 << 100000.0 << true << "100000";
    QTest::newRow("negative half as float") << QVariant(-1.5F) << true << -1 << -1.5 << true << "-1.5";
    QTest::newRow("float above 2^23, rounded in float")
        << QVariant(8388609.0F) << true << 8388610 << 8388609.0 << true << "8388609";
    QTest::newRow("float below 2^24, rounded in float")
        << QVariant(12582913.0F) << true << 12582914 << 12582913.0 << true << "12582913";
    QTest::newRow("float just below a half, rounded in float")
        << QVariant(0.49999997F) << true << 1 << 0.4999999701976776 << true << "0.4999999701976776";
    QTest::newRow("float just above minus a half")
        << QVariant(-0.49999997F) << false << 0 << -0.4999999701976776 << true << "-0.4999999701976776";
    QTest::newRow("float NaN") << QVariant(float(qQNaN())) << false << 0 << qQNaN() << true << "nan";
    QTest::newRow("0.0") << QVariant(0.0) << false << 0 << 0.0 << true << "0";
    QTest::newRow("negative zero") << QVariant(-0.0) << false << 0 << -0.0 << true << "0";
    QTest::newRow("0.3") << QVariant(0.3) << false << 0 << 0.3 << true << "0.3";
    QTest::newRow("just below a half") << QVariant(0.49999999999999994) << true << 1 << 0.49999999999999994 << true
                                       << "0.49999999999999994";
    QTest::newRow("half") << QVariant(0.5) << true << 1 << 0.5 << true << "0.5";
    QTest::newRow("0.6") << QVariant(0.6) << true << 1 << 0.6 << true << "0.6";
    QTest::newRow("1.5") << QVariant(1.5) << true << 2 << 1.5 << true << "1.5";
    QTest::newRow("2.5") << QVariant(2.5) << true << 3 << 2.5 << true << "2.5";
    QTest::newRow("12.7") << QVariant(12.7) << true << 13 << 12.7 << true << "12.7";
    QTest::newRow("-0.3") << QVariant(-0.3) << false << 0 << -0.3 << true << "-0.3";
    QTest::newRow("just above minus a half")
        << QVariant(-0.49999999999999994) << false << 0 << -0.49999999999999994 << true << "-0.49999999999999994";
    QTest::newRow("minus a half") << QVariant(-0.5) << false << 0 << -0.5 << true << "-0.5";
    QTest::newRow("just below minus a half")
        << QVariant(-0.5000000000000001) << true << -1 << -0.5000000000000001 << true << "-0.5000000000000001";
    QTest::newRow("-0.6") << QVariant(-0.6) << true << -1 << -0.6 << true << "-0.6";
    QTest::newRow("-1.5") << QVariant(-1.5) << true << -1 << -1.5 << true << "-1.5";
    QTest::newRow("-1.6") << QVariant(-1.6) << true << -2 << -1.6 << true << "-1.6";
    QTest::newRow("-2.5") << QVariant(-2.5) << true << -2 << -2.5 << true << "-2.5";
    QTest::newRow("-12.7") << QVariant(-12.7) << true << -13 << -12.7 << true << "-12.7";
    QTest::newRow("highest int and a half")
        << QVariant(2147483647.5) << true << (-2147483647 - 1) << 2147483647.5 << true << "2147483647.5";
    QTest::newRow("below the lowest int")
        << QVariant(-2147483649.0) << true << 2147483647 << -2147483649.0 << true << "-2147483649";
    QTest::newRow("2^32") << QVariant(4294967296.0) << true << 0 << 4294967296.0 << true << "4294967296";
    QTest::newRow("1e10") << QVariant(1e10) << true << 1410065408 << 1e10 << true << "1e+10";
    QTest::newRow("-1e10") << QVariant(-1e10) << true << -1410065408 << -1e10 << true << "-1e+10";
    QTest::newRow("1e15 and a half") << QVariant(1000000000000000.5) << true << -1530494975 << 1000000000000000.5
                                     << true << "1000000000000000.5";
    QTest::newRow("2^63") << QVariant(9223372036854775808.0) << true << 0 << 9.223372036854776e18 << true
                          << "9223372036854776000";
    QTest::newRow("-2^63") << QVariant(-9223372036854775808.0) << true << 0 << -9.223372036854776e18 << true
                           << "-9223372036854776000";
    QTest::newRow("1e19") << QVariant(1e19) << true << 0 << 1e19 << true << "1e+19";
    QTest::newRow("-1e19") << QVariant(-1e19) << true << 1981284352 << -1e19 << true << "-1e+19";
    QTest::newRow("1e30") << QVariant(1e30) << true << 0 << 1e30 << true << "1e+30";
    QTest::newRow("-1e30") << QVariant(-1e30) << false << 0 << -1e30 << true << "-1e+30";
    QTest::newRow("infinity") << QVariant(qInf()) << true << 0 << qInf() << true << "inf";
    QTest::newRow("minus infinity") << QVariant(-qInf()) << false << 0 << -qInf() << true << "-inf";
    QTest::newRow("NaN") << QVariant(qQNaN()) << false << 0 << qQNaN() << true << "nan";
    QTest::newRow("smallest double") << QVariant(5e-324) << false << 0 << 5e-324 << true << "5e-324";
    QTest::newRow("100000") << QVariant(100000.0) << true << 100000 << 100000.0 << true << "100000";
    QTest::newRow("900000") << QVariant(900000.0) << true << 900000 << 900000.0 << true << "900000";
    QTest::newRow("1000000") << QVariant(1000000.0) << true << 1000000 << 1000000.0 << true << "1e+06";
    QTest::newRow("123456") << QVariant(123456.0) << true << 123456 << 123456.0 << true << "123456";
    QTest::newRow("-300000") << QVariant(-300000.0) << true << -300000 << -300000.0 << true << "-300000";
    QTest::newRow("1e16") << QVariant(1e16) << true << 1874919424 << 1e16 << true << "1e+16";
    QTest::newRow("1e21") << QVariant(1e21) << true << 0 << 1e21 << true << "1e+21";
    QTest::newRow("123456789012") << QVariant(123456789012.0) << true << -1097262572 << 123456789012.0 << true
                                  << "123456789012";
    QTest::newRow("0.001") << QVariant(0.001) << false << 0 << 0.001 << true << "0.001";
    QTest::newRow("0.0001") << QVariant(0.0001) << false << 0 << 0.0001 << true << "0.0001";
    QTest::newRow("0.00012") << QVariant(0.00012) << false << 0 << 0.00012 << true << "0.00012";
    QTest::newRow("0.00001") << QVariant(0.00001) << false << 0 << 1e-05 << true << "1e-05";
    QTest::newRow("0.1 + 0.2") << QVariant(0.1 + 0.2) << false << 0 << 0.30000000000000004 << true
                               << "0.30000000000000004";
    QTest::newRow("2.55") << QVariant(2.55) << true << 3 << 2.55 << true << "2.55";
    QTest::newRow("character 5") << QVariant(QChar('5')) << true << 53 << 0.0 << false << "5";
    QTest::newRow("character null") << QVariant(QChar()) << false << 0 << 0.0 << false << QString(QChar());
    QTest::newRow("null text") << QVariant(QString()) << false << 0 << 0.0 << false << "";
    QTest::newRow("empty text") << QVariant("") << false << 0 << 0.0 << false << "";
    QTest::newRow("space") << QVariant(" ") << true << 0 << 0.0 << false << " ";
    QTest::newRow("text 0") << QVariant("0") << false << 0 << 0.0 << true << "0";
    QTest::newRow("text 00") << QVariant("00") << true << 0 << 0.0 << true << "00";
    QTest::newRow("text 5") << QVariant("5") << true << 5 << 5.0 << true << "5";
    QTest::newRow("text +5") << QVariant("+5") << true << 5 << 5.0 << true << "+5";
    QTest::newRow("text -5") << QVariant("-5") << true << -5 << -5.0 << true << "-5";
    QTest::newRow("text 5 between spaces") << QVariant(" \t5\n") << true << 5 << 5.0 << true << " \0115\012";
    QTest::newRow("text 5 and a null character")
        << QVariant(QString("5") + QChar(0)) << true << 0 << 0.0 << false << QString("5") + QChar(0);
    QTest::newRow("text 5 between wide spaces")
        << QVariant(QString::fromUtf8("\u00a05\u3000")) << true << 5 << 5.0 << true << "\302\2405\343\200\200";
    QTest::newRow("typographic minus") << QVariant(QString::fromUtf8("\u22125")) << true << -5 << -5.0 << true
                                       << "\342\210\2225";
    QTest::newRow("text 5.0") << QVariant("5.0") << true << 0 << 5.0 << true << "5.0";
    QTest::newRow("text 5.7") << QVariant("5.7") << true << 0 << 5.7 << true << "5.7";
    QTest::newRow("text 1e3") << QVariant("1e3") << true << 0 << 1000.0 << true << "1e3";
    QTest::newRow("hexadecimal text") << QVariant("0x10") << true << 0 << 0.0 << false << "0x10";
    QTest::newRow("octal text") << QVariant("010") << true << 10 << 10.0 << true << "010";
    QTest::newRow("text with a group separator") << QVariant("1,000") << true << 0 << 0.0 << false << "1,000";
    QTest::newRow("text 10000000000") << QVariant("10000000000") << true << 1410065408 << 1e10 << true << "10000000000";
    QTest::newRow("text 2147483648") << QVariant("2147483648") << true << (-2147483647 - 1) << 2147483648.0 << true
                                     << "2147483648";
    QTest::newRow("text 9223372036854775808")
        << QVariant("9223372036854775808") << true << 0 << 9.223372036854776e18 << true << "9223372036854775808";
    QTest::newRow("text nan") << QVariant("nan") << true << 0 << qQNaN() << true << "nan";
    QTest::newRow("text inf") << QVariant("inf") << true << 0 << qInf() << true << "inf";
    QTest::newRow("text 1e400") << QVariant("1e400") << true << 0 << qInf() << false << "1e400";
    QTest::newRow("bytes 1e999") << QVariant(QByteArray("1e999")) << true << 0 << qInf() << false << "1e999";
    QTest::newRow("bytes -1e999") << QVariant(QByteArray("-1e999")) << true << 0 << -qInf() << false << "-1e999";
    QTest::newRow("text true") << QVariant("true") << true << 0 << 0.0 << false << "true";
    QTest::newRow("text TRUE") << QVariant("TRUE") << true << 0 << 0.0 << false << "TRUE";
    QTest::newRow("text false") << QVariant("false") << false << 0 << 0.0 << false << "false";
    QTest::newRow("text FALSE") << QVariant("FALSE") << false << 0 << 0.0 << false << "FALSE";
    QTest::newRow("text False") << QVariant("False") << false << 0 << 0.0 << false << "False";
    QTest::newRow("false after a space") << QVariant(" false") << true << 0 << 0.0 << false << " false";
    QTest::newRow("text no") << QVariant("no") << true << 0 << 0.0 << false << "no";
    QTest::newRow("text abc") << QVariant("abc") << true << 0 << 0.0 << false << "abc";
    QTest::newRow("null bytes") << QVariant(QByteArray()) << false << 0 << 0.0 << false << "";
    QTest::newRow("empty bytes") << QVariant(QByteArray("")) << false << 0 << 0.0 << false << "";
    QTest::newRow("bytes 0") << QVariant(QByteArray("0")) << false << 0 << 0.0 << true << "0";
    QTest::newRow("bytes 5") << QVariant(QByteArray("5")) << true << 5 << 5.0 << true << "5";
    QTest::newRow("bytes false") << QVariant(QByteArray("false")) << false << 0 << 0.0 << false << "false";
    QTest::newRow("bytes FALSE") << QVariant(QByteArray("FALSE")) << false << 0 << 0.0 << false << "FALSE";
    QTest::newRow("bytes abc") << QVariant(QByteArray("abc")) << true << 0 << 0.0 << false << "abc";
    QTest::newRow("bytes with a null byte") << QVariant(QByteArray("a\0b", 3)) << true << 0 << 0.0 << false << "a";
    QTest::newRow("bytes of UTF-8") << QVariant(QByteArray("\xc3\xa4")) << true << 0 << 0.0 << false << "\303\244";
    QTest::newRow("no texts") << QVariant(QStringList()) << false << 0 << 0.0 << false << "";
    QTest::newRow("one text") << QVariant(QStringList("5")) << false << 0 << 0.0 << false << "5";
    QTest::newRow("two texts") << QVariant(QStringList{"a", "b"}) << false << 0 << 0.0 << false << "";
    QTest::newRow("list") << QVariant(QVariantList{5}) << false << 0 << 0.0 << false << "";
    QTest::newRow("map") << QVariant(QVariantMap{{"a", 5}}) << false << 0 << 0.0 << false << "";
    QTest::newRow("white") << QVariant(QColor(Qt::white)) << false << 0 << 0.0 << false << "#ffffff";
    QTest::newRow("half transparent red")
        << QVariant(QColor(255, 0, 0, 128)) << false << 0 << 0.0 << false << "#80ff0000";
    QTest::newRow("invalid colour") << QVariant(QColor()) << false << 0 << 0.0 << false << "#000000";
    QTest::newRow("font") << QVariant(QFont("Tahoma", 12)) << false << 0 << 0.0 << false
                          << "Tahoma,12,-1,5,50,0,0,0,0,0";
    QTest::newRow("key sequence") << QVariant(QKeySequence("Ctrl+A")) << false << 67108929 << 0.0 << false << "Ctrl+A";
    QTest::newRow("point") << QVariant(QPoint(1, 2)) << false << 0 << 0.0 << false << "";
    QTest::newRow("date") << QVariant(QDate(2020, 2, 29)) << false << 0 << 0.0 << false << "2020-02-29";
    QTest::newRow("invalid date") << QVariant(QDate()) << false << 0 << 0.0 << false << "";
    QTest::newRow("time") << QVariant(QTime(12, 34, 56)) << false << 0 << 0.0 << false << "12:34:56.000";
    QTest::newRow("time with milliseconds")
        << QVariant(QTime(12, 34, 56, 789)) << false << 0 << 0.0 << false << "12:34:56.789";
    QTest::newRow("date and time") << QVariant(QDateTime(QDate(2020, 2, 29), QTime(12, 34, 56))) << false << 0 << 0.0
                                   << false << "2020-02-29T12:34:56.000";
    QTest::newRow("date and time with milliseconds") << QVariant(QDateTime(QDate(2020, 2, 29), QTime(12, 34, 56, 789)))
                                                     << false << 0 << 0.0 << false << "2020-02-29T12:34:56.789";
    QTest::newRow("date and time of UTC") << QVariant(QDateTime(QDate(2020, 2, 29), QTime(12, 34, 56), Qt::UTC))
                                          << false << 0 << 0.0 << false << "2020-02-29T12:34:56.000Z";
    QTest::newRow("url") << QVariant(QUrl("http://a.b/c d")) << false << 0 << 0.0 << false << "http://a.b/c d";
    QTest::newRow("uuid") << QVariant(QUuid("{67C8770B-44F1-410A-AB9A-F9B5446F13EE}")) << false << 0 << 0.0 << false
                          << "{67c8770b-44f1-410a-ab9a-f9b5446f13ee}";
}

void TstQtCompat::conversions()
{
    QFETCH(QVariant, value);
    QFETCH(double, asDouble);
    QTEST(qtcompat::toBool(value), "asBool");
    QTEST(qtcompat::toInt(value), "asInt");
    bool converts = false;
    QCOMPARE(exact(qtcompat::toDouble(value, &converts)), exact(asDouble));
    QTEST(converts, "convertsToDouble");
    QTEST(qtcompat::toText(value), "asText");
}

void TstQtCompat::okMayBeLeftOut()
{
    QCOMPARE(exact(qtcompat::toDouble(QVariant("0.3"))), exact(0.3));
    QCOMPARE(exact(qtcompat::toDouble(QVariant("abc"))), exact(0.0));
}

void TstQtCompat::textOfAFont_data()
{
    QTest::addColumn<QFont>("font");
    QTest::addColumn<QString>("text");

    QTest::newRow("plain") << QFont("Tahoma", 12) << "Tahoma,12,-1,5,50,0,0,0,0,0";
    QTest::newRow("size not told") << QFont("Tahoma", -1, -1, false) << "Tahoma,12,-1,5,50,0,0,0,0,0";
    QTest::newRow("broken size") << tahoma([](QFont& f) { f.setPointSizeF(12.5); }) << "Tahoma,12.5,-1,5,50,0,0,0,0,0";
    QTest::newRow("pixels") << tahoma([](QFont& f) { f.setPixelSize(16); }) << "Tahoma,-1,16,5,50,0,0,0,0,0";
    QTest::newRow("thin") << tahoma([](QFont& f) { f.setWeight(QFont::Thin); }) << "Tahoma,12,-1,5,0,0,0,0,0,0";
    QTest::newRow("extra light") << tahoma([](QFont& f) { f.setWeight(QFont::ExtraLight); })
                                 << "Tahoma,12,-1,5,12,0,0,0,0,0";
    QTest::newRow("light") << tahoma([](QFont& f) { f.setWeight(QFont::Light); }) << "Tahoma,12,-1,5,25,0,0,0,0,0";
    QTest::newRow("medium") << tahoma([](QFont& f) { f.setWeight(QFont::Medium); }) << "Tahoma,12,-1,5,57,0,0,0,0,0";
    QTest::newRow("demi-bold") << tahoma([](QFont& f) { f.setWeight(QFont::DemiBold); })
                               << "Tahoma,12,-1,5,63,0,0,0,0,0";
    QTest::newRow("bold") << tahoma([](QFont& f) { f.setBold(true); }) << "Tahoma,12,-1,5,75,0,0,0,0,0";
    QTest::newRow("extra bold") << tahoma([](QFont& f) { f.setWeight(QFont::ExtraBold); })
                                << "Tahoma,12,-1,5,81,0,0,0,0,0";
    QTest::newRow("black") << tahoma([](QFont& f) { f.setWeight(QFont::Black); }) << "Tahoma,12,-1,5,87,0,0,0,0,0";
    QTest::newRow("italic") << tahoma([](QFont& f) { f.setItalic(true); }) << "Tahoma,12,-1,5,50,1,0,0,0,0";
    QTest::newRow("oblique") << tahoma([](QFont& f) { f.setStyle(QFont::StyleOblique); })
                             << "Tahoma,12,-1,5,50,2,0,0,0,0";
    QTest::newRow("underlined") << tahoma([](QFont& f) { f.setUnderline(true); }) << "Tahoma,12,-1,5,50,0,1,0,0,0";
    QTest::newRow("struck out") << tahoma([](QFont& f) { f.setStrikeOut(true); }) << "Tahoma,12,-1,5,50,0,0,1,0,0";
    QTest::newRow("fixed pitch") << tahoma([](QFont& f) { f.setFixedPitch(true); }) << "Tahoma,12,-1,5,50,0,0,0,1,0";
    QTest::newRow("style hint") << tahoma([](QFont& f) { f.setStyleHint(QFont::Serif); })
                                << "Tahoma,12,-1,1,50,0,0,0,0,0";
    QTest::newRow("style name") << tahoma([](QFont& f) { f.setStyleName("Narrow"); })
                                << "Tahoma,12,-1,5,50,0,0,0,0,0,Narrow";
    QTest::newRow("capitalization and spacing are not told") << tahoma([](QFont& f) {
        f.setCapitalization(QFont::SmallCaps);
        f.setLetterSpacing(QFont::AbsoluteSpacing, 3);
        f.setStretch(150);
    }) << "Tahoma,12,-1,5,50,0,0,0,0,0";
}

void TstQtCompat::textOfAFont()
{
    QFETCH(QFont, font);
    QTEST(qtcompat::toText(QVariant(font)), "text");
}

void TstQtCompat::fontFromAValue_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("font");

    QTest::newRow("font") << QVariant(QFont("Tahoma", 22, QFont::Bold)) << "Tahoma, 22 points, bold";
    QTest::newRow("family") << QVariant("Tahoma") << "Tahoma, 12 points";
    QTest::newRow("family with size") << QVariant("Tahoma,22") << "Tahoma, 22 points";
    QTest::newRow("family with size 0") << QVariant("Tahoma,0") << "Tahoma, 12 points";
    QTest::newRow("number as family") << QVariant("5") << "5, 12 points";
    QTest::newRow("ten fields") << QVariant("Tahoma,22,-1,5,75,1,1,1,1,0")
                                << "Tahoma, 22 points, bold, italic, underlined, struck out, fixed";
    QTest::newRow("weight 50 is normal") << QVariant("Tahoma,12,-1,5,50,0,0,0,0,0") << "Tahoma, 12 points";
    QTest::newRow("pixels") << QVariant("Tahoma,-1,16,5,50,0,0,0,0,0") << "Tahoma, 16 pixels";
    QTest::newRow("style name") << QVariant("Tahoma,12,-1,5,50,0,0,0,0,0,Narrow") << "Tahoma, 12 points, Narrow";
    QTest::newRow("nine fields of old") << QVariant("Tahoma,22,5,75,1,1,1,1,0")
                                        << "Tahoma, 22 points, bold, italic, underlined, struck out, fixed";
}

void TstQtCompat::fontFromAValue()
{
    QFETCH(QVariant, value);
    QTEST(described(qtcompat::fontFrom(value)), "font");
}

void TstQtCompat::valueWithoutFontGivesTheDefaultFont_data()
{
    QTest::addColumn<QVariant>("value");

    QTest::newRow("invalid") << QVariant();
    QTest::newRow("number") << QVariant(12);
    QTest::newRow("colour") << QVariant(QColor(Qt::white));
    QTest::newRow("bytes") << QVariant(QByteArray("Tahoma"));
    QTest::newRow("texts") << QVariant(QStringList("Tahoma"));
    QTest::newRow("map") << QVariant(QVariantMap{{"family", "Tahoma"}});
    QTest::newRow("null text") << QVariant(QString());
    QTest::newRow("empty text") << QVariant("");
    QTest::newRow("text without family") << QVariant(",12");
    QTest::newRow("three fields") << QVariant("Tahoma,12,-1");
    QTest::newRow("eight fields") << QVariant("Tahoma,12,-1,5,50,0,0,0");
    QTest::newRow("twelve fields") << QVariant("Tahoma,12,-1,5,50,0,0,0,0,0,Narrow,1");
    QTest::newRow("sixteen fields") << QVariant("Tahoma,12,-1,5,400,0,0,0,0,0,0,0,0,0,0,1");
}

void TstQtCompat::valueWithoutFontGivesTheDefaultFont()
{
    QFETCH(QVariant, value);
    QCOMPARE(qtcompat::fontFrom(value), QFont());
}

void TstQtCompat::colourFromAValue_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("colour");

    QTest::newRow("colour") << QVariant(QColor(255, 0, 0, 128)) << "#80ff0000";
    QTest::newRow("name") << QVariant("white") << "#ffffffff";
    QTest::newRow("name in capitals") << QVariant("WHITE") << "#ffffffff";
    QTest::newRow("name in two words") << QVariant("light blue") << "#ffadd8e6";
    QTest::newRow("transparent") << QVariant("transparent") << "#00000000";
    QTest::newRow("six digits") << QVariant("#ff8000") << "#ffff8000";
    QTest::newRow("three digits") << QVariant("#f80") << "#ffff8800";
    QTest::newRow("eight digits, alpha first") << QVariant("#80ff0000") << "#80ff0000";
    QTest::newRow("bytes") << QVariant(QByteArray("#ff8000")) << "#ffff8000";
    QTest::newRow("invalid") << QVariant() << "none";
    QTest::newRow("invalid colour") << QVariant(QColor()) << "none";
    QTest::newRow("number") << QVariant(0xff0000) << "none";
    QTest::newRow("empty text") << QVariant("") << "none";
    QTest::newRow("unknown name") << QVariant("nothing") << "none";
    QTest::newRow("unknown name as bytes") << QVariant(QByteArray("nothing")) << "none";
    QTest::newRow("digits without hash") << QVariant("ff8000") << "none";
    QTest::newRow("five digits") << QVariant("#ff800") << "none";
    QTest::newRow("font") << QVariant(QFont("Tahoma", 12)) << "none";
    QTest::newRow("texts") << QVariant(QStringList("white")) << "none";
}

void TstQtCompat::colourFromAValue()
{
    QFETCH(QVariant, value);
    const QColor colour = qtcompat::colorFrom(value);
    QTEST(colour.isValid() ? colour.name(QColor::HexArgb) : QStringLiteral("none"), "colour");
}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // Fonts, key sequences and pixmaps need it.
    const QGuiApplication application(argc, argv);
    TstQtCompat test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_qtcompat.moc"
