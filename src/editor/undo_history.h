#pragma once

#include "platform/rich_text/rtf_writer_cache.h"

#include <array>
#include <cstdint>
#include <optional>

namespace quillbrook {

// Which commands of a pane can be used now.
struct UndoControls {
    bool undo = false;
    bool redo = false;

    bool operator==(const UndoControls&) const = default;
};

// The number of the snapshot that a pane shows, and how many undo steps can be redone: the arithmetic of a
// history without the snapshots.
//
// Users know its oddities, and they stay: a new edit neither takes away what can be redone nor cuts off the
// snapshots behind it, so that redo after an undo and an edit steps into older snapshots; and redo tests
// nothing, it relies on its controls being off. A counter at the end of its 16 bits stays where it is.
class UndoCounters {
public:
    static constexpr int kSteps = 75; // numbered from 1

    int Index() const { return m_index; }
    int RedoCount() const { return m_redoCount; }
    UndoControls Controls() const { return {m_index > 1, m_redoCount > 0}; }

    // Counts one change. True when the history was full: every snapshot is to move down by one.
    bool CountChange();
    // True when there was no earlier snapshot: the undo controls are to go off.
    bool CountUndo();
    void CountRedo();
    // To the first of the snapshots, or, with 0, to none of them.
    void StartAt(int index);

private:
    std::int16_t m_index = 0;
    std::int16_t m_redoCount = 0;
};

// The history of one pane: its whole source after each of the last 75 changes.
template <typename Snapshot>
class UndoHistory {
public:
    // An undo or redo under way. While it lives, the pane's changes are not recorded.
    class Replay {
    public:
        explicit Replay(UndoHistory& history, bool isAtOldest)
            : m_history(history)
            , m_isAtOldest(isAtOldest)
            , m_entry(history.Entry(history.Index())) {
            m_history.m_replaying = true;
        }
        ~Replay() { m_history.m_replaying = false; }
        Replay(const Replay&) = delete;
        Replay& operator=(const Replay&) = delete;

        // Whether the undo controls go off before anything is written into the pane.
        bool IsAtOldest() const { return m_isAtOldest; }
        // What goes into the pane; empty when redo has left the array, and then nothing is written.
        const std::optional<Snapshot>& Entry() const { return m_entry; }

    private:
        UndoHistory& m_history;
        bool m_isAtOldest;
        std::optional<Snapshot> m_entry;
    };

    int Index() const { return m_counters.Index(); }
    int RedoCount() const { return m_counters.RedoCount(); }
    bool Replaying() const { return m_replaying; }
    UndoControls Controls() const { return m_counters.Controls(); }

    // The snapshot of this number, of a default value when none was written there; empty outside 0 to 77.
    std::optional<Snapshot> Entry(int index) const {
        if (index < 0 || index >= int(m_snapshots.size()))
            return std::nullopt;
        return m_snapshots[std::size_t(index)];
    }

    // Of the pane's change event: records what the pane shows, which `snapshot()` gives, unless an undo or
    // redo is writing it; gives the state of the controls, which is shown in both cases.
    template <typename Take>
    UndoControls Record(Take&& snapshot) {
        if (!m_replaying) {
            if (m_counters.CountChange())
                DropOldest();
            m_snapshots[std::size_t(m_counters.Index())] = snapshot();
        }
        return Controls();
    }

    // One step back or on. The pane is written while the result lives.
    [[nodiscard]] Replay Undo() {
        const bool isAtOldest = m_counters.CountUndo();
        return Replay(*this, isAtOldest);
    }
    [[nodiscard]] Replay Redo() {
        m_counters.CountRedo();
        return Replay(*this, false);
    }

    // A form was loaded: what the pane shows is the one step that can be reached.
    void StartAfresh(const Snapshot& shown) {
        m_counters.StartAt(1);
        m_snapshots[1] = shown;
    }
    // A form was stored: back to no steps. The snapshots stay in the array.
    void ZeroCounters() { m_counters.StartAt(0); }

private:
    void DropOldest() {
        for (std::size_t i = 1; i < std::size_t(UndoCounters::kSteps); ++i)
            m_snapshots[i] = std::move(m_snapshots[i + 1]);
    }

    UndoCounters m_counters;
    bool m_replaying = false;
    // 0 is never used; the two beyond the last step are never written, but redo reads them
    std::array<Snapshot, UndoCounters::kSteps + 3> m_snapshots{};
};

extern template class UndoHistory<platform::RtfSnapshot>;

// The history of a pane of rich text. Its snapshots share what did not change between them.
using PaneHistory = UndoHistory<platform::RtfSnapshot>;

} // namespace quillbrook
