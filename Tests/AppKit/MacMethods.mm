#include "AppKit/MacMethods.h"

#include "Platform/AppKit/Conversions.h"

namespace {

/// The targets and actions of recognisers that no view has yet, and the sources of scripts.
std::map<id, std::pair<id, SEL>> actions;
std::map<id, std::string> sources;

} // namespace

@implementation NSGestureRecognizer (OnlyOnMac)

- (id)initWithTarget:(id)target action:(SEL)action {
    self = [self init];
    actions[self] = {target, action};
    return self;
}

@end

@implementation NSView (OnlyOnMac)

- (void)addGestureRecognizer:(NSGestureRecognizer*)recognizer {
    const auto [target, action] = actions.at(recognizer);
    AppKitTest::macCalls().recognizers.push_back({self, recognizer, target, action});
}

- (void)addConstraint:(NSLayoutConstraint*)constraint {
    AppKitTest::macCalls().constraints.emplace_back(self, constraint);
}

- (void)setAccessibilityLabel:(NSString*)label {
    AppKitTest::macCalls().labels[self] = Vexora::toUtf8(label);
}

- (void)setAccessibilityHelp:(NSString*)help {
    AppKitTest::macCalls().descriptions[self] = Vexora::toUtf8(help);
}

- (void)setAccessibilityRole:(NSString*)role {
    AppKitTest::macCalls().roles[self] = Vexora::toUtf8(role);
}

- (void)setAccessibilityElement:(BOOL)element {
    AppKitTest::macCalls().elements[self] = element;
}

@end

@interface NSApplication (Attention)
@end

/// The toolkit's own does nothing.
@implementation NSApplication (Attention)

- (NSInteger)requestUserAttention:(NSRequestUserAttentionType)type {
    AppKitTest::macCalls().attention.push_back(type);
    return 1;
}

@end

@implementation NSWindow (OnlyOnMac)

- (void)setAppearance:(NSAppearance*)appearance {
    AppKitTest::macCalls().appearances[self] = Vexora::toUtf8([appearance name]);
}

- (void)setCollectionBehavior:(NSWindowCollectionBehavior)behavior {
    AppKitTest::macCalls().collections[self] = behavior;
}

@end

@implementation NSMenuItem (OnlyOnMac)

- (void)setHidden:(BOOL)hidden {
    AppKitTest::macCalls().hiddenCommands[self] = hidden ? "not heard" : "shown";
}

- (void)setAllowsKeyEquivalentWhenHidden:(BOOL)allowed {
    AppKitTest::macCalls().hiddenCommands[self] =
        allowed ? Vexora::toUtf8([self keyEquivalent]) : "not heard";
}

@end

@implementation NSFont (OnlyOnMac)

+ (NSFont*)systemFontOfSize:(CGFloat)size weight:(CGFloat)weight {
    AppKitTest::macCalls().fonts.emplace_back(size, weight);
    return [NSFont boldSystemFontOfSize:size];
}

@end

@implementation NSAppleScript (OnlyOnMac)

- (id)initWithSource:(NSString*)source {
    self = [self init];
    sources[self] = Vexora::toUtf8(source);
    return self;
}

- (id)executeAndReturnError:(NSDictionary**)error {
    AppKitTest::RecordedCalls& calls = AppKitTest::macCalls();
    calls.scripts.push_back(sources.at(self));
    calls.freshErrors += *error != nil && [*error count] == 0 ? 1U : 0U;
    if (calls.scriptsSucceed) {
        return self;
    }
    *error = [NSDictionary dictionaryWithObject:@"User canceled." forKey:@"Message"];
    return nil;
}

@end

@implementation NSWorkspace (OnlyOnMac)

- (BOOL)accessibilityDisplayShouldIncreaseContrast {
    return AppKitTest::macCalls().contrast;
}

/// The toolkit's own posts to other programs alone.
- (NSNotificationCenter*)notificationCenter {
    return [NSNotificationCenter defaultCenter];
}

@end

/// The toolkit's own knows of blanks alone.
@implementation NSAttributedString (OnlyOnMac)

- (NSUInteger)lineBreakBeforeIndex:(NSUInteger)location withinRange:(NSRange)range {
    NSCharacterSet* const never =
        [NSCharacterSet characterSetWithCharactersInString:@" 、。」っょー"];
    for (NSUInteger place = location; place > range.location; --place) {
        const unichar before = [[self string] characterAtIndex:place - 1];
        const unichar after = [[self string] characterAtIndex:place];
        const BOOL japanese = before > 0x3000 && before != u'「';
        if ((before == ' ' || japanese) && ![never characterIsMember:after]) {
            return place;
        }
    }
    return NSNotFound;
}

@end

/// Otherwise paragraphs that differ in nothing but their direction would be taken for the same.
@implementation NSParagraphStyle (OnlyOnMac)

- (BOOL)isEqual:(id)other {
    NSParagraphStyle* const style = Vexora::as<NSParagraphStyle>(other);
    return style != nil && [style alignment] == [self alignment] &&
           [style baseWritingDirection] == [self baseWritingDirection] &&
           [style lineBreakMode] == [self lineBreakMode];
}

@end

/// Takes the place of the toolkit's own, which does nothing.
void NSAccessibilityPostNotificationWithUserInfo(id element, NSString* notification,
                                                 NSDictionary* userInfo) {
    if (element == NSApp &&
        [notification isEqualToString:NSAccessibilityAnnouncementRequestedNotification] &&
        [[userInfo objectForKey:NSAccessibilityPriorityKey] integerValue] ==
            NSAccessibilityPriorityHigh) {
        AppKitTest::macCalls().announcements.push_back(
            Vexora::toUtf8([userInfo objectForKey:NSAccessibilityAnnouncementKey]));
    }
}

namespace AppKitTest {

RecordedCalls& macCalls() {
    static RecordedCalls calls;
    return calls;
}

std::vector<Recognizer> recognizersOf(NSView* view) {
    std::vector<Recognizer> found;
    for (const Recognizer& recognizer : macCalls().recognizers) {
        if (recognizer.view == view) {
            found.push_back(recognizer);
        }
    }
    return found;
}

void recognize(const Recognizer& recognizer) {
    [recognizer.target performSelector:recognizer.action withObject:recognizer.object.get()];
}

} // namespace AppKitTest
