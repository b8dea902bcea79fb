// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QColor>
#include <QFont>
#include <QtTest>

#include <zoeffectitemdefaultvalmgr.h>

#include <zokit/filesettings.h>
#include <zokit/subtitlescript.h>

#include "graphsupport.h"
#include "kitsupport.h"
#include "testapplication.h"

using graphsupport::append;
using graphsupport::plain;
using graphsupport::set;
using kitsupport::key;
using zokit::OwnSubtitles;
using zokit::ownSubtitles;
using zokit::Settings;
using zokit::SubtitleUse;
using zokit::Values;

Q_DECLARE_METATYPE(zokit::Values)
Q_DECLARE_METATYPE(zokit::SubtitleUse)

namespace {

const QSize hd(1280, 720);

/// As ffmpeg extracts an srt.
const QByteArray fromSrt = "[Script Info]\r\nScriptType: v4.00+\r\nPlayResX: 384\r\nPlayResY: 288\r\n\r\n"
                           "[V4+ Styles]\r\nFormat: Name, Fontname, Fontsize, PrimaryColour\r\n"
                           "Style: Default,Arial,16,&Hffffff\r\n\r\n[Events]\r\n"
                           "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\r\n";

const QByteArray ownScript = "[Script Info]\nScriptType: v4.00+\nPlayResX: 640\nPlayResY: 360\n\n[V4+ Styles]\n"
                             "Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, OutlineColour, "
                             "BackColour, Bold, Italic, Underline, StrikeOut, ScaleX, ScaleY, Spacing, Angle, "
                             "BorderStyle, Outline, Shadow, Alignment, MarginL, MarginR, MarginV, Encoding\n"
                             "Style: Sign,Serif,20,&H0000FFFF,&H000000FF,&H00000000,&H00000000,0,0,0,0,100,100,0,0,1,2,"
                             "2,2,10,10,10,1\n\n[Events]\n"
                             "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
                             "Comment: 0,0:00:00.00,0:00:01.00,Sign,,0,0,0,,note\n"
                             "Dialogue: 3,0:00:01.00,0:00:02.00,Sign,,0,0,40,,{\\pos(20,30)\\c&H0000FF&}Hello, you\n";

QByteArray saying(const char* text)
{
    return fromSrt + "Dialogue: 0,0:00:01.00,0:00:02.50,Default,,0,0,0,," + text + "\r\n";
}

QString written(const QByteArray& ass, const Values& style, bool hasOwnStyles = false, bool soft = false)
{
    return QString::fromUtf8(ownSubtitles(ass, style, {hd, hasOwnStyles, soft}).script);
}

QStringList linesWith(const QString& script, const char* begin)
{
    return script.split(QLatin1Char('\n')).filter(QRegularExpression(QLatin1Char('^') + QString::fromLatin1(begin)));
}

QString styleField(const QString& script, const char* name)
{
    const QString names = linesWith(script, "Format: Name").value(0).mid(8);
    const QString fields = linesWith(script, "Style: ").value(0).mid(7);
    int index = 0;
    for (const QString& field : names.split(QLatin1Char(','))) {
        if (field.trimmed() == QLatin1String(name))
            return fields.section(QLatin1Char(','), index, index);
        ++index;
    }
    return QString();
}

zokit::MediaInfo clipWithTracks()
{
    zokit::MediaInfo media = graphsupport::clip(hd);
    for (const char* codec : {"subrip", "hdmv_pgs_subtitle", "ass"}) {
        zokit::MediaStream stream;
        stream.track.kind = zokit::TrackKind::Subtitle;
        stream.track.index = static_cast<int>(media.streams.size());
        stream.track.codec = QString::fromLatin1(codec);
        media.streams.append(stream);
    }
    return media;
}

} // namespace

class TestKitSubtitleScript : public QObject {
    Q_OBJECT

private slots:
    void cuesTellWhenAndWhat();
    void wholeScriptIsWritten();
    void styleIsWritten_data();
    void styleIsWritten();
    void newSubtitleBeginsWhereItWasSaved();
    void eventsAreTakenOver_data();
    void eventsAreTakenOver();
    void linesStandApart();
    void linesStayInTheFrame();
    void colourIsTold_data();
    void colourIsTold();
    void ownStylesAreKept();
    void oldFormIsRead();
    void softScriptHoldsItsTransparency();
    void anythingIsRead_data();
    void anythingIsRead();
    void trackIsBurnedInOrSoft_data();
    void trackIsBurnedInOrSoft();
    void usualPlaceIsThatOfTheTurnedFrame();
    void whatCannotBeDoneIsTold();
};

void TestKitSubtitleScript::wholeScriptIsWritten()
{
    const Values style{{key("sub_fontname"), QFont(QStringLiteral("DejaVu Sans"))}, {key("sub_vposition"), 100}};
    const QString script = written(saying("{\\i1}One{\\i0}\\NTwo, three"), style);
    const QString expected =
        QStringLiteral("[Script Info]\nScriptType: v4.00+\nPlayResX: 1280\nPlayResY: 720\n"
                       "ScaledBorderAndShadow: yes\nWrapStyle: 0\n\n[V4+ Styles]\nFormat: Name, Fontname, "
                       "Fontsize, PrimaryColour, SecondaryColour, OutlineColour, BackColour, Bold, Italic, "
                       "Underline, StrikeOut, ScaleX, ScaleY, Spacing, Angle, BorderStyle, Outline, Shadow, "
                       "Alignment, MarginL, MarginR, MarginV, Encoding\n"
                       "Style: Default,DejaVu Sans,34.1,&H00FFFFFF,&H00FFFFFF,&H00000000,&H00000000,0,0,0,0,100,"
                       "100,0,0,1,2.1,0,8,10,10,100,1\n\n[Events]\n"
                       "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
                       "Dialogue: 0,0:00:01.00,0:00:02.50,Default,,0,0,0,,{\\i1}One{\\i0}\\NTwo, three\n");
    QCOMPARE(script.split(QLatin1Char('\n')), expected.split(QLatin1Char('\n')));
}

void TestKitSubtitleScript::styleIsWritten_data()
{
    QTest::addColumn<Values>("style");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");

    const auto row = [](const char* name, const char* property, const QVariant& value, const char* field,
                        const char* expected) {
        QTest::newRow(name) << Values{{key(property), value}} << key(field) << QString::fromLatin1(expected);
    };
    row("usual place", "sub_fontsize", 22, "MarginV", "576");
    row("place", "sub_vposition", 33, "MarginV", "33");
    row("bold", "sub_fontstyle", QStringLiteral("Bold"), "Bold", "-1");
    row("bold is not italic", "sub_fontstyle", QStringLiteral("Bold"), "Italic", "0");
    row("italic", "sub_fontstyle", QStringLiteral("Bold Italic"), "Italic", "-1");
    row("colour", "sub_fontcolor", QColor(0x11, 0x22, 0x33), "PrimaryColour", "&H00332211");
    row("outline's colour", "sub_framecolor", QColor(0x11, 0x22, 0x33), "OutlineColour", "&H00332211");
    row("font that is there", "sub_fontname", QFont(QStringLiteral("DejaVu Sans Mono")), "Fontname",
        "DejaVu Sans Mono");
    row("font that is missing", "sub_fontname", QFont(QStringLiteral("Tahoma")), "Fontname", "DejaVu Sans");
    row("size", "sub_fontsize", 36, "Fontsize", "55.9");
    row("outline", "sub_fontsize", 36, "Outline", "3.5");
    row("thinnest outline", "sub_fontsize", 3, "Outline", "1.0");
}

void TestKitSubtitleScript::styleIsWritten()
{
    QFETCH(const Values, style);
    QFETCH(const QString, name);
    QTEST(styleField(written(saying("H"), style), name.toLatin1().constData()), "value");
}

void TestKitSubtitleScript::newSubtitleBeginsWhereItWasSaved()
{
    ZoEffectItemDefaultValMgr::getInstance()->saveAsCustomDefaultVal(key("Subtitle"), {{key("sub_vposfactor"), 0.5}});
    zokit::FileSettings file(kitsupport::clip());
    const zokit::Identity track = file.insert(key("Subtitle"), {{key("trackid"), 1}}).item;
    kitsupport::clearSavedDefaults();
    QCOMPARE(styleField(written(saying("H"), file.values(track)), "MarginV"), QStringLiteral("360"));
}

void TestKitSubtitleScript::eventsAreTakenOver_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("ownColours");
    QTest::addColumn<QString>("expected");

    QTest::newRow("commas and braces") << QByteArray("a, b {c") << true << "a, b {c";
    QTest::newRow("letters of any script")
        << QByteArray("Größe \xe4\xbd\xa0") << true << QString::fromUtf8("Größe \xe4\xbd\xa0");
    QTest::newRow("a place of its own") << QByteArray("{\\an2}a{\\pos(10,20)\\b1}b{\\a6}") << true << "a{\\b1}b";
    QTest::newRow("letters of its own") << QByteArray("{\\fnArial\\fs20\\i1}a{\\fscx50}b") << true
                                        << "{\\i1}a{\\fscx50}b";
    QTest::newRow("colours are kept") << QByteArray("{\\c&H0000FF&}a{\\3c&H00&}") << true
                                      << "{\\c&H0000FF&}a{\\3c&H00&}";
    QTest::newRow("colours leave") << QByteArray("{\\c&H0000FF&}a{\\3c&H00&\\clip(1,2,3,4)}b{\\c}") << false
                                   << "a{\\clip(1,2,3,4)}b";
}

void TestKitSubtitleScript::eventsAreTakenOver()
{
    QFETCH(const QByteArray, text);
    QFETCH(const bool, ownColours);
    QFETCH(const QString, expected);
    const QString script = written(saying(text.constData()), {{key("fontstyleusedefault"), ownColours}});
    QCOMPARE(linesWith(script, "Dialogue:"),
             QStringList{QStringLiteral("Dialogue: 0,0:00:01.00,0:00:02.50,Default,,0,0,0,,") + expected});
}

void TestKitSubtitleScript::linesStandApart()
{
    const Values style{{key("sub_linemargin"), 10}, {key("sub_vposition"), 100}};
    QCOMPARE(linesWith(written(saying("{\\i1}One\\NTwo{\\i0}\\NThree"), style), "Dialogue:"),
             (QStringList{QStringLiteral("Dialogue: 0,0:00:01.00,0:00:02.50,Default,,0,0,0,,{\\i1}One"),
                          QStringLiteral("Dialogue: 1,0:00:01.00,0:00:02.50,Default,,0,0,144,,{\\i1}Two{\\i0}"),
                          QStringLiteral("Dialogue: 2,0:00:01.00,0:00:02.50,Default,,0,0,188,,{\\i1}{\\i0}Three")}));
    QCOMPARE(linesWith(written(saying("One"), style), "Dialogue:"),
             QStringList{QStringLiteral("Dialogue: 0,0:00:01.00,0:00:02.50,Default,,0,0,0,,One")});
    QCOMPARE(linesWith(written(saying("One\\NTwo"), style), "Dialogue:"),
             (QStringList{QStringLiteral("Dialogue: 0,0:00:01.00,0:00:02.50,Default,,0,0,0,,One"),
                          QStringLiteral("Dialogue: 1,0:00:01.00,0:00:02.50,Default,,0,0,144,,Two")}));
}

void TestKitSubtitleScript::linesStayInTheFrame()
{
    // 720 - 34.1 and 720 - 2 * 34.1.
    const Values low{{key("sub_vposition"), 715}};
    QCOMPARE(linesWith(written(saying("One"), low), "Dialogue:").value(0).section(QLatin1Char(','), 7, 7),
             QStringLiteral("685"));
    QCOMPARE(linesWith(written(saying("One\\NTwo"), low), "Dialogue:").value(0).section(QLatin1Char(','), 7, 7),
             QStringLiteral("651"));
}

void TestKitSubtitleScript::colourIsTold_data()
{
    QTest::addColumn<QByteArray>("ass");
    QTest::addColumn<Values>("style");
    QTest::addColumn<bool>("hasOwnStyles");
    QTest::addColumn<bool>("inColour");

    QTest::newRow("white and black") << saying("a") << Values() << false << false;
    QTest::newRow("grey") << saying("a") << Values{{key("sub_fontcolor"), QColor(120, 120, 120)}} << false << false;
    QTest::newRow("red letters") << saying("a") << Values{{key("sub_fontcolor"), QColor(Qt::red)}} << false << true;
    QTest::newRow("red outline") << saying("a") << Values{{key("sub_framecolor"), QColor(Qt::red)}} << false << true;
    QTest::newRow("red in the text") << saying("{\\c&H0000FF&}a") << Values() << false << true;
    QTest::newRow("blue letters") << saying("a") << Values{{key("sub_fontcolor"), QColor(Qt::blue)}} << false << true;
    QTest::newRow("red behind grey in the text")
        << saying("{\\c&H808080&}a{\\c&H0000FF&}b") << Values() << false << true;
    QTest::newRow("a number without its sign") << saying("{\\cH0000FF}a") << Values() << false << true;
    QTest::newRow("no number") << saying("{\\c&Hred&}a") << Values() << false << false;
    QByteArray white = ownScript;
    white.replace("\\c&H0000FF&", "").replace("&H0000FFFF", "&H00FFFFFF");
    const auto with = [&white](const char* from, const char* to) { return QByteArray(white).replace(from, to); };
    QTest::newRow("white style of its own") << white << Values() << true << false;
    QTest::newRow("red outline of its own")
        << with("&H000000FF,&H00000000,", "&H000000FF,&H000000FF,") << Values() << true << true;
    QTest::newRow("red shadow of its own") << with("&H00000000,0,0", "&H000000FF,0,0") << Values() << true << true;
    QTest::newRow("a white style behind a yellow one")
        << with("Style: ", "Style: Other,Serif,20,&H0000FFFF\nStyle: ") << Values() << true << true;
    QTest::newRow("red in a text of its own") << with("Hello", "{\\c&H0000FF&}Hello") << Values() << true << true;
    QTest::newRow("opacity is no colour") << saying("{\\alpha&H80&\\1a&H40&}a") << Values() << false << false;
    QTest::newRow("yellow style of its own") << ownScript << Values() << true << true;
    QTest::newRow("its own style replaced")
        << ownScript << Values{{key("fontstyleusedefault"), false}} << true << false;
}

void TestKitSubtitleScript::colourIsTold()
{
    QFETCH(const QByteArray, ass);
    QFETCH(const Values, style);
    QFETCH(const bool, hasOwnStyles);
    const OwnSubtitles own = ownSubtitles(ass, style, {hd, hasOwnStyles, false});
    QTEST(own.inColour, "inColour");
    QCOMPARE(own.events, 1);
}

void TestKitSubtitleScript::ownStylesAreKept()
{
    // Untouched.
    QCOMPARE(written(ownScript, {}, true), QString::fromUtf8(ownScript));

    // A place that was set: half of it, since the script is half as high.
    const QString placed = written(ownScript, {{key("sub_vposition"), 100}}, true);
    QCOMPARE(styleField(placed, "Alignment"), QStringLiteral("8"));
    QCOMPARE(styleField(placed, "MarginV"), QStringLiteral("50"));
    QCOMPARE(styleField(placed, "Fontname"), QStringLiteral("Serif"));
    QCOMPARE(linesWith(placed, "Dialogue:"),
             QStringList{QStringLiteral("Dialogue: 3,0:00:01.00,0:00:02.00,Sign,,0,0,0,,{\\c&H0000FF&}Hello, you")});

    // Without a frame by as many lines as it says.
    QCOMPARE(styleField(QString::fromUtf8(
                            ownSubtitles(ownScript, {{key("sub_vposition"), 100}}, {QSize(), true, false}).script),
                        "MarginV"),
             QStringLiteral("100"));

    // A track of the clip takes the colours.
    const Values recoloured{{key("fontstyleusedefault"), false}, {key("sub_fontcolor"), QColor(Qt::blue)}};
    const QString colours = written(ownScript, recoloured, true);
    QCOMPARE(styleField(colours, "PrimaryColour"), QStringLiteral("&H00FF0000"));
    QCOMPARE(styleField(colours, "OutlineColour"), QStringLiteral("&H00000000"));
    QCOMPARE(styleField(colours, "Fontname"), QStringLiteral("Serif"));
    QCOMPARE(linesWith(colours, "Dialogue:").value(0).section(QLatin1Char(','), 7, -1),
             QStringLiteral("40,,{\\pos(20,30)}Hello, you"));

    // A file takes the whole style.
    Values whole = recoloured;
    whole.insert(key("sub_fromfile"), true);
    const QString restyled = written(ownScript, whole, true);
    QCOMPARE(styleField(restyled, "Fontname"), QStringLiteral("DejaVu Sans"));
    QCOMPARE(linesWith(restyled, "Dialogue:"),
             QStringList{QStringLiteral("Dialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,,Hello, you")});
}

void TestKitSubtitleScript::oldFormIsRead()
{
    const QByteArray old = "[Script Info]\nScriptType: v4.00\n\n[V4 Styles]\n"
                           "Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, TertiaryColour, "
                           "BackColour, Bold, Italic, BorderStyle, Outline, Shadow, Alignment, MarginL, MarginR, "
                           "MarginV, AlphaLevel, Encoding\n"
                           "Style: Default,Arial,18,16777215,65535,65535,0,0,0,1,2,2,2,30,30,10,0,0\n\n[Events]\n"
                           "Format: Marked, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n"
                           "Dialogue: Marked=0,0:00:01.00,0:00:02.00,Default,,0,0,0,,Hi\n";
    const OwnSubtitles own = ownSubtitles(old, {{key("sub_vposition"), 360}}, {hd, true, false});
    const QString script = QString::fromUtf8(own.script);
    QCOMPARE(styleField(script, "Alignment"), QStringLiteral("6"));
    QCOMPARE(styleField(script, "MarginV"), QStringLiteral("144"));
    QVERIFY(own.inColour); // The outline is yellow.
    // Its colours have no opacity.
    QCOMPARE(styleField(written(old, {{key("sub_transparency"), 50}}, true, true), "PrimaryColour"),
             QStringLiteral("16777215"));
}

void TestKitSubtitleScript::softScriptHoldsItsTransparency()
{
    const Values half{{key("sub_transparency"), 50}, {key("sub_fontcolor"), QColor(Qt::red)}};
    QCOMPARE(styleField(written(saying("a"), half, false, true), "PrimaryColour"), QStringLiteral("&H800000FF"));
    QCOMPARE(styleField(written(saying("a"), half, false, true), "OutlineColour"), QStringLiteral("&H80000000"));
    QCOMPARE(styleField(written(saying("a"), half), "PrimaryColour"), QStringLiteral("&H000000FF"));
    const Values weak{{key("sub_transfactor"), 1.0}};
    QCOMPARE(styleField(written(saying("a"), weak, false, true), "PrimaryColour"), QStringLiteral("&H9BFFFFFF"));
    QCOMPARE(styleField(written(ownScript, half, true, true), "PrimaryColour"), QStringLiteral("&H8000FFFF"));
    const Values nearly{{key("sub_transfactor"), 2.535}}; // 253 of 255; from 254 on it covers.
    QCOMPARE(styleField(written(ownScript, nearly, true, true), "PrimaryColour"), QStringLiteral("&H0200FFFF"));
}

void TestKitSubtitleScript::anythingIsRead_data()
{
    QTest::addColumn<QByteArray>("ass");
    QTest::addColumn<int>("events");

    QTest::newRow("empty") << QByteArray() << 0;
    QTest::newRow("no script") << QByteArray("\x00\xff\xfe{{{", 6) << 0;
    QTest::newRow("a dialogue outside of its section") << QByteArray("Dialogue: 0,a,b,c,d,e,f,g,h,i\n") << 0;
    QTest::newRow("a short dialogue") << QByteArray("[Events]\nDialogue: 0,1\n") << 1;
    QTest::newRow("an empty format") << QByteArray("[Events]\nFormat:\nFormat: ,\nDialogue: 0,1,2,3,4,5\n") << 1;
    QTest::newRow("without line feeds") << QByteArray("[Events]\rDialogue: 0,0,1,D,,0,0,0,,a\r") << 1;
}

void TestKitSubtitleScript::anythingIsRead()
{
    QFETCH(const QByteArray, ass);
    QTEST(ownSubtitles(ass, {}, {hd, false, false}).events, "events");
    QVERIFY(ownSubtitles(ass, {{key("sub_vposition"), 1}}, {QSize(), true, true}).events <= 1);
}

void TestKitSubtitleScript::trackIsBurnedInOrSoft_data()
{
    QTest::addColumn<Values>("track");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<SubtitleUse>("use");
    QTest::addColumn<int>("stream");
    QTest::addColumn<QString>("file");

    const auto embedded = [](int number, const Values& more = Values()) {
        Values values = more;
        values.insert(key("trackid"), number);
        return values;
    };
    const auto file = [](const char* path) {
        return Values{{key("sub_fromfile"), true}, {key("file"), QString::fromLatin1(path)}};
    };
    const Values red{{key("sub_fontcolor"), QColor(Qt::red)}};
    const QStringList soft{QStringLiteral("soft-subtitles")};
    const QStringList burn{QStringLiteral("burn-subtitles")};
    const QStringList none;
    const QString noFile;
    QTest::newRow("embedded") << embedded(1) << none << SubtitleUse::Soft << 1 << noFile;
    QTest::newRow("embedded, burned in") << embedded(1) << burn << SubtitleUse::BurnText << 1 << noFile;
    QTest::newRow("embedded, styled") << embedded(1, red) << none << SubtitleUse::BurnText << 1 << noFile;
    QTest::newRow("embedded, styled, soft") << embedded(1, red) << soft << SubtitleUse::Soft << 1 << noFile;
    QTest::newRow("embedded pictures") << embedded(2) << none << SubtitleUse::Soft << 2 << noFile;
    QTest::newRow("embedded pictures, burned in") << embedded(2) << burn << SubtitleUse::BurnBitmap << 2 << noFile;
    QTest::newRow("no such track") << embedded(9) << none << SubtitleUse::Missing << -1 << noFile;
    QTest::newRow("a track of another kind") << embedded(0) << none << SubtitleUse::Missing << -1 << noFile;
    QTest::newRow("file") << file("/a/b.srt") << none << SubtitleUse::BurnText << -1 << "/a/b.srt";
    QTest::newRow("file, soft") << file("/a/b.srt") << soft << SubtitleUse::Soft << -1 << "/a/b.srt";
    QTest::newRow("file with pictures of a disc")
        << file("/a/b.idx") << none << SubtitleUse::BurnBitmap << -1 << "/a/b.idx";
    QTest::newRow("no track") << Values() << none << SubtitleUse::Missing << -1 << noFile;
    QTest::newRow("file with pictures") << file("/a/b.SUP") << none << SubtitleUse::BurnBitmap << -1 << "/a/b.SUP";
}

void TestKitSubtitleScript::trackIsBurnedInOrSoft()
{
    QFETCH(const Values, track);
    QFETCH(const QStringList, options);
    Settings settings = plain(hd);
    for (const QString& option : options)
        settings.output.insert(option, true);
    QCOMPARE(zokit::subtitlePlan(settings, clipWithTracks()).use, SubtitleUse::None);
    append(settings, "Subtitle", {{key("trackid"), 7}});
    settings.find(QStringLiteral("Subtitle"))->items.first().selected = false;
    append(settings, "Subtitle", track);
    append(settings, "Subtitle", {{key("trackid"), 8}}); // The first selected one counts.
    const zokit::SubtitlePlan plan = zokit::subtitlePlan(settings, clipWithTracks());
    QTEST(plan.use, "use");
    QTEST(plan.stream, "stream");
    QTEST(plan.file, "file");
    QCOMPARE(plan.position, 1);
    QCOMPARE(plan.error.isEmpty(), plan.use != SubtitleUse::Missing);
}

void TestKitSubtitleScript::usualPlaceIsThatOfTheTurnedFrame()
{
    Settings settings = plain(hd);
    set(settings, "Crop", "player_map_flag", true);
    set(settings, "Effect", "crop_rotation_angle", 90);
    append(settings, "Subtitle", {{key("trackid"), 1}, {key("sub_vposition"), 1024}}); // 0.8 of 1280.
    QCOMPARE(zokit::subtitlePlan(settings, clipWithTracks()).use, SubtitleUse::Soft);
    set(settings, "Effect", "crop_rotation_angle", 180);
    QCOMPARE(zokit::subtitlePlan(settings, clipWithTracks()).use, SubtitleUse::BurnText);
}

void TestKitSubtitleScript::whatCannotBeDoneIsTold()
{
    Settings settings = plain(hd);
    append(settings, "Subtitle", {{key("trackid"), 2}, {key("sub_fontcolor"), QColor(Qt::red)}});
    const zokit::SubtitlePlan plan = zokit::subtitlePlan(settings, clipWithTracks());
    QCOMPARE(plan.use, SubtitleUse::BurnBitmap);
    QCOMPARE(plan.warnings.size(), 1);
    QCOMPARE(plan.warnings.first().text(),
             QStringLiteral("This track of subtitles consists of pictures: font and colours stay as they are, only "
                            "place and transparency follow."));
    settings.find(QStringLiteral("Subtitle"))->items.first().values = {{key("trackid"), 2}, {key("sub_vposition"), 9}};
    QVERIFY(zokit::subtitlePlan(settings, clipWithTracks()).warnings.isEmpty());

    zokit::MediaInfo teletext = clipWithTracks();
    teletext.streams[1].track.codec = QStringLiteral("dvb_teletext");
    settings.find(QStringLiteral("Subtitle"))->items.first().values = {{key("trackid"), 1}};
    QVERIFY(zokit::subtitlePlan(settings, teletext).error.isEmpty());
    settings.output.insert(QStringLiteral("burn-subtitles"), true);
    QCOMPARE(zokit::subtitlePlan(settings, teletext).error.text(),
             QStringLiteral("Track 1 holds dvb_teletext, which ffmpeg cannot draw. Choose another track, or leave it "
                            "soft."));

    settings.find(QStringLiteral("Subtitle"))->items.first().values = {{key("trackid"), 3}};
    QVERIFY(zokit::subtitlePlan(settings, clipWithTracks()).hasOwnStyles);
    for (const auto& [file, hasStyles] : {std::pair("/a.ASS", true), {"/a.ssa", true}, {"/a.srt", false}}) {
        settings.find(QStringLiteral("Subtitle"))->items.first().values = {{key("sub_fromfile"), true},
                                                                           {key("file"), key(file)}};
        QCOMPARE(zokit::subtitlePlan(settings, clipWithTracks()).hasOwnStyles, hasStyles);
    }
}

void TestKitSubtitleScript::cuesTellWhenAndWhat()
{
    const QByteArray ass = "[Script Info]\nDialogue: 0,0:00:00.00,0:00:09.00,Default,not here\n"
                           "[Events]\nFormat: Layer, Start, End, Style, Text\r\n"
                           "Dialogue: 0,0:00:01.50,0:00:02.00,Default,{\\an8}One,\\Ntwo\r\n"
                           "Comment: 0,0:00:02.00,0:00:03.00,Default,no\n"
                           "Dialogue: 0,1:02:03.25,1:02:04.00,Default,\n"
                           "Dialogue: 0,0:00:05.00,0:00:05.00,Default,no time\n"
                           "Dialogue: 0,soon,later,Default,when?\n"
                           "Dialogue: 0,0:00:05.00,later,Default,how long?\n"
                           "Dialogue: 0\n";
    const QVector<zokit::SubtitleCue> cues = zokit::subtitleCues(ass);
    QCOMPARE(cues.size(), 2);
    QCOMPARE(cues.at(0).from, 1.5);
    QCOMPARE(cues.at(0).to, 2.0);
    QCOMPARE(cues.at(0).text, QStringLiteral("One, two"));
    QCOMPARE(cues.at(1).from, 3723.25);
    QCOMPARE(cues.at(1).text, QString());
    QVERIFY(zokit::subtitleCues(QByteArray()).isEmpty());
}

ZOEFFECT_TEST_MAIN(TestKitSubtitleScript)
#include "tst_kit_subtitlescript.moc"
