#pragma once

#include "platform/services.h"
#include "platform/word/word_application.h"

#include <array>

namespace quillbrook {

// Where saving goes on after an error.
enum class AfterSaveError { StartAgain, AskForAnotherName, Cancel };

// What the user is told when the word processor does not save.
struct WordSaveError {
    int number; // 0: any other
    const char* text;
    platform::MessageButtons buttons;
    platform::MessageIcon icon;
    const char* title; // null: that of the program
    AfterSaveError then;
};

// 70 has the number of its buttons for a title and one button, so that it always goes back to the start:
// users know it so.
constexpr std::array<WordSaveError, 6> kWordSaveErrors = {{
    {platform::kWordFileInUse,
     "File selected is already open by another application   \n"
     "Do you want save the Form with a different file name?   ",
     platform::MessageButtons::YesNo, platform::MessageIcon::Question, nullptr,
     AfterSaveError::AskForAnotherName},
    {platform::kWordDiskNotWritable, "Disk is not writable!   \nPlease try another disk drive.   ",
     platform::MessageButtons::Ok, platform::MessageIcon::Critical, nullptr, AfterSaveError::StartAgain},
    {platform::kWordPermissionDenied, "Permission denied!   \nRetry?   ", platform::MessageButtons::Ok,
     platform::MessageIcon::Question, "4", AfterSaveError::StartAgain},
    {platform::kWordDiskNotReady, "Disk not ready!   \nPlease try a different disk drive.   ",
     platform::MessageButtons::Ok, platform::MessageIcon::Critical, nullptr, AfterSaveError::StartAgain},
    {platform::kWordDiskFull, "Disk full!   \nPlease delete some files first to gain some disk space!   ",
     platform::MessageButtons::Ok, platform::MessageIcon::Critical, nullptr, AfterSaveError::StartAgain},
    {0, "Error in saving file!   \n", platform::MessageButtons::Ok, platform::MessageIcon::Critical, nullptr,
     AfterSaveError::Cancel},
}};

constexpr const WordSaveError& FactsOfWordSaveError(int number) {
    for (const WordSaveError& error : kWordSaveErrors)
        if (error.number == number)
            return error;
    return kWordSaveErrors.back();
}

} // namespace quillbrook
