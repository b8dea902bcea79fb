// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QVariant>

/// The default of \a key in the tables of zoeffectcatalogue.h, where a key means the same in each; invalid when none
/// has it.
QVariant catalogueDefault(const QString& key);
