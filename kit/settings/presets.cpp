// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/presets.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSaveFile>
#include <QSet>
#include <QStandardPaths>

#include <zokit/settingsfile.h>

#include "jsontext_p.h"
#include "missingfiles_p.h"
#include "names_p.h"
#include "turn_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

const QString ending = QStringLiteral(".zoeffect.json");

/// Letters that stand for themselves in a file's name; of others the UTF-8 bytes in hexadecimal, "%2f".
bool isPlain(char letter)
{
    const auto byte = static_cast<unsigned char>(letter);
    constexpr unsigned char firstBeyondAscii = 0x80;
    constexpr unsigned char erase = 0x7f;
    return byte >= firstBeyondAscii || (byte > ' ' && !std::strchr("/%\"*:<>?\\|", letter) && byte != erase)
           || byte == ' ';
}

QString encoded(const QString& name)
{
    QByteArray result;
    const QByteArray bytes = name.toUtf8();
    for (int i = 0; i < bytes.size(); ++i) {
        const bool hides = i == 0 && bytes.at(i) == '.';
        if (isPlain(bytes.at(i)) && !hides)
            result += bytes.at(i);
        else
            result += '%' + QByteArray(1, bytes.at(i)).toHex();
    }
    return QString::fromUtf8(result);
}

QString decoded(const QString& fileName)
{
    return QString::fromUtf8(QByteArray::fromPercentEncoding(fileName.toUtf8()));
}

/// A copy of \a path, which has its name when it is whole: what was there stays until then.
Message copyFile(const QString& path, const QString& copy, bool replace)
{
    if (QFile::exists(copy)) {
        if (QFileInfo(copy).canonicalFilePath() == QFileInfo(path).canonicalFilePath())
            return Message();
        if (!replace)
            return Message(Code::FileExists, {copy});
    }
    QFile source(path);
    if (!source.open(QIODevice::ReadOnly))
        return Message(Code::FileUnreadable, {path, source.errorString()});
    QSaveFile target(copy);
    bool isGood = target.open(QIODevice::WriteOnly);
    constexpr qint64 piece = qint64(1024) * 1024;
    while (isGood && !source.atEnd()) {
        const QByteArray bytes = source.read(piece);
        isGood = !bytes.isEmpty() && target.write(bytes) == bytes.size();
    }
    // A full disk may show when the last bytes go out, which commit() does not look at.
    return isGood && target.flush() && target.commit() ? Message()
                                                       : Message(Code::FileUnwritable, {copy, target.errorString()});
}

/// Copies the files that \a preset names to \a folder, which is made for them, and has it name the copies.
Message copyFiles(Settings& preset, const QString& folder, bool replace)
{
    QHash<QString, QString> copies; // By the file that was copied.
    for (TypeSettings& type : preset.effects) {
        for (int pos = 0; pos < type.items.size(); ++pos) {
            const QString key = fileKey(type, pos);
            const QString path = key.isEmpty() ? QString() : type.items.at(pos).values.value(key).toString();
            if (path.isEmpty())
                continue;
            if (!copies.contains(path)) {
                QString copy = QDir(folder).absoluteFilePath(QFileInfo(path).fileName());
                const auto isTaken = [&] { return std::find(copies.cbegin(), copies.cend(), copy) != copies.cend(); };
                for (int number = 2; isTaken(); ++number) // Two files of one name.
                    copy = QDir(folder).absoluteFilePath(
                        QStringLiteral("%1-%2").arg(number).arg(QFileInfo(path).fileName()));
                QDir().mkpath(folder);
                if (const Message refused = copyFile(path, copy, replace); !refused.isEmpty())
                    return refused;
                copies.insert(path, copy);
            }
            type.items[pos].values.insert(key, copies.value(path));
        }
    }
    return Message();
}

Message write(const Settings& preset, const QString& file)
{
    Message error;
    const QByteArray text = writePreset(preset, QFileInfo(file).absolutePath(), &error);
    if (!error.isEmpty())
        return Message(Code::InFile, {file}, error);
    return jsontext::save(file, text);
}

bool canBeName(const QString& name)
{
    return !name.isEmpty() && QString::fromUtf8(name.toUtf8()) == name;
}

} // namespace

Presets::Presets(const QString& folder) : m_folder(folder)
{
    if (m_folder.isEmpty())
        m_folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
                   + QStringLiteral("/zoeffect/presets");
}

QString Presets::folder() const
{
    return m_folder;
}

QStringList Presets::names() const
{
    QStringList found;
    for (const QString& file : QDir(m_folder).entryList({QLatin1Char('*') + ending}, QDir::Files, QDir::Name))
        found.append(decoded(file.chopped(ending.size())));
    return found;
}

QString Presets::path(const QString& name) const
{
    return QDir(m_folder).filePath(encoded(name) + ending);
}

Presets::Loaded Presets::load(const QString& name) const
{
    Loaded loaded;
    if (!QFile::exists(path(name))) {
        loaded.error = Message(Code::PresetMissing, {name, nearest(name, names())});
        return loaded;
    }
    const std::optional<QByteArray> text = jsontext::load(path(name), &loaded.error);
    if (!text)
        return loaded;
    const ReadSettings read = readPreset(*text, m_folder);
    loaded.error = read.error;
    loaded.preset = read.settings.value_or(Settings());
    loaded.warnings = missingFiles(loaded.preset);
    return loaded;
}

Presets::Named Presets::loadNamed(const QString& word) const
{
    Named named;
    if (!word.contains(QLatin1Char('/')) && !word.endsWith(QLatin1String(".json"))) {
        const Loaded loaded = load(word);
        const bool isFile = loaded.error.code() == Code::PresetMissing && QFile::exists(word);
        return {loaded.preset, true, isFile ? Message(Code::PresetIsFile, {word}) : loaded.error};
    }
    const std::optional<QByteArray> text = jsontext::load(word, &named.error);
    if (!text)
        return named;
    const std::optional<QJsonObject> form = jsontext::object(*text, &named.error);
    named.isPreset = form && form->contains(QStringLiteral("base")) && !form->contains(QStringLiteral("media"));
    const QString folder = QFileInfo(word).absolutePath();
    const ReadSettings read = named.isPreset ? readPreset(*text, folder) : readSettings(*text, folder);
    named.settings = read.settings.value_or(Settings());
    named.error = read.error.isEmpty() ? Message() : Message(Code::InFile, {word}, read.error);
    return named;
}

Message Presets::save(const QString& name, const Settings& preset, bool replace) const
{
    if (!canBeName(name))
        return Message(Code::PresetName);
    if (!replace && QFile::exists(path(name)))
        return Message(Code::PresetExists, {name});
    Message error;
    const QByteArray text = writePreset(preset, m_folder, &error);
    if (!error.isEmpty())
        return Message(Code::InFile, {name}, error);
    QDir().mkpath(m_folder);
    return jsontext::save(path(name), text);
}

Message Presets::remove(const QString& name) const
{
    if (!QFile::exists(path(name)))
        return Message(Code::PresetMissing, {name, nearest(name, names())});
    QFile file(path(name));
    return file.remove() ? Message() : Message(Code::FileUnwritable, {file.fileName(), file.errorString()});
}

Message Presets::rename(const QString& from, const QString& to, bool replace) const
{
    if (!QFile::exists(path(from)))
        return Message(Code::PresetMissing, {from, nearest(from, names())});
    if (!canBeName(to))
        return Message(Code::PresetName);
    if (!replace && QFile::exists(path(to)))
        return Message(Code::PresetExists, {to});
    const int renamed = std::rename(QFile::encodeName(path(from)).constData(), QFile::encodeName(path(to)).constData());
    return renamed == 0 ? Message() : Message(Code::FileUnwritable, {path(to), qt_error_string()});
}

Message Presets::import(const QStringList& files, bool replace, Messages* missing) const
{
    QVector<QPair<QString, Settings>> checked;
    QSet<QString> taken;
    for (const QString& file : files) {
        Message error;
        const std::optional<QByteArray> text = jsontext::load(file, &error);
        if (!text)
            return error;
        const ReadSettings read = readPreset(*text, QFileInfo(file).absolutePath());
        if (!read.settings)
            return Message(Code::InFile, {file}, read.error);
        const QString fileName = QFileInfo(file).fileName();
        const QString name =
            decoded(fileName.endsWith(ending) ? fileName.chopped(ending.size()) : QFileInfo(file).completeBaseName());
        if (!canBeName(name))
            return Message(Code::PresetName);
        if (taken.contains(name) || (!replace && QFile::exists(path(name))))
            return Message(Code::PresetExists, {name});
        taken.insert(name);
        checked.append({name, *read.settings});
    }
    for (const auto& [name, preset] : checked) {
        const Message error = save(name, preset, replace);
        if (!error.isEmpty())
            return error;
        if (missing)
            *missing += missingFiles(preset);
    }
    return Message();
}

Message Presets::exportWithFiles(const QString& name, const QString& file, bool replace) const
{
    const Loaded loaded = load(name);
    if (!loaded.error.isEmpty())
        return loaded.error;
    if (!loaded.warnings.isEmpty())
        return loaded.warnings.first();
    if (!replace && QFile::exists(file))
        return Message(Code::FileExists, {file});
    Settings preset = loaded.preset;
    const QString stem = file.endsWith(ending) ? file.chopped(ending.size()) : file;
    const Message refused = copyFiles(preset, stem + QStringLiteral(".files"), replace);
    if (!refused.isEmpty())
        return refused;
    return write(preset, file);
}

Message Presets::exportTo(const QString& name, const QString& file, bool replace) const
{
    const Loaded loaded = load(name);
    if (!loaded.error.isEmpty())
        return loaded.error;
    if (!replace && QFile::exists(file))
        return Message(Code::FileExists, {file});
    return write(loaded.preset, file);
}

Settings presetFrom(const Settings& settings, const QStringList& what)
{
    Settings preset;
    // Only the types that are meant stand in it, empty at first.
    for (const TypeSettings& type : settings.effects) {
        const auto names = [&](const QString& text) { return text.section(QLatin1Char(':'), 0, 0) == type.type; };
        if (!what.isEmpty() && std::none_of(what.cbegin(), what.cend(), names))
            continue;
        if (what.isEmpty() || what.contains(type.type)) {
            preset.effects.append(type);
            continue;
        }
        TypeSettings part;
        part.type = type.type;
        part.selected = type.selected;
        for (const QString& text : what) {
            if (!names(text))
                continue;
            bool isPosition = false;
            const QString second = text.section(QLatin1Char(':'), 1, 1);
            const int pos = second.toInt(&isPosition);
            if (isPosition && pos >= 0 && pos < type.items.size())
                part.items.append(type.items.at(pos));
            else if (!isPosition && type.values.contains(second))
                part.values.insert(second, type.values.value(second));
        }
        preset.effects.append(part);
    }
    preset.media.frame = turnOf(preset).of(baseFrame(settings)); // Without the turn it is for a frame that lies so.
    const auto includes = [&](const char* name) { return what.isEmpty() || what.contains(QLatin1String(name)); };
    if (includes("Output"))
        preset.output = settings.output;
    preset.output.remove(QStringLiteral("trim"));
    if (what.contains(QLatin1String("Tracks")))
        preset.tracks = settings.tracks;
    return preset;
}

CarryOver carryOfPreset(const Settings& preset)
{
    CarryOver carry;
    for (const TypeSettings& type : preset.effects)
        carry.what.append(type.type);
    if (!preset.output.isEmpty())
        carry.what.append(types::output);
    if (!preset.tracks.isEmpty())
        carry.what.append(types::tracks);
    return carry;
}

} // namespace zokit
