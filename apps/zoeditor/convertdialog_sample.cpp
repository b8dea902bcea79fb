// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

// What is shown of a conversion before it begins: its command, and a short part of its result.

#include "convertdialog.h"

#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>

#include <zokit/sample.h>
#include <zokit/shell.h>

#include "names.h"
#include "session.h"

namespace zoeditor {

namespace {

constexpr double sampleSeconds = 10;

} // namespace

void ConvertDialog::showCommand()
{
    const int place = shownJob();
    if (place < 0)
        return;
    const zokit::Job job = m_made.jobs.at(place);
    m_helpers = std::make_unique<QTemporaryDir>();
    m_preparing = std::make_unique<zokit::Conversion>(m_session->tools());
    connect(m_preparing.get(), &zokit::Conversion::finished, this, [this, job](const zokit::ConversionResult& result) {
        const bool isDone = result.outcome == zokit::Outcome::Done;
        m_command->setPlainText(
            isDone ? zokit::shellLines(m_preparing->commands(), m_helpers->path(), job.replaces).join(QLatin1Char('\n'))
                   : sentenceOf(result.reason));
        m_copyCommand->setEnabled(isDone);
    });
    m_command->setPlainText(tr("One moment: the sound is measured, and subtitles are read."));
    m_command->show();
    m_copyCommand->setEnabled(false);
    m_preparing->prepare(job, m_helpers->path());
}

void ConvertDialog::convertSample()
{
    const int place = shownJob();
    if (place < 0 || !m_made.jobs.at(place).media)
        return;
    m_whole = m_made.jobs.at(place);
    if (!m_sample.output.isEmpty())
        QFile::remove(m_sample.output);
    m_sample = zokit::sampleOf(m_whole, *m_whole.media, m_seconds, sampleSeconds);
    m_sampling = std::make_unique<zokit::Conversion>(m_session->tools());
    connect(m_sampling.get(), &zokit::Conversion::progressed, this, [this](double fraction) {
        m_sampleState->setText(tr("Ten seconds are being converted: %1 %").arg(qRound(fraction * 100)));
    });
    connect(m_sampling.get(), &zokit::Conversion::finished, this, &ConvertDialog::endSample);
    m_sampleState->setText(tr("Ten seconds are being converted."));
    m_sampleState->show();
    m_sampleButton->setEnabled(false);
    m_showSample->setEnabled(false);
    m_sampling->start(m_sample);
}

void ConvertDialog::endSample(const zokit::ConversionResult& result)
{
    m_sampleButton->setEnabled(true);
    if (result.outcome != zokit::Outcome::Done) {
        m_sampleState->setText(sentenceOf(result.reason));
        m_sample = {};
        return;
    }
    m_showSample->setEnabled(true);
    const QLocale locale;
    const qint64 bytes = QFileInfo(m_sample.output).size();
    const qint64 whole = zokit::bytesOfWhole(m_whole, m_sample, *m_whole.media, bytes);
    const double begin = m_sample.settings.output.value(QStringLiteral("trim")).toList().value(0).toDouble();
    const QString seconds = locale.toString(begin, 'f', 1);
    constexpr double frame = 0.1; // Seconds: whoever began there sees no difference.
    const QString where =
        begin < m_seconds - frame
            ? tr("It begins at %1 s: less than ten seconds come after the picture shown.").arg(seconds)
            : tr("It begins at %1 s.").arg(seconds);
    m_sampleState->setText(
        tr("%1 has %2; all of the clip would have about %3. It is removed when this window is closed.")
            .arg(shownName(m_sample.output), locale.formattedDataSize(bytes),
                 whole > 0 ? locale.formattedDataSize(whole) : tr("an unknown size"))
        + QLatin1Char(' ') + where);
}

} // namespace zoeditor
