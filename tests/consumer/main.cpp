// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// A host against the installed package, in small: it registers its table of effect types, listens to a model,
// brings a store for the custom defaults and asks for the watermark picture. Each check prints one row.

#include <writelog.h>
#include <zoeffectcatalogue.h>
#include <zoeffectitemdata.h>
#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>
#include <zopref.h>

#include <cstdio>

#include <QColor>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>

namespace {

class Store : public ZoPref {
public:
    bool hasKey(const QString& key) const override { return entries.contains(key); }
    QVariant value(const QString& key, const QVariant& defaultValue) const override
    {
        return entries.value(key, defaultValue);
    }
    void setValue(const QString& key, const QVariant& value, bool) override { entries.insert(key, value); }

    QMap<QString, QVariant> entries;
};

class Host : public QGuiApplication, public ZoPrefProvider {
public:
    using QGuiApplication::QGuiApplication;
    ZoPref* preferences() override { return &store; }

    Store store;
};

const EffectControlItem* table()
{
    static EffectControlItem types[4] = {};
    types[0].name = "Crop";
    types[0].properties = cropDefaultVal;
    types[1].name = "Watermark";
    types[1].properties = WatermarkDefaultVal;
    types[2].name = "Color";
    types[2].properties = BCSDefaultVal;
    return types;
}

int failures = 0;

void check(const char* name, bool holds)
{
    std::printf("%s%s\n", holds ? "PASS   : consumer: " : "FAIL!  : consumer: ", name);
    if (!holds)
        ++failures;
}

} // namespace

int main(int argc, char** argv)
{
    Host host(argc, argv);

    ZoEffectModel::InitEffectModel(table());
    check("the table's types are known",
          ZoEffectItemDefaultValMgr::supportTypes() == QStringList({"Crop", "Watermark", "Color"}));

    ZoEffectModel model;
    model.setVideoSize(64, 48);
    check("the base size is the video's", model.baseSize() == QSize(64, 48));
    check("a value of the catalogue", model.data("bcs_contrast", "Color", -1) == QVariant(0));

    QStringList changes;
    QObject::connect(&model,
                     qOverload<const QString&, const QString&, const QVariant&, int>(&ZoEffectModel::effectDataChanged),
                     [&changes](const QString& type, const QString& key, const QVariant& value, int pos) {
                         changes << QString("%1 %2 %3 %4").arg(type, key, value.toString()).arg(pos);
                     });
    check("a new value is stored", model.setData("bcs_contrast", 7, "Color", -1));
    model.setData("bcs_contrast", 7, "Color", -1);
    check("one signal tells it", changes == QStringList("Color bcs_contrast 7 -1"));

    const QString picture = QDir::tempPath() + "/red.png";
    QImage red(8, 4, QImage::Format_ARGB32);
    red.fill(QColor(255, 0, 0, 10));
    check("the watermark's image is written", red.save(picture));
    const QMap<QString, QVariant> watermark = {
        {"wm_istextwatermark", false}, {"wm_imageurl", picture}, {"wm_imagewidth", 8}, {"wm_imageheight", 4},
        {"wm_hposition", 20},          {"wm_vposition", 10},     {"_checkstate", true}};
    check("a watermark is added", model.addDataItem("Watermark", watermark));
    const QImage shown = model.getWatermark(64, 48, true).toImage();
    check("its picture has the video's size", shown.size() == QSize(64, 48));
    check("the image is drawn with the watermark's own alpha",
          shown.pixelColor(20, 10) == QColor(255, 0, 0, 254) && shown.pixelColor(27, 13) == QColor(255, 0, 0, 254));
    check("all around is transparent", qAlpha(shown.pixel(19, 10)) == 0 && qAlpha(shown.pixel(28, 13)) == 0
                                           && qAlpha(shown.pixel(20, 9)) == 0 && qAlpha(shown.pixel(27, 14)) == 0);

    model.saveAsCustomDefault("Color", -1);
    check("the custom default is in the host's store",
          host.store.entries.value("Color").toMap().value("bcs_contrast") == QVariant(7));
    check("a later model starts with it", ZoEffectModel().data("bcs_contrast", "Color", -1) == QVariant(7));
    check("the manager holds it", ZoEffectItemDefaultValMgr::getInstance()->hasCustomDefaultVal("Color"));

    ZoEffectItemData copy(*model.getDataItem("Color", -1));
    check("a node is copied with its values", copy.name() == "Color" && copy.data("bcs_contrast") == QVariant(7));

    WriteLog("%s has %d types", "consumer", 3);
    QFile log(QDir::tempPath() + "/consumer.1.log");
    check("the log is where it is said to be", log.open(QIODevice::ReadOnly));
    check("its only line is the host's", log.readAll() == "consumer has 3 types\n");

    return failures == 0 ? 0 : 1;
}
