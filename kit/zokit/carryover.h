// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QStringList>

#include <zokit/message.h>
#include <zokit/settings.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// What is carried over from one file's settings, or from a preset, to another's.
struct ZOKIT_EXPORT CarryOver {
    /// Types ("Watermark"), items ("Watermark:0") or single values ("Color:bcs_contrast"); "Output" and "Tracks" count
    /// as types. In any order. Empty: everything that the source holds, but for "Tracks".
    QStringList what;
    /// Items are appended instead of replacing the list, and output options joined; those that are there already are
    /// not added again. Frame effects that only the source uses come behind those in use.
    bool add = false;
};

/// Why \a carry cannot be carried over: it asks for something that \a from does not hold, or an image among it is not
/// there, named at its item. Empty when it can. Looks for the images on disk.
ZOKIT_EXPORT Message checkCarryOver(const Settings& from, const CarryOver& carry);

/// \a to with what \a carry names taken from \a from, as a person means it. Whole types are set, lists replaced as a
/// whole. Watermarks arrive whole and rescaled to the frame of \a to, by their anchor where they have one; a crop is
/// the same part of the picture; colours, frame effects and sound as they are, in their order. Of subtitles the style
/// of the first selected track reaches every track of \a to that it suits, the tracks stay; subtitle files come along
/// when they are named as items or added, sound files always. An item that is named takes the place of the one at its
/// position. The trim belongs to its clip and comes only as "Output:trim".
///
/// Carrying over twice is the same as once. This is what a dry run shows (differences() of \a to and the result) and
/// what happens. What checkCarryOver() refuses by its form changes nothing; for images it does not look.
ZOKIT_EXPORT Settings carriedOver(const Settings& from, const Settings& to, const CarryOver& carry);

/// What rounding to whole pixels moves of that, as movedByRounding(), in the frame of \a after, which is the result: to
/// be told before.
ZOKIT_EXPORT Messages movedByCarrying(const Settings& from, const CarryOver& carry, const Settings& after);

/// What a host makes of the settings of a target besides: it is given them as they were, and changes them as they are
/// to be. A message refuses all targets.
using Settle = std::function<Message(const Settings& before, Settings& after)>;

} // namespace zokit
