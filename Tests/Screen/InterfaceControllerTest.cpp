#include "InterfaceController.h"

#include "Platform/Recording/Platform.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using Vexora::Button;
using Vexora::ProgressIndicator;
using Vexora::ScrollView;
using Vexora::TextField;
using Vexora::Recording::ElementKind;
using Vexora::Recording::Lines;

namespace {

class Controller : public Vexora::InterfaceController {
public:
    explicit Controller(Vexora::Platform& platform)
        : Vexora::InterfaceController(platform, "Sample") {}

    using Vexora::InterfaceController::setOutlet;

    Vexora::Actions actions() override {
        return {{"act", [this] { ++acts; }}};
    }

    int loads = 0;
    int acts = 0;

protected:
    void viewDidLoad() override {
        ++loads;
        EXPECT_TRUE(isViewLoaded());
        EXPECT_NE(view(), nullptr);
        EXPECT_EQ(loads, 1);
    }
};

class InterfaceController : public testing::Test {
protected:
    InterfaceController() {
        platform.interfaces.definitions["Sample"] = {
            {{"label", ElementKind::Text}, {"button", ElementKind::Button}},
            {{"act", "button"}},
            false};
    }

    Vexora::Recording::RecordingPlatform platform;
    std::shared_ptr<Controller> controller = std::make_shared<Controller>(platform.seam);
};

TEST_F(InterfaceController, nothingIsLoadedBeforeTheViewIsAskedFor) {
    EXPECT_FALSE(controller->isViewLoaded());
    EXPECT_EQ(platform.calls.lines(), Lines{});
    EXPECT_EQ(controller->loads, 0);
}

TEST_F(InterfaceController, viewIsLoadedOnceAndThenAlwaysTheSame) {
    const auto view = controller->view();
    EXPECT_EQ(controller->view(), view);
    EXPECT_EQ(view, platform.interfaces.view("view(Sample)"));
    EXPECT_EQ(controller->loads, 1);
    EXPECT_EQ(platform.calls.count("load Sample"), 1U);
}

TEST_F(InterfaceController, outletIsTheViewThatTheDefinitionNames) {
    controller->view();
    EXPECT_EQ(controller->outlet<TextField>("label"), platform.interfaces.view("label"));
    EXPECT_EQ(controller->outlet<Vexora::View>("button"), platform.interfaces.view("button"));
}

TEST_F(InterfaceController, missingOutletTakesEveryCallAndShowsNothing) {
    controller->view();
    platform.calls.clear();
    controller->outlet<TextField>("missing")->setStringValue("text");
    controller->outlet<Button>("missing")->setTitle("title");
    controller->outlet<ProgressIndicator>("missing")->incrementBy(1.0);
    controller->outlet<ScrollView>("missing")->setDocumentView(nullptr);
    controller->outlet<Vexora::View>("missing")->onClick([] {});
    const auto text = controller->outlet<Vexora::TextView>("missing");
    text->setRichText(true);
    text->setString("text");
    text->setEditable(false);
    text->setContainerSize({1.0, 2.0});
    const auto plain = controller->outlet<Vexora::View>("missing");
    plain->addSubview(text);
    text->removeFromSuperview();
    EXPECT_EQ(platform.calls.lines(), Lines{});
}

TEST_F(InterfaceController, missingOutletKeepsNothingFromOneCallToTheNext) {
    controller->view();
    controller->outlet<TextField>("missing")->setStringValue("text");
    EXPECT_EQ(controller->outlet<TextField>("missing")->stringValue(), "");
}

TEST_F(InterfaceController, outletOfAnotherKindCountsAsMissing) {
    controller->view();
    controller->outlet<Button>("label")->setTitle("title");
    EXPECT_EQ(platform.calls.beginningWith("label."), Lines{});
    EXPECT_NE(controller->outlet<Button>("label"), platform.interfaces.view("label"));
}

TEST_F(InterfaceController, outletBeforeLoadingIsAStandInAndLoadsNothing) {
    controller->outlet<TextField>("label")->setStringValue("early");
    EXPECT_FALSE(controller->isViewLoaded());
    controller->view();
    EXPECT_EQ(controller->outlet<TextField>("label")->stringValue(), "");
}

TEST_F(InterfaceController, outletSetBeforeLoadingStaysUnlessTheDefinitionNamesIt) {
    const auto own = std::make_shared<TextField>();
    controller->setOutlet("label", own);
    controller->setOutlet("mark", own);
    EXPECT_EQ(controller->outlet<TextField>("label"), own);
    controller->view();
    EXPECT_EQ(controller->outlet<TextField>("label"), platform.interfaces.view("label"));
    EXPECT_EQ(controller->outlet<TextField>("mark"), own);
}

TEST_F(InterfaceController, controlPerformsTheActionThatItsDefinitionNames) {
    controller->view();
    platform.interfaces.view("button")->click();
    platform.interfaces.view("button")->click();
    platform.interfaces.view("label")->click();
    EXPECT_EQ(controller->acts, 2);
}

TEST_F(InterfaceController, controlWhoseActionNobodyKnowsDoesNothing) {
    platform.interfaces.definitions["Sample"].actions = {{"dance", "button"}};
    controller->view();
    platform.interfaces.view("button")->click();
    EXPECT_EQ(controller->acts, 0);
}

TEST_F(InterfaceController, nameWithoutADefinitionGivesAnEmptyView) {
    Vexora::InterfaceController unnamed(platform.seam, "Nowhere");
    ASSERT_NE(unnamed.view(), nullptr);
    EXPECT_TRUE(unnamed.view()->subviews().empty());
}

TEST_F(InterfaceController, childrenKeepTheirOrderAndKnowTheirParent) {
    const auto first = std::make_shared<Controller>(platform.seam);
    const auto second = std::make_shared<Controller>(platform.seam);
    controller->addChildViewController(first);
    controller->addChildViewController(second);
    ASSERT_EQ(controller->childViewControllers().size(), 2U);
    EXPECT_EQ(controller->childViewControllers()[0], first);
    EXPECT_EQ(controller->childViewControllers()[1], second);
    EXPECT_EQ(first->parentViewController(), controller.get());
    EXPECT_EQ(second->parentViewController(), controller.get());
    EXPECT_EQ(controller->parentViewController(), nullptr);
}

TEST_F(InterfaceController, addingAChildLoadsNoView) {
    const auto child = std::make_shared<Controller>(platform.seam);
    controller->addChildViewController(child);
    EXPECT_FALSE(child->isViewLoaded());
    EXPECT_FALSE(controller->isViewLoaded());
}

TEST_F(InterfaceController, childThatOutlivesItsParentHasNone) {
    const auto child = std::make_shared<Controller>(platform.seam);
    controller->addChildViewController(child);
    controller.reset();
    EXPECT_EQ(child->parentViewController(), nullptr);
}

} // namespace
