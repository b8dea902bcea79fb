// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQml 2.15
import QtQml.Models 2.15
import QtQuick 2.15
import QtTest 1.15
import ZoEffect.Kit 1.1

TestCase {
    id: test
    name: "SettingsModel"

    FileSettings {
        id: file
        path: "lossless.mkv"
    }
    SettingsModel {
        id: settings
        file: file
    }
    SignalSpy {
        id: refusals
        target: file
        signalName: "refused"
    }

    // What is below one row, as a view makes it.
    Instantiator {
        id: rows
        property var root
        model: DelegateModel {
            model: settings
            rootIndex: rows.root
            delegate: QtObject {
                required property var model
            }
        }
    }

    function init() {
        tryCompare(file, "status", FileSettings.Ready, 30000);
        file.resetAll();
        refusals.clear();
    }

    function get(address, role) {
        return settings.get(settings.at(address), role);
    }

    function names(parent) {
        const list = [];
        for (let row = 0; row < settings.rowCount(parent); ++row)
            list.push(settings.get(settings.index(row, 0, parent), "label"));
        return list.join(", ");
    }

    function test_thirteenTypesThenTracksAndOutput() {
        compare(settings.rowCount(), 15);
        compare(names(settings.index(-1, 0)), "Crop, Watermarks, Subtitles, Sound tracks, Colour, Frame effects, "
                + "Fade in and out, Normalize, Band pass, Chorus, Flanger, Echo, Speed, Choice of tracks, Output");
    }

    function test_rolesTellHowAValueIsEdited_data() {
        return [
            { tag: "slider", address: "Color:bcs_contrast", control: SettingsModel.Slider, label: "Contrast",
              unit: undefined, lowest: -50, highest: 50, decimals: 0, choices: undefined },
            { tag: "spin box", address: "Crop:crop_left", control: SettingsModel.SpinBox, label: "Left",
              unit: "px", lowest: 0, highest: 160, decimals: 0, choices: undefined },
            { tag: "check box", address: "Crop:crop_keepaspectratio", control: SettingsModel.CheckBox,
              label: "Keep shape", unit: undefined, lowest: undefined, highest: undefined, decimals: 0,
              choices: undefined },
            { tag: "combo box", address: "Effect:crop_rotation_angle", control: SettingsModel.ComboBox, label: "Turn",
              unit: "°", lowest: undefined, highest: undefined, decimals: 0, choices: "0,90,180,270" },
            { tag: "part", address: "Watermark:wm_vposfactor", control: SettingsModel.SpinBox, label: "Default top",
              unit: undefined, lowest: 0, highest: 1, decimals: 2, choices: undefined },
            { tag: "list", address: "Tracks:audio-language", control: SettingsModel.ListEdit,
              label: "Sound languages", unit: undefined, lowest: undefined, highest: undefined, decimals: 0,
              choices: undefined }
        ];
    }
    function test_rolesTellHowAValueIsEdited(row) {
        compare(get(row.address, "address"), row.address);
        compare(get(row.address, "kind"), SettingsModel.PropertyRow);
        for (const role of ["control", "label", "unit", "lowest", "highest", "decimals"])
            compare(get(row.address, role), row[role], role);
        const choices = get(row.address, "choices");
        compare(choices === undefined ? undefined : choices.join(","), row.choices);
    }

    function test_unknownPlacesAndRolesAreUndefined() {
        verify(!settings.at("Nothing").valid);
        verify(!settings.at("Watermark:0").valid);
        compare(get("Color:bcs_contrast", "nothing"), undefined);
        compare(get("Nothing", "label"), undefined);
        verify(!settings.set(settings.at("Color:bcs_contrast"), "nothing", 1));
        verify(!settings.set(settings.at("Color:bcs_contrast"), "label", "Other"));
        verify(!settings.set(settings.at("Nothing"), "edit", 1));
    }

    function test_setChangesTheFile() {
        verify(settings.set(settings.at("Color:bcs_contrast"), "edit", 20));
        compare(file.value("Color:bcs_contrast"), 20);
        compare(get("Color:bcs_contrast", "edit"), 20);
        compare(get("Color:bcs_contrast", "valueText"), "20");
        compare(get("Color:bcs_contrast", "state"), SettingsModel.Changed);
        compare(get("Color:bcs_brightness", "state"), SettingsModel.Default);
        compare(get("Color", "state"), SettingsModel.Changed);
        compare(get("Color", "valueText"), undefined);
        verify(settings.set(settings.at("Tracks:audio-language"), "edit", ["fra", "eng"]));
        compare(file.value("Tracks:audio-language").join(","), "fra,eng");
    }

    function test_whatIsRefusedIsToldByTheFile() {
        verify(!settings.set(settings.at("Color:bcs_contrast"), "edit", 400));
        compare(refusals.count, 1);
        compare(refusals.signalArguments[0][0], "Color:bcs_contrast: 400 is not between -50 and 50.");
        compare(get("Color:bcs_contrast", "edit"), 0);
    }

    function test_typesAndItemsAreChecked() {
        verify(settings.set(settings.at("Color"), "checked", true));
        compare(get("Color", "checked"), true);
        compare(file.value("Color:selected"), true);
        verify(settings.set(settings.at("Color"), "checked", false));
        compare(file.value("Color:selected"), false);
        compare(get("Color:bcs_contrast", "checked"), undefined);
        compare(get("Output", "checked"), undefined);
        verify(!settings.set(settings.at("Output"), "checked", true));
    }

    readonly property var view: rows // Of any type: what its delegate has is not a QObject's.

    function row(index) {
        return view.objectAt(index).model;
    }
    function shown() {
        const list = [];
        for (let i = 0; i < rows.count; ++i)
            list.push(row(i).label);
        return list.join(", ");
    }

    function test_viewsShowWhatIsBelowARow() {
        rows.root = settings.at("Color");
        compare(shown(), "Brightness, Contrast, Saturation");
        row(1).edit = 20;
        compare(file.value("Color:bcs_contrast"), 20);
        compare(row(1).valueText, "20");
        file.undo();
        compare(row(1).edit, 0);
        row(1).edit = 400;
        compare(refusals.count, 1);
        compare(row(1).edit, 0);
    }

    function test_viewsFollowTheItems() {
        rows.root = settings.at("Watermark");
        compare(shown(), "Default top, Default left");
        file.insert("Watermark", { wm_textcontent: "one" });
        file.insert("Watermark", { wm_textcontent: "two" });
        compare(shown(), "one, two, Default top, Default left");
        compare(row(0).kind, SettingsModel.ItemRow);
        compare(row(0).checked, true);
        row(0).checked = false;
        compare(file.value("Watermark:0:selected"), false);
        file.move("Watermark", 0, 1);
        compare(shown(), "two, one, Default top, Default left");
        file.remove("Watermark", 0);
        compare(shown(), "one, Default top, Default left");
    }

    function test_anotherClipIsShown() {
        const rows = [];
        const note = () => rows.push(settings.rowCount());
        file.statusChanged.connect(note);
        file.load("red709.mkv");
        tryCompare(file, "status", FileSettings.Ready, 30000);
        compare(rows.join(" "), "0 15"); // As soon as the status says so.
        file.statusChanged.disconnect(note);
        compare(get("Crop:crop_left", "highest"), 64);
        file.load("lossless.mkv");
    }
}
