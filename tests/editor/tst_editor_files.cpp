// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QMenu>
#include <QtTest>
#include <QtWidgets>

#include <zokit/history.h>
#include <zokit/opening.h>
#include <zokit/settingsfile.h>

#include <actions.h>
#include <filesmodel.h>
#include <filespane.h>
#include <instance.h>
#include <program.h>

#include "editorsupport.h"

using namespace editorsupport;
using kitsupport::key;
using zoeditor::FilesModel;

class TestEditorFiles : public QObject {
    Q_OBJECT

private slots:
    void whatIsDroppedIsOpenedAsACopy();
    void listIsThereBeforeTheFilesAreRead();
    void nameOfTwoLinesIsOneLine();
    void rowsLoseTheirEnds();
    void newFileIsChosen();
    void filmsAreOfferedFirst();
    void subtitlesAndPicturesAreNoFilms();
    void unreadableFileCostsOnlyItsRow();
    void folderGivesItsClips();
    void fileIsOpenedOnce();
    void fileThatComesConcernsNoOther();
    void tracksOfTheClipAreItems();
    void removedFilesComeBackByUndo();
    void seenFilesGetAPicture();
    void listIsFilteredAndSorted();
    void narrowListShowsStatesWhole();
    void severalAreChosenAtOnce();
    void settingsAreSavedAndOpenedAgain();
    void settingsOpenWithoutTheirClip();
    void settingsFollowTheSizeOfTheClip();
    void closingAsksForWhatIsUnsaved_data();
    void closingAsksForWhatIsUnsaved();
    void sessionThatDiedIsRecovered();
    void recoveredSessionKnowsItsSettingsFile_data();
    void recoveredSessionKnowsItsSettingsFile();
    void secondStartHandsItsFilesOver();
    void handedOverFilesWaitForAnOpenDialog();
    void handedOverFilesOutliveTheEditor();
    void filesThatAreReadWaitForWhatIsOpen_data();
    void filesThatAreReadWaitForWhatIsOpen();
    void filmsOfOneNameGetTheirOwnSettingsFiles();
};

namespace {

QStringList names(const QAbstractItemModel& model)
{
    QStringList result;
    for (int row = 0; row < model.rowCount(); ++row)
        result.append(QFileInfo(model.index(row, 0).data(FilesModel::PathRole).toString()).fileName());
    return result;
}

QString state(const Stage& stage, int row)
{
    return stage.session().files().index(row).data(FilesModel::StateRole).toString();
}

void edit(zokit::FileSettings* file)
{
    file->setValue(file->type(key("Color")), key("bcs_contrast"), 10);
}

QString written(const QTemporaryDir& folder, const char* name, const QByteArray& content)
{
    QFile file(folder.filePath(key(name)));
    file.open(QIODevice::WriteOnly);
    file.write(content);
    return file.fileName();
}

} // namespace

void TestEditorFiles::whatIsDroppedIsOpenedAsACopy()
{
    const Stage stage;
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(clips::clip(key("plain.mp4")))});
    const auto both = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(QPoint(50, 50), both, &data, Qt::LeftButton, Qt::NoModifier);
    enter.setDropAction(Qt::MoveAction);
    QCoreApplication::sendEvent(&stage.window(), &enter);
    QVERIFY(enter.isAccepted());
    QCOMPARE(enter.dropAction(), Qt::CopyAction);
    QDropEvent drop(QPointF(50, 50), both, &data, Qt::LeftButton, Qt::NoModifier);
    drop.setDropAction(Qt::MoveAction);
    QCoreApplication::sendEvent(&stage.window(), &drop);
    QCOMPARE(drop.dropAction(), Qt::CopyAction);
    stage.waitForFiles();
    QCOMPARE(names(stage.session().files()), QStringList{key("plain.mp4")});
    QVERIFY(QFile::exists(clips::clip(key("plain.mp4"))));
}

void TestEditorFiles::listIsThereBeforeTheFilesAreRead()
{
    const Stage stage;
    stage.session().open({clips::clip(key("plain.mp4")), clips::clip(key("sound.wav"))});
    QCOMPARE(names(stage.session().files()), QStringList({key("plain.mp4"), key("sound.wav")}));
    QCOMPARE(state(stage, 0), key("is being read"));
    QVERIFY(!stage.session().current());
    stage.waitForFiles();
    QCOMPARE(state(stage, 0), key("untouched"));
    QCOMPARE(stage.session().current(), stage.file(0));
    QCOMPARE(stage.session().files().index(0).data().toString(),
             QString::fromUtf8("plain.mp4\nuntouched\n160 x 120 \302\267 0:00"));
    QVERIFY(stage.session().mediaOf(stage.file(1)));
}

void TestEditorFiles::nameOfTwoLinesIsOneLine()
{
    const QTemporaryDir folder;
    const Stage stage({copyOf("plain.mp4", folder, "two\nlines.mp4")});
    const QStringList lines = stage.session().files().index(0).data().toString().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines.first(), key("two\\nlines.mp4"));
    QCOMPARE(stage.window().windowTitle(), key("two\\nlines.mp4[*] - zoeditor"));
}

void TestEditorFiles::rowsLoseTheirEnds()
{
    const Stage stage;
    const QFontMetrics metrics = stage.find<QListView>("fileList")->fontMetrics();
    const auto widthOf = [&](const char* text) { return metrics.horizontalAdvance(QString::fromUtf8(text)); };
    const QString dots(QChar(0x2026));
    using zoeditor::FilesPane;
    const QStringList whole{key("a.mp4"), key("done"), key("edited")};
    QCOMPARE(FilesPane::fitted(whole, metrics, 500), whole);
    const QStringList long_{key("a film with a long name.mp4"), key("failed: it is there already"),
                            key("edited and some more words")};
    const QStringList cut = FilesPane::fitted(long_, metrics, widthOf("a film with a long"));
    QVERIFY2(cut.at(0).startsWith(key("a ")) && cut.at(0).endsWith(key(".mp4")), qPrintable(cut.at(0)));
    QVERIFY2(cut.at(1).startsWith(key("failed: it")) && cut.at(1).endsWith(dots), qPrintable(cut.at(1)));
    QVERIFY2(cut.at(2).startsWith(key("edited and")) && cut.at(2).endsWith(dots), qPrintable(cut.at(2)));
    const QString dot = QString::fromUtf8(" \302\267 ");
    const QString about = key("1280 x 720") + dot + key("0:12");
    QCOMPARE(FilesPane::fitted({key("a.mp4"), key("done"), key("edited") + dot + about}, metrics,
                               metrics.horizontalAdvance(about + key("xx"))),
             QStringList({key("a.mp4"), key("done") + dot + key("edited"), about}));
    const QStringList reason =
        FilesPane::fitted({key("a.mp4"), key("is empty. Get it once more from there."), QString()}, metrics,
                          widthOf("is empty. Get it o"));
    QCOMPARE(reason.at(1), key("is empty. Get it"));
    QVERIFY2(reason.at(2).startsWith(key("once more")) && reason.at(2).endsWith(dots), qPrintable(reason.at(2)));
}

void TestEditorFiles::newFileIsChosen()
{
    const QTemporaryDir folder;
    const Stage stage({copyOf("plain.mp4", folder, "a.mp4"), copyOf("plain.mp4", folder, "b.mp4")});
    QCOMPARE(stage.session().current(), stage.file(0));
    stage.session().open({written(stage.folder, "empty.mp4", {}), copyOf("plain.mp4", folder, "c.mp4"),
                          copyOf("plain.mp4", folder, "d.mp4")});
    stage.waitForFiles();
    QCOMPARE(stage.session().files().rowCount(), 5);
    QCOMPARE(stage.session().current(), stage.file(3));
    QCOMPARE(stage.session().selected(), QVector<zokit::FileSettings*>{stage.file(3)});
}

void TestEditorFiles::filmsAreOfferedFirst()
{
    const Stage stage;
    QStringList filters;
    QTimer looking;
    connect(&looking, &QTimer::timeout, &looking, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        filters = dialog->nameFilters();
        dialog->reject();
    });
    looking.start(0);
    stage.trigger("addFiles");
    QCOMPARE(filters.size(), 3);
    QVERIFY2(filters.at(0).startsWith(key("Films and sound (")) && filters.at(0).contains(key(" *.mkv *.MKV ")),
             qPrintable(filters.at(0)));
    QVERIFY(!filters.at(0).contains(key("png")) && !filters.at(0).contains(key("srt")));
    QCOMPARE(filters.at(2), key("All files (*)"));
}

void TestEditorFiles::subtitlesAndPicturesAreNoFilms()
{
    const QTemporaryDir folder;
    const QString subtitle = copyOf("text.srt", folder, "film.srt");
    const QString logo = kitsupport::logoPath(20, 10);
    const Stage stage;
    const auto drop = [&stage](const QStringList& files) {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& file : files)
            urls.append(QUrl::fromLocalFile(file));
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&stage.window(), &enter);
        QDropEvent event(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&stage.window(), &event);
        stage.waitForFiles();
    };
    drop({subtitle}); // There is no film yet.
    QCOMPARE(stage.session().files().rowCount(), 0);
    QCOMPARE(stage.status(),
             key("No film: film.srt. Subtitles and pictures belong to one. Choose it, then Add subtitle "
                 "file or Add image in the menu Edit."));
    drop({copyOf("plain.mp4", folder, "film.mp4"), logo}); // Which film it is for is not known.
    QCOMPARE(names(stage.session().files()), QStringList{key("film.mp4")});
    QVERIFY(stage.status().startsWith(key("No film: ")));
    QVERIFY(stage.file(0)->items(key("Watermark")).isEmpty());
    drop({subtitle, logo});
    QCOMPARE(stage.session().files().rowCount(), 1);
    const zokit::FileSettings* film = stage.file(0);
    const QVector<zokit::Identity> texts = film->items(key("Subtitle"));
    const QVector<zokit::Identity> marks = film->items(key("Watermark"));
    QCOMPARE(film->value(texts.value(texts.size() - 1), key("file")), QVariant(subtitle));
    QCOMPARE(marks.size(), 1);
    QCOMPARE(film->value(marks.first(), key("wm_imageurl")), QVariant(logo));
    QCOMPARE(stage.session().thing(), marks.first());
    QCOMPARE(stage.status(), QFileInfo(logo).fileName() + key(" is a watermark of film.mp4 now."));
    stage.session().open({logo});
    QCOMPARE(stage.session().files().rowCount(), 1);
}

void TestEditorFiles::unreadableFileCostsOnlyItsRow()
{
    const Stage stage;
    const QString empty = written(stage.folder, "empty.mp4", {});
    stage.session().open({empty, stage.folder.filePath(key("none.mp4")), clips::clip(key("plain.mp4"))});
    stage.waitForFiles();
    QVERIFY(!stage.file(0));
    QVERIFY(!stage.file(1));
    QVERIFY(stage.file(2));
    QCOMPARE(state(stage, 0), key("is empty. Get it once more from where it came from."));
    QVERIFY2(state(stage, 1).startsWith(key("no such file")), qPrintable(state(stage, 1)));
    QCOMPARE(state(stage, 2), key("untouched"));

    // Nothing of another file is shown, and edited, while one is chosen that cannot be read.
    auto* list = stage.find<QAbstractItemView>("fileList");
    const auto choose = [list](int row) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->model()->index(row, 0)).center());
    };
    for (const int row : {0, 1}) {
        choose(row);
        QVERIFY(!stage.session().current());
        QCOMPARE(stage.session().shownProblem(), row);
        QCOMPARE(list->selectionModel()->selectedRows().size(), 1);
        QCOMPARE(list->currentIndex().row(), row);
        QVERIFY(!stage.window().actions().action("save")->isEnabled());
    }
    choose(2);
    QCOMPARE(stage.session().current(), stage.file(2));
    QCOMPARE(stage.session().shownProblem(), -1);
}

void TestEditorFiles::folderGivesItsClips()
{
    const Stage stage;
    QDir(stage.folder.path()).mkpath(key("films/more"));
    copyOf("plain.mp4", stage.folder, "films/b.mp4");
    copyOf("plain.mp4", stage.folder, "films/a.mp4");
    copyOf("sound.wav", stage.folder, "films/more/c.wav");
    written(stage.folder, "films/notes.txt", "no clip");
    stage.session().open({stage.folder.filePath(key("films"))});
    stage.waitForFiles();
    QCOMPARE(names(stage.session().files()), QStringList({key("a.mp4"), key("b.mp4"), key("c.wav")}));
}

void TestEditorFiles::fileIsOpenedOnce()
{
    const QString clip = clips::clip(key("plain.mp4"));
    const Stage stage({clips::clip(key("sound.wav")), clip});
    QCOMPARE(stage.session().current(), stage.file(0));
    stage.session().open({clip});
    QCOMPARE(stage.session().files().rowCount(), 2);
    QCOMPARE(stage.session().current(), stage.file(1));
}

void TestEditorFiles::fileThatComesConcernsNoOther()
{
    constexpr int many = 12;
    const Stage stage;
    const auto add = [&stage](int number) {
        zokit::Settings settings;
        settings.media.file = stage.folder.filePath(QStringLiteral("film%1.mp4").arg(number));
        settings.media.frame = QSize(640, 360);
        stage.session().project().add(settings);
        stage.waitForFiles();
        settle();
    };
    for (int i = 0; i < many; ++i)
        add(i);
    const QSignalSpy values(&stage.session().model(), &zokit::SettingsModel::dataChanged);
    QSignalSpy rows(&stage.session().files(), &zoeditor::FilesModel::dataChanged);
    add(many);
    QCOMPARE(values.count(), 0);
    QVERIFY(!rows.isEmpty());
    while (!rows.isEmpty())
        QCOMPARE(rows.takeFirst().at(0).toModelIndex().row(), many);
}

void TestEditorFiles::tracksOfTheClipAreItems()
{
    const Stage stage({clips::clip(key("languages.mkv"))});
    QCOMPARE(stage.file(0)->items(key("Audio")).size(), 2);
    QCOMPARE(stage.file(0)->items(key("Subtitle")).size(), 2);
}

void TestEditorFiles::removedFilesComeBackByUndo()
{
    const Stage stage({clips::clip(key("plain.mp4")), clips::clip(key("sound.wav")), clips::clip(key("plain.mkv"))});
    edit(stage.file(0));
    QCOMPARE(state(stage, 0), key("edited"));
    auto* list = stage.find<QListView>("fileList");
    list->selectAll();
    QVERIFY(stage.trigger("removeFiles"));
    QCOMPARE(stage.session().files().rowCount(), 0);
    QVERIFY(!stage.session().current());
    QVERIFY(stage.trigger("undo"));
    QCOMPARE(names(stage.session().files()).size(), 3);
    const int row = stage.session().files().rowOf(clips::clip(key("plain.mp4")));
    QCOMPARE(state(stage, row), key("edited"));
    QVERIFY(stage.session().mediaOf(stage.file(row)));
    QVERIFY(stage.session().current());
}

void TestEditorFiles::seenFilesGetAPicture()
{
    const Stage stage({clips::clip(key("red709.mkv")), clips::clip(key("sound.wav"))});
    const auto& rows = stage.session().files().rows();
    QTRY_VERIFY_WITH_TIMEOUT(!rows.at(0).thumbnail.isNull(), 60000);
    QCOMPARE(rows.at(0).thumbnail.size(),
             2 * stage.find<QAbstractItemView>("fileList")->iconSize()); // Sharp on fine screens, too.
    const QColor middle = rows.at(0).thumbnail.toImage().pixelColor(64, 36);
    QVERIFY(middle.red() > 245 && middle.green() < 10 && middle.blue() < 10);
    QVERIFY(rows.at(1).thumbnail.isNull());
}

void TestEditorFiles::listIsFilteredAndSorted()
{
    const Stage stage({clips::clip(key("sound.wav")), clips::clip(key("plain.mp4")), clips::clip(key("wide.mkv"))});
    const QAbstractItemModel& shown = *stage.find<QListView>("fileList")->model();
    const auto order = [&](const char* name) {
        auto* box = stage.find<QComboBox>("order");
        box->setCurrentIndex(box->findText(key(name)));
        return names(shown);
    };
    const QString sound = key("sound.wav");
    const QString plain = key("plain.mp4");
    const QString wide = key("wide.mkv");
    QCOMPARE(order("by name"), QStringList({plain, sound, wide}));
    QCOMPARE(order("by size"), QStringList({sound, plain, wide}));
    QCOMPARE(order("as added"), QStringList({sound, plain, wide}));
    QTest::keyClicks(stage.find<QLineEdit>("filter"), key("WAV"));
    QCOMPARE(names(shown), QStringList{sound});
    stage.find<QLineEdit>("filter")->clear();
    edit(stage.file(1));
    QTest::keyClicks(stage.find<QLineEdit>("filter"), key("edited"));
    QCOMPARE(names(shown), QStringList{plain});
}

void TestEditorFiles::narrowListShowsStatesWhole()
{
    const Stage stage;
    stage.session().open({copyOf("plain.mp4", stage.folder, "a film with a name that is longer than the list.mp4")});
    stage.waitForFiles();
    edit(stage.file(0));
    auto* list = stage.find<QListView>("fileList");
    QCOMPARE(list->iconSize(), QSize(64, 36));
    stage.window().resize(1024, 640);
    stage.find<QSplitter>("columns")->setSizes({0, 800, 200});
    settle();
    constexpr int margins = 6; // Around the text.
    const int room = list->viewport()->width() - list->iconSize().width() - margins;
    for (const char* state :
         {"untouched", "is being read", "interrupted", "unber\303\274hrt", "wird gelesen", "unterbrochen"}) {
        const int width = list->fontMetrics().horizontalAdvance(QString::fromUtf8(state));
        QVERIFY2(width <= room,
                 qPrintable(QStringLiteral("%1: %2 > %3").arg(QString::fromUtf8(state)).arg(width).arg(room)));
    }
    QCOMPARE(list->model()->index(0, 0).data().toString().section(QLatin1Char('\n'), 1, 1), key("edited"));
}

void TestEditorFiles::severalAreChosenAtOnce()
{
    const Stage stage({clips::clip(key("sound.wav")), clips::clip(key("plain.mp4")), clips::clip(key("wide.mkv"))});
    auto* list = stage.find<QListView>("fileList");
    const auto click = [&](int row, Qt::KeyboardModifiers keys) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, keys,
                          list->visualRect(list->model()->index(row, 0)).center());
    };
    click(2, Qt::NoModifier);
    QCOMPARE(stage.session().current(), stage.file(2));
    QCOMPARE(stage.session().selected(), QVector<zokit::FileSettings*>{stage.file(2)});
    click(0, Qt::ControlModifier);
    QCOMPARE(stage.session().current(), stage.file(0));
    QCOMPARE(stage.session().selected(), QVector<zokit::FileSettings*>({stage.file(0), stage.file(2)}));
}

void TestEditorFiles::settingsAreSavedAndOpenedAgain()
{
    const Stage stage;
    const QString clip = copyOf("plain.mp4", stage.folder, "film.mp4");
    stage.session().open({clip});
    stage.waitForFiles();
    edit(stage.file(0));
    QVERIFY(stage.window().isWindowModified());
    QVERIFY(stage.trigger("save"));
    QVERIFY(!stage.window().isWindowModified());
    QCOMPARE(state(stage, 0), key("saved"));
    const QString saved = stage.folder.filePath(key("film.zoeffect.json"));
    QCOMPARE(stage.status(), key("Saved as ") + saved);
    const Stage again({saved});
    QCOMPARE(again.session().files().rows().at(0).path, clip);
    QCOMPARE(again.file(0)->value(again.file(0)->type(key("Color")), key("bcs_contrast")), QVariant(10));
    QCOMPARE(again.session().settingsFileOf(again.file(0)), saved);
}

void TestEditorFiles::settingsOpenWithoutTheirClip()
{
    const Stage stage;
    const QString path = written(stage.folder, "gone.zoeffect.json",
                                 R"({"zoeffect": 1, "media": {"file": "gone.mp4", "width": 160, "height": 120},
                                     "effects": [{"type": "Color", "values": {"bcs_contrast": 7}}]})");
    const QString broken = written(stage.folder, "broken.json", "{");
    stage.session().open({path, broken});
    stage.waitForFiles();
    QVERIFY(stage.file(0));
    QCOMPARE(stage.file(0)->value(stage.file(0)->type(key("Color")), key("bcs_contrast")), QVariant(7));
    QVERIFY2(state(stage, 0).startsWith(key("no such file")), qPrintable(state(stage, 0)));
    QVERIFY(!stage.session().problemOf(stage.file(0)->file()).isEmpty());
    QVERIFY(!stage.file(1));
    QVERIFY2(state(stage, 1).contains(key("1")), qPrintable(state(stage, 1))); // Line and column.
}

void TestEditorFiles::settingsFollowTheSizeOfTheClip()
{
    const Stage stage;
    copyOf("plain.mp4", stage.folder, "film.mp4");
    const QString path = written(stage.folder, "film.zoeffect.json",
                                 R"({"zoeffect": 1, "media": {"file": "film.mp4", "width": 320, "height": 240},
            "effects": [{"type": "Crop", "values": {"crop_left": 40, "crop_top": 20, "crop_width": 200, "crop_height": 100}}]})");
    stage.session().open({path});
    stage.waitForFiles();
    const zokit::FileSettings& file = *stage.file(0);
    QCOMPARE(file.media().frame, QSize(160, 120));
    QCOMPARE(file.value(file.type(key("Crop")), key("crop_left")), QVariant(20));
    QCOMPARE(file.value(file.type(key("Crop")), key("crop_width")), QVariant(100));
    QVERIFY2(stage.status().contains(key("320x240")), qPrintable(stage.status()));
}

void TestEditorFiles::closingAsksForWhatIsUnsaved_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<bool>("saves");
    QTest::newRow("save") << QByteArray("saveAll") << true << true;
    QTest::newRow("discard") << QByteArray("discard") << true << false;
    QTest::newRow("stay") << QByteArray("stay") << false << false;
}

void TestEditorFiles::closingAsksForWhatIsUnsaved()
{
    QFETCH(const QByteArray, button);
    QFETCH(const bool, closes);
    QFETCH(const bool, saves);
    const Stage stage;
    stage.session().open({copyOf("plain.mp4", stage.folder, "film.mp4")});
    stage.waitForFiles();
    edit(stage.file(0));
    answer("closeQuestion", button.constData());
    QCOMPARE(stage.window().close(), closes);
    QCOMPARE(QFile::exists(stage.folder.filePath(key("film.zoeffect.json"))), saves);
    QCOMPARE(QDir(stage.folder.filePath(key("journal"))).entryList(QDir::Files).isEmpty(), closes);
}

void TestEditorFiles::sessionThatDiedIsRecovered()
{
    const Stage stage;
    const QString journals = stage.folder.filePath(key("left"));
    {
        zokit::Project project;
        zokit::Journal journal(project, journals);
        zokit::FileSettings* file = project.add(zokit::Media{clips::clip(key("plain.mp4")), QSize(160, 120), 0.4});
        edit(file);
        project.add(zokit::settingsOf(*zokit::probe(zokit::findTools(), clips::clip(key("plain.mkv"))).media));
        QVERIFY(journal.flush());
    } // Without a good end.
    answer("recoverQuestion", "recover");
    zoeditor::Editor editor(journals);
    editor.start({});
    QCOMPARE(editor.session().files().rowCount(), 2);
    zokit::FileSettings* file = editor.session().project().files().first();
    QVERIFY(file);
    QCOMPARE(file->value(file->type(key("Color")), key("bcs_contrast")), QVariant(10));
    QTRY_VERIFY_WITH_TIMEOUT(editor.session().mediaOf(file), 60000);
    QVERIFY(editor.session().history().canUndo());
    QCOMPARE(editor.session().left().size(), 0);
    const zokit::FileSettings* untouched = editor.session().project().files().at(1);
    QTRY_VERIFY_WITH_TIMEOUT(editor.session().mediaOf(untouched), 60000);
    QCOMPARE(editor.session().unsaved(), QVector<zokit::FileSettings*>{file});
}

void TestEditorFiles::recoveredSessionKnowsItsSettingsFile_data()
{
    QTest::addColumn<bool>("isSavedLater");
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<int>("contrast");
    QTest::addColumn<QString>("settingsFile"); // Of the row.
    QTest::addColumn<int>("left");
    QTest::newRow("recovered") << false << QByteArray("recover") << 10 << key("mine.zoeffect.json") << 0;
    QTest::newRow("saved by another since") << true << QByteArray("recover") << 10 << QString() << 0;
    QTest::newRow("as it was saved") << false << QByteArray("openSaved") << 3 << key("mine.zoeffect.json") << 1;
    QTest::newRow("discarded") << false << QByteArray("discard") << -1 << QString() << 0;
}

void TestEditorFiles::recoveredSessionKnowsItsSettingsFile()
{
    QFETCH(const bool, isSavedLater);
    QFETCH(const QByteArray, button);
    QFETCH(const int, contrast);
    QFETCH(const QString, settingsFile);
    QFETCH(const int, left);
    const QTemporaryDir folder;
    const QString journals = folder.filePath(key("journals"));
    const QString saved = folder.filePath(key("mine.zoeffect.json"));
    const auto contrastOf = [](zokit::FileSettings* file) { return file->type(key("Color")); };
    {
        zoeditor::Editor editor(journals);
        editor.start({copyOf("plain.mp4", folder, "film.mp4")});
        zoeditor::Session& session = editor.session();
        QTRY_VERIFY_WITH_TIMEOUT(session.mediaOf(session.current()), 60000);
        session.current()->setValue(contrastOf(session.current()), key("bcs_contrast"), 3);
        QVERIFY(session.saveAs(session.current(), saved).isEmpty());
        QFile file(saved); // Long ago, or just now: whatever the file system's clock does.
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(isSavedLater ? 3600 : -3600),
                                 QFileDevice::FileModificationTime));
        edit(session.current());
        session.current()->insert(key("Watermark"), {{key("wm_textcontent"), key("written last")}});
        const auto isKept = [&journals] {
            QFile journal(QDir(journals).entryInfoList({key("*.journal")}).value(0).filePath());
            return journal.open(QIODevice::ReadOnly) && journal.readAll().contains("written last");
        };
        QTRY_VERIFY_WITH_TIMEOUT(isKept(), 60000);
    } // Without a good end.
    QString asked;
    QTimer looking;
    connect(&looking, &QTimer::timeout, this, [&] {
        if (auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
            asked = question->informativeText();
    });
    looking.start(0);
    answer("recoverQuestion", button.constData());
    zoeditor::Editor editor(journals);
    editor.start({});
    looking.stop();
    QVERIFY2(asked.startsWith(key(isSavedLater ? "mine.zoeffect.json was saved later, "
                                               : "mine.zoeffect.json was saved before that, ")),
             qPrintable(asked));
    zoeditor::Session& session = editor.session();
    QTRY_VERIFY_WITH_TIMEOUT(contrast < 0 || session.mediaOf(session.current()), 60000);
    QCOMPARE(session.files().rowCount(), contrast < 0 ? 0 : 1);
    QCOMPARE(session.left().size(), left);
    QCOMPARE(QDir(journals).entryList({key("*.settings")}).size(), left + (settingsFile.isEmpty() ? 0 : 1));
    if (contrast < 0)
        return;
    QCOMPARE(session.current()->value(contrastOf(session.current()), key("bcs_contrast")), QVariant(contrast));
    QCOMPARE(QFileInfo(session.files().rows().at(0).settingsFile).fileName(), settingsFile);
    QCOMPARE(session.isModified(), contrast == 10);
}

void TestEditorFiles::secondStartHandsItsFilesOver()
{
    const QString name = QStringLiteral("zoeditor-test-%1").arg(QCoreApplication::applicationPid());
    zoeditor::Instance first(name);
    QVERIFY(!first.handOver({}));
    QStringList heard;
    connect(&first, &zoeditor::Instance::filesHandedOver, this, [&](const QStringList& files) { heard += files; });
    zoeditor::Instance second(name);
    QVERIFY(second.handOver({QStringLiteral("/films/a b.mp4"), QStringLiteral("c.mp4")}));
    QTRY_COMPARE(heard, QStringList({QStringLiteral("/films/a b.mp4"), QDir().absoluteFilePath(key("c.mp4"))}));
}

void TestEditorFiles::handedOverFilesWaitForAnOpenDialog()
{
    const Stage stage({clips::clip(key("plain.mp4"))});
    stage.trigger("presets");
    auto* dialog = stage.find<QDialog>("presetsDialog");
    stage.editor->openHandedOver({clips::clip(key("wide.mkv"))});
    settle();
    QCOMPARE(stage.session().files().rowCount(), 1);
    dialog->reject();
    QTRY_COMPARE(stage.session().files().rowCount(), 2);
    stage.waitForFiles();
    stage.editor->openHandedOver({clips::clip(key("plain.avi"))});
    QCOMPARE(stage.session().files().rowCount(), 3);
    stage.waitForFiles();
}

void TestEditorFiles::handedOverFilesOutliveTheEditor()
{
    zoeditor::Instance instance(QStringLiteral("zoeditor-test-%1").arg(QCoreApplication::applicationPid()));
    QStringList titles;
    QTimer looking;
    connect(&looking, &QTimer::timeout, this, [&] {
        auto* window = qobject_cast<zoeditor::Window*>(QApplication::activeWindow());
        const QString title = window ? window->windowTitle().section(QLatin1Char('['), 0, 0) : QString();
        if (!title.contains(QLatin1Char('.')) || titles.contains(title))
            return; // The file is being read, or a question is open.
        titles.append(title);
        if (titles.size() == 1) {
            window->actions().action("addText")->trigger();
            answer("closeQuestion", "discard",
                   [&](QWidget&) { emit instance.filesHandedOver({clips::clip(key("wide.mkv"))}); });
        }
        window->close();
    });
    looking.start(20);
    const QTemporaryDir journals;
    QCOMPARE(zoeditor::edit(instance, {clips::clip(key("plain.mp4"))}, journals.path()), 0);
    QCOMPARE(titles, QStringList({key("plain.mp4"), key("wide.mkv")}));
}

void TestEditorFiles::filesThatAreReadWaitForWhatIsOpen_data()
{
    QTest::addColumn<QByteArray>("action");
    for (const char* action : {"applyTo", "presets", "tracks", "convert"})
        QTest::newRow(action) << QByteArray(action);
    QTest::newRow("a menu") << QByteArray();
}

void TestEditorFiles::filesThatAreReadWaitForWhatIsOpen()
{
    QFETCH(const QByteArray, action);
    const Stage stage({clips::clip(key("plain.mp4")), clips::clip(key("plain.mkv"))});
    stage.session().select({stage.file(0), stage.file(1)});
    QMenu menu(&stage.window());
    menu.addAction(key("anything"));
    if (action.isEmpty())
        menu.popup(stage.window().pos());
    else
        QVERIFY(stage.trigger(action.constData()));
    stage.session().open({clips::clip(key("wide.mkv"))});
    QTRY_VERIFY(stage.session().isHoldingFiles());
    QCOMPARE(stage.session().project().files().size(), 2);
    QCOMPARE(stage.session().selected().size(), 2);
    if (QWidget* dialog = QApplication::activeModalWidget())
        dialog->close();
    menu.close();
    QTRY_COMPARE(stage.session().project().files().size(), 3);
    QCOMPARE(stage.session().current(), stage.file(2));
}

void TestEditorFiles::filmsOfOneNameGetTheirOwnSettingsFiles()
{
    const Stage stage;
    const auto path = [&](const char* name) { return stage.folder.filePath(key(name)); };
    stage.session().open({editorsupport::copyOf("plain.mp4", stage.folder, "film.mp4")});
    stage.waitForFiles();
    QCOMPARE(stage.session().settingsFileOf(stage.file(0)), path("film.zoeffect.json"));
    stage.session().open({editorsupport::copyOf("plain.mkv", stage.folder, "film.mkv"),
                          editorsupport::copyOf("plain.mkv", stage.folder, "film.2.mkv")});
    stage.waitForFiles();
    QCOMPARE(stage.session().settingsFileOf(stage.file(0)), path("film.mp4.zoeffect.json"));
    QCOMPARE(stage.session().settingsFileOf(stage.file(1)), path("film.mkv.zoeffect.json"));
    QCOMPARE(stage.session().settingsFileOf(stage.file(2)), path("film.2.zoeffect.json"));
    QVERIFY(stage.session().saveAs(stage.file(0), path("film.zoeffect.json")).isEmpty());
    QCOMPARE(stage.session().settingsFileOf(stage.file(1)), path("film.mkv.zoeffect.json"));
}

EDITOR_TEST_MAIN(TestEditorFiles)
#include "tst_editor_files.moc"
