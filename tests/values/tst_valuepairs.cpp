// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What the model takes for equal, and what it makes of values of odd types, on every Qt and processor the same:
// valuepairs.txt tells, which is what Qt 5.15's QVariant alone says on 64-bit x86 (see valuepairs-reference.cpp).
// The model is asked through those of its operations that compare and convert.

#include <QFile>
#include <QProcess>
#include <QtTest>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"
#include "values.h"

namespace {

struct Reference {
    QString name;
    QString equal; ///< A digit for each value as the new one.
    bool asBool;
    int asInt;
    QString asDouble;
    QString asText;
};

QByteArray referenceFile()
{
    QFile file(ZOEFFECT_VALUE_PAIRS);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QVector<Reference> readReferences()
{
    QVector<Reference> references;
    const QStringList lines = QString::fromUtf8(referenceFile()).split('\n');
    for (const QString& line : lines) {
        const QStringList fields = line.split(" | ");
        if (!line.startsWith('#') && fields.size() == 6) {
            references.append(
                {fields.at(0), fields.at(1), fields.at(2) == "true", fields.at(3).toInt(), fields.at(4), fields.at(5)});
        }
    }
    return references;
}

const Reference& reference(int index)
{
    static const QVector<Reference> all = readReferences();
    return all.at(index);
}

void addRows()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < namedValues().size(); ++i)
        QTest::newRow(qPrintable(namedValues().at(i).name)) << i;
}

ZoEffectItemData* nodeOf(const ZoEffectModel& model, const QString& type)
{
    return model.getDataItem(type, -1);
}

/// One digit for each value: '1' where \a holds.
template <typename Holds>
QString digits(Holds holds)
{
    QString all;
    for (const NamedValue& right : namedValues())
        all += holds(right.value) ? '1' : '0';
    return all;
}

} // namespace

class TstValuePairs : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ZoEffectModel::InitEffectModel(hostCatalogue());
        forgetCustomDefaults();
        logcapture::takeEvents();
    }

    void theReferenceTellsOfEachValue()
    {
        const QVector<Reference> references = readReferences();
        QCOMPARE(references.size(), namedValues().size());
        for (int i = 0; i < references.size(); ++i) {
            QCOMPARE(references.at(i).name, namedValues().at(i).name);
            QCOMPARE(references.at(i).equal.size(), references.size());
        }
    }

#ifdef ZOEFFECT_VALUE_PAIRS_REFERENCE
    void theReferenceIsWhatQtSays()
    {
        QProcess program;
        program.start(ZOEFFECT_VALUE_PAIRS_REFERENCE, QStringList());
        QVERIFY(program.waitForFinished(-1)); // However busy the machine is.
        QCOMPARE(program.readAllStandardOutput(), referenceFile());
    }
#endif

    void setDataAnnouncesWhatIsNotEqual_data()
    {
        addRows();
    }
    void setDataAnnouncesWhatIsNotEqual()
    {
        QFETCH(int, index);
        const QVariant left = namedValues().at(index).value;
        ZoEffectModel model(QString("Color"), {});
        SignalRecorder recorder(model);
        const QString equal = digits([&](const QVariant& right) {
            nodeOf(model, "Color")->setData("key", left);
            model.setData("key", right, "Color", -1);
            return recorder.take().isEmpty();
        });
        QCOMPARE(equal, reference(index).equal);
    }

    void itemsAreSelectedAndFoundByEqualValues_data()
    {
        addRows();
    }
    void itemsAreSelectedAndFoundByEqualValues()
    {
        QFETCH(int, index);
        ZoEffectModel model(QString("Audio"), {});
        auto* item = new ZoEffectItemData("item", nodeOf(model, "Audio"));
        item->setData("key", namedValues().at(index).value);
        QCOMPARE(digits([&](const QVariant& right) {
                     model.selectItemByKey("Audio", "key", right);
                     return item->checkState() == 2;
                 }),
                 reference(index).equal);
        QCOMPARE(
            digits([&](const QVariant& right) { return model.getItemIndexByKeyValue("Audio", "key", right) == 0; }),
            reference(index).equal);
        QCOMPARE(digits([&](const QVariant& right) { return model.haveSameItem("Audio", "key", right); }),
                 reference(index).equal);
    }

    void aValueEqualToTheCustomDefaultIsTheDefault_data()
    {
        addRows();
    }
    void aValueEqualToTheCustomDefaultIsTheDefault()
    {
        QFETCH(int, index);
        ZoEffectModel model(QStringList("Color"));
        nodeOf(model, "Color")->setData("bcs_contrast", namedValues().at(index).value);
        const auto isDefault = [&](const QVariant& right, bool wholeType) {
            ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal("Color", {{"bcs_contrast", right}});
            return wholeType ? model.dataIsDefault("Color") : model.SingleDataIsDefault("Color", "bcs_contrast", -1);
        };
        // An invalid custom default counts as none; the catalogue has the number 0 there.
        QString expected = reference(index).equal;
        const int zero = 7;
        QCOMPARE(namedValues().at(zero).name, QString("0"));
        expected[0] = expected.at(zero);
        QCOMPARE(digits([&](const QVariant& right) { return isDefault(right, false); }), expected);
        QCOMPARE(digits([&](const QVariant& right) { return isDefault(right, true); }), expected);
    }

    void conversionToBool_data()
    {
        addRows();
    }
    void conversionToBool()
    {
        QFETCH(int, index);
        const QVariant value = namedValues().at(index).value;
        const bool expected = reference(index).asBool;

        ZoEffectModel model(QStringList{"Audio", "Subtitle", "Color", "Audio_Echo"});
        nodeOf(model, "effect root")->setData("editbydefault", value);
        QCOMPARE(model.editByDefault(), expected);
        nodeOf(model, "Color")->setCheckState(expected ? 0 : 2);
        QVERIFY(model.setData("_checkstate", value, "Color", -1));
        QCOMPARE(nodeOf(model, "Color")->checkState(), expected ? 2 : 0);
        QVERIFY(model.addDataItem("Audio", {{"_checkstate", value}}));
        QCOMPARE(model.getDataItem("Audio", 0)->checkState(), expected ? 2 : 0);
        model.getDataItem("Audio", 0)->setCheckState(2);
        model.getDataItem("Audio", 0)->setData("audio_isfile", value);
        QCOMPARE(model.useCustomAudio(), expected);
        QCOMPARE(model.useEmbededAudio(), !expected);
        QVERIFY(model.addDataItem("Subtitle", {{"sub_fromfile", value}}));
        QCOMPARE(model.useCustomSubtitle(), expected);
        QCOMPARE(model.getEmbededSutitleID(), expected ? -1 : 0);
        nodeOf(model, "Audio_Echo")->setData("audio_effect_flag", value);
        QCOMPARE(model.hasRealEffect(), expected);
        QCOMPARE(model.getValidAudioEffectItem() != nullptr, expected);
        const ZoEffectModel single("type", {{"_checkstate", value}});
        QCOMPARE(nodeOf(single, "type")->checkState(), expected ? 2 : 0);
    }

    void conversionToInt_data()
    {
        addRows();
    }
    void conversionToInt()
    {
        QFETCH(int, index);
        const QVariant value = namedValues().at(index).value;
        const int expected = reference(index).asInt;

        ZoEffectModel model(QStringList{"Crop", "Audio", "Color"});
        nodeOf(model, "effect root")->setData("w", value);
        nodeOf(model, "effect root")->setData("h", value);
        QCOMPARE(model.baseSize(), QSize(expected, expected));
        model.setVideoSize(7, 7);
        nodeOf(model, "Crop")->setData("crop_left", value);
        nodeOf(model, "Crop")->setData("crop_width", value);
        nodeOf(model, "Crop")->setData("crop_height", 3);
        QCOMPARE(model.isCroped(0, 0), expected != 0);
        QCOMPARE(model.cropData().left, expected != 0 ? expected : 0);
        QCOMPARE(model.cropData().width, expected != 0 ? expected : 0);
        nodeOf(model, "Crop")->setCheckState(0);
        nodeOf(model, "Color")->setData("bcs_saturation", value);
        QCOMPARE(model.hasRealEffect(), expected != 0);
        QVERIFY(model.addDataItem("Audio", {{"trackid", value}}));
        QCOMPARE(model.getEmbededAudioID(), expected);
        model.refreshCurPlayData(expected);
        QCOMPARE(model.getDataItem("Audio", 0)->hasData("_playmeineffect"), expected == 0);
    }

    void conversionToDouble_data()
    {
        addRows();
    }
    void conversionToDouble()
    {
        QFETCH(int, index);
        const QVariant value = namedValues().at(index).value;
        ZoEffectModel model(QStringList("Subtitle"));
        model.setVideoSize(1, 1);
        ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal("Subtitle", {{"sub_vposfactor", value}});
        const QVariant position = model.data("sub_vposition", "Subtitle", -1);
        QCOMPARE(QString(position.typeName()), QString("double"));
        // An invalid custom default counts as none.
        const QString expected = value.isValid() ? reference(index).asDouble : QString("0.80000000000000004");
        QCOMPARE(written(position.toDouble()), expected);
    }

    void conversionToText_data()
    {
        addRows();
    }
    void conversionToText()
    {
        QFETCH(int, index);
        ZoEffectModel model(QString("Audio"), {});
        auto* item = new ZoEffectItemData("item", nodeOf(model, "Audio"));
        item->setData("key", namedValues().at(index).value);
        const QString quoted = reference(index).asText;
        const QString text = QUrl::fromPercentEncoding(quoted.mid(1, quoted.size() - 2).toLatin1());
        model.selectItemByKeyEx("Audio", "key", {text});
        QCOMPARE(item->checkState(), 2);
        model.selectItemByKeyEx("Audio", "key", {text + ' ', ' ' + text, text.mid(1) + "x"});
        QCOMPARE(item->checkState(), 0);
    }
};

ZOEFFECT_TEST_MAIN(TstValuePairs)
#include "tst_valuepairs.moc"
