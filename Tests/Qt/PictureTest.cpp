#include "Platform/Qt/Picture.h"

#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace QtTest {

TEST(Picture, isReadFromAFolderWhoseNameIsNoUtf8) {
    const TestSupport::TemporaryFolder folder;
    const std::string icon = "vexora-one-click-installer-64.png";
    std::filesystem::create_directory(folder.path() / "\xff");
    std::filesystem::copy(std::filesystem::path(STAGED_RESOURCES) / icon,
                          folder.path() / "\xff" / icon);
    EXPECT_EQ(Vexora::readPicture(folder.path() / "\xff" / icon).size(), QSize(64, 64));
}

TEST(Picture, isNullWithoutAFileThatHoldsOne) {
    const TestSupport::TemporaryFolder folder;
    EXPECT_TRUE(Vexora::readPicture(folder.path() / "missing.png").isNull());
    EXPECT_TRUE(Vexora::readPicture(folder.path()).isNull());
    EXPECT_TRUE(
        Vexora::readPicture(folder.write("broken.png", "\x89PNG\r\n\x1a\nno picture")).isNull());
}

} // namespace QtTest
