// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include <zokit/frames.h>

#include <algorithm>
#include <utility>

#include <QBuffer>
#include <QDateTime>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QTimer>

#include <zokit/conversion.h>
#include <zokit/probe.h>
#include <zokit/subtitlescript.h>

#include "argumentnumber_p.h"
#include "childreason_p.h"
#include "framecommands_p.h"
#include "partfile_p.h"
#include "subtitleinput_p.h"

namespace zokit {

namespace {

using Code = Message::Code;

Message reasonWithoutTicks(ChildResult result, const Command& command)
{
    result.words = withoutTicks(result.words);
    return reasonOf(result, command);
}

/// What a frame that is kept belongs to.
QString keyOf(const FrameQuestion& question)
{
    return question.media.file + QLatin1Char('\n') + argumentNumber(question.seconds) + QLatin1Char('\n')
           + sourceGraph(question.settings, question.media).text;
}

} // namespace

FrameQuestion plannedFrame(const Settings& settings, const MediaInfo& media, const TracksPlan& plan)
{
    FrameQuestion question;
    question.settings = settings;
    question.media = media;
    question.pixelFormat = plan.pixelFormat;
    if (plan.mapsHdr)
        question.settings.output.insert(QStringLiteral("hdr"), QStringLiteral("map"));
    return question;
}

QImage ClipFrame::image() const
{
    constexpr int pixel = 4;
    if (size.isEmpty() || bytes.size() != qint64(size.width()) * size.height() * pixel)
        return QImage();
    const auto* first = reinterpret_cast<const uchar*>(bytes.constData());
    return QImage(first, size.width(), size.height(), size.width() * pixel, QImage::Format_RGBX8888)
        .convertToFormat(QImage::Format_RGB32);
}

class Frames::Private : public QObject {
public:
    Private(const Tools& tools, Frames* owner) : m_tools(tools), m_owner(owner), m_prober(tools)
    {
        connect(&m_prober, &Prober::finished, this, &Private::probed);
    }

    int ask(const FrameQuestion& question);
    void drop();
    void cancel();
    void expectMore();
    bool isRunning() const { return m_isRunning; }

private:
    enum class Step {
        Extract, ///< The text of the subtitle.
        Near,    ///< The frame, where it should be.
        Locate,  ///< Where it is, since it was not there.
        Found,   ///< The frame, where it is.
        Kept     ///< From the frame that was kept.
    };

    void begin();
    void makeFiles();
    bool hasFolder();
    bool write(const QString& name, const QByteArray& bytes, QString* path);
    void decode();
    void run(Step step, const Command& command);
    void runKept();
    std::unique_ptr<Child> newChild();
    void ended(const ChildResult& result);
    void extracted(const ChildResult& result);
    void probed(const ReadMedia& read);
    void located(const ChildResult& result);
    void read(const FrameWindow& window, Step step);
    void took(const ChildResult& result);
    void answer(const ClipFrame& frame);
    void fail(const Message& error);

    Tools m_tools;
    Frames* m_owner;
    Prober m_prober;
    std::unique_ptr<Child> m_child;
    std::unique_ptr<Child> m_ahead; ///< Loaded ahead; null: none.
    QStringList m_aheadArguments;
    Command m_expected; ///< What it is loaded for; without arguments: nothing.
    Command m_command;
    bool m_wasAhead = false; ///< The child that works was loaded ahead.
    Step m_step = Step::Near;
    FrameQuestion m_question;
    FrameAnswer m_answer;
    int m_number = 0;
    bool m_isRunning = false;
    int m_framesBefore = 0;
    int m_attempt = 0;       ///< Of locating the frame.
    FrameWindow m_window;    ///< That is looked at.
    bool m_isSource = false; ///< The clip's own frame is decoded, to be kept.
    KeptFrame m_kept;
    QString m_keptKey; ///< Empty: none is kept.
    HelperFolder m_folder;
    FrameFiles m_files;
    QString m_subtitleKey;      ///< What the following was made from.
    QByteArray m_subtitle;      ///< As ASS.
    QString m_fonts;            ///< Folder of those that the clip brings for it; empty: none.
    double m_subtitleStart = 0; ///< Of a file with pictures.
};

int Frames::Private::ask(const FrameQuestion& question)
{
    drop();
    m_question = question;
    const MediaStream* picture = question.media.picture();
    const double first = picture ? picture->start - question.media.start : 0; // Before it the first frame is shown.
    const double end = question.media.seconds;
    m_question.seconds = std::max({end > 0 ? std::min(question.seconds, end) : question.seconds, first, 0.0});
    m_answer = FrameAnswer();
    m_answer.number = ++m_number;
    m_isRunning = true;
    QTimer::singleShot(0, this, [this, number = m_number] {
        if (m_isRunning && number == m_number)
            begin();
    });
    return m_number;
}

/// A child that still runs is killed here, and what it had to say is lost with it.
void Frames::Private::drop()
{
    m_isRunning = false;
    m_prober.cancel();
    if (m_child && m_child->isRunning())
        m_child.reset();
}

void Frames::Private::cancel()
{
    drop();
    m_ahead.reset();
}

void Frames::Private::begin()
{
    if (!m_tools.error.isEmpty())
        return fail(m_tools.error);
    if (!m_question.media.picture())
        return fail(Message(Code::NoPicture, {m_question.media.file}));
    if (const Message wrong = checkInput(m_question.media.file); !wrong.isEmpty())
        return fail(wrong);
    const PictureGraph graph = questionGraph(m_question, GraphParts());
    if (!graph.error.isEmpty())
        return fail(graph.error);
    m_framesBefore = graph.framesBefore;
    m_answer.warnings = graph.warnings;
    m_answer.frame.size = graph.size;
    m_files = FrameFiles();
    if (m_question.kind == FrameKind::Before)
        return decode();
    const SubtitlePlan plan = subtitlePlan(m_question.settings, m_question.media);
    if (!plan.error.isEmpty())
        return fail(plan.error);
    // Somebody may correct the file meanwhile.
    const QFileInfo source(plan.file.isEmpty() ? m_question.media.file : plan.file);
    const QString key = QStringLiteral("%1\n%2\n%3\n%4\n%5")
                            .arg(m_question.media.file, source.filePath())
                            .arg(plan.stream)
                            .arg(source.size())
                            .arg(source.lastModified().toMSecsSinceEpoch());
    const bool isFileOfPictures = plan.use == SubtitleUse::BurnBitmap && !plan.file.isEmpty();
    if ((plan.use != SubtitleUse::BurnText && !isFileOfPictures) || key == m_subtitleKey)
        return makeFiles();
    m_subtitleKey = key;
    if (isFileOfPictures)
        return m_prober.probe(plan.file);
    if (!hasFolder())
        return;
    if (!m_fonts.isEmpty())
        QDir(m_fonts).removeRecursively(); // Those of another clip.
    m_fonts = fontsFolder(plan, m_question.media, m_folder.path());
    run(Step::Extract, extractCommand(m_tools, m_question.media, plan, m_fonts));
}

void Frames::Private::probed(const ReadMedia& read)
{
    if (!read.media) {
        m_subtitleKey.clear();
        return fail(read.error);
    }
    m_subtitleStart = read.media->start;
    makeFiles();
}

void Frames::Private::extracted(const ChildResult& result)
{
    if (!result.isGood()) {
        m_subtitleKey.clear();
        return fail(reasonWithoutTicks(result, m_command));
    }
    m_subtitle = result.output;
    makeFiles();
}

/// Makes the folder for helper files where there is none; without one the question has failed.
bool Frames::Private::hasFolder()
{
    const Message wrong = m_folder.path().isEmpty() ? m_folder.create() : Message();
    if (!wrong.isEmpty())
        fail(wrong);
    return wrong.isEmpty();
}

bool Frames::Private::write(const QString& name, const QByteArray& bytes, QString* path)
{
    if (!hasFolder())
        return false;
    *path = m_folder.path() + QLatin1Char('/') + name;
    QFile file(*path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush())
        return true;
    fail(Message(Code::FileUnwritable, {*path, file.errorString()}));
    return false;
}

void Frames::Private::makeFiles()
{
    const SubtitlePlan plan = subtitlePlan(m_question.settings, m_question.media);
    if (plan.use == SubtitleUse::BurnText) {
        ScriptParts parts;
        parts.frame = baseFrame(m_question.settings);
        parts.hasOwnStyles = plan.hasOwnStyles;
        const Item& track = m_question.settings.find(QStringLiteral("Subtitle"))->items.at(plan.position);
        const OwnSubtitles own = ownSubtitles(m_subtitle, track.values, parts);
        m_files.subtitleInColour = own.inColour;
        m_files.subtitleFonts = m_fonts;
        if (!write(QStringLiteral("subtitles.ass"), own.script, &m_files.subtitleScript))
            return;
    }
    if (m_question.kind == FrameKind::After) {
        const QImage watermark = watermarkPicture(m_question.settings);
        m_answer.warnings += watermarkWarnings(m_question.settings);
        if (!watermark.isNull()) {
            QByteArray png;
            QBuffer buffer(&png);
            constexpr int quick = 100; // Not compressed.
            if (!watermark.save(&buffer, "PNG", quick))
                return fail(Message(Code::FileUnwritable, {QStringLiteral("watermark.png"), QString()}));
            if (!write(QStringLiteral("watermark.png"), png, &m_files.watermark))
                return;
        }
    }
    m_files.subtitleStart = m_subtitleStart;
    decode();
}

void Frames::Private::decode()
{
    if (!m_keptKey.isEmpty() && m_keptKey == keyOf(m_question) && canBeKept(m_question))
        return runKept();
    m_isSource = m_question.isKept && canBeKept(m_question);
    m_attempt = 0;
    read(nearWindow(m_question.media, m_question.seconds, m_framesBefore), Step::Near);
}

void Frames::Private::read(const FrameWindow& window, Step step)
{
    m_window = window;
    run(step,
        m_isSource ? sourceCommand(m_tools, m_question, window) : frameCommand(m_tools, m_question, window, m_files));
}

void Frames::Private::run(Step step, const Command& command)
{
    m_step = step;
    m_command = command;
    m_wasAhead = false;
    if (!m_child)
        m_child = newChild();
    m_child->start(command);
}

/// With the program that was loaded ahead, where it is there and was meant for the same files.
void Frames::Private::runKept()
{
    const Command command = keptCommand(m_tools, m_question, m_kept, m_files);
    const Command reading = readingItsGraph(command);
    if (m_question.kind == FrameKind::After)
        m_expected = reading;
    if (!m_ahead || !m_ahead->isRunning() || m_aheadArguments != reading.arguments)
        return run(Step::Kept, command);
    m_step = Step::Kept;
    m_command = command;
    m_wasAhead = true;
    std::swap(m_child, m_ahead);
    m_child->feed(reading.input);
}

void Frames::Private::expectMore()
{
    if (m_isRunning || m_expected.arguments.isEmpty())
        return;
    if (m_ahead && m_ahead->isRunning()) {
        if (m_aheadArguments == m_expected.arguments)
            return;
        m_ahead.reset();
    }
    if (!m_ahead)
        m_ahead = newChild();
    m_aheadArguments = m_expected.arguments;
    m_ahead->startAhead(m_expected);
}

std::unique_ptr<Child> Frames::Private::newChild()
{
    auto child = std::make_unique<Child>();
    connect(child.get(), &Child::finished, this, [this, made = child.get()](const ChildResult& result) {
        if (made == m_child.get())
            ended(result);
    });
    return child;
}

void Frames::Private::ended(const ChildResult& result)
{
    switch (m_step) {
    case Step::Extract:
        return extracted(result);
    case Step::Locate:
        return located(result);
    case Step::Near: {
        // Behind the last frame, in a gap, and where a decoder began in the middle, there are too few.
        const bool isEnough = toldTicks(result.words).size() > m_framesBefore;
        if (result.end != ChildEnd::Finished || (result.isGood() && isEnough))
            return took(result);
        m_window = wideWindow(m_question.seconds, m_attempt);
        return run(Step::Locate, locateCommand(m_tools, m_question, m_window));
    }
    case Step::Found:
        return took(result);
    case Step::Kept:
        if (std::exchange(m_wasAhead, false) && !result.isGood())
            return run(Step::Kept, m_command); // What was loaded ahead may have come to harm meanwhile.
        return took(result);
    }
}

void Frames::Private::located(const ChildResult& result)
{
    if (result.end != ChildEnd::Finished)
        return fail(reasonWithoutTicks(result, m_command));
    const QVector<qint64> ticks = toldTicks(result.words);
    if (ticks.size() <= m_framesBefore && m_window.from > 0) {
        m_window = wideWindow(m_question.seconds, ++m_attempt);
        return run(Step::Locate, locateCommand(m_tools, m_question, m_window));
    }
    if (ticks.isEmpty())
        return read(FrameWindow(), Step::Found); // All frames are later: the first.
    const double seconds = secondsOf(ticks.last(), m_window, m_question.media);
    read(windowAround(m_window, seconds), Step::Found);
}

void Frames::Private::took(const ChildResult& result)
{
    if (!result.isGood())
        return fail(reasonWithoutTicks(result, m_command));
    // Where one frame was asked for, the filters may have seen the next one, too.
    const QVector<qint64> ticks = toldTicks(result.words);
    const bool isOne = m_step == Step::Kept || m_window.to <= 0;
    const int count = isOne ? std::min(int(ticks.size()), 1) : int(ticks.size());
    if (count == 0 || result.output.isEmpty() || result.output.size() % count != 0)
        return fail(Message(Code::NoPicture, {m_question.media.file}));
    const QByteArray bytes = result.output.right(result.output.size() / count);
    if (m_step == Step::Kept || !m_isSource) {
        m_answer.frame.bytes = bytes;
        return answer(m_answer.frame);
    }
    m_keptKey.clear();
    if (!write(QStringLiteral("frame.raw"), bytes, &m_kept.file))
        return;
    m_kept.size = sourceGraph(m_question.settings, m_question.media).size;
    m_kept.seconds = secondsOf(ticks.at(count - 1), m_window, m_question.media);
    m_keptKey = keyOf(m_question);
    runKept();
}

void Frames::Private::answer(const ClipFrame& frame)
{
    m_isRunning = false;
    m_answer.frame = frame;
    const FrameAnswer told = m_answer;
    Q_EMIT m_owner->answered(told);
}

void Frames::Private::fail(const Message& error)
{
    m_answer.error = error;
    answer(ClipFrame());
}

Frames::Frames(const Tools& tools, QObject* parent) : QObject(parent), d(std::make_unique<Private>(tools, this)) {}

Frames::~Frames() = default;

int Frames::ask(const FrameQuestion& question)
{
    return d->ask(question);
}

void Frames::cancel()
{
    d->cancel();
}

void Frames::expectMore()
{
    d->expectMore();
}

bool Frames::isRunning() const
{
    return d->isRunning();
}

FrameAnswer frame(Frames& frames, const FrameQuestion& question)
{
    FrameAnswer result;
    QEventLoop loop;
    QObject::connect(&frames, &Frames::answered, &loop, [&](const FrameAnswer& answer) {
        result = answer;
        loop.quit();
    });
    frames.ask(question);
    loop.exec();
    return result;
}

} // namespace zokit
