// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "lookupprogram.h"

#include "stepbysteplookup.h"

using Node = ZoEffectItemData;
using Properties = QMap<QString, QVariant>;

namespace {

void takeOut(Node& list, const Node* child)
{
    for (int row = list.childCount() - 1; row >= 0; --row) {
        if (list.child(row) == child)
            list.takeAt(row);
    }
}

} // namespace

// --- Edits by the host -------------------------------------------------------------------------------------------

void LookupProgram::appendNewNode()
{
    Node* holder = anyNode();
    if (oneIn(2))
        holder->appendChild(new Node(anyName()));
    else
        holder->insertChild(new Node(anyName()), below(5) - 1);
}

void LookupProgram::createNewNode()
{
    new Node(anyName(), anyNode(), below(5) - 1);
}

/// The moved node still names its former list as its parent, which may be gone by now.
void LookupProgram::moveNode()
{
    std::unique_ptr<Node> node = takenNode();
    Node* holder = anyNode();
    if (oneIn(2))
        holder->insertChild(node.release(), below(4));
    else
        holder->appendChild(node.release());
}

void LookupProgram::takeAndDelete()
{
    takenNode().reset();
}

void LookupProgram::removeSome()
{
    Node* holder = anyNode();
    holder->removeChildren(below(4), below(3));
}

void LookupProgram::moveWithinList()
{
    Node* holder = anyNode();
    holder->changeItemPos(below(6), below(6));
}

void LookupProgram::clearNode()
{
    if (oneIn(4))
        anyNode()->clear();
}

void LookupProgram::assignNode()
{
    Node* target = anyNode();
    Node* source = anyNode();
    if (oneIn(2))
        target->assign(*source);
    else
        *target = *source;
}

void LookupProgram::renameByAssignment()
{
    Node named(anyName());
    if (oneIn(2))
        new Node(anyName(), &named);
    if (oneIn(6))
        anySlot().root->assign(named);
    else
        anyNode()->assign(named);
}

void LookupProgram::assignModel()
{
    *anySlot().model = *anySlot().model;
}

void LookupProgram::replaceModel()
{
    comeUp(anySlot());
}

void LookupProgram::addNull()
{
    anyNode()->insertChild(nullptr, below(4) - 1);
}

/// For a while one node stands in two lists; both lists and the node itself change meanwhile.
void LookupProgram::standInTwoLists()
{
    std::unique_ptr<Node> guest = takenNode();
    Node* first = anyNode();
    Node* second = anyNode();
    first->insertChild(guest.get(), below(3));
    second->appendChild(guest.get());
    m_episodeMismatch = firstMismatch();
    const auto check = [&] {
        if (m_episodeMismatch.isEmpty())
            m_episodeMismatch = firstMismatch();
    };
    guest->assign(Node(anyName()));
    check();
    first->insertChild(new Node(anyName()), 0);
    check();
    new Node(anyName(), guest.get());
    check();
    second->changeItemPos(0, second->childCount() - 1);
    check();
    takeOut(*first, guest.get());
    check();
    takeOut(*second, guest.get());
    keepLoose(std::move(guest));
}

void LookupProgram::hangInLooseTree()
{
    keepLoose(takenNode());
}

// --- Operations of the models ------------------------------------------------------------------------------------

void LookupProgram::insertItem()
{
    anySlot().model->insertDataItem(anyName(), {{"a", m_step}}, below(5) - 2);
}

void LookupProgram::addItem()
{
    anySlot().model->addDataItemEx(anyName(), {{"a", m_step}}, oneIn(2));
}

void LookupProgram::deleteItem()
{
    Slot& slot = anySlot();
    const QString type = anyName();
    const int pos = below(4) - 1;
    const Node* item = stepbystep::find(slot.root, type, pos);
    if (!item && !mayLog())
        return;
    // The parent that the item names is asked for what stands at its place. What comes out instead stays out.
    Node* parent = item ? item->parent() : nullptr;
    if (item && (!parent || !isAlive(parent)))
        return;
    Node* comesOut = parent ? parent->child(pos) : nullptr;
    slot.model->delDataItem(type, pos);
    if (comesOut && comesOut != item)
        keepLoose(std::unique_ptr<Node>(comesOut));
}

void LookupProgram::moveItem()
{
    Slot& slot = anySlot();
    const QString type = anyName();
    if (stepbystep::find(slot.root, type) || mayLog())
        slot.model->changeDataItemPos(type, below(4), below(4));
}

void LookupProgram::replaceItem()
{
    Slot& slot = anySlot();
    const QString type = anyName();
    const int pos = below(3);
    if (stepbystep::find(slot.root, type, pos) || mayLog())
        slot.model->replaceData(type, pos, Properties{{"a", m_step}});
}

void LookupProgram::replaceByNode()
{
    Slot& slot = anySlot();
    const QString type = anyName();
    const int pos = below(4) - 1;
    const Node* target = stepbystep::find(slot.root, type, pos);
    const Node* source = anyNode();
    if (source->parent() && !isAlive(source->parent()))
        return; // It is asked for the size of its video.
    if ((target && target != source) || mayLog())
        slot.model->replaceData(type, pos, source);
}

void LookupProgram::resetItem()
{
    Slot& slot = anySlot();
    const QString type = anyName();
    if (stepbystep::find(slot.root, type) || mayLog())
        slot.model->resetDataItem(type, -1);
}

void LookupProgram::resetAll()
{
    anySlot().model->resetAllEffect();
}

void LookupProgram::createTypes()
{
    anySlot().model->createItems({anyName(), anyName()});
}
