// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// Where the text of a watermark stands in the picture.

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
const QString text = QStringLiteral("HjH");

QFont usualFont()
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSize(20);
    return font;
}

/// The smallest rectangle around all that is painted.
QRect inkOf(const QImage& picture)
{
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qAlpha(picture.pixel(x, y)) > 0)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

/// Painted from the base line on, without a rectangle.
QImage paintedByHand(const QPoint& place)
{
    QImage picture(frame, QImage::Format_ARGB32_Premultiplied);
    picture.fill(0);
    QPainter painter(&picture);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setFont(usualFont());
    painter.drawText(place.x(), place.y() + QFontMetrics(usualFont()).ascent(), text);
    return picture;
}

} // namespace

class TstWatermarkText : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void inkStandsWhereTheTextIs_data();
    void inkStandsWhereTheTextIs();
};

void TstWatermarkText::initTestCase()
{
    ZoEffectModel::InitEffectModel(hostCatalogue());
}

void TstWatermarkText::inkStandsWhereTheTextIs_data()
{
    QTest::addColumn<QPoint>("place");
    QTest::newRow("in the corner") << QPoint(0, 0);
    QTest::newRow("inside") << QPoint(31, 17);
    QTest::newRow("beyond the left and upper edge") << QPoint(-7, -9);
    QTest::newRow("beyond the right edge") << QPoint(190, 40);
    QTest::newRow("beyond the lower edge") << QPoint(40, 85);
}

void TstWatermarkText::inkStandsWhereTheTextIs()
{
    QFETCH(QPoint, place);
    ZoEffectModel model;
    model.setVideoSize(frame.width(), frame.height());
    auto* item = new ZoEffectItemData(QString(), model.getDataItem(QStringLiteral("Watermark"), -1));
    item->setCheckState(Qt::Checked);
    item->setData(QStringLiteral("wm_istextwatermark"), true);
    item->setData(QStringLiteral("wm_textcontent"), text);
    item->setData(QStringLiteral("wm_hposition"), place.x());
    item->setData(QStringLiteral("wm_vposition"), place.y());
    item->setData(QStringLiteral("wm_fontname"), usualFont());
    item->setData(QStringLiteral("wm_fontsize"), 20);
    item->setData(QStringLiteral("wm_fontcolor"), QColor(Qt::black));
    item->setData(QStringLiteral("wm_fontstyle"), QStringLiteral("Regular"));

    const QRect expected = inkOf(paintedByHand(place));
    QVERIFY(!expected.isEmpty());
    QCOMPARE(inkOf(model.getWatermark(frame.width(), frame.height(), false).toImage()), expected);
}

ZOEFFECT_TEST_MAIN(TstWatermarkText)

#include "tst_watermark_text.moc"
