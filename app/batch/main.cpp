#include "app/batch/Batch.h"

int main(int argc, char **argv)
{
    return runBatch(argc, argv);
}
