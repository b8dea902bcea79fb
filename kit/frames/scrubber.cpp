// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/scrubber.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <deque>
#include <limits>

#include <QTimer>

#include <zokit/child.h>

#include "framecommands_p.h"

namespace zokit {

namespace {

constexpr int picturesPerSecond = 25;
// Pictures kept on both sides of the wish: going back takes a new decoder, which begins at a key frame far before, only
// now and then.
constexpr qint64 behind = 75;
constexpr qint64 ahead = 15;
constexpr qint64 reach = 75; // So far ahead of its last picture a decoder is sooner than a new one.

/// The picture that is shown at \a seconds; a time that was typed or added up may lack a little.
qint64 numberAt(double seconds)
{
    constexpr double little = 0.001;
    constexpr double longest = 1e6;
    return static_cast<qint64>(std::floor(std::clamp(seconds + little, 0.0, longest) * picturesPerSecond));
}

QSize fitted(const QSize& size, const QSize& most)
{
    const QSize smaller =
        size.width() > most.width() || size.height() > most.height() ? size.scaled(most, Qt::KeepAspectRatio) : size;
    return smaller.expandedTo(QSize(1, 1));
}

} // namespace

class Scrubber::Private : public QObject {
public:
    Private(const Tools& tools, Scrubber* owner) : m_tools(tools), m_owner(owner) {}

    void open(const FrameQuestion& question, const QSize& most);
    void close();
    void want(double seconds);

private:
    qint64 end() const { return m_first + static_cast<qint64>(m_pictures.size()); }
    void comeBack();
    void update();
    void startWhereNeeded();
    void startAt(qint64 number);
    void read(const QByteArray& piece);
    void keepPace();
    void showNearest();

    Tools m_tools;
    Scrubber* m_owner;
    FrameQuestion m_question;
    QSize m_size; ///< Of the pictures; empty: there are none to be had.
    std::unique_ptr<Child> m_child;
    QByteArray m_bytes; ///< Of the picture that is coming.
    std::deque<QImage> m_pictures;
    qint64 m_first = 0; ///< Number of the first of them.
    qint64 m_wanted = 0;
    qint64 m_last = 0; ///< No picture comes behind it, as far as is known.
    qint64 m_shown = -1;
    bool m_isComingBack = false;
    bool m_waits = false; ///< The decoder is stopped: it is far enough ahead.
    bool m_hasEnded = false;
};

void Scrubber::Private::open(const FrameQuestion& question, const QSize& most)
{
    close();
    m_question = question;
    if (m_question.kind == FrameKind::After)
        m_question.kind = FrameKind::Whole;
    if (TypeSettings* subtitles = m_question.settings.find(QStringLiteral("Subtitle")))
        subtitles->selected = false;
    if (!m_question.media.picture() || !m_tools.error.isEmpty())
        return;
    m_size = fitted(questionGraph(m_question, GraphParts()).size, most);
}

void Scrubber::Private::close()
{
    m_child.reset();
    m_bytes.clear();
    m_pictures.clear();
    m_size = QSize();
    m_last = std::numeric_limits<qint64>::max();
    m_shown = -1;
    m_hasEnded = false;
}

void Scrubber::Private::want(double seconds)
{
    if (m_size.isEmpty())
        return;
    const double length = m_question.media.seconds;
    m_wanted = numberAt(length > 0 ? std::min(seconds, length - 1.0 / picturesPerSecond) : seconds);
    m_wanted = std::min(m_wanted, m_last);
    comeBack();
}

/// Whoever is told something may close this, which must not happen while the child still tells.
void Scrubber::Private::comeBack()
{
    if (m_isComingBack)
        return;
    m_isComingBack = true;
    QTimer::singleShot(0, this, &Private::update);
}

void Scrubber::Private::update()
{
    m_isComingBack = false;
    if (m_size.isEmpty())
        return;
    startWhereNeeded();
    keepPace();
    showNearest();
}

/// Where the decoder is about to come to the wish it goes on; before its first picture it is not taken away again.
void Scrubber::Private::startWhereNeeded()
{
    if (!m_child)
        return startAt(m_wanted);
    if (m_pictures.empty()) {
        if (m_hasEnded && m_first > 0) // Behind the clip's end: it is shorter than it says.
            startAt(m_first / 2);
        return;
    }
    if (m_wanted < m_first)
        startAt(std::max(m_wanted - behind, qint64(0)));
    else if (m_wanted >= end() + reach && m_wanted <= m_last && !m_hasEnded)
        startAt(m_wanted);
}

void Scrubber::Private::startAt(qint64 number)
{
    m_bytes.clear();
    m_pictures.clear();
    m_first = number;
    m_waits = false;
    m_hasEnded = false;
    m_child = std::make_unique<Child>();
    m_child->collect(false);
    connect(m_child.get(), &Child::outputReady, this, &Private::read);
    connect(m_child.get(), &Child::finished, this, [this](const ChildResult& result) {
        m_hasEnded = true;
        if (result.isGood())
            m_last = end() - 1;
        else if (m_pictures.empty())
            m_size = QSize();
        comeBack();
    });
    m_child->start(runningCommand(m_tools, m_question, double(number) / picturesPerSecond, m_size, picturesPerSecond));
}

void Scrubber::Private::read(const QByteArray& piece)
{
    constexpr int bytesAPixel = 4;
    const int bytesALine = m_size.width() * bytesAPixel;
    const int whole = bytesALine * m_size.height();
    m_bytes += piece;
    int taken = 0;
    for (; m_bytes.size() - taken >= whole; taken += whole) {
        const auto* pixels = reinterpret_cast<const uchar*>(m_bytes.constData() + taken);
        m_pictures.push_back(QImage(pixels, m_size.width(), m_size.height(), bytesALine, QImage::Format_RGBX8888)
                                 .convertToFormat(QImage::Format_RGB32));
    }
    m_bytes.remove(0, taken);
    if (taken > 0)
        comeBack();
}

void Scrubber::Private::keepPace()
{
    while (m_first < m_wanted - behind && m_pictures.size() > 1) {
        m_pictures.pop_front();
        ++m_first;
    }
    const bool isAhead = end() > m_wanted + ahead;
    if (isAhead && !m_waits)
        m_child->pause();
    else if (!isAhead && m_waits)
        m_child->resume();
    m_waits = isAhead;
}

void Scrubber::Private::showNearest()
{
    if (m_pictures.empty())
        return;
    const qint64 nearest = std::clamp(m_wanted, m_first, end() - 1);
    if (m_shown >= 0 && std::abs(nearest - m_wanted) >= std::abs(m_shown - m_wanted))
        return;
    m_shown = nearest;
    const QImage picture = m_pictures[static_cast<std::size_t>(nearest - m_first)];
    Q_EMIT m_owner->shown(picture, double(nearest) / picturesPerSecond);
}

Scrubber::Scrubber(const Tools& tools, QObject* parent) : QObject(parent), d(std::make_unique<Private>(tools, this)) {}

Scrubber::~Scrubber() = default;

void Scrubber::open(const FrameQuestion& question, const QSize& most)
{
    d->open(question, most);
}

void Scrubber::close()
{
    d->close();
}

void Scrubber::want(double seconds)
{
    d->want(seconds);
}

} // namespace zokit
