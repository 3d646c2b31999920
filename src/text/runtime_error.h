#pragma once
// The old run-time errors: a failure that the program does not trap ends the action with a
// message box "Run-time error" carrying the description.
#include <stdexcept>
#include <string>
#include <utility>

namespace tv::text {

enum ErrorNumber : int {
    kInvalidCall = 5,      // "Invalid procedure call or argument"
    kOverflow = 6,         // "Overflow"
    kSubscript = 9,        // "Subscript out of range"
    kDivisionByZero = 11,  // "Division by zero"
    kTypeMismatch = 13,    // "Type mismatch"
    kFileNotFound = 53,    // "File not found"
    kPathNotFound = 76,    // "Path not found"
    kBadFileName = 52,     // "Bad file name or number"
    kPermissionDenied = 70,
    kInvalidPropertyValue = 380,
    kCancel = 32755,       // "Cancel was selected."
};

class RuntimeError : public std::runtime_error {
public:
    RuntimeError(int number, std::string description)
        : std::runtime_error(description), number_(number), description_(std::move(description)) {}
    int number() const { return number_; }
    const std::string& description() const { return description_; }

private:
    int number_;
    std::string description_;
};

/// A file that could not be read or written. The window shows it as any run-time error; the
/// batch front end reports the file's name and the system's reason instead.
class FileError : public RuntimeError {
public:
    FileError(int number, std::string description, std::string path, std::string reason)
        : RuntimeError(number, std::move(description)), path_(std::move(path)), reason_(std::move(reason)) {}
    /// The name as the user gave it.
    const std::string& path() const { return path_; }
    /// The system's reason ("No such file or directory", "Is a directory", ...).
    const std::string& reason() const { return reason_; }

private:
    std::string path_;
    std::string reason_;
};

/// The standard description of an error number ("Overflow", "Division by zero", ...).
std::string error_description(int number);

/// Throws RuntimeError with the standard description of `number`.
[[noreturn]] void raise(int number);

}  // namespace tv::text
