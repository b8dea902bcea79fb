// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Compiled for its precompiled headers alone.
int main() {}
