// The widget behind a text field: styled runs that wrap and grow, and that can be clicked like a
// link. Only the words look like one then, and the coloured are underlined under the pointer and
// while they have the keyboard. To assistive tools it is a text, or a link with a press action once
// it is clickable.
#pragma once

#include "Platform/LineBreaking.h"
#include "Platform/StyledText.h"

#include <QLabel>
#include <QTextLayout>

#include <functional>
#include <optional>
#include <vector>

namespace Vexora {

class TextLabel : public QLabel {
    Q_OBJECT

public:
    /// Free space beside the text, in pixels; a focus ring is drawn in it.
    static constexpr int padding = 4;

    explicit TextLabel(QWidget* parent = nullptr);

    /// Shows a text. It also becomes the accessible name of the label's buddy. Texts that are set in
    /// the window are news: by the definition's property `dismissedBy` the label takes the focus, and
    /// Return and Space press the button so named; by `describes` the button so named takes the focus,
    /// described by the words, without a link, of all labels beside this one that do so and show.
    void setStyledText(const StyledText& text);

    /// The formats in force, with positions in text().
    const QList<QTextLayout::FormatRange>& formats() const { return formats_; }

    /// How the lines are aligned, from the text or, when it leaves that open, from the definition.
    Qt::Alignment lineAlignment() const;

    /// Sets what a click, Return or Space does, and lets the Tab key give the label the focus, which a
    /// click leaves where it is.
    void setClickHandler(std::function<void()> handler);
    bool isClickable() const { return clickHandler_ != nullptr; }
    void click();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// What a text needs whatever the width of its lines: the pieces that one may end between, its size
    /// without such ends, and the width of its widest word.
    struct Measures {
        std::vector<TextPiece> pieces;
        QSizeF size;
        qreal widestWord;
    };

    /// The control that a property of the definition names; null for none, or while it is elsewhere.
    QWidget* namedBy(const char* property) const;

    void tellNews();
    QString description() const;

    /// Hands the text, its formats and its options to the layout.
    void prepare() const;

    /// Puts the lines below one another; the result is the size that they take.
    QSizeF stackLines() const;

    const Measures& measures() const;

    /// Sets the text in lines of that width; the result is the size that they take.
    QSizeF layOut(qreal width) const;

    /// Sets the text in the lines that are painted; the result is their corner.
    QPointF place() const;

    bool showsFocus() const;
    void setHovered(bool hovered);
    void underline(bool underlined);

    StyledText styledText_;
    QList<QTextLayout::FormatRange> formats_;
    std::function<void()> clickHandler_;
    bool hovered_ = false;
    /// The text as it was last set, for to set it costs more than all else here: its measures until it
    /// changes, and the lines of one width.
    mutable std::optional<Measures> measures_;
    mutable QTextLayout layout_;
    mutable std::optional<qreal> setWidth_;
    mutable QSizeF setSize_;
};

/// Whether the key is one that presses what has the focus: Return, Enter or the space bar.
bool isPressing(const QKeyEvent& event);

} // namespace Vexora
