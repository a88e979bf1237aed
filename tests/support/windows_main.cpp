// main() of the test executables that show windows.
#include "platform/application.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    platform::Application app(argc, argv);
    platform::InstallSwedish();
    QApplication::setQuitOnLastWindowClosed(false);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
