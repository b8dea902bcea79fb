// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "defaultspage.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <zokit/properties.h>
#include <zokit/valuetext.h>

#include "session.h"

namespace zoeditor {

using zokit::FileSettings;

DefaultsPage::DefaultsPage(Session* session, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_type(new QComboBox(this))
    , m_values(new QTreeWidget(this))
    , m_state(new QLabel(this))
    , m_save(new QPushButton(this))
    , m_forget(new QPushButton(tr("&Forget it"), this))
{
    setObjectName(QStringLiteral("defaultsPage"));
    m_type->setObjectName(QStringLiteral("defaultType"));
    m_type->setAccessibleName(tr("Effect type"));
    m_type->view()->setAccessibleName(m_type->accessibleName());
    for (const QString& name : zokit::effectTypes())
        m_type->addItem(zokit::displayName(name), name);
    m_values->setObjectName(QStringLiteral("defaultValues"));
    m_values->setAccessibleName(tr("Defaults"));
    m_values->setRootIsDecorated(false);
    m_values->setHeaderLabels({tr("Value"), tr("Default"), tr("Comes from")});
    m_values->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_values->header()->setStretchLastSection(false);
    m_values->header()->resizeSection(1, 180);
    m_values->header()->resizeSection(2, 140);
    m_state->setObjectName(QStringLiteral("defaultState"));
    m_state->setWordWrap(true);
    m_save->setObjectName(QStringLiteral("saveDefault"));
    m_forget->setObjectName(QStringLiteral("forgetDefault"));
    for (QPushButton* button : {m_save, m_forget})
        button->setAutoDefault(false);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_type);
    layout->addWidget(m_state);
    layout->addWidget(m_values, 1);
    auto* row = new QHBoxLayout;
    row->addWidget(m_save);
    row->addWidget(m_forget);
    layout->addLayout(row);

    if (session->current()) {
        const auto address = session->current()->address(session->thing(), QStringLiteral("selected"));
        if (const int type = address ? m_type->findData(address->type) : -1; type >= 0) // Tracks and output have none.
            m_type->setCurrentIndex(type);
    }
    connect(m_type, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &DefaultsPage::update);
    connect(&session->project(), &zokit::Project::changed, this, &DefaultsPage::update);
    connect(m_save, &QPushButton::clicked, this,
            [this] { m_session->take(m_session->project().saveDefault(source(), this)); });
    connect(m_forget, &QPushButton::clicked, this,
            [this] { m_session->take(m_session->project().forgetDefault(type(), this)); });
    update();
}

QString DefaultsPage::type() const
{
    return m_type->currentData().toString();
}

/// What of the current file would be saved: what is chosen there if it is of the type, else its first item, else the
/// type itself; 0 for none.
zokit::Identity DefaultsPage::source() const
{
    const FileSettings* file = m_session->current();
    if (!file)
        return 0;
    const auto address = file->address(m_session->thing(), QStringLiteral("selected"));
    if (address && address->type == type())
        return m_session->thing();
    return zokit::hasItems(type()) ? file->item(type(), 0) : file->type(type());
}

void DefaultsPage::update()
{
    const zokit::Values saved = m_session->project().savedValues(type());
    m_state->setText(
        saved.isEmpty() ? tr("No default is saved: new files get the values that are built in.")
                        : tr("Files that are added from now on get the saved values, and so does what is taken back."));
    m_forget->setEnabled(!saved.isEmpty());
    const FileSettings* file = m_session->current();
    const auto address = file && source() != 0 ? file->address(source(), QStringLiteral("selected")) : std::nullopt;
    m_save->setEnabled(address.has_value());
    m_save->setText(address && address->pos != zokit::Address::ofType
                        ? tr("&Save number %1 of the current file as default").arg(address->pos + 1)
                        : tr("&Save those of the current file as default"));
    m_values->clear();
    for (const zokit::Property& property : zokit::properties()) {
        const bool isSaved = saved.contains(property.key);
        if (property.type != type() || property.control == zokit::Control::None || (!isSaved && !property.hasDefault()))
            continue;
        const QVariant value = isSaved ? saved.value(property.key) : property.defaultValue();
        new QTreeWidgetItem(m_values,
                            {property.label(), zokit::valueLabel({type(), zokit::Address::ofType, property.key}, value),
                             isSaved ? tr("saved default") : tr("built in")});
    }
}

} // namespace zoeditor
