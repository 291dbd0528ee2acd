// SPDX-License-Identifier: MIT
#pragma once

#include "editor/TQLRCEditorViewCtl.h"

/// One step of undo: what is changed while it lives, and while those live that are begun within it.
///
/// Keeps the editor alive; a host that is told of a change may let go of it.
class TQLRCEditorViewCtl::Step
{
public:
    using Kind = editor::EditHistory::Kind;

    /// \param name  as a menu says it behind "Undo".
    Step(TQLRCEditorViewCtl &owner, const QString &name, Kind kind = Kind::Command)
        : m_owner(owner.self()), m_kind(kind)
    {
        m_owner->m_history.begin(name, m_owner->tableState());
    }
    Step(const Step &) = delete;
    Step &operator=(const Step &) = delete;
    ~Step() { m_owner->m_history.end(m_owner->tableState(), m_kind); }

private:
    std::shared_ptr<TQLRCEditorViewCtl> m_owner;
    Kind m_kind;
};
