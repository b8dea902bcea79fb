// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <zokit/changes.h>
#include <zokit/message.h>

namespace zokit {

class Project;

/// The words of a step about one item of \a type: see Message::Code::StepChange.
inline QStringList oneItemOf(const QString& type)
{
    return {type, QStringLiteral("1")};
}

inline bool areOfOneItem(const QStringList& words)
{
    return words.value(1) == QLatin1String("1");
}

/// What a step that makes \a changes is called in a menu, as things stand after it: "change Contrast", "add Watermark".
/// It keeps what it is about, and so speaks the language of whoever asks for its text.
Message describe(const Project& project, const Changes& changes);

} // namespace zokit
