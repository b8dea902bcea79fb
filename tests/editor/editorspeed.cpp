// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// editorspeed ZOEDITOR [WHAT...]: how fast the editor is, a row for each figure with its bound; of all, or of what is
// named. ZOEDITOR is the program. For scripts/prove editorspeed, on a screen of its own, on a machine with nothing else
// to do. Built when it is asked for.

#include <cmath>
#include <cstdio>
#include <optional>

#include <QtTest>
#include <QtWidgets>

#include <zokit/filesettings.h>
#include <zokit/livepreview.h>
#include <zokit/opening.h>
#include <zokit/project.h>
#include <zokit/shownframes.h>

#include <picturepane.h>
#include <pictureview.h>
#include <timeline.h>

#include "editorsupport.h"
#include "watchdog.h"

using namespace editorsupport;
using kitsupport::key;

namespace {

constexpr int patience = 120000; // Milliseconds: what takes so long has failed.

double milliseconds(const QElapsedTimer& clock)
{
    constexpr double nanoseconds = 1e6;
    return double(clock.nsecsElapsed()) / nanoseconds;
}

/// The value that \a percent of all do not exceed.
double percentile(std::vector<double> values, int percent)
{
    std::sort(values.begin(), values.end());
    const std::size_t rank = (values.size() * std::size_t(percent) + 99) / 100;
    return values.at(std::max<std::size_t>(rank, 1) - 1);
}

/// Lets the event loop run until \a holds. Whether it did in time.
bool until(const std::function<bool()>& holds)
{
    QEventLoop loop;
    QTimer looking;
    QObject::connect(&looking, &QTimer::timeout, &loop, [&] {
        if (holds())
            loop.quit();
    });
    looking.start(1);
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    if (!holds())
        loop.exec();
    return holds();
}

void rest(int time)
{
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

/// The rows, as they are found.
class Figures {
public:
    Figures() { std::puts("| what | found | bound | holds |\n|---|---|---|---|"); }

    /// \a value may be \a bound at most. \a name stands in the summary, \a more beside the value.
    void most(const char* name, double value, double bound, const char* unit = "ms", const QString& more = {})
    {
        add(name, value, bound, unit, more, value <= bound, key("at most"));
    }
    /// \a value has to be \a bound at least.
    void least(const char* name, double value, double bound, const char* unit)
    {
        add(name, value, bound, unit, {}, value >= bound, key("at least"));
    }
    /// \a name could not be measured.
    void fail(const char* name)
    {
        ++m_failed;
        std::printf("| %s | did not work | | |\n", name);
    }

    /// The closing lines. Whether all was measured, fast or not.
    bool close() const
    {
        std::printf("found: %s\n%d passed, %d failed\n", qPrintable(m_found.join(key("; "))), int(m_found.size()),
                    m_failed);
        return m_failed == 0;
    }

private:
    void add(const char* name, double value, double bound, const char* unit, const QString& more, bool holds,
             const QString& sense)
    {
        const QString found = QStringLiteral("%1 %2").arg(value, 0, 'f', value < 10 ? 1 : 0).arg(key(unit));
        std::printf("| %s | %s%s | %s %g %s | %s |\n", name, qPrintable(found), qPrintable(more), qPrintable(sense),
                    bound, unit, holds ? "yes" : "no: missed");
        std::fflush(stdout);
        m_found.append(key(name) + QLatin1Char(' ') + found
                       + (holds ? QString() : QStringLiteral(" (missed: %1 %2)").arg(sense).arg(bound)));
    }

    QStringList m_found;
    int m_failed = 0;
};

/// Whether a widget has been painted since this was last asked.
class Painted : public QObject {
public:
    explicit Painted(QWidget* widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        m_isPainted = m_isPainted || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }
    /// Does what waits until the widget is painted, and counts from \a clock.
    std::optional<double> waitSince(const QElapsedTimer& clock)
    {
        while (!m_isPainted && clock.elapsed() < patience)
            QCoreApplication::processEvents();
        return std::exchange(m_isPainted, false) ? std::make_optional(milliseconds(clock)) : std::nullopt;
    }
    void forget() { m_isPainted = false; }

private:
    bool m_isPainted = false;
};

/// A moving clip with sound. Empty when it cannot be made.
QString film(const QTemporaryDir& folder, const QSize& size, int seconds)
{
    const QString path = folder.filePath(QStringLiteral("%1.mkv").arg(size.height()));
    const QString sides = QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
    const int code =
        QProcess::execute(key("ffmpeg"), {key("-v"), key("error"), key("-f"), key("lavfi"), key("-i"),
                                          QStringLiteral("testsrc2=s=%1:r=25:d=%2").arg(sides).arg(seconds), key("-f"),
                                          key("lavfi"), key("-i"), QStringLiteral("sine=d=%1").arg(seconds),
                                          key("-c:v"), key("libx264"), key("-preset"), key("veryfast"), key("-pix_fmt"),
                                          key("yuv420p"), key("-c:a"), key("aac"), path});
    return code == 0 ? path : QString();
}

/// An image that is half transparent.
QString logo(const QTemporaryDir& folder)
{
    QImage image(320, 180, QImage::Format_ARGB32);
    image.fill(QColor(0, 80, 255, 128));
    const QString path = folder.filePath(key("logo.png"));
    image.save(path);
    return path;
}

/// From the start of \a program until the screen shows its window.
std::optional<double> startOnce(const QString& program, const QString& home)
{
    const QTemporaryDir own; // Nothing is left of the start before.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(key("HOME"), home);
    for (const char* name : {"TMPDIR", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME"})
        environment.insert(key(name), own.path());
    QProcess editor;
    editor.setProcessEnvironment(environment);
    QScreen* screen = QGuiApplication::primaryScreen();
    const QPoint middle = screen->geometry().center();
    const auto seen = [&] { return screen->grabWindow(0, middle.x(), middle.y(), 1, 1).toImage().pixel(0, 0); };
    const QRgb empty = seen();
    QElapsedTimer clock;
    clock.start();
    editor.start(program, QStringList());
    while (seen() == empty && clock.elapsed() < patience)
        QThread::msleep(1);
    const double took = milliseconds(clock);
    editor.kill();
    editor.waitForFinished();
    while (seen() != empty && clock.elapsed() < patience)
        QThread::msleep(1);
    return clock.elapsed() < patience ? std::make_optional(took) : std::nullopt;
}

void measureStart(Figures& figures, const QString& program)
{
    const char* const name = "window on the screen";
    if (QGuiApplication::platformName() != key("xcb"))
        return figures.fail(name); // There is no screen to look at.
    const QTemporaryDir home;
    std::vector<double> times;
    constexpr int starts = 11;
    for (int i = 0; i < starts; ++i) {
        const std::optional<double> took = startOnce(program, home.path());
        if (!took)
            return figures.fail(name);
        if (i > 0) // The first one brings the program into the memory.
            times.push_back(*took);
    }
    figures.most(
        name, percentile(times, 100), 300, "ms",
        QStringLiteral(", the longest of %1; median %2").arg(times.size()).arg(percentile(times, 50), 0, 'f', 0));
}

void measureDrop(Figures& figures)
{
    constexpr int count = 200;
    const QTemporaryDir folder;
    QList<QUrl> urls;
    for (int i = 0; i < count; ++i)
        urls.append(QUrl::fromLocalFile(
            copyOf("plain.mp4", folder, QStringLiteral("film-%1.mp4").arg(i).toLatin1().constData())));
    const Stage stage;
    auto* list = stage.find<QListView>("fileList");
    Painted painted(list->viewport());
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&stage.window(), &enter);
    const Watchdog watchdog;
    rest(100);
    painted.forget();
    QElapsedTimer clock;
    clock.start();
    QCoreApplication::sendEvent(&stage.window(), &drop);
    const bool areThere = stage.session().files().rowCount() == count;
    const std::optional<double> shown = painted.waitSince(clock);
    if (!areThere || !shown)
        return figures.fail("200 files dropped");
    figures.most("200 files in the list, painted", *shown, 50);
    const auto areRead = [&] {
        const auto& rows = stage.session().files().rows();
        return std::none_of(rows.cbegin(), rows.cend(), [](const zoeditor::FileRow& row) { return row.isAsked; });
    };
    if (!until(areRead))
        return figures.fail("200 files read");
    figures.most("event loop p99 while 200 files are read", percentile(watchdog.blocks(), 99), 50, "ms",
                 QStringLiteral(" in %1 s, the longest %2 ms")
                     .arg(double(clock.elapsed()) / 1000, 0, 'f', 0)
                     .arg(watchdog.longest()));
}

/// The editor with one film, whose true picture is there.
struct Shown : Stage {
    explicit Shown(const QString& film)
        : Stage({film})
        , view(find<zoeditor::PictureView>("pictureView"))
        , frames(&find<zoeditor::PicturePane>("picture")->frames())
    {
        window().resize(1280, 800);
        isThere = until([this] { return !view->isStandIn(); });
        rest(500); // The other frames, too.
    }

    zoeditor::PictureView* view;
    zokit::ShownFrames* frames;
    bool isThere;
};

void sendMouse(QWidget* widget, QEvent::Type type, const QPointF& at)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, widget->mapToGlobal(at.toPoint()), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

/// A point of the way of a watermark through a frame of that size.
QPointF onTheWay(const QSize& frame, int step, int steps)
{
    const double part = double(step) / steps;
    return {frame.width() * (0.1 + 0.7 * part), frame.height() * (0.5 + 0.35 * std::sin(part * 12))};
}

void measureDrag(Figures& figures, const QString& film, const QString& logo)
{
    const char* const name = "drag of a watermark p99 at 1080p";
    const Shown stage(film);
    zokit::FileSettings* file = stage.file(0);
    const QSize frame(1920, 1080);
    const QPoint place = onTheWay(frame, 0, 1).toPoint();
    file->insert(key("Watermark"), {{key("wm_istextwatermark"), false},
                                    {key("wm_imageurl"), logo},
                                    {key("wm_hposition"), place.x() - 10},
                                    {key("wm_vposition"), place.y() - 10}});
    rest(500);
    Painted painted(stage.view);
    const auto inView = [&](const QPointF& point) { return stage.view->view().toView(point); };
    sendMouse(stage.view, QEvent::MouseButtonPress, inView(place));
    std::vector<double> times;
    constexpr int steps = 500;
    for (int step = 1; step <= steps; ++step) {
        QCoreApplication::processEvents();
        painted.forget();
        QElapsedTimer clock;
        clock.start();
        sendMouse(stage.view, QEvent::MouseMove, inView(onTheWay(frame, step, steps)));
        if (const std::optional<double> took = painted.waitSince(clock))
            times.push_back(*took);
    }
    sendMouse(stage.view, QEvent::MouseButtonRelease, inView(onTheWay(frame, steps, steps)));
    const int moved = file->value(file->item(key("Watermark"), 0), key("wm_hposition")).toInt() - place.x();
    if (times.size() < std::size_t(steps) || moved < frame.width() / 2)
        return figures.fail(name);
    figures.most(name, percentile(times, 99), 16, "ms",
                 QStringLiteral(" a step; median %1").arg(percentile(times, 50), 0, 'f', 1));
}

/// The head of the time line is dragged through half of the film, in half of the time that it takes.
void measureScrubbing(Figures& figures, const QString& film)
{
    const Shown stage(film);
    const double length = stage.session().mediaOf(stage.file(0))->seconds * 1000 / 4; // Milliseconds.
    auto* bar = stage.find<zoeditor::TimeBar>("time");
    for (const bool isForward : {true, false}) {
        const char* const name = isForward ? "scrubbing forward at 1080p" : "scrubbing backward at 1080p";
        qint64 last = 0;
        int pictures = 0;
        const auto counting = QObject::connect(stage.frames, &zokit::ShownFrames::changed, bar, [&] {
            const qint64 now = stage.frames->whole().cacheKey();
            pictures += now != last ? 1 : 0;
            last = now;
        });
        QElapsedTimer clock;
        clock.start();
        const auto head = [&] {
            const double part = 0.25 + 0.5 * std::min(milliseconds(clock) / length, 1.0);
            return QPointF((isForward ? part : 1 - part) * bar->width(), bar->height() / 2.0);
        };
        sendMouse(bar, QEvent::MouseButtonPress, head());
        QTimer moving; // As often as a mouse tells.
        QObject::connect(&moving, &QTimer::timeout, bar, [&] { sendMouse(bar, QEvent::MouseMove, head()); });
        moving.start(8);
        const bool hasEnded = until([&] { return milliseconds(clock) >= length; });
        moving.stop();
        sendMouse(bar, QEvent::MouseButtonRelease, head());
        QObject::disconnect(counting);
        if (!hasEnded || pictures == 0)
            figures.fail(name);
        else
            figures.least(name, pictures * 1000 / length, 25, "pictures a second");
        until([&] { return !stage.view->isStandIn(); });
        rest(500);
    }
}

void measureApply(Figures& figures, const QString& film, const QString& logo)
{
    constexpr int count = 1000;
    const Stage stage({film});
    zokit::FileSettings* file = stage.file(0);
    file->setValue(file->type(key("Color")), key("bcs_contrast"), 12);
    file->setValues(file->type(key("Crop")), zokit::cropValues(QRect(100, 100, 1600, 900)));
    file->insert(key("Watermark"), {{key("wm_istextwatermark"), true}, {key("wm_textcontent"), key("Hello")}});
    file->insert(key("Watermark"), {{key("wm_istextwatermark"), false}, {key("wm_imageurl"), logo}});
    zokit::Project& project = stage.session().project();
    for (int i = 0; i < count; ++i)
        project.add(zokit::Media{QStringLiteral("/none/%1.mp4").arg(i), QSize(1280, 720), 60});
    rest(500);
    QElapsedTimer clock;
    clock.start();
    stage.trigger("applyTo");
    auto* list = stage.find<QTreeWidget>("differences");
    if (!list || list->topLevelItemCount() != count)
        return figures.fail("differences of 1,000 files");
    Painted painted(list->viewport());
    const std::optional<double> shown = painted.waitSince(clock);
    if (!shown)
        return figures.fail("differences of 1,000 files");
    figures.most("differences of 1,000 files, the list", *shown, 2000);
    clock.start();
    list->expandAll();
    const std::optional<double> all = painted.waitSince(clock);
    if (!all || list->topLevelItem(count - 1)->childCount() == 0)
        return figures.fail("differences of 1,000 files, each one opened");
    figures.most("differences of 1,000 files, each one opened", *all, 2000, "ms",
                 QStringLiteral(", %1 lines a file").arg(list->topLevelItem(count - 1)->childCount()));
    stage.find("applyDialog")->close();
}

/// The kit's own preview, with ten watermarks of which one is dragged, painted into an image.
void measurePreview(Figures& figures, const char* name, const QString& film, const QString& logo, double bound)
{
    const zokit::Tools tools = zokit::findTools();
    const zokit::ReadMedia read = zokit::probe(tools, film);
    if (!read.media)
        return figures.fail(name);
    zokit::Project project;
    zokit::FileSettings* file = project.add(zokit::settingsOf(*read.media));
    const QSize frame = file->media().frame;
    constexpr int marks = 10;
    for (int i = 0; i < marks; ++i) {
        const QPoint place = i == 0 ? onTheWay(frame, 0, 1).toPoint() - QPoint(10, 10)
                                    : QPoint(frame.width() * i / (marks + 2), frame.height() * (i % 4) / 4);
        const bool isText = i % 2 == 1;
        file->insert(key("Watermark"),
                     {{key("wm_istextwatermark"), isText},
                      {isText ? key("wm_textcontent") : key("wm_imageurl"), isText ? key("Hello") : logo},
                      {key("wm_hposition"), place.x()},
                      {key("wm_vposition"), place.y()}});
    }
    zokit::LivePreview preview(project.history(), tools);
    QRegion changed;
    QObject::connect(&preview, &zokit::LivePreview::changed, &preview,
                     [&](const QRegion& region) { changed += region; });
    preview.setFile(file, &*read.media);
    preview.resize(frame, 1);
    if (!until([&] { return !preview.frames().output().isNull() && !preview.frames().whole().isNull(); }))
        return figures.fail(name);
    QImage canvas(frame, QImage::Format_RGB32);
    const auto paint = [&] {
        QPainter painter(&canvas);
        painter.setClipRegion(changed);
        preview.paint(painter);
        changed = QRegion();
    };
    paint();
    preview.press(preview.view().toView(onTheWay(frame, 0, 1)));
    std::vector<double> times;
    constexpr int steps = 500;
    for (int step = 1; step <= steps; ++step) {
        QElapsedTimer clock;
        clock.start();
        preview.move(preview.view().toView(onTheWay(frame, step, steps)));
        paint();
        times.push_back(milliseconds(clock));
    }
    preview.release();
    const QPoint moved = kitsupport::placeOf(*file, file->item(key("Watermark"), 0));
    if (moved.x() < frame.width() / 2)
        return figures.fail(name);
    figures.most(name, percentile(times, 99), bound, "ms",
                 QStringLiteral(" a step; median %1").arg(percentile(times, 50), 0, 'f', 1));
}

/// From the last change until the picture is the one that comes out, painted.
void measureTruePicture(Figures& figures, const QString& film)
{
    const Shown stage(film);
    zokit::FileSettings* file = stage.file(0);
    if (!stage.isThere)
        return figures.fail("true picture");
    const auto measure = [&](const char* name, const std::function<void(int)>& change) {
        Painted painted(stage.view);
        std::vector<double> times;
        constexpr int rounds = 25;
        for (int i = 0; i < rounds; ++i) {
            QElapsedTimer clock;
            clock.start();
            change(i);
            const bool isThere = until([&] { return !stage.view->isStandIn(); });
            painted.forget();
            stage.view->update();
            const std::optional<double> took = painted.waitSince(clock);
            if (!isThere || !took)
                return figures.fail(name);
            times.push_back(*took);
            rest(400); // What is asked for besides comes.
        }
        figures.most(
            name, percentile(times, 100), 150, "ms",
            QStringLiteral(", the longest of %1; median %2").arg(rounds).arg(percentile(times, 50), 0, 'f', 0));
    };
    measure("true picture at 1080p after a value",
            [file](int i) { file->setValue(file->type(key("Color")), key("bcs_contrast"), 1 + i); });
    measure("true picture at 1080p after a crop", [file](int i) {
        file->setValues(file->type(key("Crop")), zokit::cropValues(QRect(100 + 10 * i, 100, 1200, 700)));
    });
    measure("true picture at 1080p at another moment",
            [&](int i) { stage.frames->setPart(0.05 + 0.9 * (i * 7 % 25) / 25); });
}

} // namespace

int main(int argc, char** argv)
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM"); // Tests know only one.
    const TestFolders folders;
    qputenv("QT_QPA_PLATFORM", platform);
    const EditorApplication application(argc, argv);
    if (argc < 2) {
        std::fputs("usage: editorspeed ZOEDITOR [start|drop|drag|scrubbing|apply|preview|true...]\n", stderr);
        return 2;
    }
    const QStringList words = QCoreApplication::arguments().mid(2);
    const auto isWanted = [&words](const char* word) { return words.isEmpty() || words.contains(key(word)); };
    const QTemporaryDir folder;
    const QString large = film(folder, {1920, 1080}, 20);
    const QString mark = logo(folder);
    Figures figures;
    if (isWanted("start"))
        measureStart(figures, QFile::decodeName(argv[1]));
    if (isWanted("drop"))
        measureDrop(figures);
    if (isWanted("drag"))
        measureDrag(figures, large, mark);
    if (isWanted("scrubbing"))
        measureScrubbing(figures, large);
    if (isWanted("apply"))
        measureApply(figures, large, mark);
    if (isWanted("preview")) {
        measurePreview(figures, "kit's preview p99 at 1920x1080", large, mark, 8);
        measurePreview(figures, "kit's preview p99 at 3840x2160", film(folder, {3840, 2160}, 2), mark, 25);
    }
    if (isWanted("true"))
        measureTruePicture(figures, large);
    return figures.close() ? 0 : 1;
}
