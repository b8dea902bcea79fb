// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "window.h"

#include <algorithm>

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <zokit/history.h>
#include <zokit/opening.h>

#include "actions.h"
#include "appearance.h"
#include "buttons.h"
#include "effectspane.h"
#include "filespane.h"
#include "flows.h"
#include "historypane.h"
#include "missingtools.h"
#include "names.h"
#include "panel.h"
#include "picturepane.h"
#include "session.h"
#include "shortcutsdialog.h"
#include "timeline.h"

namespace zoeditor {

namespace {

constexpr int margin = 3;          // Pixels around the panes: in the smallest window each one counts.
constexpr int messageTime = 15000; // Milliseconds: long enough to be read.

/// Whoever drags must not take the originals for moved, and remove them.
bool isCopied(const QDropEvent& event)
{
    return event.possibleActions().testFlag(Qt::CopyAction);
}

} // namespace

Window::Window(Session* session, QWidget* parent)
    : QMainWindow(parent), m_session(session), m_actions(new Actions(this))
{
    setObjectName(QStringLiteral("window"));
    setAcceptDrops(true);
    for (const QAction* action : m_actions->all()) { // Undo does it itself: what is being edited is what it means.
        if (action != m_actions->action("undo"))
            connect(action, &QAction::triggered, this, [this] { findChild<Panel*>()->finishTyping(); });
    }
    makePanes();
    connectFiles();
    connectHistory();
    connectAppearance();
    m_flows = new Flows(session, this); // NOLINT(cppcoreguidelines-prefer-member-initializer): it needs the panes
    m_session->holdFilesWhile([session] {
        const bool isDragging = session->isInGesture() && QApplication::mouseButtons() != Qt::NoButton;
        return isDragging || QApplication::activeModalWidget() || QApplication::activePopupWidget();
    });
    connect(session, &Session::message, this,
            [this](const QString& sentence) { statusBar()->showMessage(sentence, messageTime); });
    resize(1280, 800);
    appearance::restoreSizes(this);
}

Window::~Window()
{
    appearance::saveSizes(*this);
    hide(); // The field that is being edited gives its value now, while all that hears of it is there.
    m_session->endAnyGesture();
}

void Window::makePanes()
{
    m_files = new FilesPane(m_session, this);
    auto* effects = new EffectsPane(m_session, *m_actions, this);
    auto* panel = new Panel(m_session, this);
    connect(effects, &EffectsPane::valueChosen, panel, &Panel::focusOn);
    auto* pages = new QTabWidget(this);
    pages->setObjectName(QStringLiteral("pages"));
    pages->setAccessibleName(tr("Values and history"));
    pages->setDocumentMode(true);
    pages->addTab(panel, tr("Values"));
    pages->addTab(new HistoryPane(m_session, pages), tr("History"));
    auto* sides = new QSplitter(Qt::Vertical, this);
    sides->setObjectName(QStringLiteral("sides"));
    sides->setChildrenCollapsible(false);
    sides->addWidget(effects);
    sides->addWidget(pages);
    sides->setSizes({350, 400});

    auto* columns = new QSplitter(Qt::Horizontal, this);
    columns->setObjectName(QStringLiteral("columns"));
    columns->setChildrenCollapsible(false);
    columns->addWidget(m_files);
    columns->addWidget(pictureColumn(columns));
    columns->addWidget(sides);
    columns->setStretchFactor(1, 1);
    columns->setSizes({240, 640, 400});
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(new MissingTools(m_session, page));
    layout->addWidget(columns, 1);
    setCentralWidget(page);
    statusBar()->setObjectName(QStringLiteral("status"));
}

QWidget* Window::pictureColumn(QWidget* parent)
{
    auto* column = new QWidget(parent);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* picture = new PicturePane(*m_session, *m_actions, column);
    layout->addWidget(picture, 1);
    layout->addWidget(new TimeLine(*m_session, picture->frames(), *m_actions, column));
    return column;
}

void Window::connectFiles()
{
    const auto on = [this](const char* name, auto slot) {
        connect(m_actions->action(name), &QAction::triggered, this, slot);
    };
    on("addFiles", [this] {
        QStringList endings;
        for (const QString& ending : zokit::mediaEndings())
            endings += {QLatin1String("*.") + ending, QLatin1String("*.") + ending.toUpper()};
        const QStringList filters{tr("Films and sound (%1)").arg(endings.join(QLatin1Char(' '))),
                                  tr("Settings (*.zoeffect.json)"), tr("All files (*)")};
        const QStringList files =
            QFileDialog::getOpenFileNames(this, tr("Add files"), QString(), filters.join(QLatin1String(";;")), nullptr,
                                          QFileDialog::HideNameFilterDetails);
        if (!files.isEmpty())
            m_session->open(files);
    });
    on("addFolder", [this] {
        const QString folder = QFileDialog::getExistingDirectory(this, tr("Add a folder"));
        if (!folder.isEmpty())
            m_session->open({folder});
    });
    on("removeFiles", [this] { m_session->remove(m_files->chosenRows()); });
    connect(m_files, &FilesPane::removalWanted, m_actions->action("removeFiles"), &QAction::trigger);
    on("save", [this] { save(m_session->selected()); });
    on("saveAs", [this] {
        if (m_session->current())
            saveAs(m_session->current());
    });
    on("saveAll", [this] { save(m_session->unsaved()); });
    on("quit", [this] { close(); });

    const auto update = [this] {
        const bool isOpen = m_session->current() != nullptr;
        for (const char* name : {"save", "saveAs"})
            m_actions->action(name)->setEnabled(isOpen);
        updateTitle();
    };
    connect(m_session, &Session::currentChanged, this, update);
    connect(m_session, &Session::fileStateChanged, this, update);
    update();
}

void Window::connectHistory()
{
    QAction* undo = m_actions->action("undo");
    QAction* redo = m_actions->action("redo");
    connect(undo, &QAction::triggered, this, [this] {
        if (findChild<Panel*>()->finishTyping()) // What was typed is the step that is meant.
            m_session->undo();
    });
    connect(redo, &QAction::triggered, m_session, &Session::redo);
    const auto update = [this, undo, redo] {
        const zokit::History& history = m_session->history();
        undo->setEnabled(history.position() > 0 || m_session->isInGesture());
        redo->setEnabled(history.canRedo());
        const QString undone = history.undoText().text();
        const QString redone = history.redoText().text();
        undo->setText(undone.isEmpty() ? tr("&Undo") : tr("&Undo: %1").arg(undone));
        redo->setText(redone.isEmpty() ? tr("&Redo") : tr("&Redo: %1").arg(redone));
        undo->setIconText(tr("Undo"));
        redo->setIconText(tr("Redo"));
    };
    connect(&m_session->history(), &zokit::History::changed, this, update);
    connect(&m_session->history(), &zokit::History::gestureChanged, this, update);
    update();
}

void Window::connectAppearance()
{
    const auto choose = [this](const char* name, bool isChosen, auto slot) {
        QAction* action = m_actions->action(name);
        action->setChecked(isChosen);
        connect(action, &QAction::triggered, this, slot);
    };
    using appearance::Theme;
    const auto colours = [&](const char* name, Theme theme) {
        choose(name, appearance::theme() == theme, [theme] { appearance::setTheme(theme); });
    };
    colours("themeSystem", Theme::System);
    colours("themeLight", Theme::Light);
    colours("themeDark", Theme::Dark);
    const auto language = [&](const char* name, const QString& word) {
        choose(name, appearance::language() == word, [this, word] {
            appearance::setLanguage(word);
            emit languageChosen();
        });
    };
    language("english", QStringLiteral("en"));
    language("german", QStringLiteral("de"));
    connect(m_actions->action("shortcuts"), &QAction::triggered, this,
            [this] { showOnce(new ShortcutsDialog(*m_actions, this)); });
}

void Window::updateTitle()
{
    const zokit::FileSettings* file = m_session->current();
    setWindowTitle(file ? tr("%1[*] - zoeditor").arg(shownName(file->media().file)) : QStringLiteral("zoeditor"));
    setWindowModified(m_session->isModified());
}

bool Window::save(const QVector<zokit::FileSettings*>& files)
{
    const bool areSaved = std::all_of(files.cbegin(), files.cend(), [this](zokit::FileSettings* file) {
        return m_session->wouldReplace(file) ? saveAs(file) : m_session->take(m_session->save(file));
    });
    if (areSaved && files.size() > 1)
        emit m_session->message(tr("The settings of %n file(s) are saved.", nullptr, static_cast<int>(files.size())));
    return areSaved;
}

bool Window::saveAs(zokit::FileSettings* file)
{
    const QString path = QFileDialog::getSaveFileName(this, tr("Save settings"), m_session->settingsFileOf(file),
                                                      tr("Settings (*.zoeffect.json)"));
    return !path.isEmpty() && m_session->take(m_session->saveAs(file, path));
}

void Window::closeEvent(QCloseEvent* event)
{
    findChild<Panel*>()->finishTyping();
    const QVector<zokit::FileSettings*> unsaved = m_session->unsaved();
    if (!unsaved.isEmpty()) {
        QMessageBox question(QMessageBox::Question, tr("Close"),
                             tr("The settings of %n file(s) are not saved.", nullptr, static_cast<int>(unsaved.size())),
                             QMessageBox::NoButton, this);
        question.setObjectName(QStringLiteral("closeQuestion"));
        QPushButton* saving = question.addButton(tr("Save all"), QMessageBox::AcceptRole);
        saving->setObjectName(QStringLiteral("saveAll"));
        QPushButton* leaving = question.addButton(tr("Close without saving"), QMessageBox::DestructiveRole);
        leaving->setObjectName(QStringLiteral("discard"));
        QPushButton* staying = question.addButton(tr("Stay"), QMessageBox::RejectRole);
        staying->setObjectName(QStringLiteral("stay"));
        question.setDefaultButton(saving);
        question.exec();
        const bool isDone =
            question.clickedButton() == leaving || (question.clickedButton() == saving && save(unsaved));
        if (!isDone)
            return event->ignore();
    }
    if (!m_flows->mayClose()) // The last question: what runs ends when it is answered so, and goes on until then.
        return event->ignore();
    m_session->close();
    event->accept();
    emit closed();
}

void Window::dragEnterEvent(QDragEnterEvent* event)
{
    if (FilesPane::localFiles(event->mimeData()).isEmpty() || !isCopied(*event))
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void Window::dropEvent(QDropEvent* event)
{
    if (!isCopied(*event) || QApplication::activeModalWidget()) // A dialog is about the files that are there.
        return event->ignore();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    m_session->openDropped(FilesPane::localFiles(event->mimeData()));
}

} // namespace zoeditor
