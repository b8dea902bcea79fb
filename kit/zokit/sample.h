// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <zokit/conversion.h>
#include <zokit/probe.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// A job for a short part of what \a whole makes of \a media, to see and hear how it comes out: \a seconds of the clip,
/// from \a from on as far as \a whole converts so much behind it, else the last ones. The result lies where
/// that of \a whole will, or beside the clip as long as there is no such folder: as "NAME-sample.ENDING", or with a
/// number where that is there.
ZOKIT_EXPORT Job sampleOf(const Job& whole, const MediaInfo& media, double from, double seconds = 10);

/// How many bytes the result of \a whole will have, when that of \a sample has \a bytes: by their lengths. 0 where one
/// of them is unknown.
ZOKIT_EXPORT qint64 bytesOfWhole(const Job& whole, const Job& sample, const MediaInfo& media, qint64 bytes);

} // namespace zokit
