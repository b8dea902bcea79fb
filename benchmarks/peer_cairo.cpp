// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "peer_cairo.h"

#include <cstddef>
#include <cstring>

#include <QImage>

#include <pango/pangocairo.h>

namespace {

QImage pixelsWithAlpha()
{
    QImage image = watermarkImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            image.setPixel(x, y, qRgba(qRed(pixel), qGreen(pixel), qBlue(pixel), watermarkAlpha));
        }
    }
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// The alpha value at a place of \a picture.
int alphaAt(cairo_surface_t* picture, int x, int y)
{
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(picture);
    const unsigned char* line = cairo_image_surface_get_data(picture) + y * stride;
    QRgb pixel = 0;
    std::memcpy(&pixel, line + x * std::ptrdiff_t{sizeof(pixel)}, sizeof(pixel));
    return qAlpha(pixel);
}

bool hasInk(cairo_surface_t* picture, const QRect& area)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (alphaAt(picture, x, y) > 0)
                return true;
        }
    }
    return false;
}

} // namespace

CairoPainter::CairoPainter(const std::vector<Mark>& marks, const QSize& frame)
    : m_marks(marks)
    , m_frame(frame)
    , m_pixels(pixelsWithAlpha())
    , m_image(cairo_image_surface_create_for_data(m_pixels.bits(), CAIRO_FORMAT_ARGB32, m_pixels.width(),
                                                  m_pixels.height(), static_cast<int>(m_pixels.bytesPerLine())))
    , m_video(cairo_image_surface_create(CAIRO_FORMAT_RGB24, frame.width(), frame.height()))
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 1, 1);
    cairo_t* cairo = cairo_create(surface);
    for (const Mark& mark : marks) {
        PangoLayout* layout = nullptr;
        if (mark.isText) {
            layout = pango_cairo_create_layout(cairo);
            PangoFontDescription* font = pango_font_description_from_string("Tahoma");
            pango_font_description_set_size(font, mark.fontSize * PANGO_SCALE);
            pango_layout_set_font_description(layout, font);
            pango_layout_set_text(layout, mark.text.toUtf8().constData(), -1);
            pango_font_description_free(font);
        }
        m_layouts.push_back(layout);
    }
    cairo_destroy(cairo);
    cairo_surface_destroy(surface);
}

CairoPainter::~CairoPainter()
{
    for (PangoLayout* layout : m_layouts) {
        if (layout)
            g_object_unref(layout);
    }
    cairo_surface_destroy(m_image);
    cairo_surface_destroy(m_video);
}

cairo_surface_t* CairoPainter::paint() const
{
    cairo_surface_t* picture = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, m_frame.width(), m_frame.height());
    cairo_t* cairo = cairo_create(picture);
    for (std::size_t i = m_marks.size(); i-- > 0;) { // The first one on top.
        const Mark& mark = m_marks[i];
        if (mark.isText) {
            cairo_set_source_rgba(cairo, 1.0, 1.0, 1.0, watermarkAlpha / 255.0);
            cairo_move_to(cairo, mark.left, mark.top);
            pango_cairo_show_layout(cairo, m_layouts[i]);
        } else {
            cairo_set_source_surface(cairo, m_image, mark.left, mark.top);
            cairo_paint(cairo);
        }
    }
    cairo_destroy(cairo);
    cairo_surface_flush(picture);
    return picture;
}

void CairoPainter::show(cairo_surface_t* picture)
{
    cairo_t* cairo = cairo_create(m_video);
    cairo_set_source_surface(cairo, picture, 0.0, 0.0);
    cairo_paint(cairo);
    cairo_destroy(cairo);
    cairo_surface_flush(m_video);
}

bool CairoPainter::shows(cairo_surface_t* picture) const
{
    const QRect frame(QPoint(0, 0), m_frame);
    for (const Mark& mark : m_marks) {
        const QRect area = QRect(QPoint(mark.left, mark.top), mark.imageSize) & frame;
        if (mark.isText ? !hasInk(picture, area)
                        : alphaAt(picture, area.center().x(), area.center().y()) != watermarkAlpha)
            return false;
    }
    return alphaAt(picture, m_frame.width() - 1, m_frame.height() - 1) == 0;
}
