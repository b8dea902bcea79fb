// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/schema.h>

#include <initializer_list>

#include <QJsonArray>

#include <zokit/outputoptions.h>
#include <zokit/placement.h>
#include <zokit/properties.h>

#include "names_p.h"
#include "settingsform_p.h"
#include "valuejson_p.h"

namespace zokit {

namespace {

QString word(const char* text)
{
    return QLatin1String(text);
}

QJsonObject ofType(const char* name)
{
    return {{word("type"), word(name)}};
}

QJsonObject matching(const char* pattern)
{
    return {{word("type"), word("string")}, {word("pattern"), word(pattern)}};
}

QJsonObject anyOf(const QJsonArray& schemas)
{
    return {{word("anyOf"), schemas}};
}

QJsonObject constant(const QJsonValue& value)
{
    return {{word("const"), value}};
}

QJsonObject reference(const QString& definition)
{
    return {{word("$ref"), QStringLiteral("#/$defs/") + definition}};
}

QJsonObject object(const QJsonObject& properties, const QJsonValue& others)
{
    return {{word("type"), word("object")}, {word("properties"), properties}, {word("additionalProperties"), others}};
}

QJsonObject listOf(const QJsonObject& items)
{
    return {{word("type"), word("array")}, {word("items"), items}};
}

/// An object of a file that may hold a host's own members besides.
QJsonObject member(const QJsonObject& properties, std::initializer_list<const char*> required = {})
{
    QJsonObject result = object(properties, false);
    result.insert(word("patternProperties"), QJsonObject{{word("^x-"), true}});
    QJsonArray names;
    for (const char* name : required)
        names.append(word(name));
    if (!names.isEmpty())
        result.insert(word("required"), names);
    return result;
}

QJsonObject byKind(const Property& property)
{
    switch (property.kind) {
    case ValueKind::Bool:
        return ofType("boolean");
    case ValueKind::Integer:
        return ofType("integer");
    case ValueKind::Number:
        return ofType("number");
    case ValueKind::Text:
        return ofType("string");
    case ValueKind::Color:
        return matching("^(#[0-9a-fA-F]{6}|#[0-9a-fA-F]{8}|[A-Za-z]+)$");
    case ValueKind::Font: {
        QJsonObject described = ofType("object");
        described.insert(word("required"), QJsonArray{word("family")});
        return anyOf({matching("."), described});
    }
    case ValueKind::List:
        return listOf(anyOf({matching("."), ofType("integer")}));
    case ValueKind::Size:
        return matching("^[1-9][0-9]{0,4}x[1-9][0-9]{0,4}(,exact)?$");
    case ValueKind::Range: {
        QJsonObject seconds = ofType("number");
        seconds.insert(word("minimum"), 0);
        QJsonObject range = listOf(seconds);
        range.insert(word("minItems"), 2);
        range.insert(word("maxItems"), 2);
        return range;
    }
    }
    return {};
}

void addBound(QJsonObject& schema, const char* name, const QVariant& bound)
{
    if (!bound.isValid())
        return;
    const bool ofFrame = bound.userType() == QMetaType::QString;
    schema.insert(ofFrame ? word("x-") + word(name) : word(name), QJsonValue::fromVariant(bound));
}

/// A value as JSON has it. \a bounded: within what a person may set.
QJsonObject plainValue(const Property& property, bool bounded)
{
    QJsonObject result = byKind(property);
    if (bounded) {
        addBound(result, "minimum", property.lowest);
        addBound(result, "maximum", property.highest);
    }
    QJsonArray choices;
    for (const Choice& choice : property.choices)
        choices.append(QJsonValue::fromVariant(choice.value));
    if (!choices.isEmpty())
        result.insert(word("enum"), choices);
    // A word in the place of a number, until one is set.
    const QVariant fallback = property.defaultValue();
    if (property.kind == ValueKind::Integer && fallback.userType() == QMetaType::QString)
        return anyOf({result, constant(fallback.toString())});
    return result;
}

QJsonObject described(QJsonObject schema, const Property& property)
{
    schema.insert(word("title"), property.label());
    schema.insert(word("description"), property.help());
    if (!property.unitName().isEmpty())
        schema.insert(word("x-unit"), property.unitName());
    const QVariant fallback = property.defaultValue();
    if (const auto json = valuejson::toJson(fallback, fallback); property.hasDefault() && json)
        schema.insert(word("default"), *json);
    return schema;
}

/// The values of \a type: within the bounds, or as a file may hold them.
QJsonObject valuesOf(const QString& type, bool inFile)
{
    QJsonObject values;
    for (const Property& property : properties()) {
        if (property.type != type)
            continue;
        const bool bounded = !inFile || !form::mayLieBeyondBounds(property);
        const QJsonObject plain = plainValue(property, bounded);
        values.insert(property.key, described(inFile ? anyOf({plain, reference(word("wrapped"))}) : plain, property));
    }
    QJsonObject result = object(values, inFile ? QJsonValue(reference(word("wrapped"))) : QJsonValue(false));
    result.insert(word("title"), displayName(type));
    return result;
}

QJsonObject anchor()
{
    QJsonArray corners;
    for (int corner = 0; corner <= static_cast<int>(Corner::BottomRight); ++corner) {
        Anchor anchor;
        anchor.corner = static_cast<Corner>(corner);
        corners.append(toValues(anchor).value(word("corner")).toString());
    }
    const QJsonObject percent = matching("^[-+0-9.eE]+ *%$");
    return member({{word("corner"), QJsonObject{{word("enum"), corners}}},
                   {word("margin"), anyOf({ofType("number"), percent})},
                   {word("size"), anyOf({ofType("number"), percent})}},
                  {"corner"});
}

QJsonObject item(const QString& type)
{
    QJsonObject members{{form::selectedMember, ofType("boolean")}, {form::valuesMember, reference(type)}};
    if (type == types::watermark)
        members.insert(form::anchorMember, anchor());
    if (type != types::effect)
        return member(members);
    QJsonArray names;
    for (const FrameEffect& frameEffect : frameEffects())
        names.append(word(frameEffect.name));
    members.insert(form::nameMember, QJsonObject{{word("enum"), names}});
    return member(members, {"name"});
}

QJsonObject effect(const QString& type)
{
    QJsonObject members{{form::typeMember, constant(type)},
                        {form::selectedMember, ofType("boolean")},
                        {form::valuesMember, reference(type)}};
    if (hasItems(type))
        members.insert(form::itemsMember, listOf(item(type)));
    return member(members, {"type"});
}

QJsonObject frame(bool preset)
{
    QJsonObject side = ofType("integer");
    side.insert(word("minimum"), 0);
    QJsonObject members{{word("width"), side}, {word("height"), side}};
    if (!preset) {
        QJsonObject seconds = ofType("number");
        seconds.insert(word("minimum"), 0);
        members.insert(word("file"), ofType("string"));
        members.insert(word("seconds"), seconds);
    }
    return object(members, true);
}

QJsonObject trackRules()
{
    QJsonObject rules;
    for (const Property& property : properties()) {
        if (property.type == types::tracks)
            rules.insert(property.key, described(plainValue(property, true), property));
    }
    return object(rules, false);
}

QJsonObject output(bool preset)
{
    QJsonObject options;
    for (const OutputOption& option : outputOptions()) {
        if (preset ? option.inPresets : option.inSettings)
            options.insert(option.property.key, described(plainValue(option.property, true), option.property));
    }
    return object(options, false);
}

QJsonObject fileSchema(bool preset)
{
    QJsonObject definitions;
    QJsonObject wrapped = ofType("object");
    wrapped.insert(word("minProperties"), 1);
    wrapped.insert(word("maxProperties"), 1);
    definitions.insert(word("wrapped"), wrapped);
    QJsonArray effects;
    for (const QString& type : effectTypes()) {
        definitions.insert(type, valuesOf(type, true));
        effects.append(effect(type));
    }
    QJsonObject members{{form::versionMember, constant(form::formVersion)},
                        {preset ? form::baseMember : form::mediaMember, frame(preset)},
                        {form::effectsMember, listOf({{word("oneOf"), effects}})},
                        {form::tracksMember, trackRules()},
                        {form::outputMember, output(preset)}};
    if (preset)
        members.insert(form::mediaMember, false);
    QJsonObject result = object(members, true);
    result.insert(word("required"), QJsonArray{form::versionMember});
    result.insert(word("$defs"), definitions);
    return result;
}

QJsonObject catalogueSchema()
{
    QJsonObject types;
    for (const QString& type : effectTypes())
        types.insert(type, valuesOf(type, false));
    return object(types, false);
}

} // namespace

QJsonObject schema(SchemaOf what)
{
    QJsonObject result = what == SchemaOf::Catalogue ? catalogueSchema() : fileSchema(what == SchemaOf::Preset);
    result.insert(word("$schema"), word("https://json-schema.org/draft/2020-12/schema"));
    return result;
}

} // namespace zokit
