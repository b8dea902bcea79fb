// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>

#include <QImage>
#include <QPointer>
#include <QQuickItem>

#include <zokitquick/filesettings.h>
#include <zokitquick/zokitquick_export.h>

namespace zokitquick {

/// The frame of a file at a moment, as large as it fits into the item: as the conversion will hand it to its encoder,
/// or as the clip has it. After an edit it shows a stand-in at once (cropped, with its watermarks, in the colours of
/// before) and the true frame soon after the edits have come to rest.
class ZOKITQUICK_EXPORT PreviewPicture : public QQuickItem {
    Q_OBJECT
    /// Whose frame is shown; null: none. Stays its owner's.
    Q_PROPERTY(zokitquick::FileSettings* file READ file WRITE setFile NOTIFY fileChanged)
    /// The moment in seconds from the clip's beginning, taken to the nearest one in the clip. Until it is set, it is
    /// one some way into the clip, where it is seldom black.
    Q_PROPERTY(double time READ time WRITE setTime NOTIFY timeChanged)
    /// Which frame.
    Q_PROPERTY(Show show READ show WRITE setShow NOTIFY showChanged)
    /// Whether the true frame is shown. Else a stand-in, the frame of another moment, or none.
    Q_PROPERTY(bool isTrue READ isTrue NOTIFY pictureChanged)
    /// Why there is no frame: a sentence; empty when nothing is wrong.
    Q_PROPERTY(QString error READ error NOTIFY pictureChanged)
    /// What comes out otherwise than one may think: sentences.
    Q_PROPERTY(QStringList warnings READ warnings NOTIFY pictureChanged)
    /// Where the picture lies in the item; empty when there is none.
    Q_PROPERTY(QRectF pictureRect READ pictureRect NOTIFY pictureRectChanged)

public:
    /// Which frame is shown.
    enum Show {
        After, ///< As it comes out.
        Before ///< As the clip has it.
    };
    Q_ENUM(Show)

    /// Empty, until it has a file.
    explicit PreviewPicture(QQuickItem* parent = nullptr);
    ~PreviewPicture() override;

    FileSettings* file() const;       ///< See the property.
    void setFile(FileSettings* file); ///< See the property.
    double time() const;              ///< See the property.
    void setTime(double seconds);     ///< See the property.
    Show show() const;                ///< See the property.
    void setShow(Show show);          ///< See the property.
    bool isTrue() const;              ///< See the property.
    QString error() const;            ///< See the property.
    QStringList warnings() const;     ///< See the property.
    QRectF pictureRect() const;       ///< See the property.

Q_SIGNALS:
    void fileChanged();        ///< file is another one.
    void timeChanged();        ///< time is another one.
    void showChanged();        ///< show is another one.
    void pictureChanged();     ///< Another frame is shown, or isTrue, error and warnings may be others.
    void pictureRectChanged(); ///< pictureRect is another one.

protected:
    void updatePolish() override; ///< Makes the picture that is shown, once for all that has changed.
    /// Puts it on the screen.
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
    /// Another screen takes another picture.
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    class ZOKITQUICK_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokitquick
