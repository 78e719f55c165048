#pragma once

#include <QColor>
#include <array>
#include <cstdint>

class QPalette;

namespace quillbrook {

// A colour of a theme: a fixed one, or one that follows the desktop.
struct ThemeColor {
    enum class Source : std::uint8_t { Fixed, ButtonFace, WindowBackground };

    constexpr ThemeColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
        : red(red)
        , green(green)
        , blue(blue) {}
    constexpr ThemeColor(Source source) // NOLINT(google-explicit-constructor): a row of the table names it
        : source(source) {}

    bool operator==(const ThemeColor&) const = default;

    Source source = Source::Fixed;
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
};

constexpr ThemeColor kSystemButtonFace = ThemeColor::Source::ButtonFace;
constexpr ThemeColor kSystemWindowBackground = ThemeColor::Source::WindowBackground;

struct Theme {
    const char* name;
    ThemeColor page; // of the window and its tabs
    ThemeColor list; // of the lists and boxes
};

// Theme 1 first. The numbers are stored in the library file and are the order of browsing.
constexpr std::array<Theme, 34> kThemes = {{
    {"Windows Default", kSystemButtonFace, kSystemWindowBackground},
    {"Black and White", {0, 0, 0}, {255, 255, 255}},
    {"Classic Blue", {61, 119, 203}, {228, 234, 243}},
    {"Energy", {204, 21, 0}, {251, 227, 213}},
    {"Grapes", {102, 51, 153}, {241, 208, 224}},
    {"Heat", {204, 67, 0}, {253, 227, 214}},
    {"Blue Ice", {0, 197, 204}, {228, 247, 248}},
    {"Midnight", {0, 0, 0}, {221, 230, 239}},
    {"Military", {72, 87, 28}, {229, 235, 225}},
    {"Moonlight", {94, 161, 189}, {238, 238, 245}},
    {"Mystery", {82, 61, 144}, {235, 231, 239}},
    {"Sea Green", {110, 147, 148}, {225, 236, 236}},
    {"Olive", {132, 164, 17}, {238, 244, 212}},
    {"Romantic", {218, 47, 189}, {251, 230, 236}},
    {"Sunny", {255, 199, 0}, {255, 249, 202}},
    {"Swamp", {122, 119, 108}, {236, 238, 230}},
    {"Gold", {204, 153, 51}, {241, 228, 201}},
    {"Forest", {0, 102, 51}, {213, 255, 234}},
    {"Banana", {204, 204, 51}, {243, 255, 179}},
    {"Deep Rose", {204, 51, 153}, {243, 209, 233}},
    {"Plum", {102, 0, 102}, {255, 204, 255}},
    {"Khaki", {153, 153, 102}, {232, 232, 221}},
    {"Walnut", {102, 51, 0}, {255, 233, 210}},
    {"Avocado", {102, 153, 51}, {223, 239, 207}},
    {"Brick", {204, 51, 0}, {255, 222, 210}},
    {"Apricot", {204, 118, 0}, {252, 236, 210}},
    {"Lime Green", {81, 122, 50}, {223, 238, 213}},
    {"Carrots", {243, 116, 0}, {255, 230, 206}},
    {"Pink", {232, 163, 172}, {247, 215, 218}},
    {"Sand", {171, 153, 92}, {227, 222, 193}},
    {"Nature", {30, 163, 18}, {224, 244, 214}},
    {"Aqua", {29, 107, 176}, {218, 236, 244}},
    {"Ashy", {95, 125, 125}, {232, 238, 237}},
    {"Deep Blue", {0, 0, 128}, {240, 245, 245}},
}};

constexpr int kThemeCount = static_cast<int>(kThemes.size());
constexpr int kDefaultTheme = 1; // "Windows Default"

// A number above the last theme's becomes 1, one below 1 the last.
int WrapThemeNumber(int number);
// The theme of a number, wrapped first.
const Theme& ThemeOf(int number);

// The control that gets a colour as its background, by its name, in the order in which they get it.
enum class ThemePart : std::uint8_t { Page, List };
struct ThemedControl {
    const char* name;
    ThemePart part;
};

constexpr std::array<ThemedControl, 14> kThemedControls = {{
    {"frmMain", ThemePart::Page},
    {"SSTab", ThemePart::Page},
    {"lstSubCategory", ThemePart::List},
    {"cboQuery", ThemePart::List},
    {"cboFonts", ThemePart::List},
    {"cboFontSize", ThemePart::List},
    {"lstTitle", ThemePart::List},
    {"lstFavorites", ThemePart::List},
    {"lstHistory", ThemePart::List},
    {"lstSearch", ThemePart::List},
    {"lstMySubCategory", ThemePart::List},
    {"lstMyTitle", ThemePart::List},
    {"txtMyTitle", ThemePart::List},
    {"cboMySubCategory", ThemePart::List},
}};

constexpr const ThemeColor& ColorOf(const Theme& theme, ThemePart part) {
    return part == ThemePart::Page ? theme.page : theme.list;
}

// The links whose text turns blue, pointed at or not, on the page colour, when the menu's own command sets
// theme 1; no other command changes them.
constexpr std::array<const char*, 2> kThemedLinks = {"httpAttyMerrow", "httpFacebook"};
constexpr ThemeColor kThemedLinkColor = {0, 0, 255};

// The colour as it is on a desktop of this palette.
QColor Resolve(const ThemeColor& color, const QPalette& desktop);

} // namespace quillbrook
