// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QString>

/// What the program says, and where: what was asked for on standard output, all else on standard error.
namespace zoconvert::console {

/// "zoconvert: FILE: sentence" on one line; without the file where \a file is empty.
void error(const QString& sentence, const QString& file = {});
/// The same for what is no error: "zoconvert: FILE: warning: sentence".
void warning(const QString& sentence, const QString& file = {});

/// "zoconvert: FILE: sentence", of what goes well.
void note(const QString& sentence, const QString& file = {});

/// Bytes on standard error, as they are.
void draw(const QByteArray& bytes);

/// What was asked for.
void print(const QByteArray& text);
/// A line of it; control characters are spelled.
void printLine(const QString& line);
void printJson(const QJsonArray& array);
/// Whether all that was printed has been taken by who reads it: a disk can be full.
bool allPrinted();
/// Whether it was not, since nobody reads any more, as behind "| head".
bool isReaderGone();

} // namespace zoconvert::console
