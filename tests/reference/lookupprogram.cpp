// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "lookupprogram.h"

#include <algorithm>

#include "stepbysteplookup.h"

namespace {

constexpr std::size_t mostNodes = 60;
constexpr std::size_t mostLooseTrees = 5;

using Node = ZoEffectItemData;
using Properties = QMap<QString, QVariant>;

const QStringList& names()
{
    static const QStringList all{"effect root", "Crop",       "Watermark", "Subtitle",   "Audio", "Color",
                                 "Effect",      "Audio_Echo", "Blur",      "Sepia",      "",      "item",
                                 "watermark",   "Watermark ", "Größe",     "never there"};
    return all;
}

// NOLINTNEXTLINE(misc-no-recursion): the trees are small.
void gather(Node* node, std::vector<Node*>& nodes)
{
    nodes.push_back(node);
    for (int row = 0; row < node->childCount(); ++row) {
        if (node->child(row))
            gather(node->child(row), nodes);
    }
}

QString sameText(const QString& text)
{
    return QString(text.constData(), text.size()); // Equal, at another place in memory.
}

} // namespace

LookupProgram::LookupProgram(unsigned seed, int models, bool logs)
    : m_seed(seed), m_logs(logs), m_source(seed), m_models(models)
{
    for (int i = 0; i < models; ++i)
        comeUp(m_slots.at(static_cast<std::size_t>(i)));
}

LookupProgram::~LookupProgram() = default;

int LookupProgram::below(int bound)
{
    return static_cast<int>(m_source() % static_cast<unsigned>(bound));
}

QString LookupProgram::anyName()
{
    return names().at(below(static_cast<int>(names().size()) - 1)); // The last one no node ever bears.
}

LookupProgram::Slot& LookupProgram::anySlot()
{
    return m_slots.at(static_cast<std::size_t>(below(m_models)));
}

std::vector<Node*> LookupProgram::roots() const
{
    std::vector<Node*> all;
    all.reserve(static_cast<std::size_t>(m_models) + m_loose.size());
    for (int i = 0; i < m_models; ++i)
        all.push_back(m_slots.at(static_cast<std::size_t>(i)).root);
    for (const auto& tree : m_loose)
        all.push_back(tree.get());
    return all;
}

std::vector<Node*> LookupProgram::nodes() const
{
    std::vector<Node*> all;
    for (Node* root : roots())
        gather(root, all);
    return all;
}

Node* LookupProgram::anyNode()
{
    const std::vector<Node*> all = nodes();
    return all.at(static_cast<std::size_t>(below(static_cast<int>(all.size()))));
}

bool LookupProgram::isAlive(const Node* node) const
{
    const std::vector<Node*> all = nodes();
    return std::find(all.begin(), all.end(), node) != all.end();
}

/// A node from anywhere, out of its list, or a new one.
std::unique_ptr<Node> LookupProgram::takenNode()
{
    Node* holder = anyNode();
    if (holder->childCount() > 0) {
        if (Node* taken = holder->takeAt(below(holder->childCount())))
            return std::unique_ptr<Node>(taken);
    }
    if (!m_loose.empty() && oneIn(2)) {
        std::unique_ptr<Node> tree = std::move(m_loose.back());
        m_loose.pop_back();
        return tree;
    }
    return std::make_unique<Node>(anyName());
}

void LookupProgram::keepLoose(std::unique_ptr<Node> node)
{
    if (m_loose.size() >= mostLooseTrees)
        m_loose.erase(m_loose.begin());
    m_loose.push_back(std::move(node));
}

void LookupProgram::comeUp(Slot& slot)
{
    slot.model.reset();
    const Slot& other = anySlot();
    const int kind = below(6);
    if (kind == 0)
        slot.model.emplace(QStringList{"Subtitle", "Watermark", "Effect"});
    else if (kind == 1)
        slot.model.emplace(QStringLiteral("Audio"), Properties{{"a", 1}});
    else if (kind == 2 && other.model)
        slot.model.emplace(*other.model, nullptr);
    else
        slot.model.emplace();
    slot.root = slot.model->findDataItem("effect root", -1); // Nothing was renamed yet.
    if (kind == 3 && other.model)
        *slot.model = *other.model;
}

/// Keeps the trees small.
void LookupProgram::prune()
{
    while (nodes().size() > mostNodes) {
        std::unique_ptr<Node> doomed = takenNode();
        if (oneIn(8))
            comeUp(anySlot());
    }
}

QString LookupProgram::run(int steps)
{
    static constexpr Step kinds[] = {
        &LookupProgram::appendNewNode,   &LookupProgram::createNewNode,   &LookupProgram::moveNode,
        &LookupProgram::takeAndDelete,   &LookupProgram::removeSome,      &LookupProgram::moveWithinList,
        &LookupProgram::clearNode,       &LookupProgram::assignNode,      &LookupProgram::renameByAssignment,
        &LookupProgram::assignModel,     &LookupProgram::replaceModel,    &LookupProgram::addNull,
        &LookupProgram::standInTwoLists, &LookupProgram::insertItem,      &LookupProgram::addItem,
        &LookupProgram::deleteItem,      &LookupProgram::moveItem,        &LookupProgram::replaceItem,
        &LookupProgram::replaceByNode,   &LookupProgram::resetItem,       &LookupProgram::resetAll,
        &LookupProgram::createTypes,     &LookupProgram::hangInLooseTree,
    };
    for (int i = 0; i < steps; ++i) {
        ++m_step;
        const int kind = below(static_cast<int>(std::size(kinds)));
        (this->*kinds[kind])();
        QString mismatch = m_episodeMismatch.isEmpty() ? firstMismatch() : m_episodeMismatch;
        if (!mismatch.isEmpty()) {
            return QStringLiteral("seed %1, step %2 of kind %3: %4")
                .arg(QString::number(m_seed), QString::number(m_step), QString::number(kind), mismatch);
        }
        prune();
    }
    return QString();
}

QString LookupProgram::firstMismatch()
{
    for (int i = 0; i < m_models; ++i) {
        Slot& slot = m_slots.at(static_cast<std::size_t>(i));
        for (const QString& name : names()) {
            const QString mismatch = mismatchIn(slot, name);
            if (!mismatch.isEmpty())
                return QStringLiteral("model %1, \"%2\": %3").arg(QString::number(i), name, mismatch);
        }
        if (oneIn(4) && !mismatchOfRawText(slot).isEmpty())
            return QStringLiteral("model %1: text in a buffer of the host's").arg(i);
    }
    return QString();
}

QString LookupProgram::mismatchIn(Slot& slot, const QString& name)
{
    const ZoEffectModel& model = *slot.model;
    ++m_lookups;
    Node* found = stepbystep::find(slot.root, name);
    if (model.findDataItem(oneIn(2) ? name : sameText(name), -1) != found)
        return QStringLiteral("findDataItem(type, -1)");
    if (found && oneIn(3) && model.findDataItem(found->name(), -1) != found)
        return QStringLiteral("findDataItem(type, -1) by the node's own text");

    const int pos = below(6) - 2;
    switch (below(8)) {
    case 0:
        ++m_lookups;
        return model.getDataItem(name, pos) == stepbystep::find(slot.root, name, pos)
                   ? QString()
                   : QStringLiteral("getDataItem(type, %1)").arg(pos);
    case 1: {
        ++m_lookups;
        Node* start = anyNode();
        const bool same = model.findDataItem(start, name) == stepbystep::find(start, name)
                          && model.findDataItem(start, name, pos) == stepbystep::find(start, name, pos);
        return same ? QString() : QStringLiteral("findDataItem(start, type) from within");
    }
    case 2:
        return mismatchOfValues(slot, name, pos);
    case 3:
        if (!found && !mayLog())
            return QString();
        ++m_lookups;
        return model.childCount(name) == (found ? found->childCount() : 0) ? QString() : QStringLiteral("childCount");
    default:
        return QString();
    }
}

QString LookupProgram::mismatchOfValues(Slot& slot, const QString& name, int pos)
{
    ++m_lookups;
    Node* node = stepbystep::find(slot.root, name, pos);
    if (!node && !mayLog())
        return slot.model->data("mark", name, pos).isValid() ? QStringLiteral("data of no node") : QString();
    const int mark = below(1000000000);
    if (slot.model->setData("mark", mark, name, pos) != (node != nullptr))
        return QStringLiteral("setData's result");
    if (node && (node->data("mark") != mark || slot.model->data("mark", name, pos) != mark))
        return QStringLiteral("setData wrote elsewhere");
    return QString();
}

/// Looks up a text that lies in a buffer, and again after the host wrote another name into the same buffer.
QString LookupProgram::mismatchOfRawText(Slot& slot)
{
    std::array<QChar, 32> buffer;
    for (int i = 0; i < 3; ++i) {
        QString name = anyName();
        std::copy(name.cbegin(), name.cend(), buffer.begin());
        const QString raw = QString::fromRawData(buffer.data(), name.size());
        ++m_lookups;
        if (slot.model->findDataItem(raw, -1) != stepbystep::find(slot.root, name))
            return name;
    }
    return QString();
}
