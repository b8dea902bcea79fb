// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QMap>
#include <QObject>
#include <QPixmap>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVariant>

#include "zoeffect_export.h"
#include "zoeffectitemdata.h"

struct EffectControlItem;
struct SubEffectItem;
class WatermarkImages;

/// A crop rectangle in pixels of the base size.
struct CropData {
    int left = 0;       ///< Distance from the left edge of the frame.
    int top = 0;        ///< Distance from the upper edge of the frame.
    int width = 0;      ///< Width of the part that is kept.
    int height = 0;     ///< Height of the part that is kept.
    int reserved = 0;   ///< Always 0.
    bool valid = false; ///< Whether the record holds a crop that applies; all zero if not.
};

/// How pictures of watermarks are painted; with nothing set as hosts have always had them.
struct ZoPictureOptions {
    /// Multiplies an image's own transparency with the watermark's, so that a round logo stays round. Otherwise the
    /// watermark's replaces it, and what was transparent shows in the colour that the file has there, mostly black.
    bool keepImageTransparency = false;
    /// The resolution at which the points of text sizes become pixels, the same on every screen: 1 to 2400 dots an
    /// inch. Any other number stands for the screen's.
    int textDotsPerInch = 0;
};

// Where to find what, in the order of the class:
//   construction, copies, edit flags   zoeffectmodel.cpp
//   lookup, values, change bracket     zoeffectmodel_properties.cpp
//   selection by key                   zoeffectmodel_selection.cpp
//   subtitle and audio tracks          zoeffectmodel_tracks.cpp
//   video size, rescaling, crop        zoeffectmodel_geometry.cpp
//   watermark picture                  zoeffectmodel_rendering.cpp
//   place of a new watermark           zoeffectmodel_placement.cpp
//   defaults, real effects             zoeffectmodel_defaultcheck.cpp
//   frame effects                      zoeffectmodel_frameeffects.cpp
//   custom defaults                    zoeffectmodel_customdefaults.cpp
//   adding, moving, resetting items    zoeffectmodel_items.cpp
//   handing settings to others         zoeffectmodel_apply.cpp

/// The effect settings of one source file.
///
/// The settings are a tree: the root "effect root" with the video size ("w", "h"), under it one node per
/// effect type in the order of the catalogue, under each type its items (watermarks, tracks, frame effects).
/// A node is addressed by (type, pos): pos -1 is the type's own node, 0 to n-1 are its items. The type is
/// the exact name of a node; the first node of that name wins, depth first from the root.
///
/// All positions and sizes are pixels of the base size, the video size that the host last set; font sizes
/// are points, transparencies percent. The key "_checkstate" stands for a node's check state (true gives 2,
/// selected; false gives 0).
///
/// The model owns every node; nodes that it hands out stay its own unless a function says otherwise. Signals
/// of a change are sent on the calling thread after the tree has changed; a listener may read, change and
/// render the model, but must not delete it. To be used from one thread, after the application object was
/// created; pictures take a QGuiApplication.
/// Nothing throws. A failure shows in the result; where a function says so, it is also logged (see WriteLog).
class ZOEFFECT_EXPORT ZoEffectModel : public QObject {
    Q_OBJECT

public:
    /// \name Construction and copies
    /// @{

    /// Registers the host's table of effect types for all models and tells the custom defaults which types
    /// exist. Call it once, before the first model is built. \a items must outlive all models and every call of
    /// defaultValue() and findOriItem(). Null is logged (25) and accepted: models then have no types.
    static void InitEffectModel(const EffectControlItem* items);

    /// A model with every top-level type of the registered table, filled with the defaults.
    explicit ZoEffectModel(QObject* parent = nullptr);
    /// A model with those top-level types that \a types names, in the order of the table; an empty list
    /// selects all.
    explicit ZoEffectModel(const QStringList& types, QObject* parent = nullptr);
    /// A model with the one type \a type, which holds \a props and nothing else.
    ZoEffectModel(const QString& type, const QMap<QString, QVariant>& props, QObject* parent = nullptr);
    /// A copy of \a other without QObject parent.
    ZoEffectModel(const ZoEffectModel& other);
    /// Deliberate: an empty model under \a parent; \a other is not read.
    ZoEffectModel(const ZoEffectModel& other, QObject* parent);
    /// Deletes the tree and the loaded images.
    ~ZoEffectModel() override;

    /// Takes over the tree (video size included), the edit flags and the picture options of \a other; every node is
    /// new. The rendered picture and the loaded images stay each model's own. Sends no signal.
    ZoEffectModel& operator=(const ZoEffectModel& other);

    /// The record of \a type in the table \a items, depth first through nested tables; null when there is none.
    static const EffectControlItem* findOriItem(const QString& type, const EffectControlItem* items);

    /// Appends the type nodes named by \a types (all when empty). The constructors call it; another call
    /// appends them again.
    void createItems(const QStringList& types);
    /// Sets the check state of type node \a item to 2 and stores the defaults of its type, then the user's
    /// custom default unless the type is "Crop" or "Watermark". Null does nothing.
    void InitZoeffectData(ZoEffectItemData* item);
    /// Appends a node under \a item for each record of \a subItems, with its "id" and properties; the node's
    /// internal data points at its record. Null for either is logged (422).
    void InitSubItemData(ZoEffectItemData* item, const SubEffectItem* subItems);

    /// Whether replaceItemDataProperty() reached a subtitle item since the last resetAllEffect(); copied by
    /// assignment.
    bool editByUser() const;
    /// Whether a custom default of a type other than "Watermark" and "Subtitle" was applied ("editbydefault"
    /// on the root).
    bool editByDefault() const;
    /// Sets editByDefault() back to false ("editbydefault" on the root). Sends nothing.
    void resetEditByDefaultFlag();

    /// The registered table of effect types; null until InitEffectModel().
    static const EffectControlItem* s_EffectItems;
    /// @}

    /// \name Lookup and values
    /// @{

    /// The first node named \a type in the subtree of \a start, itself included; null when there is none.
    /// A null \a start is logged (340).
    ZoEffectItemData* findDataItem(const ZoEffectItemData* start, const QString& type) const;
    /// Node (\a type, \a pos) of the subtree of \a start; null when there is none. A null \a start is
    /// logged (316).
    ZoEffectItemData* findDataItem(const ZoEffectItemData* start, const QString& type, int pos) const;
    /// Node (\a type, \a pos); null when there is none.
    ZoEffectItemData* findDataItem(const QString& type, int pos) const;
    /// The same as findDataItem(type, pos).
    ZoEffectItemData* getDataItem(const QString& type, int pos) const;
    /// The number of items of \a type; 0, and a log entry (246), when there is no such type.
    int childCount(const QString& type) const;

    /// The value of \a key on node (\a type, \a pos): key first. Invalid when node or key is missing; a
    /// missing "trackid" reads -1. "sub_vposition" of "Subtitle" is the base height times the default of
    /// "sub_vposfactor", as an unrounded double, until setData() changed it ("dvdsubtitleposeditbyuser" is
    /// true then), or while the height is 0.
    QVariant data(const QString& key, const QString& type, int pos) const;

    /// Stores \a value under \a key on node (\a type, \a pos): key first, then value, then address. An equal
    /// value (numbers and texts compare by value: 5 equals "5") changes nothing and sends nothing. A change
    /// sends effectDataChanged(type, key, value, pos) once, after it is stored. Storing "sub_vposition" of
    /// "Subtitle" also sets "dvdsubtitleposeditbyuser" on that node. False, and a log entry (181), only when
    /// there is no such node.
    bool setData(const QString& key, const QVariant& value, const QString& type, int pos);

    /// The default of \a key for \a type: the user's custom default, else the catalogue's, else invalid.
    static QVariant defaultValue(const QString& key, const QString& type);

    /// Sends currentItemChanged(\a type); the model keeps no current item.
    void setCurrentItem(const QString& type);
    /// Sends currentSubItemChanged(\a type, \a index).
    void setCurrentSubItem(const QString& type, int index);
    /// Sends effectDataAboutChange(\a type): opens a host's bracket around several changes.
    void beginChange(const QString& type);
    /// Sends the one-argument effectDataChanged(\a type): closes the bracket, listeners refresh the type.
    void endChanged(const QString& type);
    /// @}

    /// \name Selection
    /// @{

    /// Gives check state 2 to the type node named \a type and 0 to all others.
    void selectOnlyOneItem(const QString& type);
    /// Selects the type node, and exactly those of its items whose value under \a key equals \a value.
    void selectItemByKey(const QString& type, const QString& key, const QVariant& value);
    /// Selects the type node, and exactly those of its items whose value under \a key, as text, is in
    /// \a values.
    void selectItemByKeyEx(const QString& type, const QString& key, const QStringList& values);
    /// The index of the first item whose value under \a key equals \a value; -1 when there is none.
    int getItemIndexByKeyValue(const QString& type, const QString& key, const QVariant& value) const;
    /// Whether \a type has an item whose value under \a key equals \a value.
    bool haveSameItem(const QString& type, const QString& key, const QVariant& value) const;
    /// The first selected item of a selected type; null when there is none. Deliberate: for "Audio" a new
    /// node named "Audio" that holds all selected tracks. Trap: delete that node, but not the tracks in it, which
    /// stay the model's: take them out (takeAt) first.
    ZoEffectItemData* getSelectItem(const QString& type) const;
    /// @}

    /// \name Subtitle and audio tracks
    /// @{

    /// The position (not the "trackid") of the chosen embedded subtitle track, or -1. A file track that stands
    /// before it ends the search; an unselected type answers 0 when its first track is embedded. Spelling kept.
    int getEmbededSutitleID() const;
    /// The "trackid" of the chosen embedded audio track, or -1. A file track that stands before it ends the
    /// search; an unselected type answers -1. Spelling kept.
    int getEmbededAudioID() const;
    /// Whether the selected type "Subtitle" has a selected track from a file.
    bool useCustomSubtitle() const;
    /// Whether a selected subtitle track is embedded, or there are no tracks at all. The type's own check
    /// state plays no part. Spelling kept.
    bool useEmbededSubtitle() const;
    /// As useCustomSubtitle(), for audio.
    bool useCustomAudio() const;
    /// As useEmbededSubtitle(), for audio.
    bool useEmbededAudio() const;
    /// Whether the model has a node for at least one of the seven audio effect types.
    bool isForAudioEffect() const;
    /// The first type node whose "audio_effect_flag" is true, in a model for audio effects; else null.
    ZoEffectItemData* getValidAudioEffectItem() const;
    /// Marks the audio track at \a index, and no other, as the one that the preview plays
    /// ("_playmeineffect"). Sends nothing.
    void refreshCurPlayData(int index);
    /// @}

    /// \name Video size and geometry
    /// @{

    /// Stores the base size without rescaling anything. No value is refused.
    void setVideoSize(int w, int h);
    /// The base size; 0 x 0 until it is set.
    QSize baseSize() const;
    /// Rescales crop, watermarks and subtitles from the base size to (\a w, \a h), which becomes the base
    /// size. A base size or new size of 0 rescales nothing. Sends nothing.
    void adjustEffectInfo(int w, int h);
    /// Rescales the geometry of the type node \a item ("Watermark" with its items, "Crop", "Subtitle"). Mind
    /// the order, the new size first. A crop that does not apply becomes the whole new frame. Deliberate: the
    /// subtitle values are scaled once for each track, over and over. Null, a zero size or an unchanged size
    /// does nothing. Sends nothing.
    void adjustEffectItem(ZoEffectItemData* item, int newW, int newH, int oldW, int oldH);
    /// Whether a crop other than the whole frame is selected. Deliberate: the arguments are ignored, the base
    /// size counts.
    bool isCroped(int w, int h) const;
    /// The crop that applies, or a record that is all zero and not valid.
    CropData cropData() const;
    /// @}

    /// \name Watermark picture
    /// @{

    /// The selected watermarks on a transparent picture of \a w x \a h pixels, the first item on top; a null
    /// pixmap when nothing is painted or the size is none that can be painted on. With \a honourIgnore, text
    /// watermarks whose "wm_ingnore" is true are left out. At a size other than the base size a rescaled
    /// copy is painted and "wm_ingnore" always counts. At the base size the measured size of each painted
    /// text is stored in its item ("wm_imagewidth", "wm_imageheight") through setData(), signals included. When
    /// listeners render inside one another, only the first eight levels store sizes.
    /// An image that cannot be loaded is logged (1178) and left out.
    QPixmap getWatermark(int w, int h, bool honourIgnore);
    /// Sets how this model paints pictures from now on. Copied by assignment. Sends nothing.
    void setPictureOptions(const ZoPictureOptions& options);
    /// How pictures are painted.
    ZoPictureOptions pictureOptions() const;
    /// The image at \a path, loaded once per path; \a format may be null. The pixmap stays the model's, and as it is
    /// until forgetImage() or forgetImages(). On failure, logged (1178), a null pixmap; the next call tries again.
    /// Not loaded are pictures of more than 128 MB (at least 4 bytes a pixel), files that would cost far more memory or
    /// time than their picture needs, and what is no regular file.
    QPixmap* getImage(const QString& path, const char* format);
    /// Forgets the image at \a path, for a file that has changed: the next picture loads it anew. The pointer that
    /// getImage() has handed out for it becomes invalid. Sends nothing.
    void forgetImage(const QString& path);
    /// forgetImage() for all images of this model; all pointers of getImage() become invalid.
    void forgetImages();
    /// @}

    /// \name Place of a new watermark
    /// @{

    /// Moves the new watermark \a item, which already has its parent, away from the other selected watermarks. Four
    /// searches are tried in turn (the guide shows them). Trap: the last one may find an occupied place. When all
    /// fail, the item stays. Sends nothing. Null is logged (1392).
    void adjustWatermarkPos(ZoEffectItemData* item);
    /// @}

    /// \name Defaults and real effects
    /// @{

    /// Whether \a key of node (\a type, \a pos) holds its default: mind the order, type first. A missing node,
    /// an unknown type and a key that is not the type's own count as default. A watermark's position is
    /// compared with its factor times the base size, exactly.
    bool SingleDataIsDefault(const QString& type, const QString& key, int pos) const;
    /// Whether type \a type holds its defaults: its own properties, or for a type without any its items. A
    /// type that the catalogue lacks is logged (518) and counts as default.
    bool dataIsDefault(const QString& type) const;
    /// Whether the settings ask for any processing at all. In a model for audio effects the first flagged one
    /// decides; else the first selected type that does. Selected types of unknown name that are met before
    /// that are logged (2399).
    bool hasRealEffect() const;
    /// @}

    /// \name Frame effects
    /// @{

    /// A map with the one key "Effect": the names and states of the frame effects, "A|true|B|false". An empty
    /// map, and a log entry (1559), without a node "Effect".
    QMap<QString, QVariant> getCurrentFrameEffects() const;
    /// Brings the frame effects into the order and check states of \a effects, a map as getCurrentFrameEffects()
    /// answers it; its other keys are ignored. The key "Effect" must name each frame effect exactly once; any word but
    /// "true" switches one off. Sends effectDataChanged("Effect", "reset", invalid, -1) once when anything changed;
    /// both edit flags stay. False, with nothing changed, sent or logged, without a node "Effect", for an unknown,
    /// missing or repeated name, and for names that contain "|".
    bool applyFrameEffects(const QMap<QString, QVariant>& effects);
    /// Whether the frame effects hold their saved, else their catalogue order and check states.
    bool FrameEffectIsDefault() const;
    /// Brings the frame effects into the saved order and check states. Spelling kept.
    void AdjustFramEffectsByCustomDefault();
    /// The index of the first child of \a parent named \a name; -1 when there is none or \a parent is null.
    int getItemPos(const ZoEffectItemData* parent, const QString& name) const;
    /// @}

    /// \name Custom defaults
    /// @{

    /// Whether the user has saved a custom default for \a type, in this or an earlier run.
    bool hasCustomDefault(const QString& type) const;
    /// Forgets the custom default of \a type, in the preference store too; models keep their values. Does
    /// nothing when there is none.
    void removeCustomDefault(const QString& type);
    /// The saved custom value: key first. Invalid when there is none.
    static QVariant customDefaultVal(const QString& key, const QString& type);
    /// Saves the settings of item \a index of \a type as the type's custom default; "Color" and "Effect"
    /// ignore \a index. Positions are saved as factors of the base size. A missing node saves nothing, and is
    /// logged for the types "Watermark" (1451) and "Color" (1467) and for a subtitle item (1514).
    void saveAsCustomDefault(const QString& type, int index);
    /// Stores the custom default of \a type in \a item. An image watermark and an embedded subtitle take only the
    /// transparency. A saved watermark position is stored when \a direct is true or the place counts as free;
    /// deliberate: not every other watermark is checked. For types other than "Watermark" and "Subtitle"
    /// "editbydefault" becomes true. Sends nothing. Null is logged (829).
    void getCustomDefaultVal(ZoEffectItemData* item, const QString& type, bool direct);
    /// @}

    /// \name Lists of items
    /// @{
    // "props" are applied last, key by key; "_checkstate" in them sets the check state.

    /// Creates an item under \a type before position \a pos (-1, and any position that no item has, appends),
    /// filled with the catalogue's defaults (but for the position factors), the custom default and \a props. A
    /// watermark is then moved by adjustWatermarkPos(). Sends effectDataChanged(type, "item_add", invalid,
    /// index), where index is \a pos, or for -1 the index of the new item. False without a log entry when
    /// there is no such type; without memory logged (903).
    bool insertDataItem(const QString& type, const QMap<QString, QVariant>& props, int pos);
    /// insertDataItem() at the end.
    bool addDataItem(const QString& type, const QMap<QString, QVariant>& props);
    /// Creates the type node if it is missing, then appends an item (\a asChild), or fills the type node
    /// itself with the catalogue's defaults, the custom default and \a props; the latter sends nothing.
    bool addDataItemEx(const QString& type, const QMap<QString, QVariant>& props, bool asChild);
    /// Deletes the item at \a pos and sends effectDataChanged(type, "item_delete", invalid, pos). False when
    /// there is none (logged, 273) or it has no parent (270); -1 never deletes a type.
    bool delDataItem(const QString& type, int pos);
    /// Moves the item at \a from so that it ends at \a to: destination first. Deliberate:
    /// effectDataChanged(type, "item_move", to, -1) is sent whether or not anything moved. False when
    /// nothing moved; without such a type also logged (288) and nothing is sent.
    bool changeDataItemPos(const QString& type, int to, int from);
    /// Sets the item at \a pos to the defaults, then applies \a props; properties that the catalogue does not
    /// name stay. A watermark goes to the place of its factors; a subtitle's position is derived again. Sends
    /// effectDataChanged(type, "reset", invalid, pos). False, and logged, without such a type (969) or item
    /// (966). Pass an empty QMap for no properties: a plain {} means the null node of the other form.
    bool replaceData(const QString& type, int pos, const QMap<QString, QVariant>& props);
    /// Overwrites node (\a type, \a pos), its name included, with a deep copy of \a src; a type node that comes
    /// to "Watermark" is rescaled from its model's to this model's base size. Sends effectDataChanged(type, "reset",
    /// invalid, pos). A null \a src (1029), a missing target and \a src itself as the target (1026) are logged.
    void replaceData(const QString& type, int pos, const ZoEffectItemData* src);
    /// Spreads the subtitle style in \a props over this model's subtitle items; "h" in \a props is the video
    /// height that the style was made for. Deliberate: it begins with item 0, goes on with item 8 after a track
    /// from a file and with item 6 after an embedded one, and ends where it would come to an item again.
    /// Sends effectDataChanged("Subtitle", "reset", invalid, number of style keys) for each item reached, and
    /// sets editByUser(). Any other \a type does nothing.
    void replaceItemDataProperty(const QString& type, const QMap<QString, QVariant>& props);
    /// Rebuilds the whole type from the catalogue and the custom default, and sends
    /// effectDataChanged(type, "reset", invalid, pos). False, and logged (622), without such a type.
    bool resetDataItem(const QString& type, int pos);
    /// Resets all top-level types of the registered table and editByUser(). Of the tracks only those from files at
    /// the end of the list are removed, and the first one left is selected. "Audio", "Subtitle" and "Watermark"
    /// keep their own properties. Deliberate: sends nothing, so tell the listeners yourself, and signals are
    /// unblocked afterwards, even if they were blocked before.
    void resetAllEffect();
    /// @}

    /// \name Handing settings to others
    /// @{

    /// Sends applyItemDataTo with node (\a type, \a pos); nothing when there is none. \a applyto is the host's.
    void applyDataTo(const QString& type, int pos, int applyto);
    /// For a selected subtitle item that has any style key: replaceItemDataProperty() with its style and the
    /// video height "h", then sends applyItemDataSomePropertyTo with the same. Anything else does nothing.
    void applySomePropertytoOther(const QString& type, int pos, int applyto);
    /// @}

Q_SIGNALS:
    /// One value changed, or the list of a type did: then \a key is "item_add", "item_delete", "item_move" or
    /// "reset".
    void effectDataChanged(const QString& type, const QString& key, const QVariant& val, int pos);
    /// Sent by setCurrentItem().
    void currentItemChanged(const QString& newtype);
    /// Sent by setCurrentSubItem().
    void currentSubItemChanged(const QString& newType, int index);
    /// \a item is to be applied to what the host's \a applyto says. The node stays the model's: copy it.
    void applyItemDataTo(ZoEffectItemData* const item, const QString& type, int pos, int applyto);
    /// \a props are to be applied to what the host's \a appto says.
    void applyItemDataSomePropertyTo(const QMap<QString, QVariant>& props, const QString& type, int pos, int appto);
    /// Sent by beginChange().
    void effectDataAboutChange(const QString& type);
    /// Sent by endChanged().
    void effectDataChanged(const QString& type);

private:
    struct Empty {};
    Q_DECL_HIDDEN ZoEffectModel(Empty empty, QObject* parent);

    ZoEffectItemData m_root;
    bool m_editedByUser = false;
    QPixmap m_watermark;
    int m_renderings = 0; // Inside one another, by listeners.
    ZoPictureOptions m_pictureOptions;
    std::shared_ptr<WatermarkImages> m_images;
};
