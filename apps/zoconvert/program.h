// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QVector>

namespace zoconvert {

/// What has to stand before there is an application object: the program needs no screen, names of files are UTF-8
/// whatever the locale, and Qt's own warnings are not for people.
void prepareEnvironment();

/// Does what the arguments behind the program's name ask for, and answers how the program ends.
int run(const QVector<QByteArray>& arguments);

} // namespace zoconvert
