// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The journal of a session. The first byte tells what the others are: the whole file, records whose checksums are
// right, or what stands in such records.

#include <QDataStream>
#include <QFile>

#include <zokit/history.h>
#include <zokit/journal.h>
#include <zokit/project.h>

#include "bytes.h"
#include "randomedits.h"
#include "runtime.h"
#include "session.h"

namespace {

QByteArray lineOf(const QByteArray& record)
{
    quint32 sum = 2166136261U;
    for (const char letter : record)
        sum = (sum ^ quint8(letter)) * 16777619U;
    return QByteArray::number(sum, 16).rightJustified(8, '0') + ' ' + record + '\n';
}

QByteArray linesOf(const QByteArray& records)
{
    QByteArray text = lineOf(R"({"zoeffect-journal":1})");
    for (const QByteArray& record : records.split('\n'))
        text += lineOf(record);
    return text;
}

/// Identities that a small session has, mostly.
QByteArray identity(Bytes& bytes)
{
    const int choice = bytes.byte();
    return choice < 240 ? QByteArray::number(choice % 80) : QByteArray::number(bytes.real());
}

QByteArray identityValue(Bytes& bytes)
{
    QByteArray stream;
    QDataStream(&stream, QIODevice::WriteOnly) << quint64(bytes.byte());
    return "{\"qulonglong\":\"" + stream.toBase64() + "\"}";
}

QByteArray value(Bytes& bytes)
{
    static const char* const words[] = {"Crop",   "Watermark",       "Subtitle", "Audio", "Effect",    "Color",
                                        "Output", "/clips/clip.mkv", "Tracks",   "",      "top-right", "negate"};
    switch (bytes.below(7)) {
    case 0:
        return "null";
    case 1:
        return "{\"int\":" + QByteArray::number(bytes.number()) + '}';
    case 2:
        return bytes.flag() ? "{\"bool\":true}" : "{\"bool\":false}";
    case 3:
        return QByteArray("{\"string\":\"") + words[bytes.below(int(std::size(words)))] + "\"}";
    case 4:
        return identityValue(bytes);
    case 5: {
        QByteArray list;
        for (int left = bytes.below(5); left > 0; --left)
            list += identityValue(bytes) + (left > 1 ? "," : "");
        return "{\"list\":[" + list + "]}";
    }
    default:
        return bytes.chunk();
    }
}

QByteArray changes(Bytes& bytes)
{
    static const char* const keys[] = {
        ":items", ":of",    ":type",   ":name",          ":foreign",           "selected",     "anchor",    "file",
        "width",  "height", "seconds", "wm_textcontent", "wm_istextwatermark", "bcs_contrast", "crop_left", "trim"};
    QByteArray list;
    for (int left = bytes.below(12); left > 0; --left) {
        list += '[' + identity(bytes) + ",\"" + keys[bytes.below(int(std::size(keys)))] + "\",";
        list += value(bytes) + ',';
        list += value(bytes) + (left > 1 ? "]," : "]");
    }
    return '[' + list + ']';
}

QByteArray step(Bytes& bytes)
{
    const QByteArray code = QByteArray::number(bytes.number());
    return "{\"code\":" + code + ",\"words\":[\"a\"],\"changes\":" + changes(bytes) + '}';
}

QByteArray record(Bytes& bytes)
{
    switch (bytes.below(9)) {
    case 0: {
        QByteArray record = "{\"everything\":" + changes(bytes);
        record += ",\"steps\":[" + step(bytes);
        record += ',' + step(bytes);
        record += "],\"position\":" + QByteArray::number(bytes.number());
        record += ",\"selections\":[[" + identity(bytes);
        return record + "]],\"clean\":" + QByteArray::number(bytes.number()) + '}';
    }
    case 1:
        return "{\"gesture\":" + step(bytes) + '}';
    case 2:
        return "{\"cancelled\":" + changes(bytes) + '}';
    case 3:
        return "{\"forgotten\":" + QByteArray::number(bytes.number()) + '}';
    case 4:
        return "{\"position\":" + QByteArray::number(bytes.number()) + '}';
    case 5:
        return "{\"selection\":[" + identity(bytes) + "]}";
    case 6:
        return "{\"clean\":true}";
    default:
        return "{\"step\":" + step(bytes) + '}';
    }
}

/// The journal of a session that added a file, and then did what no session does.
QByteArray oddSession(Bytes& bytes)
{
    static const QByteArray begin = [] {
        zokit::Project project;
        zokit::Journal journal(project, Session::instance().folder() + QStringLiteral("/whole"));
        project.add(zokit::Media{QStringLiteral("/clips/clip.mkv"), QSize(64, 48), 1.0});
        QFile file(journal.path());
        return journal.flush() && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }();
    QByteArray text = begin;
    while (!bytes.atEnd())
        text += lineOf(record(bytes));
    return text;
}

void recover(const QByteArray& text)
{
    using Code = zokit::Message::Code;
    const QString path = Session::instance().folder() + QStringLiteral("/fuzz.journal");
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush(),
            "the target can write its file");
    file.close();
    zokit::Project project;
    const zokit::Message message = zokit::Journal::recover(path, project);
    const bool isCut = message.code() == Code::JournalCut;
    require(message.isEmpty() || isCut || message.code() == Code::JournalUnreadable, "a journal is read, or not");
    const zokit::History& history = project.history();
    require(message.isEmpty() || isCut || (project.files().isEmpty() && history.count() == 0),
            "what cannot be read changes nothing");

    zokit::Project second;
    zokit::Journal journal(project, Session::instance().folder() + QStringLiteral("/next"));
    require(journal.flush(), "the next journal is written");
    QFile::remove(path);
    require(QFile::copy(journal.path(), path), "it can be copied");
    require(zokit::Journal::recover(path, second).isEmpty(), "the next journal is whole");
    require(kitsupport::settingsOf(second) == kitsupport::settingsOf(project), "the settings are back once more");
    require(second.history().count() == history.count() && second.history().position() == history.position(),
            "the history is back once more");
    journal.close();
    for (const int place : {0, history.count(), history.position()})
        second.history().goTo(place);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Session::instance();
    Bytes bytes(data, size);
    switch (bytes.below(3)) {
    case 0:
        recover(bytes.rest());
        break;
    case 1:
        recover(linesOf(bytes.rest()));
        break;
    default:
        recover(oddSession(bytes));
        break;
    }
    return 0;
}
