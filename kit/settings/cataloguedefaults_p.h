// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>
#include <QString>
#include <QVariant>

#include <zokit/settings.h>

struct EffectDefaultVal;

namespace zokit {

/// What the catalogue alone gives a type node and its fixed items in a frame of \a frame: no saved default acts.
TypeSettings catalogueType(const QString& type, const QSize& frame);

/// What the catalogue alone gives an item of \a type; places are those of a first watermark and of an untouched
/// subtitle.
Values catalogueItem(const QString& type, const QSize& frame);

/// The properties that the catalogue gives \a type, or each frame effect of "Effect".
const EffectDefaultVal* catalogueOf(const QString& type);

/// Whether \a type's values say that the whole frame is shown: a crop of "source_val" or of the frame's own size.
bool isWholeFrame(const Values& crop, const QSize& frame);

/// Makes \a crop show the whole frame, whatever its size.
void setWholeFrame(Values& crop);

} // namespace zokit
