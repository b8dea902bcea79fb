// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "embeddedpref_p.h"

#include <memory>
#include <utility>

#include <QDir>
#include <QFileInfo>
#include <QLockFile>

#include "preffile_p.h"

EmbeddedPref::EmbeddedPref(QString path, EmbeddedPref** created) : m_path(std::move(path))
{
    if (created)
        *created = this;
    if (m_path.isEmpty())
        return;
    const preffile::Content content = preffile::read(m_path);
    m_saved = content.entries;
    if (content.state != preffile::State::Damaged)
        return;

    // Another process may be setting the file aside, and write a new one, at this moment: what is done with
    // it is decided under the lock, from what is there then.
    if (const std::unique_ptr<QLockFile> turn = preffile::takeTurn(m_path))
        m_saved = currentEntries().value_or(guardedini::Entries());
}

bool EmbeddedPref::hasKey(const QString& key) const
{
    return m_unsaved.contains(key) || m_saved.contains(key);
}

QVariant EmbeddedPref::value(const QString& key, const QVariant& defaultValue) const
{
    const auto unsaved = m_unsaved.constFind(key);
    return unsaved != m_unsaved.constEnd() ? unsaved.value() : m_saved.value(key, defaultValue);
}

void EmbeddedPref::setValue(const QString& key, const QVariant& value, bool /*notify*/)
{
    m_unsaved.insert(key, value);
    if (!m_path.isEmpty())
        save();
}

void EmbeddedPref::save()
{
    if (!QDir().mkpath(QFileInfo(m_path).path()))
        return;
    const std::unique_ptr<QLockFile> turn = preffile::takeTurn(m_path);
    if (!turn)
        return;
    const std::optional<guardedini::Entries> current = currentEntries();
    if (!current)
        return;

    const guardedini::Merge merge = guardedini::merged(*current, m_unsaved);
    const bool nothingToWrite = merge.leftOut.size() == m_unsaved.size();
    if (nothingToWrite || !preffile::write(m_path, merge.file))
        return;
    m_saved = merge.entries;
    m_unsaved = merge.leftOut;
}

/// What the file holds by now; nothing when it must not be written. To be called with the turn to save.
std::optional<guardedini::Entries> EmbeddedPref::currentEntries()
{
    const preffile::Content content = preffile::read(m_path);
    switch (content.state) {
    case preffile::State::Whole:
    case preffile::State::Missing:
        return content.entries;
    case preffile::State::Unreadable:
        return std::nullopt;
    case preffile::State::Damaged:
        break;
    }
    if (!setDamagedFileAside())
        return std::nullopt;

    // What was read while the file was whole is still good, and belongs into the new one.
    for (auto it = m_saved.cbegin(); it != m_saved.cend(); ++it) {
        if (!m_unsaved.contains(it.key()))
            m_unsaved.insert(it.key(), it.value());
    }
    return guardedini::Entries();
}

bool EmbeddedPref::setDamagedFileAside()
{
    const std::optional<QString> asideName = preffile::setAside(m_path);
    if (asideName) {
        qWarning(R"(zoeffect: "%s" is damaged and was set aside as "%s")", qUtf8Printable(m_path),
                 qUtf8Printable(*asideName));
        return true;
    }
    if (!m_warnedInVain) {
        qWarning(R"(zoeffect: "%s" is damaged and cannot be set aside; changes stay in memory)",
                 qUtf8Printable(m_path));
        m_warnedInVain = true;
    }
    return false;
}
