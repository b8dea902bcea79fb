// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <zokit/settings.h>

namespace zokit {

/// Whether converting a clip with \a settings changes anything: a crop, a colour, a selected frame effect, a watermark
/// with content, a subtitle to be burned in, other sound, a choice of tracks, an output option.
bool asksForAnything(const Settings& settings);

} // namespace zokit
