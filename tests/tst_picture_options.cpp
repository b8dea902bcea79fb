// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What a host may set about its pictures, and images that it lets a model forget.

#include <cstdio>

#include <QCryptographicHash>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <zoeffectmodel.h>

#include "hostcatalogue.h"
#include "logcapture.h"
#include "signalrecorder.h"
#include "testapplication.h"

namespace {

const QString watermark = QStringLiteral("Watermark");
const QSize frame(8, 4);

ZoPictureOptions optionsOf(bool keepImageTransparency, int textDotsPerInch)
{
    ZoPictureOptions options;
    options.keepImageTransparency = keepImageTransparency;
    options.textDotsPerInch = textDotsPerInch;
    return options;
}

/// A red image of three pixels: transparent, half transparent, opaque.
QImage threeAlphas()
{
    QImage image(3, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(0, 0, 0, 0));
    image.setPixel(1, 0, qRgba(255, 0, 0, 128));
    image.setPixel(2, 0, qRgba(255, 0, 0, 255));
    return image;
}

void addImage(ZoEffectModel& model, const QString& path, const QSize& size)
{
    model.setVideoSize(frame.width(), frame.height());
    model.addDataItem(watermark, {{"wm_imageurl", path},
                                  {"wm_imagewidth", size.width()},
                                  {"wm_imageheight", size.height()},
                                  {"wm_hposition", 0},
                                  {"wm_vposition", 0}});
}

QImage picture(ZoEffectModel& model, int factor = 1)
{
    return model.getWatermark(factor * frame.width(), factor * frame.height(), true)
        .toImage()
        .convertToFormat(QImage::Format_ARGB32);
}

/// "Hello" at 22 points: its stored size, and a number for its pixels, at the base size and at twice that.
QByteArray describedText(int textDotsPerInch)
{
    ZoEffectModel model;
    model.setPictureOptions(optionsOf(false, textDotsPerInch));
    model.setVideoSize(300, 100);
    model.addDataItem(watermark, {{"wm_istextwatermark", true},
                                  {"wm_textcontent", "Hello"},
                                  {"wm_fontname", QFont("DejaVu Sans")},
                                  {"wm_fontsize", 22}});
    QByteArray result;
    for (const int factor : {1, 2}) {
        const QImage image = model.getWatermark(300 * factor, 100 * factor, true)
                                 .toImage()
                                 .convertToFormat(QImage::Format_ARGB32_Premultiplied);
        const QByteArray pixels(reinterpret_cast<const char*>(image.constBits()),
                                static_cast<int>(image.sizeInBytes()));
        result += ' ' + QCryptographicHash::hash(pixels, QCryptographicHash::Sha1).toHex();
    }
    const auto side = [&](const char* key) { return QByteArray::number(model.data(key, watermark, 0).toInt()); };
    return side("wm_imagewidth") + 'x' + side("wm_imageheight") + result;
}

/// describedText() in a process whose screen has \a screen dots an inch.
QByteArray describedOnScreen(int screen, int textDotsPerInch)
{
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_FONT_DPI", QString::number(screen));
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), {"describe", QString::number(textDotsPerInch)});
    return child.waitForFinished() && child.exitCode() == 0 ? child.readAllStandardOutput() : QByteArray();
}

} // namespace

class TstPictureOptions : public QObject {
    Q_OBJECT

private slots:
    void init() { logcapture::takeEvents(); }
    void nothingIsSetAtFirst();
    void optionsAreCopiedWithTheModel();
    void alphaOfAnImage_data();
    void alphaOfAnImage();
    void otherSizeKeepsTheAlpha();
    void textIsTheSameOnEveryScreen();
    void oddResolutionsAreTheScreens();
    void forgottenImageIsReadAnew_data();
    void forgottenImageIsReadAnew();

private:
    QString write(const QImage& image)
    {
        QString path = m_folder.filePath("logo.png");
        return image.save(path) ? path : QString();
    }

    QTemporaryDir m_folder;
};

void TstPictureOptions::nothingIsSetAtFirst()
{
    const ZoEffectModel model;
    QCOMPARE(model.pictureOptions().keepImageTransparency, false);
    QCOMPARE(model.pictureOptions().textDotsPerInch, 0);
}

void TstPictureOptions::optionsAreCopiedWithTheModel()
{
    ZoEffectModel model;
    SignalRecorder recorder(model);
    model.setPictureOptions(optionsOf(true, 96));
    QCOMPARE(recorder.take(), QStringList());
    const ZoEffectModel copy(model); // NOLINT(performance-unnecessary-copy-initialization): it is what is tested
    QCOMPARE(copy.pictureOptions().keepImageTransparency, true);
    QCOMPARE(copy.pictureOptions().textDotsPerInch, 96);
    model = ZoEffectModel();
    QCOMPARE(model.pictureOptions().keepImageTransparency, false);
    QCOMPARE(model.pictureOptions().textDotsPerInch, 0);
}

void TstPictureOptions::alphaOfAnImage_data()
{
    QTest::addColumn<bool>("keep");
    QTest::addColumn<int>("transparency");
    QTest::addColumn<QList<int>>("alphas"); // Of the transparent, the half transparent and the opaque pixel.

    // The watermark's own alpha is 254 and 127; half transparent pixels have 128 of 255.
    QTest::newRow("replaced") << false << 0 << QList<int>{254, 254, 254};
    QTest::newRow("replaced, at 50 percent") << false << 50 << QList<int>{127, 127, 127};
    QTest::newRow("kept") << true << 0 << QList<int>{0, 127, 254};
    QTest::newRow("kept, at 50 percent") << true << 50 << QList<int>{0, 64, 127};
    QTest::newRow("kept, at 100 percent") << true << 100 << QList<int>{0, 0, 0};
}

void TstPictureOptions::alphaOfAnImage()
{
    QFETCH(const bool, keep);
    QFETCH(const int, transparency);
    QFETCH(const QList<int>, alphas);

    ZoEffectModel model;
    model.setPictureOptions(optionsOf(keep, 0));
    addImage(model, write(threeAlphas()), QSize(3, 1));
    model.setData("wm_transparency", transparency, watermark, 0);
    for (int i = 0; i < 2; ++i) {
        const QImage drawn = picture(model);
        QCOMPARE(QList<int>({qAlpha(drawn.pixel(0, 0)), qAlpha(drawn.pixel(1, 0)), qAlpha(drawn.pixel(2, 0))}), alphas);
        if (alphas.at(2) != 0)
            QCOMPARE(qRed(drawn.pixel(2, 0)), 255);
        // The other way in between changes nothing.
        model.setPictureOptions(optionsOf(!keep, 0));
        QVERIFY(picture(model) != drawn || transparency == 100);
        model.setPictureOptions(optionsOf(keep, 0));
    }
}

void TstPictureOptions::otherSizeKeepsTheAlpha()
{
    ZoEffectModel model;
    addImage(model, write(threeAlphas()), QSize(3, 1));
    QCOMPARE(qAlpha(picture(model, 2).pixel(1, 1)), 254);
    model.setPictureOptions(optionsOf(true, 0));
    const QImage drawn = picture(model, 2);
    QCOMPARE(qAlpha(drawn.pixel(1, 1)), 0);
    QCOMPARE(qAlpha(drawn.pixel(3, 1)), 127);
    QCOMPARE(qAlpha(drawn.pixel(5, 1)), 254);
}

void TstPictureOptions::textIsTheSameOnEveryScreen()
{
    const QByteArray at96 = describedOnScreen(96, 96);
    const QByteArray at144 = describedOnScreen(96, 144);
    QCOMPARE(at96.split(' ').first(), QByteArray("74x34"));
    QCOMPARE(at144.split(' ').first(), QByteArray("112x52"));
    for (const int screen : {72, 96, 144}) {
        const QByteArray as96 = describedOnScreen(screen, 96);
        const QByteArray as144 = describedOnScreen(screen, 144);
        QCOMPARE(as96.split(' ').first(), at96.split(' ').first());
        QCOMPARE(as144.split(' ').first(), at144.split(' ').first());
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0) // Qt 6 hints letters by the screen's resolution, too.
        QCOMPARE(as96, at96);
        QCOMPARE(as144, at144);
        QCOMPARE(describedOnScreen(96, 0), at96);
        QCOMPARE(describedOnScreen(144, 0), at144);
#endif
    }
}

void TstPictureOptions::oddResolutionsAreTheScreens()
{
    for (const int dotsPerInch : {-1, 2401, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        QCOMPARE(describedText(dotsPerInch), describedText(0));
    QVERIFY(describedText(2400) != describedText(0));
    QVERIFY(describedText(1) != describedText(0));
}

void TstPictureOptions::forgottenImageIsReadAnew_data()
{
    QTest::addColumn<bool>("all");
    QTest::newRow("one") << false;
    QTest::newRow("all") << true;
}

void TstPictureOptions::forgottenImageIsReadAnew()
{
    QFETCH(const bool, all);
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    const QString path = write(image);
    ZoEffectModel model;
    addImage(model, path, QSize(2, 2));
    QCOMPARE(qRed(picture(model).pixel(0, 0)), 255);

    image.fill(Qt::blue);
    write(image);
    QCOMPARE(qBlue(picture(model).pixel(0, 0)), 0);
    QCOMPARE(qBlue(model.getImage(path, nullptr)->toImage().pixel(0, 0)), 0);
    SignalRecorder recorder(model);
    model.forgetImage(m_folder.filePath("other.png"));
    QCOMPARE(qBlue(picture(model).pixel(0, 0)), 0);
    if (all)
        model.forgetImages();
    else
        model.forgetImage(path);
    QCOMPARE(qBlue(model.getImage(path, nullptr)->toImage().pixel(0, 0)), 255);
    QCOMPARE(qBlue(picture(model).pixel(0, 0)), 255);
    QCOMPARE(recorder.take(), QStringList());
    QCOMPARE(logcapture::takeEvents(), QList<int>());
}

int main(int argc, char** argv)
{
    const TestFolders folders;
    TestApplication application(argc, argv);
    ZoEffectModel::InitEffectModel(hostCatalogue());
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == "describe")
        return std::puts(describedText(arguments.value(2).toInt()).constData()) < 0 ? 1 : 0;
    TstPictureOptions test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_picture_options.moc"
