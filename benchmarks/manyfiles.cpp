// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zomanyfiles [N]: how long a person waits for settings that are carried over to N files (10,000 by default): for the
// differences that a dry run shows, and for the files to have them; and how much memory a file takes before. Ends 1
// when a file does not have them.

#include <cstdio>
#include <ctime>

#include <sys/resource.h>

#include <QElapsedTimer>
#include <QGuiApplication>

#include <zoeffectmodel.h>
#include <zopref.h>

#include <zokit/differences.h>
#include <zokit/history.h>
#include <zokit/project.h>

#include "settings.h"

namespace {

constexpr int usualFiles = 10000;

QString key(const char* name)
{
    return QString::fromLatin1(name);
}

/// A host with a preference store of its own, so that no saved default of the user plays a part.
class Application : public QGuiApplication, public ZoPrefProvider {
public:
    Application(int& argc, char** argv) : QGuiApplication(argc, argv) {}

    ZoPref* preferences() override { return &m_store; }

private:
    MemoryStore m_store;
};

/// The most memory that this process has had.
long kilobytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss; // NOLINT(cppcoreguidelines-pro-type-union-access): as the C library declares it.
}

/// What a person sets: a crop, colours, two frame effects, a text, and a text that keeps to its corner.
zokit::Settings source()
{
    zokit::FileSettings file(zokit::Media{QString(), QSize(1920, 1080), 60.0});
    file.setValues(
        file.type(key("Crop")),
        {{key("crop_left"), 100}, {key("crop_top"), 50}, {key("crop_width"), 1600}, {key("crop_height"), 900}});
    file.setValue(file.type(key("Color")), key("bcs_contrast"), 25);
    for (const int effect : {2, 7})
        file.setValue(file.item(key("Effect"), effect), key("selected"), true);
    file.insert(key("Watermark"), {{key("wm_textcontent"), key("Hello")}});
    file.insert(key("Watermark"), {{key("wm_textcontent"), key("libzoeffect")},
                                   {key("anchor"), QVariantMap{{key("corner"), key("bottom-right")}}}});
    return file.settings();
}

bool hasArrived(const zokit::FileSettings& file)
{
    return file.value(file.type(key("Color")), key("bcs_contrast")) == QVariant(25)
           && file.items(key("Watermark")).size() == 2;
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    Application application(argc, argv);
    const int wanted = QCoreApplication::arguments().value(1).toInt();
    const int count = wanted > 0 ? wanted : usualFiles;

    const zokit::Settings from = source();
    const long memoryBefore = kilobytes();
    zokit::Project project;
    QVector<zokit::FileSettings*> files;
    const QVector<QSize> frames{{1920, 1080}, {1280, 720}, {720, 576}, {1080, 1920}};
    for (int i = 0; i < count; ++i)
        files.append(project.add(zokit::Media{QString(), frames.at(i % frames.size()), 60.0}));

    const long memory = kilobytes() - memoryBefore;
    const auto spent = [](std::clock_t since) {
        return static_cast<long long>(std::clock() - since) * 1000 / CLOCKS_PER_SEC;
    };
    QElapsedTimer timer;
    timer.start();
    std::clock_t begin = std::clock();
    qint64 differences = 0;
    for (const zokit::FileSettings* file : std::as_const(files)) {
        const zokit::Settings before = file->settings();
        differences += zokit::differences(before, zokit::carriedOver(from, before, {})).size();
    }
    const long long dryRunSpent = spent(begin);
    const qint64 dryRun = timer.restart();
    begin = std::clock();
    const bool isApplied = project.apply(from, files, {}).isEmpty();
    const qint64 apply = timer.elapsed();
    const long long applySpent = spent(begin);

    bool isRight = isApplied && differences >= 10 * qint64(count);
    for (const zokit::FileSettings* file : std::as_const(files))
        isRight = isRight && hasArrived(*file);
    std::printf("%d files of %ld KB: dry run %lld ms (%lld of a processor, %lld differences), apply %lld ms (%lld of a "
                "processor)\n",
                count, memory / count, static_cast<long long>(dryRun), dryRunSpent, static_cast<long long>(differences),
                static_cast<long long>(apply), applySpent);
    return isRight ? 0 : 1;
}
