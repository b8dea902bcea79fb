// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMainWindow>
#include <QVector>

namespace zokit {
class FileSettings;
}

namespace zoeditor {

class Actions;
class FilesPane;
class Flows;
class Session;

/// The window: makes panes and connects them.
class Window : public QMainWindow {
    Q_OBJECT

public:
    /// Shows \a session, which outlives it.
    explicit Window(Session* session, QWidget* parent = nullptr);
    ~Window() override;

    Actions& actions() const { return *m_actions; }

    /// Saves; asks where, when a file of another's would be replaced. False when something was not saved.
    bool save(const QVector<zokit::FileSettings*>& files);

signals:
    /// Another language was chosen: a new window has to take this one's place.
    void languageChosen();
    /// It was closed, and nothing is to be kept.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makePanes();
    QWidget* pictureColumn(QWidget* parent);
    void connectFiles();
    void connectHistory();
    void connectAppearance();
    bool saveAs(zokit::FileSettings* file);
    void updateTitle();

    Session* m_session;
    Actions* m_actions;
    FilesPane* m_files = nullptr;
    Flows* m_flows = nullptr;
};

} // namespace zoeditor
