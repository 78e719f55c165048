#pragma once

#include "platform/services.h"

namespace platform {

// The word processor that this machine has.
class WordProcessor final : public WordProcessorService {
public:
    std::unique_ptr<WordApplication> CreateWordApplication(QWidget* window) override;
};

} // namespace platform
