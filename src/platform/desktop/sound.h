#pragma once

#include "platform/services.h"

namespace platform {

class DesktopSound final : public SoundService {
public:
    void Beep() override;
};

} // namespace platform
