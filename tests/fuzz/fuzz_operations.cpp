// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// A host's session: any sequence of the public operations on three models, their nodes and the store of custom
// defaults, with hostile values, and with listeners that call back into the model.

#include <memory>
#include <vector>

#include <QSet>

#include <zoeffectitemdefaultvalmgr.h>
#include <zoeffectmodel.h>

#include "bytes.h"
#include "hostcatalogue.h"
#include "session.h"
#include "vocabulary.h"

namespace {

constexpr int modelCount = 3;
constexpr int mostOperations = 60;
constexpr int mostCallbacks = 40;
constexpr std::size_t mostNodes = 1500; // Of one model: copies into itself double a tree.
constexpr int largestPicture = 64;

using Nodes = std::vector<const ZoEffectItemData*>;

/// All nodes of \a root, each once for every place where it stands; stops where there are far too many.
Nodes nodesOf(const ZoEffectItemData* root)
{
    Nodes nodes;
    if (root)
        nodes.push_back(root);
    for (std::size_t i = 0; i < nodes.size() && nodes.size() < 100 * mostNodes; ++i) {
        for (int row = 0; row < nodes[i]->childCount(); ++row) {
            if (const ZoEffectItemData* child = nodes[i]->child(row))
                nodes.push_back(child);
        }
    }
    return nodes;
}

class Host : public QObject {
public:
    explicit Host(Bytes& bytes) : m_bytes(bytes)
    {
        for (auto& model : m_models) {
            model = std::make_unique<ZoEffectModel>();
            listen(*model);
        }
    }

    void run()
    {
        for (int done = 0; done < mostOperations && !m_bytes.atEnd(); ++done)
            operate();
        for (const auto& model : m_models)
            checkTree(*model);
    }

private:
    void listen(ZoEffectModel& model)
    {
        connect(&model,
                QOverload<const QString&, const QString&, const QVariant&, int>::of(&ZoEffectModel::effectDataChanged),
                this, [this](const QString&, const QString&, const QVariant&, int) { callBack(); });
        connect(&model, QOverload<const QString&>::of(&ZoEffectModel::effectDataChanged), this,
                [this](const QString&) { callBack(); });
        connect(&model, &ZoEffectModel::applyItemDataTo, this,
                [this](ZoEffectItemData* item, const QString& type, int pos, int to) {
                    m_models[std::size_t(std::abs(to % modelCount))]->replaceData(type, pos, item);
                });
        connect(&model, &ZoEffectModel::applyItemDataSomePropertyTo, this,
                [this](const QMap<QString, QVariant>& props, const QString& type, int, int to) {
                    m_models[std::size_t(std::abs(to % modelCount))]->replaceItemDataProperty(type, props);
                });
    }

    /// What a listener does in the middle of an operation. It leaves the models themselves, whose replacement
    /// could delete them, to operate().
    void callBack()
    {
        if (!m_callsBack || m_callbacks >= mostCallbacks)
            return;
        ++m_callbacks;
        m_callsBack = false; // Not again while it works.
        const int choice = m_bytes.below(4);
        if (choice == 0)
            edit(model());
        else if (choice == 1)
            editList(model());
        else if (choice == 2)
            picture(model());
        else
            read(model());
        m_callsBack = true;
    }

    ZoEffectModel& model() { return *m_models[std::size_t(m_bytes.below(modelCount))]; }

    void operate()
    {
        const int choice = m_bytes.below(16);
        if (choice <= 2)
            edit(model());
        else if (choice <= 5)
            editList(model());
        else if (choice == 6)
            read(model());
        else if (choice == 7)
            picture(model());
        else if (choice == 8)
            resize(model());
        else if (choice == 9)
            node(model());
        else if (choice == 10)
            customDefaults(model());
        else if (choice == 11)
            copyModel();
        else if (choice == 12)
            track(model());
        else if (choice == 13)
            m_callsBack = m_bytes.flag();
        else if (choice == 14)
            handOver(model());
        else
            blockOrSend(model());
    }

    /// Values and selection.
    void edit(ZoEffectModel& model)
    {
        const int choice = m_bytes.below(6);
        const QString type = vocabulary::type(m_bytes);
        if (choice < 3) {
            const int pos = m_bytes.position();
            const QString key = vocabulary::key(m_bytes);
            const QVariant value = m_bytes.value();
            const bool exists = model.findDataItem(type, pos) != nullptr;
            require(model.setData(key, value, type, pos) == exists, "setData() tells whether the node exists");
        } else if (choice == 3) {
            const QString key = vocabulary::key(m_bytes);
            model.selectItemByKey(type, key, m_bytes.value());
        } else if (choice == 4) {
            const QString key = vocabulary::key(m_bytes);
            model.selectItemByKeyEx(type, key, {m_bytes.text(), m_bytes.text()});
        } else {
            model.selectOnlyOneItem(type);
        }
    }

    void editList(ZoEffectModel& model)
    {
        const int choice = m_bytes.below(11);
        const QString type = vocabulary::type(m_bytes);
        const int pos = m_bytes.position();
        if (choice <= 1)
            insert(model, type, pos);
        else if (choice == 2)
            model.addDataItem(type, vocabulary::properties(m_bytes));
        else if (choice == 3)
            model.addDataItemEx(type, vocabulary::properties(m_bytes), m_bytes.flag());
        else if (choice == 4)
            model.delDataItem(type, pos);
        else if (choice == 5)
            model.changeDataItemPos(type, pos, m_bytes.position());
        else if (choice == 6)
            model.replaceData(type, pos, vocabulary::properties(m_bytes));
        else if (choice == 7)
            replaceByNode(model, type, pos);
        else if (choice == 8)
            model.replaceItemDataProperty(type, vocabulary::properties(m_bytes));
        else if (choice == 9)
            model.resetDataItem(type, pos);
        else
            model.resetAllEffect();
    }

    void insert(ZoEffectModel& model, const QString& type, int pos)
    {
        const ZoEffectItemData* typeNode = model.getDataItem(type, -1);
        const int before = typeNode ? typeNode->childCount() : 0;
        const bool quiet = !m_callsBack;
        const bool inserted = model.insertDataItem(type, vocabulary::properties(m_bytes), pos);
        require(inserted == (typeNode != nullptr), "an item is inserted wherever there is its type");
        if (inserted && quiet)
            require(typeNode->childCount() == before + 1, "an insertion adds one item");
    }

    void replaceByNode(ZoEffectModel& model, const QString& type, int pos)
    {
        const ZoEffectModel& from = this->model();
        const QString fromType = vocabulary::type(m_bytes);
        const ZoEffectItemData* source = from.getDataItem(fromType, m_bytes.position());
        const bool small = nodesOf(source).size() + nodesOf(root(model)).size() < mostNodes;
        if (small)
            model.replaceData(type, pos, source);
    }

    void read(ZoEffectModel& model)
    {
        const QString type = vocabulary::type(m_bytes);
        const QString key = vocabulary::key(m_bytes);
        const int pos = m_bytes.position();
        model.data(key, type, pos);
        model.SingleDataIsDefault(type, key, pos);
        model.dataIsDefault(type);
        model.FrameEffectIsDefault();
        model.hasRealEffect();
        model.getCurrentFrameEffects();
        model.isCroped(pos, pos);
        model.cropData();
        const QVariant value = m_bytes.value();
        const int found = model.getItemIndexByKeyValue(type, key, value);
        require((found != -1) == model.haveSameItem(type, key, value), "an item that is found is there");
        const ZoEffectItemData* typeNode = model.getDataItem(type, -1);
        require(model.childCount(type) == (typeNode ? typeNode->childCount() : 0), "childCount() counts the list");
        ZoEffectModel::defaultValue(key, type);
        deleteContainer(type, model.getSelectItem(type));
    }

    /// The tracks that getSelectItem("Audio") gives stand in a container of the caller's.
    static void deleteContainer(const QString& type, ZoEffectItemData* container)
    {
        if (type != QLatin1String("Audio") || !container)
            return;
        while (container->childCount() > 0)
            container->takeAt(0);
        delete container;
    }

    void picture(ZoEffectModel& model)
    {
        const QSize base = model.baseSize();
        const bool small = base.width() <= largestPicture && base.height() <= largestPicture;
        const bool honoursIgnore = m_bytes.flag();
        if (small && m_bytes.flag())
            model.getWatermark(base.width(), base.height(), honoursIgnore);
        else
            model.getWatermark(m_bytes.below(largestPicture), m_bytes.below(largestPicture), honoursIgnore);
    }

    void resize(ZoEffectModel& model)
    {
        const int choice = m_bytes.below(4);
        const int width = m_bytes.number();
        const int height = m_bytes.number();
        if (choice == 0)
            model.adjustEffectInfo(width, height);
        else if (choice == 1)
            model.adjustEffectItem(model.getDataItem(vocabulary::type(m_bytes), m_bytes.position()), width, height,
                                   m_bytes.number(), m_bytes.number());
        else
            model.setVideoSize(width, height);
    }

    /// What a host does with a node itself.
    void node(ZoEffectModel& model)
    {
        const int choice = m_bytes.below(12);
        const QString type = vocabulary::type(m_bytes);
        const int pos = m_bytes.position();
        ZoEffectItemData* found = model.getDataItem(type, pos);
        if (!found)
            return;
        const int row = m_bytes.position();
        if (choice == 0)
            found->setData(vocabulary::key(m_bytes), m_bytes.value());
        else if (choice == 1)
            found->delData(vocabulary::key(m_bytes));
        else if (choice == 2)
            found->setCheckState(m_bytes.number());
        else if (choice == 3)
            new ZoEffectItemData(vocabulary::type(m_bytes), found, row);
        else if (choice == 4)
            found->appendChild(m_bytes.flag() ? nullptr : new ZoEffectItemData(vocabulary::type(m_bytes)));
        else if (choice == 5)
            found->insertChild(found->takeAt(row), m_bytes.position());
        else if (choice == 6)
            delete found->takeAt(row);
        else if (choice == 7)
            found->removeChildren(row, m_bytes.number());
        else if (choice == 8)
            found->changeItemPos(row, m_bytes.position());
        else if (choice == 9)
            assignNode(model, *found);
        else if (choice == 10)
            model.adjustWatermarkPos(found);
        else
            fill(model, *found, type);
    }

    void assignNode(ZoEffectModel& model, ZoEffectItemData& target)
    {
        const ZoEffectModel& from = this->model();
        const QString type = vocabulary::type(m_bytes);
        const ZoEffectItemData* source = from.getDataItem(type, m_bytes.position());
        if (!source || nodesOf(source).size() + nodesOf(root(model)).size() >= mostNodes)
            return;
        if (m_bytes.flag())
            target = *source;
        else
            target.appendChild(new ZoEffectItemData(*source));
    }

    void fill(ZoEffectModel& model, ZoEffectItemData& target, const QString& type)
    {
        const EffectControlItem* record = ZoEffectModel::findOriItem(type, ZoEffectModel::s_EffectItems);
        if (m_bytes.flag())
            model.InitZoeffectData(&target);
        else if (nodesOf(root(model)).size() < mostNodes)
            model.InitSubItemData(&target, record ? record->subItems : nullptr);
        model.getItemPos(&target, type);
    }

    void customDefaults(ZoEffectModel& model)
    {
        auto* const store = ZoEffectItemDefaultValMgr::getInstance();
        const int choice = m_bytes.below(7);
        const QString type = vocabulary::type(m_bytes);
        switch (choice) {
        case 0:
        case 1:
            model.saveAsCustomDefault(type, m_bytes.position());
            break;
        case 2:
            model.removeCustomDefault(type);
            break;
        case 3:
            model.getCustomDefaultVal(model.getDataItem(vocabulary::type(m_bytes), m_bytes.position()), type,
                                      m_bytes.flag());
            break;
        case 4: {
            const auto values = vocabulary::properties(m_bytes);
            store->saveAsCustomDefaultVal(type, values);
            require(store->hasCustomDefaultVal(type), "a saved custom default is held");
            require(store->getCustomDefaultVal(type).size() == values.size(), "a custom default is saved whole");
            break;
        }
        case 5:
            store->Init();
            break;
        default:
            model.AdjustFramEffectsByCustomDefault();
            break;
        }
    }

    void copyModel()
    {
        const int choice = m_bytes.below(6);
        const auto to = std::size_t(m_bytes.below(modelCount));
        const ZoEffectModel& from = model();
        const QString type = vocabulary::type(m_bytes);
        if (choice < 2) {
            *m_models[to] = from;
            return;
        }
        std::unique_ptr<ZoEffectModel> made;
        if (choice == 2)
            made = std::make_unique<ZoEffectModel>(from);
        else if (choice == 3)
            made = std::make_unique<ZoEffectModel>(from, nullptr);
        else if (choice == 4)
            made = std::make_unique<ZoEffectModel>(type, vocabulary::properties(m_bytes));
        else
            made = std::make_unique<ZoEffectModel>(QStringList{type, vocabulary::type(m_bytes)});
        m_models[to].swap(made);
        listen(*m_models[to]);
    }

    void track(ZoEffectModel& model)
    {
        model.getEmbededSutitleID();
        model.getEmbededAudioID();
        model.useCustomSubtitle();
        model.useEmbededSubtitle();
        model.useCustomAudio();
        model.useEmbededAudio();
        model.isForAudioEffect();
        model.getValidAudioEffectItem();
        model.refreshCurPlayData(m_bytes.position());
        model.editByUser();
        model.editByDefault();
        model.resetEditByDefaultFlag();
    }

    /// Within mostNodes: the listener copies the node into another model.
    void handOver(ZoEffectModel& model)
    {
        const QString type = vocabulary::type(m_bytes);
        const int pos = m_bytes.position();
        const int to = m_bytes.below(modelCount);
        std::size_t count = nodesOf(model.getDataItem(type, pos)).size();
        for (const auto& other : m_models)
            count += nodesOf(root(*other)).size();
        if (count >= mostNodes)
            return;
        if (m_bytes.flag())
            model.applyDataTo(type, pos, to);
        else
            model.applySomePropertytoOther(type, pos, to);
    }

    void blockOrSend(ZoEffectModel& model)
    {
        const QString type = vocabulary::type(m_bytes);
        switch (m_bytes.below(5)) {
        case 0:
            model.blockSignals(m_bytes.flag());
            break;
        case 1:
            model.beginChange(type);
            model.endChanged(type);
            break;
        case 2:
            model.setCurrentItem(type);
            model.setCurrentSubItem(type, m_bytes.position());
            break;
        case 3:
            if (nodesOf(root(model)).size() < mostNodes)
                model.createItems({type});
            break;
        default:
            model.getImage(m_bytes.text(), m_bytes.flag() ? nullptr : "png");
            break;
        }
    }

    static const ZoEffectItemData* root(const ZoEffectModel& model)
    {
        return model.findDataItem(QStringLiteral("effect root"), -1);
    }

    /// Each node stands in one place of one tree.
    void checkTree(const ZoEffectModel& model)
    {
        for (const ZoEffectItemData* node : nodesOf(root(model))) {
            require(!m_seen.contains(node), "a node stands in one place of one tree");
            m_seen.insert(node);
            require(node->data(10).toInt() == node->checkState(), "a node can be read");
        }
    }

    Bytes& m_bytes;
    std::unique_ptr<ZoEffectModel> m_models[modelCount];
    QSet<const ZoEffectItemData*> m_seen;
    bool m_callsBack = false;
    int m_callbacks = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Session::instance();
    ZoEffectModel::InitEffectModel(hostCatalogue());
    forgetCustomDefaults();
    Bytes bytes(data, size);
    Host(bytes).run();
    return 0;
}
