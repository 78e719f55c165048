#pragma once

#include "appearance/theme_stepper.h"
#include "appearance/themes.h"

#include <QString>

namespace quillbrook {

// The style sheet that gives the main window and its controls a theme's colours, on a desktop of this
// palette. It sets backgrounds. Texts stay as the desktop has them; only where a desktop's pale text would
// vanish on the theme's pale lists are these written in black.
QString ThemeSheet(const Theme& theme, const QPalette& desktop);

// The same for the theme dialog and its sample.
QString SampleSheet(const ThemeSample& sample, const QPalette& desktop);

// How well a text can be read on a ground, from 1 (not at all) to 21: the contrast ratio of WCAG 2.1.
double ContrastRatio(const QColor& text, const QColor& ground);

} // namespace quillbrook
