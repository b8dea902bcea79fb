// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtTest 1.15
import ZoEffect.Kit 1.1

TestCase {
    id: test
    name: "FileSettings"

    Component {
        id: fileComponent
        FileSettings {}
    }
    SignalSpy {
        id: refusals
        signalName: "refused"
    }
    SignalSpy {
        id: changes
        signalName: "changed"
    }

    // What is edited; each test begins with the defaults.
    FileSettings {
        id: shared
    }

    function watch(file) {
        refusals.target = file;
        refusals.clear();
        changes.target = file;
        changes.clear();
    }

    // Settings of a clip, when it has been looked into.
    function loaded(path) {
        const file = createTemporaryObject(fileComponent, test);
        watch(file);
        file.load(path);
        tryVerify(() => file.status !== FileSettings.Loading, 30000);
        return file;
    }

    function initTestCase() {
        shared.path = "lossless.mkv";
        tryCompare(shared, "status", FileSettings.Ready, 30000);
    }

    function init() {
        verify(shared.resetAll());
        watch(shared);
    }

    // Why the last edit was refused; empty when none was since.
    function refusal() {
        const sentence = refusals.count > 0 ? refusals.signalArguments[refusals.count - 1][0] : "";
        refusals.clear();
        return sentence;
    }

    function texts(file) {
        const list = [];
        for (let i = 0; i < file.count("Watermark"); ++i)
            list.push(file.value("Watermark:" + i + ":wm_textcontent"));
        return list.join(" ");
    }

    function test_clipIsLookedIntoOffTheEventLoop() {
        const file = createTemporaryObject(fileComponent, test);
        compare(file.status, FileSettings.Empty);
        file.path = "lossless.mkv";
        compare(file.status, FileSettings.Loading);
        compare(file.frame, Qt.size(0, 0));
        tryCompare(file, "status", FileSettings.Ready, 30000);
        compare(file.path, "lossless.mkv");
        compare(file.frame, Qt.size(160, 120));
        compare(file.seconds, 0.4);
        compare(file.error, "");
        compare(file.count("Audio"), 1);
        verify(!file.canUndo);
    }

    function test_anotherClipDropsTheOneBefore() {
        const file = loaded("lossless.mkv");
        verify(file.setValue("Color:bcs_contrast", 20));
        file.load("red709.mkv");
        compare(file.status, FileSettings.Loading);
        verify(!file.canUndo);
        tryCompare(file, "status", FileSettings.Ready, 30000);
        compare(file.frame, Qt.size(64, 48));
        compare(file.value("Color:bcs_contrast"), 0);
        file.load("");
        compare(file.status, FileSettings.Empty);
        compare(file.value("Color:bcs_contrast"), undefined);
    }

    function test_anotherClipMayBeAskedForInAnyHandler() {
        const file = loaded("lossless.mkv");
        let wasAsked = false;
        file.changed.connect(() => {
            wasAsked = true;
            file.load("red709.mkv");
        });
        verify(file.setValue("Color:bcs_contrast", 20));
        verify(wasAsked);
        tryCompare(file, "status", FileSettings.Ready, 30000);
        compare(file.frame, Qt.size(64, 48));
    }

    function test_whatIsNoClipIsTold_data() {
        return [
            { tag: "no file", path: "none.mkv", error: "none.mkv: no such file." },
            { tag: "no settings file", path: "none.json", error: "none.json: no such file." }
        ];
    }
    function test_whatIsNoClipIsTold(row) {
        const file = loaded(row.path);
        compare(file.status, FileSettings.Failed);
        verify(file.error.endsWith(row.error), file.error);
        verify(!file.setValue("Color:bcs_contrast", 20));
    }

    function test_valuesAreReadAsTheirPropertyTakesThem_data() {
        return [
            { tag: "number", address: "Color:bcs_contrast", given: 20, taken: 20 },
            { tag: "text of a number", address: "Color:bcs_contrast", given: " 20 ", taken: 20 },
            { tag: "whole double", address: "Color:bcs_contrast", given: 10 + 10.0, taken: 20 },
            { tag: "boolean", address: "Crop:crop_keepaspectratio", given: false, taken: false },
            { tag: "text", address: "Crop:crop_aspectratio", given: "16:9", taken: "16:9" },
            { tag: "check box", address: "Color:selected", given: true, taken: true },
            { tag: "option", address: "Output:quality", given: 20, taken: 20 }
        ];
    }
    function test_valuesAreReadAsTheirPropertyTakesThem(row) {
        verify(shared.setValue(row.address, row.given), refusal());
        compare(shared.value(row.address), row.taken);
    }

    function test_listOfQmlIsAList() {
        verify(shared.setValue("Tracks:audio-language", ["fra", "eng"]), refusal());
        compare(shared.value("Tracks:audio-language").join(","), "fra,eng");
    }

    function test_colourOfQmlIsAColour() {
        compare(shared.insert("Watermark", { wm_textcontent: "one", wm_fontcolor: Qt.rgba(1, 0, 0, 1) }), 0);
        compare(shared.value("Watermark:0:wm_fontcolor").toString(), "#ff0000");
    }

    function test_refusedEditsChangeNothingAndSayWhy_data() {
        return [
            { tag: "out of bounds", address: "Color:bcs_contrast", given: 400,
              sentence: "Color:bcs_contrast: 400 is not between -50 and 50." },
            { tag: "no number", address: "Color:bcs_contrast", given: "much",
              sentence: "Color:bcs_contrast: much is no whole number." },
            { tag: "nothing", address: "Color:bcs_contrast", given: undefined,
              sentence: "Color:bcs_contrast: null is no whole number." },
            { tag: "no such property", address: "Color:bcs_contrats", given: 1,
              sentence: "Color has no property bcs_contrats. Did you mean bcs_contrast?" },
            { tag: "no such item", address: "Watermark:3:wm_fontsize", given: 1,
              sentence: "Watermark has no item 3; it has 0, counted from 0." },
            { tag: "no items", address: "Color:0:bcs_contrast", given: 1,
              sentence: "Color has no items. Leave the position out." },
            { tag: "no address", address: "contrast:of:all:colours", given: 1,
              sentence: "contrast:of:all:colours is no address. Write TYPE:KEY or TYPE:POSITION:KEY, for example "
                        + "Color:bcs_contrast or Watermark:0:wm_fontsize." }
        ];
    }
    function test_refusedEditsChangeNothingAndSayWhy(row) {
        compare(shared.check(row.address, row.given), row.sentence);
        compare(refusals.count, 0);
        verify(!shared.setValue(row.address, row.given));
        compare(refusal(), row.sentence);
        compare(changes.count, 0);
    }

    function test_withoutAClipEveryEditIsRefused_data() {
        return [
            { tag: "setValue", edit: file => file.setValue("Color:bcs_contrast", 20), answer: false },
            { tag: "reset", edit: file => file.reset("Color"), answer: false },
            { tag: "resetAll", edit: file => file.resetAll(), answer: false },
            { tag: "insert", edit: file => file.insert("Watermark", { wm_textcontent: "one" }), answer: -1 },
            { tag: "remove", edit: file => file.remove("Watermark", 0), answer: false },
            { tag: "move", edit: file => file.move("Effect", 0, 1), answer: false },
            { tag: "save", edit: file => file.save("none.json"), answer: false }
        ];
    }
    function test_withoutAClipEveryEditIsRefused(row) {
        const file = loaded("");
        compare(row.edit(file), row.answer);
        compare(refusal(), "What was to be changed is not there any more.");
        file.beginGesture("Contrast");
        file.endGesture();
        file.undo();
        file.redo();
        compare(file.undoText + file.redoText, "");
    }

    function test_eachEditIsAStep() {
        verify(shared.setValue("Color:bcs_contrast", 20));
        verify(shared.setValue("Color:bcs_brightness", 10));
        compare(shared.undoText, "change Brightness");
        shared.undo();
        compare(shared.value("Color:bcs_brightness"), 0);
        compare(shared.value("Color:bcs_contrast"), 20);
        compare(shared.undoText, "change Contrast");
        compare(shared.redoText, "change Brightness");
        verify(shared.canRedo);
        shared.redo();
        compare(shared.value("Color:bcs_brightness"), 10);
        verify(!shared.canRedo);
        compare(shared.redoText, "");
    }

    function test_gestureIsOneStep() {
        verify(shared.setValue("Color:bcs_brightness", 10));
        shared.beginGesture("Contrast");
        for (const value of [1, 2, 3])
            verify(shared.setValue("Color:bcs_contrast", value));
        shared.endGesture();
        compare(shared.undoText, "change Contrast");
        shared.undo();
        compare(shared.value("Color:bcs_contrast"), 0);
        compare(shared.undoText, "change Brightness");
    }

    function test_changesAreToldByTheirAddresses() {
        verify(shared.setValue("Color:selected", false));
        changes.clear();
        verify(shared.setValue("Color:bcs_contrast", 20));
        compare(changes.count, 1);
        compare(changes.signalArguments[0][0].slice().sort().join(" "), "Color:bcs_contrast Color:selected");
        changes.clear();
        verify(shared.setValue("Color:bcs_contrast", 20));
        compare(changes.count, 0);
        shared.undo();
        compare(changes.count, 1);
    }

    function test_itemsComeMoveAndGo() {
        compare(shared.insert("Watermark", { wm_textcontent: "one" }), 0);
        compare(shared.insert("Watermark", { wm_textcontent: "two" }), 1);
        compare(shared.insert("Watermark", { wm_textcontent: "zero" }, 0), 0);
        compare(texts(shared), "zero one two");
        verify(shared.move("Watermark", 0, 2));
        compare(texts(shared), "one two zero");
        verify(shared.remove("Watermark", 1));
        compare(texts(shared), "one zero");
        shared.undo();
        shared.undo();
        compare(texts(shared), "zero one two");
    }

    function test_itemsThatCannotComeMoveOrGoAreRefused_data() {
        return [
            { tag: "type without items", edit: file => file.insert("Color", {}), answer: -1,
              sentence: "Color has no items. Leave the position out." },
            { tag: "position", edit: file => file.insert("Watermark", { wm_textcontent: "one" }, 5), answer: -1,
              sentence: "Watermark: 5 is no position between 0 and 0." },
            { tag: "frame effect goes", edit: file => file.remove("Effect", 0), answer: false,
              sentence: "The items of Effect are always there. Select or clear them instead." },
            { tag: "nothing to move", edit: file => file.move("Watermark", 0, 1), answer: false,
              sentence: "Watermark has no item 0; it has 0, counted from 0." },
            { tag: "beyond the end", edit: file => file.move("Effect", 0, 20), answer: false,
              sentence: "Effect: 20 is no position between 0 and 19." },
            { tag: "below the beginning", edit: file => file.remove("Effect", -1), answer: false,
              sentence: "Effect:-1 is no address. Write TYPE:KEY or TYPE:POSITION:KEY, for example "
                        + "Color:bcs_contrast or Watermark:0:wm_fontsize." }
        ];
    }
    function test_itemsThatCannotComeMoveOrGoAreRefused(row) {
        compare(row.edit(shared), row.answer);
        compare(refusal(), row.sentence);
        compare(shared.count("Watermark"), 0);
        compare(shared.count("Effect"), 20);
    }

    function test_resetReachesAValueAnItemATypeOrAll_data() {
        return [
            { tag: "value", reset: file => file.reset("Color:bcs_contrast"), left: "0 10 30 2" },
            { tag: "type", reset: file => file.reset("Color"), left: "0 0 30 2" },
            { tag: "item", reset: file => file.reset("Watermark:0"), left: "20 10 22 2" },
            { tag: "list", reset: file => file.reset("Watermark"), left: "20 10 undefined 0" },
            { tag: "all", reset: file => file.resetAll(), left: "0 0 undefined 0" }
        ];
    }
    function test_resetReachesAValueAnItemATypeOrAll(row) {
        verify(shared.setValue("Color:bcs_contrast", 20));
        verify(shared.setValue("Color:bcs_brightness", 10));
        compare(shared.insert("Watermark", { wm_textcontent: "one", wm_fontsize: 30 }), 0);
        compare(shared.insert("Watermark", { wm_textcontent: "two" }), 1);
        verify(row.reset(shared), refusal());
        const size = shared.count("Watermark") > 0 ? shared.value("Watermark:0:wm_fontsize") : undefined;
        compare(shared.value("Color:bcs_contrast") + " " + shared.value("Color:bcs_brightness") + " " + size + " "
                + shared.count("Watermark"), row.left);
    }

    function test_settingsFileBringsItsClipAndWhatWasSet() {
        const file = loaded("lossless.mkv");
        verify(file.setValue("Color:bcs_contrast", 20));
        verify(file.save("kept.zoeffect.json"), refusal());
        const again = loaded("kept.zoeffect.json");
        compare(again.error, "");
        compare(again.status, FileSettings.Ready);
        compare(again.frame, Qt.size(160, 120));
        compare(again.value("Color:bcs_contrast"), 20);
        verify(!again.canUndo);
    }

    function test_saveThatFailsIsTold() {
        verify(!shared.save("no such folder/kept.json"));
        compare(refusal(), "no such folder/kept.json cannot be written: No such file or directory.");
    }
}
