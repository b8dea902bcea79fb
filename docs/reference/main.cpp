// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoreference: writes the reference of all properties, docs/reference-properties.md, from the kit's table.

#include <cstdio>

#include <QColor>
#include <QFont>
#include <QTextStream>

#include <zokit/outputoptions.h>
#include <zokit/properties.h>

namespace {

using zokit::Property;
using zokit::ValueKind;

QString code(const QString& text)
{
    return '`' + text + '`';
}

/// A row of a table; a bar inside a cell would end it.
QString row(QStringList cells)
{
    for (QString& cell : cells)
        cell.replace('|', "\\|");
    return "| " + cells.join(" | ") + " |\n";
}

QString kindName(ValueKind kind)
{
    switch (kind) {
    case ValueKind::Bool:
        return "true or false";
    case ValueKind::Integer:
        return "whole number";
    case ValueKind::Number:
        return "number";
    case ValueKind::Text:
        return "text";
    case ValueKind::Color:
        return "colour";
    case ValueKind::Font:
        return "font";
    case ValueKind::List:
        return "list of words";
    case ValueKind::Size:
        return "size, as 1280x720";
    case ValueKind::Range:
        return "two numbers";
    }
    return {};
}

QString valueText(const QVariant& value)
{
    if (value.userType() == QMetaType::QColor)
        return value.value<QColor>().name();
    if (value.userType() == QMetaType::QFont)
        return value.value<QFont>().family();
    if (value.userType() == QMetaType::Double)
        return QString::number(value.toDouble());
    return value.toString();
}

QString boundsText(const Property& property)
{
    const QString lowest = valueText(property.lowest);
    const QString highest = valueText(property.highest);
    if (lowest.isEmpty() && highest.isEmpty())
        return {};
    if (highest.isEmpty())
        return "from " + lowest;
    return lowest.isEmpty() ? "up to " + highest : lowest + " to " + highest;
}

QString choicesText(const Property& property)
{
    QStringList choices;
    for (const zokit::Choice& choice : property.choices) {
        const QString value = valueText(choice.value);
        const QString name = property.choiceName(choice.value);
        choices.append(name == value ? code(value) : code(value) + ' ' + name);
    }
    return choices.join(", ");
}

/// What a value can be: "whole number, 0 to 100, %".
QString rangeText(const Property& property)
{
    QStringList parts{kindName(property.kind)};
    for (const QString& part : {boundsText(property), property.unitName(), choicesText(property)}) {
        if (!part.isEmpty())
            parts.append(part);
    }
    if (property.isPath)
        parts.append("a path");
    if (property.isGeometry)
        parts.append("follows the frame");
    return parts.join(", ");
}

QString defaultText(const Property& property)
{
    if (!property.hasDefault())
        return "none";
    const QString text = valueText(property.defaultValue());
    return text.isEmpty() ? "empty" : code(text);
}

QString helpText(const Property& property)
{
    return property.label() + ". " + property.help();
}

void writeProperties(QTextStream& out, const QString& type)
{
    out << row({"key", "what it is", "value", "default", "for"}) << "|---|---|---|---|---|\n";
    for (const Property& property : zokit::properties()) {
        if (property.type == type)
            out << row({code(property.key), helpText(property), rangeText(property), defaultText(property),
                        zokit::suitsText(property.suits)});
    }
}

void writeFrameEffects(QTextStream& out)
{
    out << "\nIts items are the frame effects, each under its name:\n\n" << row({"name", "number", "what it does"});
    out << "|---|---|---|\n";
    for (const zokit::FrameEffect& effect : zokit::frameEffects())
        out << row({effect.name, QString::number(effect.id), effect.help()});
}

void writeOutputOptions(QTextStream& out)
{
    out << row({"option", "what it is", "value", "kept in"}) << "|---|---|---|---|\n";
    for (const zokit::OutputOption& option : zokit::outputOptions()) {
        const Property& property = option.property;
        const QString kept = option.inPresets ? "settings and presets" : option.inSettings ? "settings" : "nothing";
        out << row({code(property.key), helpText(property), rangeText(property), kept});
    }
}

void writePage(QTextStream& out)
{
    out << "<!--\nSPDX-FileCopyrightText: 2026 The libzoeffect developers\nSPDX-License-Identifier: MIT\n-->\n\n"
           "# All properties\n\n"
           "What can be set, as the kit's table has it. `zoreference` writes this page; panels, checks and schemas\n"
           "read the same table. An address is `TYPE:KEY`, or `TYPE:POS:KEY` for an item. Bounds are for what a "
           "person\n"
           "sets; what follows the frame may lie beyond them after rescaling.\n";
    for (const QString& type : zokit::effectTypes()) {
        out << "\n## " << zokit::displayName(type) << ": " << code(type) << "\n\n";
        writeProperties(out, type);
        if (type == "Effect")
            writeFrameEffects(out);
    }
    out << "\n## Which tracks: `Tracks`\n\n";
    writeProperties(out, "Tracks");
    out << "\n## What comes out: `Output`\n\n";
    writeOutputOptions(out);
}

} // namespace

int main()
{
    QTextStream out(stdout);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    out.setCodec("UTF-8");
#endif
    writePage(out);
    out.flush();
    return out.status() == QTextStream::Ok ? 0 : 1;
}
