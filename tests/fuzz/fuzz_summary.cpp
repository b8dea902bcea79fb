// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The summary of the frame effects, "A|true|B|false": what is saved as custom default is text from outside, and
// so are the names of a host's frame effects. A model with those names is compared with the few lines below.

#include <string>
#include <vector>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "bytes.h"
#include "hostcatalogue.h"
#include "session.h"

namespace {

constexpr int mostEffects = 6;
const QString frameEffects = QStringLiteral("Effect");

struct Effect {
    QString name;
    bool on = false;
};

using Effects = std::vector<Effect>;

/// The host's table with one type, "Effect", and frame effects that have names from the bytes.
class Table {
public:
    explicit Table(Bytes& bytes)
    {
        const int count = bytes.below(mostEffects + 1);
        for (int i = 0; i < count; ++i) {
            const QString name = bytes.text().remove(QChar(0));
            m_effects.push_back({name, bytes.flag()});
            m_names.push_back(name.toUtf8());
        }
        for (int i = 0; i < count; ++i)
            m_records.push_back(
                subItem(m_names.at(std::size_t(i)).constData(), i, m_effects.at(std::size_t(i)).on ? on : off));
        m_records.push_back(subItem(nullptr, 0));
        m_types[0] = effectType("Effect", nullptr, m_records.data());
        ZoEffectModel::InitEffectModel(m_types);
    }
    ~Table() { ZoEffectModel::InitEffectModel(hostCatalogue()); }
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    const Effects& effects() const { return m_effects; }

private:
    const EffectDefaultVal on[2] = {property("_checkstate", true), property(nullptr, QVariant())};
    const EffectDefaultVal off[2] = {property("_checkstate", false), property(nullptr, QVariant())};
    Effects m_effects;
    std::vector<QByteArray> m_names;
    std::vector<SubEffectItem> m_records;
    EffectControlItem m_types[2] = {};
};

// --- The independent model

std::vector<QString> split(const QString& text)
{
    std::vector<QString> parts(1);
    for (const QChar c : text) {
        if (c == QLatin1Char('|'))
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

Effects adjusted(Effects effects, const QString& summary)
{
    const std::vector<QString> parts = split(summary);
    if (effects.empty() || parts.size() != 2 * effects.size())
        return effects;
    for (std::size_t i = 0; i < effects.size(); ++i) {
        std::size_t found = 0;
        while (found < effects.size() && effects[found].name != parts[2 * i])
            ++found;
        if (found == effects.size())
            return effects;
        const Effect moved = effects[found];
        effects.erase(effects.begin() + std::ptrdiff_t(found));
        effects.insert(effects.begin() + std::ptrdiff_t(i), moved);
        effects[i].on = parts[2 * i + 1] == QLatin1String("true");
    }
    return effects;
}

bool isDefault(const Effects& effects, const QString& summary)
{
    const std::vector<QString> parts = split(summary);
    if (summary.isEmpty() || effects.empty() || parts.size() != 2 * effects.size())
        return true;
    for (std::size_t i = 0; i < effects.size(); ++i) {
        const bool on = parts[2 * i + 1] == QLatin1String("true");
        if (effects[i].name != parts[2 * i] || effects[i].on != on)
            return false;
    }
    return true;
}

QString joined(const Effects& effects)
{
    QString text;
    for (std::size_t i = 0; i < effects.size(); ++i) {
        if (i > 0)
            text += QLatin1Char('|');
        text += effects[i].name + QLatin1Char('|') + (effects[i].on ? QLatin1String("true") : QLatin1String("false"));
    }
    return text;
}

bool sameEffects(const Effects& a, const Effects& b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i].name != b[i].name || a[i].on != b[i].on)
            return false;
    }
    return true;
}

// --- The library

Effects shown(const ZoEffectModel& model)
{
    Effects effects;
    const ZoEffectItemData* type = model.getDataItem(frameEffects, -1);
    for (int row = 0; type && row < type->childCount(); ++row)
        effects.push_back({type->child(row)->name(), type->child(row)->checkState() == 2});
    return effects;
}

QString summaryOf(const ZoEffectModel& model)
{
    return model.getCurrentFrameEffects().value(frameEffects).toString();
}

/// Most often a text of the names, as a user's would be; also any text.
QString savedText(Bytes& bytes, const Effects& effects)
{
    if (bytes.flag())
        return bytes.text();
    Effects saved;
    const int count = effects.empty() ? 0 : bytes.below(mostEffects + 2);
    for (int i = 0; i < count; ++i)
        saved.push_back({effects.at(std::size_t(bytes.below(int(effects.size())))).name, bytes.flag()});
    QString text = joined(saved);
    if (bytes.flag())
        text += bytes.text();
    return text;
}

void edit(ZoEffectModel& model, Bytes& bytes)
{
    for (int left = bytes.below(8); left > 0; --left) {
        if (bytes.flag())
            model.changeDataItemPos(frameEffects, bytes.position(), bytes.position());
        else
            model.setData(QStringLiteral("_checkstate"), bytes.flag(), frameEffects, bytes.position());
    }
}

bool comesBack(const Effects& effects)
{
    for (std::size_t i = 0; i < effects.size(); ++i) {
        if (effects[i].name.contains(QLatin1Char('|')))
            return false;
        for (std::size_t j = 0; j < i; ++j) {
            if (effects[j].name == effects[i].name)
                return false;
        }
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Session::instance();
    Bytes bytes(data, size);
    const Table table(bytes);
    const QString text = savedText(bytes, table.effects());

    ZoEffectModel plain;
    require(sameEffects(shown(plain), table.effects()), "a model has the frame effects of the table");
    require(plain.FrameEffectIsDefault(), "a new model holds its defaults");
    require(summaryOf(plain) == joined(table.effects()), "the summary names all frame effects and states");

    auto* const store = ZoEffectItemDefaultValMgr::getInstance();
    store->saveAsCustomDefaultVal(frameEffects, {{frameEffects, text}});
    require(plain.FrameEffectIsDefault() == isDefault(table.effects(), text), "a saved text is what counts as default");
    plain.AdjustFramEffectsByCustomDefault();
    require(sameEffects(shown(plain), adjusted(table.effects(), text)), "a saved text orders the frame effects");
    const ZoEffectModel adjustedAtOnce;
    require(sameEffects(shown(adjustedAtOnce), adjusted(table.effects(), text)), "a new model is in the saved order");

    edit(plain, bytes);
    const Effects edited = shown(plain);
    require(edited.size() == table.effects().size(), "an edit loses no frame effect");
    require(plain.FrameEffectIsDefault() == isDefault(edited, text), "an edited model is compared with the saved text");
    require(summaryOf(plain) == joined(edited), "the summary tells what was edited");

    plain.saveAsCustomDefault(frameEffects, -1);
    const ZoEffectModel restored;
    if (comesBack(edited)) {
        require(sameEffects(shown(restored), edited), "what was saved comes back in a new model");
        require(restored.FrameEffectIsDefault(), "what came back is default");
    }

    // A value that is no text at all.
    store->saveAsCustomDefaultVal(frameEffects, {{frameEffects, bytes.value()}});
    const ZoEffectModel odd;
    odd.FrameEffectIsDefault();
    plain.resetDataItem(frameEffects, -1);
    forgetCustomDefaults();
    const ZoEffectModel fresh;
    require(sameEffects(shown(fresh), table.effects()), "nothing stays of a forgotten custom default");
    return 0;
}
