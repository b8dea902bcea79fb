// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <zokit/child.h>
#include <zokit/message.h>

namespace zokit {

/// Why \a command, which ended as \a result says, gave nothing: for what people are told.
Message reasonOf(const ChildResult& result, const Command& command);

} // namespace zokit
