#pragma once
// The readable sources of the files that come with the program, line by line: UTF-8, one statement a line, "#" at the
// left edge for remarks. Called by the readers of tables, boards and guides. Never looks at a file.

#include "platform/code_page.h"

#include <vector>

/// What is wrong in a source. `line` counts from 1; 0 stands for the source as a whole.
struct SourceError {
    std::size_t line;
    Text what;
};

/// One line of a source with its number, counted from 1.
struct SourceLine {
    std::size_t number;
    Text text;
};

/// A statement "word: field | field | ...". The fields are without the blanks round them.
struct Statement {
    std::size_t line;
    Text word;
    std::vector<Text> fields;

    /// The field `index`, counted from 0. Throws SourceError if there are not exactly `count`.
    const Text& field(std::size_t index, std::size_t count) const;
    /// The field as a whole number from `least` to `most`; throws SourceError if it is none.
    int number(std::size_t index, std::size_t count, int least, int most) const;
};

/// All lines of a source, empty ones included. Throws SourceError for a character that the code page lacks, so that no
/// "?" creeps into a shipped file.
std::vector<SourceLine> sourceLines(const CodePage& codePage, BytesView utf8);

/// The statements of a source, without remarks and empty lines. Throws SourceError for a line that is no statement.
std::vector<Statement> statements(const CodePage& codePage, BytesView utf8);
