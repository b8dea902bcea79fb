// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Prints valuepairs.txt: what Qt 5's own QVariant says of all ordered pairs of values and of the conversions that the
// library does. Uses nothing of the library. Built with Qt 5 only, on 64-bit x86, which is the reference:
//
//     QT_QPA_PLATFORM=offscreen valuepairs-reference > tests/values/valuepairs.txt

#include <cstdio>

#include <QGuiApplication>

#include "values.h"

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    std::puts("# value | equals it, as the present one: a digit for each value as the new one | as bool | as int "
              "| as double | as text");
    for (const NamedValue& left : namedValues()) {
        QString equal;
        for (const NamedValue& right : namedValues())
            equal += left.value == right.value ? '1' : '0';
        const QString line = QStringList{left.name,
                                         equal,
                                         left.value.toBool() ? "true" : "false",
                                         QString::number(left.value.toInt()),
                                         written(left.value.toDouble()),
                                         written(left.value.toString())}
                                 .join(" | ");
        std::puts(qPrintable(line));
    }
    return 0;
}
