// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "applydialog.h"

#include <algorithm>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include <zokit/differences.h>
#include <zokit/frames.h>

#include "buttons.h"
#include "differencelist.h"
#include "names.h"
#include "session.h"
#include "whattree.h"

namespace zoeditor {

using zokit::FileSettings;

namespace {

enum Where { Selected, All, OfThisSize };

constexpr QSize pictureSize(240, 160);

QLabel* pictureLabel(const char* name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setAlignment(Qt::AlignCenter);
    label->setMinimumSize(pictureSize);
    return label;
}

int pixelsOf(const FileSettings* file)
{
    return file->media().frame.width() * file->media().frame.height();
}

} // namespace

ApplyDialog::ApplyDialog(Session* session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_from(session->current()->settings())
    , m_what(new WhatTree(this))
    , m_where(new QComboBox(this))
    , m_add(new QCheckBox(tr("&Append to the lists that are there"), this))
    , m_differences(new DifferenceList(this))
    , m_problem(new QLabel(this))
    , m_pictures(new QWidget(this))
    , m_picturesTitle(new QLabel(m_pictures))
    , m_smallest(pictureLabel("smallest", m_pictures))
    , m_largest(pictureLabel("largest", m_pictures))
{
    setObjectName(QStringLiteral("applyDialog"));
    setWindowTitle(tr("Apply to other files"));
    m_what->setFile(session->current());
    m_where->setObjectName(QStringLiteral("where"));
    m_where->setAccessibleName(tr("Where"));
    m_where->view()->setAccessibleName(m_where->accessibleName());
    m_where->addItem(tr("To the selected files"), Selected);
    m_where->addItem(tr("To all files"), All);
    m_where->addItem(tr("To all files of this size"), OfThisSize);
    if (session->selected().size() < 2)
        m_where->setCurrentIndex(m_where->findData(All));
    m_add->setObjectName(QStringLiteral("add"));
    m_problem->setObjectName(QStringLiteral("problem"));
    m_problem->setWordWrap(true);

    auto* from = new QLabel(tr("From %1:").arg(inLabel(shownName(m_from.media.file))), this);
    from->setWordWrap(true);
    from->setBuddy(m_what);
    auto* left = new QWidget(this);
    auto* leftLayout = new QVBoxLayout(left);
    leftLayout->setContentsMargins(0, 0, 0, 0);
    leftLayout->addWidget(from);
    leftLayout->addWidget(m_what, 1);
    leftLayout->addWidget(m_add);
    auto* right = new QWidget(this);
    auto* rightLayout = new QVBoxLayout(right);
    rightLayout->setContentsMargins(0, 0, 0, 0);
    rightLayout->addWidget(m_where);
    rightLayout->addWidget(m_differences, 1);
    auto* pictures = new QGridLayout(m_pictures);
    pictures->setContentsMargins(0, 0, 0, 0);
    m_picturesTitle->setObjectName(QStringLiteral("picturesTitle"));
    pictures->addWidget(m_picturesTitle, 0, 0, 1, 2);
    pictures->addWidget(m_smallest, 1, 0);
    pictures->addWidget(m_largest, 1, 1);
    rightLayout->addWidget(m_pictures);
    auto* columns = new QSplitter(Qt::Horizontal, this);
    columns->setObjectName(QStringLiteral("applyColumns"));
    columns->setChildrenCollapsible(false);
    columns->addWidget(left);
    columns->addWidget(right);
    columns->setStretchFactor(1, 1);

    auto* buttons = new QDialogButtonBox(this);
    m_apply = buttons->addButton(tr("Apply"), QDialogButtonBox::AcceptRole);
    m_apply->setObjectName(QStringLiteral("apply"));
    buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole)->setObjectName(QStringLiteral("cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &ApplyDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ApplyDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(columns, 1);
    layout->addWidget(m_problem);
    layout->addWidget(buttons);
    resize(1000, 600);

    connect(m_what, &WhatTree::whatChanged, this, &ApplyDialog::update);
    connect(m_where, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ApplyDialog::update);
    connect(m_add, &QCheckBox::toggled, this, &ApplyDialog::update);
    update();
}

QVector<FileSettings*> ApplyDialog::targets() const
{
    const int where = m_where->currentData().toInt();
    QVector<FileSettings*> files = where == Selected ? m_session->selected() : m_session->project().files();
    files.removeAll(m_session->current());
    if (where == OfThisSize)
        files.erase(
            std::remove_if(files.begin(), files.end(),
                           [this](const FileSettings* file) { return file->media().frame != m_from.media.frame; }),
            files.end());
    return files;
}

zokit::CarryOver ApplyDialog::carry() const
{
    return {m_what->what(), m_add->isChecked()};
}

zokit::Settings ApplyDialog::after(const zokit::Settings& before) const
{
    zokit::Settings after = zokit::carriedOver(m_from, before, carry());
    m_session->chooseTracks(before, after); // What it refuses is said when it is applied.
    return after;
}

void ApplyDialog::update()
{
    const QVector<FileSettings*> files = targets();
    const bool hasWhat = !m_what->what().isEmpty(); // Nothing named would mean everything.
    const zokit::Message refused = hasWhat ? zokit::checkCarryOver(m_from, carry()) : zokit::Message();
    QString problem = refused.text();
    if (files.isEmpty())
        problem = tr("There is no other file here. Add or select some first.");
    else if (!hasWhat)
        problem = tr("Check what is to be applied.");
    m_problem->setText(problem);
    m_problem->setVisible(!problem.isEmpty());
    m_apply->setEnabled(problem.isEmpty());
    m_apply->setText(tr("Apply to %n file(s)", nullptr, static_cast<int>(files.size())));

    m_differences->show(problem.isEmpty() ? files : QVector<FileSettings*>(),
                        [this](const zokit::Settings& before) { return zokit::differences(before, after(before)); });
    showPictures();
}

void ApplyDialog::showPicture(QLabel* label, const FileSettings* file)
{
    const zokit::Settings settings = after(file->settings());
    QImage frame(zokit::baseFrame(settings), QImage::Format_RGB32);
    frame.fill(Qt::gray);
    const QSize size = settings.media.frame;
    label->setPixmap(QPixmap::fromImage(
        zokit::previewPicture(settings, frame).scaled(pictureSize, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
    const QString text =
        tr("%1, %2 x %3")
            .arg(shownName(settings.media.file), QString::number(size.width()), QString::number(size.height()));
    label->setToolTip(text);
    label->setAccessibleName(text);
}

/// Where the watermark comes to stand in the smallest and in the largest frame.
void ApplyDialog::showPictures()
{
    const QStringList what = m_what->what();
    const bool isMeant = std::any_of(what.cbegin(), what.cend(),
                                     [](const QString& name) { return name.startsWith(QLatin1String("Watermark")); });
    QVector<FileSettings*> files = targets();
    files.erase(std::remove_if(files.begin(), files.end(),
                               [](const FileSettings* file) { return file->media().frame.isEmpty(); }),
                files.end());
    m_pictures->setVisible(isMeant && !files.isEmpty() && m_apply->isEnabled());
    if (!m_pictures->isVisibleTo(this))
        return;
    const auto [smallest, largest] =
        std::minmax_element(files.cbegin(), files.cend(), [](const FileSettings* left, const FileSettings* right) {
            return pixelsOf(left) < pixelsOf(right);
        });
    const bool areAlike = (*smallest)->media().frame == (*largest)->media().frame;
    m_picturesTitle->setText(areAlike ? tr("What comes out:")
                                      : tr("What comes out in the smallest and in the largest:"));
    m_largest->setVisible(!areAlike);
    showPicture(m_smallest, *smallest);
    showPicture(m_largest, *largest);
}

void ApplyDialog::accept()
{
    const zokit::Message refused = m_session->project().apply(
        m_from, targets(), carry(), this, [this](const zokit::Settings& before, zokit::Settings& after) {
            return m_session->chooseTracks(before, after);
        });
    if (refused.isEmpty())
        return QDialog::accept();
    m_problem->setText(refused.text());
    m_problem->show();
}

} // namespace zoeditor
