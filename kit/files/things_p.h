// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QString>
#include <QVector>

#include <zokit/changes.h>
#include <zokit/settings.h>

namespace zokit {

class Identities;

/// Keys that a thing holds beside its properties.
namespace own {
inline const QString selected = QStringLiteral("selected");
inline const QString checkState = QStringLiteral("_checkstate"); ///< What the library calls "selected".
inline const QString anchor = QStringLiteral("anchor");
inline const QString items = QStringLiteral(":items");
inline const QString of = QStringLiteral(":of");
inline const QString type = QStringLiteral(":type");
inline const QString name = QStringLiteral(":name");
inline const QString foreign = QStringLiteral(":foreign");
} // namespace own

/// Whether \a key is the kit's own and none that a person sets.
bool isInternal(const QString& key);

/// \a key as things keep it: "_checkstate" is taken for "selected".
QString asKept(const QString& key);

/// The truth of one file: its things and their values. Plain data; knows neither models nor signals.
class Things {
public:
    Things() = default;
    /// \a settings as things; every one gets an identity.
    Things(const Settings& settings, Identities& identities);
    /// From values of a file's things that were kept elsewhere.
    explicit Things(const QMap<Identity, Values>& values);

    Identity file() const { return m_file; }
    /// The thing of an effect type, "Output" or "Tracks"; 0 when there is none.
    Identity type(const QString& name) const { return m_types.value(name, 0); }
    QVector<Identity> items(const QString& type) const;
    Identity item(const QString& type, int pos) const { return items(type).value(pos, 0); }
    bool contains(Identity thing) const { return m_values.contains(thing); }
    /// The effect type that \a thing is or belongs to, "Output" or "Tracks"; empty for the file and for what is gone.
    QString typeOf(Identity thing) const;
    bool isItem(Identity thing) const;
    int position(Identity item) const; ///< -1 for what is no item.
    Values values(Identity thing) const { return m_values.value(thing); }
    QVariant value(Identity thing, const QString& key) const { return m_values.value(thing).value(key); }
    bool has(Identity thing, const QString& key) const { return m_values.value(thing).contains(key); }
    const QMap<Identity, Values>& all() const { return m_values; }

    Settings settings() const;
    TypeSettings typeSettings(const QString& type) const;
    Item itemSettings(Identity item) const;
    QSize frame() const;
    /// In which geometry is measured: the frame as it stands once the picture is turned.
    QSize baseFrame() const;

    /// Sets values to their "after"; a thing without values is gone.
    void apply(const Changes& changes);

    /// The changes that make these things \a target; \a present is settings(). An item keeps its identity where it
    /// stays the same, or is of the same kind at the same position.
    Changes changesTo(const Settings& target, const Settings& present, Identities& identities) const;
    /// The changes that make \a type what \a target says; \a kept gives the identity of each item of it, 0 for a new
    /// one.
    Changes changesTo(const TypeSettings& target, const QVector<Identity>& kept, Identities& identities) const;

private:
    void index();
    QVector<Identity> keptItems(const TypeSettings& target, const QVector<Item>& before) const;
    Changes changesTo(const TypeSettings& target, const QVector<Identity>& kept, const QVector<Item>& before,
                      Identities& identities) const;

    Identity m_file = 0;
    QMap<QString, Identity> m_types;
    QMap<Identity, Values> m_values;
};

/// One change for each (thing, key) of \a changes, with the first "before" and the last "after", without those that
/// change nothing.
Changes merged(const Changes& changes);

/// \a changes the other way round.
Changes reversed(const Changes& changes);

} // namespace zokit
