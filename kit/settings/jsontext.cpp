// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "jsontext_p.h"

#include <algorithm>
#include <cctype>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>
#include <QSet>

namespace zokit::jsontext {

namespace {

using Code = Message::Code;

/// How deep objects and lists stand in each other, as far as the text is JSON at all.
int depthOf(const QByteArray& json)
{
    int depth = 0;
    int most = 0;
    bool inText = false;
    for (int i = 0; i < json.size(); ++i) {
        const char letter = json.at(i);
        if (inText) {
            if (letter == '\\')
                ++i;
            else if (letter == '"')
                inText = false;
        } else if (letter == '"') {
            inText = true;
        } else if (letter == '{' || letter == '[') {
            most = qMax(most, ++depth);
        } else if (letter == '}' || letter == ']') {
            --depth;
        }
    }
    return most;
}

/// The byte that was not expected; most errors Qt tells when it has gone past it.
int offsetOf(const QJsonParseError& error)
{
    switch (error.error) {
    case QJsonParseError::GarbageAtEnd:
    case QJsonParseError::IllegalNumber:
    case QJsonParseError::IllegalUTF8String:
        return error.offset;
    default:
        return std::max(error.offset - 1, 0);
    }
}

/// What is wrong; the message says it in the language of the moment.
const char* textOf(QJsonParseError::ParseError error)
{
    switch (error) {
    case QJsonParseError::UnterminatedObject:
        return QT_TRANSLATE_NOOP("zokit", "a closing brace } is missing");
    case QJsonParseError::UnterminatedArray:
        return QT_TRANSLATE_NOOP("zokit", "a closing bracket ] is missing");
    case QJsonParseError::UnterminatedString:
        return QT_TRANSLATE_NOOP("zokit", "a closing quotation mark is missing");
    case QJsonParseError::MissingNameSeparator:
        return QT_TRANSLATE_NOOP("zokit", "a colon is missing behind a name");
    case QJsonParseError::MissingValueSeparator:
        return QT_TRANSLATE_NOOP("zokit", "a comma is missing between values");
    case QJsonParseError::MissingObject:
        return QT_TRANSLATE_NOOP("zokit", "behind a comma something is missing");
    case QJsonParseError::IllegalNumber:
    case QJsonParseError::TerminationByNumber:
        return QT_TRANSLATE_NOOP("zokit", "this is no value; a text stands in quotation marks");
    case QJsonParseError::IllegalEscapeSequence:
        return QT_TRANSLATE_NOOP("zokit", "behind a backslash stands what means nothing");
    case QJsonParseError::IllegalUTF8String:
        return QT_TRANSLATE_NOOP("zokit", "this is not UTF-8");
    case QJsonParseError::GarbageAtEnd:
        return QT_TRANSLATE_NOOP("zokit", "the text goes on behind its end");
    default:
        return QT_TRANSLATE_NOOP("zokit", "a value is missing");
    }
}

/// That behind so many bytes stands what is wrong as \a text says.
Message syntaxError(const QByteArray& json, int offset, const char* text)
{
    const QByteArray before = json.left(offset);
    const auto line = before.count('\n') + 1;
    const auto column = before.size() - before.lastIndexOf('\n');
    return Message(Code::JsonSyntax, {QString::number(line), QString::number(column), QString::fromLatin1(text)});
}

/// Where a name stands a second time in its object, of which Qt would take the last without a word; -1: nowhere. It has
/// read \a json before.
int repeatedName(const QByteArray& json)
{
    QVector<QSet<QByteArray>> names; // Of the objects that are open; lists have none.
    for (int i = 0; i < json.size(); ++i) {
        const char letter = json.at(i);
        if (letter == '{' || letter == '[')
            names.append(QSet<QByteArray>());
        else if (letter == '}' || letter == ']')
            names.removeLast();
        if (letter != '"')
            continue;
        const int begin = i;
        while (json.at(++i) != '"') {
            if (json.at(i) == '\\')
                ++i;
        }
        QByteArray name = json.mid(begin + 1, i - begin - 1);
        int next = i + 1;
        while (std::isspace(static_cast<unsigned char>(json.at(next))))
            ++next;
        if (json.at(next) != ':')
            continue;
        if (name.contains('\\'))
            name = QJsonDocument::fromJson("[\"" + name + "\"]").array().first().toString().toUtf8();
        if (names.last().contains(name))
            return begin;
        names.last().insert(name);
    }
    return -1;
}

QByteArray indented(const QByteArray& text)
{
    QByteArray result = text;
    return result.replace("\n", "\n  ");
}

QByteArray block(char open, const QVector<QByteArray>& lines, char close)
{
    if (lines.isEmpty())
        return QByteArray(1, open) + close;
    QByteArray result(1, open);
    for (int i = 0; i < lines.size(); ++i)
        result += "\n  " + indented(lines.at(i)) + (i + 1 < lines.size() ? "," : "\n");
    return result + close;
}

} // namespace

Message beyondBounds(const QByteArray& json)
{
    if (json.size() > largestFile)
        return Message(Code::FileTooLarge);
    return depthOf(json) > deepest ? Message(Code::FileTooDeep, {QString::number(deepest)}) : Message();
}

std::optional<QJsonObject> object(const QByteArray& json, Message* error)
{
    if (const Message refused = beyondBounds(json); !refused.isEmpty()) {
        const QByteArray begin = json.left(1024).trimmed(); // Of a film braces can be counted, too.
        const bool isJson = begin.startsWith('{') || begin.startsWith('[');
        *error = isJson || refused.code() == Code::FileTooLarge ? refused : Message(Code::NotThisForm);
        return std::nullopt;
    }
    QJsonParseError syntax{};
    QJsonDocument document;
    syntax.offset = static_cast<int>(json.indexOf('\0'));
    if (syntax.offset < 0)
        document = QJsonDocument::fromJson(json, &syntax);
    else // No text has one. Qt passes over it, and may take two names that have some for one.
        syntax.error = QJsonParseError::IllegalUTF8String;
    if (syntax.error != QJsonParseError::NoError) {
        *error = syntaxError(json, offsetOf(syntax), textOf(syntax.error));
        return std::nullopt;
    }
    if (!document.isObject()) {
        *error = Message(Code::NotThisForm);
        return std::nullopt;
    }
    if (const int again = repeatedName(json); again >= 0) {
        *error = syntaxError(json, again, QT_TRANSLATE_NOOP("zokit", "this name stands before in the same braces"));
        return std::nullopt;
    }
    return document.object();
}

std::optional<QByteArray> load(const QString& path, Message* error)
{
    const QFileInfo info(path);
    QFile file(path);
    if (!info.exists())
        *error = missingFile(path);
    else if (info.isDir())
        *error = Message(Code::FileUnreadable, {path, QCoreApplication::translate("zokit", "it is a folder")});
    else if (!info.isFile())
        *error = Message(Code::FileUnreadable, {path, QCoreApplication::translate("zokit", "it is no regular file")});
    else if (!file.open(QIODevice::ReadOnly))
        *error = Message(Code::FileUnreadable, {path, file.errorString()});
    else if (info.size() > largestFile)
        *error = Message(Code::InFile, {path}, Message(Code::FileTooLarge));
    else {
        const QByteArray text = file.read(file.size()); // Not more, for which QFile would make room.
        if (file.error() == QFileDevice::NoError)
            return text;
        *error = Message(Code::FileUnreadable, {path, file.errorString()});
    }
    return std::nullopt;
}

Message save(const QString& path, const QByteArray& text)
{
    QSaveFile file(path);
    // A full disk may show when the last bytes go out, which commit() does not look at.
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.flush() || !file.commit())
        return Message(Code::FileUnwritable, {path, file.errorString()});
    return Message();
}

QByteArray compact(const QJsonValue& value)
{
    const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}

QByteArray object(const Members& members)
{
    QVector<QByteArray> lines;
    for (const auto& [name, json] : members)
        lines.append(compact(name) + ": " + json);
    return block('{', lines, '}');
}

QByteArray array(const QVector<QByteArray>& elements)
{
    return block('[', elements, ']');
}

void append(Members& members, const QJsonObject& object)
{
    for (auto it = object.begin(); it != object.end(); ++it)
        members.append({it.key(), compact(it.value())});
}

} // namespace zokit::jsontext
