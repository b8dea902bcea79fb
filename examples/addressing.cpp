// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Type, position, key: how values, items and nodes are found.

#include <QCoreApplication>
#include <QPointer>
#include <QTextStream>

#include <zoeffectcatalogue.h>
#include <zoeffectmodel.h>

namespace {

const EffectControlItem* effectTable()
{
    static SubEffectItem frameEffects[3] = {};
    frameEffects[0].name = "Blur";
    frameEffects[0].properties = frameEffectsDefaultVal;
    frameEffects[1].name = "Sepia";
    frameEffects[1].properties = frameEffectsDefaultVal;

    static EffectControlItem table[4] = {};
    table[0].name = "Crop";
    table[0].properties = cropDefaultVal;
    table[1].name = "Watermark";
    table[1].properties = WatermarkDefaultVal;
    table[2].name = "Effect";
    table[2].subItems = frameEffects;
    return table;
}

QString described(const QVariant& value)
{
    return value.isValid() ? value.toString() : QString("invalid");
}

QString order(const ZoEffectModel& model)
{
    QStringList texts;
    for (int pos = 0; pos < model.childCount("Watermark"); ++pos)
        texts += model.data("wm_textcontent", "Watermark", pos).toString();
    return texts.join(' ');
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    ZoEffectModel::InitEffectModel(effectTable());

    ZoEffectModel model;
    for (const char* text : {"a", "b", "c"})
        model.addDataItem("Watermark", {{"wm_istextwatermark", true}, {"wm_textcontent", text}});

    model.setData("crop_left", 16, "Crop", -1);       // Of the type.
    model.setData("wm_fontsize", 30, "Watermark", 0); // Of its first item.
    out << described(model.data("crop_left", "Crop", -1)) << ' ';
    out << described(model.data("wm_fontsize", "Watermark", 0)) << ' ';
    out << described(model.data("wm_fontsize", "Watermark", 1)) << ' ';
    out << described(model.data("wm_fontsize", "Watermark", -1)) << '\n';

    out << "no such item: " << described(model.data("wm_fontsize", "Watermark", 3)) << '\n';
    out << "no such type: " << described(model.data("wm_fontsize", "watermark", 0)) << '\n';
    out << "no such key: " << described(model.data("wm_FontSize", "Watermark", 0)) << '\n';
    out << "no trackid: " << described(model.data("trackid", "Watermark", 0)) << '\n';
    out << "written: " << (model.setData("wm_fontsize", 30, "watermark", 0) ? "yes" : "no") << '\n';

    model.setData("_checkstate", true, "Effect", 1);
    out << model.data("_checkstate", "Effect", 0).toInt() << ' ' << model.data("_checkstate", "Effect", 1).toInt();
    out << ", by name " << model.data("_checkstate", "Sepia", -1).toInt() << '\n';
    out << "position of Sepia: " << model.getItemPos(model.getDataItem("Effect", -1), "Sepia") << '\n';

    out << order(model) << '\n';
    model.changeDataItemPos("Watermark", 0, 2); // To 0, from 2.
    out << order(model) << '\n';
    model.insertDataItem("Watermark", {{"wm_istextwatermark", true}, {"wm_textcontent", "d"}}, 1);
    model.delDataItem("Watermark", 3);
    out << order(model) << '\n';

    out << "a stands at " << model.getItemIndexByKeyValue("Watermark", "wm_textcontent", "a") << '\n';
    out << "z is there: " << (model.haveSameItem("Watermark", "wm_textcontent", "z") ? "yes" : "no") << '\n';
    model.selectItemByKeyEx("Watermark", "wm_textcontent", {"a", "c"});
    for (int pos = 0; pos < model.childCount("Watermark"); ++pos)
        out << model.data("_checkstate", "Watermark", pos).toInt() << ' ';
    out << "first selected: " << model.getSelectItem("Watermark")->data("wm_textcontent").toString() << '\n';

    const QPointer<ZoEffectItemData> first = model.getDataItem("Watermark", 0);
    model.changeDataItemPos("Watermark", 2, 0);
    out << "it stands at " << first->childNumber() << " now\n";
    model.delDataItem("Watermark", 2);
    out << "and is " << (first ? "there" : "gone") << '\n';
    return 0;
}
