// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "request.h"

#include "console.h"

#include <QCommandLineParser>
#include <QHash>
#include <QRegularExpression>

namespace {

/// The parser knows the options; what their values mean is told below.
void describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        "Shows what the effect settings of a media file look like: writes watermark.png, the watermarks on a\n"
        "transparent picture, and preview.png, a frame of the clip with the crop outlined, the rest dimmed and\n"
        "the watermarks on top.");
    parser.addPositionalArgument("CLIP", "A file that ffmpeg reads and that has a picture.", "CLIP");
    parser.addOptions({
        {"text", "Adds a text watermark.", "TEXT"},
        {"image", "Adds an image watermark.", "FILE"},
        {"crop", "Crops the picture; each length in pixels, or in percent of the frame with a \"%\".", "X,Y,W,H"},
        {"subtitle", "Adds a subtitle file as a track, and chooses it.", "FILE"},
        {"set",
         "Sets any property: of an item (Watermark:0:wm_fontsize=30; Effect:4:_checkstate=true) or of a type "
         "(Color:bcs_contrast=20).",
         "TYPE[:POS]:KEY=VALUE"},
        {"audio-tracks", "Chooses embedded audio tracks by their stream numbers.", "N[,N...]"},
        {"subtitle-track", "Chooses an embedded subtitle track by its stream number.", "N"},
        {"save-default", "Makes the settings of an item the default of its type, also for later runs.", "TYPE:POS"},
        {"forget-default", "Forgets the saved default of a type before anything else.", "TYPE"},
        {"time", "Shows the frame at this time instead of one near the beginning.", "SECONDS"},
        {"size", "Shows the same settings at another frame size.", "WxH"},
        {"output", "Where the two pictures go; the current folder when not given.", "FOLDER"},
        {"timeout",
         QString("How long to wait for ffprobe and ffmpeg; %1 when not given.").arg(Request::defaultPatience),
         "SECONDS"},
        {"trace", "Prints each signal of the models as it comes."},
        {"help", "Prints this."},
    });
}

/// The parts of \a value that the groups of \a pattern match, from 1 on.
QStringList partsOf(const QString& option, const QString& value, const QString& pattern, const QString& form)
{
    const QRegularExpression expression(QRegularExpression::anchoredPattern(pattern),
                                        QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = expression.match(value);
    if (!match.hasMatch())
        throw wrongUsage(QString("--%1 takes %2, not \"%3\"").arg(option, form, value));
    QStringList parts;
    for (int i = 0; i <= expression.captureCount(); ++i)
        parts << match.captured(i);
    return parts;
}

Length lengthFrom(QString text)
{
    const bool isPercent = text.endsWith('%');
    if (isPercent)
        text.chop(1);
    return {text.toDouble(), isPercent};
}

/// A missing position is the type itself.
int positionFrom(const QString& text)
{
    return text.isEmpty() ? -1 : text.toInt();
}

/// One option that changes the settings, as the change that it asks for. Null for any other option.
std::function<void(FileSettings&)> editFrom(const QString& option, const QString& value, int patience)
{
    if (option == "text")
        return [=](FileSettings& settings) { addTextWatermark(settings, value); };
    if (option == "image")
        return [=](FileSettings& settings) { addImageWatermark(settings, value); };
    if (option == "crop") {
        const QString length = R"((\d{1,5}(?:\.\d{1,5})?%|\d{1,5}))";
        const QStringList parts = partsOf(option, value, QStringList{length, length, length, length}.join(','),
                                          "X,Y,W,H in pixels or percent");
        const CropWish wish{lengthFrom(parts[1]), lengthFrom(parts[2]), lengthFrom(parts[3]), lengthFrom(parts[4])};
        return [=](FileSettings& settings) { cropPicture(settings, wish); };
    }
    if (option == "subtitle")
        return [=](FileSettings& settings) { addSubtitleFile(settings, value, patience); };
    if (option == "set") {
        const QStringList parts =
            partsOf(option, value, R"(([^:=]+)(?::(\d{1,9}))?:([^:=]+)=(.*))", "TYPE[:POS]:KEY=VALUE");
        return
            [=](FileSettings& settings) { setValue(settings, parts[1], positionFrom(parts[2]), parts[3], parts[4]); };
    }
    if (option == "audio-tracks") {
        const QStringList texts = partsOf(option, value, R"(\d{1,9}(,\d{1,9})*)", "stream numbers").at(0).split(',');
        QList<int> ids;
        for (const QString& text : texts)
            ids << text.toInt();
        return [=](FileSettings& settings) { chooseTracks(settings, "Audio", ids); };
    }
    if (option == "subtitle-track") {
        const int id = partsOf(option, value, R"(\d{1,9})", "a stream number").at(0).toInt();
        return [=](FileSettings& settings) { chooseTracks(settings, "Subtitle", {id}); };
    }
    if (option == "save-default") {
        const QStringList parts = partsOf(option, value, R"(([^:]+)(?::(\d{1,9}))?)", "TYPE:POS");
        return [=](FileSettings& settings) { saveDefault(settings, parts[1], positionFrom(parts[2])); };
    }
    return nullptr;
}

/// The options that ask for anything else.
void takeIn(Request& request, const QString& option, const QString& value)
{
    if (option == "forget-default") {
        request.defaultsToForget << value;
    } else if (option == "time") {
        request.seconds = partsOf(option, value, R"(\d{1,9}(\.\d{1,9})?)", "seconds").at(0).toDouble();
    } else if (option == "size") {
        const QStringList parts = partsOf(option, value, R"((\d{1,5})x(\d{1,5}))", "WxH");
        request.size = QSize(parts[1].toInt(), parts[2].toInt());
        if (!isPossible(request.size))
            throw wrongUsage("--size: a picture of " + value + " cannot be made");
    } else if (option == "output") {
        request.folder = value;
    } else if (option == "timeout") {
        request.patience = partsOf(option, value, R"([1-9]\d{0,4})", "whole seconds").at(0).toInt();
    } else if (option == "trace") {
        request.trace = true;
    } else if (option == "help") {
        request.helpWanted = true;
    }
}

} // namespace

bool isPossible(QSize size)
{
    constexpr int maxSide = 16384;
    constexpr qint64 maxPixels = 100'000'000;
    return !size.isEmpty() && size.width() <= maxSide && size.height() <= maxSide
           && qint64(size.width()) * size.height() <= maxPixels;
}

Request requestFrom(const QStringList& arguments)
{
    QCommandLineParser parser;
    describe(parser);
    static const QRegularExpression fullStop(R"(\.$)");
    if (!parser.parse(arguments))
        throw wrongUsage(parser.errorText().remove(fullStop));

    Request request;
    if (parser.isSet("timeout"))
        takeIn(request, "timeout", parser.value("timeout"));
    QHash<QString, int> seen; // How many values of each option have been taken.
    const QStringList options = parser.optionNames();
    for (const QString& option : options) {
        const QString value = parser.values(option).value(seen[option]++);
        if (value.isEmpty() && option != "trace" && option != "help")
            throw wrongUsage("--" + option + ": its value is empty");
        if (const auto edit = editFrom(option, value, request.patience))
            request.edits << edit;
        else
            takeIn(request, option, value);
    }

    const QStringList clips = parser.positionalArguments();
    request.clip = clips.value(0);
    if (request.clip.isEmpty() && !request.helpWanted)
        throw wrongUsage("CLIP is missing");
    if (clips.size() > 1)
        throw wrongUsage("there is more than one CLIP: " + clips.join(", "));
    return request;
}

QString helpText()
{
    QCommandLineParser parser;
    describe(parser);
    return parser.helpText();
}
