// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QDialog>
#include <QTimer>
#include <QVector>

#include <zokit/conversion.h>
#include <zokit/filesettings.h>

#include "jobs.h"
#include "planner.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTemporaryDir;
class QTreeWidget;

namespace zoeditor {

class OptionsForm;
class Session;

/// Converting: output options of one file or of all, where the results go, what becomes of each track, the command that
/// will be run, and a short part to look at. The files are the selected ones, or all.
class ConvertDialog : public QDialog {
    Q_OBJECT

public:
    /// "Here" is \a seconds from the beginning of the current clip.
    ConvertDialog(Session* session, double seconds, QWidget* parent = nullptr);
    /// A part that was converted to be looked at is removed.
    ~ConvertDialog() override;

    /// Adds the jobs to the queue and starts it.
    void accept() override;

private:
    QWidget* makeOptions();
    QWidget* makePlans();
    void makeWhich(QLayout* layout);
    void fillOf();
    QVector<zokit::FileSettings*> files() const;
    int shownJob() const;
    void update();
    void showTaken();
    void showPlan(int job, const zokit::TracksPlan& plan, const zokit::Messages& warnings);
    void showProblem(int job, const QString& text);
    void showCommand();
    void convertSample();
    void endSample(const zokit::ConversionResult& result);

    Session* m_session;
    QVector<zokit::FileSettings*> m_selected; ///< When it was opened: a file that is still being read may come.
    double m_seconds;
    OptionsForm* m_options;
    QComboBox* m_which; ///< The selected files or all; hidden where these are the same.
    QComboBox* m_of;
    QLineEdit* m_folder;
    QComboBox* m_existing;
    QTreeWidget* m_plans;
    QLabel* m_problem;
    QPlainTextEdit* m_command;
    QLabel* m_sampleState;
    QPushButton* m_copyCommand = nullptr;
    QPushButton* m_sampleButton = nullptr;
    QPushButton* m_showSample = nullptr;
    QPushButton* m_start = nullptr;
    QTimer m_soon;
    MadeJobs m_made;
    QVector<zokit::Values> m_taken; ///< What options that are not set come to, by job, as far as it is known.
    Planner m_planner;
    std::unique_ptr<QTemporaryDir> m_helpers; ///< What the command that is shown reads.
    std::unique_ptr<zokit::Conversion> m_preparing;
    std::unique_ptr<zokit::Conversion> m_sampling;
    zokit::Job m_whole; ///< Of which m_sample is a part.
    zokit::Job m_sample;
};

} // namespace zoeditor
