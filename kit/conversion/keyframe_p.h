// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QByteArray>

#include <zokit/child.h>
#include <zokit/probe.h>

namespace zokit {

/// Copies the first packet of the picture from \a from on, in seconds from the clip's beginning, and writes to standard
/// output where it stands: a copy that is cut there begins with the same packet.
Command keyFrameCommand(const Tools& tools, const MediaInfo& media, double from);
/// Where that packet is shown, in seconds from the clip's beginning; nothing where \a output does not tell.
std::optional<double> readKeyFrame(const QByteArray& output, const MediaInfo& media);

} // namespace zokit
