#include "Platform/Controls.h"

#include <gtest/gtest.h>

using Vexora::Size;

namespace {

struct Bar : Vexora::ProgressIndicator {
    using ProgressIndicator::setRange;
};

TEST(Controls, progressIndicatorMovesOnlyOnceItIsToldTo) {
    Bar bar;
    EXPECT_TRUE(bar.isIndeterminate());
    EXPECT_FALSE(bar.usesThreadedAnimation());
    bar.setRange(5.0, 50.0);
    EXPECT_EQ(bar.doubleValue(), 5.0);
    EXPECT_EQ(bar.maxValue(), 50.0);
}

TEST(Controls, textViewIsPlainAndEditableAtFirst) {
    const Vexora::TextView text;
    EXPECT_FALSE(text.isRichText());
    EXPECT_TRUE(text.isEditable());
    EXPECT_EQ(text.containerSize(), (Size{0.0, 0.0}));
}

} // namespace
