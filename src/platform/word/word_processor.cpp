#include "platform/word/word_processor.h"

#include "platform/word/word_application.h"

namespace platform {

// No back end is known yet: every machine counts as one without a word processor.
std::unique_ptr<WordApplication> WordProcessor::CreateWordApplication(QWidget*) {
    return nullptr;
}

} // namespace platform
