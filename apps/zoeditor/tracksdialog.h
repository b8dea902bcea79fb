// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QVector>

#include <zokit/filesettings.h>
#include <zokit/tracks.h>

#include "planner.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace zoeditor {

class LanguageList;
class Session;

/// Which tracks of the files are used, and which subtitle files beside them: by rules, or by hand with the check boxes
/// of the list. A line a track tells by what it is chosen and what becomes of it in the current file. Applied as one
/// step.
class TracksDialog : public QDialog {
    Q_OBJECT

public:
    /// For the current file of \a session, which there must be.
    explicit TracksDialog(Session* session, QWidget* parent = nullptr);

    void accept() override;

private:
    QWidget* makeRules();
    QWidget* makeTracks();
    zokit::TrackRules rules() const;
    QVector<zokit::TrackChoice> choices(const zokit::FileSettings* file, zokit::Message* error) const;
    void update();
    void takeByHand(QTreeWidgetItem* row);
    void takeSubtitle(const zokit::TrackChoice& choice, bool isOn);
    QString sidecarInUse() const;
    void showPlan(const zokit::TracksPlan& plan);

    Session* m_session;
    zokit::TrackRules m_byHand; ///< Only the tracks that were chosen by hand.
    QString m_sidecar;          ///< The ending of a subtitle file beside the clip that was; empty for none.
    QVector<zokit::TrackChoice> m_shown;
    LanguageList* m_audio;
    LanguageList* m_subtitles;
    QCheckBox* m_forced;
    QCheckBox* m_sidecars;
    QTreeWidget* m_tracks;
    QPushButton* m_byRule = nullptr;
    QComboBox* m_where;
    QLabel* m_problem;
    QPushButton* m_apply = nullptr;
    Planner m_planner;
    bool m_isFilling = false;
};

} // namespace zoeditor
