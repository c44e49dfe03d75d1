#pragma once

class QApplication;

/// Runs the program: reads the options, opens the book, shows the main window, and gives the exit code.
int Lance(int argc, char **argv);
