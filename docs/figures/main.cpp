// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zofigures: draws the pictures of the guide. What a model is asked for in them, it answers: nothing of that is
// drawn by hand.

#include "figures.h"

#include <QBuffer>
#include <QDir>
#include <QGuiApplication>
#include <QSaveFile>
#include <QTextStream>

#include <cstdio>

namespace {

/// No window is shown, so no display is needed.
void prepareEnvironment()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

void write(const QImage& picture, const QString& path)
{
    QByteArray png;
    QBuffer buffer(&png);
    constexpr int smallest = 0;
    if (!picture.save(&buffer, "PNG", smallest))
        throw Failure{path + ": there is not enough memory for this picture"};
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(png) != png.size() || !file.flush() || !file.commit())
        throw Failure{path + ": this picture cannot be written: " + file.errorString()};
}

void drawAll(const QString& folder)
{
    if (!QDir().mkpath(folder))
        throw Failure{folder + ": this folder cannot be made"};
    ZoEffectModel::InitEffectModel(effectTable());
    for (const Figure& figure : figures())
        write(figure.draw(), QDir(folder).filePath(figure.file));
}

} // namespace

int main(int argc, char** argv)
{
    prepareEnvironment();
    const QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName("zofigures");
    const QStringList arguments = QGuiApplication::arguments();
    const QString usage = "usage: zofigures FOLDER\nDraws the pictures of the guide into FOLDER.\n";
    if (arguments.contains("--help")) {
        QTextStream(stdout) << usage;
        return 0;
    }
    if (arguments.size() != 2) {
        QTextStream(stderr) << usage;
        return 2;
    }
    try {
        drawAll(arguments.at(1));
        return 0;
    } catch (const Failure& failure) {
        QTextStream(stderr) << "zofigures: " << failure.sentence << '\n';
        return 1;
    }
}
