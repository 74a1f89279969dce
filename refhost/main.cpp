// quelhost: the reference host as a program.

#include "refhost/console/program.h"

int main(int argc, char** argv)
{
    return quelhost::runProgram(argc, argv);
}
