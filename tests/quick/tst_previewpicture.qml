// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtTest 1.15
import ZoEffect.Kit 1.1

TestCase {
    id: test
    name: "PreviewPicture"
    width: 200
    height: 100
    visible: true
    when: windowShown

    Component {
        id: pictureComponent
        PreviewPicture {
            readonly property FileSettings clip: FileSettings {}
            file: clip
            width: 200
            height: 100
        }
    }

    // The picture of a clip, when it is there.
    function shown(path) {
        const picture = createTemporaryObject(pictureComponent, test);
        picture.clip.load(path);
        tryVerify(() => picture.isTrue, 30000);
        return picture;
    }

    function test_withoutAFileThereIsNothing() {
        const picture = createTemporaryObject(pictureComponent, test);
        compare(picture.pictureRect, Qt.rect(0, 0, 0, 0));
        compare(picture.isTrue, false);
        compare(picture.error, "");
        compare(picture.time, 0);
        picture.file = null;
        compare(picture.isTrue, false);
    }

    function test_frameFitsIntoTheMiddle() {
        const picture = shown("red709.mkv");
        // 64x48 in 200x100.
        tryCompare(picture, "pictureRect", Qt.rect(34, 0, 133, 100));
        picture.width = 64;
        tryCompare(picture, "pictureRect", Qt.rect(0, 26, 64, 48));
    }

    function test_anEditIsShownTrulyAfterAWhile() {
        const picture = shown("red709.mkv");
        for (const [key, value] of [["crop_width", 32], ["crop_height", 48]])
            verify(picture.clip.setValue("Crop:" + key, value));
        compare(picture.isTrue, false);
        tryCompare(picture, "isTrue", true, 30000);
        tryCompare(picture, "pictureRect", Qt.rect(67, 0, 66, 100));
        picture.show = PreviewPicture.Before;
        compare(picture.isTrue, false);
        tryCompare(picture, "isTrue", true, 30000);
        tryCompare(picture, "pictureRect", Qt.rect(34, 0, 133, 100));
    }

    function test_timeIsWithinTheClip() {
        const picture = shown("lossless.mkv");
        fuzzyCompare(picture.time, 0.12, 0.0001); // Some way into 0.4 s.
        picture.time = 0.2;
        compare(picture.time, 0.2);
        compare(picture.isTrue, false);
        tryCompare(picture, "isTrue", true, 30000);
        picture.time = 5;
        compare(picture.time, 0.4);
        picture.time = NaN;
        compare(picture.time, 0.4);
        picture.time = -1;
        compare(picture.time, 0);
    }

    function test_timeThatWasSetHoldsForTheClipThatComes() {
        const picture = createTemporaryObject(pictureComponent, test, { time: 0.2 });
        picture.clip.load("lossless.mkv");
        tryCompare(picture, "isTrue", true, 30000);
        compare(picture.time, 0.2);
    }

    function test_soundAloneHasNoPicture() {
        const picture = createTemporaryObject(pictureComponent, test);
        picture.clip.load("sound.wav");
        tryCompare(picture.clip, "status", FileSettings.Ready, 30000);
        compare(picture.isTrue, false);
        compare(picture.pictureRect, Qt.rect(0, 0, 0, 0));
    }

    function test_whyThereIsNoFrameIsTold() {
        const picture = shown("red709.mkv");
        verify(picture.clip.setValue("Crop:crop_width", 10));
        tryVerify(() => picture.error !== "", 30000);
        compare(picture.error, "10x48 of the frame of 64x48 is left of the crop. At least 24x24 is needed: move it into "
                + "the frame or make it larger.");
        compare(picture.isTrue, false);
        picture.clip.undo();
        tryCompare(picture, "isTrue", true, 30000);
        compare(picture.error, "");
    }

    function test_fileThatGoesLeavesNothing() {
        const picture = shown("red709.mkv");
        const file = createTemporaryObject(fileComponent, test, { path: "red709.mkv" });
        picture.file = file;
        tryCompare(picture, "isTrue", true, 30000);
        file.destroy();
        tryCompare(picture, "file", null);
        compare(picture.isTrue, false);
    }
    Component {
        id: fileComponent
        FileSettings {}
    }
}
