// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QSize>
#include <QString>

#include <zoeffectmodel.h>

#include "things_p.h"

namespace zokit {

/// The library's two models of a file, as a projection of its things: the things are the truth, the models follow.
class Projection {
public:
    /// Models that are as \a things; the effects are registered.
    explicit Projection(const Things& things);

    ZoEffectModel& modelOf(const QString& type);
    ZoEffectModel& picture() { return m_picture; }
    ZoEffectModel& sound() { return m_sound; }

    /// The frame in which the models measure.
    void setFrame(const QSize& frame);
    /// Brings the models to \a things, of which \a changes have just changed.
    void follow(const Things& things, const Changes& changes);
    /// Brings a type's node to \a things as a whole.
    void replace(const Things& things, const QString& type);
    /// Whether the models are just being brought to the things: what they send meanwhile tells nothing new.
    bool isFollowing() const { return m_following; }

    /// \a type as it stands in its model by now.
    TypeSettings read(const QString& type) const;
    /// The identity of each item of \a type in its model, as far as it was given one; 0 for others.
    QVector<Identity> identities(const QString& type) const;
    /// Notes that the items of \a type in its model are \a items, in their order.
    void note(const QString& type, const QVector<Identity>& items);

private:
    bool setOne(const Things& things, const Change& change);

    ZoEffectModel m_picture;
    ZoEffectModel m_sound;
    QHash<QString, QHash<const ZoEffectItemData*, Identity>> m_items;
    QSize m_frame;
    bool m_following = false;
};

} // namespace zokit
