// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPoint>
#include <QSize>
#include <QString>
#include <QStringList>

#include <zokit/filesettings.h>

/// What the tests of the kit say again and again.
namespace kitsupport {

QString key(const char* name);

/// A clip of 1280x720 and five seconds that is nowhere.
zokit::Media clip();

/// The thing at "TYPE:KEY" or "TYPE:POS:KEY".
zokit::Identity at(const zokit::FileSettings& file, const char* address);

QPoint placeOf(const zokit::FileSettings& file, zokit::Identity watermark);
QSize sizeOf(const zokit::FileSettings& file, zokit::Identity watermark);

/// An image file of that size in the folder for temporary files, which is that of the test.
QString logoPath(int width, int height);

/// How often a random test is to go on: what the environment's \a variable says, else \a usual.
int stepsOr(const char* variable, int usual);

/// No type has a saved default any more. The store is one in memory.
void clearSavedDefaults();

/// What a file sends, a line a value: "after Color:bcs_contrast 0 20".
class Log : public QObject {
public:
    explicit Log(const zokit::FileSettings& file);

    QStringList lines() const { return m_lines; }
    QStringList take();
    QObject* asker() const { return m_asker; }

private:
    void note(const QString& when, const zokit::FileSettings& file, const zokit::Changes& changes);

    QStringList m_lines;
    QObject* m_asker = nullptr;
};

} // namespace kitsupport
