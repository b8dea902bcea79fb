// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <zokit/settings.h>

namespace zokit {

/// \a settings for one track of sound: all effects, or the change of speed alone, which no track can do without.
Settings soundSettings(const Settings& settings, bool hasEffects);

} // namespace zokit
