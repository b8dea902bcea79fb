// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QtTest>
#include <QtWidgets>

#include <zokit/history.h>
#include <zokit/properties.h>
#include <zokit/settingsmodel.h>

#include <actions.h>

#include "editorsupport.h"

using namespace editorsupport;
using kitsupport::key;
using Model = zokit::SettingsModel;

using Act = std::function<void(QWidget*)>;
Q_DECLARE_METATYPE(Act)

class TestEditorPanel : public QObject {
    Q_OBJECT

private slots:
    void init() { kitsupport::clearSavedDefaults(); }

    void everyValueHasItsField();
    void headingsStandOnceAndSaySomething_data();
    void headingsStandOnceAndSaySomething();
    void whatHasNoValuesSaysSo();
    void fieldsSetTheirValue_data();
    void fieldsSetTheirValue();
    void ruleForTracksChoosesAtOnce();
    void boundsAndUnitsAreTheTables();
    void sliderMoveIsOneStep();
    void heldKeyIsOneStep();
    void typedTextIsOneStepAndUndoIsTheWindows();
    void wheelChangesOnlyTheFieldWithTheFocus();
    void numberOutsideTheBoundsIsRefused_data();
    void numberOutsideTheBoundsIsRefused();
    void refusedValueIsToldAndPutBack();
    void marksTellHowAValueStandsToItsDefault();
    void revertTakesOneValueBack();
    void revertTakesAnEffectOrAFileBack();
    void undoTakesBackWhatIsBeingTyped();
    void menusOfFieldsHaveNoUndo_data();
    void menusOfFieldsHaveNoUndo();
    void colourFollowsItsDialogAsOneStep();
    void colourIsAsBeforeWhenItsDialogIsCancelled();
    void anchorIsChosen();
    void typesAndItemsTellWhatIsChanged();
    void checkBoxSwitchesAnEffect();
    void itemsComeGoAndMove();
    void itemsAreDraggedWithinTheirType_data();
    void itemsAreDraggedWithinTheirType();
    void searchFindsEveryValue();
    void foundValueGetsTheFocus();
    void chosenPlaceIsKeptFromFileToFile();
    void fieldGoesWhileItsFileIsChosen();
};

namespace {

/// An editor with one clip and a text watermark.
class Edited : public Stage {
public:
    Edited() : Stage({clips::clip(key("plain.mp4"))})
    {
        watermark =
            file(0)
                ->insert(key("Watermark"), {{key("wm_istextwatermark"), true}, {key("wm_textcontent"), key("Hello")}})
                .item;
    }

    /// Shows the values of a type, or of its item; the field of that value.
    template <typename T = QWidget>
    T* field(const char* type, const char* valueKey, int item = -1) const
    {
        session().setThing(item < 0 ? file(0)->type(key(type)) : file(0)->item(key(type), item));
        QCoreApplication::processEvents();
        return find<T>((QByteArray(type) + ':' + valueKey).constData());
    }
    QVariant value(const char* type, const char* valueKey, int item = -1) const
    {
        return file(0)->value(item < 0 ? file(0)->type(key(type)) : file(0)->item(key(type), item), key(valueKey));
    }
    int steps() const { return session().history().position(); }

    zokit::Identity watermark = 0;
};

/// The row of the tree that is called \a name, within \a parent or anywhere at the top.
QModelIndex rowOf(const QTreeView* tree, const char* name, const QModelIndex& parent = {})
{
    for (int row = 0; row < tree->model()->rowCount(parent); ++row) {
        const QModelIndex index = tree->model()->index(row, 0, parent);
        if (index.data().toString() == QString::fromUtf8(name))
            return index;
    }
    return {};
}

QString mark(const QModelIndex& row)
{
    return row.siblingAtColumn(1).data().toString();
}

} // namespace

void TestEditorPanel::everyValueHasItsField()
{
    const Edited stage;
    int fields = 0;
    for (const zokit::Property& property : zokit::properties()) {
        if (!property.suits.testFlag(zokit::Suit::Type) || property.control == zokit::Control::None
            || !zokit::effectTypes().contains(property.type))
            continue;
        const QWidget* field = stage.field(property.type.toLatin1().constData(), property.key.toLatin1().constData());
        QVERIFY2(field, qPrintable(property.key));
        QCOMPARE(field->accessibleName(), property.label());
        QVERIFY2(field->toolTip().contains(property.help()), qPrintable(property.key));
        QVERIFY2(field->toolTip().contains(property.key), qPrintable(property.key));
        QCOMPARE(field->focusPolicy(), Qt::StrongFocus);
        ++fields;
    }
    QVERIFY(fields > 40);
}

void TestEditorPanel::headingsStandOnceAndSaySomething_data()
{
    QTest::addColumn<QStringList>("headings");
    const auto row = [](const char* type, const char* headings) {
        QTest::newRow(type) << key(headings).split(key("; "));
    };
    row("Color", "Colour"); // Its only group is called the same.
    row("Audio_Speed", "Speed; Use; Speed");
    row("Audio_Fade_Inout", "Fade in and out; Use; Beginning; End"); // Its values take turns.
    row("Audio_Echo", "Echo; Use; Gain; Second voice");
}

void TestEditorPanel::headingsStandOnceAndSaySomething()
{
    QFETCH(const QStringList, headings);
    const Edited stage;
    stage.session().setThing(stage.file(0)->type(QString::fromLatin1(QTest::currentDataTag())));
    settle();
    QMap<int, QString> found; // By their place from above.
    for (const auto* label : stage.find<QScrollArea>("panel")->widget()->findChildren<QLabel*>()) {
        if (label->font().bold())
            found.insert(label->y(), label->text());
    }
    QCOMPARE(QStringList(found.values()), headings);
}

void TestEditorPanel::whatHasNoValuesSaysSo()
{
    const Stage stage({clips::clip(key("languages.mkv"))});
    const zokit::FileSettings* file = stage.file(0);
    const auto isSaid = [&] {
        settle();
        return stage.find("noValues") != nullptr;
    };
    for (const zokit::Identity thing :
         {file->type(key("Audio")), file->item(key("Audio"), 0), file->item(key("Effect"), 0)}) {
        stage.session().setThing(thing);
        QVERIFY(isSaid());
    }
    stage.session().setThing(file->type(key("Color")));
    QVERIFY(!isSaid());
}

void TestEditorPanel::fieldsSetTheirValue_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<int>("item");
    QTest::addColumn<QByteArray>("valueKey");
    QTest::addColumn<Act>("act");
    QTest::addColumn<QVariant>("value");
    const auto typed = [](const char* text) {
        return Act([text](QWidget* field) {
            QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(field, key(text));
            QTest::keyClick(field, Qt::Key_Return);
        });
    };
    const auto pressed = [](Qt::Key which) { return Act([which](QWidget* field) { QTest::keyClick(field, which); }); };
    QTest::newRow("number") << QByteArray("Crop") << -1 << QByteArray("crop_left") << typed("12") << QVariant(12);
    QTest::newRow("number by key") << QByteArray("Color") << -1 << QByteArray("bcs_contrast") << pressed(Qt::Key_Up)
                                   << QVariant(1);
    QTest::newRow("fraction") << QByteArray("Watermark") << -1 << QByteArray("wm_vposfactor") << typed("0.25")
                              << QVariant(0.25);
    QTest::newRow("slider") << QByteArray("Color") << -1 << QByteArray("bcs_saturation:slider")
                            << pressed(Qt::Key_Right) << QVariant(1);
    QTest::newRow("check box") << QByteArray("Audio_Echo") << -1 << QByteArray("audio_effect_flag")
                               << pressed(Qt::Key_Space) << QVariant(true);
    QTest::newRow("choice") << QByteArray("Audio_BandPass") << -1 << QByteArray("audio_bandpass_type")
                            << pressed(Qt::Key_End) << QVariant(3);
    QTest::newRow("text") << QByteArray("Watermark") << 0 << QByteArray("wm_textcontent") << Act([](QWidget* field) {
        QTest::keyClick(field, Qt::Key_End);
        QTest::keyClicks(field, key(" you"));
    }) << QVariant(key("Hello you"));
    QTest::newRow("font size") << QByteArray("Watermark") << 0 << QByteArray("wm_fontsize") << typed("30")
                               << QVariant(30);
    QTest::newRow("a word of the output")
        << QByteArray("Output") << -1 << QByteArray("pixel-format") << typed("yuv420p") << QVariant(key("yuv420p"));
    QTest::newRow("a size of the output")
        << QByteArray("Output") << -1 << QByteArray("size") << typed("80x60") << QVariant(key("80x60"));
    QTest::newRow("a list") << QByteArray("Tracks") << -1 << QByteArray("audio-language") << typed("fra,eng")
                            << QVariant(QStringList({key("fra"), key("eng")}));
}

void TestEditorPanel::fieldsSetTheirValue()
{
    QFETCH(const QByteArray, type);
    QFETCH(const int, item);
    QFETCH(const QByteArray, valueKey);
    QFETCH(const Act, act);
    QFETCH(const QVariant, value);
    const Edited stage;
    if (type == "Tracks" || type == "Output")
        stage.session().setThing(type == "Tracks" ? stage.file(0)->tracks() : stage.file(0)->output());
    else
        stage.field(type.constData(), valueKey.constData(), item);
    QCoreApplication::processEvents();
    auto* field = stage.find<QWidget>((type + ':' + valueKey).constData());
    QVERIFY(field);
    const zokit::Identity thing = stage.session().thing();
    const int steps = stage.steps();
    field->setFocus();
    act(field);
    stage.find<QWidget>("search")->setFocus(); // What is typed ends there.
    QCoreApplication::processEvents();
    const QString plainKey = QString::fromLatin1(valueKey).section(QLatin1Char(':'), 0, 0);
    QCOMPARE(stage.file(0)->value(thing, plainKey), value);
    QCOMPARE(stage.steps(), steps + 1);
}

void TestEditorPanel::ruleForTracksChoosesAtOnce()
{
    const Stage stage({clips::clip(key("languages.mkv"))}); // Its sounds are fra and eng.
    zokit::FileSettings* file = stage.file(0);
    stage.session().setThing(file->tracks());
    settle();
    const int steps = stage.session().history().position();
    auto* field = stage.find<QLineEdit>("Tracks:audio-language");
    QVERIFY(field);
    field->setFocus();
    QTest::keyClicks(field, key("eng"));
    stage.find<QWidget>("search")->setFocus();
    settle();
    const zokit::Identity english = file->item(key("Audio"), 1);
    QVERIFY(file->value(english, key("selected")).toBool());
    QCOMPARE(stage.session().history().position(), steps + 1);
    stage.session().undo();
    QVERIFY(!file->value(english, key("selected")).toBool());
    QVERIFY(!file->value(file->tracks(), key("audio-language")).isValid());
}

void TestEditorPanel::boundsAndUnitsAreTheTables()
{
    const Edited stage;
    const auto* left = stage.field<QSpinBox>("Crop", "crop_left");
    QCOMPARE(left->minimum(), 0);
    QCOMPARE(left->maximum(), 160);
    QCOMPARE(left->suffix(), key(" px"));
    const auto* width = stage.field<QSpinBox>("Crop", "crop_width"); // 0, which is the whole frame.
    QCOMPARE(width->text(), QString());
    QCOMPARE(width->findChild<QLineEdit*>()->placeholderText(), key("not set"));
    stage.session().setThing(stage.file(0)->output());
    settle();
    QCOMPARE(stage.find<QLineEdit>("Output:name")->placeholderText(), key("not set"));
    const zokit::Identity text = stage.file(0)->insert(key("Watermark"), {{key("wm_istextwatermark"), true}}).item;
    stage.session().setThing(text);
    settle();
    QCOMPARE(stage.find<QPlainTextEdit>("Watermark:wm_textcontent")->placeholderText(), key("not set"));
    QCOMPARE(stage.find<QFontComboBox>("Watermark:wm_fontname")->lineEdit()->placeholderText(), key("not set"));
    const auto* delay = stage.field<QSlider>("Audio_Flanger", "audio_flanger_delay:slider");
    QCOMPARE(delay->maximum(), 30);
    const auto* contrast = stage.field<QSlider>("Color", "bcs_contrast:slider");
    QCOMPARE(contrast->minimum(), -50);
    QCOMPARE(contrast->maximum(), 50);
    const auto* kind = stage.field<QComboBox>("Audio_BandPass", "audio_bandpass_type");
    QCOMPARE(kind->count(), 4);
    QCOMPARE(kind->itemText(1), key("High pass"));
}

void TestEditorPanel::sliderMoveIsOneStep()
{
    const Edited stage;
    auto* slider = stage.field<QSlider>("Color", "bcs_contrast:slider");
    const int steps = stage.steps();
    QStyleOptionSlider option;
    option.initFrom(slider);
    option.minimum = slider->minimum();
    option.maximum = slider->maximum();
    option.sliderPosition = slider->sliderPosition();
    option.orientation = Qt::Horizontal;
    const QPoint handle =
        slider->style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider).center();
    drag(slider, handle, handle + QPoint(10, 0));
    QVERIFY(stage.value("Color", "bcs_contrast").toInt() > 0);
    QCOMPARE(stage.steps(), steps + 1);
    QCOMPARE(stage.find<QSpinBox>("Color:bcs_contrast")->value(), stage.value("Color", "bcs_contrast").toInt());
    QVERIFY(stage.trigger("undo"));
    QCOMPARE(stage.value("Color", "bcs_contrast"), QVariant(0));
    QCOMPARE(slider->value(), 0);
}

void TestEditorPanel::heldKeyIsOneStep()
{
    const Edited stage;
    auto* field = stage.field<QSpinBox>("Color", "bcs_contrast");
    const int steps = stage.steps();
    field->setFocus();
    const auto send = [field](QEvent::Type type, bool isRepeat) {
        QKeyEvent event(type, Qt::Key_Up, Qt::NoModifier, QString(), isRepeat);
        QCoreApplication::sendEvent(field, &event);
    };
    send(QEvent::KeyPress, false);
    for (int i = 0; i < 4; ++i) {
        send(QEvent::KeyRelease, true);
        send(QEvent::KeyPress, true);
        QCoreApplication::processEvents();
    }
    send(QEvent::KeyRelease, false);
    QCoreApplication::processEvents();
    QVERIFY(stage.value("Color", "bcs_contrast").toInt() >= 5); // The field repeats by itself, too.
    QCOMPARE(stage.steps(), steps + 1);
}

void TestEditorPanel::typedTextIsOneStepAndUndoIsTheWindows()
{
    const Edited stage;
    stage.window().activateWindow();
    auto* field = stage.field<QPlainTextEdit>("Watermark", "wm_textcontent", 0);
    QVERIFY(!field->isUndoRedoEnabled());
    field->setFocus();
    QTest::keyClick(field, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(field, key(" you"));
    QCOMPARE(stage.value("Watermark", "wm_textcontent", 0).toString(), key("Hello you"));
    QVERIFY(stage.window().actions().action("undo")->isEnabled());
    QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(stage.value("Watermark", "wm_textcontent", 0).toString(), key("Hello"));
    QCOMPARE(field->toPlainText(), key("Hello"));
    QVERIFY(stage.file(0)->owns(stage.watermark));
}

void TestEditorPanel::wheelChangesOnlyTheFieldWithTheFocus()
{
    const Edited stage;
    auto* field = stage.field<QSpinBox>("Color", "bcs_contrast");
    auto* slider = stage.find<QSlider>("Color:bcs_contrast:slider");
    stage.find<QWidget>("search")->setFocus();
    const auto roll = [](QWidget* widget) {
        QWheelEvent event(QPointF(5, 5), widget->mapToGlobal(QPointF(5, 5).toPoint()), QPoint(), QPoint(0, 120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(widget, &event);
    };
    roll(field);
    roll(slider);
    roll(field->findChild<QLineEdit*>());
    QCOMPARE(stage.value("Color", "bcs_contrast"), QVariant(0));
    field->setFocus();
    roll(field);
    QCOMPARE(stage.value("Color", "bcs_contrast"), QVariant(1));
}

void TestEditorPanel::numberOutsideTheBoundsIsRefused_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("said"); // At the end of what is said.
    const auto row = [](const char* type, const char* field, const char* typed, const QVariant& value,
                        const char* said) {
        QTest::newRow(typed) << key(type) << key(field) << key(typed) << value << key(said);
    };
    row("Color", "bcs_contrast", "999", 0, "999 is not between -50 and 50.");
    row("Color", "bcs_contrast", "-51", 0, "-51 is not between -50 and 50.");
    row("Color", "bcs_contrast", "50", 50, "");
    row("Color", "bcs_contrast", "7", 7, "");
    row("Crop", "crop_width", "99999", key("source_val"), "99999 is not between 1 and 160.");
    row("Crop", "crop_width", "0", key("source_val"), "0 is not between 1 and 160.");
    row("Crop", "crop_width", "160", 160, "");
    row("Audio_Speed", "audio_speed_factor", "201", 100, "201 is not between 0 and 200.");
}

void TestEditorPanel::numberOutsideTheBoundsIsRefused()
{
    QFETCH(const QString, type);
    QFETCH(const QString, key);
    QFETCH(const QString, typed);
    const Stage stage({clips::clip(kitsupport::key("plain.mkv"))});
    zokit::FileSettings* file = stage.file(0);
    const zokit::Identity thing = file->type(type);
    stage.session().setThing(thing);
    QCoreApplication::processEvents();
    auto* box = stage.find<QAbstractSpinBox>(qPrintable(type + QLatin1Char(':') + key));
    QVERIFY(box);
    const QString before = box->text();
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, typed);
    QTest::keyClick(box, Qt::Key_Return);
    QTEST(file->value(thing, key), "value");
    QFETCH(const QString, said);
    QVERIFY2(stage.status().contains(said), qPrintable(stage.status()));
    if (!said.isEmpty())
        QTRY_COMPARE(box->text(), before);
}

void TestEditorPanel::refusedValueIsToldAndPutBack()
{
    const Edited stage;
    stage.session().setThing(stage.file(0)->output());
    QCoreApplication::processEvents();
    auto* field = stage.find<QLineEdit>("Output:size");
    field->setFocus();
    QTest::keyClicks(field, key("large"));
    QTest::keyClick(field, Qt::Key_Return);
    QVERIFY2(stage.status().contains(key("large")), qPrintable(stage.status()));
    QCOMPARE(field->text(), QString());
    QVERIFY(!stage.file(0)->value(stage.file(0)->output(), key("size")).isValid());
}

void TestEditorPanel::marksTellHowAValueStandsToItsDefault()
{
    const Edited stage;
    stage.field("Color", "bcs_contrast");
    const zokit::Identity colour = stage.file(0)->type(key("Color"));
    const auto* mark = stage.find<QLabel>("Color:bcs_contrast:mark");
    const auto* revert = stage.find<QToolButton>("Color:bcs_contrast:revert");
    QCOMPARE(mark->text(), key("default"));
    QVERIFY(!revert->isEnabled());
    stage.file(0)->setValue(colour, key("bcs_contrast"), 20);
    QCOMPARE(mark->text(), key("changed"));
    QVERIFY(revert->isEnabled());
    QCOMPARE(stage.find<QSpinBox>("Color:bcs_contrast")->accessibleDescription(), key("changed"));
    QVERIFY(stage.session().project().saveDefault(colour).isEmpty());
    QCOMPARE(mark->text(), key("saved"));
    QVERIFY(!revert->isEnabled());
}

void TestEditorPanel::revertTakesOneValueBack()
{
    const Edited stage;
    auto* field = stage.field<QSpinBox>("Color", "bcs_contrast");
    stage.file(0)->setValue(stage.file(0)->type(key("Color")), key("bcs_contrast"), 20);
    stage.file(0)->setValue(stage.file(0)->type(key("Color")), key("bcs_saturation"), 30);
    QTest::mouseClick(stage.find<QToolButton>("Color:bcs_contrast:revert"), Qt::LeftButton);
    QCOMPARE(stage.value("Color", "bcs_contrast"), QVariant(0));
    QCOMPARE(stage.value("Color", "bcs_saturation"), QVariant(30));
    QCOMPARE(field->value(), 0);
}

void TestEditorPanel::revertTakesAnEffectOrAFileBack()
{
    const Stage stage({clips::clip(key("plain.mkv"))});
    zokit::FileSettings* file = stage.file(0);
    const zokit::Settings fresh = file->settings();
    const zokit::Identity color = file->type(key("Color"));
    file->setValues(color, {{key("bcs_contrast"), 20}, {key("bcs_saturation"), 20}});
    file->setValue(file->type(key("Crop")), key("crop_left"), 8);
    stage.session().setThing(color);
    QVERIFY(stage.trigger("resetThing"));
    QCOMPARE(file->value(color, key("bcs_contrast")), QVariant(0));
    QCOMPARE(file->value(color, key("bcs_saturation")), QVariant(0));
    QCOMPARE(file->value(file->type(key("Crop")), key("crop_left")), QVariant(8));
    QVERIFY(stage.trigger("resetFile"));
    QVERIFY(file->settings() == fresh);
    stage.session().undo();
    QCOMPARE(file->value(file->type(key("Crop")), key("crop_left")), QVariant(8));
}

void TestEditorPanel::undoTakesBackWhatIsBeingTyped()
{
    const Edited stage;
    stage.window().activateWindow();
    auto* field = stage.field<QSpinBox>("Color", "bcs_contrast");
    stage.file(0)->setValue(stage.file(0)->type(key("Color")), key("bcs_contrast"), 5);
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, key("12"));
    QCOMPARE(stage.value("Color", "bcs_contrast"), QVariant(5)); // Not written to its end.
    QVERIFY(stage.trigger("undo"));
    QCOMPARE(stage.value("Color", "bcs_contrast"), QVariant(5));
    QCOMPARE(field->value(), 5);
    QVERIFY(stage.trigger("redo"));
    QCOMPARE(stage.value("Color", "bcs_contrast"), QVariant(12));
}

void TestEditorPanel::menusOfFieldsHaveNoUndo_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<int>("item");
    QTest::newRow("text") << QByteArray("Watermark") << QByteArray("wm_textcontent") << 0;
    QTest::newRow("number") << QByteArray("Color") << QByteArray("bcs_contrast") << -1;
    QTest::newRow("font") << QByteArray("Watermark") << QByteArray("wm_fontname") << 0;
}

void TestEditorPanel::menusOfFieldsHaveNoUndo()
{
    QFETCH(const QByteArray, type);
    QFETCH(const QByteArray, field);
    QFETCH(const int, item);
    const Edited stage;
    auto* shown = stage.field(type.constData(), field.constData(), item);
    QVERIFY(shown);
    QList<QWidget*> parts = shown->findChildren<QLineEdit*>().isEmpty()
                                ? QList<QWidget*>{shown, qobject_cast<QPlainTextEdit*>(shown)->viewport()}
                                : QList<QWidget*>{shown, shown->findChild<QLineEdit*>()};
    for (QWidget* part : parts) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(3, 3), part->mapToGlobal(QPoint(3, 3)));
        QCoreApplication::sendEvent(part, &event);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QStringList texts;
        for (const QAction* action : menu->actions())
            texts.append(action->text().section(QLatin1Char('\t'), 0, 0).remove(QLatin1Char('&')));
        menu->close();
        settle();
        QCOMPARE(texts.mid(0, 3), QStringList({key("Cut"), key("Copy"), key("Paste")}));
        QVERIFY(!texts.contains(key("Undo")) && !texts.contains(key("Redo")));
    }
}

void TestEditorPanel::colourFollowsItsDialogAsOneStep()
{
    const Edited stage;
    auto* button = stage.field<QPushButton>("Watermark", "wm_fontcolor", 0);
    const int before = stage.steps();
    QTest::mouseClick(button, Qt::LeftButton);
    auto* dialog = button->findChild<QColorDialog*>();
    QVERIFY(dialog);
    settle(); // The focus goes to the dialog.
    dialog->setCurrentColor(QColor(10, 200, 30));
    QCOMPARE(stage.value("Watermark", "wm_fontcolor", 0).value<QColor>().name(), key("#0ac81e"));
    QCOMPARE(button->text(), key("#0ac81e"));
    dialog->setCurrentColor(QColor(10, 200, 31));
    dialog->accept();
    QCOMPARE(stage.value("Watermark", "wm_fontcolor", 0).value<QColor>().name(), key("#0ac81f"));
    QCOMPARE(stage.steps(), before + 1);
    QVERIFY(!stage.session().isInGesture());
}

void TestEditorPanel::colourIsAsBeforeWhenItsDialogIsCancelled()
{
    const Edited stage;
    auto* button = stage.field<QPushButton>("Watermark", "wm_fontcolor", 0);
    stage.file(0)->setValue(stage.watermark, key("wm_fontcolor"), QColor(1, 2, 3));
    const zokit::Settings before = stage.file(0)->settings();
    const int steps = stage.steps();
    QTest::mouseClick(button, Qt::LeftButton);
    auto* dialog = button->findChild<QColorDialog*>();
    QVERIFY(dialog);
    dialog->setCurrentColor(QColor(10, 200, 30));
    QVERIFY(!(stage.file(0)->settings() == before));
    dialog->reject();
    QVERIFY(stage.file(0)->settings() == before);
    QCOMPARE(stage.steps(), steps);
}

void TestEditorPanel::anchorIsChosen()
{
    const Edited stage;
    auto* box = stage.field<QComboBox>("Watermark", "anchor", 0);
    const auto* mark = stage.find<QLabel>("Watermark:anchor:mark");
    QVERIFY(box);
    QCOMPARE(box->count(), 10);
    QCOMPARE(box->currentText(), key("free"));
    QCOMPARE(mark->text(), key("default"));
    const auto choose = [box](const char* name) {
        const int index = box->findText(key(name));
        box->setCurrentIndex(index);
        emit box->activated(index);
    };
    const int steps = stage.steps();
    choose("top left");
    QCOMPARE(stage.value("Watermark", "wm_hposition", 0), QVariant(3)); // 2 % of 160 by 120.
    QCOMPARE(stage.value("Watermark", "wm_vposition", 0), QVariant(2));
    QCOMPARE(stage.value("Watermark", "anchor", 0).toMap().value(key("corner")), QVariant(key("top-left")));
    QCOMPARE(mark->text(), key("changed"));
    QCOMPARE(stage.steps(), steps + 1);
    // The margin is kept.
    stage.file(0)->setValue(stage.watermark, key("anchor"),
                            QVariantMap{{key("corner"), key("top-left")}, {key("margin"), 10}});
    choose("top");
    QCOMPARE(stage.value("Watermark", "wm_vposition", 0), QVariant(10));
    // By hand it is placed anywhere, and free.
    stage.file(0)->setValue(stage.watermark, key("wm_hposition"), 50);
    QCOMPARE(box->currentText(), key("free"));
    QVERIFY(stage.trigger("undo"));
    QCOMPARE(box->currentText(), key("top"));
    choose("free");
    QVERIFY(!stage.value("Watermark", "anchor", 0).isValid());
    QCOMPARE(stage.value("Watermark", "wm_vposition", 0), QVariant(10)); // It stays where it is.
    QCOMPARE(mark->text(), key("default"));
}

void TestEditorPanel::typesAndItemsTellWhatIsChanged()
{
    const Edited stage;
    const auto* tree = stage.find<QTreeView>("effectTree");
    QCOMPARE(mark(rowOf(tree, "Colour")), QString());
    stage.file(0)->setValue(stage.file(0)->type(key("Color")), key("bcs_contrast"), 20);
    QCOMPARE(mark(rowOf(tree, "Colour")), key("changed"));
    stage.file(0)->insert(key("Watermark"), {{key("wm_istextwatermark"), true}, {key("wm_textcontent"), key("Bye")}});
    QCOMPARE(mark(rowOf(tree, "Watermarks")), QStringLiteral("2 \u00b7 changed"));
    QCOMPARE(rowOf(tree, "Watermarks").siblingAtColumn(1).data(Qt::AccessibleTextRole).toString(),
             key("2 items, changed"));
    QCOMPARE(tree->model()->rowCount(rowOf(tree, "Watermarks")), 2);
    QCOMPARE(tree->model()->rowCount(rowOf(tree, "Colour")), 0);
}

void TestEditorPanel::checkBoxSwitchesAnEffect()
{
    const Edited stage;
    auto* tree = stage.find<QTreeView>("effectTree");
    const bool was = stage.value("Color", "selected").toBool();
    tree->setCurrentIndex(rowOf(tree, "Colour"));
    QCOMPARE(stage.session().thing(), stage.file(0)->type(key("Color")));
    QTest::keyClick(tree, Qt::Key_Space);
    QCOMPARE(stage.value("Color", "selected"), QVariant(!was));
}

void TestEditorPanel::itemsComeGoAndMove()
{
    const Edited stage;
    QVERIFY(stage.trigger("addText"));
    const zokit::Identity added = stage.session().thing();
    QCOMPARE(stage.file(0)->items(key("Watermark")), QVector<zokit::Identity>({stage.watermark, added}));
    QVERIFY(!stage.window().actions().action("itemDown")->isEnabled());
    QVERIFY(stage.trigger("itemUp"));
    QCOMPARE(stage.file(0)->items(key("Watermark")), QVector<zokit::Identity>({added, stage.watermark}));
    QVERIFY(stage.window().actions().action("itemDown")->isEnabled());
    QVERIFY(stage.window().actions().action("removeItem")->isEnabled());
    stage.window().actions().action("removeItem")->trigger();
    QCOMPARE(stage.file(0)->items(key("Watermark")), QVector<zokit::Identity>{stage.watermark});
    QCOMPARE(stage.session().thing(), stage.watermark); // What is near is chosen.
    stage.session().setThing(stage.file(0)->item(key("Effect"), 0));
    QVERIFY(!stage.window().actions().action("removeItem")->isEnabled());
    QVERIFY(stage.window().actions().action("itemDown")->isEnabled());
}

void TestEditorPanel::itemsAreDraggedWithinTheirType_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<int>("dragged");
    QTest::addColumn<QByteArray>("place");
    QTest::addColumn<QVector<int>>("order"); // Of the first three.
    const QByteArray watermark("Watermark");
    const QByteArray first("first");
    const QByteArray last("last");
    QTest::newRow("text to the top") << watermark << 2 << first << QVector<int>{2, 0, 1};
    QTest::newRow("text to the end") << watermark << 0 << last << QVector<int>{1, 2, 0};
    QTest::newRow("text among the tracks") << watermark << 0 << QByteArray("Sound tracks") << QVector<int>{0, 1, 2};
    QTest::newRow("frame effect to the top") << QByteArray("Effect") << 2 << first << QVector<int>{2, 0, 1};
    QTest::newRow("frame effect to the end") << QByteArray("Effect") << 0 << last << QVector<int>{1, 2, 3};
}

void TestEditorPanel::itemsAreDraggedWithinTheirType()
{
    QFETCH(const QByteArray, type);
    QFETCH(const int, dragged);
    QFETCH(const QByteArray, place);
    QFETCH(const QVector<int>, order);
    const Edited stage;
    for (const char* text : {"Second", "Third"})
        stage.file(0)->insert(key("Watermark"),
                              {{key("wm_istextwatermark"), true}, {key("wm_textcontent"), key(text)}});
    const QVector<zokit::Identity> before = stage.file(0)->items(key(type.constData()));
    const auto* tree = stage.find<QTreeView>("effectTree");
    QCOMPARE(tree->dragDropMode(), QAbstractItemView::InternalMove);
    stage.session().setThing(before.at(dragged));
    settle();
    // As the view does it: a place among the rows that it shows, or on one of them.
    QAbstractItemModel& model = *tree->model();
    const QModelIndex item = tree->currentIndex();
    const bool isWithin = place == "first" || place == "last";
    const QModelIndex target = isWithin ? item.parent() : rowOf(tree, place.constData());
    const int row = place == "first" ? 0 : place == "last" ? model.rowCount(target) : -1;
    const std::unique_ptr<QMimeData> data(model.mimeData({item, item.siblingAtColumn(1)}));
    QVERIFY(model.flags(item).testFlag(Qt::ItemIsDragEnabled));
    QCOMPARE(model.canDropMimeData(data.get(), Qt::MoveAction, row, 0, target), isWithin);
    const int steps = stage.steps();
    QCOMPARE(model.dropMimeData(data.get(), Qt::MoveAction, row, 0, target), isWithin);
    QVector<zokit::Identity> expected;
    for (const int earlier : order)
        expected.append(before.at(earlier));
    QCOMPARE(stage.file(0)->items(key(type.constData())).mid(0, 3), expected);
    QCOMPARE(stage.file(0)->items(key(type.constData())).size(), before.size());
    QCOMPARE(stage.steps(), steps + (isWithin ? 1 : 0));
}

void TestEditorPanel::searchFindsEveryValue()
{
    const Edited stage;
    auto* search = stage.find<QLineEdit>("search");
    const QAbstractItemModel& shown = *stage.find<QTreeView>("effectTree")->model();
    QStringList missing;
    for (const zokit::Property& property : zokit::properties()) {
        if (!property.suits.testFlag(zokit::Suit::Type) || property.control == zokit::Control::None
            || !zokit::effectTypes().contains(property.type))
            continue;
        for (const QString& word : {property.key, property.label()}) {
            search->setText(word);
            const QModelIndexList found =
                shown.match(shown.index(0, 0), Model::KeyRole, property.key, 1, Qt::MatchExactly | Qt::MatchRecursive);
            if (found.isEmpty())
                missing.append(property.type + QLatin1Char(':') + property.key + QLatin1Char(' ') + word);
        }
    }
    QCOMPARE(missing, QStringList());
    search->setText(key("no such value"));
    QCOMPARE(shown.rowCount(), 0);
    search->clear();
    QCOMPARE(shown.rowCount(), 15); // 13 types, tracks and output.
}

void TestEditorPanel::foundValueGetsTheFocus()
{
    const Edited stage;
    stage.window().activateWindow();
    QVERIFY(stage.trigger("findValue"));
    QWidget* search = QApplication::focusWidget();
    QVERIFY(search);
    QCOMPARE(search->objectName(), key("search"));
    QTest::keyClicks(search, key("steepness"));
    QTest::keyClick(search, Qt::Key_Return);
    auto* tree = stage.find<QTreeView>("effectTree");
    QCOMPARE(QApplication::focusWidget(), tree);
    tree->setCurrentIndex(rowOf(tree, "Steepness", rowOf(tree, "Band pass")));
    QTest::keyClick(tree, Qt::Key_Return);
    QTRY_COMPARE(QApplication::focusWidget()->objectName(), key("Audio_BandPass:audio_bandpass_steepness"));
}

void TestEditorPanel::chosenPlaceIsKeptFromFileToFile()
{
    const Stage stage({clips::clip(key("plain.mp4")), clips::clip(key("wide.mkv"))});
    stage.session().setThing(stage.file(0)->type(key("Audio_Echo")));
    stage.session().setCurrent(stage.file(1));
    QCOMPARE(stage.session().thing(), stage.file(1)->type(key("Audio_Echo")));
    QCoreApplication::processEvents();
    stage.find<QSpinBox>("Audio_Echo:audio_echo_delay")->setValue(500);
    QCOMPARE(stage.file(1)->value(stage.session().thing(), key("audio_echo_delay")), QVariant(500));
}

// As when a file that is still being read becomes the current one.
void TestEditorPanel::fieldGoesWhileItsFileIsChosen()
{
    const Stage stage({clips::clip(key("plain.mp4"))});
    zokit::FileSettings* file = stage.file(0);
    const QString logo = kitsupport::logoPath(40, 30);
    stage.session().setThing(file->insert(key("Watermark"), {{key("wm_imageurl"), logo}}).item);
    settle();
    auto* browse = stage.find<QToolButton>("Watermark:wm_imageurl:browse");
    const QPointer<QLineEdit> field = stage.find<QLineEdit>("Watermark:wm_imageurl");
    QVERIFY(browse && field);
    const int before = stage.session().history().count();
    QTimer::singleShot(0, this, [&] {
        QWidget* open = QApplication::activeModalWidget();
        stage.session().setThing(file->type(key("Color")));
        settle();
        auto* name = open->findChild<QLineEdit*>(key("fileNameEdit"));
        name->setText(kitsupport::logoPath(60, 50));
        qobject_cast<QDialog*>(open)->accept();
    });
    browse->click();
    QVERIFY(!field);
    QCOMPARE(stage.session().history().count(), before);
}

EDITOR_TEST_MAIN(TestEditorPanel)
#include "tst_editor_panel.moc"
