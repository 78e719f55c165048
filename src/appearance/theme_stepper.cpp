#include "appearance/theme_stepper.h"

#include <string_view>

namespace quillbrook {

bool IsWindowsDefault(const Theme& theme) {
    return std::string_view(theme.name) == ThemeOf(kDefaultTheme).name;
}

ThemeSample SampleOf(const Theme& theme) {
    return {theme.name, theme.page, theme.list, IsWindowsDefault(theme) ? ThemeColor(0, 0, 0) : theme.page};
}

} // namespace quillbrook
