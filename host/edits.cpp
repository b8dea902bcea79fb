// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "edits.h"

#include "console.h"

#include <QColor>
#include <QFileInfo>
#include <QFont>

#include <zoeffectcatalogue.h>
#include <zoeffectitemdefaultvalmgr.h>

namespace {

/// The node (\a type, \a pos) must exist.
void demandItem(const ZoEffectModel& model, const QString& type, int pos)
{
    if (!model.getDataItem(type, pos))
        throw Failure{
            QString("%1:%2: there is no such item; %1 has %3").arg(type).arg(pos).arg(model.childCount(type))};
}

/// \a text as a value of the type that \a example has; invalid when it is no such value. Without an example
/// the text itself decides between a whole number, true or false, and text.
QVariant valueFrom(const QString& text, const QVariant& example)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    const bool isTruth = text == "true" || text == "false";
    const bool isSourceSize = example.toString() == "source_val"; // Stands for a number of pixels.

    switch (isSourceSize ? int(QMetaType::Int) : int(example.userType())) {
    case QMetaType::UnknownType:
        return isNumber ? QVariant(number) : isTruth ? QVariant(text == "true") : QVariant(text);
    case QMetaType::Bool:
        return isTruth ? QVariant(text == "true") : QVariant();
    case QMetaType::Int:
        return isNumber ? QVariant(number) : QVariant();
    case QMetaType::Double: {
        const double real = text.toDouble(&isNumber);
        return isNumber ? QVariant(real) : QVariant();
    }
    case QMetaType::QColor:
        return QColor::isValidColor(text) ? QVariant(QColor(text)) : QVariant();
    case QMetaType::QFont:
        return QFont(text);
    default:
        return text;
    }
}

} // namespace

ZoEffectModel& FileSettings::modelOf(const QString& type)
{
    for (ZoEffectModel* model : {&picture, &sound}) {
        if (model->getDataItem(type, -1))
            return *model;
    }
    throw Failure{type + ": there is no effect type of this name"};
}

int Length::inPixels(int whole) const
{
    constexpr double hundred = 100;
    return int(isPercent ? whole * number / hundred : number);
}

void measureTexts(FileSettings& settings)
{
    const QSize size = settings.picture.baseSize();
    settings.picture.getWatermark(size.width(), size.height(), false);
}

void addEmbeddedTracks(FileSettings& settings, const Media& media)
{
    const auto add = [&settings](const QString& type, const QList<Track>& tracks) {
        for (const Track& track : tracks) {
            // "trackid" makes it an embedded track, "_checkstate" chooses it; the rest is this host's own.
            settings.picture.addDataItem(type, {{"trackid", track.id},
                                                {"_checkstate", track.id == tracks.first().id},
                                                {"language", track.language},
                                                {"codec", track.codec}});
        }
    };
    add("Audio", media.audioTracks);
    add("Subtitle", media.subtitleTracks);
}

void addTextWatermark(FileSettings& settings, const QString& text)
{
    measureTexts(settings);
    settings.picture.addDataItem("Watermark", {{"wm_istextwatermark", true}, {"wm_textcontent", text}});
}

void addImageWatermark(FileSettings& settings, const QString& path)
{
    const QPixmap* image = settings.picture.getImage(path, nullptr); // The model's: loaded once, and kept.
    if (image->isNull())
        throw Failure{path + ": this is no picture that can be read"};

    measureTexts(settings);
    settings.picture.addDataItem("Watermark", {{"wm_istextwatermark", false},
                                               {"wm_imageurl", path},
                                               {"wm_imagewidth", image->width()},
                                               {"wm_imageheight", image->height()}});
}

void cropPicture(FileSettings& settings, const CropWish& wish)
{
    ZoEffectModel& model = settings.picture;
    const QSize frame = model.baseSize();
    const QRect area(wish.left.inPixels(frame.width()), wish.top.inPixels(frame.height()),
                     wish.width.inPixels(frame.width()), wish.height.inPixels(frame.height()));
    const QSize least(model.data("crop_minwidth", "Crop", -1).toInt(),
                      model.data("crop_minheight", "Crop", -1).toInt());
    if (!QRect(QPoint(0, 0), frame).contains(area) || area.width() < least.width() || area.height() < least.height()) {
        throw Failure{QString("crop: %1 x %2 at %3,%4 is smaller than %5 x %6 or leaves the picture of %7 x %8")
                          .arg(area.width())
                          .arg(area.height())
                          .arg(area.x())
                          .arg(area.y())
                          .arg(least.width())
                          .arg(least.height())
                          .arg(frame.width())
                          .arg(frame.height())};
    }

    // The bracket tells listeners to wait until all values are there.
    model.beginChange("Crop");
    model.setData("crop_left", area.x(), "Crop", -1);
    model.setData("crop_top", area.y(), "Crop", -1);
    model.setData("crop_width", area.width(), "Crop", -1);
    model.setData("crop_height", area.height(), "Crop", -1);
    // A free rectangle: otherwise rescaling would give it the ratio of the frame.
    model.setData("crop_keepaspectratio", false, "Crop", -1);
    model.setData("crop_aspectratio", "Crop Area", "Crop", -1);
    model.endChanged("Crop");
}

void addSubtitleFile(FileSettings& settings, const QString& path, int patience)
{
    if (probe(path, patience).subtitleTracks.isEmpty())
        throw Failure{path + ": this file has no subtitle stream"};

    // "sub_fromfile" makes it a track from a file; where the file is, is the host's business.
    if (!settings.picture.haveSameItem("Subtitle", "sub_fileurl", path))
        settings.picture.addDataItem("Subtitle", {{"sub_fromfile", true}, {"sub_fileurl", path}});
    settings.picture.selectItemByKey("Subtitle", "sub_fileurl", path);
}

void setValue(FileSettings& settings, const QString& type, int pos, const QString& key, const QString& text)
{
    ZoEffectModel& model = settings.modelOf(type);
    demandItem(model, type, pos);

    QVariant example = model.data(key, type, pos);
    if (!example.isValid())
        example = ZoEffectModel::defaultValue(key, type);
    if (key == "_checkstate") // Reads as 2 or 0, and is set by true or false.
        example = true;
    const QVariant value = valueFrom(text, example);
    if (!value.isValid())
        throw Failure{QString("%1: \"%2\" is no %3").arg(key, text, QLatin1String(example.typeName()))};
    model.setData(key, value, type, pos);
}

void chooseTracks(FileSettings& settings, const QString& type, const QList<int>& ids)
{
    ZoEffectModel& model = settings.picture;
    QStringList texts;
    for (const int id : ids) {
        if (!model.haveSameItem(type, "trackid", id))
            throw Failure{QString("stream %1: the file has no such track of type %2").arg(id).arg(type)};
        texts << QString::number(id);
    }
    model.selectItemByKeyEx(type, "trackid", texts);
}

void saveDefault(FileSettings& settings, const QString& type, int pos)
{
    ZoEffectModel& model = settings.modelOf(type);
    const bool isOfItem = type == "Watermark" || type == "Subtitle";
    const bool isOfType = type == "Color" || type == "Effect";
    if (!isOfItem && !isOfType)
        throw Failure{type + ": this type keeps no defaults of the user"};
    if (isOfItem && pos < 0)
        throw Failure{type + ": which item's settings are to be saved is missing, as in " + type + ":0"};
    demandItem(model, type, isOfItem ? pos : -1);
    model.saveAsCustomDefault(type, pos);
}

void forgetDefault(const QString& type)
{
    if (!ZoEffectModel::findOriItem(type, ZoEffectModel::s_EffectItems))
        throw Failure{type + ": there is no effect type of this name"};
    ZoEffectItemDefaultValMgr::getInstance()->removeCustomDefaultVal(type);
}
