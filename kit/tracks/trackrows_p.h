// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QVector>

#include <zokit/properties.h>

namespace zokit {

/// The rules by which tracks are chosen, as properties of "Tracks".
QVector<Property> trackRows();

} // namespace zokit
