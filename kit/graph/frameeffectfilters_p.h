// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QVector>

namespace zokit {

/// What a frame effect makes of a picture of more than eight bits.
enum class Depth {
    Kept,
    Converted, ///< By way of another depth and back.
    EightBits
};

/// A frame effect as a filter text with words in braces: {low}, {high}, {middle} and {same} are levels; {blur}, {tile}
/// and {glow} lengths that follow the frame's height; {half} and {frame} sizes; {a}, {b}, {c} labels.
struct FrameEffectFilter {
    const char* name;
    const char* text;
    Depth depth;
};

/// In the order of frameEffects().
const QVector<FrameEffectFilter>& frameEffectFilters();

} // namespace zokit
