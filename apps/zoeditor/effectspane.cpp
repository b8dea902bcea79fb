// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "effectspane.h"

#include <QAction>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QShortcut>
#include <QSortFilterProxyModel>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

#include <zokit/filesettings.h>
#include <zokit/settingsmodel.h>
#include <zokit/tracks.h>

#include "actions.h"
#include "buttons.h"
#include "filesmodel.h"
#include "hint.h"
#include "session.h"
#include "undokeys.h"

namespace zoeditor {

using Model = zokit::SettingsModel;

namespace {

/// Types and items; values only where a search finds them. The second column says what is changed, shortly where names
/// need the room.
class Shown : public QSortFilterProxyModel {
public:
    explicit Shown(QObject* parent) : QSortFilterProxyModel(parent) { setRecursiveFilteringEnabled(true); }

    void search(const QString& word)
    {
        m_word = word.trimmed();
        invalidateFilter();
    }

    QVariant data(const QModelIndex& index, int role) const override
    {
        const bool inWords = role == Qt::AccessibleTextRole || role == Qt::ToolTipRole;
        if ((role != Qt::DisplayRole && !inWords) || index.column() != Model::ValueColumn
            || index.data(Model::KindRole).toInt() == Model::PropertyRow)
            return QSortFilterProxyModel::data(index, role);
        QStringList marks;
        const int count = index.data(Model::ItemCountRole).toInt();
        if (count > 0 && index.data(Model::TypeRole).toString() != QLatin1String("Effect"))
            marks.append(inWords ? EffectsPane::tr("%n item(s)", nullptr, count) : QString::number(count));
        if (index.data(Model::StateRole).toInt() == static_cast<int>(zokit::State::Changed))
            marks.append(EffectsPane::tr("changed"));
        return marks.join(inWords ? QStringLiteral(", ") : FilesModel::separator());
    }

    /// Behind the last item lie values that are not shown: what is dropped there is dropped on the type, and goes to
    /// the end of its items.
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override
    {
        return isBehind(row, parent) ? QSortFilterProxyModel::canDropMimeData(data, action, -1, -1, parent)
                                     : QSortFilterProxyModel::canDropMimeData(data, action, row, column, parent);
    }
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override
    {
        return isBehind(row, parent) ? QSortFilterProxyModel::dropMimeData(data, action, -1, -1, parent)
                                     : QSortFilterProxyModel::dropMimeData(data, action, row, column, parent);
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override
    {
        const QModelIndex index = sourceModel()->index(row, Model::NameColumn, parent);
        const bool isValue = index.data(Model::KindRole).toInt() == Model::PropertyRow;
        if (m_word.isEmpty())
            return !isValue;
        const auto holds = [&](int role) { return index.data(role).toString().contains(m_word, Qt::CaseInsensitive); };
        return holds(Model::LabelRole) || (isValue && (holds(Model::HelpRole) || holds(Model::KeyRole)));
    }

private:
    bool isBehind(int row, const QModelIndex& parent) const { return row < 0 || row >= rowCount(parent); }

    QString m_word;
};

} // namespace

EffectsPane::EffectsPane(Session* session, const Actions& actions, QWidget* parent)
    : QWidget(parent), m_session(session), m_shown(new Shown(this)), m_tree(new KeepsInSight<QTreeView>(this))
{
    setObjectName(QStringLiteral("effects"));
    m_shown->setSourceModel(&session->model());
    auto* search = new QLineEdit(this);
    search->setObjectName(QStringLiteral("search"));
    search->setPlaceholderText(tr("Search all values"));
    search->setAccessibleName(search->placeholderText());
    search->setClearButtonEnabled(true);

    setUpTree();
    auto* buttons = makeButtons(actions);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* nothing = new QLabel(tr("Nothing found."), this);
    nothing->setObjectName(QStringLiteral("nothingFound"));
    nothing->hide();
    leaveUndoToWindow(search);
    layout->addWidget(search);
    layout->addWidget(nothing);
    layout->addWidget(m_tree, 1);
    layout->addLayout(buttons);

    connect(search, &QLineEdit::textChanged, this, [this, nothing](const QString& word) {
        m_isShowing = true; // Rows that vanish choose nothing else.
        static_cast<Shown*>(m_shown)->search(word);
        m_isShowing = false;
        nothing->setVisible(!word.trimmed().isEmpty() && m_shown->rowCount() == 0);
        if (word.trimmed().isEmpty())
            m_tree->collapseAll();
        else
            m_tree->expandAll();
        showChosen();
    });
    connect(search, &QLineEdit::returnPressed, this, [this] { m_tree->setFocus(Qt::TabFocusReason); });
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this, &EffectsPane::takeChosen);
    connect(m_tree, &QTreeView::activated, this, [this](const QModelIndex& index) {
        if (const QString key = index.data(Model::KeyRole).toString(); !key.isEmpty())
            emit valueChosen(key);
    });
    connect(session, &Session::thingChanged, this, &EffectsPane::showChosen);
    connect(actions.action("findValue"), &QAction::triggered, search, [search] {
        search->setFocus(Qt::ShortcutFocusReason);
        search->selectAll();
    });
    connectActions(actions);
    showChosen();
}

void EffectsPane::setUpTree()
{
    m_tree->setObjectName(QStringLiteral("effectTree"));
    m_tree->setAccessibleName(tr("Effects"));
    m_tree->setModel(m_shown);
    m_tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tree->setDragDropMode(QAbstractItemView::InternalMove);
    m_tree->setUniformRowHeights(true);
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionResizeMode(Model::NameColumn, QHeaderView::Stretch);
    m_tree->header()->setSectionResizeMode(Model::ValueColumn, QHeaderView::Fixed);
    constexpr int indentation = 14; // In a narrow window names need the room.
    m_tree->setIndentation(indentation);
    const QString longest = QStringLiteral("99") + FilesModel::separator() + tr("changed");
    m_tree->setColumnWidth(Model::ValueColumn, fontMetrics().horizontalAdvance(longest) + 8);
    m_tree->setHeaderHidden(true);
    showHint(m_tree,
             [this] { return m_session->current() ? QString() : tr("Open a film to see what can be done with it."); });
}

QLayout* EffectsPane::makeButtons(const Actions& actions)
{
    auto* buttons = new QHBoxLayout;
    auto* adding = new QToolButton(this);
    adding->setObjectName(QStringLiteral("addItem"));
    adding->setText(tr("Add"));
    adding->setAccessibleName(adding->text());
    adding->setPopupMode(QToolButton::InstantPopup);
    adding->setFocusPolicy(Qt::StrongFocus);
    auto* menu = new QMenu(adding);
    for (const char* name : {"addText", "addImage", "addSubtitle", "addSound"})
        menu->addAction(actions.action(name));
    adding->setMenu(menu);
    buttons->addWidget(adding);
    actions.action("itemUp")->setIconText(QStringLiteral("\u2191")); // What buttons show: words take too much room.
    actions.action("itemDown")->setIconText(QStringLiteral("\u2193"));
    for (const char* name : {"removeItem", "itemUp", "itemDown"}) {
        auto* button = new QToolButton(this);
        button->setObjectName(QString::fromLatin1(name) + QLatin1String("Button"));
        button->setDefaultAction(actions.action(name));
        button->setAccessibleName(QString(button->defaultAction()->text()).remove(QLatin1Char('&')));
        button->setToolTip(button->accessibleName());
        button->setFocusPolicy(Qt::StrongFocus);
        buttons->addWidget(button);
    }
    buttons->addStretch();
    const auto updateAdding = [this, adding] { adding->setEnabled(m_session->current() != nullptr); };
    connect(m_session, &Session::currentChanged, adding, updateAdding);
    updateAdding();
    return buttons;
}

void EffectsPane::connectActions(const Actions& actions)
{
    const auto on = [&](const char* name, auto slot) {
        connect(actions.action(name), &QAction::triggered, this, slot);
    };
    on("addText", [this] {
        insert(QStringLiteral("Watermark"),
               {{QStringLiteral("wm_istextwatermark"), true}, {QStringLiteral("wm_textcontent"), tr("Text")}});
    });
    on("addImage", [this] {
        insertFile(QStringLiteral("Watermark"), tr("Add an image"), tr("Images (*.png *.jpg *.jpeg *.gif *.bmp)"),
                   {{QStringLiteral("wm_istextwatermark"), false}}, QStringLiteral("wm_imageurl"));
    });
    on("addSubtitle", [this] {
        const QString endings = QLatin1String("*.") + zokit::subtitleEndings().join(QLatin1String(" *."));
        insertFile(QStringLiteral("Subtitle"), tr("Add a subtitle file"), tr("Subtitles (%1)").arg(endings),
                   {{QStringLiteral("sub_fromfile"), true}}, QStringLiteral("file"));
    });
    on("addSound", [this] {
        insertFile(QStringLiteral("Audio"), tr("Add a sound file"), tr("All files (*)"),
                   {{QStringLiteral("audio_isfile"), true}}, QStringLiteral("file"));
    });
    on("removeItem", [this] {
        if (m_session->current())
            m_session->take(m_session->current()->remove(m_session->thing(), this));
    });
    on("resetThing", [this] {
        if (m_session->current())
            m_session->take(m_session->current()->reset(m_session->thing(), QString(), this));
    });
    on("resetFile", [this] {
        if (m_session->current())
            m_session->take(m_session->current()->resetAll(this));
    });
    m_tree->setContextMenuPolicy(Qt::ActionsContextMenu);
    for (const char* name : {"resetThing", "removeItem", "itemUp", "itemDown", "resetFile"})
        m_tree->addAction(actions.action(name));
    auto* remove = new QShortcut(QKeySequence(QKeySequence::Delete), m_tree);
    remove->setContext(Qt::WidgetShortcut);
    connect(remove, &QShortcut::activated, actions.action("removeItem"), &QAction::trigger);
    on("itemUp", [this] { moveItem(-1); });
    on("itemDown", [this] { moveItem(1); });
    const auto update = [this, &actions] { updateActions(actions); };
    connect(m_session, &Session::thingChanged, this, update);
    connect(&m_session->model(), &Model::rowsInserted, this, update);
    connect(&m_session->model(), &Model::rowsRemoved, this, update);
    connect(&m_session->model(), &Model::rowsMoved, this, update);
    updateActions(actions);
}

void EffectsPane::updateActions(const Actions& actions) const
{
    const QModelIndex chosen = m_session->model().indexOf(m_session->thing());
    const bool isItem = chosen.data(Model::KindRole).toInt() == Model::ItemRow && chosen.isValid();
    const int count = isItem ? chosen.parent().data(Model::ItemCountRole).toInt() : 0;
    for (const char* name : {"addText", "addImage", "addSubtitle", "addSound", "resetThing", "resetFile"})
        actions.action(name)->setEnabled(m_session->current() != nullptr);
    actions.action("removeItem")
        ->setEnabled(isItem && chosen.data(Model::TypeRole).toString() != QLatin1String("Effect"));
    actions.action("itemUp")->setEnabled(isItem && chosen.row() > 0);
    actions.action("itemDown")->setEnabled(isItem && chosen.row() + 1 < count);
}

void EffectsPane::insert(const QString& type, const zokit::Values& values)
{
    if (!m_session->current())
        return;
    const zokit::FileSettings::Inserted inserted = m_session->current()->insert(type, values, -1, this);
    if (m_session->take(inserted.error))
        m_session->setThing(inserted.item);
}

void EffectsPane::insertFile(const QString& type, const QString& title, const QString& endings,
                             const zokit::Values& values, const QString& key)
{
    const QString path = QFileDialog::getOpenFileName(this, title, QString(), endings);
    if (path.isEmpty())
        return;
    zokit::Values all = values;
    all.insert(key, path);
    insert(type, all);
}

void EffectsPane::moveItem(int by)
{
    const QModelIndex chosen = m_session->model().indexOf(m_session->thing());
    if (m_session->current())
        m_session->take(m_session->current()->move(m_session->thing(), chosen.row() + by, this));
}

void EffectsPane::showChosen()
{
    m_isShowing = true;
    const QModelIndex current = m_tree->currentIndex();
    if (current.data(Model::ThingRole).toULongLong() != m_session->thing() || m_session->thing() == 0)
        m_tree->setCurrentIndex(m_shown->mapFromSource(m_session->model().indexOf(m_session->thing())));
    m_isShowing = false;
}

void EffectsPane::takeChosen()
{
    if (m_isShowing)
        return;
    const QModelIndex current = m_tree->currentIndex();
    if (current.isValid())
        m_session->setThing(current.data(Model::ThingRole).toULongLong());
}

} // namespace zoeditor
