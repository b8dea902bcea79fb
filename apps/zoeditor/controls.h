// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QModelIndex>

class QWidget;

namespace zoeditor {

class ValueControl;

/// Makes the control for \a value, a row of zokit::SettingsModel: kind of control, bounds, unit and choices are read
/// there. It shows no value yet.
ValueControl* makeControl(const QModelIndex& value, QWidget* parent);

} // namespace zoeditor
