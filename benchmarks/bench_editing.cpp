// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What a person waits for: a value is set, and the picture that follows from it is painted.

#include <memory>

#include <QImage>
#include <QPainter>
#include <QPixmapCache>

#include "logos.h"
#include "pictures.h"
#include "rounds.h"
#include "settings.h"

namespace {

constexpr char wrongPicture[] = "the picture is not the one that bare QPainter paints";
constexpr char evicted[] = "icons of the host's are gone from QPixmapCache";
constexpr int picturesOfText = 20;
constexpr int picturesOfLogo = 5;

const QSize frame(1280, 720);
const QString type = QStringLiteral("Watermark");

/// The text of a person who types: another one each time.
QString typedText(int step)
{
    return QStringLiteral("Summer in the mountains, part %1").arg(step);
}

int sizeAt(int step)
{
    return 12 + step % 36;
}

int transparencyAt(int step)
{
    return step % 100;
}

/// A text as a careful host paints it: measured, then drawn.
struct PlainText {
    QString text;
    QFont font;
    int left;
    int top;

    QPixmap paint(const QSize& size) const
    {
        constexpr int drawFlags = Qt::AlignLeft | Qt::AlignVCenter;
        constexpr int measureFlags = Qt::AlignLeft | Qt::AlignTop;
        QPixmap canvas(size);
        canvas.fill(QColor(0, 0, 0, 0));
        QPainter painter(&canvas);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        painter.setFont(font);
        QColor color(Qt::white);
        color.setAlpha(watermarkAlpha);
        painter.setPen(color);
        const QRect rect = painter.boundingRect(QRect(), measureFlags, text);
        painter.drawText(QRect(QPoint(left, top), rect.size()), drawFlags, text);
        return canvas;
    }
};

/// Sets one value of a text watermark and asks for the picture, on both sides.
Case textCase(const std::string& name, const QString& key, QVariant (*valueAt)(int),
              void (*apply)(PlainText&, const QVariant&))
{
    const std::vector<Mark> marks = marksFor(1, frame);
    const Mark& mark = marks.front();
    const PlainText start{mark.text, QFont(QStringLiteral("Tahoma"), mark.fontSize, QFont::Normal, false), mark.left,
                          mark.top};
    const auto model = std::make_shared<ZoEffectModel>();
    fillWithMarks(*model, marks, frame);
    const auto step = std::make_shared<int>(0);
    const Contestant library{"library", [=](benchmark::State& state) {
                                 QPixmap picture;
                                 for (auto _ : state) {
                                     model->setData(key, valueAt(++*step), type, 0);
                                     picture = model->getWatermark(frame.width(), frame.height(), true);
                                 }
                                 PlainText expected = start;
                                 apply(expected, valueAt(*step));
                                 if (picture.toImage() != expected.paint(frame).toImage())
                                     state.SkipWithError(wrongPicture);
                             }};
    const auto plainStep = std::make_shared<int>(0);
    const Contestant limit{"limit", [=](benchmark::State& state) {
                               PlainText plain = start;
                               QPixmap picture;
                               for (auto _ : state) {
                                   apply(plain, valueAt(++*plainStep));
                                   picture = plain.paint(frame);
                               }
                               if (picture.isNull())
                                   state.SkipWithError(wrongPicture);
                           }};
    return {name, {library, limit}, picturesOfText};
}

/// What a host keeps in QPixmapCache besides.
class HostIcons {
public:
    HostIcons()
    {
        QPixmap icon(32, 32);
        icon.fill(Qt::red);
        for (int i = 0; i < count; ++i)
            QPixmapCache::insert(key(i), icon);
    }

    static bool areThere()
    {
        QPixmap icon;
        for (int i = 0; i < count; ++i) {
            if (!QPixmapCache::find(key(i), &icon))
                return false;
        }
        return true;
    }

private:
    static constexpr int count = 100;
    static QString key(int i) { return QStringLiteral("icon of the host %1").arg(i); }
};

const QString transparency = QStringLiteral("wm_transparency");

} // namespace

std::vector<Case> typingCases(int /*largest*/)
{
    return {textCase(
        "a text at 1280x720", QStringLiteral("wm_textcontent"), [](int step) { return QVariant(typedText(step)); },
        [](PlainText& plain, const QVariant& value) { plain.text = value.toString(); })};
}

std::vector<Case> fontSizeCases(int /*largest*/)
{
    return {textCase(
        "a text at 1280x720", QStringLiteral("wm_fontsize"), [](int step) { return QVariant(sizeAt(step)); },
        [](PlainText& plain, const QVariant& value) { plain.font.setPointSize(value.toInt()); })};
}

std::vector<Case> transparencyCases(int /*largest*/)
{
    std::vector<Case> cases;
    for (const Logo& logo : logos()) {
        const auto model = std::make_shared<ZoEffectModel>();
        fillWithLogo(*model, logo, frame);
        const auto step = std::make_shared<int>(0);
        const Contestant library{"library", [=](benchmark::State& state) {
                                     const HostIcons icons;
                                     QPixmap picture;
                                     for (auto _ : state) {
                                         model->setData(transparency, transparencyAt(++*step), type, 0);
                                         picture = model->getWatermark(frame.width(), frame.height(), true);
                                     }
                                     if (!HostIcons::areThere())
                                         state.SkipWithError(evicted);
                                     const PlainLogo expected(logo, 1.0, transparencyAt(*step));
                                     if (picture.toImage() != expected.paint(frame).toImage())
                                         state.SkipWithError(wrongPicture);
                                 }};
        const auto plainStep = std::make_shared<int>(0);
        const Contestant limit{"limit", [=](benchmark::State& state) {
                                   PlainLogo plain(logo, 1.0, 0);
                                   QPixmap picture;
                                   for (auto _ : state) {
                                       plain.setTransparency(transparencyAt(++*plainStep));
                                       picture = plain.paint(frame);
                                   }
                                   if (picture.isNull())
                                       state.SkipWithError(wrongPicture);
                               }};
        cases.push_back({logo.name + " at 1280x720", {library, limit}, picturesOfLogo});
    }
    return cases;
}

std::vector<Case> logoSizeCases(int /*largest*/)
{
    constexpr double factor = 1.5;
    const QSize shown(1920, 1080);
    std::vector<Case> cases;
    for (const Logo& logo : logos()) {
        const auto model = std::make_shared<ZoEffectModel>();
        fillWithLogo(*model, logo, frame);
        const Contestant library{"library", [=](benchmark::State& state) {
                                     const HostIcons icons;
                                     QPixmap picture;
                                     for (auto _ : state)
                                         picture = model->getWatermark(shown.width(), shown.height(), true);
                                     if (!HostIcons::areThere())
                                         state.SkipWithError(evicted);
                                     if (picture.toImage() != PlainLogo(logo, factor, 0).paint(shown).toImage())
                                         state.SkipWithError(wrongPicture);
                                 }};
        const auto plain = std::make_shared<PlainLogo>(logo, factor, 0);
        const Contestant limit{"limit", [=](benchmark::State& state) {
                                   QPixmap picture;
                                   for (auto _ : state)
                                       picture = plain->paint(shown);
                                   if (picture.isNull())
                                       state.SkipWithError(wrongPicture);
                               }};
        cases.push_back({logo.name + " at 1920x1080, made for 1280x720", {library, limit}, picturesOfLogo});
    }
    return cases;
}

// A whole step of editing: a value is set, the signal comes, its listener asks for the picture. The first of four marks
// goes to another place.

std::vector<Case> editingCases(int /*largest*/)
{
    struct Frame {
        QSize size;
        const char* name = nullptr;
    };
    static const Frame frames[] = {
        {QSize(1280, 720), "1280x720"}, {QSize(1920, 1080), "1920x1080"}, {QSize(3840, 2160), "3840x2160"}};
    constexpr int marks = 4;
    static const QString hPosition = QStringLiteral("wm_hposition");
    static constexpr int places[] = {24, 31};

    std::vector<Case> cases;
    for (const Frame& one : frames) {
        const QSize size = one.size;
        const std::vector<Mark> scene = marksFor(marks, size);
        const auto isWrong = [=](const QPixmap& picture, std::size_t turn) {
            BarePainter expected(scene, size);
            expected.moveFirst(places[turn]);
            return picture.isNull() || picture.toImage() != expected.paint().toImage();
        };

        const auto model = std::make_shared<ZoEffectModel>();
        fillWithMarks(*model, scene, size);
        const Contestant library{"library", [=](benchmark::State& state) {
                                     QPixmap picture;
                                     std::size_t turn = 0;
                                     const auto connection = QObject::connect(
                                         model.get(),
                                         QOverload<const QString&, const QString&, const QVariant&, int>::of(
                                             &ZoEffectModel::effectDataChanged),
                                         model.get(), [&](const QString&, const QString& key) {
                                             if (key == hPosition)
                                                 picture = model->getWatermark(size.width(), size.height(), true);
                                         });
                                     model->setData(hPosition, places[0], type, 0);
                                     for (auto _ : state) {
                                         turn = 1 - turn;
                                         model->setData(hPosition, places[turn], type, 0);
                                     }
                                     QObject::disconnect(connection);
                                     if (isWrong(picture, turn))
                                         state.SkipWithError(wrongPicture);
                                 }};

        const auto store = std::make_shared<bareqt::Store>();
        fillWithDefaults(*store);
        addWatermarks(*store, marks);
        const auto painter = std::make_shared<BarePainter>(scene, size);
        const Contestant limit{"limit", [=](benchmark::State& state) {
                                   QPixmap picture;
                                   std::size_t turn = 0;
                                   const auto connection =
                                       QObject::connect(store.get(), &bareqt::Store::changed, store.get(),
                                                        [&](const QString&, const QString& key, const QVariant& value) {
                                                            if (key == hPosition) {
                                                                painter->moveFirst(value.toInt());
                                                                picture = painter->paint();
                                                            }
                                                        });
                                   store->setValue(hPosition, places[0], type, 0);
                                   for (auto _ : state) {
                                       turn = 1 - turn;
                                       store->setValue(hPosition, places[turn], type, 0);
                                   }
                                   QObject::disconnect(connection);
                                   if (isWrong(picture, turn))
                                       state.SkipWithError(wrongPicture);
                               }};
        cases.push_back({std::string("4 watermarks at ") + one.name, {library, limit}, picturesOfLogo});
    }
    return cases;
}
