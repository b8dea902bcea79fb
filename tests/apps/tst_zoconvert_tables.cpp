// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Help, manual page, completions and schema say the same, since they are made from the same tables.

#include <QJsonObject>
#include <QTranslator>
#include <QtTest>

#include <zokit/outputoptions.h>
#include <zokit/schema.h>

#include "commandline.h"
#include "commands.h"
#include "completions.h"
#include "help.h"
#include "manual.h"
#include "testapplication.h"
#include "words.h"

using namespace zoconvert;

namespace {

/// Takes every kind of option, as a conversion does.
const Command& everything()
{
    static const Command command{"everything",
                                 "INPUT...",
                                 "Takes all options.",
                                 {},
                                 {},
                                 {},
                                 true,
                                 Outputs::All,
                                 0,
                                 -1,
                                 Takes::File,
                                 {},
                                 [](const Invocation&) { return 0; }};
    return command;
}

QString manualName(const Option& option)
{
    return QStringLiteral("\\-\\-") + QString(option.name).replace(QLatin1Char('-'), QLatin1String("\\-"));
}

} // namespace

class TestZoconvertTables : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyOptionIsToldEverywhere();
    void everyOutputOptionHasAnExampleAndASchema();
    void everyAddressIsCompleted();
    void summariesFitAScreen();
    void everyTextIsTranslated();
    void optionsAreReadInTheirOrder();
    void outputOptionsAreReadInTheirTypes();
    void anEmptyValueIsAValue();
    void aPreviewTakesWhatChangesThePicture();
};

void TestZoconvertTables::everyOptionIsToldEverywhere()
{
    const QString page = manual();
    const QString bash = bashCompletions();
    const QString zsh = zshCompletions();
    QVERIFY(commands().size() >= 8);
    QVERIFY(page.contains(QStringLiteral("\\fBzoconvert\\fR help [COMMAND]\n")));
    for (const Command& command : commands()) {
        const QString name = QString::fromLatin1(command.name);
        QVERIFY2(page.contains(QStringLiteral(".SS zoconvert %1\n").arg(name)), command.name);
        QVERIFY2(bash.contains(QStringLiteral("\n    %1)\n").arg(name)), command.name);
        QVERIFY2(zsh.contains(QStringLiteral("\n    %1)\n").arg(name)), command.name);
        QVERIFY2(summary(nullptr).contains(QStringLiteral("\n  %1 ").arg(name)), command.name);
        QVERIFY2(!command.examples.isEmpty(), command.name);
        for (const Option& option : optionsOf(command)) {
            const QString dashed = QStringLiteral("--") + option.name;
            const QByteArray where = name.toUtf8() + ' ' + dashed.toUtf8();
            QVERIFY2(help(&command).contains(dashed), where);
            QVERIFY2(!option.help.isEmpty() && !option.example.isEmpty(), where);
            QVERIFY2(help(&command).contains(option.example), where);
            QVERIFY2(page.contains(manualName(option)) || option.name == QLatin1String("help"), where);
            const QString ofCommand =
                zsh.section(QStringLiteral("\n    %1)\n").arg(name), 1).section(QStringLiteral(";;"), 0, 0);
            QVERIFY2(
                ofCommand.contains(QStringLiteral("'*%1%2[").arg(dashed, QLatin1String(option.isFlag() ? "" : "="))),
                where);
            const QString inBash =
                bash.section(QStringLiteral("\n    %1)\n").arg(name), 1).section(QStringLiteral(";;"), 0, 0);
            QVERIFY2(inBash.contains(dashed), where);
            QVERIFY2(option.isFlag() || bash.contains(name + QLatin1Char(':') + dashed + QLatin1Char(')')), where);
        }
    }
}

void TestZoconvertTables::everyOutputOptionHasAnExampleAndASchema()
{
    const QJsonObject schema = zokit::schema(zokit::SchemaOf::Settings)
                                   .value(QStringLiteral("properties"))
                                   .toObject()
                                   .value(QStringLiteral("output"))
                                   .toObject()
                                   .value(QStringLiteral("properties"))
                                   .toObject();
    for (const zokit::OutputOption& output : zokit::outputOptions()) {
        const QByteArray name = output.property.key.toUtf8();
        QVERIFY2(manual().contains(QString::fromUtf8(name).replace(QLatin1Char('-'), QLatin1String("\\-"))), name);
        QVERIFY2(help(nullptr).contains(QStringLiteral("--") + output.property.key), name);
        QCOMPARE(schema.contains(output.property.key), output.inSettings);
    }
    for (const Option& option : outputs())
        QVERIFY2(!option.example.isEmpty(), qPrintable(option.name));
}

void TestZoconvertTables::everyAddressIsCompleted()
{
    const QString page = manual();
    for (const zokit::Property& property : zokit::properties()) {
        if (property.control == zokit::Control::None)
            continue;
        const QByteArray where = property.type.toUtf8() + ':' + property.key.toUtf8();
        const QString ending = QLatin1Char(':') + property.key + QLatin1Char('=');
        QVERIFY2(bashCompletions().contains(ending), where);
        QVERIFY2(zshCompletions().contains(ending), where);
        const QString key = QString(property.key).replace(QLatin1Char('-'), QLatin1String("\\-"));
        QVERIFY2(page.contains(QStringLiteral("\\fB%1\\fR").arg(key)), where);
    }
}

void TestZoconvertTables::summariesFitAScreen()
{
    QStringList texts{summary(nullptr), summary(&everything())};
    for (const Command& command : commands())
        texts.append(summary(&command));
    for (const QString& text : texts) {
        const QStringList lines = text.split(QLatin1Char('\n'));
        QVERIFY2(lines.size() <= 24, qPrintable(text));
        for (const QString& line : lines)
            QVERIFY2(line.size() <= 80, qPrintable(line));
    }
}

void TestZoconvertTables::everyTextIsTranslated()
{
    QTranslator german;
    QVERIFY(german.load(QStringLiteral(ZOCONVERT_GERMAN)));
    const QStringList all = sentences() + tableTexts();
    QVERIFY(all.size() > 60);
    for (const QString& text : all)
        QVERIFY2(!german.translate("zoconvert", text.toUtf8()).isEmpty(), qPrintable(text));
}

void TestZoconvertTables::optionsAreReadInTheirOrder()
{
    const Parsed parsed = parse({"a", "--text", "A", "--set=Color:bcs_contrast=3", "b", "--sidecars", "--text=[x,y]",
                                 "c", "--", "--text", "--"},
                                everything());
    QCOMPARE(parsed.error, QString());
    QStringList edits;
    for (const Edit& edit : parsed.invocation.edits)
        edits.append(edit.option + QLatin1Char(' ') + edit.value);
    QCOMPARE(edits, (QStringList{"text A", "set Color:bcs_contrast=3", "sidecars ", "text [x,y]"}));
    QCOMPARE(parsed.invocation.words, (QStringList{"a", "b", "c", "--text", "--"}));
}

void TestZoconvertTables::outputOptionsAreReadInTheirTypes()
{
    const Parsed parsed = parse({"-nj4", "-o", "-x", "--trim", "1,2.5", "--size=640x360", "in"}, everything());
    QCOMPARE(parsed.error, QString());
    QCOMPARE(parsed.invocation.output, (zokit::Values{{QStringLiteral("dry-run"), true},
                                                      {QStringLiteral("jobs"), 4},
                                                      {QStringLiteral("output"), QStringLiteral("-x")},
                                                      {QStringLiteral("size"), QStringLiteral("640x360")},
                                                      {QStringLiteral("trim"), QVariantList{1.0, 2.5}}}));
    QCOMPARE(parse({"--quality", "low"}, everything()).error, QStringLiteral("--quality: low is no whole number."));
    QCOMPARE(parse({"-j", "0"}, everything()).error, QStringLiteral("--jobs: 0 is not between 1 and 64."));
}

void TestZoconvertTables::anEmptyValueIsAValue()
{
    const Parsed parsed = parse({"--text=", "in", "--text", "", "--text", "--"}, everything());
    QCOMPARE(parsed.error, QString());
    QCOMPARE(parsed.invocation.edits.size(), 3);
    QCOMPARE(parsed.invocation.edits.at(0).value, QString());
    QCOMPARE(parsed.invocation.edits.at(1).value, QString());
    QCOMPARE(parsed.invocation.edits.at(2).value, QStringLiteral("--"));
    QCOMPARE(parsed.invocation.words, QStringList{"in"});
}

void TestZoconvertTables::aPreviewTakesWhatChangesThePicture()
{
    Command preview = everything();
    preview.outputs = Outputs::OfPicture;
    QStringList names;
    for (const Option& option : outputsOf(preview))
        names.append(option.name);
    QCOMPARE(names, (QStringList{"pixel-format", "size", "hdr", "soft-subtitles", "burn-subtitles"}));
}

ZOEFFECT_TEST_MAIN(TestZoconvertTables)
#include "tst_zoconvert_tables.moc"
