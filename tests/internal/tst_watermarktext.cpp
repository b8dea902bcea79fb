// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <functional>
#include <thread>

#include <QFont>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QtTest>

#include "watermarktext_p.h"

namespace {

constexpr int inchesPerMetreTimes10000 = 393701;

/// A surface of \a dotsPerInch in both directions.
QImage surface(int dotsPerInch = 96)
{
    QImage image(8, 8, QImage::Format_ARGB32_Premultiplied);
    image.setDotsPerMeterX((dotsPerInch * inchesPerMetreTimes10000 + 5000) / 10000);
    image.setDotsPerMeterY((dotsPerInch * inchesPerMetreTimes10000 + 5000) / 10000);
    image.fill(0);
    return image;
}

/// What the painter itself measures.
QSize sizeByHand(QPainter& painter, const QString& text)
{
    const QSize room = painter.fontMetrics().size(Qt::AlignLeft | Qt::AlignTop, text);
    return painter.boundingRect(QRect(QPoint(), room), Qt::AlignLeft | Qt::AlignTop, text).size();
}

QSize sizeOf(QPainter& painter, const QString& text)
{
    return WatermarkText::laidOut(painter, text).size;
}

/// \a text in \a colour near the middle of a picture, by the unit or by the painter itself.
QImage picture(const QString& text, const QFont& font, const QColor& colour, bool byHand)
{
    QPixmap canvas(700, 200);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setFont(font);
    painter.setPen(colour);
    const QRect place(QPoint(33, 21), sizeByHand(painter, text));
    if (byHand)
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, text);
    else
        WatermarkText::laidOut(painter, text).draw(painter, place.left(), place.top());
    painter.end();
    return canvas.toImage();
}

QFont fontOf(const char* family, qreal points)
{
    QFont font(QString::fromUtf8(family));
    font.setPointSizeF(points);
    return font;
}

using FontEdit = std::function<void(QFont& font)>;

const QString shortText = QStringLiteral("Holiday 2017");

} // namespace

Q_DECLARE_METATYPE(FontEdit)

class TstWatermarkText : public QObject {
    Q_OBJECT

private slots:
    void sizeIsWhatThePainterMeasures_data();
    void sizeIsWhatThePainterMeasures();
    void textIsDrawnAsThePainterDoes_data() { sizeIsWhatThePainterMeasures_data(); }
    void textIsDrawnAsThePainterDoes();
    void textFirstSeenTransparentIsDrawnAsThePainterDoes_data() { sizeIsWhatThePainterMeasures_data(); }
    void textFirstSeenTransparentIsDrawnAsThePainterDoes();
    void fontsAreToldApart_data();
    void fontsAreToldApart();
    void textsAreToldApart();
    void linesStandBelowEachOther();
    void resolutionsAreToldApart();
    void sizeFollowsTheApplicationsFont();
    void manyMoreTextsThanAreKept();
    void threadsMeasureTheSame();
    void sizeIsRightInTheNextApplication();
    void changedFontsAreAskedAnew();
    void substitutesAreToldApart();
    void largeLettersAreNotKept();
};

void TstWatermarkText::sizeIsWhatThePainterMeasures_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("null") << QString();
    QTest::newRow("empty") << QString("");
    QTest::newRow("one letter") << QStringLiteral("x");
    QTest::newRow("words") << QStringLiteral("The quick brown fox");
    QTest::newRow("blanks around") << QStringLiteral("  x  ");
    QTest::newRow("lines") << QStringLiteral("one\nlonger one\nthree");
    QTest::newRow("line ends only") << QStringLiteral("\n\n");
    QTest::newRow("tab") << QStringLiteral("a\tb");
    QTest::newRow("ampersand") << QStringLiteral("a & b && c");
    QTest::newRow("umlauts") << QStringLiteral("\u00C4\u00D6\u00DC\u00DF");
    QTest::newRow("right to left") << QStringLiteral("\u05E9\u05DC\u05D5\u05DD");
    QTest::newRow("mixed scripts") << QStringLiteral("\u00C4 \u05E9\u05DC\u05D5\u05DD");
    QTest::newRow("beyond the first plane") << QString::fromUcs4(U"\U0001F3AC", 1);
    for (const int length : {255, 256, 257, 2000})
        QTest::newRow(qPrintable(QStringLiteral("%1 letters").arg(length))) << QString(length, QLatin1Char('w'));
}

void TstWatermarkText::sizeIsWhatThePainterMeasures()
{
    QFETCH(const QString, text);
    QImage image = surface();
    QPainter painter(&image);
    for (const char* const family : {"DejaVu Sans", "DejaVu Serif", "DejaVu Sans Mono", "No Such Family"}) {
        for (const qreal points : {1.0, 8.0, 12.0, 12.5, 40.0, 300.0}) {
            painter.setFont(fontOf(family, points));
            const QSize expected = sizeByHand(painter, text);
            for (int i = 0; i < 2; ++i)
                QCOMPARE(sizeOf(painter, text), expected);
        }
    }
}

void TstWatermarkText::textIsDrawnAsThePainterDoes()
{
    QFETCH(const QString, text);
    for (const qreal points : {7.0, 11.5, 21.0, 61.0}) {
        QFont font = fontOf("DejaVu Sans", points);
        for (const bool decorated : {false, true}) {
            font.setUnderline(decorated);
            font.setBold(decorated);
            for (const QColor& colour :
                 {QColor(255, 0, 0), QColor(0, 90, 255, 100), QColor(0, 0, 0, 0), QColor(9, 9, 9)})
                QCOMPARE(picture(text, font, colour, false), picture(text, font, colour, true));
        }
    }
}

void TstWatermarkText::textFirstSeenTransparentIsDrawnAsThePainterDoes()
{
    QFETCH(const QString, text);
    const QFont font = fontOf("DejaVu Serif", 23);
    for (const int alpha : {0, 255, 1, 128})
        QCOMPARE(picture(text, font, QColor(200, 0, 90, alpha), false),
                 picture(text, font, QColor(200, 0, 90, alpha), true));
}

void TstWatermarkText::fontsAreToldApart_data()
{
    QTest::addColumn<FontEdit>("edit");

    const auto row = [](const char* name, const FontEdit& edit) { QTest::newRow(name) << edit; };
    row("size in points", [](QFont& font) { font.setPointSize(21); });
    row("size in pixels", [](QFont& font) { font.setPixelSize(20); });
    row("bold", [](QFont& font) { font.setBold(true); });
    row("italic", [](QFont& font) { font.setItalic(true); });
    row("underlined", [](QFont& font) { font.setUnderline(true); });
    row("stretched", [](QFont& font) { font.setStretch(200); });
    row("capitals", [](QFont& font) { font.setCapitalization(QFont::AllUppercase); });
    row("small capitals", [](QFont& font) { font.setCapitalization(QFont::SmallCaps); });
    row("letters apart", [](QFont& font) { font.setLetterSpacing(QFont::AbsoluteSpacing, 5); });
    row("letters apart in percent", [](QFont& font) { font.setLetterSpacing(QFont::PercentageSpacing, 150); });
    row("words apart", [](QFont& font) { font.setWordSpacing(9); });
    row("without kerning", [](QFont& font) { font.setKerning(false); });
    row("monospaced", [](QFont& font) { font.setFamily(QStringLiteral("DejaVu Sans Mono")); });
    row("style name", [](QFont& font) { font.setStyleName(QStringLiteral("Bold")); });
    row("hints", [](QFont& font) { font.setHintingPreference(QFont::PreferNoHinting); });
}

void TstWatermarkText::fontsAreToldApart()
{
    QFETCH(const FontEdit, edit);
    QImage image = surface();
    QPainter painter(&image);
    const QString text = QStringLiteral("AVATAR To Ta\nfi ffl jumps");
    const QFont plain = fontOf("DejaVu Sans", 20);
    QFont edited = plain;
    edit(edited);
    for (int i = 0; i < 2; ++i) {
        for (const QFont& font : {plain, edited}) {
            painter.setFont(font);
            QCOMPARE(sizeOf(painter, text), sizeByHand(painter, text));
            QCOMPARE(picture(text, font, Qt::red, false), picture(text, font, Qt::red, true));
        }
    }
}

void TstWatermarkText::textsAreToldApart()
{
    QImage image = surface();
    QPainter painter(&image);
    painter.setFont(fontOf("DejaVu Sans", 20));
    for (int i = 0; i < 2; ++i) {
        const QSize narrow = sizeOf(painter, QStringLiteral("iii"));
        const QSize wide = sizeOf(painter, QStringLiteral("WWW"));
        QVERIFY(narrow.width() > 0 && narrow.width() < wide.width());
        QCOMPARE(narrow.height(), wide.height());
    }
}

void TstWatermarkText::linesStandBelowEachOther()
{
    QImage image = surface();
    QPainter painter(&image);
    painter.setFont(fontOf("DejaVu Sans", 20));
    const QSize one = sizeOf(painter, QStringLiteral("wide one"));
    const QSize two = sizeOf(painter, QStringLiteral("wide one\ni"));
    QCOMPARE(two.width(), one.width());
    QVERIFY2(two.height() > one.height() * 3 / 2 && two.height() < one.height() * 5 / 2,
             qPrintable(QString::number(two.height())));
}

void TstWatermarkText::resolutionsAreToldApart()
{
    QImage coarse = surface(96);
    QImage fine = surface(300);
    QPainter onCoarse(&coarse);
    QPainter onFine(&fine);
    for (QPainter* painter : {&onCoarse, &onFine})
        painter->setFont(fontOf("DejaVu Sans", 20));
    for (int i = 0; i < 2; ++i) {
        const QSize small = sizeOf(onCoarse, shortText);
        const QSize large = sizeOf(onFine, shortText);
        QCOMPARE(small, sizeByHand(onCoarse, shortText));
        QCOMPARE(large, sizeByHand(onFine, shortText));
        QVERIFY(large.width() > 2 * small.width());
    }
}

void TstWatermarkText::sizeFollowsTheApplicationsFont()
{
    const QFont before = QGuiApplication::font();
    QVector<QSize> sizes;
    for (const qreal points : {10.0, 30.0, 10.0}) {
        QGuiApplication::setFont(fontOf("DejaVu Sans", points));
        QImage image = surface();
        QPainter painter(&image);
        QFont defaultFont;
        defaultFont.setItalic(true);
        for (const bool italic : {false, true, false}) {
            painter.setFont(italic ? defaultFont : QFont());
            QCOMPARE(sizeOf(painter, shortText), sizeByHand(painter, shortText));
        }
        sizes << sizeOf(painter, shortText);
    }
    QGuiApplication::setFont(before);
    QVERIFY(sizes.at(1).width() > 2 * sizes.at(0).width());
    QCOMPARE(sizes.at(2), sizes.at(0));
}

void TstWatermarkText::manyMoreTextsThanAreKept()
{
    QImage image = surface();
    QPainter painter(&image);
    painter.setFont(fontOf("DejaVu Sans", 20));
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 1000; ++i) {
            const QString text(1 + i % 70, QLatin1Char(static_cast<char>('a' + i % 26)));
            QCOMPARE(sizeOf(painter, text), sizeByHand(painter, text));
        }
    }
}

void TstWatermarkText::threadsMeasureTheSame()
{
    const auto measured = [] {
        QImage image = surface();
        QPainter painter(&image);
        painter.setFont(fontOf("DejaVu Sans", 20));
        sizeOf(painter, shortText);
        return sizeOf(painter, shortText);
    };
    const QSize here = measured();
    QSize there;
    std::thread([&] { there = measured(); }).join();
    QCOMPARE(there, here);
}

void TstWatermarkText::sizeIsRightInTheNextApplication()
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--two-applications")});
    QVERIFY(child.waitForFinished());
    QCOMPARE(child.exitStatus(), QProcess::NormalExit);
    QCOMPARE(child.exitCode(), 0);
}

// A text that is kept comes with the letters with which it was laid out first.
void TstWatermarkText::changedFontsAreAskedAnew()
{
    QImage image = surface();
    QPainter painter(&image);
    const QString first = QStringLiteral("letters %1").arg(1);
    const QString second = QStringLiteral("letters %1").arg(1);
    WatermarkText::laidOut(painter, first);
    QVERIFY(WatermarkText::laidOut(painter, second).text.constData() == first.constData());
    emit qGuiApp->fontDatabaseChanged();
    QVERIFY(WatermarkText::laidOut(painter, second).text.constData() == second.constData());
}

void TstWatermarkText::substitutesAreToldApart()
{
    QImage image = surface();
    QPainter painter(&image);
    const QString family = QStringLiteral("a family that nobody has");
    painter.setFont(fontOf("a family that nobody has", 22));
    const QSize before = sizeOf(painter, shortText);
    QCOMPARE(before, sizeByHand(painter, shortText));
    QFont::insertSubstitution(family, QStringLiteral("DejaVu Sans Mono"));
    painter.setFont(fontOf("a family that nobody has", 22));
    QCOMPARE(sizeOf(painter, shortText), sizeByHand(painter, shortText));
    QFont::removeSubstitutions(family);
    painter.setFont(fontOf("a family that nobody has", 22));
    QCOMPARE(sizeOf(painter, shortText), sizeByHand(painter, shortText));
}

// Letters of 64 pixels are drawn along their outlines.
void TstWatermarkText::largeLettersAreNotKept()
{
    QImage image = surface();
    QPainter painter(&image);
    for (const int pixels : {63, 64}) {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(pixels);
        painter.setFont(font);
        const QString first = QStringLiteral("large %1").arg(pixels);
        const QString second = QStringLiteral("large %1").arg(pixels);
        WatermarkText::laidOut(painter, first);
        const bool isKept = WatermarkText::laidOut(painter, second).text.constData() == first.constData();
        QCOMPARE(isKept, pixels < 64);
        QVERIFY(isKept || !WatermarkText::laidOut(painter, second).prepared);
    }
    WatermarkText::forgetAll();
    const QString again = QStringLiteral("large %1").arg(63);
    QVERIFY(WatermarkText::laidOut(painter, again).text.constData() == again.constData());
}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const bool twoApplications = argc == 2 && qstrcmp(argv[1], "--two-applications") == 0;
    for (int i = 0; twoApplications && i < 2; ++i) {
        const QGuiApplication application(argc, argv);
        QImage image = surface();
        QPainter painter(&image);
        painter.setFont(fontOf("DejaVu Sans", 20));
        for (int again = 0; again < 2; ++again) {
            if (sizeOf(painter, shortText) != sizeByHand(painter, shortText))
                return 1;
        }
    }
    if (twoApplications)
        return 0;
    QGuiApplication application(argc, argv);
    TstWatermarkText test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_watermarktext.moc"
