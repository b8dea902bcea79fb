// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "pictureview.h"

#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleHints>
#include <QWheelEvent>

#include "session.h"

namespace zoeditor {

namespace {

constexpr double snapReach = 8; // In pixels of the view.
constexpr double splitGrip = 6; // So near the split can be taken.
constexpr int wheelStep = 120;  // Eighths of a degree.

QPointF positionOf(const QMouseEvent& event)
{
#if QT_VERSION_MAJOR >= 6
    return event.position();
#else
    return event.localPos();
#endif
}

QPoint rounded(const QPointF& point)
{
    return {qRound(point.x()), qRound(point.y())};
}

} // namespace

double PictureView::splitAt() const
{
    return m_view.toView(QPointF(m_scene.frame.width() * m_split, 0)).x();
}

double PictureView::reach(Qt::KeyboardModifiers modifiers) const
{
    return modifiers.testFlag(Qt::AltModifier) ? 0 : snapReach / m_view.scale;
}

void PictureView::mousePressEvent(QMouseEvent* event)
{
    m_drag.end();
    m_press = Press::None;
    m_pressed = positionOf(*event);
    if (!m_file)
        return;
    if (event->button() == Qt::MiddleButton) {
        m_press = Press::Push;
        return;
    }
    if (event->button() != Qt::LeftButton || m_show == Show::Before)
        return;
    if (m_show == Show::Split && std::abs(m_pressed.x() - splitAt()) <= splitGrip) {
        m_press = Press::Split;
        return;
    }
    const zokit::PreviewHandle taken = event->modifiers().testFlag(Qt::ControlModifier)
                                           ? zokit::PreviewHandle()
                                           : zokit::handleAt(m_scene, m_view, m_pressed);
    if (taken.handle == zokit::Handle::None) {
        m_press = Press::Draw; // Begins when the mouse has moved: a click cuts nothing off.
        return;
    }
    m_press = Press::Drag;
    setCurrentHandle(taken);
    m_drag.begin(m_scene, taken.thing, taken.handle);
}

void PictureView::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF point = positionOf(*event);
    const QPointF way = point - m_pressed;
    switch (m_press) {
    case Press::None:
        showCursor(point, event->modifiers());
        return;
    case Press::Push:
        m_view = zokit::scrolled(m_view, way, margin);
        m_pressed = point;
        update();
        emit handlesChanged();
        return;
    case Press::Split:
        m_split = std::clamp(m_view.toFrame(point).x() / std::max(m_scene.frame.width(), 1), 0.0, 1.0);
        update();
        return;
    case Press::Draw:
        if (!m_drag.isActive()) {
            if (way.manhattanLength() < QApplication::startDragDistance())
                return;
            m_drag.beginDrawing(m_scene, rounded(m_view.toFrame(m_pressed)));
            m_session.setThing(m_scene.cropThing);
        }
        break;
    case Press::Drag:
        break;
    }
    setSnapLines(m_drag.drag(rounded(way / m_view.scale), reach(event->modifiers())));
}

void PictureView::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_press == Press::None)
        return;
    m_press = Press::None;
    m_drag.end();
    setSnapLines({});
    update(); // The loupe goes.
    showCursor(positionOf(*event), event->modifiers());
}

void PictureView::showCursor(const QPointF& point, Qt::KeyboardModifiers modifiers)
{
    if (!m_file || m_show == Show::Before)
        return setCursor(Qt::ArrowCursor);
    if (m_show == Show::Split && std::abs(point.x() - splitAt()) <= splitGrip)
        return setCursor(Qt::SplitHCursor);
    setCursor(modifiers.testFlag(Qt::ControlModifier)
                  ? Qt::CrossCursor
                  : zokit::cursorOf(zokit::handleAt(m_scene, m_view, point).handle));
}

void PictureView::wheelEvent(QWheelEvent* event)
{
    const QPoint turned = event->angleDelta();
    if (event->modifiers().testFlag(Qt::ControlModifier) && turned.y() != 0) {
        zoomBy(turned.y() / wheelStep != 0 ? turned.y() / wheelStep : (turned.y() > 0 ? 1 : -1));
    } else {
        m_view = zokit::scrolled(m_view, QPointF(turned) / 2, margin);
        update();
        emit handlesChanged();
    }
    event->accept();
}

void PictureView::keyPressEvent(QKeyEvent* event)
{
    const QPoint by = zokit::keyStep(event->key(), event->modifiers());
    if (event->key() == Qt::Key_Escape && m_drag.isActive()) {
        m_press = Press::None;
        m_drag.cancel();
        setSnapLines({});
        update();
        return;
    }
    const zokit::PreviewHandle current = currentHandle();
    if (by.isNull() || current.handle == zokit::Handle::None || m_press != Press::None)
        return QWidget::keyPressEvent(event);
    if (!m_drag.isActive())
        m_drag.begin(m_scene, current.thing, current.handle);
    m_drag.step(m_scene, by);
}

void PictureView::keyReleaseEvent(QKeyEvent* event)
{
    if (event->isAutoRepeat() || m_press != Press::None || zokit::keyStep(event->key(), Qt::NoModifier).isNull())
        return QWidget::keyReleaseEvent(event);
    m_drag.end();
    update();
}

void PictureView::focusOutEvent(QFocusEvent* event)
{
    if (m_press == Press::None)
        m_drag.end(); // The release of the key is another's.
    update();
    QWidget::focusOutEvent(event);
}

bool PictureView::focusNextPrevChild(bool next)
{
    const QVector<zokit::PreviewHandle> all = handles();
    const int count = static_cast<int>(all.size());
    int row = next ? 0 : count - 1;
    for (int each = 0; each < count; ++each) {
        if (all.at(each).thing == m_current.thing && all.at(each).handle == m_current.handle)
            row = each + (next ? 1 : -1);
    }
    m_drag.end();
    if (!hasFocus() || row < 0 || row >= count) {
        setCurrentHandle(zokit::PreviewHandle());
        return QWidget::focusNextPrevChild(next);
    }
    setCurrentHandle(all.at(row));
    return true;
}

} // namespace zoeditor
