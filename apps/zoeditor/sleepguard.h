// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QObject>

namespace zoeditor {

/// Keeps the computer from going to sleep while something runs, by the system's login manager. Where there is none, or
/// the program is built without Qt D-Bus, it sleeps when it likes.
class SleepGuard : public QObject {
    Q_OBJECT

public:
    explicit SleepGuard(QObject* parent = nullptr);
    ~SleepGuard() override;

    /// Holds sleep off from now on, or no longer.
    void hold(bool isHeld);

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace zoeditor
