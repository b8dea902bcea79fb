// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "picturedrag.h"

#include <zokit/filesettings.h>
#include <zokit/history.h>
#include <zokit/properties.h>

#include "session.h"

namespace zoeditor {

PictureDrag::PictureDrag(Session& session, QObject* parent) : QObject(parent), m_session(session) {}

void PictureDrag::open(const zokit::PreviewScene& scene, zokit::Identity thing, zokit::Handle handle)
{
    end();
    m_file = m_session.current();
    if (!m_file || !scene.place(thing).isValid())
        return;
    m_scene = scene;
    m_thing = thing;
    m_handle = handle;
    m_rule = zokit::cropRule(*m_file);
    m_values = m_file->values(thing);
    const QString name = thing == scene.cropThing ? QStringLiteral("Crop") : QStringLiteral("Watermark");
    m_session.beginGesture(this, zokit::Message(zokit::Message::Code::StepChange, {zokit::displayName(name)}));
}

bool PictureDrag::isActive() const
{
    return m_handle != zokit::Handle::None && m_session.isInGesture();
}

void PictureDrag::begin(const zokit::PreviewScene& scene, zokit::Identity thing, zokit::Handle handle)
{
    m_isDrawing = false;
    open(scene, thing, handle);
}

void PictureDrag::beginDrawing(const zokit::PreviewScene& scene, const QPoint& from)
{
    m_isDrawing = true;
    m_from = from;
    open(scene, scene.cropThing, zokit::Handle::BottomRight);
}

QVector<zokit::SnapLine> PictureDrag::drag(const QPoint& by, double reach)
{
    if (!isActive())
        return {};
    const zokit::Dragged dragged = m_isDrawing ? zokit::drawnCrop(m_scene, m_from, m_from + by, reach, m_rule)
                                               : zokit::dragged(m_scene, m_thing, m_handle, by, reach, m_rule);
    apply(dragged.place);
    return dragged.lines;
}

void PictureDrag::step(const zokit::PreviewScene& scene, const QPoint& by)
{
    if (!isActive() || !m_file)
        return;
    m_scene = scene;
    m_values = m_file->values(m_thing);
    apply(zokit::dragged(scene, m_thing, m_handle, by, 0, m_rule).place);
}

void PictureDrag::apply(const QRect& place)
{
    if (!m_file || !m_file->owns(m_thing))
        return;
    const zokit::Values values = m_thing == m_scene.cropThing
                                     ? zokit::cropValues(place)
                                     : zokit::watermarkValues(m_values, m_handle, place, m_scene.frame);
    m_session.take(m_file->setValues(m_thing, values, this));
}

void PictureDrag::end()
{
    m_handle = zokit::Handle::None;
    m_session.endGesture(this);
}

void PictureDrag::cancel()
{
    if (!isActive())
        return;
    m_handle = zokit::Handle::None;
    m_session.history().cancelGesture();
    m_session.endGesture(this);
}

} // namespace zoeditor
