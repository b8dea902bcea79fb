// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Who owns what, for how long, and what may go to another thread. docs/guide/12-ownership.md tells about it.

#include <memory>

#include <QGuiApplication>
#include <QImage>
#include <QPointer>
#include <QTextStream>
#include <QThread>

#include <zoeffectcatalogue.h>
#include <zoeffectmodel.h>

namespace {

const EffectControlItem* effectTable()
{
    static EffectControlItem table[3] = {};
    table[0].name = "Crop";
    table[0].properties = cropDefaultVal;
    table[1].name = "Watermark";
    table[1].properties = WatermarkDefaultVal;
    return table;
}

const char* state(const QPointer<ZoEffectItemData>& node)
{
    return node ? "there" : "gone";
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    QTextStream out(stdout);
    ZoEffectModel::InitEffectModel(effectTable());
    QImage logo(20, 10, QImage::Format_RGB32);
    logo.fill(Qt::red);
    logo.save("logo.png");

    ZoEffectModel settings;
    settings.setVideoSize(1280, 720);
    for (int i = 0; i < 2; ++i)
        settings.addDataItem("Watermark", {{"wm_imageurl", "logo.png"}, {"wm_imagewidth", 20}, {"wm_imageheight", 10}});

    // What a worker gets are values: each is its own copy.
    const CropData crop = settings.cropData();
    const QMap<QString, QVariant> properties = settings.getDataItem("Watermark", 0)->properties();
    const QImage picture = settings.getWatermark(1280, 720, true).toImage();
    QString report;
    const std::unique_ptr<QThread> worker(QThread::create([&report, crop, properties, picture] {
        report = QString("%1, %2, %3 x %4")
                     .arg(crop.valid ? "cropped" : "whole", properties["wm_imageurl"].toString())
                     .arg(picture.width())
                     .arg(picture.height());
    }));
    worker->start();
    settings.setData("wm_imageurl", "other.png", "Watermark", 0); // The worker does not notice.
    worker->wait();
    out << "the worker: " << report << '\n';

    // A pointer to a node is good until the node goes. A QPointer knows when that was.
    const QPointer<ZoEffectItemData> type = settings.getDataItem("Watermark", -1);
    const QPointer<ZoEffectItemData> item = settings.getDataItem("Watermark", 0);
    settings.setData("wm_transparency", 50, "Watermark", 0);
    settings.changeDataItemPos("Watermark", 1, 0);
    settings.replaceData("Watermark", 1, QMap<QString, QVariant>());
    out << "changed, moved, set to defaults: type " << state(type) << ", item " << state(item) << '\n';
    const ZoEffectModel copy(settings);
    settings.replaceData("Watermark", -1, copy.getDataItem("Watermark", -1));
    out << "replaced by another type node: type " << state(type) << ", item " << state(item) << '\n';
    settings = copy;
    out << "model assigned: type " << state(type) << '\n';

    // Out of the list, out of the library's hands.
    std::unique_ptr<ZoEffectItemData> taken(settings.getDataItem("Watermark", -1)->takeAt(0));
    out << "taken out, left in the list: " << settings.childCount("Watermark") << '\n';

    // Into the list of another node, which owns it from now on.
    ZoEffectItemData* watermarks = settings.getDataItem("Watermark", -1);
    watermarks->appendChild(new ZoEffectItemData(*taken));
    const auto* created = new ZoEffectItemData(QString(), watermarks);
    out << "parents: " << (watermarks->child(1)->parent() ? "the type" : "none") << ", "
        << (created->parent() == watermarks ? "the type" : "none") << '\n';
    out << "deleted by position: " << settings.delDataItem("Watermark", 1) << ", "
        << settings.delDataItem("Watermark", 2) << '\n';

    // Models may have a QObject parent, nodes never have one.
    auto file = std::make_unique<QObject>();
    const QPointer<ZoEffectModel> child = new ZoEffectModel(file.get());
    const QPointer<ZoEffectItemData> crops = child->getDataItem("Crop", -1);
    out << "QObject parent of a node: " << (crops->QObject::parent() ? "some" : "none") << '\n';
    file.reset();
    out << "with its parent: model " << (child ? "there" : "gone") << ", node " << state(crops) << '\n';
    return 0;
}
