// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QString>
#include <QVector>

/// The frame effects as one text: names and states in order, joined by "|": "A|true|B|false".
namespace frameeffects {

struct State {
    QString name;
    bool on;
};

QString summary(const QVector<State>& states);

/// The states in \a summary; nothing unless it holds exactly \a count of them and \a count is at least 1.
/// Any state but the exact word "true" is off.
std::optional<QVector<State>> states(const QString& summary, int count);

} // namespace frameeffects
