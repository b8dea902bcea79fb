// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <memory>
#include <optional>
#include <random>
#include <vector>

#include <QString>
#include <QStringList>

#include <zoeffectmodel.h>

/// A random program over models and free-standing trees that live side by side: edits by a host directly on the
/// nodes, operations of the models, models that die and come up again at the same address. After each step the
/// models' lookups are compared with the step-by-step walk.
class LookupProgram {
public:
    /// With \a logs the program also makes the lookups that end in a log entry; the log is for one thread.
    LookupProgram(unsigned seed, int models, bool logs);
    ~LookupProgram();

    /// Empty, or the first lookup that went wrong, with seed and step.
    QString run(int steps);

    qint64 lookups() const { return m_lookups; }

private:
    using Node = ZoEffectItemData;
    using Step = void (LookupProgram::*)();

    struct Slot {
        std::optional<ZoEffectModel> model; // Emplaced again and again: each model comes up where the last one died.
        Node* root = nullptr;
    };

    int below(int bound);
    bool oneIn(int odds) { return below(odds) == 0; }
    bool mayLog() { return m_logs && oneIn(32); } // Each entry opens the log anew.
    QString anyName();
    Slot& anySlot();
    std::vector<Node*> roots() const;
    std::vector<Node*> nodes() const;
    Node* anyNode();
    bool isAlive(const Node* node) const;
    std::unique_ptr<Node> takenNode();
    void keepLoose(std::unique_ptr<Node> node);

    void comeUp(Slot& slot);
    void prune();

    void appendNewNode();
    void createNewNode();
    void moveNode();
    void takeAndDelete();
    void removeSome();
    void moveWithinList();
    void clearNode();
    void assignNode();
    void renameByAssignment();
    void assignModel();
    void replaceModel();
    void addNull();
    void standInTwoLists();
    void insertItem();
    void addItem();
    void deleteItem();
    void moveItem();
    void replaceItem();
    void replaceByNode();
    void resetItem();
    void resetAll();
    void createTypes();
    void hangInLooseTree();

    QString firstMismatch();
    QString mismatchIn(Slot& slot, const QString& name);
    QString mismatchOfValues(Slot& slot, const QString& name, int pos);
    QString mismatchOfRawText(Slot& slot);

    unsigned m_seed;
    bool m_logs;
    std::mt19937 m_source;
    int m_step = 0;
    qint64 m_lookups = 0;
    QString m_episodeMismatch; // Of lookups in the middle of a step.
    std::array<Slot, 4> m_slots;
    int m_models;
    std::vector<std::unique_ptr<Node>> m_loose;
};
