// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Rows of the list of effects are dragged by the mouse, from the press to the drop. The platform "offscreen" drops
// nothing; "minimal" does.

#include <QtTest>
#include <QtWidgets>

#include <zokit/history.h>

#include "editorsupport.h"

using namespace editorsupport;
using kitsupport::key;

class TestEditorDrag : public QObject {
    Q_OBJECT

private slots:
    void init() { kitsupport::clearSavedDefaults(); }

    void itemIsDraggedToItsPlace_data();
    void itemIsDraggedToItsPlace();
    void languageIsDraggedToItsPlace();
};

namespace {

/// An editor with a clip of two sounds and two subtitles, and with three texts.
struct Texts : Stage {
    Texts() : Stage({clips::clip(key("languages.mkv"))}), tree(find<QTreeView>("effectTree"))
    {
        for (const char* text : {"First", "Second", "Third"})
            file(0)->insert(key("Watermark"), {{key("wm_istextwatermark"), true}, {key("wm_textcontent"), key(text)}});
        settle();
    }

    /// The row of that type, or of its item.
    QModelIndex row(const char* type, int item = -1) const
    {
        const zokit::Identity thing = item < 0 ? file(0)->type(key(type)) : file(0)->item(key(type), item);
        const QModelIndexList found =
            tree->model()->match(tree->model()->index(0, 0), zokit::SettingsModel::ThingRole,
                                 QVariant::fromValue(thing), 1, Qt::MatchExactly | Qt::MatchRecursive);
        return found.value(0);
    }

    /// A point of that row, near its upper or its lower edge or in its middle.
    QPoint pointOf(const QModelIndex& index, int part) const
    {
        const QRect place = tree->visualRect(index);
        return {place.center().x(), part < 0 ? place.top() + 1 : part > 0 ? place.bottom() - 1 : place.center().y()};
    }

    QTreeView* tree;
};

void send(QWidget* widget, QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

/// Presses, moves and releases. What is dragged runs an event loop of its own, in which the rest has to happen: each
/// move asks for the next one before it is made.
void dragByMouse(QWidget* widget, const QPoint& from, const QPoint& to)
{
    constexpr int moves = 10;
    int done = 0;
    bool isDropped = false;
    std::function<void()> move = [&] {
        if (++done > moves) {
            send(widget, QEvent::MouseButtonRelease, to, Qt::NoButton);
            isDropped = true;
            return;
        }
        QTimer::singleShot(0, widget, move);
        send(widget, QEvent::MouseMove, from + (to - from) * done / moves, Qt::LeftButton);
    };
    send(widget, QEvent::MouseButtonPress, from, Qt::LeftButton);
    move();
    QTRY_VERIFY_WITH_TIMEOUT(isDropped, 60000);
    settle();
}

} // namespace

void TestEditorDrag::itemIsDraggedToItsPlace_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<int>("dragged");
    QTest::addColumn<QByteArray>("onType");
    QTest::addColumn<int>("onItem"); // -1: on the type itself.
    QTest::addColumn<int>("part");   // -1: near the upper edge of that row, 0: in its middle, 1: near its lower edge.
    QTest::addColumn<QVector<int>>("order");
    const QByteArray text("Watermark");
    const QByteArray sound("Audio");
    const QByteArray subtitle("Subtitle");
    QTest::newRow("text above the first") << text << 2 << text << 0 << -1 << QVector<int>{2, 0, 1};
    QTest::newRow("text below the last") << text << 0 << text << 2 << 1 << QVector<int>{1, 2, 0};
    QTest::newRow("text between two") << text << 0 << text << 1 << 1 << QVector<int>{1, 0, 2};
    QTest::newRow("text on its type") << text << 0 << text << -1 << 0 << QVector<int>{1, 2, 0};
    QTest::newRow("text where it is") << text << 1 << text << 0 << 1 << QVector<int>{0, 1, 2};
    QTest::newRow("text among the sounds") << text << 0 << sound << 0 << -1 << QVector<int>{0, 1, 2};
    QTest::newRow("sound above another") << sound << 1 << sound << 0 << -1 << QVector<int>{1, 0};
    QTest::newRow("subtitle below another") << subtitle << 0 << subtitle << 1 << 1 << QVector<int>{1, 0};
}

void TestEditorDrag::itemIsDraggedToItsPlace()
{
    QFETCH(const QByteArray, type);
    QFETCH(const int, dragged);
    QFETCH(const QByteArray, onType);
    QFETCH(const int, onItem);
    QFETCH(const int, part);
    QFETCH(const QVector<int>, order);
    const Texts stage;
    const QString name = key(type.constData());
    const QVector<zokit::Identity> before = stage.file(0)->items(name);
    QCOMPARE(before.size(), order.size());
    const int steps = stage.session().history().position();
    for (const QByteArray& each : {type, onType})
        stage.tree->expand(stage.row(each.constData()));
    settle();
    dragByMouse(stage.tree->viewport(), stage.pointOf(stage.row(type.constData(), dragged), 0),
                stage.pointOf(stage.row(onType.constData(), onItem), part));
    QVector<zokit::Identity> expected;
    for (const int earlier : order)
        expected.append(before.at(earlier));
    QCOMPARE(stage.file(0)->items(name), expected);
    QCOMPARE(stage.session().thing(), before.at(dragged));
    const bool isMoved = expected != before;
    QCOMPARE(stage.session().history().position(), steps + (isMoved ? 1 : 0));
    if (!isMoved)
        return;
    QVERIFY(stage.trigger("undo"));
    QCOMPARE(stage.file(0)->items(name), before);
}

void TestEditorDrag::languageIsDraggedToItsPlace()
{
    const Stage stage({clips::clip(key("languages.mkv"))});
    QVERIFY(stage.trigger("tracks"));
    auto* choice = stage.find<QComboBox>("audioLanguages:choice");
    for (const char* code : {"eng", "fra", "deu"}) {
        choice->setCurrentIndex(choice->findData(key(code)));
        stage.find<QPushButton>("audioLanguages:add")->click();
    }
    settle();
    auto* list = stage.find<QListWidget>("audioLanguages:list");
    const auto* tracks = stage.find<QTreeWidget>("tracks");
    enum { French, English }; // As the clip has them.
    QCOMPARE(tracks->topLevelItem(English)->text(1), key("chosen for its language, eng"));
    const QRect last = list->visualItemRect(list->item(2));
    dragByMouse(list->viewport(), list->visualItemRect(list->item(0)).center(),
                QPoint(last.center().x(), last.bottom() - 1));
    QStringList codes;
    for (int row = 0; row < list->count(); ++row)
        codes.append(list->item(row)->data(Qt::UserRole).toString());
    QCOMPARE(codes, QStringList({key("fra"), key("deu"), key("eng")}));
    QCOMPARE(tracks->topLevelItem(English)->text(1), key("no"));
    QCOMPARE(tracks->topLevelItem(French)->text(1), key("chosen for its language, fra"));
}

int main(int argc, char** argv)
{
    const TestFolders folders;
    qputenv("QT_QPA_PLATFORM", "minimal:enable_fonts");
    const EditorApplication application(argc, argv);
    TestEditorDrag test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_editor_drag.moc"
