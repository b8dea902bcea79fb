// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QPixmap>
#include <QTemporaryDir>

#include <zoeffectmodel.h>

#include "modeltest.h"

/// A model of a video of this size.
struct Model : ZoEffectModel {
    explicit Model(const QSize& size) { setVideoSize(size.width(), size.height()); }
};

/// Appends a watermark that shows the picture at \a path in \a place, opaque at the usual factor.
ZoEffectItemData& addImage(const ZoEffectModel& model, const QString& path, const QRect& place,
                           const Properties& more = {});

QPixmap render(ZoEffectModel& model, const QSize& size, bool honourIgnore = false);

QImage pixelsOf(const QPixmap& picture);

/// "#aarrggbb", or "null".
QString colorAt(const QPixmap& picture, int x, int y);

/// The smallest rectangle that holds all pixels that are not fully transparent.
QRect shownArea(const QPixmap& picture);

QImage filled(const QSize& size, const QColor& color);

/// A folder of picture files, removed at its end. What is added answers its path; there is a new file each time.
class PictureFolder {
public:
    QString file(const QString& name) const { return m_folder.filePath(name); }
    QString add(const QString& name, const QByteArray& bytes) const;
    QString add(const QString& name, const QImage& image) const;

    /// 8 x 6 pixels.
    QString red() const { return add("red.png", filled(QSize(8, 6), Qt::red)); }
    QString blue() const { return add("blue.png", filled(QSize(8, 6), Qt::blue)); }

private:
    QTemporaryDir m_folder;
};

/// The most memory that this process has had at once, in KiB, since forgetPeakMemory().
qint64 peakMemory();
bool forgetPeakMemory();
