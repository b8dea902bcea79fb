// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QRandomGenerator>
#include <QtTest>
#include <QtWidgets>

#include <zokit/history.h>

#include <actions.h>
#include <pictureview.h>

#include "editorsupport.h"

/// What the editor that is killed and the test that looks after it have in common.
namespace editorrobot {

/// Edits in the real window, by keys and actions: the same for the same seed, one after the other.
class Robot {
public:
    /// For an \a editor in which one clip is open.
    Robot(zoeditor::Editor& editor, quint32 seed) : m_editor(editor), m_random(seed) {}

    void edit()
    {
        switch (m_random.bounded(10)) {
        case 0:
        case 1:
            pressIn("Color:bcs_contrast", "Color", Qt::Key_Up, 1);
            break;
        case 2:
            pressIn("Color:bcs_saturation", "Color", Qt::Key_Down, 4); // Held: one step.
            break;
        case 3:
            pressIn("Audio_Echo:audio_echo_delay", "Audio_Echo", Qt::Key_PageUp, 1);
            break;
        case 4:
            if (watermarks().size() < most)
                trigger("addText");
            break;
        case 5:
            if (!watermarks().isEmpty()) {
                session().setThing(watermarks().constLast());
                trigger("removeItem");
            }
            break;
        case 6:
            typeText();
            break;
        case 7:
            dragByKey();
            break;
        case 8:
            trigger("redo");
            break;
        default:
            if (session().history().position() > 1) // The clip stays.
                trigger("undo");
            break;
        }
        editorsupport::settle();
    }

    /// Microseconds between two edits.
    quint32 pause() { return m_pauses.bounded(8000U); }

private:
    static constexpr int most = 4; // Watermarks.

    zoeditor::Session& session() const { return m_editor.session(); }
    QVector<zokit::Identity> watermarks() const { return session().current()->items(QStringLiteral("Watermark")); }
    void trigger(const char* action) const { m_editor.window().actions().action(action)->trigger(); }

    QWidget* field(const char* name, zokit::Identity thing) const
    {
        session().setThing(thing);
        editorsupport::settle();
        return m_editor.window().findChild<QWidget*>(QString::fromLatin1(name));
    }

    void pressIn(const char* name, const char* type, Qt::Key key, int times) const
    {
        QWidget* found = field(name, session().current()->type(QString::fromLatin1(type)));
        if (!found)
            qFatal("The panel has no such field");
        for (int i = 0; i < times; ++i) {
            QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), i > 0);
            QCoreApplication::sendEvent(found, &event);
        }
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
        QCoreApplication::sendEvent(found, &release);
    }

    /// The gesture stays open until the next thing is done.
    void typeText()
    {
        if (watermarks().isEmpty())
            return;
        QWidget* found = field("Watermark:wm_textcontent", watermarks().constFirst());
        QTest::keyClick(found, static_cast<char>('a' + m_random.bounded(26)));
    }

    void dragByKey()
    {
        auto* picture = m_editor.window().findChild<zoeditor::PictureView*>();
        const QVector<zokit::PreviewHandle> handles = picture->handles();
        picture->setCurrentHandle(handles.at(m_random.bounded(int(handles.size()))));
        QTest::keyClick(picture, m_random.bounded(2) == 0 ? Qt::Key_Left : Qt::Key_Down, Qt::ShiftModifier);
    }

    zoeditor::Editor& m_editor;
    QRandomGenerator m_random;
    QRandomGenerator m_pauses{1};
};

/// Starts \a editor with \a clip, and waits until it is open.
inline void open(zoeditor::Editor& editor, const QString& clip)
{
    constexpr int patience = 200000; // Milliseconds: only what fails takes so long.
    editor.start(clip.isEmpty() ? QStringList() : QStringList{clip});
    const zoeditor::Session& session = editor.session();
    if (QTest::qWaitFor([&] { return session.mediaOf(session.current()) != nullptr; }, patience))
        return;
    QStringList states;
    for (const zoeditor::FileRow& row : editor.session().files().rows())
        states.append(row.isAsked ? QStringLiteral("%1 is being read").arg(row.path) : row.problem.text());
    qFatal("The clip was not opened in time: %s. %s", qPrintable(states.join(QLatin1String(", "))),
           qPrintable(editor.window().statusBar()->currentMessage()));
}

} // namespace editorrobot
