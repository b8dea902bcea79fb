// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "kitsupport.h"

#include <utility>

#include <QDir>
#include <QFile>
#include <QImage>

#include <zoeffectitemdefaultvalmgr.h>

#include <zokit/properties.h>

namespace kitsupport {

QString key(const char* name)
{
    return QString::fromLatin1(name);
}

zokit::Media clip()
{
    return {QStringLiteral("/clips/clip.mkv"), QSize(1280, 720), 5.0};
}

zokit::Identity at(const zokit::FileSettings& file, const char* address)
{
    const zokit::ReadAddress read = zokit::readAddress(QString::fromLatin1(address));
    return read.address ? file.thing(*read.address) : 0;
}

QPoint placeOf(const zokit::FileSettings& file, zokit::Identity watermark)
{
    return {file.value(watermark, key("wm_hposition")).toInt(), file.value(watermark, key("wm_vposition")).toInt()};
}

QSize sizeOf(const zokit::FileSettings& file, zokit::Identity watermark)
{
    return {file.value(watermark, key("wm_imagewidth")).toInt(), file.value(watermark, key("wm_imageheight")).toInt()};
}

QString logoPath(int width, int height)
{
    const QString path = QDir::temp().filePath(QStringLiteral("logo-%1x%2.png").arg(width).arg(height));
    if (QFile::exists(path))
        return path;
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::blue);
    image.save(path);
    return path;
}

int stepsOr(const char* variable, int usual)
{
    bool isNumber = false;
    const int wanted = qEnvironmentVariableIntValue(variable, &isNumber);
    return isNumber ? wanted : usual;
}

void clearSavedDefaults()
{
    ZoEffectItemDefaultValMgr* saved = ZoEffectItemDefaultValMgr::getInstance();
    for (const QString& type : zokit::effectTypes())
        saved->removeCustomDefaultVal(type);
}

Log::Log(const zokit::FileSettings& file)
{
    connect(&file, &zokit::FileSettings::aboutToChange, this,
            [this, &file](const zokit::Changes& changes) { note(QStringLiteral("before"), file, changes); });
    connect(&file, &zokit::FileSettings::changed, this, [this, &file](const zokit::Changes& changes, QObject* asker) {
        note(QStringLiteral("after"), file, changes);
        m_asker = asker;
    });
}

QStringList Log::take()
{
    return std::exchange(m_lines, QStringList());
}

void Log::note(const QString& when, const zokit::FileSettings& file, const zokit::Changes& changes)
{
    for (const zokit::Change& change : changes) {
        const std::optional<zokit::Address> address = file.address(change.thing, change.key);
        m_lines.append(QStringLiteral("%1 %2 %3 %4")
                           .arg(when, address ? address->toString() : QStringLiteral("?"), change.before.toString(),
                                change.after.toString()));
    }
}

} // namespace kitsupport
