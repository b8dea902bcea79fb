// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <limits>

#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "hostile.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

using Properties = QMap<QString, QVariant>;
using Int = std::numeric_limits<int>;

constexpr double mostMilliseconds = 250.0;
constexpr double mostForLongTexts = 1500.0;
constexpr qint64 mostMemory = qint64{128} * 1024; // KiB

const Properties plainText{{"wm_istextwatermark", true},
                           {"wm_textcontent", QStringLiteral("Abc")},
                           {"wm_fontsize", 22},
                           {"wm_fontcolor", QColor(Qt::white)}};

Properties with(Properties properties, const Properties& more)
{
    for (auto it = more.cbegin(); it != more.cend(); ++it)
        properties.insert(it.key(), it.value());
    return properties;
}

ZoEffectItemData* addWatermark(ZoEffectModel& model, const Properties& properties)
{
    auto* item = new ZoEffectItemData(QString(), model.getDataItem("Watermark", -1));
    for (auto it = properties.cbegin(); it != properties.cend(); ++it)
        item->setData(it.key(), it.value());
    return item;
}

/// The most opaque pixel of \a picture.
int highestAlpha(const QPixmap& picture)
{
    const QImage pixels = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    int highest = 0;
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x)
            highest = std::max(highest, qAlpha(pixels.pixel(x, y)));
    }
    return highest;
}

QFont fontWith(const std::function<void(QFont&)>& change)
{
    QFont font;
    change(font);
    return font;
}

} // namespace

/// Watermarks that are hard to paint: neither time nor memory runs out, and the others are painted.
class TstHostilePainting : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void texts_data();
    void texts();
    void longTexts_data();
    void longTexts();
    void fonts_data();
    void fonts();
    void images_data();
    void images();
    void alphas_data();
    void alphas();
    void frames_data();
    void frames();

private:
    void checkPainting(const Properties& properties, double mostTime);

    QTemporaryDir m_folder;
    QString m_red;
};

void TstHostilePainting::initTestCase()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    QImage red(8, 6, QImage::Format_RGB32);
    red.fill(Qt::red);
    m_red = m_folder.filePath(QStringLiteral("red.png"));
    QVERIFY(red.save(m_red));
    // What the first text costs is the fonts' loading.
    ZoEffectModel model;
    model.setVideoSize(64, 48);
    addWatermark(model, plainText);
    QVERIFY(!model.getWatermark(64, 48, true).isNull());
}

void TstHostilePainting::init()
{
    logcapture::takeEvents();
}

void TstHostilePainting::cleanup()
{
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

/// Paints the watermark between two plain pictures.
void TstHostilePainting::checkPainting(const Properties& properties, double mostTime)
{
    ZoEffectModel model;
    model.setVideoSize(64, 48);
    const Properties picture{{"wm_imageurl", m_red}, {"wm_imagewidth", 8}, {"wm_imageheight", 6}};
    addWatermark(model, with(picture, {{"wm_hposition", 0}}));
    ZoEffectItemData* item = addWatermark(model, properties);
    addWatermark(model, with(picture, {{"wm_hposition", 56}, {"wm_vposition", 42}}));

    SignalRecorder recorder(model);
    QVERIFY(hostile::forgetPeakMemory());
    const qint64 before = hostile::peakMemory();
    const hostile::Stopwatch stopwatch;
    const QPixmap shown = model.getWatermark(64, 48, true);
    const double milliseconds = stopwatch.milliseconds();
    const qint64 kib = hostile::peakMemory() - before;
    QVERIFY2(milliseconds < mostTime * hostile::slowness, qPrintable(QString::number(milliseconds)));
    QVERIFY2(kib < mostMemory * (hostile::slowness == 1 ? 1 : 4), qPrintable(QString::number(kib)));

    QCOMPARE(shown.size(), QSize(64, 48));
    const QImage pixels = shown.toImage().convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(QColor::fromRgba(pixels.pixel(3, 3)).name(QColor::HexArgb), QStringLiteral("#feff0000"));
    // A measured text is stored as whole numbers, each with one signal; an image is left as it was.
    const QStringList sent = recorder.take();
    QVERIFY(sent.size() <= 2);
    if (!properties.value("wm_istextwatermark").toBool())
        QCOMPARE(sent, QStringList());
    for (const QString& signal : sent)
        QVERIFY2(signal.startsWith("effectDataChanged(Watermark, wm_image"), qPrintable(signal));
    for (auto it = properties.cbegin(); it != properties.cend(); ++it) {
        if (!it.key().startsWith("wm_image"))
            QVERIFY2(item->data(it.key()) == it.value(), qPrintable(it.key()));
    }
}

// --- Texts --------------------------------------------------------------------------------------------------

void TstHostilePainting::texts_data()
{
    QTest::addColumn<QString>("content");

    QTest::newRow("null character") << QString(QChar(0));
    QTest::newRow("null characters") << QString(1000, QChar(0));
    QTest::newRow("lone surrogates") << QString(1000, QChar(0xd800));
    QTest::newRow("surrogates in the wrong order") << (QString(QChar(0xdc00)) + QChar(0xd800)).repeated(500);
    QTest::newRow("no characters") << QString(1000, QChar(0xffff));
    QTest::newRow("private use") << QString(1000, QChar(0xe000));
    QTest::newRow("right to left overrides") << QString(1000, QChar(0x202e)) + "abc";
    QTest::newRow("isolates") << QString(1000, QChar(0x2066)) + "abc";
    QTest::newRow("combining marks") << QString("a") + QString(1000, QChar(0x0301));
    QTest::newRow("zero width") << QString(1000, QChar(0x200d));
    QTest::newRow("tabs") << QString(1000, QChar('\t'));
    QTest::newRow("lines") << QString(1000, QChar('\n'));
    QTest::newRow("carriage returns") << QString(1000, QChar('\r'));
    QTest::newRow("line separators") << QString(1000, QChar(0x2028));
    QTest::newRow("form feeds") << QString(1000, QChar('\f'));
    QTest::newRow("soft hyphens") << QString(1000, QChar(0x00ad));
    QTest::newRow("ampersands") << QString(1000, QChar('&'));
    QTest::newRow("formats") << QStringLiteral("%n%s%1$*1$d").repeated(100);
    QTest::newRow("markup") << QStringLiteral("<b><img src='/dev/zero'>").repeated(100);
    QTest::newRow("Arabic") << QString(1000, QChar(0x0644));
    QTest::newRow("Thai") << QString(1000, QChar(0x0e01));
    QTest::newRow("Hangul parts") << QString(1000, QChar(0x1100));
    QTest::newRow("blanks") << QString(1000, QChar(' '));
}

void TstHostilePainting::texts()
{
    QFETCH(const QString, content);
    checkPainting(with(plainText, {{"wm_textcontent", content}}), mostMilliseconds);
}

void TstHostilePainting::longTexts_data()
{
    QTest::addColumn<QString>("content");
    QTest::newRow("a million letters") << QString(1000000, QChar('a'));
    QTest::newRow("a million blanks") << QString(1000000, QChar(' '));
    QTest::newRow("100000 lines") << QStringLiteral("a\n").repeated(100000);
    QTest::newRow("10000 combining marks") << QString("a") + QString(10000, QChar(0x0301));
    QTest::newRow("100000 right to left overrides") << QString(100000, QChar(0x202e));
}

// Laying out a text takes time and memory with its length, and what is measured is the whole of it.
void TstHostilePainting::longTexts()
{
    QFETCH(const QString, content);
    checkPainting(with(plainText, {{"wm_textcontent", content}}), mostForLongTexts);
}

// --- Fonts --------------------------------------------------------------------------------------------------

void TstHostilePainting::fonts_data()
{
    QTest::addColumn<QVariant>("font");
    QTest::addColumn<QVariant>("size");
    QTest::addColumn<QVariant>("style");

    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const auto sized = [](const char* name, const QVariant& size) {
        QTest::newRow(name) << QVariant(QFont()) << size << QVariant("Regular");
    };
    for (const int size : {0, -1, 1, 1000, 10000, 32767, 65536, 1000000, 100000000, Int::max(), Int::min()})
        sized(qPrintable(QStringLiteral("%1 points").arg(size)), size);
    sized("NaN points", nan);
    sized("infinitely many points", infinity);
    sized("text for points", "abc");
    sized("colour for points", QColor(Qt::red));

    const auto row = [](const char* name, const QVariant& font) {
        QTest::newRow(name) << font << QVariant(22) << QVariant("Bold Italic");
    };
    row("no family", "");
    row("absurd family", "%n%s,|\t/../");
    row("family of a megabyte", QString(1 << 19, QChar('f')));
    row("family of null characters", QString(100, QChar(0)));
    row("family of commas", QString(1000, QChar(',')));
    row("description of a font", "Tahoma,1e308,-1,5,50,0,0,0,0,0");
    row("description with huge numbers", "Tahoma,99999999999,99999999999,99,99999,9,9,9,9,9");
    row("number", 5);
    row("map", Properties{{"a", 1}});
    row("picture", QImage(2, 2, QImage::Format_RGB32));
    row("invalid", QVariant());
    row("highest pixel size", fontWith([](QFont& font) { font.setPixelSize(Int::max()); }));
    row("highest letter spacing", fontWith([](QFont& font) { font.setLetterSpacing(QFont::AbsoluteSpacing, 1e300); }));
    row("letter spacing of NaN", fontWith([&](QFont& font) { font.setLetterSpacing(QFont::AbsoluteSpacing, nan); }));
    row("lowest letter spacing",
        fontWith([](QFont& font) { font.setLetterSpacing(QFont::PercentageSpacing, -1e300); }));
    row("highest word spacing", fontWith([](QFont& font) { font.setWordSpacing(1e300); }));
    row("widest", fontWith([](QFont& font) { font.setStretch(4000); }));
    row("narrowest", fontWith([](QFont& font) { font.setStretch(1); }));

    for (const QVariant& style : {QVariant("bold"), QVariant(QString(1 << 20, QChar('B'))), QVariant(), QVariant(75),
                                  QVariant(QColor(Qt::red))}) {
        QTest::newRow(qPrintable(QStringLiteral("style %1").arg(described(style).left(30))))
            << QVariant(QFont()) << QVariant(22) << style;
    }
}

void TstHostilePainting::fonts()
{
    QFETCH(const QVariant, font);
    QFETCH(const QVariant, size);
    QFETCH(const QVariant, style);
    ZoEffectModel model;
    model.setVideoSize(64, 48);
    const Properties properties =
        with(plainText, {{"wm_fontname", font}, {"wm_fontsize", size}, {"wm_fontstyle", style}});
    addWatermark(model, properties);
    const hostile::Stopwatch stopwatch;
    QVERIFY(hostile::forgetPeakMemory());
    const qint64 before = hostile::peakMemory();
    for (int i = 0; i < 2; ++i) {
        const QPixmap shown = model.getWatermark(64, 48, true);
        QVERIFY(shown.isNull() || shown.size() == QSize(64, 48));
    }
    QVERIFY(model.getWatermark(32, 24, true).size().width() <= 32);
    QVERIFY(hostile::peakMemory() - before < mostMemory);
    const double milliseconds = stopwatch.milliseconds();
    QVERIFY2(milliseconds < mostMilliseconds * hostile::slowness, qPrintable(QString::number(milliseconds)));
}

// --- Images -------------------------------------------------------------------------------------------------

void TstHostilePainting::images_data()
{
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<QSize>("size");
    const int most = Int::max();
    const int least = Int::min();
    const auto row = [](const char* name, int left, int top, int width, int height) {
        QTest::newRow(name) << QPoint(left, top) << QSize(width, height);
    };
    row("highest size far away", most, most, most, most);
    row("lowest size", 30, 30, least, least);
    row("from the lowest place", least, least, 10, 10);
    row("up to the frame", least, least, most, most);
    row("beyond the frame", least / 2, 30, least, most);
    row("no width", 30, 30, 0, most);
    row("no height", 30, 30, most, 0);
    row("thin and high", 30, least / 2, 1, most);
    row("flat and wide", least / 2, 30, most, 1);
    row("10000 fold", 20, 20, 80000, 60000);
    row("turned over", 40, 40, -8, -6);
}

void TstHostilePainting::images()
{
    QFETCH(const QPoint, place);
    QFETCH(const QSize, size);
    checkPainting({{"wm_imageurl", m_red},
                   {"wm_hposition", place.x()},
                   {"wm_vposition", place.y()},
                   {"wm_imagewidth", size.width()},
                   {"wm_imageheight", size.height()}},
                  mostMilliseconds);
}

// --- Alpha --------------------------------------------------------------------------------------------------

void TstHostilePainting::alphas_data()
{
    QTest::addColumn<QVariant>("transparency");
    QTest::addColumn<QVariant>("factor");
    QTest::addColumn<int>("image"); // The alpha of an image: 0 when the value is none of a colour.
    QTest::addColumn<int>("text");  // The alpha of a text, kept in the range.

    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const auto row = [](const char* name, const QVariant& transparency, const QVariant& factor, int image, int text) {
        QTest::newRow(name) << transparency << factor << image << text;
    };
    row("none", 0, 2.55, 254, 254);
    row("all", 100, 2.55, 0, 0);
    row("more than all", 101, 2.55, 0, 0);
    row("less than none", -1, 2.55, 0, 255);
    row("highest", Int::max(), 2.55, 0, 0);
    row("lowest", Int::min(), 2.55, 0, 255);
    row("NaN", nan, 2.55, 254, 254);
    row("text", "50", "1", 50, 50);
    row("no number", "abc", "abc", 254, 254);
    row("factor NaN", 0, nan, 0, 0);
    row("factor infinity", 0, infinity, 0, 255);
    row("factor -infinity", 0, -infinity, 0, 0);
    row("factor infinity of nothing", 100, infinity, 0, 0);
    row("factor 1e300", 0, 1e300, 0, 255);
    row("factor 2.559", 0, 2.559, 255, 255);
    row("factor 2.56", 0, 2.56, 0, 255);
    row("factor 0", 0, 0, 0, 0);
    row("negative factor", 200, -2.0, 200, 200);
    row("smallest factor", 0, std::numeric_limits<double>::denorm_min(), 0, 0);
    row("factor that is a colour", 0, QColor(Qt::red), 254, 254);
    row("factor beyond the range in a text", 0, "1e999", 254, 254);
    row("float factor", 0, QVariant::fromValue(2.55F), 254, 254);
    row("invalid factor", 0, QVariant(), 254, 254);
}

void TstHostilePainting::alphas()
{
    QFETCH(const QVariant, transparency);
    QFETCH(const QVariant, factor);
    QFETCH(const int, image);
    QFETCH(const int, text);

    for (const bool isText : {false, true}) {
        ZoEffectModel model;
        model.setVideoSize(64, 48);
        addWatermark(model, with(plainText, {{"wm_istextwatermark", isText},
                                             {"wm_textcontent", QString(QChar(0x2588))}, // A full block.
                                             {"wm_fontsize", 40},
                                             {"wm_transparency", transparency},
                                             {"wm_transfactor", factor},
                                             {"wm_imageurl", m_red},
                                             {"wm_imagewidth", 8},
                                             {"wm_imageheight", 6}}));
        const QPixmap shown = model.getWatermark(64, 48, true);
        QCOMPARE(shown.size(), QSize(64, 48)); // What cannot be seen still counts as painted.
        QCOMPARE(highestAlpha(shown), isText ? text : image);
    }
}

// --- Frames -------------------------------------------------------------------------------------------------

void TstHostilePainting::frames_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("painted");
    const int most = Int::max();
    const int least = Int::min();
    QTest::newRow("no width") << QSize(0, 48) << false;
    QTest::newRow("no height") << QSize(64, 0) << false;
    QTest::newRow("negative") << QSize(-64, -48) << false;
    QTest::newRow("lowest") << QSize(least, least) << false;
    QTest::newRow("highest") << QSize(most, most) << false;
    QTest::newRow("highest width") << QSize(most, 1) << false;
    QTest::newRow("one column too many") << QSize(32768, 1) << false;
    QTest::newRow("one row too many") << QSize(1, 32768) << false;
    QTest::newRow("too many pixels") << QSize(16385, 16384) << false;
    QTest::newRow("widest") << QSize(32767, 1) << true;
    QTest::newRow("highest that is painted") << QSize(1, 32767) << true;
    QTest::newRow("one pixel") << QSize(1, 1) << true;
}

void TstHostilePainting::frames()
{
    QFETCH(const QSize, size);
    QFETCH(const bool, painted);
    const Properties properties{{"wm_imageurl", m_red}, {"wm_imagewidth", 8}, {"wm_imageheight", 6}};

    for (const bool isBase : {true, false}) {
        ZoEffectModel model;
        model.setVideoSize(isBase ? size.width() : 64, isBase ? size.height() : 48);
        addWatermark(model, properties);
        QVERIFY(hostile::forgetPeakMemory());
        const qint64 before = hostile::peakMemory();
        const hostile::Stopwatch stopwatch;
        const QPixmap shown = model.getWatermark(size.width(), size.height(), false);
        QVERIFY(stopwatch.milliseconds() < mostMilliseconds * hostile::slowness);
        QVERIFY(hostile::peakMemory() - before < mostMemory / 8);
        QCOMPARE(shown.size(), painted ? size : QSize(0, 0));
    }
}

ZOEFFECT_TEST_MAIN(TstHostilePainting)
#include "tst_hostile_painting.moc"
