// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

/// What users of other programs have complained about, re-enacted with the kit under the number of their report: what
/// a person expects there is what happens here.

#include <limits>

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <zokit/differences.h>
#include <zokit/history.h>
#include <zokit/journal.h>
#include <zokit/placement.h>
#include <zokit/presets.h>
#include <zokit/project.h>
#include <zokit/properties.h>
#include <zokit/settingsfile.h>

#include "kitsupport.h"
#include "testapplication.h"

using namespace kitsupport;
using zokit::FileSettings;
using zokit::Identity;
using zokit::Message;
using zokit::Presets;
using zokit::Project;
using zokit::Settings;
using zokit::State;
using zokit::Values;

class Regressions : public QObject {
    Q_OBJECT

private slots:
    void init() { clearSavedDefaults(); }

    void complaint_data();
    void complaint();
};

namespace {

QVariant colour(const FileSettings& file, const char* name)
{
    return file.value(file.type(key("Color")), key(name));
}

void setColour(FileSettings& file, const char* name, int value)
{
    QVERIFY(file.setValue(file.type(key("Color")), key(name), value).isEmpty());
}

Identity addText(FileSettings& file, const char* text)
{
    return file.insert(key("Watermark"), {{key("wm_textcontent"), key(text)}}).item;
}

void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The clip with one of everything that people set.
void setManyThings(FileSettings& file)
{
    setColour(file, "bcs_contrast", 12);
    file.setValues(
        file.type(key("Crop")),
        {{key("crop_left"), 10}, {key("crop_top"), 20}, {key("crop_width"), 600}, {key("crop_height"), 400}});
    addText(file, "Hello");
    file.insert(key("Watermark"), {{key("wm_imageurl"), logoPath(60, 40)},
                                   {key("anchor"), QVariantMap{{key("corner"), key("top-right")}}}});
    file.insert(key("Subtitle"), {{key("trackid"), 2}, {key("sub_fontsize"), 31}});
    file.setValue(file.item(key("Effect"), 3), key("selected"), true);
    file.move(file.item(key("Effect"), 3), 0);
    file.setValues(file.type(key("Audio_Echo")), {{key("audio_effect_flag"), true}, {key("audio_echo_delay"), 250}});
    file.setValues(file.tracks(), {{key("audio-language"), key("fra,eng")}});
    file.setValues(file.output(), {{key("quality"), 21}, {key("container"), key("mkv")}});
}

void untouchedFileHasNoMarkOfChange()
{
    for (const QSize& frame : {QSize(1280, 720), QSize(720, 576), QSize(1, 1)}) {
        FileSettings file(zokit::Media{QString(), frame, 1.0});
        addText(file, "Hello");
        for (const zokit::Property& property : zokit::properties()) {
            for (const Identity thing :
                 {file.thing({property.type, zokit::Address::ofType, property.key}), file.item(property.type, 0)}) {
                if (file.value(thing, property.key).isValid() && property.key != QLatin1String("wm_textcontent"))
                    QVERIFY2(file.state(thing, property.key) == State::Default, qPrintable(property.key));
            }
        }
    }
}

void valueSetBackHasNoMarkOfChange()
{
    FileSettings file(clip());
    const Identity color = file.type(key("Color"));
    setColour(file, "bcs_contrast", 5);
    QVERIFY(file.state(color, key("bcs_contrast")) == State::Changed);
    QVERIFY(!file.comesOutUnchanged());
    setColour(file, "bcs_contrast", 0);
    QVERIFY(file.state(color, key("bcs_contrast")) == State::Default);
    QVERIFY(file.comesOutUnchanged());
    Project project;
    FileSettings* one = project.add(clip());
    project.history().setClean();
    setColour(*one, "bcs_contrast", 5);
    QVERIFY(!project.history().isClean());
    project.history().undo();
    QVERIFY(project.history().isClean());
}

void settingsReachEveryFile()
{
    Project project;
    FileSettings* first = project.add(clip());
    setManyThings(*first);
    QVector<FileSettings*> others;
    for (int i = 0; i < 20; ++i)
        others.append(project.add(zokit::Media{QString(), QSize(1280, 720), 1.0}));
    QVERIFY(project.apply(first->settings(), others, {}).isEmpty());
    for (const FileSettings* other : others) {
        QCOMPARE(colour(*other, "bcs_contrast"), QVariant(12));
        QCOMPARE(other->items(key("Watermark")).size(), 2);
        QCOMPARE(other->value(other->output(), key("quality")), QVariant(21));
    }
}

void savedDefaultReachesEveryNewFile()
{
    Project project;
    FileSettings* first = project.add(clip());
    setColour(*first, "bcs_contrast", 12);
    QVERIFY(project.saveDefault(first->type(key("Color"))).isEmpty());
    for (int i = 0; i < 5; ++i)
        QCOMPARE(colour(*project.add(clip()), "bcs_contrast"), QVariant(12));
}

void exportHoldsEveryField()
{
    const QTemporaryDir folder;
    FileSettings file(clip());
    setManyThings(file);
    const Presets presets(folder.filePath(key("a")));
    const Settings preset = zokit::presetFrom(file.settings(), {});
    QVERIFY(presets.save(key("all"), preset).isEmpty());
    const QString exported = folder.filePath(key("all.zoeffect.json"));
    QVERIFY(presets.exportTo(key("all"), exported).isEmpty());
    const Presets elsewhere(folder.filePath(key("b")));
    QVERIFY(elsewhere.import({exported}).isEmpty());
    QVERIFY(zokit::differences(elsewhere.load(key("all")).preset, preset).isEmpty());
}

void importDestroysNoOther()
{
    const QTemporaryDir folder;
    const Presets presets(folder.filePath(key("presets")));
    Settings preset = zokit::presetFrom(FileSettings(clip()).settings(), {key("Color")});
    QVERIFY(presets.save(key("mine"), preset).isEmpty());
    const QByteArray before = content(presets.path(key("mine")));
    const QString same = folder.filePath(key("mine.zoeffect.json"));
    const QString other = folder.filePath(key("other.zoeffect.json"));
    preset.find(key("Color"))->values.insert(key("bcs_contrast"), 9);
    write(same, zokit::writePreset(preset, folder.path()));
    write(other, zokit::writePreset(preset, folder.path()));
    QCOMPARE(presets.import({other, same}).code(), Message::Code::PresetExists);
    QCOMPARE(presets.names(), QStringList{key("mine")});
    QCOMPARE(content(presets.path(key("mine"))), before);
}

void editedJobKeepsItsValues()
{
    FileSettings file(clip());
    setManyThings(file);
    const Settings before = file.settings();
    // A panel opens, reads all values, and writes them back as it shows them.
    for (const zokit::Property& property : zokit::properties()) {
        const Identity thing = file.thing({property.type, zokit::Address::ofType, property.key});
        const QVariant value = file.value(thing, property.key);
        if (value.isValid() && property.suits.testFlag(zokit::Suit::Type))
            QVERIFY2(file.setValue(thing, property.key, value).isEmpty(), qPrintable(property.key));
    }
    QVERIFY(file.settings() == before);
}

void reopenedJobKeepsItsValues()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(key("job.zoeffect.json"));
    FileSettings file(clip());
    setManyThings(file);
    QVERIFY(zokit::saveSettings(file.settings(), path).isEmpty());
    for (int time = 0; time < 3; ++time) {
        const zokit::ReadSettings read = zokit::loadSettings(path);
        QVERIFY(read.settings);
        FileSettings again(*read.settings);
        QVERIFY(again.settings() == file.settings());
        QVERIFY(zokit::saveSettings(again.settings(), path).isEmpty());
    }
}

void cropIsOfItsFileAlone()
{
    Project project;
    FileSettings* first = project.add(clip());
    first->setValues(first->type(key("Crop")), {{key("crop_width"), 100}, {key("crop_height"), 100}});
    const FileSettings* next = project.add(clip());
    QCOMPARE(next->value(next->type(key("Crop")), key("crop_width")), QVariant(key("source_val")));
    QCOMPARE(project.saveDefault(first->type(key("Crop"))).code(), Message::Code::NothingToSave);
    QVERIFY(next->comesOutUnchanged());
}

void switchingOffKeepsTheNumbers()
{
    FileSettings file(clip());
    setManyThings(file);
    for (const QString& type : zokit::effectTypes()) {
        const Settings before = file.settings();
        file.setValue(file.type(type), key("selected"), false);
        file.setValue(file.type(type), key("selected"), true);
        QVERIFY2(file.settings() == before, qPrintable(type));
    }
}

void modeOfTheCropChangesNoRectangle()
{
    FileSettings file(clip());
    const Identity crop = file.type(key("Crop"));
    file.setValues(
        crop, {{key("crop_left"), 11}, {key("crop_top"), 21}, {key("crop_width"), 601}, {key("crop_height"), 401}});
    Values expected = file.values(crop);
    for (const bool keeps : {false, true, false}) {
        file.setValue(crop, key("crop_keepaspectratio"), keeps);
        expected.insert(key("crop_keepaspectratio"), keeps);
        QCOMPARE(file.values(crop), expected);
    }
}

void invalidFileLeavesTheGoodOnes()
{
    const QTemporaryDir folder;
    const Presets presets(folder.filePath(key("presets")));
    const Settings preset = zokit::presetFrom(FileSettings(clip()).settings(), {key("Color")});
    QVERIFY(presets.save(key("good"), preset).isEmpty());
    write(presets.path(key("bad")), "{\"zoeffect\": 1, \"effects\": [");
    QCOMPARE(presets.names(), QStringList({key("bad"), key("good")}));
    QVERIFY(!presets.load(key("bad")).error.isEmpty());
    QVERIFY(presets.load(key("good")).error.isEmpty());
    QVERIFY(!presets.import({presets.path(key("bad"))}, true).isEmpty());
    QCOMPARE(content(presets.path(key("bad"))), QByteArray("{\"zoeffect\": 1, \"effects\": ["));
    QVERIFY(presets.load(key("good")).preset == preset);
}

void undoneStepsCanBeRedoneToTheEnd()
{
    Project project;
    FileSettings* file = project.add(clip());
    for (int value = 1; value <= 30; ++value)
        setColour(*file, "bcs_contrast", value);
    for (int i = 0; i < 30; ++i)
        project.history().undo();
    QCOMPARE(colour(*file, "bcs_contrast"), QVariant(0));
    for (int i = 0; i < 30; ++i)
        project.history().redo();
    QCOMPARE(colour(*file, "bcs_contrast"), QVariant(30));
}

void undoIsNeverHalf()
{
    Project project;
    FileSettings* file = project.add(clip());
    setManyThings(*file);
    const Settings before = file->settings();
    const int steps = project.history().position();
    QVERIFY(file->setMedia({QString(), QSize(640, 360), 1.0}).isEmpty());
    QCOMPARE(project.history().position(), steps + 1); // Crop, texts, logos and subtitles at once.
    project.history().undo();
    QVERIFY(file->settings() == before);
}

void removedItemComesBackWhole()
{
    Project project;
    FileSettings* file = project.add(clip());
    setManyThings(*file);
    const Settings before = file->settings();
    const Identity logo = file->item(key("Watermark"), 1);
    QVERIFY(file->remove(logo).isEmpty());
    project.history().undo();
    QVERIFY(file->settings() == before);
    QCOMPARE(file->item(key("Watermark"), 1), logo); // The same one: what a host keeps of it is still right.
    QVERIFY(file->setValue(logo, key("wm_transparency"), 30).isEmpty());
}

void noStepDoesNothing()
{
    Project project;
    FileSettings* file = project.add(clip());
    const int steps = project.history().position();
    setColour(*file, "bcs_contrast", 0);
    QVERIFY(file->resetAll().isEmpty());
    file->move(file->item(key("Effect"), 2), 2);
    QVERIFY(project.apply(file->settings(), {file}, {}).isEmpty());
    QCOMPARE(project.history().position(), steps);
    setColour(*file, "bcs_contrast", 1);
    QCOMPARE(project.history().undoText().text(), QStringLiteral("change Contrast"));
}

void stepsOfTheSameValueStayApart()
{
    Project project;
    FileSettings* file = project.add(clip());
    setColour(*file, "bcs_contrast", 1); // At once, under one name: two steps all the same.
    setColour(*file, "bcs_contrast", 2);
    project.history().undo();
    QCOMPARE(colour(*file, "bcs_contrast"), QVariant(1));
    project.history().beginGesture(Message());
    for (int value = 3; value < 20; ++value)
        setColour(*file, "bcs_contrast", value);
    project.history().endGesture();
    project.history().undo();
    QCOMPARE(colour(*file, "bcs_contrast"), QVariant(1));
}

void defaultsGiveTheDefaults()
{
    FileSettings file(clip());
    const Settings fresh = file.settings();
    setManyThings(file);
    QVERIFY(file.resetAll().isEmpty());
    // The clip's own tracks stay, with the style of new ones.
    QCOMPARE(file.items(key("Subtitle")).size(), 1);
    QCOMPARE(file.value(file.item(key("Subtitle"), 0), key("sub_fontsize")), QVariant(22));
    file.remove(file.item(key("Subtitle"), 0));
    QVERIFY(file.settings() == fresh);
}

void valuesOutOfBoundsAreRefused()
{
    FileSettings file(clip());
    addText(file, "Hello");
    file.insert(key("Subtitle"), {{key("trackid"), 1}});
    const Settings before = file.settings();
    int refused = 0;
    for (const zokit::Property& property : zokit::properties()) {
        const Identity item = file.item(property.type, 0);
        const Identity thing = item != 0 ? item : file.thing({property.type, zokit::Address::ofType, property.key});
        if (!property.highest.isValid() || property.kind == zokit::ValueKind::Text)
            continue;
        for (const double far : {1e9, -1e9, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
            QVERIFY2(!file.setValue(thing, property.key, far).isEmpty(), qPrintable(property.key));
            ++refused;
        }
    }
    QVERIFY(refused > 100);
    QVERIFY(file.settings() == before);
}

void resetCanBeUndone()
{
    Project project;
    FileSettings* file = project.add(clip());
    setManyThings(*file);
    for (int what = 0; what < 4; ++what) {
        const Settings before = file->settings();
        const Identity text = file->item(key("Watermark"), 0);
        if (what == 0)
            file->reset(file->type(key("Color")), key("bcs_contrast"));
        else if (what == 1)
            file->resetItem(file->item(key("Subtitle"), 0));
        else if (what == 2)
            file->resetType(key("Watermark"));
        else
            file->resetAll();
        QVERIFY(!(file->settings() == before));
        project.history().undo();
        QVERIFY(file->settings() == before);
        QCOMPARE(file->item(key("Watermark"), 0), text);
    }
}

void valueTellsWhereItComesFrom()
{
    Project project;
    FileSettings* file = project.add(clip());
    setColour(*file, "bcs_contrast", 12);
    project.saveDefault(file->type(key("Color")));
    const FileSettings* next = project.add(clip());
    const Identity color = next->type(key("Color"));
    QVERIFY(next->state(color, key("bcs_contrast")) == State::SavedDefault);
    QVERIFY(next->state(color, key("bcs_saturation")) == State::Default);
    const Settings preset = zokit::presetFrom(file->settings(), {key("Color")});
    QCOMPARE(preset.effects.size(), 1); // What is in it can be told before it is laid over.
    QCOMPARE(zokit::differences(next->settings(), zokit::carriedOver(preset, next->settings(), {})).size(), 0);
}

void pastingTwiceIsOnce()
{
    Project project;
    FileSettings* file = project.add(clip());
    setManyThings(*file);
    FileSettings* target = project.add(clip());
    for (const bool add : {true, false}) {
        QVERIFY(project.apply(file->settings(), {target}, {{}, add}).isEmpty());
        const Settings once = target->settings();
        for (int i = 0; i < 10; ++i)
            QVERIFY(project.apply(file->settings(), {target}, {{}, add}).isEmpty());
        QVERIFY(target->settings() == once);
        QCOMPARE(target->items(key("Watermark")).size(), 2);
    }
}

void redoIsThereWhateverIsLookedAt()
{
    Project project;
    FileSettings* file = project.add(clip());
    setColour(*file, "bcs_contrast", 12);
    project.history().undo();
    // Selecting, drawing, asking and refused edits are no steps, and end nothing.
    project.history().setSelection({file->type(key("Color"))});
    file->check(file->type(key("Color")), key("bcs_contrast"), 99);
    file->setValue(file->type(key("Color")), key("bcs_contrast"), 99);
    zokit::writeSettings(file->settings(), QString());
    QVERIFY(project.history().canRedo());
    project.history().redo();
    QCOMPARE(colour(*file, "bcs_contrast"), QVariant(12));
}

void olderAutosaveDoesNotBeatANewerSave()
{
    const QTemporaryDir folder;
    const QString saved = folder.filePath(key("saved.zoeffect.json"));
    const QString left = folder.filePath(key("left.journal"));
    Project project;
    zokit::Journal journal(project, folder.path());
    FileSettings* file = project.add(clip());
    QVERIFY(journal.flush());
    QVERIFY(QFile::copy(journal.path(), left));
    setColour(*file, "bcs_contrast", 12);
    QVERIFY(zokit::saveSettings(file->settings(), saved).isEmpty());
    const auto setTime = [](const QString& path, const QTime& time) {
        QFile dated(path);
        return dated.open(QIODevice::ReadWrite)
               && dated.setFileTime(QDateTime(QDate(2026, 11, 22), time), QFileDevice::FileModificationTime);
    };
    QVERIFY(setTime(left, QTime(10, 0)) && setTime(saved, QTime(10, 1)));
    QCOMPARE(zokit::Journal::comparedWith(left, saved).code(), Message::Code::SavedIsNewer);
    QVERIFY(setTime(saved, QTime(9, 59)));
    QVERIFY(zokit::Journal::comparedWith(left, saved).isEmpty());
    QVERIFY(QFile::exists(left) && QFile::exists(saved)); // Both are kept.
}

void autosaveThatStopsIsTold()
{
    const QTemporaryDir folder;
    const QString inTheWay = folder.filePath(key("taken"));
    write(inTheWay, "a file where the folder of journals would be");
    Project project;
    zokit::Journal journal(project, inTheWay);
    QSignalSpy trouble(&journal, &zokit::Journal::trouble);
    project.add(clip());
    QVERIFY(!journal.flush());
    QTRY_VERIFY(!trouble.isEmpty());
    QVERIFY(!trouble.first().first().value<Message>().text().isEmpty());
    // Tried again by itself, once it can be.
    QVERIFY(QFile::remove(inTheWay));
    QTRY_VERIFY_WITH_TIMEOUT(trouble.last().first().value<Message>().isEmpty(), 30000);
    QVERIFY(QFile::exists(journal.path()));
}

void presetGoesToAnotherFrame()
{
    const QTemporaryDir folder;
    FileSettings file(zokit::Media{QString(), QSize(1920, 1080), 1.0});
    setManyThings(file);
    const Presets presets(folder.path());
    QVERIFY(presets.save(key("set"), zokit::presetFrom(file.settings(), {key("Watermark"), key("Crop")})).isEmpty());
    FileSettings small(zokit::Media{QString(), QSize(480, 270), 1.0});
    QVERIFY(small.setSettings(zokit::carriedOver(presets.load(key("set")).preset, small.settings(), {})).isEmpty());
    QCOMPARE(small.value(small.type(key("Crop")), key("crop_width")), QVariant(150)); // A quarter of 600.
    QCOMPARE(sizeOf(small, small.item(key("Watermark"), 1)), QSize(15, 10));
    const QPoint place = placeOf(small, small.item(key("Watermark"), 1));
    QCOMPARE(place, QPoint(455, 5)); // 480 - 15 - 9.6 and 5.4.
}

void presetNamesWhatIsMissingElsewhere()
{
    const QTemporaryDir folder;
    const QString logo = folder.filePath(key("logo.png"));
    QVERIFY(QFile::copy(logoPath(20, 10), logo));
    FileSettings file(clip());
    file.insert(key("Watermark"), {{key("wm_imageurl"), logo}});
    const Presets presets(folder.filePath(key("presets")));
    QVERIFY(presets.save(key("logo"), zokit::presetFrom(file.settings(), {})).isEmpty());
    QVERIFY(QFile::remove(logo));
    const Presets::Loaded loaded = presets.load(key("logo"));
    QVERIFY(loaded.error.isEmpty());
    QCOMPARE(loaded.warnings,
             zokit::Messages{Message(Message::Code::MissingAt, {key("Watermark:0:wm_imageurl"), logo})});
    QCOMPARE(zokit::checkCarryOver(loaded.preset, {}), loaded.warnings.first());
}

void watermarkFitsEverySize()
{
    Project project;
    FileSettings* file = project.add(clip());
    file->insert(key("Watermark"),
                 {{key("wm_imageurl"), logoPath(200, 100)},
                  {key("anchor"), QVariantMap{{key("corner"), key("bottom-right")}, {key("size"), key("20%")}}}});
    for (const QSize& frame : {QSize(3840, 2160), QSize(1080, 1920), QSize(320, 240), QSize(50, 50)}) {
        FileSettings* target = project.add(zokit::Media{QString(), frame, 1.0});
        QVERIFY(project.apply(file->settings(), {target}, {{key("Watermark")}, false}).isEmpty());
        const Identity logo = target->item(key("Watermark"), 0);
        QCOMPARE(sizeOf(*target, logo), QSize(frame.width() / 5, frame.width() / 10));
        QVERIFY(QRect(QPoint(0, 0), frame).contains(QRect(placeOf(*target, logo), sizeOf(*target, logo))));
    }
}

struct Complaint {
    const char* name;
    void (*reenact)();
};

const Complaint complaints[] = {
    {"HandBrake/HandBrake#4908 marks of change on what was not touched", untouchedFileHasNoMarkOfChange},
    {"HandBrake/HandBrake#4909 marks of change on what was set back", valueSetBackHasNoMarkOfChange},
    {"HandBrake/HandBrake#1716 settings reach only the first file", settingsReachEveryFile},
    {"HandBrake/HandBrake#5350 defaults reach only the first file", savedDefaultReachesEveryNewFile},
    {"HandBrake/HandBrake#1484 an export drops a field", exportHoldsEveryField},
    {"HandBrake/HandBrake#1484 an import destroys others", importDestroysNoOther},
    {"HandBrake/HandBrake#1771 values gone after a look at a job", editedJobKeepsItsValues},
    {"HandBrake/HandBrake#4072 values gone after editing a job", reopenedJobKeepsItsValues},
    {"HandBrake/HandBrake#2007 the last file's crop on the next", cropIsOfItsFileAlone},
    {"HandBrake/HandBrake#2780 a switch changes numbers", switchingOffKeepsTheNumbers},
    {"RandomEngy/VidCoder#936 a mode changes numbers", modeOfTheCropChangesNoRectangle},
    {"obsproject/obs-studio#11037 an invalid file wipes the good ones", invalidFileLeavesTheGoodOnes},
    {"obsproject/obs-studio#4562 undo that loses", undoneStepsCanBeRedoneToTheEnd},
    {"obsproject/obs-studio#10628 undo that halves", undoIsNeverHalf},
    {"obsproject/obs-studio#4447 undo that brings back a part", removedItemComesBackWhole},
    {"obsproject/obs-studio#4968 undo that does nothing", noStepDoesNothing},
    {"obsproject/obs-studio#4510 undo that goes too far", stepsOfTheSameValueStayApart},
    {"obsproject/obs-studio#4764 defaults that do nothing", defaultsGiveTheDefaults},
    {"OpenShot/openshot-qt#2183 values outside bounds crash", valuesOutOfBoundsAreRefused},
    {"NatronGitHub/Natron#630 a reset that cannot be undone", resetCanBeUndone},
    {"NatronGitHub/Natron#140 values without origin", valueTellsWhereItComesFrom},
    {"mltframework/shotcut#880 pasting grows without bound", pastingTwiceIsOnce},
    {"mltframework/shotcut#778 redo that depends on a switch", redoIsThereWhateverIsLookedAt},
    {"jliljebl/flowblade#891 an old autosave over a newer save", olderAutosaveDoesNotBeatANewerSave},
    {"SubtitleEdit/subtitleedit#12753 an autosave that stops silently", autosaveThatStopsIsTold},
    {"darktable-org/darktable#2681 a preset that breaks at another size", presetGoesToAnotherFrame},
    {"CyberTimon/RapidRAW#1135 a preset that breaks on another computer", presetNamesWhatIsMissingElsewhere},
    {"nystudio107/craft-transcoder#6 a watermark over many sizes", watermarkFitsEverySize},
};

} // namespace

void Regressions::complaint_data()
{
    QTest::addColumn<int>("row");
    int row = 0;
    for (const Complaint& complaint : complaints)
        QTest::newRow(complaint.name) << row++;
}

void Regressions::complaint()
{
    QFETCH(int, row);
    complaints[row].reenact();
}

ZOEFFECT_TEST_MAIN(Regressions)
#include "tst_regressions.moc"
