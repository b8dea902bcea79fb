// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QSet>
#include <QVector>

#include <zokit/carryover.h>
#include <zokit/filesettings.h>
#include <zokit/settings.h>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

namespace zoeditor {

class DifferenceList;
class Session;
class WhatTree;

/// Carries settings of the current file over to others, as one step: what, to which, and what that changes in each
/// before it happens. A file's differences are found when they are looked at.
class ApplyDialog : public QDialog {
    Q_OBJECT

public:
    /// From the current file of \a session, which there must be.
    explicit ApplyDialog(Session* session, QWidget* parent = nullptr);

    void accept() override;

private:
    QVector<zokit::FileSettings*> targets() const;
    zokit::CarryOver carry() const;
    zokit::Settings after(const zokit::Settings& before) const;
    void update();
    void showPicture(QLabel* label, const zokit::FileSettings* file);
    void showPictures();

    Session* m_session;
    zokit::Settings m_from;
    WhatTree* m_what;
    QComboBox* m_where;
    QCheckBox* m_add;
    DifferenceList* m_differences;
    QLabel* m_problem;
    QWidget* m_pictures;
    QLabel* m_picturesTitle;
    QLabel* m_smallest;
    QLabel* m_largest;
    QPushButton* m_apply;
};

} // namespace zoeditor
