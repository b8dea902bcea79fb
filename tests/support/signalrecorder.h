// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QStringList>
#include <QVariant>

class ZoEffectModel;

/// Records all seven signals of a model in the order in which they come, one text each, so that "exactly
/// this one" is one comparison:
///
///     effectDataChanged(Crop, crop_left, int 10, -1)     the four-argument signal
///     effectDataChanged(Crop)                            the one-argument signal
///     currentItemChanged(Crop)
///     currentSubItemChanged(Crop, 3)
///     applyItemDataTo(node Watermark, Watermark, -1, 7)  the node by its name
///     applyItemDataSomePropertyTo({h: int 720, sub_fontsize: int 20}, Subtitle, -1, 7)
///     effectDataAboutChange(Crop)
class SignalRecorder : public QObject {
    Q_OBJECT

public:
    explicit SignalRecorder(const ZoEffectModel& model);

    /// The signals since the last call.
    QStringList take();

private:
    QStringList m_signals;
};

/// A value with its type: "invalid", "int 5", "bool true", "double 0.5", "string abc", "color #ffffffff",
/// "font Tahoma", "map {a: int 1, b: int 2}", for any other type its type name and text.
QString described(const QVariant& value);

/// "{a: int 1, b: int 2}"
QString described(const QMap<QString, QVariant>& properties);
