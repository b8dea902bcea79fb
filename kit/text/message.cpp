// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/message.h>

#include <algorithm>
#include <utility>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QTranslator>

#include <zokit/properties.h>

#include "propertyrows_p.h"
#include "steptext_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

struct Text {
    Code code;
    const char* text;
};

// clang-format off
constexpr Text texts[] = {
    {Code::None,             ""},
    {Code::AddressMalformed, QT_TRANSLATE_NOOP("zokit", "%1 is no address. Write TYPE:KEY or TYPE:POSITION:KEY, for example Color:bcs_contrast or Watermark:0:wm_fontsize.")},
    {Code::UnknownType,      QT_TRANSLATE_NOOP("zokit", "There is no effect type %1.| Did you mean %2?")},
    {Code::UnknownKey,       QT_TRANSLATE_NOOP("zokit", "%1 has no property %2.| Did you mean %3?")},
    {Code::UnknownOption,    QT_TRANSLATE_NOOP("zokit", "There is no output option %1.| Did you mean %2?")},
    {Code::NoSuchItem,       QT_TRANSLATE_NOOP("zokit", "%1 has no item %2; it has %3, counted from 0.")},
    {Code::TypeHasNoItems,   QT_TRANSLATE_NOOP("zokit", "%1 has no items. Leave the position out.")},
    {Code::KeyNeedsItem,     QT_TRANSLATE_NOOP("zokit", "%2 belongs to an item of %1. Write %1:0:%2 for the first one.")},
    {Code::NotOfItem,        QT_TRANSLATE_NOOP("zokit", "%1 cannot be set here: it is for %2.")},
    {Code::NotAWholeNumber,  QT_TRANSLATE_NOOP("zokit", "%1: %2 is no whole number.")},
    {Code::NotANumber,       QT_TRANSLATE_NOOP("zokit", "%1: %2 is no number.")},
    {Code::NotTrueOrFalse,   QT_TRANSLATE_NOOP("zokit", "%1: %2 is neither true nor false.")},
    {Code::NotAColor,        QT_TRANSLATE_NOOP("zokit", "%1: %2 is no colour. Write a name, #rrggbb, or #aarrggbb with the opacity first.")},
    {Code::NotAFont,         QT_TRANSLATE_NOOP("zokit", "%1: %2 is no font. Write the name of a family.")},
    {Code::NotAText,         QT_TRANSLATE_NOOP("zokit", "%1: a text is expected.")},
    {Code::OutOfBounds,      QT_TRANSLATE_NOOP("zokit", "%1: %2 is not between %3 and %4.")},
    {Code::Busy,             QT_TRANSLATE_NOOP("zokit", "These settings are just being changed. Try again when that is done.")},
    {Code::NoSuchThing,      QT_TRANSLATE_NOOP("zokit", "What was to be changed is not there any more.")},
    {Code::FixedItems,       QT_TRANSLATE_NOOP("zokit", "The items of %1 are always there. Select or clear them instead.")},
    {Code::ItemPosition,     QT_TRANSLATE_NOOP("zokit", "%1: %2 is no position between 0 and %3.")},
    {Code::NoDefault,        QT_TRANSLATE_NOOP("zokit", "%1 has no default to go back to.")},
    {Code::AnchorCorner,     QT_TRANSLATE_NOOP("zokit", "%1 is none of %2.| Did you mean %3?")},
    {Code::AnchorMargin,     QT_TRANSLATE_NOOP("zokit", "%1 is no margin. Write pixels (10) or percent (2%).")},
    {Code::AnchorSize,       QT_TRANSLATE_NOOP("zokit", "%1 is no size. Write a part of the frame's width from 1% to 100%.")},
    {Code::MovedByRounding,  QT_TRANSLATE_NOOP("zokit", "%1: rounding to whole pixels makes %3 of %2 there and back.")},
    {Code::ChosenByHand,     QT_TRANSLATE_NOOP("zokit", "chosen by hand")},
    {Code::ChosenByLanguage, QT_TRANSLATE_NOOP("zokit", "chosen for its language, %1")},
    {Code::ChosenAsUsual,    QT_TRANSLATE_NOOP("zokit", "chosen as the one that players take, since none is in %1")},
    {Code::ChosenAsForced,   QT_TRANSLATE_NOOP("zokit", "chosen as forced subtitle")},
    {Code::ChosenAsSidecar,  QT_TRANSLATE_NOOP("zokit", "chosen as subtitle file beside the clip")},
    {Code::NoSuchTrack,      QT_TRANSLATE_NOOP("zokit", "The clip has no such track %1. Choose one that it has.")},
    {Code::TrackRule,        QT_TRANSLATE_NOOP("zokit", "Tracks:%1: %2 is no value for this rule.")},
    {Code::NotAList,         QT_TRANSLATE_NOOP("zokit", "%1: %2 is no list. Write words with commas between them.")},
    {Code::SizeTooLarge,     QT_TRANSLATE_NOOP("zokit", "%1: %2 has more than %3 pixels. Choose a smaller size.")},
    {Code::NotASize,         QT_TRANSLATE_NOOP("zokit", "%1: %2 is no size. Write WIDTHxHEIGHT, for example 1280x720, and ,exact behind it to force the shape.")},
    {Code::NotARange,        QT_TRANSLATE_NOOP("zokit", "%1: %2 is no range. Write FROM,TO in seconds, for example 12,40.5; TO comes after FROM.")},
    {Code::BelowLowest,      QT_TRANSLATE_NOOP("zokit", "%1: %2 is below %3.")},
    {Code::JsonSyntax,       QT_TRANSLATE_NOOP("zokit", "Line %1, column %2: %3.")},
    {Code::FileTooLarge,     QT_TRANSLATE_NOOP("zokit", "A settings file has at most 16 MB.")},
    {Code::FileTooDeep,      QT_TRANSLATE_NOOP("zokit", "Objects and lists of a settings file stand at most %1 deep in each other.")},
    {Code::TooManyItems,     QT_TRANSLATE_NOOP("zokit", "A settings file has at most %1 items.")},
    {Code::NotThisForm,      QT_TRANSLATE_NOOP("zokit", "This is no settings file: a JSON object with \"zoeffect\": 1 is expected.")},
    {Code::NewerVersion,     QT_TRANSLATE_NOOP("zokit", "This file is of version %1; this program knows versions up to %2. Use a newer program.")},
    {Code::MemberType,       QT_TRANSLATE_NOOP("zokit", "%1: %2 is expected.")},
    {Code::UnknownMember,    QT_TRANSLATE_NOOP("zokit", "%1 has no member %2.| Did you mean %3?")},
    {Code::UnknownFrameEffect, QT_TRANSLATE_NOOP("zokit", "%1: there is no frame effect %2.| Did you mean %3?")},
    {Code::TypeTwice,        QT_TRANSLATE_NOOP("zokit", "%1 stands twice in the file. Leave one of them.")},
    {Code::PresetHolds,      QT_TRANSLATE_NOOP("zokit", "A preset has no \"%1\": it is for any clip.")},
    {Code::FileMissing,      QT_TRANSLATE_NOOP("zokit", "%1: no such file.| There is %2.")},
    {Code::MissingAt,        QT_TRANSLATE_NOOP("zokit", "%1: %2: no such file. Bring it back, or choose another.")},
    {Code::FileUnreadable,   QT_TRANSLATE_NOOP("zokit", "%1 cannot be read: %2.")},
    {Code::FileUnwritable,   QT_TRANSLATE_NOOP("zokit", "%1 cannot be written: %2.")},
    {Code::PresetMissing,    QT_TRANSLATE_NOOP("zokit", "There is no preset %1.| Did you mean %2?")},
    {Code::PresetIsFile,     QT_TRANSLATE_NOOP("zokit", "There is no preset %1. Write ./%1 for the file of that name.")},
    {Code::PresetExists,     QT_TRANSLATE_NOOP("zokit", "There is a preset %1 already. Choose another name, or replace it.")},
    {Code::PresetName,       QT_TRANSLATE_NOOP("zokit", "A preset needs a name.")},
    {Code::PresetAsTarget,   QT_TRANSLATE_NOOP("zokit", "%1 is a preset. Carry the settings over to those of a clip, and make a preset of them.")},
    {Code::FileExists,       QT_TRANSLATE_NOOP("zokit", "%1 exists. Choose another name, or replace it.")},
    {Code::NotPutBack,       QT_TRANSLATE_NOOP("zokit", "%1 has its new settings already. Its old ones lie in %2. %3")},
    {Code::FileChanged,      QT_TRANSLATE_NOOP("zokit", "%1 was changed by somebody else meanwhile. Nothing was applied; try again.")},
    {Code::InFile,           QT_TRANSLATE_NOOP("zokit", "%1: %2")},
    {Code::JournalInUse,     QT_TRANSLATE_NOOP("zokit", "%1 belongs to a session that is still running.")},
    {Code::JournalUnreadable, QT_TRANSLATE_NOOP("zokit", "%1 is no journal of a session, or damaged from its beginning.")},
    {Code::JournalCut,       QT_TRANSLATE_NOOP("zokit", "The last moments of the session were not written to the end. All before them is back.")},
    {Code::QueueInUse,       QT_TRANSLATE_NOOP("zokit", "%1 belongs to an editor that is still running. This queue is not kept: it is gone when the program ends.")},
    {Code::QueueCut,         QT_TRANSLATE_NOOP("zokit", "%1: %2 row(s) of the queue could not be read and are left out. Add their files again.")},
    {Code::JournalLacks,     QT_TRANSLATE_NOOP("zokit", "%1: the journal cannot keep this value, which would be lost if the program ended now. Set another one.")},
    {Code::SavedIsNewer,     QT_TRANSLATE_NOOP("zokit", "%1 was saved %2, later than the unfinished session of %3. Both are kept.")},
    {Code::NotKept, QT_TRANSLATE_NOOP("zokit", "%1 is not kept with the settings. Give it with each run.")},
    {Code::NotAmong,         QT_TRANSLATE_NOOP("zokit", "There is no %1 to be carried over. There is %2.")},
    {Code::NothingToSave,    QT_TRANSLATE_NOOP("zokit", "Of %1 nothing can be saved as a default. Choose one of its items.")},
    {Code::NotForAFile,      QT_TRANSLATE_NOOP("zokit", "%1: no settings file can hold this value. Set another one.")},
    {Code::ToolMissing,       QT_TRANSLATE_NOOP("zokit", "%1 is missing. Install the package %2, or name its folder by ZOEFFECT_FFMPEG.")},
    {Code::ToolNotInFolder,   QT_TRANSLATE_NOOP("zokit", "%1 is not in %2, the folder that ZOEFFECT_FFMPEG names. Correct it, or leave it unset.")},
    {Code::ChildNotStarted,   QT_TRANSLATE_NOOP("zokit", "%1 could not be started: %2. Check that it is installed and may be run.")},
    {Code::ChildKilled,       QT_TRANSLATE_NOOP("zokit", "%1 was ended by signal %2. Try again, with more memory at hand.")},
    {Code::InputName,         QT_TRANSLATE_NOOP("zokit", "%1: its name is not written in UTF-8. Rename it.")},
    {Code::InputMissing,      QT_TRANSLATE_NOOP("zokit", "%1: no such file.| There is %2.")},
    {Code::InputFolder,       QT_TRANSLATE_NOOP("zokit", "%1 is a folder. Name a file in it.")},
    {Code::InputNotAFile,     QT_TRANSLATE_NOOP("zokit", "%1 is no ordinary file. Copy what it gives into one first.")},
    {Code::InputEmpty,        QT_TRANSLATE_NOOP("zokit", "%1 is empty. Get it once more from where it came from.")},
    {Code::ClipIsOpen,        QT_TRANSLATE_NOOP("zokit", "%1 is open already. Remove it first to open these settings.")},
    {Code::NoMedia,           QT_TRANSLATE_NOOP("zokit", "%1 is no media file that can be read. Check that it is whole.| ffprobe says: %2.")},
    {Code::NoTracks,          QT_TRANSLATE_NOOP("zokit", "%1 holds no picture, no sound and no subtitles. Check that it is whole.")},
    {Code::PictureRefused,    QT_TRANSLATE_NOOP("zokit", "%1: the size of the picture, track %2, is unknown or above 64 million pixels. Check that it is whole, or make it smaller.")},
    {Code::ProbeTooLong,      QT_TRANSLATE_NOOP("zokit", "%1: nothing was found out about it in %2 seconds. Check that its disk answers, and that it is whole.")},
    {Code::CropTooSmall,     QT_TRANSLATE_NOOP("zokit", "%1 of the frame of %2 is left of the crop. At least %3 is needed: move it into the frame or make it larger.")},
    {Code::CropIncomplete,   QT_TRANSLATE_NOOP("zokit", "The crop has no width or no height, so nothing is cut off. Set Crop:crop_width and Crop:crop_height, too.")},
    {Code::CropCut,          QT_TRANSLATE_NOOP("zokit", "The crop leaves the frame of %2. %1 is kept of it.")},
    {Code::OddSize,          QT_TRANSLATE_NOOP("zokit", "%1: with %2 width and height have to be even. Take another size, or a pixel format like yuv444p.")},
    {Code::MadeEven,         QT_TRANSLATE_NOOP("zokit", "With %3 width and height are even: %1 is kept of %2. Take a pixel format like yuv444p to keep all of it.")},
    {Code::SizeNotForCodec,  QT_TRANSLATE_NOOP("zokit", "%1: %2 takes pictures with sides of %3 to %4 pixels. Take another size, or another codec.")},
    {Code::MakesEightBits,   QT_TRANSLATE_NOOP("zokit", "%1 leaves eight bits of a picture that has more.")},
    {Code::WatermarkOutside, QT_TRANSLATE_NOOP("zokit", "%1 lies outside of the part that is kept and cannot be seen. Move it, or make the crop larger.")},
    {Code::WatermarkUnseen,  QT_TRANSLATE_NOOP("zokit", "The clip has no picture, so %1 cannot be seen.")},
    {Code::SubtitlePictures, QT_TRANSLATE_NOOP("zokit", "This track of subtitles consists of pictures: font and colours stay as they are, only place and transparency follow.")},
    {Code::SpeedOfNothing,   QT_TRANSLATE_NOOP("zokit", "Audio_Speed:audio_speed_factor: with 0 nothing would ever be heard or seen. Take 1 to 200 percent.")},
    {Code::NoPicture,        QT_TRANSLATE_NOOP("zokit", "%1 has no picture that can be shown. Choose another file.")},
    {Code::ContainerLacks, QT_TRANSLATE_NOOP("zokit", "%1 holds no %2")},
    {Code::ContainerHoldsNot, QT_TRANSLATE_NOOP("zokit", "%1 cannot hold %2. Choose another container, for example mkv, or another codec.")},
    {Code::ContainerTurnsNot, QT_TRANSLATE_NOOP("zokit", "%1 cannot say that the picture is turned")},
    {Code::CopyTouched, QT_TRANSLATE_NOOP("zokit", "%1 copy leaves the track as it is, but another setting changes it. Leave out one of the two.")},
    {Code::OtherRotationLost, QT_TRANSLATE_NOOP("zokit", "%1 cannot say that track %2 is turned; players will show it lying. Take mp4 or mov.")},
    {Code::RotationLost, QT_TRANSLATE_NOOP("zokit", "%1 cannot say that the picture is turned; players will show it lying. Leave out video-codec copy, or take mp4.")},
    {Code::HdrMapped, QT_TRANSLATE_NOOP("zokit", "HDR is mapped to what every screen shows, since hardly any player shows it in %1. Take video-codec hevc to keep it.")},
    {Code::HdrDataLost, QT_TRANSLATE_NOOP("zokit", "What the clip says of the screen it was made on is lost in %1. Take video-codec hevc to keep it.")},
    {Code::PixelFormatChanged, QT_TRANSLATE_NOOP("zokit", "%1 takes no %2; %3 is taken.")},
    {Code::PixelFormatNot, QT_TRANSLATE_NOOP("zokit", "%1 takes no pixel format %2. Take yuv420p, or source.")},
    {Code::OptionNotForCodec, QT_TRANSLATE_NOOP("zokit", "%1 means nothing to %2. Leave it out.")},
    {Code::DroppedAsOther, QT_TRANSLATE_NOOP("zokit", "other tracks are dropped")},
    {Code::CannotChangeSpeed, QT_TRANSLATE_NOOP("zokit", "it cannot follow the change of speed")},
    {Code::DataTrack, QT_TRANSLATE_NOOP("zokit", "data cannot be carried over")},
    {Code::NoSoundIn, QT_TRANSLATE_NOOP("zokit", "%1 has no sound. Choose another file.")},
    {Code::NoPictureToBurn, QT_TRANSLATE_NOOP("zokit", "The clip has no picture to burn subtitles into. Use --soft-subtitles, or leave them out.")},
    {Code::TitlesLost, QT_TRANSLATE_NOOP("zokit", "%1 keeps no titles of tracks. Take mkv to keep them.")},
    {Code::TrackChosen, QT_TRANSLATE_NOOP("zokit", "track %1 (%2): %3")},
    {Code::TrackNotChosen, QT_TRANSLATE_NOOP("zokit", "track %1 (%2): not chosen")},
    {Code::TrackCopied, QT_TRANSLATE_NOOP("zokit", "track %1 (%2): copied")},
    {Code::TrackAttached, QT_TRANSLATE_NOOP("zokit", "track %1 (%2): copied as an attachment")},
    {Code::TrackBurnedIn, QT_TRANSLATE_NOOP("zokit", "track %1 (%2): burned in")},
    {Code::TrackLeftOut, QT_TRANSLATE_NOOP("zokit", "track %1 (%2): left out, because %3")},
    {Code::TrackEncoded, QT_TRANSLATE_NOOP("zokit", "track %1 (%2): converted to %3")},
    {Code::TrackEncodedBecause, QT_TRANSLATE_NOOP("zokit", "track %1 (%2): converted to %3, because %4")},
    {Code::TrackDeinterlaced, QT_TRANSLATE_NOOP("zokit", "track %1 (%2): deinterlaced and converted to %3")},
    {Code::TrackDeinterlacedBecause, QT_TRANSLATE_NOOP("zokit", "track %1 (%2): deinterlaced and converted to %3, because %4")},
    {Code::Rescaled, QT_TRANSLATE_NOOP("zokit", "The settings are for %1, the clip has %2: what is measured in the frame was rescaled.")},
    {Code::TrimPastEnd, QT_TRANSLATE_NOOP("zokit", "The part was to end at %1 s. The clip ends at %2 s, and the part with it.")},
    {Code::TrimBehindEnd, QT_TRANSLATE_NOOP("zokit", "The part begins at %1 s, and the clip ends at %2 s. Give an earlier one.")},
    {Code::CutAtKeyFrame, QT_TRANSLATE_NOOP("zokit", "The picture begins at %1 s instead of %2 s: a copy is cut at key frames. Leave out video-codec copy to cut it exactly.")},
    {Code::NoKeyFrame, QT_TRANSLATE_NOOP("zokit", "From %1 s on there is no key frame with which a copy could begin. Leave out video-codec copy.")},
    {Code::StyleInAss, QT_TRANSLATE_NOOP("zokit", "its style is kept in that form alone")},
    {Code::StyleLost, QT_TRANSLATE_NOOP("zokit", "%1 keeps no style of subtitles. Take mkv to keep it, or burn them in.")},
    {Code::NoSubtitleLines, QT_TRANSLATE_NOOP("zokit", "The subtitles hold no line.")},
    {Code::NotMeasured, QT_TRANSLATE_NOOP("zokit", "The peak of the sound could not be measured. Leave Audio_Normalize out.")},
    {Code::OutputExists, QT_TRANSLATE_NOOP("zokit", "%1 exists. Add --existing skip or --existing replace.")},
    {Code::OutputIsInput, QT_TRANSLATE_NOOP("zokit", "%1 is the input itself. Give another output.")},
    {Code::OutputIsFolder, QT_TRANSLATE_NOOP("zokit", "%1 is a folder. Give the name of a file, or use --output-folder.")},
    {Code::OutputNotAFile, QT_TRANSLATE_NOOP("zokit", "%1 is no ordinary file. Give another output.")},
    {Code::ForeignPart, QT_TRANSLATE_NOOP("zokit", "%1 was left by another computer more than a day ago. Remove it if nothing runs there.")},
    {Code::ChildFailed, QT_TRANSLATE_NOOP("zokit", "%1 failed: %2")},
    {Code::ChildStalled, QT_TRANSLATE_NOOP("zokit", "There was no progress for %1 s. Check the disk, or give --stall a larger number.")},
    {Code::ResultUnreadable, QT_TRANSLATE_NOOP("zokit", "The result cannot be read: %1")},
    {Code::ResultStreams, QT_TRANSLATE_NOOP("zokit", "The result should hold %1, and holds %2. It was not kept.")},
    {Code::ResultShort, QT_TRANSLATE_NOOP("zokit", "The result has %1 s of %2 s.")},
    {Code::DamageTold, QT_TRANSLATE_NOOP("zokit", "The input is damaged; what could be read was converted. ffmpeg says: %1")},
    {Code::DamageStrict, QT_TRANSLATE_NOOP("zokit", "The input is damaged, and --strict does not allow that. Leave it out to convert what can be read.")},
    {Code::Cancelled, QT_TRANSLATE_NOOP("zokit", "Cancelled.")},
    {Code::NothingToConvert, QT_TRANSLATE_NOOP("zokit", "There is neither picture nor sound to convert. Choose another file.")},
    {Code::NoSoundInLanguage, QT_TRANSLATE_NOOP("zokit", "No audio track is in %1.| Ask for a language that the clip has: %2.")},
    {Code::NoSubtitleInLanguage, QT_TRANSLATE_NOOP("zokit", "No subtitle is in %1.| Ask for a language that the clip has: %2.")},
    {Code::SoundUnknown, QT_TRANSLATE_NOOP("zokit", "its sample rate is not known")},
    {Code::CodecUnknown, QT_TRANSLATE_NOOP("zokit", "ffmpeg does not know its codec")},
    {Code::LettersNotUtf8, QT_TRANSLATE_NOOP("zokit", "its letters are not in UTF-8")},
    {Code::SubtitleNotDrawn, QT_TRANSLATE_NOOP("zokit", "Track %1 holds %2, which ffmpeg cannot draw. Choose another track, or leave it soft.")},
    {Code::StepChange,       QT_TRANSLATE_NOOP("zokit", "change %1")},
    {Code::StepSelect,       QT_TRANSLATE_NOOP("zokit", "switch %1")},
    {Code::StepAdd,          QT_TRANSLATE_NOOP("zokit", "add %1")},
    {Code::StepRemove,       QT_TRANSLATE_NOOP("zokit", "remove %1")},
    {Code::StepMove,         QT_TRANSLATE_NOOP("zokit", "move %1")},
    {Code::StepAddFile,      QT_TRANSLATE_NOOP("zokit", "add a file")},
    {Code::StepRemoveFile,   QT_TRANSLATE_NOOP("zokit", "remove a file")},
    {Code::StepDefault,      QT_TRANSLATE_NOOP("zokit", "change a saved default")},
    {Code::StepApply,        QT_TRANSLATE_NOOP("zokit", "apply to %1 files")},
    {Code::StepApplyToOne,   QT_TRANSLATE_NOOP("zokit", "apply to one file")},
    {Code::StepMany,         QT_TRANSLATE_NOOP("zokit", "change %1 values")},
    {Code::NotAChoice,       QT_TRANSLATE_NOOP("zokit", "%1: %2 is none of %3.| Did you mean %4?")},
};
// clang-format on

QString textOf(Code code)
{
    const auto* found =
        std::find_if(std::begin(texts), std::end(texts), [code](const Text& t) { return t.code == code; });
    return found == std::end(texts) ? QString() : QCoreApplication::translate("zokit", found->text);
}

/// \a text with its places filled, in one pass: a word that holds "%1" stays as it is.
QString filled(const QString& text, const QStringList& arguments)
{
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        const bool isPlace = text.at(i) == QLatin1Char('%') && i + 1 < text.size() && text.at(i + 1).isDigit();
        if (!isPlace) {
            result += text.at(i);
            continue;
        }
        result += onOneLine(arguments.value(text.at(++i).digitValue() - 1));
    }
    return result;
}

/// What a step is about: it is kept as "Color:bcs_contrast" or "Color" and said as people call that, in the language of
/// the moment. A host or an older journal gives words of its own.
QStringList named(QStringList words)
{
    if (!words.isEmpty()) {
        const QString thing = words.first();
        const QString key = thing.section(QLatin1Char(':'), 1);
        const Property* known = findProperty(thing.section(QLatin1Char(':'), 0, 0), key);
        if (known)
            words.first() = known->label();
        else if (key == QLatin1String("anchor")) // The kit's own, and no property of the library.
            words.first() = QCoreApplication::translate("zokit", "Anchor");
        else
            words.first() = areOfOneItem(words) ? singularName(thing) : displayName(thing);
    }
    return words;
}

bool isAboutAThing(Code code)
{
    return code == Code::StepChange || code == Code::StepSelect || code == Code::StepAdd || code == Code::StepRemove
           || code == Code::StepMove;
}

/// Whether its last word is one of the kit's, to be said in the language of the moment.
bool endsInAWord(Code code)
{
    return code == Code::MemberType || code == Code::JsonSyntax;
}

/// How many letters have to be changed, added or left out to make \a b of \a a.
int distance(const QString& a, const QString& b)
{
    QVector<int> row(static_cast<int>(b.size()) + 1);
    for (int j = 0; j < row.size(); ++j)
        row[j] = j;
    for (int i = 0; i < a.size(); ++i) {
        int diagonal = row[0];
        row[0] = i + 1;
        for (int j = 0; j < b.size(); ++j) {
            const int replaced = diagonal + (a.at(i) == b.at(j) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.last();
}

} // namespace

Message::Message(Code code, QStringList arguments) : m_code(code), m_arguments(std::move(arguments)) {}

Message::Message(Code code, QStringList arguments, const Message& inner)
    : m_code(code), m_arguments(std::move(arguments)), m_inner(std::make_shared<const Message>(inner))
{
}

Message::Code Message::code() const
{
    return m_code;
}

QStringList Message::arguments() const // NOLINT(misc-no-recursion): messages nest
{
    return m_inner ? m_arguments + QStringList{m_inner->text()} : m_arguments;
}

Message Message::inner() const
{
    return m_inner ? *m_inner : Message();
}

bool Message::isEmpty() const
{
    return m_code == Code::None;
}

/// What stands behind "|" is said only when its last place has a word: the nearest name.
QString Message::text() const // NOLINT(misc-no-recursion): as above
{
    const QString whole = textOf(m_code);
    QStringList words = isAboutAThing(m_code) ? named(m_arguments) : arguments();
    if (endsInAWord(m_code) && !words.isEmpty())
        words.last() = QCoreApplication::translate("zokit", words.last().toUtf8().constData());
    const int optional = static_cast<int>(whole.indexOf(QLatin1Char('|')));
    if (optional < 0)
        return filled(whole, words);
    const QString always = filled(whole.left(optional), words);
    const QString wordMissing = words.value(words.size() - 1);
    return wordMissing.isEmpty() ? always : always + filled(whole.mid(optional + 1), words);
}

bool operator==(const Message& left, const Message& right)
{
    return left.code() == right.code() && left.arguments() == right.arguments();
}

bool useLanguage(const QLocale& locale)
{
    static QPointer<QTranslator> german; // The application's child, and gone with it.
    delete german.data();
    if (locale.language() != QLocale::German)
        return true;
    QCoreApplication* application = QCoreApplication::instance();
    if (!application)
        return false;
    german = new QTranslator(application);
    const bool isLoaded = german->load(QStringLiteral(":/zokit/zokit_de.qm"));
    return isLoaded && QCoreApplication::installTranslator(german);
}

QString onOneLine(const QString& text)
{
    const auto spelled = [](QChar letter, int digits) {
        return QString::number(letter.unicode(), 16).rightJustified(digits, QLatin1Char('0'));
    };
    QString result;
    for (const QChar letter : text) {
        const ushort code = letter.unicode();
        const bool turns = (code >= 0x202a && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069) || code == 0x200e
                           || code == 0x200f;
        if (code == '\n')
            result += QLatin1String("\\n");
        else if (code == '\t')
            result += QLatin1String("\\t");
        else if (letter.category() == QChar::Other_Control)
            result += QLatin1String("\\x") + spelled(letter, 2);
        else if (turns || letter.category() == QChar::Separator_Line || letter.category() == QChar::Separator_Paragraph)
            result += QLatin1String("\\u") + spelled(letter, 4);
        else
            result += letter;
    }
    return result;
}

QString sizeText(const QSize& size)
{
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}

QString nearest(const QString& word, const QStringList& candidates)
{
    constexpr int longest = 64; // Nobody misspells a novel.
    if (word.size() > longest)
        return QString();
    QString best;
    int bestDistance = std::max(2, static_cast<int>(word.size()) / 3) + 1;
    for (const QString& candidate : candidates) {
        const int d = distance(word.toLower(), candidate.toLower());
        if (d < bestDistance && d < word.size()) {
            bestDistance = d;
            best = candidate;
        }
    }
    // "contrast" for "bcs_contrast".
    constexpr int shortestPart = 4;
    if (best.isEmpty() && word.size() >= shortestPart) {
        const auto whole = std::find_if(candidates.cbegin(), candidates.cend(), [&](const QString& candidate) {
            return candidate.contains(word, Qt::CaseInsensitive);
        });
        best = whole == candidates.cend() ? QString() : *whole;
    }
    return best;
}

Message missingFile(const QString& path)
{
    const QFileInfo info(path);
    const QString near = nearest(info.fileName(), info.dir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot));
    const auto folder = path.lastIndexOf(QLatin1Char('/')) + 1;
    return Message(Message::Code::FileMissing, {path, near.isEmpty() ? near : path.left(folder) + near});
}

} // namespace zokit
