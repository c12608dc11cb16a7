// What the installer's first screen costs on this toolkit when nothing but its picture, texts and buttons is there.
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLabel* makeText(const QString& text, qreal size) {
    auto* label = new QLabel(text);
    QFont font = label->font();
    font.setPointSizeF(size);
    label->setFont(font);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    return label;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window;
    window.resize(640, 580);
    window.setWindowTitle(QStringLiteral("Ondrel Vexora Lumiq Setup"));
    auto* logo = new QLabel;
    logo->setPixmap(QPixmap(QStringLiteral(LOGO)));
    auto* button = new QPushButton(QStringLiteral("Start"));
    QFont font = button->font();
    font.setPointSizeF(12.0);
    font.setBold(true);
    button->setFont(font);
    button->setDefault(true);
    auto* column = new QVBoxLayout(&window);
    column->addWidget(logo, 1, Qt::AlignCenter);
    column->addWidget(
        makeText(QStringLiteral("To install Ondrel Vexora Lumiq, click Start."), 18.0));
    column->addWidget(button, 0, Qt::AlignHCenter);
    column->addStretch(1);
    column->addWidget(makeText(
        QStringLiteral("By installing, you agree to the Ondrel Vexora license agreement."), 12.0));
    window.show();
    return QApplication::exec();
}
