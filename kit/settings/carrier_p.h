// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QPair>
#include <QVector>

#include <zokit/carryover.h>

#include "carrying_p.h"

namespace zokit {

/// carriedOver() for many targets: what is the same for all of them, or for all of one base frame, is worked out once.
class Carrier {
public:
    Carrier(const Settings& from, const CarryOver& carry);

    /// What carriedOver() answers for \a to. Of complete settings it is complete, with every watermark that came at the
    /// place that its anchor says.
    Settings over(const Settings& to);

private:
    /// over(), where geometry is measured in a base frame of \a frame.
    Settings over(const Settings& to, const QSize& frame);
    const Settings& arrivingIn(const QSize& frame);

    Settings m_from;
    QVector<carrying::Wanted> m_wanted; // Empty: nothing, or what the source does not hold.
    bool m_add;
    QHash<QPair<int, int>, Settings> m_arriving; // By width and height.
};

} // namespace zokit
