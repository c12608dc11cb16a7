#include "CheckStringsFixture.h"

#include <sys/wait.h>

#include <cstdlib>
#include <sstream>

namespace {

std::string quoted(const std::string& word) {
    std::string text = "'";
    for (const char character : word) {
        text += character == '\'' ? "'\\''" : std::string(1, character);
    }
    return text + "'";
}

} // namespace

int CheckStringsFixture::statusOf(const std::vector<std::string>& arguments,
                                  const std::string& output) const {
    std::string command =
        "cd " + quoted(folder_.path().string()) + " && exec " + quoted(CHECK_STRINGS);
    for (const std::string& argument : arguments) {
        command += " " + quoted(argument);
    }
    command += " >" + quoted(output) + " 2>" + quoted((streams_.path() / "errors").string());
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

CheckStringsFixture::Result
CheckStringsFixture::run(const std::vector<std::string>& arguments) const {
    const int status = statusOf(arguments, (streams_.path() / "output").string());
    return {status, streams_.read("output"), streams_.read("errors")};
}

CheckStringsFixture::Lines
CheckStringsFixture::findings(const std::vector<std::string>& arguments) const {
    const Result result = run(arguments);
    Lines lines;
    std::istringstream stream(result.output);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    EXPECT_EQ(result.status, lines.empty() ? 0 : 1);
    EXPECT_EQ(result.errors, "");
    return lines;
}

CheckStringsFixture::Lines
CheckStringsFixture::findingsIn(std::string_view bytes,
                                const std::vector<std::string>& keys) const {
    folder_.write("reference.strings", stringsOf(keys));
    folder_.write("text.strings", bytes);
    const std::string start = "text.strings:";
    Lines shortened;
    for (const std::string& line : findings({"--reference", "reference.strings", "text.strings"})) {
        EXPECT_TRUE(line.starts_with(start)) << line;
        const std::size_t ruleEnd = line.find(": ", line.find(": ") + 1);
        EXPECT_LT(ruleEnd + 2, line.size()) << "no text: " << line;
        shortened.push_back(line.substr(start.size(), ruleEnd - start.size()));
    }
    return shortened;
}

std::string CheckStringsFixture::stringsOf(const std::vector<std::string>& keys) {
    std::string text;
    for (const std::string& key : keys) {
        text.append("\"").append(key).append("\" = \"").append(key).append("\"\n");
    }
    return text;
}

void LineCaseTest::check() const {
    const LineCase& line = GetParam();
    Lines expected;
    if (!line.rule.empty()) {
        expected.push_back("2: " + line.rule);
    }
    EXPECT_EQ(findingsIn("// a comment\n" + line.line + "\n", {line.key}), expected) << line.line;
}
