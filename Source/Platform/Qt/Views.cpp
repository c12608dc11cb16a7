#include "Platform/Qt/Views.h"

#include "Platform/Qt/Conversions.h"
#include "Platform/Qt/Picture.h"
#include "Platform/Qt/TextLabel.h"

#include <QGraphicsOpacityEffect>
#include <QScrollBar>
#include <QStyle>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextOption>
#include <QVBoxLayout>
#include <QWindow>

namespace Vexora {
namespace {

/// The pane behind a view; null when the view shows something else.
Pane* paneOf(View& view) {
    const auto* owner = dynamic_cast<const WidgetOwner*>(&view);
    return owner == nullptr ? nullptr : qobject_cast<Pane*>(owner->widget());
}

/// How long a bar rests before a sheen passes over it, how long a step of that shows, in milliseconds,
/// and at which step it is over. A step wakes the processor three times, as the display is waited for:
/// with the rest, nine times a second.
constexpr int restBeforeSheen = 3000;
constexpr int stepOfSheen = 100;
constexpr int stepsOfSheen = 12;

/// Lets the way to the end of a text lead there while lines that are out of sight are not set yet,
/// which is done when there is time.
void findEnd(QScrollBar& bar, const QTextDocument& document) {
    QObject::connect(&bar, &QScrollBar::actionTriggered, &bar, [&](int action) {
        if (action == QScrollBar::SliderToMaximum) {
            // Asking for the size sets them all; the bar would hear of it too late.
            const int end = qRound(document.size().height()) - bar.pageStep();
            bar.setMaximum(qMax(bar.maximum(), end));
            bar.setSliderPosition(bar.maximum());
        }
    });
}

} // namespace

Qt::LayoutDirection prevailingDirection(const QString& text) {
    qsizetype balance = 0;
    for (const QChar character : text) {
        const QChar::Direction direction = character.direction();
        balance += direction == QChar::DirR || direction == QChar::DirAL ? 1 : 0;
        balance -= direction == QChar::DirL ? 1 : 0;
    }
    return balance > 0 ? Qt::RightToLeft : Qt::LeftToRight;
}

WidgetOwner::~WidgetOwner() {
    if (widget_ != nullptr && widget_->parentWidget() == nullptr) {
        delete widget_;
    }
}

void WidgetOwner::addChild(View& child, Ordering ordering) {
    auto* pane = qobject_cast<Pane*>(widget_);
    Pane* added = paneOf(child);
    if (pane != nullptr && added != nullptr && added->parentWidget() != pane) {
        pane->addPane(added, ordering);
    }
}

void WidgetOwner::removeChild(View& child) {
    auto* pane = qobject_cast<Pane*>(widget_);
    Pane* removed = paneOf(child);
    if (pane != nullptr && removed != nullptr) {
        pane->removePane(removed);
    }
}

void WidgetOwner::show(const View& view) {
    const bool visible = !view.isHidden() && !view.isCovered() && view.alphaValue() > 0.0;
    const bool translucent = visible && view.alphaValue() < 1.0;
    if (translucent) {
        auto* effect = new QGraphicsOpacityEffect;
        effect->setOpacity(view.alphaValue());
        widget_->setGraphicsEffect(effect);
    } else if (widget_->graphicsEffect() != nullptr) {
        widget_->setGraphicsEffect(nullptr);
    }
    widget_->setVisible(visible);
}

void WidgetOwner::fixHeight(double height) {
    // Points grow with the desktop's letters; a text that needs still more is not cut off.
    widget_->setMinimumHeight(qRound(height * widget_->logicalDpiY() / 96.0));
}

QtView::QtView(Pane* pane) : Shown(pane) {
    setOpaque(pane->isOpaque());
}

QtTextField::QtTextField(TextLabel* label) : Shown(label) {}

TextLabel* QtTextField::label() const {
    return static_cast<TextLabel*>(widget());
}

void QtTextField::applyText() {
    label()->setStyledText(attributedStringValue());
}

void QtTextField::applyClickable() {
    label()->setClickHandler([this] { click(); });
}

QtButton::QtButton(QPushButton* button) : Shown(button) {
    // A click leaves the focus where it is, as on a label.
    button->setFocusPolicy(Qt::TabFocus);
    QObject::connect(button, &QPushButton::clicked, button, [this] { click(); });
    if (button->property("help").toBool()) {
        button->setAccessibleName(QStringLiteral(VEXORA_TROUBLESHOOTING_URL));
        button->setToolTip(button->accessibleName());
    }
}

void QtButton::applyTitle() {
    // A plain ampersand must not turn the letter behind it into a shortcut, and the definition's
    // shortcut must outlive the new text.
    const QKeySequence shortcut = button()->shortcut();
    button()->setText(toQString(title()).replace('&', QStringLiteral("&&")));
    button()->setShortcut(shortcut);
    button()->setAccessibleName(toQString(title()));
}

QtImageView::QtImageView(Picture* picture) : Shown(picture) {}

QtProgressIndicator::QtProgressIndicator(QProgressBar* bar)
    : Shown(bar), minimum_(bar->minimum()), maximum_(bar->maximum()) {
    setRange(minimum_, maximum_);
    QObject::connect(&clock_, &QTimer::timeout, bar, [this] { shine(); });
}

void QtProgressIndicator::applyThreadedAnimation() {
    awaitRest();
}

void QtProgressIndicator::awaitRest() {
    step_ = 0;
    if (bar()->property("sheen").isValid()) {
        bar()->setProperty("sheen", QVariant());
        bar()->update();
    }
    const bool goesOn = usesThreadedAnimation() && bar()->value() < bar()->maximum();
    goesOn ? clock_.start(restBeforeSheen) : clock_.stop();
}

void QtProgressIndicator::shine() {
    const QWindow* window = bar()->window()->windowHandle();
    const bool seen = bar()->isVisible() && window != nullptr && window->isExposed();
    const bool moves = bar()->style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
    if (!seen || !moves || ++step_ == stepsOfSheen) {
        awaitRest();
        return;
    }
    bar()->setProperty("sheen", step_ / double(stepsOfSheen));
    bar()->update();
    clock_.start(stepOfSheen);
}

void QtProgressIndicator::applyIndeterminate() {
    bar()->setRange(isIndeterminate() ? 0 : minimum_, isIndeterminate() ? 0 : maximum_);
    applyValue();
}

void QtProgressIndicator::applyValue() {
    const int value = qRound(doubleValue());
    if (value != bar()->value()) {
        bar()->setValue(value);
        awaitRest();
    }
}

QtTextView::QtTextView(Size size) : Shown(new QTextEdit) {
    edit()->resize(qRound(size.width), qRound(size.height));
    edit()->setFrameShape(QFrame::NoFrame);
    edit()->setContextMenuPolicy(Qt::NoContextMenu);
    edit()->setTabChangesFocus(true);
    edit()->document()->setDocumentMargin(14.0);
    edit()->setUndoRedoEnabled(false);
    edit()->viewport()->setAutoFillBackground(false);
    findEnd(*edit()->verticalScrollBar(), *edit()->document());
}

void QtTextView::applyRichText() {
    edit()->setAcceptRichText(isRichText());
}

void QtTextView::applyString() {
    if (edit()->parentWidget() != nullptr) {
        showString();
    }
}

void QtTextView::showString() {
    const QString text = toQString(string());
    QTextDocument& document = *edit()->document();
    document.clear();
    // Paragraphs would follow their first letter, which may be that of a name in another script.
    QTextOption option = document.defaultTextOption();
    option.setTextDirection(prevailingDirection(text));
    document.setDefaultTextOption(option);
    // The scroll bar is where the lines end.
    edit()->setLayoutDirection(prevailingDirection(text));
    QTextBlockFormat format;
    format.setLineHeight(QFontMetricsF(edit()->font()).height(), QTextBlockFormat::MinimumHeight);
    QTextCursor cursor(&document);
    cursor.setBlockFormat(format);
    // Each paragraph takes the format of the one before: a long text is gone through once.
    cursor.insertText(text);
    edit()->moveCursor(QTextCursor::Start);
}

void QtTextView::applyEditable() {
    edit()->setReadOnly(!isEditable());
}

void QtTextView::applyContainerSize() {
    // Lines wrap at the visible width, which follows the window from then on.
    edit()->setLineWrapMode(QTextEdit::WidgetWidth);
    edit()->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

QtScrollView::QtScrollView(QFrame* frame) : Shown(frame) {
    auto* layout = new QVBoxLayout(frame);
    layout->setContentsMargins({});
}

Size QtScrollView::contentSize() const {
    const QRect contents = widget()->contentsRect();
    return {static_cast<double>(contents.width()), static_cast<double>(contents.height())};
}

void QtScrollView::applyDocumentView() {
    while (QLayoutItem* shown = widget()->layout()->takeAt(0)) {
        shown->widget()->setParent(nullptr);
        delete shown;
    }
    if (const auto text = std::dynamic_pointer_cast<QtTextView>(documentView())) {
        widget()->layout()->addWidget(text->edit());
        text->showString();
        widget()->setFocusProxy(text->edit());
        text->edit()->setAccessibleName(widget()->accessibleName());
        widget()->setAccessibleName({});
        text->edit()->setProperty("initialFocus", widget()->property("initialFocus"));
        widget()->setProperty("initialFocus", QVariant());
    }
}

std::shared_ptr<View> makeView(QWidget* widget) {
    if (auto* pane = qobject_cast<Pane*>(widget)) {
        return std::make_shared<QtView>(pane);
    }
    if (auto* label = qobject_cast<TextLabel*>(widget)) {
        return std::make_shared<QtTextField>(label);
    }
    if (auto* button = qobject_cast<QPushButton*>(widget)) {
        return std::make_shared<QtButton>(button);
    }
    if (auto* picture = qobject_cast<Picture*>(widget)) {
        return std::make_shared<QtImageView>(picture);
    }
    if (auto* bar = qobject_cast<QProgressBar*>(widget)) {
        return std::make_shared<QtProgressIndicator>(bar);
    }
    if (auto* frame = qobject_cast<QFrame*>(widget)) {
        return std::make_shared<QtScrollView>(frame);
    }
    return nullptr;
}

} // namespace Vexora
