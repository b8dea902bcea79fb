// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <zokit/tracks.h>

namespace zokit {

/// What a track holds: "audio", "cover"; translated.
QString kindName(TrackKind kind, bool isCover);

/// The two words with which a line on a track begins: its number, or the name of the \a file that it is, and what it
/// is: "audio, eng, aac"; translated.
QStringList trackWords(const Track& track, const QString& file, bool isCover = false);

} // namespace zokit
