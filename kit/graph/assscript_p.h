// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

namespace zokit {

/// A row of a script's section, whose fields a line "Format:" names before it.
struct AssRow {
    QStringList names;
    QStringList fields;

    /// Of these names the field of the first one that there is; empty when there is none.
    QString value(const QStringList& any) const;
    void set(const QStringList& any, const QString& value);
};

/// Reads what stands behind "Style:" or "Dialogue:": the last field may hold commas. Fields that are missing are empty.
AssRow assRow(const QStringList& names, const QString& rest);
/// The names in what stands behind "Format:".
QStringList assNames(const QString& rest);

/// "&HAABBGGRR" with the opacity turned round: 00 covers.
QString assColour(const QColor& colour, int alpha);
/// Whether what a style has as a colour ("&H0000FFFF", or a number) is none of white, greys and black.
bool isInColour(const QString& colour);
/// Whether a text has commands in it that change to such a colour.
bool hasColourCommands(const QString& text);

/// \a text without its commands ("{\\pos(10,20)}") of these kinds.
QString withoutCommands(const QString& text, bool place, bool colour, bool font);

/// The script \a ass of what is shown in the \a seconds from \a from on, to its end where they are 0, at \a speed:
/// times count from there, and what is seen outside of it alone is left out.
QByteArray cutToPart(const QByteArray& ass, double from, double seconds, double speed);

} // namespace zokit
