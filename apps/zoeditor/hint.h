// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

class QAbstractItemView;
class QString;

namespace zoeditor {

/// Lets the list \a view say what to do while it is empty: the sentence that \a text answers whenever its rows change;
/// none, where that is empty. \a view has its model.
void showHint(QAbstractItemView* view, const std::function<QString()>& text);

} // namespace zoeditor
