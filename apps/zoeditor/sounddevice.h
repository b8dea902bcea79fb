// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QByteArray>
#include <QObject>

namespace zoeditor {

/// What plays sound without another program.
class SoundDevice : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Plays \a wave, as zokit::SoundAnswer has it; what played before ends. False, and nothing is sent, when nothing
    /// can be heard this way.
    virtual bool play(const QByteArray& wave) = 0;
    /// Silent at once; ended() is not sent.
    virtual void stop() = 0;

signals:
    /// Nothing plays any more; \a trouble says why when that came too early.
    void ended(const QString& trouble);
};

/// Qt Multimedia's; null where the editor was built without that, and where ZOEDITOR_PLAYER names a program instead.
std::unique_ptr<SoundDevice> makeSoundDevice();

} // namespace zoeditor
