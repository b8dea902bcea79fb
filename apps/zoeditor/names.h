// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QFileInfo>

#include <zokit/address.h>
#include <zokit/message.h>

namespace zoeditor {

/// The name of the file \a path for people: on one line, whatever is in it.
inline QString shownName(const QString& path)
{
    return zokit::onOneLine(QFileInfo(path).fileName());
}

/// The step that changes a value, for the history: it is said in the language of the moment.
inline zokit::Message changeOf(const QString& type, const QString& key)
{
    return zokit::Message(zokit::Message::Code::StepChange,
                          {zokit::Address{type, zokit::Address::ofType, key}.toString()});
}

} // namespace zoeditor
