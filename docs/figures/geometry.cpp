// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "drawing.h"
#include "figures.h"

#include <QPainterPath>

#include <vector>

namespace {

using namespace drawing;

/// A model's frame on a sheet.
struct View {
    QPointF corner;
    double scale = 1;

    QPointF at(double x, double y) const { return corner + QPointF(x, y) * scale; }
    QRectF at(const QRectF& area) const { return QRectF(at(area.x(), area.y()), area.size() * scale); }
};

void storeCrop(ZoEffectModel& model, const QRect& crop)
{
    model.setData("crop_left", crop.left(), "Crop", -1);
    model.setData("crop_top", crop.top(), "Crop", -1);
    model.setData("crop_width", crop.width(), "Crop", -1);
    model.setData("crop_height", crop.height(), "Crop", -1);
}

QRectF cropRect(const ZoEffectModel& model)
{
    const CropData crop = model.cropData();
    return QRectF(crop.left, crop.top, crop.width, crop.height);
}

/// Dims what the crop of \a model cuts away.
void dimOutside(QPainter& painter, const QRectF& frame, const QRectF& kept)
{
    QPainterPath cutAway;
    cutAway.addRect(frame);
    cutAway.addRect(kept); // A rectangle in a rectangle is a hole.
    painter.fillPath(cutAway, tint(ink, 150));
}

/// A property's name with its value under it.
void writeProperty(QPainter& painter, const QPointF& centre, const ZoEffectModel& model, const QString& key,
                   const QColor& colour)
{
    const QString value = model.data(key, "Crop", -1).toString();
    write(painter, centre - QPointF(0, lineHeight / 2.0), Qt::AlignHCenter | Qt::AlignVCenter, key, colour);
    write(painter, centre + QPointF(0, lineHeight / 2.0), Qt::AlignHCenter | Qt::AlignVCenter, value, colour, true);
}

/// The settings that rescaling() and the chapter on geometry show.
void fill(ZoEffectModel& model)
{
    model.setVideoSize(1280, 720);
    storeCrop(model, QRect(320, 120, 800, 450));
    model.setData("crop_keepaspectratio", false, "Crop", -1);
    Properties image = imageWatermark("logo.png", QSize(256, 128)); // Only its rectangle is drawn.
    image.insert("wm_hposition", 965);
    image.insert("wm_vposition", 545);
    model.addDataItem("Watermark", image);
    Properties text = textWatermark("Hello");
    text.insert("wm_fontsize", 40);
    text.insert("wm_hposition", 360);
    text.insert("wm_vposition", 145);
    model.addDataItem("Watermark", text);
    model.addDataItem("Subtitle", {{"sub_fromfile", true}});
    model.setData("sub_vposition", 600, "Subtitle", -1);
}

/// One of the things that rescaling moves: how it is drawn, and what the models answer.
struct Row {
    QString name;
    QColor colour;
    QString (*values)(const ZoEffectModel& model);
};

constexpr int imageRow = 0;
constexpr int textRow = 1;

QString place(const QRect& area)
{
    return QString("%1,%2").arg(area.left()).arg(area.top());
}

QString size(const QRect& area)
{
    return QString("%1 x %2").arg(area.width()).arg(area.height());
}

std::vector<Row> rows()
{
    return {
        {"free crop", blue,
         [](const ZoEffectModel& model) {
             const QRect kept = cropRect(model).toRect();
             return size(kept) + " at " + place(kept);
         }},
        {"image watermark", orange,
         [](const ZoEffectModel& model) {
             const QRect area = watermarkRect(model, imageRow);
             return size(area) + " at " + place(area);
         }},
        {"text watermark", green,
         [](const ZoEffectModel& model) {
             return QString("%1 points at ").arg(number(model, "wm_fontsize", "Watermark", textRow))
                    + place(watermarkRect(model, textRow));
         }},
        {"subtitle", purple,
         [](const ZoEffectModel& model) {
             return QString("at row %1").arg(number(model, "sub_vposition", "Subtitle", -1));
         }},
    };
}

/// The text watermark of \a model as it is drawn.
void drawText(QPainter& painter, const View& view, ZoEffectModel& model)
{
    model.getDataItem("Watermark", imageRow)->setCheckState(Qt::Unchecked); // There is no file behind it.
    model.getDataItem("Watermark", textRow)->setData("wm_fontcolor", green);
    const QSize frame = model.baseSize();
    const QPixmap picture = model.getWatermark(frame.width(), frame.height(), true);
    painter.drawPixmap(view.at(QRectF(QPointF(), frame)), picture, QRectF(picture.rect()));
}

void drawFrame(QPainter& painter, const View& view, ZoEffectModel& model)
{
    const QSize size = model.baseSize();
    const QRectF frame = view.at(QRectF(QPointF(), size));
    painter.fillRect(frame, ground);
    outline(painter, frame, pale);

    const QRectF kept = view.at(cropRect(model));
    painter.fillRect(kept, tint(blue, 30));
    outline(painter, kept, blue);

    const QRectF image = view.at(watermarkRect(model, imageRow));
    painter.fillRect(image, tint(orange, 90));
    outline(painter, image, orange);
    drawText(painter, view, model);

    const int row = number(model, "sub_vposition", "Subtitle", -1);
    painter.setPen(QPen(purple, lineWidth, Qt::DashLine, Qt::FlatCap));
    painter.drawLine(view.at(0, row), view.at(size.width(), row));

    write(painter, frame.topLeft() - QPointF(0, 4), Qt::AlignLeft | Qt::AlignBottom,
          QString("%1 x %2").arg(size.width()).arg(size.height()), ink, true);
}

} // namespace

QImage crop()
{
    constexpr double scale = 0.6;
    constexpr double arrowGap = 20;

    ZoEffectModel model;
    model.setVideoSize(1280, 720);
    storeCrop(model, QRect(320, 120, 800, 450));

    QImage picture = sheet(576);
    QPainter painter(&picture);
    prepare(painter);
    const View view = {QPointF(152, 56), scale};
    const QRectF frame = view.at(QRectF(QPointF(), model.baseSize()));
    const QRectF kept = view.at(cropRect(model));
    scenery(painter, frame);
    dimOutside(painter, frame, kept);
    outline(painter, frame, ink);
    outline(painter, kept, blue);

    // The frame's own size, outside of it.
    const QPointF above(0, -arrowGap);
    arrow(painter, frame.topLeft() + above, frame.topRight() + above, pale, true);
    writeOnPatch(painter, QPointF(frame.center().x(), frame.top()) + above, Qt::AlignHCenter | Qt::AlignVCenter,
                 QString("base width %1").arg(model.baseSize().width()), ink);
    const QPointF beside(-arrowGap, 0);
    arrow(painter, frame.topLeft() + beside, frame.bottomLeft() + beside, pale, true);
    const QPointF left(frame.left() - arrowGap - 12, frame.center().y());
    write(painter, left - QPointF(0, lineHeight / 2.0), Qt::AlignRight | Qt::AlignVCenter, "base", ink);
    write(painter, left + QPointF(0, lineHeight / 2.0), Qt::AlignRight | Qt::AlignVCenter,
          QString("height %1").arg(model.baseSize().height()), ink);

    // What is cut away lies left of and above the crop.
    const double middle = kept.top() + kept.height() * 0.3;
    arrow(painter, QPointF(frame.left(), middle), QPointF(kept.left(), middle), paper, true);
    writeProperty(painter, QPointF((frame.left() + kept.left()) / 2, middle + lineHeight + 6), model, "crop_left",
                  paper);
    const double column = kept.left() + kept.width() * 0.42;
    arrow(painter, QPointF(column, frame.top()), QPointF(column, kept.top()), paper, true);
    writeProperty(painter, QPointF(column + 68, (frame.top() + kept.top()) / 2), model, "crop_top", paper);
    write(painter, QPointF(frame.left() + 12, frame.bottom() - 12), Qt::AlignLeft | Qt::AlignBottom, "cut away", paper);

    // What is kept.
    const double low = kept.bottom() - 36;
    arrow(painter, QPointF(kept.left(), low), QPointF(kept.right(), low), ink, true);
    writeOnPatch(painter, QPointF(kept.center().x(), low), Qt::AlignHCenter | Qt::AlignVCenter,
                 QString("crop_width %1").arg(number(model, "crop_width", "Crop", -1)), ink);
    const double right = kept.left() + kept.width() * 0.9;
    arrow(painter, QPointF(right, kept.top()), QPointF(right, kept.bottom()), ink, true);
    writeOnPatch(painter, QPointF(right + 30, kept.top() + kept.height() * 0.3), Qt::AlignRight | Qt::AlignVCenter,
                 QString("crop_height %1").arg(number(model, "crop_height", "Crop", -1)), ink);
    writeOnPatch(painter, kept.topLeft() + QPointF(14, 10), Qt::AlignLeft | Qt::AlignTop, "kept", blue, true);

    // Two properties that are no lengths.
    const QString ratio = QString("crop_keepaspectratio %1,  crop_aspectratio \"%2\"")
                              .arg(model.data("crop_keepaspectratio", "Crop", -1).toString(),
                                   model.data("crop_aspectratio", "Crop", -1).toString());
    write(painter, QPointF(frame.center().x(), frame.bottom() + 22), Qt::AlignHCenter | Qt::AlignTop, ratio, ink);
    write(painter, QPointF(frame.center().x(), frame.bottom() + 22 + lineHeight), Qt::AlignHCenter | Qt::AlignTop,
          "say which shape the crop has after a change of the base size", pale);
    return picture;
}

QImage rescaling()
{
    constexpr double scale = 0.45;
    constexpr double margin = 24;
    constexpr double top = 44;

    ZoEffectModel before;
    fill(before);
    ZoEffectModel after(before);
    after.adjustEffectInfo(640, 480);

    QImage picture = sheet(602);
    QPainter painter(&picture);
    prepare(painter);
    const View large = {QPointF(margin, top), scale};
    const QRectF largeFrame = large.at(QRectF(QPointF(), before.baseSize()));
    const View small = {QPointF(sheetWidth - margin - after.baseSize().width() * scale, top), scale};
    const QRectF smallFrame = small.at(QRectF(QPointF(), after.baseSize()));
    drawFrame(painter, large, before);
    drawFrame(painter, small, after);
    arrow(painter, QPointF(largeFrame.right() + 6, smallFrame.center().y()),
          QPointF(smallFrame.left() - 6, smallFrame.center().y()), ink);
    write(painter, QPointF(smallFrame.left(), smallFrame.bottom() + 12), Qt::AlignLeft | Qt::AlignTop,
          QString("adjustEffectInfo(%1, %2)").arg(after.baseSize().width()).arg(after.baseSize().height()), ink, true,
          labelSize - 2);

    // The values below.
    const double columns[] = {margin, margin + 266, margin + 610};
    double y = largeFrame.bottom() + 28;
    painter.setPen(QPen(line, 1));
    write(painter, QPointF(columns[1], y), Qt::AlignLeft | Qt::AlignTop, "before", pale);
    write(painter, QPointF(columns[2], y), Qt::AlignLeft | Qt::AlignTop, "after", pale);
    for (const Row& row : rows()) {
        y += lineHeight + 8;
        painter.setPen(QPen(line, 1));
        painter.drawLine(QPointF(margin, y - 5), QPointF(sheetWidth - margin, y - 5));
        const QRectF chip(columns[0], y + 3, 18, 18);
        painter.fillRect(chip, tint(row.colour, 90));
        outline(painter, chip, row.colour);
        write(painter, QPointF(columns[0] + 30, y), Qt::AlignLeft | Qt::AlignTop, row.name, row.colour, true);
        write(painter, QPointF(columns[1], y), Qt::AlignLeft | Qt::AlignTop, row.values(before), ink);
        write(painter, QPointF(columns[2], y), Qt::AlignLeft | Qt::AlignTop, row.values(after), ink);
    }
    return picture;
}
