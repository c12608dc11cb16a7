// What the views of every toolkit have in common: they follow the state that their base keeps.
#pragma once

#include "Platform/View.h"

namespace Vexora {

/// A view of the seam whose order, visibility and height a widget follows. \tparam Base the kind of
/// view. \tparam Owner holds the widget, and has addChild, removeChild, show and fixHeight.
template <class Base, class Owner>
class Shown : public Base, public Owner {
public:
    template <class Widget>
    explicit Shown(Widget* widget) : Owner(widget) {}

protected:
    void applySubviewAdded(View& child, Ordering ordering) override {
        this->addChild(child, ordering);
    }
    void applySubviewRemoved(View& child) override { this->removeChild(child); }
    void applyHidden() override { this->show(*this); }
    void applyAlphaValue() override { this->show(*this); }
    void applyCovered() override { this->show(*this); }
    void applyHeightConstraint(double height) override { this->fixHeight(height); }
};

} // namespace Vexora
