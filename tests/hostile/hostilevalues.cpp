// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "hostilevalues.h"

#include <cstring>
#include <limits>

#include <QBitArray>
#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QImage>
#include <QJsonArray>
#include <QJsonObject>
#include <QKeySequence>
#include <QPoint>
#include <QRect>
#include <QRegularExpression>
#include <QUrl>

namespace {

using Int = std::numeric_limits<int>;
using Long = std::numeric_limits<qint64>;
using Double = std::numeric_limits<double>;
using Float = std::numeric_limits<float>;

template <typename T>
QVariant of(T value)
{
    return QVariant::fromValue<T>(value);
}

QVariant text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QVariant nullOf(QMetaType::Type type)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QVariant(static_cast<QVariant::Type>(type));
#else
    return QVariant(QMetaType(type));
#endif
}

template <typename T>
bool sameBytes(const QVariant& left, const QVariant& right)
{
    const auto a = left.value<T>();
    const auto b = right.value<T>();
    // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison,cert-exp42-c,cert-flp37-c): of numbers, the bytes are meant.
    return std::memcmp(&a, &b, sizeof a) == 0;
}

bool sameMaps(const QVariantMap& left, const QVariantMap& right)
{
    if (left.size() != right.size())
        return false;
    auto other = right.cbegin();
    for (auto it = left.cbegin(); it != left.cend(); ++it, ++other) {
        if (it.key() != other.key() || !identical(it.value(), other.value()))
            return false;
    }
    return true;
}

} // namespace

// clang-format off
const QVector<HostileValue>& hostileValues()
{
    static HostSmall small{3};
    const QDate leapDay(2020, 2, 29);
    const QTime time(1, 2, 3);
    static const QVector<HostileValue> values = {
        // name                        value                                     whole        truth  real                        text
        {"int 0",                      0,                                        0,           false, "0",                        "0"},
        {"int -1",                     -1,                                       -1,          true,  "-1",                       "-1"},
        {"highest int",                Int::max(),                               2147483647,  true,  "2147483647",               "2147483647"},
        {"lowest int",                 Int::min(),                               Int::min(),  true,  "-2147483648",              "-2147483648"},
        {"highest uint",               of(std::numeric_limits<uint>::max()),     -1,          true,  "4294967295",               "4294967295"},
        {"highest 64 bits",            of(Long::max()),                          -1,          true,  "9.2233720368547758e+18",   "9223372036854775807"},
        {"lowest 64 bits",             of(Long::min()),                          0,           true,  "-9.2233720368547758e+18",  "-9223372036854775808"},
        {"2^32 + 1",                   of(qint64(4294967297)),                   1,           true,  "4294967297",               "4294967297"},
        {"2^31",                       of(qint64(2147483648)),                   Int::min(),  true,  "2147483648",               "2147483648"},
        {"highest unsigned 64 bits",   of(std::numeric_limits<quint64>::max()),  -1,          true,  "1.8446744073709552e+19",   "18446744073709551615"},
        {"lowest short",               of(short(-32768)),                        -32768,      true,  "-32768",                   "-32768"},
        {"highest ushort",             of(ushort(65535)),                        65535,       true,  "65535",                    "65535"},
        {"char A",                     of('A'),                                  65,          true,  "65",                       "A"},
        {"lowest signed char",         of(static_cast<signed char>(-128)),       -128,        true,  "-128",                     nullptr},
        {"highest uchar",              of(uchar(255)),                           255,         true,  "255",                      nullptr},
        {"true",                       true,                                     1,           true,  "1",                        "true"},
        {"false",                      false,                                    0,           false, "0",                        "false"},

        {"NaN",                        Double::quiet_NaN(),                      0,           false, "nan",                      "nan", false},
        {"infinity",                   Double::infinity(),                       0,           true,  "inf",                      "inf"},
        {"-infinity",                  -Double::infinity(),                      0,           false, "-inf",                     "-inf"},
        {"smallest double",            Double::denorm_min(),                     0,           false, "4.9406564584124654e-324",  "5e-324"},
        {"-0.0",                       -0.0,                                     0,           false, "-0",                       "0"},
        {"highest double",             Double::max(),                            0,           true,  "1.7976931348623157e+308",  "1.7976931348623157e+308"},
        {"lowest double",              -Double::max(),                           0,           false, "-1.7976931348623157e+308", "-1.7976931348623157e+308"},
        {"2147483647.5",               2147483647.5,                             Int::min(),  true,  "2147483647.5",             "2147483647.5"},
        {"-2147483648.5",              -2147483648.5,                            Int::min(),  true,  "-2147483648.5",            "-2147483648.5"},
        {"0.5",                        0.5,                                      1,           true,  "0.5",                      "0.5"},
        {"-0.5",                       -0.5,                                     0,           false, "-0.5",                     "-0.5"},
        {"-1.5",                       -1.5,                                     -1,          true,  "-1.5",                     "-1.5"},
        {"largest below 0.5",          0.49999999999999994,                      1,           true,  "0.49999999999999994",      "0.49999999999999994"},
        {"2^63",                       9223372036854775808.0,                    0,           true,  "9.2233720368547758e+18",   "9223372036854776000"},
        {"-2^63",                      -9223372036854775808.0,                   0,           true,  "-9.2233720368547758e+18",  "-9223372036854776000"},
        {"2^52 + 1",                   4503599627370497.0,                       2,           true,  "4503599627370497",         "4503599627370497"},
        {"1e10",                       1e10,                                     1410065408,  true,  "10000000000",              "1e+10"},
        {"-1e-20",                     -1e-20,                                   0,           false, "-9.9999999999999995e-21",  "-1e-20"},

        {"float NaN",                  of(Float::quiet_NaN()),                   0,           false, "nan",                      "nan", false},
        {"float infinity",             of(Float::infinity()),                    0,           true,  "inf",                      "inf"},
        {"highest float",              of(Float::max()),                         0,           true,  "3.4028234663852886e+38",   "3.4028234663852886e+38"},
        {"smallest float",             of(Float::denorm_min()),                  0,           false, "1.4012984643248171e-45",   "1.401298464324817e-45"},
        {"float 8388609",              of(8388609.0F),                           8388610,     true,  "8388609",                  "8388609"},
        {"float -8388609",             of(-8388609.0F),                          -8388609,    true,  "-8388609",                 "-8388609"},
        {"float 8388611",              of(8388611.0F),                           8388612,     true,  "8388611",                  "8388611"},
        {"float 12582913",             of(12582913.0F),                          12582914,    true,  "12582913",                 "12582913"},
        {"float 8388607.5",            of(8388607.5F),                           8388608,     true,  "8388607.5",                "8388607.5"},
        {"float -8388607.5",           of(-8388607.5F),                          -8388607,    true,  "-8388607.5",               "-8388607.5"},
        {"float 4194304.5",            of(4194304.5F),                           4194305,     true,  "4194304.5",                "4194304.5"},
        {"float -4194304.5",           of(-4194304.5F),                          -4194304,    true,  "-4194304.5",               "-4194304.5"},
        {"float 16777216",             of(16777216.0F),                          16777216,    true,  "16777216",                 "16777216"},
        {"float 2^31",                 of(2147483648.0F),                        Int::min(),  true,  "2147483648",               "2147483648"},
        {"float 2^63",                 of(9223372036854775808.0F),               0,           true,  "9.2233720368547758e+18",   "9223372036854776000"},
        {"float -2^63",                of(-9223372036854775808.0F),              0,           true,  "-9.2233720368547758e+18",  "-9223372036854776000"},
        {"largest float below 0.5",    of(0.49999997F),                          1,           true,  "0.49999997019767761",      "0.4999999701976776"},
        {"its negative",               of(-0.49999997F),                         0,           false, "-0.49999997019767761",     "-0.4999999701976776"},
        {"first float below -0.5",     of(-0.50000006F),                         -1,          true,  "-0.50000005960464478",     "-0.5000000596046448"},
        {"float -0.5",                 of(-0.5F),                                0,           false, "-0.5",                     "-0.5"},
        {"float -1.5",                 of(-1.5F),                                -1,          true,  "-1.5",                     "-1.5"},
        {"float 0.1",                  of(0.1F),                                 0,           false, "0.10000000149011612",      "0.10000000149011612"},
        {"float -1e-10",               of(-1e-10F),                              0,           false, "-1.000000013351432e-10",   "-1.000000013351432e-10"},

        {"empty text",                 text(""),                                 0,           false, nullptr,                    ""},
        {"null text",                  QString(),                                0,           false, nullptr,                    ""},
        {"text 1e999",                 text("1e999"),                            0,           true,  nullptr,                    "1e999"},
        {"text -1e999",                text("-1e999"),                           0,           true,  nullptr,                    "-1e999"},
        {"text 1e-999",                text("1e-999"),                           0,           true,  nullptr,                    "1e-999"},
        {"text 0x10",                  text("0x10"),                             0,           true,  nullptr,                    "0x10"},
        {"text 5 with blanks",         text(" 5 "),                              5,           true,  "5",                        " 5 "},
        {"text 5.5",                   text("5.5"),                              0,           true,  "5.5",                      "5.5"},
        {"text abc",                   text("abc"),                              0,           true,  nullptr,                    "abc"},
        {"text False",                 text("False"),                            0,           false, nullptr,                    "False"},
        {"text 0",                     text("0"),                                0,           false, "0",                        "0"},
        {"text 00",                    text("00"),                               0,           true,  "0",                        "00"},
        {"text +5",                    text("+5"),                               5,           true,  "5",                        "+5"},
        {"text 2^31",                  text("2147483648"),                       Int::min(),  true,  "2147483648",               "2147483648"},
        {"text of lowest int",         text("-2147483648"),                      Int::min(),  true,  "-2147483648",              "-2147483648"},
        {"text 2^63",                  text("9223372036854775808"),              0,           true,  "9.2233720368547758e+18",   "9223372036854775808"},
        {"text nan",                   text("nan"),                              0,           true,  "nan",                      "nan"},
        {"text inf",                   text("inf"),                              0,           true,  "inf",                      "inf"},
        {"text infinity",              text("infinity"),                         0,           true,  nullptr,                    "infinity"},
        {"text 1e3",                   text("1e3"),                              0,           true,  "1000",                     "1e3"},
        {"text 1,000",                 text("1,000"),                            0,           true,  nullptr,                    "1,000"},
        {"text of an Arabic 5",        text("\xd9\xa5"),                         0,           true,  nullptr,                    "\xd9\xa5"},
        {"text %n%s",                  text("%n%s%1"),                           0,           true,  nullptr,                    "%n%s%1"},
        {"text |",                     text("|"),                                0,           true,  nullptr,                    "|"},
        {"text of a null character",   QString(QChar(0)),                        0,           true,  nullptr,                    nullptr},
        {"text 5 and a null character", QString(QLatin1Char('5')) + QChar(0),    0,           true,  nullptr,                    nullptr},
        {"lone surrogate",             QString(QChar(0xd800)),                   0,           true,  nullptr,                    nullptr},
        {"100000 nines",               QString(100000, QLatin1Char('9')),        0,           true,  nullptr,                    nullptr},

        {"bytes 7",                    QByteArray("7"),                          7,           true,  "7",                        "7"},
        {"no bytes",                   QByteArray(),                             0,           false, nullptr,                    ""},
        {"null byte",                  QByteArray("\0", 1),                      0,           true,  nullptr,                    ""},
        {"bytes false",                QByteArray("false"),                      0,           false, nullptr,                    "false"},
        {"bytes with a null byte",     QByteArray("5\0x", 3),                    5,           true,  nullptr,                    "5"},
        {"bytes 1e999",                QByteArray("1e999"),                      0,           true,  nullptr,                    "1e999"},
        {"bytes that are no text",     QByteArray("\xff\xfe"),                   0,           true,  nullptr,                    "\xef\xbf\xbd\xef\xbf\xbd"},
        {"character 5",                QChar(QLatin1Char('5')),                  53,          true,  nullptr,                    "5"},
        {"null character",             QChar(0),                                 0,           false, nullptr,                    nullptr},

        {"date",                       leapDay,                                  0,           false, nullptr,                    "2020-02-29"},
        {"invalid date",               QDate(),                                  0,           false, nullptr,                    ""},
        {"time",                       time,                                     0,           false, nullptr,                    "01:02:03.000"},
        {"date and time",              QDateTime(leapDay, time, Qt::UTC),        0,           false, nullptr,                    "2020-02-29T01:02:03.000Z"},
        {"extreme size",               QSize(Int::max(), Int::min()),            0,           false, nullptr,                    ""},
        {"point",                      QPoint(1, 2),                             0,           false, nullptr,                    ""},
        {"rectangle",                  QRect(1, 2, 3, 4),                        0,           false, nullptr,                    ""},
        {"rectangle at NaN",           QRectF(Double::quiet_NaN(), 0, 0, 0),     0,           false, nullptr,                    "", false},
        {"invalid colour",             QColor(),                                 0,           false, nullptr,                    "#000000"},
        {"translucent colour",         QColor(1, 2, 3, 4),                       0,           false, nullptr,                    "#04010203"},
        {"font of 1000000 points",     QFont(QStringLiteral("Tahoma"), 1000000), 0,           false, nullptr,                    "Tahoma,1e+06,-1,5,50,0,0,0,0,0"},
        {"empty list of texts",        QStringList(),                            0,           false, nullptr,                    ""},
        {"list of one text",           QStringList(QStringLiteral("5")),         0,           false, nullptr,                    "5"},
        {"list of two texts",          QStringList{QStringLiteral("a"), QStringLiteral("b")}, 0, false, nullptr,                 ""},
        {"list with NaN",              QVariantList{Double::quiet_NaN()},        0,           false, nullptr,                    ""},
        {"map in a map",               QVariantMap{{QStringLiteral("a"), QVariantMap{{QStringLiteral("b"), 1}}}}, 0, false, nullptr, ""},
        {"empty hash",                 QVariantHash(),                           0,           false, nullptr,                    ""},
        {"invalid",                    QVariant(),                               0,           false, nullptr,                    ""},
        {"null int",                   nullOf(QMetaType::Int),                   0,           false, "0",                        "0"},
        {"null QString",               nullOf(QMetaType::QString),               0,           false, nullptr,                    ""},
        {"null double",                nullOf(QMetaType::Double),                0,           false, "0",                        "0"},
        {"null bool",                  nullOf(QMetaType::Bool),                  0,           false, "0",                        "false"},
        {"null pointer",               of(nullptr),                              0,           false, nullptr,                    ""},
        {"pointer",                    of<void*>(&small),                        0,           false, nullptr,                    ""},
        {"pointer to a host's type",   of(&small),                               0,           false, nullptr,                    ""},
        {"null object",                of<QObject*>(nullptr),                    0,           false, nullptr,                    ""},
        {"a host's type",              of(HostSmall{5}),                         0,           false, nullptr,                    ""},
        {"a host's large type",        of(HostLarge{}),                          0,           false, nullptr,                    ""},
        {"picture",                    of(QImage(2, 2, QImage::Format_RGB32)),   0,           false, nullptr,                    ""},
        {"address",                    QUrl(QStringLiteral("http://a/5")),       0,           false, nullptr,                    "http://a/5"},
        {"bits",                       QBitArray(3),                             0,           false, nullptr,                    ""},
        {"expression",                 QRegularExpression(QStringLiteral("5")),  0,           false, nullptr,                    ""},
        {"JSON 5",                     QJsonValue(5),                            5,           false, "5",                        ""},
        {"JSON 7 as a text",           QJsonValue(QStringLiteral("7")),          0,           false, nullptr,                    "7"},
        {"JSON true",                  QJsonValue(true),                         0,           true,  nullptr,                    ""},
        {"JSON object",                QJsonObject(),                            0,           false, nullptr,                    ""},
        {"keys",                       of(QKeySequence(QStringLiteral("Ctrl+A"))), 67108929,  false, nullptr,                    "Ctrl+A"},
    };
    return values;
}
// clang-format on

const QVector<HugeValue>& hugeValues()
{
    constexpr int textOf64MiB = 32 << 20;
    constexpr int deep = 2000;
    static const QVector<HugeValue> values = [] {
        QVariant maps = 1;
        QVariant lists = 1;
        for (int i = 0; i < deep; ++i) {
            maps = QVariantMap{{QStringLiteral("a"), maps}};
            lists = QVariantList{lists};
        }
        return QVector<HugeValue>{
            {"text of 64 MiB", QString(textOf64MiB, QLatin1Char('9'))},
            {"bytes of 64 MiB", QByteArray(2 * textOf64MiB, '9')},
            {"deep maps", maps},
            {"deep lists", lists},
            {"list of a million", QVariantList(QVector<QVariant>(1000000, 5).toList())},
        };
    }();
    return values;
}

bool identical(const QVariant& left, const QVariant& right) // NOLINT(misc-no-recursion): values nest
{
    if (left.userType() != right.userType() || left.isNull() != right.isNull())
        return false;
    switch (left.userType()) {
    case QMetaType::UnknownType:
        return true;
    case QMetaType::Double:
        return sameBytes<double>(left, right);
    case QMetaType::Float:
        return sameBytes<float>(left, right);
    case QMetaType::QString:
        return left.toString() == right.toString();
    case QMetaType::QVariantMap:
        return left.toMap().isSharedWith(right.toMap()) || sameMaps(left.toMap(), right.toMap());
    case QMetaType::QVariantList: {
        const QVariantList a = left.toList();
        const QVariantList b = right.toList();
        return a.isSharedWith(b) || std::equal(a.cbegin(), a.cend(), b.cbegin(), b.cend(), identical);
    }
    case QMetaType::QRectF:
        return sameBytes<QRectF>(left, right);
    case QMetaType::QImage:
        return left.value<QImage>().cacheKey() == right.value<QImage>().cacheKey();
    default:
        break;
    }
    if (left.userType() == qMetaTypeId<HostSmall>())
        return left.value<HostSmall>().number == right.value<HostSmall>().number;
    if (left.userType() == qMetaTypeId<HostLarge>())
        return sameBytes<HostLarge>(left, right);
    return left == right;
}
