// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <sys/stat.h>

#include <QFile>
#include <QImageReader>
#include <QPixmapCache>
#include <QtEndian>

#include "modeltest.h"
#include "pictures.h"

namespace {

const QSize smallFrame(64, 48);

QByteArray bigEndian(int value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(static_cast<quint32>(value), bytes.data());
    return bytes;
}

QByteArray littleEndian(int value)
{
    QByteArray bytes(4, '\0');
    qToLittleEndian(static_cast<quint32>(value), bytes.data());
    return bytes;
}

QByteArray pngChunk(const QByteArray& typeAndData)
{
    quint32 check = 0xffffffff;
    for (const char byte : typeAndData) {
        check ^= static_cast<uchar>(byte);
        for (int bit = 0; bit < 8; ++bit)
            check = (check & 1) != 0 ? (check >> 1) ^ 0xedb88320 : check >> 1;
    }
    QByteArray checksum(4, '\0');
    qToBigEndian(~check, checksum.data());
    return bigEndian(static_cast<int>(typeAndData.size()) - 4) + typeAndData + checksum;
}

/// A whole black PNG of one bit a pixel: a few kilobytes whatever its size.
QByteArray blackPng(int width, int height)
{
    const QByteArray header = bigEndian(width) + bigEndian(height) + QByteArray("\1\0\0\0\0", 5);
    const QByteArray rows = qCompress(QByteArray((1 + (width + 7) / 8) * height, '\0'), 9).mid(4);
    return QByteArray("\x89PNG\r\n\x1a\n", 8) + pngChunk("IHDR" + header) + pngChunk("IDAT" + rows) + pngChunk("IEND");
}

/// A whole one-coloured BMP in run lengths: 64 bytes whatever its size.
QByteArray plainBmp(int width, int height)
{
    const QByteArray onePlaneEightBits("\1\0\x8\0", 4);
    const QByteArray twoColors("\0\0\xff\0\0\xff\0\0", 8);
    const QByteArray endOfBitmap("\0\1", 2);
    return QByteArray("BM") + littleEndian(64) + littleEndian(0) + littleEndian(62) + littleEndian(40)
           + littleEndian(width) + littleEndian(height) + onePlaneEightBits + littleEndian(1) + littleEndian(2)
           + littleEndian(0) + littleEndian(0) + littleEndian(2) + littleEndian(0) + twoColors + endOfBitmap;
}

/// A whole GIF of 35 bytes: a frame of \a frame pixels on a screen of \a screen pixels, which is what is decoded.
QByteArray plainGif(const QSize& screen, const QSize& frame)
{
    const auto twoBytes = [](int value) { return littleEndian(value).left(2); };
    return QByteArray("GIF89a") + twoBytes(screen.width()) + twoBytes(screen.height())
           + QByteArray("\x80\0\0\0\0\0\xff\xff\xff,\0\0\0\0", 14) + twoBytes(frame.width()) + twoBytes(frame.height())
           + QByteArray("\0\2\2\x4c\1\0;", 7);
}

/// An icon that names itself 16 x 16 and holds \a picture, a PNG of any size.
QByteArray iconAround(const QByteArray& picture)
{
    return QByteArray("\0\0\1\0\1\0\x10\x10\0\0\1\0\x20\0", 14) + littleEndian(static_cast<int>(picture.size()))
           + littleEndian(22) + picture;
}

constexpr qint64 smallMemory = 32768; // KiB

} // namespace

// What the address sanitizer keeps back of freed memory would count as used.
extern "C" const char* __asan_default_options(); // NOLINT(bugprone-reserved-identifier): its name.
extern "C" const char* __asan_default_options()  // NOLINT(bugprone-reserved-identifier)
{
    return "quarantine_size_mb=4";
}

/// Which image files the model loads, and which it keeps.
class TstModelImages : public ModelTest {
    Q_OBJECT

private slots:
    void init()
    {
        ModelTest::init();
        QPixmapCache::clear(); // Qt knows loaded files by path, size and second, but not by format.
    }

    void imageIsLoadedOnce()
    {
        const QString path = m_pictures.add("once.png", filled(QSize(8, 6), Qt::red));
        ZoEffectModel model;
        QPixmap* loaded = model.getImage(path, nullptr);
        QCOMPARE(loaded->size(), QSize(8, 6));
        // The format counts only when the file is loaded.
        for (const char* format : {static_cast<const char*>(nullptr), "PNG", "BMP"})
            QVERIFY(model.getImage(path, format) == loaded);

        // Neither another picture under the path nor none changes what was loaded.
        QVERIFY(filled(QSize(3, 2), Qt::blue).save(path));
        QVERIFY(model.getImage(path, nullptr) == loaded);
        QVERIFY(QFile::remove(path));
        QVERIFY(model.getImage(path, nullptr) == loaded);
        QCOMPARE(loaded->size(), QSize(8, 6));
        QCOMPARE(colorAt(*loaded, 0, 0), QString("#ffff0000"));
    }

    void imagesStayUnderTheirPaths()
    {
        ZoEffectModel model;
        QPixmap* first = model.getImage(m_pictures.red(), nullptr);
        // Another spelling of the path is another path.
        QPixmap* spelled = model.getImage(m_pictures.file("./red.png"), nullptr);
        QVERIFY(spelled != first);
        QCOMPARE(spelled->size(), QSize(8, 6));
        for (int i = 1; i <= 40; ++i) {
            const QString path = m_pictures.add(QString("many%1.png").arg(i), filled(QSize(i, 1), Qt::green));
            QCOMPARE(model.getImage(path, nullptr)->width(), i);
        }
        QVERIFY(model.getImage(m_pictures.file("missing.png"), nullptr)->isNull());
        QCOMPARE(logcapture::takeEvents(), QList<int>{1178});
        QVERIFY(model.getImage(m_pictures.red(), nullptr) == first);
        QCOMPARE(colorAt(*first, 0, 0), QString("#ffff0000"));
    }

    void imageIsCachedAsLoaded()
    {
        QImage image = filled(QSize(8, 6), QColor(0, 255, 0, 128));
        image.setPixel(0, 0, qRgba(255, 0, 0, 255));
        const QString path = m_pictures.add("own alpha.png", image);
        Model model(smallFrame);
        addImage(model, path, QRect(10, 20, 8, 6), {{"wm_transparency", 50}});
        QPixmap* loaded = model.getImage(path, nullptr);
        QVERIFY(!render(model, smallFrame).isNull());
        QVERIFY(model.getImage(path, nullptr) == loaded);
        QCOMPARE(loaded->size(), QSize(8, 6));
        QCOMPARE(colorAt(*loaded, 0, 0), QString("#ffff0000"));
        QCOMPARE(colorAt(*loaded, 3, 3), QString("#8000ff00"));
    }

    void imageNames()
    {
        const QString letters = QString::fromUtf8("w\xc3\xa4rme \xe2\x82\xac.png");
        const QList<QPair<QString, QString>> names{{letters, letters},
                                                   {"name.bmp.png.jpg", "name.bmp.png.jpg"},
                                                   {"name", "name"},
                                                   {"left out.png", "left out"}};
        for (const auto& name : names) {
            QVERIFY(filled(QSize(8, 6), Qt::red).save(m_pictures.file(name.first), "PNG"));
            QCOMPARE(ZoEffectModel().getImage(m_pictures.file(name.second), nullptr)->size(), QSize(8, 6));
        }
    }

    void imageFormats_data()
    {
        const Rows<QByteArray, bool> add;
        add("none", QByteArray(), true);
        add("empty", QByteArray(""), true);
        add("its own in lower case", QByteArray("png"), true);
        add("another", QByteArray("BMP"), false);
        add("one that nobody knows", QByteArray("nothing"), true);
    }

    void imageFormats()
    {
        const auto [format, expected] = row<QByteArray, bool>();
        const QString path = m_pictures.add("format.dat", blackPng(8, 6));
        const QList<int> events = expected ? QList<int>() : QList<int>{1178};
        QCOMPARE(!ZoEffectModel().getImage(path, format.isNull() ? nullptr : format.constData())->isNull(), expected);
        QCOMPARE(logcapture::takeEvents(), events);

        // A watermark names it in a value.
        Model model(smallFrame);
        const QVariant value = format.isNull() ? QVariant() : QVariant(QString::fromLatin1(format));
        addImage(model, path, QRect(10, 20, 8, 6), {{"wm_imageformat", value}});
        QCOMPARE(!render(model, smallFrame).isNull(), expected);
        QCOMPARE(logcapture::takeEvents(), events);
    }

    void copiesLoadTheirOwnImages()
    {
        const QString path = m_pictures.add("copied.png", filled(QSize(8, 6), Qt::red));
        Model model(smallFrame);
        addImage(model, path, QRect(10, 20, 8, 6));
        QPixmap* loaded = model.getImage(path, nullptr);
        ZoEffectModel copy(model);
        ZoEffectModel assigned;
        assigned = model;
        QVERIFY(copy.getImage(path, nullptr) != loaded);

        QVERIFY(QFile::remove(path));
        QVERIFY(!render(copy, smallFrame).isNull());
        QVERIFY(render(assigned, smallFrame).isNull());
        QCOMPARE(logcapture::takeEvents(), QList<int>{1178});

        // Assigning takes nothing away either.
        static_cast<ZoEffectModel&>(model) = ZoEffectModel();
        QVERIFY(model.getImage(path, nullptr) == loaded);
    }

    void unreadableImages_data()
    {
        const Rows<QString> add;
        const QByteArray pipe = QFile::encodeName(m_pictures.file("pipe.png"));
        if (::mkfifo(pipe.constData(), 0600) != 0)
            qFatal("no pipe");
        add("missing", m_pictures.file("missing.png"));
        add("no path", "");
        add("folder", m_pictures.file("."));
        add("empty file that is called a JPEG", m_pictures.add("empty.jpg", QByteArray()));
        add("JPEG without its header", m_pictures.add("cut.jpg", QByteArray("\xff\xd8\xff\xe0", 4)));
        add("text", m_pictures.add("text.png", QByteArray("no picture")));
        add("header only", m_pictures.add("header.png", blackPng(8, 6).left(33)));
        add("pipe that nobody writes to", m_pictures.file("pipe.png"));
        add("endless device", "/dev/zero");
    }

    void unreadableImages()
    {
        const auto [path] = row<QString>();
        ZoEffectModel model;
        SignalRecorder recorder(model);
        for (const char* format :
             {static_cast<const char*>(nullptr), static_cast<const char*>(nullptr), "PNG", "JPEG"}) {
            const QPixmap* loaded = model.getImage(path, format);
            QVERIFY(loaded && loaded->isNull());
            QCOMPARE(logcapture::takeEvents(), QList<int>{1178});
        }
        QCOMPARE(recorder.take(), QStringList());
    }

    void unreadableImageIsTriedAgain()
    {
        Model model(smallFrame);
        const QString path = m_pictures.file("late.png");
        addImage(model, m_pictures.blue(), QRect(0, 0, 8, 6));
        addImage(model, path, QRect(0, 0, 64, 48));
        addImage(model, m_pictures.red(), QRect(20, 20, 8, 6));
        for (int i = 0; i < 2; ++i) {
            const QPixmap shown = render(model, smallFrame);
            QCOMPARE(colorAt(shown, 2, 2), QString("#fe0000ff"));
            QCOMPARE(colorAt(shown, 22, 22), QString("#feff0000"));
            QCOMPARE(colorAt(shown, 40, 40), QString("#00000000"));
            QCOMPARE(logcapture::takeEvents(), QList<int>{1178});
        }

        m_pictures.add("late.png", filled(QSize(8, 6), Qt::green));
        QCOMPARE(colorAt(render(model, smallFrame), 40, 40), QString("#fe00ff00"));
        QPixmap* loaded = model.getImage(path, nullptr);
        QCOMPARE(loaded->size(), QSize(8, 6));

        // A failure under one path leaves the pixmap of another.
        QVERIFY(model.getImage(m_pictures.file("missing.png"), nullptr)->isNull());
        QCOMPARE(loaded->size(), QSize(8, 6));
        QCOMPARE(logcapture::takeEvents(), QList<int>{1178});
    }

    // What is judged by the header, kind by kind, is told by tst_imagefile; here, that the model asks, and that a
    // picture which could be loaded takes no memory.
    void imageThatIsTooLarge_data()
    {
        const Rows<QString, QByteArray> add;
        const QByteArray emptyChunks = QByteArray("\0\0\0\0teSt\0\0\0\0", 12).repeated(1000000);
        add("PNG of 549 MiB", m_pictures.add("bomb.png", blackPng(12000, 12000)), QByteArray());
        add("PNG, format given", m_pictures.file("bomb.png"), QByteArray("PNG"));
        add("PNG, asked without its suffix", m_pictures.file("bomb"), QByteArray());
        add("PNG under another suffix", m_pictures.add("bomb.jpg", blackPng(12000, 12000)), QByteArray());
        add("one row more than 128 MiB", m_pictures.add("row.bmp", plainBmp(8192, 4097)), QByteArray());
        // 5793 x 5793 is 33558849: 4417 pixels more than 8192 x 4096.
        add("square, little more than 128 MiB", m_pictures.add("square.bmp", plainBmp(5793, 5793)), QByteArray());
        // Qt takes the memory of the screen to tell the size.
        add("GIF with a screen of 2 GiB", m_pictures.add("screen.gif", plainGif(QSize(23000, 23000), QSize(2, 34))),
            QByteArray());
        add("large screen in what is to be read as a GIF",
            m_pictures.add("format.img", "no GIF" + plainGif(QSize(12000, 12000), QSize(10, 10)).mid(6)),
            QByteArray("GIF"));
        add("GIF of a large frame", m_pictures.add("frame.gif", plainGif(QSize(0, 0), QSize(12000, 12000))),
            QByteArray());
        add("icon that holds a large PNG", m_pictures.add("bomb.ico", iconAround(blackPng(12000, 12000))),
            QByteArray());
        // At offset 14 of the file: the length of the first picture.
        add("icon that claims a GiB",
            m_pictures.add("claim.ico", iconAround(blackPng(16, 16)).replace(14, 4, QByteArray("\0\0\0\x40", 4))),
            QByteArray());
        add("PNG of a million empty chunks and more",
            m_pictures.add("chunks.png", blackPng(16, 16).insert(33, emptyChunks)), QByteArray());
        // So it says, behind its header.
        add("PNG with a text of 915 MiB",
            m_pictures.add("text.png", blackPng(16, 16).insert(33, QByteArray("\x39\x39\x39\x39zTXt", 8))),
            QByteArray());
        add("flat", m_pictures.add("flat.bmp", plainBmp(40000, 1000)), QByteArray());
        add("thin", m_pictures.add("thin.bmp", plainBmp(1000, 40000)), QByteArray());
    }

    void imageThatIsTooLarge()
    {
        const auto [path, format] = row<QString, QByteArray>();
        Model model(smallFrame);
        addImage(model, path, QRect(0, 0, 64, 48), {{"wm_imageformat", QString::fromLatin1(format)}});
        addImage(model, m_pictures.red(), QRect(10, 20, 8, 6));
        QVERIFY(forgetPeakMemory());
        const qint64 memory = peakMemory();
        const QPixmap* loaded = model.getImage(path, format.isNull() ? nullptr : format.constData());
        QVERIFY(loaded && loaded->isNull());
        QCOMPARE(shownArea(render(model, smallFrame)), QRect(10, 20, 8, 6));
        QCOMPARE(shownArea(render(model, QSize(128, 96))), QRect(20, 40, 16, 12));
        QCOMPARE(logcapture::takeEvents(), (QList<int>{1178, 1178, 1178}));
        QVERIFY(peakMemory() - memory < smallMemory);
    }

    void imagesUpToTheLimitAreLoaded()
    {
        ZoEffectModel model;
        const QString path = m_pictures.add("largest.bmp", plainBmp(8192, 4096)); // 128 MiB.
        QCOMPARE(model.getImage(path, nullptr)->size(), QSize(8192, 4096));
        // "JFIF" would be the size of a large screen.
        QImage black(40, 30, QImage::Format_RGB32);
        black.fill(Qt::black);
        QVERIFY(black.save(m_pictures.file("jpeg.gif"), "JPG"));
        QCOMPARE(model.getImage(m_pictures.file("jpeg.gif"), nullptr)->size(), QSize(40, 30));
        // Small ones of the kinds that are hard to judge.
        QCOMPARE(model.getImage(m_pictures.add("small.gif", plainGif(QSize(40, 30), QSize(10, 10))), nullptr)->size(),
                 QSize(40, 30));
        QCOMPARE(model.getImage(m_pictures.add("small.ico", iconAround(blackPng(16, 16))), nullptr)->size(),
                 QSize(16, 16));
    }

    void hostsImageLimitIsNotTouched()
    {
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
        const QString bomb = m_pictures.add("bomb.bmp", plainBmp(12000, 12000));
        for (const int limit : {0, 64, 128, 1024}) {
            QImageReader::setAllocationLimit(limit);
            ZoEffectModel model;
            QVERIFY(model.getImage(bomb, nullptr)->isNull());
            QVERIFY(!model.getImage(m_pictures.red(), nullptr)->isNull());
            QCOMPARE(QImageReader::allocationLimit(), limit);
            QCOMPARE(logcapture::takeEvents(), QList<int>{1178});
        }
        QImageReader::setAllocationLimit(128);
#else
        // There is no limit of Qt's own: a host can go on loading what the library refuses.
        const QString path = m_pictures.add("row.bmp", plainBmp(8192, 4097));
        ZoEffectModel model;
        QVERIFY(model.getImage(path, nullptr)->isNull());
        QCOMPARE(logcapture::takeEvents(), QList<int>{1178});
        QCOMPARE(QImage(path).size(), QSize(8192, 4097));
#endif
    }

    void otherSizeLoadsImagesAnew()
    {
        const QString path = m_pictures.add("fleeting.png", filled(QSize(8, 6), Qt::red));
        Model model(smallFrame);
        addImage(model, path, QRect(10, 20, 8, 6));
        QVERIFY(!render(model, smallFrame).isNull());
        QVERIFY(!render(model, QSize(128, 96)).isNull());

        // The model keeps its image; the rescaled copy has none and finds no file.
        QVERIFY(QFile::remove(path));
        QVERIFY(!render(model, smallFrame).isNull());
        QVERIFY(render(model, QSize(128, 96)).isNull());
        QCOMPARE(logcapture::takeEvents(), QList<int>{1178});

        // Nor does the model keep what only its rescaled copy has loaded.
        m_pictures.add("fleeting.png", filled(QSize(8, 6), Qt::red));
        Model other(smallFrame);
        addImage(other, path, QRect(10, 20, 8, 6));
        QVERIFY(!render(other, QSize(128, 96)).isNull());
        QVERIFY(QFile::remove(path));
        QVERIFY(render(other, smallFrame).isNull());
        QCOMPARE(logcapture::takeEvents(), QList<int>{1178});
    }

private:
    const PictureFolder m_pictures{};
};

ZOEFFECT_TEST_MAIN(TstModelImages)

#include "tst_model_images.moc"
