// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QVariant>

namespace zokit {

/// Whether two values are the same to the last bit: of one type, and equal. Qt's own comparison converts.
bool exactly(const QVariant& left, const QVariant& right);
bool exactly(const QMap<QString, QVariant>& left, const QMap<QString, QVariant>& right);

} // namespace zokit
