// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <limits>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "canvas_p.h"

#include "../support/rows.h"

class TstCanvas : public QObject {
    Q_OBJECT

private slots:
    void sizes_data()
    {
        constexpr int largest = std::numeric_limits<int>::max();
        addRows<QSize, bool>({
            {"one pixel", QSize(1, 1), true},
            {"longest row", QSize(32767, 1), true},
            {"longest column", QSize(1, 32767), true},
            {"row too long", QSize(32768, 1), false},
            {"column too long", QSize(1, 32768), false},
            {"too many pixels", QSize(32767, 8193), false},
            {"no width", QSize(0, 10), false},
            {"no height", QSize(10, 0), false},
            {"negative", QSize(-10, -10), false},
            {"largest", QSize(largest, largest), false},
        });
    }

    void sizes()
    {
        const auto [size, canBeHad] = row<QSize, bool>();
        const QPixmap canvas = canvas::transparentCanvas(size);
        QCOMPARE(!canvas.isNull(), canBeHad);
        QCOMPARE(canvas.size(), canBeHad ? size : QSize(0, 0));
    }

    void canvasIsTransparentAndTakesPaint()
    {
        QImage expected(67, 13, QImage::Format_ARGB32_Premultiplied);
        expected.fill(QColor(0, 0, 0, 0));
        QPixmap canvas = canvas::transparentCanvas(expected.size());
        QVERIFY(canvas.hasAlpha());
        QCOMPARE(canvas.toImage(), expected);

        QPainter painter(&canvas);
        painter.fillRect(QRect(1, 0, 2, 1), QColor(255, 0, 0, 255));
        painter.end();
        expected.setPixel(1, 0, qRgba(255, 0, 0, 255));
        expected.setPixel(2, 0, qRgba(255, 0, 0, 255));
        QCOMPARE(canvas.toImage(), expected);
        QCOMPARE(canvas::transparentCanvas(expected.size()).toImage().pixel(1, 0),
                 qRgba(0, 0, 0, 0)); // They share nothing.

        QImage picture = canvas.toImage();
        canvas = QPixmap(); // The picture outlives it.
        QCOMPARE(picture, expected);
        picture.setPixel(66, 12, qRgba(1, 2, 3, 255));
        QCOMPARE(picture.pixel(66, 12), qRgba(1, 2, 3, 255));
    }

    void withoutGraphicalSide()
    {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {"--core"});
        QVERIFY(child.waitForFinished(-1));
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QCOMPARE(child.exitCode(), 0);
    }
};

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc == 2 && qstrcmp(argv[1], "--core") == 0) {
        const QCoreApplication application(argc, argv);
        return canvas::transparentCanvas(QSize(10, 10)).isNull() ? 0 : 1;
    }
    QGuiApplication application(argc, argv);
    TstCanvas test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_canvas.moc"
