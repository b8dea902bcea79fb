// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "optionsform.h"

#include <algorithm>

#include <QGridLayout>
#include <QLabel>
#include <QScrollBar>
#include <QToolButton>

#include <zokit/properties.h>
#include <zokit/resultname.h>
#include <zokit/valuetext.h>

#include "controls.h"
#include "names.h"
#include "session.h"
#include "valuecontrol.h"

namespace zoeditor {

using Model = zokit::SettingsModel;
using zokit::FileSettings;
using zokit::Message;

namespace {

/// What an empty field shows where nothing is known of the option: also how it is written.
QString unsetText(const QString& key)
{
    const QString example = key == QLatin1String("size")   ? QStringLiteral("1280x720")
                            : key == QLatin1String("trim") ? QStringLiteral("12,40.5")
                                                           : QString();
    return example.isEmpty() ? OptionsForm::tr("not set") : OptionsForm::tr("for example %1").arg(example);
}

} // namespace

OptionsForm::OptionsForm(Session* session, QWidget* parent) : QScrollArea(parent), m_session(session)
{
    setObjectName(QStringLiteral("options"));
    setAccessibleName(tr("Output options"));
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void OptionsForm::setFiles(const QVector<FileSettings*>& files)
{
    m_files = files;
    m_wrong.clear();
    m_model.setFile(files.value(0));
    if (m_rows.isEmpty() && !files.isEmpty())
        makeRows();
    update();
}

void OptionsForm::showTaken(const QVector<zokit::Values>& taken)
{
    m_taken = taken;
    update();
}

/// What the option comes to in the files, in words; empty where that is not known.
QString OptionsForm::takenText(const QString& key) const
{
    QStringList texts;
    for (const zokit::Values& taken : m_taken) {
        const QVariant value = taken.value(key);
        if (value.isValid())
            texts.append(zokit::valueLabel({QStringLiteral("Output"), zokit::Address::ofType, key}, value));
    }
    texts.removeDuplicates();
    return texts.size() > 1 ? tr("per file") : texts.value(0);
}

/// What is wrong with the option, or not as it seems; empty: nothing.
QString OptionsForm::noteOf(const QString& key) const
{
    if (const QString wrong = m_wrong.value(key); !wrong.isEmpty())
        return QStringLiteral("\u26a0 ") + wrong;
    const FileSettings* lead = m_files.value(0);
    const QString size = lead->value(lead->output(), key).toString();
    if (key != QLatin1String("size") || size.isEmpty() || size.endsWith(QLatin1String(",exact")))
        return {};
    const QSize frame = lead->media().frame;
    const QStringList sides = size.split(QLatin1Char('x'));
    if (frame.isEmpty() || sides.value(0).toInt() < frame.width() || sides.value(1).toInt() < frame.height()
        || QSize(sides.value(0).toInt(), sides.value(1).toInt()) == frame)
        return {};
    return tr("The picture of %1 has %2 x %3: it is not enlarged. Write ,exact behind the size to enlarge it.")
        .arg(shownName(lead->media().file))
        .arg(frame.width())
        .arg(frame.height());
}

void OptionsForm::makeRows()
{
    auto* page = new QWidget(this);
    auto* grid = new QGridLayout(page);
    grid->setColumnStretch(1, 1);
    const QModelIndex type = m_model.indexOf(m_files.first()->output());
    QString group;
    for (int i = 0; i < m_model.rowCount(type); ++i) {
        const QModelIndex value = m_model.index(i, Model::ValueColumn, type);
        const QString key = value.data(Model::KeyRole).toString();
        const QString label = value.data(Model::LabelRole).toString();
        const int line = grid->rowCount();
        const QString own = value.data(Model::GroupRole).toString();
        auto* title = new QLabel(label, page);
        title->setWordWrap(true);
        title->setToolTip(value.data(Qt::ToolTipRole).toString());
        if (own != group)
            title->setContentsMargins(0, 6, 0, 0);
        group = own;
        ValueControl* control = makeControl(value, page);
        if (key == QLatin1String("name")) { // The pattern that is taken where none is set can be read.
            constexpr int frame = 12;       // Pixels on both sides together.
            control->field()->setMinimumWidth(fontMetrics().horizontalAdvance(zokit::usualPattern()) + frame);
        }
        title->setBuddy(control->field());
        auto* mark = new QLabel(page);
        mark->setObjectName(QStringLiteral("Output:%1:mark").arg(key));
        mark->setForegroundRole(QPalette::PlaceholderText);
        auto* revert = new QToolButton(page);
        revert->setObjectName(QStringLiteral("Output:%1:revert").arg(key));
        revert->setText(QStringLiteral("\u21ba"));
        revert->setAutoRaise(true);
        revert->setToolTip(tr("Not set"));
        revert->setAccessibleName(tr("Revert: %1").arg(label));
        grid->addWidget(title, line, 0);
        grid->addWidget(control, line, 1);
        grid->addWidget(mark, line, 2);
        grid->addWidget(revert, line, 3);
        auto* note = new QLabel(page);
        note->setObjectName(QStringLiteral("Output:%1:problem").arg(key));
        note->setWordWrap(true);
        note->hide();
        grid->addWidget(note, line + 1, 1, 1, 3);
        m_rows.insert(key, {control, mark, revert, note});
        connect(control, &ValueControl::edited, this, [this, key](const QVariant& given) { set(key, given); });
        connect(revert, &QToolButton::clicked, this, [this, key] { set(key, QVariant()); });
    }
    grid->setRowStretch(grid->rowCount(), 1);
    setWidget(page);
    setMinimumWidth(page->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width());
}

/// In all files or in none; an invalid value and an empty text take the option back.
void OptionsForm::set(const QString& key, const QVariant& given)
{
    const bool isEmpty = given.userType() == QMetaType::QString && given.toString().trimmed().isEmpty();
    const QVariant value = isEmpty ? QVariant() : given;
    zokit::History& history = m_session->history();
    history.beginGesture(changeOf(QStringLiteral("Output"), key));
    Message refused;
    for (FileSettings* file : std::as_const(m_files)) {
        if (refused.isEmpty())
            refused = value.isValid() ? file->setValue(file->output(), key, value, this)
                                      : file->reset(file->output(), key, this);
    }
    if (refused.isEmpty())
        history.endGesture();
    else
        history.cancelGesture();
    m_session->take(refused);
    m_wrong.remove(key);
    if (!refused.isEmpty())
        m_wrong.insert(key, refused.text().section(QStringLiteral(": "), 1)); // Which option stands beside it.
    update();
    emit edited();
}

void OptionsForm::update()
{
    const FileSettings* lead = m_files.value(0);
    for (auto row = m_rows.cbegin(); row != m_rows.cend() && lead; ++row) {
        const QVariant value = lead->value(lead->output(), row.key());
        const bool differs = std::any_of(m_files.cbegin(), m_files.cend(), [&](const FileSettings* file) {
            return file->value(file->output(), row.key()) != value;
        });
        const bool isSet = differs || value.isValid();
        const QString mark = differs ? tr("different") : isSet ? tr("set") : QString();
        const QString taken = takenText(row.key());
        if (!m_wrong.contains(row.key())) // That is to be mended, not to be typed again.
            row->control->setValue(value);
        row->control->setPlaceholder(taken.isEmpty() ? unsetText(row.key()) : taken);
        row->note->setText(noteOf(row.key()));
        row->note->setVisible(!row->note->text().isEmpty());
        const QString said = isSet || taken.isEmpty() ? mark : tr("not set: %1").arg(taken);
        row->control->field()->setAccessibleDescription(row->note->text().isEmpty() ? said : row->note->text());
        row->mark->setText(mark);
        row->revert->setEnabled(isSet);
    }
}

} // namespace zoeditor
