// The controls that the screens use, each with the few verbs they need. As with View, the bases
// keep the state, take every call when a definition lacks the outlet, and tell the backend through
// apply functions.
#pragma once

#include "Platform/StyledText.h"
#include "Platform/View.h"

#include <atomic>
#include <string>

namespace Vexora {

/// A label of one or more lines.
class TextField : public View {
public:
    /// Shows a text without attributes; UTF-8.
    void setStringValue(const std::string& text) { setAttributedStringValue(StyledText(text)); }

    /// Shows a styled text in place of the one before.
    void setAttributedStringValue(const StyledText& text) {
        text_ = text;
        applyText();
    }

    const StyledText& attributedStringValue() const { return text_; }
    std::string stringValue() const { return text_.string(); }

protected:
    virtual void applyText() {}

private:
    StyledText text_;
};

/// A push button.
class Button : public View {
public:
    void setTitle(const std::string& title) {
        title_ = title;
        applyTitle();
    }

    const std::string& title() const { return title_; }

protected:
    virtual void applyTitle() {}

private:
    std::string title_;
};

/// A picture, named by the interface definition.
class ImageView : public View {};

/// A progress bar. Its range belongs to the interface definition; without one it is 0 to 100.
class ProgressIndicator : public View {
public:
    void setIndeterminate(bool indeterminate) {
        indeterminate_ = indeterminate;
        applyIndeterminate();
    }
    bool isIndeterminate() const { return indeterminate_; }

    void setUsesThreadedAnimation(bool threaded) {
        threadedAnimation_ = threaded;
        applyThreadedAnimation();
    }
    bool usesThreadedAnimation() const { return threadedAnimation_; }

    /// Adds to the value, which never passes the maximum.
    void incrementBy(double amount) {
        const double raised = value_.load() + amount;
        value_.store(raised > maximum_ ? maximum_ : raised);
        applyValue();
    }

    /// The current value. Any thread.
    double doubleValue() const { return value_.load(); }

    double maxValue() const { return maximum_; }

protected:
    /// For the backend, before the first tick.
    void setRange(double minimum, double maximum) {
        value_.store(minimum);
        maximum_ = maximum;
    }

    virtual void applyIndeterminate() {}
    virtual void applyThreadedAnimation() {}
    virtual void applyValue() {}

private:
    std::atomic<double> value_{0.0};
    double maximum_ = 100.0;
    bool indeterminate_ = true;
    bool threadedAnimation_ = false;
};

/// A width and a height in points.
struct Size {
    double width = 0.0;
    double height = 0.0;

    bool operator==(const Size&) const = default;
};

/// A text area of many lines, made in code and shown inside a scroll view.
class TextView : public View {
public:
    void setRichText(bool rich) {
        richText_ = rich;
        applyRichText();
    }
    bool isRichText() const { return richText_; }

    /// Shows a text as it is, without markup; UTF-8.
    void setString(const std::string& text) {
        text_ = text;
        applyString();
    }
    const std::string& string() const { return text_; }

    void setEditable(bool editable) {
        editable_ = editable;
        applyEditable();
    }
    bool isEditable() const { return editable_; }

    /// The area that the lines are set in: they wrap at its width.
    void setContainerSize(Size size) {
        containerSize_ = size;
        applyContainerSize();
    }
    Size containerSize() const { return containerSize_; }

protected:
    virtual void applyRichText() {}
    virtual void applyString() {}
    virtual void applyEditable() {}
    virtual void applyContainerSize() {}

private:
    std::string text_;
    bool richText_ = false;
    bool editable_ = true;
    Size containerSize_;
};

/// An area that shows a part of a larger view and scrolls it.
class ScrollView : public View {
public:
    /// The size of the visible part.
    virtual Size contentSize() const { return {}; }

    /// Shows a view made in code; replaces an earlier one.
    void setDocumentView(std::shared_ptr<TextView> view) {
        documentView_ = std::move(view);
        applyDocumentView();
    }
    const std::shared_ptr<TextView>& documentView() const { return documentView_; }

protected:
    virtual void applyDocumentView() {}

private:
    std::shared_ptr<TextView> documentView_;
};

} // namespace Vexora
