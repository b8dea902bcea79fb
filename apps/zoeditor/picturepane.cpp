// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "picturepane.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <zokit/filesettings.h>
#include <zokit/graph.h>
#include <zokit/shownframes.h>

#include "actions.h"
#include "buttons.h"
#include "pictureview.h"
#include "session.h"

namespace zoeditor {

PicturePane::PicturePane(Session& session, const Actions& actions, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_frames(new zokit::ShownFrames(session.tools(), this))
    , m_view(new PictureView(session, *m_frames, this))
    , m_zoom(new QLabel(this))
    , m_notes(new QLabel(this))
{
    setObjectName(QStringLiteral("picture"));
    setAccessibleName(tr("Picture"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    makeTools(actions);
    layout->addWidget(m_view, 1);
    m_notes->setObjectName(QStringLiteral("pictureNotes"));
    m_notes->setAccessibleName(tr("Notes on the picture"));
    m_notes->setWordWrap(true);
    m_notes->setTextFormat(Qt::PlainText);
    layout->addWidget(m_notes);

    connect(&session, &Session::currentChanged, this, &PicturePane::showFile);
    connect(&session, &Session::fileStateChanged, this, &PicturePane::showFile);
    connect(m_frames, &zokit::ShownFrames::changed, this, &PicturePane::showNotes);
    showFile();
}

void PicturePane::makeTools(const Actions& actions)
{
    auto* row = new QHBoxLayout;
    constexpr int between = 2; // Pixels: in the smallest window words need the room.
    row->setSpacing(between);
    const auto add = [&](const char* name, const QString& shortText, auto slot) {
        QAction* action = actions.action(name);
        connect(action, action->isCheckable() ? &QAction::toggled : &QAction::triggered, this, slot);
        addToolButton(row, action, shortText, this);
    };
    const auto show = [this](PictureView::Show what) {
        return [this, what](bool isOn) {
            if (isOn)
                m_view->setShow(what);
        };
    };
    add("showAfter", tr("After"), show(PictureView::Show::After));
    add("showBefore", tr("Before"), show(PictureView::Show::Before));
    add("showSplit", tr("Both"), show(PictureView::Show::Split));
    row->addStretch(1);
    m_zoom->setObjectName(QStringLiteral("zoom"));
    m_zoom->setAccessibleName(tr("Zoom"));
    row->addWidget(m_zoom);
    add("zoomOut", QString::fromUtf8("\342\210\222"), [this] { m_view->zoomBy(-1); });
    add("zoomIn", QStringLiteral("+"), [this] { m_view->zoomBy(1); });
    add("zoomFit", tr("Fit"), [this] { m_view->setZoom(0); });
    add("zoomFull", tr("100 %"), [this] { m_view->setZoom(1); });
    actions.action("showAfter")->setChecked(true);
    const auto showZoom = [this] { m_zoom->setText(tr("%1 %").arg(qRound(m_view->zoom() * 100))); };
    connect(m_view, &PictureView::zoomChanged, this, showZoom);
    showZoom();
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void PicturePane::showFile()
{
    const zokit::FileSettings* file = m_session.current();
    m_frames->setFile(file, file ? m_session.mediaOf(file) : nullptr);
    showNotes();
}

/// What is wrong, and what will be lost: at rest, since looking takes longer than a step of a drag.
void PicturePane::showNotes()
{
    const zokit::FileSettings* file = m_session.current();
    if (file && m_view->isStandIn() && m_frames->error().isEmpty())
        return;
    QStringList notes;
    if (file) {
        zokit::Messages all = zokit::watermarkWarnings(file->settings());
        zokit::Message crop;
        zokit::croppedTo(file->settings(), zokit::baseFrame(file->settings()), false, &crop);
        all << crop << m_frames->error() << m_frames->warnings();
        for (const zokit::Message& message : std::as_const(all)) {
            const QString text = message.text();
            if (!text.isEmpty() && !notes.contains(text))
                notes.append(text);
        }
    }
    m_notes->setText(notes.join(QLatin1Char('\n')));
    m_notes->setVisible(!notes.isEmpty());
}

} // namespace zoeditor
