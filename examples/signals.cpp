// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What a model sends, what it does not, and a panel that listens.

#include <utility>

#include <QCoreApplication>
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
    table[2].name = "Color";
    table[2].properties = BCSDefaultVal;
    return table;
}

QString described(const QVariant& value)
{
    return value.isValid() ? value.toString() : QString("invalid");
}

// Shows the settings of one type: a row for each value that changes, all of them anew after a batch.
class Panel {
public:
    Panel(ZoEffectModel& model, QString type, QTextStream& out) : m_model(model), m_type(std::move(type)), m_out(out)
    {
        const auto valueChanged =
            QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged);
        const auto batchEnded = QOverload<const QString&>::of(&ZoEffectModel::effectDataChanged);

        QObject::connect(&model, &ZoEffectModel::effectDataAboutChange, &m_context, [this](const QString& changing) {
            if (changing == m_type)
                ++m_openBatches;
        });
        QObject::connect(&model, batchEnded, &m_context, [this](const QString& changed) {
            if (changed == m_type && (m_openBatches == 0 || --m_openBatches == 0))
                showAll();
        });
        QObject::connect(&model, valueChanged, &m_context,
                         [this](const QString& changed, const QString& key, const QVariant& value, int pos) {
                             if (changed == m_type && m_openBatches == 0)
                                 showOne(key, value, pos);
                         });
    }

private:
    void showOne(const QString& key, const QVariant& value, int pos)
    {
        m_out << "  panel: " << key << " of " << pos << " is " << value.toString() << '\n';
    }
    void showAll()
    {
        m_out << "  panel: brightness " << m_model.data("bcs_brightness", m_type, -1).toInt() << ", contrast "
              << m_model.data("bcs_contrast", m_type, -1).toInt() << '\n';
    }

    const ZoEffectModel& m_model;
    const QString m_type;
    QTextStream& m_out;
    int m_openBatches = 0;
    QObject m_context; // Ends the connections when the panel goes.
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    ZoEffectModel::InitEffectModel(effectTable());

    ZoEffectModel model;
    model.setVideoSize(640, 480);

    const auto valueChanged =
        QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged);
    const QMetaObject::Connection log = QObject::connect(
        &model, valueChanged, [&](const QString& type, const QString& key, const QVariant& value, int pos) {
            out << type << ", " << key << ", " << described(value) << ", " << pos << '\n';
        });

    model.setData("bcs_contrast", 5, "Color", -1);
    model.setData("bcs_contrast", "5", "Color", -1); // Equal: nothing.
    model.setData("_checkstate", true, "Color", -1); // Selected already: nothing.
    model.setData("_checkstate", 0, "Color", -1);    // The signal carries what was passed.

    model.addDataItem("Watermark", {{"wm_textcontent", "a"}});
    model.insertDataItem("Watermark", {{"wm_textcontent", "b"}}, 7); // Appended, since there is no item 7.
    model.changeDataItemPos("Watermark", 0, 1);                      // To 0, from 1.
    model.changeDataItemPos("Watermark", 1, 1);                      // Moves nothing.
    model.replaceData("Watermark", 0, {{"wm_fontsize", 12}});
    model.delDataItem("Watermark", 1);
    model.resetDataItem("Color", -1);
    QObject::disconnect(log);

    out << "with a panel\n";
    const Panel panel(model, "Color", out);
    model.setData("bcs_brightness", 10, "Color", -1);
    model.beginChange("Color");
    model.setData("bcs_brightness", 20, "Color", -1);
    model.setData("bcs_contrast", 30, "Color", -1);
    model.endChanged("Color");

    out << "with a listener that changes the model\n";
    // Keeps a crop as wide as it is high. Each write that changes nothing sends nothing, so this comes to rest.
    QObject::connect(&model, valueChanged, [&](const QString& type, const QString& key, const QVariant& value, int) {
        if (type != "Crop")
            return;
        out << "  " << key << " is " << model.data(key, type, -1).toInt() << '\n';
        if (key == "crop_width")
            model.setData("crop_height", value, "Crop", -1);
        else if (key == "crop_height")
            model.setData("crop_width", value, "Crop", -1);
    });
    model.setData("crop_width", 200, "Crop", -1);
    model.setData("crop_height", 120, "Crop", -1);
    return 0;
}
