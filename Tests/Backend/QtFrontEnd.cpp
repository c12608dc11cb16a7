#include "Backend/QtFrontEnd.h"

#include "Platform/Qt/TextLabel.h"

#include <QApplication>
#include <QGraphicsOpacityEffect>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTextDocument>
#include <QWindow>

#include <map>

namespace BackendTest {
namespace {

Vexora::Color colorOf(const QColor& color) {
    const auto part = [](float component) { return static_cast<double>(component); };
    return {part(color.redF()), part(color.greenF()), part(color.blueF()), part(color.alphaF())};
}

Alignment alignmentOf(const Vexora::TextLabel& label) {
    const Qt::Alignment alignment = label.lineAlignment();
    return alignment.testFlag(Qt::AlignHCenter) ? Alignment::Centre
           : alignment.testFlag(Qt::AlignRight) ? Alignment::Right
                                                : Alignment::Left;
}

Qt::Key keyOf(Key key) {
    static const std::map<Key, Qt::Key> keys{{Key::Return, Qt::Key_Return},
                                             {Key::Enter, Qt::Key_Enter},
                                             {Key::Space, Qt::Key_Space},
                                             {Key::Escape, Qt::Key_Escape},
                                             {Key::Tab, Qt::Key_Tab},
                                             {Key::Backtab, Qt::Key_Backtab},
                                             {Key::PageDown, Qt::Key_PageDown},
                                             {Key::Down, Qt::Key_Down},
                                             {Key::Up, Qt::Key_Up},
                                             {Key::Home, Qt::Key_Home},
                                             {Key::End, Qt::Key_End},
                                             {Key::Letter, Qt::Key_X},
                                             {Key::Backspace, Qt::Key_Backspace}};
    return keys.at(key);
}

} // namespace

FrontEnd::FrontEnd(Application& application) : application_(application) {
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

FrontEnd::~FrontEnd() {
    window().hide();
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

bool FrontEnd::waitFor(const std::function<bool()>& predicate) {
    return QTest::qWaitFor(predicate, 30000);
}

void FrontEnd::settle() {
    // Layouts settle in posted events, which may post further ones.
    for (int pass = 0; pass < 10; ++pass) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

double FrontEnd::opacity(const QWidget* widget) {
    const auto* effect = qobject_cast<QGraphicsOpacityEffect*>(widget->graphicsEffect());
    return effect == nullptr ? 1.0 : effect->opacity();
}

bool FrontEnd::isUsable(const QWidget* widget) {
    const auto* label = qobject_cast<const Vexora::TextLabel*>(widget);
    return label != nullptr ? label->isClickable()
                            : qobject_cast<const QPushButton*>(widget) != nullptr ||
                                  widget->findChild<QTextEdit*>() != nullptr;
}

std::vector<QWidget*> FrontEnd::children(const QWidget* widget) {
    const auto found = widget->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    return {found.begin(), found.end()};
}

std::string FrontEnd::text(QWidget* widget) {
    if (const auto* label = qobject_cast<Vexora::TextLabel*>(widget)) {
        return label->text().toStdString();
    }
    if (const auto* button = qobject_cast<QPushButton*>(widget)) {
        return button->text().replace("&&", "&").toStdString();
    }
    const auto* edit = widget->findChild<QTextEdit*>();
    return edit == nullptr ? std::string() : edit->toPlainText().toStdString();
}

Pieces FrontEnd::runs(QWidget* widget) {
    const auto& label = dynamic_cast<Vexora::TextLabel&>(*widget);
    Pieces runs;
    const auto add = [&](qsizetype start, qsizetype end, const QTextCharFormat& format) {
        if (start < end) {
            const QFont font = format.font().resolve(label.font());
            const QColor color = format.hasProperty(QTextFormat::ForegroundBrush)
                                     ? format.foreground().color()
                                     : label.palette().color(QPalette::WindowText);
            runs.push_back({label.text().mid(start, end - start).toStdString(), font.pointSizeF(),
                            font.weight() >= QFont::DemiBold, colorOf(color), alignmentOf(label)});
        }
    };
    qsizetype end = 0;
    for (const QTextLayout::FormatRange& range : label.formats()) {
        add(end, range.start, {});
        end = range.start + range.length;
        add(range.start, end, range.format);
    }
    add(end, label.text().size(), {});
    return runs;
}

double FrontEnd::filled(const QWidget* widget) {
    const auto& bar = dynamic_cast<const QProgressBar&>(*widget);
    const double range = bar.maximum() - bar.minimum();
    return range == 0.0 ? -1.0 : (bar.value() - bar.minimum()) / range;
}

Place FrontEnd::lines(const QWidget* area) {
    const QSizeF size = area->findChild<QTextEdit*>()->document()->size();
    return {0.0, 0.0, size.width(), size.height()};
}

Place FrontEnd::visiblePart(const QWidget* area) {
    const QSizeF size = area->findChild<QTextEdit*>()->viewport()->size();
    return {0.0, 0.0, size.width(), size.height()};
}

bool FrontEnd::isWhole(const QWidget* widget) {
    if (widget->visibleRegion().boundingRect() != widget->rect()) {
        return false;
    }
    if (const auto* label = qobject_cast<const Vexora::TextLabel*>(widget)) {
        return label->width() >= label->minimumSizeHint().width() &&
               label->height() >= label->heightForWidth(label->width());
    }
    const auto* button = qobject_cast<const QPushButton*>(widget);
    const QFontMetrics metrics = widget->fontMetrics();
    return button == nullptr ||
           (button->width() >= metrics.horizontalAdvance(button->text()) + 16 &&
            button->height() >= metrics.height() + 8);
}

double FrontEnd::scrolled(const QWidget* area) {
    return area->findChild<QTextEdit*>()->verticalScrollBar()->value();
}

Picture FrontEnd::picture(QWidget* widget) {
    const QImage image = widget->grab().toImage().scaled(widget->size());
    Picture picture{image.width(), image.height(), {}};
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            picture.pixels.push_back(colorOf(image.pixelColor(x, y)));
        }
    }
    return picture;
}

Place FrontEnd::place(const QWidget* widget) const {
    const QPoint corner = widget->mapTo(&window(), QPoint(0, 0));
    return {double(corner.x()), double(corner.y()), double(widget->width()),
            double(widget->height())};
}

Point FrontEnd::middle() const {
    const QRectF frame = window().frameGeometry();
    return {frame.center().x(), frame.center().y()};
}

Point FrontEnd::middleOfDisplay() const {
    const QRectF available = window().screen()->availableGeometry();
    return {available.center().x(), available.center().y()};
}

void FrontEnd::resize(double width, double height) {
    window().resize(qRound(width), qRound(height));
    settle();
}

QWidget* FrontEnd::at(Point point) const {
    return window().childAt(qRound(point.x), qRound(point.y));
}

void FrontEnd::click(Point from, Point to) {
    QWindow* const handle = window().windowHandle();
    const auto pixel = [](Point point) { return QPointF(point.x, point.y).toPoint(); };
    QTest::mousePress(handle, Qt::LeftButton, Qt::NoModifier, pixel(from));
    QTest::mouseRelease(handle, Qt::LeftButton, Qt::NoModifier, pixel(to));
    settle();
}

void FrontEnd::pressCloseButton() {
    window().windowHandle()->close();
    settle();
}

void FrontEnd::press(Key key, bool held) {
    const auto modifiers = key == Key::Enter     ? Qt::KeypadModifier
                           : key == Key::Backtab ? Qt::ShiftModifier
                                                 : Qt::NoModifier;
    if (held) {
        QKeyEvent repeated(QEvent::KeyPress, keyOf(key), modifiers, QString(), true);
        QCoreApplication::sendEvent(window().windowHandle(), &repeated);
    } else {
        QTest::keyClick(window().windowHandle(), keyOf(key), modifiers);
    }
    settle();
}

} // namespace BackendTest
