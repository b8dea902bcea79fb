// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QVector>

#include <zokit/properties.h>

namespace zokit {

/// The rows of the effect types, as typed in; properties() adds what the catalogue knows.
QVector<Property> propertyRows();

} // namespace zokit
