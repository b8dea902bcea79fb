// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The file of the embedded preference store. The first byte tells what the others are: the whole file, what
// stands in it between a good first line and a good checksum, all but the checksum, values to be written and
// read back, or a value of which the type is right and the rest is not.

#include <cmath>
#include <memory>

#include <QBitArray>
#include <QCryptographicHash>
#include <QDataStream>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
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
#include "guardedini_p.h"
#include "runtime.h"

namespace {

constexpr char firstLine[] = "; Custom defaults of effects. Kept by the program: the last line is a checksum.\n";
constexpr int checksumLineSize = 48;

/// An application, since fonts take one, and an empty folder.
QString emptyFolder()
{
    static const QString folder = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        static int argc = 1;
        static char name[] = "fuzz";
        static char* argv[] = {name, nullptr};
        static const auto* const application = new QGuiApplication(argc, argv);
        Q_UNUSED(application)
        return QDir::tempPath() + QStringLiteral("/store%1").arg(QCoreApplication::applicationPid());
    }();
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    return folder;
}

QByteArray checksumLine(const QByteArray& body)
{
    return "; sha1 " + QCryptographicHash::hash(body, QCryptographicHash::Sha1).toHex() + '\n';
}

bool hasGoodChecksum(const QByteArray& file)
{
    const auto bodySize = file.size() - checksumLineSize;
    return bodySize >= 0 && file.mid(bodySize) == checksumLine(file.left(bodySize));
}

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

// --- Whether two values are the same, type and all

QByteArray streamed(const QVariant& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << value;
    return bytes;
}

bool same(const QVariant& a, const QVariant& b);

template <typename Map>
bool sameMap(const Map& a, const Map& b)
{
    if (a.size() != b.size())
        return false;
    for (auto it = a.cbegin(); it != a.cend(); ++it) {
        if (!b.contains(it.key()) || !same(it.value(), b.value(it.key())))
            return false;
    }
    return true;
}

bool sameList(const QVariantList& a, const QVariantList& b)
{
    if (a.size() != b.size())
        return false;
    for (int i = 0; i < a.size(); ++i) {
        if (!same(a.at(i), b.at(i)))
            return false;
    }
    return true;
}

bool same(const QVariant& a, const QVariant& b)
{
    const int type = a.userType();
    if (type != b.userType())
        return false;
    if (type == QMetaType::QVariantMap)
        return sameMap(a.toMap(), b.toMap());
    if (type == QMetaType::QVariantHash)
        return sameMap(a.toHash(), b.toHash());
    if (type == QMetaType::QVariantList)
        return sameList(a.toList(), b.toList());
    const bool isReal = type == QMetaType::Double || type == QMetaType::Float;
    if (isReal && std::isnan(a.toDouble()))
        return std::isnan(b.toDouble()); // Which of the many it was is not kept.
    return streamed(a) == streamed(b);
}

// --- Hostile files

void read(const QByteArray& file)
{
    const QString path = emptyFolder() + QStringLiteral("/effectdefaults.ini");
    const QString asidePath = path + QStringLiteral(".damaged");
    QFile stored(path);
    require(stored.open(QIODevice::WriteOnly) && stored.write(file) == file.size() && stored.flush(),
            "the target can write its file");
    stored.close();

    const std::optional<guardedini::Entries> entries = guardedini::parsed(file);
    EmbeddedPref store(path);
    const bool aside = QFile::exists(asidePath);
    require(aside == !entries, "a file is set aside when it cannot be read, and only then");
    require(aside || hasGoodChecksum(file), "a file without its checksum is damaged");
    require(aside || file.startsWith(firstLine), "a file without its first line is damaged");
    require(aside != QFile::exists(path), "a damaged file is renamed");
    require(content(aside ? asidePath : path) == file, "reading changes no byte");

    const QString key = QStringLiteral("Fuzz");
    const QVariantMap value{{QStringLiteral("a b"), 7}};
    store.setValue(key, value, false);
    require(same(store.value(key, QVariant()), value), "a value is answered at once");

    const EmbeddedPref next(path);
    require(hasGoodChecksum(content(path)), "what is written bears its checksum");
    require(same(next.value(key, QVariant()), value), "a following start reads what was written");
    require(!aside || content(asidePath) == file, "what was set aside stays");
    require(QFile::exists(asidePath) == aside && !QFile::exists(asidePath + QStringLiteral(".2")),
            "what was written is not set aside");
    const guardedini::Entries kept = entries.value_or(guardedini::Entries());
    for (auto it = kept.cbegin(); it != kept.cend(); ++it) {
        require(next.hasKey(it.key()), "no entry is lost");
        require(it.key() == key || same(next.value(it.key(), QVariant()), it.value()), "an entry stays as it was");
    }
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
    switch (bytes.below(28)) {
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
    case 26: {
        QVariantHash hash;
        for (int left = bytes.below(4); left > 0; --left)
            hash.insert(bytes.text(), bytes.value());
        return hash;
    }
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
    constexpr int mostValues = 6;
    constexpr int deepest = 32; // Deeper values stay in memory.
    const QString path = emptyFolder() + QStringLiteral("/effectdefaults.ini");
    QMap<QString, QVariant> saved;
    EmbeddedPref store(path);
    for (int done = 0; done < mostValues && !bytes.atEnd(); ++done) {
        const int kind = bytes.below(8);
        const QString key = bytes.text();
        const int depth = kind == 7 ? bytes.below(2 * deepest) : 0;
        QVariant value = kind == 7 ? nested(depth) : kind < 4 ? bytes.value() : rareValue(bytes);
        if (kind % 2 == 1)
            value = QVariantMap{{bytes.text(), value}, {QStringLiteral("b"), bytes.value()}};
        store.setValue(key, value, false);
        require(same(store.value(key, QVariant(1)), value), "a value is answered at once as it was set");
        if (depth < deepest)
            saved.insert(key, value);
        else
            saved.remove(key);
    }
    const EmbeddedPref next(path);
    for (auto it = saved.cbegin(); it != saved.cend(); ++it) {
        require(next.hasKey(it.key()), "a following start has every entry");
        require(same(next.value(it.key(), QVariant(1)), it.value()), "a following start reads every value as it was");
    }
    require(!QFile::exists(path + QStringLiteral(".damaged")), "what was written is not set aside");
}

/// Lines of a value each, whose word is the bytes as hexadecimal digits: so the bytes reach what decodes them.
QByteArray lines(Bytes& bytes)
{
    static const char* const types[] = {
        "QFont \"\" ",  "QFont \"\" weight 7 ",
        "QByteArray x", "QColor ",
        "QChar ",       "QUuid ",
        "QUrl ",        "QDate ",
        "QTime ",       "QDateTime ",
        "QLocale ",     "QRegularExpression ",
        "QBitArray ",   "QSize ",
        "QSizeF ",      "QPoint ",
        "QPointF ",     "QLine ",
        "QLineF ",      "QRect ",
        "QRectF ",      "QPolygon ",
        "QPolygonF ",   "QKeySequence ",
        "QTransform ",  "QMatrix4x4 ",
        "QVector2D ",   "QVector3D ",
        "QVector4D ",   "QQuaternion ",
    };
    QByteArray body("[E]\n");
    for (int line = 0; line < 4 && !bytes.atEnd(); ++line) {
        const char* const type = types[bytes.below(int(std::size(types)))];
        QByteArray word = bytes.chunk();
        const int count = bytes.number();
        if (bytes.flag()) {
            // A count before the rest, as lists and texts have.
            QByteArray streamedCount;
            QDataStream(&streamedCount, QIODevice::WriteOnly) << count;
            word.prepend(streamedCount);
        }
        body += 'k' + QByteArray::number(line) + '=' + type + word.toHex() + '\n';
    }
    return body;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Bytes bytes(data, size);
    switch (bytes.below(5)) {
    case 0:
        read(bytes.rest());
        break;
    case 1: {
        const QByteArray body = firstLine + bytes.rest();
        read(body + checksumLine(body));
        break;
    }
    case 2: {
        const QByteArray body = bytes.rest();
        read(body + checksumLine(body));
        break;
    }
    case 3:
        writeAndRead(bytes);
        break;
    default: {
        const QByteArray body = firstLine + lines(bytes);
        read(body + checksumLine(body));
        break;
    }
    }
    return 0;
}
