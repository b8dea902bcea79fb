// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <limits>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QtTest>

#include "canvas_p.h"

class TstCanvas : public QObject {
    Q_OBJECT

private slots:
    void sizes_data();
    void sizes();
    void canvasIsTransparent();
    void canvasTakesPaint();
    void canvasesShareNothing();
    void pictureOutlivesItsCanvas();
    void withoutGraphicalSide();
};

void TstCanvas::sizes_data()
{
    constexpr int largest = std::numeric_limits<int>::max();
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("canBeHad");

    QTest::newRow("one pixel") << QSize(1, 1) << true;
    QTest::newRow("odd") << QSize(641, 3) << true;
    QTest::newRow("longest row") << QSize(32767, 1) << true;
    QTest::newRow("longest column") << QSize(1, 32767) << true;
    QTest::newRow("row too long") << QSize(32768, 1) << false;
    QTest::newRow("column too long") << QSize(1, 32768) << false;
    QTest::newRow("too many pixels") << QSize(32767, 8193) << false;
    QTest::newRow("no width") << QSize(0, 10) << false;
    QTest::newRow("no height") << QSize(10, 0) << false;
    QTest::newRow("negative") << QSize(-10, -10) << false;
    QTest::newRow("invalid") << QSize() << false;
    QTest::newRow("largest") << QSize(largest, largest) << false;
}

void TstCanvas::sizes()
{
    QFETCH(const QSize, size);
    QFETCH(const bool, canBeHad);
    const QPixmap canvas = transparentCanvas(size);
    QCOMPARE(!canvas.isNull(), canBeHad);
    QCOMPARE(canvas.size(), canBeHad ? size : QSize(0, 0));
}

void TstCanvas::canvasIsTransparent()
{
    const QPixmap canvas = transparentCanvas(QSize(67, 13));
    QVERIFY(canvas.hasAlpha());
    QImage expected(67, 13, QImage::Format_ARGB32_Premultiplied);
    expected.fill(QColor(0, 0, 0, 0));
    QCOMPARE(canvas.toImage(), expected);
}

void TstCanvas::canvasTakesPaint()
{
    QPixmap canvas = transparentCanvas(QSize(4, 2));
    QPainter painter(&canvas);
    painter.fillRect(QRect(1, 0, 2, 1), QColor(255, 0, 0, 255));
    painter.end();
    const QImage picture = canvas.toImage();
    QCOMPARE(picture.pixel(0, 0), qRgba(0, 0, 0, 0));
    QCOMPARE(picture.pixel(1, 0), qRgba(255, 0, 0, 255));
    QCOMPARE(picture.pixel(2, 0), qRgba(255, 0, 0, 255));
    QCOMPARE(picture.pixel(3, 0), qRgba(0, 0, 0, 0));
    QCOMPARE(picture.pixel(1, 1), qRgba(0, 0, 0, 0));
}

void TstCanvas::canvasesShareNothing()
{
    QPixmap first = transparentCanvas(QSize(4, 4));
    first.fill(Qt::green);
    const QPixmap second = transparentCanvas(QSize(4, 4));
    QCOMPARE(second.toImage().pixel(2, 2), qRgba(0, 0, 0, 0));
    QCOMPARE(first.toImage().pixel(2, 2), qRgba(0, 255, 0, 255));
}

void TstCanvas::pictureOutlivesItsCanvas()
{
    QImage picture;
    {
        QPixmap canvas = transparentCanvas(QSize(300, 200));
        QPainter painter(&canvas);
        painter.fillRect(canvas.rect(), QColor(0, 0, 255, 255));
        painter.end();
        picture = canvas.toImage();
    }
    QCOMPARE(picture.pixel(299, 199), qRgba(0, 0, 255, 255));
    picture.setPixel(0, 0, qRgba(1, 2, 3, 255));
    QCOMPARE(picture.pixel(0, 0), qRgba(1, 2, 3, 255));
}

void TstCanvas::withoutGraphicalSide()
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--core")});
    QVERIFY(child.waitForFinished());
    QCOMPARE(child.exitStatus(), QProcess::NormalExit);
    QCOMPARE(child.exitCode(), 0);
}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc == 2 && qstrcmp(argv[1], "--core") == 0) {
        const QCoreApplication application(argc, argv);
        return transparentCanvas(QSize(10, 10)).isNull() ? 0 : 1;
    }
    QGuiApplication application(argc, argv);
    TstCanvas test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_canvas.moc"
