// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <ctime>

#include <QFile>
#include <QList>

/// What the tests of hostile input measure. Times are those of the processor, which do not grow when other
/// programs are running.
namespace hostile {

/// How many nodes "very many" are; fewer under sanitizers.
constexpr int veryMany = ZOEFFECT_HOSTILE_NODES;
/// How many times as slow this build is as a plain one, at most.
constexpr int slowness = ZOEFFECT_HOSTILE_SLOWNESS;

/// Processor time of the calling thread since the construction.
class Stopwatch {
public:
    Stopwatch() : m_start(now()) {}
    double milliseconds() const { return now() - m_start; }

private:
    static double now()
    {
        timespec time = {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
    }

    double m_start;
};

/// A value of /proc/self/status in KiB; -1 when it is not told.
inline qint64 memory(const QByteArray& name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith(name + ':'))
            return line.simplified().split(' ').value(1).toLongLong();
    }
    return -1;
}

/// The most memory that this process has had at once, in KiB, since forgetPeakMemory().
inline qint64 peakMemory()
{
    return memory("VmHWM");
}

inline bool forgetPeakMemory()
{
    QFile references(QStringLiteral("/proc/self/clear_refs"));
    return references.open(QIODevice::WriteOnly) && references.write("5") == 1;
}

} // namespace hostile
