// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QQmlExtensionPlugin>

#include <zokitquick/types.h>

/// What "import ZoEffect.Kit 1.1" loads.
class ZoEffectKitPlugin : public QQmlExtensionPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QQmlExtensionInterface_iid)

public:
    void registerTypes(const char* uri) override { zokitquick::registerTypes(uri); }
};

#include "plugin.moc"
