// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>
#include <QVector>

#include <zokit/child.h>
#include <zokit/probe.h>
#include <zokit/subtitlescript.h>

namespace zokit {
class FileSettings;
}

namespace zoeditor {

class Session;

/// When the selected subtitle of the current file is shown.
class SubtitleTimes : public QObject {
    Q_OBJECT

public:
    /// Follows what is current in \a session, which outlives it.
    explicit SubtitleTimes(Session& session, QObject* parent = nullptr);

    /// Empty without a subtitle, with one of pictures, and until it was read.
    QVector<zokit::SubtitleCue> cues() const { return m_cues; }

signals:
    /// cues() answers anew.
    void changed();

private:
    void look();
    void take(const zokit::ChildResult& result);

    Session& m_session;
    zokit::Child m_child;
    QVector<zokit::SubtitleCue> m_cues;
    QString m_wanted; ///< Which subtitle of which clip; empty for none.
    QString m_read;   ///< The one that the child reads.
};

} // namespace zoeditor
