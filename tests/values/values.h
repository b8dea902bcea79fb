// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QVariant>
#include <QVector>

/// A value of any kind that a host may store, and what the rows call it.
struct NamedValue {
    QString name;
    QVariant value;
};

/// The values that valuepairs.txt tells about, in the order of its lines. To be called after the application object
/// was created.
const QVector<NamedValue>& namedValues();

/// A number or text of valuepairs.txt: as exact as the value, and in plain characters.
QString written(double number);
QString written(const QString& text);
