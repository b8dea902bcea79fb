// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "tracksdialog.h"

#include <algorithm>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "buttons.h"
#include "hint.h"
#include "jobs.h"
#include "languagelist.h"
#include "names.h"
#include "session.h"

namespace zoeditor {

using zokit::FileSettings;
using zokit::TrackChoice;
using zokit::TrackKind;

namespace {

enum Column { TrackColumn, WhyColumn, FateColumn };
enum Where { This, Selected, All };

QString describe(const TrackChoice& choice)
{
    if (!choice.sidecar.isEmpty())
        return TracksDialog::tr("Subtitles %1").arg(QFileInfo(choice.sidecar).fileName());
    const zokit::Track& track = choice.track;
    QStringList about;
    if (!track.language.isEmpty())
        about.append(LanguageList::nameOf(track.language));
    about.append(track.codec);
    if (!track.title.isEmpty())
        about.append(track.title);
    const QString text =
        track.kind == TrackKind::Audio ? TracksDialog::tr("Sound %1: %2") : TracksDialog::tr("Subtitles %1: %2");
    return text.arg(track.index).arg(about.join(QStringLiteral(", ")));
}

/// Gives a row the height that its texts take in columns as they are: the tree itself would give it one line.
class Wrapping : public QStyledItemDelegate {
public:
    explicit Wrapping(QTreeView* tree) : QStyledItemDelegate(tree), m_tree(tree) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QStyle& style = *m_tree->style();
        const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, m_tree) + 1;
        const bool hasBox = index.data(Qt::CheckStateRole).isValid();
        const int box = hasBox ? style.pixelMetric(QStyle::PM_IndicatorWidth, nullptr, m_tree) + 2 * margin : 0;
        const QRect line(0, 0, m_tree->columnWidth(index.column()) - box - 2 * margin, QWIDGETSIZE_MAX);
        const QRect text = option.fontMetrics.boundingRect(line, Qt::TextWordWrap, index.data().toString());
        constexpr int between = 6; // Pixels: which lines belong together has to be seen.
        QSize size = QStyledItemDelegate::sizeHint(option, index);
        size.setHeight(std::max(size.height(), text.height()) + between);
        return size;
    }

private:
    const QTreeView* m_tree;
};

} // namespace

TracksDialog::TracksDialog(Session* session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_audio(new LanguageList(QStringLiteral("audioLanguages"), tr("Sound in the first of these languages:"), this))
    , m_subtitles(
          new LanguageList(QStringLiteral("subtitleLanguages"), tr("Subtitles in the first of these languages:"), this))
    , m_forced(new QCheckBox(tr("&Forced subtitles"), this))
    , m_sidecars(new QCheckBox(this))
    , m_tracks(new QTreeWidget(this))
    , m_where(new QComboBox(this))
    , m_problem(new QLabel(this))
    , m_planner(session->tools())
{
    setObjectName(QStringLiteral("tracksDialog"));
    setWindowTitle(tr("Tracks"));
    const zokit::TrackRules present =
        zokit::trackRulesFrom(session->current()->settings().tracks).value_or(zokit::TrackRules());
    m_byHand.audioTracks = present.audioTracks;
    m_byHand.subtitleTrack = present.subtitleTrack;
    m_audio->setCodes(present.audioLanguages);
    m_subtitles->setCodes(present.subtitleLanguages);
    m_forced->setChecked(present.forcedSubtitles);
    m_sidecars->setChecked(present.sidecars);
    m_sidecar = present.sidecars ? QString() : sidecarInUse();

    auto* columns = new QSplitter(Qt::Horizontal, this);
    columns->setObjectName(QStringLiteral("tracksColumns"));
    columns->setChildrenCollapsible(false);
    columns->addWidget(makeRules());
    columns->addWidget(makeTracks());
    columns->setSizes({290, 710});
    m_problem->setObjectName(QStringLiteral("problem"));
    m_problem->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(this);
    m_apply = buttons->addButton(tr("Apply"), QDialogButtonBox::AcceptRole);
    m_apply->setObjectName(QStringLiteral("apply"));
    buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole)->setObjectName(QStringLiteral("cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &TracksDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &TracksDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(columns, 1);
    layout->addWidget(m_problem);
    layout->addWidget(buttons);
    resize(1000, 560);

    connect(m_audio, &LanguageList::edited, this, &TracksDialog::update);
    connect(m_subtitles, &LanguageList::edited, this, &TracksDialog::update);
    connect(m_forced, &QCheckBox::toggled, this, &TracksDialog::update);
    connect(m_sidecars, &QCheckBox::toggled, this, &TracksDialog::update);
    connect(&m_planner, &Planner::planned, this, [this](int, const zokit::TracksPlan& plan) { showPlan(plan); });
    update();
}

QWidget* TracksDialog::makeRules()
{
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    m_forced->setObjectName(QStringLiteral("forcedSubtitles"));
    m_forced->setToolTip(tr("A forced subtitle in the language of the sound is shown."));
    m_sidecars->setObjectName(QStringLiteral("sidecars"));
    QStringList beside;
    for (const QString& path : zokit::sidecarsOf(m_session->current()->media().file))
        beside.append(QFileInfo(path).fileName());
    m_sidecars->setText(beside.isEmpty()
                            ? tr("Subtitle files &beside the clip")
                            : tr("Subtitle files &beside the clip (%n)", nullptr, static_cast<int>(beside.size())));
    m_sidecars->setToolTip(beside.join(QLatin1Char('\n')));
    layout->addWidget(m_audio, 1);
    layout->addWidget(m_subtitles, 1);
    layout->addWidget(m_forced);
    layout->addWidget(m_sidecars);
    return page;
}

QWidget* TracksDialog::makeTracks()
{
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* title = new QLabel(tr("Tracks of %1:").arg(inLabel(shownName(m_session->current()->media().file))), page);
    title->setBuddy(m_tracks);
    m_tracks->setObjectName(QStringLiteral("tracks"));
    m_tracks->setAccessibleName(tr("Tracks"));
    m_tracks->setRootIsDecorated(false);
    m_tracks->setHeaderLabels({tr("Track"), tr("Chosen"), tr("What becomes of it")});
    m_tracks->setWordWrap(true);
    m_tracks->setItemDelegate(new Wrapping(m_tracks));
    m_tracks->header()->setSectionResizeMode(QHeaderView::Stretch);
    m_tracks->header()->setStretchLastSection(false);
    showHint(m_tracks, [] {
        return tr("This file has neither sound nor subtitles. The menu Edit adds a sound file or a subtitle file.");
    });
    connect(m_tracks->header(), &QHeaderView::sectionResized, m_tracks, &QTreeWidget::doItemsLayout,
            Qt::QueuedConnection);
    m_byRule = new QPushButton(tr("By the &rules again"), page);
    m_byRule->setObjectName(QStringLiteral("byRule"));
    m_byRule->setAutoDefault(false);
    m_where->setObjectName(QStringLiteral("where"));
    m_where->setAccessibleName(tr("Where"));
    m_where->view()->setAccessibleName(m_where->accessibleName());
    m_where->addItem(tr("Apply to this file"), This);
    m_where->addItem(tr("Apply to the selected files"), Selected);
    m_where->addItem(tr("Apply to all files"), All);
    m_where->setCurrentIndex(m_session->selected().size() > 1 ? Selected : This);
    auto* meaning =
        new QLabel(tr("What is chosen comes first, and players take it by themselves. The others follow as they "
                      "are, unless \"Other tracks\" in Convert drops them. Where none is chosen, all stay as "
                      "they are."),
                   page);
    meaning->setObjectName(QStringLiteral("meaning"));
    meaning->setWordWrap(true);
    layout->addWidget(title);
    layout->addWidget(m_tracks, 1);
    layout->addWidget(meaning);
    layout->addWidget(m_byRule);
    layout->addWidget(m_where);
    connect(m_tracks, &QTreeWidget::itemChanged, this, &TracksDialog::takeByHand);
    connect(m_byRule, &QPushButton::clicked, this, [this] {
        m_byHand = {};
        m_sidecar.clear();
        update();
    });
    return page;
}

zokit::TrackRules TracksDialog::rules() const
{
    zokit::TrackRules rules = m_byHand;
    rules.audioLanguages = m_audio->codes();
    rules.subtitleLanguages = m_subtitles->codes();
    rules.forcedSubtitles = m_forced->isChecked();
    rules.sidecars = m_sidecars->isChecked();
    return rules;
}

QVector<TrackChoice> TracksDialog::choices(const FileSettings* file, zokit::Message* error) const
{
    const zokit::MediaInfo* media = m_session->mediaOf(file);
    const QString clip = file->media().file;
    const QStringList sidecars = zokit::sidecarsOf(clip);
    const QVector<TrackChoice> byRules =
        zokit::chosenTracks(rules(), media ? media->tracks() : QVector<zokit::Track>(), clip, sidecars, error);
    return zokit::withSidecar(zokit::withTicked(byRules, file->settings(), rules()), clip, sidecars, m_sidecar);
}

void TracksDialog::update()
{
    FileSettings* file = m_session->current();
    zokit::Message error;
    m_shown = choices(file, &error);
    m_isFilling = true;
    m_tracks->clear();
    for (const TrackChoice& choice : std::as_const(m_shown)) {
        auto* row = new QTreeWidgetItem(m_tracks, {describe(choice), choice.selected ? choice.why.text() : tr("no")});
        row->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
        row->setCheckState(TrackColumn, choice.selected ? Qt::Checked : Qt::Unchecked);
    }
    m_isFilling = false;
    m_byRule->setEnabled(m_byHand.audioTracks || m_byHand.subtitleTrack || !m_sidecar.isEmpty());
    m_problem->setText(error.text());
    m_problem->setVisible(!error.isEmpty());
    m_apply->setEnabled(error.isEmpty());
    if (!error.isEmpty())
        return;
    MadeJobs made = jobsFor(*m_session, {file}, {QDir::tempPath(), QStringLiteral("replace")});
    for (zokit::Job& job : made.jobs)
        job.settings = zokit::withTracks(job.settings, m_shown, rules());
    m_planner.plan(made.jobs);
}

/// A box was checked or cleared: its kind of tracks is chosen by hand from now on.
void TracksDialog::takeByHand(QTreeWidgetItem* row)
{
    if (m_isFilling)
        return;
    const int changed = m_tracks->indexOfTopLevelItem(row);
    const auto isChecked = [this](int i) { return m_tracks->topLevelItem(i)->checkState(TrackColumn) == Qt::Checked; };
    if (m_shown.at(changed).track.kind == TrackKind::Subtitle) {
        takeSubtitle(m_shown.at(changed), isChecked(changed));
    } else {
        QVector<int> tracks;
        for (int i = 0; i < m_shown.size(); ++i) {
            if (m_shown.at(i).track.kind == TrackKind::Audio && isChecked(i))
                tracks.append(m_shown.at(i).track.index);
        }
        m_byHand.audioTracks = tracks;
    }
    QMetaObject::invokeMethod(
        this, [this] { update(); }, Qt::QueuedConnection); // The list is speaking.
}

/// One at most, of the clip or beside it; the rule of files beside clips would choose another one.
void TracksDialog::takeSubtitle(const TrackChoice& choice, bool isOn)
{
    const bool isSidecar = !choice.sidecar.isEmpty();
    m_sidecar = isSidecar && isOn ? zokit::endingOf(choice.sidecar, m_session->current()->media().file) : QString();
    m_byHand.subtitleTrack = isOn && !isSidecar ? choice.track.index : -1;
    const QSignalBlocker blocker(m_sidecars);
    m_sidecars->setChecked(m_sidecars->isChecked() && !isSidecar);
}

/// The ending of the subtitle file beside the current clip that its settings use; empty for none.
QString TracksDialog::sidecarInUse() const
{
    const FileSettings* file = m_session->current();
    const QString clip = file->media().file;
    const QStringList sidecars = zokit::sidecarsOf(clip);
    for (const zokit::Identity item : file->items(QStringLiteral("Subtitle"))) {
        const QString path = file->value(item, QStringLiteral("file")).toString();
        if (sidecars.contains(path) && file->value(item, QStringLiteral("selected")).toBool())
            return zokit::endingOf(path, clip);
    }
    return {};
}

void TracksDialog::showPlan(const zokit::TracksPlan& plan)
{
    m_isFilling = true;
    for (int i = 0; i < m_shown.size(); ++i) {
        const TrackChoice& choice = m_shown.at(i);
        const auto found = std::find_if(plan.tracks.cbegin(), plan.tracks.cend(), [&](const zokit::TrackPlan& track) {
            return choice.sidecar.isEmpty() ? track.file.isEmpty() && track.track.index == choice.track.index
                                            : track.file == choice.sidecar;
        });
        m_tracks->topLevelItem(i)->setText(FateColumn,
                                           found == plan.tracks.cend() ? tr("not used") : found->line().text());
    }
    m_isFilling = false;
}

void TracksDialog::accept()
{
    QVector<FileSettings*> files{m_session->current()};
    if (m_where->currentData().toInt() == Selected)
        files = m_session->selected();
    else if (m_where->currentData().toInt() == All)
        files = m_session->project().files();
    zokit::History& history = m_session->history();
    history.beginGesture(zokit::Message(zokit::Message::Code::StepChange, {QStringLiteral("Tracks")}));
    QString problem;
    for (FileSettings* file : std::as_const(files)) {
        zokit::Message refused;
        const QVector<TrackChoice> chosen = choices(file, &refused);
        if (refused.isEmpty())
            refused = file->setSettings(zokit::withTracks(file->settings(), chosen, rules()), this);
        if (refused.isEmpty())
            continue;
        problem = QStringLiteral("%1: %2").arg(QFileInfo(file->media().file).fileName(), refused.text());
        break;
    }
    if (problem.isEmpty()) {
        history.endGesture();
        QDialog::accept();
        return;
    }
    history.cancelGesture();
    m_problem->setText(problem);
    m_problem->show();
}

} // namespace zoeditor
