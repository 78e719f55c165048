#include "editor/undo_history.h"

#include <limits>

namespace quillbrook {
namespace {

void Add(std::int16_t& counter, int step) {
    const int sum = counter + step;
    if (sum >= std::numeric_limits<std::int16_t>::min() && sum <= std::numeric_limits<std::int16_t>::max())
        counter = static_cast<std::int16_t>(sum);
}

} // namespace

bool UndoCounters::CountChange() {
    Add(m_index, 1);
    if (m_index <= kSteps)
        return false;
    m_index = kSteps;
    return true;
}

bool UndoCounters::CountUndo() {
    Add(m_redoCount, 1);
    if (m_index > 1) {
        Add(m_index, -1);
        return false;
    }
    m_index = 1;
    return true;
}

void UndoCounters::CountRedo() {
    Add(m_redoCount, -1);
    Add(m_index, 1);
}

void UndoCounters::StartAt(int index) {
    m_index = static_cast<std::int16_t>(index);
    m_redoCount = 0;
}

template class UndoHistory<platform::RtfSnapshot>;

} // namespace quillbrook
