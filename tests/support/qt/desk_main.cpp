// Starts the desk tests on the platform that needs no display.

#include "platform/qt/romika_application.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    RomikaApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
