// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

/// \file
/// What a random session plays on: the library and its naive account (referencemodel.h) side by side. A step is one
/// call on both; after it the result, the trees, the signals, the log and the preference store are compared.

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include <QObject>
#include <QPixmap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include "referencemodel.h"

class ZoEffectItemData;
class ZoEffectModel;
struct EffectControlItem;

/// One step. Plain numbers, which the operation takes modulo what is there when it runs: so a session stays playable
/// whatever is cut from it.
struct Command {
    int operation = 0;
    std::array<quint32, 12> choices{};
};

/// What library and reference made different.
struct Difference {
    QString text;
};

/// A model of the library and what is told of it.
struct ModelPair {
    QString name;
    std::unique_ptr<ZoEffectModel> real;
    std::unique_ptr<reference::Model> told;
    std::vector<reference::Signal> heard;
    std::map<QString, QPixmap*> images;
    const QObject* parent = nullptr;
    bool touched = true;
};

/// A node that stands free and is the session's own.
struct FreeNode {
    QString name;
    ZoEffectItemData* real = nullptr;
    reference::NodePtr told;
    bool touched = true;
};

class Stage {
public:
    /// Starts as a process does: no custom defaults, the tests' catalogue registered, one model. When \a describing,
    /// keeps the text of each call; with \a outcome, adds there what each gave.
    explicit Stage(bool describing, QByteArray* outcome = nullptr);
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// One step. Throws a Difference. False when the operation had nothing to work on.
    bool perform(const Command& command);
    /// Compares everything, whether touched or not. Throws a Difference.
    void compareAll();
    /// Adds all trees to the outcome.
    void noteTrees();
    /// Whether the last step changed, sent, logged or answered anything.
    bool tookEffect() const { return m_tookEffect; }
    const QStringList& calls() const { return m_calls; }

    // --- For the operations: what is chosen ---------------------------------------------------------------

    int below(int bound);
    /// True for \a percent of the choices, never for the simplest.
    bool rarely(int percent);

    ModelPair& model();
    QString type(const ModelPair& pair);
    /// \a type, or one of the audio effects.
    QString audioEffectOr(const QString& type);
    /// Mostly a type that has a custom default.
    QString customisedType();
    QString key(const QString& type);
    QVariant value(const QString& key);
    reference::Properties props(const QString& type);
    QStringList typeNames();
    /// A position under \a node: mostly of an item, else -1, the end or outside.
    int pos(const reference::Node* node);
    int pos(const ModelPair& pair, const QString& type);
    int length();
    QString nodeName();
    QString imagePath();
    QString imageFormat();
    /// Any node of any tree.
    reference::Node* node();
    /// Mostly a node that holds items.
    reference::Node* group();
    reference::Node* nodeOrNull(int percentNull);
    FreeNode* freeNode();

    // --- For the operations: what there is ----------------------------------------------------------------

    std::vector<std::unique_ptr<ModelPair>>& models() { return m_models; }
    reference::World& world() { return m_world; }
    QObject* host() { return &m_host; }
    /// The root of the tree that holds \a node.
    const reference::Node* treeOf(const reference::Node* node) const;
    /// Whether \a extra more nodes keep the tree small.
    static bool hasRoomFor(const reference::Node* tree, int extra = 1);
    void registerTable(int number);
    /// The tables that a host registers: the tests' own, an odd one, an empty one, and null.
    static constexpr int tables = 4;
    static constexpr int cleanTable = 0;
    static constexpr int oddTable = 1;
    static const reference::Catalogue* table(int number);
    void adopt(std::unique_ptr<ZoEffectModel> real, std::unique_ptr<reference::Model> told, const QObject* parent);
    void dropModel();
    void adopt(ZoEffectItemData* real, const reference::NodePtr& told);
    /// Hands the ownership of \a node out.
    FreeNode release(const FreeNode* node);
    void touchAll();
    void nothingToDo() { m_idle = true; }

    // --- For the operations: what they called, and what came of it ----------------------------------------

    /// Tells the call, before it is made.
    template <typename Receiver, typename... Arguments>
    void call(const Receiver& receiver, const char* function, const Arguments&... arguments)
    {
        if (m_describing)
            describe(shown(receiver), function, {shown(arguments)...});
    }
    template <typename Value>
    void same(const Value& library, const Value& told)
    {
        note(told);
        if (!(library == told))
            differ("result", shown(library), shown(told));
        m_tookEffect = m_tookEffect || !(told == Value());
    }
    void same(const QVariant& library, const QVariant& told);
    void same(const ZoEffectItemData* library, const reference::Node* told);
    void matters() { m_tookEffect = true; }

    [[noreturn]] static void differ(const QString& what, const QString& library, const QString& told);

    QString shown(const ModelPair& pair) const { return pair.name; }
    QString shown(const reference::Node* node) const;
    QString shown(const FreeNode* node) const { return shown(node->told.get()); }
    static QString shown(const char* text) { return QString::fromUtf8(text); }
    static QString shown(const QString& text) { return '"' + text + '"'; }
    static QString shown(int number) { return QString::number(number); }
    static QString shown(bool truth) { return truth ? "true" : "false"; }
    static QString shown(const void* pointer) { return pointer ? "a pointer" : "nullptr"; }
    static QString shown(QSize size) { return QString("QSize(%1, %2)").arg(size.width()).arg(size.height()); }
    static QString shown(const QStringList& texts);
    static QString shown(const QVariant& value);
    static QString shown(const reference::Properties& props);

private:
    template <typename Value>
    void note(const Value& told)
    {
        if (m_outcome)
            noteText("= ", shown(told));
    }
    void noteText(const char* mark, const QString& text);
    void noteTree(const reference::Node* node);
    void describe(const QString& receiver, const char* function, const QStringList& arguments);
    void compareTouched();
    void compareTree(const ZoEffectItemData* real, reference::Node* told) const;
    void compareProperties(const ZoEffectItemData* real, const reference::Node* told) const;
    void compareModel(ModelPair& pair) const;
    void compareSignals(ModelPair& pair);
    void compareLog();
    void compareStore();

    bool m_describing;
    QByteArray* m_outcome;
    bool m_idle = false;
    bool m_tookEffect = false;
    int m_names = 0;
    const Command* m_command = nullptr;
    size_t m_used = 0;
    QStringList m_calls;
    QObject m_host; ///< Outlives the models that are its children.
    reference::World m_world;
    std::vector<std::unique_ptr<ModelPair>> m_models;
    std::vector<FreeNode> m_freeNodes;
};

/// One public operation of the library.
struct Operation {
    QByteArray name;
    int weight; ///< How often it is chosen, against the others.
    std::function<void(Stage&)> run;
};

const std::vector<Operation>& operations();

/// Writes the pictures that the sessions use: small ones, a damaged one; one more name has no file.
void writePictures();
