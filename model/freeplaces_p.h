// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include <QVector>

#include "watermarkplacement_p.h"

namespace placement {

struct Place {
    qint64 x;
    qint64 y;
};

/// For each of \a places whether it is free: whether neither it nor the point \a reach right of it lies in one of
/// \a rectangles. Takes n log n steps for n rectangles and places that go from left to right.
std::vector<bool> freePlaces(const QVector<OccupiedRect>& rectangles, const std::vector<Place>& places, qint64 reach);

} // namespace placement
