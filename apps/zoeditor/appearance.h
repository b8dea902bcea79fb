// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QWidget;

/// How the editor looks and which language it speaks: kept in the user's configuration.
namespace zoeditor::appearance {

enum class Theme { System, Light, Dark };

/// The theme that was chosen last; at first the system's.
Theme theme();
/// Gives all windows these colours from now on, and remembers it.
void setTheme(Theme theme);

/// "en" or "de": what was chosen last, else the system's language, else English.
QString language();
/// Editor and kit speak \a language from now on, what is made from now on at least, and remember it.
void setLanguage(const QString& language);

/// Takes theme and language as they were chosen last. At the start, when the application object is there.
void restore();
/// The language alone, also where there is no display.
void restoreLanguage();

/// Remembers the size of \a window, a dialog's, too, and of all QSplitters in it under their object names; of a window
/// of its own also the place.
void saveSizes(const QWidget& window);
/// Gives them back what was remembered, if anything was.
void restoreSizes(QWidget* window);

} // namespace zoeditor::appearance
