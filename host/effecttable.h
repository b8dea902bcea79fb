// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

struct EffectControlItem;

/// This host's table of effect types: which types its files have, with which properties, and which frame
/// effects it can do. It lives as long as the program, as ZoEffectModel::InitEffectModel() demands.
const EffectControlItem* effectTable();
