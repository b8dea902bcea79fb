// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include <zokit/settings.h>

class QSortFilterProxyModel;
class QTreeView;

namespace zoeditor {

class Actions;
class Session;

/// The effects of the current file and their items, with what is switched on and what is changed; a search finds any
/// value of them. Items are added, removed and put in order here.
class EffectsPane : public QWidget {
    Q_OBJECT

public:
    EffectsPane(Session* session, const Actions& actions, QWidget* parent = nullptr);

signals:
    /// A value was chosen in what the search has found.
    void valueChosen(const QString& key);

private:
    void setUpTree();
    QLayout* makeButtons(const Actions& actions);
    void connectActions(const Actions& actions);
    void updateActions(const Actions& actions) const;
    void insert(const QString& type, const zokit::Values& values);
    void insertFile(const QString& type, const QString& title, const QString& endings, const zokit::Values& values,
                    const QString& key);
    void moveItem(int by);
    void showChosen();
    void takeChosen();

    Session* m_session;
    QSortFilterProxyModel* m_shown;
    QTreeView* m_tree;
    bool m_isShowing = false; ///< The tree follows the session just now.
};

} // namespace zoeditor
