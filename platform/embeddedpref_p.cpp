// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "embeddedpref_p.h"

#include <utility>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QStringList>
#include <QThread>

#include "keydefaults_p.h"
#include "logcategory_p.h"
#include "storefile_p.h"
#include "valuejson_p.h"

namespace {

constexpr int longestWait = 150; // Milliseconds. With the file's own reading and writing a save stays below 250.
constexpr int retryInterval = 2000;
const QLatin1String typesWord("types");

/// The values of an entry that this version understands.
QVariantMap valuesOf(const QJsonObject& entry)
{
    QVariantMap values;
    for (auto it = entry.begin(); it != entry.end(); ++it) {
        if (const std::optional<QVariant> value = valuejson::fromJson(it.value(), catalogueDefault(it.key())))
            values.insert(it.key(), *value);
    }
    return values;
}

/// \a values as an entry, with what this version does not understand of the \a present one; nothing when a value
/// cannot be held.
std::optional<QJsonObject> entryOf(const QVariantMap& values, const QJsonObject& present)
{
    QJsonObject entry = present;
    const QStringList understood = valuesOf(present).keys();
    for (const QString& key : understood)
        entry.remove(key);
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        const std::optional<QJsonValue> json = valuejson::toJson(it.value(), catalogueDefault(it.key()));
        if (!json || !it.key().isValidUtf16())
            return std::nullopt;
        entry.insert(it.key(), *json);
    }
    return entry;
}

/// Lays a change over \a file; false, with the file as it was, when that cannot hold it.
bool lay(const QString& key, const QVariant& value, QJsonObject& file)
{
    QJsonObject types = file.value(typesWord).toObject();
    if (value.isValid()) {
        const bool canBeHeld = value.userType() == QMetaType::QVariantMap && key.isValidUtf16();
        const auto entry = canBeHeld ? entryOf(value.toMap(), types.value(key).toObject()) : std::nullopt;
        if (!entry)
            return false;
        types.insert(key, *entry);
    } else {
        types.remove(key);
    }
    QJsonObject changed = file;
    changed.insert(typesWord, types);
    if (QJsonDocument(changed).toJson().size() > storefile::maxSize)
        return false;
    file = changed;
    return true;
}

} // namespace

EmbeddedPref::EmbeddedPref(QString path, EmbeddedPref** created) : m_path(std::move(path))
{
    if (created)
        *created = this;
    if (m_path.isEmpty())
        return;
    const storefile::Content content = storefile::read(m_path);
    m_file = content.file;
    // Another process may be setting a damaged file aside, and write a new one, at this moment: what is done with it
    // is decided under the lock, from what is there then.
    if (content.state == storefile::State::Damaged || content.state == storefile::State::Newer)
        save(longestWait);
}

EmbeddedPref::~EmbeddedPref()
{
    if (m_timer)
        m_timer->disconnect(); // Not to save at its end.
    delete m_timer;
}

bool EmbeddedPref::hasKey(const QString& key) const
{
    const auto unsaved = m_unsaved.constFind(key);
    return unsaved != m_unsaved.constEnd() ? unsaved->isValid()
                                           : m_file.value(typesWord).toObject().value(key).isObject();
}

QVariant EmbeddedPref::value(const QString& key, const QVariant& defaultValue) const
{
    if (!hasKey(key))
        return defaultValue;
    const QVariant unsaved = m_unsaved.value(key);
    return unsaved.isValid() ? unsaved : valuesOf(m_file.value(typesWord).toObject().value(key).toObject());
}

void EmbeddedPref::setValue(const QString& key, const QVariant& value, bool /*notify*/)
{
    m_unsaved.insert(key, value);
    if (!m_path.isEmpty())
        save(longestWait);
}

void EmbeddedPref::save(int lockWait)
{
    QStringList warnings;
    if (!write(lockWait, warnings))
        tryAgainLater();
    else if (m_timer)
        m_timer->stop();
    // Last: a message handler may come back to this store.
    for (const QString& warning : std::as_const(warnings))
        qCWarning(zoeffectCategory, "\"%s\" %s", qUtf8Printable(m_path), qUtf8Printable(warning));
}

/// False when this is to be tried again.
bool EmbeddedPref::write(int lockWait, QStringList& warnings)
{
    QDir().mkpath(QFileInfo(m_path).path());
    const storefile::Lock lock(m_path, lockWait);
    const storefile::Content present = storefile::read(m_path);
    QJsonObject file = present.file;
    QMap<QString, QVariant> leftOut;
    const char* hindrance = nullptr;
    if (!lock.isHeld()) {
        hindrance = "cannot be locked";
    } else if (present.state == storefile::State::Newer) {
        hindrance = "is of a newer version";
    } else if (present.state == storefile::State::Unreadable) {
        hindrance = "cannot be read";
    } else if (present.state == storefile::State::Damaged) {
        file = m_file; // What was read while the file was whole is still good.
        if (const std::optional<QString> name = storefile::setAside(m_path))
            warnings << QStringLiteral("is damaged and was set aside as \"%1\"").arg(*name);
        else
            hindrance = "is damaged and cannot be set aside";
    }
    if (!hindrance) {
        for (auto it = m_unsaved.cbegin(); it != m_unsaved.cend(); ++it) {
            if (!lay(it.key(), it.value(), file))
                leftOut.insert(it.key(), it.value());
        }
        if (file != present.file && !storefile::write(m_path, QJsonDocument(file).toJson()))
            hindrance = "cannot be written";
    }
    const bool isTold = m_told;
    m_told = hindrance || !leftOut.isEmpty();
    if (m_told && !isTold)
        warnings << QStringLiteral("%1; changes stay in memory")
                        .arg(QLatin1String(hindrance ? hindrance : "cannot hold a value"));
    if (hindrance)
        return false;
    m_file = file;
    m_unsaved = leftOut;
    return true;
}

void EmbeddedPref::tryAgainLater()
{
    auto* const application = QCoreApplication::instance();
    if (!application || QThread::currentThread() != application->thread())
        return;
    if (!m_timer) {
        const auto saveAtLast = [this] {
            if (!m_unsaved.isEmpty())
                save(longestWait);
        };
        m_timer = new QTimer(application);
        m_timer->setObjectName(QStringLiteral("zoeffect-unsaved")); // By which the kit finds it.
        QObject::connect(m_timer, &QTimer::timeout, m_timer, [this] { save(0); });
        QObject::connect(application, &QCoreApplication::aboutToQuit, m_timer, saveAtLast);
        QObject::connect(m_timer, &QObject::destroyed, saveAtLast);
    }
    m_timer->start(retryInterval);
}
