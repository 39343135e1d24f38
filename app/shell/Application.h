#pragma once

#include <chrono>

/// The whole program: start, language, main window, and its coming back after a change of language. The
/// splash stays for `splashWait` before anything else happens. Returns 0 in every case.
int runKelmar(int &argc, char **argv, std::chrono::milliseconds splashWait);
