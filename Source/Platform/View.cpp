#include "Platform/View.h"

#include <algorithm>
#include <utility>

namespace Vexora {

View::~View() {
    for (const auto& child : subviews_) {
        child->superview_ = nullptr;
    }
}

void View::addSubview(std::shared_ptr<View> child, Ordering ordering) {
    child->removeFromSuperview();
    child->superview_ = this;
    const auto position = ordering == Ordering::Below ? subviews_.begin() : subviews_.end();
    const auto inserted = subviews_.insert(position, std::move(child));
    applySubviewAdded(**inserted, ordering);
    updateCoveredSubviews();
}

void View::removeFromSuperview() {
    if (superview_ == nullptr) {
        return;
    }
    View& parent = *superview_;
    const auto found = std::ranges::find_if(
        parent.subviews_, [this](const auto& sibling) { return sibling.get() == this; });
    const std::shared_ptr<View> keptAlive = std::move(*found);
    parent.subviews_.erase(found);
    superview_ = nullptr;
    parent.applySubviewRemoved(*this);
    if (covered_) {
        covered_ = false;
        applyCovered();
    }
    parent.updateCoveredSubviews();
}

void View::updateCoveredSubviews() {
    for (const auto& child : subviews_) {
        const View& topmost = *subviews_.back();
        const bool covered = child.get() != &topmost && (child->opaque_ || topmost.opaque_);
        if (child->covered_ != covered) {
            child->covered_ = covered;
            child->applyCovered();
        }
    }
}

void View::setHidden(bool hidden) {
    hidden_ = hidden;
    applyHidden();
}

void View::setAlphaValue(double alpha) {
    alpha_ = alpha;
    applyAlphaValue();
}

void View::addHeightConstraint(double height) {
    heightConstraints_.push_back(height);
    applyHeightConstraint(height);
}

void View::onClick(std::function<void()> handler) {
    clickHandler_ = std::move(handler);
    applyClickable();
}

void View::click() {
    if (clickHandler_) {
        // A handler may take its own view, and with it the stored function, out of the window.
        const std::function<void()> handler = clickHandler_;
        handler();
    }
}

} // namespace Vexora
