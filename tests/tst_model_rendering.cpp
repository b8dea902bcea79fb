// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <functional>
#include <limits>

#include <sys/stat.h>

#include <QFontMetrics>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QTemporaryDir>
#include <QtEndian>

#include <zoeffectitemdata.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

using Properties = QMap<QString, QVariant>;
using Change = std::function<void(ZoEffectModel&)>;

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

const QSize smallFrame(64, 48);
const QSize textFrame(300, 150);

// --- Models -------------------------------------------------------------------------------------------------

ZoEffectItemData& watermarks(const ZoEffectModel& model)
{
    ZoEffectItemData* found = model.getDataItem("Watermark", -1);
    if (!found)
        qFatal("no watermarks");
    return *found;
}

Properties with(Properties properties, const Properties& more)
{
    for (auto it = more.cbegin(); it != more.cend(); ++it)
        properties.insert(it.key(), it.value());
    return properties;
}

ZoEffectItemData& addItem(const ZoEffectModel& model, const Properties& properties)
{
    auto* item = new ZoEffectItemData(QString(), &watermarks(model));
    for (auto it = properties.cbegin(); it != properties.cend(); ++it)
        item->setData(it.key(), it.value());
    return *item;
}

/// A watermark that shows the picture at \a path in \a place, at the usual factor.
ZoEffectItemData& addImage(const ZoEffectModel& model, const QString& path, const QRect& place,
                           const Properties& more = {})
{
    const Properties image{{"wm_imageurl", path},
                           {"wm_hposition", place.x()},
                           {"wm_vposition", place.y()},
                           {"wm_imagewidth", place.width()},
                           {"wm_imageheight", place.height()},
                           {"wm_transparency", 0},
                           {"wm_transfactor", 2.55}};
    return addItem(model, with(image, more));
}

/// The font of addText() at \a pointSize.
QFont usualFont(int pointSize = 20)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSize(pointSize);
    return font;
}

/// A watermark that shows \a text with its left and top at \a place, 20 points, white.
ZoEffectItemData& addText(const ZoEffectModel& model, const QString& text, const QPoint& place,
                          const Properties& more = {})
{
    const Properties properties{{"wm_istextwatermark", true},
                                {"wm_textcontent", text},
                                {"wm_hposition", place.x()},
                                {"wm_vposition", place.y()},
                                {"wm_fontname", usualFont()},
                                {"wm_fontsize", 20},
                                {"wm_fontcolor", QColor(Qt::white)},
                                {"wm_fontstyle", "Regular"},
                                {"wm_transparency", 0},
                                {"wm_transfactor", 2.55}};
    return addItem(model, with(properties, more));
}

/// How large Qt says that \a text is.
QSize measured(const QString& text, const QFont& font = usualFont())
{
    return QFontMetrics(font).size(Qt::AlignLeft | Qt::AlignTop, text);
}

QSize storedSize(const ZoEffectItemData& item)
{
    return QSize(item.data("wm_imagewidth").toInt(), item.data("wm_imageheight").toInt());
}

QString snapshot(const ZoEffectModel& model)
{
    QString text = described(watermarks(model).properties());
    for (int row = 0; row < watermarks(model).childCount(); ++row)
        text += described(watermarks(model).child(row)->properties());
    return text + QStringLiteral(" %1x%2").arg(model.baseSize().width()).arg(model.baseSize().height());
}

QPixmap render(ZoEffectModel& model, const QSize& size, bool honourIgnore = false)
{
    return model.getWatermark(size.width(), size.height(), honourIgnore);
}

void setSize(ZoEffectModel& model, const QSize& size)
{
    model.setVideoSize(size.width(), size.height());
}

// --- Pictures -----------------------------------------------------------------------------------------------

QImage pixelsOf(const QPixmap& picture)
{
    return picture.toImage().convertToFormat(QImage::Format_ARGB32);
}

/// "#aarrggbb", or "null".
QString colorAt(const QPixmap& picture, int x, int y)
{
    return picture.isNull() ? QStringLiteral("null")
                            : QColor::fromRgba(pixelsOf(picture).pixel(x, y)).name(QColor::HexArgb);
}

/// The smallest rectangle that holds all pixels that are not fully transparent.
QRect shownArea(const QPixmap& picture)
{
    const QImage pixels = pixelsOf(picture);
    QRect area;
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x) {
            if (qAlpha(pixels.pixel(x, y)) != 0)
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

bool showsSomethingIn(const QPixmap& picture, const QRect& area)
{
    return !shownArea(picture.copy(area)).isEmpty();
}

/// The colour of the most opaque pixel, "#aarrggbb".
QString mostOpaque(const QPixmap& picture)
{
    const QImage pixels = pixelsOf(picture);
    QRgb found = 0;
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x) {
            if (qAlpha(pixels.pixel(x, y)) > qAlpha(found))
                found = pixels.pixel(x, y);
        }
    }
    return QColor::fromRgba(found).name(QColor::HexArgb);
}

QImage filled(const QSize& size, const QColor& color)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

/// Red, green, blue and white in the four corners of two by two pixels.
QImage fourColors()
{
    QImage image(2, 2, QImage::Format_RGB32);
    image.setPixel(0, 0, qRgb(255, 0, 0));
    image.setPixel(1, 0, qRgb(0, 255, 0));
    image.setPixel(0, 1, qRgb(0, 0, 255));
    image.setPixel(1, 1, qRgb(255, 255, 255));
    return image;
}

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

// --- Memory -------------------------------------------------------------------------------------------------

/// The most memory that this process has had at once, in KiB, since forgetPeakMemory().
qint64 peakMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("VmHWM:"))
            return line.simplified().split(' ').value(1).toLongLong();
    }
    return -1;
}

bool forgetPeakMemory()
{
    QFile references(QStringLiteral("/proc/self/clear_refs"));
    return references.open(QIODevice::WriteOnly) && references.write("5") == 1;
}

constexpr qint64 smallMemory = 32768; // KiB

} // namespace

Q_DECLARE_METATYPE(Change)

/// The picture of the shown watermarks, and the images in it.
class TstModelRendering : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void imageIsDrawnInItsPlace();
    void imageIsScaledWithoutSmoothing();
    void imageIsStretchedToItsRectangle_data();
    void imageIsStretchedToItsRectangle();
    void imageOfNoVisiblePixelStillCounts_data();
    void imageOfNoVisiblePixelStillCounts();
    void imageHangsOutOfTheFrame_data();
    void imageHangsOutOfTheFrame();
    void valuesAreReadAsWholeNumbers();

    void alphaOfAnImage_data();
    void alphaOfAnImage();
    void alphaOfAText_data();
    void alphaOfAText();
    void uniformAlphaReplacesTheImagesOwn_data();
    void uniformAlphaReplacesTheImagesOwn();
    void everyKindOfPictureGetsTheAlpha_data();
    void everyKindOfPictureGetsTheAlpha();

    void firstItemLiesOnTop();
    void translucentItemsMix();
    void textsLieBetweenImages();

    void nothingPaintedGivesNoPicture_data();
    void nothingPaintedGivesNoPicture();
    void withoutWatermarkTypeNoPicture();
    void checkStatesDecide_data();
    void checkStatesDecide();
    void nextPictureStartsAnew();
    void pictureIsTheHostsOwn();
    void emptyEntriesArePassedOver();

    void textStaysInItsMeasuredRectangle_data();
    void textStaysInItsMeasuredRectangle();
    void measuredSizeIsStoredWithSignals();
    void secondRenderingIsSilent();
    void onlyWhatChangedIsSignalled();
    void linesOfATextStandBelowEachOther();
    void textOutsideTheFrame_data();
    void textOutsideTheFrame();
    void textOutsideTheFrameIsNotMeasured();
    void fontOfAText_data();
    void fontOfAText();
    void stylesLookDifferent();
    void colorOfAText_data();
    void colorOfAText();

    void ignoredTexts_data();
    void ignoredTexts();
    void ignoredTextIsNotMeasured();

    void otherSizeLeavesTheModelAlone_data();
    void otherSizeLeavesTheModelAlone();
    void otherSizeRescalesImages();
    void otherSizeRescalesTexts_data();
    void otherSizeRescalesTexts();
    void withoutBaseSizeNothingIsRescaled();
    void otherSizeLoadsImagesAnew();

    void impossibleCanvas_data();
    void impossibleCanvas();
    void extremeCanvas_data();
    void extremeCanvas();

    void imageIsLoadedOnce();
    void imagesStayUnderTheirPaths();
    void imageIsCachedAsLoaded();
    void imageNames_data();
    void imageNames();
    void imageFormats_data();
    void imageFormats();
    void imageFormatOfAWatermark_data();
    void imageFormatOfAWatermark();
    void copiesLoadTheirOwnImages();
    void unreadableImages_data();
    void unreadableImages();
    void unreadableImageIsTriedAgain();
    void unreadableImageIsLoggedAtEachRendering();
    void unreadableImageLeavesTheOthers();
    void imageThatIsTooLarge_data();
    void imageThatIsTooLarge();
    void imageThatIsTooLargeIsNotShown();
    void imagesUpToTheLimitAreLoaded();
    void hostsImageLimitIsNotTouched();

    void listenerChangesTheList_data();
    void listenerChangesTheList();
    void listenerRescales_data();
    void listenerRescales();
    void listenerRendersAtEachSignal();
    void renderingsOfListenersNestOnlySoDeep();
    void listenerDeletesAnImageThatIsStillToCome();

private:
    QString file(const QString& name) const { return m_folder.filePath(name); }
    QString picture(const QString& name, const QImage& image) const;
    QString picture(const QString& name, const QByteArray& bytes) const;
    QString red() const { return picture("red.png", filled(QSize(8, 6), Qt::red)); }
    QString blue() const { return picture("blue.png", filled(QSize(8, 6), Qt::blue)); }

    QTemporaryDir m_folder;
    QScopedPointer<ZoEffectItemData> m_takenOut; // By a listener.
};

QString TstModelRendering::picture(const QString& name, const QImage& image) const
{
    if (!QFile::exists(file(name)) && !image.save(file(name)))
        qFatal("no picture");
    return file(name);
}

QString TstModelRendering::picture(const QString& name, const QByteArray& bytes) const
{
    QFile target(file(name));
    if (!target.open(QIODevice::WriteOnly) || target.write(bytes) != bytes.size())
        qFatal("no picture");
    return file(name);
}

void TstModelRendering::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
    QPixmapCache::clear(); // Qt knows loaded files by path, size and second, but not by format.
}

void TstModelRendering::cleanup()
{
    m_takenOut.reset();
}

// --- Images -------------------------------------------------------------------------------------------------

void TstModelRendering::imageIsDrawnInItsPlace()
{
    ZoEffectModel model;
    setSize(model, smallFrame);
    addImage(model, red(), QRect(10, 20, 8, 6));
    SignalRecorder recorder(model);
    const QString before = snapshot(model);

    const QPixmap shown = render(model, smallFrame);
    QCOMPARE(shown.size(), smallFrame);
    QCOMPARE(shownArea(shown), QRect(10, 20, 8, 6));
    QCOMPARE(colorAt(shown, 10, 20), QStringLiteral("#feff0000"));
    QCOMPARE(colorAt(shown, 17, 25), QStringLiteral("#feff0000"));
    QCOMPARE(colorAt(shown, 9, 20), QStringLiteral("#00000000"));
    QCOMPARE(colorAt(shown, 10, 19), QStringLiteral("#00000000"));
    QCOMPARE(colorAt(shown, 18, 25), QStringLiteral("#00000000"));
    QCOMPARE(colorAt(shown, 17, 26), QStringLiteral("#00000000"));
    QCOMPARE(colorAt(shown, 0, 0), QStringLiteral("#00000000"));
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(snapshot(model), before);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelRendering::imageIsScaledWithoutSmoothing()
{
    ZoEffectModel model;
    setSize(model, smallFrame);
    addImage(model, picture("four.png", fourColors()), QRect(4, 6, 20, 12));

    const QPixmap shown = render(model, smallFrame);
    QCOMPARE(shownArea(shown), QRect(4, 6, 20, 12));
    // Ten columns and six rows of each colour, without a blend between them.
    const struct {
        int x;
        int y;
        const char* color;
    } expected[] = {
        {4, 6, "#feff0000"},  {13, 6, "#feff0000"},  {14, 6, "#fe00ff00"},  {23, 6, "#fe00ff00"},
        {4, 11, "#feff0000"}, {13, 11, "#feff0000"}, {14, 11, "#fe00ff00"}, {23, 11, "#fe00ff00"},
        {4, 12, "#fe0000ff"}, {13, 12, "#fe0000ff"}, {14, 12, "#feffffff"}, {23, 12, "#feffffff"},
        {4, 17, "#fe0000ff"}, {13, 17, "#fe0000ff"}, {14, 17, "#feffffff"}, {23, 17, "#feffffff"},
    };
    for (const auto& pixel : expected)
        QCOMPARE(colorAt(shown, pixel.x, pixel.y), QString::fromLatin1(pixel.color));
}

void TstModelRendering::imageIsStretchedToItsRectangle_data()
{
    QTest::addColumn<QRect>("place");
    QTest::addColumn<QRect>("expected");

    QTest::newRow("own size") << QRect(10, 20, 8, 6) << QRect(10, 20, 8, 6);
    QTest::newRow("larger") << QRect(10, 20, 16, 12) << QRect(10, 20, 16, 12);
    QTest::newRow("smaller") << QRect(10, 20, 4, 3) << QRect(10, 20, 4, 3);
    QTest::newRow("wider only: the ratio is not kept") << QRect(10, 20, 40, 6) << QRect(10, 20, 40, 6);
    QTest::newRow("odd multiple") << QRect(1, 1, 21, 13) << QRect(1, 1, 21, 13);
    QTest::newRow("whole frame") << QRect(0, 0, 64, 48) << QRect(0, 0, 64, 48);
    QTest::newRow("one pixel") << QRect(5, 5, 1, 1) << QRect(5, 5, 1, 1);
    QTest::newRow("negative width is the image's own") << QRect(10, 20, -5, 12) << QRect(10, 20, 8, 12);
    QTest::newRow("negative height is the image's own") << QRect(10, 20, 16, -1) << QRect(10, 20, 16, 6);
}

void TstModelRendering::imageIsStretchedToItsRectangle()
{
    QFETCH(const QRect, place);
    QFETCH(const QRect, expected);

    ZoEffectModel model;
    setSize(model, smallFrame);
    addImage(model, red(), place);
    const QPixmap shown = render(model, smallFrame);
    QCOMPARE(shownArea(shown), expected);
    for (int y = expected.top(); y <= expected.bottom(); ++y) {
        for (int x = expected.left(); x <= expected.right(); ++x)
            QCOMPARE(colorAt(shown.copy(x, y, 1, 1), 0, 0), QStringLiteral("#feff0000"));
    }
}

void TstModelRendering::imageOfNoVisiblePixelStillCounts_data()
{
    QTest::addColumn<QRect>("place");
    QTest::addColumn<int>("transparency");

    QTest::newRow("fully transparent") << QRect(10, 20, 8, 6) << 100;
    QTest::newRow("width 0") << QRect(10, 20, 0, 6) << 0;
    QTest::newRow("height 0") << QRect(10, 20, 8, 0) << 0;
    QTest::newRow("no size") << QRect(10, 20, 0, 0) << 0;
    QTest::newRow("left of the frame") << QRect(-8, 20, 8, 6) << 0;
    QTest::newRow("right of the frame") << QRect(64, 20, 8, 6) << 0;
    QTest::newRow("above the frame") << QRect(10, -6, 8, 6) << 0;
    QTest::newRow("below the frame") << QRect(10, 48, 8, 6) << 0;
    QTest::newRow("far away") << QRect(1000000000, -1000000000, 8, 6) << 0;
}

void TstModelRendering::imageOfNoVisiblePixelStillCounts()
{
    QFETCH(const QRect, place);
    QFETCH(const int, transparency);

    ZoEffectModel model;
    setSize(model, smallFrame);
    addImage(model, red(), place, {{"wm_transparency", transparency}});
    const QPixmap shown = render(model, smallFrame);
    QVERIFY(!shown.isNull());
    QCOMPARE(shown.size(), smallFrame);
    QCOMPARE(shownArea(shown), QRect());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelRendering::imageHangsOutOfTheFrame_data()
{
    QTest::addColumn<QRect>("place");
    QTest::addColumn<QRect>("expected");

    QTest::newRow("over the left edge") << QRect(-3, 20, 8, 6) << QRect(0, 20, 5, 6);
    QTest::newRow("over the top edge") << QRect(10, -2, 8, 6) << QRect(10, 0, 8, 4);
    QTest::newRow("over the right edge") << QRect(60, 20, 8, 6) << QRect(60, 20, 4, 6);
    QTest::newRow("over the bottom edge") << QRect(10, 45, 8, 6) << QRect(10, 45, 8, 3);
    QTest::newRow("last column of it") << QRect(-7, 20, 8, 6) << QRect(0, 20, 1, 6);
    QTest::newRow("over all edges") << QRect(-10, -10, 100, 100) << QRect(0, 0, 64, 48);
}

void TstModelRendering::imageHangsOutOfTheFrame()
{
    QFETCH(const QRect, place);
    QFETCH(const QRect, expected);

    ZoEffectModel model;
    setSize(model, smallFrame);
    addImage(model, red(), place);
    QCOMPARE(shownArea(render(model, smallFrame)), expected);
}

void TstModelRendering::valuesAreReadAsWholeNumbers()
{
    ZoEffectModel model;
    setSize(model, smallFrame);
    addItem(model, {{"wm_imageurl", red()},
                    {"wm_hposition", "10"},
                    {"wm_vposition", 19.6},
                    {"wm_imagewidth", "8"},
                    {"wm_imageheight", 6.4},
                    {"wm_transparency", "50"},
                    {"wm_istextwatermark", "false"}});
    const QPixmap shown = render(model, smallFrame);
    QCOMPARE(shownArea(shown), QRect(10, 20, 8, 6));
    QCOMPARE(colorAt(shown, 12, 22), QStringLiteral("#7fff0000"));

    // Without a size and a transparency: nothing of it is seen. It is opaque, so that only the size can hide it.
    ZoEffectModel bare;
    setSize(bare, smallFrame);
    addItem(bare, {{"wm_imageurl", red()}});
    QCOMPARE(render(bare, smallFrame).size(), smallFrame);
    QCOMPARE(shownArea(render(bare, smallFrame)), QRect());
    watermarks(bare).child(0)->setData("wm_imagewidth", 8);
    watermarks(bare).child(0)->setData("wm_imageheight", 6);
    QCOMPARE(colorAt(render(bare, smallFrame), 0, 0), QStringLiteral("#feff0000"));
}

// --- Alpha --------------------------------------------------------------------------------------------------

void TstModelRendering::alphaOfAnImage_data()
{
    QTest::addColumn<QVariant>("transparency");
    QTest::addColumn<QVariant>("factor");
    QTest::addColumn<QString>("expected");

    QTest::newRow("opaque is 254") << QVariant(0) << QVariant(2.55) << "#feff0000";
    QTest::newRow("half is 127") << QVariant(50) << QVariant(2.55) << "#7fff0000";
    QTest::newRow("transparent") << QVariant(100) << QVariant(2.55) << "#00000000";
    QTest::newRow("transparency 20") << QVariant(20) << QVariant(2.55) << "#ccff0000";
    QTest::newRow("transparency 60") << QVariant(60) << QVariant(2.55) << "#66ff0000";
    QTest::newRow("transparency missing") << QVariant() << QVariant(2.55) << "#feff0000";
    QTest::newRow("transparency as text") << QVariant("50") << QVariant(2.55) << "#7fff0000";
    QTest::newRow("factor missing") << QVariant(0) << QVariant() << "#feff0000";
    QTest::newRow("factor is a word") << QVariant(50) << QVariant("abc") << "#7fff0000";
    QTest::newRow("factor as text") << QVariant(0) << QVariant("1.5") << "#96ff0000";
    QTest::newRow("factor 2") << QVariant(0) << QVariant(2) << "#c8ff0000";
    QTest::newRow("factor 0") << QVariant(0) << QVariant(0) << "#00000000";
    QTest::newRow("exactly 255") << QVariant(0) << QVariant(2.5501) << "#ffff0000";
    QTest::newRow("256 is no colour value") << QVariant(0) << QVariant(2.5601) << "#00000000";
    QTest::newRow("1000 is no colour value") << QVariant(0) << QVariant(10.0) << "#00000000";
    QTest::newRow("transparency -50 gives 382") << QVariant(-50) << QVariant(2.55) << "#00000000";
    QTest::newRow("transparency 101 gives -2") << QVariant(101) << QVariant(2.55) << "#00000000";
    QTest::newRow("negative factor") << QVariant(0) << QVariant(-1.0) << "#00000000";
    QTest::newRow("smallest transparency") << QVariant(smallest) << QVariant(2.55) << "#00000000";
}

void TstModelRendering::alphaOfAnImage()
{
    QFETCH(const QVariant, transparency);
    QFETCH(const QVariant, factor);
    QFETCH(const QString, expected);

    ZoEffectModel model;
    setSize(model, smallFrame);
    addImage(model, red(), QRect(10, 20, 8, 6), {{"wm_transparency", transparency}, {"wm_transfactor", factor}});
    const QPixmap shown = render(model, smallFrame);
    QCOMPARE(shown.size(), smallFrame); // It counts as painted, whatever is seen of it.
    QCOMPARE(colorAt(shown, 12, 22), expected);
}

void TstModelRendering::alphaOfAText_data()
{
    QTest::addColumn<QVariant>("transparency");
    QTest::addColumn<QVariant>("factor");
    QTest::addColumn<QString>("expected");

    QTest::newRow("opaque is 254") << QVariant(0) << QVariant(2.55) << "#feff0000";
    QTest::newRow("half is 127") << QVariant(50) << QVariant(2.55) << "#7fff0000";
    QTest::newRow("transparent") << QVariant(100) << QVariant(2.55) << "#00000000";
    QTest::newRow("factor missing") << QVariant(0) << QVariant() << "#feff0000";
    QTest::newRow("factor is a word") << QVariant(50) << QVariant("abc") << "#7fff0000";
    QTest::newRow("exactly 255") << QVariant(0) << QVariant(2.5501) << "#ffff0000";
    QTest::newRow("256 is limited to 255") << QVariant(0) << QVariant(2.5601) << "#ffff0000";
    QTest::newRow("transparency -50 is limited to 255") << QVariant(-50) << QVariant(2.55) << "#ffff0000";
    QTest::newRow("transparency 101 is limited to 0") << QVariant(101) << QVariant(2.55) << "#00000000";
    QTest::newRow("negative factor is limited to 0") << QVariant(0) << QVariant(-1.0) << "#00000000";
}

void TstModelRendering::alphaOfAText()
{
    QFETCH(const QVariant, transparency);
    QFETCH(const QVariant, factor);
    QFETCH(const QString, expected);

    ZoEffectModel model;
    setSize(model, textFrame);
    ZoEffectItemData& item = addText(model, "H", QPoint(10, 10),
                                     {{"wm_transparency", transparency},
                                      {"wm_transfactor", factor},
                                      {"wm_fontsize", 60},
                                      {"wm_fontstyle", "Bold"},
                                      {"wm_fontcolor", QColor(Qt::red)}});
    const QPixmap shown = render(model, textFrame);
    QCOMPARE(shown.size(), textFrame);
    QCOMPARE(mostOpaque(shown), expected);
    QVERIFY(!storedSize(item).isEmpty()); // It is measured, whatever is seen of it.
}

void TstModelRendering::uniformAlphaReplacesTheImagesOwn_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<int>("transparency");
    QTest::addColumn<QColor>("expected");
    QTest::addColumn<int>("tolerance"); // What 8 bits of premultiplied colour cost.

    QTest::newRow("opaque at 254") << QColor(0, 255, 0, 255) << 0 << QColor(0, 255, 0, 254) << 0;
    QTest::newRow("half transparent becomes 254") << QColor(0, 255, 0, 128) << 0 << QColor(0, 255, 0, 254) << 0;
    QTest::newRow("half transparent becomes 127") << QColor(0, 255, 0, 128) << 50 << QColor(0, 255, 0, 127) << 0;
    QTest::newRow("almost transparent becomes 127") << QColor(255, 0, 255, 1) << 50 << QColor(255, 0, 255, 127) << 0;
    QTest::newRow("fully transparent has lost its colour and becomes black")
        << QColor(255, 255, 255, 0) << 0 << QColor(0, 0, 0, 254) << 0;
    QTest::newRow("half transparent white stays white")
        << QColor(255, 255, 255, 128) << 0 << QColor(255, 255, 255, 254) << 0;
    QTest::newRow("half transparent mixed colour") << QColor(200, 100, 50, 128) << 0 << QColor(200, 100, 50, 254) << 2;
    QTest::newRow("mixed colour at 127") << QColor(200, 100, 50, 255) << 50 << QColor(200, 100, 50, 127) << 2;
    QTest::newRow("everything at 0") << QColor(0, 255, 0, 255) << 100 << QColor(0, 0, 0, 0) << 0;
}

void TstModelRendering::uniformAlphaReplacesTheImagesOwn()
{
    QFETCH(const QColor, color);
    QFETCH(const int, transparency);
    QFETCH(const QColor, expected);
    QFETCH(const int, tolerance);

    // The other half keeps the picture from being stored without an alpha channel.
    QImage image = filled(QSize(8, 6), color);
    image.setPixel(7, 5, qRgba(0, 0, 0, 0));
    const QString path = picture(QStringLiteral("alpha%1.png").arg(color.rgba(), 8, 16, QLatin1Char('0')), image);

    ZoEffectModel model;
    setSize(model, smallFrame);
    addImage(model, path, QRect(10, 20, 8, 6), {{"wm_transparency", transparency}});
    const QRgb pixel = pixelsOf(render(model, smallFrame)).pixel(12, 22);
    QCOMPARE(qAlpha(pixel), expected.alpha());
    QVERIFY(qAbs(qRed(pixel) - expected.red()) <= tolerance);
    QVERIFY(qAbs(qGreen(pixel) - expected.green()) <= tolerance);
    QVERIFY(qAbs(qBlue(pixel) - expected.blue()) <= tolerance);
}

void TstModelRendering::everyKindOfPictureGetsTheAlpha_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QImage>("image");
    QTest::addColumn<QString>("expected");

    const QImage green = filled(QSize(8, 6), Qt::green);
    QImage mono(8, 6, QImage::Format_Mono);
    mono.setColorTable({qRgb(0, 255, 0), qRgb(255, 0, 0)});
    mono.fill(0);
    QImage indexed(8, 6, QImage::Format_Indexed8);
    indexed.setColorTable({qRgba(0, 255, 0, 255), qRgba(0, 0, 0, 0)});
    indexed.fill(0);
    indexed.setPixel(7, 5, 1);
    QImage grey(8, 6, QImage::Format_Grayscale8);
    grey.fill(0xff);

    QTest::newRow("RGB") << "rgb.png" << green.convertToFormat(QImage::Format_RGB32) << "#7f00ff00";
    QTest::newRow("ARGB") << "argb.png" << green << "#7f00ff00";
    QTest::newRow("two colours") << "mono.png" << mono << "#7f00ff00";
    QTest::newRow("table with a transparent colour") << "indexed.png" << indexed << "#7f00ff00";
    QTest::newRow("grey") << "grey.png" << grey << "#7fffffff";
    QTest::newRow("16 bits a channel") << "deep.png" << green.convertToFormat(QImage::Format_RGBA64) << "#7f00ff00";
    QTest::newRow("BMP") << "rgb.bmp" << green.convertToFormat(QImage::Format_RGB32) << "#7f00ff00";
    QTest::newRow("PPM") << "rgb.ppm" << green.convertToFormat(QImage::Format_RGB32) << "#7f00ff00";
    QTest::newRow("XPM") << "rgb.xpm" << green << "#7f00ff00";
}

void TstModelRendering::everyKindOfPictureGetsTheAlpha()
{
    QFETCH(const QString, name);
    QFETCH(const QImage, image);
    QFETCH(const QString, expected);

    ZoEffectModel model;
    setSize(model, smallFrame);
    addImage(model, picture(name, image), QRect(10, 20, 8, 6), {{"wm_transparency", 50}});
    const QPixmap shown = render(model, smallFrame);
    QCOMPARE(shownArea(shown), QRect(10, 20, 8, 6));
    QCOMPARE(colorAt(shown, 12, 22), expected);
}

// --- Order --------------------------------------------------------------------------------------------------

void TstModelRendering::firstItemLiesOnTop()
{
    ZoEffectModel model;
    setSize(model, smallFrame);
    const Properties solid{{"wm_transfactor", 2.5501}}; // Alpha 255.
    addImage(model, red(), QRect(10, 20, 8, 6), solid);
    addImage(model, blue(), QRect(14, 20, 8, 6), solid);
    addImage(model, picture("green.png", filled(QSize(8, 6), Qt::green)), QRect(18, 20, 8, 6), solid);

    const QPixmap shown = render(model, smallFrame);
    QCOMPARE(shownArea(shown), QRect(10, 20, 16, 6));
    QCOMPARE(colorAt(shown, 10, 22), QStringLiteral("#ffff0000"));
    QCOMPARE(colorAt(shown, 17, 22), QStringLiteral("#ffff0000"));
    QCOMPARE(colorAt(shown, 18, 22), QStringLiteral("#ff0000ff"));
    QCOMPARE(colorAt(shown, 21, 22), QStringLiteral("#ff0000ff"));
    QCOMPARE(colorAt(shown, 22, 22), QStringLiteral("#ff00ff00"));
}

void TstModelRendering::translucentItemsMix()
{
    ZoEffectModel model;
    setSize(model, smallFrame);
    addImage(model, red(), QRect(10, 20, 8, 6), {{"wm_transparency", 50}});     // 127 of 255, on top.
    addImage(model, blue(), QRect(10, 20, 8, 6), {{"wm_transfactor", 2.5501}}); // 255 of 255.
    const QRgb pixel = pixelsOf(render(model, smallFrame)).pixel(12, 22);
    QCOMPARE(qAlpha(pixel), 255);
    QVERIFY(qAbs(qRed(pixel) - 127) <= 1);
    QCOMPARE(qGreen(pixel), 0);
    QVERIFY(qAbs(qBlue(pixel) - 128) <= 1);
}

void TstModelRendering::textsLieBetweenImages()
{
    const Properties solid{{"wm_transfactor", 2.5501}};
    const Properties text = with(solid, {{"wm_fontcolor", QColor(Qt::red)}, {"wm_fontsize", 60}});

    ZoEffectModel above;
    setSize(above, textFrame);
    addText(above, "H", QPoint(10, 10), text);
    addImage(above, blue(), QRect(QPoint(0, 0), textFrame), solid);
    QImage pixels = pixelsOf(render(above, textFrame));
    int redPixels = 0;
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x)
            redPixels += pixels.pixel(x, y) == qRgb(255, 0, 0) ? 1 : 0;
    }
    QVERIFY(redPixels > 0);

    ZoEffectModel below;
    setSize(below, textFrame);
    addImage(below, blue(), QRect(QPoint(0, 0), textFrame), solid);
    addText(below, "H", QPoint(10, 10), text);
    pixels = pixelsOf(render(below, textFrame));
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x)
            QVERIFY(pixels.pixel(x, y) == qRgb(0, 0, 255));
    }
}

// --- What is painted ----------------------------------------------------------------------------------------

void TstModelRendering::nothingPaintedGivesNoPicture_data()
{
    QTest::addColumn<Change>("arrange");
    QTest::addColumn<QList<int>>("events");

    const QString path = red();
    const QString missing = file("missing.png");
    const QList<int> none;

    QTest::newRow("no watermark") << Change([](ZoEffectModel&) {}) << none;
    QTest::newRow("type unchecked") << Change([=](ZoEffectModel& model) {
        addImage(model, path, QRect(0, 0, 8, 6));
        watermarks(model).setCheckState(0);
    }) << none;
    QTest::newRow("only unchecked watermarks") << Change([=](ZoEffectModel& model) {
        addImage(model, path, QRect(0, 0, 8, 6)).setCheckState(0);
        addText(model, "H", QPoint(0, 0)).setCheckState(0);
    }) << none;
    QTest::newRow("empty text") << Change([](ZoEffectModel& model) { addText(model, "", QPoint(0, 0)); }) << none;
    QTest::newRow("text missing") << Change([](ZoEffectModel& model) {
        addText(model, "H", QPoint(0, 0)).delData("wm_textcontent");
    }) << none;
    QTest::newRow("text outside the frame")
        << Change([](ZoEffectModel& model) { addText(model, "H", QPoint(1000, 0)); }) << none;
    QTest::newRow("image missing") << Change([=](ZoEffectModel& model) { addImage(model, missing, QRect(0, 0, 8, 6)); })
                                   << QList<int>{1178};
    QTest::newRow("image without a path")
        << Change([](ZoEffectModel& model) { addItem(model, {}); }) << QList<int>{1178};
    QTest::newRow("two images missing, unchecked and empty ones beside them") << Change([=](ZoEffectModel& model) {
        addImage(model, missing, QRect(0, 0, 8, 6));
        addImage(model, missing, QRect(0, 0, 8, 6)).setCheckState(0);
        addText(model, "", QPoint(0, 0));
        addImage(model, missing, QRect(0, 0, 8, 6));
    }) << QList<int>{1178, 1178};
}

void TstModelRendering::nothingPaintedGivesNoPicture()
{
    QFETCH(const Change, arrange);
    QFETCH(const QList<int>, events);

    ZoEffectModel model;
    setSize(model, smallFrame);
    arrange(model);
    SignalRecorder recorder(model);
    QVERIFY(render(model, smallFrame).isNull());
    QCOMPARE(logcapture::takeEvents(), events);
    QVERIFY(render(model, QSize(128, 96)).isNull());
    QCOMPARE(logcapture::takeEvents(), events);
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelRendering::withoutWatermarkTypeNoPicture()
{
    ZoEffectModel model(QStringList{"Crop"});
    setSize(model, smallFrame);
    QVERIFY(render(model, smallFrame).isNull());
    QVERIFY(render(model, QSize(128, 96)).isNull());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelRendering::checkStatesDecide_data()
{
    QTest::addColumn<int>("typeState");
    QTest::addColumn<int>("itemState");
    QTest::addColumn<bool>("expected");

    QTest::newRow("both checked") << 2 << 2 << true;
    QTest::newRow("type unchecked") << 0 << 2 << false;
    QTest::newRow("type partly checked") << 1 << 2 << false;
    QTest::newRow("type in another state") << 3 << 2 << false;
    QTest::newRow("item unchecked") << 2 << 0 << false;
    QTest::newRow("item partly checked") << 2 << 1 << false;
    QTest::newRow("item in another state") << 2 << -1 << false;
}

void TstModelRendering::checkStatesDecide()
{
    QFETCH(const int, typeState);
    QFETCH(const int, itemState);
    QFETCH(const bool, expected);

    ZoEffectModel images;
    setSize(images, smallFrame);
    addImage(images, red(), QRect(0, 0, 8, 6)).setCheckState(itemState);
    watermarks(images).setCheckState(typeState);
    QCOMPARE(!render(images, smallFrame).isNull(), expected);

    ZoEffectModel texts;
    setSize(texts, smallFrame);
    ZoEffectItemData& item = addText(texts, "H", QPoint(0, 0));
    item.setCheckState(itemState);
    watermarks(texts).setCheckState(typeState);
    QCOMPARE(!render(texts, smallFrame).isNull(), expected);
    QCOMPARE(item.hasData("wm_imagewidth"), expected);

    // An unchecked one leaves the others.
    addText(texts, "A", QPoint(0, 0));
    QCOMPARE(!render(texts, smallFrame).isNull(), typeState == 2);
}

void TstModelRendering::nextPictureStartsAnew()
{
    ZoEffectModel model;
    setSize(model, smallFrame);
    ZoEffectItemData& item = addImage(model, red(), QRect(10, 20, 8, 6));
    QCOMPARE(shownArea(render(model, smallFrame)), QRect(10, 20, 8, 6));
    item.setData("wm_hposition", 30);
    QCOMPARE(shownArea(render(model, smallFrame)), QRect(30, 20, 8, 6));
    item.setCheckState(0);
    QVERIFY(render(model, smallFrame).isNull());
    item.setCheckState(2);
    QCOMPARE(shownArea(render(model, smallFrame)), QRect(30, 20, 8, 6));
    model.setVideoSize(0, 0);
    QVERIFY(render(model, QSize(0, 0)).isNull());
}

void TstModelRendering::pictureIsTheHostsOwn()
{
    ZoEffectModel model;
    setSize(model, smallFrame);
    addImage(model, red(), QRect(10, 20, 8, 6));
    QPixmap first = render(model, smallFrame);
    const QPixmap second = render(model, smallFrame);
    first.fill(Qt::black);
    QCOMPARE(colorAt(second, 12, 22), QStringLiteral("#feff0000"));
    QCOMPARE(colorAt(render(model, smallFrame), 12, 22), QStringLiteral("#feff0000"));
    QCOMPARE(colorAt(render(model, smallFrame), 0, 0), QStringLiteral("#00000000"));
}

void TstModelRendering::emptyEntriesArePassedOver()
{
    ZoEffectModel model;
    setSize(model, smallFrame);
    watermarks(model).appendChild(nullptr);
    QVERIFY(render(model, smallFrame).isNull());
    addImage(model, red(), QRect(10, 20, 8, 6));
    watermarks(model).appendChild(nullptr);
    QCOMPARE(shownArea(render(model, smallFrame)), QRect(10, 20, 8, 6));
    QCOMPARE(shownArea(render(model, QSize(128, 96))), QRect(20, 40, 16, 12));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

// --- Texts --------------------------------------------------------------------------------------------------

void TstModelRendering::textStaysInItsMeasuredRectangle_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<int>("pointSize");

    QTest::newRow("letter") << "H" << QPoint(10, 10) << 20;
    QTest::newRow("word") << "HELLO" << QPoint(40, 60) << 20;
    QTest::newRow("large") << "HE" << QPoint(5, 5) << 60;
    QTest::newRow("small") << "HE" << QPoint(200, 100) << 8;
    QTest::newRow("at the corner") << "HE" << QPoint(0, 0) << 20;
    QTest::newRow("two lines") << "HE\nHELLO" << QPoint(30, 20) << 20;
}

void TstModelRendering::textStaysInItsMeasuredRectangle()
{
    QFETCH(const QString, text);
    QFETCH(const QPoint, place);
    QFETCH(const int, pointSize);

    ZoEffectModel model;
    setSize(model, textFrame);
    ZoEffectItemData& item = addText(model, text, place, {{"wm_fontsize", pointSize}});
    const QPixmap shown = render(model, textFrame);
    QCOMPARE(shown.size(), textFrame);

    const QSize expected = measured(text, usualFont(pointSize));
    QCOMPARE(storedSize(item), expected);
    QCOMPARE(item.data("wm_imagewidth").userType(), int(QMetaType::Int));
    QCOMPARE(item.data("wm_imageheight").userType(), int(QMetaType::Int));
    const QRect area = shownArea(shown);
    QVERIFY(!area.isEmpty());
    QVERIFY(QRect(place, expected).contains(area));
    // Letters without gaps at their sides fill most of it.
    QVERIFY(area.width() > expected.width() * 3 / 4);
    QVERIFY(area.height() > expected.height() / 3);
}

void TstModelRendering::measuredSizeIsStoredWithSignals()
{
    ZoEffectModel model;
    setSize(model, textFrame);
    addText(model, "A", QPoint(10, 10));
    addImage(model, red(), QRect(0, 0, 8, 6));
    addText(model, "BBB", QPoint(10, 80));
    SignalRecorder recorder(model);
    render(model, textFrame);

    const QSize a = measured("A");
    const QSize b = measured("BBB");
    QVERIFY(a.width() < b.width());
    const QString line = QStringLiteral("effectDataChanged(Watermark, %1, int %2, %3)");
    QCOMPARE(recorder.take(), (QStringList{line.arg("wm_imagewidth").arg(b.width()).arg(2),
                                           line.arg("wm_imageheight").arg(b.height()).arg(2),
                                           line.arg("wm_imagewidth").arg(a.width()).arg(0),
                                           line.arg("wm_imageheight").arg(a.height()).arg(0)}));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelRendering::secondRenderingIsSilent()
{
    ZoEffectModel model;
    setSize(model, textFrame);
    ZoEffectItemData& item = addText(model, "A", QPoint(10, 10));
    render(model, textFrame);
    SignalRecorder recorder(model);
    const QImage first = pixelsOf(render(model, textFrame));
    QCOMPARE(recorder.take(), QStringList());
    QVERIFY(first == pixelsOf(render(model, textFrame)));

    // A stored text that means the same number is equal, too.
    item.setData("wm_imagewidth", QString::number(measured("A").width()));
    render(model, textFrame);
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelRendering::onlyWhatChangedIsSignalled()
{
    ZoEffectModel model;
    setSize(model, textFrame);
    ZoEffectItemData& item = addText(model, "A", QPoint(10, 10));
    render(model, textFrame);
    SignalRecorder recorder(model);
    item.setData("wm_textcontent", "AAAA"); // As high as before.
    render(model, textFrame);
    QCOMPARE(
        recorder.take(),
        QStringList{
            QStringLiteral("effectDataChanged(Watermark, wm_imagewidth, int %1, 0)").arg(measured("AAAA").width())});
}

void TstModelRendering::linesOfATextStandBelowEachOther()
{
    ZoEffectModel model;
    setSize(model, textFrame);
    ZoEffectItemData& one = addText(model, "HH", QPoint(0, 0));
    ZoEffectItemData& three = addText(model, "HH\nH\nHH", QPoint(100, 0));
    render(model, textFrame);
    QCOMPARE(storedSize(three).width(), storedSize(one).width());
    QVERIFY(storedSize(three).height() >= 3 * storedSize(one).height() - 2);
}

void TstModelRendering::textOutsideTheFrame_data()
{
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("top");
    QTest::addColumn<bool>("painted");

    const int width = measured("HHH").width();
    const int height = measured("HHH").height();

    QTest::newRow("inside") << 10 << 10 << true;
    QTest::newRow("last column") << 299 << 10 << true;
    QTest::newRow("right of the frame") << 300 << 10 << false;
    QTest::newRow("last row") << 10 << 149 << true;
    QTest::newRow("below the frame") << 10 << 150 << false;
    QTest::newRow("right edge in column 1") << 2 - width << 10 << true;
    QTest::newRow("right edge in column 0 is outside") << 1 - width << 10 << false;
    QTest::newRow("left of the frame") << -width << 10 << false;
    QTest::newRow("bottom edge in row 1") << 10 << 2 - height << true;
    QTest::newRow("bottom edge in row 0 is outside") << 10 << 1 - height << false;
    QTest::newRow("above the frame") << 10 << -height << false;
    QTest::newRow("farthest right") << largest << 10 << false;
    QTest::newRow("farthest left") << smallest << 10 << false;
    QTest::newRow("farthest down") << 10 << largest << false;
    QTest::newRow("farthest up") << 10 << smallest << false;
}

void TstModelRendering::textOutsideTheFrame()
{
    QFETCH(const int, left);
    QFETCH(const int, top);
    QFETCH(const bool, painted);

    ZoEffectModel model;
    setSize(model, textFrame);
    ZoEffectItemData& item = addText(model, "HHH", QPoint(left, top));
    SignalRecorder recorder(model);
    const QPixmap shown = render(model, textFrame);
    QCOMPARE(shown.isNull(), !painted);
    QCOMPARE(item.hasData("wm_imagewidth"), painted);
    QCOMPARE(item.hasData("wm_imageheight"), painted);
    QCOMPARE(recorder.take().size(), painted ? 2 : 0);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelRendering::textOutsideTheFrameIsNotMeasured()
{
    ZoEffectModel model;
    setSize(model, textFrame);
    ZoEffectItemData& item = addText(model, "H", QPoint(300, 0), {{"wm_imagewidth", 7}, {"wm_imageheight", 8}});
    addImage(model, red(), QRect(0, 0, 8, 6));
    QVERIFY(!render(model, textFrame).isNull());
    QCOMPARE(storedSize(item), QSize(7, 8));
}

void TstModelRendering::fontOfAText_data()
{
    QTest::addColumn<Properties>("properties");
    QTest::addColumn<QFont>("expected");

    const auto font = [](const QFont& base, int pointSize, QFont::Weight weight, QFont::Style style) {
        QFont result(base);
        if (pointSize > 0)
            result.setPointSize(pointSize);
        result.setWeight(weight);
        result.setStyle(style);
        return result;
    };
    const QFont sans(QStringLiteral("DejaVu Sans"));
    const QFont mono(QStringLiteral("DejaVu Sans Mono"));
    QFont own(QStringLiteral("DejaVu Sans"));
    own.setPointSize(31);
    own.setWeight(QFont::Bold);
    own.setStyle(QFont::StyleItalic);

    QTest::newRow("regular") << Properties{} << font(sans, 20, QFont::Normal, QFont::StyleNormal);
    QTest::newRow("bold") << Properties{{"wm_fontstyle", "Bold"}} << font(sans, 20, QFont::Bold, QFont::StyleNormal);
    QTest::newRow("italic") << Properties{{"wm_fontstyle", "Italic"}}
                            << font(sans, 20, QFont::Normal, QFont::StyleItalic);
    QTest::newRow("bold italic") << Properties{{"wm_fontstyle", "Bold Italic"}}
                                 << font(sans, 20, QFont::Bold, QFont::StyleItalic);
    QTest::newRow("larger") << Properties{{"wm_fontsize", 40}} << font(sans, 40, QFont::Normal, QFont::StyleNormal);
    QTest::newRow("size as text") << Properties{{"wm_fontsize", "40"}}
                                  << font(sans, 40, QFont::Normal, QFont::StyleNormal);
    QTest::newRow("another font") << Properties{{"wm_fontname", mono}}
                                  << font(mono, 20, QFont::Normal, QFont::StyleNormal);
    QTest::newRow("font as text") << Properties{{"wm_fontname", "DejaVu Sans Mono"}}
                                  << font(mono, 20, QFont::Normal, QFont::StyleNormal);
    QTest::newRow("font is a number: the default font")
        << Properties{{"wm_fontname", 5}} << font(QFont(), 20, QFont::Normal, QFont::StyleNormal);
    QTest::newRow("font missing: the default font")
        << Properties{{"wm_fontname", QVariant()}} << font(QFont(), 20, QFont::Normal, QFont::StyleNormal);
    QTest::newRow("size 0 leaves the font's own")
        << Properties{{"wm_fontname", own}, {"wm_fontsize", 0}} << font(own, 31, QFont::Normal, QFont::StyleNormal);
    QTest::newRow("negative size leaves the font's own")
        << Properties{{"wm_fontname", own}, {"wm_fontsize", -4}} << font(own, 31, QFont::Normal, QFont::StyleNormal);
    QTest::newRow("unknown style leaves the font's own")
        << Properties{{"wm_fontname", own}, {"wm_fontstyle", "bold"}} << font(own, 20, QFont::Bold, QFont::StyleItalic);
    QTest::newRow("no style leaves the font's own") << Properties{{"wm_fontname", own}, {"wm_fontstyle", QVariant()}}
                                                    << font(own, 20, QFont::Bold, QFont::StyleItalic);
    QTest::newRow("regular takes bold and italic away")
        << Properties{{"wm_fontname", own}} << font(own, 20, QFont::Normal, QFont::StyleNormal);
}

void TstModelRendering::fontOfAText()
{
    QFETCH(const Properties, properties);
    QFETCH(const QFont, expected);

    ZoEffectModel model;
    setSize(model, textFrame);
    ZoEffectItemData& item = addText(model, "Wig", QPoint(10, 10), properties);
    render(model, textFrame);
    QCOMPARE(storedSize(item), measured("Wig", expected));
}

void TstModelRendering::stylesLookDifferent()
{
    QFont italic = usualFont();
    italic.setItalic(true);

    const auto shown = [](const QFont& font, const QString& style) {
        ZoEffectModel model;
        setSize(model, textFrame);
        addText(model, "Wig", QPoint(10, 10), {{"wm_fontname", font}, {"wm_fontstyle", style}, {"wm_fontsize", 40}});
        return pixelsOf(render(model, textFrame));
    };
    const QStringList styles{"Regular", "Italic", "Bold", "Bold Italic"};
    for (int i = 0; i < styles.size(); ++i) {
        for (int k = i + 1; k < styles.size(); ++k)
            QVERIFY(shown(usualFont(), styles.at(i)) != shown(usualFont(), styles.at(k)));
        QVERIFY(shown(italic, styles.at(i)) == shown(usualFont(), styles.at(i)));
    }
    QVERIFY(shown(italic, "") == shown(usualFont(), "Italic"));
    QVERIFY(shown(usualFont(), "italic") == shown(usualFont(), "Regular"));
}

void TstModelRendering::colorOfAText_data()
{
    QTest::addColumn<QVariant>("color");
    QTest::addColumn<QString>("expected");

    QTest::newRow("red") << QVariant(QColor(Qt::red)) << "#feff0000";
    QTest::newRow("its own alpha is replaced") << QVariant(QColor(0, 0, 255, 10)) << "#fe0000ff";
    QTest::newRow("as text") << QVariant("#00ff00") << "#fe00ff00";
    QTest::newRow("as a name") << QVariant("blue") << "#fe0000ff";
    QTest::newRow("black") << QVariant(QColor(Qt::black)) << "#fe000000";
}

void TstModelRendering::colorOfAText()
{
    QFETCH(const QVariant, color);
    QFETCH(const QString, expected);

    ZoEffectModel model;
    setSize(model, textFrame);
    addText(model, "H", QPoint(10, 10), {{"wm_fontcolor", color}, {"wm_fontsize", 60}, {"wm_fontstyle", "Bold"}});
    QCOMPARE(mostOpaque(render(model, textFrame)), expected);

    // Whatever is no colour is painted black.
    watermarks(model).child(0)->setData("wm_fontcolor", "no colour");
    QCOMPARE(mostOpaque(render(model, textFrame)).right(6), QStringLiteral("000000"));
    watermarks(model).child(0)->delData("wm_fontcolor");
    QCOMPARE(mostOpaque(render(model, textFrame)).right(6), QStringLiteral("000000"));
}

// --- Ignored texts ------------------------------------------------------------------------------------------

void TstModelRendering::ignoredTexts_data()
{
    QTest::addColumn<QVariant>("ignore");
    QTest::addColumn<bool>("honourIgnore");
    QTest::addColumn<bool>("baseSize");
    QTest::addColumn<bool>("textPainted");

    QTest::newRow("asked for") << QVariant(true) << true << true << false;
    QTest::newRow("not asked for") << QVariant(true) << false << true << true;
    QTest::newRow("asked for, at another size") << QVariant(true) << true << false << false;
    QTest::newRow("not asked for, but at another size") << QVariant(true) << false << false << false;
    QTest::newRow("not to be ignored, asked for") << QVariant(false) << true << true << true;
    QTest::newRow("not to be ignored, at another size") << QVariant(false) << false << false << true;
    QTest::newRow("nothing said, asked for") << QVariant() << true << true << true;
    QTest::newRow("as text") << QVariant("true") << true << true << false;
    QTest::newRow("as text 'false'") << QVariant("false") << true << true << true;
    QTest::newRow("as number") << QVariant(1) << true << true << false;
}

void TstModelRendering::ignoredTexts()
{
    QFETCH(const QVariant, ignore);
    QFETCH(const bool, honourIgnore);
    QFETCH(const bool, baseSize);
    QFETCH(const bool, textPainted);

    const QSize size = baseSize ? textFrame : textFrame * 2;

    ZoEffectModel texts;
    setSize(texts, textFrame);
    addText(texts, "H", QPoint(10, 10), {{"wm_ingnore", ignore}});
    QCOMPARE(!render(texts, size, honourIgnore).isNull(), textPainted);

    ZoEffectModel images; // Never ignored.
    setSize(images, textFrame);
    addImage(images, red(), QRect(10, 20, 8, 6), {{"wm_ingnore", ignore}});
    QVERIFY(!render(images, size, honourIgnore).isNull());

    ZoEffectModel wellSpelled; // Means nothing.
    setSize(wellSpelled, textFrame);
    addText(wellSpelled, "H", QPoint(10, 10), {{"wm_ignore", true}});
    QVERIFY(!render(wellSpelled, size, honourIgnore).isNull());
}

void TstModelRendering::ignoredTextIsNotMeasured()
{
    ZoEffectModel model;
    setSize(model, textFrame);
    addText(model, "A", QPoint(10, 10), {{"wm_ingnore", true}});
    addText(model, "B", QPoint(10, 80));
    SignalRecorder recorder(model);
    render(model, textFrame, true);
    QCOMPARE(recorder.take().size(), 2);
    QVERIFY(!watermarks(model).child(0)->hasData("wm_imagewidth"));
    QVERIFY(watermarks(model).child(1)->hasData("wm_imagewidth"));
    render(model, textFrame, false);
    QVERIFY(watermarks(model).child(0)->hasData("wm_imagewidth"));
}

// --- Another size -------------------------------------------------------------------------------------------

void TstModelRendering::otherSizeLeavesTheModelAlone_data()
{
    QTest::addColumn<QSize>("size");

    QTest::newRow("twice") << textFrame * 2;
    QTest::newRow("half") << textFrame / 2;
    QTest::newRow("only the width") << QSize(200, 150);
    QTest::newRow("only the height") << QSize(300, 100);
    QTest::newRow("one pixel") << QSize(1, 1);
    QTest::newRow("nothing") << QSize(0, 0);
    QTest::newRow("negative") << QSize(-300, -150);
    QTest::newRow("impossible") << QSize(100000, 100000);
}

void TstModelRendering::otherSizeLeavesTheModelAlone()
{
    QFETCH(const QSize, size);

    ZoEffectModel model;
    setSize(model, textFrame);
    addText(model, "H", QPoint(10, 10));
    addImage(model, red(), QRect(10, 20, 8, 6));
    SignalRecorder recorder(model);
    const QString before = snapshot(model);
    render(model, size);
    QCOMPARE(snapshot(model), before);
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelRendering::otherSizeRescalesImages()
{
    ZoEffectModel model;
    setSize(model, smallFrame);
    addImage(model, red(), QRect(11, 21, 8, 6), {{"wm_transparency", 50}});

    const QPixmap twice = render(model, QSize(128, 96));
    QCOMPARE(twice.size(), QSize(128, 96));
    QCOMPARE(shownArea(twice), QRect(22, 42, 16, 12));
    QCOMPARE(colorAt(twice, 25, 45), QStringLiteral("#7fff0000"));

    const QPixmap half = render(model, QSize(32, 24));
    QCOMPARE(half.size(), QSize(32, 24));
    QCOMPARE(shownArea(half), QRect(5, 10, 4, 3));

    // The image follows the width and keeps its ratio.
    const QPixmap wide = render(model, QSize(128, 48));
    QCOMPARE(wide.size(), QSize(128, 48));
    QCOMPARE(shownArea(wide), QRect(22, 21, 16, 12));

    QCOMPARE(shownArea(render(model, smallFrame)), QRect(11, 21, 8, 6));
}

void TstModelRendering::otherSizeRescalesTexts_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<int>("pointSize");

    QTest::newRow("twice") << QSize(600, 300) << QPoint(20, 40) << 40;
    QTest::newRow("half") << QSize(150, 75) << QPoint(5, 10) << 10;
    QTest::newRow("the font follows the height") << QSize(300, 300) << QPoint(10, 40) << 40;
    QTest::newRow("the font does not follow the width") << QSize(600, 150) << QPoint(20, 20) << 20;
}

void TstModelRendering::otherSizeRescalesTexts()
{
    QFETCH(const QSize, size);
    QFETCH(const QPoint, place);
    QFETCH(const int, pointSize);

    ZoEffectModel model;
    setSize(model, textFrame);
    addText(model, "HELLO", QPoint(10, 20));
    const QPixmap shown = render(model, size);
    QCOMPARE(shown.size(), size);
    const QSize expected = measured("HELLO", usualFont(pointSize));
    const QRect area = shownArea(shown);
    QVERIFY(QRect(place, expected).contains(area));
    QVERIFY(area.width() > expected.width() * 3 / 4);
}

void TstModelRendering::withoutBaseSizeNothingIsRescaled()
{
    ZoEffectModel model;
    addImage(model, red(), QRect(10, 20, 8, 6));
    addText(model, "H", QPoint(0, 0), {{"wm_ingnore", true}});
    const QPixmap shown = render(model, smallFrame, false);
    QCOMPARE(shown.size(), smallFrame);
    QCOMPARE(shownArea(shown), QRect(10, 20, 8, 6)); // The text is left out: not the base size.
    QCOMPARE(model.baseSize(), QSize(0, 0));
    QVERIFY(render(model, QSize(0, 0)).isNull());
}

void TstModelRendering::otherSizeLoadsImagesAnew()
{
    const QString path = picture("fleeting.png", filled(QSize(8, 6), Qt::red));
    ZoEffectModel model;
    setSize(model, smallFrame);
    addImage(model, path, QRect(10, 20, 8, 6));
    QVERIFY(!render(model, smallFrame).isNull());
    QVERIFY(!render(model, QSize(128, 96)).isNull());

    // The model keeps its image; the rescaled copy has none and finds no file.
    QVERIFY(QFile::remove(path));
    QVERIFY(!render(model, smallFrame).isNull());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
    QVERIFY(render(model, QSize(128, 96)).isNull());
    QCOMPARE(logcapture::takeEvents(), QList<int>{1178});

    // Nor does the model keep what only its rescaled copy has loaded.
    picture("fleeting.png", filled(QSize(8, 6), Qt::red));
    ZoEffectModel other;
    setSize(other, smallFrame);
    addImage(other, path, QRect(10, 20, 8, 6));
    QVERIFY(!render(other, QSize(128, 96)).isNull());
    QVERIFY(QFile::remove(path));
    QVERIFY(render(other, smallFrame).isNull());
    QCOMPARE(logcapture::takeEvents(), QList<int>{1178});
}

// --- Canvas -------------------------------------------------------------------------------------------------

void TstModelRendering::impossibleCanvas_data()
{
    QTest::addColumn<QSize>("size");

    QTest::newRow("nothing") << QSize(0, 0);
    QTest::newRow("no width") << QSize(0, 48);
    QTest::newRow("no height") << QSize(64, 0);
    QTest::newRow("negative width") << QSize(-64, 48);
    QTest::newRow("negative height") << QSize(64, -48);
    QTest::newRow("both negative") << QSize(-64, -48);
    QTest::newRow("one column too many") << QSize(32768, 1);
    QTest::newRow("one row too many") << QSize(1, 32768);
    QTest::newRow("one column beyond a gibibyte") << QSize(16385, 16384);
    QTest::newRow("one row beyond a gibibyte") << QSize(16384, 16385);
    QTest::newRow("longest sides") << QSize(32767, 32767);
    QTest::newRow("product that wraps to nothing") << QSize(65536, 65536);
    QTest::newRow("far too large") << QSize(100000, 100000);
    QTest::newRow("largest") << QSize(largest, largest);
    QTest::newRow("smallest") << QSize(smallest, smallest);
}

void TstModelRendering::impossibleCanvas()
{
    QFETCH(const QSize, size);

    ZoEffectModel model;
    setSize(model, size);
    addImage(model, file("missing.png"), QRect(0, 0, 8, 6)); // Would be logged.
    addText(model, "H", QPoint(0, 0));                       // Would be measured, with signals.
    addText(model, "H", QPoint(-5, -5));
    const QString before = snapshot(model);
    SignalRecorder recorder(model);
    QVERIFY(forgetPeakMemory());
    const qint64 memory = peakMemory();

    QVERIFY(render(model, size).isNull());
    QCOMPARE(snapshot(model), before);
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
    QVERIFY(peakMemory() - memory < smallMemory);

    ZoEffectModel other;
    setSize(other, smallFrame);
    addImage(other, file("missing.png"), QRect(0, 0, 8, 6));
    addText(other, "H", QPoint(0, 0));
    QVERIFY(render(other, size).isNull());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
    QVERIFY(peakMemory() - memory < smallMemory);
}

void TstModelRendering::extremeCanvas_data()
{
    QTest::addColumn<QSize>("size");

    QTest::newRow("one pixel") << QSize(1, 1);
    QTest::newRow("widest") << QSize(32767, 1);
    QTest::newRow("highest") << QSize(1, 32767);
}

void TstModelRendering::extremeCanvas()
{
    QFETCH(const QSize, size);

    ZoEffectModel model;
    setSize(model, size);
    addImage(model, red(), QRect(0, 0, 8, 6));
    const QPixmap shown = render(model, size);
    QCOMPARE(shown.size(), size);
    QCOMPARE(colorAt(shown, 0, 0), QStringLiteral("#feff0000"));
}

// --- Loading images -----------------------------------------------------------------------------------------

void TstModelRendering::imageIsLoadedOnce()
{
    const QString path = picture("once.png", filled(QSize(8, 6), Qt::red));
    ZoEffectModel model;
    QPixmap* loaded = model.getImage(path, nullptr);
    QVERIFY(loaded);
    QCOMPARE(loaded->size(), QSize(8, 6));
    QVERIFY(model.getImage(path, nullptr) == loaded);
    QVERIFY(model.getImage(path, "PNG") == loaded);
    QVERIFY(model.getImage(path, "BMP") == loaded); // The format counts only when the file is loaded.

    // Neither another picture under the path nor none changes what was loaded.
    QVERIFY(filled(QSize(3, 2), Qt::blue).save(path));
    QVERIFY(model.getImage(path, nullptr) == loaded);
    QCOMPARE(loaded->size(), QSize(8, 6));
    QVERIFY(QFile::remove(path));
    QVERIFY(model.getImage(path, nullptr) == loaded);
    QCOMPARE(colorAt(*loaded, 0, 0), QStringLiteral("#ffff0000"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelRendering::imagesStayUnderTheirPaths()
{
    ZoEffectModel model;
    QPixmap* first = model.getImage(red(), nullptr);
    QPixmap* second = model.getImage(blue(), nullptr);
    QVERIFY(first != second);
    // Another spelling of the path is another path.
    QPixmap* spelled = model.getImage(m_folder.path() + QStringLiteral("/./red.png"), nullptr);
    QVERIFY(spelled != first);
    QCOMPARE(spelled->size(), QSize(8, 6));
    for (int i = 1; i <= 40; ++i) {
        const QString path = picture(QStringLiteral("many%1.png").arg(i), filled(QSize(i, 1), Qt::green));
        QCOMPARE(model.getImage(path, nullptr)->width(), i);
    }
    model.getImage(file("missing.png"), nullptr);
    QVERIFY(model.getImage(red(), nullptr) == first);
    QVERIFY(model.getImage(blue(), nullptr) == second);
    QCOMPARE(colorAt(*first, 0, 0), QStringLiteral("#ffff0000"));
    QCOMPARE(colorAt(*second, 0, 0), QStringLiteral("#ff0000ff"));
}

void TstModelRendering::imageIsCachedAsLoaded()
{
    QImage image = filled(QSize(8, 6), QColor(0, 255, 0, 128));
    image.setPixel(0, 0, qRgba(255, 0, 0, 255));
    const QString path = picture("own alpha.png", image);
    ZoEffectModel model;
    setSize(model, smallFrame);
    addImage(model, path, QRect(10, 20, 8, 6), {{"wm_transparency", 50}});
    addImage(model, path, QRect(30, 20, 8, 6), {{"wm_transparency", 100}});
    QPixmap* loaded = model.getImage(path, nullptr);
    QVERIFY(!render(model, smallFrame).isNull());
    QVERIFY(model.getImage(path, nullptr) == loaded);
    QCOMPARE(loaded->size(), QSize(8, 6));
    QCOMPARE(colorAt(*loaded, 0, 0), QStringLiteral("#ffff0000"));
    QCOMPARE(colorAt(*loaded, 3, 3), QStringLiteral("#8000ff00"));
}

void TstModelRendering::imageNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("asked");

    QTest::newRow("plain") << "name.png"
                           << "name.png";
    QTest::newRow("blank") << "a name.png"
                           << "a name.png";
    QTest::newRow("beyond ASCII") << QString::fromUtf8("w\xc3\xa4rme \xe2\x82\xac.png")
                                  << QString::fromUtf8("w\xc3\xa4rme \xe2\x82\xac.png");
    QTest::newRow("suffix of another format") << "name.bmp.png.jpg"
                                              << "name.bmp.png.jpg";
    QTest::newRow("no suffix") << "name"
                               << "name";
    QTest::newRow("asked without its suffix") << "left out.png"
                                              << "left out";
}

void TstModelRendering::imageNames()
{
    QFETCH(const QString, name);
    QFETCH(const QString, asked);

    QFile::remove(file(name));
    QVERIFY(filled(QSize(8, 6), Qt::red).save(file(name), "PNG"));
    ZoEffectModel model;
    QCOMPARE(model.getImage(file(asked), nullptr)->size(), QSize(8, 6));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelRendering::imageFormats_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<bool>("expected");

    QTest::newRow("none") << QByteArray() << true;
    QTest::newRow("empty") << QByteArray("") << true;
    QTest::newRow("its own") << QByteArray("PNG") << true;
    QTest::newRow("its own in lower case") << QByteArray("png") << true;
    QTest::newRow("another") << QByteArray("BMP") << false;
    QTest::newRow("one that nobody knows") << QByteArray("nothing") << true;
}

void TstModelRendering::imageFormats()
{
    QFETCH(const QByteArray, format);
    QFETCH(const bool, expected);

    ZoEffectModel model;
    const QString path = picture("format.dat", blackPng(8, 6));
    const QPixmap* loaded = model.getImage(path, format.isNull() ? nullptr : format.constData());
    QVERIFY(loaded);
    QCOMPARE(!loaded->isNull(), expected);
    QCOMPARE(logcapture::takeEvents(), expected ? QList<int>() : QList<int>{1178});
}

void TstModelRendering::imageFormatOfAWatermark_data()
{
    QTest::addColumn<QVariant>("format");
    QTest::addColumn<bool>("expected");

    QTest::newRow("missing") << QVariant() << true;
    QTest::newRow("empty") << QVariant("") << true;
    QTest::newRow("its own") << QVariant("PNG") << true;
    QTest::newRow("another") << QVariant("BMP") << false;
}

void TstModelRendering::imageFormatOfAWatermark()
{
    QFETCH(const QVariant, format);
    QFETCH(const bool, expected);

    ZoEffectModel model;
    setSize(model, smallFrame);
    addImage(model, picture("format.dat", blackPng(8, 6)), QRect(10, 20, 8, 6), {{"wm_imageformat", format}});
    QCOMPARE(!render(model, smallFrame).isNull(), expected);
    QCOMPARE(logcapture::takeEvents(), expected ? QList<int>() : QList<int>{1178});
}

void TstModelRendering::copiesLoadTheirOwnImages()
{
    const QString path = picture("copied.png", filled(QSize(8, 6), Qt::red));
    ZoEffectModel model;
    setSize(model, smallFrame);
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
    model = ZoEffectModel();
    QVERIFY(model.getImage(path, nullptr) == loaded);
}

void TstModelRendering::unreadableImages_data()
{
    QTest::addColumn<QString>("path");

    const QByteArray png = blackPng(8, 6);
    const QByteArray pipe = QFile::encodeName(file("pipe.png"));
    if (::mkfifo(pipe.constData(), 0600) != 0)
        qFatal("no pipe");

    QTest::newRow("missing") << file("missing.png");
    QTest::newRow("no path") << QString();
    QTest::newRow("folder") << m_folder.path();
    QTest::newRow("empty file") << picture("empty.png", QByteArray());
    QTest::newRow("empty file that is called a JPEG") << picture("empty.jpg", QByteArray());
    QTest::newRow("JPEG without its header") << picture("cut.jpg", QByteArray("\xff\xd8\xff\xe0", 4));
    QTest::newRow("text") << picture("text.png", QByteArray("no picture"));
    QTest::newRow("header only") << picture("header.png", png.left(33));
    QTest::newRow("pipe that nobody writes to") << file("pipe.png");
    QTest::newRow("endless device") << QStringLiteral("/dev/zero");
}

void TstModelRendering::unreadableImages()
{
    QFETCH(const QString, path);

    ZoEffectModel model;
    SignalRecorder recorder(model);
    for (int i = 0; i < 3; ++i) {
        const QPixmap* loaded = model.getImage(path, nullptr);
        QVERIFY(loaded);
        QVERIFY(loaded->isNull());
        QCOMPARE(logcapture::takeEvents(), QList<int>{1178});
    }
    for (const char* format : {"PNG", "JPEG"}) {
        const QPixmap* loaded = model.getImage(path, format);
        QVERIFY(loaded && loaded->isNull());
        QCOMPARE(logcapture::takeEvents(), QList<int>{1178});
    }
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelRendering::unreadableImageIsTriedAgain()
{
    ZoEffectModel model;
    setSize(model, smallFrame);
    const QString path = file("late.png");
    addImage(model, path, QRect(10, 20, 8, 6));
    QVERIFY(model.getImage(path, nullptr)->isNull());
    QVERIFY(render(model, smallFrame).isNull());
    QCOMPARE(logcapture::takeEvents(), (QList<int>{1178, 1178}));

    picture("late.png", filled(QSize(8, 6), Qt::red));
    QCOMPARE(shownArea(render(model, smallFrame)), QRect(10, 20, 8, 6));
    QCOMPARE(model.getImage(path, nullptr)->size(), QSize(8, 6));
    QCOMPARE(logcapture::takeEvents(), QList<int>());

    // A failure under one path leaves the pixmap of another.
    QPixmap* loaded = model.getImage(path, nullptr);
    QVERIFY(model.getImage(file("missing.png"), nullptr)->isNull());
    QCOMPARE(loaded->size(), QSize(8, 6));
}

void TstModelRendering::unreadableImageIsLoggedAtEachRendering()
{
    ZoEffectModel model;
    setSize(model, smallFrame);
    addImage(model, file("missing.png"), QRect(0, 0, 8, 6));
    addImage(model, file("missing.png"), QRect(0, 0, 8, 6));
    for (int i = 0; i < 3; ++i) {
        QVERIFY(render(model, smallFrame).isNull());
        QCOMPARE(logcapture::takeEvents(), (QList<int>{1178, 1178}));
    }
}

void TstModelRendering::unreadableImageLeavesTheOthers()
{
    ZoEffectModel model;
    setSize(model, smallFrame);
    addImage(model, red(), QRect(0, 0, 8, 6));
    addImage(model, file("missing.png"), QRect(0, 0, 64, 48));
    addImage(model, blue(), QRect(20, 20, 8, 6));
    const QPixmap shown = render(model, smallFrame);
    QCOMPARE(colorAt(shown, 2, 2), QStringLiteral("#feff0000"));
    QCOMPARE(colorAt(shown, 22, 22), QStringLiteral("#fe0000ff"));
    QCOMPARE(colorAt(shown, 40, 40), QStringLiteral("#00000000"));
    QCOMPARE(logcapture::takeEvents(), QList<int>{1178});
}

void TstModelRendering::imageThatIsTooLarge_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("format");

    // Each is a whole picture that could be loaded, of at most 18 KB.
    const QString png = picture("bomb.png", blackPng(12000, 12000));
    const QString bmp = picture("bomb.bmp", plainBmp(12000, 12000));
    QTest::newRow("PNG of 549 MiB") << png << QByteArray();
    QTest::newRow("PNG, format given") << png << QByteArray("PNG");
    QTest::newRow("PNG, asked without its suffix") << file("bomb") << QByteArray();
    QTest::newRow("PNG under another suffix") << picture("bomb.jpg", blackPng(12000, 12000)) << QByteArray();
    QTest::newRow("BMP of 549 MiB") << bmp << QByteArray();
    QTest::newRow("BMP, format given") << bmp << QByteArray("BMP");
    QTest::newRow("one row more than 128 MiB") << picture("row.bmp", plainBmp(8192, 4097)) << QByteArray();
    QTest::newRow("square, little more than 128 MiB") // 5793 x 5793 is 33558849: 4417 pixels more than 8192 x 4096.
        << picture("square.bmp", plainBmp(5793, 5793)) << QByteArray();
    QTest::newRow("GIF of a small frame on a large screen")
        << picture("bomb.gif", plainGif(QSize(12000, 12000), QSize(10, 10))) << QByteArray();
    QTest::newRow("GIF with a screen of 2 GiB") // Qt takes the memory of the screen to tell the size.
        << picture("screen.gif", plainGif(QSize(23000, 23000), QSize(2, 34))) << QByteArray();
    QTest::newRow("large screen in what is only called a GIF") // Qt reads it as one.
        << picture("called.gif", "no GIF" + plainGif(QSize(12000, 12000), QSize(10, 10)).mid(6)) << QByteArray();
    QTest::newRow("large screen in what is to be read as a GIF")
        << picture("format.img", "no GIF" + plainGif(QSize(12000, 12000), QSize(10, 10)).mid(6)) << QByteArray("GIF");
    QTest::newRow("GIF of a large frame")
        << picture("frame.gif", plainGif(QSize(0, 0), QSize(12000, 12000))) << QByteArray();
    QTest::newRow("icon that holds a large PNG")
        << picture("bomb.ico", iconAround(blackPng(12000, 12000))) << QByteArray();
    QTest::newRow("icon that claims a GiB") // At offset 14 of the file: the length of the first picture.
        << picture("claim.ico", iconAround(blackPng(16, 16)).replace(14, 4, QByteArray("\0\0\0\x40", 4)))
        << QByteArray();
    const QByteArray emptyChunks = QByteArray("\0\0\0\0teSt\0\0\0\0", 12).repeated(1000000);
    QTest::newRow("PNG of a million empty chunks and more")
        << picture("chunks.png", blackPng(16, 16).insert(33, emptyChunks)) << QByteArray();
    QTest::newRow("icon that holds such a PNG")
        << picture("chunks.ico", iconAround(blackPng(16, 16).insert(33, emptyChunks))) << QByteArray();
    QTest::newRow("PNG with a text of 915 MiB") // So it says, behind its header.
        << picture("text.png", blackPng(16, 16).insert(33, QByteArray("\x39\x39\x39\x39zTXt", 8))) << QByteArray();
    QTest::newRow("flat") << picture("flat.bmp", plainBmp(40000, 1000)) << QByteArray();
    QTest::newRow("thin") << picture("thin.bmp", plainBmp(1000, 40000)) << QByteArray();
}

void TstModelRendering::imageThatIsTooLarge()
{
    QFETCH(const QString, path);
    QFETCH(const QByteArray, format);

    ZoEffectModel model;
    QVERIFY(forgetPeakMemory());
    const qint64 memory = peakMemory();
    for (int i = 0; i < 2; ++i) {
        const QPixmap* loaded = model.getImage(path, format.isNull() ? nullptr : format.constData());
        QVERIFY(loaded);
        QVERIFY(loaded->isNull());
        QCOMPARE(logcapture::takeEvents(), QList<int>{1178});
    }
    QVERIFY(peakMemory() - memory < smallMemory);
}

void TstModelRendering::imageThatIsTooLargeIsNotShown()
{
    ZoEffectModel model;
    setSize(model, smallFrame);
    addImage(model, picture("bomb.bmp", plainBmp(12000, 12000)), QRect(0, 0, 64, 48));
    addImage(model, red(), QRect(10, 20, 8, 6));
    QVERIFY(forgetPeakMemory());
    const qint64 memory = peakMemory();
    QCOMPARE(shownArea(render(model, smallFrame)), QRect(10, 20, 8, 6));
    QCOMPARE(shownArea(render(model, QSize(128, 96))), QRect(20, 40, 16, 12));
    QCOMPARE(logcapture::takeEvents(), (QList<int>{1178, 1178}));
    QVERIFY(peakMemory() - memory < smallMemory);
}

void TstModelRendering::imagesUpToTheLimitAreLoaded()
{
    ZoEffectModel model;
    const QString path = picture("largest.bmp", plainBmp(8192, 4096)); // 128 MiB.
    QCOMPARE(model.getImage(path, nullptr)->size(), QSize(8192, 4096));
    // "JFIF" would be the size of a large screen.
    QImage black(40, 30, QImage::Format_RGB32);
    black.fill(Qt::black);
    QVERIFY(black.save(file("jpeg.gif"), "JPG"));
    QCOMPARE(model.getImage(file("jpeg.gif"), nullptr)->size(), QSize(40, 30));
    // Small ones of the kinds that are hard to judge.
    QCOMPARE(model.getImage(picture("small.gif", plainGif(QSize(40, 30), QSize(10, 10))), nullptr)->size(),
             QSize(40, 30));
    QCOMPARE(model.getImage(picture("small.ico", iconAround(blackPng(16, 16))), nullptr)->size(), QSize(16, 16));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelRendering::hostsImageLimitIsNotTouched()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    const QString bomb = picture("bomb.bmp", plainBmp(12000, 12000));
    for (const int limit : {0, 64, 128, 1024}) {
        QImageReader::setAllocationLimit(limit);
        ZoEffectModel model;
        QVERIFY(model.getImage(bomb, nullptr)->isNull());
        QVERIFY(!model.getImage(red(), nullptr)->isNull());
        QCOMPARE(QImageReader::allocationLimit(), limit);
        QCOMPARE(logcapture::takeEvents(), QList<int>{1178});
    }
    QImageReader::setAllocationLimit(128);
#else
    // There is no limit of Qt's own: a host can go on loading what the library refuses.
    const QString path = picture("row.bmp", plainBmp(8192, 4097));
    ZoEffectModel model;
    QVERIFY(model.getImage(path, nullptr)->isNull());
    QCOMPARE(QImage(path).size(), QSize(8192, 4097));
#endif
}

// --- Listeners ----------------------------------------------------------------------------------------------

void TstModelRendering::listenerChangesTheList_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("stored"); // The items left; "+" for its own measured size, "-" for none.
    QTest::addColumn<QString>("shown");

    const Properties hidden{{"wm_istextwatermark", true}, {"wm_textcontent", "D"}, {"_checkstate", false}};

    // The items A, B and C are painted from the last to the first; the change comes while C is measured.
    QTest::newRow("reads") << Change([](ZoEffectModel& model) {
        model.data("wm_imagewidth", "Watermark", 2);
        model.childCount("Watermark");
    }) << "A+ B+ C+"
                           << "ABC";
    QTest::newRow("deletes the item just painted")
        << Change([](ZoEffectModel& model) { model.delDataItem("Watermark", 2); }) << "A+ B+"
        << "ABC";
    QTest::newRow("deletes the next item")
        << Change([](ZoEffectModel& model) { model.delDataItem("Watermark", 1); }) << "A+ C+"
        << "AC";
    QTest::newRow("deletes the last item to come")
        << Change([](ZoEffectModel& model) { model.delDataItem("Watermark", 0); }) << "B+ C+"
        << "BC";
    QTest::newRow("deletes all items") << Change([](ZoEffectModel& model) {
        while (model.childCount("Watermark") > 0)
            model.delDataItem("Watermark", 0);
    }) << ""
                                       << "C";
    QTest::newRow("takes out the item just painted and keeps it")
        << Change([this](ZoEffectModel& model) { m_takenOut.reset(watermarks(model).takeAt(2)); }) << "A+ B+"
        << "ABC";
    QTest::newRow("takes out an item to come and keeps it")
        << Change([this](ZoEffectModel& model) { m_takenOut.reset(watermarks(model).takeAt(0)); }) << "B+ C+"
        << "BC";
    QTest::newRow("takes out the whole type and keeps it") << Change([this](ZoEffectModel& model) {
        ZoEffectItemData* root = model.getDataItem("effect root", -1);
        m_takenOut.reset(root->takeAt(watermarks(model).childNumber()));
    }) << ""
                                                           << "C";
    QTest::newRow("deletes the whole type") << Change([](ZoEffectModel& model) {
        ZoEffectItemData* root = model.getDataItem("effect root", -1);
        delete root->takeAt(watermarks(model).childNumber());
    }) << ""
                                            << "C";
    QTest::newRow("inserts an unchecked item in front")
        << Change([=](ZoEffectModel& model) { model.insertDataItem("Watermark", hidden, 0); }) << "D- A+ B+ C+"
        << "ABC";
    QTest::newRow("appends an unchecked item")
        << Change([=](ZoEffectModel& model) { model.addDataItem("Watermark", hidden); }) << "A+ B+ C+ D-"
        << "ABC";
    QTest::newRow("moves the item just painted to the front")
        << Change([](ZoEffectModel& model) { model.changeDataItemPos("Watermark", 0, 2); }) << "C+ A+ B+"
        << "ABC";
    QTest::newRow("unchecks an item to come")
        << Change([](ZoEffectModel& model) { model.setData("_checkstate", false, "Watermark", 0); }) << "A- B+ C+"
        << "BC";
    QTest::newRow("empties a text to come")
        << Change([](ZoEffectModel& model) { model.setData("wm_textcontent", "", "Watermark", 1); }) << "A+ - C+"
        << "AC";
    QTest::newRow("moves a text to come out of the frame")
        << Change([](ZoEffectModel& model) { model.setData("wm_hposition", 1000, "Watermark", 0); }) << "A- B+ C+"
        << "BC";
    QTest::newRow("resets the type") << Change([](ZoEffectModel& model) { model.resetDataItem("Watermark", -1); }) << ""
                                     << "C";
    QTest::newRow("resets everything") << Change([](ZoEffectModel& model) { model.resetAllEffect(); }) << ""
                                       << "C";
    QTest::newRow("assigns an empty model") << Change([](ZoEffectModel& model) { model = ZoEffectModel(); }) << ""
                                            << "C";
    QTest::newRow("renders") << Change([](ZoEffectModel& model) { render(model, model.baseSize()); }) << "A+ B+ C+"
                             << "ABC";
    QTest::newRow("renders at another size")
        << Change([](ZoEffectModel& model) { render(model, QSize(90, 60)); }) << "A+ B+ C+"
        << "ABC";
    QTest::newRow("copies the model") << Change([](ZoEffectModel& model) {
        ZoEffectModel copy(model);
        render(copy, copy.baseSize());
    }) << "A+ B+ C+"
                                      << "ABC";
}

void TstModelRendering::listenerChangesTheList()
{
    QFETCH(const Change, change);
    QFETCH(const QString, stored);
    QFETCH(const QString, shown);

    const QMap<QString, QPoint> places{{"A", {10, 5}}, {"BBB", {10, 75}}, {"CC\nCC", {180, 5}}};

    for (const char* key : {"wm_imagewidth", "wm_imageheight"}) {
        ZoEffectModel model;
        setSize(model, textFrame);
        for (auto it = places.cbegin(); it != places.cend(); ++it)
            addText(model, it.key(), it.value());

        bool done = false;
        connect(&model,
                QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
                this, [&](const QString&, const QString& changed, const QVariant&, int) {
                    if (done || changed != QLatin1String(key))
                        return;
                    done = true;
                    change(model);
                });
        const QPixmap picture = render(model, textFrame);
        QVERIFY(done);
        QCOMPARE(picture.size(), textFrame);
        m_takenOut.reset();

        QString painted;
        for (auto it = places.cbegin(); it != places.cend(); ++it) {
            if (showsSomethingIn(picture, QRect(it.value(), measured(it.key()))))
                painted += it.key().at(0);
        }
        QCOMPARE(painted, shown);

        QStringList left;
        const ZoEffectItemData* typeNode = model.getDataItem("Watermark", -1);
        for (int row = 0; typeNode && row < typeNode->childCount(); ++row) {
            const ZoEffectItemData& item = *typeNode->child(row);
            const QString text = item.data("wm_textcontent").toString();
            const bool sizeless = !item.hasData("wm_imagewidth") && !item.hasData("wm_imageheight");
            const QString size = sizeless ? "-" : storedSize(item) == measured(text) ? "+" : "?";
            left << text.left(1) + size; // clazy:exclude=qstring-left An item may have no text.
        }
        QCOMPARE(left.join(' '), stored);
        // A size whose item is gone goes nowhere else.
        QVERIFY(!typeNode || !typeNode->hasData("wm_imagewidth"));
        QVERIFY(!typeNode || !typeNode->hasData("wm_imageheight"));
        QCOMPARE(logcapture::takeEvents(), QList<int>());
    }
}

void TstModelRendering::listenerRescales_data()
{
    QTest::addColumn<Change>("change");

    QTest::newRow("takes another size") << Change([](ZoEffectModel& model) { model.setVideoSize(640, 480); });
    QTest::newRow("takes no size") << Change([](ZoEffectModel& model) { model.setVideoSize(0, 0); });
    QTest::newRow("rescales") << Change([](ZoEffectModel& model) { model.adjustEffectInfo(600, 300); });
}

void TstModelRendering::listenerRescales()
{
    QFETCH(const Change, change);

    ZoEffectModel model;
    setSize(model, textFrame);
    addText(model, "A", QPoint(10, 5));
    addText(model, "BBB", QPoint(10, 75));
    bool done = false;
    connect(&model,
            QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
            this, [&] {
                if (!done) {
                    done = true;
                    change(model);
                }
            });
    const QPixmap picture = render(model, textFrame);
    QVERIFY(done);
    QCOMPARE(picture.size(), textFrame); // As asked for.
    QVERIFY(showsSomethingIn(picture, QRect(QPoint(10, 75), measured("BBB"))));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelRendering::listenerRendersAtEachSignal()
{
    ZoEffectModel model;
    setSize(model, textFrame);
    addText(model, "A", QPoint(10, 5));
    addText(model, "BBB", QPoint(10, 75));
    addImage(model, red(), QRect(200, 20, 8, 6));
    ZoEffectModel undisturbed(model);

    SignalRecorder recorder(model);
    QPixmap latest;
    connect(&model,
            QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
            this, [&] { latest = render(model, textFrame); });
    const QPixmap picture = render(model, textFrame);
    QCOMPARE(recorder.take().size(), 4); // Two texts, width and height, each once.
    QVERIFY(pixelsOf(picture) == pixelsOf(render(undisturbed, textFrame)));
    QVERIFY(pixelsOf(latest) == pixelsOf(picture));
}

void TstModelRendering::renderingsOfListenersNestOnlySoDeep()
{
    // Each rendering inside another holds a canvas and a piece of the stack; without a bound 100 texts would
    // nest 200 of them.
    constexpr int texts = 100;
    ZoEffectModel model;
    setSize(model, textFrame);
    for (int i = 0; i < texts; ++i)
        addText(model, QString::number(i), QPoint(10, 5));
    ZoEffectModel undisturbed(model);

    SignalRecorder recorder(model);
    int depth = 0;
    int deepest = 0;
    connect(&model,
            QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
            this, [&] {
                deepest = qMax(deepest, ++depth);
                render(model, textFrame);
                --depth;
            });
    const QPixmap picture = render(model, textFrame);
    QCOMPARE(deepest, 8);
    QCOMPARE(recorder.take().size(), 2 * texts); // Each size is stored and announced once, all the same.
    QVERIFY(pixelsOf(picture) == pixelsOf(render(undisturbed, textFrame)));
    for (int i = 0; i < texts; ++i) {
        QCOMPARE(model.data("wm_imagewidth", "Watermark", i), undisturbed.data("wm_imagewidth", "Watermark", i));
        QCOMPARE(model.data("wm_imageheight", "Watermark", i), undisturbed.data("wm_imageheight", "Watermark", i));
    }
}

void TstModelRendering::listenerDeletesAnImageThatIsStillToCome()
{
    ZoEffectModel model;
    setSize(model, textFrame);
    addImage(model, file("missing.png"), QRect(0, 0, 8, 6)); // Would be logged.
    addImage(model, red(), QRect(200, 20, 8, 6));
    addText(model, "A", QPoint(10, 5));
    bool done = false;
    connect(&model,
            QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
            this, [&] {
                if (!done) {
                    done = true;
                    model.delDataItem("Watermark", 0);
                }
            });
    const QPixmap picture = render(model, textFrame);
    QVERIFY(showsSomethingIn(picture, QRect(200, 20, 8, 6)));
    QCOMPARE(storedSize(*watermarks(model).child(1)), measured("A"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

ZOEFFECT_TEST_MAIN(TstModelRendering)

#include "tst_model_rendering.moc"
