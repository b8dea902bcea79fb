// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Runs the command in its arguments as a child, passes its output on, and lives until it is killed.

#include <cstdio>

#include <QCoreApplication>

#include <zokit/child.h>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    zokit::Command command;
    command.arguments = QCoreApplication::arguments().mid(1);
    command.program = command.arguments.takeFirst();
    zokit::Child child;
    QObject::connect(&child, &zokit::Child::outputReady, [](const QByteArray& piece) {
        std::fwrite(piece.constData(), 1, std::size_t(piece.size()), stdout);
        std::fflush(stdout);
    });
    child.start(command);
    return QCoreApplication::exec();
}
