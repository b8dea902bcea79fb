// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>

#include <zokit/settings.h>

namespace zokit {

/// The values that follow from the anchor of a watermark in a frame of \a frame: its place, and its size where the
/// anchor says one (of an image its width and height, of a text the font size that comes nearest). Empty without an
/// anchor.
Values anchoredValues(const Item& item, const QSize& frame);

/// The geometry of \a settings, measured in a base frame of \a from, brought to one of \a to. Anchors have still to
/// place their watermarks, and what the settings say of the frame itself stays. An empty frame leaves everything as it
/// is.
Settings rescaledBetween(const Settings& settings, const QSize& from, const QSize& to);

/// To whole pixels, halves away from 0.
int rounded(double value);

} // namespace zokit
