#include <memory>

#include <QImage>

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
    bool moves;
};

Contestant libraryAt(const Scene& scene)
{
    const auto model = std::make_shared<ZoEffectModel>();
    fillWithMarks(*model, scene.marks, scene.frame);
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
    return {"limit", [=](benchmark::State& state) {
                std::size_t turn = 0;
                QPixmap picture;
                for (auto _ : state) {
                    if (scene.moves) {
                        turn = 1 - turn;
                        painter->moveFirst(places[turn]);
                    }
                    picture = painter->paint();
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
                }
                if (!painter->shows(picture))
                    state.SkipWithError("the picture lacks a watermark");
                cairo_surface_destroy(picture);
            }};
}
#endif

} // namespace

std::vector<Case> watermarkCases(int /*largest*/)
{
    struct Frame {
        QSize size;
        const char* name;
        int iterations;
    };
    static const Frame frames[] = {{QSize(1280, 720), "1280x720", 3}, {QSize(3840, 2160), "3840x2160", 1}};

    std::vector<Case> cases;
    for (const Frame& frame : frames) {
        for (const int count : {1, 4, 16}) {
            for (const bool moves : {false, true}) {
                const Scene scene{marksFor(count, frame.size), frame.size, moves};
                Case made{std::to_string(count) + " at " + frame.name + (moves ? ", one moved" : ", unchanged"),
                          {libraryAt(scene), limitAt(scene)},
                          frame.iterations};
#ifdef HAVE_PANGOCAIRO
                made.contestants.push_back(cairoAt(scene));
#endif
                cases.push_back(made);
            }
        }
    }
    return cases;
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
