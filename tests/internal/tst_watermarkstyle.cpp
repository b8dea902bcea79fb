// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <limits>

#include <QColor>
#include <QtTest>

#include "watermarkstyle_p.h"

namespace {

int messages = 0;

void countMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*text*/)
{
    ++messages;
}

QFont fontOf(const QString& family, int pointSize, QFont::Weight weight, QFont::Style style)
{
    QFont font(family);
    if (pointSize > 0)
        font.setPointSize(pointSize);
    font.setWeight(weight);
    font.setStyle(style);
    return font;
}

QString described(const QFont& font)
{
    QString weight = QStringLiteral("weight %1").arg(int(font.weight()));
    if (font.weight() == QFont::Light)
        weight = QStringLiteral("light");
    else if (font.weight() == QFont::Normal)
        weight = QStringLiteral("normal");
    else if (font.weight() == QFont::Bold)
        weight = QStringLiteral("bold");
    else if (font.weight() == QFont::Black)
        weight = QStringLiteral("black");
    static const char* const slants[] = {"upright", "italic", "oblique"};
    return QStringLiteral("%1 %2 %3 %4")
        .arg(font.family())
        .arg(font.pointSize())
        .arg(weight, QLatin1String(slants[font.style()]));
}

} // namespace

/// How a watermark looks.
class TstWatermarkStyle : public QObject {
    Q_OBJECT

private slots:
    void alphaIsTruncated_data();
    void alphaIsTruncated();
    void fontTakesSizeAndStyle_data();
    void fontTakesSizeAndStyle();
    void sizeOfNothingIsNotAskedOfQt();
    void pixelSizeStaysWithoutPointSize();
    void otherAttributesStay();
    void valueThatIsNoFontGivesTheDefaultFont_data();
    void valueThatIsNoFontGivesTheDefaultFont();
};

void TstWatermarkStyle::alphaIsTruncated_data()
{
    QTest::addColumn<int>("transparency");
    QTest::addColumn<QVariant>("factor");
    QTest::addColumn<int>("expected");

    const QVariant usual(2.55);

    QTest::newRow("opaque gives 254, not 255") << 0 << usual << 254; // 254.99999999999997
    QTest::newRow("half gives 127") << 50 << usual << 127;           // 127.49999999999999
    QTest::newRow("transparent") << 100 << usual << 0;
    QTest::newRow("transparency 1") << 1 << usual << 252;   // 252.45
    QTest::newRow("transparency 10") << 10 << usual << 229; // 229.49999999999997
    QTest::newRow("transparency 20") << 20 << usual << 204;
    QTest::newRow("transparency 25") << 25 << usual << 191; // 191.25
    QTest::newRow("transparency 40") << 40 << usual << 153;
    QTest::newRow("transparency 60") << 60 << usual << 102;
    QTest::newRow("transparency 75") << 75 << usual << 63; // 63.74999999999999
    QTest::newRow("transparency 80") << 80 << usual << 51;
    QTest::newRow("transparency 99") << 99 << usual << 2; // 2.55

    QTest::newRow("no factor") << 0 << QVariant() << 254;
    QTest::newRow("factor is a word") << 0 << QVariant("abc") << 254;
    QTest::newRow("factor is an empty text") << 50 << QVariant("") << 127;
    QTest::newRow("factor with a comma") << 0 << QVariant("3,5") << 254;
    QTest::newRow("factor is a colour") << 0 << QVariant(QColor(Qt::white)) << 254;
    QTest::newRow("factor is a map") << 0 << QVariant(QVariantMap()) << 254;
    QTest::newRow("factor is a number as text") << 0 << QVariant("1.5") << 150;
    QTest::newRow("factor is 2.55 as text") << 0 << QVariant("2.55") << 254;
    QTest::newRow("factor is a whole number") << 0 << QVariant(2) << 200;
    QTest::newRow("factor is 0 and not missing") << 0 << QVariant(0) << 0;
    QTest::newRow("factor is true") << 0 << QVariant(true) << 100;
    QTest::newRow("factor 1") << 7 << QVariant(1.0) << 93;
    QTest::newRow("half a factor is truncated") << 1 << QVariant(0.5) << 49; // 49.5

    QTest::newRow("factor 10 is not limited") << 0 << QVariant(10.0) << 1000;
    QTest::newRow("factor that reaches 255") << 0 << QVariant(2.5501) << 255; // 255.01
    QTest::newRow("negative factor is not limited") << 0 << QVariant(-1.0) << -100;
    QTest::newRow("negative transparency is not limited") << -50 << usual << 382; // 382.5
    QTest::newRow("transparency 101 moves toward zero") << 101 << usual << -2;    // -2.55
    QTest::newRow("transparency 200") << 200 << usual << -254;
    QTest::newRow("smallest transparency saturates")
        << std::numeric_limits<int>::min() << usual << std::numeric_limits<int>::max();
    QTest::newRow("largest transparency saturates")
        << std::numeric_limits<int>::max() << usual << std::numeric_limits<int>::min();
    QTest::newRow("factor is not a number") << 0 << QVariant(qQNaN()) << 0;
    QTest::newRow("infinite factor saturates") << 0 << QVariant(qInf()) << std::numeric_limits<int>::max();
    QTest::newRow("infinite factor of nothing") << 100 << QVariant(qInf()) << 0;
}

void TstWatermarkStyle::alphaIsTruncated()
{
    QFETCH(const int, transparency);
    QFETCH(const QVariant, factor);
    QFETCH(const int, expected);

    QCOMPARE(watermarkstyle::alpha(transparency, factor), expected);
}

void TstWatermarkStyle::fontTakesSizeAndStyle_data()
{
    QTest::addColumn<QVariant>("font");
    QTest::addColumn<int>("pointSize");
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("expected");

    const QVariant plain = fontOf("Tahoma", 12, QFont::Normal, QFont::StyleNormal);
    const QVariant rich = fontOf("Tahoma", 12, QFont::Bold, QFont::StyleItalic);
    const QVariant unusual = fontOf("Tahoma", 12, QFont::Light, QFont::StyleOblique);

    QTest::newRow("regular") << plain << 22 << "Regular"
                             << "Tahoma 22 normal upright";
    QTest::newRow("italic") << plain << 22 << "Italic"
                            << "Tahoma 22 normal italic";
    QTest::newRow("bold") << plain << 22 << "Bold"
                          << "Tahoma 22 bold upright";
    QTest::newRow("bold italic") << plain << 22 << "Bold Italic"
                                 << "Tahoma 22 bold italic";

    QTest::newRow("regular takes bold and italic away") << rich << 22 << "Regular"
                                                        << "Tahoma 22 normal upright";
    QTest::newRow("italic takes bold away") << rich << 22 << "Italic"
                                            << "Tahoma 22 normal italic";
    QTest::newRow("bold takes italic away") << rich << 22 << "Bold"
                                            << "Tahoma 22 bold upright";
    QTest::newRow("regular replaces light and oblique") << unusual << 22 << "Regular"
                                                        << "Tahoma 22 normal upright";
    QTest::newRow("italic is not oblique") << unusual << 22 << "Italic"
                                           << "Tahoma 22 normal italic";
    QTest::newRow("bold italic replaces light") << unusual << 22 << "Bold Italic"
                                                << "Tahoma 22 bold italic";

    QTest::newRow("no style leaves the font's own") << rich << 22 << ""
                                                    << "Tahoma 22 bold italic";
    QTest::newRow("unknown style leaves the font's own") << unusual << 22 << "Demi"
                                                         << "Tahoma 22 light oblique";
    QTest::newRow("lower case is unknown") << rich << 22 << "regular"
                                           << "Tahoma 22 bold italic";
    QTest::newRow("blank at the end is unknown") << rich << 22 << "Regular "
                                                 << "Tahoma 22 bold italic";
    QTest::newRow("other order is unknown") << plain << 22 << "Italic Bold"
                                            << "Tahoma 22 normal upright";
    QTest::newRow("two blanks are unknown") << plain << 22 << "Bold  Italic"
                                            << "Tahoma 22 normal upright";

    QTest::newRow("smallest size") << plain << 1 << "Regular"
                                   << "Tahoma 1 normal upright";
    QTest::newRow("size 0 leaves the font's own") << plain << 0 << "Regular"
                                                  << "Tahoma 12 normal upright";
    QTest::newRow("negative size leaves the font's own") << plain << -5 << "Bold"
                                                         << "Tahoma 12 bold upright";
    QTest::newRow("smallest int leaves the font's own") << plain << std::numeric_limits<int>::min() << "Bold"
                                                        << "Tahoma 12 bold upright";

    QTest::newRow("family as text") << QVariant("Tahoma") << 22 << "Bold"
                                    << "Tahoma 22 bold upright";
    QTest::newRow("family with a blank as text") << QVariant("DejaVu Sans") << 9 << "Italic"
                                                 << "DejaVu Sans 9 normal italic";
}

void TstWatermarkStyle::fontTakesSizeAndStyle()
{
    QFETCH(const QVariant, font);
    QFETCH(const int, pointSize);
    QFETCH(const QString, style);
    QFETCH(const QString, expected);

    QCOMPARE(described(watermarkstyle::font(font, pointSize, style)), expected);
}

void TstWatermarkStyle::sizeOfNothingIsNotAskedOfQt()
{
    // Qt complains on the host's error output about a size that is not positive.
    messages = 0;
    const QtMessageHandler previous = qInstallMessageHandler(countMessage);
    watermarkstyle::font(QFont(QStringLiteral("Tahoma")), 0, QStringLiteral("Bold"));
    watermarkstyle::font(QFont(QStringLiteral("Tahoma")), -1, QStringLiteral("Bold"));
    qInstallMessageHandler(previous);
    QCOMPARE(messages, 0);
}

void TstWatermarkStyle::pixelSizeStaysWithoutPointSize()
{
    QFont font(QStringLiteral("Tahoma"));
    font.setPixelSize(20);

    QCOMPARE(watermarkstyle::font(font, 0, QStringLiteral("Regular")).pixelSize(), 20);
    QCOMPARE(watermarkstyle::font(font, 9, QStringLiteral("Regular")).pixelSize(), -1);
    QCOMPARE(watermarkstyle::font(font, 9, QStringLiteral("Regular")).pointSize(), 9);
}

void TstWatermarkStyle::otherAttributesStay()
{
    QFont font(QStringLiteral("Tahoma"));
    font.setUnderline(true);
    font.setStretch(150);

    const QFont result = watermarkstyle::font(font, 22, QStringLiteral("Bold"));
    QVERIFY(result.underline());
    QCOMPARE(int(result.stretch()), 150);
}

void TstWatermarkStyle::valueThatIsNoFontGivesTheDefaultFont_data()
{
    QTest::addColumn<QVariant>("font");

    QTest::newRow("missing") << QVariant();
    QTest::newRow("number") << QVariant(5);
    QTest::newRow("colour") << QVariant(QColor(Qt::white));
    QTest::newRow("map") << QVariant(QVariantMap());
}

void TstWatermarkStyle::valueThatIsNoFontGivesTheDefaultFont()
{
    QFETCH(const QVariant, font);

    QCOMPARE(watermarkstyle::font(font, 0, QString()), QFont());
    QCOMPARE(watermarkstyle::font(font, 31, QStringLiteral("Bold")).pointSize(), 31);
    QCOMPARE(int(watermarkstyle::font(font, 31, QStringLiteral("Bold")).weight()), int(QFont::Bold));
}

QTEST_GUILESS_MAIN(TstWatermarkStyle)

#include "tst_watermarkstyle.moc"
