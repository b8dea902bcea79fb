// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <memory>

#include <QPixmap>
#include <QString>

/// What becomes of an image's own transparency.
enum class OwnAlpha { Replaced, Kept };

/// The images of a model's watermarks, loaded once per path.
class WatermarkImages {
public:
    WatermarkImages();

    /// For the copy of the model that is painted at another size: with no image loaded, but sharing the memory of this
    /// one. A file that is the same as before is not decoded again.
    std::shared_ptr<WatermarkImages> forCopy() const;

    /// The image at \a path; null, and logged, when it cannot be loaded. The pixmap stays this object's.
    QPixmap* load(const QString& path, const char* format);

    /// \a image with \a alpha in place of each pixel's own alpha, or multiplied with it. An alpha beyond 0 to 255 is no
    /// colour value and counts as 0. From memory while that has room: a preview asks for the same ones over and over.
    QPixmap shown(const QPixmap& image, int alpha, OwnAlpha ownAlpha);

    void forget(const QString& path);
    void forgetAll();

private:
    struct Memory;

    QPixmap decoded(const QString& path, const char* format);

    std::map<QString, QPixmap> m_loaded;
    QPixmap m_unreadable; // What load() hands out when it failed.
    std::shared_ptr<Memory> m_memory;
};
