#include "core/RunTimeError.h"

#include "core/Text.h"

namespace pw {

const char* ErrorName(ErrorKind kind)
{
    switch (kind) {
    case ErrorKind::InvalidCall: return "Invalid procedure call or argument";
    case ErrorKind::Overflow: return "Overflow";
    case ErrorKind::SubscriptRange: return "Subscript out of range";
    case ErrorKind::DivisionByZero: return "Division by zero";
    case ErrorKind::FileNotFound: return "File not found";
    case ErrorKind::InputPastEnd: return "Input past end of file";
    case ErrorKind::PathFileAccess: return "Path/File access error";
    }
    return "Application-defined or object-defined error";
}

RunTimeError::RunTimeError(ErrorKind kind, const std::string& detail)
    : std::runtime_error(std::string(ErrorName(kind)) + (detail.empty() ? "" : ": " + detail)),
      kind_(kind), detail_(detail)
{
}

std::string RunTimeError::Name() const { return ErrorName(kind_); }

std::string RunTimeError::Message() const
{
    std::string text = "Run-time error '" + std::to_string(Code()) + "':" + kCrLf + kCrLf + Name();
    if (!detail_.empty())
        text += std::string(kCrLf) + kCrLf + "(" + detail_ + ")";
    return text;
}

}  // namespace pw
