// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "sleepguard.h"

#ifdef ZOEDITOR_HAS_DBUS
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#endif

namespace zoeditor {

#ifdef ZOEDITOR_HAS_DBUS

class SleepGuard::Private {
public:
    QDBusUnixFileDescriptor lock; ///< Sleep is held off as long as this is open.
    bool isHeld = false;
};

void SleepGuard::hold(bool isHeld)
{
    if (isHeld == d->isHeld)
        return;
    d->isHeld = isHeld;
    d->lock = {};
    if (!isHeld)
        return;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
    call.setArguments({QStringLiteral("sleep:idle"), QStringLiteral("zoeditor"), tr("Films are being converted"),
                       QStringLiteral("block")});
    auto* answer = new QDBusPendingCallWatcher(QDBusConnection::systemBus().asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *answer;
        if (d->isHeld && !reply.isError())
            d->lock = reply.value();
        answer->deleteLater();
    });
}

#else

class SleepGuard::Private {};

void SleepGuard::hold(bool) {}

#endif

SleepGuard::SleepGuard(QObject* parent) : QObject(parent), d(std::make_unique<Private>()) {}

SleepGuard::~SleepGuard() = default;

} // namespace zoeditor
