// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "watermarktext_p.h"

#include <QCache>
#include <QFont>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPointer>
#include <QStringList>

#include "canvas_p.h"
#include "perthread_p.h"

namespace {

constexpr int measureFlags = Qt::AlignLeft | Qt::AlignTop;
constexpr int drawFlags = Qt::AlignLeft | Qt::AlignVCenter;
constexpr int keptTexts = 256;
constexpr int longestKept = 256;
constexpr qint64 largestPrepared = 1000000; // Pixels.
/// Qt draws letters of 64 pixels and more along their outlines, and not always with the same pixels: it depends on
/// where they stand and on what was measured before. Nothing of those is kept.
constexpr qreal outlinedLetters = 64.0;
constexpr qreal pointsPerInch = 72.0;

/// A text and all that its layout depends on: the font that was asked for, what may stand for it, and how the one that
/// was found measures.
struct Key {
    QString text;
    QFont font;
    QStringList substitutes;
    int dotsPerInch;
    int ascent;
    int descent;
    int averageWidth;
};

Key keyOf(const QPainter& painter, const QString& text)
{
    const QFontMetrics metrics = painter.fontMetrics();
    return {text,
            painter.font(),
            QFont::substitutes(painter.font().family()),
            painter.device()->logicalDpiY(),
            metrics.ascent(),
            metrics.descent(),
            metrics.averageCharWidth()};
}

bool operator==(const Key& left, const Key& right)
{
    return left.text == right.text && left.dotsPerInch == right.dotsPerInch && left.ascent == right.ascent
           && left.descent == right.descent && left.averageWidth == right.averageWidth && left.font == right.font
           && left.substitutes == right.substitutes;
}

bool hasOutlinedLetters(const QPainter& painter)
{
    const QFont& font = painter.font();
    if (font.pixelSize() > 0)
        return font.pixelSize() >= outlinedLetters;
    return font.pointSizeF() * painter.device()->logicalDpiY() / pointsPerInch >= outlinedLetters;
}

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
using Hash = uint;
#else
using Hash = std::size_t;
#endif

Hash qHash(const Key& key, Hash seed = 0)
{
    return qHash(key.text, seed);
}

struct Texts {
    QCache<Key, WatermarkText> kept{keptTexts};
    QPointer<QObject> application;
};

void forgetTexts()
{
    if (auto* texts = perThread<Texts>())
        texts->kept.clear();
}

/// Null when nothing is kept any more. Texts are forgotten when the application goes, since fonts must not outlive it,
/// and when its fonts change.
Texts* textsOfApplication()
{
    auto* texts = perThread<Texts>();
    if (texts && texts->application != QCoreApplication::instance()) {
        forgetTexts();
        texts->application = QCoreApplication::instance();
        QObject::connect(texts->application, &QObject::destroyed, forgetTexts);
        QObject::connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, forgetTexts);
    }
    return texts;
}

WatermarkText measured(QPainter& painter, const QString& text)
{
    const QSize size = painter.fontMetrics().size(measureFlags, text);
    return {text, painter.boundingRect(QRect(QPoint(0, 0), size), measureFlags, text).size(), std::nullopt};
}

/// The picture of \a text alone, drawn with the font of \a painter and some room around it.
QImage trial(const QPainter& painter, const WatermarkText& text)
{
    const int room = text.size.height();
    QPixmap canvas = transparentCanvas(text.size + 2 * QSize(room, room));
    QPainter onCanvas;
    if (canvas.isNull() || !onCanvas.begin(&canvas))
        return QImage();
    onCanvas.setRenderHints(painter.renderHints());
    onCanvas.setFont(painter.font());
    constexpr int translucent = 100; // Shows what is painted twice, too.
    onCanvas.setPen(QColor(0, 0, 0, translucent));
    text.draw(onCanvas, room, room);
    onCanvas.end();
    return canvas.toImage();
}

/// Prepares \a text where that changes no pixel.
void prepare(WatermarkText& text, const QPainter& painter)
{
    const qint64 height = text.size.height();
    if (text.size.isEmpty() || (text.size.width() + 2 * height) * 3 * height > largestPrepared)
        return;
    WatermarkText shaped = text;
    shaped.prepared = QStaticText(text.text);
    shaped.prepared->setTextFormat(Qt::PlainText);
    const QImage expected = trial(painter, text);
    if (!expected.isNull() && trial(painter, shaped) == expected)
        text = shaped;
}

} // namespace

WatermarkText WatermarkText::laidOut(QPainter& painter, const QString& text)
{
    const bool canBeKept = text.size() <= longestKept && !hasOutlinedLetters(painter);
    Texts* texts = canBeKept ? textsOfApplication() : nullptr;
    if (!texts)
        return measured(painter, text);
    const Key key = keyOf(painter, text);
    if (const WatermarkText* known = texts->kept.object(key))
        return *known;
    WatermarkText result = measured(painter, text);
    prepare(result, painter);
    texts->kept.insert(key, new WatermarkText(result));
    return result;
}

void WatermarkText::forgetAll()
{
    forgetTexts();
}

void WatermarkText::draw(QPainter& painter, int left, int top) const
{
    if (prepared)
        painter.drawStaticText(left, top, *prepared);
    else
        painter.drawText(QRect(QPoint(left, top), size), drawFlags, text);
}
