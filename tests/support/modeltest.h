// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include <QObject>

#include <zoeffectcatalogue.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "rows.h"
#include "signalrecorder.h"
#include "testapplication.h"

using Properties = QMap<QString, QVariant>;

/// What the test classes of the model have in common: each test and each row begins with the host's table and
/// without custom defaults, and fails when it leaves something in the log.
class ModelTest : public QObject {
    Q_OBJECT

protected slots:
    void init();
    void cleanup();
};

ZoEffectItemData* rootOf(const ZoEffectModel& model);

/// Appends an item with nothing but \a properties, past the model.
ZoEffectItemData* addItem(ZoEffectItemData* parent, const Properties& properties = {}, int checkState = 2);
ZoEffectItemData* addItem(const ZoEffectModel& model, const QString& type, const Properties& properties = {},
                          int checkState = 2);

/// Tracks under \a parent, one for each character: e embedded, f from a file, in capitals when selected; p and q
/// are an embedded and a file track that are partially checked, "-" is a null entry. Each has a "trackid", 10 for
/// the first, 11 for the second and so on; file tracks have true under \a fileFlag.
void addTracks(ZoEffectItemData* parent, const QString& fileFlag, const QString& kinds);

/// \a properties with \a more laid over them.
Properties with(Properties properties, const Properties& more);

void saveCustomDefault(const QString& type, const Properties& values);

/// Registers a table with the one type \a name, which has \a properties.
void registerOnly(const char* name, const std::vector<EffectDefaultVal>& properties);

/// The names of the children, separated by blanks.
QString childNames(const ZoEffectItemData* node);

/// A node with all that is below it, "name:state{properties}[children]", "null" for a null entry.
QString tree(const ZoEffectItemData* node);

/// The values of \a node under the keys of \a wanted, in the form of described(); keys that are missing are left
/// out.
QString chosen(const ZoEffectItemData* node, const QStringList& wanted);

/// One signal as SignalRecorder takes it.
inline QStringList one(const QString& signal)
{
    return {signal};
}

/// Calls \a listener on each four-argument effectDataChanged of \a model.
template <typename Listener>
void listen(const ZoEffectModel& model, Listener listener)
{
    QObject::connect(
        &model, QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
        &model, listener);
}
