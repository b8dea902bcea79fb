// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "stepbysteppainting.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include <QColor>
#include <QDir>
#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QPointer>

#include <zoeffectmodel.h>

namespace stepbystep {

namespace {

using Item = ZoEffectItemData;

int alphaOf(const Item& item)
{
    bool isNumber = false;
    const double given = item.data("wm_transfactor").toDouble(&isNumber);
    const double factor = isNumber ? given : 2.55;
    const double alpha = (100.0 - item.data("wm_transparency").toInt()) * factor;
    if (std::isnan(alpha))
        return 0;
    const double largest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(alpha, -largest - 1, largest));
}

/// The colours of \a image, each pixel with \a alpha. What is no alpha counts as 0.
QPixmap withAlpha(const QPixmap& image, int alpha)
{
    const int shown = alpha < 0 || alpha > 255 ? 0 : alpha;
    QImage pixels = image.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x) {
            const QRgb pixel = pixels.pixel(x, y);
            pixels.setPixel(x, y, qRgba(qRed(pixel), qGreen(pixel), qBlue(pixel), shown));
        }
    }
    return QPixmap::fromImage(pixels);
}

void drawImage(QPainter& painter, const Item& item, const QPixmap& image)
{
    const QRectF target(item.data("wm_hposition").toInt(), item.data("wm_vposition").toInt(),
                        item.data("wm_imagewidth").toInt(), item.data("wm_imageheight").toInt());
    const QPixmap shown = withAlpha(image, alphaOf(item));
    painter.drawPixmap(target, shown, QRectF(0, 0, shown.width(), shown.height()));
}

QFont fontOf(const Item& item)
{
    QFont font = item.data("wm_fontname").value<QFont>();
    if (item.data("wm_fontsize").toInt() > 0)
        font.setPointSize(item.data("wm_fontsize").toInt());
    const QString style = item.data("wm_fontstyle").toString();
    if (style == "Regular" || style == "Bold") {
        font.setStyle(QFont::StyleNormal);
        font.setWeight(style == "Bold" ? QFont::Bold : QFont::Normal);
    } else if (style == "Italic" || style == "Bold Italic") {
        font.setStyle(QFont::StyleItalic);
        font.setWeight(style == "Bold Italic" ? QFont::Bold : QFont::Normal);
    }
    return font;
}

/// Draws a text; its measured size, or an empty one for a text that lies outside \a frame.
QSize drawText(QPainter& painter, const Item& item, const QSize& frame)
{
    QColor color = item.data("wm_fontcolor").value<QColor>();
    color.setAlpha(std::clamp(alphaOf(item), 0, 255));
    painter.setFont(fontOf(item));
    painter.setPen(color);

    const QString text = item.data("wm_textcontent").toString();
    const QSize size = painter.fontMetrics().size(33, text);
    const QRect bound = painter.boundingRect(QRect(0, 0, size.width(), size.height()), 33, text);
    const int left = item.data("wm_hposition").toInt();
    const int top = item.data("wm_vposition").toInt();
    if (left >= frame.width() || top >= frame.height() || qint64(left) + bound.width() - 1 <= 0
        || qint64(top) + bound.height() - 1 <= 0) {
        return QSize();
    }
    painter.drawText(QRect(left, top, bound.width(), bound.height()), 129, text);
    return bound.size();
}

/// Where \a item stands now; -1 when it is gone.
int rowOf(const ZoEffectModel& model, const QPointer<Item>& item)
{
    const Item* typeNode = model.getDataItem("Watermark", -1);
    for (int row = 0; item && typeNode && row < typeNode->childCount(); ++row) {
        if (typeNode->child(row) == item)
            return row;
    }
    return -1;
}

/// Listeners may move or delete the item between the two values.
void store(ZoEffectModel& model, const QPointer<Item>& item, const QSize& size)
{
    for (const auto& [key, value] : {std::pair("wm_imagewidth", size.width()), {"wm_imageheight", size.height()}}) {
        const int row = rowOf(model, item);
        if (row != -1)
            model.setData(key, value, "Watermark", row);
    }
}

} // namespace

// NOLINTNEXTLINE(misc-no-recursion): once, at another size.
QImage Painter::paint(ZoEffectModel& model, int w, int h, bool honourIgnore)
{
    if (model.baseSize() != QSize(w, h)) {
        ZoEffectModel copy;
        copy = model;
        copy.adjustEffectInfo(w, h);
        Painter painter;
        QImage picture = painter.paint(copy, w, h, true);
        m_unreadable += painter.takeUnreadable();
        return picture;
    }

    const Item* typeNode = model.getDataItem("Watermark", -1);
    if (!typeNode || typeNode->checkState() != 2 || typeNode->childCount() == 0 || w <= 0 || h <= 0)
        return QImage();

    std::vector<QPointer<Item>> items;
    items.reserve(static_cast<std::size_t>(typeNode->childCount()));
    for (int row = 0; row < typeNode->childCount(); ++row)
        items.emplace_back(typeNode->child(row));

    QPixmap canvas(w, h);
    canvas.fill(QColor(0, 0, 0, 0));
    QPainter painter(&canvas);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    bool painted = false;
    for (auto it = items.rbegin(); it != items.rend(); ++it) {
        const QPointer<Item> item = *it;
        if (rowOf(model, item) == -1 || item->checkState() != 2)
            continue;
        if (!item->data("wm_istextwatermark").toBool()) {
            const QPixmap picture =
                image(item->data("wm_imageurl").toString(), item->data("wm_imageformat").toString());
            if (picture.isNull())
                continue;
            drawImage(painter, *item, picture);
            painted = true;
            continue;
        }
        if (honourIgnore && item->data("wm_ingnore").toBool())
            continue;
        if (item->data("wm_textcontent").toString().isEmpty())
            continue;
        const QSize measured = drawText(painter, *item, model.baseSize());
        if (!measured.isValid())
            continue;
        painted = true;
        store(model, item, measured);
    }
    painter.end();
    return painted ? comparable(canvas) : QImage();
}

int Painter::takeUnreadable()
{
    return std::exchange(m_unreadable, 0);
}

QPixmap Painter::image(const QString& path, const QString& format)
{
    const QString name = QDir::toNativeSeparators(path);
    if (m_images.contains(name))
        return m_images.value(name);
    QPixmap loaded;
    const QByteArray formatName = format.toLatin1();
    if (loaded.load(path, formatName.isEmpty() ? nullptr : formatName.constData()))
        m_images.insert(name, loaded);
    else
        ++m_unreadable;
    return loaded;
}

QImage comparable(const QPixmap& picture)
{
    return picture.isNull() ? QImage() : picture.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace stepbystep
