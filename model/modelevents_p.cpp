// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "modelevents_p.h"

#include <QDateTime>
#include <QLocale>

#include "logcategory_p.h"
#include "writelog.h"

namespace modelevents {

void log(ModelEvent event)
{
    const int number = static_cast<int>(event);
    // The C locale: others have digits of their own.
    const QByteArray now =
        QLocale::c().toString(QDateTime::currentDateTime(), QStringLiteral("yyyy/MM/dd hh:mm:ss")).toLocal8Bit();
    WriteLog(QStringLiteral("%s(%d) : %s %08x"), "zoeffectmodel", number, now.constData(), 0);
    WriteLog(QString());
    qCDebug(zoeffectCategory, "%d: %s", number, inWords(number));
}

} // namespace modelevents
