// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QVector>

#include <zokit/changes.h>
#include <zokit/frames.h>

namespace zoeditor {

class Session;

/// Gets small pictures of files, one after the other, for the list.
class Thumbnails : public QObject {
    Q_OBJECT

public:
    explicit Thumbnails(Session* session, QObject* parent = nullptr);

    /// Those of \a files that have no picture yet get one; what was asked before and is not among them is dropped.
    void ask(const QVector<zokit::Identity>& files);

private:
    void askNext();
    void take(const zokit::FrameAnswer& answer);

    Session* m_session;
    zokit::Frames m_frames;
    QVector<zokit::Identity> m_wanted;
    QVector<zokit::Identity> m_asked; ///< Once is enough: what gives no picture now will give none.
    zokit::Identity m_open = 0;
};

} // namespace zoeditor
