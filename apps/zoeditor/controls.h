// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QModelIndex>
#include <QWidget>

namespace zoeditor {

/// The fields in which one value is shown and edited. The one that has the focus is named "TYPE:KEY"; its accessible
/// name is the label, its tool tip the help and the key.
class ValueControl : public QWidget {
    Q_OBJECT

public:
    explicit ValueControl(QWidget* parent = nullptr);

    /// Shows \a value; nothing is sent. An invalid one is shown as nothing.
    void setValue(const QVariant& value) { m_show(value); }
    /// The field that gets the focus.
    QWidget* field() const { return focusProxy(); }

signals:
    /// A person has set \a value.
    void edited(const QVariant& value);
    /// What is edited until gestureEnded() is one step: a drag, a key that is held, a text that is typed.
    void gestureBegun();
    void gestureEnded(); ///< May be sent without a begin.

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    friend class ControlMaker;

    std::function<void(const QVariant&)> m_show;
};

/// Makes the control for \a value, a row of zokit::SettingsModel: kind of control, bounds, unit and choices are read
/// there. It shows no value yet.
ValueControl* makeControl(const QModelIndex& value, QWidget* parent);

} // namespace zoeditor
