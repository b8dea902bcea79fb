// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include <zokit/message.h>
#include <zokit/settings.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// What is carried over from one file's settings, or from a preset, to another's.
struct ZOKIT_EXPORT CarryOver {
    /// Types ("Watermark"), items ("Watermark:0") or single values ("Color:bcs_contrast"); "Output" and "Tracks" count
    /// as types. Empty: everything that the source holds, but for "Tracks".
    QStringList what;
    /// Items are appended instead of replacing the list; those that are there already are not added again.
    bool add = false;
};

/// Why \a carry asks for something that \a from does not hold; empty when it can be carried over.
ZOKIT_EXPORT Message checkCarryOver(const Settings& from, const CarryOver& carry);

/// \a to with what \a carry names taken from \a from, as a person means it. Whole types are set, lists replaced as a
/// whole. Watermarks arrive whole and rescaled to the frame of \a to, by their anchor where they have one; a crop is
/// the same part of the picture; a style of subtitles reaches every track of \a to that it suits, the tracks stay;
/// colours, frame effects and sound as they are, in their order. Carrying over twice is the same as once. This is what
/// a dry run shows (differences() of \a to and the result) and what happens.
ZOKIT_EXPORT Settings carriedOver(const Settings& from, const Settings& to, const CarryOver& carry);

} // namespace zokit
