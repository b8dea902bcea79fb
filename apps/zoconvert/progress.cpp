// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "progress.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

#include <sys/ioctl.h>
#include <unistd.h>

#include <QJsonDocument>
#include <QJsonObject>

#include "console.h"
#include "words.h"

namespace zoconvert {

namespace {

Progress::How howOf(const Invocation& invocation)
{
    const QString word = outputValue(invocation, "progress").toString();
    if (word == QLatin1String("json"))
        return Progress::How::Json;
    if (word == QLatin1String("none"))
        return Progress::How::None;
    if (word == QLatin1String("bar"))
        return Progress::How::Bar;
    const bool isTerminal = ::isatty(STDERR_FILENO) != 0 && qgetenv("TERM") != "dumb";
    return isTerminal ? Progress::How::Bar : Progress::How::Lines;
}

int columns()
{
    constexpr int usual = 80;
    winsize size = {};
    return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

/// The places that \a text takes on a terminal.
int widthOf(const QString& text)
{
    int width = 0;
    for (const uint letter : text.toUcs4())
        width += std::max(::wcwidth(static_cast<wchar_t>(letter)), 0);
    return width;
}

QString timeText(double seconds)
{
    const auto whole = static_cast<qint64>(std::ceil(seconds));
    constexpr qint64 sixty = 60;
    const QString minutes = QString::number(whole / sixty % sixty);
    const QString rest = QStringLiteral("%1").arg(whole % sixty, 2, 10, QLatin1Char('0'));
    if (whole < sixty * sixty)
        return minutes + QLatin1Char(':') + rest;
    return QStringLiteral("%1:%2:%3").arg(whole / sixty / sixty).arg(minutes, 2, QLatin1Char('0')).arg(rest);
}

/// Whether \a sentence begins with \a name as a word of its own: "a.mkv: ...", "a.mkv is ...".
bool beginsWith(const QString& sentence, const QString& name)
{
    const QString shown = zokit::onOneLine(name);
    const QString next = sentence.mid(shown.size(), 1);
    return sentence.startsWith(shown) && (next == QLatin1String(":") || next == QLatin1String(" "));
}

void printObject(const QJsonObject& object)
{
    console::print(QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n');
    console::allPrinted(); // Who reads it waits for it.
}

} // namespace

const char* outcomeWord(zokit::Outcome outcome)
{
    switch (outcome) {
    case zokit::Outcome::Done:
        return "done";
    case zokit::Outcome::Cancelled:
        return "cancelled";
    case zokit::Outcome::Skipped:
        return "skipped";
    case zokit::Outcome::Failed:
        break;
    }
    return "failed";
}

QString barLine(int columns, double fraction, int ended, int files, double secondsLeft, const QString& name)
{
    constexpr int cells = 20;
    constexpr double hundred = 100;
    const int full = static_cast<int>(std::floor(fraction * cells));
    QStringList parts{QLatin1Char('[') + QString(full, QLatin1Char('#')) + QString(cells - full, QLatin1Char('.'))
                          + QLatin1Char(']'),
                      QStringLiteral("%1 %").arg(static_cast<int>(std::floor(fraction * hundred)), 3),
                      QStringLiteral("%1/%2").arg(ended).arg(files)};
    if (secondsLeft > 0)
        parts.append(timeText(secondsLeft));
    parts.append(zokit::onOneLine(name));
    // The percentage is worth more than the bar on a line that is too narrow for both.
    if (widthOf(parts.at(0)) + 2 + widthOf(parts.at(1)) > columns)
        parts.removeFirst();
    QString line;
    for (const QString& part : parts) {
        const QString longer = line.isEmpty() ? part : line + QStringLiteral("  ") + part;
        if (widthOf(longer) > columns)
            break;
        line = longer;
    }
    return line;
}

Progress::Progress(const Invocation& invocation)
    : m_how(howOf(invocation))
    , m_isQuiet(outputValue(invocation, "quiet").toBool())
    , m_isVerbose(outputValue(invocation, "verbose").toBool())
    , m_isDryRun(outputValue(invocation, "dry-run").toBool())
{
    if (m_isQuiet && m_how != How::Json)
        m_how = How::None;
}

Progress::~Progress()
{
    hide();
}

void Progress::begin(int files)
{
    m_files = files;
    if (m_how == How::Json)
        printObject({{QStringLiteral("event"), QStringLiteral("begin")},
                     {QStringLiteral("version"), 1},
                     {QStringLiteral("files"), files}});
}

void Progress::tell(const char* event, const FileJob& file, QJsonObject more) const
{
    if (m_how != How::Json)
        return;
    more.insert(QStringLiteral("event"), QLatin1String(event));
    more.insert(QStringLiteral("input"), file.input);
    more.insert(QStringLiteral("output"), file.output);
    printObject(more);
}

void Progress::started(const FileJob& file)
{
    tell("start", file, {});
    m_fractions.insert(file.output, 0);
    m_latest = file.input;
    m_secondsLeft = 0;
    draw();
}

void Progress::progressed(const FileJob& file, double fraction, double secondsLeft, double speed)
{
    tell("progress", file,
         {{QStringLiteral("fraction"), fraction},
          {QStringLiteral("seconds_left"), secondsLeft},
          {QStringLiteral("speed"), speed}});
    m_fractions.insert(file.output, fraction);
    m_latest = file.input;
    m_secondsLeft = secondsLeft;
    draw();
}

void Progress::warned(const FileJob& file, const QString& sentence)
{
    tell("warning", file, {{QStringLiteral("reason"), sentence}});
    if (m_isQuiet)
        return;
    hide();
    console::warning(sentence, file.input);
    draw();
}

void Progress::note(const FileJob& file, const QString& sentence)
{
    if (m_isQuiet)
        return;
    hide();
    console::note(sentence, file.input);
    draw();
}

void Progress::ended(const FileJob& file, zokit::Outcome outcome, const QString& reason)
{
    ++m_counts[static_cast<int>(outcome)];
    m_fractions.remove(file.output);
    QJsonObject more;
    if (!reason.isEmpty())
        more.insert(QStringLiteral("reason"), reason);
    tell(outcomeWord(outcome), file, more);
    hide();
    if (outcome == zokit::Outcome::Failed || outcome == zokit::Outcome::Cancelled)
        console::error(reason,
                       beginsWith(reason, file.input) || beginsWith(reason, file.output) ? QString() : file.input);
    else if (!m_isQuiet && outcome == zokit::Outcome::Skipped)
        console::note(reason, file.input);
    else if (m_how == How::Lines && !m_isDryRun)
        console::note(say(Say::DoneAs, {file.output}), file.input);
    draw();
}

void Progress::summary()
{
    hide();
    m_isDrawn = false;
    if (m_how != How::Json)
        return;
    QJsonObject object{{QStringLiteral("event"), QStringLiteral("summary")}, {QStringLiteral("files"), m_files}};
    for (const zokit::Outcome outcome :
         {zokit::Outcome::Done, zokit::Outcome::Failed, zokit::Outcome::Cancelled, zokit::Outcome::Skipped})
        object.insert(QLatin1String(outcomeWord(outcome)), count(outcome));
    printObject(object);
}

void Progress::hide()
{
    if (m_isDrawn)
        console::draw("\r\x1b[K");
    m_isDrawn = false;
}

void Progress::draw()
{
    if (m_how != How::Bar || m_fractions.isEmpty())
        return;
    double sum = 0;
    for (const double fraction : std::as_const(m_fractions))
        sum += fraction;
    int ended = 0;
    for (const int counted : std::as_const(m_counts))
        ended += counted;
    const double fraction = std::min((ended + sum) / std::max(m_files, 1), 1.0);
    // The last column stays free: some terminals go on in the next line with it.
    console::draw("\r\x1b[K" + barLine(columns() - 1, fraction, ended, m_files, m_secondsLeft, m_latest).toUtf8());
    m_isDrawn = true;
}

} // namespace zoconvert
