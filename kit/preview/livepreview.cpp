// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/livepreview.h>

#include <QGuiApplication>
#include <QPointer>
#include <QStyleHints>

#include <zokit/filesettings.h>
#include <zokit/history.h>
#include <zokit/properties.h>

namespace zokit {

namespace {

constexpr int margin = 12;      // Around the frame, in pixels of the view: handles can be seen and taken.
constexpr double snapReach = 8; // In pixels of the view.

QPoint rounded(const QPointF& point)
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
    Dragged draggedTo(const QPointF& point, double reach) const;
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

    // What is dragged, as everything was when it was taken.
    PreviewHandle taken; ///< Of thing 0 while nothing is.
    bool isDrawing = false;
    QPointF pressed;
    PreviewScene began;
    Values values;
    CropRule rule;
};

void LivePreview::Private::updateScene()
{
    const PreviewScene before = scene;
    scene = PreviewScene();
    if (file) {
        pictures.update(*file);
        scene = previewScene(*file, pictures);
        scene.chosen = chosenThing;
        if (taken.thing != 0)
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

Dragged LivePreview::Private::draggedTo(const QPointF& point, double reach) const
{
    const QPoint by = rounded((point - pressed) / view.scale);
    if (!isDrawing)
        return dragged(began, taken.thing, taken.handle, by, reach, rule);
    const QPoint from = rounded(view.toFrame(pressed));
    return drawnCrop(began, from, from + by, reach, rule);
}

void LivePreview::Private::letGo()
{
    taken = PreviewHandle();
    updateScene(); // The lines that it snapped to go.
}

LivePreview::LivePreview(History& history, const Tools& tools, QObject* parent)
    : QObject(parent), d(std::make_unique<Private>(this, history, tools))
{
    connect(&d->frames, &ShownFrames::changed, this, [this] { d->updateFrames(); });
}

LivePreview::~LivePreview() = default;

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
    PreviewHandle taken = handleAt(d->scene, d->view, point);
    d->isDrawing = taken.handle == Handle::None;
    if (d->isDrawing)
        taken = {d->scene.cropThing, Handle::BottomRight, QRectF()};
    choose(taken.thing);
    emit chosen(taken.thing);
    if (!d->file || !d->file->owns(taken.thing))
        return; // A listener has shown another file.
    d->taken = taken;
    d->pressed = point;
    d->began = d->scene;
    d->values = d->file->values(taken.thing);
    d->rule = cropRule(*d->file);
    const bool isCrop = taken.thing == d->scene.cropThing;
    d->history.beginGesture(Message(Message::Code::StepChange,
                                    {displayName(isCrop ? QStringLiteral("Crop") : QStringLiteral("Watermark"))}));
}

void LivePreview::move(const QPointF& point, bool snaps)
{
    if (!isDragging() || !d->file || !d->file->owns(d->taken.thing))
        return;
    const bool isClick = d->isDrawing && d->scene.crop == d->began.crop
                         && (point - d->pressed).manhattanLength() < QGuiApplication::styleHints()->startDragDistance();
    if (isClick)
        return; // It cuts nothing off.
    const Dragged dragged = d->draggedTo(point, snaps ? snapReach / d->view.scale : 0);
    const bool isCrop = d->taken.thing == d->began.cropThing;
    const Message refusal = d->file->setValues(
        d->taken.thing,
        isCrop ? cropValues(dragged.place) : watermarkValues(d->values, d->taken.handle, dragged.place, d->began.frame),
        this);
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
    return d->taken.thing != 0;
}

Qt::CursorShape LivePreview::cursor(const QPointF& point) const
{
    if (d->scene.frame.isEmpty())
        return Qt::ArrowCursor;
    switch (isDragging() ? d->taken.handle : handleAt(d->scene, d->view, point).handle) {
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
