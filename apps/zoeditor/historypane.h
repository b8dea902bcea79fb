// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QListView>

#include "buttons.h"

namespace zoeditor {

class Session;

/// All steps that can be undone and redone, as a list to jump in: choosing one undoes or redoes up to it.
class HistoryPane : public KeepsInSight<QListView> {
    Q_OBJECT

public:
    explicit HistoryPane(Session* session, QWidget* parent = nullptr);

private:
    bool m_isShowing = false; ///< The list follows the history just now.
};

} // namespace zoeditor
