// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <QQuickItemGrabResult>
#include <QQuickView>
#include <QtTest>

#include <zokitquick/filesettings.h>
#include <zokitquick/previewpicture.h>

#include "childwatch.h"
#include "clips.h"
#include "testapplication.h"

using zokitquick::FileSettings;
using zokitquick::PreviewPicture;

/// What a PreviewPicture paints: a clip of 64x48, all red, in a view of 200x100.
class TestQuickPicture : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void frameFitsIntoTheMiddle();
    void cropIsShownAtOnceAndThenTruly();
    void standInHasTheWatermarks();
    void beforeIsTheClipItself();

private:
    QColor at(int x, int y);
    bool isTrueSoon();

    QQuickView m_view;
    FileSettings m_file;
    PreviewPicture* m_picture = nullptr; ///< Of the view.
};

namespace {

const QColor red(Qt::red);

/// Within what the video's own numbers can tell.
bool isNear(const QColor& left, const QColor& right)
{
    const auto isClose = [](int a, int b) { return std::abs(a - b) <= 6; };
    return isClose(left.red(), right.red()) && isClose(left.green(), right.green())
           && isClose(left.blue(), right.blue());
}

} // namespace

/// What the picture shows there; black where it shows nothing.
QColor TestQuickPicture::at(int x, int y)
{
    const QSharedPointer<QQuickItemGrabResult> result = m_picture->grabToImage();
    QSignalSpy ready(result.data(), &QQuickItemGrabResult::ready);
    return ready.wait(30000) ? result->image().pixelColor(x, y) : QColor();
}

bool TestQuickPicture::isTrueSoon()
{
    return QTest::qWaitFor([&] { return m_picture->isTrue(); }, 30000);
}

void TestQuickPicture::initTestCase()
{
    childwatch::begin();
    m_view.resize(200, 100);
    m_picture = new PreviewPicture(m_view.contentItem());
    m_picture->setSize(QSizeF(200, 100));
    m_view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&m_view));
    m_picture->setFile(&m_file);
    m_file.load(clips::clip(QStringLiteral("red709.mkv")));
    // The clip's own frame comes last: what a stand-in is made of is there, too.
    m_picture->setShow(PreviewPicture::Before);
    QVERIFY(isTrueSoon());
}

void TestQuickPicture::cleanupTestCase()
{
    delete m_picture;
    const QStringList findings = childwatch::takeFindings();
    QVERIFY2(findings.isEmpty(), qPrintable(findings.join(QStringLiteral("; "))));
}

void TestQuickPicture::init()
{
    QVERIFY(QTest::qWaitFor([&] { return m_file.status() == FileSettings::Ready; }, 30000));
    m_file.resetAll();
    m_picture->setShow(PreviewPicture::After);
    QVERIFY(isTrueSoon());
}

void TestQuickPicture::frameFitsIntoTheMiddle()
{
    // 133x100, from 34 to 166.
    QVERIFY(isNear(at(100, 50), red));
    QVERIFY(isNear(at(35, 1), red));
    QVERIFY(isNear(at(165, 98), red));
    QVERIFY(!isNear(at(32, 50), red));
    QVERIFY(!isNear(at(168, 50), red));
}

void TestQuickPicture::cropIsShownAtOnceAndThenTruly()
{
    QVERIFY(m_file.setValue(QStringLiteral("Crop:crop_width"), 32));
    QVERIFY(m_file.setValue(QStringLiteral("Crop:crop_height"), 48));
    QVERIFY(!m_picture->isTrue());
    // 66x100, from 67 to 132: the stand-in, and what comes out, too.
    QVERIFY(isNear(at(100, 50), red));
    QVERIFY(isNear(at(68, 1), red));
    QVERIFY(!isNear(at(60, 50), red));
    QVERIFY(isTrueSoon());
    QVERIFY(isNear(at(100, 50), red));
    QVERIFY(isNear(at(131, 98), red));
    QVERIFY(!isNear(at(140, 50), red));
}

void TestQuickPicture::standInHasTheWatermarks()
{
    QImage logo(16, 12, QImage::Format_RGB32);
    logo.fill(Qt::blue);
    const QString path = QDir::temp().filePath(QStringLiteral("logo.png"));
    QVERIFY(logo.save(path));
    QCOMPARE(m_file.insert(QStringLiteral("Watermark"), {{QStringLiteral("wm_imageurl"), path},
                                                         {QStringLiteral("wm_hposition"), 0},
                                                         {QStringLiteral("wm_vposition"), 0}}),
             0);
    QVERIFY(!m_picture->isTrue());
    QVERIFY(isNear(at(40, 5), Qt::blue));
    QVERIFY(isNear(at(100, 50), red));
    QVERIFY(isTrueSoon());
    QVERIFY(isNear(at(40, 5), Qt::blue));
    QVERIFY(isNear(at(100, 50), red));
}

void TestQuickPicture::beforeIsTheClipItself()
{
    QVERIFY(m_file.setValue(QStringLiteral("Color:bcs_saturation"), -50));
    QVERIFY(isTrueSoon());
    const QColor grey = at(100, 50);
    QCOMPARE(grey.red(), grey.green());
    QCOMPARE(grey.green(), grey.blue());
    m_picture->setShow(PreviewPicture::Before);
    QVERIFY(isTrueSoon());
    QVERIFY(isNear(at(100, 50), red));
}

int main(int argc, char** argv)
{
    const TestFolders folders;
    qputenv("QT_QUICK_BACKEND", "software");
    TestApplication application(argc, argv);
    TestQuickPicture test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_quick_picture.moc"
