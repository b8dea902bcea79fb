// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "pictures.h"

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

namespace {

constexpr int marksInARow = 4;
constexpr int margin = 24;
constexpr int catalogueFontSize = 22;
constexpr int drawFlags = Qt::AlignLeft | Qt::AlignVCenter;
constexpr int measureFlags = Qt::AlignLeft | Qt::AlignTop;

QImage paintedImage()
{
    QImage image(180, 100, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgba(x, y, 255 - x, 255));
    }
    return image;
}

QImage withAlpha(QImage image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            image.setPixel(x, y, qRgba(qRed(pixel), qGreen(pixel), qBlue(pixel), watermarkAlpha));
        }
    }
    return image;
}

QColor textColor()
{
    QColor color(Qt::white);
    color.setAlpha(watermarkAlpha);
    return color;
}

QSize measured(const QFont& font, const QString& text)
{
    QPixmap canvas(1, 1);
    QPainter painter(&canvas);
    painter.setFont(font);
    const QSize size = painter.fontMetrics().size(measureFlags, text);
    return painter.boundingRect(QRect(QPoint(0, 0), size), measureFlags, text).size();
}

} // namespace

std::vector<Mark> marksFor(int count, const QSize& frame)
{
    std::vector<Mark> marks;
    for (int i = 0; i < count; ++i) {
        const int left = margin + i % marksInARow * (frame.width() / marksInARow);
        const int top = margin + i / marksInARow * (frame.height() / marksInARow);
        marks.push_back(
            {i % 2 == 0, QStringLiteral("Watermark %1").arg(i), left, top, watermarkImage().size(), catalogueFontSize});
    }
    return marks;
}

std::vector<Mark> scaled(std::vector<Mark> marks, double factor)
{
    const auto times = [factor](int value) { return static_cast<int>(value * factor); };
    for (Mark& mark : marks) {
        mark.left = times(mark.left);
        mark.top = times(mark.top);
        mark.imageSize = QSize(times(mark.imageSize.width()), times(mark.imageSize.height()));
        mark.fontSize = times(mark.fontSize);
    }
    return marks;
}

const QImage& watermarkImage()
{
    static const QImage image = paintedImage();
    return image;
}

QString watermarkFile()
{
    static const QTemporaryDir folder;
    static const QString path = [] {
        QString file = folder.filePath(QStringLiteral("logo.png"));
        if (!watermarkImage().save(file, "png"))
            qFatal("the watermark's image cannot be written");
        return file;
    }();
    return path;
}

void fillWithMarks(ZoEffectModel& model, const std::vector<Mark>& marks, const QSize& frame)
{
    const QString type = QStringLiteral("Watermark");
    model.setVideoSize(frame.width(), frame.height());
    for (const Mark& mark : marks) {
        QMap<QString, QVariant> properties{{QStringLiteral("wm_istextwatermark"), mark.isText}};
        if (mark.isText) {
            properties.insert(QStringLiteral("wm_textcontent"), mark.text);
        } else {
            properties.insert(QStringLiteral("wm_imageurl"), watermarkFile());
            properties.insert(QStringLiteral("wm_imageformat"), QStringLiteral("png"));
            properties.insert(QStringLiteral("wm_imagewidth"), mark.imageSize.width());
            properties.insert(QStringLiteral("wm_imageheight"), mark.imageSize.height());
        }
        model.addDataItem(type, properties);
        const int pos = model.childCount(type) - 1;
        model.setData(QStringLiteral("wm_hposition"), mark.left, type, pos); // A new watermark makes way.
        model.setData(QStringLiteral("wm_vposition"), mark.top, type, pos);
    }
}

BarePainter::BarePainter(const std::vector<Mark>& marks, const QSize& frame)
    : m_frame(frame), m_image(QPixmap::fromImage(withAlpha(watermarkImage())))
{
    for (const Mark& mark : marks) {
        QFont font(QStringLiteral("Tahoma"), mark.fontSize, QFont::Normal, false);
        m_prepared.push_back({mark.isText, mark.text, font,
                              QRect(QPoint(mark.left, mark.top), measured(font, mark.text)),
                              QRectF(QPoint(mark.left, mark.top), mark.imageSize)});
    }
}

QPixmap BarePainter::paint() const
{
    static const QColor color = textColor();
    QPixmap canvas(m_frame);
    canvas.fill(QColor(0, 0, 0, 0));
    QPainter painter(&canvas);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    for (auto mark = m_prepared.rbegin(); mark != m_prepared.rend(); ++mark) { // The first one on top.
        if (mark->isText) {
            painter.setFont(mark->font);
            painter.setPen(color);
            painter.drawText(mark->textRect, drawFlags, mark->text);
        } else {
            painter.drawPixmap(mark->imageRect, m_image, QRectF(m_image.rect()));
        }
    }
    return canvas;
}

void BarePainter::moveFirst(int left)
{
    m_prepared.front().textRect.moveLeft(left);
}
