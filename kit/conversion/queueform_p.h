// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QByteArray>
#include <QJsonObject>
#include <QVector>

#include <zokit/queue.h>

/// The lines of a kept queue: first what it is; then for each row its job, later its state whenever that changes, and
/// the order when rows were moved.
///
///     {"zoeffect-queue": 1}
///     {"row": 1, "input": "/a.mp4", "output": "/a-converted.mp4", "settings": {...}, "state": "waiting"}
///     {"row": 1, "state": "failed", "reason": {"code": "OutputExists", "arguments": ["/a-converted.mp4"]}}
///     {"rows": [2, 1]}
///     {"row": 2, "state": "removed"}
namespace zokit::queueform {

/// A row as it was kept.
struct Kept {
    int number = 0;                     ///< Of its session.
    Job job;                            ///< What was to be done.
    RowState state = RowState::Waiting; ///< How far it came; Running and Paused, when its session died.
    ConversionResult result;            ///< Of a row that has ended.
};

/// All that a file holds.
struct Read {
    QVector<Kept> rows;  ///< In their order.
    int unreadable = 0;  ///< Rows that could not be read.
    bool isQueue = true; ///< False: the file is no queue, or one of a later version.
};
Read read(const QByteArray& text);

/// The first line.
QByteArray head();
/// The line of a row that is new; empty for a job that cannot be kept.
QByteArray jobLine(int number, const Job& job, RowState state, const ConversionResult& result);
/// The line of a row whose state is another one.
QByteArray stateLine(int number, RowState state, const ConversionResult& result);
QByteArray removedLine(int number);
QByteArray orderLine(const QVector<int>& numbers);

} // namespace zokit::queueform
