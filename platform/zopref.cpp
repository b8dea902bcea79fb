// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "zopref.h"

ZoPref::~ZoPref() = default;

ZoPrefProvider::~ZoPrefProvider() = default;
