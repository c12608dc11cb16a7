#include "Platform/Backend.h"
#include "Toolkit.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) {
        // The build asks for the names where there may be no display.
        return RUN_ALL_TESTS();
    }
    Gallery::prepareToolkit("en");
    const Vexora::Backend backend(argc, argv);
    Gallery::useTypefaceOfPictures();
    return RUN_ALL_TESTS();
}
