// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "drawing.h"
#include "figures.h"

#include <QPainterPath>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

using namespace drawing;

constexpr int margin = 24;

/// A picture file that lives as long as this does.
class PictureFile {
public:
    explicit PictureFile(const QImage& picture) : m_path(m_folder.filePath("picture.png"))
    {
        if (!picture.save(m_path))
            throw Failure{m_path + ": a picture that is shown as a watermark cannot be written"};
    }
    QString path() const { return m_path; }

private:
    QTemporaryDir m_folder;
    QString m_path;
};

/// A star on a disc; around the disc nothing, or the colour \a corners.
QImage logo(const QSize& size, const QColor& disc, const QColor& corners)
{
    QImage picture(size, QImage::Format_ARGB32);
    picture.fill(corners);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QPointF centre = QRectF(picture.rect()).center();
    const double radius = std::min(size.width(), size.height()) / 2.0 - 4;
    painter.setBrush(disc);
    painter.drawEllipse(centre, radius, radius);
    QPainterPath star;
    constexpr double outer = 0.8;
    constexpr double inner = 0.34;
    constexpr int corner = 36; // Degrees from one corner of the star to the next.
    for (int i = 0; i < 10; ++i) {
        const QLineF ray = QLineF::fromPolar(radius * (i % 2 == 0 ? outer : inner), 90 + corner * i);
        if (i == 0)
            star.moveTo(centre + ray.p2());
        else
            star.lineTo(centre + ray.p2());
    }
    star.closeSubpath();
    painter.fillPath(star, paper);
    return picture;
}

/// The watermarks of \a model on a checkerboard, in its base size.
QPixmap drawOn(QPainter& painter, const QPoint& corner, ZoEffectModel& model)
{
    const QSize size = model.baseSize();
    const QPixmap watermark = model.getWatermark(size.width(), size.height(), true);
    const QRect area(corner, size);
    checkerboard(painter, area);
    painter.drawPixmap(corner, watermark);
    outline(painter, area, line);
    return watermark;
}

int largestAlpha(const QPixmap& picture)
{
    const QImage pixels = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    int largest = 0;
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x)
            largest = std::max(largest, qAlpha(pixels.pixel(x, y)));
    }
    return largest;
}

void moveTo(ZoEffectModel& model, int pos, const QPoint& place)
{
    model.setData("wm_hposition", place.x(), "Watermark", pos);
    model.setData("wm_vposition", place.y(), "Watermark", pos);
}

} // namespace

QImage transparency()
{
    constexpr int transparencies[] = {0, 50, 100};
    const QSize frame(288, 190);
    const PictureFile file(logo(QSize(110, 110), orange, QColor(0xf3, 0xd9, 0xbf)));

    QImage picture = sheet(margin + frame.height() + 2 * lineHeight + margin);
    QPainter painter(&picture);
    prepare(painter);
    QPoint corner(margin, margin);
    for (const int percent : transparencies) {
        ZoEffectModel model;
        model.setVideoSize(frame.width(), frame.height());
        Properties image = imageWatermark(file.path(), QSize(110, 110));
        image.insert("wm_transparency", percent);
        model.addDataItem("Watermark", image);
        Properties text = textWatermark("Hello");
        text.insert("wm_transparency", percent);
        text.insert("wm_fontcolor", ink);
        text.insert("wm_fontsize", 30);
        model.addDataItem("Watermark", text);
        moveTo(model, 0, QPoint(16, 40));
        moveTo(model, 1, QPoint(144, 66));

        const QPixmap watermark = drawOn(painter, corner, model);
        const QPointF below(corner.x() + frame.width() / 2.0, corner.y() + frame.height() + 12);
        write(painter, below, Qt::AlignHCenter | Qt::AlignTop, QString("wm_transparency %1").arg(percent), ink, true);
        write(painter, below + QPointF(0, lineHeight), Qt::AlignHCenter | Qt::AlignTop,
              QString("alpha %1 of 255").arg(largestAlpha(watermark)), pale);
        corner.rx() += frame.width() + margin;
    }
    return picture;
}

QImage layers()
{
    const QSize frame(444, 240);
    QImage picture = sheet(margin + frame.height() + 2 * lineHeight + margin);
    QPainter painter(&picture);
    prepare(painter);

    // Three in one place, nearly.
    ZoEffectModel pile;
    pile.setVideoSize(frame.width(), frame.height());
    const QColor colours[] = {blue, orange, green};
    std::vector<std::unique_ptr<PictureFile>> files;
    int pos = 0;
    for (const QColor& colour : colours) {
        QImage tile(QSize(190, 120), QImage::Format_RGB32);
        tile.fill(colour);
        QPainter label(&tile);
        prepare(label);
        write(label, QPointF(12, 6), Qt::AlignLeft | Qt::AlignTop, QString("position %1").arg(pos), paper, true);
        label.end();
        files.push_back(std::make_unique<PictureFile>(tile));
        pile.addDataItem("Watermark", imageWatermark(files.back()->path(), tile.size()));
        moveTo(pile, pos, QPoint(220, 96) - QPoint(98, 38) * pos);
        ++pos;
    }
    const QPoint first(margin, margin);
    drawOn(painter, first, pile);

    // The same file, as it is and as a watermark.
    const QImage disc = logo(QSize(150, 150), purple, Qt::transparent);
    const PictureFile file(disc);
    ZoEffectModel model;
    model.setVideoSize(frame.width(), frame.height());
    model.addDataItem("Watermark", imageWatermark(file.path(), disc.size()));
    moveTo(
        model, 0,
        QPoint(frame.width() / 2 + (frame.width() / 2 - disc.width()) / 2, (frame.height() - disc.height()) / 2 - 12));
    const QPoint second(first.x() + frame.width() + margin, margin);
    drawOn(painter, second, model);
    const QPoint asItIs((frame.width() / 2 - disc.width()) / 2, (frame.height() - disc.height()) / 2 - 12);
    painter.drawImage(second + asItIs, disc);
    const double labels = second.y() + frame.height() - 10;
    writeOnPatch(painter, QPointF(second.x() + frame.width() * 0.25, labels), Qt::AlignHCenter | Qt::AlignBottom,
                 "the file", ink);
    writeOnPatch(painter, QPointF(second.x() + frame.width() * 0.75, labels), Qt::AlignHCenter | Qt::AlignBottom,
                 "the watermark", ink);

    const double y = margin + frame.height() + 12;
    const auto caption = [&painter, y, &frame](const QPoint& corner, const QString& title, const QString& text) {
        const QPointF below(corner.x() + frame.width() / 2.0, y);
        write(painter, below, Qt::AlignHCenter | Qt::AlignTop, title, ink, true);
        write(painter, below + QPointF(0, lineHeight), Qt::AlignHCenter | Qt::AlignTop, text, pale);
    };
    caption(first, "The first lies on top", "painted from the last to the first");
    caption(second, "An image's own alpha is replaced", "one alpha for all of its pixels");
    return picture;
}

QImage fontStyles()
{
    const QStringList styles = {"Regular", "Italic", "Bold", "Bold Italic"};
    const QSize frame(448, 92);
    QImage picture = sheet(margin + 2 * (frame.height() + lineHeight + margin + 4));
    QPainter painter(&picture);
    prepare(painter);
    QPoint corner(margin, margin);
    int count = 0;
    for (const QString& style : styles) {
        ZoEffectModel model;
        model.setVideoSize(frame.width(), frame.height());
        Properties text = textWatermark("Hello, world");
        text.insert("wm_fontstyle", style);
        text.insert("wm_fontcolor", ink);
        text.insert("wm_fontsize", 34);
        model.addDataItem("Watermark", text);
        moveTo(model, 0, QPoint(24, 18));
        drawOn(painter, corner, model);
        write(painter, QPointF(corner.x() + frame.width() / 2.0, corner.y() + frame.height() + 6),
              Qt::AlignHCenter | Qt::AlignTop, "wm_fontstyle \"" + style + '"', ink);
        corner.rx() += frame.width() + margin - 8;
        if (++count % 2 == 0)
            corner = QPoint(margin, corner.y() + frame.height() + lineHeight + margin);
    }
    return picture;
}
