// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtWidgets>

#include <zokit/livepreview.h>

/// The picture as it comes out, with crop and watermarks to be dragged: the kit's preview in a widget.
class Preview : public QWidget {
public:
    explicit Preview(zokit::LivePreview& preview) : m_preview(preview)
    {
        setMinimumSize(240, 160);
        setFocusPolicy(Qt::ClickFocus);
        setMouseTracking(true);
        connect(&preview, &zokit::LivePreview::changed, this, QOverload<const QRegion&>::of(&QWidget::update));
        auto* escape = new QShortcut(Qt::Key_Escape, this, nullptr, nullptr, Qt::WidgetShortcut);
        connect(escape, &QShortcut::activated, &preview, &zokit::LivePreview::cancel);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        m_preview.paint(painter);
    }
    void resizeEvent(QResizeEvent*) override { m_preview.resize(size(), devicePixelRatioF()); }
    void mousePressEvent(QMouseEvent* event) override { m_preview.press(event->pos()); }
    void mouseMoveEvent(QMouseEvent* event) override
    {
        m_preview.move(event->pos());
        setCursor(m_preview.cursor(event->pos()));
    }
    void mouseReleaseEvent(QMouseEvent*) override { m_preview.release(); }

private:
    zokit::LivePreview& m_preview;
};
