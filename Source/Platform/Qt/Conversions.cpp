#include "Platform/Qt/Conversions.h"

#include <QApplication>
#include <QDir>
#include <QFontDatabase>

namespace Vexora {

QString toQString(const std::string& text) {
    return QString::fromStdString(text);
}

QColor toQColor(const Color& color) {
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

QFont toQFont(const Font& font) {
    const QString name = toQString(font.name);
    const QString family = name.section('-', 0, 0);
    QFont result = QApplication::font();
    // Asking for the styles looks one family up; hasFamily would list them all.
    if (!QFontDatabase::styles(name).isEmpty()) {
        result.setFamilies(QStringList(name) + result.families());
    } else if (!QFontDatabase::styles(family).isEmpty()) {
        result.setFamilies(QStringList(family) + result.families());
    }
    if (name.endsWith(QLatin1String("-SemiBold"))) {
        result.setWeight(QFont::DemiBold);
    }
    result.setPointSizeF(font.size);
    return result;
}

QList<QTextLayout::FormatRange> toFormatRanges(const StyledText& text) {
    QList<QTextLayout::FormatRange> ranges;
    int start = 0;
    for (const TextRun& run : text.runs()) {
        const int length = static_cast<int>(toQString(run.text).size());
        QTextCharFormat format;
        if (run.font) {
            format.setFont(toQFont(*run.font));
        }
        if (run.color) {
            format.setForeground(toQColor(*run.color));
        }
        if (run.font || run.color) {
            ranges.append({start, length, format});
        }
        start += length;
    }
    return ranges;
}

void loadFonts(const QString& folder) {
    const QStringList files = QDir(folder).entryList({"*.ttf", "*.otf"}, QDir::Files);
    for (const QString& file : files) {
        QFontDatabase::addApplicationFont(folder + '/' + file);
    }
}

} // namespace Vexora
