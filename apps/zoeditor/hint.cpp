// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "hint.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QLabel>

namespace zoeditor {

namespace {

/// Fills the viewport of a list.
class Hint : public QLabel {
public:
    explicit Hint(QWidget* viewport) : QLabel(viewport)
    {
        constexpr int margin = 9; // Pixels.
        setMargin(margin);
        setAlignment(Qt::AlignCenter);
        setWordWrap(true);
        setForegroundRole(QPalette::PlaceholderText);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        viewport->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // A size that a header changes before the list is shown is not told.
        if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
            setGeometry(parentWidget()->rect());
        return QLabel::eventFilter(watched, event);
    }
};

} // namespace

void showHint(QAbstractItemView* view, const std::function<QString()>& text)
{
    auto* hint = new Hint(view->viewport());
    hint->setObjectName(view->objectName() + QLatin1String(":hint"));
    const auto update = [view, hint, text] {
        hint->setText(view->model()->rowCount() == 0 ? text() : QString());
        hint->setVisible(!hint->text().isEmpty());
        view->setAccessibleDescription(hint->text());
    };
    QObject::connect(view->model(), &QAbstractItemModel::rowsInserted, hint, update);
    QObject::connect(view->model(), &QAbstractItemModel::rowsRemoved, hint, update);
    QObject::connect(view->model(), &QAbstractItemModel::modelReset, hint, update);
    update();
}

} // namespace zoeditor
