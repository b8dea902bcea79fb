// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/applyfiles.h>

#include <cstdio>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QStandardPaths>
#include <QUuid>

#include <zokit/settingsfile.h>

#include "jsontext_p.h"

// Beside each target lie "NAME.zo-TOKEN.new" and ".old" until all are renamed. The note holds the paths and the
// checksums of both; it is locked by the process that works on it, and there before the first part.

namespace zokit {

namespace {

using Code = Message::Code;

const QString newPart = QStringLiteral("new");
const QString oldPart = QStringLiteral("old");

QString folderOr(const QString& folder)
{
    return folder.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
                                  + QStringLiteral("/zoeffect/apply")
                            : folder;
}

/// Beside \a target, with a name that fits wherever the target's does.
QString partOf(const QString& target, int number, const QString& token, const QString& which)
{
    return QFileInfo(target).dir().filePath(
        QStringLiteral(".zo-apply-%1-%2.%3").arg(token, QString::number(number), which));
}

QString sumOf(const QByteArray& text)
{
    return QString::fromLatin1(QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex());
}

bool isOnDisk(QFile& file)
{
    return file.flush() && ::fsync(file.handle()) == 0;
}

/// Writes a new file that is on the disk when this returns.
Message writePart(const QString& path, const QByteArray& text, QFile::Permissions permissions)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) || file.write(text) != text.size() || !isOnDisk(file)
        || !file.setPermissions(permissions))
        return Message(Code::FileUnwritable, {path, file.errorString()});
    return Message();
}

bool renameOver(const QString& from, const QString& to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

/// A rename is on the disk when its folder is.
void syncFolderOf(const QString& path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    const int handle = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    ::fsync(handle);
    ::close(handle);
}

QByteArray noteOf(const QVector<ApplyTarget>& targets)
{
    QJsonArray list;
    for (const ApplyTarget& target : targets)
        list.append(QJsonObject{
            {QStringLiteral("path"), target.path}, {oldPart, sumOf(target.before)}, {newPart, sumOf(target.after)}});
    return QJsonDocument(list).toJson(QJsonDocument::Compact);
}

constexpr int lettersOfToken = 12;

/// The work of one application. What it left beside the targets goes with it.
class Application {
public:
    Application(const QVector<ApplyTarget>& targets, const QString& folder)
        : m_targets(targets)
        , m_token(QUuid::createUuid().toString(QUuid::Id128).left(lettersOfToken))
        , m_note(QDir(folder).filePath(m_token + QStringLiteral(".json")))
    {
    }
    ~Application()
    {
        for (int i = 0; i < m_targets.size(); ++i) {
            QFile::remove(part(i, newPart));
            if (!m_stuck.contains(i))
                QFile::remove(part(i, oldPart));
        }
        m_note.remove();
    }
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    Message run()
    {
        Message error = writeNote();
        for (int i = 0; i < m_targets.size() && error.isEmpty(); ++i)
            error = writeParts(i);
        int renamed = 0;
        while (renamed < m_targets.size() && error.isEmpty()) {
            error = rename(renamed);
            if (error.isEmpty())
                ++renamed;
        }
        if (!error.isEmpty())
            error = putBack(renamed, error);
        for (const ApplyTarget& target : m_targets)
            syncFolderOf(target.path);
        return error;
    }

private:
    QString part(int number, const QString& which) const
    {
        return partOf(m_targets.at(number).path, number, m_token, which);
    }

    /// Puts back the first \a count targets; what cannot be put back keeps its old part.
    Message putBack(int count, const Message& why)
    {
        Message error = why;
        for (int i = count - 1; i >= 0; --i) {
            if (renameOver(part(i, oldPart), m_targets.at(i).path))
                continue;
            m_stuck.append(i);
            error = Message(Code::NotPutBack, {m_targets.at(i).name, part(i, oldPart)}, why);
        }
        return error;
    }

    Message writeNote()
    {
        QDir().mkpath(QFileInfo(m_note).absolutePath());
        const QByteArray text = noteOf(m_targets);
        if (!m_note.open(QIODevice::WriteOnly | QIODevice::NewOnly) || ::flock(m_note.handle(), LOCK_EX | LOCK_NB) != 0
            || m_note.write(text) != text.size() || !isOnDisk(m_note))
            return Message(Code::FileUnwritable, {m_note.fileName(), m_note.errorString()});
        return Message();
    }

    Message writeParts(int number) const
    {
        const ApplyTarget& target = m_targets.at(number);
        const QFile::Permissions permissions = QFile::permissions(target.path);
        const Message error = writePart(part(number, oldPart), target.before, permissions);
        return error.isEmpty() ? writePart(part(number, newPart), target.after, permissions) : error;
    }

    Message rename(int number) const
    {
        const ApplyTarget& target = m_targets.at(number);
        Message error;
        if (jsontext::load(target.path, &error) != target.before)
            return Message(Code::FileChanged, {target.name});
        if (!renameOver(part(number, newPart), target.path))
            return Message(Code::FileUnwritable, {target.name, qt_error_string()});
        return Message();
    }

    const QVector<ApplyTarget> m_targets;
    const QString m_token;
    QFile m_note;
    QVector<int> m_stuck;
};

LeftTarget::State stateOf(const QString& path, const QJsonObject& noted)
{
    Message error;
    const std::optional<QByteArray> text = jsontext::load(path, &error);
    const QString sum = text ? sumOf(*text) : QString();
    if (sum == noted.value(newPart).toString())
        return LeftTarget::New;
    return sum == noted.value(oldPart).toString() ? LeftTarget::Old : LeftTarget::Other;
}

} // namespace

ApplyPlan planApply(const Settings& from, const QStringList& names, const CarryOver& carry, const Settle& settle)
{
    ApplyPlan plan;
    plan.error = checkCarryOver(from, carry);
    QSet<QString> planned;
    for (const QString& name : names) {
        if (!plan.error.isEmpty())
            break;
        ApplyTarget target;
        target.name = name;
        target.path = QFileInfo(name).canonicalFilePath();
        if (planned.contains(target.path))
            continue;
        const std::optional<QByteArray> text = jsontext::load(name, &plan.error);
        if (!text)
            break;
        const QString folder = QFileInfo(target.path).absolutePath();
        const ReadSettings read = readSettings(*text, folder);
        if (!read.settings) {
            plan.error = Message(Code::InFile, {name}, read.error);
            break;
        }
        const Media& media = read.settings->media;
        if (read.settings->foreign.contains(QStringLiteral("base")) && media.file.isEmpty() && media.frame.isEmpty()) {
            plan.error = Message(Code::PresetAsTarget, {name}); // It would be no preset any more.
            break;
        }
        Settings result = completed(carriedOver(from, *read.settings, carry));
        const Message refused = settle ? settle(*read.settings, result) : Message();
        if (!refused.isEmpty()) {
            plan.error = Message(Code::InFile, {name}, refused);
            break;
        }
        target.differences = differences(*read.settings, result);
        if (!target.differences.isEmpty())
            target.moved = movedByCarrying(from, carry, result);
        target.before = *text;
        Message unwritten;
        target.after = target.differences.isEmpty() ? *text : writeSettings(result, folder, &unwritten);
        if (!unwritten.isEmpty()) {
            plan.error = Message(Code::InFile, {name}, unwritten);
            break;
        }
        plan.targets.append(target);
        planned.insert(target.path);
    }
    if (!plan.error.isEmpty())
        plan.targets.clear();
    return plan;
}

Message applyPlan(const ApplyPlan& plan, const QString& folder)
{
    if (!plan.error.isEmpty())
        return plan.error;
    QVector<ApplyTarget> changing;
    for (const ApplyTarget& target : plan.targets) {
        if (target.after != target.before)
            changing.append(target);
    }
    return changing.isEmpty() ? Message() : Application(changing, folderOr(folder)).run();
}

QVector<LeftTarget> takeLeftTargets(const QString& folder)
{
    QVector<LeftTarget> left;
    const QDir dir(folderOr(folder));
    for (const QString& name : dir.entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Time | QDir::Reversed)) {
        QFile note(dir.filePath(name));
        if (!note.open(QIODevice::ReadWrite) || ::flock(note.handle(), LOCK_EX | LOCK_NB) != 0)
            continue; // Of one that is still at work.
        const QJsonArray list = QJsonDocument::fromJson(note.readAll()).array();
        for (int i = 0; i < list.size(); ++i) {
            const QJsonObject noted = list.at(i).toObject();
            const QString path = noted.value(QStringLiteral("path")).toString();
            left.append({path, stateOf(path, noted)});
            for (const QString& which : {newPart, oldPart})
                QFile::remove(partOf(path, i, QFileInfo(name).completeBaseName(), which));
        }
        note.remove();
    }
    return left;
}

} // namespace zokit
