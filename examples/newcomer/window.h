// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QListView>
#include <QMainWindow>

#include <zokit/workbench.h>

class Panel;

/// Files on the left with the watermarks of the current one, its picture in the middle, all its settings on the right.
class Window : public QMainWindow {
public:
    /// \a bench outlives it.
    explicit Window(zokit::Workbench& bench);
    ~Window() override { m_bench.history().disconnect(this); } // A field that is open ends its step after this.

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QAction* add(QWidget* bar, const QString& text, const QKeySequence& keys, const std::function<void()>& deed);
    void makeMenus();
    void dock(Qt::DockWidgetArea area, const QString& title, QWidget* widget);
    void showFile(zokit::FileSettings* file);
    void showChosen(zokit::Identity thing);
    void showHistory();
    void fillPresets();
    void tell(const zokit::Message& message);
    bool agreed(const QString& question, const QStringList& lines);

    zokit::FileSettings* file() const { return m_bench.current(); }
    void carryOver(const QString& question, const zokit::Settings& from, const QVector<zokit::FileSettings*>& targets);
    void chooseTracks();
    void addWatermark(const QString& key, const QString& value);

    zokit::Workbench& m_bench;
    QListView* m_files = new QListView;
    QListView* m_watermarks = new QListView;
    Panel* m_panel;
    QMenu* m_presets = nullptr;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
    QVector<QWidget*> m_forFile; // Menus and bars that make sense with a file alone.
};
