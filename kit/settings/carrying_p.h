// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QVector>

#include <zokit/address.h>
#include <zokit/settings.h>

/// How settings of one type go from one file to another. What comes is complete and already of the target's frame.
namespace zokit::carrying {

/// One thing that is asked for: a type, an item of it, or a value of either.
struct Wanted {
    QString type;
    int pos = Address::ofType;
    QString key; ///< Empty: all.

    bool isItem() const { return pos != Address::ofType; }
};

/// All of it: values, and the list as a whole; with \a add the items that are not there yet behind the others.
void type(const TypeSettings& from, bool add, TypeSettings& to);

/// The watermarks or frame effects at \a positions.
void items(const TypeSettings& from, const QVector<int>& positions, bool add, TypeSettings& to);

/// The track whose style is meant: the first that is selected, else the first; null where there is none.
const Item* styled(const TypeSettings& type);

/// One style on every track that it suits. Which tracks there are, and which are chosen, is the clip's.
void tracks(const TypeSettings& from, const Wanted& wanted, bool add, TypeSettings& to);

/// One value, of the type itself or of the item at the same position that it suits.
void value(const TypeSettings& from, const Wanted& wanted, TypeSettings& to);

/// Options and rules by name. The trim is the clip's own: it stays, and goes only where it is asked for by name.
void named(const Values& from, const Wanted& wanted, bool add, Values& to);

} // namespace zokit::carrying
