// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "picturedrag.h"

#include <zokit/filesettings.h>
#include <zokit/history.h>

#include "session.h"

namespace zoeditor {

using zokit::HandleDrag;

PictureDrag::PictureDrag(Session& session, QObject* parent) : QObject(parent), m_session(session) {}

void PictureDrag::open(const HandleDrag& drag)
{
    m_drag = drag;
    m_session.beginGesture(this, drag.text());
}

bool PictureDrag::isActive() const
{
    return m_drag.handle() != zokit::Handle::None && m_session.isInGesture();
}

void PictureDrag::begin(const zokit::PreviewScene& scene, zokit::Identity thing, zokit::Handle handle)
{
    end();
    m_file = m_session.current();
    if (m_file && scene.place(thing).isValid())
        open(HandleDrag(*m_file, scene, thing, handle));
}

void PictureDrag::beginDrawing(const zokit::PreviewScene& scene, const QPoint& from)
{
    end();
    m_file = m_session.current();
    if (m_file && scene.place(scene.cropThing).isValid())
        open(HandleDrag::drawing(*m_file, scene, from));
}

QVector<zokit::SnapLine> PictureDrag::drag(const QPoint& by, double reach)
{
    if (!isActive())
        return {};
    const zokit::Dragged dragged = m_drag.to(by, reach);
    apply(dragged.place);
    return dragged.lines;
}

void PictureDrag::step(const zokit::PreviewScene& scene, const QPoint& by)
{
    if (!isActive() || !m_file)
        return;
    m_drag = HandleDrag(*m_file, scene, m_drag.thing(), m_drag.handle());
    apply(m_drag.to(by, 0).place);
}

void PictureDrag::apply(const QRect& place)
{
    if (m_file && m_file->owns(m_drag.thing()))
        m_session.take(m_file->setValues(m_drag.thing(), m_drag.values(place), this));
}

void PictureDrag::end()
{
    m_drag = HandleDrag();
    m_session.endGesture(this);
}

void PictureDrag::cancel()
{
    if (!isActive())
        return;
    m_drag = HandleDrag();
    m_session.history().cancelGesture();
    m_session.endGesture(this);
}

} // namespace zoeditor
