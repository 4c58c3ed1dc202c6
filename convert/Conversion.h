#pragma once

#include "convert/Document.h"
#include "foundation/text/Result.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pedl {

/// Stands for standard output in place of a file's name; it takes the text form.
constexpr const char* kStandardOutput = "-";

/// What the name of a file that is to hold a text form ends with, in small letters.
constexpr std::string_view kTextEnding = ".json";

struct ConversionRequest {
    std::string in;
    std::string out;                    ///< its ending names the kind and the form
    std::optional<std::string> program; ///< name or slot
    std::vector<std::string> slots;     ///< "slot=file": programs to put in, in this order
};

/// What is to be written under the name of `out`.
struct Conversion {
    std::vector<std::byte> bytes;
    DocumentKind kind = DocumentKind::Chunk;
    bool isText = false;
    std::vector<std::string> warnings; ///< about what was read, a line each
};

/// Reads one file and makes what the other is to hold; writes nothing.
///
/// Programs for slots go into the bank first. With a program named, it is the one that a program
/// file or a text form gets, and the current one of a bank or a host chunk.
///
/// @return a line that begins with the path that it is about
Result<Conversion> convert(const ConversionRequest& request);

} // namespace pedl
