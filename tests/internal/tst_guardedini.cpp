// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <cmath>
#include <limits>

#include <QBitArray>
#include <QColor>
#include <QCryptographicHash>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFont>
#include <QImage>
#include <QKeySequence>
#include <QLineF>
#include <QLocale>
#include <QMatrix4x4>
#include <QPolygonF>
#include <QQuaternion>
#include <QRegularExpression>
#include <QTimeZone>
#include <QTransform>
#include <QUrl>
#include <QUuid>
#include <QVector2D>
#include <QVector3D>
#include <QVector4D>
#include <QtTest>

#include "guardedini_p.h"

using guardedini::Entries;
using guardedini::Merge;

struct OwnType {
    int number = 0;
};
Q_DECLARE_METATYPE(OwnType)

namespace {

const char firstLine[] = "; Custom defaults of effects. Kept by the program: the last line is a checksum.\n";

/// \a text with its checksum.
QByteArray checksummed(const QByteArray& text)
{
    return text + "; sha1 " + QCryptographicHash::hash(text, QCryptographicHash::Sha1).toHex() + '\n';
}

/// \a body with the first and the last line that make it a file.
QByteArray sealed(const QByteArray& body)
{
    return checksummed(firstLine + body);
}

/// The file of one entry, "T", with one property, "p".
QByteArray fileWithValue(const QByteArray& text)
{
    return sealed("[T]\np=" + text + "\n");
}

Entries entryWithValue(const QVariant& value)
{
    return {{QStringLiteral("T"), QVariantMap{{QStringLiteral("p"), value}}}};
}

QVariant valueOf(const Entries& entries)
{
    return entries.value(QStringLiteral("T")).toMap().value(QStringLiteral("p"));
}

QVariant nestedList(int depth)
{
    QVariant value = 1;
    for (int i = 0; i < depth; ++i)
        value = QVariantList{value};
    return value;
}

QVariant nestedMap(int depth)
{
    QVariant value = 1;
    for (int i = 0; i < depth; ++i)
        value = QVariantMap{{QStringLiteral("m"), value}};
    return value;
}

QByteArray repeated(const char* text, int times)
{
    return QByteArray(text).repeated(times);
}

QFont tahoma()
{
    return QFont(QStringLiteral("Tahoma"), 12);
}

const char tahomaStream[] =
    "0000000c005400610068006f006d0061ffffffff4028000000000000ffffffff0500010032100000010000000000"
    "000000000000000000";

/// What the custom defaults of three types look like in the file.
const char customDefaults[] =
    "[Color]\n"
    "bcs_brightness=int -20\n"
    "bcs_contrast=double 0.1\n"
    "[Effect]\n"
    "=invalid\n"
    "[Watermark]\n"
    "wm_fontcolor=QColor #ffff8000\n"
    "wm_fontname=QFont \"Tahoma\" 0000000c005400610068006f006d0061ffffffff4028000000000000fffffff"
    "f050001004b110000010000000000000000000000000000\n"
    "wm_fontstyle=QString \"Bold & Italic\"\n"
    "wm_hposfactor=double 0.3333333333333333\n"
    "wm_imagekeepratio=bool true\n"
    "wm_transparency=int 80\n";

Entries customDefaultEntries()
{
    return {
        {QStringLiteral("Color"),
         QVariantMap{{QStringLiteral("bcs_brightness"), -20}, {QStringLiteral("bcs_contrast"), 0.1}}},
        {QStringLiteral("Effect"), QVariant()},
        {QStringLiteral("Watermark"),
         QVariantMap{{QStringLiteral("wm_fontcolor"), QColor(255, 128, 0)},
                     {QStringLiteral("wm_fontname"), QFont(QStringLiteral("Tahoma"), 12, QFont::Bold, true)},
                     {QStringLiteral("wm_fontstyle"), QStringLiteral("Bold & Italic")},
                     {QStringLiteral("wm_hposfactor"), 1.0 / 3.0},
                     {QStringLiteral("wm_imagekeepratio"), true},
                     {QStringLiteral("wm_transparency"), 80}}},
    };
}

} // namespace

class TstGuardedIni : public QObject {
    Q_OBJECT

private slots:
    void valueHasThisText_data();
    void valueHasThisText();
    void notANumberComesBack();
    void hashComesBackAndIsWrittenInKeyOrder();
    void fontComesBack_data();
    void fontComesBack();
    void fontWeightBetweenTheNamedOnesIsToldBesideTheStream();
    void keyHasThisText_data();
    void keyHasThisText();
    void entryHasThisText_data();
    void entryHasThisText();
    void customDefaultsReadAndWriteAlikeWithEveryQt();

    void valueThatTheFileCannotHoldIsLeftOut_data();
    void valueThatTheFileCannotHoldIsLeftOut();
    void deepestNestingIsHeld();
    void changesReplaceAndAdd();
    void changeThatIsLeftOutKeepsThePresentEntry();
    void otherChangesGoWhenOneIsLeftOut();
    void onlyWhatFitsGoesIntoTheFile();
    void replacedEntryMakesRoomForItsSuccessor();
    void mergedFileOfNothingIsEmptyAndWhole();

    void fileCutAnywhereIsDamaged();
    void fileWithAnyBitFlippedIsDamaged();
    void bytesOfNoFileAreDamaged_data();
    void bytesOfNoFileAreDamaged();
    void hostileFileIsDamagedInSpiteOfItsChecksum_data();
    void hostileFileIsDamagedInSpiteOfItsChecksum();
};

void TstGuardedIni::valueHasThisText_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char* name, const QVariant& value, const QByteArray& text) {
        QTest::newRow(name) << value << text;
    };

    row("invalid", QVariant(), "invalid");
    row("bool true", true, "bool true");
    row("bool false", false, "bool false");
    row("int", 80, "int 80");
    row("int zero", 0, "int 0");
    row("largest int", std::numeric_limits<int>::max(), "int 2147483647");
    row("smallest int", std::numeric_limits<int>::min(), "int -2147483648");
    row("largest uint", 4294967295U, "uint 4294967295");
    row("smallest qlonglong", std::numeric_limits<qlonglong>::min(), "qlonglong -9223372036854775808");
    row("largest qulonglong", std::numeric_limits<qulonglong>::max(), "qulonglong 18446744073709551615");
    row("long", QVariant::fromValue(-7L), "long -7");
    row("ulong", QVariant::fromValue(7UL), "ulong 7");
    row("short", QVariant::fromValue(short(-32768)), "short -32768");
    row("ushort", QVariant::fromValue(ushort(65535)), "ushort 65535");
    row("char", QVariant::fromValue('a'), "char 97");
    row("signed char", QVariant::fromValue(static_cast<signed char>(-128)), "schar -128");
    row("uchar", QVariant::fromValue(uchar(255)), "uchar 255");

    row("double with short digits", 0.1, "double 0.1");
    row("double with all digits", 1.0 / 3.0, "double 0.3333333333333333");
    row("double that is whole", 100.0, "double 100");
    row("double zero", 0.0, "double 0");
    row("double below zero", -2.5, "double -2.5");
    row("smallest double", 5e-324, "double 5e-324");
    row("largest double", std::numeric_limits<double>::max(), "double 1.7976931348623157e+308");
    row("infinite double", std::numeric_limits<double>::infinity(), "double inf");
    row("infinite double below zero", -std::numeric_limits<double>::infinity(), "double -inf");
    row("float", QVariant::fromValue(0.5F), "float 0.5");
    row("float that is no short double", QVariant::fromValue(0.1F), "float 0.10000000149011612");

    row("string", QStringLiteral("Tahoma"), "QString \"Tahoma\"");
    row("empty string", QLatin1String(""), "QString \"\"");
    row("string with quotes", QStringLiteral("a \"b\" c"), R"(QString "a \"b\" c")");
    row("string with backslash", QStringLiteral("C:\\new"), R"(QString "C:\\new")");
    row("string with line breaks", QStringLiteral("a\nb\r\n"), R"(QString "a\u000ab\u000d\u000a")");
    row("string with zero and tab", QString(QChar(0)) + QChar('\t'), R"(QString "\u0000\u0009")");
    row("string like a comment", QStringLiteral("; [a]=b"), "QString \"; [a]=b\"");
    row("string like an escape", QStringLiteral("\\u0041"), R"(QString "\\u0041")");
    row("accented string", QString::fromUtf8("\xc3\xa4\xc3\xb6"), "QString \"\xc3\xa4\xc3\xb6\"");
    row("Chinese string", QString::fromUtf8("\xe5\xad\x97\xe5\xb9\x95"), "QString \"\xe5\xad\x97\xe5\xb9\x95\"");
    row("string beyond 16 bits", QString::fromUtf8("\xf0\x9f\x98\x80"), R"(QString "\ud83d\ude00")");
    row("lone high surrogate", QString(QChar(0xd83d)), R"(QString "\ud83d")");
    row("lone low surrogate", QString(QChar(0xde00)), R"(QString "\ude00")");
    row("surrogates in wrong order", QString(QChar(0xde00)) + QChar(0xd83d), R"(QString "\ude00\ud83d")");
    row("byte order mark", QString(QChar(0xfeff)) + QChar('a'), R"(QString "\ufeffa")");
    row("noncharacter", QString(QChar(0xffff)), R"(QString "\uffff")");
    row("non-breaking space", QString(QChar(0xa0)), "QString \"\xc2\xa0\"");
    row("byte array", QByteArray("a\0\xff", 3), "QByteArray x6100ff");
    row("empty byte array", QByteArray(""), "QByteArray x");
    row("string list", QStringList({QStringLiteral("a"), QString(), QStringLiteral("b, c]")}),
        R"(QStringList ["a", "", "b, c]"])");
    row("string list of one", QStringList(QStringLiteral("a")), "QStringList [\"a\"]");
    row("empty string list", QStringList(), "QStringList []");

    row("opaque colour", QColor(255, 128, 0), "QColor #ffff8000");
    row("translucent colour", QColor(1, 2, 3, 4), "QColor #04010203");
    row("transparent colour", QColor(0, 0, 0, 0), "QColor #00000000");
    row("invalid colour", QColor(), "QColor 00ffff0000000000000000");
    row("colour of hue and value", QColor::fromHsv(10, 20, 30), "QColor 02ffff03e814141e1e0000");
    row("colour of hue and lightness", QColor::fromHsl(1, 2, 3), "QColor 04ffff0064020203030000");
    row("colour of inks", QColor::fromCmyk(1, 2, 3, 4), "QColor 03ffff0101020203030404");
    row("colour of 16 bits", QColor(QRgba64::fromRgba64(0x1234, 0x5678, 0x9abc, 0xffff)),
        "QColor 01ffff123456789abc0000");
    row("colour beyond white", QColor::fromRgbF(0.5, 0.25, 1).toExtendedRgb(), "QColor 053c00380034003c000000");
    row("font", tahoma(), QByteArray("QFont \"Tahoma\" ") + tahomaStream);

    row("character", QChar('x'), "QChar 0078");
    row("id", QUuid(QStringLiteral("{12345678-1234-1234-1234-123456789abc}")),
        "QUuid 12345678123412341234123456789abc");
    row("link", QUrl(QStringLiteral("http://a.b/c?d")), "QUrl 0000000e687474703a2f2f612e622f633f64");
    row("empty link", QUrl(), "QUrl ffffffff");
    row("date", QDate(2020, 1, 2), "QDate 00000000002584e3");
    row("no date", QDate(), "QDate 8000000000000000");
    row("time", QTime(1, 2, 3, 4), "QTime 0038cefc");
    row("UTC moment", QDateTime(QDate(2020, 1, 2), QTime(1, 2, 3), Qt::UTC), "QDateTime 00000000002584e30038cef801");
    row("local moment", QDateTime(QDate(2020, 1, 2), QTime(1, 2, 3), Qt::LocalTime),
        "QDateTime 00000000002584e30038cef800");
    row("moment with offset", QDateTime(QDate(2020, 1, 2), QTime(1, 2, 3), Qt::OffsetFromUTC, 3600),
        "QDateTime 00000000002584e30038cef80200000e10");
    row("no moment", QDateTime(), "QDateTime 8000000000000000ffffffff00");
    row("locale", QLocale(QStringLiteral("de_DE")), "QLocale 0000000a00640065005f00440045");
    row("expression", QRegularExpression(QStringLiteral("a.b"), QRegularExpression::CaseInsensitiveOption),
        "QRegularExpression 000000060061002e006200000001");
    row("bits", QBitArray(10, true), "QBitArray 0000000aff03");
    row("no bits", QBitArray(), "QBitArray 00000000");
    row("size", QSize(1, 2), "QSize 0000000100000002");
    row("exact size", QSizeF(1, 2), "QSizeF 3ff00000000000004000000000000000");
    row("point", QPoint(1, -1), "QPoint 00000001ffffffff");
    row("exact point", QPointF(1, 2), "QPointF 3ff00000000000004000000000000000");
    row("line", QLine(1, 2, 3, 4), "QLine 00000001000000020000000300000004");
    row("exact line", QLineF(1, 2, 3, 4), "QLineF 3ff0000000000000400000000000000040080000000000004010000000000000");
    row("rectangle", QRect(1, 2, 3, 4), "QRect 00000001000000020000000300000005");
    row("exact rectangle", QRectF(1, 2, 3, 4),
        "QRectF 3ff0000000000000400000000000000040080000000000004010000000000000");
    row("polygon", QPolygon(QVector<QPoint>{QPoint(1, 2), QPoint(3, 4)}),
        "QPolygon 0000000200000001000000020000000300000004");
    row("empty polygon", QPolygon(), "QPolygon 00000000");
    row("exact polygon", QPolygonF(QVector<QPointF>{QPointF(1, 2)}),
        "QPolygonF 000000013ff00000000000004000000000000000");
    row("keys", QKeySequence(QStringLiteral("Ctrl+A,Ctrl+B")), "QKeySequence 0000000404000041040000420000000000000000");
    row("no keys", QKeySequence(), "QKeySequence 0000000100000000");
    row("transform", QTransform(1, 2, 1, 2, 1, 2, 1, 2, 1),
        "QTransform " + repeated("3ff00000000000004000000000000000", 4) + "3ff0000000000000");
    row("matrix", QMatrix4x4(1, 2, 1, 2, 1, 2, 1, 2, 1, 2, 1, 2, 1, 2, 1, 2),
        "QMatrix4x4 " + repeated("3ff00000000000004000000000000000", 8));
    row("vector of two", QVector2D(1, 2), "QVector2D 3ff00000000000004000000000000000");
    row("vector of three", QVector3D(1, 2, 1), "QVector3D 3ff000000000000040000000000000003ff0000000000000");
    row("vector of four", QVector4D(1, 2, 1, 2), "QVector4D " + repeated("3ff00000000000004000000000000000", 2));
    row("quaternion", QQuaternion(1, 2, 1, 2), "QQuaternion " + repeated("3ff00000000000004000000000000000", 2));

    row("list", QVariantList({1, QStringLiteral("1"), 1.0, true, QVariant()}),
        "QVariantList [int 1, QString \"1\", double 1, bool true, invalid]");
    row("empty list", QVariantList(), "QVariantList []");
    row("list in list", QVariantList{QVariant(QVariantList{1}), QVariant(QVariantList())},
        "QVariantList [QVariantList [int 1], QVariantList []]");
    row("map", QVariantMap({{QStringLiteral("a"), 1}, {QStringLiteral("b c"), QVariant()}}),
        "QVariantMap {a=int 1, \"b c\"=invalid}");
    row("empty map", QVariantMap(), "QVariantMap {}");
    row("list in map in map",
        QVariantMap({{QStringLiteral("m"), QVariantMap({{QStringLiteral("l"), QVariantList({QSize(1, 2)})}})}}),
        "QVariantMap {m=QVariantMap {l=QVariantList [QSize 0000000100000002]}}");
    row("empty hash", QVariantHash(), "QVariantHash {}");
}

void TstGuardedIni::valueHasThisText()
{
    QFETCH(QVariant, value);
    QFETCH(QByteArray, text);

    const Merge written = guardedini::merged({}, entryWithValue(value));
    QCOMPARE(written.file, fileWithValue(text));
    QCOMPARE(written.entries.size(), 1);
    QVERIFY(written.leftOut.isEmpty());

    const std::optional<Entries> read = guardedini::parsed(fileWithValue(text));
    QVERIFY(read);
    QCOMPARE(read->size(), 1);
    QCOMPARE(valueOf(*read).userType(), value.userType());
    QVERIFY(valueOf(*read) == value);
    // Comparing is tolerant for some types (colours of hue, doubles); the text is not.
    QCOMPARE(guardedini::merged({}, *read).file, fileWithValue(text));
}

void TstGuardedIni::notANumberComesBack()
{
    const QByteArray file = fileWithValue("QVariantList [double nan, double -0, float nan, float -0]");
    const QVariantList numbers{std::nan(""), -0.0, QVariant::fromValue(std::nanf("")), QVariant::fromValue(-0.0F)};
    QCOMPARE(guardedini::merged({}, entryWithValue(numbers)).file, file);

    const std::optional<Entries> read = guardedini::parsed(file);
    QVERIFY(read);
    const QVariantList back = valueOf(*read).toList();
    QCOMPARE(back.size(), 4);
    QVERIFY(std::isnan(back.at(0).toDouble()));
    QVERIFY(std::signbit(back.at(1).toDouble()));
    QVERIFY(std::isnan(back.at(2).toFloat()));
    QVERIFY(std::signbit(back.at(3).toFloat()));
    QCOMPARE(back.at(3).userType(), int(QMetaType::Float));
}

void TstGuardedIni::hashComesBackAndIsWrittenInKeyOrder()
{
    const QVariantHash hash{{QStringLiteral("c"), 3}, {QStringLiteral("a"), 1}, {QStringLiteral("b"), 2}};
    const QByteArray file = fileWithValue("QVariantHash {a=int 1, b=int 2, c=int 3}");
    QCOMPARE(guardedini::merged({}, entryWithValue(hash)).file, file);
    const std::optional<Entries> read = guardedini::parsed(file);
    QVERIFY(read);
    QCOMPARE(valueOf(*read).userType(), int(QMetaType::QVariantHash));
    QCOMPARE(valueOf(*read).toHash(), hash);
}

void TstGuardedIni::fontComesBack_data()
{
    QTest::addColumn<QFont>("font");
    const auto row = [](const char* name, const auto& change) {
        QFont font = tahoma();
        change(font);
        QTest::newRow(name) << font;
    };
    row("plain", [](QFont&) {});
    row("accented family", [](QFont& f) { f.setFamily(QString::fromUtf8("\xc3\x84 \"x\"")); });
    row("half a point", [](QFont& f) { f.setPointSizeF(10.5); });
    row("in pixels", [](QFont& f) { f.setPixelSize(33); });
    row("light", [](QFont& f) { f.setWeight(QFont::Light); });
    row("bold", [](QFont& f) { f.setWeight(QFont::Bold); });
    row("black", [](QFont& f) { f.setWeight(QFont::Black); });
    row("italic", [](QFont& f) { f.setStyle(QFont::StyleItalic); });
    row("oblique", [](QFont& f) { f.setStyle(QFont::StyleOblique); });
    row("underlined", [](QFont& f) { f.setUnderline(true); });
    row("overlined", [](QFont& f) { f.setOverline(true); });
    row("struck out", [](QFont& f) { f.setStrikeOut(true); });
    row("fixed pitch", [](QFont& f) { f.setFixedPitch(true); });
    row("expressly no fixed pitch", [](QFont& f) { f.setFixedPitch(false); });
    row("without kerning", [](QFont& f) { f.setKerning(false); });
    row("stretched", [](QFont& f) { f.setStretch(150); });
    row("spaced letters", [](QFont& f) { f.setLetterSpacing(QFont::AbsoluteSpacing, 1.5); });
    row("spaced letters in percent", [](QFont& f) { f.setLetterSpacing(QFont::PercentageSpacing, 120); });
    row("spaced words", [](QFont& f) { f.setWordSpacing(2); });
    row("small capitals", [](QFont& f) { f.setCapitalization(QFont::SmallCaps); });
    row("hinted", [](QFont& f) { f.setHintingPreference(QFont::PreferNoHinting); });
    row("named style", [](QFont& f) { f.setStyleName(QStringLiteral("Semilight")); });
    row("style hint", [](QFont& f) { f.setStyleHint(QFont::Monospace, QFont::NoAntialias); });
    row("several families", [](QFont& f) { f.setFamilies({QStringLiteral("Tahoma"), QStringLiteral("Arial")}); });
    row("unnamed weight", [](QFont& f) { f.setWeight(QFont::Weight(60)); });
}

void TstGuardedIni::fontComesBack()
{
    QFETCH(QFont, font);
    const std::optional<Entries> read = guardedini::parsed(guardedini::merged({}, entryWithValue(font)).file);
    QVERIFY(read);
    QCOMPARE(valueOf(*read).userType(), int(QMetaType::QFont));
    const auto back = valueOf(*read).value<QFont>();
    QCOMPARE(back, font);
    QCOMPARE(back.key(), font.key());
    QCOMPARE(back.families(), font.families());
    QCOMPARE(int(back.weight()), int(font.weight()));
    QCOMPARE(int(back.styleStrategy()), int(font.styleStrategy()));
}

void TstGuardedIni::fontWeightBetweenTheNamedOnesIsToldBesideTheStream()
{
    // The stream says 50, normal. Only Qt 6 can tell 450 from it.
    const QByteArray file = fileWithValue(QByteArray("QFont \"Tahoma\" weight 450 ") + tahomaStream);
    const std::optional<Entries> read = guardedini::parsed(file);
    QVERIFY(read);
    const auto font = valueOf(*read).value<QFont>();
    QCOMPARE(font.family(), QStringLiteral("Tahoma"));
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    QCOMPARE(int(font.weight()), 450);
#else
    QCOMPARE(font.weight(), 50);
#endif
}

void TstGuardedIni::keyHasThisText_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("word") << QStringLiteral("Audio_Fade_Inout2") << QByteArray("Audio_Fade_Inout2");
    QTest::newRow("empty") << QString() << QByteArray("\"\"");
    QTest::newRow("space") << QStringLiteral(" ") << QByteArray("\" \"");
    QTest::newRow("slashes") << QStringLiteral("/a//b/") << QByteArray("\"/a//b/\"");
    QTest::newRow("backslashes") << QStringLiteral("a\\b\\") << QByteArray(R"("a\\b\\")");
    QTest::newRow("equals sign") << QStringLiteral("a=b") << QByteArray("\"a=b\"");
    QTest::newRow("brackets") << QStringLiteral("[a]") << QByteArray("\"[a]\"");
    QTest::newRow("quotes") << QStringLiteral("\"a\"") << QByteArray(R"("\"a\"")");
    QTest::newRow("comment") << QStringLiteral("; a") << QByteArray("\"; a\"");
    QTest::newRow("percent") << QStringLiteral("100%41") << QByteArray("\"100%41\"");
    QTest::newRow("General") << QStringLiteral("General") << QByteArray("General");
    QTest::newRow("line break") << QStringLiteral("a\nb") << QByteArray(R"("a\u000ab")");
    QTest::newRow("zero") << QString(QChar(0)) << QByteArray(R"("\u0000")");
    QTest::newRow("accents") << QString::fromUtf8("\xc3\xa4") << QByteArray("\"\xc3\xa4\"");
    QTest::newRow("beyond 16 bits") << QString::fromUtf8("\xf0\x9f\x98\x80") << QByteArray(R"("\ud83d\ude00")");
    QTest::newRow("lone surrogate") << QString(QChar(0xd800)) << QByteArray(R"("\ud800")");
    QTest::newRow("100 KB of words") << QString(100 * 1024, QLatin1Char('k')) << QByteArray(100 * 1024, 'k');
    QTest::newRow("100 KB of slashes") << QString(100 * 1024, QLatin1Char('/'))
                                       << '"' + QByteArray(100 * 1024, '/') + '"';
}

void TstGuardedIni::keyHasThisText()
{
    QFETCH(QString, key);
    QFETCH(QByteArray, text);
    const QByteArray file = sealed('[' + text + "]\n" + text + "=QVariantMap {" + text + "=int 1}\n");
    const Entries entries{{key, QVariantMap{{key, QVariantMap{{key, 1}}}}}};
    QCOMPARE(guardedini::merged({}, entries).file, file);
    const std::optional<Entries> read = guardedini::parsed(file);
    QVERIFY(read);
    QVERIFY(*read == entries);
}

void TstGuardedIni::entryHasThisText_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("map of two") << QVariant(QVariantMap{{QStringLiteral("b"), 2}, {QStringLiteral("a"), 1}})
                                << QByteArray("a=int 1\nb=int 2\n");
    QTest::newRow("empty map") << QVariant(QVariantMap()) << QByteArray();
    QTest::newRow("map with empty key") << QVariant(QVariantMap{{QString(), 1}}) << QByteArray("\"\"=int 1\n");
    QTest::newRow("invalid") << QVariant() << QByteArray("=invalid\n");
    QTest::newRow("no map") << QVariant(5) << QByteArray("=int 5\n");
    QTest::newRow("list") << QVariant(QVariantList{1, 2}) << QByteArray("=QVariantList [int 1, int 2]\n");
    QTest::newRow("hash") << QVariant(QVariantHash{{QStringLiteral("a"), 1}})
                          << QByteArray("=QVariantHash {a=int 1}\n");
}

void TstGuardedIni::entryHasThisText()
{
    QFETCH(QVariant, value);
    QFETCH(QByteArray, text);
    const Entries entries{{QStringLiteral("S"), 1}, {QStringLiteral("T"), value}, {QStringLiteral("U"), QVariantMap()}};
    const QByteArray file = sealed("[S]\n=int 1\n[T]\n" + text + "[U]\n");
    QCOMPARE(guardedini::merged({}, entries).file, file);
    const std::optional<Entries> read = guardedini::parsed(file);
    QVERIFY(read);
    QVERIFY(*read == entries);
    QCOMPARE(read->value(QStringLiteral("T")).userType(), value.userType());
}

void TstGuardedIni::customDefaultsReadAndWriteAlikeWithEveryQt()
{
    const QByteArray file =
        firstLine + QByteArray(customDefaults) + "; sha1 61654e6c91229cd18fa559419b4ce8e2efe64a82\n";
    QCOMPARE(guardedini::merged({}, customDefaultEntries()).file, file);
    const std::optional<Entries> read = guardedini::parsed(file);
    QVERIFY(read);
    QVERIFY(*read == customDefaultEntries());
    const auto font =
        read->value(QStringLiteral("Watermark")).toMap().value(QStringLiteral("wm_fontname")).value<QFont>();
    QCOMPARE(font.family(), QStringLiteral("Tahoma"));
    QCOMPARE(font.pointSize(), 12);
    QVERIFY(font.bold());
    QVERIFY(font.italic());
}

void TstGuardedIni::valueThatTheFileCannotHoldIsLeftOut_data()
{
    const QString huge(64 * 1024 * 1024, QLatin1Char('x'));
    const QByteArray hugeBytes(64 * 1024 * 1024, 'x');
    QTest::addColumn<QVariant>("value");
    QTest::newRow("image") << QVariant(QImage(2, 2, QImage::Format_ARGB32));
    QTest::newRow("pointer") << QVariant::fromValue<QObject*>(nullptr);
    QTest::newRow("type of the program's own") << QVariant::fromValue(OwnType());
    QTest::newRow("moment of a time zone") << QVariant(QDateTime(QDate(2020, 1, 2), QTime(1, 2, 3), QTimeZone::utc()));
    QTest::newRow("image in a list") << QVariant(QVariantList{1, QImage(2, 2, QImage::Format_ARGB32)});
    QTest::newRow("image in a map") << QVariant(QVariantMap{{QStringLiteral("i"), QImage(2, 2, QImage::Format_RGB32)}});
    QTest::newRow("list 33 deep") << nestedList(33);
    QTest::newRow("map 33 deep") << nestedMap(33);
    QTest::newRow("list 5,000 deep") << nestedList(5000);
    QTest::newRow("map 5,000 deep") << nestedMap(5000);
    QTest::newRow("string of 64 MB") << QVariant(huge);
    QTest::newRow("string of 64 MB in a list") << QVariant(QStringList({huge, QStringLiteral("a")}));
    QTest::newRow("byte array of 64 MB") << QVariant(hugeBytes);
    QTest::newRow("polygon of 16 MB") << QVariant(QPolygon(QVector<QPoint>(2 * 1024 * 1024)));
    QTest::newRow("font with a family of 64 MB") << QVariant(QFont(huge));
    QTest::newRow("key of 64 MB") << QVariant(QVariantMap{{huge, 1}});
    QTest::newRow("a million numbers") << QVariant(QVariantList(QVector<QVariant>(1000000, QVariant(5)).toList()));
    QTest::newRow("string of 2 MB") << QVariant(QString(2 * 1024 * 1024, QLatin1Char('x')));
    QTest::newRow("string of 1 MB that doubles in UTF-8") << QVariant(QString(1024 * 1024, QChar(0xe4)));
    QTest::newRow("string of 500 KB that is escaped") << QVariant(QString(500 * 1024, QChar(1)));
}

void TstGuardedIni::valueThatTheFileCannotHoldIsLeftOut()
{
    QFETCH(QVariant, value);
    const Entries changes{{QStringLiteral("T"), QVariantMap{{QStringLiteral("p"), value}}},
                          {QStringLiteral("U"), QVariantList{value}},
                          {QStringLiteral("V"), 1}};
    const Merge merge = guardedini::merged({}, changes);
    QCOMPARE(merge.leftOut.keys(), QStringList({QStringLiteral("T"), QStringLiteral("U")}));
    QCOMPARE(merge.entries.keys(), QStringList(QStringLiteral("V")));
    QCOMPARE(merge.file, sealed("[V]\n=int 1\n"));
}

void TstGuardedIni::deepestNestingIsHeld()
{
    const QByteArray list = repeated("QVariantList [", 32) + "int 1" + repeated("]", 32);
    const QByteArray map = repeated("QVariantMap {m=", 32) + "int 1" + repeated("}", 32);
    QCOMPARE(guardedini::merged({}, entryWithValue(nestedList(32))).file, fileWithValue(list));
    QCOMPARE(guardedini::merged({}, entryWithValue(nestedMap(32))).file, fileWithValue(map));
    QVERIFY(valueOf(guardedini::parsed(fileWithValue(list)).value_or(Entries())) == nestedList(32));
    QVERIFY(valueOf(guardedini::parsed(fileWithValue(map)).value_or(Entries())) == nestedMap(32));
}

void TstGuardedIni::changesReplaceAndAdd()
{
    const Merge merge = guardedini::merged({{QStringLiteral("a"), 1}, {QStringLiteral("b"), 2}},
                                           {{QStringLiteral("b"), QVariant()}, {QStringLiteral("c"), 3}});
    QCOMPARE(merge.file, sealed("[a]\n=int 1\n[b]\n=invalid\n[c]\n=int 3\n"));
    QVERIFY((merge.entries
             == Entries{{QStringLiteral("a"), 1}, {QStringLiteral("b"), QVariant()}, {QStringLiteral("c"), 3}}));
    QVERIFY(merge.leftOut.isEmpty());
}

void TstGuardedIni::changeThatIsLeftOutKeepsThePresentEntry()
{
    const Merge merge = guardedini::merged({{QStringLiteral("a"), 1}}, {{QStringLiteral("a"), nestedList(33)}});
    QCOMPARE(merge.file, sealed("[a]\n=int 1\n"));
    QVERIFY((merge.entries == Entries{{QStringLiteral("a"), 1}}));
    QVERIFY((merge.leftOut == Entries{{QStringLiteral("a"), nestedList(33)}}));
}

void TstGuardedIni::otherChangesGoWhenOneIsLeftOut()
{
    const Merge merge = guardedini::merged(
        {}, {{QStringLiteral("a"), 1}, {QStringLiteral("b"), nestedList(33)}, {QStringLiteral("c"), 3}});
    QCOMPARE(merge.file, sealed("[a]\n=int 1\n[c]\n=int 3\n"));
    QCOMPARE(merge.leftOut.keys(), QStringList(QStringLiteral("b")));
}

void TstGuardedIni::onlyWhatFitsGoesIntoTheFile()
{
    const QString large(1200 * 1024, QLatin1Char('x'));
    const Merge merge =
        guardedini::merged({{QStringLiteral("a"), large}}, {{QStringLiteral("b"), large}, {QStringLiteral("c"), 3}});
    QCOMPARE(merge.entries.keys(), QStringList({QStringLiteral("a"), QStringLiteral("c")}));
    QCOMPARE(merge.leftOut.keys(), QStringList(QStringLiteral("b")));
    QVERIFY(guardedini::parsed(merge.file).value_or(Entries()) == merge.entries);
}

void TstGuardedIni::replacedEntryMakesRoomForItsSuccessor()
{
    const Merge merge = guardedini::merged({{QStringLiteral("a"), QString(1200 * 1024, QLatin1Char('x'))}},
                                           {{QStringLiteral("a"), QString(1300 * 1024, QLatin1Char('y'))}});
    QVERIFY(merge.leftOut.isEmpty());
    QVERIFY((guardedini::parsed(merge.file).value_or(Entries())
             == Entries{{QStringLiteral("a"), QString(1300 * 1024, QLatin1Char('y'))}}));

    const Merge two = guardedini::merged({{QStringLiteral("a"), QString(1200 * 1024, QLatin1Char('x'))}},
                                         {{QStringLiteral("a"), QString(1300 * 1024, QLatin1Char('y'))},
                                          {QStringLiteral("b"), QString(700 * 1024, QLatin1Char('z'))}});
    QVERIFY(two.leftOut.isEmpty());

    // The file's own two lines are 80 and 48 bytes, the entry's frame "[a]\n=QString """ and "\n" 16.
    const int room = 2 * 1024 * 1024 - 80 - 48 - 16;
    const Merge full = guardedini::merged({}, {{QStringLiteral("a"), QString(room, QLatin1Char('z'))}});
    QCOMPARE(full.file.size(), 2 * 1024 * 1024);
    QVERIFY(guardedini::parsed(full.file));
    const Merge over = guardedini::merged({}, {{QStringLiteral("a"), QString(room + 1, QLatin1Char('z'))}});
    QCOMPARE(over.leftOut.size(), 1);
}

void TstGuardedIni::mergedFileOfNothingIsEmptyAndWhole()
{
    const Merge merge = guardedini::merged({}, {});
    QCOMPARE(merge.file, sealed(""));
    QVERIFY(guardedini::parsed(merge.file));
    QVERIFY(guardedini::parsed(merge.file)->isEmpty());
}

void TstGuardedIni::fileCutAnywhereIsDamaged()
{
    const QByteArray file = sealed(customDefaults);
    QVERIFY(guardedini::parsed(file));
    for (int length = 0; length < file.size(); ++length) {
        QVERIFY2(!guardedini::parsed(file.left(length)), qPrintable(QString::number(length)));
        QVERIFY2(length == 0 || !guardedini::parsed(file.right(length)), qPrintable(QString::number(length)));
    }
}

void TstGuardedIni::fileWithAnyBitFlippedIsDamaged()
{
    const QByteArray file = sealed(customDefaults);
    for (int i = 0; i < file.size(); ++i) {
        for (int bit = 0; bit < 8; ++bit) {
            QByteArray flipped = file;
            flipped[i] = static_cast<char>(flipped.at(i) ^ (1 << bit));
            QVERIFY2(!guardedini::parsed(flipped), qPrintable(QStringLiteral("byte %1 bit %2").arg(i).arg(bit)));
        }
    }
}

void TstGuardedIni::bytesOfNoFileAreDamaged_data()
{
    QTest::addColumn<QByteArray>("file");
    const QByteArray whole = sealed("[T]\np=int 1\n");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("zeros") << QByteArray(500, '\0');
    QTest::newRow("line breaks") << QByteArray(500, '\n');
    QTest::newRow("something added") << whole + '\n';
    QTest::newRow("byte order mark before") << "\xef\xbb\xbf" + whole;
    QTest::newRow("lines of another system") << QByteArray(whole).replace("\n", "\r\n");
    QTest::newRow("twice") << whole + whole;
    QTest::newRow("value edited by hand") << QByteArray(whole).replace("int 1", "int 2");
    QTest::newRow("checksum in capitals") << whole.left(whole.size() - 41) + whole.right(41).toUpper();
    QTest::newRow("without checksum") << whole.left(whole.size() - 48);
    QTest::newRow("plain settings file") << QByteArray("[General]\nWatermark=@Variant(\\0\\0\\0\\b\\0\\0\\0\\0)\n");
    QTest::newRow("plain settings file, a value 50,000 deep")
        << "[General]\nWatermark=\"@Variant(" + repeated(R"(\0\0\0\t\0\0\0\x1)", 50000) + ")\"\n";
    QTest::newRow("picture") << QByteArray("\x89PNG\r\n\x1a\n") + QByteArray(300, '\x7f');
}

void TstGuardedIni::bytesOfNoFileAreDamaged()
{
    QFETCH(QByteArray, file);
    QVERIFY(!guardedini::parsed(file));
}

void TstGuardedIni::hostileFileIsDamagedInSpiteOfItsChecksum_data()
{
    QTest::addColumn<QByteArray>("file");
    const auto value = [](const char* name, const QByteArray& text) { QTest::newRow(name) << fileWithValue(text); };
    const auto body = [](const char* name, const QByteArray& text) { QTest::newRow(name) << sealed(text); };

    value("list 50,000 deep", repeated("QVariantList [", 50000) + repeated("]", 50000));
    value("list 50,000 deep, never closed", repeated("QVariantList [", 50000));
    value("map 50,000 deep", repeated("QVariantMap {m=", 50000) + "int 1" + repeated("}", 50000));
    value("hash 50,000 deep", repeated("QVariantHash {m=", 50000) + "int 1" + repeated("}", 50000));
    value("list 33 deep", repeated("QVariantList [", 33) + repeated("]", 33));
    value("map 33 deep", repeated("QVariantMap {m=", 33) + "int 1" + repeated("}", 33));
    QTest::newRow("a byte too large") << sealed("[T]\np=QString \"" + QByteArray(2 * 1024 * 1024 - 80 - 48 - 16, 'x')
                                                + "\"\n");

    value("unknown type", "QImage 00");
    value("type in other letters", "INT 1");
    value("no type", "1");
    value("nothing", "");
    value("type without value", "int");
    value("type with blank only", "int ");
    value("two blanks", "int  1");
    value("number with rest", "int 1x");
    value("number with blank behind", "int 1 ");
    value("two numbers", "int 1 2");
    value("fraction as int", "int 1.5");
    value("int too large", "int 2147483648");
    value("int too small", "int -2147483649");
    value("uint below zero", "uint -1");
    value("uint too large", "uint 4294967296");
    value("qlonglong too large", "qlonglong 9223372036854775808");
    value("qulonglong too large", "qulonglong 18446744073709551616");
    value("short too large", "short 32768");
    value("ushort too large", "ushort 65536");
    value("schar too small", "schar -129");
    value("uchar too large", "uchar 256");
    value("bool as number", "bool 1");
    value("bool in other letters", "bool True");
    value("double with comma", "double 0,5");
    value("double as word", "double half");
    value("double too large", "double 1e400");
    value("float too large", "float 1e300");
    value("invalid with rest", "invalid 1");

    value("string without quotes", "QString abc");
    value("string never closed", "QString \"abc");
    value("string over two lines", "QString \"a\nb\"");
    value("string with rest", "QString \"a\"b");
    value("escape unknown", R"(QString "\n")");
    value("escape cut", R"(QString "\u00")");
    value("escape of other digits", R"(QString "\u00g0")");
    value("backslash at the end", "QString \"\\");
    value("string list without brackets", "QStringList \"a\"");
    value("string list never closed", "QStringList [\"a\"");
    value("string list with comma at the end", "QStringList [\"a\", ]");
    value("string list of numbers", "QStringList [int 1]");
    value("list without comma", "QVariantList [int 1 int 2]");
    value("list without blank", "QVariantList [int 1,int 2]");
    value("list closed as a map", "QVariantList [int 1}");
    value("map without key", "QVariantMap {=int 1}");
    value("map without value", "QVariantMap {a}");
    value("map closed as a list", "QVariantMap {a=int 1]");
    value("byte array without mark", "QByteArray 00");
    value("byte array of odd digits", "QByteArray x000");
    value("byte array of other digits", "QByteArray x0g");
    value("byte array in capitals", "QByteArray xFF");

    value("colour by name", "QColor red");
    value("colour without value", "QColor ");
    value("colour too short", "QColor #ffffff");
    value("colour of other digits", "QColor #ffffgfff");
    value("colour stream too short", "QColor 01ffffffffffffffff00");
    value("colour stream too long", "QColor 01ffffffffffffffff000000");
    value("colour of unknown model", "QColor 09ffffffffffffffff0000");
    value("colour of model below zero", "QColor ffffffffffffffffff0000");
    value("size too short", "QSize 00000001");
    value("size too long", "QSize 000000010000000200000003");
    value("rectangle in capitals", "QRect 0000000100000002000000030000000A");
    value("link that claims 2 GB", "QUrl 7fffffff687474703a2f2f612e622f633f64");
    value("locale that claims 2 GB", "QLocale 7ffffffe00640065");
    value("expression that claims 2 GB", "QRegularExpression 7ffffffe0061");
    value("polygon that claims 4 billion points", "QPolygon ffffffff0000000100000002");
    value("exact polygon that claims 4 billion points", "QPolygonF ffffffff");
    value("polygon that claims 2 billion points", "QPolygon 7fffffff0000000100000002");
    value("polygon that claims too few points", "QPolygon 00000000000000010000000200000003");
    value("bits that claim 4 billion", "QBitArray ffffffff03");
    value("bits that claim 4 billion, and none there", "QBitArray ffffffff");
    value("bits that claim one byte more", "QBitArray 0000001100ff");
    value("keys that claim 4 billion", "QKeySequence ffffffff0400004104000042");
    value("two keys", "QKeySequence 000000020400004104000042");
    value("five keys", "QKeySequence 000000050400004104000042000000000000000000000000");
    value("moment of unknown kind", "QDateTime 00000000002584e30038cef809");
    value("moment of kind below zero", "QDateTime 00000000002584e30038cef8ff");
    value("moment of a time zone", "QDateTime 00000000002584e30038cef803000000065a756c75");
    value("moment cut", "QDateTime 00000000002584e3");
    value("moment with offset cut", "QDateTime 00000000002584e30038cef802");

    value("font without label", "QFont " + QByteArray(tahomaStream));
    value("font without stream", "QFont \"Tahoma\"");
    value("font cut in its name", "QFont \"Tahoma\" 0000000c0054");
    value("font that claims 2 GB of name", "QFont \"Tahoma\" 7ffffffe0054");
    value("font cut in its numbers", "QFont \"Tahoma\" 000000020041ffffffff4028000000000000ffff");
    const QByteArray withoutFamilies = QByteArray(tahomaStream).chopped(8); // Of the digits of their count.
    value("font cut before its families", "QFont \"Tahoma\" " + withoutFamilies);
    value("font that claims 4 billion families", "QFont \"Tahoma\" " + withoutFamilies + "ffffffff");
    value("font that claims 2 billion families", "QFont \"Tahoma\" " + withoutFamilies + "7fffffff");
    value("font that claims a family more", "QFont \"Tahoma\" " + withoutFamilies + "00000001");
    value("font with rest", "QFont \"Tahoma\" " + QByteArray(tahomaStream) + "00");
    value("font of no weight", "QFont \"Tahoma\" weight 0 " + QByteArray(tahomaStream));
    value("font too heavy", "QFont \"Tahoma\" weight 1001 " + QByteArray(tahomaStream));
    value("font of weight in words", "QFont \"Tahoma\" weight bold " + QByteArray(tahomaStream));

    QTest::newRow("other first line") << checksummed("; Custom defaults of effects.\n[T]\np=int 1\n");
    body("property before the first entry", "p=int 1\n");
    body("value before the first entry", "=int 1\n");
    body("entry without key", "[]\np=int 1\n");
    body("entry never closed", "[T\np=int 1\n");
    body("entry with rest", "[T] \np=int 1\n");
    body("entry of two words", "[T U]\np=int 1\n");
    body("property without key", "[T]\np=int 1\n=int 2\n");
    body("value with property behind", "[T]\n=int 1\np=int 2\n");
    body("two values", "[T]\n=int 1\n=int 2\n");
    body("key with blank behind", "[T]\np =int 1\n");
    body("key of two words", "[T]\np q=int 1\n");
    body("line without equals sign", "[T]\np\n");
    body("comment", "[T]\n; a\np=int 1\n");
    body("empty line", "[T]\n\np=int 1\n");
    body("last line not ended", "[T]\np=int 1");
    body("zero byte", QByteArray("[T]\np=int 1\0\n", 13));
}

void TstGuardedIni::hostileFileIsDamagedInSpiteOfItsChecksum()
{
    QFETCH(QByteArray, file);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!guardedini::parsed(file));
    QVERIFY2(timer.elapsed() < 5000, "reads what the file does not hold");
}

QTEST_GUILESS_MAIN(TstGuardedIni)
#include "tst_guardedini.moc"
