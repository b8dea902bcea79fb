// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QScrollArea>
#include <QVector>

#include <zokit/filesettings.h>
#include <zokit/settingsmodel.h>

class QLabel;
class QToolButton;

namespace zoeditor {

class Session;
class ValueControl;

/// The output options of one file or of many: a line each, made from the kit's table. What is set is set in all of
/// them, as one step.
class OptionsForm : public QScrollArea {
    Q_OBJECT

public:
    explicit OptionsForm(Session* session, QWidget* parent = nullptr);

    /// Edits \a files; shown are the values of the first one.
    void setFiles(const QVector<zokit::FileSettings*>& files);
    /// What options come to in the files where they are not set, by their names: empty fields show it.
    void showTaken(const QVector<zokit::Values>& taken);

signals:
    /// A value was set.
    void edited();

private:
    struct Row {
        ValueControl* control;
        QLabel* mark;
        QToolButton* revert;
    };

    void makeRows();
    void set(const QString& key, const QVariant& value);
    void update();
    QString takenText(const QString& key) const;

    Session* m_session;
    zokit::SettingsModel m_model;
    QVector<zokit::FileSettings*> m_files;
    QHash<QString, Row> m_rows; ///< By key.
    QVector<zokit::Values> m_taken;
};

} // namespace zoeditor
