// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "exactly_p.h"

#include <algorithm>
#include <cstring>

#include <QMap>

namespace zokit {

// NOLINTBEGIN(misc-no-recursion): values nest

bool exactly(const QVariant& left, const QVariant& right)
{
    if (left.userType() != right.userType())
        return false;
    switch (left.userType()) {
    case QMetaType::Double: {
        const double a = left.toDouble();
        const double b = right.toDouble();
        // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison,cert-exp42-c,cert-flp37-c): the bytes are meant.
        return std::memcmp(&a, &b, sizeof a) == 0;
    }
    case QMetaType::QVariantMap:
        return exactly(left.toMap(), right.toMap());
    case QMetaType::QVariantList: {
        const QVariantList a = left.toList();
        const QVariantList b = right.toList();
        return std::equal(a.cbegin(), a.cend(), b.cbegin(), b.cend(),
                          [](const QVariant& x, const QVariant& y) { return exactly(x, y); });
    }
    default:
        return left == right;
    }
}

bool exactly(const QMap<QString, QVariant>& left, const QMap<QString, QVariant>& right)
{
    if (left.size() != right.size())
        return false;
    auto other = right.cbegin();
    for (auto it = left.cbegin(); it != left.cend(); ++it, ++other) {
        if (it.key() != other.key() || !exactly(it.value(), other.value()))
            return false;
    }
    return true;
}

// NOLINTEND(misc-no-recursion)

} // namespace zokit
