// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QVector>

#include "watermarkplacement_p.h"

class ZoEffectItemData;

namespace placement {

/// The rectangles of the selected watermarks that stand beside \a item under its parent, in their order.
QVector<OccupiedRect> shownBeside(const ZoEffectItemData& item);

} // namespace placement
