// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <zokit/filesettings.h>
#include <zokit/languages.h>
#include <zokit/project.h>
#include <zokit/tracks.h>

#include "kitsupport.h"
#include "testapplication.h"

using namespace kitsupport;
using zokit::FileSettings;
using zokit::Settings;
using zokit::Track;
using zokit::TrackChoice;
using zokit::TrackKind;
using zokit::TrackRules;
using zokit::Values;

class TestKitTracks : public QObject {
    Q_OBJECT

private slots:
    void languagesHaveNames();
    void init() { clearSavedDefaults(); }

    void choice_data();
    void choice();
    void forcedOnesOfNoLanguageSuitAnySound();
    void usualSoundIsTheOneMarkedAsDefault();
    void whatIsNotThereIsNotChosen();
    void missingLanguageIsTold_data();
    void missingLanguageIsTold();
    void everyTrackOfSoundAndSubtitlesIsListed();
    void eachChoiceHasALine();
    void sidecarTellsByItsName_data();
    void sidecarTellsByItsName();
    void sidecarsOfAClip();
    void sidecarIsChosenByHand();
    void listIsWhatIsApplied();
    void tickedTracksStay();
    void appliedTwiceIsOnce();
    void newTracksHaveTheDefaultsThatAreMeant();
    void rulesAreReadAndWritten();
    void noRuleIsRefusedWithAReason_data();
    void noRuleIsRefusedWithAReason();
};

namespace {

const QString film = QStringLiteral("/films/film.mkv");

QVector<Track> tracks()
{
    return {
        {0, TrackKind::Video, key("h264"), QString(), QString(), true, false},
        {1, TrackKind::Audio, key("aac"), key("eng"), QString(), true, false},
        {2, TrackKind::Audio, key("aac"), key("fre"), QString(), false, false},
        {3, TrackKind::Audio, key("aac"), key("fra"), key("Comments"), false, false},
        {4, TrackKind::Subtitle, key("subrip"), key("eng"), QString(), false, false},
        {5, TrackKind::Subtitle, key("subrip"), key("eng"), QString(), false, true},
        {6, TrackKind::Subtitle, key("ass"), key("FRE"), QString(), false, false},
        {7, TrackKind::Subtitle, key("ass"), key("fre"), QString(), false, true},
        {8, TrackKind::Attachment, key("ttf"), QString(), QString(), false, false},
    };
}

QStringList sidecars()
{
    return {key("/films/film.de.srt"), key("/films/film.forced.srt"), key("/films/film.srt")};
}

/// "INDEX: WHY" or "FILE: WHY" of what is selected.
QStringList selected(const QVector<TrackChoice>& choices)
{
    QStringList lines;
    for (const TrackChoice& choice : choices) {
        const QString which = choice.sidecar.isEmpty() ? QString::number(choice.track.index)
                                                       : choice.sidecar.section(QLatin1Char('/'), -1);
        if (choice.selected)
            lines.append(which + QStringLiteral(": ") + choice.why.text());
    }
    return lines;
}

/// A rule and what it chooses.
struct Row {
    const char* name;
    void (*set)(TrackRules& rules);
    QStringList chosen;
    const char* error;
};

QVector<Row> rows()
{
    return {
        {"without a rule nothing", [](TrackRules&) {}, {}, ""},
        {"the first language that the clip has",
         [](TrackRules& r) {
             r.audioLanguages = QStringList{key("deu"), key("eng"), key("fra")};
         },
         {key("1: chosen for its language, eng")},
         ""},
        {"all tracks of that language, whichever of its codes",
         [](TrackRules& r) {
             r.audioLanguages = QStringList{key("fra"), key("eng")};
         },
         {key("2: chosen for its language, fra"), key("3: chosen for its language, fra")},
         ""},
        {"a language of two letters",
         [](TrackRules& r) { r.audioLanguages = QStringList{key("FR")}; },
         {key("2: chosen for its language, FR"), key("3: chosen for its language, FR")},
         ""},
        {"a language that is not there",
         [](TrackRules& r) {
             r.audioLanguages = QStringList{key("deu"), key("ita")};
             r.subtitleLanguages = r.audioLanguages;
         },
         {key("1: chosen as the one that players take, since none is in deu, ita")},
         ""},
        {"one subtitle, not the forced one",
         [](TrackRules& r) {
             r.subtitleLanguages = QStringList{key("ita"), key("fra"), key("eng")};
         },
         {key("6: chosen for its language, fra")},
         ""},
        {"a forced one in the language of the sound",
         [](TrackRules& r) { r.forcedSubtitles = true; },
         {key("5: chosen as forced subtitle")},
         ""},
        {"of the sound that is chosen",
         [](TrackRules& r) {
             r.forcedSubtitles = true;
             r.audioLanguages = QStringList{key("fr")};
         },
         {key("2: chosen for its language, fr"), key("3: chosen for its language, fr"),
          key("7: chosen as forced subtitle")},
         ""},
        {"forced before a language",
         [](TrackRules& r) {
             r.forcedSubtitles = true;
             r.subtitleLanguages = QStringList{key("fre")};
         },
         {key("5: chosen as forced subtitle")},
         ""},
        {"a file beside the clip, not the forced one",
         [](TrackRules& r) { r.sidecars = true; },
         {key("film.srt: chosen as subtitle file beside the clip")},
         ""},
        {"a file in a language",
         [](TrackRules& r) {
             r.sidecars = true;
             r.subtitleLanguages = QStringList{key("ger"), key("eng")};
         },
         {key("film.de.srt: chosen for its language, ger")},
         ""},
        {"sound by hand goes before languages",
         [](TrackRules& r) {
             r.audioLanguages = QStringList{key("eng")};
             r.audioTracks = QVector<int>{3};
         },
         {key("3: chosen by hand")},
         ""},
        {"no sound track by hand",
         [](TrackRules& r) {
             r.audioLanguages = QStringList{key("eng")};
             r.audioTracks = QVector<int>{};
         },
         {},
         ""},
        {"a subtitle by hand goes before all rules",
         [](TrackRules& r) {
             r.forcedSubtitles = true;
             r.sidecars = true;
             r.subtitleLanguages = QStringList{key("fre")};
             r.subtitleTrack = 4;
         },
         {key("4: chosen by hand")},
         ""},
        {"no subtitle by hand",
         [](TrackRules& r) {
             r.forcedSubtitles = true;
             r.sidecars = true;
             r.subtitleTrack = -1;
         },
         {},
         ""},
        {"a track by hand that is not there",
         [](TrackRules& r) {
             r.audioTracks = QVector<int>{1, 9};
         },
         {key("1: chosen by hand")},
         "The clip has no such track 9. Choose one that it has."},
        {"a subtitle as sound",
         [](TrackRules& r) { r.audioTracks = QVector<int>{4}; },
         {},
         "The clip has no such track 4. Choose one that it has."},
        {"sound as a subtitle",
         [](TrackRules& r) { r.subtitleTrack = 1; },
         {},
         "The clip has no such track 1. Choose one that it has."},
    };
}

} // namespace

void TestKitTracks::languagesHaveNames()
{
    for (const char* code : {"fra", "fre", "fr", "FRA"})
        QCOMPARE(zokit::languageName(QString::fromLatin1(code)), QString::fromUtf8("fran\303\247ais"));
    QCOMPARE(zokit::languageName(QStringLiteral("eng")), QStringLiteral("English"));
    QCOMPARE(zokit::languageName(QStringLiteral("qaa")), QStringLiteral("qaa"));
    QCOMPARE(zokit::languageName(QString()), QString());
    const QStringList codes = zokit::languageCodes();
    QCOMPARE(codes.size(), 58);
    QVERIFY(codes.contains(QStringLiteral("deu")));
    for (const QString& code : codes)
        QVERIFY2(zokit::languageName(code) != code, qPrintable(code));
}

void TestKitTracks::choice_data()
{
    QTest::addColumn<int>("row");
    const QVector<Row> all = rows();
    for (int row = 0; row < all.size(); ++row)
        QTest::newRow(all.at(row).name) << row;
}

void TestKitTracks::choice()
{
    QFETCH(int, row);
    const Row expected = rows().at(row);
    TrackRules rules;
    expected.set(rules);
    zokit::Message error;
    const QVector<TrackChoice> choices = zokit::chosenTracks(rules, tracks(), film, sidecars(), &error);
    QCOMPARE(selected(choices), expected.chosen);
    QCOMPARE(error.text(), QString::fromLatin1(expected.error));
}

void TestKitTracks::forcedOnesOfNoLanguageSuitAnySound()
{
    QVector<Track> italian = tracks();
    for (Track& track : italian) {
        if (track.kind == TrackKind::Audio)
            track.language = key("ita");
    }
    TrackRules rules;
    rules.forcedSubtitles = true;
    QCOMPARE(selected(zokit::chosenTracks(rules, italian, film, sidecars())), QStringList());
    rules.sidecars = true;
    QCOMPARE(selected(zokit::chosenTracks(rules, italian, film, sidecars())),
             QStringList{key("film.forced.srt: chosen as forced subtitle")});
}

void TestKitTracks::usualSoundIsTheOneMarkedAsDefault()
{
    QVector<Track> french = tracks();
    french[1].isDefault = false;
    french[2].isDefault = true;
    french[3].isDefault = true;
    TrackRules rules;
    rules.audioLanguages = QStringList{key("deu")};
    QCOMPARE(selected(zokit::chosenTracks(rules, french, film, {})),
             QStringList{key("2: chosen as the one that players take, since none is in deu")});
    rules.audioLanguages.clear();
    rules.forcedSubtitles = true;
    QCOMPARE(selected(zokit::chosenTracks(rules, french, film, {})), QStringList{key("7: chosen as forced subtitle")});
}

void TestKitTracks::whatIsNotThereIsNotChosen()
{
    TrackRules rules;
    rules.audioTracks = QVector<int>{99};
    rules.subtitleTrack = 99;
    QCOMPARE(selected(zokit::chosenTracks(rules, tracks(), film, {})), QStringList()); // The reason is not asked for.
    rules = TrackRules();
    rules.forcedSubtitles = true;
    QVector<Track> silent;
    for (const Track& track : tracks()) {
        if (track.kind == TrackKind::Subtitle)
            silent.append(track);
    }
    QCOMPARE(selected(zokit::chosenTracks(rules, silent, film, {})), QStringList()); // Forced for no sound.
    const QVector<TrackChoice> none = zokit::chosenTracks(TrackRules(), tracks(), film, {});
    QCOMPARE(selected(zokit::withTicked(none, Settings(), TrackRules())), QStringList());
}

void TestKitTracks::missingLanguageIsTold_data()
{
    QTest::addColumn<QString>("sound");
    QTest::addColumn<QString>("subtitles");
    QTest::addColumn<bool>("byHand");
    QTest::addColumn<QStringList>("sentences");
    const QString sound = key("No audio track is in deu, ita. Ask for a language that the clip has: eng, fre, fra.");
    const QString subtitle = key("No subtitle is in deu. Ask for a language that the clip has: eng, FRE, fre.");
    QTest::newRow("neither") << key("deu,ita") << key("deu") << false << QStringList{sound, subtitle};
    QTest::newRow("the second one") << key("deu,eng") << key("ita,fre") << false << QStringList();
    QTest::newRow("none asked for") << QString() << QString() << false << QStringList();
    QTest::newRow("chosen by hand") << key("deu") << key("deu") << true << QStringList();
}

void TestKitTracks::missingLanguageIsTold()
{
    QFETCH(QString, sound);
    QFETCH(QString, subtitles);
    QFETCH(bool, byHand);
    const auto split = [](const QString& list) {
        return list.isEmpty() ? QStringList() : list.split(QLatin1Char(','));
    };
    TrackRules rules;
    rules.audioLanguages = split(sound);
    rules.subtitleLanguages = split(subtitles);
    if (byHand) {
        rules.audioTracks = QVector<int>{};
        rules.subtitleTrack = -1;
    }
    QStringList said;
    for (const zokit::Message& message : missingLanguages(rules, zokit::chosenTracks(rules, tracks(), film, {})))
        said.append(message.text());
    QTEST(said, "sentences");
}

void TestKitTracks::everyTrackOfSoundAndSubtitlesIsListed()
{
    const auto indexes = [](const TrackRules& rules) {
        QVector<int> result;
        for (const TrackChoice& choice : zokit::chosenTracks(rules, tracks(), film, sidecars()))
            result.append(choice.track.index);
        return result;
    };
    TrackRules rules;
    QCOMPARE(indexes(rules), QVector<int>({1, 2, 3, 4, 5, 6, 7}));
    rules.sidecars = true;
    QCOMPARE(indexes(rules), QVector<int>({1, 2, 3, 4, 5, 6, 7, -1, -1, -1}));
}

void TestKitTracks::eachChoiceHasALine()
{
    TrackRules rules;
    rules.audioLanguages = QStringList{key("fra")};
    rules.subtitleLanguages = QStringList{key("deu")};
    rules.sidecars = true;
    QStringList lines;
    for (const TrackChoice& choice : zokit::chosenTracks(rules, tracks().mid(1, 4), film, sidecars().mid(0, 1)))
        lines.append(choice.line().text());
    QCOMPARE(lines, QStringList({key("track 1 (audio, eng, aac): not chosen"),
                                 key("track 2 (audio, fre, aac): chosen for its language, fra"),
                                 key("track 3 (audio, fra, aac): chosen for its language, fra"),
                                 key("track 4 (subtitle, eng, subrip): not chosen"),
                                 key("track film.de.srt (subtitle, de, srt): chosen for its language, deu")}));
}

void TestKitTracks::sidecarTellsByItsName_data()
{
    QTest::addColumn<QString>("clip");
    QTest::addColumn<QString>("sidecar");
    QTest::addColumn<QString>("language");
    QTest::addColumn<bool>("forced");
    QTest::newRow("nothing more") << "film.mkv"
                                  << "film.srt"
                                  << "" << false;
    QTest::newRow("a language") << "film.mkv"
                                << "film.eng.srt"
                                << "eng" << false;
    QTest::newRow("upper case") << "film.mkv"
                                << "film.EN.SRT"
                                << "en" << false;
    QTest::newRow("forced") << "film.mkv"
                            << "film.eng.forced.ass"
                            << "eng" << true;
    QTest::newRow("forced first") << "film.mkv"
                                  << "film.forced.eng.ass"
                                  << "eng" << true;
    QTest::newRow("words of the title are no language") << "A.to.Z.mkv"
                                                        << "A.to.Z.srt"
                                                        << "" << false;
    QTest::newRow("behind such a title") << "The.Big.One.mkv"
                                         << "The.Big.One.fra.srt"
                                         << "fra" << false;
    QTest::newRow("the first of two") << "film.mkv"
                                      << "film.eng.fra.srt"
                                      << "eng" << false;
    QTest::newRow("one letter is none") << "film.mkv"
                                        << "film.e.srt"
                                        << "" << false;
    QTest::newRow("a word is none") << "film.mkv"
                                    << "film.commentary.srt"
                                    << "" << false;
    QTest::newRow("a number is no language") << "film.mkv"
                                             << "film.02.srt"
                                             << "" << false;
}

void TestKitTracks::sidecarTellsByItsName()
{
    QFETCH(QString, clip);
    QFETCH(QString, sidecar);
    QFETCH(QString, language);
    QFETCH(bool, forced);
    TrackRules rules;
    rules.sidecars = true;
    const QVector<TrackChoice> choices =
        zokit::chosenTracks(rules, {}, key("/films/") + clip, {key("/films/") + sidecar});
    QCOMPARE(choices.size(), 1);
    QCOMPARE(choices.first().track.language, language);
    QCOMPARE(choices.first().track.forced, forced);
    QVERIFY(choices.first().selected);
}

void TestKitTracks::sidecarsOfAClip()
{
    const QTemporaryDir folder;
    for (const char* name : {"film.mkv", "film.srt", "film.eng.srt", "film.txt", "film2.srt", "film.extended.mkv",
                             "film.extended.srt", "film.extended.de.ass"}) {
        QFile file(folder.filePath(key(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    const auto beside = [&](const char* clip) {
        QStringList names;
        for (const QString& path : zokit::sidecarsOf(folder.filePath(key(clip)))) {
            if (path.startsWith(folder.path()))
                names.append(path.section(QLatin1Char('/'), -1));
        }
        return names;
    };
    QCOMPARE(beside("film.mkv"), QStringList({key("film.eng.srt"), key("film.srt")}));
    QCOMPARE(beside("film.extended.mkv"), QStringList({key("film.extended.de.ass"), key("film.extended.srt")}));
    QCOMPARE(beside("other.mkv"), QStringList());
}

namespace {

/// "Audio 1 +", "Subtitle /films/film.srt -", in the order of the items.
QStringList items(const Settings& settings)
{
    QStringList lines;
    for (const QString& type : {key("Audio"), key("Subtitle")}) {
        for (const zokit::Item& item : settings.find(type)->items) {
            const bool isFile =
                item.values.value(key("sub_fromfile")).toBool() || item.values.value(key("audio_isfile")).toBool();
            lines.append(QStringLiteral("%1 %2 %3")
                             .arg(type, item.values.value(key(isFile ? "file" : "trackid")).toString(),
                                  item.selected ? key("+") : key("-")));
        }
    }
    return lines;
}

Settings newFilm()
{
    return FileSettings(zokit::Media{film, QSize(1280, 720), 5.0}).settings();
}

} // namespace

void TestKitTracks::listIsWhatIsApplied()
{
    TrackRules rules;
    rules.audioLanguages = QStringList{key("fra")};
    rules.sidecars = true;
    Settings settings =
        zokit::withTracks(newFilm(), zokit::chosenTracks(rules, tracks(), film, {key("/films/film.srt")}), rules);
    QCOMPARE(items(settings), QStringList({key("Audio 1 -"), key("Audio 2 +"), key("Audio 3 +"), key("Subtitle 4 -"),
                                           key("Subtitle 5 -"), key("Subtitle 6 -"), key("Subtitle 7 -"),
                                           key("Subtitle /films/film.srt +")}));
    QCOMPARE(settings.tracks.value(key("audio-language")), QVariant(QStringList{key("fra")}));
    QCOMPARE(settings.tracks.value(key("sidecars")), QVariant(true));

    // Other rules: styles stay, a person's file stays, a file that a rule brought goes, a track that is gone goes.
    settings.find(key("Subtitle"))->items[2].values.insert(key("sub_fontsize"), 50);
    settings.find(key("Subtitle"))
        ->items.append({QString(), true, {{key("sub_fromfile"), true}, {key("file"), key("/mine.srt")}}, {}, {}});
    TrackRules byHand;
    byHand.subtitleTrack = 6;
    QVector<Track> fewer = tracks();
    fewer.removeAt(4);
    settings = zokit::withTracks(settings, zokit::chosenTracks(byHand, fewer, film, {}), byHand);
    QCOMPARE(items(settings), QStringList({key("Audio 1 -"), key("Audio 2 -"), key("Audio 3 -"), key("Subtitle 5 -"),
                                           key("Subtitle 6 +"), key("Subtitle 7 -"), key("Subtitle /mine.srt +")}));
    QCOMPARE(settings.find(key("Subtitle"))->items.at(1).values.value(key("sub_fontsize")), QVariant(50));
    QCOMPARE(settings.tracks, Values({{key("subtitle-track"), key("6")}}));
}

void TestKitTracks::tickedTracksStay()
{
    QVERIFY(zokit::withTracks(Settings(), zokit::chosenTracks({}, tracks(), film, {}), {}).effects.isEmpty());
    Settings settings = zokit::withTracks(newFilm(), zokit::chosenTracks({}, tracks(), film, {}), {});
    settings.find(key("Audio"))->items[1].selected = true;
    TrackRules rules;
    rules.subtitleLanguages = QStringList{key("eng")};
    const auto choices = [&] {
        return zokit::withTicked(zokit::chosenTracks(rules, tracks(), film, {}), settings, rules);
    };
    QCOMPARE(selected(choices()), QStringList({key("2: chosen by hand"), key("4: chosen for its language, eng")}));
    QCOMPARE(items(zokit::withTracks(settings, choices(), rules)).mid(0, 4),
             QStringList({key("Audio 1 -"), key("Audio 2 +"), key("Audio 3 -"), key("Subtitle 4 +")}));
    // Where a rule chooses sound, or chose it, it is not taken for chosen by hand.
    settings.tracks = {{key("audio-language"), key("fra")}};
    QCOMPARE(selected(choices()), QStringList({key("4: chosen for its language, eng")}));
    settings.tracks.clear();
    rules.audioTracks = QVector<int>{};
    QCOMPARE(selected(choices()), QStringList({key("4: chosen for its language, eng")}));
    // Subtitles, too.
    rules = {};
    settings.find(key("Subtitle"))->items[2].selected = true;
    QCOMPARE(selected(choices()), QStringList({key("2: chosen by hand"), key("6: chosen by hand")}));
    rules.sidecars = true;
    QCOMPARE(selected(choices()), QStringList({key("2: chosen by hand")}));
}

void TestKitTracks::appliedTwiceIsOnce()
{
    TrackRules rules;
    rules.subtitleLanguages = QStringList{key("deu")};
    rules.sidecars = true;
    const QVector<TrackChoice> choices = zokit::chosenTracks(rules, tracks(), film, sidecars());
    const Settings once = zokit::withTracks(newFilm(), choices, rules);
    QVERIFY(zokit::withTracks(once, choices, rules) == once);
    FileSettings file(once);
    QVERIFY(file.settings() == once);
    // A track that a file written by hand names without saying that it is none of a file.
    Settings byHand = once;
    byHand.find(key("Subtitle"))->items[0].values.remove(key("sub_fromfile"));
    QCOMPARE(items(zokit::withTracks(byHand, choices, rules)), items(once));
}

void TestKitTracks::newTracksHaveTheDefaultsThatAreMeant()
{
    zokit::Project project;
    FileSettings* first = project.add(clip());
    const zokit::Identity track = first->insert(key("Subtitle"), {{key("trackid"), 2}}).item;
    first->setValue(track, key("sub_transparency"), 40);
    QVERIFY(project.saveDefault(track).isEmpty());
    const QVector<TrackChoice> choices = zokit::chosenTracks({}, tracks(), film, {});
    FileSettings added(zokit::Media{film, QSize(1280, 720), 5.0});
    added.setSettings(zokit::withTracks(added.settings(), choices, {}, zokit::NewTracks::SavedDefaults));
    const zokit::Identity item = added.item(key("Subtitle"), 0);
    QCOMPARE(added.value(item, key("sub_transparency")), QVariant(40));
    QVERIFY(added.state(item, key("sub_transparency")) == zokit::State::SavedDefault);
    QCOMPARE(added.value(item, key("trackid")), QVariant(4));
    QVERIFY(added.comesOutUnchanged());
    const Settings opened = zokit::withTracks(newFilm(), choices, {});
    QCOMPARE(opened.find(key("Subtitle"))->items.first().values.value(key("sub_transparency")), QVariant(0));
}

void TestKitTracks::rulesAreReadAndWritten()
{
    const Values all{{key("audio-language"), QStringList{key("fra"), key("eng")}},
                     {key("subtitle-language"), QStringList{key("eng")}},
                     {key("forced-subtitles"), true},
                     {key("sidecars"), true},
                     {key("audio-tracks"), QStringList{key("1"), key("3")}},
                     {key("subtitle-track"), key("none")}};
    const auto read = zokit::trackRulesFrom(all);
    QVERIFY(read);
    QCOMPARE(*read->audioTracks, QVector<int>({1, 3}));
    QCOMPARE(*read->subtitleTrack, -1);
    QCOMPARE(zokit::toValues(*read), all);
    QCOMPARE(zokit::toValues({}), Values());
}

void TestKitTracks::noRuleIsRefusedWithAReason_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("misspelt") << "audio-langage" << QVariant(key("fra"))
                              << "Tracks has no property audio-langage. Did you mean audio-language?";
    QTest::newRow("an empty word") << "audio-language" << QVariant(key("fra,"))
                                   << "Tracks:audio-language: fra, is no value for this rule.";
    QTest::newRow("no list") << "audio-language" << QVariant(5)
                             << "Tracks:audio-language: 5 is no value for this rule.";
    QTest::newRow("no flag") << "sidecars" << QVariant(key("perhaps"))
                             << "Tracks:sidecars: perhaps is no value for this rule.";
    QTest::newRow("no track") << "audio-tracks" << QVariant(key("1,two"))
                              << "Tracks:audio-tracks: 1,two is no value for this rule.";
    QTest::newRow("below all tracks") << "audio-tracks" << QVariant(key("-1"))
                                      << "Tracks:audio-tracks: -1 is no value for this rule.";
    QTest::newRow("half a track") << "subtitle-track" << QVariant(2.5)
                                  << "Tracks:subtitle-track: 2.5 is no value for this rule.";
    QTest::newRow("a negative subtitle") << "subtitle-track" << QVariant(-1)
                                         << "Tracks:subtitle-track: -1 is no value for this rule.";
}

void TestKitTracks::noRuleIsRefusedWithAReason()
{
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    QFETCH(QString, sentence);
    zokit::Message error;
    QVERIFY(!zokit::trackRulesFrom({{name, value}}, &error));
    QCOMPARE(error.text(), sentence);
    QVERIFY(!zokit::trackRulesFrom({{name, value}})); // The reason need not be asked for.
}

void TestKitTracks::sidecarIsChosenByHand()
{
    const QString english = key("/films/film.eng.srt");
    const QString german = key("/films/film.ger.ass");
    TrackRules rules;
    rules.subtitleTrack = 3; // By hand before.
    const QVector<Track> clip{{1, zokit::TrackKind::Audio, key("aac"), key("eng"), QString(), false, false},
                              {3, zokit::TrackKind::Subtitle, key("srt"), key("fra"), QString(), false, false}};
    const QVector<TrackChoice> before = zokit::chosenTracks(rules, clip, film, {});
    const auto selected = [](const QVector<TrackChoice>& choices) {
        QStringList words;
        for (const TrackChoice& choice : choices)
            words.append((choice.sidecar.isEmpty() ? QString::number(choice.track.index) : choice.sidecar.mid(7))
                         + (choice.selected ? QStringLiteral(" yes ") + choice.why.text() : QString()));
        return words;
    };
    QCOMPARE(selected(before), QStringList({key("1"), key("3 yes chosen by hand")}));
    QCOMPARE(selected(zokit::withSidecar(before, film, {english, german}, QString())),
             QStringList({key("1"), key("3 yes chosen by hand"), key("film.eng.srt"), key("film.ger.ass")}));
    QCOMPARE(zokit::endingOf(german, film), key(".ger.ass"));
    const QVector<TrackChoice> chosen = zokit::withSidecar(before, film, {english, german}, key(".ger.ass"));
    QCOMPARE(selected(chosen),
             QStringList({key("1"), key("3"), key("film.eng.srt"), key("film.ger.ass yes chosen by hand")}));
    // One that this clip has not.
    QCOMPARE(selected(zokit::withSidecar(before, film, {english}, key(".ger.ass"))),
             QStringList({key("1"), key("3 yes chosen by hand"), key("film.eng.srt")}));

    rules.subtitleTrack = -1;
    Settings settings = zokit::withTracks(newFilm(), chosen, rules);
    const auto files = [&settings] {
        QStringList words;
        for (const zokit::Item& item : settings.find(key("Subtitle"))->items) {
            if (item.values.value(key("sub_fromfile")).toBool())
                words.append(item.values.value(key("file")).toString().mid(7)
                             + (item.selected ? QStringLiteral(" yes") : QString()));
        }
        return words;
    };
    QCOMPARE(files(), QStringList({key("film.ger.ass yes")}));
    // Chosen by hand it stays, also where the next choice does not know of it.
    settings = zokit::withTracks(settings, before, rules);
    QCOMPARE(files(), QStringList({key("film.ger.ass yes")}));
    // Another one in its place: it is there, and not used.
    settings = zokit::withTracks(settings, zokit::withSidecar(before, film, {english, german}, key(".eng.srt")), rules);
    QCOMPARE(files(), QStringList({key("film.eng.srt yes"), key("film.ger.ass")}));
}

ZOEFFECT_TEST_MAIN(TestKitTracks)
#include "tst_kit_tracks.moc"
