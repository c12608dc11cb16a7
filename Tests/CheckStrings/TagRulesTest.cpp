#include "TextCases.h"

using TagRulesTest = LineCaseTest;

TEST_P(TagRulesTest, findsOneFaultOrPasses) {
    check();
}

INSTANTIATE_TEST_SUITE_P(
    Tags, TagRulesTest,
    testing::Values(
        found("closingMissing", "<b>Go</b>", "<b>Los", "unbalanced-tags"),
        found("openingMissing", "<b>Go</b>", "Los</b>", "unbalanced-tags"),
        found("closingFirst", "<b>Go</b>", "</b>Los<b>", "unbalanced-tags"),
        found("closingTwice", "<b>Go</b>", "<b>Los</b></b>", "unbalanced-tags"),
        found("brokenClosing", "<b>Go</b>", "<b>Los</b", "unbalanced-tags"),
        found("endedByAnotherTag", "<a>Go</a>, <b>now</b>", "<a>Los</b>", "unbalanced-tags"),
        found("oneInsideTheOther", "<b>Go</b>", "<b>L<b>o</b>s</b>", "nested-tags"),
        found("otherName", "<b>Go</b>", "<b>Lo</b><i>", "foreign-tags"),
        found("capitals", "<b>Go</b>", "<b>Lo</b></B>", "foreign-tags"),
        found("attributes", "<b>Go</b>", "<b>Lo</b><b id=1>", "foreign-tags"),
        found("noneInTheKey", "Start", "Lo<br>s", "foreign-tags"),
        found("none", "<b>Go</b>", "Los", "missing-tags"),
        passes("moved", "Now <b>go</b>!", "<b>Los</b> jetzt!"),
        passes("otherTag", "<a>Go</a>", "<a>Los</a>"),
        found("repeatedOneAfterTheOther", "<b>Go</b>", "<b>Lo</b> <b>los</b>", "repeated-tags"),
        found("oneOfTwoPairs", "<a>Go</a> <b>now</b>", "<a>Los</a> jetzt", "missing-tags"),
        found("oneOfTwoEqualPairs", "<b>Go</b> <b>now</b>", "<b>Los</b> jetzt", "missing-tags"),
        found("nothingBetween", "<b>Go</b>", "Los<b></b>", "empty-tags"),
        found("onlyBlanksBetween", "<b>Go</b>", "Los<b> \u200B</b>", "empty-tags"),
        found("lookAlikeWithBlanks", "<b>Go</b>", "<b>Lo</b>< b >", "foreign-tags"),
        found("lookAlikeOfAClosingOne", "<b>Go</b>", "<b>Lo</b>< / b>", "foreign-tags"),
        found("lookAlikeBehindASlash", "<b>Go</b>", "<b>Lo</b></ b>", "foreign-tags"),
        passes("bothOfTwoPairsMoved", "<a>Go</a> <b>now</b>", "<b>Jetzt</b> <a>los</a>"),
        passes("bothOfTwoEqualPairs", "<b>Go</b> <b>now</b>", "<b>Los</b>, <b>los</b>"),
        passes("comparisonBesideTags", "<b>Go</b>", "<b>Los</b>: 1 < a + b > 2, < 3 >"),
        passes("plainAngleBrackets", "Start", "1 < 2 > 1, <>, </>, < b>, <3>, <-- a"),
        passes("letterBehindAPlainAngleBracket", "<b>Go</b>", "a<b <b>Los</b>"),
        passes("plainAngleBracketBeforeATag", "<b>Go</b>", "1 <<b>Los</b>> 2")),
    TagRulesTest::nameOf);
