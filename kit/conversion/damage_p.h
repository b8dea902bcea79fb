// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <zokit/probe.h>

namespace zokit {

/// What \a words, all that ffmpeg said of a conversion of \a media, tell of damage; empty: none. Where a program stream
/// is not read from its beginning, decoders of sound begin in the middle of a packet: what they say of that is no
/// damage of the file.
QByteArray damageIn(const QByteArray& words, const MediaInfo& media, bool beginsInTheMiddle);

} // namespace zokit
