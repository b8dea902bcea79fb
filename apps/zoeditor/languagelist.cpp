// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "languagelist.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include <zokit/languages.h>

#include "hint.h"

namespace zoeditor {

namespace {

QPushButton* makeButton(const QString& name, const QString& text, QWidget* parent)
{
    auto* button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

} // namespace

LanguageList::LanguageList(const QString& name, const QString& label, QWidget* parent)
    : QWidget(parent), m_list(new QListWidget(this)), m_choice(new QComboBox(this))
{
    setObjectName(name);
    m_list->setObjectName(name + QStringLiteral(":list"));
    m_list->setAccessibleName(label);
    showHint(m_list, [] { return tr("None is asked for. Choose one below and add it."); });
    m_list->setDragDropMode(QAbstractItemView::InternalMove);
    connect(m_list->model(), &QAbstractItemModel::rowsMoved, this, &LanguageList::edited);
    m_choice->setObjectName(name + QStringLiteral(":choice"));
    m_choice->setAccessibleName(tr("Language to add: %1").arg(label));
    m_choice->view()->setAccessibleName(m_choice->accessibleName());
    for (const QString& code : zokit::languageCodes())
        m_choice->addItem(nameOf(code), code);
    m_choice->model()->sort(0);
    m_choice->setCurrentIndex(m_choice->findData(QStringLiteral("eng")));
    QPushButton* adding = makeButton(name + QStringLiteral(":add"), tr("Add"), this);
    QPushButton* removing = makeButton(name + QStringLiteral(":remove"), tr("Remove"), this);
    QPushButton* raising = makeButton(name + QStringLiteral(":up"), tr("Up"), this);
    auto* title = new QLabel(label, this);
    title->setBuddy(m_list);
    title->setWordWrap(true);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(title, 0, 0, 1, 3);
    grid->addWidget(m_list, 1, 0, 1, 3);
    grid->addWidget(m_choice, 2, 0, 1, 3);
    grid->addWidget(adding, 3, 0);
    grid->addWidget(removing, 3, 1);
    grid->addWidget(raising, 3, 2);
    const auto updateButtons = [this, removing, raising] {
        removing->setEnabled(m_list->currentItem());
        raising->setEnabled(m_list->currentRow() > 0);
    };
    connect(m_list, &QListWidget::currentRowChanged, this, updateButtons);
    connect(m_list->model(), &QAbstractItemModel::rowsMoved, this, updateButtons);
    connect(m_list->model(), &QAbstractItemModel::rowsRemoved, this, updateButtons);
    updateButtons();
    connect(adding, &QPushButton::clicked, this, [this] {
        const QString code = m_choice->currentData().toString();
        if (codes().contains(code))
            return;
        add(code);
        emit edited();
    });
    connect(removing, &QPushButton::clicked, this, [this] {
        delete m_list->takeItem(m_list->currentRow());
        emit edited();
    });
    connect(raising, &QPushButton::clicked, this, [this] {
        const int row = m_list->currentRow();
        m_list->insertItem(row - 1, m_list->takeItem(row));
        m_list->setCurrentRow(row - 1);
        emit edited();
    });
}

QString LanguageList::nameOf(const QString& code)
{
    const QString name = zokit::languageName(code);
    return name == code ? code : QStringLiteral("%1 (%2)").arg(name, code);
}

QStringList LanguageList::codes() const
{
    QStringList codes;
    for (int row = 0; row < m_list->count(); ++row)
        codes.append(m_list->item(row)->data(Qt::UserRole).toString());
    return codes;
}

void LanguageList::setCodes(const QStringList& codes)
{
    m_list->clear();
    for (const QString& code : codes)
        add(code);
}

void LanguageList::add(const QString& code)
{
    auto* row = new QListWidgetItem(nameOf(code), m_list);
    row->setData(Qt::UserRole, code);
    m_list->setCurrentItem(row);
}

} // namespace zoeditor
