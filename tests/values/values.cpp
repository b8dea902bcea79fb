// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "values.h"

#include <limits>

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QPoint>
#include <QRectF>
#include <QUrl>
#include <QUuid>

namespace {

/// A value of the type that is null.
QVariant nullOf(int type)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QVariant(static_cast<QVariant::Type>(type));
#else
    return QVariant(QMetaType(type));
#endif
}

} // namespace

const QVector<NamedValue>& namedValues()
{
    using List = QVariantList;
    using Map = QVariantMap;
    using Hash = QVariantHash;
    static const QVector<NamedValue> all = {
        {"invalid", QVariant()},
        {"null int", nullOf(QMetaType::Int)},
        {"null double", nullOf(QMetaType::Double)},
        {"null bool", nullOf(QMetaType::Bool)},
        {"null text", nullOf(QMetaType::QString)},
        {"false", false},
        {"true", true},
        {"0", 0},
        {"1", 1},
        {"-1", -1},
        {"5", 5},
        {"65", 65},
        {"int, the highest", std::numeric_limits<int>::max()},
        {"int, the lowest", std::numeric_limits<int>::min()},
        {"uint 5", 5U},
        {"uint, the highest", std::numeric_limits<uint>::max()},
        {"qlonglong 5", qlonglong(5)},
        {"qlonglong, the highest", std::numeric_limits<qlonglong>::max()},
        {"qlonglong, the lowest", std::numeric_limits<qlonglong>::min()},
        {"qulonglong, the highest", std::numeric_limits<qulonglong>::max()},
        {"short -1", QVariant::fromValue(short(-1))},
        {"0.0", 0.0},
        {"-0.0", -0.0},
        {"0.1", 0.1},
        {"0.3", 0.3},
        {"0.1 + 0.2", 0.1 + 0.2},
        {"0.4", 0.4},
        {"0.5", 0.5},
        {"-0.5", -0.5},
        {"1.0", 1.0},
        {"1.5", 1.5},
        {"-1.5", -1.5},
        {"2.5", 2.5},
        {"5.0", 5.0},
        {"2147483647.0", 2147483647.0},
        {"2147483648.0", 2147483648.0},
        {"1e5", 1e5},
        {"1e-4", 1e-4},
        {"1e308", 1e308},
        {"-1e308", -1e308},
        {"the smallest double", 5e-324},
        {"infinity", qInf()},
        {"minus infinity", -qInf()},
        {"NaN", qQNaN()},
        {"float 0.1", 0.1F},
        {"float 5", 5.0F},
        {"float 3e38", 3e38F},
        {"text, empty", ""},
        {"text 0", "0"},
        {"text 1", "1"},
        {"text 5", "5"},
        {"text 5 between spaces", " 5 "},
        {"text 05", "05"},
        {"text +5", "+5"},
        {"text -1", "-1"},
        {"text 5.0", "5.0"},
        {"text 0.3", "0.3"},
        {"text 0x10", "0x10"},
        {"text 1e3", "1e3"},
        {"text 1e400", "1e400"},
        {"text nan", "nan"},
        {"text of a long number", "99999999999999999999"},
        {"text 5 in full width", QString(QChar(0xff15))},
        {"text true", "true"},
        {"text FALSE", "FALSE"},
        {"text abc", "abc"},
        {"text a", "a"},
        {"text white", "white"},
        {"text #ffffff", "#ffffff"},
        {"text Tahoma", "Tahoma"},
        {"text 2020-02-29", "2020-02-29"},
        {"text with a zero", QString(QChar(0)) + "5"},
        {"bytes, empty", QByteArray("")},
        {"bytes 5", QByteArray("5")},
        {"bytes abc", QByteArray("abc")},
        {"bytes false", QByteArray("false")},
        {"bytes 5, zero, 6", QByteArray("5\0006", 3)},
        {"character 5", QChar('5')},
        {"character a", QChar('a')},
        {"character, null", QChar()},
        {"colour, invalid", QColor()},
        {"colour white", QColor(Qt::white)},
        {"colour red, half transparent", QColor(255, 0, 0, 128)},
        {"font", QFont("Tahoma", 12)},
        {"font, bold", QFont("Tahoma", 12, QFont::Bold)},
        {"texts, none", QStringList()},
        {"texts a", QStringList("a")},
        {"texts 5", QStringList("5")},
        {"texts a, b", QStringList{"a", "b"}},
        {"list, empty", List()},
        {"list of 5", List{5}},
        {"list of text 5", List{"5"}},
        {"list of invalid", List{QVariant()}},
        {"list of 0.1 + 0.2", List{0.1 + 0.2}},
        {"list of 0.3", List{0.3}},
        {"map, empty", Map()},
        {"map to 5", Map{{"a", 5}}},
        {"map to text 5", Map{{"a", "5"}}},
        {"map to 5 under another key", Map{{"b", 5}}},
        {"map to a map", Map{{"a", Map{{"a", 5}}}}},
        {"hash to 5", Hash{{"a", 5}}},
        {"date", QDate(2020, 2, 29)},
        {"date, invalid", QDate()},
        {"time", QTime(12, 34, 56)},
        {"date and time", QDateTime(QDate(2020, 2, 29), QTime(0, 0))},
        {"size", QSize(1, 2)},
        {"size, floating", QSizeF(1, 2)},
        {"point", QPoint(1, 2)},
        {"point, floating", QPointF(1, 2)},
        {"rectangle", QRect(1, 2, 3, 4)},
        {"rectangle, floating", QRectF(1, 2, 3, 4)},
        {"url", QUrl("http://a.b/c")},
        {"uuid", QUuid("{67c8770b-44f1-410a-ab9a-f9b5446f13ee}")},
    };
    return all;
}

QString written(double number)
{
    return qIsNaN(number) ? QString("nan") : QString::asprintf("%.17g", number);
}

QString written(const QString& text)
{
    return '"' + QString::fromLatin1(QUrl::toPercentEncoding(text, " !#$&'()*+,/:;=?@[]{}<>")) + '"';
}
