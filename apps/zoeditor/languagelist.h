// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>
#include <QWidget>

class QComboBox;
class QListWidget;

namespace zoeditor {

/// Languages in an order of preference, by their names.
class LanguageList : public QWidget {
    Q_OBJECT

public:
    /// \a name begins the object names of its fields; \a label is what it is called.
    LanguageList(const QString& name, const QString& label, QWidget* parent = nullptr);

    QStringList codes() const;               ///< ISO 639, in their order.
    void setCodes(const QStringList& codes); ///< Nothing is sent.

    /// What a language calls itself, with its code: "fran\u00e7ais (fra)"; the code alone where it is not known.
    static QString nameOf(const QString& code);

signals:
    void edited(); ///< A person has changed codes().

private:
    void add(const QString& code);

    QListWidget* m_list;
    QComboBox* m_choice;
};

} // namespace zoeditor
