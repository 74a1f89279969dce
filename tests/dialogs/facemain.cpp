// Main of the tests of the faces with a display.
#include "tests/support/dialogapplication.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return testsupport::runAllWithDialogs(argc, argv, false);
}
