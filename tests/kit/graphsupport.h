// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QStringList>

#include <zokit/graph.h>
#include <zokit/probe.h>
#include <zokit/settings.h>

/// What the tests of the filter graphs say again and again.
namespace graphsupport {

/// Settings of a clip of that frame with the catalogue's values, nothing selected.
zokit::Settings plain(const QSize& frame);
/// Sets a value of a type or of the item of a frame effect's name, and selects it.
void set(zokit::Settings& settings, const char* type, const char* key, const QVariant& value);
void useEffect(zokit::Settings& settings, const QString& name);
/// A selected item at the end.
void append(zokit::Settings& settings, const char* type, const zokit::Values& values);

/// A clip with one picture: stream 0, bt709 of limited range, square pixels.
zokit::MediaInfo clip(const QSize& size, const QString& pixelFormat = QStringLiteral("yuv420p"));

/// What the real ffmpeg writes to standard output; empty, with its words in the log, when it fails.
QByteArray ffmpeg(const QStringList& arguments, const QByteArray& input = QByteArray());

/// A planar frame: 8 bits, or 16 bits a sample for deeper formats.
struct Frame {
    QSize size;
    QString format;
    QByteArray bytes;

    int depth() const;
    /// Plane 0 is luma, 1 and 2 are colours.
    QSize planeSize(int plane) const;
    int at(int plane, int x, int y) const;
    void put(int plane, int x, int y, int value);
    /// A whole plane of one value.
    void fill(int plane, int value);
};
/// A frame with black luma and no colour.
Frame frame(const QSize& size, const QString& format = QStringLiteral("yuv420p"));
/// A frame in which neighbours differ, always the same.
Frame pattern(const QSize& size, const QString& format = QStringLiteral("yuv420p"));

/// What \a graph makes of \a source, which is input 0 as a raw frame, with \a inputs after it, in the format \a format.
Frame filtered(const zokit::PictureGraph& graph, const Frame& source, const QString& format,
               const QStringList& inputs = QStringList());
/// The same with the graph of \a settings: parts name the inputs.
Frame filtered(const zokit::Settings& settings, const zokit::MediaInfo& media, const Frame& source,
               zokit::GraphParts parts = zokit::GraphParts(), const QStringList& inputs = QStringList());

} // namespace graphsupport
