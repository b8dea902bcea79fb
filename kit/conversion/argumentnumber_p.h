// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace zokit {

/// A number as options of ffmpeg have it: seconds to the microsecond.
inline QString argumentNumber(double value)
{
    constexpr int digits = 6;
    return QString::number(value, 'f', digits);
}

} // namespace zokit
