#pragma once

#include <chrono>

/// The wait of a thread that has windows, for setAttente(): they go on being drawn, and what the user does
/// meanwhile comes afterwards. Whatever comes by itself has to look at Environnement::actions.
bool attendEnDessinant(int prise, bool lire, bool ecrire, std::chrono::milliseconds limite);
