// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAction>
#include <QBoxLayout>
#include <QDialog>
#include <QPushButton>
#include <QResizeEvent>
#include <QToolButton>

#include "appearance.h"

namespace zoeditor {

/// A button of a dialog at the end of \a layout, with its object name. Return in a text does not press it.
inline QPushButton* makeButton(QLayout* layout, const char* name, const QString& text, QWidget* parent)
{
    auto* button = new QPushButton(text, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    layout->addWidget(button);
    return button;
}

/// Shows \a dialog, as large as it was last, until it is closed, and deletes it then. A button of it that was pressed
/// by a key, which takes a moment, does nothing any more once it is closed.
inline void showOnce(QDialog* dialog)
{
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    appearance::restoreSizes(dialog);
    QObject::connect(dialog, &QDialog::finished, dialog, [dialog] {
        appearance::saveSizes(*dialog);
        for (QAbstractButton* button : dialog->findChildren<QAbstractButton*>())
            button->blockSignals(true);
    });
    dialog->open();
}

/// Screen readers switch a button without its action: with Qt 5 it would not even follow. What hears of a switch
/// listens to QAction::toggled(), since such an action is not triggered.
inline void letSwitch(QToolButton* button)
{
    QObject::connect(button, &QToolButton::toggled, button, [button](bool isOn) {
        if (QAction* action = button->defaultAction()) {
            action->setChecked(isOn);
            button->setChecked(action->isChecked()); // One of a group stays.
        }
    });
}

/// A flat button at the end of \a row, which does \a action and shows \a shortText.
inline void addToolButton(QBoxLayout* row, QAction* action, const QString& shortText, QWidget* parent)
{
    action->setIconText(shortText);
    auto* button = new QToolButton(parent);
    button->setAccessibleName(action->text().remove(QLatin1Char('&')));
    button->setDefaultAction(action);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAutoRaise(true);
    letSwitch(button);
    row->addWidget(button);
}

/// A list whose current row stays in sight when its room changes, if it was.
template <typename List>
class KeepsInSight : public List {
public:
    using List::List;

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        const QRect row = this->visualRect(this->currentIndex());
        const bool wasSeen = QRect(QPoint(), event->oldSize()).intersects(row);
        List::resizeEvent(event);
        if (wasSeen)
            this->scrollTo(this->currentIndex());
    }
};

/// \a name for a label that has a buddy, where "&" would mark the letter behind it.
inline QString inLabel(QString name)
{
    return name.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace zoeditor
