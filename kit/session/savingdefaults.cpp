// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "savingdefaults_p.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTimer>

#include <zoeffectmodel.h>

#include <zokit/properties.h>

namespace zokit {

namespace {

const QString watermark = QStringLiteral("Watermark");
const QString subtitle = QStringLiteral("Subtitle");

/// \a position of \a values as a part of \a side, under \a factor. A frame that is none has no parts.
void addFactor(Values& saved, const QString& factor, const Values& values, const QString& position, int side)
{
    if (side > 0)
        saved.insert(factor, double(values.value(position).toInt()) / side);
}

void copy(Values& saved, const Values& values, const QStringList& keys)
{
    for (const QString& key : keys) {
        if (values.contains(key))
            saved.insert(key, values.value(key));
    }
}

Values ofWatermark(const Values& values, const Values& before, const QSize& frame)
{
    Values saved = before;
    copy(saved, values, {QStringLiteral("wm_transparency")});
    if (values.value(QStringLiteral("wm_istextwatermark")).toBool())
        copy(saved, values,
             {QStringLiteral("wm_fontname"), QStringLiteral("wm_fontcolor"), QStringLiteral("wm_fontstyle"),
              QStringLiteral("wm_fontsize")});
    else
        copy(saved, values, {QStringLiteral("wm_imagekeepratio")});
    addFactor(saved, QStringLiteral("wm_hposfactor"), values, QStringLiteral("wm_hposition"), frame.width());
    addFactor(saved, QStringLiteral("wm_vposfactor"), values, QStringLiteral("wm_vposition"), frame.height());
    return saved;
}

Values ofSubtitle(const Values& values, const Values& before, const QSize& frame)
{
    Values saved = before;
    copy(saved, values, {QStringLiteral("sub_transparency"), QStringLiteral("sub_fontcolor")});
    if (values.value(QStringLiteral("sub_fromfile")).toBool())
        copy(saved, values,
             {QStringLiteral("sub_fontname"), QStringLiteral("sub_fontstyle"), QStringLiteral("sub_linemargin"),
              QStringLiteral("sub_fontsize")});
    else
        copy(saved, values, {QStringLiteral("fontstyleusedefault"), QStringLiteral("sub_framecolor")});
    addFactor(saved, QStringLiteral("sub_vposfactor"), values, QStringLiteral("sub_vposition"), frame.height());
    return saved;
}

} // namespace

Values valuesToSave(const FileSettings& file, const Address& address, const Values& before)
{
    const Values values = file.values(file.thing(address));
    const QSize frame = baseFrame(file.settings());
    const bool isItem = address.pos != Address::ofType;
    if (address.type == watermark)
        return isItem ? ofWatermark(values, before, frame) : Values();
    if (address.type == subtitle)
        return isItem ? ofSubtitle(values, before, frame) : Values();
    if (address.type == QLatin1String("Effect"))
        return file.pictureModel()->getCurrentFrameEffects();
    Values saved = values;
    saved.remove(QStringLiteral("selected"));
    return address.type == QLatin1String("Crop") || address.type == QLatin1String("Audio") ? Values() : saved;
}

Message whyUnwritten()
{
    const QCoreApplication* application = QCoreApplication::instance();
    const auto* tryingAgain =
        application ? application->findChild<QTimer*>(QStringLiteral("zoeffect-unsaved"), Qt::FindDirectChildrenOnly)
                    : nullptr;
    if (!tryingAgain || !tryingAgain->isActive())
        return Message();
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation));
    const QString path = folder.filePath(QStringLiteral("effectdefaults.json"));
    constexpr int more = 4096; // Than is there.
    QSaveFile trial(path);     // It tells the reason, and is never put into place.
    const QByteArray blanks(static_cast<int>(QFileInfo(path).size()) + more, ' ');
    const bool isWritable = trial.open(QIODevice::WriteOnly) && trial.write(blanks) >= 0 && trial.flush();
    trial.cancelWriting();
    const QString reason = isWritable
                               ? QCoreApplication::translate("zokit", "it is locked, damaged or of a newer version")
                               : trial.errorString();
    return Message(Message::Code::FileUnwritable, {path, reason});
}

} // namespace zokit
