// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Settings files and presets. The first byte tells what the others are: a whole file, a preset, the types of a file, or
// the values of a watermark in one.

#include <zokit/filesettings.h>
#include <zokit/settingsfile.h>

#include "bytes.h"
#include "runtime.h"
#include "session.h"

namespace {

const QString folder = QStringLiteral("/clips");

QByteArray fileWith(const QByteArray& types)
{
    return R"({"zoeffect": 1, "media": {"file": "clip.mkv", "width": 1280, "height": 720, "seconds": 5},
               "effects": [)"
           + types + "]}";
}

QByteArray watermarkWith(const QByteArray& values)
{
    return R"({"type": "Watermark", "selected": true, "values": {}, "items": [{"selected": true, "values": {)" + values
           + "}}]}";
}

void checkOutcome(const zokit::ReadSettings& read)
{
    require(read.settings.has_value() == read.error.isEmpty(), "a file gives settings or says why not");
    require(read.settings || !read.error.text().isEmpty(), "an error is a sentence");
    require(!read.error.text().contains(QLatin1Char('\n')), "an error is one line");
}

void readPreset(const QByteArray& text)
{
    const zokit::ReadSettings read = zokit::readPreset(text, folder);
    checkOutcome(read);
    if (!read.settings)
        return;
    const QByteArray written = zokit::writePreset(*read.settings, folder);
    const zokit::ReadSettings again = zokit::readPreset(written, folder);
    require(again.settings && *again.settings == *read.settings, "a preset that was written is read as it was");
    require(zokit::writePreset(*again.settings, folder) == written, "a preset is written the same again");
}

void readSettings(const QByteArray& text)
{
    const zokit::ReadSettings read = zokit::readSettings(text, folder);
    checkOutcome(read);
    if (!read.settings)
        return;
    const QByteArray written = zokit::writeSettings(*read.settings, folder);
    const zokit::ReadSettings again = zokit::readSettings(written, folder);
    require(again.settings && *again.settings == *read.settings, "settings that were written are read as they were");
    require(zokit::writeSettings(*again.settings, folder) == written, "settings are written the same again");
    const zokit::FileSettings file(*read.settings);
    const zokit::FileSettings copy(file.settings());
    require(copy.settings() == file.settings(), "a file with the settings of another has the same settings");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Session::instance();
    Bytes bytes(data, size);
    switch (bytes.below(4)) {
    case 0:
        readSettings(bytes.rest());
        break;
    case 1:
        readPreset(bytes.rest());
        break;
    case 2:
        readSettings(fileWith(bytes.rest()));
        break;
    default:
        readSettings(fileWith(watermarkWith(bytes.rest())));
        break;
    }
    return 0;
}
