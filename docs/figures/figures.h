// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include <QImage>
#include <QString>

#include <zoeffectcatalogue.h>
#include <zoeffectmodel.h>

/// Why the pictures cannot be drawn, told to the user.
struct Failure {
    QString sentence;
};

/// One picture of the guide: the name of its file, and what draws it.
struct Figure {
    const char* file;
    QImage (*draw)();
};

/// All pictures that this program draws.
std::vector<Figure> figures();

/// The effect types of the models that are drawn: "Crop", "Watermark" and "Subtitle".
const EffectControlItem* effectTable();

using Properties = QMap<QString, QVariant>;

/// A number of the node (\a type, \a pos).
int number(const ZoEffectModel& model, const QString& key, const QString& type, int pos);
/// Where watermark \a pos lies.
QRect watermarkRect(const ZoEffectModel& model, int pos);
/// What a text watermark in "DejaVu Sans" holds.
Properties textWatermark(const QString& text);
/// What an image watermark holds that shows the file \a path at \a size.
Properties imageWatermark(const QString& path, const QSize& size);

// firsthost.cpp
QImage firstHost();

// geometry.cpp
QImage crop();
QImage rescaling();

// placement.cpp
QImage placedByDiagonalSteps();
QImage placedRightOfAnother();
QImage placedAtTheLeftMargin();
QImage placedOverTheFirst();

// watermarks.cpp
QImage transparency();
QImage layers();
QImage fontStyles();
