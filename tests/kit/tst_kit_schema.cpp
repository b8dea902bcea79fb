// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <zokit/presets.h>
#include <zokit/project.h>
#include <zokit/schema.h>
#include <zokit/settingsfile.h>

#include "kitsupport.h"
#include "randomedits.h"
#include "testapplication.h"

using namespace kitsupport;
using zokit::schema;
using zokit::SchemaOf;

class TestKitSchema : public QObject {
    Q_OBJECT

private slots:
    void oneValue_data();
    void oneValue();
    void typesHaveTheirKeys_data();
    void typesHaveTheirKeys();
    void presetsHaveNoTrim();
    void textsAreTranslated();
    void filesAreJudgedAsByTheReader();
    void whatIsWrittenIsTaken();
};

namespace {

struct Document {
    const char* name;
    SchemaOf kind;
    const char* json;
    bool taken;
};

// clang-format off
const Document documents[] = {
    {"empty", SchemaOf::Settings, R"({"zoeffect": 1})", true},
    {"by-hand", SchemaOf::Settings, R"({
        "zoeffect": 1, "media": {"file": "clip.mkv", "width": 1280, "height": 720, "seconds": 5.0},
        "effects": [
            {"type": "Crop", "selected": true, "values": {"crop_left": 96, "crop_width": "source_val"}},
            {"type": "Watermark", "selected": true, "values": {}, "items": [
                {"selected": true, "values": {"wm_istextwatermark": true, "wm_textcontent": "Hello",
                    "wm_fontcolor": "white", "wm_fontname": {"family": "DejaVu Sans", "italic": true}},
                 "anchor": {"corner": "bottom-right", "margin": "2%"}}]},
            {"type": "Effect", "items": [{"name": "Sepia", "selected": true}]}],
        "tracks": {"audio-language": ["fra", "eng"]},
        "output": {"container": "mkv", "video-codec": "hevc", "quality": 22, "trim": [12.0, 40.5], "size": "640x360"}})", true},
    {"no-version", SchemaOf::Settings, R"({"effects": []})", false},
    {"newer-version", SchemaOf::Settings, R"({"zoeffect": 2})", false},
    {"unknown-type", SchemaOf::Settings, R"({"zoeffect": 1, "effects": [{"type": "Colour"}]})", false},
    {"unknown-key", SchemaOf::Settings, R"({"zoeffect": 1, "effects": [{"type": "Color", "values": {"contrast": 5}}]})", false},
    {"hosts-own-key", SchemaOf::Settings, R"({"zoeffect": 1, "effects": [{"type": "Color", "values": {"contrast": {"int": 5}}}]})", true},
    {"hosts-own-member", SchemaOf::Settings, R"({"zoeffect": 1, "effects": [{"type": "Color", "x-panel": [1, 2]}]})", true},
    {"unknown-member", SchemaOf::Settings, R"({"zoeffect": 1, "effects": [{"type": "Color", "panel": 1}]})", false},
    {"later-member", SchemaOf::Settings, R"({"zoeffect": 1, "chapters": []})", true},
    {"other-type-wrapped", SchemaOf::Settings, R"({"zoeffect": 1, "effects": [{"type": "Color", "values": {"bcs_contrast": {"double": 5}}}]})", true},
    {"no-whole-number", SchemaOf::Settings, R"({"zoeffect": 1, "effects": [{"type": "Color", "values": {"bcs_contrast": 5.5}}]})", false},
    {"whole-number-as-20.0", SchemaOf::Settings, R"({"zoeffect": 1, "effects": [{"type": "Color", "values": {"bcs_contrast": 20.0}}]})", true},
    {"above-the-bound", SchemaOf::Settings, R"({"zoeffect": 1, "effects": [{"type": "Color", "values": {"bcs_contrast": 51}}]})", false},
    {"rescaled-font-size", SchemaOf::Settings, R"({"zoeffect": 1, "effects": [{"type": "Watermark", "items": [{"values": {"wm_fontsize": 200}}]}]})", true},
    {"no-choice", SchemaOf::Settings, R"({"zoeffect": 1, "effects": [{"type": "Audio_BandPass", "values": {"audio_bandpass_type": 4}}]})", false},
    {"no-colour", SchemaOf::Settings, R"({"zoeffect": 1, "effects": [{"type": "Watermark", "items": [{"values": {"wm_fontcolor": "#12345"}}]}]})", false},
    {"items-of-none", SchemaOf::Settings, R"({"zoeffect": 1, "effects": [{"type": "Crop", "items": []}]})", false},
    {"unknown-frame-effect", SchemaOf::Settings, R"({"zoeffect": 1, "effects": [{"type": "Effect", "items": [{"name": "Sephia"}]}]})", false},
    {"anchor-of-a-track", SchemaOf::Settings, R"({"zoeffect": 1, "effects": [{"type": "Audio", "items": [{"anchor": {"corner": "top"}}]}]})", false},
    {"unknown-corner", SchemaOf::Settings, R"({"zoeffect": 1, "effects": [{"type": "Watermark", "items": [{"anchor": {"corner": "middle"}}]}]})", false},
    {"unknown-option", SchemaOf::Settings, R"({"zoeffect": 1, "output": {"codec": "h264"}})", false},
    {"option-of-one-run", SchemaOf::Settings, R"({"zoeffect": 1, "output": {"jobs": 2}})", false},
    {"no-codec", SchemaOf::Settings, R"({"zoeffect": 1, "output": {"video-codec": "mpeg2"}})", false},
    {"no-size", SchemaOf::Settings, R"({"zoeffect": 1, "output": {"size": "large"}})", false},
    {"half-a-range", SchemaOf::Settings, R"({"zoeffect": 1, "output": {"trim": [12.0]}})", false},
    {"unknown-rule", SchemaOf::Settings, R"({"zoeffect": 1, "tracks": {"language": ["fra"]}})", false},
    {"negative-frame", SchemaOf::Settings, R"({"zoeffect": 1, "media": {"width": -1, "height": 720}})", false},
    {"preset", SchemaOf::Preset, R"({"zoeffect": 1, "base": {"width": 1280, "height": 720}, "effects": [{"type": "Color", "values": {"bcs_contrast": 5}}]})", true},
    {"preset-of-a-clip", SchemaOf::Preset, R"({"zoeffect": 1, "media": {"file": "clip.mkv"}})", false},
    {"preset-with-trim", SchemaOf::Preset, R"({"zoeffect": 1, "output": {"trim": [12.0, 40.5]}})", false},
};
// clang-format on

/// The part of a schema behind "/", a name or a number after the other.
QJsonValue part(SchemaOf what, const QString& path)
{
    QJsonValue found = schema(what);
    for (const QString& name : path.split(QLatin1Char('/')))
        found = found.isArray() ? found.toArray().at(name.toInt()) : found.toObject().value(name);
    return found;
}

void write(const QString& path, const QByteArray& text)
{
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
    QCOMPARE(file.write(text), qint64(text.size()));
}

/// What an independent validator says of the files NAME.json of a folder, a line a file.
QString judged(SchemaOf kind, const QTemporaryDir& folder, const QStringList& names)
{
    const QString schemaFile = folder.filePath(QStringLiteral("schema of files.json"));
    write(schemaFile, QJsonDocument(schema(kind)).toJson());
    QStringList arguments{QStringLiteral(ZOKIT_VALIDATOR), schemaFile};
    for (const QString& name : names)
        arguments.append(folder.filePath(name + QStringLiteral(".json")));
    QProcess validator;
    validator.setProcessChannelMode(QProcess::MergedChannels);
    validator.start(QStringLiteral("/usr/bin/python3"), arguments); // Debian's own, which has the package.
    if (!validator.waitForFinished(120000))
        return validator.errorString();
    return QString::fromUtf8(validator.readAll());
}

} // namespace

void TestKitSchema::oneValue_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("expected");

    const auto row = [](const char* name, SchemaOf kind, const char* path, const char* expected) {
        QTest::newRow(name) << int(kind) << QString::fromLatin1(path) << QByteArray(expected);
    };
    row("a whole number with bounds", SchemaOf::Catalogue, "properties/Color/properties/bcs_contrast",
        R"({"title": "Contrast", "type": "integer", "minimum": -50, "maximum": 50, "default": 0, "description":
            "0 leaves the picture as it is, -50 halves the contrast, 50 adds half of it."})");
    row("a number", SchemaOf::Catalogue, "properties/Watermark/properties/wm_transfactor",
        R"({"title": "Strength of full opacity", "type": "number", "minimum": 0, "maximum": 2.55, "default": 2.55,
            "description": "Opacity in percent times this is the alpha value. 2.55 reaches full opacity."})");
    row("a bound by the frame, a unit, a word for a number", SchemaOf::Catalogue,
        "properties/Crop/properties/crop_width",
        R"({"title": "Width", "anyOf": [{"type": "integer", "minimum": 1, "x-maximum": "frame width"},
            {"const": "source_val"}], "default": "source_val", "x-unit": "px", "description":
            "Width of the part that is kept. Until it is set, the whole frame."})");
    row("choices", SchemaOf::Catalogue, "properties/Audio_BandPass/properties/audio_bandpass_type",
        R"({"title": "Kind", "type": "integer", "enum": [0, 1, 2, 3], "default": 2, "description":
            "What is kept: below the frequency, above it, around it, or all but that."})");
    row("a font", SchemaOf::Catalogue, "properties/Subtitle/properties/sub_fontname",
        R"({"title": "Font", "anyOf": [{"type": "string", "pattern": "."}, {"type": "object", "required": ["family"]}],
            "default": "Tahoma", "description": "Family of the letters."})");
    row("a key without a default", SchemaOf::Catalogue, "properties/Audio/properties/file",
        R"({"title": "Sound file", "type": "string", "description": "The file with the sound."})");
    row("in a file a value may be wrapped", SchemaOf::Settings, "$defs/Color/properties/bcs_saturation",
        R"({"title": "Saturation", "anyOf": [{"type": "integer", "minimum": -50, "maximum": 50},
            {"$ref": "#/$defs/wrapped"}], "default": 0, "description":
            "0 leaves the colours as they are, -50 takes them away, 50 doubles them."})");
    row("in a file geometry has no bounds", SchemaOf::Settings, "$defs/Watermark/properties/wm_hposition",
        R"({"title": "Left", "anyOf": [{"type": "integer"}, {"$ref": "#/$defs/wrapped"}], "default": 30,
            "x-unit": "px", "description": "Distance from the left of the frame, before cropping."})");
    row("corners", SchemaOf::Settings,
        "properties/effects/items/oneOf/1/properties/items/items/properties/anchor/properties/corner",
        R"({"enum": ["top-left", "top", "top-right", "left", "centre", "right", "bottom-left", "bottom", "bottom-right"]})");
    row("an output option", SchemaOf::Settings, "properties/output/properties/hdr",
        R"({"title": "HDR", "type": "string", "enum": ["keep", "map"], "description":
            "Kept, or mapped to what every screen shows."})");
    row("a rule for tracks", SchemaOf::Preset, "properties/tracks/properties/sidecars",
        R"({"title": "Files beside the clip", "type": "boolean", "description":
            "Subtitle files of the clip's name count as tracks."})");
}

void TestKitSchema::oneValue()
{
    QFETCH(int, kind);
    QFETCH(QString, path);
    QFETCH(QByteArray, expected);
    QJsonParseError error{};
    // A description may go over two lines here.
    const QJsonDocument document = QJsonDocument::fromJson(expected.simplified(), &error);
    QCOMPARE(error.errorString(), QStringLiteral("no error occurred"));
    const QJsonObject found = part(static_cast<SchemaOf>(kind), path).toObject();
    QVERIFY2(found == document.object(), QJsonDocument(found).toJson().constData());
}

void TestKitSchema::typesHaveTheirKeys_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("count");

    QTest::newRow("crop") << key("Crop") << 9;
    QTest::newRow("colour") << key("Color") << 3;
    QTest::newRow("fades") << key("Audio_Fade_Inout") << 5;
    QTest::newRow("flanger") << key("Audio_Flanger") << 6;
}

void TestKitSchema::typesHaveTheirKeys()
{
    QFETCH(QString, type);
    QFETCH(int, count);
    const QString values = type + QStringLiteral("/properties");
    QCOMPARE(part(SchemaOf::Catalogue, QStringLiteral("properties/") + values).toObject().size(), count);
    QCOMPARE(part(SchemaOf::Settings, QStringLiteral("$defs/") + values).toObject().size(), count);
    QCOMPARE(part(SchemaOf::Catalogue, key("properties")).toObject().size(), 13);
}

void TestKitSchema::presetsHaveNoTrim()
{
    const QString options = QStringLiteral("properties/output/properties");
    QStringList inSettings = part(SchemaOf::Settings, options).toObject().keys();
    QVERIFY(inSettings.removeOne(QStringLiteral("trim")));
    QCOMPARE(part(SchemaOf::Preset, options).toObject().keys(), inSettings);
}

void TestKitSchema::textsAreTranslated()
{
    const QString path = QStringLiteral("properties/Color/properties/bcs_contrast/title");
    QVERIFY(zokit::useLanguage(QLocale(QLocale::German)));
    QCOMPARE(part(SchemaOf::Catalogue, path).toString(), QStringLiteral("Kontrast"));
    QVERIFY(zokit::useLanguage(QLocale(QLocale::English)));
    QCOMPARE(part(SchemaOf::Catalogue, path).toString(), QStringLiteral("Contrast"));
}

void TestKitSchema::filesAreJudgedAsByTheReader()
{
    const QTemporaryDir folder;
    for (const SchemaOf kind : {SchemaOf::Settings, SchemaOf::Preset}) {
        QStringList names;
        QString expected;
        for (const Document& document : documents) {
            if (document.kind != kind)
                continue;
            const QString name = QString::fromLatin1(document.name);
            const auto read = kind == SchemaOf::Preset ? zokit::readPreset(document.json, QString())
                                                       : zokit::readSettings(document.json, QString());
            QVERIFY2(read.settings.has_value() == document.taken,
                     qPrintable(name + QStringLiteral(": the reader: ") + read.error.text()));
            write(folder.filePath(name + QStringLiteral(".json")), document.json);
            names.append(name);
            expected += name + (document.taken ? QStringLiteral(" valid\n") : QStringLiteral(" refused\n"));
        }
        QCOMPARE(judged(kind, folder, names), expected);
    }
}

void TestKitSchema::whatIsWrittenIsTaken()
{
    clearSavedDefaults();
    const QTemporaryDir folder;
    QRandomGenerator random(20261122);
    QStringList settings;
    QStringList presets;
    constexpr int projects = 5;
    for (int i = 0; i < projects; ++i) {
        zokit::Project project;
        constexpr int edits = 100;
        for (int edit = 0; edit < edits; ++edit)
            kitsupport::randomEdit(project, random);
        for (const zokit::FileSettings* file : project.files()) {
            settings.append(QStringLiteral("settings%1").arg(settings.size()));
            presets.append(QStringLiteral("preset%1").arg(presets.size()));
            const QString ending = QStringLiteral(".json");
            write(folder.filePath(settings.last() + ending), zokit::writeSettings(file->settings(), QString()));
            write(folder.filePath(presets.last() + ending),
                  zokit::writePreset(zokit::presetFrom(file->settings(), {}), QString()));
        }
    }
    clearSavedDefaults();
    QVERIFY(settings.size() > projects);
    QCOMPARE(judged(SchemaOf::Settings, folder, settings),
             settings.join(QStringLiteral(" valid\n")) + QStringLiteral(" valid\n"));
    QCOMPARE(judged(SchemaOf::Preset, folder, presets),
             presets.join(QStringLiteral(" valid\n")) + QStringLiteral(" valid\n"));
}

ZOEFFECT_TEST_MAIN(TestKitSchema)
#include "tst_kit_schema.moc"
