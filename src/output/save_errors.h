#pragma once

#include "platform/services.h"

#include <array>

namespace quillbrook {

constexpr int kFileAlreadyOpen = 55; // beside the numbers in the table

// What the user is told about an error of saving, and whether he is then asked for a file again.
struct SaveErrorFacts {
    int number; // 0: any other
    const char* text;
    platform::MessageIcon icon;
    const char* title; // null: that of the program
    bool asksAgain;
};

// 70 has the number of its buttons for a title and one button, so that it always goes back to the start:
// users know it so.
constexpr std::array<SaveErrorFacts, 7> kSaveErrors = {{
    {57, "Disk drive Error!   \nPlease try another disk drive.   ", platform::MessageIcon::Critical, nullptr,
     true},
    {61, "Disk full!   \nPlease delete some files first to gain some disk space!   ",
     platform::MessageIcon::Critical, nullptr, true},
    {68, "Disk drive Error!   \nPlease try another disk drive.   ", platform::MessageIcon::Critical, nullptr,
     true},
    {70, "Permission denied!   \nRetry?   ", platform::MessageIcon::Question, "4", true},
    {71, "Disk not ready!   \nPlease try a different disk drive.   ", platform::MessageIcon::Critical,
     nullptr, true},
    {75, "Disk drive Error!   \nPlease try another disk drive.   ", platform::MessageIcon::Critical, nullptr,
     true},
    {0, "Error in saving file!   \n", platform::MessageIcon::Critical, nullptr, false},
}};

constexpr const SaveErrorFacts& FactsOfSaveError(int number) {
    for (const SaveErrorFacts& facts : kSaveErrors)
        if (facts.number == number)
            return facts;
    return kSaveErrors.back();
}

// Asked when the file to be saved over is open elsewhere.
constexpr char kAlreadyOpenQuestion[] = "File selected is already open by another application   \n"
                                        "Do you want save the Form with a different file name?   ";

} // namespace quillbrook
