// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "differencelist.h"

#include <QHeaderView>

#include <zokit/valuetext.h>

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
}

void DifferenceList::add(const QVector<zokit::Difference>& differences, QTreeWidgetItem* above)
{
    QList<QTreeWidgetItem*> rows;
    for (const zokit::Difference& difference : differences.mid(0, mostRows)) {
        const QString none = tr("none");
        const QString before = zokit::valueLabel(difference.address, difference.a);
        const QString after = zokit::valueLabel(difference.address, difference.b);
        auto* row =
            new QTreeWidgetItem({zokit::addressLabel(difference.address), difference.a.isValid() ? before : none,
                                 difference.b.isValid() ? after : none});
        row->setToolTip(0, difference.address.toString());
        rows.append(row);
    }
    const int left = static_cast<int>(differences.size()) - mostRows;
    if (left > 0)
        rows.append(new QTreeWidgetItem({tr("%n more", nullptr, left)}));
    if (rows.isEmpty())
        rows.append(new QTreeWidgetItem({tr("Nothing changes.")}));
    if (above)
        above->addChildren(rows);
    else
        addTopLevelItems(rows);
}

} // namespace zoeditor
