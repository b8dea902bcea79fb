// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include <QHash>
#include <QString>
#include <QVariant>

#include "native.h"

/// One value to be stored or read, in the forms of all contestants.
struct Step {
    QString key;
    QVariant value;
    std::string nativeKey;
    NativeValue nativeValue;
    int role; ///< Of the key in a QStandardItemModel.
};

/// A node, and what is stored there: first one value for each key, then another one for each.
struct Place {
    QString type;
    int pos;
    std::vector<Step> steps;
};

/// Which watermark, or which type's own node.
enum class Spot { MiddleItem, LastItem, LastType, FirstType };

/// The place \a spot in settings of \a items watermarks. Type and keys are literals, as hosts have them, and share no
/// memory with those stored; nor do the values. With \a only, the one key.
Place placeAt(Spot spot, int items, const QString& only = QString());

/// The same with type and keys that are no literals, which cost atomic operations wherever they are copied.
Place withTextsOnTheHeap(const Place& place);

/// All roles that were asked for, by key.
const QHash<QString, int>& rolesByKey();

/// The role under which a QStandardItemModel holds \a key.
int roleOf(const QString& key);
