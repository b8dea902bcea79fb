// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QColor>
#include <QFont>
#include <QtTest>

#include <zoeffectcatalogue.h>

#include <zokit/address.h>
#include <zokit/properties.h>

using zokit::Message;
using Code = zokit::Message::Code;

namespace {

struct Table {
    const char* type;
    const EffectDefaultVal* properties;
};

const Table tables[] = {
    {"Crop", cropDefaultVal},
    {"Watermark", WatermarkDefaultVal},
    {"Subtitle", SubtitleDefaultVal},
    {"Audio", AudioDefaultVal},
    {"Color", BCSDefaultVal},
    {"Effect", frameEffectsDefaultVal},
    {"Audio_Fade_Inout", audioFadeInOut},
    {"Audio_Normalize", audioNormalize},
    {"Audio_BandPass", audioBandpass},
    {"Audio_Chorus", audioChorus},
    {"Audio_Flanger", audioFlanger},
    {"Audio_Echo", audioEcho},
    {"Audio_Speed", audioSpeed},
};

/// What the catalogue says a bound is; invalid for none.
QVariant told(const QVariant& bound, const QString& key)
{
    if (bound.userType() != QMetaType::QString)
        return bound;
    return key.contains(QLatin1String("hposition")) ? QStringLiteral("frame width") : QStringLiteral("frame height");
}

zokit::ValueKind kindOf(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
        return zokit::ValueKind::Bool;
    case QMetaType::Int:
        return zokit::ValueKind::Integer;
    case QMetaType::Double:
        return zokit::ValueKind::Number;
    case QMetaType::QColor:
        return zokit::ValueKind::Color;
    case QMetaType::QFont:
        return zokit::ValueKind::Font;
    default:
        return zokit::ValueKind::Text;
    }
}

} // namespace

class TestKitProperties : public QObject {
    Q_OBJECT

private slots:
    void everyPropertyOfTheCatalogueHasItsRow();
    void everyRowSaysAllThatIsAsked();
    void keysStandOnce();
    void typesStandInTheOrderOfTheTree();
    void frameEffectsAreTwenty();
    void choiceWithoutANameSaysItsValue();
    void valueIsRead_data();
    void valueIsRead();
    void valueIsRefused_data();
    void valueIsRefused();
    void addressIsRead_data();
    void addressIsRead();
    void nearestNameIsFound_data();
    void nearestNameIsFound();
    void wordsOfAPersonStayAsTheyAre();
    void germanIsComplete();
};

void TestKitProperties::everyPropertyOfTheCatalogueHasItsRow()
{
    int count = 0;
    for (const Table& table : tables) {
        for (const EffectDefaultVal* entry = table.properties; entry->key; ++entry) {
            ++count;
            const QString key = QString::fromUtf8(entry->key);
            const zokit::Property* row = zokit::findProperty(QString::fromUtf8(table.type), key);
            QVERIFY2(row, entry->key);
            QVERIFY2(row->hasDefault(), entry->key);
            QCOMPARE(row->defaultValue(), entry->defaultValue);
            // A word that stands for a number is a number.
            const bool isWord = key == QLatin1String("crop_width") || key == QLatin1String("crop_height");
            QVERIFY2(row->kind == (isWord ? zokit::ValueKind::Integer : kindOf(entry->defaultValue)), entry->key);
            const bool bounded = entry->minValue != QVariant(0) || entry->maxValue != QVariant(0);
            if (bounded) {
                QCOMPARE(row->lowest, told(entry->minValue, key));
                QCOMPARE(row->highest, told(entry->maxValue, key));
            }
            for (const char* const* option = entry->options; option && *option; ++option) {
                const QVariant value = QString::fromUtf8(*option);
                const bool listed = std::any_of(row->choices.cbegin(), row->choices.cend(),
                                                [&](const zokit::Choice& choice) { return choice.value == value; });
                QVERIFY2(listed, *option);
            }
        }
    }
    QCOMPARE(count, 65);
}

void TestKitProperties::everyRowSaysAllThatIsAsked()
{
    for (const zokit::Property& row : zokit::properties()) {
        const QByteArray where = (row.type + QLatin1Char(':') + row.key).toUtf8();
        QVERIFY2(!row.label().isEmpty() && !row.help().isEmpty(), where);
        QVERIFY2(row.help().endsWith(QLatin1Char('.')), where);
        QVERIFY2(!row.groupName().isEmpty(), where);
        QVERIFY2(row.suits, where);
        const bool numeric = row.kind == zokit::ValueKind::Integer || row.kind == zokit::ValueKind::Number;
        const bool edited = row.control == zokit::Control::SpinBox || row.control == zokit::Control::Slider;
        QVERIFY2(!edited || (numeric && row.lowest.isValid() && row.highest.isValid()), where);
        QVERIFY2(row.control != zokit::Control::ComboBox || !row.choices.isEmpty(), where);
        for (const QString& key : row.belongsTo)
            QVERIFY2(zokit::findProperty(row.type, key), where);
    }
}

void TestKitProperties::keysStandOnce()
{
    QSet<QString> seen;
    for (const zokit::Property& row : zokit::properties()) {
        const QString name = row.type + QLatin1Char(':') + row.key;
        QVERIFY2(!seen.contains(name), qPrintable(name));
        seen.insert(name);
    }
}

void TestKitProperties::typesStandInTheOrderOfTheTree()
{
    const QStringList expected{QStringLiteral("Crop"),
                               QStringLiteral("Watermark"),
                               QStringLiteral("Subtitle"),
                               QStringLiteral("Audio"),
                               QStringLiteral("Color"),
                               QStringLiteral("Effect"),
                               QStringLiteral("Audio_Fade_Inout"),
                               QStringLiteral("Audio_Normalize"),
                               QStringLiteral("Audio_BandPass"),
                               QStringLiteral("Audio_Chorus"),
                               QStringLiteral("Audio_Flanger"),
                               QStringLiteral("Audio_Echo"),
                               QStringLiteral("Audio_Speed")};
    QCOMPARE(zokit::effectTypes(), expected);
}

void TestKitProperties::frameEffectsAreTwenty()
{
    QStringList names;
    for (const zokit::FrameEffect& effect : zokit::frameEffects()) {
        names.append(QString::fromUtf8(effect.name));
        QCOMPARE(effect.id, int(names.size()));
        QVERIFY(!effect.help().isEmpty());
    }
    QCOMPARE(
        names.join(QLatin1Char(' ')),
        QStringLiteral("Blur Sharpen Mirror Flip Sepia Greyscale Negative Emboss Mosaic Noise Vignette Old Film Edge "
                       "Posterize Warm Cool Fisheye Glow Kaleidoscope Grid"));
}

void TestKitProperties::choiceWithoutANameSaysItsValue()
{
    const zokit::Property* shape = zokit::findProperty(QStringLiteral("Crop"), QStringLiteral("crop_aspectratio"));
    QCOMPARE(shape->choiceName(QStringLiteral("Crop Area")), QStringLiteral("Free"));
    QCOMPARE(shape->choiceName(QStringLiteral("16:9")), QStringLiteral("16:9"));
    QCOMPARE(shape->choiceName(QStringLiteral("9:1")), QStringLiteral("9:1")); // Of a later version.
    const zokit::Property* container = zokit::findProperty(QStringLiteral("Output"), QStringLiteral("container"));
    QCOMPARE(container->choiceName(QStringLiteral("mkv")), QStringLiteral("mkv"));
}

void TestKitProperties::valueIsRead_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QVariant>("given");
    QTest::addColumn<QVariant>("expected");
    const auto row = [](const char* name, const char* address, const QVariant& given, const QVariant& expected) {
        QTest::newRow(name) << QString::fromLatin1(address) << given << expected;
    };
    row("a number", "Color:bcs_contrast", 20, 20);
    row("a number as text", "Color:bcs_contrast", QStringLiteral("20"), 20);
    row("a whole number with a point", "Color:bcs_contrast", 20.0, 20);
    row("a negative number", "Color:bcs_contrast", QStringLiteral("-50"), -50);
    row("a number of another width", "Color:bcs_contrast", qlonglong(7), 7);
    row("a number in bytes", "Color:bcs_contrast", QByteArray("-7"), -7);
    row("a double", "Watermark:wm_transfactor", QStringLiteral("1.25"), 1.25);
    row("a double from a whole number", "Watermark:wm_transfactor", 2, 2.0);
    row("true", "Crop:crop_keepaspectratio", QStringLiteral("true"), true);
    row("false", "Crop:crop_keepaspectratio", QStringLiteral("FALSE"), false);
    row("zero", "Crop:crop_keepaspectratio", 0, false);
    row("one", "Crop:crop_keepaspectratio", QStringLiteral("1"), true);
    row("a check state", "Effect:_checkstate", 2, true);
    row("a colour", "Watermark:wm_fontcolor", QStringLiteral("#ff8000"), QColor(255, 128, 0));
    row("a colour with alpha first", "Watermark:wm_fontcolor", QStringLiteral("#80ffffff"), QColor(255, 255, 255, 128));
    row("a colour by name", "Watermark:wm_fontcolor", QStringLiteral("rebeccapurple"), QVariant());
    row("no colour at all", "Watermark:wm_fontcolor", QColor(), QVariant());
    row("a colour of CSS", "Watermark:wm_fontcolor", QStringLiteral("orange"), QColor(255, 165, 0));
    row("a family", "Watermark:wm_fontname", QStringLiteral("DejaVu Sans"), QFont(QStringLiteral("DejaVu Sans")));
    row("a choice", "Watermark:wm_fontstyle", QStringLiteral("Bold Italic"), QStringLiteral("Bold Italic"));
    row("a choice by number", "Audio_BandPass:audio_bandpass_type", QStringLiteral("3"), 3);
    row("the word of a crop", "Crop:crop_width", QStringLiteral("source_val"), QStringLiteral("source_val"));
    row("a crop in pixels", "Crop:crop_width", QStringLiteral("800"), 800);
    row("a text", "Watermark:wm_textcontent", QStringLiteral(" spaced "), QStringLiteral(" spaced "));
    row("a text of digits", "Watermark:wm_textcontent", 5, QStringLiteral("5"));
    row("a place at the edge", "Watermark:wm_hposition", 1280, 1280);
    row("a place before the edge", "Watermark:wm_hposition", -400, -400);
    row("languages", "Tracks:audio-language", QStringLiteral("fra, eng"),
        QStringList{QStringLiteral("fra"), QStringLiteral("eng")});
    row("a number for a language", "Tracks:audio-language", 5, QStringList{QStringLiteral("5")});
    row("a size", "Output:size", QStringLiteral("1280x720"), QStringLiteral("1280x720"));
    row("an exact size", "Output:size", QStringLiteral("1280x720,exact"), QStringLiteral("1280x720,exact"));
    row("the largest exact size", "Output:size", QStringLiteral("8192x8192,exact"), QStringLiteral("8192x8192,exact"));
    row("a box of any size", "Output:size", QStringLiteral("99999x99999"), QStringLiteral("99999x99999"));
    row("a range", "Output:trim", QStringLiteral("12,40.5"), QVariantList{12.0, 40.5});
    row("a range as list", "Output:trim", QVariantList{0, 1}, QVariantList{0.0, 1.0});
    row("a codec", "Output:video-codec", QStringLiteral("hevc"), QStringLiteral("hevc"));
}

void TestKitProperties::valueIsRead()
{
    QFETCH(QString, address);
    QFETCH(QVariant, given);
    QFETCH(QVariant, expected);
    const zokit::Property* property =
        zokit::findProperty(address.section(QLatin1Char(':'), 0, 0), address.section(QLatin1Char(':'), 1));
    QVERIFY(property);
    const zokit::ReadValue read = zokit::readValue(*property, given, QSize(1280, 720), address);
    if (!expected.isValid()) { // CSS names that Qt does not know are refused, not guessed.
        QCOMPARE(int(read.error.code()), int(Code::NotAColor));
        return;
    }
    QVERIFY2(read.error.isEmpty(), qPrintable(read.error.text()));
    QCOMPARE(read.value.userType(), expected.userType());
    QCOMPARE(read.value, expected);
}

void TestKitProperties::valueIsRefused_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QVariant>("given");
    QTest::addColumn<QString>("sentence");
    const auto row = [](const char* address, const QVariant& given, const char* sentence) {
        QTest::newRow(sentence) << QString::fromLatin1(address) << given << QString::fromUtf8(sentence);
    };
    row("Color:bcs_contrast", 400, "Color:bcs_contrast: 400 is not between -50 and 50.");
    row("Color:bcs_contrast", QStringLiteral("-51"), "Color:bcs_contrast: -51 is not between -50 and 50.");
    row("Color:bcs_contrast", QStringLiteral("abc"), "Color:bcs_contrast: abc is no whole number.");
    row("Color:bcs_contrast", QStringLiteral("20.5"), "Color:bcs_contrast: 20.5 is no whole number.");
    row("Color:bcs_contrast", true, "Color:bcs_contrast: true is no whole number.");
    row("Color:bcs_contrast", QStringLiteral("1e400"), "Color:bcs_contrast: 1e400 is no whole number.");
    row("Color:bcs_contrast", QStringLiteral("nan"), "Color:bcs_contrast: nan is no whole number.");
    row("Color:bcs_contrast", QString(), "Color:bcs_contrast:  is no whole number.");
    row("Watermark:wm_transfactor", QStringLiteral("x"), "Watermark:wm_transfactor: x is no number.");
    row("Crop:crop_keepaspectratio", QStringLiteral("yes"),
        "Crop:crop_keepaspectratio: yes is neither true nor false.");
    row("Crop:crop_keepaspectratio", 5, "Crop:crop_keepaspectratio: 5 is neither true nor false.");
    row("Watermark:wm_fontcolor", QStringLiteral("#fff"),
        "Watermark:wm_fontcolor: #fff is no colour. Write a name, #rrggbb, or #aarrggbb with the opacity first.");
    row("Watermark:wm_fontcolor", 5,
        "Watermark:wm_fontcolor: 5 is no colour. Write a name, #rrggbb, or #aarrggbb with the opacity first.");
    row("Watermark:wm_fontname", 5, "Watermark:wm_fontname: 5 is no font. Write the name of a family.");
    row("Watermark:wm_fontname", QStringLiteral("  "),
        "Watermark:wm_fontname:    is no font. Write the name of a family.");
    row("Watermark:wm_fontname",
        QVariantMap{{QStringLiteral("family"), QStringLiteral("Sans")}, {QStringLiteral("pints"), 12}},
        "Watermark:wm_fontname: {\"family\":\"Sans\",\"pints\":12} is no font. Write the name of a family.");
    row("Watermark:wm_fontstyle", QStringLiteral("Blod"),
        "Watermark:wm_fontstyle: Blod is none of Regular, Italic, Bold, Bold Italic. Did you mean Bold?");
    row("Audio_BandPass:audio_bandpass_type", 4, "Audio_BandPass:audio_bandpass_type: 4 is none of 0, 1, 2, 3.");
    row("Crop:crop_width", QStringLiteral("source"), "Crop:crop_width: source is no whole number.");
    row("Crop:crop_width", 1281, "Crop:crop_width: 1281 is not between 1 and 1280.");
    row("Watermark:wm_hposition", 1281, "Watermark:wm_hposition: 1281 is not between -400 and 1280.");
    row("Watermark:wm_textcontent", QVariantList{1}, "Watermark:wm_textcontent: a text is expected.");
    row("Output:size", QStringLiteral("1280*720"),
        "Output:size: 1280*720 is no size. Write WIDTHxHEIGHT, for example 1280x720, and ,exact behind it to force the "
        "shape.");
    row("Output:size", QStringLiteral("8192x8193,exact"),
        "Output:size: 8192x8193,exact has more than 67108864 pixels. Choose a smaller size.");
    row("Subtitle:trackid", QStringLiteral("3000000000"),
        "Subtitle:trackid: 3000000000 is not between -2147483648 and 2147483647.");
    row("Tracks:audio-language", QVariantMap{{QStringLiteral("a"), 1}},
        "Tracks:audio-language: {\"a\":1} is no list. Write words with commas between them.");
    row("Tracks:audio-language", QVariantList(),
        "Tracks:audio-language:  is no list. Write words with commas between them.");
    row("Tracks:audio-language", QStringLiteral("fra,,eng"),
        "Tracks:audio-language: fra,,eng is no list. Write words with commas between them.");
    row("Output:size", QStringList{QStringLiteral("12"), QStringLiteral("8")},
        "Output:size: 12,8 is no size. Write WIDTHxHEIGHT, for example 1280x720, and ,exact behind it to force the "
        "shape.");
    for (const char* range : {"1,2,3", "x,2", "1,x", "-1,2", "2,2"})
        QTest::newRow(range) << QStringLiteral("Output:trim") << QVariant(QString::fromLatin1(range))
                             << QStringLiteral("Output:trim: %1 is no range. Write FROM,TO in seconds, for example "
                                               "12,40.5; TO comes after FROM.")
                                    .arg(QString::fromLatin1(range));
    row("Output:trim", QStringLiteral("5,2"),
        "Output:trim: 5,2 is no range. Write FROM,TO in seconds, for example 12,40.5; TO comes after FROM.");
    row("Color:bcs_contrast", QPoint(1, 2), "Color:bcs_contrast: QPoint is no whole number.");
    row("Output:container", QStringLiteral("mp5"),
        "Output:container: mp5 is none of mp4, mkv, webm, mov. Did you mean mp4?");
}

void TestKitProperties::valueIsRefused()
{
    QFETCH(QString, address);
    QFETCH(QVariant, given);
    QFETCH(QString, sentence);
    const zokit::Property* property =
        zokit::findProperty(address.section(QLatin1Char(':'), 0, 0), address.section(QLatin1Char(':'), 1));
    QVERIFY(property);
    const zokit::ReadValue read = zokit::readValue(*property, given, QSize(1280, 720), address);
    QCOMPARE(read.error.text(), sentence);
    QVERIFY(!read.value.isValid());
}

void TestKitProperties::addressIsRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected"); // The address, or why it is none.
    const auto row = [](const char* text, const char* expected) {
        QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(expected);
    };
    row("Color:bcs_contrast", "Color:bcs_contrast");
    row("Watermark:0:wm_fontsize", "Watermark:0:wm_fontsize");
    row("Watermark:12:_checkstate", "Watermark:12:selected");
    row("Crop:selected", "Crop:selected");
    row("Output:quality", "Output:quality");
    row("Tracks:audio-language", "Tracks:audio-language");
    row("Colour:bcs_contrast", "There is no effect type Colour. Did you mean Color?");
    row("color:bcs_contrast", "There is no effect type color. Did you mean Color?");
    row("Color:contrast", "Color has no property contrast. Did you mean bcs_contrast?");
    row("Color:bcs_contrats", "Color has no property bcs_contrats. Did you mean bcs_contrast?");
    row("Color:0:bcs_contrast", "Color has no items. Leave the position out.");
    row("Tracks:selected", "Tracks has no property selected.");
    row("Output:qualty", "There is no output option qualty. Did you mean quality?");
    const char* const malformed = " is no address. Write TYPE:KEY or TYPE:POSITION:KEY, for example Color:bcs_contrast "
                                  "or Watermark:0:wm_fontsize.";
    for (const char* text : {"Color", "", ":", "Color:", ":bcs_contrast", "Watermark:x:wm_fontsize",
                             "Watermark:-1:wm_fontsize", "Watermark:+1:wm_fontsize", "Watermark: 1:wm_fontsize",
                             "Watermark:99999999999:wm_fontsize", "Watermark:0:wm_fontsize:1"})
        QTest::newRow(*text ? text : "nothing")
            << QString::fromUtf8(text) << QString::fromUtf8(text) + QString::fromUtf8(malformed);
}

void TestKitProperties::addressIsRead()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    const zokit::ReadAddress read = zokit::readAddress(text);
    QCOMPARE(read.address ? read.address->toString() : read.error.text(), expected);
}

void TestKitProperties::nearestNameIsFound_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("expected");
    QTest::newRow("one letter missing") << "waterark"
                                        << "Watermark";
    QTest::newRow("two letters changed places") << "Corp"
                                                << "Crop";
    QTest::newRow("capital letters") << "SUBTITLE"
                                     << "Subtitle";
    QTest::newRow("nothing near") << "Zebra"
                                  << "";
    QTest::newRow("nothing at all") << ""
                                    << "";
    QTest::newRow("a novel") << QString(100000, QLatin1Char('x')) << "";
}

void TestKitProperties::nearestNameIsFound()
{
    QFETCH(QString, word);
    QFETCH(QString, expected);
    QCOMPARE(zokit::nearest(word, {QStringLiteral("Crop"), QStringLiteral("Watermark"), QStringLiteral("Subtitle")}),
             expected);
}

void TestKitProperties::wordsOfAPersonStayAsTheyAre()
{
    const Message message(Code::NotAWholeNumber, {QStringLiteral("%2"), QStringLiteral("a%1\nb")});
    QCOMPARE(message.text(), QStringLiteral("%2: a%1\\nb is no whole number."));
    QCOMPARE(zokit::onOneLine(QStringLiteral("a\tb\x07 ") + QChar(0x202e) + QLatin1Char('!') + QChar(0x2028)
                              + QStringLiteral(" \u00e4")),
             QString::fromUtf8("a\\tb\\x07 \\u202e!\\u2028 \xc3\xa4"));
    // What turns the direction of a line, or ends it, and what stands just beside that in the table of letters.
    for (const int code : {0x200e, 0x200f, 0x202a, 0x2029, 0x2066, 0x2069})
        QCOMPARE(zokit::onOneLine(QString(QChar(code))), QStringLiteral("\\u%1").arg(code, 0, 16));
    for (const int code : {0x200d, 0x2010, 0x202f, 0x2064, 0x206a})
        QCOMPARE(zokit::onOneLine(QString(QChar(code))), QString(QChar(code)));
    // Without words there is nothing to fill in.
    QCOMPARE(Message().text(), QString());
    QCOMPARE(Message(Code::StepChange).text(), QStringLiteral("change "));
    QCOMPARE(Message(Code::StepChange, {QStringLiteral("Watermark:anchor")}).text(), QStringLiteral("change Anchor"));
    QCOMPARE(Message(Code::MemberType).text(), QStringLiteral(":  is expected."));
    QVERIFY(!(message == Message(Code::NotAWholeNumber, {QStringLiteral("%2")})));
    QVERIFY(!(message == Message(Code::NotANumber, message.arguments())));
    QVERIFY(message == Message(Code::NotAWholeNumber, message.arguments()));
}

void TestKitProperties::germanIsComplete()
{
    QHash<QString, QString> english;
    for (const zokit::Property& row : zokit::properties())
        english.insert(row.type + QLatin1Char(':') + row.key, row.help());
    QVERIFY(zokit::useLanguage(QLocale(QStringLiteral("de_AT"))));
    for (const zokit::Property& row : zokit::properties())
        QVERIFY2(row.help() != english.value(row.type + QLatin1Char(':') + row.key), row.helpText);
    for (const zokit::FrameEffect& effect : zokit::frameEffects())
        QVERIFY2(effect.help() != QString::fromUtf8(effect.helpText), effect.helpText);
    QCOMPARE(zokit::displayName(QStringLiteral("Color")), QStringLiteral("Farbe"));
    QCOMPARE(Message(Code::OutOfBounds, {QStringLiteral("Color:bcs_contrast"), QStringLiteral("400"),
                                         QStringLiteral("-50"), QStringLiteral("50")})
                 .text(),
             QStringLiteral("Color:bcs_contrast: 400 liegt nicht zwischen -50 und 50."));
    for (int code = 1; code <= int(Code::Last); ++code) {
        const Message message(static_cast<Code>(code),
                              {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")});
        const QString german = message.text();
        QVERIFY(zokit::useLanguage(QLocale(QLocale::English)));
        QVERIFY2(!message.text().isEmpty(), QByteArray::number(code));
        QVERIFY2(message.text() != german || message.text() == QLatin1String("a: b"), qPrintable(german));
        QVERIFY(zokit::useLanguage(QLocale(QLocale::German)));
    }
    QVERIFY(zokit::useLanguage(QLocale(QLocale::English)));
    QCOMPARE(zokit::displayName(QStringLiteral("Color")), QStringLiteral("Colour"));
}

QTEST_GUILESS_MAIN(TestKitProperties)
#include "tst_kit_properties.moc"
