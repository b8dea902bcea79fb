// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "keyframe_p.h"

#include <QRegularExpression>

#include "argumentnumber_p.h"

namespace zokit {

Command keyFrameCommand(const Tools& tools, const MediaInfo& media, double from)
{
    const MediaStream* picture = media.picture();
    Command command;
    command.program = tools.ffmpeg;
    command.arguments << QStringLiteral("-hide_banner") << QStringLiteral("-nostdin") << QStringLiteral("-v")
                      << QStringLiteral("error") << QStringLiteral("-ss") << argumentNumber(from)
                      << guardedInput(media.file) << QStringLiteral("-map")
                      << QStringLiteral("0:%1").arg(picture ? picture->track.index : 0) << QStringLiteral("-c")
                      << QStringLiteral("copy") << QStringLiteral("-frames:v") << QStringLiteral("1")
                      << QStringLiteral("-copyts") << QStringLiteral("-f") << QStringLiteral("framecrc")
                      << QStringLiteral("pipe:1");
    return command;
}

std::optional<double> readKeyFrame(const QByteArray& output, const MediaInfo& media)
{
    // "#tb 0: 1/1000" says the unit; a packet is its stream, its time to be decoded and the one to be shown.
    static const QRegularExpression unit(QStringLiteral(R"(^#tb 0: (\d+)/(\d+)$)"),
                                         QRegularExpression::MultilineOption);
    static const QRegularExpression packet(QStringLiteral(R"(^0, *-?\d+, *(-?\d+),)"),
                                           QRegularExpression::MultilineOption);
    const QString text = QString::fromLatin1(output);
    const QRegularExpressionMatch unitMatch = unit.match(text);
    const QRegularExpressionMatch packetMatch = packet.match(text);
    if (!unitMatch.hasMatch() || !packetMatch.hasMatch() || unitMatch.captured(2).toDouble() <= 0)
        return std::nullopt;
    return packetMatch.captured(1).toDouble() * unitMatch.captured(1).toDouble() / unitMatch.captured(2).toDouble()
           - media.start;
}

} // namespace zokit
