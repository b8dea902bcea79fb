// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "differencelist.h"

#include <utility>

#include <QHeaderView>

#include <zokit/valuetext.h>

#include "names.h"

namespace zoeditor {

namespace {

/// A row costs some microseconds and nobody reads thousands.
constexpr int mostRows = 500;

} // namespace

DifferenceList::DifferenceList(QWidget* parent) : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("differences"));
    setAccessibleName(tr("What changes"));
    setHeaderLabels({tr("What"), tr("Old"), tr("New")});
    setUniformRowHeights(true);
    header()->setSectionResizeMode(0, QHeaderView::Stretch);
    header()->setStretchLastSection(false);
    header()->resizeSection(1, 140);
    header()->resizeSection(2, 140);
    connect(this, &QTreeWidget::itemExpanded, this, &DifferenceList::fill);
}

void DifferenceList::show(const QVector<zokit::FileSettings*>& files, Find find)
{
    clear();
    m_files = files;
    m_find = std::move(find);
    QList<QTreeWidgetItem*> rows;
    for (const zokit::FileSettings* file : files) {
        auto* row = new QTreeWidgetItem({shownName(file->media().file)});
        row->setToolTip(0, file->media().file);
        row->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
        rows.append(row);
    }
    addTopLevelItems(rows);
    if (!rows.isEmpty())
        rows.first()->setExpanded(true);
}

void DifferenceList::fill(QTreeWidgetItem* row)
{
    if (row->parent() || row->childCount() > 0)
        return;
    const QVector<zokit::Difference> differences = m_find(m_files.at(indexOfTopLevelItem(row))->settings());
    QList<QTreeWidgetItem*> rows;
    for (const zokit::Difference& difference : differences.mid(0, mostRows)) {
        const QString none = tr("none");
        const QString before = zokit::valueLabel(difference.address, difference.a);
        const QString after = zokit::valueLabel(difference.address, difference.b);
        auto* line =
            new QTreeWidgetItem({zokit::addressLabel(difference.address), difference.a.isValid() ? before : none,
                                 difference.b.isValid() ? after : none});
        line->setToolTip(0, difference.address.toString());
        rows.append(line);
    }
    const int left = static_cast<int>(differences.size()) - mostRows;
    if (left > 0)
        rows.append(new QTreeWidgetItem({tr("%n more", nullptr, left)}));
    if (rows.isEmpty())
        rows.append(new QTreeWidgetItem({tr("Nothing changes.")}));
    row->addChildren(rows);
}

} // namespace zoeditor
