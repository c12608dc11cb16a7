#include "Platform/View.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using Vexora::Ordering;

namespace {

/// A view that tells what its backend would be told.
class ToldView : public Vexora::View {
public:
    explicit ToldView(bool opaque = false) { setOpaque(opaque); }

    std::vector<std::string> told;

    /// The view that is to be there when this one is told that it is removed.
    std::weak_ptr<Vexora::View> removed;
    bool heldWhenRemoved = false;

protected:
    void applySubviewAdded(View& child, Ordering ordering) override {
        EXPECT_EQ(child.superview(), this);
        const bool below = ordering == Ordering::Below;
        EXPECT_EQ((below ? subviews().front() : subviews().back()).get(), &child);
        told.push_back(below ? "added below" : "added above");
    }
    void applySubviewRemoved(View& child) override {
        EXPECT_EQ(child.superview(), nullptr);
        heldWhenRemoved = !removed.expired();
        told.push_back("removed");
    }
    void applyHidden() override { told.push_back(isHidden() ? "hidden" : "shown"); }
    void applyAlphaValue() override { told.push_back("alpha " + std::to_string(alphaValue())); }
    void applyCovered() override { told.push_back(isCovered() ? "covered" : "uncovered"); }
    void applyHeightConstraint(double height) override {
        told.push_back(std::to_string(heightConstraints().size()) + ": " + std::to_string(height));
    }
    void applyClickable() override { told.push_back("clickable"); }
};

using Told = std::vector<std::string>;

class View : public testing::Test {
protected:
    using Children = std::vector<std::shared_ptr<Vexora::View>>;

    std::shared_ptr<ToldView> parent = std::make_shared<ToldView>();
    std::shared_ptr<ToldView> first = std::make_shared<ToldView>();
    std::shared_ptr<ToldView> second = std::make_shared<ToldView>();
    std::shared_ptr<ToldView> third = std::make_shared<ToldView>();
    std::shared_ptr<ToldView> opaque = std::make_shared<ToldView>(true);
};

TEST_F(View, subviewGoesOnTopUnlessToldOtherwise) {
    parent->addSubview(first);
    parent->addSubview(second);
    EXPECT_EQ(parent->subviews(), (Children{first, second}));
    EXPECT_EQ(parent->told, (Told{"added above", "added above"}));
}

TEST_F(View, subviewBelowGoesUnderAllSiblings) {
    parent->addSubview(first);
    parent->addSubview(second);
    parent->addSubview(third, Ordering::Below);
    EXPECT_EQ(parent->subviews(), (Children{third, first, second}));
    EXPECT_EQ(parent->told.back(), "added below");
}

TEST_F(View, subviewAboveGoesOverAllSiblings) {
    parent->addSubview(first);
    parent->addSubview(second, Ordering::Above);
    EXPECT_EQ(parent->subviews(), (Children{first, second}));
    EXPECT_EQ(second->superview(), parent.get());
}

TEST_F(View, addingAgainMovesTheViewToItsNewPlace) {
    parent->addSubview(first);
    parent->addSubview(second);
    parent->addSubview(first);
    EXPECT_EQ(parent->subviews(), (Children{second, first}));
    parent->addSubview(first, Ordering::Below);
    EXPECT_EQ(parent->subviews(), (Children{first, second}));
}

TEST_F(View, addingToAnotherViewLeavesTheFirstOne) {
    const auto other = std::make_shared<ToldView>();
    parent->addSubview(first);
    other->addSubview(first);
    EXPECT_EQ(parent->subviews(), Children{});
    EXPECT_EQ(other->subviews(), Children{first});
    EXPECT_EQ(first->superview(), other.get());
    EXPECT_EQ(parent->told, (Told{"added above", "removed"}));
}

TEST_F(View, removingTakesOnlyThatView) {
    parent->addSubview(first);
    parent->addSubview(second);
    parent->addSubview(third);
    second->removeFromSuperview();
    EXPECT_EQ(parent->subviews(), (Children{first, third}));
    EXPECT_EQ(second->superview(), nullptr);
}

TEST_F(View, removingAViewThatNobodyHoldsDoesNothing) {
    first->removeFromSuperview();
    EXPECT_EQ(first->superview(), nullptr);
    EXPECT_EQ(first->told, Told{});
}

TEST_F(View, removedViewLivesOnlyAsLongAsSomebodyHoldsIt) {
    const std::weak_ptr<Vexora::View> watched = first;
    Vexora::View* const raw = first.get();
    parent->removed = first;
    parent->addSubview(first);
    first.reset();
    ASSERT_FALSE(watched.expired());
    raw->removeFromSuperview();
    EXPECT_TRUE(parent->heldWhenRemoved);
    EXPECT_TRUE(watched.expired());
}

TEST_F(View, viewThatGoesLeavesItsSubviewsWithoutASuperview) {
    parent->addSubview(first);
    parent.reset();
    EXPECT_EQ(first->superview(), nullptr);
    first->removeFromSuperview();
}

TEST_F(View, opaqueViewCoversWhatLiesBelowIt) {
    parent->addSubview(first);
    parent->addSubview(opaque);
    parent->addSubview(second, Ordering::Below);
    EXPECT_TRUE(first->isCovered());
    EXPECT_TRUE(second->isCovered());
    EXPECT_FALSE(opaque->isCovered());
    EXPECT_FALSE(parent->isCovered());
}

TEST_F(View, opaqueViewUnderAnotherOneIsCoveredAndCoversNothing) {
    parent->addSubview(first);
    parent->addSubview(opaque);
    parent->addSubview(second);
    EXPECT_EQ(parent->subviews(), (Children{first, opaque, second}));
    EXPECT_FALSE(first->isCovered());
    EXPECT_TRUE(opaque->isCovered());
    EXPECT_FALSE(second->isCovered());
    EXPECT_FALSE(opaque->isHidden());
}

TEST_F(View, opaqueViewCoversAgainOnceTheOneAboveItIsTakenAway) {
    parent->addSubview(first);
    parent->addSubview(opaque);
    parent->addSubview(second);
    second->removeFromSuperview();
    EXPECT_TRUE(first->isCovered());
    EXPECT_FALSE(opaque->isCovered());
    EXPECT_EQ(first->told, (Told{"covered", "uncovered", "covered"}));
    EXPECT_EQ(opaque->told, (Told{"covered", "uncovered"}));
}

TEST_F(View, removingTheOpaqueViewUncoversItsSiblings) {
    parent->addSubview(first);
    parent->addSubview(opaque);
    opaque->removeFromSuperview();
    EXPECT_FALSE(first->isCovered());
    EXPECT_EQ(first->told, (Told{"covered", "uncovered"}));
    EXPECT_EQ(opaque->told, Told{});
    EXPECT_TRUE(opaque->isOpaque());
    EXPECT_FALSE(first->isOpaque());
}

TEST_F(View, coveredViewThatIsTakenAwayIsNoLongerCovered) {
    parent->addSubview(first);
    parent->addSubview(opaque);
    first->removeFromSuperview();
    EXPECT_FALSE(first->isCovered());
    EXPECT_EQ(first->told, (Told{"covered", "uncovered"}));
}

TEST_F(View, coveringIsToldOnceAndNotAgainForEveryNewSibling) {
    parent->addSubview(first);
    parent->addSubview(opaque);
    parent->addSubview(second, Ordering::Below);
    parent->addSubview(third, Ordering::Below);
    EXPECT_EQ(first->told, Told{"covered"});
    EXPECT_EQ(second->told, Told{"covered"});
    EXPECT_EQ(opaque->told, Told{});
}

TEST_F(View, lookIsToldEachTimeItIsSet) {
    EXPECT_FALSE(first->isHidden());
    EXPECT_EQ(first->alphaValue(), 1.0);
    first->setHidden(true);
    first->setHidden(false);
    first->setAlphaValue(0.0);
    EXPECT_FALSE(first->isHidden());
    EXPECT_EQ(first->alphaValue(), 0.0);
    EXPECT_EQ(first->told, (Told{"hidden", "shown", "alpha 0.000000"}));
}

TEST_F(View, heightConstraintsAddUp) {
    first->addHeightConstraint(200.0);
    first->addHeightConstraint(200.0);
    EXPECT_EQ(first->heightConstraints(), (std::vector<double>{200.0, 200.0}));
    EXPECT_EQ(first->told, (Told{"1: 200.000000", "2: 200.000000"}));
}

TEST_F(View, clickCallsItsHandlerEachTime) {
    int clicks = 0;
    first->onClick([&clicks] { ++clicks; });
    first->click();
    first->click();
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(first->told, Told{"clickable"});
}

TEST_F(View, laterHandlerReplacesTheEarlierOne) {
    std::string called;
    first->onClick([&called] { called += "first"; });
    first->onClick([&called] { called += "second"; });
    first->click();
    EXPECT_EQ(called, "second");
}

TEST_F(View, clickWithoutAHandlerDoesNothing) {
    first->click();
    first->onClick(nullptr);
    first->click();
    EXPECT_EQ(first->told, Told{"clickable"});
}

TEST_F(View, handlerMayTakeItsOwnViewOutOfTheWindow) {
    parent->addSubview(first);
    bool finished = false;
    const auto held = std::make_shared<std::string>("still here");
    Vexora::View* const raw = first.get();
    first->onClick([raw, held, &finished] {
        raw->removeFromSuperview();
        finished = *held == "still here";
    });
    first.reset();

    raw->click();

    EXPECT_TRUE(finished);
    EXPECT_EQ(parent->subviews(), Children{});
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(View, handlerMayReplaceItself) {
    std::string called;
    first->onClick([this, &called] {
        first->onClick([&called] { called += "second"; });
        called += "first ";
    });
    first->click();
    first->click();
    EXPECT_EQ(called, "first second");
}

} // namespace
