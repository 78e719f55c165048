#pragma once

#include "app/public_variables.h"

#include <QtGlobal>

namespace quillbrook {

// The turn of one command that uses the word processor, from its first step to its last. Assistive technology
// chooses commands also behind a dialog of the running one: a command whose turn it is not does nothing.
class WordTurn {
public:
    explicit WordTurn(PublicVariables& variables)
        : m_variables(variables)
        , m_ours(!variables.WordInUse) {
        m_variables.WordInUse = true;
    }
    ~WordTurn() {
        if (m_ours)
            m_variables.WordInUse = false;
    }
    Q_DISABLE_COPY_MOVE(WordTurn)

    bool IsOurs() const { return m_ours; }

private:
    PublicVariables& m_variables;
    const bool m_ours;
};

} // namespace quillbrook
