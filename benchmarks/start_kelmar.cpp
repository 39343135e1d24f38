// The whole program without the wait for its splash, which ends when the main window has been painted.

#include "app/shell/Application.h"
#include "benchmarks/support/FirstPaint.h"

int main(int argc, char **argv)
{
    endAfterFirstPaint();
    return runKelmar(argc, argv, std::chrono::milliseconds(0));
}
