// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <functional>
#include <limits>
#include <utility>

#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QPixmapCache>
#include <QScopedPointer>

#include "modeltest.h"
#include "pictures.h"

namespace {

using Change = std::function<void(ZoEffectModel&)>;

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

const QSize smallFrame(64, 48);
const QSize textFrame(300, 150);
constexpr qint64 smallMemory = 32768; // KiB

ZoEffectItemData& watermarks(const ZoEffectModel& model)
{
    return *model.getDataItem("Watermark", -1);
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
    return *addItem(model, "Watermark", with(properties, more));
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

} // namespace

/// The picture of the shown watermarks, and the images in it.
class TstModelRendering : public ModelTest {
    Q_OBJECT

private slots:
    void init()
    {
        ModelTest::init();
        QPixmapCache::clear(); // Qt knows loaded files by path, size and second, but not by format.
    }

    // --- Images

    void imageIsStretchedToItsRectangle_data()
    {
        const Rows<QRect, QRect> add;
        add("own size", QRect(10, 20, 8, 6), QRect(10, 20, 8, 6));
        add("smaller", QRect(10, 20, 4, 3), QRect(10, 20, 4, 3));
        add("wider only: the ratio is not kept", QRect(10, 20, 40, 6), QRect(10, 20, 40, 6));
        add("odd multiple", QRect(1, 1, 21, 13), QRect(1, 1, 21, 13));
        add("whole frame", QRect(0, 0, 64, 48), QRect(0, 0, 64, 48));
        add("negative width is the image's own", QRect(10, 20, -5, 12), QRect(10, 20, 8, 12));
        add("negative height is the image's own", QRect(10, 20, 16, -1), QRect(10, 20, 16, 6));
        add("over the left edge", QRect(-3, 20, 8, 6), QRect(0, 20, 5, 6));
        add("over the top edge", QRect(10, -2, 8, 6), QRect(10, 0, 8, 4));
        add("over the right and the bottom edge", QRect(60, 45, 8, 6), QRect(60, 45, 4, 3));
        add("over all edges", QRect(-10, -10, 100, 100), QRect(0, 0, 64, 48));
        // Nothing is seen of these; they count as painted all the same.
        add("width 0", QRect(10, 20, 0, 6), QRect());
        add("height 0", QRect(10, 20, 8, 0), QRect());
        add("left of the frame", QRect(-8, 20, 8, 6), QRect());
        add("below the frame", QRect(10, 48, 8, 6), QRect());
        add("far away", QRect(1000000000, -1000000000, 8, 6), QRect());
    }

    void imageIsStretchedToItsRectangle()
    {
        const auto [place, expected] = row<QRect, QRect>();
        Model model(smallFrame);
        addImage(model, m_pictures.red(), place);
        SignalRecorder recorder(model);
        const QString before = tree(rootOf(model));

        const QPixmap shown = render(model, smallFrame);

        QCOMPARE(shown.size(), smallFrame);
        QCOMPARE(shownArea(shown), expected);
        const QImage pixels = pixelsOf(shown.copy(expected));
        for (int y = 0; !expected.isEmpty() && y < pixels.height(); ++y) {
            for (int x = 0; x < pixels.width(); ++x)
                QCOMPARE(pixels.pixel(x, y), qRgba(255, 0, 0, 254));
        }
        QCOMPARE(recorder.take(), QStringList());
        QCOMPARE(tree(rootOf(model)), before);
    }

    void imageIsScaledWithoutSmoothing()
    {
        QImage colors(2, 2, QImage::Format_RGB32);
        colors.setPixel(0, 0, qRgb(255, 0, 0));
        colors.setPixel(1, 0, qRgb(0, 255, 0));
        colors.setPixel(0, 1, qRgb(0, 0, 255));
        colors.setPixel(1, 1, qRgb(255, 255, 255));
        Model model(smallFrame);
        addImage(model, m_pictures.add("four.png", colors), QRect(4, 6, 20, 12));

        const QPixmap shown = render(model, smallFrame);

        // Ten columns and six rows of each colour, without a blend between them.
        const QMap<QString, QRect> fields{{"#feff0000", QRect(4, 6, 10, 6)},
                                          {"#fe00ff00", QRect(14, 6, 10, 6)},
                                          {"#fe0000ff", QRect(4, 12, 10, 6)},
                                          {"#feffffff", QRect(14, 12, 10, 6)}};
        for (auto it = fields.cbegin(); it != fields.cend(); ++it) {
            const QRect field = it.value();
            for (const QPoint corner : {field.topLeft(), field.topRight(), field.bottomLeft(), field.bottomRight()})
                QCOMPARE(colorAt(shown, corner.x(), corner.y()), it.key());
        }
    }

    void valuesAreReadAsWholeNumbers()
    {
        Model model(smallFrame);
        addItem(model, "Watermark",
                {{"wm_imageurl", m_pictures.red()},
                 {"wm_hposition", "10"},
                 {"wm_vposition", 19.6},
                 {"wm_imagewidth", "8"},
                 {"wm_imageheight", 6.4},
                 {"wm_transparency", "50"},
                 {"wm_istextwatermark", "false"}});
        const QPixmap shown = render(model, smallFrame);
        QCOMPARE(shownArea(shown), QRect(10, 20, 8, 6));
        QCOMPARE(colorAt(shown, 12, 22), QString("#7fff0000"));

        // Without a size and a transparency: nothing of it is seen. It is opaque, so that only the size can hide it.
        Model bare(smallFrame);
        ZoEffectItemData* item = addItem(bare, "Watermark", {{"wm_imageurl", m_pictures.red()}});
        QCOMPARE(render(bare, smallFrame).size(), smallFrame);
        QCOMPARE(shownArea(render(bare, smallFrame)), QRect());
        item->setData("wm_imagewidth", 8);
        item->setData("wm_imageheight", 6);
        QCOMPARE(colorAt(render(bare, smallFrame), 0, 0), QString("#feff0000"));
    }

    // --- Alpha; tst_watermarkstyle tells the number, here is what it does

    void alpha_data()
    {
        const Rows<QVariant, QVariant, QString, QString> add; // Of an image, and of a text.
        add("opaque is 254", 0, 2.55, "#feff0000", "#feff0000");
        add("half is 127", 50, 2.55, "#7fff0000", "#7fff0000");
        add("transparent", 100, 2.55, "#00000000", "#00000000");
        add("transparency missing", QVariant(), 2.55, "#feff0000", "#feff0000");
        add("transparency as text", "50", 2.55, "#7fff0000", "#7fff0000");
        add("factor missing", 0, QVariant(), "#feff0000", "#feff0000");
        add("factor is a word", 50, "abc", "#7fff0000", "#7fff0000");
        add("exactly 255", 0, 2.5501, "#ffff0000", "#ffff0000");
        add("256 is no colour value of an image", 0, 2.5601, "#00000000", "#ffff0000");
        add("transparency -50 gives 382", -50, 2.55, "#00000000", "#ffff0000");
        add("transparency 101 gives -2", 101, 2.55, "#00000000", "#00000000");
        add("negative factor", 0, -1.0, "#00000000", "#00000000");
        add("smallest transparency", smallest, 2.55, "#00000000", "#ffff0000");
    }

    void alpha()
    {
        const auto [transparency, factor, ofImage, ofText] = row<QVariant, QVariant, QString, QString>();
        const Properties alpha{{"wm_transparency", transparency}, {"wm_transfactor", factor}};

        Model images(smallFrame);
        addImage(images, m_pictures.red(), QRect(10, 20, 8, 6), alpha);
        QCOMPARE(render(images, smallFrame).size(), smallFrame); // It counts as painted, whatever is seen of it.
        QCOMPARE(colorAt(render(images, smallFrame), 12, 22), ofImage);

        Model texts(textFrame);
        const Properties large{{"wm_fontsize", 60}, {"wm_fontstyle", "Bold"}, {"wm_fontcolor", QColor(Qt::red)}};
        ZoEffectItemData& item = addText(texts, "H", QPoint(10, 10), with(large, alpha));
        QCOMPARE(mostOpaque(render(texts, textFrame)), ofText);
        QVERIFY(!storedSize(item).isEmpty()); // It is measured, whatever is seen of it.
    }

    void uniformAlphaReplacesTheImagesOwn_data()
    {
        const Rows<QColor, int, QColor> add;
        add("half transparent becomes 254", QColor(0, 255, 0, 128), 0, QColor(0, 255, 0, 254));
        add("half transparent becomes 127", QColor(0, 255, 0, 128), 50, QColor(0, 255, 0, 127));
        add("almost transparent becomes 127", QColor(255, 0, 255, 1), 50, QColor(255, 0, 255, 127));
        add("fully transparent has lost its colour and becomes black", QColor(255, 255, 255, 0), 0,
            QColor(0, 0, 0, 254));
        add("half transparent mixed colour", QColor(200, 100, 50, 128), 0, QColor(200, 100, 50, 254));
        add("everything at 0", QColor(0, 255, 0, 255), 100, QColor(0, 0, 0, 0));
    }

    void uniformAlphaReplacesTheImagesOwn()
    {
        const auto [color, transparency, expected] = row<QColor, int, QColor>();
        // The other pixel keeps the picture from being stored without an alpha channel.
        QImage image = filled(QSize(8, 6), color);
        image.setPixel(7, 5, qRgba(0, 0, 0, 0));
        Model model(smallFrame);
        addImage(model, m_pictures.add("alpha.png", image), QRect(10, 20, 8, 6), {{"wm_transparency", transparency}});

        const QRgb pixel = pixelsOf(render(model, smallFrame)).pixel(12, 22);

        QCOMPARE(qAlpha(pixel), expected.alpha());
        QVERIFY(qAbs(qRed(pixel) - expected.red()) <= 2); // What 8 bits of premultiplied colour cost.
        QVERIFY(qAbs(qGreen(pixel) - expected.green()) <= 2);
        QVERIFY(qAbs(qBlue(pixel) - expected.blue()) <= 2);
    }

    void everyKindOfPictureGetsTheAlpha_data()
    {
        const Rows<QString, QImage, QString> add;
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
        add("RGB", "rgb.png", green.convertToFormat(QImage::Format_RGB32), "#7f00ff00");
        add("two colours", "mono.png", mono, "#7f00ff00");
        add("table with a transparent colour", "indexed.png", indexed, "#7f00ff00");
        add("grey", "grey.png", grey, "#7fffffff");
        add("16 bits a channel", "deep.png", green.convertToFormat(QImage::Format_RGBA64), "#7f00ff00");
        add("XPM", "rgb.xpm", green, "#7f00ff00");
    }

    void everyKindOfPictureGetsTheAlpha()
    {
        const auto [name, image, expected] = row<QString, QImage, QString>();
        Model model(smallFrame);
        addImage(model, m_pictures.add(name, image), QRect(10, 20, 8, 6), {{"wm_transparency", 50}});

        const QPixmap shown = render(model, smallFrame);

        QCOMPARE(shownArea(shown), QRect(10, 20, 8, 6));
        QCOMPARE(colorAt(shown, 12, 22), expected);
    }

    // --- Order

    void firstItemLiesOnTop()
    {
        Model model(smallFrame);
        const Properties solid{{"wm_transfactor", 2.5501}};                                // Alpha 255.
        addImage(model, m_pictures.red(), QRect(10, 20, 8, 6), {{"wm_transparency", 50}}); // 127 of 255.
        addImage(model, m_pictures.blue(), QRect(14, 20, 8, 6), solid);
        addImage(model, m_pictures.add("green.png", filled(QSize(8, 6), Qt::green)), QRect(18, 20, 8, 6), solid);

        const QPixmap shown = render(model, smallFrame);

        QCOMPARE(shownArea(shown), QRect(10, 20, 16, 6));
        QCOMPARE(colorAt(shown, 10, 22), QString("#7fff0000"));
        QCOMPARE(colorAt(shown, 21, 22), QString("#ff0000ff"));
        QCOMPARE(colorAt(shown, 22, 22), QString("#ff00ff00"));
        const QRgb mixed = pixelsOf(shown).pixel(15, 22);
        QCOMPARE(qAlpha(mixed), 255);
        QVERIFY(qAbs(qRed(mixed) - 127) <= 2 && qGreen(mixed) <= 2 && qAbs(qBlue(mixed) - 128) <= 2);
    }

    void textsLieBetweenImages()
    {
        const Properties solid{{"wm_transfactor", 2.5501}};
        const Properties text = with(solid, {{"wm_fontcolor", QColor(Qt::red)}, {"wm_fontsize", 60}});
        const auto reddest = [](const QPixmap& shown) {
            const QImage pixels = pixelsOf(shown);
            int red = 0;
            for (int i = 0; i < pixels.width() * pixels.height(); ++i)
                red = qMax(red, qRed(pixels.pixel(i % pixels.width(), i / pixels.width())));
            return red;
        };

        Model above(textFrame);
        addText(above, "H", QPoint(10, 10), text);
        addImage(above, m_pictures.blue(), QRect(QPoint(0, 0), textFrame), solid);
        QVERIFY(reddest(render(above, textFrame)) >= 253);

        Model below(textFrame);
        addImage(below, m_pictures.blue(), QRect(QPoint(0, 0), textFrame), solid);
        addText(below, "H", QPoint(10, 10), text);
        QVERIFY(reddest(render(below, textFrame)) <= 2);
    }

    // --- What is painted

    void nothingPaintedGivesNoPicture_data()
    {
        const Rows<Change, QList<int>> add;
        const QString missing = m_pictures.file("missing.png");
        add("no watermark", [](ZoEffectModel&) {}, {});
        add("empty text", [](ZoEffectModel& model) { addText(model, "", QPoint(0, 0)); }, {});
        add("text missing", [](ZoEffectModel& model) { addText(model, "H", QPoint(0, 0)).delData("wm_textcontent"); },
            {});
        add("text outside the frame", [](ZoEffectModel& model) { addText(model, "H", QPoint(1000, 0)); }, {});
        add("image without a path", [](ZoEffectModel& model) { addItem(model, "Watermark"); }, {1178});
        add("null entry", [](ZoEffectModel& model) { watermarks(model).appendChild(nullptr); }, {});
        add("no type", [](ZoEffectModel& model) { model.delDataItem("effect root", 1); }, {});
        add("two images missing, unchecked and empty ones beside them",
            [=](ZoEffectModel& model) {
                addImage(model, missing, QRect(0, 0, 8, 6));
                addImage(model, missing, QRect(0, 0, 8, 6)).setCheckState(0);
                addText(model, "", QPoint(0, 0));
                addImage(model, missing, QRect(0, 0, 8, 6));
            },
            {1178, 1178});
    }

    void nothingPaintedGivesNoPicture()
    {
        const auto [arrange, events] = row<Change, QList<int>>();
        Model model(smallFrame);
        arrange(model);
        SignalRecorder recorder(model);

        for (const QSize& size : {smallFrame, QSize(128, 96), smallFrame}) {
            QVERIFY(render(model, size).isNull());
            QCOMPARE(logcapture::takeEvents(), events);
        }
        QCOMPARE(recorder.take(), QStringList());
    }

    void checkStatesDecide_data()
    {
        const Rows<int, int, bool> add;
        add("both checked", 2, 2, true);
        add("type unchecked", 0, 2, false);
        add("type partly checked", 1, 2, false);
        add("item unchecked", 2, 0, false);
        add("item partly checked", 2, 1, false);
        add("item in another state", 2, -1, false);
    }

    void checkStatesDecide()
    {
        const auto [typeState, itemState, expected] = row<int, int, bool>();
        Model images(smallFrame);
        addImage(images, m_pictures.red(), QRect(0, 0, 8, 6)).setCheckState(itemState);
        watermarks(images).setCheckState(typeState);
        QCOMPARE(!render(images, smallFrame).isNull(), expected);

        Model texts(smallFrame);
        ZoEffectItemData& item = addText(texts, "H", QPoint(0, 0));
        item.setCheckState(itemState);
        watermarks(texts).setCheckState(typeState);
        QCOMPARE(!render(texts, smallFrame).isNull(), expected);
        QCOMPARE(item.hasData("wm_imagewidth"), expected);

        // An unchecked one leaves the others.
        addText(texts, "A", QPoint(0, 0));
        QCOMPARE(!render(texts, smallFrame).isNull(), typeState == 2);
    }

    void nextPictureStartsAnew()
    {
        Model model(smallFrame);
        ZoEffectItemData& item = addImage(model, m_pictures.red(), QRect(10, 20, 8, 6));
        watermarks(model).appendChild(nullptr);
        QPixmap first = render(model, smallFrame);
        QCOMPARE(shownArea(first), QRect(10, 20, 8, 6));
        first.fill(Qt::black); // The picture is the host's own.
        QCOMPARE(shownArea(render(model, smallFrame)), QRect(10, 20, 8, 6));

        item.setData("wm_hposition", 30);
        QCOMPARE(shownArea(render(model, smallFrame)), QRect(30, 20, 8, 6));
        item.setCheckState(0);
        QVERIFY(render(model, smallFrame).isNull());
        item.setCheckState(2);
        QCOMPARE(shownArea(render(model, smallFrame)), QRect(30, 20, 8, 6));
    }

    // --- Texts

    void textStaysInItsMeasuredRectangle_data()
    {
        const Rows<QString, QPoint, int> add;
        add("word", "HELLO", QPoint(40, 60), 20);
        add("large, at the corner", "HE", QPoint(0, 0), 60);
        add("small", "HE", QPoint(200, 100), 8);
        add("two lines", "HE\nHELLO", QPoint(30, 20), 20);
    }

    void textStaysInItsMeasuredRectangle()
    {
        const auto [text, place, pointSize] = row<QString, QPoint, int>();
        Model model(textFrame);
        ZoEffectItemData& item = addText(model, text, place, {{"wm_fontsize", pointSize}});

        const QPixmap shown = render(model, textFrame);

        const QSize expected = measured(text, usualFont(pointSize));
        QCOMPARE(storedSize(item), expected);
        QCOMPARE(item.data("wm_imagewidth").userType(), int(QMetaType::Int));
        QCOMPARE(item.data("wm_imageheight").userType(), int(QMetaType::Int));
        const QRect area = shownArea(shown);
        QVERIFY(QRect(place, expected).contains(area));
        // Letters without gaps at their sides fill most of it.
        QVERIFY(area.width() > expected.width() * 3 / 4);
        QVERIFY(area.height() > expected.height() / 3);
    }

    void inkStandsWhereTheTextIs()
    {
        for (const QPoint place : {QPoint(0, 0), QPoint(31, 17), QPoint(-7, -9), QPoint(290, 40), QPoint(40, 135)}) {
            // Painted from the base line on, without a rectangle.
            QPixmap byHand(textFrame);
            byHand.fill(Qt::transparent);
            QPainter painter(&byHand);
            painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
            painter.setFont(usualFont());
            painter.drawText(place.x(), place.y() + QFontMetrics(usualFont()).ascent(), "HjH");
            painter.end();

            Model model(textFrame);
            addText(model, "HjH", place);
            QVERIFY(!shownArea(byHand).isEmpty());
            QCOMPARE(shownArea(render(model, textFrame)), shownArea(byHand));
        }
    }

    void measuredSizeIsStoredWithSignals()
    {
        Model model(textFrame);
        ZoEffectItemData& item = addText(model, "A", QPoint(10, 10));
        addImage(model, m_pictures.red(), QRect(0, 0, 8, 6));
        addText(model, "BBB", QPoint(10, 80));
        SignalRecorder recorder(model);
        const QImage first = pixelsOf(render(model, textFrame));

        const QSize a = measured("A");
        const QSize b = measured("BBB");
        QVERIFY(a.width() < b.width());
        const QString line = "effectDataChanged(Watermark, %1, int %2, %3)";
        QCOMPARE(recorder.take(), (QStringList{line.arg("wm_imagewidth").arg(b.width()).arg(2),
                                               line.arg("wm_imageheight").arg(b.height()).arg(2),
                                               line.arg("wm_imagewidth").arg(a.width()).arg(0),
                                               line.arg("wm_imageheight").arg(a.height()).arg(0)}));

        // The second time nothing changes; a stored text that means the same number is equal, too.
        item.setData("wm_imagewidth", QString::number(a.width()));
        QVERIFY(first == pixelsOf(render(model, textFrame)));
        QCOMPARE(recorder.take(), QStringList());

        item.setData("wm_textcontent", "AAAA"); // As high as before.
        render(model, textFrame);
        QCOMPARE(recorder.take(), one(line.arg("wm_imagewidth").arg(measured("AAAA").width()).arg(0)));
    }

    void linesOfATextStandBelowEachOther()
    {
        Model model(textFrame);
        ZoEffectItemData& single = addText(model, "HH", QPoint(0, 0));
        ZoEffectItemData& three = addText(model, "HH\nH\nHH", QPoint(100, 0));
        render(model, textFrame);
        QCOMPARE(storedSize(three).width(), storedSize(single).width());
        QVERIFY(storedSize(three).height() >= 3 * storedSize(single).height() - 2);
    }

    void textOutsideTheFrameIsNotMeasured_data()
    {
        const Rows<int, int, bool> add;
        const int width = measured("HHH").width();
        const int height = measured("HHH").height();
        add("last column", 299, 10, true);
        add("right of the frame", 300, 10, false);
        add("last row", 10, 149, true);
        add("below the frame", 10, 150, false);
        add("right edge in column 1", 2 - width, 10, true);
        add("right edge in column 0 is outside", 1 - width, 10, false);
        add("bottom edge in row 1", 10, 2 - height, true);
        add("bottom edge in row 0 is outside", 10, 1 - height, false);
        add("farthest right", largest, 10, false);
        add("farthest left", smallest, 10, false);
        add("farthest down", 10, largest, false);
        add("farthest up", 10, smallest, false);
    }

    void textOutsideTheFrameIsNotMeasured()
    {
        const auto [left, top, painted] = row<int, int, bool>();
        Model model(textFrame);
        ZoEffectItemData& item =
            addText(model, "HHH", QPoint(left, top), {{"wm_imagewidth", 7}, {"wm_imageheight", 8}});
        SignalRecorder recorder(model);

        QCOMPARE(render(model, textFrame).isNull(), !painted);

        QCOMPARE(storedSize(item), painted ? measured("HHH") : QSize(7, 8));
        QCOMPARE(recorder.take().size(), painted ? 2 : 0);
    }

    void fontOfAText_data()
    {
        const Rows<Properties, QFont> add;
        const auto font = [](const QFont& base, int pointSize, QFont::Weight weight, QFont::Style style) {
            QFont result(base);
            result.setPointSize(pointSize);
            result.setWeight(weight);
            result.setStyle(style);
            return result;
        };
        const QFont sans("DejaVu Sans");
        const QFont mono("DejaVu Sans Mono");
        const QFont own = font(sans, 31, QFont::Bold, QFont::StyleItalic);
        add("regular", {}, font(sans, 20, QFont::Normal, QFont::StyleNormal));
        add("bold italic", {{"wm_fontstyle", "Bold Italic"}}, font(sans, 20, QFont::Bold, QFont::StyleItalic));
        add("size as text", {{"wm_fontsize", "40"}}, font(sans, 40, QFont::Normal, QFont::StyleNormal));
        add("font as text", {{"wm_fontname", "DejaVu Sans Mono"}}, font(mono, 20, QFont::Normal, QFont::StyleNormal));
        add("font missing: the default font", {{"wm_fontname", QVariant()}},
            font(QFont(), 20, QFont::Normal, QFont::StyleNormal));
        add("negative size leaves the font's own", {{"wm_fontname", own}, {"wm_fontsize", -4}},
            font(own, 31, QFont::Normal, QFont::StyleNormal));
        add("no style leaves the font's own", {{"wm_fontname", own}, {"wm_fontstyle", QVariant()}},
            font(own, 20, QFont::Bold, QFont::StyleItalic));
    }

    void fontOfAText()
    {
        const auto [properties, expected] = row<Properties, QFont>();
        Model model(textFrame);
        ZoEffectItemData& item = addText(model, "Wig", QPoint(10, 10), properties);
        render(model, textFrame);
        QCOMPARE(storedSize(item), measured("Wig", expected));
    }

    void stylesLookDifferent()
    {
        QFont italic = usualFont();
        italic.setItalic(true);
        const auto shown = [](const QFont& font, const QString& style) {
            Model model(textFrame);
            addText(model, "Wig", QPoint(10, 10),
                    {{"wm_fontname", font}, {"wm_fontstyle", style}, {"wm_fontsize", 40}});
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

    void colorOfAText()
    {
        // Its own alpha is replaced, and whatever is no colour is painted black.
        const QList<QPair<QVariant, QString>> colors{{QColor(0, 0, 255, 10), "#fe0000ff"},
                                                     {"#00ff00", "#fe00ff00"},
                                                     {"blue", "#fe0000ff"},
                                                     {"no colour", "000000"},
                                                     {QVariant(), "000000"}};
        for (const auto& color : colors) {
            Model model(textFrame);
            addText(model, "H", QPoint(10, 10),
                    {{"wm_fontcolor", color.first}, {"wm_fontsize", 60}, {"wm_fontstyle", "Bold"}});
            QCOMPARE(mostOpaque(render(model, textFrame)).right(color.second.size()), color.second);
        }
    }

    void ignoredTexts_data()
    {
        const Rows<QVariant, bool, bool, bool> add;
        add("asked for", true, true, true, false);
        add("not asked for", true, false, true, true);
        add("asked for, at another size", true, true, false, false);
        add("not asked for, but at another size", true, false, false, false);
        add("not to be ignored, asked for", false, true, true, true);
        add("not to be ignored, at another size", false, false, false, true);
        add("nothing said, asked for", QVariant(), true, true, true);
        add("as text 'false'", "false", true, true, true);
        add("as number", 1, true, true, false);
    }

    void ignoredTexts()
    {
        const auto [ignore, honourIgnore, baseSize, textPainted] = row<QVariant, bool, bool, bool>();
        const QSize size = baseSize ? textFrame : textFrame * 2;

        Model texts(textFrame);
        ZoEffectItemData& item = addText(texts, "H", QPoint(10, 10), {{"wm_ingnore", ignore}});
        QCOMPARE(!render(texts, size, honourIgnore).isNull(), textPainted);
        QCOMPARE(item.hasData("wm_imagewidth"), textPainted && baseSize);

        // Images are never ignored, and the well-spelt key means nothing.
        Model others(textFrame);
        addImage(others, m_pictures.red(), QRect(10, 20, 8, 6), {{"wm_ingnore", ignore}});
        QVERIFY(!render(others, size, honourIgnore).isNull());
        watermarks(others).clear();
        addText(others, "H", QPoint(10, 10), {{"wm_ignore", true}});
        QVERIFY(!render(others, size, honourIgnore).isNull());
    }

    // --- Another size

    void otherSizeLeavesTheModelAlone()
    {
        Model model(textFrame);
        addText(model, "H", QPoint(10, 10));
        addImage(model, m_pictures.red(), QRect(10, 20, 8, 6));
        SignalRecorder recorder(model);
        const QString before = tree(rootOf(model));

        for (const QSize& size : {textFrame * 2, QSize(200, 150), QSize(300, 100), QSize(1, 1), QSize(0, 0),
                                  QSize(-300, -150), QSize(100000, 100000)}) {
            render(model, size);
            QCOMPARE(tree(rootOf(model)), before);
        }
        QCOMPARE(recorder.take(), QStringList());
    }

    void otherSizeRescalesImages()
    {
        Model model(smallFrame);
        addImage(model, m_pictures.red(), QRect(11, 21, 8, 6), {{"wm_transparency", 50}});
        watermarks(model).appendChild(nullptr);

        const QPixmap twice = render(model, QSize(128, 96));
        QCOMPARE(twice.size(), QSize(128, 96));
        QCOMPARE(shownArea(twice), QRect(22, 42, 16, 12));
        QCOMPARE(colorAt(twice, 25, 45), QString("#7fff0000"));
        QCOMPARE(shownArea(render(model, QSize(32, 24))), QRect(5, 10, 4, 3));
        // The image follows the width and keeps its ratio.
        QCOMPARE(shownArea(render(model, QSize(128, 48))), QRect(22, 21, 16, 12));
        QCOMPARE(shownArea(render(model, smallFrame)), QRect(11, 21, 8, 6));
    }

    void otherSizeRescalesTexts_data()
    {
        const Rows<QSize, QPoint, int> add;
        add("half", QSize(150, 75), QPoint(5, 10), 10);
        add("the font follows the height", QSize(300, 300), QPoint(10, 40), 40);
        add("the font does not follow the width", QSize(600, 150), QPoint(20, 20), 20);
    }

    void otherSizeRescalesTexts()
    {
        const auto [size, place, pointSize] = row<QSize, QPoint, int>();
        Model model(textFrame);
        addText(model, "HELLO", QPoint(10, 20));

        const QPixmap shown = render(model, size);

        QCOMPARE(shown.size(), size);
        const QSize expected = measured("HELLO", usualFont(pointSize));
        const QRect area = shownArea(shown);
        QVERIFY(QRect(place, expected).contains(area));
        QVERIFY(area.width() > expected.width() * 3 / 4);
    }

    void withoutBaseSizeNothingIsRescaled()
    {
        ZoEffectModel model;
        addImage(model, m_pictures.red(), QRect(10, 20, 8, 6));
        addText(model, "H", QPoint(0, 0), {{"wm_ingnore", true}});
        const QPixmap shown = render(model, smallFrame, false);
        QCOMPARE(shown.size(), smallFrame);
        QCOMPARE(shownArea(shown), QRect(10, 20, 8, 6)); // The text is left out: not the base size.
        QCOMPARE(model.baseSize(), QSize(0, 0));
    }

    // --- Canvas

    void impossibleCanvas_data()
    {
        const Rows<QSize> add;
        add("nothing", QSize(0, 0));
        add("no width", QSize(0, 48));
        add("negative height", QSize(64, -48));
        add("both negative", QSize(-64, -48));
        add("one column too many", QSize(32768, 1));
        add("one row too many", QSize(1, 32768));
        add("one column beyond a gibibyte", QSize(16385, 16384));
        add("one row beyond a gibibyte", QSize(16384, 16385));
        add("product that wraps to nothing", QSize(65536, 65536));
        add("largest", QSize(largest, largest));
        add("smallest", QSize(smallest, smallest));
    }

    void impossibleCanvas()
    {
        const auto [size] = row<QSize>();
        QVERIFY(forgetPeakMemory());
        const qint64 memory = peakMemory();
        for (const QSize& base : {size, smallFrame}) {
            Model model(base);
            addImage(model, m_pictures.file("missing.png"), QRect(0, 0, 8, 6)); // Would be logged.
            addText(model, "H", QPoint(0, 0));                                  // Would be measured, with signals.
            addText(model, "H", QPoint(-5, -5));
            const QString before = tree(rootOf(model));
            SignalRecorder recorder(model);

            QVERIFY(render(model, size).isNull());

            QCOMPARE(tree(rootOf(model)), before);
            QCOMPARE(recorder.take(), QStringList());
            if (base == smallFrame)
                logcapture::takeEvents();
        }
        QVERIFY(peakMemory() - memory < smallMemory);
    }

    void extremeCanvas()
    {
        for (const QSize& size : {QSize(1, 1), QSize(32767, 1), QSize(1, 32767)}) {
            Model model(size);
            addImage(model, m_pictures.red(), QRect(0, 0, 8, 6));
            const QPixmap shown = render(model, size);
            QCOMPARE(shown.size(), size);
            QCOMPARE(colorAt(shown, 0, 0), QString("#feff0000"));
        }
    }

    // --- Listeners

    void listenerChangesTheList_data()
    {
        const Rows<Change, QString, QString>
            add; // The items left, "+" for its own measured size, "-" for none; what is shown.
        const Properties hidden{{"wm_istextwatermark", true}, {"wm_textcontent", "D"}, {"_checkstate", false}};

        // The items A, B and C are painted from the last to the first; the change comes while C is measured.
        add(
            "reads",
            [](ZoEffectModel& model) {
                model.data("wm_imagewidth", "Watermark", 2);
                model.childCount("Watermark");
            },
            "A+ B+ C+", "ABC");
        add(
            "deletes the item just painted", [](ZoEffectModel& model) { model.delDataItem("Watermark", 2); }, "A+ B+",
            "ABC");
        add(
            "deletes the next item", [](ZoEffectModel& model) { model.delDataItem("Watermark", 1); }, "A+ C+", "AC");
        add(
            "deletes the last item to come", [](ZoEffectModel& model) { model.delDataItem("Watermark", 0); }, "B+ C+",
            "BC");
        add(
            "deletes all items",
            [](ZoEffectModel& model) {
                while (model.childCount("Watermark") > 0)
                    model.delDataItem("Watermark", 0);
            },
            "", "C");
        add(
            "takes out the item just painted and keeps it",
            [this](ZoEffectModel& model) { m_takenOut.reset(watermarks(model).takeAt(2)); }, "A+ B+", "ABC");
        add(
            "takes out an item to come and keeps it",
            [this](ZoEffectModel& model) { m_takenOut.reset(watermarks(model).takeAt(0)); }, "B+ C+", "BC");
        add(
            "takes out the whole type and keeps it",
            [this](ZoEffectModel& model) {
                ZoEffectItemData* root = model.getDataItem("effect root", -1);
                m_takenOut.reset(root->takeAt(watermarks(model).childNumber()));
            },
            "", "C");
        add(
            "deletes the whole type",
            [](ZoEffectModel& model) {
                ZoEffectItemData* root = model.getDataItem("effect root", -1);
                delete root->takeAt(watermarks(model).childNumber());
            },
            "", "C");
        add(
            "inserts an unchecked item in front",
            [=](ZoEffectModel& model) { model.insertDataItem("Watermark", hidden, 0); }, "D- A+ B+ C+", "ABC");
        add(
            "appends an unchecked item", [=](ZoEffectModel& model) { model.addDataItem("Watermark", hidden); },
            "A+ B+ C+ D-", "ABC");
        add(
            "moves the item just painted to the front",
            [](ZoEffectModel& model) { model.changeDataItemPos("Watermark", 0, 2); }, "C+ A+ B+", "ABC");
        add(
            "unchecks an item to come",
            [](ZoEffectModel& model) { model.setData("_checkstate", false, "Watermark", 0); }, "A- B+ C+", "BC");
        add(
            "empties a text to come", [](ZoEffectModel& model) { model.setData("wm_textcontent", "", "Watermark", 1); },
            "A+ - C+", "AC");
        add(
            "moves a text to come out of the frame",
            [](ZoEffectModel& model) { model.setData("wm_hposition", 1000, "Watermark", 0); }, "A- B+ C+", "BC");
        add(
            "resets the type", [](ZoEffectModel& model) { model.resetDataItem("Watermark", -1); }, "", "C");
        add(
            "resets everything", [](ZoEffectModel& model) { model.resetAllEffect(); }, "", "C");
        add(
            "assigns an empty model", [](ZoEffectModel& model) { model = ZoEffectModel(); }, "", "C");
        add(
            "renders", [](ZoEffectModel& model) { render(model, model.baseSize()); }, "A+ B+ C+", "ABC");
        add(
            "renders at another size", [](ZoEffectModel& model) { render(model, QSize(90, 60)); }, "A+ B+ C+", "ABC");
        add(
            "copies the model",
            [](ZoEffectModel& model) {
                ZoEffectModel copy(model);
                render(copy, copy.baseSize());
            },
            "A+ B+ C+", "ABC");
    }

    void listenerChangesTheList()
    {
        const auto values = row<Change, QString, QString>();
        const Change& change = std::get<0>(values);

        const QMap<QString, QPoint> places{{"A", {10, 5}}, {"BBB", {10, 75}}, {"CC\nCC", {180, 5}}};

        for (const char* key : {"wm_imagewidth", "wm_imageheight"}) {
            Model model(textFrame);
            for (auto it = places.cbegin(); it != places.cend(); ++it)
                addText(model, it.key(), it.value());

            bool done = false;
            listen(model, [&](const QString&, const QString& changed, const QVariant&, int) {
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
                if (!shownArea(picture.copy(QRect(it.value(), measured(it.key())))).isEmpty())
                    painted += it.key().at(0);
            }
            QCOMPARE(painted, std::get<2>(values));

            QStringList left;
            const ZoEffectItemData* typeNode = model.getDataItem("Watermark", -1);
            for (int row = 0; typeNode && row < typeNode->childCount(); ++row) {
                const ZoEffectItemData& item = *typeNode->child(row);
                const QString text = item.data("wm_textcontent").toString();
                const bool sizeless = !item.hasData("wm_imagewidth") && !item.hasData("wm_imageheight");
                const QString size = sizeless ? "-" : storedSize(item) == measured(text) ? "+" : "?";
                left << text.left(1) + size; // clazy:exclude=qstring-left An item may have no text.
            }
            QCOMPARE(left.join(' '), std::get<1>(values));
            // A size whose item is gone goes nowhere else.
            QVERIFY(!typeNode || !typeNode->hasData("wm_imagewidth"));
            QVERIFY(!typeNode || !typeNode->hasData("wm_imageheight"));
        }
    }

    void listenerRescales()
    {
        const Change changes[] = {
            [](ZoEffectModel& model) { model.setVideoSize(640, 480); },
            [](ZoEffectModel& model) { model.setVideoSize(0, 0); },
            [](ZoEffectModel& model) { model.adjustEffectInfo(600, 300); },
        };
        for (const Change& change : changes) {
            Model model(textFrame);
            addText(model, "A", QPoint(10, 5));
            addText(model, "BBB", QPoint(10, 75));
            bool done = false;
            listen(model, [&] {
                if (!std::exchange(done, true))
                    change(model);
            });
            const QPixmap picture = render(model, textFrame);
            QVERIFY(done);
            QCOMPARE(picture.size(), textFrame); // As asked for.
            QVERIFY(!shownArea(picture.copy(QRect(QPoint(10, 75), measured("BBB")))).isEmpty());
        }
    }

    void listenerDeletesAnImageThatIsStillToCome()
    {
        Model model(textFrame);
        addImage(model, m_pictures.file("missing.png"), QRect(0, 0, 8, 6)); // Would be logged.
        addImage(model, m_pictures.red(), QRect(200, 20, 8, 6));
        addText(model, "A", QPoint(10, 5));
        bool done = false;
        listen(model, [&] {
            if (!std::exchange(done, true))
                model.delDataItem("Watermark", 0);
        });
        QCOMPARE(shownArea(render(model, textFrame).copy(150, 0, 150, 150)), QRect(50, 20, 8, 6));
        QCOMPARE(storedSize(*watermarks(model).child(1)), measured("A"));
    }

    void renderingsOfListenersNestOnlySoDeep()
    {
        // Each rendering inside another holds a canvas and a piece of the stack; without a bound 100 texts would
        // nest 200 of them.
        constexpr int texts = 100;
        Model model(textFrame);
        for (int i = 0; i < texts; ++i)
            addText(model, QString::number(i), QPoint(10, 5));
        ZoEffectModel undisturbed(model);

        SignalRecorder recorder(model);
        int depth = 0;
        int deepest = 0;
        listen(model, [&] {
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

private:
    const PictureFolder m_pictures{};
    QScopedPointer<ZoEffectItemData> m_takenOut; // By a listener.
};

ZOEFFECT_TEST_MAIN(TstModelRendering)

#include "tst_model_rendering.moc"
