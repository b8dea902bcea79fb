// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>

#include <zokit/settings.h>

namespace zokit {

/// Whether converting a clip with \a settings changes anything: a crop, a colour, a selected frame effect, a watermark
/// with content, a subtitle to be burned in, other sound, a choice of tracks, an output option.
bool asksForAnything(const Settings& settings);

/// Whether the style of a track of subtitles differs from what the catalogue gives in a frame of \a frame.
bool isStyled(const Values& track, const QSize& frame);

} // namespace zokit
