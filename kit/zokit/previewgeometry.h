// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QColor>
#include <QImage>
#include <QMap>
#include <QPointF>
#include <QRect>
#include <QRegion>
#include <QVector>

#include <zokit/changes.h>
#include <zokit/message.h>
#include <zokit/placement.h>
#include <zokit/settings.h>
#include <zokit/zokit_export.h>

class QPainter;

namespace zokit {

class FileSettings;

/// Where a frame lies in a view: plain values. Points of a view are in its logical pixels, as mouse events tell them;
/// points of a frame in pixels of baseFrame(), where a pixel reaches from its number to the next.
struct ZOKIT_EXPORT PreviewView {
    QSize frame;             ///< baseFrame() of the settings.
    QSize size;              ///< Of the view.
    double scale = 1;        ///< Pixels of the view for a pixel of the frame.
    QPointF offset;          ///< The frame's upper left corner in the view.
    double devicePixels = 1; ///< Pixels of the screen for one of the view, along a side.
    bool isSmoothed = true;  ///< Whether magnified pixels are blended; not so while an edge is dragged.

    double zoom() const;                          ///< Pixels of the screen for one of the frame: 1 is 100 %.
    QPointF toView(const QPointF& inFrame) const; ///< Where a point of the frame is shown.
    QRectF toView(const QRectF& inFrame) const;   ///< As above.
    QPointF toFrame(const QPointF& inView) const; ///< Which point of the frame is shown there.
};
/// The whole frame, as large as it gets in \a size with \a margin pixels of the view around it, in the middle.
ZOKIT_EXPORT PreviewView fitted(const QSize& frame, const QSize& size, double devicePixels, int margin);
/// \a view with another zoom (1/16 to 32), the point of the frame under \a kept staying there as far as it can: a frame
/// that is smaller than the view, with \a margin around it, lies in the middle, a larger one leaves no gap.
ZOKIT_EXPORT PreviewView zoomed(const PreviewView& view, double zoom, const QPointF& kept, int margin);
/// \a view with the frame pushed by \a by pixels of the view, as far as it can; \a margin as above.
ZOKIT_EXPORT PreviewView scrolled(const PreviewView& view, const QPointF& by, int margin);

/// What each selected watermark looks like by itself, drawn again only when its look has changed: not when it is
/// moved, which is what a drag does most. One file's; not shared. Takes a QGuiApplication.
class ZOKIT_EXPORT WatermarkPictures {
public:
    /// Draws what \a file shows now; those that are gone or not selected are let go.
    void update(const FileSettings& file);
    /// Null for a watermark that draws nothing.
    QImage picture(Identity watermark) const;

private:
    struct Drawn {
        Values look; ///< From which it was drawn.
        QImage picture;
    };
    QMap<Identity, Drawn> m_drawn;
};

/// A watermark in a preview.
struct ZOKIT_EXPORT PreviewMark {
    Identity thing = 0;     ///< The item.
    QRect place;            ///< In the frame.
    QImage picture;         ///< Of the same size.
    bool keepsShape = true; ///< While it is sized; always of a text.
};

/// A line that something was snapped to.
struct ZOKIT_EXPORT SnapLine {
    Qt::Orientation orientation = Qt::Vertical; ///< Of the line itself.
    double at = 0;                              ///< In the frame, from the left or from above.
};

/// What a preview shows: plain values, made anew at each change.
struct ZOKIT_EXPORT PreviewScene {
    QSize frame;                 ///< baseFrame().
    Identity cropThing = 0;      ///< Effect type "Crop".
    QRect crop;                  ///< What is kept: the whole frame when nothing is cut off.
    QVector<PreviewMark> marks;  ///< The first one on top.
    Identity chosen = 0;         ///< Whose handles come first; cropThing, a watermark, or 0.
    QVector<SnapLine> snapLines; ///< To be shown.

    /// Where \a thing is; invalid when it is not in the scene.
    QRect place(Identity thing) const;
};
/// What \a file shows now, with \a pictures, which are up to date. Nothing chosen, no lines.
ZOKIT_EXPORT PreviewScene previewScene(const FileSettings& file, const WatermarkPictures& pictures);

/// Parts of a rectangle that can be dragged.
enum class Handle { None, TopLeft, Top, TopRight, Right, BottomRight, Bottom, BottomLeft, Left, Move };

/// A handle in a view.
struct ZOKIT_EXPORT PreviewHandle {
    Identity thing = 0;           ///< cropThing, or a watermark; 0: none.
    Handle handle = Handle::None; ///< Which one.
    QRectF area;                  ///< In the view: a square, or for Move the whole rectangle.
};
/// All handles, in the order in which the mouse meets them: those that size what is chosen, those that size the crop,
/// watermarks from the top, the crop as a whole. The crop has eight and Move (none while nothing is cut off: nothing
/// could be moved), a watermark its corners, while it is chosen, and Move.
ZOKIT_EXPORT QVector<PreviewHandle> previewHandles(const PreviewScene& scene, const PreviewView& view);
/// What a press at \a point of the view takes; edges of the crop along their whole length. None elsewhere: there a new
/// rectangle can be drawn.
ZOKIT_EXPORT PreviewHandle handleAt(const PreviewScene& scene, const PreviewView& view, const QPointF& point);

/// What the crop of \a file keeps to while it is dragged: shape and smallest size, as its values say, and even sides,
/// but where the pixel format of the output is one that takes odd ones.
ZOKIT_EXPORT CropRule cropRule(const FileSettings& file);

/// What a drag makes of a rectangle.
struct ZOKIT_EXPORT Dragged {
    QRect place;             ///< In the frame.
    QVector<SnapLine> lines; ///< What it snapped to.
};
/// \a scene's rectangle of \a thing when \a handle is dragged by \a by pixels of the frame, measured from where the
/// drag began, as \a scene is. Edges that are within \a reach, pixels of the frame, of an edge or the middle of the
/// frame, to the usual margin (of watermarks), to the crop or to another watermark, snap to it; 0 suspends that. A crop
/// keeps to \a rule and to the frame, and the opposite corner or edge stays. A watermark keeps its shape where it has
/// to, is at least 8 pixels large, and 8 pixels of it stay in the frame.
ZOKIT_EXPORT Dragged dragged(const PreviewScene& scene, Identity thing, Handle handle, const QPoint& by, double reach,
                             const CropRule& rule = CropRule());
/// A crop that is drawn anew from \a from to \a to, points of the frame; otherwise as above.
ZOKIT_EXPORT Dragged drawnCrop(const PreviewScene& scene, const QPoint& from, const QPoint& to, double reach,
                               const CropRule& rule = CropRule());
/// By how much an arrow key drags: 1 pixel of the frame, with Shift 10; null for another key.
ZOKIT_EXPORT QPoint keyStep(int key, Qt::KeyboardModifiers modifiers);

/// For FileSettings::setValues() of the type "Crop".
ZOKIT_EXPORT Values cropValues(const QRect& crop);
/// For FileSettings::setValues() of a watermark with \a present values whose \a handle was dragged to \a place. An
/// image takes the size. A text takes the font size that comes nearest, and the opposite corner stays: what comes out
/// may differ from \a place. Takes a QGuiApplication for that.
///
/// People drag a logo into a corner and mean the corner. So a watermark that comes to stand in a corner, in the middle
/// of an edge, or in the middle of the frame, flush or with the usual margin of 2 %, is anchored there; anywhere else
/// it loses the anchor that it had. An anchor that says a size keeps saying one: that of an image follows, that of a
/// text goes when the text is sized.
ZOKIT_EXPORT Values watermarkValues(const Values& present, Handle handle, const QRect& place, const QSize& frame);
/// The anchor that a watermark at \a place has by standing there; nothing elsewhere.
ZOKIT_EXPORT std::optional<Anchor> anchorAt(const QRect& place, const QSize& frame);

/// A handle that is dragged by hand, with everything as it was when it was taken.
class ZOKIT_EXPORT HandleDrag {
public:
    HandleDrag() = default; ///< Of no handle.
    /// Of \a handle of \a thing, the type "Crop" or a watermark of \a file, in \a scene, which is that file's.
    HandleDrag(const FileSettings& file, const PreviewScene& scene, Identity thing, Handle handle);
    /// Of the lower right corner of a crop that is drawn anew from \a from on, a point of the frame.
    static HandleDrag drawing(const FileSettings& file, const PreviewScene& scene, const QPoint& from);

    Identity thing() const { return m_thing; }                  ///< 0 when none was taken.
    Handle handle() const { return m_handle; }                  ///< As above, Handle::None.
    bool isDrawing() const { return m_from.has_value(); }       ///< Whether the crop is drawn anew.
    QRect startPlace() const { return m_began.place(m_thing); } ///< Where \a thing was.
    Message text() const;                                       ///< For History::beginGesture().
    /// As dragged() or drawnCrop(), by \a by from where it was taken; a crop keeps to cropRule() as it was, with \a
    /// reach 0 odd sides, too.
    Dragged to(const QPoint& by, double reach) const;
    /// For FileSettings::setValues() of thing(), which is to be at \a place.
    Values values(const QRect& place) const;

private:
    Identity m_thing = 0;
    Handle m_handle = Handle::None;
    PreviewScene m_began;
    Values m_values; ///< Of a watermark.
    CropRule m_rule;
    std::optional<QPoint> m_from; ///< Of a crop that is drawn.
};

/// The mouse pointer that says what \a handle does; a cross for none: a new crop is drawn there.
ZOKIT_EXPORT Qt::CursorShape cursorOf(Handle handle);

/// How a preview looks.
struct ZOKIT_EXPORT PreviewLook {
    // NOLINTBEGIN(readability-magic-numbers): colours.
    QColor surround{0x8c, 0x8c, 0x8c};      ///< Around the frame, checkered: never to be taken for black bars.
    QColor otherSurround{0x78, 0x78, 0x78}; ///< The other squares.
    // NOLINTEND(readability-magic-numbers)
    bool withHandles = true; ///< Handles, and frames around watermarks.
};
/// What is painted on.
struct ZOKIT_EXPORT PreviewFrames {
    QImage whole;  ///< FrameKind::Whole, of any size. Where the view shows it in another one, scaledFor() is quicker.
    QImage output; ///< FrameKind::After, shown where it is kept; null: a stand-in out of the others is.
};
/// Paints surround, frame, what is dimmed, watermarks, handles and lines, as far as \a painter's clip reaches: give it
/// that of the event.
ZOKIT_EXPORT void paintPreview(QPainter& painter, const PreviewScene& scene, const PreviewView& view,
                               const PreviewFrames& frames, const PreviewLook& look = PreviewLook());
/// \a whole as paintPreview() is quickest with: scaled down once where the view shows it smaller, else itself.
ZOKIT_EXPORT QImage scaledFor(const PreviewView& view, const QImage& whole);
/// The pixels of the view that differ between two scenes of one view.
ZOKIT_EXPORT QRegion changedRegion(const PreviewScene& before, const PreviewScene& after, const PreviewView& view);

} // namespace zokit
