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

    /// What is wrong in a field, a sentence; empty: nothing is.
    QString problem() const { return m_wrong.isEmpty() ? QString() : m_wrong.first(); }

signals:
    /// A value was set, or one was refused.
    void edited();

private:
    struct Row {
        ValueControl* control;
        QLabel* mark;
        QToolButton* revert;
        QLabel* note; ///< Below the field.
    };

    void makeRows();
    void set(const QString& key, const QVariant& given);
    void update();
    QString takenText(const QString& key) const;
    QString noteOf(const QString& key) const;

    Session* m_session;
    zokit::SettingsModel m_model;
    QVector<zokit::FileSettings*> m_files;
    QHash<QString, Row> m_rows; ///< By key.
    QVector<zokit::Values> m_taken;
    QMap<QString, QString> m_wrong; ///< Why what stands in a field was refused, by key.
};

} // namespace zoeditor
