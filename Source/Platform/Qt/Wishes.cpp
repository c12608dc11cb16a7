#include "Platform/Qt/Wishes.h"

#include "Platform/Qt/Bus.h"

#include <QDBusMetaType>
#include <QDBusReply>
#include <QVariantMap>

#include <cstdlib>

namespace Vexora {
namespace {

/// Groups of settings by their names, as the portal hands them out.
using Settings = QMap<QString, QVariantMap>;

constexpr auto appearance = "org.freedesktop.appearance";
constexpr auto gnome = "org.gnome.desktop.interface";
constexpr auto gnomeAccess = "org.gnome.desktop.a11y.interface";
constexpr auto kde = "org.kde.kdeglobals.KDE";

Wishes join(Wishes known, const Settings& settings) {
    known.motion = known.motion && settings[appearance]["reduced-motion"].toInt() != 1 &&
                   settings[gnome].value("enable-animations", true).toBool() &&
                   settings[kde].value("AnimationDurationFactor", 1.0).toDouble() != 0.0;
    known.contrast = known.contrast || settings[appearance]["contrast"].toInt() == 1 ||
                     settings[gnomeAccess]["high-contrast"].toBool() ||
                     settings[gnome]["gtk-theme"].toString().startsWith("HighContrast");
    return known;
}

} // namespace

Wishes wishesIn(const QPalette& colors) {
    Wishes wishes;
    const int text = colors.color(QPalette::WindowText).lightness();
    wishes.contrast = std::abs(text - colors.color(QPalette::Window).lightness()) >= 250;
    return wishes;
}

void askForWishes(const QDBusConnection& bus, const Wishes& known,
                  std::function<void(const Wishes&)> answer) {
    qDBusRegisterMetaType<Settings>();
    const QStringList groups{appearance, gnome, gnomeAccess, kde};
    ask(bus, callOf(portal, portalPath, "org.freedesktop.portal.Settings", "ReadAll", {groups}),
        [known, answer = std::move(answer)](const QDBusMessage& message) {
            const QDBusReply<Settings> reply = message;
            if (reply.isValid()) {
                answer(join(known, reply.value()));
            }
        });
}

} // namespace Vexora
