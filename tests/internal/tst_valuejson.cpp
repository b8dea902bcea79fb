// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Values as JSON, exactly as they stand in a file, and back in the same type, bit by bit.

#include <cmath>
#include <limits>

#include <QBitArray>
#include <QColor>
#include <QDataStream>
#include <QDateTime>
#include <QFont>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeySequence>
#include <QPolygon>
#include <QSize>
#include <QUrl>
#include <QtTest>

#include "keydefaults_p.h"
#include "valuejson_p.h"

Q_DECLARE_METATYPE(QVariant)

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QByteArray streamed(const QVariant& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << value;
    return bytes;
}

/// What stands in a file for \a json: {"v":...} without the frame.
QByteArray fileText(const QJsonValue& json)
{
    return QJsonDocument(QJsonObject{{QStringLiteral("v"), json}}).toJson(QJsonDocument::Compact).mid(5).chopped(1);
}

QJsonValue fromFile(const QByteArray& text)
{
    QJsonParseError error = {};
    const QJsonDocument file = QJsonDocument::fromJson("{\"v\":" + text + '}', &error);
    return error.error == QJsonParseError::NoError ? file.object().value(QStringLiteral("v"))
                                                   : QJsonValue(QJsonValue::Undefined);
}

QVariant nested(int depth)
{
    QVariant value(7);
    for (; depth > 0; --depth)
        value = depth % 2 == 0 ? QVariant(QVariantList{value}) : QVariant(QVariantMap{{QStringLiteral("k"), value}});
    return value;
}

QFont changed(void (*change)(QFont&))
{
    QFont font(text("Tahoma"));
    change(font);
    return font;
}

} // namespace

class TstValueJson : public QObject {
    Q_OBJECT

private slots:
    void valueIsThisTextAndBack_data();
    void valueIsThisTextAndBack();
    void textOfAHandIsThisValue_data();
    void textOfAHandIsThisValue();
    void textIsNoValue_data();
    void textIsNoValue();
    void valueCannotBeKept_data();
    void valueCannotBeKept();
    void otherAttributesOfAFontComeBack_data();
    void otherAttributesOfAFontComeBack();
};

void TstValueJson::valueIsThisTextAndBack_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QByteArray>("json");
    const auto row = [](const char* name, const char* key, const QVariant& value, const char* json) {
        QTest::newRow(name) << text(key) << value << QByteArray(json);
    };
    const double infinity = std::numeric_limits<double>::infinity();
    const char* const boolean = "play_loop";
    const char* const number = "crop_left";
    const char* const real = "wm_hposfactor";
    const char* const string = "wm_fontstyle";
    const char* const color = "wm_fontcolor";
    const char* const font = "wm_fontname";
    const char* const width = "crop_width";

    row("invalid", number, QVariant(), "null");
    row("bool", boolean, true, "true");
    row("bool of another key", number, false, R"({"bool":false})");
    row("int", number, -5, "-5");
    row("smallest int", number, std::numeric_limits<int>::min(), "-2147483648");
    row("largest int", number, std::numeric_limits<int>::max(), "2147483647");
    row("int of no key", "no such key", 5, R"({"int":5})");
    row("int where a bool belongs", boolean, 1, R"({"int":1})");
    row("int where a double belongs", real, 1, R"({"int":1})");
    row("double", real, 0.1, "0.1");
    row("whole double", real, 2.0, "2");
    row("a third", real, 1.0 / 3, "0.3333333333333333");
    row("largest double", real, 1.7976931348623157e308, "1.7976931348623157e+308");
    row("smallest double", real, 4.9406564584124654e-324, "5e-324");
    row("double beyond 64 bits", real, 18446744073709551616.0, "18446744073709552000");
    row("double where an int belongs", number, 5.0, R"({"double":5})");
    row("negative zero", real, -0.0, R"({"double":"gAAAAAAAAAA="})");
    row("infinity", real, infinity, R"({"double":"f/AAAAAAAAA="})");
    row("negative infinity", number, -infinity, R"({"double":"//AAAAAAAAA="})");
    row("no number", real, std::numeric_limits<double>::quiet_NaN(), R"({"double":"f/gAAAAAAAA="})");
    row("string", string, text("Bold"), R"("Bold")");
    row("empty string", string, text(""), R"("")");
    row("string of digits where an int belongs", number, text("5"), R"({"string":"5"})");
    row("string with signs", string, text("\"\\/\n\t\x01\xc3\xa4\xf0\x9f\x8e\xac"),
        "\"\\\"\\\\/\\n\\t\\u0001\xc3\xa4\xf0\x9f\x8e\xac\"");
    row("string with a zero", string, QString(QChar(0)), R"("\u0000")");
    row("half of a surrogate pair", string, QString(QChar(0xd83c)), R"({"QString":"AAAAAtg8"})");
    row("null string", string, QString(), R"({"QString":"/////w=="})");
    row("colour", color, QColor(255, 128, 0), R"("#ff8000")");
    row("transparent colour", color, QColor(255, 128, 0, 64), R"("#40ff8000")");
    row("colour of another key", string, QColor(1, 2, 3), R"({"color":"#010203"})");
    row("invalid colour", color, QColor(), R"({"QColor":"AP//AAAAAAAAAAA="})");
    row("colour of 16 bits", color, QColor::fromRgba64(1, 2, 3, 65535), R"({"QColor":"Af//AAEAAgADAAA="})");
    row("colour by hue", color, QColor::fromHsv(120, 255, 255), R"({"QColor":"Av//LuD/////AAA="})");
    row("family", font, QFont(text("Tahoma")), R"("Tahoma")");
    row("family of another key", string, QFont(text("Tahoma")), R"({"font":"Tahoma"})");
    row("font", font, QFont(text("Tahoma"), 20, QFont::Bold, true),
        R"({"family":"Tahoma","italic":true,"points":20,"weight":75})");
    row("font in pixels", font, changed([](QFont& f) { f.setPixelSize(20); }), R"({"family":"Tahoma","pixels":20})");
    row("font with lines", font, changed([](QFont& f) {
            f.setUnderline(true);
            f.setStrikeOut(true);
        }),
        R"({"family":"Tahoma","strikeout":true,"underline":true})");
    row("number that depends on the video", width, 640, "640");
    row("its word", width, text("source_val"), R"("source_val")");
    row("another word", width, text("640"), R"({"string":"640"})");
    row("a double in its place", width, 640.0, R"({"double":640})");
    row("map", "no such key", QVariantMap{{text("a"), 1}, {text("\xc3\xa4 b"), QVariant()}, {text(""), text("x")}},
        "{\"map\":{\"\":{\"string\":\"x\"},\"a\":{\"int\":1},\"\xc3\xa4 b\":null}}");
    row("list", "no such key", QVariantList{1, text("x"), QVariant(), QVariantList()},
        R"({"list":[{"int":1},{"string":"x"},null,{"list":[]}]})");
    row("list of strings", "no such key", QStringList({text("a"), QString(), text("")}),
        R"({"strings":["a",{"QString":"/////w=="},""]})");
    row("uint", number, 5U, R"({"uint":"AAAABQ=="})");
    row("qlonglong", number, qlonglong(-2), R"({"qlonglong":"//////////4="})");
    row("float", real, 0.5F, R"({"float":"P+AAAAAAAAA="})");
    row("bytes", "no such key", QByteArray("\0x", 2), R"({"QByteArray":"AAAAAgB4"})");
    row("size", "no such key", QSize(1, 2), R"({"QSize":"AAAAAQAAAAI="})");
    row("char", "no such key", QVariant(QChar(0xd83c)), R"({"QChar":"2Dw="})");
    row("url", "no such key", QUrl(text("a:b")), R"({"QUrl":"AAAAA2E6Yg=="})");
    row("date", "no such key", QDate(2026, 11, 21), R"({"QDate":"AAAAAAAljrY="})");
    row("moment", "no such key", QDateTime::fromMSecsSinceEpoch(0, Qt::UTC), R"({"QDateTime":"AAAAAAAlPYwAAAAAAQ=="})");
    row("polygon", "no such key", QPolygon(QVector<QPoint>{QPoint(1, 2)}), R"({"QPolygon":"AAAAAQAAAAEAAAAC"})");
}

void TstValueJson::valueIsThisTextAndBack()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(QByteArray, json);
    const QVariant defaultValue = catalogueDefault(key);
    const std::optional<QJsonValue> written = valuejson::toJson(value, defaultValue);
    QVERIFY(written);
    QCOMPARE(fileText(*written), json);
    const std::optional<QVariant> back = valuejson::fromJson(fromFile(json), defaultValue);
    QVERIFY(back);
    QCOMPARE(back->userType(), value.userType());
    QCOMPARE(streamed(*back).toHex(), streamed(value).toHex());
}

void TstValueJson::textOfAHandIsThisValue_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QVariant>("value");
    const auto row = [](const char* name, const char* key, const char* json, const QVariant& value) {
        QTest::newRow(name) << text(key) << QByteArray(json) << value;
    };
    row("whole number with a point", "crop_left", "20.0", 20);
    row("whole number with an exponent", "crop_left", "2e1", 20);
    row("wrapped without need", "crop_left", R"({"int":20})", 20);
    row("whole number for a double", "wm_hposfactor", "1", 1.0);
    row("colour in capitals", "wm_fontcolor", R"("#FF8000")", QColor(255, 128, 0));
    row("opaque colour with alpha", "wm_fontcolor", R"("#ffff8000")", QColor(255, 128, 0));
    row("font that tells the usual", "wm_fontname", R"({"family":"Tahoma","italic":false,"weight":50})",
        QFont(text("Tahoma")));
}

void TstValueJson::textOfAHandIsThisValue()
{
    QFETCH(QString, key);
    QFETCH(QByteArray, json);
    QFETCH(QVariant, value);
    const std::optional<QVariant> read = valuejson::fromJson(fromFile(json), catalogueDefault(key));
    QVERIFY(read);
    QCOMPARE(read->userType(), value.userType());
    QCOMPARE(streamed(*read).toHex(), streamed(value).toHex());
}

void TstValueJson::textIsNoValue_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("json");
    const auto row = [](const char* key, const QByteArray& json) {
        QTest::addRow("%s: %s", key, json.left(60).constData()) << text(key) << json;
    };
    const auto stream = [](const char* type, const char* hex) {
        return "{\"" + QByteArray(type) + "\":\"" + QByteArray::fromHex(hex).toBase64() + "\"}";
    };
    for (const char* json : {"20.5",
                             "2147483648",
                             "-2147483649",
                             "1e400",
                             R"("20")",
                             "true",
                             R"("source_val")",
                             "[]",
                             "{}",
                             R"({"int":20.5})",
                             R"({"int":"20"})",
                             R"({"int":1,"double":1})",
                             R"({"no such type":1})",
                             R"({"no such type":"AAAA"})",
                             R"({"bool":1})",
                             R"({"string":1})",
                             R"({"color":1})",
                             R"({"map":[]})",
                             R"({"list":{}})",
                             R"({"strings":[1]})",
                             R"({"strings":[null]})",
                             R"({"strings":[{"int":1}]})",
                             R"({"map":{"a":1}})",
                             R"({"list":[1]})",
                             R"({"QVariantMap":"AAAAAA=="})",
                             R"({"QVariantList":"AAAAAA=="})",
                             R"({"QStringList":"AAAAAA=="})",
                             R"({"QObject*":"AAAAAAAAAAA="})",
                             R"({"QPixmap":"AAAAAA=="})",
                             R"({"QSize":"AAAAAQAAAA="})",
                             R"({"QSize":"AAAAAQAAAAIA"})",
                             R"({"QSize":"AAAA AQAAAAI="})",
                             R"({"QSize":1})",
                             R"({"double":"AAA="})"})
        row("crop_left", json);
    for (const char* json : {"1", R"("true")"})
        row("play_loop", json);
    for (const char* json : {R"("red")", R"("#fff")", R"("#ff800")", R"("#ff80000000")", R"("#gg8000")", R"("")", "1"})
        row("wm_fontcolor", json);
    for (const char* json :
         {"1", "{}", R"({"points":12})", R"({"family":1})", R"({"family":"A","points":0})",
          R"({"family":"A","points":-1})", R"({"family":"A","points":"12"})", R"({"family":"A","pixels":0.5})",
          R"({"family":"A","pixels":12,"points":12})", R"({"family":"A","weight":100})",
          R"({"family":"A","weight":"bold"})", R"({"family":"A","italic":1})", R"({"family":"A","slant":1})"})
        row("wm_fontname", json);
    for (const char* json : {"640.5", R"("640")", "true"})
        row("crop_width", json);
    row("no such key", "1");
    row("no such key", R"("x")");
    row("no such key", stream("QPolygon", "ffffffff"));
    row("no such key", stream("QPolygonF", "0fffffff0000"));
    row("no such key", stream("QKeySequence", "ffffffff"));
    row("no such key", stream("QKeySequence", "0000000200000000 00000000"));
    row("no such key", stream("QBitArray", "ffffffff00"));
    row("no such key", stream("QByteArray", "7fffffff00"));
    row("no such key", stream("QString", "fffffffe00"));
    row("no such key", stream("QColor", "070000000000000000 0000"));
    row("no such key", stream("QColor", "ff0000000000000000 0000"));
    row("no such key", stream("QDateTime", "0000000000253d8c00000000 03 0000000400410042"));
    row("no such key", stream("QFont", "ffffffff"));
    row("no such key", stream("QFont", "0000000200410000000040280000 00000000ffffffff"
                                       "00000000320010000064010000000000000000000000000fffffff"));
}

void TstValueJson::textIsNoValue()
{
    QFETCH(QString, key);
    QFETCH(QByteArray, json);
    QVERIFY(!valuejson::fromJson(fromFile(json), catalogueDefault(key)));
}

void TstValueJson::valueCannotBeKept_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("isKept");
    const QString largest(2 * 1024 * 1024 - 1, QLatin1Char('x'));
    QTest::newRow("pointer") << QVariant::fromValue<QObject*>(this) << false;
    QTest::newRow("bits") << QVariant(QBitArray(3, true)) << true;
    QTest::newRow("hash") << QVariant(QVariantHash{{text("a"), 1}}) << false;
    QTest::newRow("32 deep") << nested(32) << true;
    QTest::newRow("33 deep") << nested(33) << false;
    QTest::newRow("list of strings 32 deep") << QVariant(QVariantList{nested(30), QStringList(text("a"))}) << true;
    QTest::newRow("largest text") << QVariant(largest) << true;
    QTest::newRow("larger text") << QVariant(largest + QLatin1Char('x')) << false;
    QTest::newRow("two that are too large in all") << QVariant(QVariantList{largest, text("x")}) << false;
    QTest::newRow("too many elements") << QVariant(QVariantList::fromVector(QVector<QVariant>(2 * 1024 * 1024)))
                                       << false;
    QTest::newRow("too many bytes") << QVariant(QByteArray(2 * 1024 * 1024, 'x')) << false;
    QTest::newRow("half of a pair in a key") << QVariant(QVariantMap{{QString(QChar(0xd83c)), 1}}) << false;
    QTest::newRow("one that cannot among others")
        << QVariant(QVariantList{1, QVariant::fromValue<QObject*>(this)}) << false;
}

void TstValueJson::valueCannotBeKept()
{
    QFETCH(QVariant, value);
    QFETCH(bool, isKept);
    const std::optional<QJsonValue> json = valuejson::toJson(value, QVariant());
    QCOMPARE(json.has_value(), isKept);
    if (json)
        QCOMPARE(valuejson::fromJson(fromFile(fileText(*json)), QVariant()), std::make_optional(value));
}

void TstValueJson::otherAttributesOfAFontComeBack_data()
{
    QTest::addColumn<QFont>("font");
    QTest::newRow("usual") << QFont(text("Sans Serif"), 9);
    QTest::newRow("empty family") << QFont(text(""));
    QTest::newRow("comma in the family") << QFont(text("A, B"));
    QTest::newRow("families") << changed([](QFont& f) { f.setFamilies({text("A"), text("B")}); });
    QTest::newRow("half of a pair") << QFont(QString(QChar(0xd83c)));
    QTest::newRow("endless size") << changed(
        [](QFont& f) { f.setPointSizeF(std::numeric_limits<double>::infinity()); });
    QTest::newRow("size in halves") << changed([](QFont& f) { f.setPointSizeF(7.5); });
    for (const int weight : {QFont::Thin, QFont::Light, QFont::DemiBold, QFont::Black})
        QTest::addRow("weight %d", weight) << QFont(text("Tahoma"), 12, weight);
    QTest::newRow("oblique") << changed([](QFont& f) { f.setStyle(QFont::StyleOblique); });
    QTest::newRow("overline") << changed([](QFont& f) { f.setOverline(true); });
    QTest::newRow("style by name") << changed([](QFont& f) { f.setStyleName(text("Narrow")); });
    QTest::newRow("stretch") << changed([](QFont& f) { f.setStretch(150); });
    QTest::newRow("spacing of letters") << changed([](QFont& f) { f.setLetterSpacing(QFont::AbsoluteSpacing, 1.5); });
    QTest::newRow("spacing of words") << changed([](QFont& f) { f.setWordSpacing(2); });
    QTest::newRow("capitals") << changed([](QFont& f) { f.setCapitalization(QFont::SmallCaps); });
    QTest::newRow("fixed pitch") << changed([](QFont& f) { f.setFixedPitch(true); });
    QTest::newRow("no kerning") << changed([](QFont& f) { f.setKerning(false); });
    QTest::newRow("hint") << changed([](QFont& f) { f.setStyleHint(QFont::Serif, QFont::NoAntialias); });
    QTest::newRow("hinting") << changed([](QFont& f) { f.setHintingPreference(QFont::PreferNoHinting); });
}

void TstValueJson::otherAttributesOfAFontComeBack()
{
    QFETCH(QFont, font);
    for (const QVariant& defaultValue : {QVariant(), QVariant(QFont())}) {
        const std::optional<QJsonValue> json = valuejson::toJson(font, defaultValue);
        QVERIFY(json);
        const std::optional<QVariant> back = valuejson::fromJson(fromFile(fileText(*json)), defaultValue);
        QVERIFY(back && back->userType() == QMetaType::QFont);
        QCOMPARE(back->value<QFont>(), font);
        QCOMPARE(back->value<QFont>().weight(), font.weight());
        if (QT_VERSION < QT_VERSION_CHECK(6, 0, 0) || !font.families().isEmpty()) // Qt 6 cannot stream a font of none.
            QCOMPARE(streamed(*back).toHex(), streamed(font).toHex());
    }
}

QTEST_GUILESS_MAIN(TstValueJson)
#include "tst_valuejson.moc"
