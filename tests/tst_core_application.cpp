// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// An application without a graphical side, in a locale with digits of its own: the settings work, pictures
// are nothing, and the log reads the same.

#include <QCoreApplication>
#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "testapplication.h"

class TstCoreApplication : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ZoEffectModel::InitEffectModel(hostCatalogue());
        logcapture::takeEvents();
    }

    void valuesAreKept()
    {
        ZoEffectModel model;
        QVERIFY(model.setData("crop_left", 10, "Crop", -1));
        QCOMPARE(model.data("crop_left", "Crop", -1).toInt(), 10);
    }

    void theWatermarkPictureIsNullAndNothingIsMeasured()
    {
        ZoEffectModel model;
        model.setVideoSize(64, 48);
        model.addDataItem("Watermark", {{"wm_istextwatermark", true}, {"wm_textcontent", "text"}});
        QVERIFY(model.getWatermark(64, 48, false).isNull());
        QVERIFY(!model.getDataItem("Watermark", 0)->hasData("wm_imagewidth"));
        QCOMPARE(logcapture::takeEvents(), QList<int>{});
    }

    void anImageIsAFailedLoad()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("image.png");
        QImage image(4, 4, QImage::Format_ARGB32);
        image.fill(Qt::red);
        QVERIFY(image.save(path));
        ZoEffectModel model;
        QVERIFY(model.getImage(path, nullptr)->isNull());
        QCOMPARE(logcapture::takeEvents(), QList<int>{1178});
    }

    void theTimeInTheLogHasAsciiDigits()
    {
        ZoEffectModel model;
        QVERIFY(!model.setData("key", 1, "no such type", -1));
        QCOMPARE(logcapture::takeEvents(), QList<int>{181}); // Whole, in the exact format.
    }
};

int main(int argc, char** argv)
{
    const TestFolders folders;
    qputenv("LC_ALL", "fa_IR.UTF-8");
    QCoreApplication application(argc, argv);
    TstCoreApplication test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_core_application.moc"
