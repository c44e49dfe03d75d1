#pragma once

#include "platform/db/SqlTokens.h"

#include <span>

/// A function of the dialect that an engine writes otherwise: its name there, and what ends its arguments.
struct SqlCall {
    QStringView dialect;
    QStringView native;
    QStringView ending;
};

/// How an engine writes what the dialect has a word of its own for.
struct SqlGrammar {
    std::span<const SqlCall> calls;
    QStringView textOrder; ///< what makes a comparison of texts ignore letter case, behind the literal
    QStringView rowKey;    ///< CleLigne
    bool orderIsSaidOnce;  ///< an engine that refuses a comparison whose two sides each name an order
};

QString translated(std::vector<SqlToken> tokens, const SqlGrammar &grammar);
