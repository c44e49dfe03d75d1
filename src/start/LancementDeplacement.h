#pragma once

struct Environnement;
struct Options;

/// Whether the command line asks for the practice to be moved, not for a window.
bool EstDeplacement(const Options &options);
/// Moves it, and tells on the terminal how far it has come and what came of it. Gives the program's exit
/// code.
int LanceDeplacement(Environnement &env, const Options &options);
