// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Selecting and finding items by a value. What is equal is stated by tst_qtcompat. Nothing here is ever logged.

#include <QColor>

#include <zoeffectmodel.h>

#include "modeltest.h"

namespace {

/// An item of \a parent with one value; an invalid value leaves the item without the key.
ZoEffectItemData* addValue(ZoEffectItemData* parent, const QString& key, const QVariant& value, int checkState = 2)
{
    return addItem(parent, value.isValid() ? Properties{{key, value}} : Properties(), checkState);
}

/// Items of \a parent, one for each character: a digit gives the check state, "-" a null entry.
void addItems(ZoEffectItemData* parent, const QString& states)
{
    for (const QChar state : states) {
        if (state == '-')
            parent->appendChild(nullptr);
        else
            addItem(parent, {}, state.digitValue());
    }
}

/// The check states of the children of \a parent, written as addItems() reads them.
QString states(const ZoEffectItemData* parent)
{
    QString result;
    for (int row = 0; row < parent->childCount(); ++row)
        result += parent->child(row) ? QString::number(parent->child(row)->checkState()) : QString("-");
    return result;
}

/// Gives the borrowed tracks back and deletes the container.
void release(ZoEffectItemData* container)
{
    while (container->childCount() > 0)
        container->takeAt(0);
    delete container;
}

} // namespace

class TstModelSelection : public ModelTest {
    Q_OBJECT

private slots:
    // --- selectOnlyOneItem

    void onlyTheNamedTypeStaysSelected_data()
    {
        addRows<QString, QString>({
            {"first type", "Crop", "20-00"},
            {"all types of that name", "Watermark", "02-02"},
            {"other letter case", "crop", "00-00"},
            {"beginning of a name", "Cro", "00-00"},
            {"name with a blank", "Crop ", "00-00"},
            {"name of an item", "Mirror", "00-00"},
            {"empty name", "", "00-00"},
            {"name of the root", "effect root", "00-00"},
        });
    }

    void onlyTheNamedTypeStaysSelected()
    {
        const auto [type, expected] = row<QString, QString>();
        for (const int before : {0, 1, 2, -7}) {
            ZoEffectModel model(QStringList{"Crop", "Watermark", "Effect"});
            rootOf(model)->insertChild(nullptr, 2);
            new ZoEffectItemData("Watermark", rootOf(model));
            // The lookup by name would meet the namesake below "Crop" first.
            auto* namesake = new ZoEffectItemData("Watermark", model.getDataItem("Crop", -1));
            addItems(rootOf(model)->child(1), "0212");
            for (int i : {0, 1, 3, 4})
                rootOf(model)->child(i)->setCheckState(before);
            namesake->setCheckState(1);
            SignalRecorder recorder(model);
            model.selectOnlyOneItem(type);
            QCOMPARE(states(rootOf(model)), expected);
            QCOMPARE(rootOf(model)->checkState(), 2);
            QCOMPARE(namesake->checkState(), 1);
            QCOMPARE(states(rootOf(model)->child(1)), QString("0212"));
            QCOMPARE(states(model.getDataItem("Effect", -1)), QString("0000"));
            QCOMPARE(recorder.take(), QStringList());
        }
    }

    // --- selectItemByKey, selectItemByKeyEx

    void selectsByKeyAndValue_data()
    {
        const QVariant none;
        addRows<QString, QVariantList, QVariant, QString>({
            {"two of three", "trackid", {1, 2, 2}, 2, "022"},
            {"no match deselects all", "trackid", {1, 2, 2}, 3, "000"},
            {"every other one", "trackid", {7, 8, 7, 8}, 7, "2020"},
            {"number given as text", "trackid", {1, 2, "2", 2.0}, "2", "0222"},
            {"stored value on the left", "k", {true, "abc"}, "abc", "22"},
            {"given value on the right", "k", {true, "abc"}, true, "20"},
            {"missing track id is -1", "trackid", {0, none, 4}, -1, "020"},
            {"missing track id is no missing value", "trackid", {0, none}, none, "00"},
            {"missing key equals only an invalid value", "k", {0, none, ""}, none, "020"},
            {"missing key is not 0", "k", {0, none, 1}, 0, "200"},
            {"missing key is not empty", "k", {"", none}, "", "20"},
            {"key in other letter case", "TrackId", {none, none}, -1, "00"},
            {"text is matched whole", "k", {"en", "eng", "e"}, "en", "200"},
            {"empty key", "", {1, 2}, 2, "02"},
            {"colour and its name", "k", {QColor(Qt::white), "white"}, "#ffffff", "20"},
            {"check state is no value here", "_checkstate", {none, none}, 2, "00"},
            {"stored check state is an ordinary value", "_checkstate", {true, false}, false, "02"},
        });
    }

    void selectsByKeyAndValue()
    {
        const auto [key, stored, value, expected] = row<QString, QVariantList, QVariant, QString>();
        for (const int before : {0, 1, 2}) {
            ZoEffectModel model(QStringList{"Audio"});
            ZoEffectItemData* type = model.getDataItem("Audio", -1);
            type->setCheckState(0);
            for (const QVariant& entry : stored)
                addValue(type, key, entry, before);
            const QString properties = described(type->child(0)->properties());
            SignalRecorder recorder(model);

            // The first item with the value; null entries are passed over but keep their place.
            const int first = int(expected.indexOf('2'));
            QCOMPARE(model.getItemIndexByKeyValue("Audio", key, value), first);
            QCOMPARE(model.haveSameItem("Audio", key, value), first >= 0);
            type->insertChild(nullptr, 0);
            QCOMPARE(model.getItemIndexByKeyValue("Audio", key, value), first < 0 ? -1 : first + 1);
            QCOMPARE(states(type), "-" + QString::number(before).repeated(int(stored.size())));
            QCOMPARE(type->checkState(), 0);

            model.selectItemByKey("Audio", key, value);
            QCOMPARE(states(type), "-" + expected);
            QCOMPARE(type->checkState(), 2);
            QCOMPARE(described(type->properties()), QString("{play_loop: bool false}"));
            QCOMPARE(described(type->child(1)->properties()), properties);
            QCOMPARE(described(rootOf(model)->properties()), QString("{}"));
            QCOMPARE(recorder.take(), QStringList());
        }
    }

    void selectsByKeyAndTexts_data()
    {
        const QVariant none;
        const QString ete = QString::fromUtf8("\xC3\xA9t\xC3\xA9");
        addRows<QString, QVariantList, QStringList, QString>({
            {"two texts", "k", {"a", "b", "c"}, {"c", "a"}, "202"},
            {"text that several items hold, given twice", "k", {"a", "b", "a"}, {"a", "a"}, "202"},
            {"no match deselects all", "k", {"a", "b"}, {"x", "y"}, "00"},
            {"empty list deselects all", "k", {"a", ""}, {}, "00"},
            {"other letter case", "k", {"a", "A"}, {"A"}, "02"},
            {"part of a text", "k", {"ab", "a", "b"}, {"a"}, "020"},
            {"blanks count", "k", {"a", "a ", " a"}, {"a "}, "020"},
            {"texts are not joined", "k", {"a,b", "a"}, {"a", "b"}, "02"},
            {"number and text of it", "trackid", {2, "2", "02"}, {"2"}, "220"},
            {"text is not read as a number", "trackid", {2, 2}, {"02", "2.0"}, "00"},
            {"bool is not read as a number", "k", {true, 1}, {"1"}, "02"},
            {"missing track id is -1", "trackid", {1, none}, {"-1"}, "02"},
            {"missing value is the empty text", "k", {"a", none, ""}, {""}, "022"},
            {"key in other letter case", "TRACKID", {none}, {"-1"}, "0"},
            {"check state is no value here", "_checkstate", {none}, {"2"}, "0"},
            {"other alphabets", "k", {ete, "ete"}, {ete}, "20"},
            {"doubles in full", "k", {2.0, 0.1 + 0.2}, {"2", "0.30000000000000004"}, "22"},
            {"colours", "k", {QColor(Qt::white), QColor(1, 2, 3, 4)}, {"#ffffff", "#04010203"}, "22"},
            {"list of one text", "k", {QStringList("a"), QStringList{"a", "b"}}, {"a"}, "20"},
            {"lists and maps have no text", "k", {QStringList{"a", "b"}, QVariantMap{{"a", 1}}}, {""}, "22"},
        });
    }

    void selectsByKeyAndTexts()
    {
        const auto [key, stored, values, expected] = row<QString, QVariantList, QStringList, QString>();
        for (const int before : {0, 1, 2}) {
            ZoEffectModel model(QStringList{"Subtitle"});
            ZoEffectItemData* type = model.getDataItem("Subtitle", -1);
            type->setCheckState(0);
            for (const QVariant& entry : stored)
                addValue(type, key, entry, before);
            SignalRecorder recorder(model);
            model.selectItemByKeyEx("Subtitle", key, values);
            QCOMPARE(states(type), expected);
            QCOMPARE(type->checkState(), 2);
            QCOMPARE(recorder.take(), QStringList());
        }
    }

    void selectingByKeySelectsThatTypeAlone_data()
    {
        addRows<int, QString, QString>({
            {"unselected type without items", 0, "", ""},
            {"partially checked type", 1, "2", "0"},
            {"only null entries", 0, "--", "--"},
            {"null entries between items", 2, "-2-2-", "-0-0-"},
        });
    }

    void selectingByKeySelectsThatTypeAlone()
    {
        const auto [before, items, expected] = row<int, QString, QString>();
        for (const bool byTexts : {false, true}) {
            ZoEffectModel model(QStringList{"Crop", "Watermark", "Audio"});
            addItems(model.getDataItem("Watermark", -1), items);
            addItems(model.getDataItem("Audio", -1), "0212");
            model.getDataItem("Crop", -1)->setCheckState(0);
            model.getDataItem("Watermark", -1)->setCheckState(before);
            model.getDataItem("Audio", -1)->setCheckState(1);
            if (byTexts)
                model.selectItemByKeyEx("Watermark", "k", {"5"});
            else
                model.selectItemByKey("Watermark", "k", 5);
            QCOMPARE(states(rootOf(model)), QString("021"));
            QCOMPARE(states(model.getDataItem("Watermark", -1)), expected);
            QCOMPARE(states(model.getDataItem("Audio", -1)), QString("0212"));
        }
    }

    void missingTypesAreLeftAlone()
    {
        ZoEffectModel model(QStringList{"Watermark", "Audio"});
        for (const char* type : {"Watermark", "Audio"}) {
            addItems(model.getDataItem(type, -1), "1-");
            model.getDataItem(type, -1)->setCheckState(1);
        }
        const QString before = tree(rootOf(model));
        SignalRecorder recorder(model);
        for (const char* type : {"Color", "watermark"}) {
            model.selectItemByKey(type, "trackid", -1);
            model.selectItemByKeyEx(type, "trackid", {"-1"});
            QCOMPARE(model.getItemIndexByKeyValue(type, "trackid", -1), -1);
            QCOMPARE(model.haveSameItem(type, "k", QVariant()), false);
            QVERIFY(!model.getSelectItem(type));
        }
        // The type's own value does not count, nor do null entries.
        QCOMPARE(model.getItemIndexByKeyValue("Audio", "play_loop", false), -1);
        QCOMPARE(model.haveSameItem("Audio", "play_loop", false), false);
        QCOMPARE(model.getItemIndexByKeyValue("Watermark", "k", 0), -1);
        QCOMPARE(tree(rootOf(model)), before);
        QCOMPARE(recorder.take(), QStringList());
    }

    // The position that follows the video is the model's answer; selection looks at what the items hold.
    void selectingByKeyReadsStoredSubtitlePositions()
    {
        ZoEffectModel model(QStringList{"Subtitle"});
        model.setVideoSize(720, 500);
        addValue(model.getDataItem("Subtitle", -1), "sub_vposition", 200);
        addValue(model.getDataItem("Subtitle", -1), "sub_vposition", 400);
        QCOMPARE(described(model.data("sub_vposition", "Subtitle", 0)), QString("double 400"));
        model.selectItemByKey("Subtitle", "sub_vposition", 200);
        QCOMPARE(states(model.getDataItem("Subtitle", -1)), QString("20"));
        model.selectItemByKeyEx("Subtitle", "sub_vposition", {"400"});
        QCOMPARE(states(model.getDataItem("Subtitle", -1)), QString("02"));
        QCOMPARE(model.getItemIndexByKeyValue("Subtitle", "sub_vposition", 400), 1);
    }

    // The name of the root addresses the root, whose items are the types, and that of a frame effect its own items.
    void selectingByKeyGoesByTheFirstNodeOfAName()
    {
        ZoEffectModel model(QStringList{"Crop", "Audio", "Effect"});
        rootOf(model)->setCheckState(0);
        model.selectItemByKey("effect root", "play_loop", false);
        QCOMPARE(rootOf(model)->checkState(), 2);
        QCOMPARE(states(rootOf(model)), QString("020"));
        QCOMPARE(model.getItemIndexByKeyValue("effect root", "crop_left", 0), 0);
        QCOMPARE(model.getSelectItem("effect root"), model.getDataItem("Audio", -1));
        model.selectItemByKeyEx("effect root", "crop_top", {"0"});
        QCOMPARE(states(rootOf(model)), QString("200"));

        model.selectItemByKey("Mirror", "k", 1);
        model.selectItemByKeyEx("Blur", "k", {"1"});
        QCOMPARE(states(model.getDataItem("Effect", -1)), QString("2020"));

        auto* second = new ZoEffectItemData("Crop", rootOf(model));
        addItems(rootOf(model)->child(0), "0");
        addItems(second, "02");
        second->setCheckState(0);
        model.selectItemByKey("Crop", "trackid", -1);
        QCOMPARE(states(rootOf(model)->child(0)), QString("2"));
        QCOMPARE(states(second), QString("02"));
        QCOMPARE(second->checkState(), 0);
    }

    // --- getSelectItem

    void selectedItem_data()
    {
        addRows<int, QString, QList<int>>({
            {"no items", 2, "", {}},
            {"nothing selected", 2, "000", {}},
            {"last item", 2, "002", {2}},
            {"several", 2, "0222", {1, 2, 3}},
            {"partially checked is not selected", 2, "12", {1}},
            {"unknown states are not selected", 2, "345", {}},
            {"type not selected", 0, "222", {}},
            {"type partially checked", 1, "222", {}},
            {"type in an unknown state", 3, "222", {}},
            {"null entries", 2, "-2-2-", {1, 3}},
            {"null entries only", 2, "--", {}},
        });
    }

    void selectedItem()
    {
        const auto [typeState, items, selected] = row<int, QString, QList<int>>();
        for (const char* type :
             {"Watermark", "Subtitle", "Audio", "Audio_Echo", "audio"}) { // "Audio" gathers them all.
            ZoEffectModel model(type, {});
            ZoEffectItemData* node = model.getDataItem(type, -1);
            addItems(node, items);
            node->setCheckState(typeState);
            SignalRecorder recorder(model);

            ZoEffectItemData* found = model.getSelectItem(type);
            QCOMPARE(found != nullptr, !selected.isEmpty());
            if (found && node->name() == "Audio") {
                QVERIFY(found != node);
                QCOMPARE(found->childCount(), int(selected.size()));
                for (int i = 0; i < found->childCount(); ++i)
                    QCOMPARE(found->child(i), node->child(selected.at(i)));
                release(found);
            } else if (found) {
                QCOMPARE(found, node->child(selected.first()));
                QCOMPARE(found->parent(), node);
            }
            QCOMPARE(states(node), items);
            QCOMPARE(node->checkState(), typeState);
            QCOMPARE(recorder.take(), QStringList());
        }
    }

    void audioContainerLeavesTheTracksInTheModel()
    {
        ZoEffectModel model(QStringList{"Audio"});
        ZoEffectItemData* type = model.getDataItem("Audio", -1);
        addTracks(type, "audio_isfile", "EeE");
        ZoEffectItemData* container = model.getSelectItem("Audio");
        QVERIFY(container);

        // It stands free, and is new each time.
        QCOMPARE(container->objectName(), QString("Audio"));
        QVERIFY(!container->parent());
        QVERIFY(!static_cast<QObject*>(container)->parent());
        QVERIFY(!container->internalData());
        QCOMPARE(tree(container), QString("Audio:2{}[:2{trackid: int 10}[] :2{trackid: int 12}[]]"));
        QCOMPARE(rootOf(model)->childCount(), 1);
        ZoEffectItemData* second = model.getSelectItem("Audio");
        QVERIFY(container != second);

        // The same nodes, no copies: a write through the container is a write to the model's track.
        QCOMPARE(container->child(1)->parent(), type);
        container->child(1)->setData("lang", "en");
        QCOMPARE(model.data("lang", "Audio", 2), QVariant("en"));
        release(container);
        QCOMPARE(second->childCount(), 2);
        release(second);
        QCOMPARE(tree(type), QString("Audio:2{play_loop: bool false}[:2{trackid: int 10}[] :0{trackid: int 11}[] "
                                     ":2{lang: string en, trackid: int 12}[]]"));
    }
};

ZOEFFECT_TEST_MAIN(TstModelSelection)

#include "tst_model_selection.moc"
