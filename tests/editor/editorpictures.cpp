// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// editorpictures FOLDER [FILE...]: makes a picture of every page of the editor there, in light and dark, English and
// German, large and small, to be looked at; with QT_SCALE_FACTOR=2 at twice the size. With FILEs instead those of the
// guide: the window with these, editor.png, and the dialogs, editor-*.png.

#include <QDialog>
#include <QDir>

#include <appearance.h>

#include "editorsupport.h"

using namespace editorsupport;
using kitsupport::key;
namespace appearance = zoeditor::appearance;

namespace {

void take(QWidget* widget, const QDir& folder, const QString& name)
{
    settle();
    widget->grab().save(folder.filePath(name + key(".png")));
}

void takeAll(const QDir& folder, const QString& prefix, const QSize& size,
             Qt::LayoutDirection direction = Qt::LeftToRight)
{
    const Full stage;
    QGuiApplication::setLayoutDirection(direction); // Whatever the language says, of dialogs, too.
    stage.window().resize(size);
    QTest::qWait(1500); // Small pictures come from a child.
    stage.file(0)->setValue(stage.file(0)->type(key("Color")), key("bcs_contrast"), 12);
    stage.visitEverything([&](QWidget& shown, const QString& name) {
        if (qobject_cast<QDialog*>(&shown))
            QTest::qWait(500); // Plans and pictures come from children.
        take(&shown, folder, prefix + name);
    });
}

/// The window with \a files, as the guide shows it: a watermark of the first one is chosen. And the dialogs.
void takeGuide(const QDir& folder, const QStringList& files)
{
    const Stage stage(files);
    stage.window().resize(1280, 800);
    stage.session().setCurrent(stage.file(0));
    stage.session().setThing(stage.file(0)->item(key("Watermark"), 1));
    QTest::qWait(4000); // Pictures come from children.
    take(&stage.window(), folder, key("editor"));
    stage.visitDialogs([&](QWidget& dialog) {
        if (dialog.objectName() == key("shortcutsDialog"))
            return;
        QTest::qWait(1500);
        dialog.resize(900, 480);
        take(&dialog, folder, key("editor-") + dialog.objectName().remove(key("Dialog")));
    });
}

} // namespace

int main(int argc, char** argv)
{
    const TestFolders folders;
    const EditorApplication application(argc, argv);
    const QDir folder(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath());
    if (!folder.mkpath(folder.path()))
        qFatal("The folder cannot be made");
    const QSize usual(1280, 800);
    appearance::setLanguage(key("en"));
    appearance::setTheme(appearance::Theme::Light);
    const QStringList files = QCoreApplication::arguments().mid(2);
    if (!files.isEmpty()) {
        takeGuide(folder, files);
        return 0;
    }
    takeAll(folder, key("light-"), usual);
    appearance::setTheme(appearance::Theme::Dark);
    takeAll(folder, key("dark-"), usual);
    appearance::setLanguage(key("de"));
    appearance::setTheme(appearance::Theme::Light);
    takeAll(folder, key("german-small-"), QSize(1024, 640));
    takeAll(folder, key("right-to-left-"), usual, Qt::RightToLeft);
}
