// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

class QWidget;

/// What below \a window has less room than its text takes, and what lies on top of each other in one layout: a line
/// each, empty when there is nothing.
QStringList cutOff(const QWidget& window);
