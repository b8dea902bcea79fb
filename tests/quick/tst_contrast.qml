// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtTest 1.15

// The program that the guide shows.
TestCase {
    id: test
    name: "Contrast"
    when: windowShown

    function test_slidersEditTheClip() {
        const component = Qt.createComponent("../../examples/contrast.qml");
        compare(component.errorString(), "");
        const window = createTemporaryObject(component, test, { clip: "lossless.mkv" });
        tryCompare(window.footer, "count", 3, 30000);
        window.footer.forceLayout();
        window.requestActivate();
        tryCompare(window, "active", true, 30000);
        const row = window.footer.itemAtIndex(1);
        const label = row.children[0];
        const slider = row.children[1];
        compare(label.text, "Contrast");
        compare(window.title, "Colours");
        slider.forceActiveFocus();
        keyClick(Qt.Key_Right);
        compare(slider.value, 1);
        compare(window.title, "Undo: change Contrast");
        keyClick(Qt.Key_Z, Qt.ControlModifier);
        compare(slider.value, 0);
        compare(window.title, "Colours");
    }
}
