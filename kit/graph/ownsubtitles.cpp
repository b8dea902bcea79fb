// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/subtitlescript.h>

#include <algorithm>

#include <QFont>
#include <QFontInfo>
#include <QRawFont>
#include <QRegularExpression>

#include "assscript_p.h"
#include "cataloguedefaults_p.h"
#include "chain_p.h"
#include "picture_p.h"

namespace zokit {

namespace {

const QStringList primary{QStringLiteral("PrimaryColour")};
const QStringList outline{QStringLiteral("OutlineColour"), QStringLiteral("TertiaryColour")};
const QStringList alignment{QStringLiteral("Alignment")};
const QStringList marginV{QStringLiteral("MarginV")};
const QStringList textField{QStringLiteral("Text")};
const QString lineBreak = QStringLiteral("\\N");
const QString eventFormat = QStringLiteral("Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text");

/// A track's style in the units of a script.
struct Look {
    QString family;
    double size = 0; ///< Ascent and descent together, in pixels of the frame: a script's way to measure.
    bool bold = false;
    bool italic = false;
    QColor letters;
    QColor edge;
    int alpha = 0;
    int top = 0;         ///< Of the first line, in pixels of the frame.
    int lineGap = 0;     ///< Added between lines.
    bool placed = false; ///< The place is not the usual one.
};

Look lookOf(const Values& given, const ScriptParts& parts)
{
    const Values usual = catalogueItem(QStringLiteral("Subtitle"), parts.frame);
    const auto value = [&](const char* name) {
        const QString key = QLatin1String(name);
        return given.contains(key) ? given.value(key) : usual.value(key);
    };
    Look look;
    auto font = value("sub_fontname").value<QFont>();
    constexpr double dotsPerPoint = 96.0 / 72.0;
    // The family that is really found, so that the script names what everybody takes.
    look.family = QFontInfo(font).family().replace(QLatin1Char(','), QLatin1Char(' '));
    QRawFont found = QRawFont::fromFont(font);
    const double em = found.isValid() ? found.unitsPerEm() : 0;
    if (em > 0)
        found.setPixelSize(em); // Where nothing of the font is rounded.
    const double lineOfEm = em > 0 ? (found.ascent() + found.descent()) / em : 1;
    look.size = value("sub_fontsize").toInt() * dotsPerPoint * lineOfEm;
    const QString style = value("sub_fontstyle").toString();
    look.bold = style.contains(QLatin1String("Bold"));
    look.italic = style.contains(QLatin1String("Italic"));
    look.letters = value("sub_fontcolor").value<QColor>();
    look.edge = value("sub_framecolor").value<QColor>();
    look.alpha = parts.soft ? subtitleAlpha(given) : covering;
    look.top = value("sub_vposition").toInt();
    look.lineGap = std::max(value("sub_linemargin").toInt(), 0);
    look.placed = value("sub_vposition") != usual.value(QStringLiteral("sub_vposition"));
    return look;
}

QString colourOf(const Look& look, const QColor& colour)
{
    constexpr int opaque = 255;
    return assColour(colour, look.alpha >= covering ? opaque : look.alpha);
}

QString decimals(double number)
{
    return QString::number(number, 'f', 1);
}

QString ownHeader(const Look& look, const QSize& frame)
{
    constexpr double outlinePart = 16.0; // Of the size; ours.
    const QString letters = colourOf(look, look.letters);
    const QString edge = colourOf(look, look.edge);
    const auto flag = [](bool on) { return QString::number(on ? -1 : 0); };
    const QStringList style{QStringLiteral("Default"),
                            look.family,
                            decimals(look.size),
                            letters,
                            letters,
                            edge,
                            edge,
                            flag(look.bold),
                            flag(look.italic),
                            QStringLiteral("0,0,100,100,0,0,1"), // Neither lines nor stretched; outline, no box.
                            decimals(std::max(1.0, look.size / outlinePart)),
                            QStringLiteral("0,8,10,10"), // No shadow; top centre; margins beside.
                            QString::number(look.top),
                            QStringLiteral("1")};
    return QStringLiteral("[Script Info]\nScriptType: v4.00+\nPlayResX: %1\nPlayResY: %2\nScaledBorderAndShadow: yes\n"
                          "WrapStyle: 0\n\n[V4+ Styles]\nFormat: Name, Fontname, Fontsize, PrimaryColour, "
                          "SecondaryColour, OutlineColour, BackColour, Bold, Italic, Underline, StrikeOut, ScaleX, "
                          "ScaleY, Spacing, Angle, BorderStyle, Outline, Shadow, Alignment, MarginL, MarginR, MarginV, "
                          "Encoding\nStyle: ")
               .arg(frame.width())
               .arg(frame.height())
           + style.join(QLatin1Char(',')) + QStringLiteral("\n\n[Events]\nFormat: ") + eventFormat + QLatin1Char('\n');
}

/// The line at which an event begins that has so many pixels of height, so that all of it stays inside; as the event
/// says it, 0 where it is the style's.
int topOfEvent(const Look& look, double height, int frameHeight, double below)
{
    const int highest = std::max(0, static_cast<int>(frameHeight - height));
    const int top = std::clamp(look.top, 0, highest) + static_cast<int>(below);
    return top == look.top ? 0 : std::max(top, 1);
}

/// One event in the own style: one line of the script, or one a line of text where lines are apart.
QString ownEvent(const AssRow& event, const Look& look, int frameHeight, bool ownColours)
{
    const QString text = withoutCommands(event.value(textField), true, !ownColours, true);
    const QString start = event.value({QStringLiteral("Start")});
    const QString end = event.value({QStringLiteral("End")});
    const auto dialogue = [&](int layer, int top, const QString& words) {
        return QStringLiteral("Dialogue: %1,%2,%3,Default,,0,0,%4,,").arg(layer).arg(start, end).arg(top) + words
               + QLatin1Char('\n');
    };
    const QStringList lines = text.split(lineBreak);
    const double pitch = look.size + look.lineGap;
    const double height = (static_cast<int>(lines.size()) - 1) * pitch + look.size;
    if (look.lineGap == 0 || lines.size() == 1)
        return dialogue(0, topOfEvent(look, height, frameHeight, 0), text);
    static const QRegularExpression block(QStringLiteral(R"(\{[^}]*\})"));
    QString result;
    QString open; // Commands of the lines before hold on.
    for (int line = 0; line < lines.size(); ++line) {
        // On layers of their own: events of one layer push each other apart.
        result += dialogue(line, topOfEvent(look, height, frameHeight, line * pitch), open + lines.at(line));
        QRegularExpressionMatchIterator blocks = block.globalMatch(lines.at(line));
        while (blocks.hasNext())
            open += blocks.next().captured();
    }
    return result;
}

/// What stands behind \a word at the beginning of \a line; null when it does not begin so.
QString behind(const QString& line, const char* word)
{
    const QLatin1String begin(word);
    return line.startsWith(begin, Qt::CaseInsensitive) ? line.mid(begin.size()).trimmed() : QString();
}

QStringList linesOf(const QByteArray& ass)
{
    QString text = QString::fromUtf8(ass);
    text.remove(QChar::ByteOrderMark).replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return text.replace(QLatin1Char('\r'), QLatin1Char('\n')).split(QLatin1Char('\n'));
}

OwnSubtitles restyled(const QStringList& lines, const Look& look, const QSize& frame, bool ownColours)
{
    QString script = ownHeader(look, frame);
    OwnSubtitles result;
    result.inColour = isInColour(colourOf(look, look.letters)) || isInColour(colourOf(look, look.edge));
    QStringList names = assNames(eventFormat);
    bool inEvents = false;
    for (const QString& line : lines) {
        if (line.startsWith(QLatin1Char('[')))
            inEvents = line.startsWith(QLatin1String("[Events]"), Qt::CaseInsensitive);
        const QString format = behind(line, "Format:");
        const QString dialogue = behind(line, "Dialogue:");
        if (inEvents && !format.isEmpty())
            names = assNames(format);
        if (!inEvents || dialogue.isEmpty())
            continue;
        const QString event = ownEvent(assRow(names, dialogue), look, frame.height(), ownColours);
        result.inColour = result.inColour || hasColourCommands(event);
        ++result.events;
        script += event;
    }
    result.script = script.toUtf8();
    return result;
}

/// What of a script with styles of its own becomes another.
struct Touch {
    bool colours = false;
    bool place = false;
    bool alpha = false;
};

void touchStyle(AssRow& style, const Look& look, const Touch& touch, bool isOldForm, int top)
{
    if (touch.colours) {
        style.set(primary, colourOf(look, look.letters));
        style.set(outline, colourOf(look, look.edge));
    } else if (touch.alpha && !isOldForm) {
        constexpr int opaque = 255;
        constexpr int digits = 6; // Of a colour without its opacity.
        for (const QStringList& name : {primary, outline})
            style.set(name, QString::asprintf("&H%02X", static_cast<unsigned>(opaque - look.alpha))
                                + style.value(name).right(digits));
    }
    if (touch.place) {
        style.set(alignment, isOldForm ? QStringLiteral("6") : QStringLiteral("8")); // Top centre.
        style.set(marginV, QString::number(top));
    }
}

OwnSubtitles withOwnStyles(const QStringList& lines, const Look& look, const QSize& frame, const Touch& touch)
{
    OwnSubtitles result;
    QStringList script;
    QStringList names;
    constexpr int usualHeight = 288; // Of a script that names none.
    int height = usualHeight;
    bool isOldForm = false;
    for (const QString& line : lines) {
        if (line.startsWith(QLatin1Char('[')))
            isOldForm = line.startsWith(QLatin1String("[V4 Styles]"), Qt::CaseInsensitive);
        if (const int named = behind(line, "PlayResY:").toInt(); named > 0)
            height = named;
        if (const QString format = behind(line, "Format:"); !format.isEmpty())
            names = assNames(format);
        const QString style = behind(line, "Style:");
        const QString dialogue = behind(line, "Dialogue:");
        if (!style.isEmpty()) {
            AssRow row = assRow(names, style);
            const int top = frame.height() > 0 ? look.top * height / frame.height() : look.top;
            touchStyle(row, look, touch, isOldForm, top);
            result.inColour = result.inColour || isInColour(row.value(primary)) || isInColour(row.value(outline))
                              || isInColour(row.value({QStringLiteral("BackColour")}));
            script.append(QStringLiteral("Style: ") + row.fields.join(QLatin1Char(',')));
        } else if (!dialogue.isEmpty()) {
            AssRow row = assRow(names, dialogue);
            row.set(textField, withoutCommands(row.value(textField), touch.place, touch.colours, false));
            if (touch.place)
                row.set(marginV, QStringLiteral("0"));
            result.inColour = result.inColour || hasColourCommands(row.value(textField));
            ++result.events;
            script.append(QStringLiteral("Dialogue: ") + row.fields.join(QLatin1Char(',')));
        } else {
            script.append(line);
        }
    }
    result.script = script.join(QLatin1Char('\n')).toUtf8();
    return result;
}

} // namespace

OwnSubtitles ownSubtitles(const QByteArray& ass, const Values& style, const ScriptParts& parts)
{
    const Look look = lookOf(style, parts);
    const QStringList lines = linesOf(ass);
    const bool keepsOwn = style.value(QStringLiteral("fontstyleusedefault"), true).toBool();
    const bool isFile = style.value(QStringLiteral("sub_fromfile")).toBool();
    if (!parts.hasOwnStyles || (!keepsOwn && isFile))
        return restyled(lines, look, parts.frame, keepsOwn);
    const bool hasAlpha = parts.soft && look.alpha < covering;
    return withOwnStyles(lines, look, parts.frame, {!keepsOwn, look.placed, hasAlpha});
}

} // namespace zokit
