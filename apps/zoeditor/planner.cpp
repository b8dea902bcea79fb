// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "planner.h"

namespace zoeditor {

Planner::Planner(const zokit::Tools& tools, QObject* parent) : QObject(parent), m_tools(tools) {}

void Planner::plan(const QVector<zokit::Job>& jobs)
{
    if (m_conversion) {
        m_conversion->disconnect(this);
        m_conversion->cancel(); // With nobody to stop it once it is planned, it would convert until it is deleted.
        m_conversion.release()->deleteLater();
    }
    m_jobs = jobs;
    m_place = 0;
    next();
}

void Planner::next()
{
    if (m_place >= m_jobs.size())
        return;
    const int place = m_place++;
    m_conversion = std::make_unique<zokit::Conversion>(m_tools);
    zokit::Conversion* conversion = m_conversion.get();
    auto warnings = std::make_shared<zokit::Messages>();
    connect(conversion, &zokit::Conversion::warned, this,
            [warnings](const zokit::Message& warning) { warnings->append(warning); });
    connect(conversion, &zokit::Conversion::planned, this, [this, conversion, place, warnings] {
        conversion->cancel(); // Before anything is begun.
        emit planned(place, conversion->plan(), *warnings);
    });
    connect(conversion, &zokit::Conversion::finished, this, [this, place](const zokit::ConversionResult& result) {
        m_conversion->disconnect(this);
        m_conversion.release()->deleteLater();
        if (result.outcome != zokit::Outcome::Cancelled)
            emit refused(place, result.reason);
        next();
    });
    conversion->start(m_jobs.at(place));
}

} // namespace zoeditor
