// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "planfile.h"

#include <fcntl.h>
#include <unistd.h>

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QFontInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <zokit/settingsfile.h>

#include "progress.h"
#include "words.h"

namespace zoconvert {

namespace {

QString text(const char* word)
{
    return QString::fromLatin1(word);
}

QString dateOf(const QFileInfo& info)
{
    return info.lastModified().toUTC().toString(Qt::ISODateWithMs);
}

QString familyOf(const QVariant& font)
{
    return font.userType() == QMetaType::QFont ? font.value<QFont>().family() : font.toString();
}

/// What is drawn for a family that may not be installed.
QString foundFamily(const QString& family)
{
    return QFontInfo(QFont(family)).family();
}

/// Files and families that the selected items name.
void collect(const zokit::Settings& settings, QStringList* files, QStringList* families)
{
    for (const zokit::TypeSettings& type : settings.effects) {
        for (const zokit::Item& item : type.items) {
            if (!type.selected || !item.selected)
                continue;
            const zokit::Values& values = item.values;
            const bool isText = values.value(text("wm_istextwatermark")).toBool();
            if (type.type == text("Watermark") && isText)
                families->append(familyOf(values.value(text("wm_fontname"))));
            else if (type.type == text("Watermark"))
                files->append(values.value(text("wm_imageurl")).toString());
            if (type.type == text("Subtitle"))
                families->append(familyOf(values.value(text("sub_fontname"))));
            if (values.value(text("audio_isfile")).toBool() || values.value(text("sub_fromfile")).toBool())
                files->append(values.value(text("file")).toString());
        }
    }
    files->removeAll(QString());
    files->removeDuplicates();
    families->removeAll(QString());
    families->removeDuplicates();
}

QJsonArray needsOf(const zokit::Settings& settings)
{
    QStringList files;
    QStringList families;
    collect(settings, &files, &families);
    QJsonArray needs;
    for (const QString& file : std::as_const(files)) {
        const QFileInfo info(file);
        needs.append(QJsonObject{{text("file"), file}, {text("bytes"), info.size()}, {text("date"), dateOf(info)}});
    }
    for (const QString& family : std::as_const(families))
        needs.append(QJsonObject{{text("font"), family}, {text("family"), foundFamily(family)}});
    return needs;
}

} // namespace

QByteArray planLine(int number, const FileJob& file, const QVariantMap& options)
{
    const QByteArray settings = zokit::writeSettings(file.job.settings, QString());
    const QJsonObject line{{text("job"), number},
                           {text("input"), file.job.input},
                           {text("output"), file.job.output},
                           {text("settings"), QJsonDocument::fromJson(settings).object()},
                           {text("options"), QJsonObject::fromVariantMap(options)},
                           {text("needs"), needsOf(file.job.settings)}};
    return QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<PlannedJob> readPlanLine(const QJsonObject& line, QString* why)
{
    PlannedJob planned;
    planned.number = line.value(text("job")).toInt();
    planned.needs = line.value(text("needs")).toArray();
    FileJob& file = planned.file;
    file.input = file.clip = file.job.input = line.value(text("input")).toString();
    file.output = file.job.output = line.value(text("output")).toString();
    if (planned.number < 1 || !QFileInfo(file.job.input).isAbsolute() || !QFileInfo(file.job.output).isAbsolute())
        return std::nullopt;
    const QJsonObject options = line.value(text("options")).toObject();
    planned.threads = options.value(text("threads")).toInt();
    planned.stall = options.value(text("stall")).toInt();
    const QJsonObject settings = line.value(text("settings")).toObject();
    const zokit::ReadSettings read = zokit::readSettings(QJsonDocument(settings).toJson(), QString());
    *why = read.error.text();
    if (!read.settings || planned.threads < 0 || planned.stall < 0)
        return std::nullopt;
    file.job.settings = *read.settings;
    file.job.skips = true;
    return planned;
}

QString lackingOf(const QJsonArray& needs)
{
    for (const QJsonValue& value : needs) {
        const QJsonObject need = value.toObject();
        const QString file = need.value(text("file")).toString();
        const QString family = need.value(text("font")).toString();
        const QFileInfo info(file);
        if (!file.isEmpty() && !info.isFile())
            return zokit::missingFile(file).text();
        if (!file.isEmpty()
            && (double(info.size()) != need.value(text("bytes")).toDouble()
                || dateOf(info) != need.value(text("date")).toString()))
            return say(Say::NeedDiffers, {file});
        if (!family.isEmpty() && foundFamily(family) != need.value(text("family")).toString())
            return say(Say::FontDiffers, {need.value(text("family")).toString(), foundFamily(family)});
    }
    return {};
}

QString resultsPath(const QString& plan)
{
    return plan + QStringLiteral(".results");
}

bool addResult(const QString& plan, int number, zokit::Outcome outcome, const QString& reason)
{
    const QJsonObject object{
        {text("job"), number}, {text("outcome"), text(outcomeWord(outcome))}, {text("reason"), reason}};
    const QByteArray line = QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
    constexpr mode_t usualMode = 0666; // What the umask leaves of it.
    const int opened =
        ::open(QFile::encodeName(resultsPath(plan)).constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, usualMode);
    if (opened < 0)
        return false;
    const bool isWhole = ::write(opened, line.constData(), static_cast<std::size_t>(line.size())) == line.size();
    ::close(opened);
    return isWhole;
}

} // namespace zoconvert
