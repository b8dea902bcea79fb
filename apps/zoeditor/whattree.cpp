// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "whattree.h"

#include <QHeaderView>
#include <QTimer>

#include <zokit/filesettings.h>
#include <zokit/settingsmodel.h>

namespace zoeditor {

using Model = zokit::SettingsModel;

namespace {

constexpr int nameRole = Qt::UserRole; // As CarryOver::what has it.
const QString trim = QStringLiteral("Output:trim");

QTreeWidgetItem* checkable(const QString& text, const QString& name, bool isChecked)
{
    auto* item = new QTreeWidgetItem({text});
    item->setData(0, nameRole, name);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(0, isChecked ? Qt::Checked : Qt::Unchecked);
    return item;
}

bool isChanged(const QModelIndex& row)
{
    return row.data(Model::StateRole).toInt() == static_cast<int>(zokit::State::Changed);
}

} // namespace

WhatTree::WhatTree(QWidget* parent) : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("what"));
    setAccessibleName(tr("What"));
    setHeaderHidden(true);
    connect(this, &QTreeWidget::itemChanged, this, [this] {
        if (m_isTelling)
            return;
        m_isTelling = true; // A type changes with what is in it.
        QTimer::singleShot(0, this, [this] {
            m_isTelling = false;
            emit whatChanged();
        });
    });
}

void WhatTree::setFile(zokit::FileSettings* file)
{
    clear();
    Model model;
    model.setFile(file);
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex type = model.index(row, 0);
        const QString name = type.data(Model::TypeRole).toString();
        auto* top = checkable(type.data(Model::LabelRole).toString(), name, isChanged(type));
        top->setFlags(top->flags() | Qt::ItemIsAutoTristate);
        addTopLevelItem(top);
        if (name == QLatin1String("Tracks") || name == QLatin1String("Effect"))
            continue; // Only as a whole: they mean something by their order.
        for (int child = 0; child < model.rowCount(type); ++child) {
            const QModelIndex index = model.index(child, 0, type);
            const QString label = index.data(Model::LabelRole).toString();
            if (index.data(Model::KindRole).toInt() == Model::ItemRow) {
                // A watermark is there because somebody wanted it; a track because the clip has it.
                const bool isMeant = name == QLatin1String("Watermark") || isChanged(index);
                top->addChild(checkable(label, QStringLiteral("%1:%2").arg(name).arg(child), isMeant));
            } else if (isChanged(index)) {
                const QString value = index.sibling(child, Model::ValueColumn).data().toString();
                const QString address = index.data(Model::AddressRole).toString();
                // The trim belongs to its clip.
                top->addChild(checkable(QStringLiteral("%1: %2").arg(label, value), address, address != trim));
            }
        }
    }
}

void WhatTree::checkOnly(const QString& type)
{
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* top = topLevelItem(i);
        const Qt::CheckState state = top->data(0, nameRole) == type ? Qt::Checked : Qt::Unchecked;
        top->setCheckState(0, state);
        for (int child = 0; child < top->childCount(); ++child)
            top->child(child)->setCheckState(0, state);
    }
}

QStringList WhatTree::what() const
{
    QStringList what;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        const QTreeWidgetItem* top = topLevelItem(i);
        QStringList checked;
        bool isWhole = top->childCount() > 0 || top->checkState(0) == Qt::Checked;
        bool hasTrim = false;
        for (int child = 0; child < top->childCount(); ++child) {
            const QString name = top->child(child)->data(0, nameRole).toString();
            const bool isChecked = top->child(child)->checkState(0) == Qt::Checked;
            hasTrim = hasTrim || (isChecked && name == trim);
            if (isChecked)
                checked.append(name);
            else if (name != trim)
                isWhole = false;
        }
        isWhole = isWhole && (top->childCount() == 0 || checked.size() > (hasTrim ? 1 : 0));
        if (isWhole)
            checked = QStringList{top->data(0, nameRole).toString()} + (hasTrim ? QStringList{trim} : QStringList());
        what += checked;
    }
    return what;
}

} // namespace zoeditor
