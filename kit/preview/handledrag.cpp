// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/previewgeometry.h>

#include <zokit/filesettings.h>
#include <zokit/properties.h>

#include "steptext_p.h"

namespace zokit {

HandleDrag::HandleDrag(const FileSettings& file, const PreviewScene& scene, Identity thing, Handle handle)
    : m_thing(thing), m_handle(handle), m_began(scene), m_values(file.values(thing)), m_rule(cropRule(file))
{
}

HandleDrag HandleDrag::drawing(const FileSettings& file, const PreviewScene& scene, const QPoint& from)
{
    HandleDrag drag(file, scene, scene.cropThing, Handle::BottomRight);
    drag.m_from = from;
    return drag;
}

Message HandleDrag::text() const
{
    const bool isCrop = m_thing == m_began.cropThing;
    return Message(Message::Code::StepChange,
                   isCrop ? QStringList{QStringLiteral("Crop")} : oneItemOf(QStringLiteral("Watermark")));
}

Dragged HandleDrag::to(const QPoint& by, double reach) const
{
    CropRule rule = m_rule;
    rule.even = rule.even && reach > 0; // Who suspends snapping means each pixel.
    return m_from ? drawnCrop(m_began, *m_from, *m_from + by, reach, rule)
                  : dragged(m_began, m_thing, m_handle, by, reach, rule);
}

Values HandleDrag::values(const QRect& place) const
{
    return m_thing == m_began.cropThing ? cropValues(place) : watermarkValues(m_values, m_handle, place, m_began.frame);
}

Qt::CursorShape cursorOf(Handle handle)
{
    switch (handle) {
    case Handle::TopLeft:
    case Handle::BottomRight:
        return Qt::SizeFDiagCursor;
    case Handle::TopRight:
    case Handle::BottomLeft:
        return Qt::SizeBDiagCursor;
    case Handle::Left:
    case Handle::Right:
        return Qt::SizeHorCursor;
    case Handle::Top:
    case Handle::Bottom:
        return Qt::SizeVerCursor;
    case Handle::Move:
        return Qt::SizeAllCursor;
    case Handle::None:
        break;
    }
    return Qt::CrossCursor;
}

} // namespace zokit
