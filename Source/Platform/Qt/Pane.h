// A plain area that holds controls from its definition and, over or under them, panes added by
// code. Where it shows nothing it is not there for the mouse either, so that what lies below takes
// the click.
#pragma once

#include "Platform/View.h"

#include <QList>
#include <QPointer>
#include <QWidget>

namespace Vexora {

class Pane : public QWidget {
    Q_OBJECT

public:
    explicit Pane(QWidget* parent = nullptr);

    /// Whether the pane hides everything below it while it is the topmost.
    bool isOpaque() const { return autoFillBackground(); }

    /// Takes a pane in, under or over everything else. An opaque one takes the whole area, any
    /// other the area of the control that the definition's property `contentArea` names, or the
    /// whole area without one.
    void addPane(Pane* pane, Ordering ordering);

    /// Gives a pane back; it then belongs to the caller.
    void removePane(Pane* pane);

    /// Gives the keys to a control of any screen, or, while it is covered, once it shows again.
    void giveFocus(QWidget* control);

    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

    /// The least size for all that shows, at the width that the pane has.
    QSize needed() const;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    Pane* contentArea() const;
    void arrange();
    void updateMask();
    QRegion shownRegion() const;
    void restoreFocus();
    QWidget* initialFocus() const;

    /// From the lowest to the topmost.
    QList<QPointer<Pane>> panes_;
    /// What panes over this one need, when this one is their content area.
    QSize reserved_;
    QPointer<QWidget> focusBeforeCover_;
};

/// Orders the Tab key's way through a window by reading: rows from top to bottom, in each along the
/// text's direction.
void orderFocusByReading(QWidget& window);

} // namespace Vexora
