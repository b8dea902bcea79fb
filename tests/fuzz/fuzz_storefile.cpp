// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The file of the embedded preference store. The first byte tells what the others are: the whole file, an entry in a
// whole one, values to be written and read back, or the stream of a type.

#include <cmath>
#include <memory>

#include <QBitArray>
#include <QDataStream>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeySequence>
#include <QLineF>
#include <QLocale>
#include <QMatrix4x4>
#include <QPolygonF>
#include <QQuaternion>
#include <QRegularExpression>
#include <QTransform>
#include <QUuid>
#include <QVector2D>
#include <QVector4D>

#include "bytes.h"
#include "embeddedpref_p.h"
#include "runtime.h"

namespace {

bool warned = false;

/// An application, since fonts take one, and an empty folder.
QString emptyFolder()
{
    static const QString folder = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { warned = true; });
        static int argc = 1;
        static char name[] = "fuzz";
        static char* argv[] = {name, nullptr};
        static const auto* const application = new QGuiApplication(argc, argv);
        Q_UNUSED(application)
        return QDir::tempPath() + QStringLiteral("/store%1").arg(QCoreApplication::applicationPid());
    }();
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    warned = false;
    return folder;
}

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

QJsonObject types(const QByteArray& file)
{
    return QJsonDocument::fromJson(file).object().value(QLatin1String("types")).toObject();
}

/// Type, members, signs of zeros and all.
bool same(const QVariant& a, const QVariant& b)
{
    QByteArray bytes[2];
    QDataStream first(&bytes[0], QIODevice::WriteOnly);
    QDataStream second(&bytes[1], QIODevice::WriteOnly);
    first.setVersion(QDataStream::Qt_5_15);
    second.setVersion(QDataStream::Qt_5_15);
    first << a;
    second << b;
    return bytes[0] == bytes[1];
}

// --- Hostile files

void read(const QByteArray& file)
{
    const QString path = emptyFolder() + QStringLiteral("/effectdefaults.json");
    const QString asidePath = path + QStringLiteral(".damaged");
    QFile stored(path);
    require(stored.open(QIODevice::WriteOnly) && stored.write(file) == file.size() && stored.flush(),
            "the target can write its file");
    stored.close();

    EmbeddedPref store(path);
    const bool isAside = QFile::exists(asidePath);
    const double version = QJsonDocument::fromJson(file).object().value(QLatin1String("zoeffect-defaults")).toDouble();
    require(isAside != QFile::exists(path), "a damaged file is renamed");
    require(content(isAside ? asidePath : path) == file, "reading changes no byte");
    require(version == 1 || (version > 1) != isAside, "a file without its version is damaged, a newer one is not");

    const QString key = QStringLiteral("Fuzz");
    const QVariantMap value{{QStringLiteral("a b"), 7}};
    store.setValue(key, value, false);
    require(same(store.value(key, QVariant()).toMap().value(QStringLiteral("a b")), 7), "a value is answered at once");
    require(!isAside || content(asidePath) == file, "what was set aside stays");
    if (version > 1) {
        require(content(path) == file, "a newer file is not written to");
        return;
    }
    const EmbeddedPref next(path);
    require(same(next.value(key, QVariant()).toMap().value(QStringLiteral("a b")), 7),
            "a following start reads what was written");
    require(QFile::exists(asidePath) == isAside && !QFile::exists(asidePath + QStringLiteral(".2")),
            "what was written is not set aside");
    if (isAside || file.contains("\\u")) // Which can be half of a surrogate pair: Qt writes another letter for it.
        return;
    QJsonObject before = types(file);
    QJsonObject after = types(content(path));
    before.remove(key);
    after.remove(key);
    require(before == after, "what was in the file stays as it was");
    const QStringList keys = before.keys();
    for (const QString& other : keys)
        require(same(store.value(other, QVariant()), next.value(other, QVariant())), "an entry is read the same again");
}

// --- Values there and back

template <typename T>
QVariant fromValue(const T& value)
{
    return QVariant::fromValue(value);
}

QColor color(Bytes& bytes)
{
    const auto part = [&bytes] { return float(bytes.byte()) / 255; };
    const float a = part();
    const float b = part();
    const float c = part();
    const float d = part();
    switch (bytes.below(5)) {
    case 0:
        return QColor::fromRgbF(a, b, c, d);
    case 1:
        return QColor::fromHsvF(a, b, c, d);
    case 2:
        return QColor::fromHslF(a, b, c, d);
    case 3:
        return QColor::fromCmykF(a, b, c, d);
    default:
        return QColor();
    }
}

QFont font(Bytes& bytes)
{
    QFont font(bytes.text());
    if (bytes.flag())
        font.setPixelSize(1 + bytes.byte());
    else
        font.setPointSizeF(1 + std::abs(bytes.byte() / 7.0));
    font.setBold(bytes.flag());
    font.setUnderline(bytes.flag());
    font.setStretch(1 + bytes.below(200));
    font.setStyleName(bytes.text());
    font.setLetterSpacing(QFont::AbsoluteSpacing, bytes.byte());
    font.setFamilies({bytes.text(), bytes.text()});
    return font;
}

/// A value of the types beyond those that Bytes gives.
QVariant rareValue(Bytes& bytes)
{
    const auto word = [&bytes] { return float(bytes.byte()) / 3; };
    switch (bytes.below(27)) {
    case 0:
        return fromValue(short(bytes.number() % 32768));
    case 1:
        return fromValue(ushort(unsigned(bytes.number()) % 65536));
    case 2:
        return fromValue(char(bytes.byte() % 128));
    case 3:
        return fromValue(static_cast<signed char>(bytes.byte() % 128));
    case 4:
        return fromValue(uchar(bytes.byte()));
    case 5:
        return fromValue(qulonglong(-bytes.number()));
    case 6:
        return fromValue(long(bytes.number()));
    case 7:
        return fromValue(word());
    case 8:
        return QChar(ushort(unsigned(bytes.number()) % 65536));
    case 9:
        return QUuid::fromRfc4122(bytes.chunk());
    case 10:
        return QDate(bytes.number() % 10000, bytes.byte(), bytes.byte());
    case 11:
        return QTime(bytes.byte(), bytes.byte(), bytes.byte());
    case 12:
        return QDateTime::fromMSecsSinceEpoch(qint64(bytes.number()) * 1000 + bytes.byte(), Qt::UTC);
    case 13:
        return QLocale(QLocale::Language(1 + bytes.below(100)));
    case 14:
        return QRegularExpression(bytes.text(), QRegularExpression::PatternOptions(bytes.byte()));
    case 15:
        return QBitArray(bytes.byte(), bytes.flag());
    case 16:
        return QPolygon(QVector<QPoint>{QPoint(bytes.number(), 0), QPoint(0, bytes.number())});
    case 17:
        return QPolygonF(QVector<QPointF>{QPointF(bytes.real(), bytes.real())});
    case 18:
        return QKeySequence(bytes.text());
    case 19:
        return QTransform(bytes.real(), 1, 0, 1, bytes.real(), 0, 3, 4, 1);
    case 20:
        return fromValue(QMatrix4x4(word(), 0, 0, 0, 0, word(), 0, 0, 0, 0, word(), 0, 0, 0, 0, word()));
    case 21:
        return fromValue(QVector2D(word(), word()));
    case 22:
        return fromValue(QVector4D(word(), word(), word(), word()));
    case 23:
        return fromValue(QQuaternion(word(), word(), word(), word()));
    case 24:
        return color(bytes);
    case 25:
        return font(bytes);
    default:
        return QLineF(bytes.real(), bytes.real(), bytes.real(), bytes.real());
    }
}

QVariant nested(int depth)
{
    QVariant value(7);
    for (; depth > 0; --depth)
        value = depth % 2 == 0 ? QVariant(QVariantList{value}) : QVariant(QVariantMap{{QStringLiteral("k"), value}});
    return value;
}

void writeAndRead(Bytes& bytes)
{
    static const char* const keys[] = {"play_loop",    "crop_left",   "wm_hposfactor", "wm_fontstyle",
                                       "wm_fontcolor", "wm_fontname", "crop_width",    "no key"};
    constexpr int mostValues = 6;
    constexpr int deepest = 32; // Deeper values stay in memory.
    const QString path = emptyFolder() + QStringLiteral("/effectdefaults.json");
    const QString type = QStringLiteral("Fuzz");
    EmbeddedPref store(path);
    QVariantMap values;
    bool isKept = true;
    for (int done = 0; done < mostValues && !bytes.atEnd(); ++done) {
        const int kind = bytes.below(8);
        const int depth = kind == 7 ? bytes.below(2 * deepest) : 0;
        const QString key = bytes.flag() ? bytes.text() : QString::fromLatin1(keys[bytes.below(8)]);
        values.insert(key, kind == 7 ? nested(depth) : kind < 4 ? bytes.value() : rareValue(bytes));
        isKept = isKept && depth <= deepest;
    }
    store.setValue(type, values, false);
    require(same(store.value(type, QVariant()), values), "values are answered at once as they were set");
    const EmbeddedPref next(path);
    require(!isKept || (!warned && same(next.value(type, QVariant()), values)),
            "a following start reads every value as it was");
    require(isKept || next.hasKey(type) != warned, "a value that is too deep is told, and not written");
    require(!QFile::exists(path + QStringLiteral(".damaged")), "what was written is not set aside");
}

/// Values that are streams of a type, so that the bytes reach what decodes them.
QByteArray streams(Bytes& bytes)
{
    static const char* const names[] = {
        "QString",    "double",     "QColor",    "QFont",      "uint",      "qlonglong",
        "qulonglong", "long",       "ulong",     "short",      "ushort",    "char",
        "schar",      "uchar",      "float",     "QByteArray", "QChar",     "QUuid",
        "QUrl",       "QDate",      "QTime",     "QDateTime",  "QLocale",   "QRegularExpression",
        "QBitArray",  "QSize",      "QSizeF",    "QPoint",     "QPointF",   "QLine",
        "QLineF",     "QRect",      "QRectF",    "QPolygon",   "QPolygonF", "QKeySequence",
        "QTransform", "QMatrix4x4", "QVector2D", "QVector3D",  "QVector4D", "QQuaternion"};
    QByteArray members;
    for (int member = 0; member < 4 && !bytes.atEnd(); ++member) {
        const char* const name = names[bytes.below(int(std::size(names)))];
        QByteArray stream = bytes.chunk();
        const int count = bytes.number();
        if (bytes.flag()) {
            // A count before the rest, as lists and texts have.
            QByteArray streamedCount;
            QDataStream(&streamedCount, QIODevice::WriteOnly) << count;
            stream.prepend(streamedCount);
        }
        members += (member > 0 ? ", \"" : "\"") + QByteArray::number(member) + "\": {\"" + name + "\": \""
                   + stream.toBase64() + "\"}";
    }
    return '{' + members + '}';
}

QByteArray fileWith(const QByteArray& entry)
{
    return R"({"types": {"Watermark": )" + entry + R"(}, "zoeffect-defaults": 1})";
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Bytes bytes(data, size);
    switch (bytes.below(4)) {
    case 0:
        read(bytes.rest());
        break;
    case 1:
        read(fileWith(bytes.rest()));
        break;
    case 2:
        writeAndRead(bytes);
        break;
    default:
        read(fileWith(streams(bytes)));
        break;
    }
    return 0;
}
