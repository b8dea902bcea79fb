// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Custom defaults: saving them, what new items take from them, and keeping them in the host's own settings.

#include <QGuiApplication>
#include <QSettings>
#include <QTextStream>

#include <zoeffectcatalogue.h>
#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>
#include <zopref.h>

namespace {

// The host's settings as the store: the custom defaults are one group of them.
class SettingsStore : public ZoPref {
public:
    bool hasKey(const QString& key) const override { return m_settings.contains(path(key)); }
    QVariant value(const QString& key, const QVariant& defaultValue) const override
    {
        return m_settings.value(path(key), defaultValue);
    }
    void setValue(const QString& key, const QVariant& value, bool /*notify*/) override
    {
        if (value.isValid())
            m_settings.setValue(path(key), value);
        else
            m_settings.remove(path(key)); // Forgotten.
        m_settings.sync();
    }

private:
    static QString path(const QString& key) { return "effect-defaults/" + key; }

    QSettings m_settings;
};

class Application : public QGuiApplication, public ZoPrefProvider {
public:
    using QGuiApplication::QGuiApplication;
    ZoPref* preferences() override { return &m_store; }

private:
    SettingsStore m_store;
};

const EffectControlItem* effectTable()
{
    static SubEffectItem frameEffects[4] = {};
    frameEffects[0].name = "Blur";
    frameEffects[1].name = "Sepia";
    frameEffects[2].name = "Mirror";
    for (int i = 0; i < 3; ++i)
        frameEffects[i].properties = frameEffectsDefaultVal;

    static const EffectDefaultVal rotateProperties[] = {
        {"rotate_angle", QVariant(0), nullptr, QVariant(-180), QVariant(180)},
        {nullptr, QVariant(0), nullptr, QVariant(0), QVariant(0)},
    };

    static EffectControlItem table[6] = {};
    table[0].name = "Watermark";
    table[0].properties = WatermarkDefaultVal;
    table[1].name = "Subtitle";
    table[1].properties = SubtitleDefaultVal;
    table[2].name = "Color";
    table[2].properties = BCSDefaultVal;
    table[3].name = "Effect";
    table[3].subItems = frameEffects;
    table[4].name = "Rotate";
    table[4].properties = rotateProperties;
    return table;
}

QString place(const ZoEffectModel& model, int pos)
{
    return QString("%1,%2")
        .arg(model.data("wm_hposition", "Watermark", pos).toInt())
        .arg(model.data("wm_vposition", "Watermark", pos).toInt());
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setOrganizationName("Example Maker"); // Both names are parts of the settings' path.
    QCoreApplication::setApplicationName("custom-defaults");
    const Application application(argc, argv);
    QTextStream out(stdout);
    ZoEffectModel::InitEffectModel(effectTable()); // Tells which types there are, so before the first model.

    ZoEffectModel model;
    model.setVideoSize(1280, 720);
    model.addDataItem("Watermark", {{"wm_istextwatermark", true}, {"wm_textcontent", "Draft"}});
    model.setData("wm_fontsize", 40, "Watermark", 0);
    model.setData("wm_hposition", 640, "Watermark", 0);
    model.setData("wm_vposition", 72, "Watermark", 0);
    model.saveAsCustomDefault("Watermark", 0);

    const QMap<QString, QVariant> saved = ZoEffectItemDefaultValMgr::getInstance()->getCustomDefaultVal("Watermark");
    for (auto it = saved.cbegin(); it != saved.cend(); ++it)
        out << it.key() << ": " << it.value().typeName() << '\n';
    out << "factors: " << saved["wm_hposfactor"].toDouble() << " and " << saved["wm_vposfactor"].toDouble() << '\n';

    const QMap<QString, QVariant> text = {
        {"wm_istextwatermark", true}, {"wm_textcontent", "New"}, {"wm_imagewidth", 100}, {"wm_imageheight", 40}};
    ZoEffectModel other;
    other.setVideoSize(640, 360);
    for (int pos = 0; pos < 3; ++pos) {
        other.addDataItem("Watermark", text);
        out << "watermark " << pos << " at " << place(other, pos) << '\n';
    }
    other.delDataItem("Watermark", 0);
    other.addDataItem("Watermark", text);
    out << "instead of the first: at " << place(other, 2) << '\n';
    out << "size " << other.data("wm_fontsize", "Watermark", 2).toInt();
    out << ", the default: " << (other.SingleDataIsDefault("Watermark", "wm_fontsize", 2) ? "yes" : "no") << '\n';

    model.setData("bcs_contrast", 20, "Color", -1);
    model.saveAsCustomDefault("Color", -1);
    model.setData("_checkstate", true, "Effect", 2);
    model.changeDataItemPos("Effect", 0, 2);
    model.saveAsCustomDefault("Effect", -1);

    const ZoEffectModel next;
    out << "contrast " << next.data("bcs_contrast", "Color", -1).toInt() << '\n';
    out << next.getCurrentFrameEffects().value("Effect").toString() << '\n';
    out << "edited by default: " << (next.editByDefault() ? "yes" : "no") << '\n';

    model.saveAsCustomDefault("Rotate", -1); // No type that it knows: nothing.
    out << "saved: " << (model.hasCustomDefault("Rotate") ? "yes" : "no") << '\n';
    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal("Rotate", {{"rotate_angle", 90}});
    out << "angle of a new model: " << ZoEffectModel().data("rotate_angle", "Rotate", -1).toInt() << '\n';

    for (const char* type : {"Watermark", "Color", "Effect", "Rotate"})
        model.removeCustomDefault(type);
    out << "default size: " << ZoEffectModel::defaultValue("wm_fontsize", "Watermark").toInt();
    out << ", of the item still: " << model.data("wm_fontsize", "Watermark", 0).toInt() << '\n';
    return 0;
}
