#include "Platform/Qt/TextLabel.h"

#include "Platform/Qt/Conversions.h"
#include "Platform/Qt/Palette.h"
#include "Platform/Qt/Pane.h"
#include "Platform/Qt/PaperStyle.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QStyle>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace Vexora {
namespace {

/// Free space over and under the text, in pixels: marks may rise above and hang below what the
/// typeface says of itself.
constexpr int verticalPadding = 8;

/// A width that no line reaches, in pixels.
constexpr qreal unlimited = 1e6;

/// How wide a character is on its line.
qreal widthOf(const QTextLayout& layout, int place) {
    const QTextLine line = layout.lineForTextPosition(place);
    return qAbs(line.cursorToX(place, QTextLine::Trailing) - line.cursorToX(place));
}

bool isLetter(QChar character) {
    return !character.isSpace() && !character.isMark() && !character.isPunct();
}

/// Sets the text of a layout in lines of that width.
void setLines(QTextLayout& layout, qreal width, QTextOption::WrapMode mode) {
    QTextOption option = layout.textOption();
    option.setWrapMode(mode);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
    }
    layout.endLayout();
}

/// What stands between the places where the toolkit lets a line of the text end. Leaves each of its
/// paragraphs on one line.
std::vector<TextPiece> piecesOf(QTextLayout& layout) {
    std::vector<TextPiece> pieces;
    setLines(layout, 0.0, QTextOption::WordWrap);
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        const QString text = layout.text().mid(line.textStart(), line.textLength());
        const auto letters = std::ranges::count_if(text, isLetter);
        pieces.push_back({static_cast<std::size_t>(line.textStart() + line.textLength()),
                          line.naturalTextWidth(), 0.0, static_cast<std::size_t>(letters)});
    }
    setLines(layout, unlimited, QTextOption::WrapAtWordBoundaryOrAnywhere);
    for (TextPiece& piece : pieces) {
        int place = static_cast<int>(piece.end);
        while (place > 0 && layout.text().at(place - 1).isSpace()) {
            piece.blank += widthOf(layout, --place);
        }
    }
    return pieces;
}

std::vector<TextRange> markedIn(const QTextLayout& layout) {
    std::vector<TextRange> marked;
    const auto formats = layout.formats();
    for (const QTextLayout::FormatRange& format : formats) {
        const auto start = static_cast<std::size_t>(format.start);
        marked.push_back({start, start + static_cast<std::size_t>(format.length)});
    }
    return marked;
}

/// Ends a line at that place of the text, in place of a blank where one is there.
void endLine(QTextLayout& layout, qsizetype place) {
    QString text = layout.text();
    QList<QTextLayout::FormatRange> formats = layout.formats();
    if (text.at(place - 1).isSpace()) {
        text[place - 1] = QChar::LineSeparator;
    } else {
        text.insert(place, QChar::LineSeparator);
        for (QTextLayout::FormatRange& format : formats) {
            if (format.start >= place) {
                ++format.start;
            } else if (format.start + format.length > place) {
                ++format.length;
            }
        }
    }
    layout.setText(text);
    layout.setFormats(formats);
}

/// Sets a prepared text in lines of at most that width. Where they end is put into the layout's
/// text, so that the toolkit still breaks what is too wide.
void chooseLines(QTextLayout& layout, std::span<const TextPiece> pieces, qreal width) {
    const std::u16string text = layout.text().toStdU16String();
    for (const std::size_t end : lineEnds(text, pieces, markedIn(layout), width)) {
        if (pieces[end].end < text.size()) {
            endLine(layout, static_cast<qsizetype>(pieces[end].end));
        }
    }
    setLines(layout, width, QTextOption::WrapAtWordBoundaryOrAnywhere);
}

/// Has a text spoken that no focus tells of, because the window is not the active one or a control is
/// covered; where the toolkit can.
void announce([[maybe_unused]] QWidget& widget, [[maybe_unused]] const QString& text) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(&widget, text);
    event.setPoliteness(QAccessible::AnnouncementPoliteness::Assertive);
    QAccessible::updateAccessibility(&event);
#endif
}

} // namespace

TextLabel::TextLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

void TextLabel::setStyledText(const StyledText& text) {
    styledText_ = text;
    formats_ = toFormatRanges(text);
    measures_.reset();
    // QLabel keeps the text of a label that takes the focus in a document as well.
    const Qt::FocusPolicy policy = focusPolicy();
    setFocusPolicy(Qt::NoFocus);
    QLabel::setText(toQString(text.string()));
    setFocusPolicy(policy);
    if (QWidget* named = buddy()) {
        while (named->focusProxy() != nullptr) {
            named = named->focusProxy();
        }
        // What only holds it has no name of its own.
        setBuddy(named);
        named->setAccessibleName(QLabel::text());
    }
    updateGeometry();
    update();
    tellNews();
}

void TextLabel::tellNews() {
    auto* root =
        qobject_cast<Pane*>(parentWidget() == nullptr ? nullptr : parentWidget()->parentWidget());
    QWidget* described = namedBy("describes");
    QWidget* spoken = namedBy("dismissedBy") != nullptr ? this : described;
    if (root == nullptr || spoken == nullptr || isHidden()) {
        return;
    }
    QApplication::alert(window());
    QString news = QLabel::text();
    if (described != nullptr) {
        // Before the focus: a change of what has the focus is spoken as well.
        news = description();
        described->setAccessibleDescription(news);
        if (auto* button = qobject_cast<QPushButton*>(described)) {
            // What holds it down was pressed before there was anything to read.
            button->setDown(false);
        }
    }
    root->giveFocus(spoken);
    if (!spoken->hasFocus()) {
        announce(*spoken, news);
    }
}

QWidget* TextLabel::namedBy(const char* property) const {
    const QString name = this->property(property).toString();
    return name.isEmpty() ? nullptr : window()->findChild<QWidget*>(name);
}

QString TextLabel::description() const {
    QStringList texts;
    const auto labels = parentWidget()->findChildren<TextLabel*>(Qt::FindDirectChildrenOnly);
    for (const TextLabel* label : labels) {
        const std::string words = label->styledText_.wordsBesideLinks();
        if (!label->isHidden() && label->namedBy("describes") != nullptr && !words.empty()) {
            texts.append(toQString(words));
        }
    }
    return texts.join(": ");
}

Qt::Alignment TextLabel::lineAlignment() const {
    if (styledText_.alignment() == TextAlignment::Center) {
        return Qt::AlignHCenter;
    }
    return QStyle::visualAlignment(layoutDirection(), alignment()) & Qt::AlignHorizontal_Mask;
}

void TextLabel::setClickHandler(std::function<void()> handler) {
    clickHandler_ = std::move(handler);
    setFocusPolicy(isClickable() ? Qt::TabFocus : Qt::NoFocus);
    setMouseTracking(isClickable());
}

void TextLabel::click() {
    if (clickHandler_) {
        clickHandler_();
    }
}

void TextLabel::prepare() const {
    QString text = QLabel::text();
    text.replace('\n', QChar::LineSeparator);
    QTextOption option(lineAlignment());
    option.setTextDirection(layoutDirection());
    layout_.setText(text);
    layout_.setFont(font());
    layout_.setFormats(formats_);
    layout_.setTextOption(option);
    // What is painted has been set already.
    layout_.setCacheEnabled(true);
}

QSizeF TextLabel::stackLines() const {
    const QFontMetricsF own(font());
    QSizeF size(0.0, 0.0);
    for (int i = 0; i < layout_.lineCount(); ++i) {
        QTextLine line = layout_.lineAt(i);
        // No less than the text's own font needs, whatever fonts stand in for it.
        const qreal ascent = qMax(line.ascent(), own.ascent());
        const qreal descent = qMax(line.descent(), own.descent());
        line.setPosition({0.0, size.height() + ascent - line.ascent()});
        size.setHeight(size.height() + std::ceil(ascent + descent));
        size.setWidth(qMax(size.width(), line.naturalTextWidth()));
    }
    return size;
}

const TextLabel::Measures& TextLabel::measures() const {
    if (!measures_) {
        setWidth_.reset();
        prepare();
        std::vector<TextPiece> pieces = piecesOf(layout_);
        measures_ = {std::move(pieces), stackLines(), layout_.minimumWidth()};
    }
    return *measures_;
}

QSizeF TextLabel::layOut(qreal width) const {
    const Measures& measured = measures();
    if (width != setWidth_) {
        prepare();
        chooseLines(layout_, measured.pieces, width);
        setWidth_ = width;
        setSize_ = stackLines();
    }
    return setSize_;
}

QSize TextLabel::sizeHint() const {
    const QSizeF size = measures().size;
    return {static_cast<int>(std::ceil(size.width())) + 2 * padding,
            static_cast<int>(std::ceil(size.height())) + 2 * verticalPadding};
}

QSize TextLabel::minimumSizeHint() const {
    const int wordWidth = static_cast<int>(std::ceil(measures().widestWord));
    return {wordWidth + 2 * padding, fontMetrics().height() + 2 * verticalPadding};
}

int TextLabel::heightForWidth(int width) const {
    const QSizeF size = layOut(qMax(1, width - 2 * padding));
    return static_cast<int>(std::ceil(size.height())) + 2 * verticalPadding;
}

QPointF TextLabel::place() const {
    const QRect inside =
        contentsRect().adjusted(padding, verticalPadding, -padding, -verticalPadding);
    const QSizeF size = layOut(inside.width());
    qreal top = inside.top();
    const bool tooTall = size.height() > inside.height();
    if (alignment().testFlag(Qt::AlignVCenter) || tooTall) {
        top += (inside.height() - size.height()) / 2;
    } else if (alignment().testFlag(Qt::AlignBottom)) {
        top += inside.height() - size.height();
    }
    return {qreal(inside.left()), top};
}

void TextLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::LayoutDirectionChange) {
        measures_.reset();
    }
}

bool TextLabel::showsFocus() const {
    return hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

void TextLabel::underline(bool underlined) {
    for (QTextLayout::FormatRange& range : formats_) {
        if (range.format.hasProperty(QTextFormat::ForegroundBrush) &&
            range.format.fontUnderline() != underlined) {
            range.format.setFontUnderline(underlined);
            setWidth_.reset();
        }
    }
}

void TextLabel::paintEvent(QPaintEvent*) {
    const bool stands = hovered_ || showsFocus() || PaperStyle::hasContrast(palette());
    underline(isClickable() && stands);
    const QPointF origin = place();
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    layout_.draw(&painter, origin);
    if (showsFocus()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Palette::blue, 2.0));
        QRectF ring;
        for (int line = 0; line < layout_.lineCount(); ++line) {
            const QRectF text = layout_.lineAt(line).naturalTextRect().translated(origin);
            ring = ring.united(text);
        }
        painter.drawRoundedRect(ring.adjusted(-3.0, -2.0, 3.0, 2.0), 4.0, 4.0);
    }
}

void TextLabel::setHovered(bool hovered) {
    if (hovered != hovered_) {
        hovered_ = hovered;
        setCursor(hovered ? Qt::PointingHandCursor : Qt::ArrowCursor);
        update();
    }
}

void TextLabel::mouseMoveEvent(QMouseEvent* event) {
    const QPointF position = event->position() - place();
    bool hovered = false;
    for (int line = 0; line < layout_.lineCount(); ++line) {
        hovered = hovered || layout_.lineAt(line).naturalTextRect().contains(position);
    }
    setHovered(isClickable() && hovered);
}

void TextLabel::leaveEvent(QEvent*) {
    setHovered(false);
}

void TextLabel::mousePressEvent(QMouseEvent* event) {
    if (!isClickable() || event->button() != Qt::LeftButton) {
        QLabel::mousePressEvent(event);
    }
}

void TextLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        click();
    }
}

bool isPressing(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter ||
           event.key() == Qt::Key_Space;
}

void TextLabel::keyPressEvent(QKeyEvent* event) {
    auto* dismissing = qobject_cast<QPushButton*>(namedBy("dismissedBy"));
    if (!isPressing(*event) || (!isClickable() && dismissing == nullptr)) {
        QLabel::keyPressEvent(event);
    } else if (event->isAutoRepeat()) {
        // A key that is held down presses once, and what it pressed was another control.
        return;
    } else if (dismissing != nullptr) {
        dismissing->click();
    } else {
        click();
    }
}

} // namespace Vexora
