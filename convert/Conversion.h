#pragma once

#include "convert/Document.h"
#include "foundation/text/Result.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pedl {

/// What the name of a file that is to hold a text form ends with, in small letters.
constexpr std::string_view kTextEnding = ".json";

struct ConversionRequest {
    std::vector<std::string> in; ///< a file, or programs that make a bank; "-": standard input
    std::string out;             ///< its ending names the kind and the form; "-": text
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

/// Reads one file and makes what the other is to hold; writes nothing. Several programs that are
/// read make a bank, in slots from 0 on; the others hold the factory's.
///
/// Programs for slots go into the bank first. With a program named, it is the one that a program
/// file or a text form gets, and the current one of a bank or a host chunk.
///
/// @return a line that begins with the path that it is about
Result<Conversion> convert(const ConversionRequest& request);

/// A program of a bank, and what its file is called: "012 Auto Wah.zmt".
struct ProgramFile {
    std::string name;
    Conversion content;
};

/// All programs of a bank or a host chunk, in the order of their slots.
///
/// @param format  "zmt" or "json"
/// @return a line that begins with the path that it is about
Result<std::vector<ProgramFile>> split(const std::string& in, const std::string& format);

} // namespace pedl
