#include "Platform/AppKit/Compatibility.h"
#include "Platform/Backend.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const Vexora::Backend backend(argc, argv);
    [NSApp finishLaunching];
    return RUN_ALL_TESTS();
}
