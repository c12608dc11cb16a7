#include "Platform/AppKit/Compatibility.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) {
        // The build asks for the names where there may be no display.
        return RUN_ALL_TESTS();
    }
    const Vexora::AutoreleaseScope scope;
    [NSApplication sharedApplication];
    Vexora::leaveEndedProgramsAlone();
    [NSApp finishLaunching];
    return RUN_ALL_TESTS();
}
