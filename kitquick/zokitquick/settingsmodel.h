// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>

#include <zokit/filesettings.h>
#include <zokit/properties.h>
#include <zokit/settingsmodel.h>

#include <zokitquick/filesettings.h>
#include <zokitquick/zokitquick_export.h>

namespace zokitquick {

/// The settings of a file as rows for QML: the types; below one its items, then its values; below an item its values.
/// Views show the types, or what is below a row by DelegateModel and its rootIndex:
///
///     DelegateModel {
///         model: settings
///         rootIndex: settings.at("Color")
///         delegate: Slider {
///             required property var model
///             from: model.visualLowest; to: model.visualHighest; value: model.edit
///             onMoved: model.edit = value
///         }
///     }
///
/// Roles by name: kind, type, thing, key, address, label, help, group, state, catalogueDefault, savedDefault, control,
/// unit, lowest, highest, visualLowest, visualHighest, step, decimals, choices, choiceNames, itemCount, as the kit's
/// model tells them; edit, the value, which can be set; valueText, the value as a panel shows it; checked, whether a
/// type or item takes part, which can be set, too. What a row does not have is undefined. What is refused changes
/// nothing, and the file sends refused().
class ZOKITQUICK_EXPORT SettingsModel : public zokit::SettingsModel {
    Q_OBJECT
    /// Whose settings are shown, as soon as they are there; null: none. Stays its owner's.
    Q_PROPERTY(zokitquick::FileSettings* file READ source WRITE setSource NOTIFY sourceChanged)

public:
    /// The kit's Control, as the role "control" has it.
    enum Control {
        NoControl = int(zokit::Control::None),
        CheckBox = int(zokit::Control::CheckBox),
        SpinBox = int(zokit::Control::SpinBox),
        Slider = int(zokit::Control::Slider),
        ComboBox = int(zokit::Control::ComboBox),
        ColorButton = int(zokit::Control::ColorButton),
        FontChooser = int(zokit::Control::FontChooser),
        LineEdit = int(zokit::Control::LineEdit),
        TextEdit = int(zokit::Control::TextEdit),
        FileChooser = int(zokit::Control::FileChooser),
        AnchorChooser = int(zokit::Control::AnchorChooser),
        ListEdit = int(zokit::Control::ListEdit)
    };
    Q_ENUM(Control)

    /// The kit's State, as the role "state" has it.
    enum State {
        Default = int(zokit::State::Default),
        SavedDefault = int(zokit::State::SavedDefault),
        Changed = int(zokit::State::Changed)
    };
    Q_ENUM(State)

    /// Roles beside those of the kit's model.
    enum QuickRole {
        ValueTextRole = Qt::UserRole + 100, ///< The value as a panel shows it.
        CheckedRole                         ///< Whether a type or item takes part; can be set.
    };
    Q_ENUM(QuickRole)

    /// Empty, until it has a file.
    explicit SettingsModel(QObject* parent = nullptr);

    FileSettings* source() const;         ///< See the property "file".
    void setSource(FileSettings* source); ///< See the property "file".

    /// The row at an address: "Color", "Watermark:0", "Color:bcs_contrast"; invalid when there is none.
    Q_INVOKABLE QModelIndex at(const QString& address) const;
    /// What the row at \a index says in the role of that name; undefined for what it does not have.
    Q_INVOKABLE QVariant get(const QModelIndex& index, const QString& role) const;
    /// Sets "edit" or "checked" there. False where there is nothing to set, and for a value that is refused.
    Q_INVOKABLE bool set(const QModelIndex& index, const QString& role, const QVariant& value);

    /// As the roles say; undefined for what a row does not have.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Also lists and objects of QML.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QHash<int, QByteArray> roleNames() const override; ///< As above.

Q_SIGNALS:
    /// file is another one.
    void sourceChanged();

private:
    void follow();

    QPointer<FileSettings> m_source;
};

} // namespace zokitquick
