// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <memory>

#include <QImage>
#include <QPainter>

#include "pictures.h"
#include "rounds.h"
#ifdef HAVE_PANGOCAIRO
#include "peer_cairo.h"
#endif

namespace {

constexpr char wrongPicture[] = "the picture is not the one that bare QPainter paints";
const QString type = QStringLiteral("Watermark");
const QString hPosition = QStringLiteral("wm_hposition");

/// Where the first mark stands in turn, when it is moved.
constexpr int places[] = {24, 31};

bool isSame(const QPixmap& picture, const QPixmap& expected)
{
    return !picture.isNull() && picture.toImage() == expected.toImage();
}

struct Scene {
    std::vector<Mark> marks;
    QSize frame;
    bool moves;           ///< The first mark, before each picture.
    bool isShown = false; ///< Whether each picture is laid over a frame of video.
};

/// Lays pictures over a frame of video, as a preview does.
class VideoFrame {
public:
    explicit VideoFrame(const QSize& size) : m_frame(size, QImage::Format_RGB32) { m_frame.fill(Qt::gray); }

    void show(const QPixmap& picture)
    {
        QPainter painter(&m_frame);
        painter.drawPixmap(0, 0, picture);
    }

private:
    QImage m_frame;
};

Contestant libraryAt(const Scene& scene)
{
    const auto model = std::make_shared<ZoEffectModel>();
    fillWithMarks(*model, scene.marks, scene.frame);
    const auto video = std::make_shared<VideoFrame>(scene.frame);
    return {"library", [=](benchmark::State& state) {
                std::size_t turn = 0;
                model->setData(hPosition, places[0], type, 0);
                QPixmap picture;
                for (auto _ : state) {
                    if (scene.moves) {
                        turn = 1 - turn;
                        model->setData(hPosition, places[turn], type, 0);
                    }
                    picture = model->getWatermark(scene.frame.width(), scene.frame.height(), true);
                    if (scene.isShown)
                        video->show(picture);
                }
                BarePainter expected(scene.marks, scene.frame);
                expected.moveFirst(places[turn]);
                if (!isSame(picture, expected.paint()))
                    state.SkipWithError(wrongPicture);
            }};
}

Contestant limitAt(const Scene& scene)
{
    const auto painter = std::make_shared<BarePainter>(scene.marks, scene.frame);
    const auto video = std::make_shared<VideoFrame>(scene.frame);
    return {"limit", [=](benchmark::State& state) {
                std::size_t turn = 0;
                QPixmap picture;
                for (auto _ : state) {
                    if (scene.moves) {
                        turn = 1 - turn;
                        painter->moveFirst(places[turn]);
                    }
                    picture = painter->paint();
                    if (scene.isShown)
                        video->show(picture);
                }
                BarePainter expected(scene.marks, scene.frame);
                if (scene.moves)
                    expected.moveFirst(places[turn]);
                if (!isSame(picture, expected.paint()))
                    state.SkipWithError(wrongPicture);
            }};
}

#ifdef HAVE_PANGOCAIRO
Contestant cairoAt(const Scene& scene)
{
    const auto painter = std::make_shared<CairoPainter>(scene.marks, scene.frame);
    return {"Cairo", [=](benchmark::State& state) {
                std::size_t turn = 0;
                cairo_surface_t* picture = nullptr;
                for (auto _ : state) {
                    if (scene.moves) {
                        turn = 1 - turn;
                        painter->moveFirst(places[turn]);
                    }
                    // As on the other sides, the old picture is there until the new one is.
                    cairo_surface_t* next = painter->paint();
                    cairo_surface_destroy(picture);
                    picture = next;
                    if (scene.isShown)
                        painter->show(picture);
                }
                if (!painter->shows(picture))
                    state.SkipWithError("the picture lacks a watermark");
                cairo_surface_destroy(picture);
            }};
}
#endif

Case caseOf(const std::string& name, const Scene& scene, int iterations)
{
    Case made{name, {libraryAt(scene), limitAt(scene)}, iterations};
#ifdef HAVE_PANGOCAIRO
    made.contestants.push_back(cairoAt(scene));
#endif
    return made;
}

struct Kind {
    const char* name;
    bool moves;
    bool isShown;
};

/// Each of \a kinds for 1, 4 and 16 watermarks in two frames.
std::vector<Case> casesOf(const std::vector<Kind>& kinds)
{
    struct Frame {
        QSize size;
        const char* name = nullptr;
    };
    static const Frame frames[] = {{QSize(1280, 720), "1280x720"}, {QSize(3840, 2160), "3840x2160"}};
    constexpr int iterations = 3;

    std::vector<Case> cases;
    for (const Frame& frame : frames) {
        for (const int count : {1, 4, 16}) {
            const std::vector<Mark> marks = marksFor(count, frame.size);
            const std::string name = std::to_string(count) + " at " + frame.name;
            for (const Kind& kind : kinds)
                cases.push_back(caseOf(name + kind.name, {marks, frame.size, kind.moves, kind.isShown}, iterations));
        }
    }
    return cases;
}

} // namespace

std::vector<Case> againCases(int /*largest*/)
{
    return casesOf({{", unchanged", false, false}});
}

std::vector<Case> watermarkCases(int /*largest*/)
{
    return casesOf({{", one moved", true, false}, {", moved and shown", true, true}});
}

std::vector<Case> otherSizeCases(int /*largest*/)
{
    constexpr double factor = 1.5;
    const QSize base(1280, 720);
    const QSize shown(1920, 1080);
    const std::vector<Mark> marks = marksFor(16, base);
    const std::vector<Mark> scaledMarks = scaled(marks, factor);

    const auto model = std::make_shared<ZoEffectModel>();
    fillWithMarks(*model, marks, base);
    const Contestant library{"library", [=](benchmark::State& state) {
                                 QPixmap picture;
                                 for (auto _ : state)
                                     picture = model->getWatermark(shown.width(), shown.height(), true);
                                 if (!isSame(picture, BarePainter(scaledMarks, shown).paint()))
                                     state.SkipWithError(wrongPicture);
                             }};
    return {{"16 at 1920x1080, made for 1280x720", {library, limitAt({scaledMarks, shown, false})}, 3}};
}
