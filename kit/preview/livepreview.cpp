// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/livepreview.h>

#include <QGuiApplication>
#include <QPointer>
#include <QStyleHints>

#include <zokit/filesettings.h>
#include <zokit/history.h>

namespace zokit {

namespace {

constexpr int margin = 12;      // Around the frame, in pixels of the view: handles can be seen and taken.
constexpr double snapReach = 8; // In pixels of the view.

QPoint nearestPixel(const QPointF& point)
{
    return {qRound(point.x()), qRound(point.y())};
}

} // namespace

class LivePreview::Private {
public:
    Private(LivePreview* preview, History& ofHistory, const Tools& tools)
        : q(preview), history(ofHistory), frames(tools)
    {
    }

    void updateScene();
    void updateView();
    void updateFrames();
    void letGo();

    LivePreview* q;
    History& history;
    ShownFrames frames;
    QPointer<FileSettings> file;
    WatermarkPictures pictures;
    Identity chosenThing = 0;
    PreviewScene scene;
    PreviewView view;
    PreviewFrames shown; ///< As the view shows them.
    qint64 wholeKey = 0; ///< Of what was scaled.
    QSize size;
    double devicePixels = 1;

    HandleDrag drag; ///< Of thing 0 while nothing is taken.
    QPointF pressed;
};

void LivePreview::Private::updateScene()
{
    const PreviewScene before = scene;
    scene = PreviewScene();
    if (file) {
        pictures.update(*file);
        scene = previewScene(*file, pictures);
        scene.chosen = chosenThing;
        if (drag.thing() != 0)
            scene.snapLines = before.snapLines;
    }
    if (scene.frame != before.frame)
        updateView();
    else
        emit q->changed(changedRegion(before, scene, view));
}

void LivePreview::Private::updateView()
{
    view = fitted(scene.frame, size, devicePixels, margin);
    wholeKey = 0;
    updateFrames();
    emit q->changed(QRect(QPoint(0, 0), size));
}

/// The view scales the whole frame once, not whenever it is painted.
void LivePreview::Private::updateFrames()
{
    const QImage whole = frames.whole();
    if (whole.cacheKey() != wholeKey) {
        wholeKey = whole.cacheKey();
        shown.whole = whole.isNull() ? QImage() : scaledFor(view, whole);
        emit q->changed(QRect(QPoint(0, 0), size));
    }
    const QImage output = frames.output();
    if (output.cacheKey() != shown.output.cacheKey()) {
        shown.output = output;
        emit q->changed(view.toView(QRectF(scene.crop)).toAlignedRect());
    }
}

void LivePreview::Private::letGo()
{
    drag = HandleDrag();
    updateScene(); // The lines that it snapped to go.
}

LivePreview::LivePreview(History& history, const Tools& tools, QObject* parent)
    : QObject(parent), d(std::make_unique<Private>(this, history, tools))
{
    connect(&d->frames, &ShownFrames::changed, this, [this] { d->updateFrames(); });
}

LivePreview::~LivePreview()
{
    if (isDragging())
        d->history.endGesture();
}

void LivePreview::setFile(FileSettings* file, const MediaInfo* media)
{
    release();
    if (d->file)
        d->file->disconnect(this);
    d->file = file;
    d->pictures = WatermarkPictures();
    if (file)
        connect(file, &FileSettings::changed, this, [this] { d->updateScene(); });
    d->frames.setFile(file, media);
    d->updateScene();
}

void LivePreview::choose(Identity thing)
{
    d->chosenThing = thing;
    d->updateScene();
}

ShownFrames& LivePreview::frames() const
{
    return d->frames;
}

void LivePreview::resize(const QSize& size, double devicePixels)
{
    d->size = size;
    d->devicePixels = devicePixels;
    d->updateView();
}

void LivePreview::paint(QPainter& painter) const
{
    paintPreview(painter, d->scene, d->view, d->shown);
}

PreviewScene LivePreview::scene() const
{
    return d->scene;
}

PreviewView LivePreview::view() const
{
    return d->view;
}

void LivePreview::press(const QPointF& point)
{
    release();
    if (!d->file || d->scene.frame.isEmpty())
        return;
    const PreviewHandle at = handleAt(d->scene, d->view, point);
    const bool isDrawing = at.handle == Handle::None;
    const Identity thing = isDrawing ? d->scene.cropThing : at.thing;
    choose(thing);
    emit chosen(thing);
    if (!d->file || !d->file->owns(thing))
        return; // A listener has shown another file.
    d->drag = isDrawing ? HandleDrag::drawing(*d->file, d->scene, nearestPixel(d->view.toFrame(point)))
                        : HandleDrag(*d->file, d->scene, thing, at.handle);
    d->pressed = point;
    d->history.beginGesture(d->drag.text());
}

void LivePreview::move(const QPointF& point, bool snaps)
{
    const Identity thing = d->drag.thing();
    if (!isDragging() || !d->file || !d->file->owns(thing))
        return;
    const QPointF way = point - d->pressed;
    const bool isClick = d->drag.isDrawing() && d->scene.crop == d->drag.startPlace()
                         && way.manhattanLength() < QGuiApplication::styleHints()->startDragDistance();
    if (isClick)
        return; // It cuts nothing off.
    const Dragged dragged = d->drag.to(nearestPixel(way / d->view.scale), snaps ? snapReach / d->view.scale : 0);
    const Message refusal = d->file->setValues(thing, d->drag.values(dragged.place), this);
    if (!refusal.isEmpty())
        emit refused(refusal);
    const PreviewScene before = d->scene;
    d->scene.snapLines = dragged.lines;
    emit changed(changedRegion(before, d->scene, d->view));
}

void LivePreview::release()
{
    if (!isDragging())
        return;
    d->letGo();
    d->history.endGesture();
}

void LivePreview::cancel()
{
    if (!isDragging())
        return;
    d->letGo();
    d->history.cancelGesture();
}

bool LivePreview::isDragging() const
{
    return d->drag.thing() != 0;
}

Qt::CursorShape LivePreview::cursor(const QPointF& point) const
{
    if (d->scene.frame.isEmpty())
        return Qt::ArrowCursor;
    return cursorOf(isDragging() ? d->drag.handle() : handleAt(d->scene, d->view, point).handle);
}

} // namespace zokit
