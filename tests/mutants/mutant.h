// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

/// What the mutated sources ask. Which mutant is active comes from the environment, so that one build holds
/// all of them: ZOEFFECT_MUTANT is its number, none when unset. ZOEFFECT_MUTANTS_REACHED names a file of one
/// byte per mutant; a process that comes to the place of a mutant sets its byte.

#include <cmath>
#include <cstdlib>
#include <type_traits>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mutants {

struct State {
    int active = -1;
    unsigned char* reached = nullptr; // Shared by all processes that map the file, children included.
};

inline State stateFromEnvironment()
{
    State state;
    if (const char* const number = std::getenv("ZOEFFECT_MUTANT"))
        state.active = std::atoi(number);
    const char* const path = std::getenv("ZOEFFECT_MUTANTS_REACHED");
    const int file = path ? ::open(path, O_RDWR | O_CLOEXEC) : -1;
    if (file == -1)
        return state;
    struct stat status = {};
    if (::fstat(file, &status) == 0) {
        void* const bytes =
            ::mmap(nullptr, static_cast<std::size_t>(status.st_size), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
        if (bytes != MAP_FAILED)
            state.reached = static_cast<unsigned char*>(bytes);
    }
    ::close(file);
    return state;
}

inline bool mutant(int number)
{
    static const State state = stateFromEnvironment();
    if (state.reached)
        state.reached[number] = 1;
    return number == state.active;
}

/// Keeps the type, which braces and overloads ask for.
template <typename T>
std::decay_t<T> plus(const T& value, int difference)
{
    return static_cast<std::decay_t<T>>(value + static_cast<T>(difference));
}

} // namespace mutants
