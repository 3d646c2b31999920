#pragma once
// The old run-time errors: a failure that the program does not trap ends the action with a
// message box "Run-time error" carrying the description.
#include <stdexcept>
#include <string>

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

/// The standard description of an error number ("Overflow", "Division by zero", ...).
std::string error_description(int number);

/// Throws RuntimeError with the standard description of `number`.
[[noreturn]] void raise(int number);

}  // namespace tv::text
