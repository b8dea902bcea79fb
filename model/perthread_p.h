// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

/// The one T of this thread, made when it is first asked for; null once the thread's own objects have been destroyed,
/// since a host's static objects may still use the library after that.
template <typename T>
T* perThread()
{
    thread_local bool destroyed = false; // Without a destructor it can be read to the end.
    struct Holder {
        ~Holder() { destroyed = true; }
        T value{};
    };
    if (destroyed)
        return nullptr;
    thread_local Holder holder;
    return &holder.value;
}
