// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <zokit/tracks.h>

namespace zokit {

/// What the name of \a sidecar tells beside that of \a clip: language, forced, codec.
TrackChoice choiceOf(const QString& sidecar, const QString& clip);

/// Whether \a file has the name and the place of a subtitle file of \a clip.
bool isSidecarOf(const QString& file, const QString& clip);

} // namespace zokit
