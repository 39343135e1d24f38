#pragma once

/// The program without windows: does one job of the main program by the same classes and ends with 0 when
/// done, 1 for bad input, 2 for wrong usage. Writes no settings.
int runBatch(int &argc, char **argv);
