#pragma once

#include <chrono>
#include <functional>

/// Waits until `socket` can be read or written, whichever is asked for; false when `limit` has passed before.
/// A socket of -1 is none: the time passes.
using Attente = bool(int socket, bool read, bool write, std::chrono::milliseconds limit);

/// How this thread waits for a server from now on: a window goes on being drawn. Whatever happens meanwhile
/// may use databases, too; it must not throw. An empty one brings the plain wait back.
void setAttente(std::function<Attente> attente);

/// What is done where nothing else was chosen, and for a choice that only adds to it: poll(2).
Attente attendsSeulement;

/// The one wait for everything that comes over a network.
Attente attends;
