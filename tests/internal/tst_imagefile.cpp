// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Which image files Qt may load, told from their headers alone.

#include <algorithm>

#include <sys/stat.h>

#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include "imagefile_p.h"

namespace {

QByteArray littleEndian(quint32 number, int bytes)
{
    QByteArray text(4, '\0');
    qToLittleEndian(number, text.data());
    return text.left(bytes);
}

QByteArray bigEndian(quint32 number)
{
    QByteArray text(4, '\0');
    qToBigEndian(number, text.data());
    return text;
}

/// The header of a picture without a suffix of pixels.
QByteArray plainPicture(int width, int height)
{
    return "P6\n" + QByteArray::number(width) + ' ' + QByteArray::number(height) + "\n255\n";
}

QByteArray gifHeader(quint32 width, quint32 height)
{
    return "GIF89a" + littleEndian(width, 2) + littleEndian(height, 2);
}

/// One of 2 x 2 pixels at \a left, on a screen, behind two colours, an extension and \a before.
QByteArray gifWithFrame(const QSize& screen, quint32 left, const QByteArray& before = {})
{
    return gifHeader(quint32(screen.width()), quint32(screen.height()))
           + QByteArray("\x80\0\0\0\0\0\xff\xff\xff!\xf9\4\0\0\0\0\0", 17) + before + ',' + littleEndian(left, 2)
           + QByteArray("\0\0\2\0\2\0\0\2\3\2\x84\x51\0;", 14);
}

/// 45 bytes, without a checksum or pixels; Qt's own reader finds nothing in it.
QByteArray pngHeader(quint32 width, quint32 height)
{
    return QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16) + bigEndian(width) + bigEndian(height) + QByteArray(9, '\0')
           + QByteArray("\0\0\0\0IEND\xae\x42\x60\x82", 12);
}

QByteArray iconHeader(int entries)
{
    return QByteArray("\0\0\1\0", 4) + littleEndian(quint32(entries), 2);
}

/// An entry of an icon's directory that names a picture of 16 x 16 at \a offset.
QByteArray iconEntry(quint32 offset)
{
    return QByteArray("\x10\x10\0\0\1\0\x20\0\0\1\0\0", 12) + littleEndian(offset, 4);
}

QByteArray pngChunk(const QByteArray& type, const QByteArray& data)
{
    const QByteArray content = type + data;
    quint32 checksum = 0xffffffff;
    for (const char byte : content) {
        checksum ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            checksum = (checksum >> 1) ^ ((checksum & 1) != 0 ? 0xedb88320 : 0);
    }
    return bigEndian(quint32(data.size())) + content + bigEndian(~checksum);
}

/// As far as Qt's reader looks for the size: four channels of \a depth bits.
QByteArray pngOfDepth(quint32 width, quint32 height, char depth)
{
    const QByteArray header = bigEndian(width) + bigEndian(height) + depth + QByteArray("\6\0\0\0", 4);
    return QByteArray("\x89PNG\r\n\x1a\n") + pngChunk("IHDR", header) + pngChunk("IDAT", QByteArray());
}

const QByteArray jpegStart("\xff\xd8");
const QByteArray jpegScan("\xff\xda\0\2", 4);

int messages = 0;

void countMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*text*/)
{
    ++messages;
}

} // namespace

class TstImageFile : public QObject {
    Q_OBJECT

private slots:
    void fileIsLoadedUpTo128Megabytes_data();
    void fileIsLoadedUpTo128Megabytes();
    void whatIsCalledAGifIsReadAsOne_data();
    void whatIsCalledAGifIsReadAsOne();
    void jpegIsLoadedUpTo32Scans_data();
    void jpegIsLoadedUpTo32Scans();
    void jpegOfMoreThan128MegabytesIsRefused();
    void pathThatMayBlockIsRefused_data();
    void pathThatMayBlockIsRefused();

private:
    /// Writes \a content, and zeros up to \a size.
    QString written(const QByteArray& content, qint64 size = 0) const;

    QTemporaryDir m_folder;
};

void TstImageFile::fileIsLoadedUpTo128Megabytes_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<bool>("loaded");
    const auto row = [](const char* name, const QByteArray& file, bool loaded) {
        QTest::newRow(name) << file << loaded;
    };

    row("nothing", QByteArray(), true);
    row("no image", "text", true);
    row("picture of 128 MB", plainPicture(8192, 4096), true);
    row("picture of a row more", plainPicture(8192, 4097), false);
    row("picture of 128 MB and a pixel", plainPicture(12153, 2761), false);

    row("PNG of 8 bits of 128 MB", pngOfDepth(8192, 4096, 8), true);
    row("PNG of 8 bits of a pixel more", pngOfDepth(12153, 2761, 8), false);
    row("PNG of 16 bits of 128 MB", pngOfDepth(4096, 4096, 16), true);
    row("PNG of 16 bits of a pixel more", pngOfDepth(24929, 673, 16), false);

    const QByteArray chunks =
        QByteArray("\x89PNG\r\n\x1a\n") + pngChunk("IHDR", QByteArray(13, '\0')) + pngChunk("tEXt", "abc");
    row("PNG that ends with a chunk", chunks, true);
    row("PNG that ends a byte before a chunk does", chunks.chopped(1), false);

    row("GIF of 128 MB", gifHeader(8192, 4096), true);
    row("GIF of a row more", gifHeader(8192, 4097), false);
    row("GIF of a pixel more", gifHeader(12153, 2761), false);
    row("GIF with a byte behind the screen", gifHeader(8192, 4097) + 'x', false);
    row("GIF cut in the size of its screen", gifHeader(8192, 4097).left(9), true);
    // Qt's reader takes the frame's edge for a side of the screen that is 0, or that it does not believe.
    row("GIF of a screen without a width", gifWithFrame({0, 11520}, 0), true);
    row("GIF of a frame far outside of a screen without a width", gifWithFrame({0, 11520}, 16384), false);
    row("GIF of a frame outside of a width that is believed", gifWithFrame({2009, 16000}, 16384), true);
    row("GIF of a frame outside of a width that is not", gifWithFrame({2010, 16000}, 16384), false);
    row("GIF of a frame behind a comment", gifWithFrame({0, 11520}, 16384, QByteArray("!\xfe\2ab\1c\0", 8)), false);
    row("GIF of a frame behind an empty extension", gifWithFrame({0, 11520}, 16384, QByteArray("!\xf9\0\2ab\0", 7)),
        false);
    row("GIF of a frame behind what is no extension", gifWithFrame({0, 11520}, 16384, "?"), true);
    row("GIF of a frame behind 99,998 blocks",
        gifWithFrame({1, 1}, 0, "!\xfe" + QByteArray("\1a").repeated(99997) + '\0'), true);
    row("GIF of a frame behind 100,000 blocks",
        gifWithFrame({1, 1}, 0, "!\xfe" + QByteArray("\1a").repeated(99999) + '\0'), false);
    row("large screen of no GIF", "JIF" + gifHeader(8192, 4097).mid(3), true);

    const QByteArray small = pngHeader(16, 16);
    const QByteArray large = pngHeader(8192, 4097);
    row("icon of a PNG of 128 MB", iconHeader(1) + iconEntry(22) + pngHeader(8192, 4096), true);
    row("icon of a PNG of a row more", iconHeader(1) + iconEntry(22) + large, false);
    row("icon of a PNG of a pixel more", iconHeader(1) + iconEntry(22) + pngHeader(12153, 2761), false);
    row("icon of a PNG that ends after its size", iconHeader(1) + iconEntry(22) + large.left(24), false);
    row("icon of a PNG that ends in its size", iconHeader(1) + iconEntry(22) + pngHeader(8192, 8192).left(23), true);
    row("icon of a PNG of other letters", iconHeader(1) + iconEntry(22) + "\x89QNG" + large.mid(4), true);
    row("icon whose first PNG is large", iconHeader(2) + iconEntry(38) + iconEntry(83) + large + small, false);
    row("icon whose last PNG is large", iconHeader(2) + iconEntry(38) + iconEntry(83) + small + large, false);
    row("icon of a tall and a wide PNG",
        iconHeader(2) + iconEntry(38) + iconEntry(83) + pngHeader(1, 8192) + pngHeader(8192, 1), false);
    row("icon that does not count its large PNG", iconHeader(1) + iconEntry(38) + iconEntry(83) + small + large, true);
    row("icon that counts more than it has", iconHeader(3) + iconEntry(22) + large, false);
    row("icon of a PNG far away", iconHeader(1) + iconEntry(70000) + QByteArray(70000 - 22, '\0') + large, false);
    row("icon of a PNG behind the end", iconHeader(1) + iconEntry(4000000000U) + large, true);
    row("icon without a directory", iconHeader(1), true);
    row("icon cut in its directory", iconHeader(1) + iconEntry(22).left(15), true);
    row("icon cut in its header", iconHeader(1).left(5), true);
    row("cursor of a PNG of a row more", QByteArray("\0\0\2\0\1\0", 6) + iconEntry(22) + large, false);
    row("directory of no icon", QByteArray("\0\0\3\0\1\0", 6) + iconEntry(22) + large, true);
}

void TstImageFile::fileIsLoadedUpTo128Megabytes()
{
    QFETCH(QByteArray, file);
    QFETCH(bool, loaded);
    QCOMPARE(imagefile::canBeLoaded(written(file), nullptr), loaded);
}

QString TstImageFile::written(const QByteArray& content, qint64 size) const
{
    QString path = m_folder.filePath(QStringLiteral("image.dat"));
    QFile file(path);
    const bool whole = file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    if (!whole || !file.resize(std::max(size, qint64(content.size()))))
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

void TstImageFile::whatIsCalledAGifIsReadAsOne_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<bool>("called");
    QTest::newRow("by its name") << QStringLiteral("picture.gif") << QByteArray() << true;
    QTest::newRow("by its name in capitals") << QStringLiteral("picture.GIF") << QByteArray() << true;
    QTest::newRow("by the format") << QStringLiteral("picture.dat") << QByteArray("gif") << true;
    QTest::newRow("by the format in capitals") << QStringLiteral("picture.dat") << QByteArray("GIF") << true;
    QTest::newRow("not at all") << QStringLiteral("picture.dat") << QByteArray() << false;
    QTest::newRow("by another format") << QStringLiteral("picture.dat") << QByteArray("png") << false;
}

void TstImageFile::whatIsCalledAGifIsReadAsOne()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, format);
    QFETCH(bool, called);
    const QString path = m_folder.filePath(name);
    const char* const asked = format.isEmpty() ? nullptr : format.constData();
    QVERIFY(QFile::rename(written("JIF" + gifHeader(8192, 4097).mid(3)), path));
    QCOMPARE(imagefile::canBeLoaded(path, asked), !called);
    QVERIFY(QFile::remove(path));
    QVERIFY(QFile::rename(written("JIF" + gifHeader(8192, 4096).mid(3)), path));
    QVERIFY(imagefile::canBeLoaded(path, asked));
    QVERIFY(QFile::remove(path));
    // The signature of another format counts more than the name.
    QVERIFY(QFile::rename(written(plainPicture(8192, 4096)), path));
    QVERIFY(imagefile::canBeLoaded(path, asked));
    QVERIFY(QFile::remove(path));
}

void TstImageFile::jpegIsLoadedUpTo32Scans_data()
{
    QTest::addColumn<QByteArray>("markers");
    QTest::addColumn<bool>("loaded");
    const auto row = [](const char* name, const QByteArray& markers, bool loaded) {
        QTest::newRow(name) << markers << loaded;
    };
    const QByteArray tooMany = jpegScan.repeated(33);

    row("no scan", QByteArray(), true);
    row("32 scans", jpegScan.repeated(32), true);
    row("33 scans", tooMany, false);
    row("33 scans with bytes between", (jpegScan + "xy").repeated(33), false);
    row("33 scans after filling bytes", ("\xff\xff" + jpegScan).repeated(33), false);
    row("33 scans that claim no length", QByteArray("\xff\xda\0\0", 4).repeated(33), false);
    row("32 scans with data, and restarts between",
        (jpegScan + QByteArray("\xff\0\xff\xd0\xff\xd7\xff\1", 8)).repeated(32), true);
    row("33 scans with data, and restarts between",
        (jpegScan + QByteArray("\xff\0\xff\xd0\xff\xd7\xff\1", 8)).repeated(33), false);
    row("33 scans within a comment", QByteArray("\xff\xfe\0\x86", 4) + tooMany, true);
    row("33 scans within a table", QByteArray("\xff\xc4\0\x86", 4) + tooMany, true);
    row("33 scans behind a comment", QByteArray("\xff\xfe\0\x06\xff\xda\xff\xda", 8) + tooMany, false);
    row("32 scans behind a comment with two in it",
        QByteArray("\xff\xfe\0\x0a", 4) + jpegScan.repeated(2) + jpegScan.repeated(32), true);
    row("32 scans, and a comment that ends as a scan begins",
        jpegScan.repeated(32) + QByteArray("\xff\xfe\0\3\xff\xda\0\2", 8), true);
    row("33 scans behind the end", "\xff\xd9" + tooMany, true);
    row("33 scans behind another start", "\xff\xd8" + tooMany, true);
    row("32 scans, and one cut before its length", jpegScan.repeated(32) + "\xff\xda", false);
    row("32 scans, and one cut in its length", jpegScan.repeated(32) + QByteArray("\xff\xda\0", 3), false);
    row("31 scans, and one of a length that goes on behind the end", jpegScan.repeated(31) + "\xff\xda\xff\xda", true);
    row("32 scans, and a marker cut", jpegScan.repeated(32) + "\xff", true);
    row("32 scans, and a comment cut", jpegScan.repeated(32) + "\xff\xfe", true);
}

void TstImageFile::jpegIsLoadedUpTo32Scans()
{
    QFETCH(QByteArray, markers);
    QFETCH(bool, loaded);
    QCOMPARE(imagefile::canBeLoaded(written(jpegStart + markers), nullptr), loaded);
    // The same bytes in a file that starts in another way are no JPEG.
    QVERIFY(imagefile::canBeLoaded(written("\xff\xd7" + markers), nullptr));
}

void TstImageFile::jpegOfMoreThan128MegabytesIsRefused()
{
    constexpr qint64 most = qint64(128) << 20;
    QVERIFY(!imagefile::canBeLoaded(written(jpegStart, most + 1), nullptr));
    QVERIFY(imagefile::canBeLoaded(written("\xff\xd7", most + 1), nullptr));
}

void TstImageFile::pathThatMayBlockIsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("loaded");
    QTest::newRow("no path") << QString() << false;
    QTest::newRow("longest path") << QString(4096 - m_folder.path().size() - 1, QLatin1Char('x')) << true;
    QTest::newRow("path of a letter more") << QString(4096 - m_folder.path().size(), QLatin1Char('x')) << false;
    QTest::newRow("missing file with a suffix") << QStringLiteral("missing.png") << false;
    QTest::newRow("missing file without a suffix") << QStringLiteral("missing") << true;
    QTest::newRow("file") << QStringLiteral("file") << true;
    QTest::newRow("FIFO") << QStringLiteral("fifo.png") << false;
    QTest::newRow("folder") << QStringLiteral("folder") << false;
    QTest::newRow("file behind a missing suffix") << QStringLiteral("plain") << true;
    QTest::newRow("FIFO behind a missing suffix") << QStringLiteral("fifo") << false;
    QTest::newRow("folder behind a missing suffix") << QStringLiteral("folders") << false;
    QTest::newRow("FIFO and file behind a missing suffix") << QStringLiteral("both") << false;
    QTest::newRow("large GIF behind a missing suffix") << QStringLiteral("large") << false;
    QTest::newRow("FIFO behind a suffix of no image") << QStringLiteral("other") << true;
}

void TstImageFile::pathThatMayBlockIsRefused()
{
    QFETCH(QString, name);
    QFETCH(bool, loaded);
    const QDir folder(m_folder.path());
    for (const char* const file : {"file", "plain.png", "both.png"}) {
        QFile device(folder.filePath(QLatin1String(file)));
        QVERIFY(device.open(QIODevice::WriteOnly));
    }
    for (const char* const fifo : {"fifo.png", "both.ppm", "other.fifo"}) {
        const QString path = folder.filePath(QLatin1String(fifo));
        QVERIFY(QFile::exists(path) || ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0);
    }
    QFile large(folder.filePath(QStringLiteral("large.gif")));
    QVERIFY(large.open(QIODevice::WriteOnly) && large.write(gifHeader(8192, 4097)) > 0 && large.flush());
    QVERIFY(folder.mkpath(QStringLiteral("folder")) && folder.mkpath(QStringLiteral("folders.png")));

    const QString path = name.isEmpty() ? QString() : folder.filePath(name);
    messages = 0;
    const QtMessageHandler before = qInstallMessageHandler(countMessage);
    const bool answer = imagefile::canBeLoaded(path, nullptr);
    qInstallMessageHandler(before);
    QCOMPARE(answer, loaded);
    QCOMPARE(messages, 0); // Nothing is read from what is not open.
}

QTEST_GUILESS_MAIN(TstImageFile)

#include "tst_imagefile.moc"
