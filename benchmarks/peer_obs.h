// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include <callback/signal.h>
#include <obs-data.h>

#include "places.h"

/// The peer OBS: an obs_data for each node, and one signal with one connected callback. Colours are whole numbers
/// there, fonts texts.
class ObsSettings {
public:
    /// The thirteen types with their defaults as values, and the frame effects, in one tree.
    ObsSettings();
    ~ObsSettings();
    ObsSettings(const ObsSettings&) = delete;
    ObsSettings& operator=(const ObsSettings&) = delete;

    /// Items with the values of \a type.
    void addItems(const QString& type, int count);
    /// The settings of a node; they stay this object's.
    obs_data_t* at(const QString& type, int pos) const;
    /// Makes this a deep copy of \a other.
    void assign(const ObsSettings& other);

    static void set(obs_data_t* data, const Step& step);
    static void setDefault(obs_data_t* data, const Step& step);
    static bool holds(obs_data_t* data, const Step& step);
    static bool holdsDefault(obs_data_t* data, const Step& step);
    /// Reads the value, and answers something of it.
    static long long read(obs_data_t* data, const Step& step);

private:
    obs_data_t* m_root;
};

/// A signal of its own kind for changed settings, with one callback that counts.
class ObsSignal {
public:
    ObsSignal();
    ~ObsSignal();
    ObsSignal(const ObsSignal&) = delete;
    ObsSignal& operator=(const ObsSignal&) = delete;

    void send(obs_data_t* settings, const char* key);
    int taken();

private:
    signal_handler_t* m_handler;
    int m_count = 0;
};

/// The steps that store the defaults of \a type.
const std::vector<Step>& defaultSteps(const QString& type);
