// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <zokit/message.h>
#include <zokit/settings.h>

namespace zokit {

/// The file that the item at \a pos of \a type names, when it is not there; else an empty message.
Message missingFile(const TypeSettings& type, int pos);

} // namespace zokit
