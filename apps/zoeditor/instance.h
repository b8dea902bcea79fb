// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLocalServer>
#include <QObject>
#include <QStringList>

namespace zoeditor {

/// One editor a user: a second start hands its files to the first one.
class Instance : public QObject {
    Q_OBJECT

public:
    /// \a name tells which editors are the same; empty for that of this user.
    explicit Instance(const QString& name = {}, QObject* parent = nullptr);

    /// Hands \a files to the editor that runs already. False when none does: then this is the first, and hears of the
    /// next ones.
    bool handOver(const QStringList& files);

signals:
    /// A second start has handed over \a files, by their absolute paths; without any it only asks for the window.
    void filesHandedOver(const QStringList& files);

private:
    void take();

    QString m_name;
    QLocalServer m_server;
};

} // namespace zoeditor
