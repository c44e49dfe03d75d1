#pragma once

#include <chrono>
#include <functional>

/// Spins Qt's event loop until `condition` holds or `limit` has passed; gives the condition.
bool waitUntil(const std::function<bool()> &condition,
               std::chrono::milliseconds limit = std::chrono::seconds(10));
