// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <memory>

#include "peer_items.h"
#include "places.h"
#include "rounds.h"
#include "settings.h"
#ifdef HAVE_OBS
#include "peer_obs.h"
#endif
#ifdef HAVE_MLT
#include "peer_mlt.h"
#endif

namespace {

/// Settings with a number of watermarks, on all sides. Made once for each number, for all places in them.
struct Settings {
    explicit Settings(int items) : modelListener(model), storeListener(store)
    {
        addWatermarks(model, items);
        fillWithDefaults(store);
        addWatermarks(store, items);
        standardItems.addWatermarks(items);
        standardItems.listen();
#ifdef HAVE_OBS
        obs.addItems(QStringLiteral("Watermark"), items);
#endif
    }

    ZoEffectModel model;
    Listener modelListener;
    bareqt::Store store;
    Listener storeListener;
    ItemSettings standardItems;
#ifdef HAVE_OBS
    ObsSettings obs;
    ObsSignal obsSignal;
#endif
};

// A side each: how it stores and reads at its place, and how many changes it announced since it was last asked.

struct LibrarySide {
    std::shared_ptr<Settings> settings;
    Place place;

    void set(const Step& step) { settings->model.setData(step.key, step.value, place.type, place.pos); }
    QVariant read(const Step& step) { return settings->model.data(step.key, place.type, place.pos); }
    bool holds(const Step& step) { return read(step) == step.value; }
    int changes() { return settings->modelListener.taken(); }
};

struct LimitSide {
    std::shared_ptr<Settings> settings;
    Place place;

    void set(const Step& step) { settings->store.setValue(step.key, step.value, place.type, place.pos); }
    QVariant read(const Step& step) { return settings->store.value(step.key, place.type, place.pos); }
    bool holds(const Step& step) { return read(step) == step.value; }
    int changes() { return settings->storeListener.taken(); }
};

struct StandardItemSide {
    std::shared_ptr<Settings> settings;
    Place place;

    QStandardItem* item() { return settings->standardItems.item(place.type, place.pos); }
    void set(const Step& step) { item()->setData(step.value, step.role); }
    QVariant read(const Step& step) { return item()->data(step.role); }
    bool holds(const Step& step) { return read(step) == step.value; }
    int changes() { return settings->standardItems.takenChanges(); }
};

/// The same, where a host has the keys as texts, as it has them for all others here.
struct KeyedItemSide {
    std::shared_ptr<Settings> settings;
    Place place;
    QHash<QString, int> roles = rolesByKey();

    QStandardItem* item() { return settings->standardItems.item(place.type, place.pos); }
    void set(const Step& step) { item()->setData(step.value, roles.value(step.key)); }
    QVariant read(const Step& step) { return item()->data(roles.value(step.key)); }
    bool holds(const Step& step) { return read(step) == step.value; }
    int changes() { return settings->standardItems.takenChanges(); }
};

#if defined(HAVE_OBS) || defined(HAVE_MLT)
/// What a host of the peers without addresses needs besides: as for the limit, a hash from types to their nodes.
template <typename Node>
struct NodesByAddress {
    struct OfType {
        Node own{};
        QVector<Node> items;
    };
    QHash<QString, OfType> types;

    void add(const Place& place, Node node)
    {
        OfType& type = types[place.type];
        type.own = node;
        type.items.fill(node, place.pos + 1);
    }
    Node at(const QString& type, int pos) const
    {
        const auto found = types.constFind(type);
        return pos == -1 ? found->own : found->items.at(pos);
    }
};
#endif

#ifdef HAVE_OBS
struct ObsSide {
    ObsSide(const std::shared_ptr<Settings>& shared, Place where) : settings(shared), place(std::move(where))
    {
        nodes.add(place, shared->obs.at(place.type, place.pos));
    }

    std::shared_ptr<Settings> settings;
    Place place;
    NodesByAddress<obs_data_t*> nodes;

    obs_data_t* data() const { return nodes.at(place.type, place.pos); }
    void set(const Step& step)
    {
        obs_data_t* found = data();
        ObsSettings::set(found, step);
        settings->obsSignal.send(found, step.nativeKey.c_str());
    }
    long long read(const Step& step) { return ObsSettings::read(data(), step); }
    bool holds(const Step& step) { return ObsSettings::holds(data(), step); }
    int changes() { return settings->obsSignal.taken(); }
};
#endif

#ifdef HAVE_MLT
struct MltSide {
    explicit MltSide(const Place& where) : place(where), properties(std::make_shared<MltSettings>(where.type))
    {
        nodes.add(place, properties.get());
    }

    Place place;
    std::shared_ptr<MltSettings> properties;
    NodesByAddress<MltSettings*> nodes;

    MltSettings& node() const { return *nodes.at(place.type, place.pos); }
    void set(const Step& step) { node().set(step); }
    long long read(const Step& step) { return node().read(step); }
    bool holds(const Step& step) { return node().holds(step); }
    int changes() { return properties->taken(); }
};
#endif

template <typename Side>
Contestant setter(const char* name, const Side& contestant, const std::vector<Step>& steps)
{
    return {name, [side = contestant, steps](benchmark::State& state) mutable {
                for (std::size_t i = steps.size() / 2; i < steps.size(); ++i)
                    side.set(steps[i]);
                side.changes();
                std::size_t next = 0;
                for (auto _ : state) {
                    side.set(steps[next]);
                    if (++next == steps.size())
                        next = 0;
                }
                if (!side.holds(steps[next == 0 ? steps.size() - 1 : next - 1]))
                    state.SkipWithError("the value that was stored last is not there");
                if (side.changes() != static_cast<int>(state.iterations()))
                    state.SkipWithError("the listener was not called once for each change");
            }};
}

/// \a steps are stored first; the loop stores \a equal, their equals in memory of their own.
template <typename Side>
Contestant equalSetter(const char* name, const Side& contestant, const std::vector<Step>& steps,
                       const std::vector<Step>& equal)
{
    return {name, [side = contestant, steps, equal](benchmark::State& state) mutable {
                const std::size_t count = steps.size() / 2;
                for (std::size_t i = 0; i < count; ++i)
                    side.set(steps[i]);
                side.changes();
                std::size_t next = 0;
                for (auto _ : state) {
                    side.set(equal[next]);
                    if (++next == count)
                        next = 0;
                }
                if (!side.holds(steps[0]) || !side.holds(steps[count - 1]))
                    state.SkipWithError("a value is not what was stored");
                if (side.changes() != 0)
                    state.SkipWithError("an equal value was announced");
            }};
}

template <typename Side>
Contestant reader(const char* name, const Side& contestant, const std::vector<Step>& steps,
                  const std::vector<Step>& equal)
{
    return {name, [side = contestant, steps, equal](benchmark::State& state) mutable {
                const std::size_t count = steps.size() / 2;
                for (std::size_t i = 0; i < count; ++i)
                    side.set(steps[i]);
                std::size_t next = 0;
                for (auto _ : state) {
                    benchmark::DoNotOptimize(side.read(equal[next]));
                    if (++next == count)
                        next = 0;
                }
                for (std::size_t i = 0; i < count; ++i) {
                    if (!side.holds(equal[i]))
                        state.SkipWithError("a value is not what was stored");
                }
            }};
}

enum class Operation { Set, Equal, Read };

/// All contestants for an operation at one place of \a settings.
Case caseAt(Operation operation, const std::string& name, const std::shared_ptr<Settings>& settings, const Place& place,
            const Place& again)
{
    Case made{name, {}, 0};
    const auto add = [&](const char* contestant, const auto& side) {
        switch (operation) {
        case Operation::Set:
            made.contestants.push_back(setter(contestant, side, place.steps));
            break;
        case Operation::Equal:
            made.contestants.push_back(equalSetter(contestant, side, place.steps, again.steps));
            break;
        case Operation::Read:
            made.contestants.push_back(reader(contestant, side, place.steps, again.steps));
            break;
        }
    };
    add("library", LibrarySide{settings, place});
    add("limit", LimitSide{settings, place});
    add("QStandardItemModel", StandardItemSide{settings, place});
    add("items by text key", KeyedItemSide{settings, place});
    // The other two know no equal values.
    if (operation != Operation::Equal) {
#ifdef HAVE_OBS
        add("OBS", ObsSide(settings, place));
#endif
#ifdef HAVE_MLT
        add("MLT", MltSide(place));
#endif
    }
    return made;
}

std::vector<Case> casesOf(Operation operation, int largest)
{
    struct Size {
        int items;
        const char* name;
    };
    struct Named {
        Spot spot;
        const char* name;
    };
    static const Size sizes[] = {{10, "10 items"}, {100, "100 items"}, {1000, "1,000 items"}, {10000, "10,000 items"}};
    static const Named spots[] = {{Spot::MiddleItem, "middle item"},
                                  {Spot::LastItem, "last item"},
                                  {Spot::LastType, "last type"},
                                  {Spot::FirstType, "first type"}};
    static const char* const keys[] = {"wm_hposition", "wm_hposfactor", "wm_imagekeepratio", "wm_fontstyle",
                                       "wm_fontcolor"};
    static const char* const types[] = {"int", "double", "bool", "QString", "QColor"};

    std::vector<Case> cases;
    std::shared_ptr<Settings> hundred;
    for (const Size& size : sizes) {
        if (size.items > largest)
            break;
        const auto settings = std::make_shared<Settings>(size.items);
        if (size.items == 100)
            hundred = settings;
        for (const Named& spot : spots)
            cases.push_back(caseAt(operation, std::string(size.name) + ", " + spot.name, settings,
                                   placeAt(spot.spot, size.items), placeAt(spot.spot, size.items)));
    }
    constexpr int items = 100;
    for (std::size_t i = 0; i < std::size(keys); ++i) {
        const QString key = QString::fromLatin1(keys[i]);
        cases.push_back(caseAt(operation, std::string("100 items, any ") + types[i], hundred,
                               placeAt(Spot::MiddleItem, items, key), placeAt(Spot::MiddleItem, items, key)));
    }
    const Place place = placeAt(Spot::MiddleItem, items);
    cases.push_back(caseAt(operation, "100 items, any key on the heap", hundred, withTextsOnTheHeap(place),
                           withTextsOnTheHeap(place)));
    return cases;
}

} // namespace

std::vector<Case> setCases(int largest)
{
    return casesOf(Operation::Set, largest);
}

std::vector<Case> equalCases(int largest)
{
    return casesOf(Operation::Equal, largest);
}

std::vector<Case> readCases(int largest)
{
    return casesOf(Operation::Read, largest);
}
