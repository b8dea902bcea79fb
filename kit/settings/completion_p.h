// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <zokit/settings.h>

namespace zokit {

/// \a type with every value that is missing, at the catalogue's default for a frame of \a frame.
TypeSettings completedType(const TypeSettings& type, const QSize& frame);

/// Place and size of watermarks that have an anchor follow from it, in a base frame of \a frame.
void placeAnchored(Settings& settings, const QSize& frame);

/// The measured size of a text is no setting.
Settings withoutMeasures(Settings settings);

} // namespace zokit
