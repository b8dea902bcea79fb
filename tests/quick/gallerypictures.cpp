// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Pictures of the gallery, to be looked at: gallerypictures FOLDER CLIP. The guide shows gallery.png.

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickItemGrabResult>
#include <QQuickWindow>
#include <QtTest>

#include <zokitquick/filesettings.h>
#include <zokitquick/types.h>

#include "testapplication.h"

namespace {

struct Shot {
    const char* name = nullptr;
    QSize size;
    const char* address = nullptr;
    bool isDark = false;
};

constexpr int patience = 30000; // Milliseconds.

const Shot shots[] = {
    {"gallery", {1120, 640}, "Watermark:0", false}, {"dark", {1120, 640}, "Color", true},
    {"small", {820, 480}, "Watermark", false},      {"small-dark", {820, 480}, "Watermark:0", true},
    {"large", {1920, 1080}, "Color", false},        {"crop", {1120, 700}, "Crop", false},
    {"effects", {1120, 700}, "Effect", true},       {"output", {1120, 700}, "Output", false},
};

bool save(const QQuickWindow& window, const QString& path)
{
    const QSharedPointer<QQuickItemGrabResult> result = window.contentItem()->grabToImage();
    QSignalSpy ready(result.data(), &QQuickItemGrabResult::ready);
    return ready.wait(patience) && result->image().save(path);
}

} // namespace

int main(int argc, char** argv)
{
    const TestFolders folders;
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QT_QUICK_CONTROLS_STYLE", "Fusion");
    TestApplication application(argc, argv);
    if (argc != 3) {
        QTextStream(stderr) << "usage: gallerypictures FOLDER CLIP\n";
        return 2;
    }
    zokitquick::registerTypes();
    QQmlApplicationEngine engine;
    engine.setInitialProperties({{QStringLiteral("clip"), QString::fromLocal8Bit(argv[2])}});
    engine.load(QStringLiteral(GALLERY_FOLDER "/Main.qml"));
    auto* window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
    auto* file = window ? window->property("file").value<zokitquick::FileSettings*>() : nullptr;
    if (!file || !QTest::qWaitFor([&] { return file->status() == zokitquick::FileSettings::Ready; }, patience))
        return 1;
    file->setValue(QStringLiteral("Color:bcs_contrast"), 15);
    file->setValue(QStringLiteral("Color:bcs_saturation"), 20);
    file->insert(QStringLiteral("Watermark"), {{QStringLiteral("wm_textcontent"), QStringLiteral("On the way home")},
                                               {QStringLiteral("wm_fontsize"), 60}});
    auto* picture = window->findChild<QQuickItem*>(QStringLiteral("picture"));
    auto* panel = window->property("panel").value<QObject*>();
    for (const Shot& shot : shots) {
        window->resize(shot.size);
        window->setProperty("isDark", shot.isDark);
        panel->setProperty("address", QString::fromLatin1(shot.address));
        const auto isTrue = [&] { return picture->property("isTrue").toBool(); };
        QTest::qWait(300); // Layouts settle.
        if (!QTest::qWaitFor(isTrue, patience)
            || !save(*window, QStringLiteral("%1/%2.png").arg(QString::fromLocal8Bit(argv[1]), shot.name)))
            return 1;
    }
    return 0;
}
