#include "app/shell/Application.h"

int main(int argc, char **argv)
{
    return runKelmar(argc, argv, std::chrono::milliseconds(2500));
}
