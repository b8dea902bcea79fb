// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "cutoff.h"

#include <QtWidgets>

namespace {

/// A text that a widget draws, and how many pixels it has for it.
struct Text {
    QString text;
    int room;
};

QVector<Text> textsOf(const QComboBox& box)
{
    QStyleOptionComboBox option;
    option.initFrom(&box);
    option.editable = box.isEditable();
    const int frame = 2; // The style leaves a pixel free on both sides.
    const int room =
        box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box).width() - frame;
    QVector<Text> texts;
    for (int i = 0; i < box.count(); ++i)
        texts.append({box.itemText(i), room});
    return texts;
}

QVector<Text> textsOf(const QTabBar& bar)
{
    QVector<Text> texts;
    for (int i = 0; i < bar.count(); ++i) {
        const QRect seen = bar.tabRect(i) & bar.rect();
        texts.append({bar.tabText(i).remove(QLatin1Char('&')), seen.width()});
    }
    return texts;
}

QVector<Text> textsOf(const QHeaderView& header)
{
    const int margin = header.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &header);
    QVector<Text> texts;
    for (int i = 0; i < header.count(); ++i) {
        if (!header.isSectionHidden(i))
            texts.append(
                {header.model()->headerData(i, header.orientation()).toString(), header.sectionSize(i) - 2 * margin});
    }
    return texts;
}

/// What stands in an empty field, or in one that cannot be written to.
QVector<Text> textsOf(const QLineEdit& field)
{
    QStyleOptionFrame option;
    option.initFrom(&field);
    option.lineWidth = field.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &field);
    const int margin = 2; // Of Qt's own on both sides.
    const int room = field.style()->subElementRect(QStyle::SE_LineEditContents, &option, &field).width() - 2 * margin;
    return {{field.isReadOnly() ? field.text() : field.text().isEmpty() ? field.placeholderText() : QString(), room}};
}

/// How many pixels are lacking for what stands at \a index: of its width, or of its height where lines wrap.
int lackingAt(const QTreeView& tree, const QModelIndex& index)
{
    const QRect room = tree.visualRect(index);
    if (!tree.wordWrap())
        return tree.sizeHintForIndex(index).width() - room.width();
    const QStyle& style = *tree.style();
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &tree) + 1;
    const bool hasBox = index.data(Qt::CheckStateRole).isValid();
    const int box = hasBox ? style.pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &tree) + 2 * margin : 0;
    const QRect line(0, 0, room.width() - box - 2 * margin, QWIDGETSIZE_MAX);
    return tree.fontMetrics().boundingRect(line, Qt::TextWordWrap, index.data().toString()).height() - room.height();
}

/// What stands in the rows that are open, but for what can be read in full in a tip.
QVector<Text> textsOf(const QTreeView& tree)
{
    QVector<Text> texts;
    if (const int beyond = tree.horizontalScrollBar()->maximum(); beyond > 0)
        texts.append({QString(), -beyond});
    for (QModelIndex row = tree.model()->index(0, 0); row.isValid(); row = tree.indexBelow(row)) {
        for (int column = 0; column < tree.model()->columnCount(row.parent()); ++column) {
            const QModelIndex index = row.sibling(row.row(), column);
            const QString text = index.data().toString();
            const int lacking = lackingAt(tree, index);
            if (lacking > 0 && !index.data(Qt::ToolTipRole).toString().contains(text))
                texts.append({text, tree.fontMetrics().horizontalAdvance(text) - lacking});
        }
    }
    return texts;
}

/// All of \a widget that is drawn as it is, cut off where it has no room. Names of files and fonts may be as long as
/// they like.
QVector<Text> textsOf(const QWidget* widget)
{
    if (const auto* box = qobject_cast<const QComboBox*>(widget)) {
        const bool isOfFiles =
            box->objectName() == QLatin1String("which") || box->objectName() == QLatin1String("optionsOf");
        return isOfFiles || qobject_cast<const QFontComboBox*>(box) ? QVector<Text>() : textsOf(*box);
    }
    if (const auto* bar = qobject_cast<const QTabBar*>(widget))
        return textsOf(*bar);
    if (const auto* header = qobject_cast<const QHeaderView*>(widget))
        return textsOf(*header);
    if (const auto* tree = qobject_cast<const QTreeView*>(widget))
        return textsOf(*tree);
    if (const auto* field = qobject_cast<const QLineEdit*>(widget))
        return textsOf(*field);
    return {};
}

/// Whether \a widget is smaller than its text takes, of those that know that themselves.
bool isTooSmall(const QWidget* widget)
{
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (label && label->wordWrap())
        return !label->text().isEmpty() && label->height() < label->heightForWidth(label->width());
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    const int arrow = 1; // Letters: it is as wide as its button is high.
    const bool hasText = (label && !label->text().isEmpty()) || (button && button->text().size() > arrow)
                         || qobject_cast<const QAbstractSpinBox*>(widget);
    return hasText && widget->width() < widget->minimumSizeHint().width();
}

QString nameOf(const QWidget* widget)
{
    const auto* label = qobject_cast<const QLabel*>(widget);
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    const QString text = label ? label->text() : button ? button->text() : QString();
    return QStringLiteral("%1#%2 (%3) %4x%5")
        .arg(QString::fromLatin1(widget->metaObject()->className()), widget->objectName(), text)
        .arg(widget->width())
        .arg(widget->height());
}

} // namespace

QStringList cutOff(const QWidget& window)
{
    QStringList faults;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(&window) || widget->width() == 0
            || widget->objectName() == QLatin1String("qt_toolbar_ext_button"))
            continue;
        if (isTooSmall(widget))
            faults.append(nameOf(widget));
        for (const Text& text : textsOf(widget)) {
            const int needed = widget->fontMetrics().horizontalAdvance(text.text);
            if (needed > text.room)
                faults.append(QStringLiteral("%1: \"%2\" takes %3 of %4")
                                  .arg(nameOf(widget), text.text)
                                  .arg(needed)
                                  .arg(text.room));
        }
        const QWidget* parent = widget->parentWidget();
        if (!parent || !parent->layout() || parent->layout()->indexOf(const_cast<QWidget*>(widget)) < 0)
            continue;
        for (const QObject* object : parent->children()) {
            const auto* other = qobject_cast<const QWidget*>(object);
            if (other && other < widget && other->isVisibleTo(&window)
                && other->geometry().intersects(widget->geometry()))
                faults.append(QStringLiteral("%1 lies on %2").arg(nameOf(widget), nameOf(other)));
        }
    }
    return faults;
}
