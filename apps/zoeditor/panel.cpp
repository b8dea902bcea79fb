// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "panel.h"

#include <algorithm>
#include <utility>

#include <QAbstractSpinBox>
#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <zokit/filesettings.h>
#include <zokit/properties.h>
#include <zokit/settingsmodel.h>

#include "anchorcontrol.h"
#include "controls.h"
#include "names.h"
#include "session.h"
#include "valuecontrol.h"

namespace zoeditor {

using Model = zokit::SettingsModel;
using zokit::Message;

namespace {

enum Column { LabelColumn, FieldColumn, RevertColumn, Columns };
const QString anchorKey = QStringLiteral("anchor");
constexpr double smallFont = 0.8; // Of the mark below a label.

QString markText(zokit::State state)
{
    switch (state) {
    case zokit::State::Changed:
        return Panel::tr("changed");
    case zokit::State::SavedDefault:
        return Panel::tr("saved");
    case zokit::State::Default:
        break;
    }
    return Panel::tr("default");
}

/// The values of \a thing: those of a group together, and the groups in the order in which they begin.
QVector<QModelIndex> valuesInGroups(const Model& model, const QModelIndex& thing)
{
    QVector<QModelIndex> values;
    QStringList groups;
    for (int i = 0; i < model.rowCount(thing) && thing.isValid(); ++i) {
        const QModelIndex value = model.index(i, Model::ValueColumn, thing);
        if (value.data(Model::KindRole).toInt() != Model::PropertyRow)
            continue;
        values.append(value);
        groups.append(value.data(Model::GroupRole).toString());
    }
    const auto place = [&groups](const QModelIndex& value) {
        return groups.indexOf(value.data(Model::GroupRole).toString());
    };
    std::stable_sort(values.begin(), values.end(),
                     [&](const QModelIndex& a, const QModelIndex& b) { return place(a) < place(b); });
    return values;
}

} // namespace

Panel::Panel(Session* session, QWidget* parent) : QScrollArea(parent), m_session(session)
{
    setObjectName(QStringLiteral("panel"));
    setAccessibleName(tr("Values"));
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_rebuilding.setSingleShot(true); // A field may be the one that asks for it.
    m_rebuilding.setInterval(0);
    const auto soon = QOverload<>::of(&QTimer::start);
    connect(&m_rebuilding, &QTimer::timeout, this, &Panel::rebuild);
    connect(session, &Session::thingChanged, &m_rebuilding, soon);
    const Model& model = session->model();
    connect(&model, &Model::modelReset, &m_rebuilding, soon);
    connect(&model, &Model::rowsInserted, &m_rebuilding, soon);
    connect(&model, &Model::rowsRemoved, &m_rebuilding, soon);
    connect(&model, &Model::rowsMoved, &m_rebuilding, soon);
    connect(&model, &Model::dataChanged, this, &Panel::update);
    rebuild();
}

void Panel::focusOn(const QString& key)
{
    m_wanted = key;
    if (!m_rebuilding.isActive())
        rebuild();
}

void Panel::rebuild()
{
    const bool isSame = m_thing == m_session->thing();
    const int scrolled = isSame ? verticalScrollBar()->value() : 0;
    const QWidget* focused = focusWidget();
    const QString name = focused && isSame ? focused->objectName() : QString();
    for (const Row& row : std::as_const(m_rows))
        m_session->endGesture(row.control);
    m_rows.clear();
    m_thing = m_session->thing();
    const Model& model = m_session->model();
    const QModelIndex chosen = model.indexOf(m_thing);
    auto* page = new QWidget(this);
    auto* grid = new QGridLayout(page);
    grid->setColumnStretch(FieldColumn, 1);
    const QVector<QModelIndex> values = valuesInGroups(model, chosen);
    addHead(grid, chosen, values.isEmpty());
    QString group = chosen.data(Model::LabelRole).toString(); // A group of the same name needs no title of its own.
    for (const QModelIndex& value : values) {
        if (const QString own = value.data(Model::GroupRole).toString(); own != group)
            addGroup(grid, group = own);
        const QString key = value.data(Model::KeyRole).toString();
        if (key == QLatin1String("wm_vposition")) // What the anchor says comes before what follows from it.
            addRow(grid, anchorKey, tr("Anchor"), makeAnchorControl(tr("Anchor"), page));
        addRow(grid, key, value.data(Model::LabelRole).toString(), makeControl(value, page));
    }
    grid->setRowStretch(grid->rowCount(), 1);
    setWidget(page); // Deletes the one before.
    update();
    const int needed = page->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width();
    setMinimumWidth(std::max(minimumWidth(), needed)); // It never becomes narrower: the window would jump.
    QCoreApplication::sendPostedEvents(page, QEvent::LayoutRequest); // The bar learns how far it goes.
    verticalScrollBar()->setValue(scrolled);
    if (QWidget* same = name.isEmpty() ? nullptr : page->findChild<QWidget*>(name))
        same->setFocus();
    if (m_rows.contains(m_wanted)) {
        m_rows.value(m_wanted).control->setFocus(Qt::ShortcutFocusReason);
        ensureWidgetVisible(m_rows.value(m_wanted).control);
    }
    m_wanted.clear();
}

void Panel::addHead(QGridLayout* grid, const QModelIndex& chosen, bool isEmpty) const
{
    QWidget* page = grid->parentWidget();
    if (!chosen.isValid()) {
        grid->addWidget(new QLabel(tr("Add a file to begin."), page), 0, 0, 1, Columns);
        return;
    }
    const auto addText = [&](const QString& words) {
        auto* text = new QLabel(words, page);
        text->setWordWrap(true);
        grid->addWidget(text, grid->rowCount(), 0, 1, Columns);
        return text;
    };
    auto* title = new QLabel(chosen.data(Model::LabelRole).toString(), page);
    title->setObjectName(QStringLiteral("panelTitle"));
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.2);
    large.setBold(true);
    title->setFont(large);
    grid->addWidget(title, 0, 0, 1, Columns);
    if (const QString help = chosen.data(Model::HelpRole).toString(); !help.isEmpty())
        addText(help);
    const bool isEmptyList = zokit::hasItems(chosen.data(Model::TypeRole).toString())
                             && chosen.data(Model::KindRole).toInt() == Model::TypeRow
                             && chosen.data(Model::ItemCountRole).toInt() == 0;
    if (isEmpty || isEmptyList)
        addText(isEmptyList ? tr("There are none yet. The button Add above makes the first one.")
                            : tr("There is nothing to set here: the box in the list above switches it."))
            ->setObjectName(QStringLiteral("noValues"));
}

void Panel::addGroup(QGridLayout* grid, const QString& name) const
{
    auto* title = new QLabel(name, grid->parentWidget());
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    title->setContentsMargins(0, 6, 0, 0);
    grid->addWidget(title, grid->rowCount(), 0, 1, Columns);
}

void Panel::addRow(QGridLayout* grid, const QString& key, const QString& label, ValueControl* control)
{
    QWidget* page = grid->parentWidget();
    const QString name = control->field()->objectName();
    const int line = grid->rowCount();

    auto* title = new QLabel(label, page);
    title->setBuddy(control->field());
    title->setToolTip(control->field()->toolTip());
    title->setWordWrap(true);
    auto* mark = new QLabel(page);
    mark->setObjectName(name + QLatin1String(":mark"));
    mark->setForegroundRole(QPalette::PlaceholderText);
    QFont small = mark->font();
    small.setPointSizeF(small.pointSizeF() * smallFont);
    mark->setFont(small);
    auto* revert = new QToolButton(page);
    revert->setObjectName(name + QLatin1String(":revert"));
    revert->setText(QStringLiteral("\u21ba"));
    revert->setAutoRaise(true);
    revert->setToolTip(tr("Back to the default"));
    revert->setAccessibleName(tr("Revert: %1").arg(label));
    auto* naming = new QVBoxLayout;
    naming->setSpacing(0);
    naming->addWidget(title);
    naming->addWidget(mark);
    grid->addLayout(naming, line, LabelColumn);
    grid->addWidget(control, line, FieldColumn);
    grid->addWidget(revert, line, RevertColumn);
    m_rows.insert(key, {control, mark, revert});

    connect(control, &ValueControl::edited, this, [this, key](const QVariant& given) { set(key, given); });
    connect(control, &ValueControl::gestureBegun, this, [this, control, key] {
        if (m_session->gestureOwner() != control)
            m_session->beginGesture(control, stepOf(key));
    });
    connect(control, &ValueControl::gestureEnded, this, [this, control] { m_session->endGesture(control); });
    connect(revert, &QToolButton::clicked, this, [this, key] {
        if (m_session->current())
            m_session->take(m_session->current()->reset(m_thing, key, this));
    });
}

Message Panel::stepOf(const QString& key) const
{
    return changeOf(m_session->model().indexOf(m_thing).data(Model::TypeRole).toString(), key);
}

void Panel::set(const QString& key, const QVariant& value)
{
    zokit::FileSettings* file = m_session->current();
    if (!file)
        return;
    const zokit::Settings before = file->settings();
    const bool isRule = m_thing == file->tracks();
    if (isRule) // The rule and what it chooses are one step.
        m_session->history().beginGesture(stepOf(key));
    const bool isFreed = key == anchorKey && !value.isValid();
    m_isTaken = m_session->take(isFreed ? file->reset(m_thing, key, this) : file->setValue(m_thing, key, value, this));
    if (isRule) {
        zokit::Settings after = file->settings();
        if (m_isTaken && m_session->take(m_session->chooseTracks(before, after)))
            m_isTaken = m_session->take(file->setSettings(after, this));
        m_session->history().endGesture();
    }
    if (!m_isTaken)
        m_rows.value(key).control->setValue(file->value(m_thing, key));
}

bool Panel::finishTyping()
{
    m_isTaken = true;
    QWidget* focused = QApplication::focusWidget();
    const bool isHere = focused && isAncestorOf(focused);
    if (auto* box = qobject_cast<QAbstractSpinBox*>(isHere ? focused : nullptr))
        box->interpretText();
    else if (auto* line = qobject_cast<QLineEdit*>(isHere ? focused : nullptr))
        emit line->editingFinished();
    m_session->endAnyGesture();
    return m_isTaken;
}

void Panel::update()
{
    const zokit::FileSettings* file = m_session->current();
    if (!file || m_rebuilding.isActive())
        return;
    for (auto row = m_rows.cbegin(); row != m_rows.cend(); ++row) {
        const zokit::State state = file->state(m_thing, row.key());
        row->control->setValue(file->value(m_thing, row.key()));
        row->control->field()->setAccessibleDescription(markText(state));
        row->mark->setText(markText(state));
        row->revert->setEnabled(state == zokit::State::Changed);
    }
}

} // namespace zoeditor
