#pragma once

#include "output/save_errors.h"
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
// The texts that saving as rich text has too are that table's.
constexpr std::array<WordSaveError, 6> kWordSaveErrors = {{
    {platform::kWordFileInUse,
     kAlreadyOpenQuestion,
     platform::MessageButtons::YesNo, platform::MessageIcon::Question, nullptr,
     AfterSaveError::AskForAnotherName},
    {platform::kWordDiskNotWritable, "Disk is not writable!   \nPlease try another disk drive.   ",
     platform::MessageButtons::Ok, platform::MessageIcon::Critical, nullptr, AfterSaveError::StartAgain},
    {platform::kWordPermissionDenied, FactsOfSaveError(70).text, platform::MessageButtons::Ok,
     platform::MessageIcon::Question, FactsOfSaveError(70).title, AfterSaveError::StartAgain},
    {platform::kWordDiskNotReady, FactsOfSaveError(71).text,
     platform::MessageButtons::Ok, platform::MessageIcon::Critical, nullptr, AfterSaveError::StartAgain},
    {platform::kWordDiskFull, FactsOfSaveError(61).text,
     platform::MessageButtons::Ok, platform::MessageIcon::Critical, nullptr, AfterSaveError::StartAgain},
    {0, FactsOfSaveError(0).text, platform::MessageButtons::Ok, platform::MessageIcon::Critical, nullptr,
     AfterSaveError::Cancel},
}};

constexpr const WordSaveError& FactsOfWordSaveError(int number) {
    for (const WordSaveError& error : kWordSaveErrors)
        if (error.number == number)
            return error;
    return kWordSaveErrors.back();
}

} // namespace quillbrook
