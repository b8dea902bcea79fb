// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include "places.h"

extern "C" { // Which the headers themselves do not say.
#include <framework/mlt_events.h>
#include <framework/mlt_properties.h>
}

/// The peer MLT: the properties of one node, which announce each value that is stored to one listener. Colours are
/// whole numbers there, fonts texts.
class MltSettings {
public:
    /// Properties with the defaults of \a type.
    explicit MltSettings(const QString& type);
    ~MltSettings();
    MltSettings(const MltSettings&) = delete;
    MltSettings& operator=(const MltSettings&) = delete;

    void set(const Step& step);
    /// Reads the value, and answers something of it.
    long long read(const Step& step) const;
    bool holds(const Step& step) const;
    /// The changes that were announced since the last call.
    int taken();

private:
    mlt_properties m_properties;
    int m_count = 0;
};
