// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QAbstractItemModel>

#include <zokit/changes.h>
#include <zokit/message.h>
#include <zokit/zokit_export.h>

namespace zokit {

class FileSettings;

/// The settings of one file as rows for item views, QML, or panels of a host's own.
///
///     types        the 13 effect types in the order of the tree, then the rules for tracks, then the output options
///       items      at first, so that the row of an item is its position
///         values   of the item
///       values     of the type itself, behind its items
///
/// Values that only the program sets (Control::None) have no row, nor has the switch of a frame effect, which is the
/// check box of its item. The model holds no values: it shows those of the file, and follows it whoever changes it.
/// What is set here is set by FileSettings, with its checks; the model is the asker.
///
/// Items can be dragged to another place of their type, in this model alone. They come and go by FileSettings::insert()
/// and remove().
class ZOKIT_EXPORT SettingsModel : public QAbstractItemModel {
    Q_OBJECT

public:
    /// What a row stands for.
    enum RowKind { TypeRow, ItemRow, PropertyRow };
    Q_ENUM(RowKind)

    /// Both columns answer all roles alike, apart from texts, check boxes and editing.
    enum Column {
        NameColumn, ///< Says what it is; has the check box.
        ValueColumn ///< Says the value, and can be edited.
    };

    /// Qt::EditRole is the value as FileSettings has it, Qt::DisplayRole the name or the value as text,
    /// Qt::CheckStateRole whether an effect type or item is selected and, where it has "audio_effect_flag", in use,
    /// Qt::ToolTipRole help and key, Qt::DecorationRole the colour that a value is. What a row does not have is
    /// invalid.
    enum Role {
        KindRole = Qt::UserRole, ///< RowKind, as a number.
        TypeRole,                ///< Effect type, "Tracks" or "Output".
        ThingRole,               ///< Identity of the type, of the item, or of the one that the value belongs to.
        KeyRole,                 ///< Of a value.
        AddressRole,             ///< "Watermark:0:wm_fontsize"; of a type or item that of its check box.
        LabelRole,               ///< What it is called, in both columns.
        HelpRole,                ///< A sentence or two.
        GroupRole,               ///< Name of the group in a panel.
        StateRole,               ///< State, as a number; of a type or item the furthest from default in it.
        DefaultRole,             ///< What the catalogue gives.
        SavedDefaultRole,        ///< What the user's saved default gives.
        ControlRole,             ///< Control, as a number.
        UnitRole,                ///< Name of the unit.
        LowestRole,              ///< Hard bounds as numbers, in this file's frame.
        HighestRole,             ///< As above.
        VisualLowestRole,        ///< Ends of a slider.
        VisualHighestRole,       ///< As above.
        StepRole,                ///< Of a spin box.
        DecimalsRole,            ///< Behind the point.
        ChoicesRole,             ///< A list of values.
        ChoiceNamesRole,         ///< Their names, in the same order.
        ItemCountRole            ///< Of a type: how many items it has.
    };
    Q_ENUM(Role)

    /// Empty, until it has a file.
    explicit SettingsModel(QObject* parent = nullptr);
    ~SettingsModel() override;

    /// Shows \a file, which stays its owner's, by a reset; none for null, and when the file is deleted.
    void setFile(FileSettings* file);
    FileSettings* file() const; ///< Null when there is none.

    /// The row of \a thing, or of its value \a key; invalid when there is none.
    QModelIndex indexOf(Identity thing, const QString& key = QString(), int column = NameColumn) const;

    /// Invalid where there is no row.
    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& child) const override;               ///< The type, or the item.
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;    ///< 0 without a file.
    int columnCount(const QModelIndex& parent = QModelIndex()) const override; ///< Two.
    /// As the roles say; what a row does not have is invalid.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// "Setting" and "Value", translated.
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    /// Sets a value (EditRole), or "selected" or "audio_effect_flag" (CheckStateRole). False where there is nothing to
    /// set, and for a value that is refused, after refused().
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    /// Values can be edited in ValueColumn, types and items checked in NameColumn, items dragged.
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QHash<int, QByteArray> roleNames() const override; ///< For QML: "label", "state", "lowest", ...

    QStringList mimeTypes() const override; ///< One of its own: nobody else takes it.
    /// Of one item; null for anything else.
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    Qt::DropActions supportedDropActions() const override; ///< Moves only.
    /// Whether dropMimeData() would move something.
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    /// Moves the item that was dragged before \a row of its type; behind the last one when dropped on the type itself.
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;
    /// One item within its type; false for anything else, and when FileSettings refuses.
    bool moveRows(const QModelIndex& sourceParent, int sourceRow, int count, const QModelIndex& destinationParent,
                  int destinationChild) override;

public Q_SLOTS:
    /// States and defaults are asked for again. Files do not tell when a saved default changes: connect it to
    /// Project::changed().
    void refreshDefaults();

Q_SIGNALS:
    /// FileSettings refused what was set at \a index: \a why is to be shown.
    void refused(const zokit::Message& why, const QModelIndex& index);

private:
    class ZOKIT_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokit
