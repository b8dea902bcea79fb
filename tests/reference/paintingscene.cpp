// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "paintingscene.h"

#include <QColor>
#include <QDateTime>
#include <QFile>
#include <QFont>
#include <QPainter>
#include <QPixmapCache>

#include "logcapture.h"

namespace {

constexpr int imageNotLoaded = 1178;
/// Qt draws larger letters as outlines, and each for the first time a little different than from then on.
constexpr int largestUsualFont = 40;

/// Colours that change from pixel to pixel; \a leastAlpha 255 for none that shines through.
QImage pattern(int width, int height, int leastAlpha)
{
    QImage image(width, height, leastAlpha == 255 ? QImage::Format_RGB32 : QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int alpha = leastAlpha + (x * 13 + y * 29) % (256 - leastAlpha);
            image.setPixel(x, y, qRgba((x * 37) % 256, (y * 53) % 256, (x * y) % 256, alpha));
        }
    }
    return image;
}

/// The watermarks of a model with all that they hold.
QStringList listed(const ZoEffectModel& model)
{
    QStringList items;
    const ZoEffectItemData* typeNode = model.getDataItem("Watermark", -1);
    for (int row = 0; row < typeNode->childCount(); ++row) {
        const ZoEffectItemData* item = typeNode->child(row);
        items << QString::number(item->checkState()) + described(item->properties());
    }
    return items;
}

bool sameItems(const ZoEffectModel& left, const ZoEffectModel& right)
{
    const ZoEffectItemData* leftType = left.getDataItem("Watermark", -1);
    const ZoEffectItemData* rightType = right.getDataItem("Watermark", -1);
    if (leftType->childCount() != rightType->childCount())
        return false;
    for (int row = 0; row < leftType->childCount(); ++row) {
        const ZoEffectItemData& one = *leftType->child(row);
        const ZoEffectItemData& other = *rightType->child(row);
        if (one.checkState() != other.checkState() || one.properties() != other.properties())
            return false;
        for (const char* key : {"wm_imagewidth", "wm_imageheight"}) {
            if (one.data(key).userType() != other.data(key).userType())
                return false;
        }
    }
    return true;
}

} // namespace

// --- Files -------------------------------------------------------------------------------------------------------

ImageFiles::ImageFiles()
{
    write("opaque.png", pattern(12, 9, 255));
    write("clear.png", pattern(7, 11, 0));
    write("photo.jpg", pattern(16, 16, 255));
    write("plain.bmp", pattern(5, 4, 255));
    write("one.png", pattern(1, 1, 128));
    write("changing.png", pattern(6, 6, 40));
    QFile text(path("text.bmp"));
    if (text.open(QIODevice::WriteOnly))
        text.write("no image at all");
    for (const char* name : {"opaque.png", "clear.png", "photo.jpg", "plain.bmp", "one.png", "changing.png", "text.bmp",
                             "absent.png", "", "../nowhere/absent.jpg"}) {
        m_paths << path(QString::fromLatin1(name));
    }
    m_paths << path("./opaque.png") << QString();
}

void ImageFiles::write(const QString& name, const QImage& image)
{
    if (!image.save(path(name)))
        qFatal("cannot write %s", qUtf8Printable(path(name)));
    QFile file(path(name));
    if (!file.open(QIODevice::ReadWrite)
        || !file.setFileTime(QDateTime::fromSecsSinceEpoch(1600000000 + 10 * ++m_writes),
                             QFileDevice::FileModificationTime)) {
        qFatal("cannot set the time of %s", qUtf8Printable(path(name)));
    }
}

// --- Values ------------------------------------------------------------------------------------------------------

const QStringList& SceneSource::keys()
{
    static const QStringList all{"wm_hposition",  "wm_vposition",       "wm_transparency", "wm_transfactor",
                                 "wm_ingnore",    "wm_istextwatermark", "wm_imageurl",     "wm_imageformat",
                                 "wm_imagewidth", "wm_imageheight",     "wm_textcontent",  "wm_fontname",
                                 "wm_fontsize",   "wm_fontcolor",       "wm_fontstyle"};
    return all;
}

QVariant SceneSource::value(const QString& key)
{
    if (key.endsWith("position"))
        return position();
    if (key == "wm_transparency")
        return oneIn(10) ? QVariant(QString::number(between(0, 100))) : QVariant(between(-50, 150));
    if (key == "wm_transfactor")
        return factor();
    if (key == "wm_ingnore")
        return oneIn(3);
    if (key == "wm_istextwatermark")
        return oneIn(8) ? QVariant("true") : QVariant(below(2));
    if (key == "wm_imageurl")
        return m_files.paths().at(below(static_cast<int>(m_files.paths().size())));
    if (key == "wm_imageformat")
        return QStringList{"", "", "", "", "BMP", "bmp", "PPM", "xyz"}.at(below(8));
    if (key == "wm_imagewidth" || key == "wm_imageheight")
        return oneIn(8) ? QVariant(QList<int>{0, -7, 1, 3000}.at(below(4))) : QVariant(between(2, 60));
    if (key == "wm_textcontent")
        return text();
    if (key == "wm_fontname")
        return font();
    if (key == "wm_fontsize")
        return QList<int>{-1, 0, 1, 5, 9, 12, 22, 23, largestUsualFont}.at(below(9));
    if (key == "wm_fontcolor")
        return color();
    return QStringList{"Regular", "Italic", "Bold", "Bold Italic", "bold", ""}.at(below(6));
}

QVariant SceneSource::position()
{
    if (oneIn(12))
        return QList<int>{-100000, 100000, 160, 90, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}
            .at(below(6));
    return oneIn(10) ? QVariant(QString::number(between(0, 40))) : QVariant(between(-40, 130));
}

QVariant SceneSource::factor()
{
    switch (below(8)) {
    case 0:
        return QVariant();
    case 1:
        return "no number";
    case 2:
        return "1.5";
    case 3:
        return -2.55;
    case 4:
        return 2;
    case 5:
        return between(0, 400) / 100.0;
    default:
        return 2.55;
    }
}

QVariant SceneSource::text()
{
    const QStringList texts{"",
                            "Preview",
                            "Preview ",
                            "preview",
                            "two\nlines",
                            "a\n\nb\nc\n",
                            "tab\tand\ttab",
                            QString::fromUtf8("שלום abc عربي"),
                            QString("null") + QChar(0) + "char",
                            "&ampersand && more",
                            "a line that is much longer than the frame is wide, and does not end before its end",
                            " ",
                            QString::fromUtf8("Größe 日本 é")};
    if (oneIn(4))
        return QString::number(between(0, 99999));
    return texts.at(below(static_cast<int>(texts.size())));
}

QVariant SceneSource::font()
{
    switch (below(9)) {
    case 0:
        return QVariant();
    case 1:
        return "DejaVu Sans Mono";
    case 2:
        return 5;
    case 3:
        return "No Such Family";
    case 4: {
        QFont font("DejaVu Sans", 14, QFont::Bold, true);
        font.setUnderline(oneIn(2));
        font.setLetterSpacing(QFont::AbsoluteSpacing, between(0, 3));
        return font;
    }
    case 5: {
        QFont font("DejaVu Serif");
        font.setPixelSize(between(5, 30));
        font.setStrikeOut(oneIn(2));
        return font;
    }
    case 6:
        return QFont("DejaVu Sans,14,-1,5,75,1,0,0,0,0");
    case 7:
        return QFont("DejaVu Sans Mono");
    default:
        return QFont("Tahoma", -1, -1, false);
    }
}

QVariant SceneSource::color()
{
    const QList<QVariant> colors{
        QColor(Qt::white), QColor(10, 200, 30, 40), "red", "#80ff0000", "no colour", QVariant(), QColor(), 7};
    return oneIn(4) ? QVariant(QColor(below(256), below(256), below(256))) : colors.at(below(8));
}

QMap<QString, QVariant> SceneSource::item()
{
    QMap<QString, QVariant> properties;
    for (const QString& key : keys()) {
        if (!oneIn(12))
            properties.insert(key, value(key));
    }
    return properties;
}

QSize SceneSource::frame()
{
    return QList<QSize>{{160, 90}, {160, 90}, {97, 61}, {40, 120}, {1, 1}, {0, 50}}.at(below(6));
}

// --- Models ------------------------------------------------------------------------------------------------------

Twins::Twins()
{
    QObject::connect(&m_painting,
                     qOverload<const QString&, const QString&, const QVariant&, int>(&Model::effectDataChanged),
                     &m_painting, [this] {
                         bite(m_painting, [this] {
                             const QSize size = m_painting.baseSize();
                             m_painting.getWatermark(size.width(), size.height(), true);
                         });
                     });
    QObject::connect(&m_painted,
                     qOverload<const QString&, const QString&, const QVariant&, int>(&Model::effectDataChanged),
                     &m_painted, [this] {
                         bite(m_painted, [this] {
                             const QSize size = m_painted.baseSize();
                             m_painter.paint(m_painted, size.width(), size.height(), true);
                         });
                     });
}

void Twins::both(const std::function<void(Model&)>& change)
{
    change(m_painting);
    change(m_painted);
}

void Twins::newScene(SceneSource& source)
{
    const QSize frame = source.frame();
    QList<QMap<QString, QVariant>> items;
    QList<int> states;
    for (int count = source.below(9); count > 0; --count) {
        items << source.item();
        states << (source.oneIn(6) ? 0 : 2);
    }
    const int state = source.oneIn(25) ? 0 : 2;
    both([&](Model& model) {
        model.setVideoSize(frame.width(), frame.height());
        ZoEffectItemData* typeNode = model.getDataItem("Watermark", -1);
        typeNode->clear();
        typeNode->setCheckState(state);
        for (int i = 0; i < items.size(); ++i) {
            auto* item = new ZoEffectItemData(QString(), typeNode);
            item->setCheckState(states.at(i));
            for (auto it = items.at(i).cbegin(); it != items.at(i).cend(); ++it)
                item->setData(it.key(), it.value());
        }
    });
}

void Twins::setValue(int row, const QString& key, const QVariant& value, bool throughModel)
{
    both([&](Model& model) {
        if (throughModel)
            model.setData(key, value, "Watermark", row);
        else
            model.getDataItem("Watermark", row)->setData(key, value);
    });
}

void Twins::bite(Model& model, const Render& render)
{
    if (m_bitten)
        return;
    m_bitten = true;
    m_bite(model, render);
}

void Twins::drawLettersOnce()
{
    ZoEffectModel copy(m_painted);
    stepbystep::Painter().paint(copy, copy.baseSize().width(), copy.baseSize().height(), false);
}

/// Letters of some 48 points and more are drawn along their outlines, and Qt takes slightly other pixels for that the
/// first time after other fonts were drawn: of such a scene the second picture counts.
static bool hasLargeLetters(const ZoEffectModel& model)
{
    constexpr int largePoints = 45;
    for (int pos = 0; pos < model.childCount(QStringLiteral("Watermark")); ++pos) {
        if (model.data(QStringLiteral("wm_fontsize"), QStringLiteral("Watermark"), pos).toInt() >= largePoints)
            return true;
    }
    return false;
}

QString Twins::difference(int w, int h, bool honourIgnore)
{
    logcapture::takeEvents();
    // Each side loads its images by itself.
    QPixmapCache::clear();
    m_bitten = !m_bite;
    QPixmap picture = m_painting.getWatermark(w, h, honourIgnore);
    const QList<int> events = logcapture::takeEvents();
    QPixmapCache::clear();
    m_bitten = !m_bite;
    const QImage expected = m_painter.paint(m_painted, w, h, honourIgnore);
    m_bitten = true;

    QList<int> expectedEvents;
    for (int count = m_painter.takeUnreadable(); count > 0; --count)
        expectedEvents << imageNotLoaded;

    if (stepbystep::comparable(m_last) != m_lastImage)
        return QStringLiteral("an earlier picture has changed");
    m_last = picture;
    m_lastImage = stepbystep::comparable(picture);
    if (m_lastImage != expected && hasLargeLetters(m_painted)) {
        picture = m_painting.getWatermark(w, h, honourIgnore);
        logcapture::takeEvents();
        m_last = picture;
        m_lastImage = stepbystep::comparable(picture);
    }
    if (m_lastImage != expected)
        return QStringLiteral("picture of ") + listed(m_painted).join("; ");
    if (events != expectedEvents)
        return QStringLiteral("%1 log entries, not %2").arg(events.size()).arg(expectedEvents.size());
    if (m_paintingSignals.take() != m_paintedSignals.take())
        return QStringLiteral("signals");
    if (!sameItems(m_painting, m_painted))
        return QStringLiteral("items");
    if (!picture.isNull())
        picture.fill(Qt::red); // A host may write into its copy.
    return QString();
}

QString Twins::difference(bool honourIgnore)
{
    return difference(m_painting.baseSize().width(), m_painting.baseSize().height(), honourIgnore);
}
