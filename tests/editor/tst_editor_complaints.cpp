// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What users of other programs with windows complained of, done here once more. Each stands under the number of the
// complaint.

#include <QtTest>
#include <QtWidgets>

#include <zokit/history.h>

#include "editorsupport.h"
#include "randomedits.h"

using namespace editorsupport;
using kitsupport::key;

class TestEditorComplaints : public QObject {
    Q_OBJECT

private slots:
    void init() { kitsupport::clearSavedDefaults(); }

    void wheelOverAFieldChangesNothing();
    void wheelOverAFieldScrollsItsPage();
    void originalsAreThereAfterADrop_data();
    void originalsAreThereAfterADrop();
};

namespace {

/// Turns the wheel over \a widget towards the person, as the system tells it.
void roll(QWidget* widget)
{
    const QPoint at(3, 3);
    QWheelEvent event(at, widget->mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event); // Goes on to parents, and gives the focus to what takes it by the wheel.
    qApp->notify(widget, &event);
}

/// What a field shows.
QString shownBy(const QWidget* field)
{
    if (const auto* box = qobject_cast<const QAbstractSpinBox*>(field))
        return box->text();
    if (const auto* box = qobject_cast<const QComboBox*>(field))
        return QString::number(box->currentIndex());
    const auto* slider = qobject_cast<const QSlider*>(field);
    return slider ? QString::number(slider->value()) : QString();
}

} // namespace

// HicServices/RDMP#778
void TestEditorComplaints::wheelOverAFieldChangesNothing()
{
    const Full stage;
    stage.window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&stage.window()));
    const QByteArray before = kitsupport::settingsOf(stage.session().project());
    QStringList changed;
    int rolled = 0;
    stage.visitAll([&](const QString& page) {
        stage.find<QWidget>("fileList")->setFocus();
        for (QWidget* field : stage.window().findChildren<QWidget*>()) {
            const QString shown = shownBy(field);
            if (shown.isEmpty() || !field->isVisible() || field->objectName() == key("time")) // No setting.
                continue;
            roll(field);
            ++rolled;
            if (shownBy(field) != shown || field->hasFocus())
                changed.append(page + QLatin1Char(' ') + field->objectName());
        }
    });
    QCOMPARE(changed.join(key(", ")), QString());
    QCOMPARE(kitsupport::settingsOf(stage.session().project()), before);
    QVERIFY(rolled > 100);
}

// qbittorrent/qBittorrent#866
void TestEditorComplaints::wheelOverAFieldScrollsItsPage()
{
    const Full stage;
    stage.window().resize(1024, 640);
    stage.session().setThing(stage.file(0)->output());
    settle();
    const auto* panel = stage.find<QScrollArea>("panel");
    QVERIFY(panel->verticalScrollBar()->maximum() > 0);
    QCOMPARE(panel->verticalScrollBar()->value(), 0);
    int scrolled = 0;
    for (QWidget* field : panel->findChildren<QWidget*>()) {
        if (shownBy(field).isEmpty())
            continue;
        panel->verticalScrollBar()->setValue(0);
        roll(field);
        QVERIFY2(panel->verticalScrollBar()->value() > 0, qPrintable(field->objectName()));
        ++scrolled;
    }
    QVERIFY(scrolled > 3);
}

void TestEditorComplaints::originalsAreThereAfterADrop_data()
{
    QTest::addColumn<Qt::DropActions>("offered");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("copy or move") << Qt::DropActions(Qt::CopyAction | Qt::MoveAction) << true;
    QTest::newRow("copy") << Qt::DropActions(Qt::CopyAction) << true;
    QTest::newRow("nothing but a move") << Qt::DropActions(Qt::MoveAction) << false;
}

// OpenShot/openshot-qt#375
void TestEditorComplaints::originalsAreThereAfterADrop()
{
    QFETCH(const Qt::DropActions, offered);
    QFETCH(const bool, isTaken);
    const Stage stage;
    const QString clip = copyOf("plain.mp4", stage.folder, "film.mp4");
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(clip)});
    // As a file manager does: it drops where that was allowed, and removes what it was told to have moved.
    QDragEnterEvent enter(QPoint(50, 50), offered, &data, Qt::LeftButton, Qt::ShiftModifier);
    QCoreApplication::sendEvent(&stage.window(), &enter);
    QCOMPARE(enter.isAccepted(), isTaken);
    if (enter.isAccepted()) {
        QDropEvent drop(QPointF(50, 50), offered, &data, Qt::LeftButton, Qt::ShiftModifier);
        QCoreApplication::sendEvent(&stage.window(), &drop);
        if (drop.isAccepted() && drop.dropAction() == Qt::MoveAction)
            QFile::remove(clip);
    }
    stage.waitForFiles();
    QVERIFY(QFile::exists(clip));
    QCOMPARE(stage.session().files().rowCount(), isTaken ? 1 : 0);
}

EDITOR_TEST_MAIN(TestEditorComplaints)
#include "tst_editor_complaints.moc"
