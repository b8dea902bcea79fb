// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>

/// What is to happen to one system call, or to all from there on, of a traced operation.
struct Fault {
    enum class Kind {
        None,
        Kill,       ///< SIGKILL, before the call is carried out.
        Error,      ///< The call is not carried out and fails with \a error.
        ErrorsSince ///< That, and all later ones of the operation, too.
    };

    Kind kind = Kind::None;
    std::size_t at = 0; ///< The position in the operation, from 0.
    int error = 0;      ///< The value of errno.
    long call = -1;     ///< Only system calls of this number are counted; -1: all.
};

/// A process that is a copy of this one, made by fork(), so that a host which has started already costs nothing
/// more per fault. It runs an operation, every system call of which is counted and can be made to fail; then it
/// stops, so that the files can be looked at while it lives, and goes on, undisturbed, with what comes later.
///
/// Only for processes whose other threads hold nothing that the operation needs.
class TracedChild {
public:
    using Work = std::function<void()>;

    TracedChild(const Fault& fault, const Work& operation, const Work& later);
    ~TracedChild();
    TracedChild(const TracedChild&) = delete;
    TracedChild& operator=(const TracedChild&) = delete;

    /// Runs the operation. True when it came to its end.
    bool finishOperation();

    /// Runs what comes later. True when the process ended by itself and well.
    bool finishAll();

    /// Whether the fault happened: the operation made that many calls.
    bool faultHappened() const { return m_faultHappened; }

    /// How the process ended when it did not end well: "signal 11".
    std::string end() const { return m_end; }

    /// The numbers of the operation's system calls, in order.
    const std::vector<long>& calls() const { return m_calls; }

private:
    bool isInOperation() const;
    void atSystemCall();
    bool runUntilStop();
    void kill();

    const Fault m_fault;
    pid_t m_process = -1;
    bool* m_operationRuns = nullptr; ///< Shared with the process, which tells by it where it is.
    bool m_entering = false;         ///< The next stop at a system call is its begin, not its end.
    bool m_failing = false;          ///< The system call that has begun is to fail.
    bool m_faultHappened = false;
    std::size_t m_counted = 0; ///< Of m_calls, those that m_fault counts.
    std::vector<long> m_calls;
    std::string m_end;
};

/// "openat"; "system call 999" for one that has no name here.
std::string systemCallName(long number);
