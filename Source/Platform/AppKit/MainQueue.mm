#include "Platform/AppKit/MainQueue.h"

#include "Platform/AppKit/Handler.h"

namespace Vexora {
namespace {

/// Also while a menu is open, a control is dragged or a dialog runs.
NSArray* everyMode() {
    return [NSArray arrayWithObjects:NSDefaultRunLoopMode, NSEventTrackingRunLoopMode,
                                     NSModalPanelRunLoopMode, nil];
}

} // namespace

void AppKitMainQueue::async(std::function<void()> block) {
    const AutoreleaseScope scope;
    [makeHandler(std::move(block)).get() performSelectorOnMainThread:@selector(handle:)
                                                          withObject:nil
                                                       waitUntilDone:NO
                                                               modes:everyMode()];
}

void AppKitMainQueue::after(double seconds, std::function<void()> block) {
    [makeHandler(std::move(block)).get() performSelector:@selector(handle:)
                                              withObject:nil
                                              afterDelay:seconds
                                                 inModes:everyMode()];
}

} // namespace Vexora
