// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokitquick/previewpicture.h>

#include <algorithm>
#include <cmath>

#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>

#include <zokit/filesettings.h>
#include <zokit/previewgeometry.h>
#include <zokit/probe.h>
#include <zokit/shownframes.h>
#include <zokit/tools.h>

namespace zokitquick {

class PreviewPicture::Private {
public:
    explicit Private(PreviewPicture* item) : q(item), tools(zokit::findTools()), frames(tools) {}

    void follow();
    bool isTrue() const;
    QImage standIn(const QSize& room);
    QImage picture(const QSize& room);

    PreviewPicture* q;
    zokit::Tools tools;
    zokit::ShownFrames frames;
    zokit::WatermarkPictures marks;
    QPointer<FileSettings> file;
    std::optional<double> wanted; ///< The moment that was set.
    Show show = After;
    qint64 formerBefore = 0; ///< The clip's frame of another moment.
    QImage composed;         ///< In pixels of the screen.
    QRectF rect;
    bool isNew = false; ///< composed is not on the screen yet.
};

void PreviewPicture::Private::follow()
{
    const bool isThere = file && file->settings();
    marks = zokit::WatermarkPictures();
    formerBefore = 0;
    frames.setFile(isThere ? file->settings() : nullptr, isThere ? file->media() : nullptr);
    if (isThere && wanted)
        frames.setSeconds(*wanted);
    q->polish();
}

bool PreviewPicture::Private::isTrue() const
{
    if (show == After)
        return !frames.output().isNull();
    return !frames.before().isNull() && frames.before().cacheKey() != formerBefore;
}

/// What is kept of the whole frame, with the watermarks of now: painted in no time. Until there is a whole frame, what
/// was shown last.
QImage PreviewPicture::Private::standIn(const QSize& room)
{
    const QImage whole = frames.whole();
    if (!file || !file->settings() || whole.isNull() || !frames.error().isEmpty())
        return frames.error().isEmpty() && file && file->settings() ? composed : QImage();
    marks.update(*file->settings());
    zokit::PreviewScene scene = zokit::previewScene(*file->settings(), marks);
    const QRect kept = scene.crop;
    if (kept.isEmpty())
        return QImage();
    scene.crop = QRect(QPoint(0, 0), scene.frame); // Nothing is outlined.
    QImage picture(kept.size().scaled(room, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)), QImage::Format_RGB32);
    zokit::PreviewView view;
    view.frame = scene.frame;
    view.size = picture.size();
    view.scale = double(picture.width()) / kept.width();
    view.offset = -QPointF(kept.topLeft()) * view.scale;
    zokit::PreviewLook look;
    look.withHandles = false;
    QPainter painter(&picture);
    zokit::paintPreview(painter, scene, view, {whole, QImage()}, look);
    return picture;
}

QImage PreviewPicture::Private::picture(const QSize& room)
{
    const QImage frame = show == Before ? frames.before() : frames.output();
    if (room.isEmpty() || (frame.isNull() && show == Before))
        return QImage();
    if (frame.isNull())
        return standIn(room);
    const QSize size = frame.size().scaled(room, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    return frame.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

PreviewPicture::PreviewPicture(QQuickItem* parent) : QQuickItem(parent), d(std::make_unique<Private>(this))
{
    setFlag(ItemHasContents);
    connect(this, &QQuickItem::widthChanged, this, &QQuickItem::polish);
    connect(this, &QQuickItem::heightChanged, this, &QQuickItem::polish);
    connect(&d->frames, &zokit::ShownFrames::secondsChanged, this, [this] {
        d->formerBefore = d->frames.before().cacheKey();
        emit timeChanged();
    });
    connect(&d->frames, &zokit::ShownFrames::changed, this, [this] {
        polish();
        emit pictureChanged();
    });
}

PreviewPicture::~PreviewPicture() = default;

FileSettings* PreviewPicture::file() const
{
    return d->file;
}

void PreviewPicture::setFile(FileSettings* file)
{
    if (file == d->file)
        return;
    if (d->file)
        d->file->disconnect(this);
    d->file = file;
    if (file) {
        connect(file, &FileSettings::settingsChanged, this, [this] { d->follow(); });
        connect(file, &QObject::destroyed, this, [this] {
            d->follow();
            emit fileChanged();
        });
    }
    d->follow();
    emit fileChanged();
}

double PreviewPicture::time() const
{
    return d->frames.seconds();
}

void PreviewPicture::setTime(double seconds)
{
    if (!std::isfinite(seconds))
        return;
    d->wanted = seconds;
    d->frames.setSeconds(seconds);
}

PreviewPicture::Show PreviewPicture::show() const
{
    return d->show;
}

void PreviewPicture::setShow(Show show)
{
    if (show == d->show)
        return;
    d->show = show;
    d->frames.setBeforeWanted(show == Before);
    polish();
    emit showChanged();
    emit pictureChanged();
}

bool PreviewPicture::isTrue() const
{
    return d->isTrue();
}

QString PreviewPicture::error() const
{
    return d->frames.error().text();
}

QStringList PreviewPicture::warnings() const
{
    QStringList sentences;
    for (const zokit::Message& warning : d->frames.warnings())
        sentences.append(warning.text());
    return sentences;
}

QRectF PreviewPicture::pictureRect() const
{
    return d->rect;
}

/// On the thread of the object, once for all that has changed since the last frame of the window.
void PreviewPicture::updatePolish()
{
    const double pixels = window() ? window()->effectiveDevicePixelRatio() : 1;
    const QSize room = (QSizeF(width(), height()) * pixels).toSize();
    d->composed = d->picture(room);
    d->isNew = true;
    QRectF rect;
    if (!d->composed.isNull()) {
        const QSize gap = (room - d->composed.size()) / 2;
        rect = QRectF(QPointF(gap.width(), gap.height()) / pixels, QSizeF(d->composed.size()) / pixels);
    }
    update();
    if (rect == d->rect)
        return;
    d->rect = rect;
    emit pictureRectChanged();
}

QSGNode* PreviewPicture::updatePaintNode(QSGNode* node, UpdatePaintNodeData* /*data*/)
{
    if (d->composed.isNull()) {
        delete node;
        return nullptr;
    }
    auto* image = dynamic_cast<QSGImageNode*>(node);
    if (!image) {
        image = window()->createImageNode();
        image->setOwnsTexture(true);
        image->setFiltering(QSGTexture::Linear);
        d->isNew = true;
    }
    if (d->isNew)
        image->setTexture(window()->createTextureFromImage(d->composed));
    d->isNew = false;
    image->setRect(d->rect);
    return image;
}

void PreviewPicture::itemChange(ItemChange change, const ItemChangeData& data)
{
    if (change == ItemDevicePixelRatioHasChanged)
        polish();
    QQuickItem::itemChange(change, data);
}

} // namespace zokitquick
