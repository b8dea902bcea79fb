// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>

#include <zokit/settings.h>

namespace zokit {

/// How a picture is turned: degrees clockwise, 0, 90, 180 or 270; and what is mirrored then: 1 left and right, 2 top
/// and bottom, 3 both.
struct Turn {
    int angle = 0;
    int mirrored = 0;

    /// \a frame as it stands afterwards: a quarter turn exchanges its sides.
    QSize of(const QSize& frame) const;
};

/// The crop holds the switch, where it is selected; the type of the frame effects what it switches, selected or not.
Turn turnOf(bool cropIsSelected, const Values& crop, const Values& frameEffects);
Turn turnOf(const Settings& settings);

} // namespace zokit
