#include "Platform/AppKit/InterfaceLoader.h"

#include "Platform/AppKit/Conversions.h"
#include "Platform/AppKit/Pane.h"
#include "Platform/AppKit/Picture.h"
#include "Platform/AppKit/PushButton.h"
#include "Platform/AppKit/TextLabel.h"
#include "Platform/AppKit/Views.h"

namespace Vexora {
namespace {

/// The definition at that path; null when there is none that can be read.
NSDictionary* definitionAt(NSString* path) {
    NSData* data = [NSData dataWithContentsOfFile:path];
    id definition =
        data == nil ? nil : [NSJSONSerialization JSONObjectWithData:data options:0 error:nullptr];
    return [definition isKindOfClass:[NSDictionary class]] ? definition : nil;
}

NSRect frameOf(NSDictionary* control) {
    NSArray* numbers = [control objectForKey:@"frame"];
    return NSMakeRect(
        [[numbers objectAtIndex:0] doubleValue], [[numbers objectAtIndex:1] doubleValue],
        [[numbers objectAtIndex:2] doubleValue], [[numbers objectAtIndex:3] doubleValue]);
}

/// What changes when the pane grows: an edge that the definition names keeps its distance, and
/// between two opposite ones the control grows along.
NSUInteger resizingOf(NSDictionary* control) {
    NSArray* edges = [control objectForKey:@"edges"];
    const bool leading = [edges containsObject:@"leading"];
    const bool trailing = [edges containsObject:@"trailing"];
    const bool top = [edges containsObject:@"top"];
    const bool bottom = [edges containsObject:@"bottom"];
    NSUInteger mask = 0;
    mask |= leading ? 0U : NSUInteger(NSViewMinXMargin);
    mask |= trailing ? 0U : NSUInteger(NSViewMaxXMargin);
    mask |= leading && trailing ? NSUInteger(NSViewWidthSizable) : 0U;
    // A pane counts from its top, and so do the margins of what it holds.
    mask |= top ? 0U : NSUInteger(NSViewMinYMargin);
    mask |= bottom ? 0U : NSUInteger(NSViewMaxYMargin);
    mask |= top && bottom ? NSUInteger(NSViewHeightSizable) : 0U;
    return mask;
}

NSFont* fontOf(NSDictionary* control) {
    const double size = [[control objectForKey:@"fontSize"] doubleValue];
    return [[control objectForKey:@"bold"] boolValue] ? [NSFont boldSystemFontOfSize:size]
                                                      : [NSFont systemFontOfSize:size];
}

Strong<NSView> makeLabel(NSDictionary* control) {
    const auto made =
        adopt<VexoraTextLabel>([[VexoraTextLabel alloc] initWithFrame:frameOf(control)]);
    VexoraTextLabel* const label = made.get();
    [label setFont:fontOf(control)];
    label->centered = [[control objectForKey:@"centered"] boolValue];
    [label setCentersVertically:[[control objectForKey:@"centersVertically"] boolValue]];
    return label;
}

Strong<NSView> makeButton(NSDictionary* control) {
    const auto made = adopt<VexoraButton>([[VexoraButton alloc] initWithFrame:frameOf(control)]);
    VexoraButton* const button = made.get();
    if ([[control objectForKey:@"help"] boolValue]) {
        [button setBezelStyle:NSBezelStyleHelpButton];
    }
    if ([[control objectForKey:@"default"] boolValue]) {
        [button setKeyEquivalent:@"\r"];
    }
    button->cancels = [[control objectForKey:@"cancels"] boolValue];
    return button;
}

Strong<NSView> makePicture(NSDictionary* control, NSString* folder) {
    const auto made = adopt<VexoraPicture>([[VexoraPicture alloc] initWithFrame:frameOf(control)]);
    VexoraPicture* const picture = made.get();
    picture->imageName = as<NSString>([control objectForKey:@"imageName"]);
    [picture loadFrom:folder];
    return picture;
}

Strong<NSView> makeBar(NSDictionary* control) {
    const auto made =
        adopt<NSProgressIndicator>([[NSProgressIndicator alloc] initWithFrame:frameOf(control)]);
    NSProgressIndicator* const bar = made.get();
    [bar setMinValue:0.0];
    [bar setMaxValue:[[control objectForKey:@"maximum"] doubleValue]];
    return bar;
}

Strong<NSView> makeScrollView(NSDictionary* control) {
    const auto made = adopt<NSScrollView>([[NSScrollView alloc] initWithFrame:frameOf(control)]);
    NSScrollView* const area = made.get();
    [area setHasVerticalScroller:YES];
    [area setBorderType:NSLineBorder];
    return area;
}

/// The control that a definition describes; null for a class that no definition may name.
Strong<NSView> makeControl(NSDictionary* control, NSString* folder) {
    NSString* const kind = [control objectForKey:@"class"];
    if ([kind isEqualToString:@"NSTextField"]) {
        return makeLabel(control);
    }
    if ([kind isEqualToString:@"NSButton"]) {
        return makeButton(control);
    }
    if ([kind isEqualToString:@"NSImageView"]) {
        return makePicture(control, folder);
    }
    if ([kind isEqualToString:@"NSProgressIndicator"]) {
        return makeBar(control);
    }
    if ([kind isEqualToString:@"NSScrollView"]) {
        return makeScrollView(control);
    }
    if ([kind isEqualToString:@"NSView"]) {
        return adopt<VexoraPane>([[VexoraPane alloc] initWithFrame:frameOf(control)]).get();
    }
    return nil;
}

/// The controls of a definition.
std::vector<NSDictionary*> controlsOf(NSDictionary* definition) {
    NSArray* const listed = [definition objectForKey:@"controls"];
    std::vector<NSDictionary*> controls;
    for (NSUInteger index = 0; index < [listed count]; ++index) {
        controls.push_back([listed objectAtIndex:index]);
    }
    return controls;
}

/// Fills a pane with the controls of its definition. Returns them by their names.
NSDictionary* setUp(VexoraPane* pane, NSDictionary* definition, NSString* folder) {
    NSMutableDictionary* const named = [NSMutableDictionary dictionary];
    const std::vector<NSDictionary*> controls = controlsOf(definition);
    for (NSDictionary* control : controls) {
        const Strong<NSView> view = makeControl(control, folder);
        [view.get() setAutoresizingMask:resizingOf(control)];
        [pane addSubview:view];
        [named setObject:view.get() forKey:[control objectForKey:@"name"]];
    }
    for (NSDictionary* control : controls) {
        NSString* const buddy = [control objectForKey:@"buddy"];
        if (buddy != nil) {
            as<VexoraTextLabel>([named objectForKey:[control objectForKey:@"name"]])->buddy =
                as<NSView>([named objectForKey:buddy]);
        }
    }
    pane->opaquePane = [[definition objectForKey:@"opaque"] boolValue];
    pane->contentArea = as<NSView>([named objectForKey:[definition objectForKey:@"contentArea"]]);
    pane->initialFocus = as<NSView>([named objectForKey:[definition objectForKey:@"initialFocus"]]);
    return named;
}

} // namespace

Interface AppKitInterfaceLoader::load(const std::string& name) {
    const Strong<NSString> folder = toNSString(environment_.resourcePath());
    NSDictionary* const definition = definitionAt(
        [NSString stringWithFormat:@"%@/Interface/%s.json", folder.get(), name.c_str()]);
    const auto pane = adopt<VexoraPane>([[VexoraPane alloc] initWithFrame:frameOf(definition)]);
    NSDictionary* const named = setUp(pane, definition, folder);

    Interface loaded{makeView(pane), {}, {}};
    for (NSDictionary* control : controlsOf(definition)) {
        NSString* const controlName = [control objectForKey:@"name"];
        const std::shared_ptr<View> view = makeView([named objectForKey:controlName]);
        loaded.view->addSubview(view);
        loaded.outlets.emplace(toUtf8(controlName), view);
        NSString* const action = [control objectForKey:@"action"];
        if (action != nil) {
            loaded.actions.emplace_back(toUtf8(action), view);
        }
    }
    return loaded;
}

std::shared_ptr<TextView> AppKitInterfaceLoader::makeTextView(Size size) {
    return std::make_shared<AppKitTextView>(size);
}

} // namespace Vexora
