#include "Platform/Recording/Platform.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

class RecordingPlatform : public testing::Test {
protected:
    Vexora::Recording::RecordingPlatform platform;
};

TEST_F(RecordingPlatform, tellsATestThatExpectsTooMuch) {
    EXPECT_THROW(static_cast<void>(platform.calls.positionOf("sleep 1")), std::out_of_range);
    EXPECT_THROW(platform.backgroundQueue.runNext(), std::out_of_range);
}

TEST_F(RecordingPlatform, givesEveryOpenFileADescriptorOfItsOwn) {
    const auto first = platform.files.fileHandleForUpdatingAtPath("/dev/null");
    const auto second = platform.files.fileHandleForUpdatingAtPath("/dev/null");
    EXPECT_GE(first->fileDescriptor(), 0);
    EXPECT_NE(first->fileDescriptor(), second->fileDescriptor());
}

} // namespace
