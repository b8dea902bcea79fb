// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <vector>

#include <QString>
#include <QVector>

#include <zokit/changes.h>
#include <zokit/properties.h>

namespace zokit {

class FileSettings;

/// A row of SettingsModel: what is where, without values. The root has types, a type its items and then its values, an
/// item its values.
struct SettingsNode {
    QString type;                       ///< Empty: the root.
    Identity thing = 0;                 ///< The type or item that it is, or that the value belongs to.
    bool isItem = false;                ///< It is one, or the value belongs to one.
    const Property* property = nullptr; ///< Of a value.
    Suit suit = Suit::Type;             ///< Of an item: decides which values it has.
    SettingsNode* parent = nullptr;     ///< Null for the root.
    std::vector<std::unique_ptr<SettingsNode>> children;

    int row() const; ///< Among the children of \c parent, which is there.
    int childCount() const { return static_cast<int>(children.size()); }
    SettingsNode* child(int row) const { return children.at(static_cast<std::size_t>(row)).get(); }
    /// Of a type: the items stand before the values.
    int itemCount() const;
    QVector<Identity> items() const;
    /// The child that is \a item; null when there is none.
    SettingsNode* item(Identity item) const;
};

/// How a list of items comes nearer to another one, by one row.
struct ItemStep {
    enum class Kind { None, Remove, Insert, Move };
    Kind kind = Kind::None;
    int row = 0; ///< What goes, comes or moves.
    int to = 0;  ///< Of a move: where it ends.
};

/// The first step from \a present to \a wanted; none when they are the same.
ItemStep nextStep(const QVector<Identity>& present, const QVector<Identity>& wanted);

/// The types of the rows, in their order.
QStringList shownTypes();

/// A node for \a item of \a type in \a file, with its values.
std::unique_ptr<SettingsNode> itemNode(const FileSettings& file, Identity item, SettingsNode& type);

/// What \a item of \a type is by now.
Suit suitNow(const FileSettings& file, const QString& type, Identity item);

/// Fills \a node with the values that it has by its type and suit, at the end.
void appendValues(SettingsNode& node);

/// What a person calls \a item: its text, its file, its track, its effect.
QString itemName(const FileSettings& file, const QString& type, Identity item);

} // namespace zokit
