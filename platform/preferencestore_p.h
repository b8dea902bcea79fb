// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

class ZoPref;

/// The preference store in use: the host's, when the application object provides one, else the library's own.
/// Asked for at each operation, since a host may bring its store late.
ZoPref& preferenceStore();
