// The text form of stored files, broken ones too. What is taken keeps the promises of a document:
// it is stored and written as text, and comes back from both bit for bit. What is refused is told
// in one line.

#include "convert/Difference.h"
#include "convert/DocumentReader.h"
#include "convert/DocumentWriter.h"
#include "convert/TextForm.h"
#include "fuzz/Require.h"

#include <algorithm>
#include <string_view>

namespace {

using namespace pedl;
using fuzz::require;

bool isOneLine(std::string_view text) {
    constexpr std::size_t kLongest = 1000;
    return !text.empty() && text.size() < kLongest && text.find('\n') == std::string_view::npos;
}

void checkSame(const Document& before, const Result<Document>& after) {
    require(after.ok() && after.value().warnings.empty());
    require(after.value().kind == before.kind);
    require(differences(before, after.value()).value().empty());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const Result<Document> read = documentFromText(text);
    if (!read.ok()) {
        require(isOneLine(read.problem().text));
        return 0;
    }
    const Document& document = read.value();
    require(std::ranges::all_of(document.warnings, isOneLine));
    checkSame(document, documentFromText(textForm(document)));
    checkSame(document, documentOf(storedForm(document)));
    return 0;
}
