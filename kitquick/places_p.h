// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QVariant>

#include <zokit/changes.h>
#include <zokit/message.h>

namespace zokit {
class FileSettings;
}

namespace zokitquick {

/// What an address of QML stands for.
struct Place {
    QString type;
    zokit::Identity thing = 0; ///< 0: there is no such place.
    bool isItem = false;       ///< Whether thing is an item of the type.
    QString key;               ///< Empty: the type or item as a whole.
    zokit::Message error;      ///< Why there is none.
};

/// Where "TYPE", "TYPE:POS", "TYPE:KEY" or "TYPE:POS:KEY" is in \a file.
Place placeAt(const zokit::FileSettings& file, const QString& address);

/// \a value out of QML without what only its engine knows: lists and objects become those of Qt.
QVariant plainValue(const QVariant& value);

} // namespace zokitquick
