// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include <zokit/previewgeometry.h>

#include "picturedrag.h"

namespace zokit {
class ShownFrames;
}

namespace zoeditor {

class Session;

/// The picture of the current file: crop and watermarks can be dragged on it, by mouse and by keys.
///
/// Mouse: what is pressed is dragged; beside it, or with Ctrl anywhere, a new crop is drawn; Alt suspends snapping; the
/// middle button pushes the picture, the wheel with Ctrl zooms.
/// Keys: Tab goes from handle to handle, arrows drag the one that is marked by a pixel, with Shift by 10, Escape takes
/// a drag back. A held key is one step of the history. Arrows with Alt push a picture that is larger than the view.
class PictureView : public QWidget {
    Q_OBJECT

public:
    /// What is shown of before and after.
    enum class Show { After, Before, Split };

    /// Shows what is current in \a session by \a frames; both outlive it.
    PictureView(Session& session, zokit::ShownFrames& frames, QWidget* parent = nullptr);

    void setShow(Show show);
    Show show() const { return m_show; }
    /// Pixels of the screen for one of the frame; 0: as large as fits, also when the size changes.
    void setZoom(double zoom);
    /// The zoom as it is.
    double zoom() const { return m_view.zoom(); }
    /// One step larger or smaller.
    void zoomBy(int steps);

    const zokit::PreviewScene& scene() const { return m_scene; }
    const zokit::PreviewView& view() const { return m_view; }
    /// The handles of the moment, as keys go through them: the line between before and after, those of the crop, then
    /// of each watermark, its place first.
    QVector<zokit::PreviewHandle> handles() const;
    /// The handle that a press there takes; none where a new crop is drawn.
    zokit::PreviewHandle handleAt(const QPointF& point) const;
    /// Whether it is the line between before and after: no thing's, and no setting.
    static bool isSplit(const zokit::PreviewHandle& handle);
    /// Where that line stands in the frame.
    int split() const;
    /// The handle that keys drag; none as long as none was taken, or when it is gone.
    zokit::PreviewHandle currentHandle() const;
    void setCurrentHandle(const zokit::PreviewHandle& handle);
    /// Drags a handle as an arrow key would, as a step of its own where it is a setting.
    void step(const zokit::PreviewHandle& handle, const QPoint& by);
    /// What a handle is called.
    QString handleName(const zokit::PreviewHandle& handle) const;
    /// Whether what is shown is not what comes out, but painted quickly meanwhile.
    bool isStandIn() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void zoomChanged();
    /// Other handles, other places of them, or another one is current.
    void handlesChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    static constexpr int margin = 12; ///< Around the frame, in pixels: handles at its edges can be seen and taken.

    void follow(zokit::FileSettings* file);
    void updateScene();
    void updateFrames();
    void updateView();
    void setSnapLines(const QVector<zokit::SnapLine>& lines);
    void showCursor(const QPointF& point, Qt::KeyboardModifiers modifiers);
    double splitAt() const;
    void setSplit(double at);
    QRectF splitArea() const;
    void push(const QPointF& by);
    void showCurrentHandle();
    double reach(Qt::KeyboardModifiers modifiers) const;
    void paintBefore(QPainter& painter, const QRect& part);
    void paintNotes(QPainter& painter);
    void paintLoupe(QPainter& painter);
    QString sizeText() const;
    QRect noteArea() const;
    QRect standInArea() const;
    QRect loupeArea() const;

    Session& m_session;
    zokit::ShownFrames& m_frames;
    PictureDrag m_drag;
    QPointer<zokit::FileSettings> m_file;
    zokit::WatermarkPictures m_pictures;
    zokit::PreviewScene m_scene;
    zokit::PreviewView m_view;
    zokit::PreviewFrames m_shown; ///< Scaled for the view.
    QImage m_shownBefore;         ///< As above.
    qint64 m_wholeKey = 0;        ///< Of what was scaled.
    qint64 m_beforeKey = 0;
    Show m_show = Show::After;
    double m_zoom = 0;
    double m_split = 0.5; ///< Of the frame's width.
    zokit::PreviewHandle m_current;
    QPointF m_pressed;
    enum class Press { None, Drag, Draw, Push, Split } m_press = Press::None;
};

} // namespace zoeditor
