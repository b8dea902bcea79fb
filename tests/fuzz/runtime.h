// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>

// What the fuzzer's runtime, or replay.cpp, calls of a target.

/// Runs the target with the bytes of one input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Asked by LeakSanitizer. Fontconfig's patterns know their parts by offsets, which it takes for lost memory in
/// those that live as long as the process.
extern "C" __attribute__((visibility("default"))) const char*
__lsan_default_suppressions(); // NOLINT(bugprone-reserved-identifier)
