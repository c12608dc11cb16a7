// The adapter of the AppKit front end: what the tests of every front end see of its window and do
// to it.
#pragma once

#include "Backend/Events.h"
#include "Backend/Seen.h"
#include "Platform/AppKit/Application.h"
#include "Platform/AppKit/InterfaceLoader.h"
#include "Platform/AppKit/MainQueue.h"
#include "Platform/AppKit/Views.h"

#include <functional>
#include <string>
#include <vector>

namespace BackendTest {

class FrontEnd {
public:
    using Application = Vexora::AppKitApplication;
    using InterfaceLoader = Vexora::AppKitInterfaceLoader;
    using MainQueue = Vexora::AppKitMainQueue;
    using Widget = NSView;
    using Scope = Vexora::AutoreleaseScope;

    static constexpr bool isAppKit = true;

    explicit FrontEnd(Application& application) : application_(application) {}

    NSWindow* window() const { return application_.mainWindow().window(); }

    void show() { [window() makeKeyAndOrderFront:nil]; }
    bool hasKeyboard() const { return [window() isKeyWindow]; }
    static bool waitFor(const std::function<bool()>& predicate) {
        return BackendTest::waitFor(predicate, std::chrono::seconds(30));
    }
    static void settle() { BackendTest::settle(); }

    bool holds(const NSView* view) const { return [view window] == window(); }
    static bool isWithin(const NSView* inner, const NSView* outer) {
        return [inner isDescendantOf:const_cast<NSView*>(outer)];
    }
    static bool shows(const NSView* view) { return ![view isHiddenOrHasHiddenAncestor]; }
    static double opacity(const NSView* view) { return [view alphaValue]; }
    static bool isUsable(const NSView* view);
    /// The views that a view holds, from the lowest to the topmost.
    static std::vector<NSView*> children(const NSView* view);

    std::string title() const;
    static std::string text(NSView* view);
    static Pieces runs(NSView* label);
    /// The part of a bar that is filled; -1 for one without a range.
    static double filled(const NSView* bar);
    /// The size of the text in an area, and of the part that can be seen.
    static Place lines(const NSView* area);
    static Place visiblePart(const NSView* area);
    /// Whether nothing of what a control shows is cut off.
    static bool isWhole(const NSView* view);
    /// How far the text in an area is scrolled down.
    static double scrolled(const NSView* area);
    static Picture picture(NSView* view);
    Place place(const NSView* view) const;
    /// Where on the display the middle of the window is, and that of the room for windows.
    Point middle() const;
    Point middleOfDisplay() const;
    /// The window's content.
    Place area() const { return place([window() contentView]); }
    void resize(double width, double height);
    /// Makes the window as small as it lets a person do.
    void shrink();
    void moveToCorner() { [window() setFrameOrigin:NSMakePoint(10.0, 10.0)]; }
    bool fromRight() const;

    NSView* focus() const;
    /// What a click at a point would reach.
    NSView* at(Point point) const;
    void click(Point from, Point to);
    void click(Point point) { click(point, point); }
    /// \param held whether the key has been down for a while.
    void press(Key key, bool held);
    void close() { [window() close]; }
    void pressCloseButton() { [window() performClose:nil]; }
    /// Whether the application is in front of all others.
    static bool isActive() { return [NSApp isActive]; }

private:
    Application& application_;
};

} // namespace BackendTest
