// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <zokit/zokit_export.h>

namespace zokit {

/// Reads what ffmpeg writes with "-progress pipe:1": blocks of lines "key=value", each ended by "progress=". What it
/// answers is that of the last whole block.
class ZOKIT_EXPORT ProgressReader {
public:
    /// Takes the next \a piece, cut anywhere.
    void read(const QByteArray& piece);

    double seconds() const { return m_told.seconds; } ///< How much of the output is written; 0 before the first block.
    double speed() const { return m_told.speed; }     ///< Seconds of output a second; 0: unknown.
    bool hasEnded() const { return m_hasEnded; }      ///< The last block is there.
    int blocks() const { return m_blocks; }           ///< How many there were.

private:
    struct Told {
        double seconds = 0;
        double speed = 0;
    };

    void readLine(const QByteArray& line);

    QByteArray m_rest; ///< A line that is not whole.
    Told m_told;
    Told m_next; ///< Of the block that is being read.
    bool m_hasEnded = false;
    int m_blocks = 0;
};

} // namespace zokit
