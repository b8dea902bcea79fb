// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QVariant>
#include <QVector>

#include <zokit/address.h>
#include <zokit/settings.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// One value that differs; invalid where there is none.
struct ZOKIT_EXPORT Difference {
    Address address; ///< Where it stands.
    QVariant a;      ///< In the first settings.
    QVariant b;      ///< In the second ones.
};

/// All that differs from \a a to \a b, in the order of the tree: values, what is selected, items that only one has
/// (each of their values), names of frame effects, anchors ("anchor"), tracks and output options. The clips themselves
/// are not compared.
ZOKIT_EXPORT QVector<Difference> differences(const Settings& a, const Settings& b);

/// A line for people: "Colour: Contrast: 0 -> 20"; a value that is not there is "none". Translated.
ZOKIT_EXPORT QString differenceLabel(const Difference& difference);

} // namespace zokit
