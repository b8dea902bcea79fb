// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What users of other programs with windows complained of, done here once more. Each stands under the number of the
// complaint, where it was one; the last ones are heard of many programs, each with a line that says what.

#include <algorithm>
#include <cmath>

#include <QtTest>
#include <QtWidgets>

#include <zokit/history.h>
#include <zokit/settingsfile.h>

#include <appearance.h>

#include "editorsupport.h"
#include "randomedits.h"

using namespace editorsupport;
using kitsupport::key;

class TestEditorComplaints : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        kitsupport::clearSavedDefaults();
        zoeditor::appearance::setLanguage(key("en"));
    }
    void cleanup() { init(); }

    void wheelOverAFieldChangesNothing();
    void wheelOverAFieldScrollsItsPage();
    void originalsAreThereAfterADrop_data();
    void originalsAreThereAfterADrop();
    void whatOpensNothingSaysSo();
    void orderOfTheQueueIsChangedWhileItRuns();
    void themesCanBeRead_data();
    void themesCanBeRead();
    void boxesAreSeenInEachTheme();
    void deleteRemovesWhatIsChosen();
    void copiedFilesArePastedIntoTheList();
    void pointAndCommaStandBeforeDecimals_data();
    void pointAndCommaStandBeforeDecimals();
    void whatIsTypedStaysWithItsFile();
    void whatIsTypedIsSavedConvertedAndAskedFor();
    void whatIsTypedIsAStepOfItsOwn();
    void escapeInADialogKeepsWhatIsTyped();
    void listOfFilesStaysWhereItIs();
    void panelStaysWhereItIs();
    void cancelledConversionLeavesNothing();
    void namesAreShownAsTheyAre();
    void lookingIsNoStep();
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

/// How much light a colour gives, from 0 to 1.
double luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// From 1, all the same, to 21, black on white.
double contrast(const QColor& one, const QColor& other)
{
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
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

/// Two clips; the contrast of the first one is about to be typed.
struct Typed : Stage {
    Typed()
    {
        session().open({copyOf("plain.mp4", folder, "a.mp4"), copyOf("plain.mp4", folder, "b.mp4")});
        waitForFiles();
        window().activateWindow();
        if (!QTest::qWaitForWindowActive(&window()))
            qFatal("The window does not become the active one");
        session().setCurrent(file(0));
        session().setThing(file(0)->type(key("Color")));
        settle();
    }

    /// Without Return, and without going to another field.
    void type(const char* text) const
    {
        window().activateWindow();
        auto* field = find<QSpinBox>("Color:bcs_contrast");
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, key(text));
    }
    QVariant value(int row) const { return file(row)->value(file(row)->type(key("Color")), key("bcs_contrast")); }
};

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

// Nothing happens when something is opened that is no clip, and nobody says why.
void TestEditorComplaints::whatOpensNothingSaysSo()
{
    const Stage stage;
    QVERIFY(QDir(stage.folder.path()).mkpath(key("empty/more")));
    const QString folder = stage.folder.filePath(key("empty"));
    stage.session().open({folder});
    QCOMPARE(stage.status(), key("There are no clips in ") + folder + key("."));
    const QString clip = copyOf("plain.mp4", stage.folder, "film.mp4");
    stage.session().open({clip});
    stage.waitForFiles();
    stage.session().open({clip});
    QCOMPARE(stage.status(), clip + key(" is open already."));
    const QString gone = stage.folder.filePath(key("gone.mp4"));
    stage.session().open({gone});
    stage.waitForFiles();
    stage.window().statusBar()->clearMessage();
    stage.session().open({gone});
    QVERIFY2(stage.status().startsWith(gone + key(": no such file")), qPrintable(stage.status()));
}

// The queue cannot be put in another order once it runs.
void TestEditorComplaints::orderOfTheQueueIsChangedWhileItRuns()
{
    QTemporaryDir folder;
    const Stage stage({copyOf("plain.mp4", folder, "a.mp4"), copyOf("plain.mp4", folder, "b.mp4"),
                       copyOf("plain.mp4", folder, "c.mp4")});
    zokit::Queue& queue = stage.session().queue();
    QStringList begun;
    connect(&queue, &zokit::Queue::stateChanged, this, [&](int row, zokit::RowState state) {
        const QString clip = QFileInfo(queue.job(row).input).fileName();
        if (state == zokit::RowState::Running && !begun.contains(clip)) // A pause ends in it, too.
            begun.append(clip);
    });
    stage.session().select({stage.file(0), stage.file(1), stage.file(2)});
    stage.trigger("convert");
    stage.find<QAbstractButton>("start")->click();
    QTRY_VERIFY_WITH_TIMEOUT(!begun.isEmpty(), 60000);
    queue.pause();
    auto* list = stage.find<QTreeWidget>("queueList");
    list->setCurrentItem(list->topLevelItem(2));
    QVERIFY(!stage.find<QPushButton>("rowDown")->isEnabled());
    stage.find<QPushButton>("rowUp")->click();
    QCOMPARE(list->currentItem()->text(0), key("c.mp4"));
    QCOMPARE(list->indexOfTopLevelItem(list->currentItem()), 1);
    queue.resume();
    QTRY_VERIFY_WITH_TIMEOUT(!queue.isRunning(), 60000);
    QCOMPARE(begun, QStringList({key("a.mp4"), key("c.mp4"), key("b.mp4")}));
}

void TestEditorComplaints::themesCanBeRead_data()
{
    QTest::addColumn<int>("theme");
    QTest::newRow("light") << int(zoeditor::appearance::Theme::Light);
    QTest::newRow("dark") << int(zoeditor::appearance::Theme::Dark);
}

// Texts cannot be read in the dark theme.
void TestEditorComplaints::themesCanBeRead()
{
    QFETCH(const int, theme);
    zoeditor::appearance::setTheme(static_cast<zoeditor::appearance::Theme>(theme));
    const QPalette palette = QApplication::palette();
    zoeditor::appearance::setTheme(zoeditor::appearance::Theme::System);
    struct Pair {
        const char* what;
        QPalette::ColorGroup group;
        QPalette::ColorRole text, ground;
        double least; // As the accessibility guidelines of the web ask for.
    };
    constexpr double text = 4.5;
    constexpr double dimmed = 3;
    const Pair pairs[] = {
        {"window", QPalette::Active, QPalette::WindowText, QPalette::Window, text},
        {"field", QPalette::Active, QPalette::Text, QPalette::Base, text},
        {"every second row", QPalette::Active, QPalette::Text, QPalette::AlternateBase, text},
        {"button", QPalette::Active, QPalette::ButtonText, QPalette::Button, text},
        {"tool tip", QPalette::Active, QPalette::ToolTipText, QPalette::ToolTipBase, text},
        {"chosen", QPalette::Active, QPalette::HighlightedText, QPalette::Highlight, text},
        {"link", QPalette::Active, QPalette::Link, QPalette::Window, text},
        {"mark", QPalette::Active, QPalette::PlaceholderText, QPalette::Window, text},
        {"hint in a field", QPalette::Active, QPalette::PlaceholderText, QPalette::Base, text},
        {"disabled window", QPalette::Disabled, QPalette::WindowText, QPalette::Window, dimmed},
        {"disabled button", QPalette::Disabled, QPalette::ButtonText, QPalette::Button, dimmed},
        {"disabled field", QPalette::Disabled, QPalette::Text, QPalette::Base, dimmed},
    };
    for (const Pair& pair : pairs) {
        const double found = contrast(palette.color(pair.group, pair.text), palette.color(pair.group, pair.ground));
        QVERIFY2(found >= pair.least, qPrintable(QStringLiteral("%1: %2").arg(key(pair.what)).arg(found)));
    }
}

// In dark colours a box that is not checked is hardly seen. An outline stands out by 3 to 1.
void TestEditorComplaints::boxesAreSeenInEachTheme()
{
    for (const char* theme : {"themeLight", "themeDark"}) {
        const Stage stage;
        QVERIFY(stage.trigger(theme));
        QWidget window;
        auto* layout = new QVBoxLayout(&window);
        auto* box = new QCheckBox(&window);
        auto* list = new QListWidget(&window);
        auto* row = new QListWidgetItem(list);
        row->setCheckState(Qt::Unchecked);
        auto* tree = new QTreeWidget(&window);
        auto* above = new QTreeWidgetItem(tree);
        new QTreeWidgetItem(above);
        above->setSelected(true);
        layout->addWidget(box);
        layout->addWidget(list);
        layout->addWidget(tree);
        window.show();
        settle();
        const auto strongest = [](const QImage& drawn, const QColor& around) {
            double found = 1;
            for (int x = 0; x < drawn.width(); ++x) {
                for (int y = 0; y < drawn.height(); ++y)
                    found = std::max(found, contrast(drawn.pixelColor(x, y), around));
            }
            return found;
        };
        const QRect sign(0, 0, 20, 20); // The row of the list has no text.
        const double ofBox = strongest(box->grab().toImage(), QApplication::palette().color(QPalette::Window));
        const double ofRow =
            strongest(list->viewport()->grab(sign).toImage(), QApplication::palette().color(QPalette::Base));
        QVERIFY2(ofBox >= 3, qPrintable(QStringLiteral("%1: %2").arg(key(theme)).arg(ofBox)));
        QVERIFY2(ofRow >= 3, qPrintable(QStringLiteral("%1: %2").arg(key(theme)).arg(ofRow)));
        const QRect arrow(2, 2, tree->indentation() - 4, tree->visualItemRect(above).height() - 4);
        const double ofArrow =
            strongest(tree->viewport()->grab(arrow).toImage(), QApplication::palette().color(QPalette::Highlight));
        QVERIFY2(ofArrow >= 3, qPrintable(QStringLiteral("%1, chosen: %2").arg(key(theme)).arg(ofArrow)));
    }
}

// The key Delete does nothing, or deletes what is not meant.
void TestEditorComplaints::deleteRemovesWhatIsChosen()
{
    const Full stage;
    stage.window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&stage.window()));
    stage.session().setThing(stage.file(0)->item(key("Watermark"), 1));
    settle();
    stage.find<QTreeView>("effectTree")->setFocus();
    QTest::keyClick(stage.find<QTreeView>("effectTree"), Qt::Key_Delete);
    QCOMPARE(stage.file(0)->items(key("Watermark")).size(), 1);
    auto* list = stage.find<QListView>("fileList");
    list->setFocus();
    list->setCurrentIndex(list->model()->index(1, 0));
    QTest::keyClick(list, Qt::Key_Delete);
    QCOMPARE(stage.session().files().rowCount(), 1);
    QCOMPARE(QFileInfo(stage.session().files().rows().at(0).path).fileName(), key("languages.mkv"));
    // In a field it deletes letters alone.
    auto* filter = stage.find<QLineEdit>("filter");
    filter->setFocus();
    QTest::keyClick(filter, Qt::Key_Delete);
    QCOMPARE(stage.session().files().rowCount(), 1);
}

// Files that were copied in the file manager cannot be pasted.
void TestEditorComplaints::copiedFilesArePastedIntoTheList()
{
    const Stage stage;
    stage.window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&stage.window()));
    auto* list = stage.find<QListView>("fileList");
    list->setFocus();
    QGuiApplication::clipboard()->setMimeData(nullptr); // As it is before anything was copied.
    QTest::keyClick(list, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(stage.session().files().rowCount(), 0);
    auto* copied = new QMimeData;
    copied->setUrls({QUrl::fromLocalFile(copyOf("plain.mp4", stage.folder, "a film.mp4")),
                     QUrl(key("https://example.org/film.mp4"))});
    QGuiApplication::clipboard()->setMimeData(copied);
    QTest::keyClick(list, Qt::Key_V, Qt::ControlModifier);
    stage.waitForFiles();
    QCOMPARE(stage.session().files().rowCount(), 1);
    QCOMPARE(QFileInfo(stage.session().files().rows().at(0).path).fileName(), key("a film.mp4"));
}

void TestEditorComplaints::pointAndCommaStandBeforeDecimals_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("point in English") << key("en") << key("1.25") << key("1.25");
    QTest::newRow("comma in English") << key("en") << key("1,25") << key("1.25");
    QTest::newRow("point in German") << key("de") << key("1.25") << key("1,25");
    QTest::newRow("comma in German") << key("de") << key("1,25") << key("1,25");
}

// Numbers with a comma are refused, or 1,5 becomes 15.
void TestEditorComplaints::pointAndCommaStandBeforeDecimals()
{
    QFETCH(const QString, language);
    QFETCH(const QString, typed);
    QFETCH(const QString, shown);
    zoeditor::appearance::setLanguage(language);
    const Full stage;
    const zokit::Identity item = stage.file(0)->item(key("Watermark"), 1);
    stage.session().setThing(item);
    settle();
    auto* field = stage.find<QDoubleSpinBox>("Watermark:wm_transfactor");
    QVERIFY(field);
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, typed);
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(stage.file(0)->value(item, key("wm_transfactor")), QVariant(1.25));
    QCOMPARE(field->cleanText(), shown);
}

// What is set for one film lands in the next one that is chosen.
void TestEditorComplaints::whatIsTypedStaysWithItsFile()
{
    const Typed stage;
    auto* list = stage.find<QListView>("fileList");
    stage.type("12");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                      list->visualRect(list->model()->index(1, 0)).center());
    QCOMPARE(stage.session().current(), stage.file(1));
    QCOMPARE(stage.value(0), QVariant(12));
    QCOMPARE(stage.value(1), QVariant(0));
}

// The number that was typed last is not in what was saved or converted, because no other field was clicked.
void TestEditorComplaints::whatIsTypedIsSavedConvertedAndAskedFor()
{
    const Typed stage;
    stage.type("12");
    QVERIFY(stage.trigger("save"));
    const zokit::ReadSettings saved = zokit::loadSettings(stage.folder.filePath(key("a.zoeffect.json")));
    QVERIFY(saved.settings);
    QCOMPARE(saved.settings->find(key("Color"))->values.value(key("bcs_contrast")), QVariant(12));
    stage.type("13");
    zokit::Queue& queue = stage.session().queue();
    queue.pause();
    stage.trigger("convert");
    stage.find<QAbstractButton>("start")->click();
    const zokit::Job job = queue.job(queue.rows().value(0));
    QCOMPARE(job.settings.find(key("Color"))->values.value(key("bcs_contrast")), QVariant(13));
    for (const int row : queue.rows())
        queue.cancel(row);
    queue.resume();
    QTRY_VERIFY_WITH_TIMEOUT(!queue.isRunning(), 60000);
    QVERIFY(stage.trigger("save"));
    stage.type("14");
    answer("closeQuestion", "stay");
    QVERIFY(!stage.window().close());
    QCOMPARE(stage.value(0), QVariant(14));
}

// Undo takes back more than what was done last.
void TestEditorComplaints::whatIsTypedIsAStepOfItsOwn()
{
    const Full stage;
    zokit::FileSettings* file = stage.file(0);
    const zokit::Identity first = file->item(key("Watermark"), 0);
    stage.session().setThing(first);
    settle();
    stage.find<QPlainTextEdit>("Watermark:wm_textcontent")->appendPlainText(key("you"));
    QVERIFY(stage.trigger("addText"));
    QCOMPARE(file->items(key("Watermark")).size(), 3);
    QVERIFY(stage.trigger("undo"));
    QCOMPARE(file->items(key("Watermark")).size(), 2);
    QCOMPARE(file->value(first, key("wm_textcontent")), QVariant(key("Hello\nyou")));
    QVERIFY(stage.trigger("undo"));
    QCOMPARE(file->value(first, key("wm_textcontent")), QVariant(key("Hello")));
}

// Escape in a dialog throws away what was typed in the window before.
void TestEditorComplaints::escapeInADialogKeepsWhatIsTyped()
{
    const Typed stage;
    stage.visitDialogs([](QWidget&) {}); // What they do when they are opened is done.
    const int steps = stage.session().history().position();
    stage.type("12");
    stage.visitDialogs([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    QCOMPARE(stage.value(0), QVariant(12));
    QCOMPARE(stage.find<QSpinBox>("Color:bcs_contrast")->value(), 12);
    QCOMPARE(stage.session().history().position(), steps + 1);
}

// The list jumps to its top when one of its rows changes.
void TestEditorComplaints::listOfFilesStaysWhereItIs()
{
    const Stage stage;
    for (int i = 0; i < 40; ++i) {
        zokit::Settings settings;
        settings.media.file = stage.folder.filePath(QStringLiteral("film%1.mp4").arg(i));
        settings.media.frame = QSize(640, 360);
        stage.session().project().add(settings);
    }
    stage.waitForFiles();
    settle();
    const QScrollBar* bar = stage.find<QListView>("fileList")->verticalScrollBar();
    QVERIFY(bar->maximum() > 300);
    stage.find<QListView>("fileList")->verticalScrollBar()->setValue(300);
    zokit::FileSettings* file = stage.file(2);
    file->setValue(file->type(key("Color")), key("bcs_contrast"), 5);
    stage.session().setThumbnail(stage.file(3)->file(), QPixmap(96, 54));
    zokit::Job job;
    job.input = file->media().file;
    job.output = stage.folder.filePath(key("out.mp4"));
    stage.session().queue().add(job);
    settle();
    QVERIFY(stage.session().files().rows().at(2).isEdited);
    QCOMPARE(stage.session().files().rows().at(2).work, key("waiting"));
    QCOMPARE(bar->value(), 300);
}

// The values jump to their top when something is put in another order.
void TestEditorComplaints::panelStaysWhereItIs()
{
    const Full stage;
    stage.window().resize(1024, 640);
    stage.session().setThing(stage.file(0)->item(key("Watermark"), 0));
    settle();
    QScrollBar* bar = stage.find<QScrollArea>("panel")->verticalScrollBar();
    QVERIFY(bar->maximum() > 100);
    bar->setValue(100);
    QVERIFY(stage.trigger("itemDown"));
    settle();
    QCOMPARE(stage.file(0)->items(key("Watermark")).indexOf(stage.session().thing()), 1);
    QCOMPARE(bar->value(), 100);
    stage.session().setThing(stage.file(0)->item(key("Watermark"), 0));
    settle();
    QCOMPARE(bar->value(), 0); // Another one begins at its beginning.
}

// A conversion that is cancelled leaves a broken file, under the name of a whole one.
void TestEditorComplaints::cancelledConversionLeavesNothing()
{
    const QTemporaryDir folder;
    const Stage stage({copyOf("long.ts", folder, "film.ts")});
    zokit::FileSettings* file = stage.file(0);
    file->setValue(file->output(), key("video-codec"), key("av1")); // Takes its time.
    file->setValue(file->output(), key("encoder-speed"), key("0"));
    stage.trigger("convert");
    stage.find<QAbstractButton>("start")->click();
    const auto names = [&folder] { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name); };
    QTRY_VERIFY_WITH_TIMEOUT(names().size() > 1, 60000);
    QVERIFY2(!names().contains(key("film-converted.mkv")), qPrintable(names().join(key(", "))));
    stage.find<QAbstractButton>("cancelRow")->click();
    QTRY_VERIFY_WITH_TIMEOUT(!stage.session().queue().isRunning(), 60000);
    QCOMPARE(stage.find<QTreeWidget>("queueList")->topLevelItem(0)->text(2), key("cancelled"));
    QCOMPARE(names(), QStringList{key("film.ts")});
}

// Names with a percent sign or an ampersand come out garbled.
void TestEditorComplaints::namesAreShownAsTheyAre()
{
    const QTemporaryDir folder;
    const QString name = key("%1 & 100 %2.mp4");
    const Stage stage({copyOf("plain.mp4", folder, "%1 & 100 %2.mp4"), copyOf("plain.mp4", folder, "%L1 & %n.mp4")});
    stage.trigger("addText");
    QCOMPARE(stage.session().files().index(0).data().toString().section(QLatin1Char('\n'), 0, 0), name);
    QCOMPARE(stage.window().windowTitle(), name + key("[*] - zoeditor"));
    stage.trigger("applyTo");
    QCOMPARE(stage.find<QLabel>("smallest")->accessibleName(), key("%L1 & %n.mp4, 160 x 120"));
    const auto titles = [](const QWidget& dialog) {
        QStringList texts; // Of labels that mark the letter behind an ampersand: two of them are one.
        for (const QLabel* label : dialog.findChildren<QLabel*>()) {
            if (label->buddy())
                texts.append(label->text());
        }
        return texts;
    };
    QVERIFY(titles(*stage.find("applyDialog")).contains(key("From %1 && 100 %2.mp4:")));
    stage.find("applyDialog")->close();
    settle();
    stage.trigger("tracks");
    QVERIFY(titles(*stage.find("tracksDialog")).contains(key("Tracks of %1 && 100 %2.mp4:")));
    stage.find("tracksDialog")->close();
    settle();
    stage.trigger("convert");
    QCOMPARE(stage.find<QTreeWidget>("plans")->topLevelItem(0)->text(0),
             QString::fromUtf8("%1 & 100 %2.mp4 \342\206\222 %1 & 100 %2-converted.mp4"));
    QCOMPARE(stage.find<QComboBox>("optionsOf")->itemText(1), key("Options of ") + name);
}

// Undo takes back that something was looked at.
void TestEditorComplaints::lookingIsNoStep()
{
    const Full stage;
    const QByteArray before = kitsupport::settingsOf(stage.session().project());
    const int steps = stage.session().history().count();
    stage.visitAll([](const QString&) {});
    stage.visitDialogs([](QWidget&) {});
    for (const char* action : {"showBefore", "showSplit", "showAfter", "zoomIn", "zoomFull", "zoomFit", "stepForward",
                               "stepBack", "findValue", "queue"})
        QVERIFY2(stage.trigger(action), action);
    stage.find<QSlider>("time")->setValue(200);
    stage.find<QLineEdit>("search")->setText(key("size"));
    stage.find<QLineEdit>("filter")->setText(key("lang"));
    stage.find<QComboBox>("order")->setCurrentIndex(1);
    settle();
    QCOMPARE(stage.session().history().count(), steps);
    QCOMPARE(kitsupport::settingsOf(stage.session().project()), before);
}

EDITOR_TEST_MAIN(TestEditorComplaints)
#include "tst_editor_complaints.moc"
