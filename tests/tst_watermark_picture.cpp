// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// The picture of a text is the one that a painter draws who measures it first.

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QPixmap>

#include <zoeffectitemdata.h>
#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "testapplication.h"

namespace {

const QSize frame(200, 100);

} // namespace

class TstWatermarkPicture : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void pictureIsThatOfAPainter_data();
    void pictureIsThatOfAPainter();
};

void TstWatermarkPicture::initTestCase()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
}

void TstWatermarkPicture::pictureIsThatOfAPainter_data()
{
    QTest::addColumn<QString>("content");
    QTest::newRow("words") << QStringLiteral("The quick brown fox");
    QTest::newRow("blanks around") << QStringLiteral("  x  ");
    QTest::newRow("lines") << QStringLiteral("one\nlonger one\nthree");
    QTest::newRow("line ends only") << QStringLiteral("\n\n");
    QTest::newRow("tab") << QStringLiteral("a\tb");
    QTest::newRow("ampersand") << QStringLiteral("a & b && c");
    QTest::newRow("mixed scripts") << QStringLiteral("\u00C4 \u05E9\u05DC\u05D5\u05DD");
    QTest::newRow("beyond the first plane") << QString::fromUcs4(U"\U0001F3AC", 1);
    QTest::newRow("2000 letters") << QString(2000, QLatin1Char('w'));
}

/// Measured first, then drawn, each time anew; the second picture is that of what was stored meanwhile.
void TstWatermarkPicture::pictureIsThatOfAPainter()
{
    QFETCH(const QString, content);
    const QPoint place(13, 21);
    ZoEffectModel model;
    model.setVideoSize(frame.width(), frame.height());
    model.addDataItem("Watermark", {{"wm_istextwatermark", true}, {"wm_textcontent", content}});
    model.setData("wm_hposition", place.x(), "Watermark", 0);
    model.setData("wm_vposition", place.y(), "Watermark", 0);
    for (const char* const family : {"DejaVu Sans", "DejaVu Serif", "No Such Family"}) {
        for (const int points : {1, 8, 21, 61}) {
            QFont font(QString::fromLatin1(family));
            font.setPointSize(points);
            font.setStyle(QFont::StyleNormal);
            font.setWeight(QFont::Normal);
            model.setData("wm_fontname", font, "Watermark", 0);
            model.setData("wm_fontsize", points, "Watermark", 0);

            QPixmap expected(frame);
            expected.fill(Qt::transparent);
            QPainter painter(&expected);
            painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
            painter.setFont(font);
            painter.setPen(QColor(255, 255, 255, 254));
            const QSize room = painter.fontMetrics().size(Qt::AlignLeft | Qt::AlignTop, content);
            const QSize size =
                painter.boundingRect(QRect(QPoint(0, 0), room), Qt::AlignLeft | Qt::AlignTop, content).size();
            painter.drawText(QRect(place, size), Qt::AlignLeft | Qt::AlignVCenter, content);
            painter.end();
            for (int i = 0; i < 2; ++i) {
                QCOMPARE(model.getWatermark(frame.width(), frame.height(), false).toImage(), expected.toImage());
                QCOMPARE(model.data("wm_imagewidth", "Watermark", 0), QVariant(size.width()));
                QCOMPARE(model.data("wm_imageheight", "Watermark", 0), QVariant(size.height()));
            }
        }
    }
}

ZOEFFECT_TEST_MAIN(TstWatermarkPicture)

#include "tst_watermark_picture.moc"
