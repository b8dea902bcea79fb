// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QGuiApplication>
#include <QTextStream>

#include <zokit/carryover.h>
#include <zokit/differences.h>
#include <zokit/history.h>
#include <zokit/project.h>
#include <zokit/properties.h>
#include <zokit/settingsfile.h>

namespace {

QTextStream& out()
{
    static QTextStream stream(stdout);
    return stream;
}

// What went wrong, as a sentence for the person. False when something did.
bool fine(const zokit::Message& error)
{
    if (!error.isEmpty())
        QTextStream(stderr) << error.text() << '\n';
    return error.isEmpty();
}

// The settings files at these paths, open in the project; fewer when one cannot be read.
QVector<zokit::FileSettings*> openAll(zokit::Project& project, const QStringList& paths)
{
    QVector<zokit::FileSettings*> files;
    for (const QString& path : paths) {
        const zokit::ReadSettings read = zokit::loadSettings(path);
        if (!fine(read.error))
            break;
        files.append(project.add(*read.settings));
    }
    return files;
}

void edit(zokit::Project& project, zokit::FileSettings& file)
{
    zokit::History& history = project.history();
    const zokit::Identity color = file.type("Color"); // Names this thing for life, wherever it stands.

    // Ask first: a panel shows this sentence while the person types. A setter would answer it and change nothing.
    out() << "refused: " << file.check(color, "bcs_contrast", 400).text() << '\n';

    fine(file.setValue(color, "bcs_contrast", "20")); // A text will do, as long as nothing is lost.
    fine(file.setValue(color, "bcs_brightness", 50));
    out() << "undo: " << history.undoText().text() << '\n';
    history.undo();
    out() << "brightness: " << file.value(color, "bcs_brightness").toInt() << '\n';

    // Several values at once: all or none, and one step to undo.
    fine(file.setValues(file.type("Crop"),
                        {{"crop_left", 160}, {"crop_top", 90}, {"crop_width", 960}, {"crop_height", 540}}));
    fine(file.setValue(file.output(), "quality", 20));
}

// What would change, in the words of the property table.
void show(const QVector<zokit::Difference>& differences)
{
    for (const zokit::Difference& one : differences) {
        const zokit::Property* property = zokit::findProperty(one.address.type, one.address.key);
        out() << "    " << one.address.toString() << ": "
              << (property ? property->label() + ' ' + property->unitName() : QString()).trimmed() << ' '
              << (one.a.isValid() ? one.a.toString() : "nothing") << " -> " << one.b.toString() << '\n';
    }
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // Texts are measured, and no window is shown.
    QGuiApplication application(argc, argv);
    const QStringList paths = QGuiApplication::arguments().mid(1);
    if (paths.size() < 2) {
        QTextStream(stderr) << "usage: from-nothing SETTINGS OTHER...\n";
        return 2;
    }

    zokit::Project project; // The files that are open together, with one history.
    QVector<zokit::FileSettings*> others = openAll(project, paths);
    if (others.size() != paths.size())
        return 1;
    zokit::FileSettings& first = *others.takeFirst();
    edit(project, first);

    // The preview is the outcome: the same function makes both.
    const zokit::CarryOver carry{{"Crop", "Color", "Output"}, false};
    bool shown = false;
    for (zokit::FileSettings* other : others) {
        const zokit::Settings now = other->settings();
        const auto changes = zokit::differences(now, zokit::carriedOver(first.settings(), now, carry));
        out() << now.media.file.section('/', -1) << ": " << changes.size() << " values would change\n";
        if (!shown)
            show(changes);
        shown = true;
    }

    // One step, however many files.
    if (!fine(project.apply(first.settings(), others, carry)))
        return 1;
    out() << "undo: " << project.history().undoText().text() << '\n';

    // Each file is written whole or not at all.
    others.prepend(&first);
    for (int i = 0; i < paths.size(); ++i) {
        if (!fine(zokit::saveSettings(others.at(i)->settings(), paths.at(i))))
            return 1;
    }
    project.history().setClean(); // From here a window's title has no star until something changes.
    out() << "saved: " << paths.size() << " files\n";
    return 0;
}
