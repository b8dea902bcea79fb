// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QSize>
#include <QVector>

#include <zokit/address.h>
#include <zokit/changes.h>
#include <zokit/message.h>
#include <zokit/settings.h>
#include <zokit/zokit_export.h>

class ZoEffectModel;

namespace zokit {

/// Gives out identities that were never given out before.
class ZOKIT_EXPORT Identities {
public:
    /// A new one.
    Identity next();
    /// From now on only identities above \a used.
    void skip(Identity used);

private:
    Identity m_last = 0;
};

/// How a value stands to what a new item would get in this file.
enum class State {
    Default,      ///< It has it.
    SavedDefault, ///< It has it, and that is the user's saved default, not the catalogue's.
    Changed
};

/// The settings of one file, as a host wants them: values that are checked, items that keep their identity, signals
/// before and after. See the page "From nothing to a host" of the guide.
///
/// What the library below would do otherwise than people mean, this class settles: an untouched watermark is default at
/// every frame size; a text is measured before it is placed, so that it finds a free place; a crop stays the same part
/// of the picture when the frame changes; saving a default changes no value of an open file; an image keeps its
/// transparency, and a text has 96 dots an inch.
///
/// A refused call changes nothing, sends nothing and answers with the sentence that check() gives. A listener of
/// changed() may edit. One of aboutToChange(), of the signals of items and of the models below may not, and none may
/// while the history of the project undoes or redoes: that is refused as Busy. All calls are for the thread of the
/// object.
class ZOKIT_EXPORT FileSettings : public QObject {
    Q_OBJECT

public:
    /// A new file: the saved defaults act here.
    /// \a identities are shared by files whose things must differ; without them the file has its own.
    explicit FileSettings(const Media& media, std::shared_ptr<Identities> identities = {}, QObject* parent = nullptr);
    /// Exactly \a settings, completed; no saved default acts.
    explicit FileSettings(const Settings& settings, std::shared_ptr<Identities> identities = {},
                          QObject* parent = nullptr);
    /// From things that everything() gave: with their identities, for histories and journals.
    FileSettings(const QMap<Identity, Values>& things, std::shared_ptr<Identities> identities,
                 QObject* parent = nullptr);
    ~FileSettings() override;

    /// \name Things and their places
    /// @{

    Identity file() const;                              ///< The file itself.
    Identity output() const;                            ///< Whose values are the output options.
    Identity tracks() const;                            ///< Whose values are the rules for tracks.
    Identity type(const QString& name) const;           ///< 0 for an unknown type.
    QVector<Identity> items(const QString& type) const; ///< In their order; empty when there are none.
    Identity item(const QString& type, int pos) const;  ///< 0 when there is none.
    /// The thing at \a address; 0 when there is none.
    Identity thing(const Address& address) const;
    /// Whether \a thing is one of this file, by now.
    bool owns(Identity thing) const;
    /// All things with all their values, the kit's own keys included.
    QMap<Identity, Values> everything() const;
    /// Where \a key of \a thing stands by now; nothing when the thing is not of this file or gone.
    std::optional<Address> address(Identity thing, const QString& key) const;
    /// @}

    /// \name Values
    /// @{

    /// The value of \a key; "selected" is a bool, and "_checkstate" is taken for it everywhere. Invalid when there is
    /// none.
    QVariant value(Identity thing, const QString& key) const;
    /// All values of \a thing.
    Values values(Identity thing) const;
    /// How the value stands to the default; Default for a value that is not there.
    State state(Identity thing, const QString& key) const;
    /// What the catalogue alone gives a new thing like this one; invalid where it gives nothing.
    QVariant catalogueDefault(Identity thing, const QString& key) const;
    /// What the user's saved default of the type gives one; invalid when none is saved.
    QVariant savedDefault(Identity thing, const QString& key) const;
    /// The sentence with which setValue() would refuse \a candidate; empty: it would take it, as soon as it is not
    /// Busy.
    Message check(Identity thing, const QString& key, const QVariant& candidate) const;
    /// Sets a value, read as readValue() does. A type, or an item with its type, that was not selected becomes
    /// selected, unless "selected" itself is set; a watermark whose left or top is set is not held by its anchor any
    /// more. An equal value changes nothing. What follows from it (the place of an anchored watermark) changes with it,
    /// and what somebody means besides: with one edge of a crop that was not set, the others are set to where the frame
    /// has them; with a turn or a mirroring, "player_map_flag" is set, without which it would not take place.
    Message setValue(Identity thing, const QString& key, const QVariant& value, QObject* asker = nullptr);
    /// Several values at once: all or none, one signal.
    Message setValues(Identity thing, const Values& values, QObject* asker = nullptr);
    /// @}

    /// \name Items
    /// @{

    /// What insert() answers.
    struct Inserted {
        Identity item = 0; ///< 0: refused.
        Message error;     ///< Why it was refused.
    };
    /// A new item of \a type before position \a pos (-1: at the end) with the defaults of the moment and \a values over
    /// them. A watermark without a position in \a values gets a free place. A position behind the end is refused.
    Inserted insert(const QString& type, const Values& values, int pos = -1, QObject* asker = nullptr);
    /// Removes \a item. Frame effects are always there, and refuse.
    Message remove(Identity item, QObject* asker = nullptr);
    /// Moves \a item so that it ends at position \a to, one that the list has: any other is refused.
    Message move(Identity item, int to, QObject* asker = nullptr);
    /// @}

    /// \name Back to the defaults
    /// @{

    /// One value, to the saved default or else the catalogue's; with an empty \a key all of the item or type that
    /// \a thing is, as below, or of the rules for tracks or the output options.
    Message reset(Identity thing, const QString& key, QObject* asker = nullptr);
    /// All values of an item.
    Message resetItem(Identity item, QObject* asker = nullptr);
    /// Tracks of the clip stay, files and watermarks go; frame effects get their order back.
    Message resetType(const QString& type, QObject* asker = nullptr);
    /// All types, the rules for tracks and the output options.
    Message resetAll(QObject* asker = nullptr);
    /// @}

    /// \name As a whole
    /// @{

    /// All that is set, as a plain value.
    Settings settings() const;
    /// Makes this file's settings \a target, completed. Items that are the same keep their identity.
    Message setSettings(const Settings& target, QObject* asker = nullptr);
    /// The clip that the settings are for.
    Media media() const;
    /// Another clip or frame size: geometry is rescaled as rescaled() does.
    Message setMedia(const Media& media, QObject* asker = nullptr);
    /// Whether converting the file would change nothing: no effect that does anything, no other choice of tracks, no
    /// output option.
    bool comesOutUnchanged() const;
    /// Sets the values of \a changes to their "after", exactly and unchecked: for the history. Changes of other things
    /// are passed over.
    void apply(const Changes& changes, QObject* asker = nullptr);
    /// @}

    /// \name The library's models below
    /// @{

    ZoEffectModel* pictureModel() const; ///< Of the picture's types; made when first asked for, lives as long as this.
    ZoEffectModel* soundModel() const;   ///< Of the sound's types; as above.
    /// Takes in what a host changed in the models without a signal. Changes that are announced are taken in at once, or
    /// when changed() was sent of what is just being changed.
    void syncFromModels();
    /// @}

Q_SIGNALS:
    /// Sent before anything is changed, also for changes made directly on a model as far as they are announced.
    void aboutToChange(const zokit::Changes& changes, QObject* asker);
    /// Sent once after an operation: all values that changed, old and new. \a asker is who called; the model itself for
    /// a change that was made on it directly.
    void changed(const zokit::Changes& changes, QObject* asker);
    /// Sent before changed() when an item came, went or moved.
    void itemInserted(const QString& type, quint64 item, int pos);
    /// As above; \a pos is where it stood.
    void itemRemoved(const QString& type, quint64 item, int pos);
    /// As above.
    void itemMoved(const QString& type, quint64 item, int from, int to);

private:
    friend class Project; // Carries complete settings over to many files, and has files refuse what no step would hold.

    class ZOKIT_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokit
