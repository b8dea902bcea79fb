// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

#include <zokit/presets.h>

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace zoeditor {

class DifferenceList;
class Session;
class WhatTree;

/// Presets: what laying one over the selected files changes, shown before; saving one of what is checked of the current
/// file; renaming, removing, import and export. A second page has the saved defaults.
class PresetsDialog : public QDialog {
    Q_OBJECT

public:
    explicit PresetsDialog(Session* session, QWidget* parent = nullptr);

    /// Takes in preset files under the names of the files; what is wrong with one is shown, and which of the files that
    /// they name are missing.
    void importFiles(const QStringList& files);
    /// Writes the chosen preset to \a file, and what it names to a folder beside it.
    void exportTo(const QString& file);

private:
    QWidget* makeList();
    QWidget* makeSaving();
    void fill(const QString& chosen);
    void update();
    void layOver();
    void remove();
    void tell(const zokit::Message& refused); ///< Shows it; empty: nothing is wrong.
    /// Shows what was refused; when nothing was, the list is read anew with \a name chosen.
    void take(const zokit::Message& refused, const QString& name);
    QString chosen() const;

    Session* m_session;
    zokit::Presets m_presets;
    QListWidget* m_list;
    DifferenceList* m_differences;
    QLabel* m_problem;
    QLineEdit* m_name;
    QCheckBox* m_replace;
    WhatTree* m_what;
    QPushButton* m_save = nullptr;
    QPushButton* m_layOver = nullptr;
    QPushButton* m_rename = nullptr;
    QPushButton* m_remove = nullptr;
    QPushButton* m_export = nullptr;
};

} // namespace zoeditor
