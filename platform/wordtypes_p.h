// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>
#include <QLatin1String>
#include <QString>
#include <QVariant>

/// The types whose values are written as one word: numbers, and those whose word is the QDataStream form in
/// hexadecimal digits. Before a stream is decoded, its length and the counts in it are checked: Qt reserves
/// memory for as many elements as a stream claims to hold.
namespace wordtypes {

struct WordType {
    QLatin1String name; ///< As it stands in the file, the same with Qt 5 and Qt 6.
    int id = 0;         ///< The QMetaType id, which differs between the two.
    /// For a value of this type; empty when it is too large.
    QString (*wordFrom)(const QVariant& value) = nullptr;
    /// Invalid when \a word is none of this type.
    QVariant (*valueFrom)(const QString& word) = nullptr;
};

/// Null when values of that type are not written as a word.
const WordType* withId(int id);
const WordType* withName(const QString& name);

QString wordFromFont(const QFont& font);

/// False, with \a font unchanged, when \a word is no font.
bool fontFromWord(const QString& word, QFont* font);

} // namespace wordtypes
