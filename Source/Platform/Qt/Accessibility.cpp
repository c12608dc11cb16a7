#include "Platform/Qt/Accessibility.h"

#include "Platform/Qt/Application.h"
#include "Platform/Qt/TextLabel.h"

#include <QAccessibleWidget>
#include <QPushButton>

namespace Vexora {
namespace {

using Relations = QList<std::pair<QAccessibleInterface*, QAccessible::Relation>>;

/// A label, or a button that opens an address.
class LinkAccessible : public QAccessibleWidget {
public:
    explicit LinkAccessible(QWidget* widget) : QAccessibleWidget(widget, QAccessible::Link) {}

    QAccessible::Role role() const override {
        return isLink() ? QAccessible::Link : QAccessible::StaticText;
    }

    QString text(QAccessible::Text kind) const override {
        return label() != nullptr && kind == QAccessible::Name ? label()->text()
                                                               : QAccessibleWidget::text(kind);
    }

    Relations relations(QAccessible::Relation wanted) const override {
        Relations found = QAccessibleWidget::relations(wanted);
        if (label() != nullptr && label()->buddy() != nullptr &&
            wanted.testFlag(QAccessible::Labelled)) {
            // A text that names what has the focus is not read for itself as well.
            found.append(
                {QAccessible::queryAccessibleInterface(label()->buddy()), QAccessible::Labelled});
        }
        return found;
    }

    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (isLink()) {
            names.prepend(pressAction());
        }
        return names;
    }

    void doAction(const QString& name) override {
        if (name != pressAction()) {
            QAccessibleWidget::doAction(name);
        } else if (label() != nullptr) {
            label()->click();
        } else {
            static_cast<QPushButton*>(widget())->animateClick();
        }
    }

private:
    TextLabel* label() const { return qobject_cast<TextLabel*>(widget()); }
    bool isLink() const { return label() == nullptr || label()->isClickable(); }
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    if (auto* window = qobject_cast<QtWindow*>(object)) {
        return new QAccessibleWidget(window, QAccessible::Dialog);
    }
    auto* widget = qobject_cast<QWidget*>(object);
    const bool helps =
        qobject_cast<QPushButton*>(widget) != nullptr && widget->property("help").toBool();
    return helps || qobject_cast<TextLabel*>(widget) != nullptr ? new LinkAccessible(widget)
                                                                : nullptr;
}

} // namespace

void installAccessibility() {
    QAccessible::installFactory(makeAccessible);
}

} // namespace Vexora
