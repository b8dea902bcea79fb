// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>

#include <zokit/previewgeometry.h>

namespace zokit {
class FileSettings;
}

namespace zoeditor {

class Session;

/// What dragging on the picture does to the current file: from begin() to end() one step of the history, by mouse or by
/// a key that is held.
class PictureDrag : public QObject {
    Q_OBJECT

public:
    /// Edits what is current in \a session, which outlives it.
    explicit PictureDrag(Session& session, QObject* parent = nullptr);

    /// Takes \a handle of \a thing, in \a scene as it is now.
    void begin(const zokit::PreviewScene& scene, zokit::Identity thing, zokit::Handle handle);
    /// Draws a new crop from \a from on, a point of the frame.
    void beginDrawing(const zokit::PreviewScene& scene, const QPoint& from);
    /// Whether it has begun and not ended. Undo ends it, too.
    bool isActive() const;
    zokit::Identity thing() const { return m_drag.thing(); }
    /// Which handle is dragged; of a crop that is drawn the lower right one.
    zokit::Handle handle() const { return m_drag.handle(); }
    /// To \a by from where it began. The lines that it snapped to.
    QVector<zokit::SnapLine> drag(const QPoint& by, double reach);
    /// A step by a key, from where \a scene stands now; nothing snaps.
    void step(const zokit::PreviewScene& scene, const QPoint& by);
    void end();
    /// Takes back what was dragged.
    void cancel();

private:
    void open(const zokit::HandleDrag& drag);
    void apply(const QRect& place);

    Session& m_session;
    QPointer<zokit::FileSettings> m_file;
    zokit::HandleDrag m_drag;
};

} // namespace zoeditor
