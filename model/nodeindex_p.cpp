// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "nodeindex_p.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <type_traits>

#include <QVector>

#include "zoeffectitemdata.h"

namespace nodeindex {

namespace {

constexpr std::size_t nameSlots = 128;
constexpr std::size_t rootSlots = 2;
constexpr std::size_t longestName = 32;

/// How often the child lists of all threads changed: for the names in one slot, and for all names.
std::array<std::atomic<quint64>, nameSlots> changesInSlot{};
std::atomic<quint64> changesForAll{0};

/// Without a destructor, so that it can be asked as long as the thread lives: a host's static objects may still look
/// nodes up when those of the thread are gone.
struct Answer {
    const ZoEffectItemData* root = nullptr;
    ZoEffectItemData* node = nullptr;
    quint64 changesInSlot = 0;
    quint64 changesForAll = 0;
    std::size_t size = 0;
    /// Copied: the caller's letters may lie in memory that the string does not own.
    std::array<QChar, longestName> name{};

    bool isAbout(const ZoEffectItemData& asked, const QString& text) const
    {
        return root == &asked && size == static_cast<std::size_t>(text.size())
               && std::memcmp(name.data(), text.constData(), size * sizeof(QChar)) == 0;
    }
};

/// Tells the names of the effect types apart; others may share a slot, which costs time and nothing else.
std::size_t slotOf(const QString& name)
{
    const auto size = static_cast<std::size_t>(name.size());
    if (size == 0)
        return 0;
    const QChar* letters = name.constData();
    constexpr std::size_t nearTheEnd = 8; // An eighth before it, where the names of the audio effects differ.
    const std::size_t middle = letters[size / 2].unicode();
    const std::size_t late = letters[size - 1 - size / nearTheEnd].unicode();
    return (size + 2 * middle + late) % nameSlots;
}

Answer& answerFor(const ZoEffectItemData& root, std::size_t slot)
{
    static_assert(std::is_trivially_destructible_v<Answer>);
    thread_local std::array<Answer, nameSlots * rootSlots> answers{};
    const std::size_t ofRoot = reinterpret_cast<quintptr>(&root) / sizeof(ZoEffectItemData) % rootSlots;
    return answers[slot * rootSlots + ofRoot];
}

bool holds(const Answer& answer, std::size_t slot)
{
    return changesForAll.load(std::memory_order_relaxed) == answer.changesForAll
           && changesInSlot[slot].load(std::memory_order_relaxed) == answer.changesInSlot;
}

} // namespace

ZoEffectItemData* walkToFirst(const ZoEffectItemData& start, const QString& name)
{
    // Trees can be deep: the walk keeps its own stack.
    QVector<const ZoEffectItemData*> pending{&start};
    while (!pending.isEmpty()) {
        const ZoEffectItemData* node = pending.takeLast();
        if (node->name() == name)
            return const_cast<ZoEffectItemData*>(node);
        for (int row = node->childCount() - 1; row >= 0; --row) {
            if (const ZoEffectItemData* child = node->child(row))
                pending.append(child);
        }
    }
    return nullptr;
}

ZoEffectItemData* first(const ZoEffectItemData& root, const QString& name)
{
    const std::size_t slot = slotOf(name);
    Answer& answer = answerFor(root, slot);
    if (answer.isAbout(root, name) && holds(answer, slot))
        return answer.node;

    ZoEffectItemData* node = walkToFirst(root, name);
    const auto size = static_cast<std::size_t>(name.size());
    if (size > longestName)
        return node;
    answer.root = &root;
    answer.node = node;
    answer.changesInSlot = changesInSlot[slot].load(std::memory_order_relaxed);
    answer.changesForAll = changesForAll.load(std::memory_order_relaxed);
    answer.size = size;
    std::copy(name.cbegin(), name.cend(), answer.name.begin());
    return node;
}

// A node without children touches the lookups of its own name only. With children it may hold any name.
void cameIn(const ZoEffectItemData* child)
{
    if (!child)
        return;
    if (child->childCount() > 0)
        listsChanged();
    else
        changesInSlot[slotOf(child->name())].fetch_add(1, std::memory_order_relaxed);
}

void listsChanged()
{
    changesForAll.fetch_add(1, std::memory_order_relaxed);
}

} // namespace nodeindex
