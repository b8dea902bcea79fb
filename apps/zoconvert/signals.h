// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>

namespace zoconvert {

constexpr int endedBySignal = 128; ///< As shells have it: the exit code is this and the number of the signal.

/// The signals of a run, taken out of the handlers into the event loop. One that was ignored when the program began
/// stays so. A second SIGINT ends the program at once. Only one object at a time.
class Signals {
public:
    Signals();
    ~Signals(); ///< The signals act again as before.
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;

    /// SIGINT, SIGTERM or SIGHUP, the first that came; 0: none.
    int received() const;

    // NOLINTBEGIN(misc-non-private-member-variables-in-classes): what is to be done, set from outside.
    std::function<void()> onEnd;      ///< One of the three came.
    std::function<void()> onStop;     ///< SIGTSTP came; the program stops when this returns.
    std::function<void()> onContinue; ///< It goes on.
    std::function<void()> onResize;   ///< The terminal has another size.
    // NOLINTEND(misc-non-private-member-variables-in-classes)

private:
    class Notifier;
    std::unique_ptr<Notifier> m_notifier;
};

} // namespace zoconvert
