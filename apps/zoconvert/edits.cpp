// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "edits.h"

#include <array>
#include <cmath>
#include <optional>

#include <QFileInfo>
#include <QImageReader>

#include <zokit/carryover.h>
#include <zokit/placement.h>
#include <zokit/presets.h>
#include <zokit/probe.h>
#include <zokit/properties.h>

#include "words.h"

namespace zoconvert {

namespace {

using zokit::Address;
using zokit::Identity;
using zokit::Message;
using zokit::Values;

const QString watermark = QStringLiteral("Watermark");
const QString selected = QStringLiteral("selected");

/// In pixels or percent of the frame's side.
struct Side {
    double number = 0;
    bool isPercent = false;

    double in(int whole) const { return isPercent ? number * whole / 100 : number; }
};
using Sides = std::array<Side, 4>;

/// "X,Y,W,H"
std::optional<Sides> sidesFrom(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(','));
    Sides sides;
    if (parts.size() != static_cast<int>(sides.size()))
        return std::nullopt;
    for (std::size_t i = 0; i < sides.size(); ++i) {
        Side& side = sides.at(i);
        QString part = parts.at(static_cast<int>(i)).trimmed();
        side.isPercent = part.endsWith(QLatin1Char('%'));
        if (side.isPercent)
            part.chop(1);
        bool isNumber = false;
        side.number = part.toDouble(&isNumber);
        constexpr double largest = 1e6;
        if (!isNumber || !(std::abs(side.number) <= largest)
            || (!side.isPercent && std::trunc(side.number) != side.number))
            return std::nullopt;
    }
    return sides;
}

/// Whether something is cut off, whatever the frame is.
bool isPartOfAny(const Sides& sides)
{
    const auto isPart = [](const Side& length) { return length.isPercent && length.number < 100; };
    return sides[0].number > 0 || sides[1].number > 0 || isPart(sides[2]) || isPart(sides[3]);
}

QRect rectangleIn(const QSize& frame, const Sides& sides)
{
    // The edges are rounded, not the lengths: 25% and 75% of an uneven side end at its end.
    const auto rounded = [](double number) { return static_cast<int>(std::lround(number)); };
    const double left = sides[0].in(frame.width());
    const double top = sides[1].in(frame.height());
    const QPoint from(rounded(left), rounded(top));
    const QPoint to(rounded(left + sides[2].in(frame.width())), rounded(top + sides[3].in(frame.height())));
    return QRect(from, QSize(to.x() - from.x(), to.y() - from.y()));
}

/// Applies the edits of one command line to one file.
class Editor {
public:
    Editor(const QVector<Edit>& edits, zokit::FileSettings& file, bool isAhead)
        : m_edits(edits), m_file(file), m_isAhead(isAhead)
    {
    }

    // NOLINTNEXTLINE(misc-non-private-member-variables-in-classes): an answer, beside run()'s.
    QStringList warnings; ///< What became of the edits unasked.

    QString run()
    {
        for (const Edit& edit : m_edits) {
            const QString error = apply(edit);
            if (!error.isEmpty())
                return error;
        }
        return QString();
    }

private:
    QString apply(const Edit& edit);
    QString takeSettings(const QString& path);
    QString takePreset(const QString& word);
    QString set(const QString& assignment);
    QString addText(const QString& text);
    QString addImage(const QString& path);
    QString addFile(const QString& type, const QString& flag, const QString& path);
    QString crop(const QString& text);
    QString setCrop(const QRect& kept);
    QString setRule(const QString& key, const QVariant& value);
    QString place(const QString& text);
    QString reset(const QString& text);

    QString insert(const QString& type, const Values& values);
    Message change(const Address& address, const Values& values);
    bool setsSelection(const Address& thing) const;
    bool isForClip(const Address& address) const;
    QString noSuchItem(const Address& address) const;

    const QVector<Edit>& m_edits;
    zokit::FileSettings& m_file;
    bool m_isAhead;       ///< The clip is not known yet: what its frame or its tracks decide is left alone.
    Identity m_named = 0; ///< The watermark named last.
};

QString Editor::apply(const Edit& edit)
{
    const QString& option = edit.option;
    const QString& value = edit.value;
    if (option == QLatin1String("settings"))
        return takeSettings(value);
    if (option == QLatin1String("preset"))
        return takePreset(value);
    if (option == QLatin1String("set"))
        return set(value);
    if (option == QLatin1String("text"))
        return addText(value);
    if (option == QLatin1String("image"))
        return addImage(value);
    if (option == QLatin1String("crop"))
        return crop(value);
    if (option == QLatin1String("subtitle"))
        return addFile(QStringLiteral("Subtitle"), QStringLiteral("sub_fromfile"), value);
    if (option == QLatin1String("audio"))
        return addFile(QStringLiteral("Audio"), QStringLiteral("audio_isfile"), value);
    if (option == QLatin1String("place"))
        return place(value);
    if (option == QLatin1String("reset"))
        return reset(value);
    // What is left are the rules for tracks, under their own names; a flag of them is true.
    const bool isFlag = option == QLatin1String("forced-subtitles") || option == QLatin1String("sidecars");
    return setRule(option, isFlag ? QVariant(true) : QVariant(value));
}

/// Everything that \a path holds, for this clip.
QString Editor::takeSettings(const QString& path)
{
    const zokit::Presets::Named named =
        zokit::Presets().loadNamed(path.contains(QLatin1Char('/')) ? path : QStringLiteral("./") + path);
    if (!named.error.isEmpty())
        return named.error.text();
    const zokit::Media media = m_file.media();
    const QSize told = named.settings.media.frame;
    const bool isForOther = !media.frame.isEmpty() && !told.isEmpty() && told != media.frame;
    zokit::Settings settings = isForOther ? zokit::rescaled(named.settings, media.frame) : named.settings;
    if (isForOther)
        warnings.append(rescaledText(told, media.frame));
    settings.media = media.file.isEmpty() && media.frame.isEmpty() ? settings.media : media;
    m_file.setSettings(settings);
    return QString();
}

QString Editor::takePreset(const QString& word)
{
    const zokit::Presets::Named named = zokit::Presets().loadNamed(word);
    if (!named.error.isEmpty())
        return named.error.text();
    m_file.setSettings(zokit::carriedOver(named.settings, m_file.settings(), zokit::carryOfPreset(named.settings)));
    return QString();
}

/// Whether the command line itself says if \a thing is selected.
bool Editor::setsSelection(const Address& thing) const
{
    for (const Edit& edit : m_edits) {
        if (edit.option != QLatin1String("set"))
            continue;
        const zokit::ReadAddress read = zokit::readAddress(edit.value.section(QLatin1Char('='), 0, 0));
        if (read.address && *read.address == Address{thing.type, thing.pos, selected})
            return true;
    }
    return false;
}

/// Whether the clip, which is not known yet, decides what stands at \a address.
bool Editor::isForClip(const Address& address) const
{
    const bool isTrack = address.type == QLatin1String("Audio") || address.type == QLatin1String("Subtitle");
    return m_isAhead && isTrack && address.pos != Address::ofType;
}

QString Editor::noSuchItem(const Address& address) const
{
    const auto count = m_file.items(address.type).size();
    return Message(Message::Code::NoSuchItem, {address.type, QString::number(address.pos), QString::number(count)})
        .text();
}

QString Editor::set(const QString& assignment)
{
    const auto equals = assignment.indexOf(QLatin1Char('='));
    if (equals < 0)
        return say(Say::AssignmentForm, {assignment});
    const zokit::ReadAddress read = zokit::readAddress(assignment.left(equals));
    if (!read.address)
        return read.error.text();
    const Address& address = *read.address;
    if (isForClip(address))
        return QString();
    const Identity thing = m_file.thing(address);
    if (thing == 0)
        return noSuchItem(address);

    const Message error = change(address, {{address.key, assignment.mid(equals + 1)}});
    if (address.type == watermark && address.pos != Address::ofType)
        m_named = thing;
    return error.text();
}

/// Sets \a values of the thing at \a address, which becomes selected unless the command line itself says if it is.
Message Editor::change(const Address& address, const Values& values)
{
    QVector<QPair<Identity, QVariant>> kept;
    for (const Address& whose : {address, Address{address.type, Address::ofType, selected}}) {
        if (!values.contains(selected) && setsSelection(whose))
            kept.append({m_file.thing(whose), m_file.value(m_file.thing(whose), selected)});
    }
    const Message error = m_file.setValues(m_file.thing(address), values);
    for (const auto& [whose, was] : kept)
        m_file.setValue(whose, selected, was);
    return error;
}

QString Editor::insert(const QString& type, const Values& values)
{
    const Identity whole = m_file.thing({type, Address::ofType, selected});
    const QVariant was = m_file.value(whole, selected);
    const zokit::FileSettings::Inserted inserted = m_file.insert(type, values);
    if (setsSelection({type, Address::ofType, selected}))
        m_file.setValue(whole, selected, was);
    if (type == watermark && inserted.item != 0)
        m_named = inserted.item;
    return inserted.error.text();
}

QString Editor::addText(const QString& text)
{
    return insert(watermark, {{QStringLiteral("wm_istextwatermark"), true}, {QStringLiteral("wm_textcontent"), text}});
}

QString Editor::addImage(const QString& path)
{
    if (const Message wrong = zokit::checkInput(path); !wrong.isEmpty())
        return wrong.text();
    QImageReader reader(path);
    if (!reader.canRead())
        return say(Say::NoImage, {path, reader.errorString()});
    return insert(watermark, {{QStringLiteral("wm_istextwatermark"), false},
                              {QStringLiteral("wm_imageurl"), QFileInfo(path).absoluteFilePath()}});
}

QString Editor::addFile(const QString& type, const QString& flag, const QString& path)
{
    if (const Message wrong = zokit::checkInput(path); !wrong.isEmpty())
        return wrong.text();
    return insert(type, {{flag, true}, {QStringLiteral("file"), QFileInfo(path).absoluteFilePath()}});
}

QString Editor::crop(const QString& text)
{
    const std::optional<Sides> sides = sidesFrom(text);
    const QSize frame = zokit::baseFrame(m_file.settings()); // As the picture is turned by then.
    const QSize smallest = zokit::CropRule().smallest;
    if (m_isAhead && sides)
        return isPartOfAny(*sides) ? setCrop(QRect(QPoint(0, 0), smallest)) : QString();
    if (frame.isEmpty() && !m_isAhead)
        return say(Say::NoFrame, {QStringLiteral("--crop")});
    if (!sides)
        return say(Say::CropForm, {text});
    const QRect wished = rectangleIn(frame, *sides);
    if (wished.left() < 0 || wished.top() < 0 || wished.left() + wished.width() > frame.width()
        || wished.top() + wished.height() > frame.height())
        return say(Say::CropOutside, {text, QString::number(frame.width()), QString::number(frame.height())});
    if (wished.width() < smallest.width() || wished.height() < smallest.height())
        return say(Say::CropSmall, {text, QString::number(smallest.width()), QString::number(smallest.height())});
    return setCrop(wished);
}

QString Editor::setCrop(const QRect& kept)
{
    return change({QStringLiteral("Crop"), Address::ofType, selected}, {{QStringLiteral("crop_left"), kept.left()},
                                                                        {QStringLiteral("crop_top"), kept.top()},
                                                                        {QStringLiteral("crop_width"), kept.width()},
                                                                        {QStringLiteral("crop_height"), kept.height()}})
        .text();
}

QString Editor::setRule(const QString& key, const QVariant& value)
{
    return m_file.setValue(m_file.tracks(), key, value).text();
}

/// "[POS:]CORNER[:MARGIN]"
QString Editor::place(const QString& text)
{
    QStringList parts = text.split(QLatin1Char(':'));
    bool hasPosition = false;
    const int pos = parts.first().toInt(&hasPosition);
    if (hasPosition)
        parts.removeFirst();
    if (parts.isEmpty() || parts.size() > 2 || parts.contains(QString()))
        return say(Say::PlaceForm, {text});
    const QVector<Identity> all = m_file.items(watermark);
    if (hasPosition && (pos < 0 || pos >= all.size()))
        return noSuchItem({watermark, pos, QString()});
    const Identity last = all.contains(m_named) || all.isEmpty() ? m_named : all.last();
    const Identity item = hasPosition ? all.at(pos) : last;
    if (!all.contains(item))
        return say(Say::NoWatermark, {QStringLiteral("--place ") + text});
    m_named = item;
    QVariantMap anchor{{QStringLiteral("corner"), parts.first()}};
    if (parts.size() > 1)
        anchor.insert(QStringLiteral("margin"), parts.at(1));
    const QString key = QStringLiteral("anchor");
    return change({watermark, static_cast<int>(all.indexOf(item)), key}, {{key, anchor}}).text();
}

/// "all", "TYPE" or an address.
QString Editor::reset(const QString& text)
{
    if (text == QLatin1String("all")) {
        m_file.resetAll();
        return QString();
    }
    if (!text.contains(QLatin1Char(':')))
        return m_file.resetType(text).text();
    const zokit::ReadAddress read = zokit::readAddress(text);
    if (!read.address)
        return read.error.text();
    if (isForClip(*read.address))
        return QString();
    const Identity thing = m_file.thing(*read.address);
    return thing == 0 ? noSuchItem(*read.address) : m_file.reset(thing, read.address->key).text();
}

} // namespace

QString rescaledText(const QSize& told, const QSize& found)
{
    return Message(Message::Code::Rescaled, {zokit::sizeText(told), zokit::sizeText(found)}).text();
}

QString applyEdits(const QVector<Edit>& edits, zokit::FileSettings& file, QStringList* warnings)
{
    Editor editor(edits, file, false);
    const QString error = editor.run();
    if (warnings)
        *warnings += editor.warnings;
    return error;
}

QString applyAhead(const QVector<Edit>& edits, zokit::FileSettings& file)
{
    return Editor(edits, file, true).run();
}

} // namespace zoconvert
