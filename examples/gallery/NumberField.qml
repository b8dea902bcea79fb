// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Layouts 1.15
import ZoEffect.Kit 1.1

// A number with its unit; with a slider before it where one suits. A drag of it is one step.
RowLayout {
    id: field

    required property ValueRow row
    readonly property bool hasSlider: row.model.control === SettingsModel.Slider
    readonly property bool isNumber: typeof row.model.edit === "number" // A crop that is not set is none.
    // Spin boxes count in whole numbers: in hundredths, where two digits stand behind the point.
    readonly property real factor: Math.pow(10, row.model.decimals)
    readonly property int shown: isNumber ? Math.round(row.model.edit * factor) : 0

    function scaled(bound, otherwise) {
        return bound === undefined ? otherwise : Math.round(bound * factor);
    }

    Slider {
        objectName: field.row.model.address + ":slider"
        visible: field.hasSlider
        from: field.scaled(field.row.model.visualLowest, 0)
        to: field.scaled(field.row.model.visualHighest, 100)
        stepSize: 1
        value: field.shown
        onPressedChanged: field.row.setInGesture(pressed)
        onMoved: field.row.model.edit = value / field.factor
        Accessible.name: field.row.model.label
        Layout.fillWidth: true
        Layout.minimumWidth: 40
    }
    SpinBox {
        objectName: field.row.model.address
        editable: true
        from: field.scaled(field.row.model.lowest, -1000000000)
        to: field.scaled(field.row.model.highest, 1000000000)
        stepSize: Math.max(1, Math.round(field.row.model.step * field.factor))
        value: field.shown
        textFromValue: (value, locale) => field.isNumber
            ? Number(value / field.factor).toLocaleString(locale, "f", field.row.model.decimals) : qsTr("not set")
        valueFromText: (text, locale) => {
            try {
                return Math.round(Number.fromLocaleString(locale, text) * field.factor);
            } catch (error) {
                return field.shown;
            }
        }
        onValueModified: {
            field.row.model.edit = value / field.factor;
            value = Qt.binding(() => field.shown);
        }
        Accessible.name: field.row.model.label
        Layout.fillWidth: !field.hasSlider
        Layout.preferredWidth: 88
        Layout.minimumWidth: 70
    }
    Label {
        Layout.preferredWidth: Math.max(20, implicitWidth)
        visible: field.row.model.unit !== undefined
        text: field.row.model.unit || ""
    }
}
