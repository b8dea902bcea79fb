// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "convertdialog.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <zokit/outputoptions.h>

#include "buttons.h"
#include "names.h"
#include "optionsform.h"
#include "outside.h"
#include "session.h"

namespace zoeditor {

using zokit::FileSettings;

ConvertDialog::ConvertDialog(Session* session, double seconds, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_selected(session->selected())
    , m_seconds(seconds)
    , m_options(new OptionsForm(session, this))
    , m_which(new QComboBox(this))
    , m_of(new QComboBox(this))
    , m_folder(new QLineEdit(this))
    , m_existing(new QComboBox(this))
    , m_plans(new QTreeWidget(this))
    , m_problem(new QLabel(this))
    , m_command(new QPlainTextEdit(this))
    , m_sampleState(new QLabel(this))
    , m_planner(session->tools())
{
    setObjectName(QStringLiteral("convertDialog"));
    setWindowTitle(tr("Convert"));
    auto* columns = new QSplitter(Qt::Horizontal, this);
    columns->setObjectName(QStringLiteral("convertColumns"));
    columns->setChildrenCollapsible(false);
    columns->addWidget(makeOptions());
    columns->addWidget(makePlans());
    columns->setSizes({440, 560});
    m_problem->setObjectName(QStringLiteral("problem"));
    m_problem->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(this);
    // Of no role that would start it whenever Return ends a text.
    m_start = buttons->addButton(QString(), QDialogButtonBox::ActionRole);
    m_start->setAutoDefault(false);
    m_start->setObjectName(QStringLiteral("start"));
    QPushButton* close = buttons->addButton(tr("Close"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("close"));
    close->setAutoDefault(false);
    connect(m_start, &QPushButton::clicked, this, &ConvertDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ConvertDialog::reject);
    auto* layout = new QVBoxLayout(this);
    makeWhich(layout);
    layout->addWidget(columns, 1);
    layout->addWidget(m_problem);
    layout->addWidget(buttons);
    resize(1000, 640);

    connect(this, &QDialog::finished, this, [this] { m_session->setResultsFolder(m_folder->text()); });
    m_soon.setSingleShot(true);
    m_soon.setInterval(0);
    connect(&m_soon, &QTimer::timeout, this, &ConvertDialog::update);
    const auto soon = [this] { m_soon.start(); };
    connect(m_options, &OptionsForm::edited, this, soon);
    connect(m_folder, &QLineEdit::textChanged, this, soon);
    connect(m_existing, QOverload<int>::of(&QComboBox::currentIndexChanged), this, soon);
    connect(m_which, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        fillOf();
        m_options->setFiles(files());
        update();
    });
    connect(m_of, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int index) {
        const QVector<FileSettings*> all = files();
        m_options->setFiles(index == 0 ? all : QVector<FileSettings*>{all.at(index - 1)});
        showTaken();
    });
    connect(&m_planner, &Planner::planned, this, &ConvertDialog::showPlan);
    connect(&m_planner, &Planner::refused, this, [this](int job, const zokit::Message& why) {
        showProblem(job, sentenceOf(why));
        showTaken();
    });
    fillOf();
    m_options->setFiles(files());
    update();
}

ConvertDialog::~ConvertDialog()
{
    m_sampling.reset();
    if (!m_sample.output.isEmpty())
        QFile::remove(m_sample.output);
}

void ConvertDialog::makeWhich(QLayout* layout)
{
    QStringList names;
    for (const FileSettings* file : std::as_const(m_selected))
        names.append(shownName(file->media().file));
    const int count = static_cast<int>(m_selected.size());
    m_which->setObjectName(QStringLiteral("which"));
    m_which->setAccessibleName(tr("What is converted"));
    m_which->view()->setAccessibleName(m_which->accessibleName());
    m_which->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_which->addItem(tr("Only the %n selected file(s): %1", nullptr, count).arg(names.join(QStringLiteral(", "))));
    const int all = static_cast<int>(m_session->project().files().size());
    m_which->addItem(tr("All %n file(s)", nullptr, all));
    m_which->setVisible(count < all);
    layout->addWidget(m_which);
}

/// Whose options are edited: those of all that are converted, or of one of them.
void ConvertDialog::fillOf()
{
    const QSignalBlocker quiet(m_of);
    m_of->clear();
    m_of->addItem(tr("Options of all %n file(s)", nullptr, static_cast<int>(files().size())));
    for (const FileSettings* file : files())
        m_of->addItem(tr("Options of %1").arg(shownName(file->media().file)));
}

QWidget* ConvertDialog::makeOptions()
{
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    m_of->setObjectName(QStringLiteral("optionsOf"));
    m_of->setAccessibleName(tr("Options of"));
    m_of->view()->setAccessibleName(m_of->accessibleName());
    m_of->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    layout->addWidget(m_of);
    layout->addWidget(m_options, 1);

    auto* folderTitle = new QLabel(tr("&Folder of the results:"), page);
    folderTitle->setBuddy(m_folder);
    m_folder->setObjectName(QStringLiteral("folder"));
    m_folder->setAccessibleName(tr("Folder of the results"));
    m_folder->setPlaceholderText(tr("beside each clip"));
    m_folder->setText(m_session->resultsFolder());
    layout->addWidget(folderTitle);
    auto* row = new QHBoxLayout;
    row->addWidget(m_folder, 1);
    QPushButton* choose = makeButton(row, "chooseFolder", tr("C&hoose..."), page);
    layout->addLayout(row);
    connect(choose, &QPushButton::clicked, this, [this] {
        const QString folder = QFileDialog::getExistingDirectory(this, tr("Folder of the results"), m_folder->text());
        if (!folder.isEmpty())
            m_folder->setText(folder);
    });
    const zokit::Property& existing = zokit::outputOption(QStringLiteral("existing"))->property;
    auto* existingTitle = new QLabel(existing.label() + QLatin1Char(':'), page);
    existingTitle->setObjectName(QStringLiteral("existingTitle"));
    existingTitle->setBuddy(m_existing);
    m_existing->setObjectName(QStringLiteral("existing"));
    m_existing->setAccessibleName(existing.label());
    m_existing->view()->setAccessibleName(m_existing->accessibleName());
    m_existing->setToolTip(existing.help());
    m_existing->addItem(tr("are left, and the job fails"), QStringLiteral("refuse"));
    m_existing->addItem(tr("are left, and the job is skipped"), QStringLiteral("skip"));
    m_existing->addItem(tr("are replaced"), QStringLiteral("replace"));
    layout->addWidget(existingTitle);
    layout->addWidget(m_existing);
    return page;
}

QWidget* ConvertDialog::makePlans()
{
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    m_plans->setObjectName(QStringLiteral("plans"));
    m_plans->setAccessibleName(tr("What becomes of each track"));
    m_plans->setHeaderLabels({tr("What comes out")});
    m_plans->setTextElideMode(Qt::ElideMiddle);
    layout->addWidget(m_plans, 1);
    auto* row = new QHBoxLayout;
    QPushButton* show = makeButton(row, "showCommand", tr("Show the &command"), page);
    m_copyCommand = makeButton(row, "copyCommand", tr("Co&py it"), page);
    layout->addLayout(row);
    m_command->setObjectName(QStringLiteral("commandText"));
    m_command->setAccessibleName(tr("The command"));
    m_command->setReadOnly(true);
    m_command->setTabChangesFocus(true);
    m_command->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_command->hide();
    layout->addWidget(m_command, 1);
    auto* sampleRow = new QHBoxLayout;
    m_sampleButton = makeButton(sampleRow, "sample", tr("Convert 10 seconds from &here"), page);
    m_showSample = makeButton(sampleRow, "showSample", tr("&Watch these 10 seconds"), page);
    layout->addLayout(sampleRow);
    m_sampleState->setObjectName(QStringLiteral("sampleState"));
    m_sampleState->setWordWrap(true);
    m_sampleState->hide();
    layout->addWidget(m_sampleState);
    m_copyCommand->setEnabled(false);
    m_showSample->setEnabled(false);
    connect(show, &QPushButton::clicked, this, &ConvertDialog::showCommand);
    connect(m_copyCommand, &QPushButton::clicked, this,
            [this] { QApplication::clipboard()->setText(m_command->toPlainText()); });
    connect(m_sampleButton, &QPushButton::clicked, this, &ConvertDialog::convertSample);
    connect(m_showSample, &QPushButton::clicked, this, [this] {
        if (const QString trouble = openOutside(m_sample.output); !trouble.isEmpty())
            m_sampleState->setText(trouble);
    });
    return page;
}

QVector<FileSettings*> ConvertDialog::files() const
{
    return m_which->currentIndex() == 1 ? m_session->project().files() : m_selected;
}

void ConvertDialog::update()
{
    m_made = jobsFor(*m_session, files(), {m_folder->text(), m_existing->currentData().toString()});
    if (m_made.problem.isEmpty())
        m_made.problem = m_options->problem();
    m_problem->setText(m_made.problem);
    m_problem->setVisible(!m_made.problem.isEmpty());
    m_start->setEnabled(m_made.problem.isEmpty());
    m_start->setText(tr("Convert %n file(s)", nullptr, static_cast<int>(files().size())));
    m_plans->clear();
    m_taken = QVector<zokit::Values>(m_made.jobs.size());
    for (const zokit::Job& job : std::as_const(m_made.jobs)) {
        auto* row = new QTreeWidgetItem(
            m_plans, {QStringLiteral("%1 \u2192 %2").arg(shownName(job.input), shownName(job.output))});
        row->setToolTip(0, job.output);
    }
    m_plans->setCurrentItem(m_plans->topLevelItem(0));
    m_planner.plan(m_made.jobs);
}

/// The one that is chosen in the list, of the current file at first; -1 for none.
int ConvertDialog::shownJob() const
{
    const QTreeWidgetItem* row = m_plans->currentItem();
    while (row && row->parent())
        row = row->parent();
    return row && m_made.problem.isEmpty() ? m_plans->indexOfTopLevelItem(const_cast<QTreeWidgetItem*>(row)) : -1;
}

void ConvertDialog::showTaken()
{
    const int of = m_of->currentIndex() - 1; // The first line is that of all.
    QVector<zokit::Values> taken;            // Each once: most of a thousand files are alike.
    for (const zokit::Values& values : of < 0 ? m_taken : m_taken.mid(of, 1)) {
        if (!values.isEmpty() && !taken.contains(values))
            taken.append(values);
    }
    m_options->showTaken(taken);
}

void ConvertDialog::showPlan(int job, const zokit::TracksPlan& plan, const zokit::Messages& warnings)
{
    QTreeWidgetItem* row = m_plans->topLevelItem(job);
    for (const zokit::TrackPlan& track : plan.tracks)
        new QTreeWidgetItem(row, {track.line().text()});
    for (const zokit::Message& warning : warnings)
        showProblem(job, sentenceOf(warning));
    row->setExpanded(true);
    m_taken[job] = zokit::takenOptions(plan);
    showTaken();
}

void ConvertDialog::showProblem(int job, const QString& text)
{
    QTreeWidgetItem* row = m_plans->topLevelItem(job);
    auto* line = new QTreeWidgetItem(row, {QStringLiteral("\u26a0 ") + text});
    line->setToolTip(0, text);
    row->setExpanded(true);
}

void ConvertDialog::accept()
{
    if (m_soon.isActive())
        update();
    if (!m_made.problem.isEmpty())
        return;
    const QString folder = m_folder->text();
    if (!folder.isEmpty() && !QDir().mkpath(folder)) {
        m_problem->setText(tr("%1 cannot be made. Choose another folder.").arg(folder));
        m_problem->show();
        return;
    }
    const AddedJobs added = addTo(&m_session->queue(), m_made.jobs);
    m_session->queue().start();
    if (!added.known.isEmpty())
        emit m_session->message(tr("In the queue already: %1.").arg(added.known.join(QStringLiteral(", "))));
    QDialog::accept();
}

} // namespace zoeditor
