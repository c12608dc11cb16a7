// A rectangle of the window that holds other views: their order, what is visible, what a click
// does. This base keeps the state; a backend derives from it and paints what the apply functions
// tell. Main thread only.
#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace Vexora {

/// Where a view goes among its new siblings: under all of them or over all of them.
enum class Ordering { Below, Above };

/// Also what stands in for an outlet that an interface definition lacks: it takes every call and
/// shows nothing.
class View {
public:
    View() = default;
    View(const View&) = delete;
    View& operator=(const View&) = delete;
    virtual ~View();

    /// Puts a view into this one; it leaves the view that held it before. `child` must not be null.
    void addSubview(std::shared_ptr<View> child, Ordering ordering = Ordering::Above);

    /// Takes this view out of the view that holds it; without one nothing happens.
    void removeFromSuperview();

    /// The views held, from the lowest to the topmost.
    const std::vector<std::shared_ptr<View>>& subviews() const { return subviews_; }

    /// The view that holds this one, or null.
    View* superview() const { return superview_; }

    void setHidden(bool hidden);
    bool isHidden() const { return hidden_; }

    /// Sets how opaque the view is drawn, from 0.0 (invisible, its place stays taken) to 1.0.
    void setAlphaValue(double alpha);
    double alphaValue() const { return alpha_; }

    /// An opaque view covers all its siblings while it is the topmost of them. Under another one it
    /// is covered itself, and covers nothing.
    bool isOpaque() const { return opaque_; }

    /// Whether the view neither shows nor takes keys or clicks, because of a sibling above it.
    bool isCovered() const { return covered_; }

    /// Adds a constraint that fixes the view's height, in points. Constraints add up; equal ones
    /// are no conflict.
    void addHeightConstraint(double height);
    const std::vector<double>& heightConstraints() const { return heightConstraints_; }

    /// Sets what a click anywhere on the view does; replaces an earlier handler.
    void onClick(std::function<void()> handler);

    /// Does what a click does; without a handler nothing happens.
    void click();

protected:
    /// For the backend, before the view is held by another one.
    void setOpaque(bool opaque) { opaque_ = opaque; }

    // Called after the state has changed, each time a setter is called.
    virtual void applySubviewAdded(View& /*child*/, Ordering /*ordering*/) {}
    virtual void applySubviewRemoved(View& /*child*/) {}
    virtual void applyHidden() {}
    virtual void applyAlphaValue() {}
    virtual void applyCovered() {}
    virtual void applyHeightConstraint(double /*height*/) {}
    virtual void applyClickable() {}

private:
    void updateCoveredSubviews();

    std::vector<std::shared_ptr<View>> subviews_;
    View* superview_ = nullptr;
    bool hidden_ = false;
    bool opaque_ = false;
    bool covered_ = false;
    double alpha_ = 1.0;
    std::vector<double> heightConstraints_;
    std::function<void()> clickHandler_;
};

} // namespace Vexora
