// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <zokit/filesettings.h>

#include <memory>

#include <zokit/properties.h>

#include "completion_p.h"
#include "newitem_p.h"
#include "projection_p.h"
#include "things_p.h"

namespace zokit {

/// A watermark without an anchor, with the default place of \a item, goes where \a others leave room.
void place(Item& item, const QVector<Item>& others, const QSize& frame);

bool isPlace(const QString& key);

class FileSettings::Private {
public:
    Private(FileSettings* settings, std::shared_ptr<Identities> shared, const Settings& start)
        : q(settings)
        , identities(shared ? std::move(shared) : std::make_shared<Identities>())
        , things(withoutMeasures(start), *identities)
    {
        registerEffects();
    }

    Private(FileSettings* settings, std::shared_ptr<Identities> shared, const QMap<Identity, Values>& values)
        : q(settings), identities(std::move(shared)), things(values)
    {
        registerEffects();
    }

    /// The models below, which nobody needs until the first asks for them: many files are never looked at that closely.
    Projection& projection();

    QString addressText(Identity thing, const QString& key) const
    {
        const std::optional<Address> address = q->address(thing, key);
        return address ? address->toString() : key;
    }

    ReadValue read(const QString& type, Suit suit, const QString& key, const QVariant& given,
                   const QString& where) const;
    ReadValue read(Identity thing, const QString& name, const QVariant& given) const;
    Item defaultItem(Identity item, bool withPlace) const;
    QVariant defaultOf(Identity thing, const QString& name) const;
    QVariant catalogueDefaultOf(Identity thing, const QString& name) const;
    Changes meantWith(Identity thing, const Values& set) const;
    Changes consequences(const Changes& changes) const;
    Message commit(const Changes& wanted, QObject* asker);
    Message become(const Settings& target, const Settings& present, QObject* asker);
    Message carryOut(const Changes& changes, QObject* asker);
    void announce(const Changes& changes, QObject* asker);
    void store(const Changes& changes, QObject* asker, const Changes& forModels);
    void tellItems(const QString& type, const QVector<Identity>& before, const QVector<Identity>& after);

    FileSettings* q;
    std::shared_ptr<Identities> identities;
    Things things;
    std::unique_ptr<Projection> models; // Null as long as nobody has asked for them.
    bool announcing = false;
    bool storing = false;
    bool modelsChanged = false;    ///< Directly, while storing: it is taken in after that.
    const int* refusals = nullptr; ///< Of the project; above 0 it carries out what its history would not see edited.
};

} // namespace zokit
