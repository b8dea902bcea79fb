// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QtTest>
#include <QtWidgets>

#include <zokit/history.h>

#include <actions.h>
#include <appearance.h>

#include "editorsupport.h"

using namespace editorsupport;
using kitsupport::key;

class TestEditorUndo : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { init(); }

    void menuSaysWhatIsUndone();
    void undoGoesAcrossFilesAndShowsWhatItUndoes();
    void fileThatComesIsNotWhatIsUndone();
    void undoAllGivesTheFirstState();
    void historyIsAListToJumpIn();
    void historyNamesFilesAndValues();
    void newStepReplacesWhatWasUndone();
    void gestureThatIsOpenIsUndoneAsAStep_data();
    void gestureThatIsOpenIsUndoneAsAStep();
    void gestureThatIsOpenIsAStepToJumpFrom();
    void whatIsTypedIsAStepWhenTheWindowGoes();
    void stepIsSaidInTheLanguageOfTheMoment_data();
    void stepIsSaidInTheLanguageOfTheMoment();
};

namespace {

void set(const Stage& stage, int row, const char* valueKey, int value)
{
    zokit::FileSettings* file = stage.file(row);
    stage.session().setCurrent(file);
    stage.session().setThing(file->type(key("Color")));
    file->setValue(stage.session().thing(), key(valueKey), value);
}

QVariant value(const Stage& stage, int row, const char* valueKey)
{
    return stage.file(row)->value(stage.file(row)->type(key("Color")), key(valueKey));
}

QString text(const Stage& stage, const char* action)
{
    return stage.window().actions().action(action)->text().remove(QLatin1Char('&'));
}

QListView* history(const Stage& stage)
{
    QCoreApplication::processEvents();
    return stage.window().findChild<QListView*>(key("history"));
}

int rows(const QListView* list)
{
    return list->model()->rowCount();
}

void jumpTo(QListView* list, int row)
{
    list->setCurrentIndex(list->model()->index(row, 0));
}

} // namespace

void TestEditorUndo::init()
{
    kitsupport::clearSavedDefaults();
    zoeditor::appearance::setLanguage(key("en"));
}

void TestEditorUndo::menuSaysWhatIsUndone()
{
    const Stage stage({clips::clip(key("plain.mp4"))});
    QCOMPARE(text(stage, "undo"), key("Undo: add a file"));
    QCOMPARE(text(stage, "redo"), key("Redo"));
    set(stage, 0, "bcs_contrast", 5);
    QCOMPARE(text(stage, "undo"), key("Undo: change Contrast"));
    QVERIFY(stage.trigger("undo"));
    QCOMPARE(text(stage, "redo"), key("Redo: change Contrast"));
    QVERIFY(stage.trigger("redo"));
    QCOMPARE(value(stage, 0, "bcs_contrast"), QVariant(5));
    QVERIFY(!stage.window().actions().action("redo")->isEnabled());
}

void TestEditorUndo::undoGoesAcrossFilesAndShowsWhatItUndoes()
{
    const Stage stage({clips::clip(key("plain.mp4")), clips::clip(key("wide.mkv"))});
    set(stage, 0, "bcs_contrast", 5);
    set(stage, 1, "bcs_contrast", 6);
    set(stage, 0, "bcs_contrast", 7);
    stage.trigger("undo");
    QCOMPARE(value(stage, 0, "bcs_contrast"), QVariant(5));
    stage.trigger("undo");
    QCOMPARE(value(stage, 1, "bcs_contrast"), QVariant(0));
    stage.trigger("undo");
    QCOMPARE(value(stage, 0, "bcs_contrast"), QVariant(0));
    QCOMPARE(stage.session().current(), stage.file(0));
    QCOMPARE(stage.session().thing(), stage.file(0)->type(key("Color")));
    stage.trigger("redo");
    stage.trigger("redo");
    QCOMPARE(stage.session().current(), stage.file(1));
    QCOMPARE(value(stage, 1, "bcs_contrast"), QVariant(6));
}

void TestEditorUndo::fileThatComesIsNotWhatIsUndone()
{
    const Stage stage({clips::clip(key("plain.mp4"))});
    stage.session().open({clips::clip(key("wide.mkv")), clips::clip(key("lossless.mkv"))});
    set(stage, 0, "bcs_contrast", 5);
    set(stage, 0, "bcs_contrast", 6);
    QVERIFY(stage.trigger("undo"));
    stage.waitForFiles(); // They have been read only now.
    QCOMPARE(stage.session().files().rowCount(), 3);
    QCOMPARE(text(stage, "redo"), key("Redo: change Contrast"));
    QVERIFY(stage.trigger("undo"));
    QCOMPARE(value(stage, 0, "bcs_contrast"), QVariant(0));
    QCOMPARE(stage.session().project().files().size(), 3);
    QVERIFY(stage.trigger("undo")); // The last one that came.
    QCOMPARE(stage.session().project().files().size(), 2);
}

void TestEditorUndo::undoAllGivesTheFirstState()
{
    const Stage stage({clips::clip(key("plain.mp4"))});
    const zokit::Settings first = stage.file(0)->settings();
    set(stage, 0, "bcs_contrast", 5);
    stage.trigger("addText");
    stage.trigger("addText");
    stage.trigger("itemUp");
    stage.trigger("removeItem");
    stage.file(0)->resetAll();
    while (stage.session().history().position() > 1)
        QVERIFY(stage.trigger("undo"));
    QVERIFY(stage.file(0)->settings() == first);
    QVERIFY(!stage.window().isWindowModified());
    stage.trigger("undo");
    QCOMPARE(stage.session().files().rowCount(), 0);
    QVERIFY(!stage.window().actions().action("undo")->isEnabled());
}

void TestEditorUndo::historyIsAListToJumpIn()
{
    const Stage stage({clips::clip(key("plain.mp4"))});
    set(stage, 0, "bcs_contrast", 5);
    set(stage, 0, "bcs_saturation", 6);
    QListView* list = history(stage);
    const auto texts = [list] {
        QStringList all;
        for (int i = 0; i < rows(list); ++i)
            all.append(list->model()->index(i, 0).data().toString());
        return all;
    };
    QCOMPARE(texts(), QStringList({key("Beginning"), key("add a file: plain.mp4"), key("change Contrast: 5"),
                                   key("change Saturation: 6")}));
    QCOMPARE(list->currentIndex().row(), 3);
    jumpTo(list, 1);
    history(stage);
    QCOMPARE(value(stage, 0, "bcs_contrast"), QVariant(0));
    QCOMPARE(texts(), QStringList({key("Beginning"), key("add a file: plain.mp4"), key("change Contrast: 5 (undone)"),
                                   key("change Saturation: 6 (undone)")}));
    jumpTo(list, 3);
    history(stage);
    QCOMPARE(value(stage, 0, "bcs_saturation"), QVariant(6));
    QCOMPARE(list->currentIndex().row(), 3);
}

void TestEditorUndo::historyNamesFilesAndValues()
{
    const Stage stage({clips::clip(key("plain.mp4")), clips::clip(key("wide.mkv"))});
    set(stage, 0, "bcs_contrast", 5);
    zokit::FileSettings* file = stage.file(1);
    const zokit::Identity mark =
        file->insert(key("Watermark"), {{key("wm_istextwatermark"), true}, {key("wm_textcontent"), key("Hello")}}).item;
    file->setValue(mark, key("wm_textcontent"), key("Two\nlines"));
    stage.session().history().beginGesture(zokit::Message(zokit::Message::Code::StepChange, {key("Rectangle")}));
    file->setValue(file->type(key("Crop")), key("crop_left"), 10);
    file->setValue(file->type(key("Crop")), key("crop_width"), 100);
    stage.session().history().endGesture();
    QListView* list = history(stage);
    const auto text = [list](int row) { return list->model()->index(row, 0).data().toString(); };
    QCOMPARE(text(1), key("add a file: plain.mp4"));
    QCOMPARE(text(3), key("change Contrast: 5 (plain.mp4)"));
    QCOMPARE(text(4), key("add watermark (wide.mkv)"));
    QCOMPARE(text(5), key("change Text: Two\\nlines (wide.mkv)"));
    QVERIFY2(text(6).startsWith(key("change Rectangle: ")) && text(6).contains(key("Left 10 px"))
                 && text(6).contains(key("Width 100 px")),
             qPrintable(text(6)));
    stage.session().remove({1});
    history(stage);
    QCOMPARE(text(7), key("remove a file: wide.mkv"));
}

void TestEditorUndo::newStepReplacesWhatWasUndone()
{
    const Stage stage({clips::clip(key("plain.mp4"))});
    set(stage, 0, "bcs_contrast", 5);
    stage.trigger("undo");
    set(stage, 0, "bcs_saturation", 6);
    QCOMPARE(rows(history(stage)), 3);
    QVERIFY(!stage.window().actions().action("redo")->isEnabled());
}

void TestEditorUndo::gestureThatIsOpenIsUndoneAsAStep_data()
{
    QTest::addColumn<bool>("isOwnerGone");
    QTest::newRow("whoever began it is there") << false;
    QTest::newRow("whoever began it has gone") << true;
}

void TestEditorUndo::gestureThatIsOpenIsUndoneAsAStep()
{
    QFETCH(const bool, isOwnerGone);
    const Stage stage({clips::clip(key("plain.mp4"))});
    auto owner = std::make_unique<QObject>();
    stage.session().beginGesture(owner.get(), zokit::Message(zokit::Message::Code::StepChange, {key("Contrast")}));
    set(stage, 0, "bcs_contrast", 5);
    set(stage, 0, "bcs_contrast", 6);
    if (isOwnerGone)
        owner.reset();
    QVERIFY(stage.trigger("undo"));
    QCOMPARE(value(stage, 0, "bcs_contrast"), QVariant(0));
    QVERIFY(!stage.session().isInGesture());
    QCOMPARE(stage.session().history().count(), 2);
}

void TestEditorUndo::gestureThatIsOpenIsAStepToJumpFrom()
{
    const Stage stage({clips::clip(key("plain.mp4"))});
    QObject owner;
    stage.session().beginGesture(&owner, zokit::Message(zokit::Message::Code::StepChange, {key("Contrast")}));
    set(stage, 0, "bcs_contrast", 5);
    jumpTo(history(stage), 0);
    QCOMPARE(stage.session().files().rowCount(), 0);
    QVERIFY(stage.trigger("redo"));
    QVERIFY(stage.trigger("redo"));
    QCOMPARE(value(stage, 0, "bcs_contrast"), QVariant(5));
}

/// A field gives its value when it loses the focus, and the window has to be whole then.
void TestEditorUndo::whatIsTypedIsAStepWhenTheWindowGoes()
{
    const Full stage;
    auto second = std::make_unique<zoeditor::Window>(&stage.session());
    second->show();
    second->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(second.get()));
    stage.session().setThing(stage.file(0)->type(key("Color")));
    settle();
    auto* field = second->findChild<QSpinBox*>(key("Color:bcs_contrast"));
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, key("7"));
    QCOMPARE(value(stage, 0, "bcs_contrast"), QVariant(0));
    second.reset();
    QCOMPARE(value(stage, 0, "bcs_contrast"), QVariant(7));
    QVERIFY(stage.trigger("undo"));
    QCOMPARE(value(stage, 0, "bcs_contrast"), QVariant(0));
}

void TestEditorUndo::stepIsSaidInTheLanguageOfTheMoment_data()
{
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("german");
    QTest::addColumn<QString>("listed");
    const auto row = [](const char* where, const char* english, const char* german, const char* listed) {
        QTest::newRow(where) << key(english) << QString::fromUtf8(german) << QString::fromUtf8(listed);
    };
    row("Color:bcs_contrast:slider", "change Contrast", "Kontrast \303\244ndern", "Kontrast \303\244ndern: 1");
    row("Watermark:anchor", "change Anchor", "Anker \303\244ndern", "Anker \303\244ndern: Links 3 px, Oben 2 px");
    row("Tracks:forced-subtitles", "change Forced subtitles", "Erzwungene Untertitel \303\244ndern",
        "Erzwungene Untertitel \303\244ndern: Ja");
    row("apply", "change Choice of tracks", "Wahl der Spuren \303\244ndern", "Wahl der Spuren \303\244ndern: Ja");
    row("Output:container", "change Container", "Container \303\244ndern", "Container \303\244ndern: mp4");
}

void TestEditorUndo::stepIsSaidInTheLanguageOfTheMoment()
{
    QFETCH(const QString, english);
    QFETCH(const QString, german);
    QFETCH(const QString, listed);
    const QByteArray where = QTest::currentDataTag();
    const Stage stage({clips::clip(key("languages.mkv"))});
    const zokit::FileSettings* file = stage.file(0);
    const zokit::Identity mark = stage.file(0)->insert(key("Watermark"), {{key("wm_textcontent"), key("Hello")}}).item;
    const QString type = QString::fromLatin1(where).section(QLatin1Char(':'), 0, 0);
    if (type == key("apply") || type == key("Output"))
        stage.trigger(type == key("apply") ? "tracks" : "convert");
    else
        stage.session().setThing(type == key("Watermark") ? mark
                                 : type == key("Tracks")  ? file->tracks()
                                                          : file->type(type));
    settle();
    if (where == "apply")
        stage.find<QCheckBox>("forcedSubtitles")->click();
    auto* field = stage.find(where);
    if (auto* button = qobject_cast<QAbstractButton*>(field))
        button->click();
    else
        QTest::keyClick(field, qobject_cast<QSlider*>(field) ? Qt::Key_Right : Qt::Key_Down);
    settle();
    QCOMPARE(text(stage, "undo"), key("Undo: ") + english);
    for (auto* dialog : stage.window().findChildren<QDialog*>())
        dialog->close();
    settle();
    stage.trigger("german");
    settle();
    QCOMPARE(text(stage, "undo"), QString::fromUtf8("R\303\274ckg\303\244ngig: ") + german);
    const QListView* list = history(stage);
    QCOMPARE(list->currentIndex().data().toString(), listed);
}

EDITOR_TEST_MAIN(TestEditorUndo)
#include "tst_editor_undo.moc"
