// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QString>

#include <zokit/message.h>
#include <zokit/zokit_export.h>

namespace zokit {

/// Where a value stands, as people spell it: "Color:bcs_contrast", "Watermark:0:wm_fontsize", "Output:quality".
/// For people and files only: positions change as items come and go.
struct ZOKIT_EXPORT Address {
    /// The position of what is the type's own.
    static constexpr int ofType = -1;

    QString type;     ///< An effect type, "Output" or "Tracks".
    int pos = ofType; ///< Of an item, from 0; ofType: the type itself.
    QString key;      ///< A property key, an option's name, or "selected".

    /// As people spell it.
    QString toString() const;
};

/// Whether both name the same place.
ZOKIT_EXPORT bool operator==(const Address& left, const Address& right);

/// An address read, or why it is none.
struct ZOKIT_EXPORT ReadAddress {
    std::optional<Address> address; ///< Nothing with an error.
    Message error;                  ///< Why it is none.
};

/// Reads "TYPE:KEY" or "TYPE:POS:KEY" by its form; "_checkstate" becomes "selected". Type and key must be known to the
/// property table or to the table of output options; the error names the nearest one. A position may be any number from
/// 0: which items there are is the settings' to say.
ZOKIT_EXPORT ReadAddress readAddress(const QString& text);

} // namespace zokit
