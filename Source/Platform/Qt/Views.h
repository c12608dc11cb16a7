// The views of the seam over widgets: each mirrors the state that its base keeps.
// Main thread only.
#pragma once

#include "Platform/Controls.h"
#include "Platform/Qt/Pane.h"
#include "Platform/Shown.h"

#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTextEdit>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace Vexora {

class Picture;
class TextLabel;

/// The direction of most letters of a text; from left to right without such.
Qt::LayoutDirection prevailingDirection(const QString& text);

/// What every view has beside its base. The widget belongs to its parent widget, and to the view
/// without one.
class WidgetOwner {
public:
    explicit WidgetOwner(QWidget* widget) : widget_(widget) {}
    WidgetOwner(const WidgetOwner&) = delete;
    WidgetOwner& operator=(const WidgetOwner&) = delete;
    virtual ~WidgetOwner();

    QWidget* widget() const { return widget_; }

protected:
    void addChild(View& child, Ordering ordering);
    void removeChild(View& child);
    void show(const View& view);
    void fixHeight(double height);

private:
    QPointer<QWidget> widget_;
};

class QtView : public Shown<View, WidgetOwner> {
public:
    explicit QtView(Pane* pane);
};

class QtTextField : public Shown<TextField, WidgetOwner> {
public:
    explicit QtTextField(TextLabel* label);

protected:
    void applyText() override;
    void applyClickable() override;

private:
    TextLabel* label() const;
};

class QtButton : public Shown<Button, WidgetOwner> {
public:
    explicit QtButton(QPushButton* button);

protected:
    void applyTitle() override;

private:
    QPushButton* button() const { return static_cast<QPushButton*>(widget()); }
};

class QtImageView : public Shown<ImageView, WidgetOwner> {
public:
    explicit QtImageView(Picture* picture);
};

class QtProgressIndicator : public Shown<ProgressIndicator, WidgetOwner> {
public:
    explicit QtProgressIndicator(QProgressBar* bar);

protected:
    void applyIndeterminate() override;
    void applyThreadedAnimation() override;
    void applyValue() override;

private:
    /// Ends the sheen until the bar has rested for a while below its end.
    void awaitRest();

    /// Moves the sheen on, as far as the bar shows and the desktop lets it.
    void shine();

    QProgressBar* bar() const { return static_cast<QProgressBar*>(widget()); }

    int minimum_;
    int maximum_;
    QTimer clock_;
    int step_ = 0;
};

class QtTextView : public Shown<TextView, WidgetOwner> {
public:
    explicit QtTextView(Size size);

    QTextEdit* edit() const { return static_cast<QTextEdit*>(widget()); }

    /// Puts the text into the area, each line with no less room than the area's own font needs,
    /// whatever fonts stand in for it. Once the area is in its place and has its font.
    void showString();

protected:
    void applyRichText() override;
    void applyString() override;
    void applyEditable() override;
    void applyContainerSize() override;
};

/// The frame is the place; the text area that it shows brings its own scroll bar.
class QtScrollView : public Shown<ScrollView, WidgetOwner> {
public:
    explicit QtScrollView(QFrame* frame);

    Size contentSize() const override;

protected:
    void applyDocumentView() override;
};

/// The view for a widget of an interface definition; null for one that is no outlet.
std::shared_ptr<View> makeView(QWidget* widget);

} // namespace Vexora
