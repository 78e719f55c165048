#include "accessory/title_pulse.h"

#include <algorithm>
#include <cstdlib>

namespace quillbrook {
namespace {

constexpr int kStep = 10;
constexpr int kLast = 510;
constexpr int kMiddle = 256;

} // namespace

QColor TitlePulse::Tick() {
    m_counter += kStep;
    if (m_counter > kLast)
        m_counter = 0;
    return QColor(std::min(std::abs(kMiddle - m_counter), 255), 3, 12);
}

} // namespace quillbrook
