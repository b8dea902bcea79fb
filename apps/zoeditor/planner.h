// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QObject>
#include <QVector>

#include <zokit/conversion.h>
#include <zokit/tools.h>

namespace zoeditor {

/// Finds out what would become of jobs, one after the other, without converting anything.
class Planner : public QObject {
    Q_OBJECT

public:
    explicit Planner(const zokit::Tools& tools, QObject* parent = nullptr);

    /// Plans \a jobs; those before get no answer any more.
    void plan(const QVector<zokit::Job>& jobs);

signals:
    /// What becomes of the tracks of a job, and what is to be said of it.
    void planned(int job, const zokit::TracksPlan& plan, const zokit::Messages& warnings);
    /// Why a job cannot be done; \a why is a sentence.
    void refused(int job, const zokit::Message& why);

private:
    void next();

    zokit::Tools m_tools;
    QVector<zokit::Job> m_jobs;
    int m_place = 0;
    std::unique_ptr<zokit::Conversion> m_conversion;
};

} // namespace zoeditor
