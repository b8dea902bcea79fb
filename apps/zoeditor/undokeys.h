// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

class QLineEdit;

namespace zoeditor {

/// Undo in \a field means the window's as long as nothing was typed into it that could be taken back.
void leaveUndoToWindow(QLineEdit* field);

} // namespace zoeditor
