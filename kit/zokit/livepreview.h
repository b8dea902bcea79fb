// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QObject>
#include <QRegion>

#include <zokit/changes.h>
#include <zokit/message.h>
#include <zokit/previewgeometry.h>
#include <zokit/shownframes.h>
#include <zokit/zokit_export.h>

class QPainter;

namespace zokit {

class FileSettings;
class History;

/// A preview that is edited by hand, for a view of any kind: the view hands on its size and its mouse, and paints when
/// it is told to. Points are in its logical pixels, as mouse events tell them. A drag is one step of the history. To be
/// used on the main thread, with a QGuiApplication.
class ZOKIT_EXPORT LivePreview : public QObject {
    Q_OBJECT

public:
    /// Without a file and of no size. Both outlive it; \a tools says which ffmpeg makes the frames.
    LivePreview(History& history, const Tools& tools, QObject* parent = nullptr);
    /// What runs is ended, and so is a drag.
    ~LivePreview() override;

    /// Shows \a file, which is one of the history's project and may be deleted, and of which \a media, which is copied,
    /// tells the clip: null where nothing is known of it, then there are no frames. Null: nothing is shown. A drag
    /// ends.
    void setFile(FileSettings* file, const MediaInfo* media);
    /// The handles of \a thing, the type "Crop" or a watermark, come first; of another one none do.
    void choose(Identity thing);
    /// The moment that is shown, errors and warnings. Lives as long as this.
    ShownFrames& frames() const;

    /// The view has \a size now, and \a devicePixels pixels of the screen for one of its own along a side.
    void resize(const QSize& size, double devicePixels);
    /// Paints all of it, as far as the clip of \a painter reaches.
    void paint(QPainter& painter) const;
    PreviewScene scene() const; ///< What is shown.
    PreviewView view() const;   ///< Where it lies.

    /// Takes what is at \a point; beside everything a new crop begins, which comes to be when the mouse has moved.
    void press(const QPointF& point);
    /// Drags what was taken to \a point, snapping to what is near if \a snaps; nothing happens when nothing was taken.
    void move(const QPointF& point, bool snaps = true);
    /// Lets go.
    void release();
    /// Takes back what was dragged, and lets go.
    void cancel();
    /// Whether something was taken and is not let go.
    bool isDragging() const;
    /// The mouse pointer that says what a press at \a point would take; an arrow without a picture.
    Qt::CursorShape cursor(const QPointF& point) const;

Q_SIGNALS:
    /// \a region of the view is to be painted again.
    void changed(const QRegion& region);
    /// \a thing was taken; its handles come first from now on.
    void chosen(quint64 thing);
    /// A drag was refused by the settings: \a why is to be shown.
    void refused(const zokit::Message& why);

private:
    class ZOKIT_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokit
