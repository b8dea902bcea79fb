// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "imageguard_p.h"

#include <QtEndian>

namespace imageguard {

namespace {

/// The number of scans in a JPEG, \a file. Finds the markers as libjpeg does, over whatever stands between them.
int scanCount(const QByteArray& file)
{
    enum Marker : uchar {
        Data = 0x00,
        NoLength = 0x01,
        Restart = 0xd0,
        Start = 0xd8,
        End = 0xd9,
        Scan = 0xda,
        Fill = 0xff
    };
    int scans = 0;
    auto at = file.indexOf('\xff', 2); // Behind the marker at the start.
    while (at != -1 && at + 1 < file.size()) {
        const auto marker = static_cast<uchar>(file.at(at + 1));
        if (marker == Start || marker == End)
            break;
        if (marker == Fill) {
            at += 1;
        } else if (marker == Data || marker == NoLength || (marker >= Restart && marker < Start)) {
            at += 2;
        } else {
            scans += marker == Scan ? 1 : 0;
            const bool hasLength = at + 4 <= file.size();
            at += 2 + (hasLength ? qFromBigEndian<quint16>(file.constData() + at + 2) : 0);
        }
        at = file.indexOf('\xff', at);
    }
    return scans;
}

} // namespace

// For the reader of JPEG (plugin qjpeg) of Qt 5.15 and Qt 6.4, both on libjpeg: a scan costs as much time as the whole
// picture, but takes some 30 bytes in the file.
bool jpegIsBounded(QIODevice& device)
{
    constexpr int mostScans = 32; // Encoders write up to some 20.
    if (bytesAt(device, 0, 2) != "\xff\xd8")
        return true;
    return device.size() <= mostBytes && device.seek(0) && scanCount(device.readAll()) <= mostScans;
}

} // namespace imageguard
