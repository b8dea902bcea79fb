// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtTest 1.15
import ZoEffect.Kit 1.1
import "../../examples/gallery"

// The gallery's window, by mouse and keys.
TestCase {
    id: test
    name: "Gallery"
    when: windowShown

    Component {
        id: galleryComponent
        Main {}
    }
    property var gallery

    function initTestCase() {
        gallery = galleryComponent.createObject(null, { clip: "lossless.mkv" });
        gallery.requestActivate();
        tryCompare(gallery, "active", true, 30000);
        tryCompare(gallery.file, "status", FileSettings.Ready, 30000);
    }

    function cleanupTestCase() {
        gallery.destroy();
    }

    function init() {
        verify(gallery.file.resetAll());
        gallery.panel.address = "Color";
    }

    // What is called so in the window, when it is there.
    function field(name) {
        let root = gallery.contentItem;
        while (root.parent !== null) // Header, footer and what pops up lie beside it.
            root = root.parent;
        return findChild(root, name);
    }

    // The field of a value, with the focus.
    function focused(address) {
        gallery.panel.address = address.split(":").slice(0, -1).join(":");
        field("rows").forceLayout();
        const item = field(address);
        item.forceActiveFocus();
        return item;
    }

    function write(item, text) {
        item.text = text;
        keyClick(Qt.Key_Return);
    }

    function test_eachTypeHasItsRows_data() {
        return [
            { tag: "Crop", rows: 9 }, { tag: "Watermark", rows: 2 }, { tag: "Subtitle", rows: 1 },
            { tag: "Audio", rows: 1 }, { tag: "Color", rows: 3 }, { tag: "Effect", rows: 22 },
            { tag: "Audio_Fade_Inout", rows: 5 }, { tag: "Audio_Normalize", rows: 2 }, { tag: "Audio_BandPass", rows: 4 },
            { tag: "Audio_Chorus", rows: 5 }, { tag: "Audio_Flanger", rows: 6 }, { tag: "Audio_Echo", rows: 5 },
            { tag: "Audio_Speed", rows: 2 }, { tag: "Tracks", rows: 6 }, { tag: "Output", rows: 17 }
        ];
    }
    function test_eachTypeHasItsRows(row) {
        mouseClick(field(row.tag), 100, 10);
        compare(gallery.panel.address, row.tag);
        compare(field("rows").count, row.rows);
    }

    function test_fieldsEdit_data() {
        return [
            { tag: "check box", address: "Crop:crop_keepaspectratio", edit: () => keyClick(Qt.Key_Space), value: false },
            { tag: "spin box", address: "Crop:crop_left", edit: () => keyClick(Qt.Key_Up), value: 1 },
            { tag: "spin box of parts", address: "Watermark:wm_vposfactor", edit: () => keyClick(Qt.Key_Up), value: 0.11 },
            { tag: "number", address: "Color:bcs_contrast", edit: () => keyClick(Qt.Key_Up), value: 1 },
            { tag: "combo box", address: "Crop:crop_aspectratio", edit: () => keyClick(Qt.Key_Down), value: "Crop Area" },
            { tag: "line", address: "Output:size", edit: item => write(item, "80x60"), value: "80x60" },
            { tag: "list", address: "Tracks:audio-language", edit: item => write(item, "fra,eng"), value: ["fra", "eng"] }
        ];
    }
    function test_fieldsEdit(row) {
        const before = gallery.file.value(row.address);
        row.edit(focused(row.address));
        compare(gallery.file.value(row.address), row.value);
        mouseClick(field("undo"));
        compare(gallery.file.value(row.address), before);
        mouseClick(field("redo"));
        compare(gallery.file.value(row.address), row.value);
    }

    function test_sliderIsOneStep() {
        focused("Color:bcs_contrast");
        const slider = field("Color:bcs_contrast:slider");
        mousePress(slider, slider.width / 2, slider.height / 2);
        mouseMove(slider, slider.width * 0.7, slider.height / 2);
        mouseMove(slider, slider.width, slider.height / 2);
        mouseRelease(slider, slider.width, slider.height / 2);
        compare(gallery.file.value("Color:bcs_contrast"), 50);
        compare(field("undo").text, "Undo: change Contrast");
        mouseClick(field("undo"));
        compare(gallery.file.value("Color:bcs_contrast"), 0);
        compare(slider.value, 0);
    }

    function test_whatIsRefusedIsSaidAndNotShown() {
        const size = focused("Output:size");
        write(size, "large");
        compare(size.text, "");
        compare(field("sentence").text, "Output:size: large is no size. Write WIDTHxHEIGHT, for example 1280x720, and ,exact "
                + "behind it to force the shape.");
        verify(field("sentence").visible);
        verify(gallery.file.setValue("Color:bcs_contrast", 20));
        verify(!field("sentence").visible);
    }

    function test_stateIsShownAndTakenBack() {
        compare(field("Color:state").text, "");
        focused("Color:bcs_contrast");
        keyClick(Qt.Key_Up);
        compare(field("Color:state").text, "changed");
        verify(field("Color:bcs_contrast:reset").enabled);
        mouseClick(field("Color:bcs_contrast:reset"));
        compare(gallery.file.value("Color:bcs_contrast"), 0);
        compare(field("Color:state").text, "");
        verify(!field("Color:bcs_contrast:reset").enabled);
    }

    function test_typesAreSwitched() {
        const box = field("Color:selected");
        compare(box.checked, true);
        mouseClick(box);
        compare(gallery.file.value("Color:selected"), false);
        gallery.file.undo();
        compare(box.checked, true);
    }

    function test_watermarkIsAddedAndEdited() {
        mouseClick(field("Watermark"), 100, 10);
        mouseClick(field("addText"));
        compare(gallery.file.value("Watermark:0:wm_textcontent"), "Text");
        field("rows").forceLayout();
        mouseClick(field("Watermark:0"));
        compare(field("title").text, "Text");

        focused("Watermark:0:wm_textcontent").selectAll();
        keyClick("H");
        keyClick("i");
        compare(gallery.file.value("Watermark:0:wm_textcontent"), "Hi");
        compare(field("title").text, "Hi");
        focused("Watermark:0:wm_fontsize");
        mouseClick(field("undo"));
        compare(gallery.file.value("Watermark:0:wm_textcontent"), "Text");

        write(focused("Watermark:0:wm_fontcolor"), "#00ff00");
        compare(gallery.file.value("Watermark:0:wm_fontcolor").toString(), "#00ff00");
        mouseClick(field("Watermark:0:wm_fontcolor:swatch"));
        const choices = field("Watermark:0:wm_fontcolor:choices");
        mouseClick(choices, 10, 40); // The first one of the second line.
        compare(gallery.file.value("Watermark:0:wm_fontcolor").toString(), "#ff0000");
        const fonts = focused("Watermark:0:wm_fontname");
        compare(fonts.displayText, "Tahoma");
        keyClick(Qt.Key_Home);
        compare(gallery.file.value("Watermark:0:wm_fontname").family, fonts.choices[0]);
        mouseClick(field("back"));
        compare(field("title").text, "Watermarks");
    }

    function test_itemsMoveAndGo() {
        for (const text of ["one", "two"])
            gallery.file.insert("Watermark", { wm_textcontent: text });
        gallery.panel.address = "Watermark";
        field("rows").forceLayout();
        verify(!field("Watermark:1:down").enabled);
        mouseClick(field("Watermark:1:up"));
        compare(gallery.file.value("Watermark:0:wm_textcontent"), "two");
        field("rows").forceLayout();
        mouseClick(field("Watermark:0:remove"));
        compare(gallery.file.count("Watermark"), 1);
        compare(gallery.file.value("Watermark:0:wm_textcontent"), "one");
    }

    function test_itemThatGoesLeavesItsList() {
        gallery.file.insert("Watermark", { wm_textcontent: "one" });
        gallery.panel.address = "Watermark:0";
        compare(field("title").text, "one");
        gallery.file.undo();
        compare(gallery.panel.address, "Watermark");
        compare(field("rows").count, 2);
    }

    function test_fileIsAdded() {
        gallery.panel.address = "Audio";
        const path = field("path");
        path.text = "sound.wav";
        mouseClick(field("addFile"));
        compare(path.text, "");
        compare(gallery.file.value("Audio:1:file"), "sound.wav");
    }

    function test_pictureFollows() {
        const picture = field("picture");
        tryCompare(picture, "isTrue", true, 30000);
        compare(field("time").value, picture.time);
        focused("Color:bcs_contrast");
        keyClick(Qt.Key_Up);
        compare(picture.isTrue, false);
        tryCompare(picture, "isTrue", true, 30000);
        mouseClick(field("before"));
        compare(picture.show, PreviewPicture.Before);
        mouseClick(field("before"));
        compare(picture.show, PreviewPicture.After);
    }
}
