// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/progress.h>

#include <cmath>

namespace zokit {

namespace {

constexpr int longestLine = 4096; // What is longer is no line of progress.
constexpr double microsecondsPerSecond = 1e6;

} // namespace

void ProgressReader::read(const QByteArray& piece)
{
    m_rest += piece;
    int from = 0;
    for (int to = 0; (to = static_cast<int>(m_rest.indexOf('\n', from))) >= 0; from = to + 1) {
        if (to - from <= longestLine)
            readLine(m_rest.mid(from, to - from).trimmed());
    }
    m_rest = m_rest.mid(from).left(longestLine + 1);
}

/// "out_time_ms" is in microseconds, too, so only "out_time_us" is read. It and "speed" can be "N/A", and the time
/// negative at the beginning: then the last one holds.
void ProgressReader::readLine(const QByteArray& line)
{
    const int equals = static_cast<int>(line.indexOf('='));
    if (equals < 0)
        return;
    const QByteArray key = line.left(equals);
    QByteArray value = line.mid(equals + 1).trimmed();
    bool isNumber = false;
    if (key == "out_time_us") {
        const qint64 microseconds = value.toLongLong(&isNumber);
        if (isNumber && microseconds >= 0)
            m_next.seconds = static_cast<double>(microseconds) / microsecondsPerSecond;
    } else if (key == "speed") {
        if (value.endsWith('x'))
            value.chop(1);
        const double speed = value.toDouble(&isNumber);
        m_next.speed = isNumber && std::isfinite(speed) && speed > 0 ? speed : 0;
    } else if (key == "progress") {
        m_told = m_next;
        m_hasEnded = value == "end";
        ++m_blocks;
    }
}

} // namespace zokit
