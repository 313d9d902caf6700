#pragma once
// The one kind of fault the model raises: a value out of its fixed range
// (overflow, subscript out of range, a character code outside 0..255, ...).
// The views catch it at the top of the event loop, show one critical message
// naming it and end the program without writing any file.
#include <stdexcept>
#include <string>

namespace pw {

enum class ErrorKind : int {
    InvalidCall = 5,       // "Invalid procedure call or argument"
    Overflow = 6,          // "Overflow"
    SubscriptRange = 9,    // "Subscript out of range"
    DivisionByZero = 11,   // "Division by zero"
    FileNotFound = 53,     // "File not found"
    InputPastEnd = 62,     // "Input past end of file"
    PathFileAccess = 75,   // "Path/File access error"
};

class RunTimeError : public std::runtime_error {
public:
    RunTimeError(ErrorKind kind, const std::string& detail = {});

    ErrorKind Kind() const { return kind_; }
    int Code() const { return static_cast<int>(kind_); }
    // The name of the error, e.g. "Overflow".
    std::string Name() const;
    // Text for the message box: "Run-time error '6':" CRLF CRLF "Overflow",
    // followed by the detail (where it happened) when there is one.
    std::string Message() const;
    const std::string& Detail() const { return detail_; }

private:
    ErrorKind kind_;
    std::string detail_;
};

// A file that could not be written: a path/file access error that also
// carries the file and the system's reason, so a save can tell the user
// what went wrong instead of ending the program.
class SaveError : public RunTimeError {
public:
    SaveError(const std::string& path, const std::string& reason)
        : RunTimeError(ErrorKind::PathFileAccess, path), path_(path), reason_(reason)
    {
    }
    const std::string& Path() const { return path_; }
    const std::string& Reason() const { return reason_; }

private:
    std::string path_;
    std::string reason_;
};

const char* ErrorName(ErrorKind kind);

}  // namespace pw
