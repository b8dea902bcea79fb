// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Every page, dialog and question of the editor, for who cannot see it, and for who sees it in a small window.

#include <QAccessible>
#include <QtTest>
#include <QtWidgets>

#include <appearance.h>

#include "editorsupport.h"

using namespace editorsupport;
using kitsupport::key;
namespace appearance = zoeditor::appearance;

class TestEditorPages : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { init(); }

    void everyControlHasNameAndRole_data();
    void everyControlHasNameAndRole();
    void nothingIsCutOff_data();
    void nothingIsCutOff();
    void cutOffIsFound_data();
    void cutOffIsFound();
};

namespace {

constexpr int pages = 37; // 23 in the panel, history, queue, 7 of dialogs, 4 questions, without ffmpeg.

/// What is wrong with the controls below \a object for who cannot see them.
void collectFaults(QAccessibleInterface* object, const QString& path, QStringList* faults)
{
    if (!object || object->state().invisible)
        return;
    const QString name = object->text(QAccessible::Name);
    const auto* widget = qobject_cast<QWidget*>(object->object());
    const bool isControl = widget && widget->focusPolicy() != Qt::NoFocus && widget->isEnabled();
    const QString own = path + QLatin1Char('/')
                        + (object->object() ? QString::fromLatin1(object->object()->metaObject()->className())
                                                  + QLatin1Char('#') + object->object()->objectName()
                                            : QString());
    if (isControl && (name.isEmpty() || object->role() == QAccessible::NoRole))
        faults->append(own);
    for (int i = 0; i < object->childCount(); ++i)
        collectFaults(object->child(i), own, faults);
}

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
        const bool isOfFiles = box->objectName() == key("which") || box->objectName() == key("optionsOf");
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

/// What below \a window has less room than its text takes, and what lies on top of each other in one layout.
QStringList cutOff(const QWidget& window)
{
    QStringList faults;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(&window) || widget->width() == 0
            || widget->objectName() == key("qt_toolbar_ext_button"))
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

} // namespace

void TestEditorPages::init()
{
    kitsupport::clearSavedDefaults();
    appearance::setLanguage(key("en"));
    appearance::setTheme(appearance::Theme::System);
}

void TestEditorPages::everyControlHasNameAndRole_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << key("en");
    QTest::newRow("German") << key("de");
}

void TestEditorPages::everyControlHasNameAndRole()
{
    QFETCH(const QString, language);
    appearance::setLanguage(language);
    const Full stage;
    QStringList faults;
    int seen = 0;
    stage.visitEverything([&](QWidget& shown, const QString& name) {
        ++seen;
        collectFaults(QAccessible::queryAccessibleInterface(&shown), name, &faults);
    });
    faults.removeDuplicates();
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
    QCOMPARE(seen, pages);
}

void TestEditorPages::nothingIsCutOff_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QSize>("size");
    for (const char* language : {"en", "de"}) {
        QTest::addRow("%s, smallest", language) << key(language) << QSize(1024, 640);
        QTest::addRow("%s, usual", language) << key(language) << QSize(1280, 800);
    }
}

void TestEditorPages::nothingIsCutOff()
{
    QFETCH(const QString, language);
    QFETCH(const QSize, size);
    appearance::setLanguage(language);
    const Full stage;
    stage.window().resize(size);
    QStringList faults;
    for (const char* name : {"window", "files", "picture", "timeline", "effects", "panel", "pages"}) {
        const QWidget* widget = key(name) == key("window") ? &stage.window() : stage.find(name);
        const QSize least = widget->minimumSizeHint().expandedTo(widget->minimumSize());
        faults.append(QStringLiteral("%1 %2x%3").arg(key(name)).arg(least.width()).arg(least.height()));
    }
    QVERIFY2(stage.window().size() == size, qPrintable(faults.join(QLatin1Char(' '))));
    faults.clear();
    const auto* bar = stage.find<QToolBar>("toolBar");
    for (QAction* action : bar->actions()) {
        if (!bar->widgetForAction(action)->isVisible())
            faults += action->objectName();
    }
    int seen = 0;
    stage.visitEverything([&](QWidget& shown, const QString& name) {
        ++seen;
        for (const QString& fault : cutOff(shown))
            faults += name + key(": ") + fault;
        if (shown.width() > size.width() || shown.height() > size.height())
            faults += QStringLiteral("%1: %2x%3").arg(name).arg(shown.width()).arg(shown.height());
        const auto* panel = shown.findChild<QScrollArea*>(key("panel"));
        if (panel && panel->isVisibleTo(&shown) && panel->widget()->width() > panel->viewport()->width())
            faults += name + key(": the panel is wider than its room");
    });
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
    QCOMPARE(seen, pages);
}

void TestEditorPages::cutOffIsFound_data()
{
    QTest::addColumn<QByteArray>("kind");
    for (const char* kind :
         {"label", "box", "tabs", "header", "row", "wrapped row", "wide list", "placeholder", "line", "overlap"})
        QTest::addRow("%s", kind) << QByteArray(kind);
}

/// The measure finds what it is for, and nothing where there is room.
void TestEditorPages::cutOffIsFound()
{
    QFETCH(const QByteArray, kind);
    const QString text = key("Some words that take room");
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    QWidget* narrow = nullptr;
    const bool isList = kind == "header" || kind.endsWith("row") || kind == "wide list";
    if (kind == "box") {
        auto* box = new QComboBox(&window);
        box->addItems({key("Few"), text});
        narrow = box;
    } else if (kind == "tabs") {
        auto* bar = new QTabBar(&window);
        bar->addTab(text);
        narrow = bar;
    } else if (isList) {
        auto* tree = new QTreeWidget(&window);
        tree->setHeaderLabels({kind == "header" ? text : key("What"), text});
        tree->setWordWrap(kind == "wrapped row");
        if (kind != "header")
            new QTreeWidgetItem(tree, {text});
        tree->header()->resizeSection(0, 300);
        layout->addWidget(tree);
        narrow = tree;
    } else if (kind == "placeholder" || kind == "line") {
        auto* line = new QLineEdit(&window);
        line->setReadOnly(kind == "line");
        kind == "line" ? line->setText(text) : line->setPlaceholderText(text);
        narrow = line;
    } else {
        narrow = new QLabel(text, &window);
    }
    layout->addWidget(narrow);
    auto* below = new QPushButton(key("Below"), &window);
    layout->addWidget(below);
    window.resize(600, 200);
    window.show();
    settle();
    QCOMPARE(cutOff(window), QStringList());
    if (kind == "overlap")
        below->move(narrow->pos());
    else if (isList)
        static_cast<QTreeWidget*>(narrow)->header()->resizeSection(0, kind == "wide list" ? 900 : 60);
    else
        narrow->setFixedWidth(40);
    settle();
    QVERIFY(!cutOff(window).isEmpty());
}

EDITOR_TEST_MAIN(TestEditorPages)
#include "tst_editor_pages.moc"
