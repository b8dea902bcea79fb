// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include <cairo.h>
#include <pango/pango.h>

#include "pictures.h"

/// The peer Cairo with Pango: paints the marks on an image surface, with layouts and the image made in advance.
class CairoPainter {
public:
    CairoPainter(const std::vector<Mark>& marks, const QSize& frame);
    ~CairoPainter();
    CairoPainter(const CairoPainter&) = delete;
    CairoPainter& operator=(const CairoPainter&) = delete;

    /// The picture, to be destroyed by the caller.
    cairo_surface_t* paint() const;
    /// Lays \a picture over a frame of video.
    void show(cairo_surface_t* picture);
    void moveFirst(int left) { m_marks.front().left = left; }
    /// Whether \a picture shows the marks: opaque enough in the middle of each image, anything where a text is,
    /// and nothing in the last corner.
    bool shows(cairo_surface_t* picture) const;

private:
    std::vector<Mark> m_marks;
    std::vector<PangoLayout*> m_layouts; ///< Of each mark, null for images.
    QSize m_frame;
    QImage m_pixels; ///< Those of m_image.
    cairo_surface_t* m_image;
    cairo_surface_t* m_video;
};
