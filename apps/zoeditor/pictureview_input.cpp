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
constexpr double pushStep = 60; // Pixels of the view for an arrow key: as a step of the wheel.

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

QRectF PictureView::splitArea() const
{
    constexpr double inside = 6; // The mark around it is seen at its ends, too.
    return {splitAt() - splitGrip, inside, 2 * splitGrip, height() - 2 * inside};
}

zokit::PreviewHandle PictureView::handleAt(const QPointF& point) const
{
    if (m_show == Show::Split && std::abs(point.x() - splitAt()) <= splitGrip)
        return handles().value(0);
    return m_show == Show::Before ? zokit::PreviewHandle() : zokit::handleAt(m_scene, m_view, point);
}

void PictureView::push(const QPointF& by)
{
    m_view = zokit::scrolled(m_view, by, margin);
    update();
    emit handlesChanged();
}

/// A picture that is larger than the view is pushed to where the handle that keys drag is seen.
void PictureView::showCurrentHandle()
{
    const zokit::PreviewHandle current = currentHandle();
    const QPointF middle = current.area.center();
    if (current.handle != zokit::Handle::None && !QRectF(rect()).contains(middle))
        push(QRectF(rect()).center() - middle);
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
    const zokit::PreviewHandle taken = handleAt(m_pressed);
    const bool isDrawing = event->modifiers().testFlag(Qt::ControlModifier) && !isSplit(taken);
    if (isDrawing || taken.handle == zokit::Handle::None) {
        m_press = Press::Draw; // Begins when the mouse has moved: a click cuts nothing off.
        return;
    }
    m_press = isSplit(taken) ? Press::Split : Press::Drag;
    setCurrentHandle(taken);
    if (m_press == Press::Drag)
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
        m_pressed = point;
        push(way);
        return;
    case Press::Split:
        setSplit(m_view.toFrame(point).x());
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
    const zokit::PreviewHandle below = handleAt(point);
    if (isSplit(below))
        return setCursor(Qt::SplitHCursor);
    setCursor(modifiers.testFlag(Qt::ControlModifier) ? Qt::CrossCursor : zokit::cursorOf(below.handle));
}

void PictureView::wheelEvent(QWheelEvent* event)
{
    const QPoint turned = event->angleDelta();
    if (event->modifiers().testFlag(Qt::ControlModifier) && turned.y() != 0) {
        zoomBy(turned.y() / wheelStep != 0 ? turned.y() / wheelStep : (turned.y() > 0 ? 1 : -1));
    } else {
        push(QPointF(turned) / 2);
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
    const Qt::KeyboardModifiers with = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (!by.isNull() && with == Qt::AltModifier && m_press == Press::None)
        return push(-QPointF(by) * pushStep); // To the right: more of the picture's right side is seen.
    if (by.isNull() || with != Qt::NoModifier || current.handle == zokit::Handle::None || m_press != Press::None)
        return QWidget::keyPressEvent(event);
    if (isSplit(current)) {
        step(current, by);
    } else {
        if (!m_drag.isActive())
            m_drag.begin(m_scene, current.thing, current.handle);
        m_drag.step(m_scene, by);
    }
    showCurrentHandle();
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
    showCurrentHandle();
    return true;
}

} // namespace zoeditor
