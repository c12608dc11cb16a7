#include "Platform/AppKit/Compatibility.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const Vexora::AutoreleaseScope scope;
    [NSApplication sharedApplication];
    Vexora::leaveEndedProgramsAlone();
    [NSApp finishLaunching];
    return RUN_ALL_TESTS();
}
