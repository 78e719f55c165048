#pragma once

#include <array>

namespace quillbrook {

enum class Paper { Long, Short, A4, Custom };

// A paper as it is offered: its option button and the label beside it in the dialog, its entry in the menu,
// and its size in inches as the text that goes into the boxes. Custom has no texts of its own.
struct PaperSize {
    Paper paper;
    const char* option;
    const char* label;
    const char* menu;
    const char* width;
    const char* height;
    const char* menuCaption;
    const char* optionCaption;
};

// clang-format off
constexpr std::array<PaperSize, 4> kPaperSizes = {{
    {Paper::Long, "optLong", "HyperLong", "mnuLongSize", "8.5", "13", "Long (8.5\" x 13\")", "Long (8.5 x 13)"},
    {Paper::Short, "optShort", "HyperShort", "mnuShortSize", "8.5", "11", "Short (8.5\" x 11\")", "Short (8.5 x 11)"},
    {Paper::A4, "optA4", "HyperA4", "mnuA4Size", "8.27", "11.69", "A4 (8.27\" x 11.69\")", "A4 (8.27 x 11.69)"},
    {Paper::Custom, "optCustom", "HyperCustom", "mnuCustomSize", "", "", "Custom Size...", "Custom Size:"},
}};
// clang-format on

} // namespace quillbrook
