#pragma once
// The rules that the sources keep and that no compiler checks: what happens behind a seam happens nowhere else, rooms
// look downwards only, files stay small. Reads texts and nothing else; the tests of the rules run it on the real sources
// and on planted offences.

#include <string>
#include <string_view>
#include <vector>

/// A source file: its path from the repository's root with "/", and its whole text.
struct SourceFile {
    std::string path{};
    std::string text{};
};

/// An offence: "path:line: what is wrong". The line counts from 1; offences of a whole file name line 1.
using Finding = std::string;

/// The text with comments and the insides of literals blanked out; every line break stays where it is.
std::string codeOf(std::string_view text);

/// The paths between the quotes or angles of the #include lines, in order.
std::vector<std::string> includesOf(std::string_view text);

/// What one file of the product does against the rules.
std::vector<Finding> findingsIn(const SourceFile& file);

/// What the files do against the rules together: rooms that look upwards, headers that include each other in a circle.
std::vector<Finding> findingsAmong(const std::vector<SourceFile>& files);

/// What one test file does against the rules: tests never wait for real time. Stories in tests/desktop may.
std::vector<Finding> findingsInTest(const SourceFile& file);

/// All *.h and *.cpp files of the product below `root`: everything but tests, measuring programs and build folders.
std::vector<SourceFile> productFiles(const std::string& root);
/// All *.h and *.cpp files below `root`/tests.
std::vector<SourceFile> testFiles(const std::string& root);
