// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "conversionsupport.h"

#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>

#include <zokit/filesettings.h>

namespace conversionsupport {

zokit::Settings settingsFor(const zokit::MediaInfo& media, const Edits& edits)
{
    zokit::Media known;
    known.file = media.file;
    known.frame = media.picture() ? media.picture()->shown : QSize();
    known.seconds = media.seconds;
    zokit::FileSettings file(known);
    for (auto it = edits.cbegin(); it != edits.cend(); ++it) {
        if (!it.key().contains(QLatin1Char(':'))) {
            const bool isOne = it.value().userType() == QMetaType::QVariantMap;
            const QVariantList items = isOne ? QVariantList{it.value()} : it.value().toList();
            for (const QVariant& item : items) {
                const zokit::FileSettings::Inserted made = file.insert(it.key(), item.toMap());
                if (made.item == 0)
                    qWarning("%s: %s", qPrintable(it.key()), qPrintable(made.error.text()));
            }
            continue;
        }
        const zokit::ReadAddress address = zokit::readAddress(it.key());
        const zokit::Message refused = file.setValue(file.thing(*address.address), address.address->key, it.value());
        if (!refused.isEmpty())
            qWarning("%s", qPrintable(refused.text()));
    }
    return file.settings();
}

Converted convert(const QString& input, const Edits& edits, const QString& output)
{
    Converted converted;
    zokit::Conversion conversion(zokit::findTools());
    QSignalSpy ended(&conversion, &zokit::Conversion::finished);
    QObject::connect(&conversion, &zokit::Conversion::planned, [&] {
        for (const zokit::TrackPlan& track : conversion.plan().tracks)
            converted.lines.append(track.line().text());
    });
    zokit::Job job;
    job.input = input;
    job.output = output;
    job.makeSettings = [&](const zokit::MediaInfo& media) {
        zokit::ReadSettings made;
        made.settings = settingsFor(media, edits);
        return made;
    };
    conversion.start(job);
    if (!ended.wait(patience))
        qWarning("the conversion does not end");
    else
        converted.result = ended.first().first().value<zokit::ConversionResult>();
    if (converted.result.outcome == zokit::Outcome::Done)
        converted.media = zokit::probe(zokit::findTools(), output).media.value_or(zokit::MediaInfo());
    converted.left =
        QFileInfo(output).absoluteDir().entryList(QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
    converted.left.removeAll(QFileInfo(output).fileName());
    return converted;
}

QString said(const zokit::ConversionResult& result)
{
    QStringList words{result.reason.text()};
    for (const zokit::Message& warning : result.warnings)
        words.append(warning.text());
    words.removeAll(QString());
    return words.join(QLatin1Char('\n'));
}

QByteArray outputOf(const QString& program, const QString& words, const QString& file)
{
    zokit::Command command;
    command.program = program;
    command.arguments = words.split(QLatin1Char(' ')).replaceInStrings(QStringLiteral("FILE"), file);
    return zokit::run(command).output;
}

} // namespace conversionsupport
