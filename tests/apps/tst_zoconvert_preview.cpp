// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// zoconvert preview: which pictures it leaves, and what they show.

#include <QImage>
#include <QtTest>

#include "clips.h"
#include "programrun.h"
#include "testapplication.h"

namespace {

using Arguments = QList<QByteArray>;

QByteArray clip(const char* name)
{
    return clips::clip(QString::fromLatin1(name)).toUtf8();
}

} // namespace

class TestZoconvertPreview : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void picturesShowTheFrame();
    void outputOptionsChangeThePicture();
    void behindTheEndItIsTheLastFrame();
    void noPictureTakesThePlaceOfWhatIsShown();
    void aLineIsRefused_data();
    void aLineIsRefused();
};

void TestZoconvertPreview::picturesShowTheFrame()
{
    ProgramRun program;
    program.run({"preview", clip("red709.mkv"), "--crop", "16,8,32,32", "--image", "logo.png", "--set",
                 "Watermark:0:wm_imagewidth=8", "--set", "Watermark:0:wm_imageheight=8", "--place", "top-left:0",
                 "--time", "0.1", "--output", "pictures"});
    QCOMPARE(program.err,
             QStringLiteral("zoconvert: %1: warning: Watermark:0 lies outside of the part that is kept and "
                            "cannot be seen. Move it, or make the crop larger.\n")
                 .arg(QString::fromUtf8(clip("red709.mkv"))));
    QCOMPARE(program.out, QStringLiteral("pictures/before.png\npictures/after.png\npictures/preview.png\n"
                                         "pictures/watermark.png\n"));
    QCOMPARE(program.code, 0);

    const QImage before(program.path("pictures/before.png"));
    QCOMPARE(before.size(), QSize(64, 48));
    QCOMPARE(before.pixelColor(2, 40), QColor(255, 1, 0));
    const QImage after(program.path("pictures/after.png"));
    QCOMPARE(after.size(), QSize(32, 32));
    const QImage watermark(program.path("pictures/watermark.png"));
    QCOMPARE(watermark.size(), QSize(64, 48));
    QVERIFY(watermark.pixelColor(4, 4).alpha() > 250);
    QCOMPARE(watermark.pixelColor(20, 20).alpha(), 0);

    const QImage preview(program.path("pictures/preview.png"));
    QCOMPARE(preview.size(), QSize(64, 48));
    QCOMPARE(preview.pixelColor(32, 24), before.pixelColor(32, 24));  // Kept.
    QVERIFY(preview.pixelColor(2, 40).red() < 100);                   // Cut off.
    QVERIFY(preview.pixelColor(16, 20) != before.pixelColor(16, 20)); // The outline.
    QVERIFY(preview.pixelColor(4, 4) != preview.pixelColor(2, 40));   // The watermark lies on top.
}

void TestZoconvertPreview::outputOptionsChangeThePicture()
{
    ProgramRun program;
    program.run({"preview", clip("lossless.mkv"), "--size", "80x60"});
    QCOMPARE(program.err, QString());
    QCOMPARE(program.code, 0);
    QCOMPARE(QImage(program.path("after.png")).size(), QSize(80, 60));
    QCOMPARE(QImage(program.path("preview.png")).size(), QSize(160, 120));
    QCOMPARE(QImage(program.path("preview.png")).pixel(30, 30), QImage(program.path("before.png")).pixel(30, 30));
    QCOMPARE(QImage(program.path("watermark.png")).pixelColor(30, 30).alpha(), 0);
}

void TestZoconvertPreview::behindTheEndItIsTheLastFrame()
{
    ProgramRun program;
    program.run({"preview", clip("plain.mp4"), "--time", "0.4"});
    QCOMPARE(program.err, QString());
    const QByteArray last = program.content("after.png");
    program.run({"preview", clip("plain.mp4"), "--time", "5"});
    QCOMPARE(program.err, QStringLiteral("zoconvert: %1: warning: The clip ends at 0.4 s. Shown is its last frame, not "
                                         "one of 5 s.\n")
                              .arg(QString::fromUtf8(clip("plain.mp4"))));
    QCOMPARE(program.code, 0);
    QVERIFY(!last.isEmpty() && program.content("after.png") == last);
}

void TestZoconvertPreview::noPictureTakesThePlaceOfWhatIsShown()
{
    ProgramRun program;
    QVERIFY(QFile::rename(program.path("logo.png"), program.path("watermark.png")));
    QVERIFY(QFile::copy(clips::clip(QStringLiteral("still.png")), program.path("before.png")));
    const QString files = program.files();
    const QByteArray logo = program.content("watermark.png");
    const QByteArray still = program.content("before.png");
    program.run({"preview", clip("plain.mp4"), "--image", "watermark.png"});
    QCOMPARE(program.err, QStringLiteral("zoconvert: watermark.png is the input itself. Give another output.\n"));
    QCOMPARE(program.code, 1);
    program.run({"preview", "before.png", "--output", "./"});
    QCOMPARE(program.err, QStringLiteral("zoconvert: before.png is the input itself. Give another output.\n"));
    QVERIFY(program.content("watermark.png") == logo);
    QVERIFY(program.content("before.png") == still);
    QCOMPARE(program.files(), files);
}

void TestZoconvertPreview::aLineIsRefused_data()
{
    QTest::addColumn<Arguments>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("err");

    const auto row = [](const char* name, const Arguments& arguments, int code, const QByteArray& err) {
        QTest::newRow(name) << arguments << code << QString::fromUtf8(err);
    };
    row("missing clip", {"preview", "clip.mkv"}, 1, "zoconvert: clip.mkv: no such file.\n");
    row("no picture", {"preview", clip("sound.wav")}, 1,
        "zoconvert: " + clip("sound.wav") + " has no picture that can be shown. Choose another file.\n");
    row("no time", {"preview", clip("plain.mp4"), "--time", "noon"}, 2,
        "zoconvert: --time: noon is no number of seconds, for example 12.5.\n");
    row("time before the beginning", {"preview", clip("plain.mp4"), "--time", "-1"}, 2,
        "zoconvert: --time: -1 is no number of seconds, for example 12.5.\n");
    row("an edit that is refused", {"preview", clip("plain.mp4"), "--set", "Color:bcs_contrast=90"}, 2,
        "zoconvert: " + clip("plain.mp4") + ": Color:bcs_contrast: 90 is not between -50 and 50.\n");
}

void TestZoconvertPreview::aLineIsRefused()
{
    QFETCH(Arguments, arguments);
    QFETCH(QString, err);
    ProgramRun program;
    const QString before = program.files();
    program.run(arguments);
    QCOMPARE(program.err, err);
    QCOMPARE(program.out, QString());
    QTEST(program.code, "code");
    QCOMPARE(program.files(), before);
}

ZOEFFECT_TEST_MAIN(TestZoconvertPreview)
#include "tst_zoconvert_preview.moc"
