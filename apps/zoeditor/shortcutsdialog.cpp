// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "shortcutsdialog.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "actions.h"

namespace zoeditor {

ShortcutsDialog::ShortcutsDialog(const Actions& actions, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("shortcutsDialog"));
    setWindowTitle(tr("Shortcuts"));
    auto* list = new QTreeWidget(this);
    list->setObjectName(QStringLiteral("shortcutList"));
    list->setAccessibleName(windowTitle());
    list->setRootIsDecorated(false);
    list->setHeaderLabels({tr("What"), tr("Keys")});
    const auto add = [list](const QString& what, const QString& keys) { new QTreeWidgetItem(list, {what, keys}); };
    for (const QAction* action : actions.all()) {
        if (!action->shortcut().isEmpty())
            add(action->data().toString(), action->shortcut().toString(QKeySequence::NativeText));
    }
    add(tr("From field to field, from handle to handle"), tr("Tab, Shift+Tab"));
    add(tr("Drag the marked handle by a pixel, by ten"), tr("Arrows, Shift+arrows"));
    add(tr("Take a drag back"), tr("Esc"));
    add(tr("Push a picture that is larger than its pane"), tr("Alt+arrows"));
    add(tr("Remove what is chosen in a list"), tr("Del"));
    add(tr("Add files that were copied, in the list of files"), tr("Ctrl+V"));
    add(tr("Several files at once"), tr("Ctrl+click, Shift+click"));
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* close = buttons->addButton(tr("Close"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("close"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list);
    layout->addWidget(buttons);
    resize(700, 520);
}

} // namespace zoeditor
