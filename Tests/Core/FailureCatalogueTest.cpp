#include "Core/FailureCatalogue.h"

#include "Color.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

using Vexora::composeFailureText;
using Vexora::FailureMessage;
using Vexora::failureMessageForStatus;
using Vexora::Font;
using Vexora::Presentation;
using Vexora::StyledText;
using Vexora::TextAlignment;
using Vexora::TextRun;

namespace {

const TextRun link{"Open logs", Font{"QuillaSans-SemiBold", 15.0},
                   Vexora::Color{0.24, 0.44, 0.70, 1.0}};

StyledText styledLink() {
    StyledText text;
    text.append(link);
    return text;
}

/// The composed text of a status, untranslated.
StyledText composed(std::int32_t status) {
    const char* identifier = failureMessageForStatus(status).identifier;
    return composeFailureText(identifier == nullptr ? "" : identifier, styledLink());
}

TEST(FailureCatalogue, listedStatusesHaveTheirMessages) {
    const std::vector<std::pair<std::int32_t, std::string>> failures{
        {1, "A system-wide installation already exists. Removing or upgrading requires "
            "administrator-level access."},
        {10, "A newer version of Ondrel Vexora Lumiq is installed on your system. Installation "
             "terminated."},
        {20, "Pre-installation steps failed."},
        {30, "Failed to extract Ondrel Vexora Lumiq."},
        {40, "Failed to copy Ondrel Vexora Lumiq Web plugin."},
        {50, "Post-installation steps failed."}};
    for (const auto& [status, message] : failures) {
        EXPECT_EQ(composed(status).string(), message + " Open logs");
        EXPECT_EQ(failureMessageForStatus(status).presentation, Presentation::Failure) << status;
    }
}

TEST(FailureCatalogue, documentExplainsEveryRow) {
    std::vector<std::string> expected;
    for (const FailureMessage& row : Vexora::failureMessages) {
        expected.push_back("## " + std::to_string(row.status) + ": " + row.identifier);
    }
    expected.emplace_back("## 127 and any other status");
    std::vector<std::string> headings;
    std::ifstream document(FAILURES_DOCUMENT);
    for (std::string line; std::getline(document, line);) {
        if (line.starts_with("## ")) {
            headings.push_back(line);
        }
    }
    EXPECT_EQ(headings, expected);
}

TEST(FailureCatalogue, everyRowIsFoundByItsStatus) {
    for (const FailureMessage& row : Vexora::failureMessages) {
        EXPECT_EQ(failureMessageForStatus(row.status).status, row.status);
        EXPECT_EQ(failureMessageForStatus(row.status).identifier, row.identifier);
    }
}

TEST(FailureCatalogue, statusFortyIsComposedOfTheMessageABlankAndTheLinkCentred) {
    const StyledText text = composed(40);
    EXPECT_EQ(text.runs(),
              (std::vector<TextRun>{{"Failed to copy Ondrel Vexora Lumiq Web plugin.", {}, {}},
                                    {" ", {}, {}},
                                    link}));
    EXPECT_EQ(text.alignment(), TextAlignment::Center);
}

TEST(FailureCatalogue, statusFiveIsANotice) {
    EXPECT_EQ(failureMessageForStatus(5).presentation, Presentation::Notice);
    EXPECT_EQ(composed(5).string(), "Ondrel Vexora Lumiq is already up to date. Open logs");
}

TEST(FailureCatalogue, unlistedStatusHasNoMessageAndIsAFailure) {
    for (const std::int32_t status : {7,
                                      11,
                                      0,
                                      -1,
                                      2,
                                      3,
                                      4,
                                      6,
                                      15,
                                      19,
                                      21,
                                      25,
                                      51,
                                      126,
                                      127,
                                      128,
                                      255,
                                      256,
                                      257,
                                      261,
                                      std::numeric_limits<std::int32_t>::min(),
                                      std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_EQ(failureMessageForStatus(status).identifier, nullptr) << status;
        EXPECT_EQ(failureMessageForStatus(status).presentation, Presentation::Failure) << status;
        EXPECT_EQ(composed(status).runs(), (std::vector<TextRun>{{" ", {}, {}}, link})) << status;
        EXPECT_EQ(composed(status).alignment(), TextAlignment::Center) << status;
    }
}

TEST(FailureCatalogue, secondCompositionKeepsNothingOfTheFirst) {
    static_cast<void>(composed(20));
    EXPECT_EQ(composed(30).string(), "Failed to extract Ondrel Vexora Lumiq. Open logs");
}

TEST(FailureCatalogue, compositionLeavesTheLinkAsItIs) {
    const StyledText given = styledLink();
    static_cast<void>(composeFailureText("message", given));
    EXPECT_EQ(given.runs(), std::vector<TextRun>{link});
    EXPECT_EQ(given.alignment(), TextAlignment::Natural);
}

TEST(FailureCatalogue, percentSignsAndTagsOfAMessageStayCharacters) {
    EXPECT_EQ(composeFailureText("100% <b>done</b>", styledLink()).runs().front(),
              (TextRun{"100% <b>done</b>", {}, {}}));
}

} // namespace
