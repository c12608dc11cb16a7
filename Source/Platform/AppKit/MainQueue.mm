#include "Platform/AppKit/MainQueue.h"

#include "Platform/AppKit/Handler.h"
#include "Platform/AppKit/Queues.h"

namespace Vexora {
namespace {

/// Also while a menu is open, a control is dragged or a dialog runs.
NSArray* everyMode() {
    return [NSArray arrayWithObjects:NSDefaultRunLoopMode, NSEventTrackingRunLoopMode,
                                     NSModalPanelRunLoopMode, nil];
}

} // namespace

void AppKitMainQueue::async(std::function<void()> block) {
#ifdef GNUSTEP
    const AutoreleaseScope scope;
    [makeHandler(std::move(block)).get() performSelectorOnMainThread:@selector(handle:)
                                                          withObject:nil
                                                       waitUntilDone:NO
                                                               modes:everyMode()];
#else
    dispatch(dispatch_get_main_queue(), std::move(block));
#endif
}

void AppKitMainQueue::after(double seconds, std::function<void()> block) {
    [makeHandler(std::move(block)).get() performSelector:@selector(handle:)
                                              withObject:nil
                                              afterDelay:seconds
                                                 inModes:everyMode()];
}

} // namespace Vexora
