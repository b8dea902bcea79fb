// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QVector>

#include <zokit/properties.h>

namespace zokit {

/// The rows of the effect types, as typed in; properties() adds what the catalogue knows.
QVector<Property> propertyRows();

/// What people call one item of \a type, where displayName() is what they call all of them. Translated.
QString singularName(const QString& type);

} // namespace zokit
