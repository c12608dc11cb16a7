#include "Platform/Qt/Pane.h"

#include <QEvent>
#include <QLayout>
#include <QTimer>

#include <algorithm>

namespace Vexora {

Pane::Pane(QWidget* parent) : QWidget(parent) {}

void Pane::addPane(Pane* pane, Ordering ordering) {
    const bool below = ordering == Ordering::Below;
    const bool covered = below && !panes_.isEmpty() && panes_.last()->isOpaque();
    if (pane->isOpaque()) {
        focusBeforeCover_ = window()->focusWidget();
    }
    pane->setParent(this);
    if (below) {
        panes_.prepend(pane);
        pane->lower();
    } else {
        panes_.append(pane);
        pane->raise();
    }
    arrange();
    if (!covered) {
        pane->show();
        if (QWidget* focus = pane->initialFocus()) {
            focus->setFocus(Qt::OtherFocusReason);
        }
    }
}

void Pane::giveFocus(QWidget* control) {
    // What waits to be restored is older.
    focusBeforeCover_ = control;
    if (control->isVisible()) {
        control->setFocus(Qt::OtherFocusReason);
    }
}

void Pane::removePane(Pane* pane) {
    const bool hasCovered = pane->isOpaque() && panes_.last() == pane;
    panes_.removeAll(pane);
    pane->hide();
    pane->setParent(nullptr);
    arrange();
    if (hasCovered) {
        // What was covered is shown again only after this call.
        QTimer::singleShot(0, this, &Pane::restoreFocus);
    }
}

void Pane::restoreFocus() {
    if (focusBeforeCover_ != nullptr && focusBeforeCover_->isVisible()) {
        focusBeforeCover_->setFocus(Qt::OtherFocusReason);
        return;
    }
    for (auto pane = panes_.crbegin(); pane != panes_.crend(); ++pane) {
        QWidget* focus = (*pane)->isVisible() ? (*pane)->initialFocus() : nullptr;
        if (focus != nullptr) {
            focus->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
}

QWidget* Pane::initialFocus() const {
    const auto widgets = findChildren<QWidget*>();
    const auto found = std::ranges::find_if(
        widgets, [](const QWidget* widget) { return widget->property("initialFocus").toBool(); });
    return found == widgets.end() ? nullptr : *found;
}

Pane* Pane::contentArea() const {
    const QString name = property("contentArea").toString();
    return name.isEmpty() ? nullptr : findChild<Pane*>(name, Qt::FindDirectChildrenOnly);
}

int Pane::heightForWidth(int width) const {
    return layout() == nullptr ? -1 : layout()->totalMinimumHeightForWidth(width);
}

QSize Pane::needed() const {
    const QSize least = minimumSizeHint();
    return least.expandedTo({0, heightForWidth(qMax(least.width(), width()))});
}

QSize Pane::minimumSizeHint() const {
    QSize needed = QWidget::minimumSizeHint().expandedTo(reserved_);
    for (const auto& pane : panes_) {
        // One that is covered needs nothing until it shows again.
        const bool shown = pane == panes_.last();
        if (contentArea() == nullptr || (pane->isOpaque() && shown)) {
            needed = needed.expandedTo(pane->needed());
        }
    }
    return needed;
}

void Pane::arrange() {
    Pane* area = contentArea();
    QSize reserved;
    for (const auto& pane : panes_) {
        const bool everything = area == nullptr || pane->isOpaque();
        pane->setGeometry(everything ? rect() : area->geometry());
        if (!everything) {
            reserved = reserved.expandedTo(pane->needed());
        }
    }
    if (area != nullptr && area->reserved_ != reserved) {
        area->reserved_ = reserved;
        area->updateGeometry();
    }
    updateGeometry();
    updateMask();
}

QRegion Pane::shownRegion() const {
    QRegion region;
    for (const QObject* object : children()) {
        const auto* child = qobject_cast<const QWidget*>(object);
        if (child == nullptr || child->isHidden()) {
            continue;
        }
        const auto* pane = qobject_cast<const Pane*>(child);
        if (pane != nullptr && !pane->isOpaque()) {
            region += pane->shownRegion().translated(pane->pos());
        } else {
            region += child->geometry();
        }
    }
    return region;
}

void Pane::updateMask() {
    if (isOpaque() || parentWidget() == nullptr) {
        return;
    }
    const QRegion region = shownRegion();
    // An empty mask would mean no mask at all.
    setMask(region.isEmpty() ? QRegion(-1, -1, 1, 1) : region);
}

bool Pane::event(QEvent* event) {
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::LayoutDirectionChange) {
        arrange();
        if (isVisible()) {
            orderFocusByReading(*window());
        }
    }
    return handled;
}

void Pane::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

void orderFocusByReading(QWidget& window) {
    struct Place {
        QRect rect;
        int column;
        QWidget* widget;
        int row = 0;
    };
    QList<Place> places;
    const auto widgets = window.findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        if (widget->isVisible() && (widget->focusPolicy() & Qt::TabFocus) != 0) {
            const QRect rect(widget->mapTo(&window, QPoint(0, 0)), widget->size());
            const bool mirrored = window.layoutDirection() == Qt::RightToLeft;
            places.append({rect, mirrored ? -rect.center().x() : rect.center().x(), widget});
        }
    }
    std::ranges::sort(places, [](const Place& upper, const Place& lower) {
        return upper.rect.center().y() < lower.rect.center().y();
    });
    for (qsizetype index = 1; index < places.size(); ++index) {
        const Place& above = places[index - 1];
        const bool startsRow = places[index].rect.top() > above.rect.center().y();
        places[index].row = above.row + (startsRow ? 1 : 0);
    }
    std::ranges::sort(places, [](const Place& left, const Place& right) {
        return left.row != right.row ? left.row < right.row : left.column < right.column;
    });
    for (qsizetype index = 1; index < places.size(); ++index) {
        QWidget::setTabOrder(places[index - 1].widget, places[index].widget);
    }
}

} // namespace Vexora
