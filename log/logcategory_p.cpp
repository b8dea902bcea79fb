// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "logcategory_p.h"

const QLoggingCategory& zoeffectCategory()
{
    // Never deleted: a host may save a default while its static objects go.
    static const auto* const category = new QLoggingCategory("zoeffect", QtInfoMsg);
    return *category;
}
