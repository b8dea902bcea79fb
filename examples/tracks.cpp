// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Subtitle and audio tracks: adding them, choosing one, and audio effects. docs/guide/08-tracks.md tells about it.

#include <memory>

#include <QGuiApplication>
#include <QTextStream>

#include <zoeffectcatalogue.h>
#include <zoeffectmodel.h>

namespace {

const EffectControlItem* effectTable()
{
    static EffectControlItem table[5] = {};
    table[0].name = "Subtitle";
    table[0].properties = SubtitleDefaultVal;
    table[1].name = "Audio";
    table[1].properties = AudioDefaultVal;
    table[2].name = "Audio_Echo";
    table[2].properties = audioEcho;
    table[3].name = "Audio_Speed";
    table[3].properties = audioSpeed;
    return table;
}

const char* yesNo(bool answer)
{
    return answer ? "yes" : "no";
}

// E and F are embedded tracks and tracks from files, a star marks those that are selected.
QString tracks(const ZoEffectModel& settings, const QString& type, const QString& fileFlag)
{
    QStringList texts;
    for (int pos = 0; pos < settings.childCount(type); ++pos) {
        const ZoEffectItemData* track = settings.getDataItem(type, pos);
        texts << QString(track->data(fileFlag).toBool() ? "F" : "E") + (track->checkState() == Qt::Checked ? "*" : "");
    }
    return texts.join(' ');
}

QString answers(const ZoEffectModel& settings)
{
    return QString("%1 %2 %3 %4")
        .arg(settings.getEmbededSutitleID(), 9)
        .arg(settings.getEmbededAudioID(), 7)
        .arg(yesNo(settings.useEmbededSubtitle()), 8)
        .arg(yesNo(settings.useCustomSubtitle()), 5);
}

// A row of the table: the answers with these tracks in both types, the ids of the embedded ones being 11, 12, ...
void answer(QTextStream& out, const QString& described)
{
    ZoEffectModel settings(QStringList{"Subtitle", "Audio"});
    int trackId = 11;
    const QStringList tracks = described.split(' ');
    for (const QString& track : tracks) {
        QMap<QString, QVariant> props{{"_checkstate", track.endsWith('*')}};
        if (track.startsWith('F')) {
            props["sub_fromfile"] = true;
            props["audio_isfile"] = true;
        } else {
            props["trackid"] = trackId++;
        }
        if (track == "none")
            continue;
        settings.addDataItem("Subtitle", props);
        settings.addDataItem("Audio", props);
    }
    out << described.leftJustified(6) << answers(settings);
    settings.setData("_checkstate", false, "Subtitle", -1);
    settings.setData("_checkstate", false, "Audio", -1);
    out << answers(settings) << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    QTextStream out(stdout);
    ZoEffectModel::InitEffectModel(effectTable());

    // The file is opened: what the demuxer has found in it comes first, none of it selected.
    ZoEffectModel settings(QStringList{"Subtitle", "Audio"});
    settings.addDataItem("Subtitle", {{"trackid", 4}, {"language", "en"}, {"_checkstate", false}});
    settings.addDataItem("Subtitle", {{"trackid", 5}, {"language", "fr"}, {"_checkstate", false}});
    settings.addDataItem("Audio", {{"trackid", 1}, {"language", "en"}, {"_checkstate", false}});
    settings.addDataItem("Audio", {{"trackid", 2}, {"language", "fr"}, {"_checkstate", false}});

    // Later the user brings tracks in files of their own.
    settings.addDataItem("Subtitle", {{"sub_fromfile", true}, {"path", "/media/film.srt"}, {"_checkstate", false}});
    settings.addDataItem("Audio", {{"audio_isfile", true}, {"path", "/media/comment.mp3"}, {"_checkstate", false}});

    settings.selectItemByKey("Subtitle", "trackid", 5);            // Exactly the tracks with this value.
    settings.selectItemByKeyEx("Audio", "language", {"en", "fr"}); // Exactly those with one of these texts.
    out << "subtitles " << tracks(settings, "Subtitle", "sub_fromfile") << ", audio "
        << tracks(settings, "Audio", "audio_isfile") << '\n';
    out << "position of the subtitles: " << settings.getEmbededSutitleID() << '\n';
    out << "id of the audio track: " << settings.getEmbededAudioID() << '\n';

    settings.selectItemByKey("Subtitle", "path", "/media/film.srt");
    out << "subtitles " << tracks(settings, "Subtitle", "sub_fromfile") << '\n';
    out << "from a file: " << yesNo(settings.useCustomSubtitle())
        << ", anything to do: " << yesNo(settings.hasRealEffect()) << '\n';

    out << "               types selected                types not selected\n"
           "tracks subtitle   audio embedded  file subtitle   audio embedded  file\n";
    for (const char* described : {"none", "E E", "E* E", "E E*", "E* E*", "E F", "E F*", "E* F*", "F E*", "F* E"})
        answer(out, described);

    // The container is the caller's, the tracks in it are the model's.
    const std::unique_ptr<ZoEffectItemData> chosen(settings.getSelectItem("Audio"));
    while (chosen && chosen->childCount() > 0) {
        const ZoEffectItemData* track = chosen->takeAt(0);
        out << "audio track " << track->data("trackid").toInt() << ", " << track->data("language").toString() << '\n';
    }

    settings.refreshCurPlayData(1);
    out << "played in the preview: " << settings.getItemIndexByKeyValue("Audio", "_playmeineffect", true) << '\n';

    settings.resetAllEffect();
    out << "reset: subtitles " << tracks(settings, "Subtitle", "sub_fromfile") << ", audio "
        << tracks(settings, "Audio", "audio_isfile") << '\n';

    // The effects on the sound of a file have a model of their own.
    ZoEffectModel sound(QStringList{"Audio_Echo", "Audio_Speed"});
    out << "for audio effects: " << yesNo(sound.isForAudioEffect())
        << ", and the other: " << yesNo(settings.isForAudioEffect()) << '\n';

    sound.setData("audio_effect_flag", true, "Audio_Speed", -1); // What the user has switched on.
    out << sound.getValidAudioEffectItem()->name() << ' ' << sound.data("audio_speed_factor", "Audio_Speed", -1).toInt()
        << ": " << yesNo(sound.hasRealEffect()) << '\n';
    sound.setData("audio_speed_factor", 10, "Audio_Speed", -1);
    out << sound.getValidAudioEffectItem()->name() << " 10: " << yesNo(sound.hasRealEffect()) << '\n';
    sound.setData("audio_effect_flag", true, "Audio_Echo", -1);
    out << sound.getValidAudioEffectItem()->name() << ": " << yesNo(sound.hasRealEffect()) << '\n';
    return 0;
}
