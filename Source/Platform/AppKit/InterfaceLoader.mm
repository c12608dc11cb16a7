#include "Platform/AppKit/InterfaceLoader.h"

#include "Platform/AppKit/Accessibility.h"
#include "Platform/AppKit/Conversions.h"
#include "Platform/AppKit/Pane.h"
#include "Platform/AppKit/Picture.h"
#include "Platform/AppKit/ProgressBar.h"
#include "Platform/AppKit/PushButton.h"
#include "Platform/AppKit/TextLabel.h"
#include "Platform/AppKit/Views.h"

#include <map>

namespace Vexora {
namespace {

/// The definition at that path; null when there is none that can be read.
NSDictionary* definitionAt(const std::string& path) {
    NSData* const data = dataOfFile(path);
    return as<NSDictionary>(
        data == nil ? nil : [NSJSONSerialization JSONObjectWithData:data options:0 error:nullptr]);
}

/// Not every system answers a message to nothing with the number 0.
double numberOf(id object) {
    NSNumber* const given = as<NSNumber>(object);
    return given == nil ? 0.0 : [given doubleValue];
}

/// What a definition says under a key; null, 0 or nothing where it says nothing of that kind.
NSString* text(NSDictionary* control, NSString* key) {
    return as<NSString>([control objectForKey:key]);
}
NSArray* list(NSDictionary* control, NSString* key) {
    return as<NSArray>([control objectForKey:key]);
}
double number(NSDictionary* control, NSString* key) {
    return numberOf([control objectForKey:key]);
}

NSRect frameOf(NSDictionary* control) {
    NSArray* const numbers = list(control, @"frame");
    if ([numbers count] != 4) {
        return NSZeroRect;
    }
    return NSMakeRect(numberOf([numbers objectAtIndex:0]), numberOf([numbers objectAtIndex:1]),
                      numberOf([numbers objectAtIndex:2]), numberOf([numbers objectAtIndex:3]));
}

/// What changes when the pane grows: an edge that the definition names keeps its distance, and
/// between two opposite ones the control grows along.
NSUInteger resizingOf(NSDictionary* control) {
    NSArray* const edges = list(control, @"edges");
    const bool leading = [edges containsObject:@"leading"];
    const bool trailing = [edges containsObject:@"trailing"];
    const bool top = [edges containsObject:@"top"];
    const bool bottom = [edges containsObject:@"bottom"];
    NSUInteger mask = 0;
    mask |= leading ? 0U : NSUInteger(NSViewMinXMargin);
    mask |= trailing ? 0U : NSUInteger(NSViewMaxXMargin);
    mask |= leading && trailing ? NSUInteger(NSViewWidthSizable) : 0U;
    mask |= top ? 0U : Vexora::marginOver;
    mask |= bottom ? 0U : Vexora::marginUnder;
    mask |= top && bottom ? NSUInteger(NSViewHeightSizable) : 0U;
    return mask;
}

NSFont* fontOf(NSDictionary* control) {
    const double size = number(control, @"fontSize");
    return number(control, @"bold") != 0 ? [NSFont boldSystemFontOfSize:size]
                                         : [NSFont systemFontOfSize:size];
}

Strong<NSView> makeLabel(NSDictionary* control, const std::string& /*folder*/) {
    const auto made =
        adopt<VexoraTextLabel>([[VexoraTextLabel alloc] initWithFrame:frameOf(control)]);
    VexoraTextLabel* const label = made.get();
    label->plainFont = fontOf(control);
    [label setFont:label->plainFont];
    label->centered = number(control, @"centered") != 0;
    label->centersVertically = number(control, @"centersVertically") != 0;
    return label;
}

Strong<NSView> makeButton(NSDictionary* control, const std::string& /*folder*/) {
    const auto made = adopt<VexoraButton>([[VexoraButton alloc] initWithFrame:frameOf(control)]);
    VexoraButton* const button = made.get();
    if (number(control, @"help") != 0) {
        NSString* const address = @VEXORA_TROUBLESHOOTING_URL;
        [button setBezelStyle:NSBezelStyleHelpButton];
        [button setToolTip:address];
        setAccessibleName(button, address);
        setAccessibleRole(button, NSAccessibilityLinkRole);
    }
    button->cancels = number(control, @"cancels") != 0;
    return button;
}

Strong<NSView> makePicture(NSDictionary* control, const std::string& folder) {
    const auto made = adopt<VexoraPicture>([[VexoraPicture alloc] initWithFrame:frameOf(control)]);
    VexoraPicture* const picture = made.get();
    picture->imageName = text(control, @"imageName");
    [picture loadFrom:folder];
    return picture;
}

template <class Kind>
Strong<NSView> makePlain(NSDictionary* control, const std::string& /*folder*/) {
    return adopt<Kind>([[Kind alloc] initWithFrame:frameOf(control)]).get();
}

Strong<NSView> makeScrollView(NSDictionary* control, const std::string& /*folder*/) {
    const auto made = adopt<NSScrollView>([[NSScrollView alloc] initWithFrame:frameOf(control)]);
    NSScrollView* const area = made.get();
    [area setHasVerticalScroller:YES];
    [area setBorderType:NSLineBorder];
    return area;
}

/// The control that a definition describes; null for a class that no definition may name.
Strong<NSView> makeControl(NSDictionary* control, const std::string& folder) {
    static const std::map<std::string, Strong<NSView> (*)(NSDictionary*, const std::string&)>
        makers{{"NSTextField", makeLabel},       {"NSButton", makeButton},
               {"NSImageView", makePicture},     {"NSProgressIndicator", makePlain<VexoraBar>},
               {"NSScrollView", makeScrollView}, {"NSView", makePlain<VexoraPane>}};
    const auto maker = makers.find(toUtf8(text(control, @"class")));
    return maker == makers.end() ? Strong<NSView>() : maker->second(control, folder);
}

/// The controls of a definition that have a name.
std::vector<NSDictionary*> controlsOf(NSDictionary* definition) {
    NSArray* const listed = list(definition, @"controls");
    std::vector<NSDictionary*> controls;
    for (NSUInteger index = 0; index < [listed count]; ++index) {
        NSDictionary* const control = as<NSDictionary>([listed objectAtIndex:index]);
        if (text(control, @"name") != nil) {
            controls.push_back(control);
        }
    }
    return controls;
}

/// Fills a pane with the controls of its definition. Returns them by their names.
NSDictionary* setUp(VexoraPane* pane, NSDictionary* definition, const std::string& folder) {
    NSMutableDictionary* const named = [NSMutableDictionary dictionary];
    const std::vector<NSDictionary*> controls = controlsOf(definition);
    for (NSDictionary* control : controls) {
        const Strong<NSView> view = makeControl(control, folder);
        if (view.get() == nil) {
            continue;
        }
        [view.get() setAutoresizingMask:resizingOf(control)];
        [pane addSubview:view];
        if (number(control, @"default") != 0) {
            pane->defaultButton = as<NSButton>(view.get());
        }
        [named setObject:view.get() forKey:text(control, @"name")];
    }
    for (NSDictionary* control : controls) {
        VexoraTextLabel* const label =
            as<VexoraTextLabel>([named objectForKey:text(control, @"name")]);
        if (label != nil) {
            NSString* const buddy = text(control, @"buddy");
            label->buddy = buddy == nil ? nil : as<NSView>([named objectForKey:buddy]);
            label->describes = text(control, @"describes");
            label->dismissedBy = text(control, @"dismissedBy");
        }
    }
    pane->opaquePane = number(definition, @"opaque") != 0;
    pane->contentArea = as<NSView>([named objectForKey:text(definition, @"contentArea")]);
    pane->initialFocus = as<NSView>([named objectForKey:text(definition, @"initialFocus")]);
    pane->controls = named;
    return named;
}

} // namespace

Interface AppKitInterfaceLoader::load(const std::string& name) {
    const std::string folder = environment_.resourcePath();
    NSDictionary* const definition = definitionAt(folder + "/Interface/" + name + ".json");
    const auto pane = adopt<VexoraPane>([[VexoraPane alloc] initWithFrame:frameOf(definition)]);
    NSDictionary* const named = setUp(pane, definition, folder);

    Interface loaded{makeView(pane), {}, {}};
    for (NSDictionary* control : controlsOf(definition)) {
        NSString* const controlName = text(control, @"name");
        const std::shared_ptr<View> view = makeView([named objectForKey:controlName]);
        if (!view) {
            continue;
        }
        loaded.view->addSubview(view);
        loaded.outlets.emplace(toUtf8(controlName), view);
        NSString* const action = text(control, @"action");
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
