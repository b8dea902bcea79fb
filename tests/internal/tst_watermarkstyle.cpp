// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// How a watermark looks: its alpha and its font.

#include <limits>

#include <QColor>

#include "watermarkstyle_p.h"

#include "../support/rows.h"

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

int messages = 0;

void countMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*text*/)
{
    ++messages;
}

QFont tahoma(QFont::Weight weight, QFont::Style style)
{
    QFont font("Tahoma", 12);
    font.setWeight(weight);
    font.setStyle(style);
    return font;
}

QString described(const QFont& font)
{
    static const QMap<int, const char*> weights{
        {QFont::Light, "light"}, {QFont::Normal, "normal"}, {QFont::Bold, "bold"}};
    static const char* const slants[] = {"upright", "italic", "oblique"};
    return QString("%1 %2 %3 %4")
        .arg(font.family())
        .arg(font.pointSize())
        .arg(weights.value(font.weight(), "other weight"), slants[font.style()]);
}

} // namespace

class TstWatermarkStyle : public QObject {
    Q_OBJECT

private slots:
    void alphaIsTruncated_data()
    {
        addRows<int, QVariant, int>({
            {"opaque gives 254, not 255", 0, 2.55, 254}, // 254.99999999999997
            {"half gives 127", 50, 2.55, 127},           // 127.49999999999999
            {"transparent", 100, 2.55, 0},
            {"transparency 10", 10, 2.55, 229}, // 229.49999999999997
            {"transparency 75", 75, 2.55, 63},  // 63.74999999999999
            {"transparency 99", 99, 2.55, 2},   // 2.55

            {"no factor", 0, QVariant(), 254},
            {"factor is a word", 0, "abc", 254},
            {"factor is an empty text", 50, "", 127},
            {"factor is a colour", 0, QColor(Qt::white), 254},
            {"factor is a number as text", 0, "1.5", 150},
            {"factor is a whole number", 0, 2, 200},
            {"factor is 0 and not missing", 0, 0, 0},
            {"factor is true", 0, true, 100},
            {"half a factor is truncated", 1, 0.5, 49}, // 49.5

            {"factor 10 is not limited", 0, 10.0, 1000},
            {"factor that reaches 255", 0, 2.5501, 255}, // 255.01
            {"negative factor is not limited", 0, -1.0, -100},
            {"negative transparency is not limited", -50, 2.55, 382}, // 382.5
            {"transparency 101 moves toward zero", 101, 2.55, -2},    // -2.55
            {"smallest transparency saturates", smallest, 2.55, largest},
            {"largest transparency saturates", largest, 2.55, smallest},
            {"factor is not a number", 0, qQNaN(), 0},
            {"infinite factor saturates", 0, qInf(), largest},
            {"infinite factor of nothing", 100, qInf(), 0},
        });
    }

    void alphaIsTruncated()
    {
        const auto [transparency, factor, expected] = row<int, QVariant, int>();
        QCOMPARE(watermarkstyle::alpha(transparency, factor), expected);
    }

    void fontTakesSizeAndStyle_data()
    {
        const QVariant plain = tahoma(QFont::Normal, QFont::StyleNormal);
        const QVariant rich = tahoma(QFont::Bold, QFont::StyleItalic);
        const QVariant unusual = tahoma(QFont::Light, QFont::StyleOblique);
        addRows<QVariant, int, QString, QString>({
            {"italic", plain, 22, "Italic", "Tahoma 22 normal italic"},
            {"bold", plain, 22, "Bold", "Tahoma 22 bold upright"},
            {"bold italic", plain, 22, "Bold Italic", "Tahoma 22 bold italic"},
            {"regular takes bold and italic away", rich, 22, "Regular", "Tahoma 22 normal upright"},
            {"italic takes bold away", rich, 22, "Italic", "Tahoma 22 normal italic"},
            {"bold takes italic away", rich, 22, "Bold", "Tahoma 22 bold upright"},
            {"regular replaces light and oblique", unusual, 22, "Regular", "Tahoma 22 normal upright"},
            {"bold italic replaces light and oblique", unusual, 22, "Bold Italic", "Tahoma 22 bold italic"},
            {"no style leaves the font's own", rich, 22, "", "Tahoma 22 bold italic"},
            {"unknown style leaves the font's own", unusual, 22, "Demi", "Tahoma 22 light oblique"},
            {"lower case is unknown", rich, 22, "regular", "Tahoma 22 bold italic"},
            {"blank at the end is unknown", rich, 22, "Regular ", "Tahoma 22 bold italic"},
            {"other order is unknown", plain, 22, "Italic Bold", "Tahoma 22 normal upright"},
            {"smallest size", plain, 1, "Regular", "Tahoma 1 normal upright"},
            {"size 0 leaves the font's own", plain, 0, "Regular", "Tahoma 12 normal upright"},
            {"negative size leaves the font's own", plain, smallest, "Bold", "Tahoma 12 bold upright"},
            {"family as text", "DejaVu Sans", 9, "Italic", "DejaVu Sans 9 normal italic"},
        });
    }

    void fontTakesSizeAndStyle()
    {
        const auto [font, pointSize, style, expected] = row<QVariant, int, QString, QString>();
        // Qt would complain on the host's error output about a size that is not positive.
        messages = 0;
        const QtMessageHandler previous = qInstallMessageHandler(countMessage);
        const QFont result = watermarkstyle::font(font, pointSize, style);
        qInstallMessageHandler(previous);
        QCOMPARE(described(result), expected);
        QCOMPARE(messages, 0);
    }

    void otherAttributesStay()
    {
        QFont font("Tahoma");
        font.setPixelSize(20);
        font.setUnderline(true);
        font.setStretch(150);
        const QFont result = watermarkstyle::font(font, 0, "Bold");
        QCOMPARE(result.pixelSize(), 20);
        QVERIFY(result.underline());
        QCOMPARE(int(result.stretch()), 150);
        QCOMPARE(watermarkstyle::font(font, 9, "Regular").pixelSize(), -1);
        QCOMPARE(watermarkstyle::font(font, 9, "Regular").pointSize(), 9);
    }

    void valueThatIsNoFontGivesTheDefaultFont()
    {
        for (const QVariant& value : {QVariant(), QVariant(5), QVariant(QColor(Qt::white)), QVariant(QVariantMap())}) {
            QCOMPARE(watermarkstyle::font(value, 0, QString()), QFont());
            QCOMPARE(watermarkstyle::font(value, 31, "Bold").pointSize(), 31);
            QCOMPARE(int(watermarkstyle::font(value, 31, "Bold").weight()), int(QFont::Bold));
        }
    }
};

QTEST_GUILESS_MAIN(TstWatermarkStyle)

#include "tst_watermarkstyle.moc"
