// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QFlags>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <zokit/message.h>
#include <zokit/zokit_export.h>

struct EffectControlItem;

namespace zokit {

/// What kind of value a property holds.
enum class ValueKind {
    Bool,
    Integer,
    Number, ///< A double.
    Text,
    Color,
    Font,
    List, ///< Words in an order, for example languages.
    Size, ///< A text "1280x720", with ",exact" behind it where the shape may change.
    Range ///< Two numbers of seconds, the second one larger.
};

/// The control that suits a property, as data: widgets, QML and others build from it.
enum class Control {
    None, ///< Not to be edited: the program's own.
    CheckBox,
    SpinBox,
    Slider, ///< With a spin box beside it.
    ComboBox,
    ColorButton,
    FontChooser,
    LineEdit,
    TextEdit,
    FileChooser,
    AnchorChooser,
    ListEdit
};

/// In which unit a number is stored and shown.
enum class Unit {
    None,
    Pixels,
    Points,
    Percent,
    Seconds,
    Milliseconds,
    Hertz,
    HundredthsOfHertz,
    PerMille,
    Degrees,
    KilobitsPerSecond,
    FramesPerSecond
};

/// Which things of a type a property suits.
enum class Suit {
    Type = 0x1, ///< The type itself.
    TextWatermark = 0x2,
    ImageWatermark = 0x4,
    EmbeddedTrack = 0x8,
    FileTrack = 0x10,
    FrameEffect = 0x20
};
/// Several of them.
Q_DECLARE_FLAGS(Suits, Suit)
Q_DECLARE_OPERATORS_FOR_FLAGS(Suits)

/// What \a suits means, in words: "text watermarks, image watermarks"; translated.
ZOKIT_EXPORT QString suitsText(Suits suits);

/// A value that a property can have.
struct ZOKIT_EXPORT Choice {
    QVariant value;   ///< As it is stored.
    const char* name; ///< English; translated by Property::choiceName().
};

/// One property of an effect type, or one output option: everything that panels, checks, schemas, help and the
/// reference page say about it stands here and nowhere else.
struct ZOKIT_EXPORT Property {
    QString type;                     ///< Effect type, or "Output", "Tracks".
    QString key;                      ///< Of the value; unique within its type.
    ValueKind kind = ValueKind::Text; ///< What its values are.
    Control control = Control::None;  ///< What suits it in a panel.
    Unit unit = Unit::None;           ///< In which numbers are measured.
    Suits suits;                      ///< Which things of the type have it.
    QString group;                    ///< Properties of one group stand together in a panel: a key for groupName().
    QVariant lowest;                  ///< Hard bounds: what a person may set; invalid for none.
    QVariant highest;                 ///< As above. "frame width" and "frame height" stand for the sides of the frame.
    QVariant visualLowest;            ///< Ends of a slider; the hard bounds when invalid.
    QVariant visualHighest;           ///< As above.
    double step = 1;                  ///< Of a spin box.
    int decimals = 0;                 ///< Shown behind the point.
    QVector<Choice> choices;          ///< Empty when any value within the bounds will do.
    QStringList belongsTo;            ///< Keys that are edited together with it, for example width with height.
    bool isPath = false;              ///< The value names a file.
    bool isGeometry = false;          ///< The value is measured in the frame and follows its size.
    const char* labelText = nullptr;  ///< English sources of the translated texts below.
    const char* helpText = nullptr;   ///< As above.

    QString label() const;                           ///< A few words, translated.
    QString help() const;                            ///< A sentence or two, translated.
    QString unitName() const;                        ///< "px", "%", translated; empty for none.
    QString groupName() const;                       ///< Translated.
    QString choiceName(const QVariant& value) const; ///< Translated; the value as text when it is no choice.
    QVariant defaultValue() const;                   ///< The catalogue's; invalid for keys without a default.
    /// Whether the catalogue gives it a default.
    bool hasDefault() const;
};

/// All properties of the 13 effect types, in the order of the tree, then of the catalogue, keys without a default after
/// those with one. Made once.
ZOKIT_EXPORT const QVector<Property>& properties();
/// The property \a key of \a type; null when there is none.
ZOKIT_EXPORT const Property* findProperty(const QString& type, const QString& key);
/// The 13 effect types in the order of the tree: the picture's, then the sound's.
ZOKIT_EXPORT QStringList effectTypes();
/// Whether \a type is one of the seven effects on the sound, "Audio_Fade_Inout" to "Audio_Speed"; not so "Audio", the
/// list of tracks.
ZOKIT_EXPORT bool isSoundType(const QString& type);
/// Whether a type has items: "Watermark", "Subtitle", "Audio", "Effect".
ZOKIT_EXPORT bool hasItems(const QString& type);
/// The translated name of an effect type or of one of the 20 frame effects.
ZOKIT_EXPORT QString displayName(const QString& name);

/// A frame effect that the kit offers.
struct ZOKIT_EXPORT FrameEffect {
    const char* name;     ///< Also its name in the tree and in files.
    int id;               ///< Its number in the tree, from 1.
    const char* helpText; ///< English source of help().
    QString help() const; ///< Translated.
};
/// All 20, in the order that a new file has without a saved default. Made once.
ZOKIT_EXPORT const QVector<FrameEffect>& frameEffects();

/// The table of the 13 effect types and the 20 frame effects, to be registered with ZoEffectModel::InitEffectModel().
/// FileSettings does that by itself when nothing has been registered yet.
ZOKIT_EXPORT const EffectControlItem* effectTable();

/// A bound of a property as a number in a frame of \a frame; nothing for none, and for a side of a frame that is not
/// known.
ZOKIT_EXPORT std::optional<double> boundIn(const QVariant& bound, const QSize& frame);

/// A value read, or why it is refused.
struct ZOKIT_EXPORT ReadValue {
    QVariant value; ///< In the type of the property.
    Message error;  ///< Why it is refused; empty when it is not.
};

/// Reads what a person gave for \a property: however it is spelled, as long as nothing is lost ("20" and 20.0 are 20).
/// Refused, with \a where (an address) in the sentence: another type, a value out of the bounds in a frame of
/// \a frame, a value that is no choice.
ZOKIT_EXPORT ReadValue readValue(const Property& property, const QVariant& given, const QSize& frame,
                                 const QString& where);

} // namespace zokit
