// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zoeffectmodel.h>

#include <cmath>

#include <QColor>
#include <QFont>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

/// An item of \a parent with one value; an invalid value leaves the item without the key.
ZoEffectItemData* addItem(ZoEffectItemData* parent, const QString& key, const QVariant& value, int checkState = 2)
{
    auto* item = new ZoEffectItemData(QString(), parent);
    if (value.isValid())
        item->setData(key, value);
    item->setCheckState(checkState);
    return item;
}

/// Items of \a parent, one for each character: a digit gives the check state, "-" a null entry.
void addItems(ZoEffectItemData* parent, const QString& states)
{
    for (const QChar state : states) {
        if (state == QLatin1Char('-'))
            parent->appendChild(nullptr);
        else
            addItem(parent, QString(), QVariant(), state.digitValue());
    }
}

/// The check states of the children of \a parent, written as addItems() reads them.
QString states(const ZoEffectItemData* parent)
{
    QString result;
    for (int row = 0; row < parent->childCount(); ++row) {
        const ZoEffectItemData* item = parent->child(row);
        result += item ? QString::number(item->checkState()) : QStringLiteral("-");
    }
    return result;
}

ZoEffectItemData* root(const ZoEffectModel& model)
{
    return model.getDataItem(QStringLiteral("effect root"), -1);
}

/// Gives the borrowed tracks back and deletes the container.
void release(ZoEffectItemData* container)
{
    while (container->childCount() > 0)
        container->takeAt(0);
    delete container;
}

} // namespace

class TstModelSelection : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void onlyTheNamedTypeStaysSelected_data();
    void onlyTheNamedTypeStaysSelected();
    void onlyOneSelectionIgnoresEarlierStates_data();
    void onlyOneSelectionIgnoresEarlierStates();
    void onlyOneSelectionLeavesItemsAlone();
    void onlyOneSelectionLooksOnlyAtTheDirectChildrenOfTheRoot();
    void onlyOneSelectionTakesAllTypesOfThatName();
    void onlyOneSelectionPassesOverNullTypes();
    void onlyOneSelectionInAnEmptyModel();

    void valueEquality_data();
    void valueEquality();

    void selectsByKeyAndValue_data();
    void selectsByKeyAndValue();
    void selectsByKeyAndTexts_data();
    void selectsByKeyAndTexts();
    void textOfAValue_data();
    void textOfAValue();
    void selectingByKeySelectsTheType_data();
    void selectingByKeySelectsTheType();
    void selectingByKeyLeavesOtherTypesAlone();
    void selectingByKeyInAMissingType_data();
    void selectingByKeyInAMissingType();
    void selectingByKeyChangesNoProperties();
    void selectingByKeyReadsStoredSubtitlePositions();
    void selectingByKeyAtTheRoot();
    void selectingByKeyUnderAnItemsName();
    void firstTypeOfANameIsMeant();

    void indexOfFirstItemWithValue_data();
    void indexOfFirstItemWithValue();
    void indexInTypesWithoutItems_data();
    void indexInTypesWithoutItems();
    void indexSearchLeavesSelectionAlone();

    void selectedItem_data();
    void selectedItem();
    void selectedItemStaysTheModels();
    void selectedItemOfAMissingType();
    void selectedItemOfTheRoot();
    void selectedAudioTracks_data();
    void selectedAudioTracks();
    void audioContainerStandsFree();
    void audioContainerLeavesTheTracksInTheModel();
    void audioContainerIsNewEachTime();
    void onlyTheExactNameAudioGathers();
};

void TstModelSelection::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

void TstModelSelection::cleanup()
{
    // Nothing about selection is ever logged.
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

// --- selectOnlyOneItem -------------------------------------------------------------------------------------

void TstModelSelection::onlyTheNamedTypeStaysSelected_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("expected");

    QTest::newRow("first type") << "Crop"
                                << "200";
    QTest::newRow("type in the middle") << "Watermark"
                                        << "020";
    QTest::newRow("last type") << "Subtitle"
                               << "002";
    QTest::newRow("other letter case") << "crop"
                                       << "000";
    QTest::newRow("upper case") << "CROP"
                                << "000";
    QTest::newRow("beginning of a name") << "Cro"
                                         << "000";
    QTest::newRow("name with a blank behind") << "Crop "
                                              << "000";
    QTest::newRow("name with a blank before") << " Crop"
                                              << "000";
    QTest::newRow("type that the model lacks") << "Color"
                                               << "000";
    QTest::newRow("empty name") << ""
                                << "000";
    QTest::newRow("null name") << QString() << "000";
    QTest::newRow("name of the root") << "effect root"
                                      << "000";
}

void TstModelSelection::onlyTheNamedTypeStaysSelected()
{
    QFETCH(QString, type);
    QFETCH(QString, expected);
    ZoEffectModel model(QStringList{"Crop", "Watermark", "Subtitle"});
    SignalRecorder recorder(model);

    model.selectOnlyOneItem(type);

    QCOMPARE(states(root(model)), expected);
    QCOMPARE(root(model)->checkState(), 2);
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelSelection::onlyOneSelectionIgnoresEarlierStates_data()
{
    QTest::addColumn<QList<int>>("before");

    QTest::newRow("none selected") << QList<int>{0, 0, 0};
    QTest::newRow("already the only one") << QList<int>{0, 2, 0};
    QTest::newRow("another one selected") << QList<int>{2, 0, 0};
    QTest::newRow("all selected") << QList<int>{2, 2, 2};
    QTest::newRow("partially checked") << QList<int>{1, 1, 1};
    QTest::newRow("states that mean nothing") << QList<int>{-7, 99, 3};
}

void TstModelSelection::onlyOneSelectionIgnoresEarlierStates()
{
    QFETCH(QList<int>, before);
    ZoEffectModel model(QStringList{"Crop", "Watermark", "Subtitle"});
    for (int row = 0; row < 3; ++row)
        root(model)->child(row)->setCheckState(before.at(row));

    model.selectOnlyOneItem("Watermark");

    QCOMPARE(states(root(model)), QString("020"));
}

void TstModelSelection::onlyOneSelectionLeavesItemsAlone()
{
    ZoEffectModel model(QStringList{"Crop", "Watermark", "Subtitle"});
    addItems(model.getDataItem("Watermark", -1), "0212");
    addItems(model.getDataItem("Subtitle", -1), "20");

    model.selectOnlyOneItem("Watermark");

    QCOMPARE(states(model.getDataItem("Watermark", -1)), QString("0212"));
    QCOMPARE(states(model.getDataItem("Subtitle", -1)), QString("20"));
}

void TstModelSelection::onlyOneSelectionLooksOnlyAtTheDirectChildrenOfTheRoot()
{
    ZoEffectModel model(QStringList{"Crop", "Watermark", "Effect"});
    auto* namesake = new ZoEffectItemData("Watermark", model.getDataItem("Crop", -1));
    namesake->setCheckState(0);

    // The lookup by name would meet the namesake below "Crop" first.
    QCOMPARE(model.getDataItem("Watermark", -1), namesake);
    model.selectOnlyOneItem("Watermark");
    QCOMPARE(states(root(model)), QString("020"));
    QCOMPARE(namesake->checkState(), 0);

    // A name that only an item bears selects nothing, the item included.
    model.selectOnlyOneItem("Mirror");
    QCOMPARE(states(root(model)), QString("000"));
    QCOMPARE(model.getDataItem("Mirror", -1)->checkState(), 0);
}

void TstModelSelection::onlyOneSelectionTakesAllTypesOfThatName()
{
    ZoEffectModel model(QStringList{"Crop", "Color"});
    new ZoEffectItemData("Crop", root(model));
    new ZoEffectItemData("Color", root(model));

    model.selectOnlyOneItem("Crop");

    QCOMPARE(states(root(model)), QString("2020"));
}

void TstModelSelection::onlyOneSelectionPassesOverNullTypes()
{
    ZoEffectModel model(QStringList{"Crop", "Color"});
    root(model)->insertChild(nullptr, 1);
    root(model)->insertChild(nullptr, 0);
    root(model)->appendChild(nullptr);

    model.selectOnlyOneItem("Color");

    QCOMPARE(states(root(model)), QString("-0-2-"));
}

void TstModelSelection::onlyOneSelectionInAnEmptyModel()
{
    const ZoEffectModel source;
    ZoEffectModel model(source, nullptr);

    model.selectOnlyOneItem("Crop");

    QCOMPARE(root(model)->childCount(), 0);
    QCOMPARE(root(model)->checkState(), 2);
}

// --- Values as they are compared ---------------------------------------------------------------------------

void TstModelSelection::valueEquality_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QVariant>("given");
    QTest::addColumn<bool>("equal");

    const QVariant none;
    const QVariant white = QColor(Qt::white);
    const QVariant tahoma = QFont("Tahoma");
    const double nan = std::nan("");

    QTest::newRow("same whole number") << QVariant(5) << QVariant(5) << true;
    QTest::newRow("another whole number") << QVariant(5) << QVariant(6) << false;
    QTest::newRow("number, its text") << QVariant(5) << QVariant("5") << true;
    QTest::newRow("text, its number") << QVariant("5") << QVariant(5) << true;
    QTest::newRow("number, text with a leading zero") << QVariant(5) << QVariant("05") << true;
    QTest::newRow("text with a leading zero, number") << QVariant("05") << QVariant(5) << false;
    QTest::newRow("number, text with a blank") << QVariant(5) << QVariant(" 5") << true;
    QTest::newRow("text with a blank, number") << QVariant(" 5") << QVariant(5) << false;
    QTest::newRow("number, text with a fraction") << QVariant(5) << QVariant("5.0") << false;
    QTest::newRow("text with a fraction, number") << QVariant("5.0") << QVariant(5) << false;
    QTest::newRow("double, text with a fraction") << QVariant(5.0) << QVariant("5.0") << true;
    QTest::newRow("text with a fraction, double") << QVariant("5.0") << QVariant(5.0) << false;
    QTest::newRow("int, long") << QVariant(5) << QVariant(5LL) << true;
    QTest::newRow("int, equal double") << QVariant(2) << QVariant(2.0) << true;
    QTest::newRow("int, double with a fraction") << QVariant(2) << QVariant(1.5) << false;
    QTest::newRow("double with a fraction, int") << QVariant(1.5) << QVariant(2) << false;
    QTest::newRow("true, 1") << QVariant(true) << QVariant(1) << true;
    QTest::newRow("1, true") << QVariant(1) << QVariant(true) << true;
    QTest::newRow("true, 2") << QVariant(true) << QVariant(2) << false;
    QTest::newRow("2, true") << QVariant(2) << QVariant(true) << false;
    QTest::newRow("0, false") << QVariant(0) << QVariant(false) << true;
    QTest::newRow("true, its text") << QVariant(true) << QVariant("true") << true;
    QTest::newRow("text true, true") << QVariant("true") << QVariant(true) << true;
    QTest::newRow("true, text in other case") << QVariant(true) << QVariant("True") << true;
    QTest::newRow("text in other case, true") << QVariant("True") << QVariant(true) << false;
    QTest::newRow("true, any text") << QVariant(true) << QVariant("abc") << true;
    QTest::newRow("any text, true") << QVariant("abc") << QVariant(true) << false;
    QTest::newRow("false, empty text") << QVariant(false) << QVariant("") << true;
    QTest::newRow("empty text, false") << QVariant("") << QVariant(false) << false;
    QTest::newRow("false, text 0") << QVariant(false) << QVariant("0") << true;
    QTest::newRow("text 0, false") << QVariant("0") << QVariant(false) << false;
    QTest::newRow("0, empty text") << QVariant(0) << QVariant("") << false;
    QTest::newRow("empty text, 0") << QVariant("") << QVariant(0) << false;
    QTest::newRow("0, no number") << QVariant(0) << QVariant("abc") << false;
    QTest::newRow("missing, missing") << none << none << true;
    QTest::newRow("missing, 0") << none << QVariant(0) << false;
    QTest::newRow("missing, false") << none << QVariant(false) << false;
    QTest::newRow("missing, empty text") << none << QVariant("") << false;
    QTest::newRow("0, missing") << QVariant(0) << none << false;
    QTest::newRow("empty text, missing") << QVariant("") << none << false;
    QTest::newRow("null text, empty text") << QVariant(QString()) << QVariant("") << true;
    QTest::newRow("texts differ in case") << QVariant("a") << QVariant("A") << false;
    QTest::newRow("sum of doubles") << QVariant(0.1 + 0.2) << QVariant(0.3) << true;
    QTest::newRow("doubles a hair apart") << QVariant(1.0) << QVariant(1.0 + 1e-13) << true;
    QTest::newRow("doubles further apart") << QVariant(1.0) << QVariant(1.0 + 1e-11) << false;
    QTest::newRow("zero and a hair") << QVariant(0.0) << QVariant(1e-13) << false;
    QTest::newRow("int and a double a hair off") << QVariant(3) << QVariant(3.0000000000001) << true;
    QTest::newRow("no number equals nothing") << QVariant(nan) << QVariant(nan) << false;
    QTest::newRow("colour, its name") << white << QVariant("#ffffff") << true;
    QTest::newRow("name, its colour") << QVariant("#ffffff") << white << true;
    QTest::newRow("colour, English name") << white << QVariant("white") << true;
    QTest::newRow("English name, colour") << QVariant("white") << white << false;
    QTest::newRow("colour, upper-case name") << white << QVariant("#FFFFFF") << true;
    QTest::newRow("upper-case name, colour") << QVariant("#FFFFFF") << white << false;
    QTest::newRow("colours") << white << QVariant(QColor(255, 255, 255)) << true;
    QTest::newRow("colours of other alpha") << white << QVariant(QColor(255, 255, 255, 254)) << false;
    QTest::newRow("font, its family") << tahoma << QVariant("Tahoma") << true;
    QTest::newRow("family, its font") << QVariant("Tahoma") << tahoma << false;
    QTest::newRow("fonts") << tahoma << QVariant(QFont("Tahoma", -1, -1, false)) << true;
    QTest::newRow("text, list of that text") << QVariant("a") << QVariant(QStringList("a")) << true;
    QTest::newRow("list of a text, text") << QVariant(QStringList("a")) << QVariant("a") << true;
    QTest::newRow("text, longer list") << QVariant("a") << QVariant(QStringList{"a", "b"}) << false;
    QTest::newRow("bytes, number") << QVariant(QByteArray("5")) << QVariant(5) << true;
    QTest::newRow("bytes, text") << QVariant(QByteArray("x")) << QVariant("x") << true;
}

void TstModelSelection::valueEquality()
{
    QFETCH(QVariant, stored);
    QFETCH(QVariant, given);
    QFETCH(bool, equal);
    ZoEffectModel model(QStringList{"Watermark"});
    addItem(model.getDataItem("Watermark", -1), "k", stored, equal ? 0 : 2);

    QCOMPARE(model.getItemIndexByKeyValue("Watermark", "k", given), equal ? 0 : -1);
    QCOMPARE(model.haveSameItem("Watermark", "k", given), equal);
    model.selectItemByKey("Watermark", "k", given);
    QCOMPARE(model.getDataItem("Watermark", 0)->checkState(), equal ? 2 : 0);
}

// --- selectItemByKey, selectItemByKeyEx --------------------------------------------------------------------

void TstModelSelection::selectsByKeyAndValue_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariantList>("stored");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");

    const QVariant none;
    QTest::newRow("two of three") << "trackid" << QVariantList{1, 2, 2} << QVariant(2) << "022";
    QTest::newRow("first only") << "trackid" << QVariantList{1, 2, 2} << QVariant(1) << "200";
    QTest::newRow("no match deselects all") << "trackid" << QVariantList{1, 2, 2} << QVariant(3) << "000";
    QTest::newRow("all match") << "trackid" << QVariantList{7, 7, 7, 7} << QVariant(7) << "2222";
    QTest::newRow("every other one") << "trackid" << QVariantList{7, 8, 7, 8} << QVariant(7) << "2020";
    QTest::newRow("number given as text") << "trackid" << QVariantList{1, 2, "2", 2.0} << QVariant("2") << "0222";
    QTest::newRow("stored order of comparison") << "k" << QVariantList{true, "abc"} << QVariant("abc") << "22";
    QTest::newRow("reverse order of comparison") << "k" << QVariantList{true, "abc"} << QVariant(true) << "20";
    QTest::newRow("missing track id is -1") << "trackid" << QVariantList{0, none, 4} << QVariant(-1) << "020";
    QTest::newRow("missing track id is no missing value") << "trackid" << QVariantList{0, none} << none << "00";
    QTest::newRow("missing key equals only an invalid value") << "k" << QVariantList{0, none, ""} << none << "020";
    QTest::newRow("missing key is not 0") << "k" << QVariantList{0, none, 1} << QVariant(0) << "200";
    QTest::newRow("missing key is not empty") << "k" << QVariantList{"", none} << QVariant("") << "20";
    QTest::newRow("missing key is not false") << "k" << QVariantList{false, none} << QVariant(false) << "20";
    QTest::newRow("key in other letter case") << "TrackId" << QVariantList{none, none} << QVariant(-1) << "00";
    QTest::newRow("text is matched whole") << "k" << QVariantList{"en", "eng", "e"} << QVariant("en") << "200";
    QTest::newRow("empty key") << "" << QVariantList{1, 2} << QVariant(2) << "02";
    QTest::newRow("check state is no value here") << "_checkstate" << QVariantList{none, none} << QVariant(2) << "00";
    QTest::newRow("stored check state is an ordinary value")
        << "_checkstate" << QVariantList{true, false} << QVariant(false) << "02";
    QTest::newRow("map values") << "k" << QVariantList{QVariantMap{{"a", 1}}, QVariantMap{{"a", 2}}}
                                << QVariant(QVariantMap{{"a", 2}}) << "02";
}

void TstModelSelection::selectsByKeyAndValue()
{
    QFETCH(QString, key);
    QFETCH(QVariantList, stored);
    QFETCH(QVariant, value);
    QFETCH(QString, expected);

    for (const int before : {0, 1, 2}) {
        ZoEffectModel model(QStringList{"Audio"});
        ZoEffectItemData* type = model.getDataItem("Audio", -1);
        type->setCheckState(0);
        for (const QVariant& entry : stored)
            addItem(type, key, entry, before);
        SignalRecorder recorder(model);

        model.selectItemByKey("Audio", key, value);

        QCOMPARE(states(type), expected);
        QCOMPARE(type->checkState(), 2);
        QCOMPARE(recorder.take(), QStringList());
    }
}

void TstModelSelection::selectsByKeyAndTexts_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariantList>("stored");
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<QString>("expected");

    const QVariant none;
    QTest::newRow("one text") << "k" << QVariantList{"a", "b", "c"} << QStringList{"b"} << "020";
    QTest::newRow("two texts") << "k" << QVariantList{"a", "b", "c"} << QStringList{"c", "a"} << "202";
    QTest::newRow("text that several items hold") << "k" << QVariantList{"a", "b", "a"} << QStringList{"a"} << "202";
    QTest::newRow("text given twice") << "k" << QVariantList{"a", "b"} << QStringList{"a", "a"} << "20";
    QTest::newRow("no match deselects all") << "k" << QVariantList{"a", "b"} << QStringList{"x", "y"} << "00";
    QTest::newRow("empty list deselects all") << "k" << QVariantList{"a", ""} << QStringList() << "00";
    QTest::newRow("other letter case") << "k" << QVariantList{"a", "A"} << QStringList{"A"} << "02";
    QTest::newRow("part of a text") << "k" << QVariantList{"ab", "a", "b"} << QStringList{"a"} << "020";
    QTest::newRow("blanks count") << "k" << QVariantList{"a", "a ", " a"} << QStringList{"a "} << "020";
    QTest::newRow("texts are not joined") << "k" << QVariantList{"a,b", "a"} << QStringList{"a", "b"} << "02";
    QTest::newRow("numbers as texts") << "trackid" << QVariantList{1, 2, 3} << QStringList{"3", "1"} << "202";
    QTest::newRow("number and text of it") << "trackid" << QVariantList{2, "2", "02"} << QStringList{"2"} << "220";
    QTest::newRow("text is not read as a number")
        << "trackid" << QVariantList{2, 2} << QStringList{"02", "2.0"} << "00";
    QTest::newRow("bool is not read as a number") << "k" << QVariantList{true, 1} << QStringList{"1"} << "02";
    QTest::newRow("missing track id is -1") << "trackid" << QVariantList{1, none} << QStringList{"-1"} << "02";
    QTest::newRow("missing value is the empty text") << "k" << QVariantList{"a", none, ""} << QStringList{""} << "022";
    QTest::newRow("missing value is no other text") << "k" << QVariantList{none, "0"} << QStringList{"0"} << "02";
    QTest::newRow("key in other letter case") << "TRACKID" << QVariantList{none} << QStringList{"-1"} << "0";
    QTest::newRow("check state is no value here") << "_checkstate" << QVariantList{none} << QStringList{"2"} << "0";
    QTest::newRow("other alphabets") << "k" << QVariantList{QString::fromUtf8("\xC3\xA9t\xC3\xA9"), "ete"}
                                     << QStringList{QString::fromUtf8("\xC3\xA9t\xC3\xA9")} << "20";
}

void TstModelSelection::selectsByKeyAndTexts()
{
    QFETCH(QString, key);
    QFETCH(QVariantList, stored);
    QFETCH(QStringList, values);
    QFETCH(QString, expected);

    for (const int before : {0, 1, 2}) {
        ZoEffectModel model(QStringList{"Subtitle"});
        ZoEffectItemData* type = model.getDataItem("Subtitle", -1);
        type->setCheckState(0);
        for (const QVariant& entry : stored)
            addItem(type, key, entry, before);
        SignalRecorder recorder(model);

        model.selectItemByKeyEx("Subtitle", key, values);

        QCOMPARE(states(type), expected);
        QCOMPARE(type->checkState(), 2);
        QCOMPARE(recorder.take(), QStringList());
    }
}

void TstModelSelection::textOfAValue_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QString>("text");

    QTest::newRow("whole number") << QVariant(42) << "42";
    QTest::newRow("negative number") << QVariant(-3) << "-3";
    QTest::newRow("large number") << QVariant(Q_INT64_C(9000000000)) << "9000000000";
    QTest::newRow("true") << QVariant(true) << "true";
    QTest::newRow("false") << QVariant(false) << "false";
    QTest::newRow("double without fraction") << QVariant(2.0) << "2";
    QTest::newRow("double with a fraction") << QVariant(2.55) << "2.55";
    QTest::newRow("sum of doubles in full") << QVariant(0.1 + 0.2) << "0.30000000000000004";
    QTest::newRow("opaque colour") << QVariant(QColor(Qt::white)) << "#ffffff";
    QTest::newRow("transparent colour") << QVariant(QColor(1, 2, 3, 4)) << "#04010203";
    QTest::newRow("bytes") << QVariant(QByteArray("abc")) << "abc";
    QTest::newRow("list of one text") << QVariant(QStringList("a")) << "a";
    QTest::newRow("list of two texts has no text") << QVariant(QStringList{"a", "b"}) << "";
    QTest::newRow("map has no text") << QVariant(QVariantMap{{"a", 1}}) << "";
    QTest::newRow("null text") << QVariant(QString()) << "";
}

void TstModelSelection::textOfAValue()
{
    QFETCH(QVariant, stored);
    QFETCH(QString, text);
    ZoEffectModel model(QStringList{"Audio"});
    ZoEffectItemData* item = addItem(model.getDataItem("Audio", -1), "k", stored, 0);

    model.selectItemByKeyEx("Audio", "k", {"other", text, "another"});
    QCOMPARE(item->checkState(), 2);
    model.selectItemByKeyEx("Audio", "k", {"other", text + QLatin1Char('!')});
    QCOMPARE(item->checkState(), 0);
}

void TstModelSelection::selectingByKeySelectsTheType_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<QString>("items");
    QTest::addColumn<QString>("expected");

    QTest::newRow("unselected type without items") << 0 << ""
                                                   << "";
    QTest::newRow("selected type without items") << 2 << ""
                                                 << "";
    QTest::newRow("unselected type, nothing matches") << 0 << "02"
                                                      << "00";
    QTest::newRow("partially checked type") << 1 << "2"
                                            << "0";
    QTest::newRow("only null entries") << 0 << "--"
                                       << "--";
    QTest::newRow("null entries between items") << 0 << "-2-2-"
                                                << "-0-0-";
}

void TstModelSelection::selectingByKeySelectsTheType()
{
    QFETCH(int, before);
    QFETCH(QString, items);
    QFETCH(QString, expected);
    ZoEffectModel model(QStringList{"Watermark"});
    ZoEffectItemData* type = model.getDataItem("Watermark", -1);
    addItems(type, items);

    type->setCheckState(before);
    model.selectItemByKey("Watermark", "k", 5);
    QCOMPARE(type->checkState(), 2);
    QCOMPARE(states(type), expected);

    type->setCheckState(before);
    model.selectItemByKeyEx("Watermark", "k", {"5"});
    QCOMPARE(type->checkState(), 2);
    QCOMPARE(states(type), expected);
}

void TstModelSelection::selectingByKeyLeavesOtherTypesAlone()
{
    ZoEffectModel model(QStringList{"Watermark", "Subtitle", "Audio"});
    for (const char* type : {"Watermark", "Subtitle", "Audio"})
        addItems(model.getDataItem(type, -1), "0212");
    model.getDataItem("Watermark", -1)->setCheckState(0);
    model.getDataItem("Audio", -1)->setCheckState(1);

    model.selectItemByKey("Subtitle", "trackid", -1);
    QCOMPARE(states(root(model)), QString("021"));
    QCOMPARE(states(model.getDataItem("Watermark", -1)), QString("0212"));
    QCOMPARE(states(model.getDataItem("Subtitle", -1)), QString("2222"));
    QCOMPARE(states(model.getDataItem("Audio", -1)), QString("0212"));

    model.selectItemByKeyEx("Subtitle", "trackid", {"0"});
    QCOMPARE(states(root(model)), QString("021"));
    QCOMPARE(states(model.getDataItem("Watermark", -1)), QString("0212"));
    QCOMPARE(states(model.getDataItem("Subtitle", -1)), QString("0000"));
    QCOMPARE(states(model.getDataItem("Audio", -1)), QString("0212"));
}

void TstModelSelection::selectingByKeyInAMissingType_data()
{
    QTest::addColumn<QString>("type");

    QTest::newRow("type that the model lacks") << "Color";
    QTest::newRow("other letter case") << "watermark";
    QTest::newRow("empty name") << "";
}

void TstModelSelection::selectingByKeyInAMissingType()
{
    QFETCH(QString, type);
    ZoEffectModel model(QStringList{"Watermark", "Audio"});
    for (ZoEffectItemData* node : {model.getDataItem("Watermark", -1), model.getDataItem("Audio", -1)}) {
        auto* item = new ZoEffectItemData("item", node);
        item->setCheckState(1);
        node->setCheckState(1);
    }
    SignalRecorder recorder(model);

    model.selectItemByKey(type, "trackid", -1);
    model.selectItemByKeyEx(type, "trackid", {"-1"});

    QCOMPARE(states(root(model)), QString("11"));
    QCOMPARE(states(model.getDataItem("Watermark", -1)), QString("1"));
    QCOMPARE(states(model.getDataItem("Audio", -1)), QString("1"));
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelSelection::selectingByKeyChangesNoProperties()
{
    ZoEffectModel model(QStringList{"Audio"});
    addItem(model.getDataItem("Audio", -1), "trackid", 4);
    addItem(model.getDataItem("Audio", -1), "lang", "en");

    model.selectItemByKey("Audio", "trackid", 4);
    model.selectItemByKeyEx("Audio", "lang", {"en"});

    QCOMPARE(described(model.getDataItem("Audio", -1)->properties()), QString("{play_loop: bool false}"));
    QCOMPARE(described(model.getDataItem("Audio", 0)->properties()), QString("{trackid: int 4}"));
    QCOMPARE(described(model.getDataItem("Audio", 1)->properties()), QString("{lang: string en}"));
    QCOMPARE(described(root(model)->properties()), QString("{}"));
}

// The position that follows the video is the model's answer; selection looks at what the items hold.
void TstModelSelection::selectingByKeyReadsStoredSubtitlePositions()
{
    ZoEffectModel model(QStringList{"Subtitle"});
    model.setVideoSize(720, 500);
    addItem(model.getDataItem("Subtitle", -1), "sub_vposition", 200);
    addItem(model.getDataItem("Subtitle", -1), "sub_vposition", 400);
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", 0)), QString("double 400"));

    model.selectItemByKey("Subtitle", "sub_vposition", 200);
    QCOMPARE(states(model.getDataItem("Subtitle", -1)), QString("20"));
    model.selectItemByKeyEx("Subtitle", "sub_vposition", {"400"});
    QCOMPARE(states(model.getDataItem("Subtitle", -1)), QString("02"));
    QCOMPARE(model.getItemIndexByKeyValue("Subtitle", "sub_vposition", 400), 1);
    QCOMPARE(model.haveSameItem("Subtitle", "sub_vposition", 300), false);
}

// The name of the root addresses the root, whose items are the types.
void TstModelSelection::selectingByKeyAtTheRoot()
{
    ZoEffectModel model(QStringList{"Crop", "Audio", "Color"});
    root(model)->setCheckState(0);

    model.selectItemByKey("effect root", "play_loop", false);
    QCOMPARE(root(model)->checkState(), 2);
    QCOMPARE(states(root(model)), QString("020"));
    QCOMPARE(model.getItemIndexByKeyValue("effect root", "crop_left", 0), 0);
    QCOMPARE(model.haveSameItem("effect root", "bcs_contrast", 0), true);

    model.selectItemByKeyEx("effect root", "crop_top", {"0"});
    QCOMPARE(states(root(model)), QString("200"));
}

void TstModelSelection::selectingByKeyUnderAnItemsName()
{
    ZoEffectModel model(QStringList{"Effect"});
    QCOMPARE(states(model.getDataItem("Effect", -1)), QString("0000"));

    model.selectItemByKey("Mirror", "k", 1);
    QCOMPARE(states(model.getDataItem("Effect", -1)), QString("0020"));
    model.selectItemByKeyEx("Blur", "k", {"1"});
    QCOMPARE(states(model.getDataItem("Effect", -1)), QString("2020"));
}

void TstModelSelection::firstTypeOfANameIsMeant()
{
    ZoEffectModel model(QStringList{"Crop", "Color"});
    auto* second = new ZoEffectItemData("Crop", root(model));
    addItems(model.getDataItem("Crop", -1), "0");
    addItems(second, "02");
    second->setCheckState(0);

    model.selectItemByKey("Crop", "trackid", -1);
    QCOMPARE(states(model.getDataItem("Crop", -1)), QString("2"));
    QCOMPARE(states(second), QString("02"));
    QCOMPARE(second->checkState(), 0);
    QCOMPARE(model.getItemIndexByKeyValue("Crop", "trackid", -1), 0);
}

// --- getItemIndexByKeyValue, haveSameItem ------------------------------------------------------------------

void TstModelSelection::indexOfFirstItemWithValue_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariantList>("stored");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("expected");

    const QVariant none;
    QTest::newRow("first") << "trackid" << QVariantList{4, 5, 6} << QVariant(4) << 0;
    QTest::newRow("last") << "trackid" << QVariantList{4, 5, 6} << QVariant(6) << 2;
    QTest::newRow("lower of two") << "trackid" << QVariantList{4, 5, 5} << QVariant(5) << 1;
    QTest::newRow("lowest of all") << "trackid" << QVariantList{5, 5, 5} << QVariant(5) << 0;
    QTest::newRow("none") << "trackid" << QVariantList{4, 5, 6} << QVariant(7) << -1;
    QTest::newRow("missing track id is -1") << "trackid" << QVariantList{4, none} << QVariant(-1) << 1;
    QTest::newRow("missing key and invalid value") << "k" << QVariantList{"", 0, none} << none << 2;
    QTest::newRow("missing key and 0") << "k" << QVariantList{none, 0} << QVariant(0) << 1;
    QTest::newRow("invalid value and no item without the key") << "k" << QVariantList{1, 2} << none << -1;
    QTest::newRow("stored value on the left") << "k" << QVariantList{"05", 5} << QVariant(5) << 1;
    QTest::newRow("given value on the right") << "k" << QVariantList{"5", 5} << QVariant("05") << 1;
    QTest::newRow("key in other letter case") << "TrackID" << QVariantList{none} << QVariant(-1) << -1;
    QTest::newRow("check state is no value here") << "_checkstate" << QVariantList{none} << QVariant(2) << -1;
}

void TstModelSelection::indexOfFirstItemWithValue()
{
    QFETCH(QString, key);
    QFETCH(QVariantList, stored);
    QFETCH(QVariant, value);
    QFETCH(int, expected);
    ZoEffectModel model(QStringList{"Audio"});
    for (const QVariant& entry : stored)
        addItem(model.getDataItem("Audio", -1), key, entry);

    QCOMPARE(model.getItemIndexByKeyValue("Audio", key, value), expected);
    QCOMPARE(model.haveSameItem("Audio", key, value), expected >= 0);

    // Null entries are passed over but keep their place.
    model.getDataItem("Audio", -1)->insertChild(nullptr, 0);
    QCOMPARE(model.getItemIndexByKeyValue("Audio", key, value), expected < 0 ? -1 : expected + 1);
    QCOMPARE(model.haveSameItem("Audio", key, value), expected >= 0);
}

void TstModelSelection::indexInTypesWithoutItems_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("type without items") << "Audio"
                                        << "trackid" << QVariant(-1);
    QTest::newRow("the type's own value does not count") << "Audio"
                                                         << "play_loop" << QVariant(false);
    QTest::newRow("type that the model lacks") << "Color"
                                               << "bcs_contrast" << QVariant(0);
    QTest::newRow("missing type and invalid value") << "Color"
                                                    << "k" << QVariant();
    QTest::newRow("other letter case") << "audio"
                                       << "trackid" << QVariant(-1);
    QTest::newRow("only null entries") << "Watermark"
                                       << "trackid" << QVariant(-1);
    QTest::newRow("null entries and invalid value") << "Watermark"
                                                    << "k" << QVariant();
}

void TstModelSelection::indexInTypesWithoutItems()
{
    QFETCH(QString, type);
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    ZoEffectModel model(QStringList{"Watermark", "Audio"});
    addItems(model.getDataItem("Watermark", -1), "--");

    QCOMPARE(model.getItemIndexByKeyValue(type, key, value), -1);
    QCOMPARE(model.haveSameItem(type, key, value), false);
}

void TstModelSelection::indexSearchLeavesSelectionAlone()
{
    ZoEffectModel model(QStringList{"Audio", "Color"});
    addItems(model.getDataItem("Audio", -1), "0120");
    model.getDataItem("Audio", -1)->setCheckState(0);
    SignalRecorder recorder(model);

    QCOMPARE(model.getItemIndexByKeyValue("Audio", "trackid", -1), 0);
    QCOMPARE(model.haveSameItem("Audio", "trackid", -1), true);

    QCOMPARE(states(model.getDataItem("Audio", -1)), QString("0120"));
    QCOMPARE(states(root(model)), QString("02"));
    QCOMPARE(recorder.take(), QStringList());
}

// --- getSelectItem -----------------------------------------------------------------------------------------

void TstModelSelection::selectedItem_data()
{
    QTest::addColumn<int>("typeState");
    QTest::addColumn<QString>("items");
    QTest::addColumn<int>("expected");

    QTest::newRow("no items") << 2 << "" << -1;
    QTest::newRow("nothing selected") << 2 << "000" << -1;
    QTest::newRow("only item") << 2 << "2" << 0;
    QTest::newRow("last item") << 2 << "002" << 2;
    QTest::newRow("first of several") << 2 << "0222" << 1;
    QTest::newRow("partially checked is not selected") << 2 << "12" << 1;
    QTest::newRow("unknown states are not selected") << 2 << "345" << -1;
    QTest::newRow("type not selected") << 0 << "222" << -1;
    QTest::newRow("type partially checked") << 1 << "222" << -1;
    QTest::newRow("type in an unknown state") << 3 << "222" << -1;
    QTest::newRow("null entry first") << 2 << "-2" << 1;
    QTest::newRow("null entries only") << 2 << "--" << -1;
}

void TstModelSelection::selectedItem()
{
    QFETCH(int, typeState);
    QFETCH(QString, items);
    QFETCH(int, expected);
    for (const char* type : {"Watermark", "Subtitle", "Crop"}) {
        ZoEffectModel model;
        ZoEffectItemData* node = model.getDataItem(type, -1);
        addItems(node, items);
        node->setCheckState(typeState);
        SignalRecorder recorder(model);

        const ZoEffectItemData* const none = nullptr;
        QCOMPARE(static_cast<const ZoEffectItemData*>(model.getSelectItem(type)),
                 expected < 0 ? none : node->child(expected));

        QCOMPARE(states(node), items);
        QCOMPARE(node->checkState(), typeState);
        QCOMPARE(recorder.take(), QStringList());
    }
}

void TstModelSelection::selectedItemStaysTheModels()
{
    ZoEffectModel model(QStringList{"Watermark"});
    addItems(model.getDataItem("Watermark", -1), "02");

    ZoEffectItemData* item = model.getSelectItem("Watermark");
    QCOMPARE(item, model.getDataItem("Watermark", 1));
    QCOMPARE(item->parent(), model.getDataItem("Watermark", -1));
    QCOMPARE(model.childCount("Watermark"), 2);
    QCOMPARE(model.getSelectItem("Watermark"), item);
}

void TstModelSelection::selectedItemOfAMissingType()
{
    ZoEffectModel model(QStringList{"Watermark"});
    addItems(model.getDataItem("Watermark", -1), "2");

    QVERIFY(!model.getSelectItem("Subtitle"));
    QVERIFY(!model.getSelectItem("Audio"));
    QVERIFY(!model.getSelectItem("watermark"));
    QVERIFY(!model.getSelectItem(QString()));
}

void TstModelSelection::selectedItemOfTheRoot()
{
    ZoEffectModel model(QStringList{"Crop", "Color"});
    model.getDataItem("Crop", -1)->setCheckState(0);

    QCOMPARE(model.getSelectItem("effect root"), model.getDataItem("Color", -1));
}

void TstModelSelection::selectedAudioTracks_data()
{
    QTest::addColumn<int>("typeState");
    QTest::addColumn<QString>("tracks");
    QTest::addColumn<QList<int>>("expected");

    QTest::newRow("no tracks") << 2 << "" << QList<int>{};
    QTest::newRow("nothing selected") << 2 << "000" << QList<int>{};
    QTest::newRow("single track") << 2 << "2" << QList<int>{0};
    QTest::newRow("first and third") << 2 << "202" << QList<int>{0, 2};
    QTest::newRow("all in order") << 2 << "2222" << QList<int>{0, 1, 2, 3};
    QTest::newRow("last only") << 2 << "0002" << QList<int>{3};
    QTest::newRow("partially checked stays out") << 2 << "1212" << QList<int>{1, 3};
    QTest::newRow("type not selected") << 0 << "222" << QList<int>{};
    QTest::newRow("type partially checked") << 1 << "222" << QList<int>{};
    QTest::newRow("null entries stay out") << 2 << "-2-2-" << QList<int>{1, 3};
    QTest::newRow("null entries only") << 2 << "--" << QList<int>{};
}

void TstModelSelection::selectedAudioTracks()
{
    QFETCH(int, typeState);
    QFETCH(QString, tracks);
    QFETCH(QList<int>, expected);
    ZoEffectModel model;
    ZoEffectItemData* type = model.getDataItem("Audio", -1);
    addItems(type, tracks);
    type->setCheckState(typeState);
    SignalRecorder recorder(model);

    ZoEffectItemData* container = model.getSelectItem("Audio");
    QList<int> rows;
    for (int i = 0; container && i < container->childCount(); ++i)
        rows << container->child(i)->childNumber();
    QCOMPARE(rows, expected);
    QCOMPARE(container != nullptr, !expected.isEmpty());
    QVERIFY(container != type);
    for (int i = 0; i < expected.size(); ++i)
        QCOMPARE(container->child(i), type->child(expected.at(i)));
    if (container)
        release(container);

    QCOMPARE(states(type), tracks);
    QCOMPARE(recorder.take(), QStringList());
}

void TstModelSelection::audioContainerStandsFree()
{
    ZoEffectModel model(QStringList{"Audio"});
    addItems(model.getDataItem("Audio", -1), "202");

    ZoEffectItemData* container = model.getSelectItem("Audio");
    QVERIFY(container);
    QCOMPARE(container->name(), QString("Audio"));
    QCOMPARE(container->objectName(), QString("Audio"));
    QVERIFY(!container->parent());
    QVERIFY(!static_cast<QObject*>(container)->parent());
    QCOMPARE(container->checkState(), 2);
    QVERIFY(container->properties().isEmpty());
    QVERIFY(!container->internalData());
    QCOMPARE(container->childCount(), 2);
    QCOMPARE(root(model)->childCount(), 1);
    release(container);
}

void TstModelSelection::audioContainerLeavesTheTracksInTheModel()
{
    ZoEffectModel model(QStringList{"Audio"});
    ZoEffectItemData* type = model.getDataItem("Audio", -1);
    for (const int id : {10, 11, 12})
        addItem(type, "trackid", id);
    type->child(1)->setCheckState(0);

    ZoEffectItemData* container = model.getSelectItem("Audio");
    QVERIFY(container);
    for (int i = 0; i < container->childCount(); ++i)
        QCOMPARE(container->child(i)->parent(), type);
    QCOMPARE(model.childCount("Audio"), 3);
    // The same nodes, no copies: a write through the container is a write to the model's track.
    container->child(1)->setData("lang", "en");
    QCOMPARE(model.data("lang", "Audio", 2), QVariant("en"));
    release(container);

    QCOMPARE(model.childCount("Audio"), 3);
    QCOMPARE(model.data("trackid", "Audio", 0), QVariant(10));
    QCOMPARE(model.data("trackid", "Audio", 1), QVariant(11));
    QCOMPARE(model.data("trackid", "Audio", 2), QVariant(12));
}

void TstModelSelection::audioContainerIsNewEachTime()
{
    ZoEffectModel model(QStringList{"Audio"});
    addItems(model.getDataItem("Audio", -1), "2");

    ZoEffectItemData* first = model.getSelectItem("Audio");
    ZoEffectItemData* second = model.getSelectItem("Audio");
    QVERIFY(first != second);
    QCOMPARE(first->child(0), second->child(0));
    release(first);
    QCOMPARE(second->childCount(), 1);
    QCOMPARE(second->child(0), model.getDataItem("Audio", 0));
    release(second);
}

void TstModelSelection::onlyTheExactNameAudioGathers()
{
    for (const char* type : {"audio", "AUDIO", "Audio ", "Audio_Echo"}) {
        ZoEffectModel model(type, {});
        addItems(model.getDataItem(type, -1), "022");
        QCOMPARE(model.getSelectItem(type), model.getDataItem(type, 1));
    }
}

ZOEFFECT_TEST_MAIN(TstModelSelection)

#include "tst_model_selection.moc"
