// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "historypane.h"

#include <algorithm>

#include <QAbstractListModel>
#include <QPalette>
#include <QTimer>

#include <zokit/properties.h>
#include <zokit/valuetext.h>

#include "names.h"
#include "session.h"

namespace zoeditor {

namespace {

/// The file that the step brings or takes away; empty for other steps.
QString fileOfStep(const zokit::Step& step)
{
    using Code = zokit::Message::Code;
    if (step.text.code() != Code::StepAddFile && step.text.code() != Code::StepRemoveFile)
        return {};
    QStringList names; // Also of several that go in one step.
    for (const zokit::Change& change : step.changes) {
        const auto isOfFile = [&](const zokit::Change& other) {
            return other.thing == change.thing && other.key == QLatin1String("width");
        };
        const bool isFile =
            change.key == QLatin1String("file") && std::any_of(step.changes.cbegin(), step.changes.cend(), isOfFile);
        if (isFile)
            names.append(shownName((change.after.isValid() ? change.after : change.before).toString()));
    }
    return names.join(QStringLiteral(", "));
}

/// What the step made of the values that a person knows; empty where there are none, or too many to be read.
QString valuesOfStep(const zokit::Project& project, const zokit::Step& step)
{
    constexpr int most = 4;
    constexpr int longest = 40; // Letters.
    QStringList kinds;
    QStringList names;
    QStringList values;
    for (const zokit::Change& change : step.changes) {
        const zokit::FileSettings* file = project.fileOf(change.thing);
        const std::optional<zokit::Address> address = file ? file->address(change.thing, change.key) : std::nullopt;
        const zokit::Property* property = address ? zokit::findProperty(address->type, change.key) : nullptr;
        if (!property)
            continue;
        const QString value = change.after.isValid() ? zokit::onOneLine(zokit::valueLabel(*address, change.after))
                                                     : HistoryPane::tr("not set");
        kinds.append(zokit::Address{address->type, zokit::Address::ofType, change.key}.toString());
        names.append(property->label());
        values.append(value.size() > longest ? value.left(longest) + QChar(0x2026) : value);
    }
    const auto meant = kinds.indexOf(step.text.arguments().value(0)); // The others follow from it.
    if (meant >= 0)
        return values.at(meant);
    if (values.size() == 1)
        return values.first();
    for (int i = 0; i < values.size(); ++i)
        values[i] = names.at(i) + QLatin1Char(' ') + values.at(i);
    return values.size() > most ? QString() : values.join(QStringLiteral(", "));
}

/// "change Contrast: 12 (film.mp4)"; the name only where there are several files.
QString stepText(const zokit::Project& project, const zokit::Step& step)
{
    const QString file = fileOfStep(step);
    const bool isChange = step.text.code() == zokit::Message::Code::StepChange;
    const QString values = isChange ? valuesOfStep(project, step) : file;
    QString text = step.text.text();
    if (!values.isEmpty())
        text += QStringLiteral(": ") + values;
    const zokit::FileSettings* changed = step.changes.isEmpty() ? nullptr : project.fileOf(step.changes.first().thing);
    const bool areSeveral = std::any_of(step.changes.cbegin(), step.changes.cend(), [&](const zokit::Change& change) {
        return project.fileOf(change.thing) != changed;
    });
    if (file.isEmpty() && changed && !areSeveral && project.files().size() > 1)
        text += QStringLiteral(" (%1)").arg(shownName(changed->media().file));
    return text;
}

/// The beginning, and the steps. Texts are made for the rows that are looked at: a history may have thousands.
class Steps : public QAbstractListModel {
public:
    Steps(zokit::Project& project, QObject* parent)
        : QAbstractListModel(parent), m_project(project), m_history(project.history())
    {
    }

    void update()
    {
        const int rows = m_history.count() + 1;
        if (rows < m_rows) {
            beginRemoveRows({}, rows, m_rows - 1);
            m_rows = rows;
            endRemoveRows();
        } else if (rows > m_rows) {
            beginInsertRows({}, m_rows, rows - 1);
            m_rows = rows;
            endInsertRows();
        }
        emit dataChanged(index(0), index(m_rows - 1));
    }

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_rows; }

    QVariant data(const QModelIndex& index, int role) const override
    {
        const bool isDone = index.row() <= m_history.position();
        if (role == Qt::ForegroundRole)
            return QPalette().color(isDone ? QPalette::Active : QPalette::Disabled, QPalette::Text);
        if (role != Qt::DisplayRole)
            return {};
        const QString text =
            index.row() == 0 ? HistoryPane::tr("Beginning") : stepText(m_project, m_history.step(index.row() - 1));
        return isDone ? text : HistoryPane::tr("%1 (undone)").arg(text);
    }

private:
    const zokit::Project& m_project;
    const zokit::History& m_history;
    int m_rows = 0;
};

} // namespace

HistoryPane::HistoryPane(Session* session, QWidget* parent) : KeepsInSight(parent)
{
    setObjectName(QStringLiteral("history"));
    setAccessibleName(tr("History"));
    setUniformItemSizes(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto* steps = new Steps(session->project(), this);
    setModel(steps);
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this, session](const QModelIndex& row) {
        if (!m_isShowing && row.isValid())
            session->goTo(row.row());
    });
    const auto update = [this, session, steps] {
        m_isShowing = true;
        steps->update();
        setCurrentIndex(steps->index(session->history().position()));
        m_isShowing = false;
    };
    auto* soon = new QTimer(this); // A gesture makes many changes; the list is made once for them.
    soon->setSingleShot(true);
    soon->setInterval(0);
    connect(soon, &QTimer::timeout, this, update);
    connect(&session->history(), &zokit::History::changed, soon, QOverload<>::of(&QTimer::start));
    update();
}

} // namespace zoeditor
