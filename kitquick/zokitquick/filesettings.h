// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QObject>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <zokitquick/zokitquick_export.h>

namespace zokit {
class FileSettings;
struct MediaInfo;
} // namespace zokit

namespace zokitquick {

/// The settings of one clip for QML, with their own undo and redo. What is set stands at an address, as in settings
/// files and on the command line: "Color:bcs_contrast", "Watermark:0:wm_fontsize"; "Watermark:0" is an item and "Color"
/// a type as a whole.
///
///     FileSettings {
///         path: "holiday.mkv"
///         onRefused: sentence => console.warn(sentence)
///         onStatusChanged: if (status === FileSettings.Ready) setValue("Color:bcs_contrast", 20)
///     }
///
/// Each edit is checked by the kit. One that is refused changes nothing, answers false (insert(): -1), and sends
/// refused() with the sentence to be shown; so does every edit while there is no clip. To be used on the main thread.
class ZOKITQUICK_EXPORT FileSettings : public QObject {
    Q_OBJECT
    /// The clip, or the settings file, as it was given to load(). Setting it loads.
    Q_PROPERTY(QString path READ path WRITE load NOTIFY pathChanged)
    /// Whether there are settings.
    Q_PROPERTY(Status status READ status NOTIFY statusChanged)
    /// Why the clip could not be loaded: a sentence; empty unless status is Failed.
    Q_PROPERTY(QString error READ error NOTIFY statusChanged)
    /// Length of the clip in seconds; 0 while it is not known.
    Q_PROPERTY(double seconds READ seconds NOTIFY statusChanged)
    /// The frame of the clip in pixels, upright, of square pixels: what geometry is measured in; 0 x 0 without a
    /// picture.
    Q_PROPERTY(QSize frame READ frame NOTIFY statusChanged)
    /// Whether there is a step to undo.
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY historyChanged)
    /// Whether there is a step to redo.
    Q_PROPERTY(bool canRedo READ canRedo NOTIFY historyChanged)
    /// What would be undone: "change Contrast"; empty when there is nothing.
    Q_PROPERTY(QString undoText READ undoText NOTIFY historyChanged)
    /// What would be done again; empty when there is nothing.
    Q_PROPERTY(QString redoText READ redoText NOTIFY historyChanged)

public:
    /// How far a clip is.
    enum Status {
        Empty,   ///< None was asked for.
        Loading, ///< It is being looked into.
        Ready,   ///< Its settings are there.
        Failed   ///< It cannot be had: error says why.
    };
    Q_ENUM(Status)

    /// Without a clip.
    explicit FileSettings(QObject* parent = nullptr);
    ~FileSettings() override;

    QString path() const;   ///< See the property.
    Status status() const;  ///< See the property.
    QString error() const;  ///< See the property.
    double seconds() const; ///< See the property.
    QSize frame() const;    ///< See the property.

    /// \name For C++
    /// @{

    /// The kit's settings of the clip; null unless status() is Ready. Belongs to this, until the next load().
    zokit::FileSettings* settings() const;
    /// What the clip consists of; null unless status() is Ready. As above.
    const zokit::MediaInfo* media() const;
    /// @}

    /// Looks into the clip at \a path (also "file:///...") off the event loop, then status is Ready or Failed. Without
    /// a settings file the saved defaults act; a path that ends in ".json" is a settings file, which names its clip.
    /// The settings from before, and their history, are gone at once; an empty path leaves it Empty.
    Q_INVOKABLE void load(const QString& path);
    /// Saves to the settings file \a path, wholly or not at all. False when that fails, after refused().
    Q_INVOKABLE bool save(const QString& path);

    /// \name Values
    /// @{

    /// The value at \a address; undefined where there is none, after refused(), and while there is no clip.
    Q_INVOKABLE QVariant value(const QString& address);
    /// Sets it: a number, a text ("20" for 20), a boolean, a colour, a list, as the property takes them.
    Q_INVOKABLE bool setValue(const QString& address, const QVariant& value);
    /// The sentence with which setValue() would refuse; empty when it would not.
    Q_INVOKABLE QString check(const QString& address, const QVariant& value) const;
    /// Back to the saved default, else the catalogue's: a value, all of an item, or all of an effect type.
    Q_INVOKABLE bool reset(const QString& address);
    /// All types, the rules for tracks and the output options.
    Q_INVOKABLE bool resetAll();
    /// @}

    /// \name Items of "Watermark", "Subtitle" and "Audio"; those of "Effect" can be moved
    /// @{

    /// How many items \a type has; 0 for none, and while there is no clip.
    Q_INVOKABLE int count(const QString& type) const;
    /// A new item with \a values by key over the defaults, before position \a pos (-1: at the end). Its position; -1
    /// when it is refused.
    Q_INVOKABLE int insert(const QString& type, const QVariantMap& values, int pos = -1);
    /// Removes the item at \a pos.
    Q_INVOKABLE bool remove(const QString& type, int pos);
    /// Moves the item at \a from so that it ends at position \a to.
    Q_INVOKABLE bool move(const QString& type, int from, int to);
    /// @}

    /// \name History
    /// @{

    bool canUndo() const;     ///< See the property.
    bool canRedo() const;     ///< See the property.
    QString undoText() const; ///< See the property.
    QString redoText() const; ///< See the property.

    /// Takes the last step back; without one nothing happens.
    Q_INVOKABLE void undo();
    /// Does the next step again; without one nothing happens.
    Q_INVOKABLE void redo();
    /// Until endGesture() all edits are one step, which changes \a what, "Contrast": while a slider is dragged.
    /// Gestures may nest.
    Q_INVOKABLE void beginGesture(const QString& what);
    /// Ends the gesture that was begun last; without one nothing happens.
    Q_INVOKABLE void endGesture();
    /// @}

Q_SIGNALS:
    /// path is another one.
    void pathChanged();
    /// settings() answers another one, or null; sent before statusChanged(), so that models and pictures are there when
    /// status says so.
    void settingsChanged();
    /// status, error, seconds and frame may be others.
    void statusChanged();
    /// The values at \a addresses have changed, by whomever; what is gone has none.
    void changed(const QStringList& addresses);
    /// canUndo, canRedo and the texts may be others.
    void historyChanged();
    /// An edit was refused: \a sentence says why and what to do.
    void refused(const QString& sentence);

private:
    class ZOKITQUICK_NO_EXPORT Private;
    std::unique_ptr<Private> d;
};

} // namespace zokitquick
