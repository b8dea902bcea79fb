// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "cataloguetext_p.h"

#include <array>
#include <cstring>
#include <utility>

#include "perthread_p.h"

namespace {

constexpr std::size_t keptStrings = 256;
constexpr std::size_t longestKept = 64; // The null byte at the end included.

struct Kept {
    const char* address = nullptr;
    std::array<char, longestKept> utf8{};
    QString string;
};

/// Two places by the address, which stays the same for a table, while what stands there is looked at each time; null
/// when this thread keeps nothing any more.
Kept* placesFor(const char* utf8)
{
    auto* kept = perThread<std::array<Kept, keptStrings>>();
    if (!kept)
        return nullptr;
    // Fibonacci hashing: texts may lie at any distance from each other.
    constexpr quint64 oddFactor = 0x9E3779B97F4A7C15;
    constexpr int bits = 64;
    constexpr int bitsBelow = 57;
    static_assert(keptStrings == 2 * (quint64(1) << (bits - bitsBelow)));
    const quint64 pair = (reinterpret_cast<quintptr>(utf8) * oddFactor) >> bitsBelow;
    return &(*kept)[2 * static_cast<std::size_t>(pair)];
}

bool has(const Kept& kept, const char* utf8)
{
    return kept.address == utf8 && std::strcmp(kept.utf8.data(), utf8) == 0;
}

} // namespace

bool cataloguetext::equals(const QString& text, const char* utf8)
{
    constexpr unsigned firstBeyondAscii = 0x80;
    const char* next = utf8;
    for (const QChar letter : text) {
        const unsigned byte = static_cast<unsigned char>(*next++);
        if (byte == letter.unicode() && byte - 1 < firstBeyondAscii - 1)
            continue;
        return byte >= firstBeyondAscii && text == QString::fromUtf8(utf8);
    }
    // A byte order mark may follow, which says nothing.
    const unsigned byte = static_cast<unsigned char>(*next);
    return byte == 0 || (byte >= firstBeyondAscii && text == QString::fromUtf8(utf8));
}

QString cataloguetext::string(const char* utf8)
{
    Kept* places = placesFor(utf8);
    const std::size_t size = std::strlen(utf8) + 1;
    if (!places || size > longestKept)
        return QString::fromUtf8(utf8);
    if (has(places[0], utf8))
        return places[0].string;
    if (has(places[1], utf8))
        return places[1].string;

    std::swap(places[0], places[1]); // The older one goes.
    Kept& kept = places[0];
    kept.address = utf8;
    std::memcpy(kept.utf8.data(), utf8, size);
    kept.string = QString::fromUtf8(utf8);
    return kept.string;
}
