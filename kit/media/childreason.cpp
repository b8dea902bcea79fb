// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "childreason_p.h"

#include <QFileInfo>

namespace zokit {

using Code = Message::Code;

Message reasonOf(const ChildResult& result, const Command& command)
{
    const QString program = QFileInfo(command.program).fileName();
    switch (result.end) {
    case ChildEnd::NotStarted:
        return Message(Code::ChildNotStarted, {program, result.lastWords()});
    case ChildEnd::Killed:
        return Message(Code::ChildKilled, {program, QString::number(result.signal)});
    case ChildEnd::TimedOut:
        return Message(Code::ChildStalled, {QString::number(command.seconds)});
    case ChildEnd::Stalled:
        return Message(Code::ChildStalled, {QString::number(command.stallSeconds)});
    default:
        return Message(Code::ChildFailed, {program, result.lastWords()});
    }
}

} // namespace zokit
