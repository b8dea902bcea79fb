// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QVariant>
#include <QVector>

/// A value that no editor of an application would store, and what Qt 5.15 on 64-bit x86 makes of it. All is
/// spelled out, nothing computed, since the other Qt and other processors have to come to the same.
struct HostileValue {
    const char* name;
    QVariant value;
    int whole;                ///< As a whole number.
    bool truth;               ///< As a truth value.
    const char* real;         ///< As a floating point number in 17 digits; null when it does not convert.
    const char* text;         ///< As a text; null for one that is looked at elsewhere.
    bool equalsItself = true; ///< Whether a copy equals it.
};

/// Values of a type of the host's own, without any comparison or conversion.
struct HostSmall {
    int number;
};
struct HostLarge {
    double numbers[8];
};
Q_DECLARE_METATYPE(HostSmall)
Q_DECLARE_METATYPE(HostLarge)
Q_DECLARE_METATYPE(HostSmall*)

/// The values. Those of many megabytes and great depth come at the end, in hugeValues().
const QVector<HostileValue>& hostileValues();

struct HugeValue {
    const char* name;
    QVariant value;
};
const QVector<HugeValue>& hugeValues();

/// Whether two values are the same in type and content, to the last bit, as far as this can be told.
bool identical(const QVariant& left, const QVariant& right);
