#pragma once

#include "appearance/themes.h"

namespace quillbrook {

// What the theme dialog shows of a theme: its name on the list colour in the page colour, as a small sample.
struct ThemeSample {
    const char* caption;
    ThemeColor background; // of the dialog
    ThemeColor labelBackground;
    ThemeColor labelText; // black for theme 1
};
ThemeSample SampleOf(const Theme& theme);

// Whether mnuWindowsDefaultTheme is ticked when this theme is applied.
bool IsWindowsDefault(const Theme& theme);

// The number that the theme dialog stands at. After each step Number() is in 1 to 34 and goes into the
// library.
class ThemeStepper {
public:
    // `stored` is the number in the library, whatever it is.
    explicit ThemeStepper(int stored)
        : m_number(WrapThemeNumber(stored))
        , m_atOpening(stored) {}

    int Number() const { return m_number; }
    const Theme& Current() const { return ThemeOf(m_number); }

    void Next() { m_number = WrapThemeNumber(m_number + 1); }
    void Previous() { m_number = WrapThemeNumber(m_number - 1); }
    void Default() { m_number = kDefaultTheme; }
    void Cancel() { m_number = WrapThemeNumber(m_atOpening); }

private:
    int m_number;
    int m_atOpening;
};

} // namespace quillbrook
