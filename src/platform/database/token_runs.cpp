#include "platform/database/token_runs.h"

#include <cstring>

namespace platform {

static constexpr std::array<char, 256> MakeRunBytes() {
    std::array<char, 256> bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char c = static_cast<char>(i);
        if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'))
            bytes[i] = c;
        else if (c >= 'A' && c <= 'Z')
            bytes[i] = static_cast<char>(c + 0x20);
    }
    return bytes;
}

constexpr std::array<char, 256> kRunByte = MakeRunBytes();

RunTable::RunTable()
    : m_slots(1024, 0) {}

std::uint32_t RunTable::Number(std::string_view run, std::uint32_t hash) {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = (hash ^ hash >> 15) & mask;
    for (; m_slots[slot] != 0; slot = (slot + 1) & mask) {
        const std::uint32_t number = m_slots[slot] - 1;
        if (m_entries[number].hash == hash && Run(number) == run)
            return number;
    }
    const std::uint32_t number = size();
    m_slots[slot] = number + 1;
    m_entries.push_back(
        {static_cast<std::uint32_t>(m_bytes.size()), static_cast<std::uint32_t>(run.size()), hash});
    m_bytes += run;
    if (m_entries.size() * 2 > m_slots.size())
        Grow();
    return number;
}

void RunTable::Grow() {
    std::vector<std::uint32_t> slots(m_slots.size() * 2, 0);
    const std::size_t mask = slots.size() - 1;
    for (std::uint32_t number = 0; number < size(); ++number) {
        const std::uint32_t hash = m_entries[number].hash;
        std::size_t slot = (hash ^ hash >> 15) & mask;
        while (slots[slot] != 0)
            slot = (slot + 1) & mask;
        slots[slot] = number + 1;
    }
    m_slots = std::move(slots);
}

std::uint64_t CheckSum(std::string_view bytes, std::uint64_t seed) {
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;
    std::uint64_t sum = (seed ^ bytes.size()) * kFactor;
    const auto mix = [&sum](std::uint64_t word) {
        sum = (sum ^ word) * kFactor;
        sum ^= sum >> 29;
    };
    std::size_t i = 0;
    for (; i + 8 <= bytes.size(); i += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + i, 8);
        mix(word);
    }
    std::uint64_t last = 0;
    if (i < bytes.size())
        std::memcpy(&last, bytes.data() + i, bytes.size() - i);
    mix(last);
    return sum;
}

} // namespace platform
