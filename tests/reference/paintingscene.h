// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <random>

#include <QImage>
#include <QPixmap>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariant>

#include <zoeffectmodel.h>

#include "signalrecorder.h"
#include "stepbysteppainting.h"

/// Image files of all kinds, and names of files that are none.
class ImageFiles {
public:
    ImageFiles();

    QString path(const QString& name) const { return m_folder.filePath(name); }
    const QStringList& paths() const { return m_paths; }

    /// Writes another picture to \a name, with a time of change of its own.
    void write(const QString& name, const QImage& image);

private:
    QTemporaryDir m_folder;
    QStringList m_paths;
    int m_writes = 0;
};

/// Random values for the properties of watermarks, odd ones among them.
class SceneSource {
public:
    SceneSource(unsigned seed, const ImageFiles& files) : m_source(seed), m_files(files) {}

    int below(int bound) { return static_cast<int>(m_source() % static_cast<unsigned>(bound)); }
    int between(int first, int last) { return first + below(last - first + 1); }
    bool oneIn(int odds) { return below(odds) == 0; }

    static const QStringList& keys();
    QVariant value(const QString& key);
    QMap<QString, QVariant> item();
    QSize frame();

private:
    QVariant position();
    QVariant factor();
    QVariant text();
    QVariant font();
    QVariant color();

    std::mt19937 m_source;
    const ImageFiles& m_files;
};

/// Two models that are always changed alike: one paints by itself, the other one is painted step by step.
class Twins {
public:
    using Model = ZoEffectModel;

    Twins();

    void both(const std::function<void(Model&)>& change);
    /// A new list of watermarks, by \a source.
    void newScene(SceneSource& source);
    /// Stores \a value in item \a row, past the model or through it.
    void setValue(int row, const QString& key, const QVariant& value, bool throughModel);
    int items() const { return m_painting.childCount("Watermark"); }

    /// At the first size that a painting stores, both models get \a bite, which may render by the given function.
    using Render = std::function<void()>;
    void setBite(const std::function<void(Model&, const Render&)>& bite) { m_bite = bite; }

    /// Lets Qt draw all letters of the scene, for those that it draws otherwise for the first time.
    void drawLettersOnce();

    /// Paints both ways; empty when all is alike, else what is not.
    QString difference(int w, int h, bool honourIgnore);
    /// The same at the models' own size.
    QString difference(bool honourIgnore);
    /// Whether the last painting painted anything.
    bool hasPainted() const { return !m_lastImage.isNull(); }

private:
    void bite(Model& model, const Render& render);

    Model m_painting{QStringList{"Watermark"}};
    Model m_painted{QStringList{"Watermark"}};
    SignalRecorder m_paintingSignals{m_painting};
    SignalRecorder m_paintedSignals{m_painted};
    stepbystep::Painter m_painter;
    std::function<void(Model&, const Render&)> m_bite;
    bool m_bitten = true;
    QPixmap m_last; ///< The last picture, which nobody may change.
    QImage m_lastImage;
};
