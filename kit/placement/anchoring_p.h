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

/// rescaled(), but that anchors have still to place their watermarks.
Settings scaled(const Settings& settings, const QSize& frame);

/// To whole pixels, halves away from 0.
int rounded(double value);

} // namespace zokit
