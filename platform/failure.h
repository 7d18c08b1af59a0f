#pragma once
// How the program fails and how it ends. What the user has already been told is no exception: such routines return
// "error". Everything unexpected is thrown as one of these, and the guard around the handlers of the forms is the one
// place that catches it.

#include "platform/text.h"

/// What went wrong, as the error report names it.
enum class FailureKind {
    subscript,     ///< an index outside its array, a record number of 0 or less
    division,      ///< division by zero
    overflow,      ///< a number that does not fit its type, a clock that ran backwards during a wait
    impossible,    ///< a value that can't be computed (a root or a power)
    file,          ///< any failure of a file operation
    printing,      ///< the printer failed
    communication, ///< the serial line failed
};

/// An unexpected failure that ends the event in which it rose; the program goes on.
struct RuntimeFailure {
    FailureKind kind;
    /// True only for a row of the table that could not be written. The row then stays in the window, so that the next
    /// leave can write it; after every other failure the window is read again from the file.
    bool rowWrite = false;
    /// The user has been told already: nothing more is reported.
    bool isTold = false;
};

/// The same where the program can't go on: the report is shown, then the program ends with a non-zero status.
struct FatalFailure {
    FailureKind kind;
    /// Text and title of the report; an empty text means the report of `kind`.
    Text report{};
    Text title{};
};

/// The ways in which the program ends on purpose.
enum class EndKind {
    orderly,      ///< farewell, all files closed, "zorTalk" written
    farewellOnly, ///< farewell, "zorTalk" left as it was
    atOnce,       ///< nothing spoken, nothing written, clipboard left as it is
};

/// Thrown to end the program by design. What the end demands (farewell, files, "zorTalk") has been done by the
/// thrower; who catches it only closes the event loops and leaves with the exit status.
struct ProgramEnd {
    EndKind how;
};

/// The text of the error report for a kind of failure, as the message form shows and speaks it.
TextView failureText(FailureKind kind);

/// The title of every error report.
inline constexpr TextView failureTitle = u"実行時エラー";
