#include "CheckStringsFixture.h"

using LineRules = LineCaseTest;

TEST_P(LineRules, findsOneFaultOrPasses) {
    check();
}

namespace {

LineCase found(const char* name, const std::string& line, const std::string& rule) {
    return {name, "Start", line, rule};
}

LineCase passes(const char* name, const std::string& line) {
    return found(name, line, "");
}

} // namespace

INSTANTIATE_TEST_SUITE_P(
    TrailingText, LineRules,
    testing::Values(
        found("semicolon", R"("Start" = "Los";)", "trailing-text"),
        found("blank", "\"Start\" = \"Los\" ", "trailing-text"),
        found("comment", R"("Start" = "Los" // go)", "trailing-text"),
        found("commentWithQuotes", R"("Start" = "Los"; // "go")", "trailing-text"),
        found("blankAndSemicolon", R"("Start" = "Los" ;)", "trailing-text"),
        found("semicolonAfterQuotesInside", R"("Start" = "Das "Los" da";)", "trailing-text"),
        found("semicolonBehindALoneQuoteInside", R"("Start" = "5" breit";)", "trailing-text"),
        found("blankBehindALoneQuoteInside", "\"Start\" = \"5\" breit\" ", "trailing-text"),
        found("commentBehindALoneQuoteInside", R"("Start" = "5" breit" // go)", "trailing-text"),
        found("slashesAndQuotes", R"("Start" = "Los" // say "go")", "trailing-text"),
        found("slashAsteriskAndQuotes", R"("Start" = "Los" /* say "go")", "trailing-text"),
        found("hashAndQuotes", R"("Start" = "Los" # "y")", "trailing-text"),
        found("commentBehindAPair", R"("Start" = "Das "Los" da" // "go")", "trailing-text"),
        found("semicolonBehindAPairAndQuotes", R"("Start" = "Das "Los" da"; "go")",
              "trailing-text"),
        found("blankBeforeACarriageReturn", "\"Start\" = \"Los\" \r", "trailing-text"),
        passes("secondCarriageReturn", "\"Start\" = \"Los\"\r\r"),
        passes("quotedHash", R"("Start" = "Die Taste "#" da")"),
        passes("quotedSlashes", R"("Start" = "Mit "//" beginnen")"),
        passes("hashBehindAPair", R"("Start" = "Punkt "Los" # 5")"),
        passes("commentSignsInTheText", R"("Start" = "a // b # c /* d")"),
        passes("carriageReturnAtTheEnd", "\"Start\" = \"Los\"\r"),
        passes("semicolonInTheText", R"("Start" = "Los; weiter;")"),
        passes("quotesInTheText", R"("Start" = "Das "Los" da")"),
        passes("semicolonBehindQuotesInTheText", R"("Start" = "Das "Los"; da")"),
        passes("blanksInsideTheQuotes", R"("Start" = " Los ")")),
    LineRules::nameOf);

INSTANTIATE_TEST_SUITE_P(Spacing, LineRules,
                         testing::Values(found("none", R"("Start"="Los")", "spacing"),
                                         found("onlyBefore", R"("Start" ="Los")", "spacing"),
                                         found("onlyBehind", R"("Start"= "Los")", "spacing"),
                                         found("twoSpaces", R"("Start"  = "Los")", "spacing"),
                                         found("tab", "\"Start\"\t= \"Los\"", "spacing"),
                                         passes("otherEqualsSignsInTheText",
                                                R"("Start" = "a=b, "a"="b"!")"),
                                         passes("oneOnEachSide", R"("Start" = "Los")")),
                         LineRules::nameOf);

INSTANTIATE_TEST_SUITE_P(Indentation, LineRules,
                         testing::Values(found("spaces", R"(  "Start" = "Los")", "indentation"),
                                         found("tab", "\t\"Start\" = \"Los\"", "indentation"),
                                         found("word", R"(- "Start" = "Los")", "indentation"),
                                         found("closedComment", R"(/* go */ "Start" = "Los")",
                                               "indentation")),
                         LineRules::nameOf);

INSTANTIATE_TEST_SUITE_P(
    RepeatedSeparator, LineRules,
    testing::Values(found("twice", R"("Start" = "Los" = "Lauf")", "repeated-separator"),
                    found("atTheEnd", R"("Start" = "Los" = ")", "repeated-separator"),
                    found("percentSignBehindIt", R"("Start" = "Los" = "100%")",
                          "repeated-separator"),
                    found("threeTimes", R"("Start" = "a" = "b" = "c")", "repeated-separator"),
                    passes("withoutItsQuotes", R"("Start" = "Los = Lauf")"),
                    passes("withoutItsSpaces", R"("Start" = "Das "Los"="Lauf" da")")),
    LineRules::nameOf);

INSTANTIATE_TEST_SUITE_P(MissingQuote, LineRules,
                         testing::Values(found("closing", R"("Start" = "Los)", "missing-quote"),
                                         found("closingBehindAPair", R"("Start" = "Das "Los" da)",
                                               "missing-quote"),
                                         found("opening", R"(Start" = "Los")", "missing-quote"),
                                         passes("oneInsideTheText", R"("Start" = "5" breit")")),
                         LineRules::nameOf);
