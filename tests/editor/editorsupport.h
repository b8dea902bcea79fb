// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QApplication>
#include <QTemporaryDir>

#include <editor.h>
#include <session.h>
#include <window.h>

#include "clips.h"
#include "kitsupport.h"
#include "testapplication.h"

/// What the tests of the editor say again and again.
namespace editorsupport {

/// The application object: with widgets, and with a preference store in memory.
class EditorApplication : public QApplication, public ZoPrefProvider {
public:
    EditorApplication(int& argc, char** argv) : QApplication(argc, argv) {}

    ZoPref* preferences() override { return &pref; }

    MemoryPref pref;
};

/// An editor with its window on the screen, and a folder of its own for journals and for files.
class Stage {
public:
    /// Starts with \a files and waits until all are read.
    explicit Stage(const QStringList& files = {});
    /// Fails the test when the editor leaves a child behind.
    ~Stage();

    zoeditor::Session& session() const { return editor->session(); }
    zoeditor::Window& window() const { return editor->window(); }
    /// The file in that row of the list; null when it could not be read.
    zokit::FileSettings* file(int row) const;
    /// Waits until no file is being read.
    void waitForFiles() const;
    /// Triggers the action of that name, as a menu does; false when it is disabled.
    bool trigger(const char* action) const;
    /// The widget of that object name, which must be visible; null when there is none.
    template <typename T = QWidget>
    T* find(const char* name) const
    {
        for (T* widget : window().findChildren<T*>(QString::fromLatin1(name))) {
            if (widget->isVisibleTo(&window()))
                return widget;
        }
        return nullptr;
    }
    /// Each dialog in turn is opened, and \a look is called with it.
    void visitDialogs(const std::function<void(QWidget& dialog)>& look) const;
    /// What the status line says.
    QString status() const;

    QTemporaryDir folder;
    std::unique_ptr<zoeditor::Editor> editor;
};

/// A window full of things: two files, one of which cannot be read, two watermarks, tracks.
class Full : public Stage {
public:
    Full();

    /// Each thing of the first file in turn is shown in the panel, laid out, and \a look is called with its name.
    void visitAll(const std::function<void(const QString& what)>& look) const;
    /// All that the editor shows of its own: what visitAll() shows, the history, a queue, each dialog on each of its
    /// pages, each question, and the window without ffmpeg. \a look is called with the window, dialog or question, laid
    /// out, and with a name for it. Nothing can be done with this afterwards.
    void visitEverything(const std::function<void(QWidget& shown, const QString& name)>& look) const;

private:
    void visitRecovery(const std::function<void(QWidget& shown, const QString& name)>& look) const;
    void visitEmpty(const std::function<void(QWidget& shown, const QString& name)>& look) const;
};

/// Lets everything be done that waits in the event loop, and what waits for that.
void settle();

/// A copy of a sample clip in \a folder, under \a name.
QString copyOf(const char* clip, const QTemporaryDir& folder, const char* name);

/// Drags with the left button, in ten moves.
void drag(QWidget* widget, const QPoint& from, const QPoint& to);

/// Clicks \a button in the dialog of that object name, as soon as it is there and \a look has seen it.
void answer(const char* dialog, const char* button, const std::function<void(QWidget& dialog)>& look = {});

} // namespace editorsupport

/// main() of a test program that runs \a TestClass with an EditorApplication.
#define EDITOR_TEST_MAIN(TestClass)                                                                                    \
    int main(int argc, char** argv)                                                                                    \
    {                                                                                                                  \
        const TestFolders folders;                                                                                     \
        editorsupport::EditorApplication application(argc, argv);                                                      \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }
