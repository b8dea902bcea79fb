// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLayout>
#include <QPushButton>

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

/// \a name for a label that has a buddy, where "&" would mark the letter behind it.
inline QString inLabel(QString name)
{
    return name.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace zoeditor
