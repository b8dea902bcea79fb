// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/settingsfile.h>

#include <QFileInfo>

#include "jsontext_p.h"
#include "settingsform_p.h"

namespace zokit {

namespace {

ReadSettings read(const QByteArray& json, const QString& folder, bool preset)
{
    Message error;
    const std::optional<QJsonObject> root = jsontext::object(json, &error);
    return root ? form::read(*root, folder, preset) : ReadSettings{std::nullopt, error, {}};
}

} // namespace

ReadSettings readSettings(const QByteArray& json, const QString& folder)
{
    return read(json, folder, false);
}

ReadSettings readPreset(const QByteArray& json, const QString& folder)
{
    return read(json, folder, true);
}

QByteArray writeSettings(const Settings& settings, const QString& folder, Message* error)
{
    Message unsaid;
    return form::write(settings, folder, false, error ? *error : unsaid);
}

QByteArray writePreset(const Settings& preset, const QString& folder, Message* error)
{
    Message unsaid;
    return form::write(preset, folder, true, error ? *error : unsaid);
}

ReadSettings loadSettings(const QString& path)
{
    Message error;
    const std::optional<QByteArray> text = jsontext::load(path, &error);
    if (!text)
        return {std::nullopt, error, {}};
    ReadSettings read = readSettings(*text, QFileInfo(path).absolutePath());
    if (!read.error.isEmpty())
        read.error = Message(Message::Code::InFile, {path}, read.error);
    if (read.settings)
        read.warnings += missingFiles(*read.settings);
    return read;
}

Message saveSettings(const Settings& settings, const QString& path)
{
    Message error;
    const QByteArray text = writeSettings(settings, QFileInfo(path).absolutePath(), &error);
    return error.isEmpty() ? jsontext::save(path, text) : Message(Message::Code::InFile, {path}, error);
}

} // namespace zokit
