// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// newcomerpicture PICTURE FILE...: the windowed host of the guide with these clips or settings files, and the second
// watermark of the first one chosen. The guide shows newcomer.png.

#include <QtTest>

#include <testapplication.h>

#include <window.h>

int main(int argc, char** argv)
{
    const TestFolders folders;
    QApplication application(argc, argv);
    const QStringList words = QApplication::arguments();
    zokit::Workbench bench;
    Window window(bench);
    window.resize(1024, 640);
    window.show();
    bench.files().open(words.mid(2));
    constexpr int patience = 30000; // Milliseconds; only a hang takes so long.
    if (words.size() < 3 || !QTest::qWaitFor([&] { return !bench.files().isOpening(); }, patience))
        return 1;
    zokit::FileSettings* file = bench.project().files().first();
    bench.setCurrent(file);
    bench.choose(file->item(QStringLiteral("Watermark"), 1));
    QTest::qWait(3000); // The picture comes from a child.
    return window.grab().save(words.at(1)) ? 0 : 1;
}
