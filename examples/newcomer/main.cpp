// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QApplication>

#include "window.h"

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    zokit::useLanguage(QLocale()); // Of all that the kit says: messages, names, helps.
    zokit::Workbench bench;
    Window window(bench);
    window.resize(1200, 750);
    window.show();
    bench.files().open(QApplication::arguments().mid(1));
    return QApplication::exec();
}
