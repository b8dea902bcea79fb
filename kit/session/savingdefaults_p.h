// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <zokit/address.h>
#include <zokit/filesettings.h>

namespace zokit {

/// What is saved as the default of a type when a person asks for that of the thing at \a address, over \a before.
/// Of watermarks, subtitles, colours and frame effects the library decides; of the sound's types it is their values.
/// Empty: there is nothing to save.
Values valuesToSave(const FileSettings& file, const Address& address, const Values& before);

/// Why saved defaults stay in memory by now: the library's own store could not be written, and tries again. Empty where
/// that is not so, or the host has a store of its own.
Message whyUnwritten();

} // namespace zokit
