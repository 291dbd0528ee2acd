// SPDX-License-Identifier: MIT
#include "editor/EditHistory.h"

#include <cassert>
#include <utility>

namespace editor {

class EditHistory::Step final : public QUndoCommand
{
public:
    static constexpr int kNoRun = -1;

    /// `run` names the typing that it belongs to.
    Step(EditHistory &history, std::vector<SongDelta> deltas, TableState before, TableState after, int run)
        : QUndoCommand(history.m_name), m_history(history), m_deltas(std::move(deltas)),
          m_before(std::move(before)), m_after(std::move(after)), m_run(run)
    { }

    [[nodiscard]] int id() const override { return m_run; }

    bool mergeWith(const QUndoCommand *command) override
    {
        // Between the document that stood here before the typing and the one that stands here now there is
        // nothing to go back to.
        m_after = static_cast<const Step *>(command)->m_after;
        return true;
    }

    void undo() override
    {
        m_history.m_fits = toggleAll(m_deltas.rbegin(), m_deltas.rend());
        m_history.m_reached = m_before;
    }

    void redo() override
    {
        if (std::exchange(m_isNew, false)) {
            return;
        }
        m_history.m_fits = toggleAll(m_deltas.begin(), m_deltas.end());
        m_history.m_reached = m_after;
    }

private:
    // All of them or none.
    template <class Iterator>
    bool toggleAll(Iterator first, Iterator last)
    {
        for (Iterator delta = first; delta != last; ++delta) {
            if (!fits(*delta, m_history.m_song)) {
                while (delta != first) {
                    toggle(*--delta, m_history.m_song);
                }
                return false;
            }
            toggle(*delta, m_history.m_song);
        }
        return true;
    }

    EditHistory &m_history;
    std::vector<SongDelta> m_deltas;
    TableState m_before;
    TableState m_after;
    int m_run;
    bool m_isNew = true;
};

void EditHistory::begin(const QString &name, TableState before)
{
    if (m_depth++ == 0) {
        m_name = name;
        m_before = std::move(before);
    }
}

void EditHistory::end(TableState after, Kind kind)
{
    assert(m_depth > 0);
    if (--m_depth > 0 || m_changes.isEmpty()) {
        return;
    }
    if (kind == Kind::Command) {
        closeTyping();
    }
    m_stack.push(new Step(*this, m_changes.take(), std::move(m_before), std::move(after),
        kind == Kind::Typing ? m_typingRun : Step::kNoRun));
}

void EditHistory::clear()
{
    ++m_generation;
    m_changes.forget();
    m_stack.clear();
}

std::optional<TableState> EditHistory::go(void (QUndoStack::*direction)())
{
    if (isOpen()) {
        return std::nullopt;
    }
    m_reached.reset();
    m_fits = true;
    closeTyping();
    (m_stack.*direction)();
    if (!m_fits) {
        clear();
        return std::nullopt;
    }
    return std::exchange(m_reached, std::nullopt);
}

} // namespace editor
