// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "zoeffectmodel.h"

#include <algorithm>
#include <utility>

#include <QImage>
#include <QPainter>
#include <QPointer>
#include <QScopedValueRollback>
#include <QVector>

#include "canvas_p.h"
#include "effectnames_p.h"
#include "nodevalues_p.h"
#include "qtcompat_p.h"
#include "treecheck_p.h"
#include "watermarkimages_p.h"
#include "watermarkstyle_p.h"

using nodevalues::flag;
using nodevalues::number;
using nodevalues::text;

namespace {

constexpr int opaque = 255;
constexpr int measureFlags = Qt::AlignLeft | Qt::AlignTop;
constexpr int drawFlags = Qt::AlignLeft | Qt::AlignVCenter;
/// Listeners may render at each stored size, one rendering inside the other. From this depth on a rendering
/// leaves the storing to those around it, which come to the same texts: the depth does not grow with them.
constexpr int deepestStoringRendering = 8;

using Watermark = QPointer<ZoEffectItemData>;

int alphaOf(const ZoEffectItemData& item)
{
    return watermarkstyle::alpha(number(item, keys::wmTransparency), item.data(keys::wmTransFactor));
}

/// Draws the image of \a item; false when it cannot be loaded.
bool paintImage(QPainter& painter, WatermarkImages& images, const ZoEffectItemData& item, OwnAlpha ownAlpha)
{
    const QByteArray format = text(item, keys::wmImageFormat).toLatin1();
    const QPixmap image = *images.load(text(item, keys::wmImageUrl), format.isEmpty() ? nullptr : format.constData());
    if (image.isNull())
        return false;

    const QPixmap shown = images.shown(image, alphaOf(item), ownAlpha);
    const QRectF target(number(item, keys::wmHPosition), number(item, keys::wmVPosition),
                        number(item, keys::wmImageWidth), number(item, keys::wmImageHeight));
    painter.drawPixmap(target, shown, QRectF(shown.rect()));
    return true;
}

/// Draws the text of \a item when any of it lies in the frame and answers its measured size, else an empty
/// one.
QSize paintText(QPainter& painter, const ZoEffectItemData& item, const QSize& frame)
{
    const QString content = text(item, keys::wmTextContent);
    if (content.isEmpty())
        return QSize();

    QColor color = qtcompat::colorFrom(item.data(keys::wmFontColor));
    color.setAlpha(std::clamp(alphaOf(item), 0, opaque));
    painter.setFont(watermarkstyle::font(item.data(keys::wmFontName), number(item, keys::wmFontSize),
                                         text(item, keys::wmFontStyle)));
    painter.setPen(color);

    const QSize size = painter.boundingRect(QRect(), measureFlags, content).size();
    const int left = number(item, keys::wmHPosition);
    const int top = number(item, keys::wmVPosition);
    const bool inFrame = left < frame.width() && top < frame.height() && qint64(left) + size.width() - 1 > 0
                         && qint64(top) + size.height() - 1 > 0;
    if (!inFrame)
        return QSize();
    painter.drawText(QRect(QPoint(left, top), size), drawFlags, content);
    return size;
}

/// Takes \a canvas over as an image with \a dotsPerInch; a null one, and \a canvas stays, for the screen's. A pixmap
/// always has the screen's resolution.
QImage takenWithResolution(QPixmap& canvas, int dotsPerInch)
{
    constexpr int largest = 2400;
    constexpr double metersPerInch = 0.0254;
    if (canvas.isNull() || dotsPerInch < 1 || dotsPerInch > largest)
        return QImage();
    QImage image = std::exchange(canvas, QPixmap()).toImage();
    image.setDotsPerMeterX(qRound(dotsPerInch / metersPerInch));
    image.setDotsPerMeterY(qRound(dotsPerInch / metersPerInch));
    return image;
}

QVector<Watermark> childrenOf(const ZoEffectItemData& typeNode)
{
    QVector<Watermark> children;
    children.reserve(typeNode.childCount());
    for (int row = 0; row < typeNode.childCount(); ++row)
        children.append(typeNode.child(row));
    return children;
}

/// The row of \a item under the type "Watermark" as it stands now, most likely still \a formerRow; -1 when it is
/// gone.
int currentRow(const ZoEffectModel& model, const Watermark& item, int formerRow)
{
    const ZoEffectItemData* typeNode = model.getDataItem(types::watermark, -1);
    if (!item || !typeNode)
        return -1;
    if (typeNode->child(formerRow) == item)
        return formerRow;
    for (int row = 0; row < typeNode->childCount(); ++row) {
        if (typeNode->child(row) == item)
            return row;
    }
    return -1;
}

/// Stores the size that a text was drawn with; nothing for one that was not. Listeners may delete the item
/// between the two values.
void storeMeasuredSize(ZoEffectModel& model, const Watermark& item, int formerRow, const QSize& size)
{
    if (!size.isValid())
        return;
    const int row = currentRow(model, item, formerRow);
    model.setData(keys::wmImageWidth, size.width(), types::watermark, row);
    const int rowByNow = currentRow(model, item, row);
    if (rowByNow != -1)
        model.setData(keys::wmImageHeight, size.height(), types::watermark, rowByNow);
}

} // namespace

// NOLINTNEXTLINE(misc-no-recursion): once, for the copy that has the size.
QPixmap ZoEffectModel::getWatermark(int w, int h, bool honourIgnore)
{
    const TreeCheck check(m_root);
    if (QSize(w, h) != baseSize()) {
        ZoEffectModel rescaled(*this);
        rescaled.m_images = m_images->forCopy();
        rescaled.adjustEffectInfo(w, h);
        // Deliberate: at another size "wm_ingnore" always counts.
        return rescaled.getWatermark(w, h, true);
    }

    const QScopedValueRollback<int> depth(m_renderings, m_renderings + 1);
    m_watermark = QPixmap();
    const ZoEffectItemData* typeNode = getDataItem(types::watermark, -1);
    if (!typeNode || typeNode->checkState() != Qt::Checked || typeNode->childCount() == 0)
        return m_watermark;

    QPixmap canvas = canvas::transparentCanvas(baseSize());
    QImage image = takenWithResolution(canvas, m_pictureOptions.textDotsPerInch);
    QPainter painter;
    if (!painter.begin(image.isNull() ? static_cast<QPaintDevice*>(&canvas) : &image))
        return m_watermark;
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);

    // Storing a measured size tells listeners, who may change the list. So the walk goes over the watermarks
    // that were there at its start, as far as they still are.
    bool painted = false;
    const OwnAlpha ownAlpha = m_pictureOptions.keepImageTransparency ? OwnAlpha::Kept : OwnAlpha::Replaced;
    const QVector<Watermark> items = childrenOf(*typeNode);
    for (int i = static_cast<int>(items.size()) - 1; i >= 0; --i) { // The first item is painted last, on top.
        const Watermark& item = items.at(i);
        if (currentRow(*this, item, i) == -1 || item->checkState() != Qt::Checked)
            continue;
        if (!flag(*item, keys::wmIsText)) {
            painted |= paintImage(painter, *m_images, *item, ownAlpha);
        } else if (!honourIgnore || !flag(*item, keys::wmIgnore)) {
            const QSize measured = paintText(painter, *item, baseSize());
            painted |= measured.isValid();
            if (m_renderings <= deepestStoringRendering)
                storeMeasuredSize(*this, item, i, measured);
        }
    }
    painter.end();

    if (painted)
        m_watermark = image.isNull() ? canvas : QPixmap::fromImage(std::move(image));
    return m_watermark;
}

void ZoEffectModel::setPictureOptions(const ZoPictureOptions& options)
{
    m_pictureOptions = options;
}

ZoPictureOptions ZoEffectModel::pictureOptions() const
{
    return m_pictureOptions;
}

QPixmap* ZoEffectModel::getImage(const QString& path, const char* format)
{
    return m_images->load(path, format);
}

void ZoEffectModel::forgetImage(const QString& path)
{
    m_images->forget(path);
}

void ZoEffectModel::forgetImages()
{
    m_images->forgetAll();
}
