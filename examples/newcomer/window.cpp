// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "window.h"

#include <zokit/presets.h>

#include "panel.h"
#include "preview.h"

Window::Window(zokit::Workbench& bench) : m_bench(bench), m_panel(new Panel(bench.model(), bench.history()))
{
    setWindowTitle(tr("Newcomer[*]"));
    makeMenus();
    m_files->setModel(&bench.filesModel());
    m_watermarks->setModel(&bench.model());
    m_watermarks->setDragDropMode(QAbstractItemView::InternalMove);
    auto* moment = new QSlider(Qt::Horizontal);
    moment->setRange(0, 1000);
    auto* bar = new QToolBar;
    bar->addWidget(moment);
    addToolBar(Qt::BottomToolBarArea, bar);
    setCentralWidget(new Preview(bench.preview()));
    dock(Qt::LeftDockWidgetArea, tr("Files"), m_files);
    dock(Qt::LeftDockWidgetArea, tr("Watermarks"), m_watermarks);
    dock(Qt::RightDockWidgetArea, tr("Settings"), m_panel);

    zokit::ShownFrames& frames = bench.preview().frames();
    connect(moment, &QSlider::valueChanged, &frames, [&frames](int part) { frames.setPart(part / 1000.0); });
    connect(&frames, &zokit::ShownFrames::secondsChanged, moment,
            [&frames, moment] { moment->setValue(qRound(frames.part() * 1000)); });
    connect(&bench, &zokit::Workbench::currentChanged, this, &Window::showFile);
    connect(&bench, &zokit::Workbench::chosenChanged, this, &Window::showChosen);
    connect(&bench, &zokit::Workbench::told, this, &Window::tell);
    connect(&bench.history(), &zokit::History::changed, this, &Window::showHistory);
    connect(&bench.history(), &zokit::History::cleanChanged, this, &Window::showHistory);
    connect(m_files->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& row) { m_bench.setCurrent(m_bench.filesModel().file(row)); });
    for (const QItemSelectionModel* rows : {m_watermarks->selectionModel(), m_panel->selectionModel()})
        connect(rows, &QItemSelectionModel::currentChanged, this,
                [this](const QModelIndex& row) { m_bench.choose(row.data(Model::ThingRole).toULongLong()); });
    showFile(nullptr);
    showHistory();
    tell(bench.tools().error);
}

void Window::dock(Qt::DockWidgetArea area, const QString& title, QWidget* widget)
{
    auto* dock = new QDockWidget(title);
    dock->setWidget(widget);
    addDockWidget(area, dock);
}

/// An action that begins when no field is open.
QAction* Window::add(QWidget* bar, const QString& text, const QKeySequence& keys, const std::function<void()>& deed)
{
    auto* action = new QAction(text, bar);
    action->setShortcut(keys);
    bar->addAction(action);
    connect(action, &QAction::triggered, this, [this, deed] {
        m_panel->closeField();
        statusBar()->clearMessage();
        deed();
    });
    return action;
}

void Window::makeMenus()
{
    QMenu* files = menuBar()->addMenu(tr("&File"));
    add(files, tr("&Open..."), QKeySequence::Open,
        [this] { m_bench.files().open(QFileDialog::getOpenFileNames(this)); });
    add(files, tr("&Save the settings"), QKeySequence::Save, [this] {
        const QStringList foreign = m_bench.files().foreignFiles();
        if (foreign.isEmpty() || agreed(tr("Replace these files?"), foreign))
            tell(m_bench.files().save());
    });
    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    m_undo = add(edit, QString(), QKeySequence::Undo, [this] { m_bench.undo(); });
    m_redo = add(edit, QString(), QKeySequence::Redo, [this] { m_bench.redo(); });
    QMenu* settings = menuBar()->addMenu(tr("&Settings"));
    add(settings, tr("&Reset what is chosen"), tr("Ctrl+R"),
        [this] { tell(file()->reset(m_bench.chosen(), m_panel->currentIndex().data(Model::KeyRole).toString())); });
    add(settings, tr("Reset &all"), {}, [this] { tell(file()->resetAll()); });
    add(settings, tr("Save as &default"), {}, [this] { tell(m_bench.project().saveDefault(m_bench.chosen())); });
    add(settings, tr("Apply to all &files..."), tr("Ctrl+Shift+A"), [this] {
        QVector<zokit::FileSettings*> others = m_bench.project().files();
        others.removeAll(file());
        carryOver(tr("Apply to all files?"), file()->settings(), others);
    });
    add(settings, tr("Choose &tracks by the rules..."), {}, [this] { chooseTracks(); });
    add(settings, tr("&Close the file"), QKeySequence::Close, [this] { m_bench.project().remove(file()); });
    m_presets = menuBar()->addMenu(tr("&Presets"));
    connect(m_presets, &QMenu::aboutToShow, this, &Window::fillPresets);
    const auto move = [this](int by) { tell(file()->move(m_bench.chosen(), m_watermarks->currentIndex().row() + by)); };
    QToolBar* watermarks = addToolBar(tr("Watermarks"));
    add(watermarks, tr("Add a text"), {}, [this] { addWatermark("wm_textcontent", tr("Text")); });
    add(watermarks, tr("Add an image"), {},
        [this] { addWatermark("wm_imageurl", QFileDialog::getOpenFileName(this)); });
    add(watermarks, tr("Remove"), {},
        [this] { tell(file()->remove(m_watermarks->currentIndex().data(Model::ThingRole).toULongLong())); });
    add(watermarks, tr("Up"), {}, [move] { move(-1); });
    add(watermarks, tr("Down"), {}, [move] { move(1); });
    m_forFile = {settings, m_presets, watermarks};
}

void Window::showFile(zokit::FileSettings* file)
{
    const Model& model = m_bench.model();
    const QModelIndex watermarks = model.indexOf(file ? file->type("Watermark") : 0);
    m_files->setCurrentIndex(m_bench.filesModel().indexOf(file));
    m_watermarks->setRootIndex(watermarks);
    for (int row = watermarks.data(Model::ItemCountRole).toInt(); row < model.rowCount(watermarks); ++row)
        m_watermarks->setRowHidden(row, true); // Values of the type itself.
    for (QWidget* bar : std::as_const(m_forFile))
        bar->setEnabled(file);
}

void Window::showChosen(zokit::Identity thing)
{
    const QModelIndex row = m_bench.model().indexOf(thing);
    m_watermarks->setCurrentIndex(row.parent() == m_watermarks->rootIndex() ? row : QModelIndex());
    if (m_panel->currentIndex().data(Model::ThingRole).toULongLong() == thing)
        return;
    m_panel->setCurrentIndex(row);
    m_panel->expand(row);
    m_panel->scrollTo(row, QAbstractItemView::PositionAtTop);
}

void Window::showHistory()
{
    const zokit::History& history = m_bench.history();
    m_undo->setText(tr("&Undo: %1").arg(history.undoText().text()));
    m_redo->setText(tr("&Redo: %1").arg(history.redoText().text()));
    m_undo->setEnabled(history.canUndo());
    m_redo->setEnabled(history.canRedo());
    setWindowModified(!history.isClean());
}

void Window::fillPresets()
{
    const zokit::Presets presets; // Looks at the folder whenever it is asked.
    m_presets->clear();
    add(m_presets, tr("&Save as preset..."), {}, [this, presets] {
        const QString name = QInputDialog::getText(this, tr("Save as preset"), tr("Name:"));
        const bool isThere = presets.names().contains(name);
        if (!name.isEmpty() && (!isThere || agreed(tr("Replace this preset?"), {name})))
            tell(presets.save(name, zokit::presetFrom(file()->settings(), {}), isThere));
    });
    m_presets->addSeparator();
    for (const QString& name : presets.names())
        add(m_presets, QString(name).replace('&', "&&"), {}, [this, presets, name] {
            const zokit::Presets::Loaded loaded = presets.load(name);
            tell(loaded.error);
            if (loaded.error.isEmpty())
                carryOver(tr("Lay preset %1 over this file?").arg(name), loaded.preset, {file()});
        });
}

void Window::tell(const zokit::Message& message)
{
    if (!message.isEmpty())
        statusBar()->showMessage(message.text());
}

/// Whether the person agrees when the lines are shown.
bool Window::agreed(const QString& question, const QStringList& lines)
{
    constexpr int most = 15;
    QStringList shown = lines.isEmpty() ? QStringList{tr("Nothing changes.")} : lines.mid(0, most);
    if (lines.size() > most)
        shown += tr("and %1 more").arg(lines.size() - most);
    return QMessageBox::question(this, question, question + "\n\n" + shown.join('\n')) == QMessageBox::Yes;
}

void Window::carryOver(const QString& question, const zokit::Settings& from,
                       const QVector<zokit::FileSettings*>& targets)
{
    if (agreed(question, m_bench.project().changesOf(from, targets, {})))
        tell(m_bench.project().apply(from, targets, {}));
}

void Window::chooseTracks()
{
    const zokit::RuledTracks ruled = m_bench.tracksByRule();
    tell(ruled.error);
    if (ruled.error.isEmpty() && agreed(tr("Choose these tracks?"), ruled.lines()))
        tell(file()->setSettings(ruled.settings));
}

void Window::addWatermark(const QString& key, const QString& value)
{
    if (value.isEmpty())
        return; // No image was chosen.
    const auto inserted = file()->insert("Watermark", {{key, value}});
    tell(inserted.error);
    m_bench.choose(inserted.item);
}

void Window::closeEvent(QCloseEvent* event)
{
    m_panel->closeField();
    event->setAccepted(m_bench.history().isClean()
                       || agreed(tr("Close without saving?"), {tr("Some settings are new.")}));
}
