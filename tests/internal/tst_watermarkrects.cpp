// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QtTest>

#include "watermarkrects_p.h"
#include "zoeffectitemdata.h"

namespace {

using placement::OccupiedRect;

ZoEffectItemData* addWatermark(ZoEffectItemData& typeNode, int left, int top, int width, int height)
{
    auto* item = new ZoEffectItemData(QString(), &typeNode);
    item->setData(QStringLiteral("wm_hposition"), left);
    item->setData(QStringLiteral("wm_vposition"), top);
    item->setData(QStringLiteral("wm_imagewidth"), width);
    item->setData(QStringLiteral("wm_imageheight"), height);
    item->setCheckState(Qt::Checked);
    return item;
}

/// "left top right bottom" of each.
QStringList edges(const QVector<OccupiedRect>& rectangles)
{
    QStringList texts;
    for (const OccupiedRect& rect : rectangles)
        texts << QStringLiteral("%1 %2 %3 %4").arg(rect.left).arg(rect.top).arg(rect.right).arg(rect.bottom);
    return texts;
}

} // namespace

class TstWatermarkRects : public QObject {
    Q_OBJECT

private slots:
    void watermarkWithoutParentHasNothingBesideIt();
    void selectedWatermarksBesideAreTakenInTheirOrder();
};

void TstWatermarkRects::watermarkWithoutParentHasNothingBesideIt()
{
    const ZoEffectItemData item(QStringLiteral("Watermark"));
    QCOMPARE(placement::shownBeside(item).size(), 0);
}

void TstWatermarkRects::selectedWatermarksBesideAreTakenInTheirOrder()
{
    ZoEffectItemData typeNode(QStringLiteral("Watermark"));
    addWatermark(typeNode, 1, 2, 30, 40);
    addWatermark(typeNode, 5, 6, 7, 8)->setCheckState(Qt::Unchecked);
    addWatermark(typeNode, 9, 10, 11, 12)->setCheckState(Qt::PartiallyChecked);
    const ZoEffectItemData* item = addWatermark(typeNode, 13, 14, 15, 16);
    typeNode.appendChild(nullptr);
    addWatermark(typeNode, 50, 60, 0, 0);
    addWatermark(typeNode, 0, 0, 2, 3);
    const QStringList beside{QStringLiteral("1 2 30 41"), QStringLiteral("50 60 79 59"), QStringLiteral("0 0 1 2")};
    QCOMPARE(edges(placement::shownBeside(*item)), beside);
}

QTEST_GUILESS_MAIN(TstWatermarkRects)

#include "tst_watermarkrects.moc"
