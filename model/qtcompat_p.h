// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <QVariant>

/// Value semantics that must depend neither on the Qt version nor on the processor: Qt 5.15's on 64-bit x86.
namespace qtcompat {

/// Whether two values are equal, \a left being the stored or present one. The order matters: values of
/// different types are compared as numbers when both are numbers (with a relative tolerance of 1e-12 when one
/// is floating point), else \a right is converted to the type of \a left, and only where that conversion does
/// not exist \a left to the type of \a right. So true equals "abc", but "abc" does not equal true.
bool equal(const QVariant& left, const QVariant& right);

/// Numbers are rounded first, so 0.4 is false. Texts are true but for "", "0" and "false" in any case.
bool toBool(const QVariant& value);

/// Rounds fractions, halves up (-1.5 gives -1); 0 for what is no whole number. A number outside the range of
/// int leaves its lower 32 bits.
int toInt(const QVariant& value);

/// \a ok tells whether \a value converts; 0 when it does not, infinity for a text beyond the range of double.
double toDouble(const QVariant& value, bool* ok = nullptr);

/// Empty when \a value does not convert.
QString toText(const QVariant& value);

/// A default font when \a value does not convert.
QFont fontFrom(const QVariant& value);

/// An invalid colour when \a value does not convert.
QColor colorFrom(const QVariant& value);

} // namespace qtcompat
