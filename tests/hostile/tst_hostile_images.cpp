// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <memory>

#include <sys/resource.h>

#include <QBuffer>
#include <QImageReader>
#include <QImageWriter>
#include <QProcess>
#include <QRandomGenerator>
#include <QtEndian>

#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "hostile.h"
#include "logcapture.h"
#include "testapplication.h"

namespace {

// In KiB, for one picture. The largest that are loaded take 128 MiB, and as much again while those with an alpha
// channel are brought into a pixmap's form; what is too large is refused before anything of it is decoded. Sanitizers
// take an eighth besides, and keep what is freed.
constexpr qint64 mostMemory = 264 * 1024 * (hostile::slowness == 1 ? 8 : 10) / 8;
constexpr qint64 mostForRefused = qint64{32} * 1024;
constexpr double mostMilliseconds = 500.0;
constexpr int usualCount = 540; // Damaged pictures; ZOEFFECT_HOSTILE_IMAGES names another number.
constexpr quint32 seed = 20261121;

const QString loadArgument = QStringLiteral("--load");

// --- Pictures -----------------------------------------------------------------------------------------------

QByteArray bigEndian(quint32 value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray littleEndian(quint32 value, int size = 4)
{
    QByteArray bytes(4, '\0');
    qToLittleEndian(value, bytes.data());
    return bytes.left(size);
}

QByteArray pngChunk(const QByteArray& type, const QByteArray& data)
{
    quint32 check = 0xffffffff;
    for (const char byte : type + data) {
        check ^= static_cast<uchar>(byte);
        for (int bit = 0; bit < 8; ++bit)
            check = (check & 1) != 0 ? (check >> 1) ^ 0xedb88320 : check >> 1;
    }
    return bigEndian(static_cast<quint32>(data.size())) + type + data + bigEndian(~check);
}

QByteArray zeros(qint64 count)
{
    return qCompress(QByteArray(static_cast<int>(count), '\0'), 9).mid(4);
}

/// A PNG, of one bit a pixel if nothing else is told, that says to be \a width by \a height, with \a more chunks before
/// its \a rows.
QByteArray png(quint32 width, quint32 height, const QByteArray& rows, const QByteArray& more = QByteArray(),
               const QByteArray& depthAndType = QByteArray("\1\0", 2))
{
    const QByteArray header = bigEndian(width) + bigEndian(height) + depthAndType + QByteArray(3, '\0');
    return QByteArray("\x89PNG\r\n\x1a\n", 8) + pngChunk("IHDR", header) + more + pngChunk("IDAT", rows)
           + pngChunk("IEND", QByteArray());
}

/// A whole black PNG.
QByteArray blackPng(int width, int height)
{
    return png(quint32(width), quint32(height), zeros(qint64(1 + (width + 7) / 8) * height));
}

/// A BMP in run lengths that holds no run and is of one colour.
QByteArray bmp(quint32 width, quint32 height)
{
    const QByteArray onePlaneEightBits("\1\0\x8\0", 4);
    const QByteArray twoColors("\0\0\xff\0\0\xff\0\0", 8);
    const QByteArray endOfBitmap("\0\1", 2);
    return QByteArray("BM") + littleEndian(64) + littleEndian(0) + littleEndian(62) + littleEndian(40)
           + littleEndian(width) + littleEndian(height) + onePlaneEightBits + littleEndian(1) + littleEndian(2)
           + littleEndian(0) + littleEndian(0) + littleEndian(2) + littleEndian(0) + twoColors + endOfBitmap;
}

QByteArray gifFrame(int width, int height)
{
    return QByteArray(",\0\0\0\0", 5) + littleEndian(quint32(width), 2) + littleEndian(quint32(height), 2)
           + QByteArray("\0\2\2\x4c\1\0", 6);
}

/// A GIF of \a frames frames on a screen.
QByteArray gif(const QSize& screen, const QSize& frame, int frames = 1)
{
    return QByteArray("GIF89a") + littleEndian(quint32(screen.width()), 2) + littleEndian(quint32(screen.height()), 2)
           + QByteArray("\x80\0\0\0\0\0\xff\xff\xff", 9) + gifFrame(frame.width(), frame.height()).repeated(frames)
           + ';';
}

/// An icon (\a type 1) or a cursor (2) of \a count entries that name themselves 16 x 16 and all hold \a picture.
QByteArray icon(const QByteArray& picture, quint32 type = 1, int count = 1)
{
    const auto offset = quint32(6 + 16 * count);
    const QByteArray entry =
        QByteArray("\x10\x10\0\0\1\0\x20\0", 8) + littleEndian(quint32(picture.size())) + littleEndian(offset);
    return littleEndian(0, 2) + littleEndian(type, 2) + littleEndian(quint32(count), 2) + entry.repeated(count)
           + picture;
}

/// \a jpeg with another size in its frame header.
QByteArray resizedJpeg(QByteArray jpeg, int width, int height)
{
    const auto frame = jpeg.indexOf("\xff\xc0");
    const auto put = [&](int at, int value) {
        jpeg[frame + at] = static_cast<char>(value >> 8);
        jpeg[frame + at + 1] = static_cast<char>(value & 0xff);
    };
    put(5, height);
    put(7, width);
    return jpeg;
}

/// A progressive JPEG whose last scan, a few bytes that go over the whole picture, comes \a times times.
QByteArray jpegOfManyScans(const QSize& size, int times)
{
    QImage image(size, QImage::Format_Grayscale8);
    image.fill(0);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpg");
    writer.setProgressiveScanWrite(true);
    if (!writer.write(image))
        return QByteArray();
    const auto end = bytes.lastIndexOf("\xff\xd9");
    const auto scan = bytes.lastIndexOf("\xff\xda");
    return bytes.left(scan) + bytes.mid(scan, end - scan).repeated(times) + bytes.mid(end);
}

QImage manyColors(QImage::Format format)
{
    QImage image(23, 17, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgba(x * 11, y * 15, x * y % 256, 255 - x));
    }
    return image.convertToFormat(format);
}

QByteArray written(const char* format, QImage::Format pixels)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setText(QStringLiteral("Comment"), QString(40, QChar('c')));
    return writer.write(manyColors(pixels)) ? bytes : QByteArray();
}

struct Original {
    QByteArray name;
    QByteArray suffix;
    QByteArray bytes;
};

/// Good pictures of every format that is read everywhere.
QVector<Original> originals()
{
    return {
        {"PNG of 32 bits", "png", written("png", QImage::Format_ARGB32)},
        {"PNG of 64 bits", "png", written("png", QImage::Format_RGBA64)},
        {"PNG of 8 bits", "png", written("png", QImage::Format_Indexed8)},
        {"PNG of 1 bit", "png", blackPng(23, 17)},
        {"BMP of 24 bits", "bmp", written("bmp", QImage::Format_RGB32)},
        {"BMP of 8 bits", "bmp", written("bmp", QImage::Format_Indexed8)},
        {"BMP in run lengths", "bmp", bmp(23, 17)},
        {"JPEG", "jpg", written("jpg", QImage::Format_RGB32)},
        {"JPEG in gray", "jpeg", written("jpg", QImage::Format_Grayscale8)},
        {"GIF", "gif", gif({23, 17}, {1, 1})},
        {"animated GIF", "gif", gif({23, 17}, {1, 1}, 9)},
        {"icon", "ico", written("ico", QImage::Format_ARGB32)},
        {"icon with a PNG", "ico", icon(blackPng(16, 16))},
        {"cursor", "cur", written("cur", QImage::Format_ARGB32)},
        {"PPM", "ppm", written("ppm", QImage::Format_RGB32)},
        {"PGM", "pgm", written("pgm", QImage::Format_Grayscale8)},
        {"PBM", "pbm", written("pbm", QImage::Format_Mono)},
        {"XPM", "xpm", written("xpm", QImage::Format_ARGB32)},
        {"XBM", "xbm", written("xbm", QImage::Format_Mono)},
    };
}

// --- Damage -------------------------------------------------------------------------------------------------

using Damage = QByteArray (*)(QByteArray bytes, QRandomGenerator& random);

int anyPlace(const QByteArray& bytes, QRandomGenerator& random)
{
    return random.bounded(static_cast<int>(bytes.size()));
}

QByteArray cut(QByteArray bytes, QRandomGenerator& random)
{
    return bytes.left(anyPlace(bytes, random));
}

QByteArray bitsFlipped(QByteArray bytes, QRandomGenerator& random)
{
    for (int left = random.bounded(1, 20); left > 0; --left) {
        const int at = anyPlace(bytes, random);
        bytes[at] = static_cast<char>(bytes.at(at) ^ (1 << random.bounded(8)));
    }
    return bytes;
}

/// Most of what makes a picture hard to read stands in its first bytes.
QByteArray headFlipped(QByteArray bytes, QRandomGenerator& random)
{
    const int head = std::min(static_cast<int>(bytes.size()), 48);
    for (int left = random.bounded(1, 4); left > 0; --left) {
        const int at = random.bounded(head);
        bytes[at] = static_cast<char>(random.bounded(256));
    }
    return bytes;
}

QByteArray largeNumber(QByteArray bytes, QRandomGenerator& random)
{
    static const QByteArray numbers[] = {QByteArray(4, '\xff'),          QByteArray("\x7f\xff\xff\xff"),
                                         QByteArray("99999999"),         QByteArray(4, '\0'),
                                         QByteArray("\xff\xff\xff\x7f"), QByteArray("\x80\0\0\0", 4)};
    const QByteArray& number = numbers[random.bounded(int(std::size(numbers)))];
    return bytes.replace(random.bounded(std::min(static_cast<int>(bytes.size()), 64)), number.size(), number);
}

QByteArray blocksSwapped(QByteArray bytes, QRandomGenerator& random)
{
    const int size = random.bounded(1, std::max(2, static_cast<int>(bytes.size()) / 4));
    const int from = random.bounded(static_cast<int>(bytes.size()) - size + 1);
    const int to = random.bounded(static_cast<int>(bytes.size()) - size + 1);
    const QByteArray first = bytes.mid(from, size);
    const QByteArray second = bytes.mid(to, size);
    return bytes.replace(from, size, second).replace(to, size, first);
}

QByteArray blockRepeated(QByteArray bytes, QRandomGenerator& random)
{
    const int at = anyPlace(bytes, random);
    return bytes.insert(at, bytes.mid(anyPlace(bytes, random), 64).repeated(random.bounded(1, 40)));
}

int countOfDamaged()
{
    bool isNumber = false;
    const int count = qEnvironmentVariableIntValue("ZOEFFECT_HOSTILE_IMAGES", &isNumber);
    return isNumber ? count : usualCount;
}

// --- A picture in a process of its own ----------------------------------------------------------------------

/// Loads the picture at \a path twice and prints "WIDTH HEIGHT EVENTS KIB MILLISECONDS" of both together.
int loadAndTell(const QString& path)
{
    // Sanitizers reserve more room than there is memory.
    const rlimit limit = {rlim_t(3) << 30, rlim_t(3) << 30};
    if (hostile::slowness == 1 && setrlimit(RLIMIT_AS, &limit) != 0)
        return 1;
    ZoEffectModel model;
    logcapture::takeEvents();
    if (!hostile::forgetPeakMemory())
        return 1;
    const qint64 before = hostile::peakMemory();
    const hostile::Stopwatch stopwatch;
    const QSize size = model.getImage(path, nullptr)->size();
    const QSize again = model.getImage(path, nullptr)->size();
    const double milliseconds = stopwatch.milliseconds() / 2;
    const qint64 kib = hostile::peakMemory() - before;
    QStringList events;
    const QList<int> logged = logcapture::takeEvents();
    for (const int event : logged)
        events << QString::number(event);
    std::printf("loaded %d %d %s %lld %.0f\n", size.width(), size.height(),
                qPrintable(events.isEmpty() ? QStringLiteral("none") : events.join(',')), static_cast<long long>(kib),
                milliseconds);
    return size == again ? 0 : 1;
}

} // namespace

Q_DECLARE_METATYPE(Damage)

/// Pictures that are damaged, or claim more than they hold.
class TstHostileImages : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void originalsLoad_data();
    void originalsLoad();
    void damagedPictures_data();
    void damagedPictures();
    void bombs_data();
    void bombs();
    void everyFormatOfQtItselfIsTried();
    void bombsInOneModel();
    void formatNames_data();
    void formatNames();
    void paths_data();
    void paths();

private:
    QString file(const QString& name) const { return m_folder.filePath(name); }
    QString saved(const QString& name, const QByteArray& bytes) const;
    void checkPicture(const QString& path, bool& loaded);

    QTemporaryDir m_folder;
    QString m_red;
};

QString TstHostileImages::saved(const QString& name, const QByteArray& bytes) const
{
    QFile target(file(name));
    const bool ok = target.open(QIODevice::WriteOnly) && target.write(bytes) == bytes.size();
    return ok ? target.fileName() : QString();
}

void TstHostileImages::initTestCase()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    QImage red(8, 6, QImage::Format_RGB32);
    red.fill(Qt::red);
    m_red = file(QStringLiteral("red.png"));
    QVERIFY(red.save(m_red));
}

void TstHostileImages::init()
{
    logcapture::takeEvents();
}

void TstHostileImages::cleanup()
{
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstHostileImages::originalsLoad_data()
{
    QTest::addColumn<QByteArray>("suffix");
    QTest::addColumn<QByteArray>("bytes");
    const QVector<Original> all = originals();
    for (const Original& original : all)
        QTest::newRow(original.name.constData()) << original.suffix << original.bytes;
}

void TstHostileImages::originalsLoad()
{
    QFETCH(const QByteArray, suffix);
    QFETCH(const QByteArray, bytes);
    ZoEffectModel model;
    const QSize size = model.getImage(saved("original." + suffix, bytes), nullptr)->size();
    QVERIFY2(size == QSize(23, 17) || size == QSize(16, 16), qPrintable(QString::number(size.width())));
    QFile::remove(file("original." + suffix));
}

void TstHostileImages::damagedPictures_data()
{
    QTest::addColumn<QByteArray>("suffix");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<Damage>("damage");
    QTest::addColumn<int>("row");

    struct Kind {
        const char* name;
        Damage damage;
    };
    static const Kind kinds[] = {{"cut", cut},
                                 {"bits flipped", bitsFlipped},
                                 {"head overwritten", headFlipped},
                                 {"large numbers", largeNumber},
                                 {"blocks swapped", blocksSwapped},
                                 {"blocks repeated", blockRepeated}};
    const QVector<Original> all = originals();
    int row = 0;
    for (const Original& original : all) {
        for (const Kind& kind : kinds)
            QTest::addRow("%s, %s", original.name.constData(), kind.name)
                << original.suffix << original.bytes << kind.damage << row++;
    }
}

/// What is loaded is told without a word, what is not with one entry, at every call.
void TstHostileImages::checkPicture(const QString& path, bool& loaded)
{
    ZoEffectModel model;
    QVERIFY(hostile::forgetPeakMemory());
    const qint64 before = hostile::peakMemory();
    const hostile::Stopwatch stopwatch;
    QPixmap* picture = model.getImage(path, nullptr);
    const double milliseconds = stopwatch.milliseconds();
    const qint64 kib = hostile::peakMemory() - before;
    QVERIFY(picture);
    loaded = !picture->isNull();
    QCOMPARE(logcapture::takeEvents(), loaded ? QList<int>() : QList<int>{1178});
    QVERIFY2(milliseconds < mostMilliseconds * hostile::slowness, qPrintable(QString::number(milliseconds)));
    QVERIFY2(kib < mostMemory, qPrintable(QString::number(kib)));

    // Another picture is still loaded, and both are kept or tried again as told.
    QCOMPARE(model.getImage(m_red, nullptr)->size(), QSize(8, 6));
    QCOMPARE(model.getImage(path, nullptr)->isNull(), !loaded);
    QCOMPARE(logcapture::takeEvents(), loaded ? QList<int>() : QList<int>{1178});

    // The picture of all watermarks shows what can be shown.
    model.setVideoSize(64, 48);
    ZoEffectItemData* typeNode = model.getDataItem("Watermark", -1);
    const auto add = [&](const QString& url, int left) {
        auto* item = new ZoEffectItemData(QString(), typeNode);
        item->setData("wm_imageurl", url);
        item->setData("wm_hposition", left);
        item->setData("wm_imagewidth", 8);
        item->setData("wm_imageheight", 6);
    };
    add(m_red, 0);
    add(path, 20);
    add(m_red, 40);
    const QImage shown = model.getWatermark(64, 48, true).toImage().convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(shown.size(), QSize(64, 48));
    QCOMPARE(QColor::fromRgba(shown.pixel(3, 3)).name(QColor::HexArgb), QStringLiteral("#feff0000"));
    QCOMPARE(QColor::fromRgba(shown.pixel(43, 3)).name(QColor::HexArgb), QStringLiteral("#feff0000"));
    QCOMPARE(qAlpha(shown.pixel(23, 3)), loaded ? 254 : 0);
    QCOMPARE(logcapture::takeEvents(), loaded ? QList<int>() : QList<int>{1178});
}

void TstHostileImages::damagedPictures()
{
    QFETCH(const QByteArray, suffix);
    QFETCH(const QByteArray, bytes);
    QFETCH(const Damage, damage);
    QFETCH(const int, row);

    const int rows = static_cast<int>(originals().size()) * 6;
    const int count = std::max(1, (countOfDamaged() + rows - 1) / rows);
    QRandomGenerator random(seed + static_cast<quint32>(row));
    int loadedCount = 0;
    for (int i = 0; i < count; ++i) {
        const QByteArray damaged = damage(bytes, random);
        const QString path = saved(QStringLiteral("damaged%1.").arg(i) + suffix, damaged);
        bool loaded = false;
        checkPicture(path, loaded);
        if (QTest::currentTestFailed()) {
            qWarning("picture %d of this row: %s", i, damaged.left(2000).toHex().constData());
            return;
        }
        loadedCount += loaded ? 1 : 0;
        QFile::remove(path);
    }
    QVERIFY(loadedCount <= count);
}

void TstHostileImages::bombs_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QSize>("loads"); // Null for what is refused.

    const QSize refused(0, 0);
    const QByteArray few = zeros(100);
    const QByteArray many = zeros(256 << 20);
    const QByteArray largePng = blackPng(30000, 30000);
    const QByteArray jpeg = written("jpg", QImage::Format_RGB32);
    const auto row = [](const char* name, const char* suffix, const QByteArray& bytes, const QSize& loads) {
        QTest::newRow(name) << QStringLiteral("bomb.") + suffix << bytes << loads;
    };

    row("PNG that says 2147483647 x 2147483647", "png", png(0x7fffffff, 0x7fffffff, few), refused);
    row("PNG that says 1000000 x 1", "png", png(1000000, 1, few), refused);
    row("PNG that says 1 x 1000000", "png", png(1, 1000000, few), refused);
    row("PNG that says 0 x 0", "png", png(0, 0, few), refused);
    row("PNG of 30000 x 30000, whole", "png", largePng, refused);
    row("PNG with 256 MiB of text", "png",
        png(23, 17, zeros(68), pngChunk("zTXt", QByteArray("Comment\0\0", 9) + many)), QSize(23, 17));
    row("PNG with a text that says to be of 915 MiB", "png",
        png(23, 17, zeros(68), bigEndian(0x39393939) + QByteArray("zTXtComment\0\0", 13)), refused);
    row("PNG with a colour profile of 256 MiB", "png",
        png(23, 17, zeros(68), pngChunk("iCCP", QByteArray("Profile\0\0", 9) + many)), QSize(23, 17));
    row("PNG with 256 MiB behind its rows", "png", png(23, 17, many), QSize(23, 17));
    row("BMP that says 2147483647 x 2147483647", "bmp", bmp(0x7fffffff, 0x7fffffff), refused);
    row("BMP upside down, lowest height", "bmp", bmp(23, 0x80000000), refused);
    row("BMP of negative width", "bmp", bmp(0xffffffff, 17), refused);
    row("BMP of 65535 x 65535", "bmp", bmp(65535, 65535), refused);
    row("GIF on a screen of 65535 x 65535", "gif", gif({65535, 65535}, {1, 1}), refused);
    row("GIF of a frame of 65535 x 65535", "gif", gif({0, 0}, {65535, 65535}), refused);
    row("GIF of a frame beyond its screen", "gif", gif({1, 1}, {65535, 65535}), QSize(1, 1));
    row("animated GIF on a screen of 65535 x 65535", "gif", gif({65535, 65535}, {1, 1}, 1000), refused);
    row("GIF of 10000 frames", "gif", gif({23, 17}, {1, 1}, 10000), QSize(23, 17));
    row("icon that holds a PNG of 30000 x 30000", "ico", icon(largePng), refused);
    row("icon of 65535 entries", "ico", icon(blackPng(16, 16), 1, 65535), QSize(16, 16));
    row("cursor that holds a PNG of 12000 x 12000", "cur", icon(blackPng(12000, 12000), 2), refused);
    row("PPM that says 60000 x 60000", "ppm", "P6 60000 60000 255\n", refused);
    row("PPM that says 2147483647 x 2147483647", "ppm", "P6 2147483647 2147483647 255\n", refused);
    row("PGM that says 100000 x 100000", "pgm", "P5 100000 100000 255\n", refused);
    row("PBM that says 100000 x 100000", "pbm", "P4 100000 100000\n", refused);
    row("PPM of text that never says anything", "ppm", "P3 " + QByteArray(4 << 20, ' '), refused);
    row("XPM that says 60000 x 60000", "xpm", "/* XPM */\nstatic char* x[]={\n\"60000 60000 1 1\",\n\"a c #fff\",\n",
        refused);
    row("XPM of 2147483647 colours", "xpm", "/* XPM */\nstatic char* x[]={\n\"1 1 2147483647 4\",\n", refused);
    row("XBM that says 60000 x 60000", "xbm",
        "#define x_width 60000\n#define x_height 60000\nstatic char x_bits[] = {\n0x00,", refused);
    row("JPEG that says 65500 x 65500", "jpg", resizedJpeg(jpeg, 65500, 65500), refused);
    row("JPEG that says 1 x 65500", "jpg", resizedJpeg(jpeg, 1, 65500), QSize(1, 65500));
    row("JPEG of 4000 scans", "jpg", jpegOfManyScans({1200, 1200}, 4000), refused);
    row("JPEG of six scans", "jpg", jpegOfManyScans({1200, 1200}, 1), QSize(1200, 1200));
    row("largest BMP that is loaded", "bmp", bmp(8192, 4096), QSize(8192, 4096));
    row("largest PNG of 32 bits that is loaded", "png",
        png(8192, 4096, zeros((1 + qint64{8192} * 4) * 4096), QByteArray(), QByteArray("\x8\x6")), QSize(8192, 4096));
    row("largest PNG that is loaded", "png", blackPng(8192, 4096), QSize(8192, 4096));
}

// Whole pictures of up to 128 MiB are loaded; what would be more is refused before it costs anything.
void TstHostileImages::bombs()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, bytes);
    QFETCH(const QSize, loads);

    const QString path = saved(name, bytes);
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {loadArgument, path});
    QVERIFY(process.waitForFinished(-1));
    const QList<QByteArray> told = process.readAllStandardOutput().simplified().split(' ');
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(told.size(), 6);
    QCOMPARE(QSize(told.at(1).toInt(), told.at(2).toInt()), loads);
    QCOMPARE(told.at(3), loads.isEmpty() ? QByteArray("1178,1178") : QByteArray("none"));
    QVERIFY2(told.at(4).toLongLong() < (loads.isEmpty() ? mostForRefused : mostMemory), told.at(4).constData());
    QVERIFY2(told.at(5).toDouble() < mostMilliseconds * hostile::slowness, told.at(5).constData());
    QFile::remove(path);
}

void TstHostileImages::everyFormatOfQtItselfIsTried()
{
    QList<QByteArray> missing = QImageReader::supportedImageFormats();
    const QVector<Original> all = originals();
    for (const Original& original : all)
        missing.removeAll(original.suffix);
    // What other packages add, the Qt SVG and Qt Image Formats modules, is there or not from machine to machine.
    for (const char* added : {"icns", "mng", "svg", "svgz", "tga", "tif", "tiff", "wbmp", "webp"})
        missing.removeAll(added);
    QCOMPARE(missing, QList<QByteArray>());
}

void TstHostileImages::bombsInOneModel()
{
    const QStringList bombs{saved("b1.png", png(0x7fffffff, 0x7fffffff, zeros(100))),
                            saved("b2.bmp", bmp(65535, 65535)),
                            saved("b3.gif", gif({65535, 65535}, {1, 1}, 1000)),
                            saved("b4.ico", icon(blackPng(12000, 12000))),
                            saved("b5.cur", icon(blackPng(12000, 12000), 2)),
                            saved("b6.ppm", "P6 60000 60000 255\n"),
                            saved("b7.jpg", resizedJpeg(written("jpg", QImage::Format_RGB32), 65500, 65500))};
    for (const QString& bomb : bombs) {
        bool loaded = true;
        checkPicture(bomb, loaded);
        if (QTest::currentTestFailed()) {
            qWarning("%s", qPrintable(bomb));
            return;
        }
        QVERIFY2(!loaded, qPrintable(bomb));
        QFile::remove(bomb);
    }
}

void TstHostileImages::formatNames_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("loads");
    QTest::newRow("its own") << "png" << true;
    QTest::newRow("in capitals") << "PNG" << true;
    QTest::newRow("none") << "" << true;
    QTest::newRow("another's") << "jpg" << false;
    QTest::newRow("nobody's") << "%n%s" << true;
    QTest::newRow("long") << QString(1 << 20, QChar('x')) << true;
    QTest::newRow("beyond Latin-1") << QString(QChar(0xd800)) << true;
}

// Qt looks at the content where no reader knows the format that is named.
void TstHostileImages::formatNames()
{
    QFETCH(const QString, format);
    QFETCH(const bool, loads);
    ZoEffectModel model;
    model.setVideoSize(64, 48);
    auto* item = new ZoEffectItemData(QString(), model.getDataItem("Watermark", -1));
    item->setData("wm_imageurl", m_red);
    item->setData("wm_imageformat", format);
    item->setData("wm_imagewidth", 8);
    item->setData("wm_imageheight", 6);
    QCOMPARE(!model.getWatermark(64, 48, true).isNull(), loads);
    QCOMPARE(logcapture::takeEvents(), loads ? QList<int>() : QList<int>{1178});
}

void TstHostileImages::paths_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("empty") << QString();
    QTest::newRow("formats") << QStringLiteral("%n%s%1");
    QTest::newRow("64 MiB") << QString(32 << 20, QChar('p'));
    QTest::newRow("64 MiB of separators") << QString(32 << 20, QChar('/'));
    QTest::newRow("null character") << m_red + QChar(0);
    QTest::newRow("null character and suffix") << m_red + QChar(0) + ".png";
    QTest::newRow("lone surrogate") << QString(QChar(0xd800));
    QTest::newRow("folder") << m_folder.path();
    QTest::newRow("device") << QStringLiteral("/dev/zero");
    QTest::newRow("device that blocks") << QStringLiteral("/dev/tty");
    QTest::newRow("memory of this process") << QStringLiteral("/proc/self/mem");
    QTest::newRow("own program") << QCoreApplication::applicationFilePath();
    QTest::newRow("resource") << QStringLiteral(":/missing.png");
    QTest::newRow("address") << QStringLiteral("http://127.0.0.1/a.png");
    QTest::newRow("file address") << QStringLiteral("file://") + m_red;
    QTest::newRow("upwards for ever") << QStringLiteral("../").repeated(100000) + "etc/passwd";
}

void TstHostileImages::paths()
{
    QFETCH(const QString, path);
    ZoEffectModel model;
    const hostile::Stopwatch stopwatch;
    QVERIFY(model.getImage(path, nullptr)->isNull());
    QCOMPARE(logcapture::takeEvents(), QList<int>{1178});
    const double milliseconds = stopwatch.milliseconds();
    QVERIFY2(milliseconds < 2 * mostMilliseconds * hostile::slowness, qPrintable(QString::number(milliseconds)));
}

int main(int argc, char** argv)
{
    const TestFolders folders;
    TestApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == loadArgument)
        return loadAndTell(arguments.value(2));
    TstHostileImages test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_hostile_images.moc"
