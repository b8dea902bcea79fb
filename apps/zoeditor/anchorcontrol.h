// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QWidget;

namespace zoeditor {

class ValueControl;

/// The control for the anchor of a watermark: one of nine places in the frame, or free. It is given and sends the
/// values of an anchor; nothing valid for free. The margin of the anchor that it shows is kept.
ValueControl* makeAnchorControl(const QString& label, QWidget* parent);

} // namespace zoeditor
