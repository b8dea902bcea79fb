// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <climits>
#include <memory>

#include <QPointer>

#include <zoeffectcatalogue.h>
#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

using Properties = QMap<QString, QVariant>;

void saveCustomDefault(const QString& type, const Properties& values)
{
    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal(type, values);
}

ZoEffectItemData* rootOf(const ZoEffectModel& model)
{
    return model.getDataItem(QStringLiteral("effect root"), -1);
}

/// Appends an item with nothing but \a properties under \a parent, past the model.
ZoEffectItemData* appendBare(ZoEffectItemData* parent, const Properties& properties)
{
    auto* item = new ZoEffectItemData(QString(), parent);
    for (auto it = properties.cbegin(); it != properties.cend(); ++it)
        item->setData(it.key(), it.value());
    return item;
}

ZoEffectItemData* appendBare(const ZoEffectModel& model, const QString& type, const Properties& properties)
{
    return appendBare(model.getDataItem(type, -1), properties);
}

/// Subtitle tracks in the order of \a kinds: e embedded, f from a file, n a null entry.
void appendTracks(const ZoEffectModel& model, const QString& kinds)
{
    for (const QChar kind : kinds) {
        if (kind == QLatin1Char('n'))
            model.getDataItem("Subtitle", -1)->appendChild(nullptr);
        else
            appendBare(model, "Subtitle", {{"sub_fromfile", kind == QLatin1Char('f')}});
    }
}

/// The rows of the subtitle tracks that hold the transparency 77.
QList<int> styledRows(const ZoEffectModel& model)
{
    QList<int> rows;
    const ZoEffectItemData* typeNode = model.getDataItem("Subtitle", -1);
    for (int i = 0; i < typeNode->childCount(); ++i) {
        if (typeNode->child(i) && typeNode->child(i)->data("sub_transparency") == QVariant(77))
            rows << i;
    }
    return rows;
}

QStringList resets(const QList<int>& positions)
{
    QStringList texts;
    for (const int pos : positions)
        texts << QStringLiteral("effectDataChanged(Subtitle, reset, invalid, %1)").arg(pos);
    return texts;
}

/// The values of \a node under the keys of \a wanted, in the form of described(); keys that are missing are
/// left out.
QString chosen(const ZoEffectItemData* node, const QStringList& wanted)
{
    Properties values;
    for (const QString& key : wanted) {
        if (node->hasData(key))
            values.insert(key, node->data(key));
    }
    return described(values);
}

/// A node with all that is below it: "name:state{properties}[children]".
QString tree(const ZoEffectItemData* node) // NOLINT(misc-no-recursion): as deep as the test's own tree
{
    QStringList children;
    for (int i = 0; i < node->childCount(); ++i)
        children << tree(node->child(i));
    return QStringLiteral("%1:%2%3[%4]")
        .arg(node->name())
        .arg(node->checkState())
        .arg(described(node->properties()), children.join(QLatin1Char(' ')));
}

QStringList one(const QString& signal)
{
    return {signal};
}

/// Calls \a listener(key, pos) on each four-argument effectDataChanged of \a model.
template <typename Listener>
void listen(const ZoEffectModel& model, QObject* context, Listener listener)
{
    QObject::connect(
        &model, QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
        context, [listener](const QString&, const QString& key, const QVariant&, int pos) { listener(key, pos); });
}

void deleteTrack(ZoEffectModel& model, int row)
{
    if (model.getDataItem("Subtitle", row))
        model.delDataItem("Subtitle", row);
}

/// What a listener does with the subtitle tracks; what would call it again is done \a firstTime only.
void changeTracks(ZoEffectModel& model, const QString& action, bool firstTime)
{
    if (action == "delete last")
        deleteTrack(model, model.childCount("Subtitle") - 1);
    else if (action == "delete first")
        deleteTrack(model, 0);
    else if (action == "delete ninth")
        deleteTrack(model, 8);
    else if (action == "delete all")
        for (int row = model.childCount("Subtitle") - 1; row >= 0; --row)
            deleteTrack(model, row);
    else if (action == "delete type")
        model.delDataItem("effect root", 2);
    else if (action == "reset all")
        model.resetAllEffect();
    else if (action == "append")
        model.addDataItem("Subtitle", {{"sub_fromfile", true}});
    else if (action == "append eight" && firstTime)
        appendTracks(model, "ffffffff");
    else if (action == "reset type" && firstTime)
        model.resetDataItem("Subtitle", -1);
    else if (action == "replace type" && firstTime)
        model.replaceData("Subtitle", -1, ZoEffectModel().getDataItem("Subtitle", -1));
}

const Properties styled{{"sub_transparency", 77}};

} // namespace

class TstModelReplace : public QObject {
    Q_OBJECT

private slots:
    void init();

    void replacedItemHoldsTheDefaults_data();
    void replacedItemHoldsTheDefaults();
    void replacingKeepsWhatTheCatalogueDoesNotName_data();
    void replacingKeepsWhatTheCatalogueDoesNotName();
    void propertiesOfTheCallerWin_data();
    void propertiesOfTheCallerWin();
    void checkStateChangesOnlyWhenTold_data();
    void checkStateChangesOnlyWhenTold();
    void watermarkGoesBackToTheFactorsOfTheBaseSize_data();
    void watermarkGoesBackToTheFactorsOfTheBaseSize();
    void replacedWatermarkMayOverlapOthers();
    void customDefaultGoesByTheFormerKindOfTheItem_data();
    void customDefaultGoesByTheFormerKindOfTheItem();
    void savedPlaceGoesByTheOtherWatermarks_data();
    void savedPlaceGoesByTheOtherWatermarks();
    void positionOfASubtitleCountsAsNotEdited_data();
    void positionOfASubtitleCountsAsNotEdited();
    void onlySubtitlesGetTheEditedFlag();
    void replacingAnnouncesItsPosition_data();
    void replacingAnnouncesItsPosition();
    void replacingWhatIsNotThereIsLogged_data();
    void replacingWhatIsNotThereIsLogged();
    void childrenOfAReplacedItemStay();
    void replacingWithTheItemsOwnPropertiesKeepsThem();
    void checkStateOfTheCatalogueIsAProperty();
    void replacingWithoutCatalogueAppliesTheCallersProperties();
    void listenerMayDeleteTheReplacedItem();

    void copiedNodeIsDeep();
    void copiedItemStaysAtItsPlace();
    void copyIsIndependent();
    void typeNodeIsCopiedWithItsWholeList();
    void nullEntriesAreNotCopied();
    void copyAnnouncesItsPosition_data();
    void copyAnnouncesItsPosition();
    void copyingWithoutSourceIsLogged_data();
    void copyingWithoutSourceIsLogged();
    void copyingOntoNothingOrItselfIsLogged_data();
    void copyingOntoNothingOrItselfIsLogged();
    void copiedWatermarksAreRescaled_data();
    void copiedWatermarksAreRescaled();
    void copiedWatermarksAreRescaledOnlyAcrossModels_data();
    void copiedWatermarksAreRescaledOnlyAcrossModels();
    void otherTypesAreNotRescaled_data();
    void otherTypesAreNotRescaled();
    void typeNodeCopiedOntoAWatermarkItemIsRescaled();
    void otherTypeCopiedOntoTheWatermarksIsRescaledAsItself();
    void treeOfAHostIsRescaledFromItsRoot_data();
    void treeOfAHostIsRescaledFromItsRoot();
    void parentWithAnotherNameIsNoRoot();
    void typeNodeMayBecomeOneOfItsItems();
    void itemMayBecomeItsTypeNode();
    void itemMayBecomeTheWholeTree();
    void rootMayBecomeOneOfItsTypes();
    void copyingDoesNotCountAsEditedByUser();
    void listenerOfACopyMayDeleteBoth();

    void styleReachesFewTracks_data();
    void styleReachesFewTracks();
    void styleGoesToSubtitlesOnly_data();
    void styleGoesToSubtitlesOnly();
    void kindOfATrackPicksTheKeys_data();
    void kindOfATrackPicksTheKeys();
    void whatIsNoStyleIsNotCopied();
    void missingStyleKeysKeepTheirValues_data();
    void missingStyleKeysKeepTheirValues();
    void sizesAndPositionsFollowTheHeight_data();
    void sizesAndPositionsFollowTheHeight();
    void onlySizesAndPositionsFollowTheHeight();
    void heightOfTheModelIsTheRootsOwn();
    void spreadingCountsAsEditedByUser_data();
    void spreadingCountsAsEditedByUser();
    void spreadPositionDoesNotCountAsEdited();
    void listenerSeesTheStyledTrackAndTheFlag();
    void listenerMayChangeTheList_data();
    void listenerMayChangeTheList();
    void listenerMayChangeTheHeight();
    void listenerMayChangeTheKindOfATrack();
    void listenerThatKeepsInsertingDoesNotKeepTheCallAlive_data();
    void listenerThatKeepsInsertingDoesNotKeepTheCallAlive();
    void processedTrackThatMovesOnIsNotProcessedAgain();
    void listenerMayRender();
    void styleOfATrackOfThisModelIsTakenAsItWas();
    void styleOfATrackThatAListenerDeletesIsTakenAsItWas();
    void argumentsThatAListenerChangesCountAsTheyWere();
};

void TstModelReplace::init()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    logcapture::takeEvents();
}

// --- Replacing by properties -------------------------------------------------------------------------------

void TstModelReplace::replacedItemHoldsTheDefaults_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Properties>("before");
    QTest::addColumn<QString>("expected");

    QTest::newRow("watermark, its factors included")
        << "Watermark"
        << Properties{{"wm_hposition", 300}, {"wm_fontsize", 70}, {"wm_vposfactor", 0.9}, {"wm_transparency", 80}}
        << "{wm_fontcolor: color #ffffffff, wm_fontname: font Tahoma, wm_fontsize: int 22, "
           "wm_fontstyle: string Regular, wm_hposfactor: double 0.10000000000000001, wm_hposition: int 64, "
           "wm_imagekeepratio: bool true, wm_transfactor: double 2.5499999999999998, wm_transparency: int 0, "
           "wm_vposfactor: double 0.10000000000000001, wm_vposition: int 48}";
    QTest::newRow("subtitle, its factor included")
        << "Subtitle" << Properties{{"sub_fontsize", 70}, {"sub_vposition", 1}, {"fontstyleusedefault", false}}
        << "{dvdsubtitleposeditbyuser: bool false, fontstyleusedefault: bool true, sub_fontcolor: color #ffffffff, "
           "sub_fontname: font Tahoma, sub_fontsize: int 22, sub_fontstyle: string Regular, "
           "sub_framecolor: color #ff000000, sub_hposition: int 200, sub_linemargin: int 0, "
           "sub_transfactor: double 2.5499999999999998, sub_transparency: int 0, "
           "sub_vposfactor: double 0.80000000000000004, sub_vposition: int 200}";
    QTest::newRow("audio") << "Audio" << Properties{{"play_loop", true}} << "{play_loop: bool false}";
    QTest::newRow("colour") << "Color" << Properties{{"bcs_contrast", 5}}
                            << "{bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0}";
    QTest::newRow("crop") << "Crop" << Properties{{"crop_left", 5}, {"crop_width", 40}}
                          << "{crop_aspectratio: string Original Ratio, crop_height: string source_val, "
                             "crop_keepaspectratio: bool true, crop_left: int 0, crop_minheight: int 24, "
                             "crop_minwidth: int 24, crop_top: int 0, crop_width: string source_val}";
    QTest::newRow("echo") << "Audio_Echo" << Properties{{"audio_echo_decay", 5}}
                          << "{audio_echo_decay: int 500, audio_echo_delay: int 50, audio_echo_gainin: int 50, "
                             "audio_echo_gainout: int 50, audio_effect_flag: bool false}";
}

void TstModelReplace::replacedItemHoldsTheDefaults()
{
    QFETCH(QString, type);
    QFETCH(Properties, before);
    QFETCH(QString, expected);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    ZoEffectItemData* item = appendBare(model, type, before);
    const QString typeBefore = described(model.getDataItem(type, -1)->properties());

    QCOMPARE(model.replaceData(type, 0, Properties{}), true);

    QCOMPARE(model.getDataItem(type, 0), item);
    QCOMPARE(described(item->properties()), expected);
    QCOMPARE(described(model.getDataItem(type, -1)->properties()), typeBefore);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReplace::replacingKeepsWhatTheCatalogueDoesNotName_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Properties>("before");
    QTest::addColumn<QString>("expected");

    QTest::newRow("track and file of a subtitle")
        << "Subtitle" << Properties{{"trackid", 7}, {"sub_fromfile", true}, {"sub_file", "a.srt"}}
        << "{sub_file: string a.srt, sub_fromfile: bool true, trackid: int 7}";
    QTest::newRow("track and file of audio")
        << "Audio" << Properties{{"trackid", 7}, {"audio_isfile", true}} << "{audio_isfile: bool true, trackid: int 7}";
    QTest::newRow("text and picture of a watermark")
        << "Watermark"
        << Properties{{"wm_istextwatermark", true},
                      {"wm_textcontent", "mine"},
                      {"wm_imageurl", "a.png"},
                      {"wm_imagewidth", 40},
                      {"wm_imageheight", 30}}
        << "{wm_imageheight: int 30, wm_imageurl: string a.png, wm_imagewidth: int 40, "
           "wm_istextwatermark: bool true, wm_textcontent: string mine}";
    QTest::newRow("stored check state property")
        << "Audio" << Properties{{"_checkstate", false}} << "{_checkstate: bool false}";
    QTest::newRow("invalid value") << "Audio" << Properties{{"own", QVariant()}} << "{own: invalid}";
}

void TstModelReplace::replacingKeepsWhatTheCatalogueDoesNotName()
{
    QFETCH(QString, type);
    QFETCH(Properties, before);
    QFETCH(QString, expected);
    ZoEffectModel model;
    appendBare(model, type, before);

    QVERIFY(model.replaceData(type, 0, Properties{}));

    QCOMPARE(chosen(model.getDataItem(type, 0), before.keys()), expected);
}

void TstModelReplace::propertiesOfTheCallerWin_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Properties>("saved");
    QTest::addColumn<Properties>("props");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QString>("expected");

    QTest::newRow("over the catalogue") << "Color" << Properties{} << Properties{{"bcs_contrast", 9}}
                                        << QStringList{"bcs_contrast", "bcs_saturation"}
                                        << "{bcs_contrast: int 9, bcs_saturation: int 0}";
    QTest::newRow("over the custom default")
        << "Color" << Properties{{"bcs_contrast", 5}, {"bcs_saturation", 6}} << Properties{{"bcs_contrast", 9}}
        << QStringList{"bcs_contrast", "bcs_saturation"} << "{bcs_contrast: int 9, bcs_saturation: int 6}";
    QTest::newRow("over the place by factors")
        << "Watermark" << Properties{} << Properties{{"wm_hposition", 7}} << QStringList{"wm_hposition", "wm_vposition"}
        << "{wm_hposition: int 7, wm_vposition: int 48}";
    QTest::newRow("factors") << "Watermark" << Properties{} << Properties{{"wm_hposfactor", 0.5}}
                             << QStringList{"wm_hposition", "wm_hposfactor"}
                             << "{wm_hposfactor: double 0.5, wm_hposition: int 64}";
    QTest::newRow("over the flag of an edited position")
        << "Subtitle" << Properties{} << Properties{{"dvdsubtitleposeditbyuser", true}, {"sub_vposition", 9}}
        << QStringList{"dvdsubtitleposeditbyuser", "sub_vposition"}
        << "{dvdsubtitleposeditbyuser: bool true, sub_vposition: int 9}";
    QTest::newRow("in another type than the catalogue's")
        << "Subtitle" << Properties{} << Properties{{"sub_fontsize", "22"}} << QStringList{"sub_fontsize"}
        << "{sub_fontsize: string 22}";
    QTest::newRow("with an invalid value") << "Audio" << Properties{} << Properties{{"play_loop", QVariant()}}
                                           << QStringList{"play_loop"} << "{play_loop: invalid}";
    QTest::newRow("with keys that the catalogue lacks")
        << "Audio" << Properties{} << Properties{{"trackid", 3}, {"own", "x"}} << QStringList{"trackid", "own"}
        << "{own: string x, trackid: int 3}";
}

void TstModelReplace::propertiesOfTheCallerWin()
{
    QFETCH(QString, type);
    QFETCH(Properties, saved);
    QFETCH(Properties, props);
    QFETCH(QStringList, keys);
    QFETCH(QString, expected);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    appendBare(model, type, {});
    if (!saved.isEmpty())
        saveCustomDefault(type, saved);

    QVERIFY(model.replaceData(type, 0, props));

    QCOMPARE(chosen(model.getDataItem(type, 0), keys), expected);
}

void TstModelReplace::checkStateChangesOnlyWhenTold_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<Properties>("props");
    QTest::addColumn<int>("expected");

    QTest::newRow("selected, not told") << 2 << Properties{} << 2;
    QTest::newRow("unselected, not told") << 0 << Properties{} << 0;
    QTest::newRow("partly selected, not told") << 1 << Properties{} << 1;
    QTest::newRow("selected, told false") << 2 << Properties{{"_checkstate", false}} << 0;
    QTest::newRow("unselected, told true") << 0 << Properties{{"_checkstate", true}} << 2;
    QTest::newRow("unselected, told 1") << 0 << Properties{{"_checkstate", 1}} << 2;
    QTest::newRow("selected, told an empty text") << 2 << Properties{{"_checkstate", ""}} << 0;
    QTest::newRow("selected, told an invalid value") << 2 << Properties{{"_checkstate", QVariant()}} << 0;
}

void TstModelReplace::checkStateChangesOnlyWhenTold()
{
    QFETCH(int, before);
    QFETCH(Properties, props);
    QFETCH(int, expected);
    ZoEffectModel model;
    appendBare(model, "Audio", {})->setCheckState(before);

    QVERIFY(model.replaceData("Audio", 0, props));

    QCOMPARE(model.getDataItem("Audio", 0)->checkState(), expected);
    QCOMPARE(described(model.getDataItem("Audio", 0)->properties()), QStringLiteral("{play_loop: bool false}"));
}

void TstModelReplace::watermarkGoesBackToTheFactorsOfTheBaseSize_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<QString>("expected");

    QTest::newRow("PAL, height truncated") << 720 << 576 << "{wm_hposition: int 72, wm_vposition: int 57}";
    QTest::newRow("both truncated, not rounded") << 859 << 489 << "{wm_hposition: int 85, wm_vposition: int 48}";
    QTest::newRow("no size") << 0 << 0 << "{wm_hposition: int 0, wm_vposition: int 0}";
    QTest::newRow("negative size") << -645 << -19 << "{wm_hposition: int -64, wm_vposition: int -1}";
}

void TstModelReplace::watermarkGoesBackToTheFactorsOfTheBaseSize()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(QString, expected);
    ZoEffectModel model;
    model.setVideoSize(width, height);
    appendBare(model, "Watermark", {{"wm_hposition", 500}, {"wm_hposfactor", 0.7}, {"wm_vposfactor", 0.7}});

    QVERIFY(model.replaceData("Watermark", 0, Properties{}));

    QCOMPARE(chosen(model.getDataItem("Watermark", 0), {"wm_hposition", "wm_vposition"}), expected);
}

void TstModelReplace::replacedWatermarkMayOverlapOthers()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    QVERIFY(model.addDataItem("Watermark", {}));
    QVERIFY(model.addDataItem("Watermark", {}));

    QVERIFY(model.replaceData("Watermark", 1, Properties{}));

    // No free place is looked for.
    const QString corner = QStringLiteral("{wm_hposition: int 64, wm_vposition: int 48}");
    QCOMPARE(chosen(model.getDataItem("Watermark", 0), {"wm_hposition", "wm_vposition"}), corner);
    QCOMPARE(chosen(model.getDataItem("Watermark", 1), {"wm_hposition", "wm_vposition"}), corner);
}

void TstModelReplace::customDefaultGoesByTheFormerKindOfTheItem_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<Properties>("saved");
    QTest::addColumn<Properties>("before");
    QTest::addColumn<Properties>("props");
    QTest::addColumn<QString>("expected");

    const Properties watermark{{"wm_transparency", 40}, {"wm_fontsize", 33}};
    QTest::newRow("image watermark") << "Watermark" << watermark << Properties{} << Properties{}
                                     << "{wm_fontsize: int 22, wm_hposition: int 30, wm_transparency: int 40}";
    QTest::newRow("text watermark") << "Watermark" << watermark << Properties{{"wm_istextwatermark", true}}
                                    << Properties{}
                                    << "{wm_fontsize: int 33, wm_hposition: int 30, wm_istextwatermark: bool true, "
                                       "wm_transparency: int 40}";
    QTest::newRow("image watermark that becomes a text")
        << "Watermark" << watermark << Properties{{"wm_istextwatermark", false}}
        << Properties{{"wm_istextwatermark", true}}
        << "{wm_fontsize: int 22, wm_hposition: int 30, wm_istextwatermark: bool true, wm_transparency: int 40}";
    QTest::newRow("text watermark that becomes an image")
        << "Watermark" << watermark << Properties{{"wm_istextwatermark", true}}
        << Properties{{"wm_istextwatermark", false}}
        << "{wm_fontsize: int 33, wm_hposition: int 30, wm_istextwatermark: bool false, wm_transparency: int 40}";
    QTest::newRow("empty custom default keeps the catalogue's place")
        << "Watermark" << Properties{} << Properties{} << Properties{}
        << "{wm_fontsize: int 22, wm_hposition: int 30, wm_transparency: int 0}";

    const Properties subtitle{{"sub_transparency", 12}, {"sub_fontsize", 30}, {"sub_vposfactor", 0.5}};
    QTest::newRow("embedded subtitle")
        << "Subtitle" << subtitle << Properties{} << Properties{}
        << "{sub_fontsize: int 22, sub_transparency: int 12, sub_vposfactor: double 0.80000000000000004}";
    QTest::newRow("subtitle from a file")
        << "Subtitle" << subtitle << Properties{{"sub_fromfile", true}} << Properties{}
        << "{sub_fontsize: int 30, sub_fromfile: bool true, sub_transparency: int 12, sub_vposfactor: double 0.5}";
    QTest::newRow("embedded subtitle that becomes one from a file")
        << "Subtitle" << subtitle << Properties{} << Properties{{"sub_fromfile", true}}
        << "{sub_fontsize: int 22, sub_fromfile: bool true, sub_transparency: int 12, "
           "sub_vposfactor: double 0.80000000000000004}";
    QTest::newRow("subtitle from a file that becomes embedded")
        << "Subtitle" << subtitle << Properties{{"sub_fromfile", true}} << Properties{{"sub_fromfile", false}}
        << "{sub_fontsize: int 30, sub_fromfile: bool false, sub_transparency: int 12, sub_vposfactor: double 0.5}";

    QTest::newRow("audio takes all") << "Audio" << Properties{{"play_loop", true}, {"own", 1}} << Properties{}
                                     << Properties{} << "{own: int 1, play_loop: bool true}";
}

void TstModelReplace::customDefaultGoesByTheFormerKindOfTheItem()
{
    QFETCH(QString, type);
    QFETCH(Properties, saved);
    QFETCH(Properties, before);
    QFETCH(Properties, props);
    QFETCH(QString, expected);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    saveCustomDefault(type, saved);
    appendBare(model, type, before);

    QVERIFY(model.replaceData(type, 0, props));

    QCOMPARE(chosen(model.getDataItem(type, 0),
                    {"wm_transparency", "wm_fontsize", "wm_istextwatermark", "wm_hposition", "sub_transparency",
                     "sub_fontsize", "sub_vposfactor", "sub_fromfile", "play_loop", "own"}),
             expected);
    QCOMPARE(model.editByDefault(), type == "Audio");
}

void TstModelReplace::savedPlaceGoesByTheOtherWatermarks_data()
{
    QTest::addColumn<int>("selectedOthers");
    QTest::addColumn<int>("unselectedOthers");
    QTest::addColumn<QString>("expected");

    const QString saved = "{wm_hposition: int 320, wm_vposition: int 120}";
    const QString catalogue = "{wm_hposition: int 30, wm_vposition: int 30}";
    QTest::newRow("alone") << 0 << 0 << saved;
    QTest::newRow("one other: never taken") << 1 << 0 << catalogue;
    QTest::newRow("two others") << 2 << 0 << saved;
    QTest::newRow("three others: never taken") << 3 << 0 << catalogue;
    QTest::newRow("one unselected other") << 0 << 1 << saved;
    QTest::newRow("one selected and one unselected other") << 1 << 1 << catalogue;
}

void TstModelReplace::savedPlaceGoesByTheOtherWatermarks()
{
    QFETCH(int, selectedOthers);
    QFETCH(int, unselectedOthers);
    QFETCH(QString, expected);
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    saveCustomDefault("Watermark", {{"wm_hposfactor", 0.5}, {"wm_vposfactor", 0.25}});
    appendBare(model, "Watermark", {{"wm_hposition", 500}, {"wm_vposition", 400}});
    for (int i = 0; i < selectedOthers + unselectedOthers; ++i) {
        ZoEffectItemData* other = appendBare(model, "Watermark", {{"wm_hposition", 0}, {"wm_vposition", 300}});
        if (i >= selectedOthers)
            other->setCheckState(0);
    }

    QVERIFY(model.replaceData("Watermark", 0, Properties{}));

    QCOMPARE(chosen(model.getDataItem("Watermark", 0), {"wm_hposition", "wm_vposition"}), expected);
}

void TstModelReplace::positionOfASubtitleCountsAsNotEdited_data()
{
    QTest::addColumn<Properties>("saved");
    QTest::addColumn<Properties>("before");

    QTest::newRow("never edited") << Properties{} << Properties{};
    QTest::newRow("edited") << Properties{} << Properties{{"dvdsubtitleposeditbyuser", true}};
    QTest::newRow("edited, with a custom default")
        << Properties{{"sub_transparency", 3}} << Properties{{"dvdsubtitleposeditbyuser", true}};
    QTest::newRow("the custom default says edited")
        << Properties{{"dvdsubtitleposeditbyuser", true}} << Properties{{"sub_fromfile", true}};
}

void TstModelReplace::positionOfASubtitleCountsAsNotEdited()
{
    QFETCH(Properties, saved);
    QFETCH(Properties, before);
    ZoEffectModel model;
    model.setVideoSize(640, 500);
    if (!saved.isEmpty())
        saveCustomDefault("Subtitle", saved);
    appendBare(model, "Subtitle", before);

    QVERIFY(model.replaceData("Subtitle", 0, Properties{}));

    QCOMPARE(described(model.getDataItem("Subtitle", 0)->data("dvdsubtitleposeditbyuser")),
             QStringLiteral("bool false"));
    // So the position follows the video height again: 500 x 0.8.
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", 0)), QStringLiteral("double 400"));
}

void TstModelReplace::onlySubtitlesGetTheEditedFlag()
{
    ZoEffectModel model;
    for (const QString& type : {QStringLiteral("Watermark"), QStringLiteral("Audio"), QStringLiteral("Color")}) {
        appendBare(model, type, {});
        QVERIFY(model.replaceData(type, 0, Properties{}));
        QCOMPARE(model.getDataItem(type, 0)->hasData("dvdsubtitleposeditbyuser"), false);
    }
}

void TstModelReplace::replacingAnnouncesItsPosition_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");

    QTest::newRow("first watermark") << "Watermark" << 0;
    QTest::newRow("last watermark") << "Watermark" << 2;
    QTest::newRow("subtitle") << "Subtitle" << 1;
    QTest::newRow("audio") << "Audio" << 2;
    QTest::newRow("frame effect") << "Effect" << 3;
}

void TstModelReplace::replacingAnnouncesItsPosition()
{
    QFETCH(QString, type);
    QFETCH(int, pos);
    ZoEffectModel model;
    for (int i = 0; i < 3; ++i)
        appendBare(model, type, {});
    SignalRecorder recorder(model);

    QCOMPARE(model.replaceData(type, pos, Properties{{"own", 1}, {"_checkstate", false}}), true);

    QCOMPARE(described(model.data("own", type, pos)), QStringLiteral("int 1"));
    QCOMPARE(model.getDataItem(type, pos)->checkState(), 0);
    QCOMPARE(recorder.take(), one(QStringLiteral("effectDataChanged(%1, reset, invalid, %2)").arg(type).arg(pos)));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
    QCOMPARE(model.editByUser(), false);
}

void TstModelReplace::replacingWhatIsNotThereIsLogged_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");
    QTest::addColumn<int>("event");

    QTest::newRow("unknown type") << "Rotation" << 0 << 969;
    QTest::newRow("unknown type, -1") << "Rotation" << -1 << 969;
    QTest::newRow("other letter case") << "audio" << 0 << 969;
    QTest::newRow("no name") << "" << 0 << 966; // An item without name answers to it, and has no items.
    QTest::newRow("the type itself") << "Audio" << -1 << 966;
    QTest::newRow("-2") << "Audio" << -2 << 966;
    QTest::newRow("smallest int") << "Audio" << INT_MIN << 966;
    QTest::newRow("right behind the end") << "Audio" << 1 << 966;
    QTest::newRow("greatest int") << "Audio" << INT_MAX << 966;
    QTest::newRow("empty list") << "Watermark" << 0 << 966;
    QTest::newRow("null entry") << "Color" << 0 << 966;
}

void TstModelReplace::replacingWhatIsNotThereIsLogged()
{
    QFETCH(QString, type);
    QFETCH(int, pos);
    QFETCH(int, event);
    ZoEffectModel model;
    appendBare(model, "Audio", {{"play_loop", true}});
    ZoEffectItemData* const nothing = nullptr;
    model.getDataItem("Color", -1)->appendChild(nothing);
    SignalRecorder recorder(model);

    QCOMPARE(model.replaceData(type, pos, Properties{{"own", 1}}), false);

    QCOMPARE(logcapture::takeEvents(), QList<int>{event});
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(described(model.getDataItem("Audio", 0)->properties()), QStringLiteral("{play_loop: bool true}"));
    QCOMPARE(described(model.getDataItem("Audio", -1)->properties()), QStringLiteral("{play_loop: bool false}"));
}

void TstModelReplace::childrenOfAReplacedItemStay()
{
    ZoEffectModel model;
    ZoEffectItemData* item = appendBare(model, "Audio", {});
    appendBare(item, {{"own", 1}});

    QVERIFY(model.replaceData("Audio", 0, Properties{}));

    QCOMPARE(tree(item), QStringLiteral(":2{play_loop: bool false}[:2{own: int 1}[]]"));
}

void TstModelReplace::replacingWithTheItemsOwnPropertiesKeepsThem()
{
    ZoEffectModel model;
    appendBare(model, "Audio", {{"play_loop", true}, {"trackid", 3}});

    QVERIFY(model.replaceData("Audio", 0, model.getDataItem("Audio", 0)->properties()));

    QCOMPARE(described(model.getDataItem("Audio", 0)->properties()),
             QStringLiteral("{play_loop: bool true, trackid: int 3}"));
}

void TstModelReplace::checkStateOfTheCatalogueIsAProperty()
{
    static const EffectDefaultVal properties[] = {
        ::property("_checkstate", false),
        ::property("speed", 3),
        ::property(nullptr, 0),
    };
    static const EffectControlItem table[] = {effectType("Spin", properties), effectType(nullptr, nullptr)};
    ZoEffectModel::InitEffectModel(table);
    ZoEffectModel model;
    appendBare(model, "Spin", {});

    QVERIFY(model.replaceData("Spin", 0, Properties{}));

    QCOMPARE(tree(model.getDataItem("Spin", 0)), QStringLiteral(":2{_checkstate: bool false, speed: int 3}[]"));
}

void TstModelReplace::replacingWithoutCatalogueAppliesTheCallersProperties()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    appendBare(model, "Watermark", {{"wm_fontsize", 9}, {"wm_hposition", 9}});
    ZoEffectModel::InitEffectModel(nullptr);
    logcapture::takeEvents();

    QVERIFY(model.replaceData("Watermark", 0, Properties{{"own", 1}}));

    QCOMPARE(described(model.getDataItem("Watermark", 0)->properties()),
             QStringLiteral("{own: int 1, wm_fontsize: int 9, wm_hposition: int 0, wm_vposition: int 0}"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReplace::listenerMayDeleteTheReplacedItem()
{
    ZoEffectModel model;
    appendBare(model, "Audio", {});
    SignalRecorder recorder(model);
    listen(model, this, [&](const QString& key, int pos) {
        if (key == "reset")
            model.delDataItem("Audio", pos);
    });

    QCOMPARE(model.replaceData("Audio", 0, Properties{}), true);

    QCOMPARE(model.childCount("Audio"), 0);
    QCOMPARE(recorder.take(), (QStringList{"effectDataChanged(Audio, reset, invalid, 0)",
                                           "effectDataChanged(Audio, item_delete, invalid, 0)"}));
}

// --- Replacing by a node -----------------------------------------------------------------------------------

void TstModelReplace::copiedNodeIsDeep()
{
    ZoEffectModel model;
    ZoEffectItemData* target = appendBare(model, "Audio", {{"old", 1}});
    const QPointer<ZoEffectItemData> oldChild = appendBare(target, {{"old", 2}});
    int hostData = 0;
    ZoEffectItemData source("source");
    source.setData("new", 3);
    source.setCheckState(0);
    source.setInternalData(&hostData);
    auto* child = new ZoEffectItemData("child", &source);
    child->setCheckState(1);
    new ZoEffectItemData("grandchild", child);

    model.replaceData("Audio", 0, &source);

    QVERIFY(oldChild.isNull());
    QCOMPARE(model.getDataItem("Audio", 0), target);
    QCOMPARE(tree(target), QStringLiteral("source:0{new: int 3}[child:1{}[grandchild:2{}[]]]"));
    QCOMPARE(target->objectName(), QStringLiteral("source"));
    QVERIFY(target->internalData() == &hostData);
    QVERIFY(target->child(0) != child);
    QVERIFY(target->child(0)->parent() == target);
    QVERIFY(target->child(0)->child(0)->parent() == target->child(0));
    QCOMPARE(tree(&source), QStringLiteral("source:0{new: int 3}[child:1{}[grandchild:2{}[]]]"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReplace::copiedItemStaysAtItsPlace()
{
    ZoEffectModel model;
    for (const char* tag : {"a", "b", "c"})
        appendBare(model, "Audio", {{"tag", tag}});
    const ZoEffectItemData* target = model.getDataItem("Audio", 1);

    model.replaceData("Audio", 1, model.getDataItem("Audio", 2));

    QVERIFY(model.getDataItem("Audio", 1) == target);
    QCOMPARE(target->parent(), model.getDataItem("Audio", -1));
    QCOMPARE(tree(model.getDataItem("Audio", -1)),
             QStringLiteral("Audio:2{play_loop: bool false}[:2{tag: string a}[] :2{tag: string c}[] "
                            ":2{tag: string c}[]]"));
}

void TstModelReplace::copyIsIndependent()
{
    ZoEffectModel model;
    ZoEffectModel other;
    appendBare(other, "Audio", {{"tag", "a"}});

    model.replaceData("Audio", -1, other.getDataItem("Audio", -1));
    model.getDataItem("Audio", 0)->setData("tag", "mine");
    other.getDataItem("Audio", -1)->setData("play_loop", true);

    QCOMPARE(described(model.data("tag", "Audio", 0)), QStringLiteral("string mine"));
    QCOMPARE(described(other.data("tag", "Audio", 0)), QStringLiteral("string a"));
    QCOMPARE(described(model.data("play_loop", "Audio", -1)), QStringLiteral("bool false"));
}

void TstModelReplace::typeNodeIsCopiedWithItsWholeList()
{
    ZoEffectModel model;
    appendBare(model, "Subtitle", {{"tag", "old"}});
    ZoEffectModel other;
    other.setVideoSize(320, 240);
    for (const char* tag : {"a", "b"})
        appendBare(other, "Subtitle", {{"tag", tag}});
    other.getDataItem("Subtitle", 1)->setCheckState(0);
    other.getDataItem("Subtitle", -1)->setCheckState(0);
    other.getDataItem("Subtitle", -1)->setData("sub_fontsize", 50);
    SignalRecorder recorder(model);
    SignalRecorder otherRecorder(other);

    model.replaceData("Subtitle", -1, other.getDataItem("Subtitle", -1));

    QCOMPARE(model.getDataItem("Subtitle", -1)->parent(), rootOf(model));
    QCOMPARE(model.getDataItem("Subtitle", -1)->childNumber(), 2);
    QCOMPARE(model.getDataItem("Subtitle", -1)->checkState(), 0);
    QCOMPARE(described(model.getDataItem("Subtitle", -1)->data("sub_fontsize")), QStringLiteral("int 50"));
    QCOMPARE(model.childCount("Subtitle"), 2);
    QCOMPARE(tree(model.getDataItem("Subtitle", 0)), QStringLiteral(":2{tag: string a}[]"));
    QCOMPARE(tree(model.getDataItem("Subtitle", 1)), QStringLiteral(":0{tag: string b}[]"));
    QCOMPARE(model.baseSize(), QSize(0, 0));
    QCOMPARE(recorder.take(), one("effectDataChanged(Subtitle, reset, invalid, -1)"));
    QCOMPARE(otherRecorder.take(), QStringList());
}

void TstModelReplace::nullEntriesAreNotCopied()
{
    ZoEffectModel model;
    ZoEffectItemData source("source");
    source.appendChild(nullptr);
    new ZoEffectItemData("child", &source);
    source.appendChild(nullptr);

    model.replaceData("Audio", -1, &source);

    QCOMPARE(tree(rootOf(model)->child(3)), QStringLiteral("source:2{}[child:2{}[]]"));
}

void TstModelReplace::copyAnnouncesItsPosition_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");

    QTest::newRow("whole list") << "Audio" << -1;
    QTest::newRow("first item") << "Audio" << 0;
    QTest::newRow("last item") << "Audio" << 2;
    QTest::newRow("watermarks") << "Watermark" << -1;
    QTest::newRow("watermark") << "Watermark" << 1;
    QTest::newRow("frame effect") << "Effect" << 3;
}

void TstModelReplace::copyAnnouncesItsPosition()
{
    QFETCH(QString, type);
    QFETCH(int, pos);
    ZoEffectModel model;
    for (int i = 0; i < 3; ++i)
        appendBare(model, type, {});
    ZoEffectItemData source(type);
    source.setData("own", 1);
    SignalRecorder recorder(model);

    model.replaceData(type, pos, &source);

    QCOMPARE(described(model.data("own", type, pos)), QStringLiteral("int 1"));
    QCOMPARE(recorder.take(), one(QStringLiteral("effectDataChanged(%1, reset, invalid, %2)").arg(type).arg(pos)));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReplace::copyingWithoutSourceIsLogged_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");

    QTest::newRow("onto a list") << "Audio" << -1;
    QTest::newRow("onto an item") << "Audio" << 0;
    QTest::newRow("onto nothing") << "Audio" << 9;
    QTest::newRow("onto an unknown type") << "Rotation" << -1;
}

void TstModelReplace::copyingWithoutSourceIsLogged()
{
    QFETCH(QString, type);
    QFETCH(int, pos);
    ZoEffectModel model;
    appendBare(model, "Audio", {{"tag", "a"}});
    SignalRecorder recorder(model);
    const ZoEffectItemData* const nothing = nullptr;

    model.replaceData(type, pos, nothing);

    QCOMPARE(logcapture::takeEvents(), QList<int>{1029});
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(tree(model.getDataItem("Audio", -1)),
             QStringLiteral("Audio:2{play_loop: bool false}[:2{tag: string a}[]]"));
}

void TstModelReplace::copyingOntoNothingOrItselfIsLogged_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("pos");
    QTest::addColumn<QString>("sourceType");
    QTest::addColumn<int>("sourcePos");

    QTest::newRow("item onto itself") << "Audio" << 0 << "Audio" << 0;
    QTest::newRow("list onto itself") << "Audio" << -1 << "Audio" << -1;
    QTest::newRow("root onto itself") << "effect root" << -1 << "effect root" << -1;
    QTest::newRow("type onto itself through the root") << "effect root" << 3 << "Audio" << -1;
    QTest::newRow("behind the end") << "Audio" << 1 << "Audio" << 0;
    QTest::newRow("-2") << "Audio" << -2 << "Audio" << 0;
    QTest::newRow("smallest int") << "Audio" << INT_MIN << "Audio" << 0;
    QTest::newRow("empty list") << "Watermark" << 0 << "Audio" << 0;
    QTest::newRow("unknown type") << "Rotation" << -1 << "Audio" << 0;
    QTest::newRow("other letter case") << "audio" << -1 << "Audio" << 0;
}

void TstModelReplace::copyingOntoNothingOrItselfIsLogged()
{
    QFETCH(QString, type);
    QFETCH(int, pos);
    QFETCH(QString, sourceType);
    QFETCH(int, sourcePos);
    ZoEffectModel model;
    appendBare(model, "Audio", {{"tag", "a"}});
    const QString before = tree(rootOf(model));
    SignalRecorder recorder(model);

    model.replaceData(type, pos, model.getDataItem(sourceType, sourcePos));

    QCOMPARE(logcapture::takeEvents(), QList<int>{1026});
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(tree(rootOf(model)), before);
}

void TstModelReplace::copiedWatermarksAreRescaled_data()
{
    QTest::addColumn<QSize>("from");
    QTest::addColumn<QSize>("to");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("image");

    QTest::newRow("twice the size")
        << QSize(640, 480) << QSize(1280, 960)
        << "{wm_fontsize: int 40, wm_hposition: int 202, wm_istextwatermark: bool true, wm_vposition: int 102}"
        << "{wm_fontsize: int 20, wm_hposition: int 640, wm_imageheight: int 100, wm_imagewidth: int 200, "
           "wm_vposition: int -30}";
    QTest::newRow("half the size, truncated toward zero")
        << QSize(640, 480) << QSize(320, 240)
        << "{wm_fontsize: int 10, wm_hposition: int 50, wm_istextwatermark: bool true, wm_vposition: int 25}"
        << "{wm_fontsize: int 20, wm_hposition: int 160, wm_imageheight: int 25, wm_imagewidth: int 50, "
           "wm_vposition: int -7}";
    QTest::newRow("wider only: the picture follows the width, the font does not")
        << QSize(640, 480) << QSize(1280, 480)
        << "{wm_fontsize: int 20, wm_hposition: int 202, wm_istextwatermark: bool true, wm_vposition: int 51}"
        << "{wm_fontsize: int 20, wm_hposition: int 640, wm_imageheight: int 100, wm_imagewidth: int 200, "
           "wm_vposition: int -15}";
    QTest::newRow("higher only: the font follows the height, the picture does not")
        << QSize(640, 480) << QSize(640, 960)
        << "{wm_fontsize: int 40, wm_hposition: int 101, wm_istextwatermark: bool true, wm_vposition: int 102}"
        << "{wm_fontsize: int 20, wm_hposition: int 320, wm_imageheight: int 50, wm_imagewidth: int 100, "
           "wm_vposition: int -30}";
    const QString sameText = "{wm_fontsize: int 20, wm_hposition: int 101, wm_istextwatermark: bool true, "
                             "wm_vposition: int 51}";
    const QString sameImage = "{wm_fontsize: int 20, wm_hposition: int 320, wm_imageheight: int 50, "
                              "wm_imagewidth: int 100, wm_vposition: int -15}";
    QTest::newRow("same size") << QSize(640, 480) << QSize(640, 480) << sameText << sameImage;
    QTest::newRow("from no size") << QSize(0, 0) << QSize(640, 480) << sameText << sameImage;
    QTest::newRow("from no height") << QSize(640, 0) << QSize(320, 240) << sameText << sameImage;
    QTest::newRow("to no size") << QSize(640, 480) << QSize(0, 0) << sameText << sameImage;
    QTest::newRow("to no width") << QSize(640, 480) << QSize(0, 240) << sameText << sameImage;
}

void TstModelReplace::copiedWatermarksAreRescaled()
{
    QFETCH(QSize, from);
    QFETCH(QSize, to);
    QFETCH(QString, text);
    QFETCH(QString, image);
    ZoEffectModel other;
    other.setVideoSize(from.width(), from.height());
    appendBare(other, "Watermark",
               {{"wm_hposition", 101}, {"wm_vposition", 51}, {"wm_istextwatermark", true}, {"wm_fontsize", 20}});
    appendBare(other, "Watermark",
               {{"wm_hposition", 320},
                {"wm_vposition", -15},
                {"wm_imagewidth", 100},
                {"wm_imageheight", 50},
                {"wm_fontsize", 20}})
        ->setCheckState(0);
    ZoEffectModel model;
    model.setVideoSize(to.width(), to.height());
    SignalRecorder recorder(model);

    model.replaceData("Watermark", -1, other.getDataItem("Watermark", -1));

    QCOMPARE(model.childCount("Watermark"), 2);
    QCOMPARE(described(model.getDataItem("Watermark", 0)->properties()), text);
    QCOMPARE(described(model.getDataItem("Watermark", 1)->properties()), image);
    QCOMPARE(model.getDataItem("Watermark", 1)->checkState(), 0);
    // Neither size changes, nor does the source.
    QCOMPARE(model.baseSize(), to);
    QCOMPARE(other.baseSize(), from);
    QCOMPARE(described(other.data("wm_hposition", "Watermark", 0)), QStringLiteral("int 101"));
    QCOMPARE(recorder.take(), one("effectDataChanged(Watermark, reset, invalid, -1)"));
}

void TstModelReplace::copiedWatermarksAreRescaledOnlyAcrossModels_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<int>("pos");

    QTest::newRow("single watermark of another model onto a watermark") << "item of the other model" << 0;
    QTest::newRow("single watermark of another model onto the list") << "item of the other model" << -1;
    QTest::newRow("copy that stands free") << "free copy" << -1;
    QTest::newRow("watermark of this model") << "item of this model" << 0;
}

void TstModelReplace::copiedWatermarksAreRescaledOnlyAcrossModels()
{
    QFETCH(QString, source);
    QFETCH(int, pos);
    ZoEffectModel other;
    other.setVideoSize(640, 480);
    ZoEffectItemData* otherItem = appendBare(other, "Watermark", {{"wm_hposition", 101}});
    ZoEffectModel model;
    model.setVideoSize(1280, 960);
    appendBare(model, "Watermark", {});
    const ZoEffectItemData* item = appendBare(model, "Watermark", {{"wm_hposition", 101}});
    appendBare(otherItem, {{"wm_hposition", 101}});
    const ZoEffectItemData freeCopy(*other.getDataItem("Watermark", -1));
    const ZoEffectItemData* src = source == "free copy"                 ? &freeCopy
                                  : source == "item of the other model" ? otherItem
                                                                        : item;

    model.replaceData("Watermark", pos, src);

    const ZoEffectItemData* result = pos == -1 ? rootOf(model)->child(1) : model.getDataItem("Watermark", pos);
    QCOMPARE(chosen(result, {"wm_hposition"}), source == "free copy" ? QStringLiteral("{wm_hposition: int 30}")
                                                                     : QStringLiteral("{wm_hposition: int 101}"));
    if (source != "item of this model")
        QCOMPARE(chosen(result->child(0), {"wm_hposition"}), QStringLiteral("{wm_hposition: int 101}"));
}

void TstModelReplace::otherTypesAreNotRescaled_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("key");

    QTest::newRow("crop") << "Crop"
                          << "crop_left";
    QTest::newRow("subtitle") << "Subtitle"
                              << "sub_vposition";
    QTest::newRow("audio") << "Audio"
                           << "wm_hposition";
}

void TstModelReplace::otherTypesAreNotRescaled()
{
    QFETCH(QString, type);
    QFETCH(QString, key);
    ZoEffectModel other;
    other.setVideoSize(640, 480);
    other.getDataItem(type, -1)->setData(key, 100);
    appendBare(other, type, {{key, 100}});
    ZoEffectModel model;
    model.setVideoSize(1280, 960);

    model.replaceData(type, -1, other.getDataItem(type, -1));

    QCOMPARE(described(model.getDataItem(type, -1)->data(key)), QStringLiteral("int 100"));
    QCOMPARE(described(model.getDataItem(type, 0)->data(key)), QStringLiteral("int 100"));
}

void TstModelReplace::typeNodeCopiedOntoAWatermarkItemIsRescaled()
{
    ZoEffectModel other;
    other.setVideoSize(640, 480);
    appendBare(other, "Watermark", {{"wm_hposition", 101}});
    ZoEffectModel model;
    model.setVideoSize(1280, 960);
    appendBare(model, "Watermark", {{"wm_hposition", 7}});
    appendBare(model, "Watermark", {{"wm_hposition", 7}});

    model.replaceData("Watermark", 1, other.getDataItem("Watermark", -1));

    QCOMPARE(described(model.data("wm_hposition", "Watermark", 0)), QStringLiteral("int 7"));
    const ZoEffectItemData* target = model.getDataItem("Watermark", 1);
    QCOMPARE(target->name(), QStringLiteral("Watermark"));
    QCOMPARE(described(target->data("wm_hposition")), QStringLiteral("int 30"));
    QCOMPARE(described(target->child(0)->data("wm_hposition")), QStringLiteral("int 202"));
}

void TstModelReplace::otherTypeCopiedOntoTheWatermarksIsRescaledAsItself()
{
    ZoEffectModel other;
    other.setVideoSize(640, 480);
    other.getDataItem("Subtitle", -1)->setData("sub_vposition", 100);
    appendBare(other, "Subtitle", {});
    appendBare(other, "Subtitle", {});
    other.getDataItem("Crop", -1)->setData("crop_left", 100);

    // The type decides whether to rescale, the name of the copied node what: a subtitle list once per item.
    ZoEffectModel model;
    model.setVideoSize(1280, 960);
    model.replaceData("Watermark", -1, other.getDataItem("Subtitle", -1));
    QCOMPARE(rootOf(model)->child(1)->name(), QStringLiteral("Subtitle"));
    QCOMPARE(described(rootOf(model)->child(1)->data("sub_vposition")), QStringLiteral("int 400"));

    // A crop that does not apply becomes the whole frame.
    ZoEffectModel cropped;
    cropped.setVideoSize(1280, 960);
    cropped.replaceData("Watermark", -1, other.getDataItem("Crop", -1));
    QCOMPARE(rootOf(cropped)->child(1)->name(), QStringLiteral("Crop"));
    QCOMPARE(chosen(rootOf(cropped)->child(1), {"crop_left", "crop_top", "crop_width", "crop_height"}),
             QStringLiteral("{crop_height: int 960, crop_left: int 0, crop_top: int 0, crop_width: int 1280}"));
}

void TstModelReplace::treeOfAHostIsRescaledFromItsRoot_data()
{
    QTest::addColumn<QVariant>("w");
    QTest::addColumn<QVariant>("h");
    QTest::addColumn<QString>("expected");

    QTest::newRow("whole numbers") << QVariant(320) << QVariant(240) << "{wm_hposition: int 40, wm_vposition: int 20}";
    QTest::newRow("texts") << QVariant("320") << QVariant("480") << "{wm_hposition: int 40, wm_vposition: int 10}";
    QTest::newRow("doubles, rounded") << QVariant(319.7) << QVariant(239.6)
                                      << "{wm_hposition: int 40, wm_vposition: int 20}";
    QTest::newRow("negative width") << QVariant(-320) << QVariant(240)
                                    << "{wm_hposition: int -40, wm_vposition: int 20}";
    QTest::newRow("no size") << QVariant() << QVariant() << "{wm_hposition: int 20, wm_vposition: int 10}";
    QTest::newRow("no number") << QVariant("wide") << QVariant(240) << "{wm_hposition: int 20, wm_vposition: int 10}";
}

void TstModelReplace::treeOfAHostIsRescaledFromItsRoot()
{
    QFETCH(QVariant, w);
    QFETCH(QVariant, h);
    QFETCH(QString, expected);
    ZoEffectItemData hostRoot("effect root");
    hostRoot.setData("w", w);
    hostRoot.setData("h", h);
    auto* list = new ZoEffectItemData("Watermark", &hostRoot);
    appendBare(list, {{"wm_hposition", 20}, {"wm_vposition", 10}});
    ZoEffectModel model;
    model.setVideoSize(640, 480);

    model.replaceData("Watermark", -1, list);

    QCOMPARE(described(model.getDataItem("Watermark", 0)->properties()), expected);
}

void TstModelReplace::parentWithAnotherNameIsNoRoot()
{
    for (const char* name : {"Effect root", "effect root ", "", "Watermark"}) {
        ZoEffectItemData hostRoot(name);
        hostRoot.setData("w", 320);
        hostRoot.setData("h", 240);
        auto* list = new ZoEffectItemData("Watermark", &hostRoot);
        appendBare(list, {{"wm_hposition", 20}});
        ZoEffectModel model;
        model.setVideoSize(640, 480);

        model.replaceData("Watermark", -1, list);

        QCOMPARE(described(model.getDataItem("Watermark", 0)->properties()), QStringLiteral("{wm_hposition: int 20}"));
    }
}

void TstModelReplace::typeNodeMayBecomeOneOfItsItems()
{
    ZoEffectModel model;
    model.setVideoSize(640, 480);
    appendBare(model, "Watermark", {{"tag", "a"}});
    ZoEffectItemData* item = appendBare(model, "Watermark", {{"tag", "b"}, {"wm_hposition", 9}});
    appendBare(item, {{"tag", "below"}});
    item->setCheckState(0);
    SignalRecorder recorder(model);

    model.replaceData("Watermark", -1, item);

    // With the item's name, so that the type is not found any more.
    QCOMPARE(tree(rootOf(model)->child(1)),
             QStringLiteral(":0{tag: string b, wm_hposition: int 9}[:2{tag: string below}[]]"));
    QCOMPARE(rootOf(model)->childCount(), 13);
    QVERIFY(model.getDataItem("Watermark", -1) == nullptr);
    QCOMPARE(recorder.take(), one("effectDataChanged(Watermark, reset, invalid, -1)"));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReplace::itemMayBecomeItsTypeNode()
{
    ZoEffectModel model(QStringList{"Audio"});
    appendBare(model, "Audio", {{"tag", "a"}});
    appendBare(model, "Audio", {{"tag", "b"}});
    SignalRecorder recorder(model);

    model.replaceData("Audio", 0, model.getDataItem("Audio", -1));

    QCOMPARE(tree(rootOf(model)),
             QStringLiteral("effect root:2{}[Audio:2{play_loop: bool false}["
                            "Audio:2{play_loop: bool false}[:2{tag: string a}[] :2{tag: string b}[]] "
                            ":2{tag: string b}[]]]"));
    QCOMPARE(recorder.take(), one("effectDataChanged(Audio, reset, invalid, 0)"));
}

void TstModelReplace::itemMayBecomeTheWholeTree()
{
    ZoEffectModel model(QStringList{"Audio", "Color"});
    appendBare(model, "Audio", {{"tag", "a"}});

    model.replaceData("Audio", 0, rootOf(model));

    const QString colour =
        QStringLiteral("Color:2{bcs_brightness: int 0, bcs_contrast: int 0, bcs_saturation: int 0}[]");
    QCOMPARE(tree(rootOf(model)), QStringLiteral("effect root:2{}[Audio:2{play_loop: bool false}["
                                                 "effect root:2{}[Audio:2{play_loop: bool false}["
                                                 ":2{tag: string a}[]] %1]] %1]")
                                      .arg(colour));
}

void TstModelReplace::rootMayBecomeOneOfItsTypes()
{
    ZoEffectModel model(QStringList{"Audio", "Color"});
    model.setVideoSize(640, 480);
    appendBare(model, "Audio", {{"tag", "a"}});
    SignalRecorder recorder(model);

    model.replaceData("effect root", -1, model.getDataItem("Audio", -1));

    // The first node of that name is the root itself now.
    QCOMPARE(tree(model.getDataItem("Audio", -1)),
             QStringLiteral("Audio:2{play_loop: bool false}[:2{tag: string a}[]]"));
    QVERIFY(model.getDataItem("Audio", -1)->parent() == nullptr);
    QVERIFY(model.getDataItem("effect root", -1) == nullptr);
    QCOMPARE(model.baseSize(), QSize(0, 0));
    QCOMPARE(recorder.take(), one("effectDataChanged(effect root, reset, invalid, -1)"));
}

void TstModelReplace::copyingDoesNotCountAsEditedByUser()
{
    ZoEffectModel other;
    appendTracks(other, "ff");
    other.replaceItemDataProperty("Subtitle", styled);
    QCOMPARE(other.editByUser(), true);
    ZoEffectModel model;

    model.replaceData("Subtitle", -1, other.getDataItem("Subtitle", -1));

    QCOMPARE(model.editByUser(), false);
}

void TstModelReplace::listenerOfACopyMayDeleteBoth()
{
    ZoEffectModel model;
    appendBare(model, "Audio", {{"tag", "a"}});
    appendBare(model, "Audio", {{"tag", "b"}});
    SignalRecorder recorder(model);
    listen(model, this, [&](const QString& key, int) {
        if (key == "reset") {
            model.delDataItem("Audio", 1);
            model.delDataItem("Audio", 0);
        }
    });

    model.replaceData("Audio", 0, model.getDataItem("Audio", 1));

    QCOMPARE(model.childCount("Audio"), 0);
    QCOMPARE(recorder.take(), (QStringList{"effectDataChanged(Audio, reset, invalid, 0)",
                                           "effectDataChanged(Audio, item_delete, invalid, 1)",
                                           "effectDataChanged(Audio, item_delete, invalid, 0)"}));
}

// --- Spreading a subtitle style ----------------------------------------------------------------------------

void TstModelReplace::styleReachesFewTracks_data()
{
    QTest::addColumn<QString>("tracks");
    QTest::addColumn<QList<int>>("reached");
    QTest::addColumn<QList<int>>("announced");

    using Rows = QList<int>;
    QTest::newRow("one embedded") << "e" << Rows{0} << Rows{5};
    QTest::newRow("one from a file") << "f" << Rows{0} << Rows{7};
    QTest::newRow("two embedded") << "ee" << Rows{0} << Rows{5};
    QTest::newRow("two from files") << "ff" << Rows{0} << Rows{7};
    QTest::newRow("embedded, then from a file") << "ef" << Rows{0} << Rows{5};
    QTest::newRow("from a file, then embedded") << "fe" << Rows{0} << Rows{7};
    QTest::newRow("six embedded: one too few for a second") << "eeeeee" << Rows{0} << Rows{5};
    QTest::newRow("seven embedded") << "eeeeeee" << Rows{0, 6} << Rows{5, 5};
    QTest::newRow("eight embedded") << "eeeeeeee" << Rows{0, 6} << Rows{5, 5};
    QTest::newRow("twenty embedded") << "eeeeeeeeeeeeeeeeeeee" << Rows{0, 6} << Rows{5, 5};
    QTest::newRow("seven from files") << "fffffff" << Rows{0} << Rows{7};
    QTest::newRow("eight from files: one too few for a second") << "ffffffff" << Rows{0} << Rows{7};
    QTest::newRow("nine from files") << "fffffffff" << Rows{0, 8} << Rows{7, 7};
    QTest::newRow("ten from files") << "ffffffffff" << Rows{0, 8} << Rows{7, 7};
    QTest::newRow("twenty from files") << "ffffffffffffffffffff" << Rows{0, 8} << Rows{7, 7};
    QTest::newRow("six embedded, one from a file") << "eeeeeef" << Rows{0, 6} << Rows{5, 7};
    QTest::newRow("six embedded, three from files") << "eeeeeefff" << Rows{0, 6, 8} << Rows{5, 7, 7};
    QTest::newRow("six embedded, one from a file, two embedded") << "eeeeeefee" << Rows{0, 6, 8} << Rows{5, 7, 5};
    QTest::newRow("from a file, eight embedded: back to the seventh") << "feeeeeeee" << Rows{0, 6, 8} << Rows{7, 5, 5};
    QTest::newRow("eight from files, one embedded: back to the seventh")
        << "ffffffffe" << Rows{0, 6, 8} << Rows{7, 5, 7};
    QTest::newRow("from a file first and ninth, embedded between") << "feeeeeeef" << Rows{0, 8} << Rows{7, 7};
    QTest::newRow("embedded first, from files after it") << "effffffff" << Rows{0, 6, 8} << Rows{5, 7, 7};

    QTest::newRow("nothing but a null entry") << "n" << Rows{} << Rows{};
    QTest::newRow("nothing but null entries") << "nnnnnnnnnn" << Rows{} << Rows{};
    QTest::newRow("null entry, then from a file") << "nf" << Rows{1} << Rows{7};
    QTest::newRow("null entry, then embedded") << "ne" << Rows{1} << Rows{5};
    QTest::newRow("null entries, then the seventh embedded") << "nnnnnne" << Rows{6} << Rows{5};
    QTest::newRow("null entry at the seventh place") << "eeeeeenee" << Rows{0, 7} << Rows{5, 5};
    QTest::newRow("null entry at the ninth place") << "ffffffffnf" << Rows{0, 9} << Rows{7, 7};
    QTest::newRow("null entries from the seventh place on") << "eeeeeenn" << Rows{0} << Rows{5};
}

void TstModelReplace::styleReachesFewTracks()
{
    QFETCH(QString, tracks);
    QFETCH(QList<int>, reached);
    QFETCH(QList<int>, announced);
    ZoEffectModel model;
    appendTracks(model, tracks);
    SignalRecorder recorder(model);

    model.replaceItemDataProperty("Subtitle", styled);

    QCOMPARE(styledRows(model), reached);
    QCOMPARE(recorder.take(), resets(announced));
    QCOMPARE(model.childCount("Subtitle"), int(tracks.size()));
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReplace::styleGoesToSubtitlesOnly_data()
{
    QTest::addColumn<QString>("type");

    for (const char* type : {"Watermark", "Audio", "Effect", "subtitle", "Subtitle ", "", "Rotation", "effect root"})
        QTest::newRow(qPrintable(QStringLiteral("\"%1\"").arg(type))) << type;
}

void TstModelReplace::styleGoesToSubtitlesOnly()
{
    QFETCH(QString, type);
    ZoEffectModel model;
    for (const char* present : {"Watermark", "Audio", "Subtitle"})
        appendBare(model, present, {{"sub_fromfile", true}});
    const QString before = tree(rootOf(model));
    SignalRecorder recorder(model);

    model.replaceItemDataProperty(type, styled);

    QCOMPARE(tree(rootOf(model)), before);
    QCOMPARE(model.editByUser(), false);
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReplace::kindOfATrackPicksTheKeys_data()
{
    QTest::addColumn<Properties>("track");
    QTest::addColumn<bool>("fromFile");

    QTest::newRow("no flag") << Properties{} << false;
    QTest::newRow("false") << Properties{{"sub_fromfile", false}} << false;
    QTest::newRow("0") << Properties{{"sub_fromfile", 0}} << false;
    QTest::newRow("text false") << Properties{{"sub_fromfile", "false"}} << false;
    QTest::newRow("invalid") << Properties{{"sub_fromfile", QVariant()}} << false;
    QTest::newRow("flag of an audio track") << Properties{{"audio_isfile", true}} << false;
    QTest::newRow("true") << Properties{{"sub_fromfile", true}} << true;
    QTest::newRow("1") << Properties{{"sub_fromfile", 1}} << true;
    QTest::newRow("text true") << Properties{{"sub_fromfile", "true"}} << true;
    QTest::newRow("any other text") << Properties{{"sub_fromfile", "a.srt"}} << true;
}

void TstModelReplace::kindOfATrackPicksTheKeys()
{
    QFETCH(Properties, track);
    QFETCH(bool, fromFile);
    ZoEffectModel model;
    ZoEffectItemData* item = appendBare(model, "Subtitle", track);
    SignalRecorder recorder(model);

    model.replaceItemDataProperty("Subtitle", {{"sub_fontname", "n"},
                                               {"sub_fontcolor", "c"},
                                               {"sub_fontstyle", "s"},
                                               {"sub_linemargin", 1},
                                               {"sub_fontsize", 2},
                                               {"sub_transparency", 3},
                                               {"sub_vposition", 4},
                                               {"fontstyleusedefault", false},
                                               {"sub_framecolor", "f"}});

    const QStringList keys = track.keys();
    for (const QString& key : keys)
        item->delData(key);
    QCOMPARE(described(item->properties()),
             fromFile ? QStringLiteral("{sub_fontcolor: string c, sub_fontname: string n, sub_fontsize: int 2, "
                                       "sub_fontstyle: string s, sub_linemargin: int 1, sub_transparency: int 3, "
                                       "sub_vposition: int 4}")
                      : QStringLiteral("{fontstyleusedefault: bool false, sub_fontcolor: string c, "
                                       "sub_framecolor: string f, sub_transparency: int 3, sub_vposition: int 4}"));
    QCOMPARE(recorder.take(), resets({fromFile ? 7 : 5}));
}

void TstModelReplace::whatIsNoStyleIsNotCopied()
{
    ZoEffectModel model;
    ZoEffectItemData* item = appendBare(model, "Subtitle", {{"sub_fromfile", true}, {"trackid", 1}});
    const QString typeBefore = described(model.getDataItem("Subtitle", -1)->properties());

    model.replaceItemDataProperty("Subtitle", {{"h", 360},
                                               {"_checkstate", false},
                                               {"sub_fromfile", false},
                                               {"trackid", 2},
                                               {"sub_hposition", 3},
                                               {"sub_vposfactor", 0.5},
                                               {"sub_transfactor", 1.0},
                                               {"dvdsubtitleposeditbyuser", true},
                                               {"own", "x"},
                                               {"Sub_Fontsize", 9}});

    QCOMPARE(described(item->properties()), QStringLiteral("{sub_fromfile: bool true, trackid: int 1}"));
    QCOMPARE(item->checkState(), 2);
    QCOMPARE(described(model.getDataItem("Subtitle", -1)->properties()), typeBefore);
    QCOMPARE(described(rootOf(model)->properties()), QStringLiteral("{}"));
}

void TstModelReplace::missingStyleKeysKeepTheirValues_data()
{
    QTest::addColumn<bool>("fromFile");
    QTest::addColumn<Properties>("props");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("announced");

    QTest::newRow("no style at all is announced too")
        << true << Properties{} << "{sub_fontsize: int 50, sub_linemargin: int 5, sub_transparency: int 60}" << 7;
    QTest::newRow("no style at all, embedded")
        << false << Properties{} << "{sub_fontsize: int 50, sub_linemargin: int 5, sub_transparency: int 60}" << 5;
    QTest::newRow("one key") << true << Properties{{"sub_linemargin", 6}}
                             << "{sub_fontsize: int 50, sub_linemargin: int 6, sub_transparency: int 60}" << 7;
    QTest::newRow("a key of the other kind")
        << false << Properties{{"sub_linemargin", 6}}
        << "{sub_fontsize: int 50, sub_linemargin: int 5, sub_transparency: int 60}" << 5;
    QTest::newRow("an invalid value is stored")
        << true << Properties{{"sub_linemargin", QVariant()}}
        << "{sub_fontsize: int 50, sub_linemargin: invalid, sub_transparency: int 60}" << 7;
}

void TstModelReplace::missingStyleKeysKeepTheirValues()
{
    QFETCH(bool, fromFile);
    QFETCH(Properties, props);
    QFETCH(QString, expected);
    QFETCH(int, announced);
    ZoEffectModel model;
    appendBare(model, "Subtitle",
               {{"sub_fromfile", fromFile}, {"sub_fontsize", 50}, {"sub_linemargin", 5}, {"sub_transparency", 60}});
    SignalRecorder recorder(model);

    model.replaceItemDataProperty("Subtitle", props);

    QCOMPARE(chosen(model.getDataItem("Subtitle", 0), {"sub_fontsize", "sub_linemargin", "sub_transparency"}),
             expected);
    QCOMPARE(recorder.take(), resets({announced}));
}

void TstModelReplace::sizesAndPositionsFollowTheHeight_data()
{
    QTest::addColumn<QVariant>("madeFor"); // Invalid for a style without height.
    QTest::addColumn<int>("height");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");

    QTest::newRow("twice the height") << QVariant(360) << 720 << QVariant(20) << "int 40";
    QTest::newRow("half the height, truncated") << QVariant(720) << 360 << QVariant(21) << "int 10";
    QTest::newRow("five quarters") << QVariant(576) << 720 << QVariant(21) << "int 26";
    QTest::newRow("four fifths, truncated") << QVariant(720) << 576 << QVariant(22) << "int 17";
    QTest::newRow("negative, truncated toward zero") << QVariant(720) << 360 << QVariant(-15) << "int -7";
    QTest::newRow("less than one") << QVariant(1080) << 240 << QVariant(4) << "int 0";
    // 1080 / 1050 in double precision, times 105, lies just below 108.
    QTest::newRow("quotient first") << QVariant(1050) << 1080 << QVariant(105) << "int 107";
    QTest::newRow("quotient first, to the same as in whole numbers")
        << QVariant(1050) << 1080 << QVariant(1050) << "int 1080";
    QTest::newRow("beyond int saturates") << QVariant(360) << 720 << QVariant(INT_MAX) << "int 2147483647";
    QTest::newRow("below int saturates") << QVariant(360) << 720 << QVariant(INT_MIN) << "int -2147483648";
    QTest::newRow("negative height of the style") << QVariant(-360) << 720 << QVariant(20) << "int -40";
    QTest::newRow("both heights negative") << QVariant(-360) << -720 << QVariant(20) << "int 40";

    QTest::newRow("text") << QVariant(360) << 720 << QVariant("20") << "int 40";
    QTest::newRow("text that is no whole number") << QVariant(360) << 720 << QVariant("20.5") << "int 0";
    QTest::newRow("text that is no number") << QVariant(360) << 720 << QVariant("big") << "int 0";
    QTest::newRow("double, rounded before it is scaled") << QVariant(360) << 720 << QVariant(20.6) << "int 42";
    QTest::newRow("double, rounded down before it is scaled") << QVariant(360) << 720 << QVariant(20.4) << "int 40";
    QTest::newRow("bool") << QVariant(360) << 720 << QVariant(true) << "int 2";
    QTest::newRow("invalid") << QVariant(360) << 720 << QVariant() << "int 0";

    QTest::newRow("same height makes a text an integer") << QVariant(720) << 720 << QVariant("20") << "int 20";
    QTest::newRow("same height makes a double an integer") << QVariant(720) << 720 << QVariant(20.6) << "int 21";
    QTest::newRow("same height") << QVariant(720) << 720 << QVariant(20) << "int 20";

    QTest::newRow("height of the style as text") << QVariant("360") << 720 << QVariant(20) << "int 40";
    QTest::newRow("height of the style as double") << QVariant(359.6) << 720 << QVariant(20) << "int 40";
    QTest::newRow("style without height") << QVariant() << 720 << QVariant(20) << "int 20";
    QTest::newRow("style without height keeps a text") << QVariant() << 720 << QVariant("20") << "string 20";
    QTest::newRow("style of height 0") << QVariant(0) << 720 << QVariant(20.5) << "double 20.5";
    QTest::newRow("style whose height is no number") << QVariant("high") << 720 << QVariant("20") << "string 20";
    QTest::newRow("model without height") << QVariant(360) << 0 << QVariant("20") << "string 20";
    QTest::newRow("model without height, double") << QVariant(360) << 0 << QVariant(20.5) << "double 20.5";
    QTest::newRow("neither has a height") << QVariant() << 0 << QVariant(20) << "int 20";
}

void TstModelReplace::sizesAndPositionsFollowTheHeight()
{
    QFETCH(QVariant, madeFor);
    QFETCH(int, height);
    QFETCH(QVariant, value);
    QFETCH(QString, expected);
    Properties props{{"sub_fontsize", value}, {"sub_vposition", value}};
    if (madeFor.isValid())
        props.insert("h", madeFor);
    ZoEffectModel model;
    model.setVideoSize(5, height);

    ZoEffectItemData* item = appendBare(model, "Subtitle", {{"sub_fromfile", true}});
    model.replaceItemDataProperty("Subtitle", props);
    QCOMPARE(described(item->data("sub_fontsize")), expected);
    QCOMPARE(described(item->data("sub_vposition")), expected);

    item->setData("sub_fromfile", false);
    item->delData("sub_fontsize");
    item->delData("sub_vposition");
    model.replaceItemDataProperty("Subtitle", props);
    QCOMPARE(item->hasData("sub_fontsize"), false);
    QCOMPARE(described(item->data("sub_vposition")), expected);
}

void TstModelReplace::onlySizesAndPositionsFollowTheHeight()
{
    ZoEffectModel model;
    model.setVideoSize(1280, 720);
    appendBare(model, "Subtitle", {{"sub_fromfile", true}});

    model.replaceItemDataProperty("Subtitle", {{"h", 360},
                                               {"sub_fontname", "30"},
                                               {"sub_fontcolor", 31},
                                               {"sub_fontstyle", "32"},
                                               {"sub_linemargin", 33},
                                               {"sub_transparency", 34.5},
                                               {"sub_fontsize", 35},
                                               {"sub_vposition", 36}});

    QCOMPARE(described(model.getDataItem("Subtitle", 0)->properties()),
             QStringLiteral("{sub_fontcolor: int 31, sub_fontname: string 30, sub_fontsize: int 70, "
                            "sub_fontstyle: string 32, sub_fromfile: bool true, sub_linemargin: int 33, "
                            "sub_transparency: double 34.5, sub_vposition: int 72}"));
}

void TstModelReplace::heightOfTheModelIsTheRootsOwn()
{
    ZoEffectModel model;
    rootOf(model)->setData("h", "720");
    // A height on the type node or the track plays no part.
    model.getDataItem("Subtitle", -1)->setData("h", 100);
    appendBare(model, "Subtitle", {{"sub_fromfile", true}, {"h", 200}});

    model.replaceItemDataProperty("Subtitle", {{"h", 360}, {"sub_fontsize", 20}});

    QCOMPARE(described(model.getDataItem("Subtitle", 0)->properties()),
             QStringLiteral("{h: int 200, sub_fontsize: int 40, sub_fromfile: bool true}"));
}

void TstModelReplace::spreadingCountsAsEditedByUser_data()
{
    QTest::addColumn<QString>("tracks");
    QTest::addColumn<Properties>("props");
    QTest::addColumn<bool>("expected");

    QTest::newRow("one track") << "f" << styled << true;
    QTest::newRow("one embedded track") << "e" << styled << true;
    QTest::newRow("nothing to store") << "f" << Properties{} << true;
    QTest::newRow("nothing but null entries") << "nn" << styled << true;
    QTest::newRow("no track") << "" << styled << false;
}

void TstModelReplace::spreadingCountsAsEditedByUser()
{
    QFETCH(QString, tracks);
    QFETCH(Properties, props);
    QFETCH(bool, expected);
    ZoEffectModel model;
    appendTracks(model, tracks);
    QCOMPARE(model.editByUser(), false);

    model.replaceItemDataProperty("Subtitle", props);

    QCOMPARE(model.editByUser(), expected);
    ZoEffectModel withoutSubtitles(QStringList{"Audio"});
    withoutSubtitles.replaceItemDataProperty("Subtitle", props);
    QCOMPARE(withoutSubtitles.editByUser(), false);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReplace::spreadPositionDoesNotCountAsEdited()
{
    ZoEffectModel model;
    model.setVideoSize(640, 500);
    QVERIFY(model.addDataItem("Subtitle", {{"sub_fromfile", true}}));

    model.replaceItemDataProperty("Subtitle", {{"sub_vposition", 33}});

    QCOMPARE(model.getDataItem("Subtitle", 0)->hasData("dvdsubtitleposeditbyuser"), false);
    QCOMPARE(described(model.getDataItem("Subtitle", 0)->data("sub_vposition")), QStringLiteral("int 33"));
    QCOMPARE(described(model.data("sub_vposition", "Subtitle", 0)), QStringLiteral("double 400"));
}

void TstModelReplace::listenerSeesTheStyledTrackAndTheFlag()
{
    ZoEffectModel model;
    appendTracks(model, "fffffffff");
    QList<QList<int>> seen;
    QList<bool> flags;
    listen(model, this, [&](const QString&, int) {
        seen << styledRows(model);
        flags << model.editByUser();
    });

    model.replaceItemDataProperty("Subtitle", styled);

    QCOMPARE(seen, (QList<QList<int>>{{0}, {0, 8}}));
    QCOMPARE(flags, (QList<bool>{true, true}));
}

void TstModelReplace::listenerMayChangeTheList_data()
{
    QTest::addColumn<QString>("tracks");
    QTest::addColumn<QString>("action");
    QTest::addColumn<int>("announcements");
    QTest::addColumn<QList<int>>("rows");

    using Rows = QList<int>;
    QTest::newRow("deletes the last") << "ffffffffff"
                                      << "delete last" << 2 << Rows{0};
    QTest::newRow("deletes the last, so that the ninth is gone") << "fffffffff"
                                                                 << "delete last" << 1 << Rows{0};
    QTest::newRow("deletes the first") << "ffffffffff"
                                       << "delete first" << 2 << Rows{7};
    QTest::newRow("deletes the first of nine") << "fffffffff"
                                               << "delete first" << 1 << Rows{};
    QTest::newRow("deletes all") << "ffffffffffff"
                                 << "delete all" << 1 << Rows{};
    QTest::newRow("deletes all of one") << "e"
                                        << "delete all" << 1 << Rows{};
    QTest::newRow("deletes the type") << "ffffffffff"
                                      << "delete type" << 1 << Rows{};
    QTest::newRow("resets the type") << "ffffffffff"
                                     << "reset type" << 1 << Rows{};
    QTest::newRow("resets everything") << "ffffffffff"
                                       << "reset all" << 1 << Rows{};
    QTest::newRow("replaces the type by another model's") << "ffffffffff"
                                                          << "replace type" << 1 << Rows{};
    QTest::newRow("appends one") << "fffffffff"
                                 << "append" << 2 << Rows{0, 8};
    QTest::newRow("appends the ninth") << "ffffffff"
                                       << "append" << 2 << Rows{0, 8};
    QTest::newRow("appends the seventh to embedded ones") << "eeeeee"
                                                          << "append" << 2 << Rows{0, 6};
    QTest::newRow("appends eight to one") << "f"
                                          << "append eight" << 2 << Rows{0, 8};
    QTest::newRow("deletes the one that comes next") << "ffffffffff"
                                                     << "delete ninth" << 2 << Rows{0};
}

void TstModelReplace::listenerMayChangeTheList()
{
    QFETCH(QString, tracks);
    QFETCH(QString, action);
    QFETCH(int, announcements);
    QFETCH(QList<int>, rows);
    ZoEffectModel model;
    appendTracks(model, tracks);
    int heard = 0;
    listen(model, this, [&](const QString& key, int) {
        if (key == "reset" && model.getDataItem("Subtitle", -1))
            changeTracks(model, action, ++heard == 1);
    });

    model.replaceItemDataProperty("Subtitle", styled);

    // The reset that the listener itself asked for is heard too.
    const int own = action == "reset type" || action == "replace type" ? 1 : 0;
    QCOMPARE(heard - own, announcements);
    if (action == "delete type")
        QVERIFY(model.getDataItem("Subtitle", -1) == nullptr);
    else
        QCOMPARE(styledRows(model), rows);
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

void TstModelReplace::listenerMayChangeTheHeight()
{
    ZoEffectModel model;
    model.setVideoSize(1280, 720);
    appendTracks(model, "fffffffff");
    listen(model, this, [&](const QString&, int) { model.setVideoSize(2560, 1440); });

    model.replaceItemDataProperty("Subtitle", {{"h", 360}, {"sub_fontsize", 20}});

    QCOMPARE(described(model.data("sub_fontsize", "Subtitle", 0)), QStringLiteral("int 40"));
    QCOMPARE(described(model.data("sub_fontsize", "Subtitle", 8)), QStringLiteral("int 80"));
}

void TstModelReplace::listenerMayChangeTheKindOfATrack()
{
    ZoEffectModel model;
    appendTracks(model, "fffffffff");
    SignalRecorder recorder(model);
    listen(model, this, [&](const QString& key, int) {
        if (key == "reset")
            model.setData("sub_fromfile", false, "Subtitle", 8);
    });

    model.replaceItemDataProperty("Subtitle", styled);

    QCOMPARE(styledRows(model), (QList<int>{0, 6, 8}));
    QCOMPARE(recorder.take(), (QStringList{"effectDataChanged(Subtitle, reset, invalid, 7)",
                                           "effectDataChanged(Subtitle, sub_fromfile, bool false, 8)",
                                           "effectDataChanged(Subtitle, reset, invalid, 5)",
                                           "effectDataChanged(Subtitle, reset, invalid, 7)"}));
}

void TstModelReplace::listenerThatKeepsInsertingDoesNotKeepTheCallAlive_data()
{
    QTest::addColumn<QString>("tracks");
    QTest::addColumn<int>("pos");
    QTest::addColumn<bool>("fromFile");

    QTest::newRow("at the ninth place") << "fffffffff" << 8 << true;
    QTest::newRow("at the seventh place, embedded") << "eeeeeee" << 6 << false;
    QTest::newRow("at the front") << "fffffffff" << 0 << true;
    QTest::newRow("at the front, embedded") << "eeeeeee" << 0 << false;
    QTest::newRow("at the end") << "f" << -1 << true;
}

void TstModelReplace::listenerThatKeepsInsertingDoesNotKeepTheCallAlive()
{
    QFETCH(QString, tracks);
    QFETCH(int, pos);
    QFETCH(bool, fromFile);
    ZoEffectModel model;
    appendTracks(model, tracks);
    int heard = 0;
    listen(model, this, [&](const QString& key, int) {
        // The listener would stop by itself only far beyond any number of tracks that were there.
        if (key == "reset" && ++heard < 1000)
            model.insertDataItem("Subtitle", {{"sub_fromfile", fromFile}}, pos);
    });

    model.replaceItemDataProperty("Subtitle", styled);

    QVERIFY(heard >= 1);
    QVERIFY2(heard <= 10, qPrintable(QString::number(heard)));
}

void TstModelReplace::processedTrackThatMovesOnIsNotProcessedAgain()
{
    ZoEffectModel model;
    appendTracks(model, "fffffffff");
    SignalRecorder recorder(model);
    listen(model, this, [&](const QString& key, int) {
        if (key == "reset")
            model.changeDataItemPos("Subtitle", 8, 0);
    });

    model.replaceItemDataProperty("Subtitle", styled);

    QCOMPARE(styledRows(model), QList<int>{8});
    QCOMPARE(recorder.take(), (QStringList{"effectDataChanged(Subtitle, reset, invalid, 7)",
                                           "effectDataChanged(Subtitle, item_move, int 8, -1)"}));
}

void TstModelReplace::listenerMayRender()
{
    ZoEffectModel model;
    model.setVideoSize(64, 48);
    appendTracks(model, "fffffffff");
    QVERIFY(model.addDataItem("Watermark", {{"wm_istextwatermark", true}, {"wm_textcontent", "x"}}));
    int painted = 0;
    listen(model, this, [&](const QString& key, int) {
        if (key == "reset")
            painted += model.getWatermark(64, 48, false).isNull() ? 0 : 1;
    });

    model.replaceItemDataProperty("Subtitle", styled);

    QCOMPARE(painted, 2);
    QCOMPARE(styledRows(model), (QList<int>{0, 8}));
}

void TstModelReplace::styleOfATrackOfThisModelIsTakenAsItWas()
{
    ZoEffectModel model;
    model.setVideoSize(1280, 720);
    appendTracks(model, "fffffffff");
    model.getDataItem("Subtitle", 0)->setData("sub_fontsize", 20);
    model.getDataItem("Subtitle", 0)->setData("h", 360);

    model.replaceItemDataProperty("Subtitle", model.getDataItem("Subtitle", 0)->properties());

    QCOMPARE(described(model.data("sub_fontsize", "Subtitle", 0)), QStringLiteral("int 40"));
    QCOMPARE(described(model.data("sub_fontsize", "Subtitle", 8)), QStringLiteral("int 40"));
}

void TstModelReplace::styleOfATrackThatAListenerDeletesIsTakenAsItWas()
{
    ZoEffectModel model;
    appendTracks(model, "ffffffffff");
    model.getDataItem("Subtitle", 0)->setData("sub_transparency", 77);
    SignalRecorder recorder(model);
    listen(model, this, [&](const QString& key, int) {
        if (key == "reset")
            model.delDataItem("Subtitle", 0);
    });

    model.replaceItemDataProperty("Subtitle", model.getDataItem("Subtitle", 0)->properties());

    QCOMPARE(recorder.take(), (QStringList{"effectDataChanged(Subtitle, reset, invalid, 7)",
                                           "effectDataChanged(Subtitle, item_delete, invalid, 0)",
                                           "effectDataChanged(Subtitle, reset, invalid, 7)",
                                           "effectDataChanged(Subtitle, item_delete, invalid, 0)"}));
    QCOMPARE(styledRows(model), QList<int>{7});
}

void TstModelReplace::argumentsThatAListenerChangesCountAsTheyWere()
{
    ZoEffectModel model;
    appendTracks(model, "fffffffff");
    SignalRecorder recorder(model);
    QString type = "Subtitle";
    Properties props = styled;
    listen(model, this, [&](const QString&, int) {
        type = "Audio";
        props = {{"sub_transparency", 1}};
    });

    model.replaceItemDataProperty(type, props);

    QCOMPARE(styledRows(model), (QList<int>{0, 8}));
    QCOMPARE(recorder.take(), resets({7, 7}));
}

ZOEFFECT_TEST_MAIN(TstModelReplace)

#include "tst_model_replace.moc"
