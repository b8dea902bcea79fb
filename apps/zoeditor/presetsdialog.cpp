// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "presetsdialog.h"

#include <utility>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include <zokit/carryover.h>
#include <zokit/differences.h>

#include "buttons.h"
#include "defaultspage.h"
#include "differencelist.h"
#include "hint.h"
#include "session.h"
#include "whattree.h"

namespace zoeditor {

using zokit::Message;

PresetsDialog::PresetsDialog(Session* session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_list(new QListWidget(this))
    , m_differences(new DifferenceList(this))
    , m_problem(new QLabel(this))
    , m_name(new QLineEdit(this))
    , m_replace(new QCheckBox(tr("&Replace the one that is there"), this))
    , m_what(new WhatTree(this))
{
    setObjectName(QStringLiteral("presetsDialog"));
    setWindowTitle(tr("Presets and defaults"));
    m_problem->setObjectName(QStringLiteral("problem"));
    m_problem->setWordWrap(true);
    auto* pages = new QTabWidget(this);
    pages->setObjectName(QStringLiteral("presetPages"));
    pages->setAccessibleName(windowTitle());
    auto* presets = new QWidget(pages);
    auto* columns = new QHBoxLayout(presets);
    columns->addWidget(makeList(), 3);
    columns->addWidget(makeSaving(), 2);
    pages->addTab(presets, tr("Presets"));
    pages->addTab(new DefaultsPage(session, pages), tr("Saved defaults"));
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(tr("Close"), QDialogButtonBox::RejectRole)->setObjectName(QStringLiteral("close"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(pages, 1);
    layout->addWidget(m_problem);
    layout->addWidget(buttons);
    resize(1000, 600);
    m_problem->hide();
    fill(QString());
}

QWidget* PresetsDialog::makeList()
{
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    m_list->setObjectName(QStringLiteral("presetList"));
    m_list->setAccessibleName(tr("Presets"));
    showHint(m_list, [] { return tr("There is no preset yet. Check what it is to hold, name it and save it."); });
    showHint(m_differences, [] { return tr("Choose a preset to see what it changes."); });
    layout->addWidget(m_list, 1);
    auto* row = new QHBoxLayout;
    m_remove = makeButton(row, "removePreset", tr("Re&move"), page);
    QPushButton* import = makeButton(row, "importPreset", tr("&Import..."), page);
    m_export = makeButton(row, "exportPreset", tr("&Export..."), page);
    layout->addLayout(row);
    auto* title = new QLabel(tr("What it changes in the selected files:"), page);
    title->setBuddy(m_differences);
    layout->addWidget(title);
    layout->addWidget(m_differences, 1);
    m_layOver = makeButton(layout, "layOver", QString(), page);

    connect(m_list, &QListWidget::currentRowChanged, this, &PresetsDialog::update);
    connect(m_layOver, &QPushButton::clicked, this, &PresetsDialog::layOver);
    connect(m_remove, &QPushButton::clicked, this, &PresetsDialog::remove);
    const QString filter = tr("Presets (*.zoeffect.json)");
    connect(import, &QPushButton::clicked, this, [this, filter] {
        importFiles(QFileDialog::getOpenFileNames(this, tr("Import presets"), QString(), filter));
    });
    connect(m_export, &QPushButton::clicked, this, [this, filter] {
        const QString proposed = chosen() + QStringLiteral(".zoeffect.json");
        const QString path = QFileDialog::getSaveFileName(this, tr("Export the preset"), proposed, filter);
        if (!path.isEmpty())
            exportTo(path);
    });
    return page;
}

QWidget* PresetsDialog::makeSaving()
{
    auto* box = new QGroupBox(tr("Of the current file"), this);
    auto* layout = new QVBoxLayout(box);
    m_what->setFile(m_session->current());
    layout->addWidget(m_what, 1);
    auto* title = new QLabel(tr("&Name of the preset:"), box);
    m_name->setObjectName(QStringLiteral("presetName"));
    m_name->setAccessibleName(tr("Name of the preset"));
    title->setBuddy(m_name);
    m_replace->setObjectName(QStringLiteral("replace"));
    layout->addWidget(title);
    layout->addWidget(m_name);
    layout->addWidget(m_replace);
    m_save = makeButton(layout, "savePreset", tr("&Save what is checked"), box);
    m_rename = makeButton(layout, "renamePreset", tr("Re&name the chosen one"), box);

    connect(m_what, &WhatTree::whatChanged, this, &PresetsDialog::update);
    connect(m_name, &QLineEdit::textChanged, this, &PresetsDialog::update);
    connect(m_save, &QPushButton::clicked, this, [this] {
        const QString name = m_name->text();
        const zokit::Settings preset = zokit::presetFrom(m_session->current()->settings(), m_what->what());
        take(m_presets.save(name, preset, m_replace->isChecked()), name);
    });
    connect(m_rename, &QPushButton::clicked, this,
            [this] { take(m_presets.rename(chosen(), m_name->text()), m_name->text()); });
    return box;
}

QString PresetsDialog::chosen() const
{
    return m_list->currentItem() ? m_list->currentItem()->text() : QString();
}

void PresetsDialog::fill(const QString& chosen)
{
    m_list->clear();
    for (const QString& name : m_presets.names()) {
        auto* row = new QListWidgetItem(name, m_list);
        row->setToolTip(m_presets.path(name));
        if (name == chosen)
            m_list->setCurrentItem(row);
    }
    update();
}

void PresetsDialog::update()
{
    const zokit::FileSettings* file = m_session->current();
    const bool isChosen = !chosen().isEmpty();
    const bool hasName = !m_name->text().isEmpty();
    QVector<zokit::FileSettings*> files;
    DifferenceList::Find find;
    Message refused;
    if (isChosen && file) {
        const zokit::Presets::Loaded loaded = m_presets.load(chosen());
        const zokit::CarryOver carry = zokit::carryOfPreset(loaded.preset);
        refused = loaded.error.isEmpty() ? zokit::checkCarryOver(loaded.preset, carry) : loaded.error;
        if (refused.isEmpty()) {
            const auto after = [this, loaded, carry](const zokit::Settings& before, Message* problem) {
                zokit::Settings settings = zokit::carriedOver(loaded.preset, before, carry);
                *problem = m_session->chooseTracks(before, settings);
                return settings;
            };
            after(file->settings(), &refused); // Of the others it is said when it is applied.
            files = m_session->selected();
            find = [after](const zokit::Settings& before) {
                Message ignored;
                return zokit::differences(before, after(before, &ignored));
            };
        }
    }
    m_differences->show(files, find);
    tell(refused);
    m_layOver->setEnabled(isChosen && file && refused.isEmpty());
    m_layOver->setText(tr("&Apply to %n selected file(s)", nullptr, static_cast<int>(m_session->selected().size())));
    for (QPushButton* button : {m_remove, m_export})
        button->setEnabled(isChosen);
    m_rename->setEnabled(isChosen && hasName);
    m_save->setEnabled(file && hasName && !m_what->what().isEmpty());
}

void PresetsDialog::layOver()
{
    const zokit::Presets::Loaded loaded = m_presets.load(chosen());
    const auto chooseTracks = [this](const zokit::Settings& before, zokit::Settings& after) {
        return m_session->chooseTracks(before, after);
    };
    const Message refused = loaded.error.isEmpty()
                                ? m_session->project().apply(loaded.preset, m_session->selected(),
                                                             zokit::carryOfPreset(loaded.preset), this, chooseTracks)
                                : loaded.error;
    take(refused, chosen());
}

/// Asks before: the history of the files does not bring it back.
void PresetsDialog::remove()
{
    QMessageBox question(QMessageBox::Question, tr("Remove a preset"),
                         tr("Remove the preset %1? This cannot be undone.").arg(chosen()), QMessageBox::NoButton, this);
    question.setObjectName(QStringLiteral("removeQuestion"));
    QPushButton* removing = question.addButton(tr("Remove"), QMessageBox::DestructiveRole);
    removing->setObjectName(QStringLiteral("remove"));
    QPushButton* keeping = question.addButton(tr("Keep"), QMessageBox::RejectRole);
    keeping->setObjectName(QStringLiteral("keep"));
    question.setDefaultButton(keeping);
    question.exec();
    if (question.clickedButton() == removing)
        take(m_presets.remove(chosen()), QString());
}

void PresetsDialog::importFiles(const QStringList& files)
{
    if (files.isEmpty())
        return;
    zokit::Messages missing;
    take(m_presets.import(files, m_replace->isChecked(), &missing), QString());
    if (missing.isEmpty())
        return;
    QStringList sentences{tr("What was imported names files that are not there:")};
    for (const Message& file : std::as_const(missing))
        sentences.append(file.text());
    m_problem->setText(sentences.join(QLatin1Char('\n')));
    m_problem->show();
}

void PresetsDialog::exportTo(const QString& file)
{
    // Whoever named the file was asked whether to replace it.
    take(m_presets.exportWithFiles(chosen(), file, true), chosen());
}

void PresetsDialog::take(const Message& refused, const QString& name)
{
    if (refused.isEmpty())
        fill(name);
    else
        tell(refused);
}

void PresetsDialog::tell(const Message& refused)
{
    m_problem->setText(refused.text());
    m_problem->setVisible(!refused.isEmpty());
}

} // namespace zoeditor
