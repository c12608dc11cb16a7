#include "Qt/QtFixture.h"

#include "Platform/Qt/Picture.h"
#include "Platform/Qt/Views.h"
#include "Support/Translations.h"

#include <QApplication>
#include <QTest>

#include <kvparser.h>

namespace QtTest {

std::function<void()> HeldMainQueue::held(std::function<void()> block) {
    const auto kept = std::make_shared<std::function<void()>>(std::move(block));
    blocks_.push_back(kept);
    return [weak = std::weak_ptr(kept)] {
        if (const auto alive = weak.lock()) {
            (*alive)();
        }
    };
}

QtFixture::QtFixture() {
    QApplication::setLayoutDirection(Qt::LeftToRight);
    TestSupport::forgetTranslations();
    environment.home = home.path().string();
    environment.resources = STAGED_RESOURCES;
    administratorScript.succeeds = false;
}

QtFixture::~QtFixture() {
    window().hide();
    TestSupport::forgetTranslations();
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

void QtFixture::useLanguage(const std::string& code) {
    environment.locale = code + "_XX";
}

void QtFixture::openWindow() {
    content = std::make_shared<Vexora::ViewController>(platform);
    window().setContent(dynamic_cast<Vexora::WidgetOwner&>(*content->view()).widget());
    window().show();
    delegate.applicationDidFinishLaunching();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    settle();
}

void QtFixture::enter(State state) {
    openWindow();
    if (state == State::LicenseOnStart) {
        click("licenseLabel");
    }
    if (state == State::Start || state == State::LicenseOnStart) {
        return;
    }
    click("startButton");
    if (state == State::LicenseOnInstall || state == State::LicenseOnFailure) {
        click("licenseLabel");
    }
    if (state == State::Success) {
        endInstall(0);
    } else if (state == State::Failure || state == State::LicenseOnFailure) {
        endInstall(30);
    } else if (state == State::Notice) {
        endInstall(5);
    }
}

void QtFixture::settle() {
    // Layouts settle in posted events, which may post further ones.
    for (int pass = 0; pass < 10; ++pass) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void QtFixture::endInstall(int status) {
    processes.scripts = {{.polls = 0, .status = status}};
    backgroundQueue.runNext();
    if (status == 0) {
        const QString done = translation("Installation completed!");
        ASSERT_TRUE(QTest::qWaitFor([&] { return label("installLabel").text() == done; }, 30000));
    }
    settle();
}

QString QtFixture::translation(const std::string& identifier) const {
    const std::string language = environment.locale.substr(0, 2);
    VXLOCAL::KVParser catalogue("Localizable.strings");
    catalogue.setLocaleDir(environment.resources + "/" + language + ".lproj");
    catalogue.parse();
    return QString::fromStdString(catalogue.getMessage(identifier));
}

MarkedText QtFixture::markedTranslation(const std::string& identifier,
                                        const std::string& tag) const {
    const QString text = translation(identifier);
    const QString opening = QString::fromStdString(tag);
    const QString closing = QString(opening).insert(1, '/');
    const qsizetype start = text.indexOf(opening);
    const qsizetype end = text.indexOf(closing);
    EXPECT_TRUE(start >= 0 && end > start) << text.toStdString();
    return {text.left(start), text.mid(start + opening.size(), end - start - opening.size()),
            text.mid(end + closing.size())};
}

Vexora::TextLabel& QtFixture::label(const QString& name) {
    auto* found = find<Vexora::TextLabel>(name);
    if (found == nullptr) {
        throw std::out_of_range("no label " + name.toStdString());
    }
    return *found;
}

QList<QWidget*> QtFixture::visibleControls() {
    QList<QWidget*> controls;
    const auto widgets = window().findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        const bool isControl = qobject_cast<Vexora::TextLabel*>(widget) != nullptr ||
                               qobject_cast<QPushButton*>(widget) != nullptr ||
                               qobject_cast<Vexora::Picture*>(widget) != nullptr ||
                               qobject_cast<QProgressBar*>(widget) != nullptr ||
                               qobject_cast<QTextEdit*>(widget) != nullptr;
        if (isControl && widget->isVisible()) {
            controls.append(widget);
        }
    }
    return controls;
}

QList<QWidget*> QtFixture::usableControls() {
    QList<QWidget*> usable = visibleControls();
    usable.removeIf([](const QWidget* widget) {
        const auto* text = qobject_cast<const Vexora::TextLabel*>(widget);
        return text != nullptr ? !text->isClickable()
                               : qobject_cast<const Vexora::Picture*>(widget) != nullptr ||
                                     qobject_cast<const QProgressBar*>(widget) != nullptr;
    });
    return usable;
}

QRect QtFixture::placeOf(const QWidget* widget) {
    return {widget->mapTo(&window(), QPoint(0, 0)), widget->size()};
}

void QtFixture::click(const QString& name) {
    const QWidget* widget = find(name);
    ASSERT_NE(widget, nullptr) << name.toStdString();
    clickAt(placeOf(widget).center());
}

void QtFixture::clickAt(QPoint point) {
    QTest::mouseClick(window().windowHandle(), Qt::LeftButton, Qt::NoModifier, point);
    settle();
}

void QtFixture::press(int key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(window().windowHandle(), static_cast<Qt::Key>(key), modifiers);
    settle();
}

void QtFixture::leaveLicense() {
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitForLicenseToGo());
}

bool QtFixture::waitForLicenseToGo() {
    const bool gone = QTest::qWaitFor([this] { return find("backButton") == nullptr; }, 10000);
    settle();
    return gone;
}

QString QtFixture::nameOf(const QWidget* control) {
    if (control == nullptr) {
        return {};
    }
    const bool isText = qobject_cast<const QTextEdit*>(control) != nullptr;
    return isText ? control->parentWidget()->objectName() : control->objectName();
}

std::string stateName(State state) {
    switch (state) {
    case State::Start:
        return "start";
    case State::Install:
        return "install";
    case State::Success:
        return "success";
    case State::Failure:
        return "failure";
    case State::Notice:
        return "notice";
    case State::LicenseOnStart:
        return "licenseOnStart";
    case State::LicenseOnInstall:
        return "licenseOnInstall";
    case State::LicenseOnFailure:
        return "licenseOnFailure";
    }
    return {};
}

void PrintTo(State state, std::ostream* stream) {
    *stream << stateName(state);
}

QStringList usableIn(State state) {
    switch (state) {
    case State::Start:
        return {"startButton", "licenseLabel"};
    case State::Install:
    case State::Success:
        return {"closeButton", "licenseLabel"};
    case State::Failure:
    case State::Notice:
    case State::LicenseOnFailure:
        return {"logLabel", "troubleshootButton", "closeButton"};
    case State::LicenseOnStart:
    case State::LicenseOnInstall:
        return {"licenseText", "backButton"};
    }
    return {};
}

std::string
stateAndLanguageName(const testing::TestParamInfo<std::tuple<State, std::string>>& info) {
    return stateName(std::get<0>(info.param)) + "_" + std::get<1>(info.param);
}

} // namespace QtTest
