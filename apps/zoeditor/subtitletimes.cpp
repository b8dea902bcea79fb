// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "subtitletimes.h"

#include <zokit/conversion.h>
#include <zokit/filesettings.h>

#include "session.h"

namespace zoeditor {

SubtitleTimes::SubtitleTimes(Session& session, QObject* parent) : QObject(parent), m_session(session)
{
    connect(&m_child, &zokit::Child::finished, this, &SubtitleTimes::take);
    connect(&session, &Session::currentChanged, this, &SubtitleTimes::look);
    connect(&session, &Session::fileStateChanged, this, &SubtitleTimes::look);
    connect(&session.project(), &zokit::Project::changed, this, &SubtitleTimes::look);
    look();
}

void SubtitleTimes::look()
{
    const zokit::FileSettings* file = m_session.current();
    const zokit::MediaInfo* media = file ? m_session.mediaOf(file) : nullptr;
    zokit::SubtitlePlan plan;
    if (media)
        plan = zokit::subtitlePlan(file->settings(), *media);
    const bool isText = plan.use == zokit::SubtitleUse::BurnText || plan.use == zokit::SubtitleUse::Soft;
    const QString wanted =
        isText ? QStringLiteral("%1\n%2\n%3").arg(media->file, plan.file).arg(plan.stream) : QString();
    if (wanted != m_wanted) {
        m_wanted = wanted;
        if (!m_child.isRunning())
            m_read.clear();
        m_cues.clear();
        emit changed();
    }
    if (m_child.isRunning()) {
        if (m_read != wanted)
            m_child.cancel(); // Its end looks again.
        return;
    }
    if (wanted.isEmpty() || wanted == m_read)
        return;
    m_read = wanted;
    m_child.start(zokit::extractCommand(m_session.tools(), *media, plan));
}

void SubtitleTimes::take(const zokit::ChildResult& result)
{
    if (m_read != m_wanted) {
        m_read.clear();
        look();
        return;
    }
    if (result.isGood())
        m_cues = zokit::subtitleCues(result.output);
    emit changed();
}

} // namespace zoeditor
