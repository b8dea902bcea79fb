// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "undokeys.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace zoeditor {

namespace {

class UndoKeys : public QObject {
public:
    explicit UndoKeys(QLineEdit* field) : QObject(field), m_field(field) {}

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::ShortcutOverride)
            return QObject::eventFilter(watched, event);
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool isLeft = (key->matches(QKeySequence::Undo) && !m_field->isUndoAvailable())
                            || (key->matches(QKeySequence::Redo) && !m_field->isRedoAvailable());
        if (isLeft)
            event->ignore();
        return isLeft;
    }

private:
    QLineEdit* m_field;
};

} // namespace

void leaveUndoToWindow(QLineEdit* field)
{
    field->installEventFilter(new UndoKeys(field));
}

} // namespace zoeditor
