// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Handing settings of one file to others. docs/guide/10-applying.md tells about it.

#include <QCryptographicHash>
#include <QDataStream>
#include <QGuiApplication>
#include <QIODevice>
#include <QTextStream>

#include <zoeffectcatalogue.h>
#include <zoeffectmodel.h>

namespace {

const EffectControlItem* effectTable()
{
    static EffectControlItem table[4] = {};
    table[0].name = "Crop";
    table[0].properties = cropDefaultVal;
    table[1].name = "Watermark";
    table[1].properties = WatermarkDefaultVal;
    table[2].name = "Subtitle";
    table[2].properties = SubtitleDefaultVal;
    return table;
}

enum Target { AllOtherFiles = 1 }; // What "applyto" means is up to the host.

// Delivers what the source gives out to all other open files.
void deliver(ZoEffectModel& source, const QList<ZoEffectModel*>& files)
{
    QObject::connect(&source, &ZoEffectModel::applyItemDataTo, &source,
                     [&source, files](ZoEffectItemData* item, const QString& type, int pos, int applyto) {
                         for (ZoEffectModel* file : files) {
                             if (file != &source && applyto == AllOtherFiles && file->getDataItem(type, pos))
                                 file->replaceData(type, pos, item); // A deep copy: the node stays the source's.
                         }
                     });
    QObject::connect(&source, &ZoEffectModel::applyItemDataSomePropertyTo, &source,
                     [&source, files](const QMap<QString, QVariant>& props, const QString& type, int, int applyto) {
                         for (ZoEffectModel* file : files) {
                             if (file != &source && applyto == AllOtherFiles)
                                 file->replaceItemDataProperty(type, props);
                         }
                     });
}

// Prints each change in the list of a type or in an item of it.
void listen(const ZoEffectModel& file, const QString& name, QTextStream& out)
{
    QObject::connect(
        &file, QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
        [&out, name](const QString& type, const QString& key, const QVariant&, int pos) {
            out << name << ": " << type << ' ' << key << ' ' << pos << '\n';
        });
}

QString fontSizes(const ZoEffectModel& file)
{
    QStringList sizes;
    for (int pos = 0; pos < file.childCount("Subtitle"); ++pos)
        sizes << file.data("sub_fontsize", "Subtitle", pos).toString();
    return sizes.join(' ');
}

QByteArray checksum(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

// All that a type of the model holds: itself, then its items; a checksum in front.
QByteArray saved(const ZoEffectModel& file, const QString& type)
{
    QByteArray body;
    QDataStream stream(&body, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << file.childCount(type);
    for (int pos = -1; pos < file.childCount(type); ++pos) {
        const ZoEffectItemData* node = file.getDataItem(type, pos);
        stream << node->name() << node->checkState() << node->properties();
    }
    return checksum(body) + body;
}

// Reads everything, checks it, then applies it. False: the file is damaged or cut, and nothing has changed.
bool restore(ZoEffectModel& file, const QString& type, const QByteArray& bytes)
{
    const QByteArray body = bytes.mid(checksum({}).size());
    if (bytes != checksum(body) + body)
        return false;
    QDataStream stream(body);
    stream.setVersion(QDataStream::Qt_5_15);
    int items = 0;
    stream >> items;
    ZoEffectItemData whole(type); // Belongs to no model, so replaceData() copies it as it is.
    for (int pos = -1; pos < items && stream.status() == QDataStream::Ok; ++pos) {
        QString name;
        int checkState = 0;
        QMap<QString, QVariant> properties;
        stream >> name >> checkState >> properties;
        auto* node = pos < 0 ? &whole : new ZoEffectItemData(name, &whole); // Owned by "whole".
        node->setCheckState(checkState);
        for (auto it = properties.cbegin(); it != properties.cend(); ++it)
            node->setData(it.key(), it.value());
    }
    if (stream.status() != QDataStream::Ok || !stream.atEnd())
        return false;
    file.replaceData(type, -1, &whole);
    return true;
}

// How many damaged files the loader takes: the good one cut at each byte, and with each of its bytes changed.
int damagedFilesTaken(ZoEffectModel& file, const QString& type, const QByteArray& good)
{
    int taken = 0;
    for (int i = 0; i < good.size(); ++i) {
        QByteArray changed = good;
        changed[i] = char(~changed[i]);
        for (const QByteArray& damaged : {good.left(i), changed}) {
            if (restore(file, type, damaged))
                ++taken;
        }
    }
    return taken;
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    QTextStream out(stdout);
    ZoEffectModel::InitEffectModel(effectTable());

    ZoEffectModel large;
    large.setVideoSize(1280, 720);
    ZoEffectModel small;
    small.setVideoSize(640, 360);
    deliver(large, {&large, &small});

    large.addDataItem("Watermark", {{"wm_imageurl", "logo.png"}, {"wm_hposition", 600}, {"wm_imagewidth", 200}});
    for (int i = 0; i < 10; ++i) {
        large.addDataItem("Subtitle", {{"trackid", i + 1}, {"_checkstate", i == 0}});
        small.addDataItem("Subtitle", {{"sub_fromfile", true}});
    }
    large.setData("sub_fontsize", 30, "Subtitle", 0);
    listen(large, "large", out);
    listen(small, "small", out);

    large.applyDataTo("Watermark", -1, AllOtherFiles);
    out << "watermark at " << small.data("wm_hposition", "Watermark", 0).toInt() << '\n';

    large.applyDataTo("Watermark", 0, AllOtherFiles);
    out << "watermark at " << small.data("wm_hposition", "Watermark", 0).toInt() << '\n';

    // To be applied later: a copy of the whole model, since a node by itself does not know its base size.
    const ZoEffectModel kept(large);
    small.replaceData("Watermark", -1, kept.getDataItem("Watermark", -1));
    out << "watermark at " << small.data("wm_hposition", "Watermark", 0).toInt() << '\n';

    large.applySomePropertytoOther("Subtitle", 0, AllOtherFiles);
    out << "large " << fontSizes(large) << (large.editByUser() ? ", edited" : "") << '\n';
    out << "small " << fontSizes(small) << (small.editByUser() ? ", edited" : "") << '\n';

    // Where every track is to have it, the host writes it itself.
    small.beginChange("Subtitle");
    small.blockSignals(true);
    for (int pos = 0; pos < small.childCount("Subtitle"); ++pos)
        small.setData("sub_fontsize", 15, "Subtitle", pos);
    small.blockSignals(false);
    small.endChanged("Subtitle");
    out << "small " << fontSizes(small) << '\n';

    small.replaceData("Subtitle", 0, {});                        // The null node: logged (1029), and that is all.
    small.replaceData("Subtitle", 0, QMap<QString, QVariant>()); // The defaults.
    small.replaceData("Subtitle", 1, {{"sub_fontsize", 18}});    // The defaults, but for this.
    out << "small " << fontSizes(small) << '\n';

    QObject folder;
    const ZoEffectModel copy(large);                       // As large is now, without QObject parent.
    const auto* empty = new ZoEffectModel(large, &folder); // Nothing: deliberate.
    auto* underAParent = new ZoEffectModel(large, &folder);
    *underAParent = large;
    out << "tracks: " << copy.childCount("Subtitle") << ", " << empty->findDataItem("effect root", -1)->childCount()
        << ", " << underAParent->childCount("Subtitle") << '\n';

    const QByteArray project = saved(large, "Subtitle");
    large.resetDataItem("Subtitle", -1); // No track is left.
    const QByteArray without = saved(large, "Subtitle");
    out << "damaged files taken: " << damagedFilesTaken(large, "Subtitle", project);
    out << ", settings " << (saved(large, "Subtitle") == without ? "as before" : "changed") << '\n';
    const bool taken = restore(large, "Subtitle", project);
    out << "the whole file: " << (taken ? "taken" : "refused") << '\n';
    out << "large " << fontSizes(large) << '\n';
    return 0;
}
