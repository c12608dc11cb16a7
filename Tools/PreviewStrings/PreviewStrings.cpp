// preview_strings FILE [LANGUAGE] shows every screen in the texts of a strings file, and again
// whenever the file is saved. The language is that of the file's folder, xx.lproj, or the one
// given.
#include "Platform/Backend.h"
#include "PreviewWindow.h"
#include "Toolkit.h"

#include <QApplication>
#include <QFileInfo>

#include <cstdio>

int main(int argc, char** argv) {
    const QString file =
        argc > 1 ? QFileInfo(QString::fromLocal8Bit(argv[1])).absoluteFilePath() : "";
    const std::string code = argc > 2 ? argv[2] : PreviewStrings::languageOfFile(file);
    if (argc < 2 || argc > 3 || code.size() != 2) {
        std::fputs(
            "Usage: preview-strings FILE [LANGUAGE]\n"
            "LANGUAGE, two letters, is needed where FILE is not in a folder named xx.lproj.\n",
            stderr);
        return 2;
    }
    Gallery::prepareToolkit(code);
    const Vexora::Backend backend(argc, argv);
    Gallery::useTypefaceOfPictures();
    PreviewStrings::PreviewWindow window(file, code);
    window.show();
    return QApplication::exec();
}
