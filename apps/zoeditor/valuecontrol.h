// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <utility>

#include <QVariant>
#include <QWidget>

namespace zoeditor {

/// The fields in which one value is shown and edited. The one that has the focus is named "TYPE:KEY"; its accessible
/// name is the label, its tool tip the help and the key. Undo is the window's alone: no field has one of its own, also
/// not in its menu.
class ValueControl : public QWidget {
    Q_OBJECT

public:
    explicit ValueControl(QWidget* parent = nullptr);

    /// How setValue() shows a value: for who makes the control.
    void showBy(std::function<void(const QVariant&)> show) { m_show = std::move(show); }
    /// Shows \a value; nothing is sent. An invalid one is shown as nothing.
    void setValue(const QVariant& value);
    /// What an empty field shows, dimmed: what is taken where no value is set.
    void setPlaceholder(const QString& text);
    QVariant shownValue() const { return m_shown; } ///< What setValue() was given last.
    /// The field that gets the focus.
    QWidget* field() const { return focusProxy(); }

    /// What is edited until endChoice() is one step, wherever the focus goes meanwhile: for a dialog.
    void beginChoice();
    void endChoice();

signals:
    /// A person has set \a value.
    void edited(const QVariant& value);
    /// What is edited until gestureEnded() is one step: a drag, a key that is held, a text that is typed.
    void gestureBegun();
    void gestureEnded(); ///< May be sent without a begin.

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void endGestureSoon();

    std::function<void(const QVariant&)> m_show;
    QVariant m_shown;
    bool m_isChoosing = false; ///< Between beginChoice() and endChoice().
};

} // namespace zoeditor
