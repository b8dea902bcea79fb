// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "valuecontrol.h"

#include <QComboBox>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>

namespace zoeditor {

namespace {

/// Keys that change a number or choose the next value: held, they are one step.
bool isSteppingKey(int key)
{
    return (key >= Qt::Key_Left && key <= Qt::Key_Down) || key == Qt::Key_PageUp || key == Qt::Key_PageDown
           || key == Qt::Key_Home || key == Qt::Key_End;
}

bool isText(const QObject* field)
{
    return qobject_cast<const QLineEdit*>(field) || qobject_cast<const QPlainTextEdit*>(field);
}

/// The menu of the text field that is \a field, or lies in or around it; null when there is none. Owned by the caller.
QMenu* menuOf(QWidget* field)
{
    auto* text = qobject_cast<QPlainTextEdit*>(field);
    if (!text)
        text = qobject_cast<QPlainTextEdit*>(field->parentWidget());
    if (text)
        return text->createStandardContextMenu();
    auto* line = qobject_cast<QLineEdit*>(field);
    if (!line)
        line = field->findChild<QLineEdit*>();
    return line ? line->createStandardContextMenu() : nullptr;
}

/// Shows the menu of a text field without its undo and redo. Whether there is one.
bool showMenu(QWidget* field, const QPoint& where)
{
    QMenu* menu = menuOf(field);
    if (!menu)
        return false;
    for (bool isUndo = true; isUndo && !menu->isEmpty();) { // They come first, with a line below them.
        QAction* first = menu->actions().constFirst();
        isUndo = !first->isSeparator();
        menu->removeAction(first);
    }
    menu->setObjectName(QStringLiteral("fieldMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(where);
    return true;
}

} // namespace

ValueControl::ValueControl(QWidget* parent) : QWidget(parent) {}

void ValueControl::setValue(const QVariant& value)
{
    m_shown = value;
    m_show(value);
}

void ValueControl::setPlaceholder(const QString& text)
{
    if (auto* box = qobject_cast<QComboBox*>(field()))
        box->setPlaceholderText(text);
    else if (auto* line = qobject_cast<QLineEdit*>(field()))
        line->setPlaceholderText(text);
    else if (auto* inner = field()->findChild<QLineEdit*>())
        inner->setPlaceholderText(text);
}

void ValueControl::beginChoice()
{
    m_isChoosing = true;
    emit gestureBegun();
}

void ValueControl::endChoice()
{
    m_isChoosing = false;
    emit gestureEnded();
}

void ValueControl::endGestureSoon()
{
    const auto end = [this] {
        if (!m_isChoosing)
            emit gestureEnded();
    };
    QMetaObject::invokeMethod(this, end, Qt::QueuedConnection); // The field first: its last step is one of the gesture.
}

bool ValueControl::eventFilter(QObject* watched, QEvent* event)
{
    auto* field = static_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::Wheel: // Whoever scrolls the panel must not change what comes under the pointer.
        if (field->hasFocus() || (focusProxy() && focusProxy()->hasFocus()))
            return false;
        event->ignore();
        return true;
    case QEvent::ShortcutOverride: { // Undo is the window's.
        const auto* key = static_cast<QKeyEvent*>(event);
        if (!key->matches(QKeySequence::Undo) && !key->matches(QKeySequence::Redo))
            return false;
        event->ignore();
        return true;
    }
    case QEvent::KeyPress: {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (!key->isAutoRepeat() && isSteppingKey(key->key()) && !isText(watched))
            emit gestureBegun();
        return key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo);
    }
    case QEvent::MouseButtonPress:
        if (!isText(watched))
            emit gestureBegun();
        return false;
    case QEvent::KeyRelease:
        if (!static_cast<QKeyEvent*>(event)->isAutoRepeat() && isSteppingKey(static_cast<QKeyEvent*>(event)->key())
            && !isText(watched))
            endGestureSoon();
        return false;
    case QEvent::MouseButtonRelease:
    case QEvent::FocusOut:
        endGestureSoon();
        return false;
    case QEvent::ContextMenu:
        return showMenu(field, static_cast<QContextMenuEvent*>(event)->globalPos());
    default:
        return false;
    }
}

} // namespace zoeditor
