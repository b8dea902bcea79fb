// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "signals.h"

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

#include <QEvent>
#include <QSocketNotifier>

namespace zoconvert {

namespace {

constexpr int taken[] = {SIGINT, SIGTERM, SIGHUP, SIGTSTP, SIGWINCH};
constexpr int count = sizeof taken / sizeof *taken;

int ends[2] = {-1, -1}; // Of the pipe from the handlers to the event loop.
volatile std::sig_atomic_t first = 0;
struct sigaction before[count] = {};

bool endsRun(int signal)
{
    return signal == SIGINT || signal == SIGTERM || signal == SIGHUP;
}

void handle(int signal)
{
    const int error = errno;
    if (endsRun(signal)) {
        if (first != 0 && signal == SIGINT)
            ::_exit(endedBySignal + SIGINT);
        if (first == 0)
            first = signal;
    }
    const auto byte = static_cast<unsigned char>(signal);
    // A full pipe holds enough news.
    if (::write(ends[1], &byte, 1) < 0)
        errno = error;
    errno = error;
}

} // namespace

/// Reads the pipe. By its event, since the signal of this class differs between versions of Qt.
class Signals::Notifier : public QSocketNotifier {
public:
    explicit Notifier(Signals* owner) : QSocketNotifier(ends[0], QSocketNotifier::Read), m_owner(owner) {}

    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::SockAct)
            return QSocketNotifier::event(event);
        unsigned char signal = 0;
        while (::read(ends[0], &signal, 1) == 1)
            take(signal);
        return true;
    }

private:
    static void call(const std::function<void()>& function)
    {
        if (function)
            function();
    }

    void take(int signal)
    {
        if (endsRun(signal)) {
            call(m_owner->onEnd);
        } else if (signal == SIGWINCH) {
            call(m_owner->onResize);
        } else if (signal == SIGTSTP) {
            call(m_owner->onStop);
            static_cast<void>(::raise(SIGSTOP));
            call(m_owner->onContinue);
        }
    }

    Signals* m_owner;
};

Signals::Signals()
{
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    first = 0;
    m_notifier = std::make_unique<Notifier>(this);
    for (int i = 0; i < count; ++i) {
        ::sigaction(taken[i], nullptr, &before[i]);
        if (before[i].sa_handler == SIG_IGN)
            continue;
        struct sigaction action = {};
        action.sa_handler = handle;
        action.sa_flags = SA_RESTART;
        ::sigemptyset(&action.sa_mask);
        ::sigaction(taken[i], &action, nullptr);
    }
}

Signals::~Signals()
{
    if (!m_notifier)
        return;
    for (int i = 0; i < count; ++i)
        ::sigaction(taken[i], &before[i], nullptr);
    m_notifier.reset();
    ::close(ends[0]);
    ::close(ends[1]);
}

int Signals::received() const
{
    return first;
}

} // namespace zoconvert
