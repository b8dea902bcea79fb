// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QVariant>
#include <QVector>

namespace zokit {

/// Names a thing for life: a file, one of its effect types, an item, the saved default of a type. 0 names nothing.
/// Unique in a project and its journal; never given to anything else.
using Identity = quint64;

/// One value that changed. All that can be set is a value under (thing, key). Keys that begin with a colon are the
/// kit's own: ":items" (the list of a type's items, as identities), ":of" (the thing that a thing belongs to), ":type",
/// ":name" (of a frame effect), ":foreign".
struct Change {
    Identity thing = 0; ///< Whose value.
    QString key;        ///< Which value.
    QVariant before;    ///< Invalid: there was no such value.
    QVariant after;     ///< Invalid: there is none any more.
};

/// Those of one operation.
using Changes = QVector<Change>;

} // namespace zokit

Q_DECLARE_TYPEINFO(zokit::Change, Q_MOVABLE_TYPE); // As its members are: long lists grow without copying each.
