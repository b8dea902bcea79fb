// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Settings are applied to all the files that are named, or to none.

#include <csignal>

#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QImage>
#include <QtTest>

#include <zokit/applyfiles.h>
#include <zokit/differences.h>
#include <zokit/settingsfile.h>
#include <zokit/valuetext.h>

#include "kitsupport.h"
#include "testapplication.h"

using zokit::ApplyPlan;
using zokit::LeftTarget;
using zokit::Settings;

namespace {

Settings withContrast(int contrast)
{
    Settings settings;
    settings.media = kitsupport::clip();
    settings = zokit::completed(settings);
    settings.find(QStringLiteral("Color"))->values.insert(QStringLiteral("bcs_contrast"), contrast);
    return settings;
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

int contrastIn(const QString& path)
{
    const zokit::ReadSettings read = zokit::loadSettings(path);
    return read.settings
               ? read.settings->find(QStringLiteral("Color"))->values.value(QStringLiteral("bcs_contrast")).toInt()
               : -1;
}

const zokit::CarryOver colour{{QStringLiteral("Color")}, false};

/// A folder with settings files of contrast 0, 1, 2, ..., and one for the notes.
class Files {
public:
    explicit Files(int count)
    {
        for (int i = 0; i < count; ++i) {
            names.append(m_folder.filePath(QStringLiteral("%1.zoeffect.json").arg(i)));
            zokit::saveSettings(withContrast(i), names.last());
        }
    }
    QString notes() const { return m_folder.filePath(QStringLiteral("notes")); }
    QString path(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    /// All that lies in the folder, hidden files, too.
    QStringList there() const { return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

    QStringList names;

private:
    QTemporaryDir m_folder;
};

} // namespace

class TestKitApplyFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void allTargetsGetWhatThePlanSays();
    void aHostSettlesEachTarget();
    void aFileThatIsNamedTwiceStandsOnceInThePlan();
    void whatNamesAFrameIsNoPreset();
    void aLinkStaysALink();
    void whatDoesNotChangeIsNotWritten();
    void oneThatCannotBeReadRefusesAll();
    void whatADeadOneWasAtIsToldOfEachFile();
    void oneThatChangedMeanwhilePutsTheOthersBack();
    void oneThatCannotBeWrittenChangesNothing();
    void aKilledOneLeavesWholeFilesAndTellsWhichAreNew();
    void differencesReadAsPeopleCallThem_data();
    void differencesReadAsPeopleCallThem();
    void valuesReadAsAFileHasThem();
    void valuesReadAsPeopleCallThem_data();
    void valuesReadAsPeopleCallThem();
};

void TestKitApplyFiles::allTargetsGetWhatThePlanSays()
{
    const Files files(3);
    const ApplyPlan plan = zokit::planApply(withContrast(20), files.names, colour);
    QVERIFY(plan.error.isEmpty());
    QCOMPARE(plan.targets.size(), 3);
    QCOMPARE(plan.targets.at(2).differences.size(), 1);
    QCOMPARE(plan.targets.at(2).differences.first().address.toString(), QStringLiteral("Color:bcs_contrast"));
    QCOMPARE(plan.targets.at(2).differences.first().a, QVariant(2));
    QCOMPARE(plan.targets.at(2).differences.first().b, QVariant(20));
    QCOMPARE(contrastIn(files.names.at(2)), 2);

    QCOMPARE(zokit::applyPlan(plan, files.notes()).text(), QString());
    for (const QString& name : files.names)
        QCOMPARE(contrastIn(name), 20);
    QCOMPARE(files.there().size(), 3);
    QVERIFY(zokit::takeLeftTargets(files.notes()).isEmpty());
}

void TestKitApplyFiles::aHostSettlesEachTarget()
{
    const Files files(3);
    QVector<int> seen;
    const auto settle = [&](const zokit::Settings& before, zokit::Settings& after) {
        const QString contrast = QStringLiteral("bcs_contrast");
        seen.append(before.find(QStringLiteral("Color"))->values.value(contrast).toInt());
        seen.append(after.find(QStringLiteral("Color"))->values.value(contrast).toInt());
        after.find(QStringLiteral("Color"))->values.insert(contrast, 7);
        return seen.size() == 6 ? zokit::Message(zokit::Message::Code::NoSuchTrack, {QStringLiteral("9")})
                                : zokit::Message();
    };
    const ApplyPlan plan = zokit::planApply(withContrast(20), files.names.mid(0, 2), colour, settle);
    QCOMPARE(seen, (QVector<int>{0, 20, 1, 20}));
    QVERIFY(zokit::applyPlan(plan, files.notes()).isEmpty());
    QCOMPARE(contrastIn(files.names.at(1)), 7);
    const ApplyPlan refused = zokit::planApply(withContrast(20), files.names.mid(2), colour, settle);
    QCOMPARE(refused.error.text(),
             files.names.at(2) + QStringLiteral(": The clip has no such track 9. Choose one that it has."));
    QVERIFY(refused.targets.isEmpty());
}

void TestKitApplyFiles::aFileThatIsNamedTwiceStandsOnceInThePlan()
{
    const Files files(1);
    QVERIFY(QFile::link(files.names.first(), files.path("link.json")));
    const ApplyPlan plan =
        zokit::planApply(withContrast(20), {files.names.first(), files.path("link.json"), files.names.first()}, colour);
    QCOMPARE(plan.targets.size(), 1);
}

void TestKitApplyFiles::whatNamesAFrameIsNoPreset()
{
    const Files files(1);
    for (const char* media : {R"({"file": "a.mkv"})", R"({"width": 64, "height": 48})"}) {
        QFile target(files.path("both.json"));
        QVERIFY(target.open(QIODevice::WriteOnly));
        target.write(R"({"zoeffect": 1, "base": {"width": 64, "height": 48}, "media": )" + QByteArray(media) + "}");
        target.close();
        const ApplyPlan plan = zokit::planApply(withContrast(20), {target.fileName()}, colour);
        QCOMPARE(plan.error.text(), QString());
        QCOMPARE(plan.targets.size(), 1);
    }
}

void TestKitApplyFiles::aLinkStaysALink()
{
    const Files files(1);
    QVERIFY(QFile::link(files.names.first(), files.path("link.json")));
    const ApplyPlan plan = zokit::planApply(withContrast(20), {files.path("link.json")}, colour);
    QCOMPARE(zokit::applyPlan(plan, files.notes()).text(), QString());
    QVERIFY(QFileInfo(files.path("link.json")).isSymLink());
    QCOMPARE(contrastIn(files.names.first()), 20);
}

void TestKitApplyFiles::whatDoesNotChangeIsNotWritten()
{
    const Files files(2);
    QFile byHand(files.names.first());
    QVERIFY(byHand.open(QIODevice::WriteOnly));
    const QByteArray text = "{ \"zoeffect\": 1, \"media\": {\"width\": 1280, \"height\": 720} }";
    byHand.write(text);
    byHand.close();
    const ApplyPlan plan = zokit::planApply(withContrast(0), files.names, colour);
    QCOMPARE(zokit::applyPlan(plan, files.notes()).text(), QString());
    QCOMPARE(contentOf(files.names.first()), text);
    QCOMPARE(contrastIn(files.names.at(1)), 0);
}

void TestKitApplyFiles::oneThatCannotBeReadRefusesAll()
{
    const Files files(2);
    QFile broken(files.path("broken.json"));
    QVERIFY(broken.open(QIODevice::WriteOnly));
    broken.write("{");
    broken.close();
    const ApplyPlan plan =
        zokit::planApply(withContrast(20), files.names + QStringList{files.path("broken.json")}, colour);
    QVERIFY(plan.targets.isEmpty());
    QVERIFY2(plan.error.text().startsWith(files.path("broken.json") + QStringLiteral(": Line 1, column ")),
             qPrintable(plan.error.text()));
    QVERIFY(!zokit::applyPlan(plan, files.notes()).isEmpty());
    QCOMPARE(contrastIn(files.names.at(1)), 1);
    const ApplyPlan unknown = zokit::planApply(withContrast(20), files.names, {{QStringLiteral("Colour")}, false});
    QCOMPARE(unknown.error.text(), QStringLiteral("There is no effect type Colour. Did you mean Color?"));
    QVERIFY(unknown.targets.isEmpty());
    Settings picture = withContrast(20);
    picture.find(QStringLiteral("Color"))
        ->values.insert(QStringLiteral("x-picture"), QImage(1, 1, QImage::Format_RGB32));
    const ApplyPlan unwritten = zokit::planApply(picture, files.names, colour);
    QCOMPARE(unwritten.error.text(),
             files.names.at(0)
                 + QStringLiteral(": Color:x-picture: no settings file can hold this value. Set another one."));
    QVERIFY(unwritten.targets.isEmpty());
    const QString gone = files.path("gone.json");
    const ApplyPlan missing = zokit::planApply(withContrast(20), files.names + QStringList{gone}, colour);
    QCOMPARE(missing.error.text(), gone + QStringLiteral(": no such file."));
    QVERIFY(missing.targets.isEmpty());
    const ApplyPlan good = zokit::planApply(withContrast(20), files.names, colour);
    QCOMPARE(zokit::applyPlan(good, QStringLiteral("/dev/null/notes")).code(), zokit::Message::Code::FileUnwritable);
    QCOMPARE(contrastIn(files.names.at(1)), 1);
}

void TestKitApplyFiles::whatADeadOneWasAtIsToldOfEachFile()
{
    const Files files(0);
    QVERIFY(QDir().mkpath(files.notes()));
    QByteArray noted; // With the checksums of "old" and "new".
    for (const char* content : {"new", "old", "else", "gone"}) {
        QFile target(files.path(content));
        QVERIFY(target.open(QIODevice::WriteOnly));
        target.write(content);
        noted += QByteArray(noted.isEmpty() ? "[" : ",") + "{\"path\":\"" + QFile::encodeName(target.fileName())
                 + "\",\"old\":\"cba06b5736faf67e54b07b561eae94395e774c517a7d910a54369e1263ccfbd4\",\"new\":"
                   "\"11507a0e2f5e69d5dfa40a62a1bd7b6ee57e6bcd85c67c9b8431b36fff21c437\"}";
    }
    QVERIFY(QFile::remove(files.path("gone")));
    QFile note(files.notes() + QStringLiteral("/0123456789ab.json"));
    QVERIFY(note.open(QIODevice::WriteOnly));
    note.write(noted + ']');
    note.flush();
    QCOMPARE(::flock(note.handle(), LOCK_EX | LOCK_NB), 0);
    QVERIFY(zokit::takeLeftTargets(files.notes()).isEmpty()); // It is still at work.
    note.close();
    QVector<LeftTarget::State> states;
    for (const LeftTarget& left : zokit::takeLeftTargets(files.notes()))
        states.append(left.state);
    QCOMPARE(states,
             QVector<LeftTarget::State>({LeftTarget::New, LeftTarget::Old, LeftTarget::Other, LeftTarget::Other}));
    QVERIFY(!note.exists());
}

void TestKitApplyFiles::oneThatChangedMeanwhilePutsTheOthersBack()
{
    const Files files(3);
    const QByteArray before = contentOf(files.names.at(0));
    const ApplyPlan plan = zokit::planApply(withContrast(20), files.names, colour);
    QCOMPARE(zokit::saveSettings(withContrast(33), files.names.at(2)).text(), QString());

    QCOMPARE(zokit::applyPlan(plan, files.notes()).text(),
             files.names.at(2)
                 + QStringLiteral(" was changed by somebody else meanwhile. Nothing was applied; try again."));
    QCOMPARE(contentOf(files.names.at(0)), before);
    QCOMPARE(contrastIn(files.names.at(1)), 1);
    QCOMPARE(contrastIn(files.names.at(2)), 33);
    QCOMPARE(files.there().size(), 3);
}

void TestKitApplyFiles::oneThatCannotBeWrittenChangesNothing()
{
    Files files(1);
    const QString folder = files.path("gone");
    QVERIFY(QDir().mkdir(folder));
    files.names.append(folder + QStringLiteral("/x.json"));
    QVERIFY(zokit::saveSettings(withContrast(1), files.names.last()).isEmpty());
    const ApplyPlan plan = zokit::planApply(withContrast(20), files.names, colour);
    QVERIFY(QDir(folder).removeRecursively());

    const QString said = zokit::applyPlan(plan, files.notes()).text();
    QVERIFY2(said.contains(QStringLiteral("cannot be written")), qPrintable(said));
    QCOMPARE(contrastIn(files.names.first()), 0);
    QCOMPARE(files.there().size(), 1);
}

void TestKitApplyFiles::aKilledOneLeavesWholeFilesAndTellsWhichAreNew()
{
    constexpr int runs = 40;
    constexpr int count = 8;
    Files files(count);
    int told = 0;
    for (int run = 0; run < runs; ++run) {
        for (int i = 0; i < count; ++i)
            zokit::saveSettings(withContrast(i), files.names.at(i));
        const ApplyPlan plan = zokit::planApply(withContrast(20), files.names, colour);
        const pid_t child = ::fork();
        if (child == 0) {
            zokit::applyPlan(plan, files.notes());
            ::_exit(0);
        }
        QVERIFY(child > 0);
        ::usleep(static_cast<useconds_t>(100 * run));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);

        const QVector<LeftTarget> left = zokit::takeLeftTargets(files.notes());
        for (int i = 0; i < left.size(); ++i) {
            QCOMPARE(left.at(i).path, QFileInfo(files.names.at(i)).canonicalFilePath());
            QCOMPARE(contrastIn(left.at(i).path), left.at(i).state == LeftTarget::New ? 20 : i);
            QVERIFY(left.at(i).state != LeftTarget::Other);
        }
        QVERIFY(left.isEmpty() || left.size() == count);
        told += left.isEmpty() ? 0 : 1;
        QCOMPARE(files.there().size(), count);
        QVERIFY(zokit::takeLeftTargets(files.notes()).isEmpty());
    }
    qInfo("%d of %d were killed at work", told, runs);
}

void TestKitApplyFiles::valuesReadAsPeopleCallThem_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("text");
    QTest::newRow("number") << "Color:bcs_contrast" << QVariant(20) << "Colour: Contrast"
                            << "20";
    QTest::newRow("unit") << "Crop:crop_left" << QVariant(96) << "Crop: Left"
                          << "96 px";
    QTest::newRow("unit of nothing") << "Crop:crop_left" << QVariant() << "Crop: Left"
                                     << "";
    QTest::newRow("of an item") << "Watermark:1:wm_fontsize" << QVariant(12) << "Watermarks 2: Size"
                                << "12 pt";
    QTest::newRow("choice") << "Effect:crop_rotation_angle" << QVariant(0) << "Frame effects: Turn"
                            << "not turned";
    QTest::newRow("selected") << "Watermark:0:selected" << QVariant(true) << "Watermarks 1: In use"
                              << "Yes";
    QTest::newRow("flag") << "Audio_Echo:audio_effect_flag" << QVariant(false) << "Echo: In use"
                          << "No";
    QTest::newRow("option") << "Output:audio-bitrate" << QVariant(192) << "Output: Audio bitrate"
                            << "192 kbit/s";
    QTest::newRow("none") << "Output:quality" << QVariant() << "Output: Quality"
                          << "";
}

void TestKitApplyFiles::valuesReadAsPeopleCallThem()
{
    QFETCH(QString, address);
    QFETCH(QVariant, value);
    const std::optional<zokit::Address> read = zokit::readAddress(address).address;
    QVERIFY(read);
    QTEST(zokit::addressLabel(*read), "label");
    QTEST(zokit::valueLabel(*read, value), "text");
}

void TestKitApplyFiles::differencesReadAsPeopleCallThem_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QVariant>("before");
    QTest::addColumn<QVariant>("after");
    QTest::addColumn<QString>("line");
    QTest::newRow("changed") << "Crop:crop_left" << QVariant(0) << QVariant(96) << "Crop: Left: 0 px -> 96 px";
    QTest::newRow("from the whole frame") << "Crop:crop_width" << QVariant(QStringLiteral("source_val")) << QVariant(96)
                                          << "Crop: Width: as the frame -> 96 px";
    QTest::newRow("an anchor") << "Watermark:0:anchor" << QVariant()
                               << QVariant(QVariantMap{{QStringLiteral("corner"), QStringLiteral("top-left")},
                                                       {QStringLiteral("margin"), QStringLiteral("10%")}})
                               << "Watermarks 1: Anchor: none -> top left, 10 %";
    QTest::newRow("new") << "Output:quality" << QVariant() << QVariant(20) << "Output: Quality: none -> 20";
    QTest::newRow("gone") << "Watermark:0:wm_textcontent" << QVariant(QStringLiteral("Hello %2")) << QVariant()
                          << "Watermarks 1: Text: Hello %2 -> none";
}

void TestKitApplyFiles::differencesReadAsPeopleCallThem()
{
    QFETCH(QString, address);
    QFETCH(QVariant, before);
    QFETCH(QVariant, after);
    QTEST(zokit::differenceLabel({*zokit::readAddress(address).address, before, after}), "line");
}

void TestKitApplyFiles::valuesReadAsAFileHasThem()
{
    using zokit::Address;
    const Address contrast{QStringLiteral("Color"), Address::ofType, QStringLiteral("bcs_contrast")};
    const Address colourOfText{QStringLiteral("Watermark"), 0, QStringLiteral("wm_fontcolor")};
    const Address languages{QStringLiteral("Tracks"), Address::ofType, QStringLiteral("audio-language")};
    QCOMPARE(zokit::valueAsText(contrast, 20), QStringLiteral("20"));
    QCOMPARE(zokit::valueAsText(colourOfText, QColor(255, 0, 0, 128)), QStringLiteral("#80ff0000"));
    QCOMPARE(zokit::valueAsText(languages, QStringList{QStringLiteral("fra"), QStringLiteral("eng")}),
             QStringLiteral("fra,eng"));
    QCOMPARE(zokit::valueAsText(contrast, QVariant()), QString());
    QCOMPARE(zokit::addressLabel({QStringLiteral("Effect"), 0, QStringLiteral("name")}),
             QStringLiteral("Frame effects 1: Name"));
    const QVariantMap nowhere{{QStringLiteral("corner"), QStringLiteral("outside")}};
    QCOMPARE(zokit::valueLabel({QStringLiteral("Watermark"), 0, QStringLiteral("anchor")}, nowhere), QString());
    QVERIFY(zokit::valueAsJson(contrast, QVariant()).isNull());
    QCOMPARE(zokit::valueAsJson(contrast, QStringLiteral("20")),
             QJsonValue(QJsonObject{{QStringLiteral("string"), QStringLiteral("20")}}));
}

ZOEFFECT_TEST_MAIN(TestKitApplyFiles)
#include "tst_kit_applyfiles.moc"
