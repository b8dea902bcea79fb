// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "report.h"

#include "console.h"

#include <QColor>
#include <QFont>

#include <memory>

#include <zoeffectcatalogue.h>
#include <zoeffectitemdefaultvalmgr.h>

namespace {

using Properties = QMap<QString, QVariant>;

QString textOf(const QVariant& value)
{
    switch (int(value.userType())) {
    case QMetaType::UnknownType:
        return "nothing";
    case QMetaType::QString:
        return '"' + value.toString() + '"';
    case QMetaType::QColor:
        return value.value<QColor>().name();
    case QMetaType::QFont:
        return "font " + value.value<QFont>().family();
    default:
        return value.toString();
    }
}

QString textOf(const Properties& properties)
{
    QStringList texts;
    for (auto it = properties.begin(); it != properties.end(); ++it)
        texts << it.key() + " " + textOf(it.value());
    return texts.join(", ");
}

QString textOf(const Track& track)
{
    return QString("%1 (%2, %3)").arg(track.id).arg(track.language, track.codec);
}

QString textOf(const QList<Track>& tracks)
{
    QStringList texts;
    for (const Track& track : tracks)
        texts << textOf(track);
    return texts.isEmpty() ? QString("none") : texts.join(", ");
}

/// The properties of node (\a type, \a pos) that are not what a new one would have.
Properties changedProperties(const ZoEffectModel& model, const QString& type, int pos)
{
    Properties changed;
    const Properties all = model.getDataItem(type, pos)->properties();
    for (auto it = all.begin(); it != all.end(); ++it) {
        if (!model.SingleDataIsDefault(type, it.key(), pos))
            changed.insert(it.key(), it.value());
    }
    return changed;
}

void printDifferences(const ZoEffectModel& model)
{
    for (const EffectControlItem* record = ZoEffectModel::s_EffectItems; record->name; ++record) {
        const QString type = record->name;
        if (!model.getDataItem(type, -1))
            continue;
        if (!model.dataIsDefault(type))
            say("not default", type + ": "
                                   + (type == "Effect" ? textOf(model.getCurrentFrameEffects())
                                                       : textOf(changedProperties(model, type, -1))));
        if (record->subItems)
            continue;
        for (int pos = 0; pos < model.childCount(type); ++pos) {
            const Properties changed = changedProperties(model, type, pos);
            if (!changed.isEmpty())
                say("not default", QString("%1:%2: %3").arg(type).arg(pos).arg(textOf(changed)));
        }
    }
}

QString nameOf(const ZoEffectItemData& track)
{
    const QString file = track.data("sub_fileurl").toString();
    return file.isEmpty() ? "embedded track " + track.data("trackid").toString() : "file " + file;
}

void printChosenTracks(const ZoEffectModel& model)
{
    // For "Audio" the answer is a container, which is ours, but the tracks in it are not: they go back first.
    QStringList names;
    const std::unique_ptr<ZoEffectItemData> chosen(model.getSelectItem("Audio"));
    while (chosen && chosen->childCount() > 0)
        names << nameOf(*chosen->takeAt(0));
    say("audio", names.isEmpty() ? QString("none") : names.join(", "));

    // For every other type it is the first chosen item, which stays the model's.
    const ZoEffectItemData* subtitle = model.getSelectItem("Subtitle");
    say("subtitle", subtitle ? nameOf(*subtitle) : QString("none"));
}

void printWatermarks(const ZoEffectModel& model)
{
    for (int pos = 0; pos < model.childCount("Watermark"); ++pos) {
        const ZoEffectItemData& item = *model.getDataItem("Watermark", pos);
        const bool isText = item.data("wm_istextwatermark").toBool();
        say(QString("watermark %1").arg(pos),
            QString("%1, %2 x %3 at %4,%5")
                .arg(textOf(item.data(isText ? "wm_textcontent" : "wm_imageurl")),
                     item.data("wm_imagewidth").toString(), item.data("wm_imageheight").toString(),
                     item.data("wm_hposition").toString(), item.data("wm_vposition").toString()));
    }
}

void printSavedDefaults()
{
    const ZoEffectItemDefaultValMgr& store = *ZoEffectItemDefaultValMgr::getInstance();
    for (const EffectControlItem* record = ZoEffectModel::s_EffectItems; record->name; ++record) {
        if (store.hasCustomDefaultVal(record->name))
            say("saved default", record->name + (": " + textOf(store.getCustomDefaultVal(record->name))));
    }
}

} // namespace

void trace(const ZoEffectModel& model)
{
    using Model = ZoEffectModel;
    const auto sayCall = [](const QString& signal, const QStringList& arguments) {
        say("signal", signal + '(' + arguments.join(", ") + ')');
    };

    // Two signals share a name: one value has changed; a whole type is to be read anew.
    QObject::connect(&model,
                     QOverload<const QString&, const QString&, const QVariant&, int>::of(&Model::effectDataChanged),
                     [=](const QString& type, const QString& key, const QVariant& value, int pos) {
                         sayCall("effectDataChanged", {type, key, textOf(value), QString::number(pos)});
                     });
    QObject::connect(&model, QOverload<const QString&>::of(&Model::effectDataChanged),
                     [=](const QString& type) { sayCall("effectDataChanged", {type}); });
    QObject::connect(&model, &Model::effectDataAboutChange,
                     [=](const QString& type) { sayCall("effectDataAboutChange", {type}); });
    QObject::connect(&model, &Model::currentItemChanged,
                     [=](const QString& type) { sayCall("currentItemChanged", {type}); });
    QObject::connect(&model, &Model::currentSubItemChanged, [=](const QString& type, int index) {
        sayCall("currentSubItemChanged", {type, QString::number(index)});
    });
    QObject::connect(
        &model, &Model::applyItemDataTo, &model,
        [=](const ZoEffectItemData* item, const QString& type, int pos, int to) {
            sayCall("applyItemDataTo", {textOf(item->properties()), type, QString::number(pos), QString::number(to)});
        });
    QObject::connect(&model, &Model::applyItemDataSomePropertyTo,
                     [=](const Properties& properties, const QString& type, int pos, int to) {
                         sayCall("applyItemDataSomePropertyTo",
                                 {textOf(properties), type, QString::number(pos), QString::number(to)});
                     });
}

void printMedia(const Media& media)
{
    say("clip", media.path
                    + QString(", %1 x %2, %3 s")
                          .arg(media.pictureSize.width())
                          .arg(media.pictureSize.height())
                          .arg(media.seconds, 0, 'f', 1));
    say("audio tracks", textOf(media.audioTracks));
    say("subtitle tracks", textOf(media.subtitleTracks));
}

void printAnswers(const FileSettings& settings)
{
    say("real effect", settings.picture.hasRealEffect() || settings.sound.hasRealEffect() ? "yes" : "no");
    const CropData crop = settings.picture.cropData();
    say("crop", crop.valid ? QString("%1 x %2 at %3,%4").arg(crop.width).arg(crop.height).arg(crop.left).arg(crop.top)
                           : QString("none"));
    printWatermarks(settings.picture);
    printDifferences(settings.picture);
    printDifferences(settings.sound);
    printChosenTracks(settings.picture);
    printSavedDefaults();
}
