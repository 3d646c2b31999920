#include "text/runtime_error.h"

namespace tv::text {

std::string error_description(int number) {
    switch (number) {
        case kInvalidCall: return "Invalid procedure call or argument";
        case kOverflow: return "Overflow";
        case 7: return "Out of memory";
        case kSubscript: return "Subscript out of range";
        case kDivisionByZero: return "Division by zero";
        case kTypeMismatch: return "Type mismatch";
        case kBadFileName: return "Bad file name or number";
        case kFileNotFound: return "File not found";
        case 62: return "Input past end of file";
        case kPermissionDenied: return "Permission denied";
        case 75: return "Path/File access error";
        case kPathNotFound: return "Path not found";
        case kInvalidPropertyValue: return "Invalid property value";
        case kCancel: return "Cancel was selected.";
        default: return "Application-defined or object-defined error";
    }
}

void raise(int number) { throw RuntimeError(number, error_description(number)); }

}  // namespace tv::text
