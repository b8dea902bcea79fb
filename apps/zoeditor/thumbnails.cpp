// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "thumbnails.h"

#include <QPainter>
#include <QPixmap>

#include <zokit/settingsfile.h>

#include "session.h"

namespace zoeditor {

namespace {

constexpr QSize small{128, 72}; // Twice what the list shows: sharp on fine screens, too.
constexpr double place = 0.1;   ///< Of the length: the very beginning is black in most films.

} // namespace

Thumbnails::Thumbnails(Session* session, QObject* parent)
    : QObject(parent), m_session(session), m_frames(session->tools())
{
    connect(&m_frames, &zokit::Frames::answered, this, &Thumbnails::take);
}

void Thumbnails::ask(const QVector<zokit::Identity>& files)
{
    m_wanted.clear();
    for (const zokit::Identity file : files) {
        if (file != 0 && !m_asked.contains(file))
            m_wanted.append(file);
    }
    if (m_open == 0)
        askNext();
}

void Thumbnails::askNext()
{
    m_open = 0;
    while (!m_wanted.isEmpty() && m_open == 0) {
        const zokit::Identity wanted = m_wanted.takeFirst();
        const zokit::FileSettings* file = m_session->project().file(wanted);
        const zokit::MediaInfo* media = m_session->mediaOf(file);
        if (!media || !media->picture())
            continue;
        zokit::Settings scaled; // Nothing but the size: ffmpeg hands over a small picture.
        scaled.media = file->media();
        scaled = zokit::completed(scaled);
        scaled.output.insert(QStringLiteral("size"), zokit::sizeText(small));
        zokit::FrameQuestion question;
        question.settings = scaled;
        question.media = *media;
        question.seconds = media->seconds * place;
        m_open = wanted;
        m_asked.append(wanted);
        m_frames.ask(question);
    }
}

void Thumbnails::take(const zokit::FrameAnswer& answer)
{
    const QImage image = answer.frame.image();
    if (!image.isNull()) {
        QPixmap picture(small);
        picture.fill(Qt::black);
        QPainter painter(&picture);
        painter.drawImage((small.width() - image.width()) / 2, (small.height() - image.height()) / 2, image);
        painter.end();
        m_session->setThumbnail(m_open, picture);
    }
    askNext();
}

} // namespace zoeditor
