// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The windowed host of the guide: each of its features by mouse and keys, as a person uses it.

#include <functional>

#include <QtTest>
#include <QtWidgets>

#include <zokit/presets.h>

#include <panel.h>
#include <preview.h>
#include <window.h>

using zokit::Identity;

namespace {

constexpr int patience = 30000; // Milliseconds; only a hang takes so long.

QString word(const char* text)
{
    return QString::fromLatin1(text);
}

/// A film in \a folder, of that size, with sound in French and in English.
QString film(const QTemporaryDir& folder, const char* name, const char* size)
{
    const QString path = folder.filePath(word(name));
    const QString arguments =
        word("-v error -f lavfi -i testsrc2=s=%1:r=25:d=2 -f lavfi -i sine=d=2 -map 0 -map 1 -map 1 -c:v mpeg4 "
             "-c:a pcm_s16le -metadata:s:a:0 language=fra -metadata:s:a:1 language=eng %2")
            .arg(word(size), path);
    return QProcess::execute(zokit::findTools().ffmpeg, arguments.split(QLatin1Char(' '))) == 0 ? path : QString();
}

/// Does \a deed with the next dialog, as soon as it is there: what stops in one goes on then.
void withDialog(const std::function<void(QWidget* dialog)>& deed)
{
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, deed] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog)
            return;
        timer->stop();
        timer->deleteLater();
        deed(dialog);
    });
    timer->start(10);
}

/// Gives a path to the next dialog for files.
void giveFile(const QString& path)
{
    withDialog([path](QWidget* dialog) {
        dialog->findChild<QLineEdit*>(word("fileNameEdit"))->setText(path);
        QMetaObject::invokeMethod(dialog, "accept");
    });
}

/// What the next question said, after it was answered with \a button.
class Answer {
public:
    explicit Answer(QMessageBox::StandardButton button)
    {
        withDialog([this, button](QWidget* dialog) {
            auto* box = qobject_cast<QMessageBox*>(dialog);
            text = box->text();
            box->button(button)->click();
        });
    }

    QString text;
};

/// What the files of a stage are: names alone, which takes no time, or films.
enum class Of { Names, Films };

/// A window with a film of 320x240 and one of 160x120, in a folder of its own.
class Stage {
public:
    explicit Stage(Of files = Of::Names) : window(bench)
    {
        window.resize(1600, 900); // A pixel of the film is several of the view: what is dragged there is exact.
        window.show();
        if (files == Of::Films) {
            open({film(folder, "film.mkv", "320x240"), film(folder, "small.mkv", "160x120")});
        } else {
            bench.project().add(zokit::Media{folder.filePath(word("film.mkv")), QSize(320, 240), 2});
            bench.project().add(zokit::Media{folder.filePath(word("small.mkv")), QSize(160, 120), 2});
            bench.history().setClean();
        }
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QVERIFY2(bench.preview().view().scale >= 2.5, "The window is too small for what is tested here");
    }

    void open(const QStringList& paths)
    {
        bench.files().open(paths);
        waitForFiles();
    }

    void waitForFiles()
    {
        QVERIFY(QTest::qWaitFor([this] { return !bench.files().isOpening(); }, patience));
    }

    zokit::FileSettings& file(int row) const { return *bench.project().files().at(row); }
    zokit::FileSettings& current() const { return *bench.current(); }
    Identity type(const char* name) const { return current().type(word(name)); }
    QVariant value(const char* typeName, const char* key) const { return current().value(type(typeName), word(key)); }

    QListView& files() const { return viewOf(bench.filesModel()); }
    QListView& watermarks() const { return viewOf(bench.model()); }
    Panel& panel() const { return *dynamic_cast<Panel*>(window.findChild<QTreeView*>()); }
    QWidget& preview() const { return *window.centralWidget(); }

    /// What the rows of a list say that can be seen.
    static QStringList rowsOf(const QListView& view)
    {
        QStringList texts;
        for (int row = 0; row < view.model()->rowCount(view.rootIndex()); ++row) {
            if (!view.isRowHidden(row))
                texts.append(view.model()->index(row, 0, view.rootIndex()).data().toString());
        }
        return texts;
    }

    /// The action whose text begins so, "&" aside.
    QAction& action(const char* text) const
    {
        for (QAction* action : window.findChildren<QAction*>()) {
            if (action->text().remove(QLatin1Char('&')).startsWith(word(text)))
                return *action;
        }
        qFatal("There is no action %s", text);
    }

    /// As a menu does it: not when it, or its menu, cannot be chosen.
    void trigger(const char* text) const
    {
        QAction& chosen = action(text);
        const auto* bar = qobject_cast<const QWidget*>(chosen.parent());
        QVERIFY2(chosen.isEnabled() && bar->isEnabled(), text);
        chosen.trigger();
    }

    QPoint cell(const QModelIndex& index) const
    {
        panel().scrollTo(index);
        return panel().visualRect(index).center();
    }

    /// Clicks on the value, and gives its field.
    template <typename Field>
    Field* fieldOf(Identity thing, const char* key) const
    {
        panel().expand(bench.model().indexOf(thing));
        const QModelIndex value = bench.model().indexOf(thing, word(key), Model::ValueColumn);
        QTest::mouseClick(panel().viewport(), Qt::LeftButton, Qt::NoModifier, cell(value));
        return qobject_cast<Field*>(panel().indexWidget(value));
    }

    Identity addText(const char* text) const
    {
        trigger("Add a text");
        current().setValue(bench.chosen(), word("wm_textcontent"), word(text));
        return bench.chosen();
    }

    /// A point of the film's frame in the preview.
    QPoint point(double x, double y) const { return bench.preview().view().toView(QPointF(x, y)).toPoint(); }

    void drag(const QPoint& from, const QPoint& to) const
    {
        QTest::mousePress(&preview(), Qt::LeftButton, Qt::NoModifier, from);
        for (const QPoint& point : {(from + to) / 2, to}) {
            QMouseEvent move(QEvent::MouseMove, point, preview().mapToGlobal(point), Qt::NoButton, Qt::LeftButton,
                             Qt::NoModifier);
            QCoreApplication::sendEvent(&preview(), &move);
        }
    }

    void release() const { QTest::mouseRelease(&preview(), Qt::LeftButton); }

    QString status() const { return window.statusBar()->currentMessage(); }

    QTemporaryDir folder;
    zokit::Workbench bench;
    Window window;

private:
    QListView& viewOf(const QAbstractItemModel& model) const
    {
        for (QListView* view : window.findChildren<QListView*>()) {
            if (view->model() == &model)
                return *view;
        }
        qFatal("There is no such list");
    }
};

} // namespace

class TestNewcomer : public QObject {
    Q_OBJECT

private slots:
    void filesAreListed();
    void filesAreOpenedByTheDialog();
    void closedFileComesBackByUndo();
    void withoutAFileNothingCanBeSet();
    void watermarksAreAddedAndRemoved();
    void watermarksAreReordered();
    void imageIsAddedByTheDialog();
    void numberIsTyped();
    void escapeTakesANumberBack();
    void choiceIsTaken();
    void textIsWritten();
    void lineIsSetWhenItIsLeft();
    void switchIsClicked();
    void colourIsChosenInItsDialog();
    void refusalIsSaid();
    void fieldThatIsOpenIsOneStepOfItsOwn();
    void previewShowsWhatComesOut();
    void cropIsDragged();
    void escapeTakesADragBack();
    void watermarkIsDragged();
    void momentIsChosen();
    void defaultIsSavedAndWhatIsChosenReset();
    void applyingShowsWhatItChanges();
    void tracksAreChosenByTheRules();
    void settingsAreSavedAndOpened();
    void settingsOfOthersAreNotReplacedUnasked();
    void undoSaysWhatItDoes();
    void presetIsSavedAndLaidOver();
    void closingAsksForWhatIsNew();
};

void TestNewcomer::filesAreListed()
{
    Stage stage;
    QCOMPARE(Stage::rowsOf(stage.files()), QStringList({word("film.mkv"), word("small.mkv")}));
    QCOMPARE(stage.current().media().frame, QSize(320, 240));
    stage.files().setCurrentIndex(stage.files().model()->index(1, 0));
    QCOMPARE(stage.current().media().frame, QSize(160, 120));
    QVERIFY(!stage.window.isWindowModified());
}

void TestNewcomer::filesAreOpenedByTheDialog()
{
    Stage stage;
    giveFile(film(stage.folder, "third.mkv", "160x120"));
    stage.trigger("Open");
    stage.waitForFiles();
    QCOMPARE(Stage::rowsOf(stage.files()), QStringList({word("film.mkv"), word("small.mkv"), word("third.mkv")}));
}

void TestNewcomer::closedFileComesBackByUndo()
{
    Stage stage;
    stage.trigger("Close the file");
    QCOMPARE(Stage::rowsOf(stage.files()), QStringList({word("small.mkv")}));
    QCOMPARE(stage.current().media().frame, QSize(160, 120));
    stage.trigger("Undo: remove a file");
    QCOMPARE(Stage::rowsOf(stage.files()), QStringList({word("film.mkv"), word("small.mkv")}));
}

void TestNewcomer::withoutAFileNothingCanBeSet()
{
    Stage stage;
    stage.trigger("Close the file");
    stage.trigger("Close the file");
    QCOMPARE(stage.panel().model()->rowCount(), 0);
    for (const char* text : {"Reset all", "Add a text"})
        QVERIFY2(!qobject_cast<QWidget*>(stage.action(text).parent())->isEnabled(), text);
    stage.trigger("Undo");
    QCOMPARE(Stage::rowsOf(stage.files()), QStringList({word("small.mkv")}));
    stage.trigger("Add a text");
}

void TestNewcomer::watermarksAreAddedAndRemoved()
{
    Stage stage;
    QCOMPARE(Stage::rowsOf(stage.watermarks()), QStringList());
    stage.addText("one");
    stage.addText("two");
    QCOMPARE(Stage::rowsOf(stage.watermarks()), QStringList({word("one"), word("two")}));
    QCOMPARE(stage.panel().currentIndex().data().toString(), word("two"));
    stage.trigger("Remove");
    QCOMPARE(Stage::rowsOf(stage.watermarks()), QStringList({word("one")}));
    stage.trigger("Undo");
    QCOMPARE(Stage::rowsOf(stage.watermarks()), QStringList({word("one"), word("two")}));
    stage.bench.choose(stage.type("Crop"));
    stage.trigger("Remove");
    QCOMPARE(stage.status(), word("What was to be changed is not there any more."));
}

void TestNewcomer::watermarksAreReordered()
{
    Stage stage;
    for (const char* text : {"one", "two", "three"})
        stage.addText(text);
    stage.watermarks().setCurrentIndex(stage.watermarks().model()->index(2, 0, stage.watermarks().rootIndex()));
    stage.trigger("Up");
    QCOMPARE(Stage::rowsOf(stage.watermarks()), QStringList({word("one"), word("three"), word("two")}));
    stage.trigger("Down");
    stage.trigger("Up");
    stage.trigger("Up");
    QCOMPARE(Stage::rowsOf(stage.watermarks()), QStringList({word("three"), word("one"), word("two")}));
    QAbstractItemModel& model = *stage.watermarks().model();
    const QModelIndex root = stage.watermarks().rootIndex();
    const std::unique_ptr<QMimeData> dragged(model.mimeData({model.index(2, 0, root)}));
    QVERIFY(model.dropMimeData(dragged.get(), Qt::MoveAction, 0, 0, root));
    QCOMPARE(Stage::rowsOf(stage.watermarks()), QStringList({word("two"), word("three"), word("one")}));
}

void TestNewcomer::imageIsAddedByTheDialog()
{
    Stage stage;
    QImage logo(40, 20, QImage::Format_ARGB32);
    logo.fill(Qt::red);
    const QString path = stage.folder.filePath(word("logo.png"));
    QVERIFY(logo.save(path));
    giveFile(path);
    stage.trigger("Add an image");
    QCOMPARE(stage.current().value(stage.bench.chosen(), word("wm_imagewidth")).toInt(), 40);
    withDialog([](QWidget* dialog) { qobject_cast<QDialog*>(dialog)->reject(); });
    stage.trigger("Add an image");
    QCOMPARE(Stage::rowsOf(stage.watermarks()).size(), 1);
}

void TestNewcomer::numberIsTyped()
{
    Stage stage;
    const int steps = stage.bench.history().count();
    auto* field = stage.fieldOf<QDoubleSpinBox>(stage.type("Color"), "bcs_contrast");
    QVERIFY(field);
    field->selectAll();
    QTest::keyClicks(field, word("20"));
    QCOMPARE(stage.value("Color", "bcs_contrast").toInt(), 20); // The preview follows what is typed.
    QTest::keyClick(field, Qt::Key_Up);
    QCOMPARE(stage.value("Color", "bcs_contrast").toInt(), 21);
    QTest::keyClick(field, Qt::Key_Return);
    QTRY_COMPARE(stage.bench.history().count(), steps + 1);
    QCOMPARE(stage.bench.history().undoText().text(), word("change Contrast"));
}

void TestNewcomer::escapeTakesANumberBack()
{
    Stage stage;
    const int steps = stage.bench.history().count();
    auto* field = stage.fieldOf<QDoubleSpinBox>(stage.type("Color"), "bcs_contrast");
    QTest::keyClick(field, Qt::Key_Up);
    QCOMPARE(stage.value("Color", "bcs_contrast").toInt(), 1);
    QTest::keyClick(field, Qt::Key_Escape);
    QCOMPARE(stage.value("Color", "bcs_contrast").toInt(), 0);
    QCOMPARE(stage.bench.history().count(), steps);
    QVERIFY(stage.bench.history().canUndo()); // No gesture is left open.
}

void TestNewcomer::choiceIsTaken()
{
    Stage stage;
    const Identity text = stage.addText("Hello");
    auto* style = stage.fieldOf<QComboBox>(text, "wm_fontstyle");
    QVERIFY(style);
    QTest::keyClick(style, Qt::Key_Down);
    QCOMPARE(stage.current().value(text, word("wm_fontstyle")).toString(), word("Italic"));
    auto* turn = stage.fieldOf<QComboBox>(stage.type("Effect"), "crop_rotation_angle");
    QTest::keyClick(turn, Qt::Key_End);
    QCOMPARE(stage.value("Effect", "crop_rotation_angle").toInt(), 270);
    auto* font = stage.fieldOf<QFontComboBox>(text, "wm_fontname");
    QVERIFY(font);
    const QString family = font->itemText(0);
    font->setCurrentIndex(1);
    QTest::keyClick(font, Qt::Key_Home);
    QTest::keyClick(font, Qt::Key_Up);
    emit font->textActivated(family);
    QCOMPARE(stage.current().value(text, word("wm_fontname")).value<QFont>().family(), family);
}

void TestNewcomer::textIsWritten()
{
    Stage stage;
    const Identity text = stage.addText("Hello");
    const int steps = stage.bench.history().count();
    auto* field = stage.fieldOf<QPlainTextEdit>(text, "wm_textcontent");
    QVERIFY(field);
    field->selectAll();
    QTest::keyClicks(field, word("Bye"));
    QCOMPARE(Stage::rowsOf(stage.watermarks()), QStringList({word("Bye")}));
    stage.trigger("Undo"); // What is open is a step by then.
    QCOMPARE(Stage::rowsOf(stage.watermarks()), QStringList({word("Hello")}));
    QCOMPARE(stage.bench.history().count(), steps + 1);
}

void TestNewcomer::lineIsSetWhenItIsLeft()
{
    Stage stage;
    auto* field = stage.fieldOf<QLineEdit>(stage.current().tracks(), "audio-language");
    QVERIFY(field);
    QTest::keyClicks(field, word("eng,fra"));
    QCOMPARE(stage.current().values(stage.current().tracks()), zokit::Values());
    QTest::keyClick(field, Qt::Key_Return);
    QTRY_COMPARE(stage.current().value(stage.current().tracks(), word("audio-language")).toStringList(),
                 QStringList({word("eng"), word("fra")}));
    field = stage.fieldOf<QLineEdit>(stage.current().tracks(), "audio-language");
    QCOMPARE(field->text(), word("eng,fra"));
}

void TestNewcomer::switchIsClicked()
{
    Stage stage;
    const bool before = stage.value("Crop", "crop_keepaspectratio").toBool();
    QCOMPARE(stage.fieldOf<QWidget>(stage.type("Crop"), "crop_keepaspectratio"), nullptr);
    QCOMPARE(stage.value("Crop", "crop_keepaspectratio").toBool(), !before);
    QTest::keyClick(&stage.panel(), Qt::Key_F2);
    QCOMPARE(stage.value("Crop", "crop_keepaspectratio").toBool(), before);
}

void TestNewcomer::colourIsChosenInItsDialog()
{
    Stage stage;
    const Identity text = stage.addText("Hello");
    withDialog([](QWidget* dialog) {
        qobject_cast<QColorDialog*>(dialog)->setCurrentColor(Qt::red);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    stage.fieldOf<QWidget>(text, "wm_fontcolor");
    QCOMPARE(stage.current().value(text, word("wm_fontcolor")).value<QColor>(), QColor(Qt::red));
    withDialog([](QWidget* dialog) { qobject_cast<QDialog*>(dialog)->reject(); });
    stage.fieldOf<QWidget>(text, "wm_fontcolor");
    QCOMPARE(stage.current().value(text, word("wm_fontcolor")).value<QColor>(), QColor(Qt::red));
}

void TestNewcomer::refusalIsSaid()
{
    Stage stage;
    auto* field = stage.fieldOf<QLineEdit>(stage.current().tracks(), "subtitle-track");
    QTest::keyClicks(field, word("seven"));
    QTest::keyClick(field, Qt::Key_Return);
    QTRY_VERIFY2(stage.status().contains(word("seven")), qPrintable(stage.status()));
    QCOMPARE(stage.current().values(stage.current().tracks()), zokit::Values());
}

void TestNewcomer::fieldThatIsOpenIsOneStepOfItsOwn()
{
    Stage stage;
    const int steps = stage.bench.history().count();
    auto* field = stage.fieldOf<QDoubleSpinBox>(stage.type("Color"), "bcs_contrast");
    QTest::keyClick(field, Qt::Key_Up);
    stage.bench.setCurrent(&stage.file(1)); // The row goes, and its field with it.
    QCOMPARE(stage.bench.history().count(), steps + 1);
    QVERIFY(stage.bench.history().canUndo());
    stage.trigger("Undo: change Contrast");
    QCOMPARE(stage.value("Color", "bcs_contrast").toInt(), 0);
    QCOMPARE(stage.current().media().frame, QSize(320, 240)); // What was undone is shown.
}

void TestNewcomer::previewShowsWhatComesOut()
{
    Stage stage(Of::Films);
    const auto waitForOutput = [&] {
        return QTest::qWaitFor([&] { return !stage.bench.preview().frames().output().isNull(); }, patience);
    };
    QVERIFY(waitForOutput());
    const QColor before = stage.preview().grab().toImage().pixelColor(stage.point(40, 20));
    stage.current().setValue(stage.type("Color"), word("bcs_brightness"), -50);
    QVERIFY(waitForOutput());
    QVERIFY(stage.preview().grab().toImage().pixelColor(stage.point(40, 20)).lightness() < before.lightness());
}

void TestNewcomer::cropIsDragged()
{
    Stage stage;
    stage.current().setValue(stage.type("Crop"), word("crop_keepaspectratio"), false);
    const int steps = stage.bench.history().count();
    stage.drag(stage.point(0, 120), stage.point(60, 120));
    stage.release();
    QCOMPARE(stage.value("Crop", "crop_left").toInt(), 60);
    QCOMPARE(stage.value("Crop", "crop_width").toInt(), 260);
    QCOMPARE(stage.bench.history().count(), steps + 1);
    QCOMPARE(stage.preview().cursor().shape(), Qt::SizeHorCursor);
    stage.trigger("Undo: change Crop");
    QCOMPARE(stage.bench.preview().scene().crop, QRect(0, 0, 320, 240));
}

void TestNewcomer::escapeTakesADragBack()
{
    Stage stage;
    stage.drag(stage.point(0, 120), stage.point(60, 120));
    QTest::keyClick(&stage.preview(), Qt::Key_Escape);
    stage.release();
    QCOMPARE(stage.bench.preview().scene().crop, QRect(0, 0, 320, 240));
    QVERIFY(stage.bench.history().isClean());
}

void TestNewcomer::watermarkIsDragged()
{
    Stage stage;
    QImage logo(40, 20, QImage::Format_ARGB32);
    logo.fill(Qt::red);
    const QString path = stage.folder.filePath(word("logo.png"));
    QVERIFY(logo.save(path));
    const Identity mark =
        stage.current()
            .insert(word("Watermark"),
                    {{word("wm_imageurl"), path}, {word("wm_hposition"), 100}, {word("wm_vposition"), 60}})
            .item;
    stage.drag(stage.point(120, 70), stage.point(170, 105));
    stage.release();
    QCOMPARE(stage.current().value(mark, word("wm_hposition")).toInt(), 150);
    QCOMPARE(stage.current().value(mark, word("wm_vposition")).toInt(), 95);
    QCOMPARE(stage.watermarks().currentIndex().data(Model::ThingRole).toULongLong(), mark); // It is chosen everywhere.
    QCOMPARE(stage.panel().currentIndex().data(Model::ThingRole).toULongLong(), mark);
}

void TestNewcomer::momentIsChosen()
{
    Stage stage(Of::Films);
    stage.window.findChild<QSlider*>()->setValue(500);
    QCOMPARE(stage.bench.preview().frames().seconds(), 1.0);
}

void TestNewcomer::defaultIsSavedAndWhatIsChosenReset()
{
    Stage stage;
    stage.current().setValues(stage.type("Color"), {{word("bcs_contrast"), 20}, {word("bcs_brightness"), 10}});
    stage.bench.choose(stage.type("Color"));
    stage.trigger("Save as default");
    const zokit::FileSettings* fresh = stage.bench.project().add(zokit::Media{word("/new.mkv"), QSize(320, 240), 1});
    QCOMPARE(fresh->value(fresh->type(word("Color")), word("bcs_contrast")).toInt(), 20);
    stage.bench.project().forgetDefault(word("Color"));
    stage.panel().setCurrentIndex(stage.bench.model().indexOf(stage.type("Color"), word("bcs_contrast")));
    stage.trigger("Reset what is chosen");
    QCOMPARE(stage.value("Color", "bcs_contrast").toInt(), 0);
    QCOMPARE(stage.value("Color", "bcs_brightness").toInt(), 10);
    stage.panel().setCurrentIndex(stage.bench.model().indexOf(stage.type("Color")));
    stage.trigger("Reset what is chosen");
    QCOMPARE(stage.value("Color", "bcs_brightness").toInt(), 0);
    stage.addText("Hello");
    stage.trigger("Reset all");
    QCOMPARE(Stage::rowsOf(stage.watermarks()), QStringList());
}

void TestNewcomer::applyingShowsWhatItChanges()
{
    Stage stage;
    stage.current().setValue(stage.type("Color"), word("bcs_contrast"), 20);
    const zokit::FileSettings& other = stage.file(1);
    const Answer no(QMessageBox::No);
    stage.trigger("Apply to all files");
    QCOMPARE(no.text, word("Apply to all files?\n\nsmall.mkv: Colour: Contrast: 0 -> 20"));
    QCOMPARE(other.value(other.type(word("Color")), word("bcs_contrast")).toInt(), 0);
    const Answer yes(QMessageBox::Yes);
    stage.trigger("Apply to all files");
    QCOMPARE(other.value(other.type(word("Color")), word("bcs_contrast")).toInt(), 20);
    const Answer again(QMessageBox::Yes);
    stage.trigger("Apply to all files");
    QCOMPARE(again.text, word("Apply to all files?\n\nNothing changes."));
}

void TestNewcomer::tracksAreChosenByTheRules()
{
    Stage stage(Of::Films);
    stage.current().setValue(stage.current().tracks(), word("audio-language"), QStringList{word("eng")});
    const Answer yes(QMessageBox::Yes);
    stage.trigger("Choose tracks by the rules");
    QCOMPARE(yes.text, word("Choose these tracks?\n\ntrack 1 (audio, fra, pcm_s16le): not chosen\n"
                            "track 2 (audio, eng, pcm_s16le): chosen for its language, eng"));
    QVector<bool> selected;
    for (const Identity track : stage.current().items(word("Audio")))
        selected.append(stage.current().value(track, word("selected")).toBool());
    QCOMPARE(selected, QVector<bool>({false, true}));
}

void TestNewcomer::settingsAreSavedAndOpened()
{
    Stage stage(Of::Films);
    stage.current().setValue(stage.type("Color"), word("bcs_contrast"), 20);
    QVERIFY(stage.window.isWindowModified());
    stage.trigger("Save the settings");
    QVERIFY(!stage.window.isWindowModified());
    QCOMPARE(stage.status(), QString());
    Stage second;
    second.open({stage.folder.filePath(word("film.zoeffect.json"))});
    QCOMPARE(Stage::rowsOf(second.files()), QStringList({word("film.mkv"), word("small.mkv"), word("film.mkv")}));
    const zokit::FileSettings& opened = second.file(2);
    QCOMPARE(opened.value(opened.type(word("Color")), word("bcs_contrast")).toInt(), 20);
}

void TestNewcomer::settingsOfOthersAreNotReplacedUnasked()
{
    Stage stage;
    const QString path = stage.folder.filePath(word("small.zoeffect.json"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("{}") == 2);
    file.close();
    const Answer no(QMessageBox::No);
    stage.trigger("Save the settings");
    QCOMPARE(no.text, word("Replace these files?\n\n") + path);
    QCOMPARE(QFileInfo(path).size(), 2);
    const Answer yes(QMessageBox::Yes);
    stage.trigger("Save the settings");
    QVERIFY(QFileInfo(path).size() > 2);
}

void TestNewcomer::undoSaysWhatItDoes()
{
    Stage stage;
    stage.current().setValue(stage.type("Color"), word("bcs_contrast"), 20);
    QCOMPARE(stage.action("Undo").text(), word("&Undo: change Contrast"));
    QVERIFY(!stage.action("Redo").isEnabled());
    stage.trigger("Undo");
    QCOMPARE(stage.value("Color", "bcs_contrast").toInt(), 0);
    QCOMPARE(stage.bench.chosen(), stage.type("Color"));
    stage.trigger("Redo: change Contrast");
    QCOMPARE(stage.value("Color", "bcs_contrast").toInt(), 20);
}

void TestNewcomer::presetIsSavedAndLaidOver()
{
    Stage stage;
    auto* menu = qobject_cast<QMenu*>(stage.window.menuBar()->actions().last()->menu());
    const auto save = [&] {
        emit menu->aboutToShow();
        withDialog([](QWidget* dialog) {
            qobject_cast<QInputDialog*>(dialog)->setTextValue(word("mine & yours"));
            qobject_cast<QDialog*>(dialog)->accept();
        });
        stage.trigger("Save as preset");
    };
    stage.current().setValue(stage.type("Color"), word("bcs_contrast"), 20);
    save();
    QCOMPARE(stage.status(), QString());
    QCOMPARE(zokit::Presets().names(), QStringList({word("mine & yours")}));
    stage.bench.setCurrent(&stage.file(1));
    emit menu->aboutToShow();
    const Answer yes(QMessageBox::Yes);
    menu->actions().last()->trigger();
    QCOMPARE(yes.text, word("Lay preset mine & yours over this file?\n\nsmall.mkv: Colour: Contrast: 0 -> 20"));
    QCOMPARE(stage.value("Color", "bcs_contrast").toInt(), 20);
}

void TestNewcomer::closingAsksForWhatIsNew()
{
    Stage stage;
    stage.current().setValue(stage.type("Color"), word("bcs_contrast"), 20);
    const Answer no(QMessageBox::No);
    QVERIFY(!stage.window.close());
    const Answer yes(QMessageBox::Yes);
    QVERIFY(stage.window.close());
    stage.window.show();
    stage.trigger("Undo");
    QVERIFY(stage.window.close()); // Nothing is new, nothing is asked.
}

int main(int argc, char** argv)
{
    const QTemporaryDir home;
    for (const char* folder : {"XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME"})
        qputenv(folder, home.path().toUtf8());
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    TestNewcomer test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_newcomer.moc"
