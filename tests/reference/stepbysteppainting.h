// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QMap>
#include <QPixmap>
#include <QString>

class ZoEffectModel;

namespace stepbystep {

/// Paints the watermarks of a model in the plainest form, by nothing but the public operations of the model and its
/// nodes: each item is read, measured and drawn anew each time. Only the images stay as they were first loaded.
class Painter {
public:
    /// The watermarks of \a model on a frame of \a w x \a h; a null image when nothing was painted. Stores measured
    /// sizes in the model, which announces them.
    QImage paint(ZoEffectModel& model, int w, int h, bool honourIgnore);

    /// The images that could not be loaded since the last call.
    int takeUnreadable();

private:
    QPixmap image(const QString& path, const QString& format);

    QMap<QString, QPixmap> m_images;
    int m_unreadable = 0;
};

/// \a picture in the one format in which pictures are compared.
QImage comparable(const QPixmap& picture);

} // namespace stepbystep
