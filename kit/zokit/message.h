// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QLocale>
#include <QMetaType>
#include <QObject>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVector>

#include <zokit/zokit_export.h>

namespace zokit {

/// A sentence for a person, as data: what is said, and the words that it is said of. The text is made when it is asked
/// for, in the language of the moment: what, which, why, and what to do.
class ZOKIT_EXPORT Message {
    Q_GADGET

public:
    /// What is said. The texts stand in kit/text/message.cpp, one a code. Journals keep the names of the steps: a name
    /// never gets another meaning.
    enum class Code {
        None, ///< Nothing is wrong.
        // Addresses and values
        AddressMalformed, ///< 1: the address.
        UnknownType,      ///< 1: the type, 2: the nearest one.
        UnknownKey,       ///< 1: the type, 2: the key, 3: the nearest one.
        UnknownOption,    ///< 1: the option, 2: the nearest one.
        NoSuchItem,       ///< 1: the type, 2: the position, 3: how many there are.
        TypeHasNoItems,   ///< 1: the type.
        KeyNeedsItem,     ///< 1: the type, 2: the key.
        NotOfItem,        ///< 1: the address, 2: what it suits.
        NotAWholeNumber,  ///< 1: the address, 2: the value.
        NotANumber,       ///< 1: the address, 2: the value.
        NotTrueOrFalse,   ///< 1: the address, 2: the value.
        NotAColor,        ///< 1: the address, 2: the value.
        NotAFont,         ///< 1: the address, 2: the value.
        NotAText,         ///< 1: the address.
        OutOfBounds,      ///< 1: the address, 2: the value, 3: lowest, 4: highest.
        NotAChoice,       ///< 1: the address, 2: the value, 3: the choices, 4: the nearest one.
        Busy,             ///< Settings are being changed already.
        NoSuchThing,      ///< The thing is gone, or of another file.
        FixedItems,       ///< 1: the type, whose items neither come nor go.
        ItemPosition,     ///< 1: the type, 2: the position, 3: the highest one.
        NoDefault,        ///< 1: the address.
        AnchorCorner,     ///< 1: the word, 2: the corners, 3: the nearest one.
        AnchorMargin,     ///< 1: the value.
        AnchorSize,       ///< 1: the value.
        MovedByRounding,  ///< 1: the address, 2: the value before, 3: after.
        ChosenByHand,
        ChosenByLanguage, ///< 1: the language.
        ChosenAsUsual,    ///< 1: the languages, none of which the clip has.
        ChosenAsForced,
        ChosenAsSidecar,
        NoSuchTrack,  ///< 1: the stream number.
        TrackRule,    ///< 1: the rule, 2: the value.
        NotAList,     ///< 1: the address, 2: the value.
        NotASize,     ///< 1: the address, 2: the value.
        SizeTooLarge, ///< 1: the address, 2: the value, 3: the largest number of pixels.
        NotARange,    ///< 1: the address, 2: the value.
        BelowLowest,  ///< 1: the address, 2: the value, 3: the lowest.
        // Settings files
        JsonSyntax, ///< 1: the line, 2: the column, 3: what is wrong, in English.
        FileTooLarge,
        FileTooDeep,  ///< 1: how deep is allowed.
        TooManyItems, ///< 1: how many are allowed.
        NotThisForm,
        NewerVersion,       ///< 1: the file's version, 2: the latest known.
        MemberType,         ///< 1: where, 2: what was expected, in English: "a list".
        UnknownMember,      ///< 1: where, 2: the member, 3: the nearest one.
        UnknownFrameEffect, ///< 1: where, 2: the name, 3: the nearest one.
        TypeTwice,          ///< 1: the type.
        PresetHolds,        ///< 1: the member that no preset has.
        FileMissing,        ///< 1: the path, 2: the nearest name beside it.
        MissingAt,          ///< 1: the address, 2: the path.
        FileUnreadable,     ///< 1: the path, 2: why.
        FileUnwritable,     ///< 1: the path, 2: why.
        PresetMissing,      ///< 1: the name, 2: the nearest one.
        PresetIsFile,       ///< 1: the name, which a file has.
        PresetExists,       ///< 1: the name.
        PresetName,
        PresetAsTarget,    ///< 1: the path.
        FileExists,        ///< 1: the path.
        NotPutBack,        ///< 1: the path, 2: where the old content is, 3: why it was to come back, its inner().
        FileChanged,       ///< 1: the path of a file that changed since it was read.
        InFile,            ///< 1: the file, 2: what is wrong in it, its inner().
        JournalInUse,      ///< 1: the path.
        JournalUnreadable, ///< 1: the path.
        JournalCut,
        QueueInUse,    ///< 1: the path.
        QueueCut,      ///< 1: the path, 2: how many rows could not be read.
        JournalLacks,  ///< 1: the address, whose value the journal cannot keep.
        SavedIsNewer,  ///< 1: the settings file, 2: when it was saved, 3: when the journal was written last.
        NotKept,       ///< 1: the option, which is said for each run anew.
        NotAmong,      ///< 1: the type, 2: what there is.
        NothingToSave, ///< 1: the type, of which nothing can be saved as a default.
        NotForAFile,   ///< 1: the address, whose value no settings file can hold.
        // Media
        ToolMissing,     ///< 1: the program, 2: its package.
        ToolNotInFolder, ///< 1: the program, 2: the folder that was named.
        ChildNotStarted, ///< 1: the program, 2: why.
        ChildKilled,     ///< 1: the program, 2: the number of the signal.
        InputName,       ///< 1: the path.
        InputMissing,    ///< 1: the path, 2: a file beside it with a like name.
        InputFolder,     ///< 1: the path.
        InputNotAFile,   ///< 1: the path.
        InputEmpty,      ///< 1: the path.
        ClipIsOpen,      ///< 1: the path.
        NoMedia,         ///< 1: the path, 2: what ffprobe says.
        NoTracks,        ///< 1: the path.
        PictureRefused,  ///< 1: the path, 2: the stream number.
        ProbeTooLong,    ///< 1: the path, 2: seconds.
        // The graph
        CropTooSmall, ///< 1: what is left of the crop, 2: the frame, 3: the smallest size.
        CropIncomplete,
        CropCut,          ///< 1: what is kept of the crop, 2: the frame.
        OddSize,          ///< 1: the size, 2: the pixel format.
        MadeEven,         ///< 1: what is kept, 2: what it was, 3: the pixel format.
        SizeNotForCodec,  ///< 1: the size, 2: the codec, 3, 4: the shortest and the longest side that it takes.
        MakesEightBits,   ///< 1: the frame effect.
        WatermarkOutside, ///< 1: the watermark.
        WatermarkUnseen,  ///< 1: the watermark.
        SubtitlePictures,
        SpeedOfNothing,
        NoPicture, ///< 1: the path.
        // Conversion
        ContainerLacks,     ///< 1: the container, 2: a codec.
        ContainerHoldsNot,  ///< 1: the container, 2: the codec that was asked for.
        ContainerTurnsNot,  ///< 1: the container.
        CopyTouched,        ///< 1: the option.
        RotationLost,       ///< 1: the container.
        OtherRotationLost,  ///< 1: the container, 2: number of the track.
        HdrMapped,          ///< 1: the codec.
        HdrDataLost,        ///< 1: the codec.
        PixelFormatChanged, ///< 1: the codec, 2: the source's format, 3: the one taken.
        PixelFormatNot,     ///< 1: the codec, 2: the format.
        OptionNotForCodec,  ///< 1: the option, 2: the codec.
        DroppedAsOther,
        CannotChangeSpeed,
        DataTrack,
        NoSoundIn, ///< 1: the file.
        NoPictureToBurn,
        TitlesLost,               ///< 1: the container.
        TrackChosen,              ///< 1: its number, 2: what it is, 3: why.
        TrackNotChosen,           ///< 1: its number, 2: what it is.
        TrackCopied,              ///< 1: its number, 2: what it is.
        TrackAttached,            ///< 1: its number, 2: what it is.
        TrackBurnedIn,            ///< 1: its number, 2: what it is.
        TrackLeftOut,             ///< 1: its number, 2: what it is, 3: why.
        TrackEncoded,             ///< 1: its number, 2: what it is, 3: the codec.
        TrackEncodedBecause,      ///< 1: its number, 2: what it is, 3: the codec, 4: why.
        TrackDeinterlaced,        ///< 1: its number, 2: what it is, 3: the codec.
        TrackDeinterlacedBecause, ///< 1: its number, 2: what it is, 3: the codec, 4: why.
        Rescaled,                 ///< 1: the frame of the settings, 2: that of the clip.
        TrimPastEnd,              ///< 1: where the part was to end, 2: how long the clip is.
        TrimBehindEnd,            ///< 1: where the part begins, 2: how long the clip is.
        CutAtKeyFrame,            ///< 1: where the picture begins, 2: where the part begins, in seconds.
        NoKeyFrame,               ///< 1: where the part begins.
        StyleInAss,
        StyleLost, ///< 1: the container.
        NoSubtitleLines,
        NotMeasured,
        OutputExists,     ///< 1: the path.
        OutputIsInput,    ///< 1: the path.
        OutputIsFolder,   ///< 1: the path.
        OutputNotAFile,   ///< 1: the path.
        ForeignPart,      ///< 1: the path.
        ChildFailed,      ///< 1: the program, 2: its last words.
        ChildStalled,     ///< 1: seconds.
        ResultUnreadable, ///< 1: why.
        ResultStreams,    ///< 1: what was meant, 2: what is there.
        ResultShort,      ///< 1: seconds, 2: how many were meant.
        DamageTold,       ///< 1: ffmpeg's words.
        DamageStrict,
        Cancelled,
        NothingToConvert,
        NoSoundInLanguage,    ///< 1: the languages that were asked for, 2: those that the clip has, or empty.
        NoSubtitleInLanguage, ///< The same.
        SoundUnknown,
        CodecUnknown,
        LettersNotUtf8,
        SubtitleNotDrawn, ///< 1: the stream number, 2: its codec.
        // Steps of the history, as a menu says them behind "Undo" and "Redo". A property "Color:bcs_contrast" and a
        // type "Color" are said as people call them, other words as they are. A type with the word "1" behind it is one
        // item of it: "watermark" and not "Watermarks".
        StepChange, ///< 1: the property, or as below.
        StepSelect, ///< 1: the type, 2: "1" for one item.
        StepAdd,    ///< The same.
        StepRemove, ///< The same.
        StepMove,   ///< The same.
        StepAddFile,
        StepRemoveFile,
        StepDefault,
        StepApply, ///< 1: how many files.
        StepMany,  ///< 1: how many values.
        StepApplyToOne,
        Last = StepApplyToOne
    };
    Q_ENUM(Code)

    Message() = default;
    /// Says \a code of \a arguments, as the code's comment counts them.
    explicit Message(Code code, QStringList arguments = {});
    /// The same, and last of what \a inner says: what is wrong in a file.
    Message(Code code, QStringList arguments, const Message& inner);

    Code code() const;             ///< What is said.
    QStringList arguments() const; ///< Of which words; last is the text of inner(), where there is one.
    Message inner() const;         ///< Of which other message; empty for most.
    /// Whether anything is said.
    bool isEmpty() const;
    /// The sentence, on one line, in the language of the installed translation, else in English.
    QString text() const;

private:
    Code m_code = Code::None;
    QStringList m_arguments;
    std::shared_ptr<const Message> m_inner;
};

/// Whether both say the same of the same words.
ZOKIT_EXPORT bool operator==(const Message& left, const Message& right);

/// Several of them.
using Messages = QVector<Message>;

/// \a text as it stands in a sentence. Control characters and those that turn the direction of a line are spelled, as
/// in C: a line feed becomes a backslash and an "n".
ZOKIT_EXPORT QString onOneLine(const QString& text);

/// \a size as sentences and options say it: "1280x720".
ZOKIT_EXPORT QString sizeText(const QSize& size);

/// The one of \a candidates that \a word was probably meant to be: few letters differ, upper or lower case aside, or
/// it is a part of one; empty when none is near.
ZOKIT_EXPORT QString nearest(const QString& word, const QStringList& candidates);

/// That there is no file at \a path, with the nearest name in its folder.
ZOKIT_EXPORT Message missingFile(const QString& path);

/// Has the kit speak the language of \a locale from now on, in the running application: German where it is wanted, else
/// English. False when the translation cannot be had.
ZOKIT_EXPORT bool useLanguage(const QLocale& locale);

} // namespace zokit

Q_DECLARE_METATYPE(zokit::Message)
