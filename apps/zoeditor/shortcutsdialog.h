// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

namespace zoeditor {

class Actions;

/// The list of all shortcuts, as the table of actions has them, and of keys that panes know.
class ShortcutsDialog : public QDialog {
    Q_OBJECT

public:
    explicit ShortcutsDialog(const Actions& actions, QWidget* parent = nullptr);
};

} // namespace zoeditor
