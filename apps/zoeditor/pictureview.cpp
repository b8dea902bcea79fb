// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "pictureview.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QAccessible>

#include <zokit/filesettings.h>
#include <zokit/graph.h>
#include <zokit/shownframes.h>

#include "pictureaccess.h"
#include "session.h"

// What is shown, and how it follows the file. What mouse and keys do is in pictureview_input.cpp, what is painted in
// pictureview_paint.cpp.

namespace zoeditor {

namespace {

constexpr double zoomStep = 1.25;

} // namespace

PictureView::PictureView(Session& session, zokit::ShownFrames& frames, QWidget* parent)
    : QWidget(parent), m_session(session), m_frames(frames), m_drag(session)
{
    PictureAccess::install(); // Before its name: that makes a screen reader ask for what it is.
    setObjectName(QStringLiteral("pictureView"));
    setAccessibleName(tr("Picture"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(&session, &Session::currentChanged, this, &PictureView::follow);
    connect(&session, &Session::thingChanged, this, &PictureView::updateScene);
    connect(&frames, &zokit::ShownFrames::changed, this, &PictureView::updateFrames);
    follow(session.current());
}

QSize PictureView::sizeHint() const
{
    return {640, 400};
}

QSize PictureView::minimumSizeHint() const
{
    return {240, 160};
}

void PictureView::follow(zokit::FileSettings* file)
{
    m_drag.end();
    m_press = Press::None;
    if (m_file)
        m_file->disconnect(this);
    m_file = file;
    m_pictures = zokit::WatermarkPictures();
    if (file)
        connect(file, &zokit::FileSettings::changed, this, &PictureView::updateScene);
    updateScene();
    updateFrames();
}

void PictureView::updateScene()
{
    const QRect oldNote = noteArea();
    zokit::PreviewScene scene;
    if (m_file) {
        m_pictures.update(*m_file);
        scene = zokit::previewScene(*m_file, m_pictures);
        scene.chosen = m_session.thing();
        if (m_drag.isActive())
            scene.snapLines = m_scene.snapLines;
    }
    const zokit::PreviewScene before = m_scene;
    m_scene = scene;
    if (scene.frame != before.frame) {
        updateView();
    } else {
        update(zokit::changedRegion(before, m_scene, m_view));
        update(oldNote | noteArea());
        update(loupeArea());
    }
    emit handlesChanged();
}

/// The frames as they are shown: the view scales each of them once.
void PictureView::updateFrames()
{
    const QImage whole = m_frames.whole();
    if (whole.cacheKey() != m_wholeKey) {
        m_wholeKey = whole.cacheKey();
        m_shown.whole = whole.isNull() ? QImage() : zokit::scaledFor(m_view, whole);
        update();
    }
    const QImage before = m_frames.before();
    if (before.cacheKey() != m_beforeKey) {
        m_beforeKey = before.cacheKey();
        m_shownBefore = before.isNull() ? QImage() : zokit::scaledFor(m_view, before);
        update();
    }
    const QImage output = m_frames.output();
    if (output.cacheKey() != m_shown.output.cacheKey()) {
        m_shown.output = output;
        update(m_view.toView(QRectF(m_scene.crop)).toAlignedRect());
        update(standInArea());
    }
}

void PictureView::updateView()
{
    if (m_zoom > 0 && m_view.frame == m_scene.frame && m_view.size == size()) {
        const QPointF middle = rect().center();
        m_view = zokit::zoomed(m_view, m_zoom, middle, margin);
    } else {
        m_view = zokit::fitted(m_scene.frame, size(), devicePixelRatioF(), margin);
        if (m_zoom > 0)
            m_view = zokit::zoomed(m_view, m_zoom, QPointF(rect().center()), margin);
    }
    m_wholeKey = m_beforeKey = 0;
    updateFrames();
    update();
    emit zoomChanged();
    emit handlesChanged();
}

void PictureView::setShow(Show show)
{
    m_show = show;
    m_drag.end();
    m_frames.setBeforeWanted(show != Show::After);
    update();
    emit handlesChanged();
}

void PictureView::setZoom(double zoom)
{
    m_zoom = zoom;
    updateView();
}

void PictureView::zoomBy(int steps)
{
    setZoom(m_view.zoom() * std::pow(zoomStep, steps));
}

QVector<zokit::PreviewHandle> PictureView::handles() const
{
    if (m_show == Show::Before)
        return {};
    QVector<zokit::PreviewHandle> all = zokit::previewHandles(m_scene, m_view);
    const auto rank = [this](const zokit::PreviewHandle& handle) {
        const auto mark = std::find_if(m_scene.marks.cbegin(), m_scene.marks.cend(),
                                       [&](const zokit::PreviewMark& each) { return each.thing == handle.thing; });
        const auto thing = handle.thing == m_scene.cropThing ? -1 : mark - m_scene.marks.cbegin();
        return std::make_pair(thing, handle.handle != zokit::Handle::Move);
    };
    std::stable_sort(all.begin(), all.end(),
                     [&](const auto& left, const auto& right) { return rank(left) < rank(right); });
    if (m_show == Show::Split && !m_scene.frame.isEmpty())
        all.prepend({0, zokit::Handle::Move, splitArea()});
    return all;
}

bool PictureView::isSplit(const zokit::PreviewHandle& handle)
{
    return handle.thing == 0 && handle.handle != zokit::Handle::None;
}

int PictureView::split() const
{
    return qRound(m_split * m_scene.frame.width());
}

void PictureView::setSplit(double at)
{
    m_split = std::clamp(at / std::max(m_scene.frame.width(), 1), 0.0, 1.0);
    update();
    emit handlesChanged();
}

zokit::PreviewHandle PictureView::currentHandle() const
{
    const QVector<zokit::PreviewHandle> all = handles();
    const auto found = std::find_if(all.cbegin(), all.cend(), [this](const zokit::PreviewHandle& each) {
        return each.thing == m_current.thing && each.handle == m_current.handle;
    });
    return found == all.cend() ? zokit::PreviewHandle() : *found;
}

void PictureView::setCurrentHandle(const zokit::PreviewHandle& handle)
{
    m_current = handle;
    if (handle.thing != 0)
        m_session.setThing(handle.thing);
    update();
    QAccessibleEvent focused(this, QAccessible::Focus);
    for (int row = 0; row < handles().size(); ++row) {
        if (handles().at(row).thing == handle.thing && handles().at(row).handle == handle.handle)
            focused.setChild(row);
    }
    if (hasFocus())
        QAccessible::updateAccessibility(&focused);
    emit handlesChanged();
}

void PictureView::step(const zokit::PreviewHandle& handle, const QPoint& by)
{
    if (isSplit(handle))
        return setSplit(split() + by.x());
    m_drag.begin(m_scene, handle.thing, handle.handle);
    m_drag.step(m_scene, by);
    m_drag.end();
}

QString PictureView::handleName(const zokit::PreviewHandle& handle) const
{
    if (isSplit(handle))
        return tr("Line between before and after");
    QString name = tr("Crop");
    for (int row = 0; row < m_scene.marks.size(); ++row) {
        if (m_scene.marks.at(row).thing == handle.thing)
            name = tr("Watermark %1").arg(row + 1);
    }
    switch (handle.handle) {
    case zokit::Handle::TopLeft:
        return tr("%1: upper left corner").arg(name);
    case zokit::Handle::Top:
        return tr("%1: upper edge").arg(name);
    case zokit::Handle::TopRight:
        return tr("%1: upper right corner").arg(name);
    case zokit::Handle::Right:
        return tr("%1: right edge").arg(name);
    case zokit::Handle::BottomRight:
        return tr("%1: lower right corner").arg(name);
    case zokit::Handle::Bottom:
        return tr("%1: lower edge").arg(name);
    case zokit::Handle::BottomLeft:
        return tr("%1: lower left corner").arg(name);
    case zokit::Handle::Left:
        return tr("%1: left edge").arg(name);
    case zokit::Handle::Move:
        return tr("%1: place").arg(name);
    case zokit::Handle::None:
        break;
    }
    return QString();
}

bool PictureView::isStandIn() const
{
    return m_file && !m_scene.frame.isEmpty() && m_show != Show::Before && m_shown.output.isNull();
}

void PictureView::setSnapLines(const QVector<zokit::SnapLine>& lines)
{
    const zokit::PreviewScene before = m_scene;
    m_scene.snapLines = lines;
    update(zokit::changedRegion(before, m_scene, m_view));
}

void PictureView::resizeEvent(QResizeEvent* /*event*/)
{
    updateView();
}

} // namespace zoeditor
