// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessibleWidget>
#include <QMap>
#include <QPair>

#include <zokit/previewgeometry.h>

namespace zoeditor {

class PictureView;

/// The picture for screen readers and other aids: each handle is a child, with name, place and what can be done to it.
class PictureAccess : public QAccessibleWidget {
public:
    /// Of \a view.
    explicit PictureAccess(PictureView* view);
    ~PictureAccess() override;

    /// Makes Qt ask for this one for each PictureView. Any number of times.
    static void install();

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

private:
    PictureView* view() const;
    QAccessibleInterface* childFor(const zokit::PreviewHandle& handle) const;

    /// By thing and handle: which row they have changes. Made when they are asked for.
    mutable QMap<QPair<zokit::Identity, int>, QAccessible::Id> m_children;
};

} // namespace zoeditor
