// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <zokit/settings.h>

namespace zokit {

/// \a settings for one track of sound: all effects, or the change of speed alone, which no track can do without.
Settings soundSettings(const Settings& settings, bool hasEffects);

/// Whether \a path is all UTF-8, as far as it is looked at; true where it cannot be read.
bool isUtf8File(const QString& path);

} // namespace zokit
