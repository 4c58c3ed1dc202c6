#include "vstgui/lib/cfont.h"

#include <cstring>

namespace VSTGUI {

namespace {

UTF8StringPtr copyOf(UTF8StringPtr text) {
    if (!text)
        return nullptr;
    const std::size_t sizeBytes = std::strlen(text) + 1;
    return static_cast<UTF8StringPtr>(std::memcpy(new char[sizeBytes], text, sizeBytes));
}

} // namespace

CFontDesc::CFontDesc(UTF8StringPtr name, const CCoord& size, const int32_t style)
    : name_(copyOf(name)), ownsName_(name != nullptr), size_(size), style_(style) {}

CFontDesc::CFontDesc(const CFontDesc& font)
    : CBaseObject(font), name_(copyOf(font.name_)), ownsName_(font.name_ != nullptr),
      size_(font.size_), style_(font.style_) {}

CFontDesc::~CFontDesc() {
    if (ownsName_)
        delete[] name_;
}

void CFontDesc::setName(UTF8StringPtr newName) {
    UTF8StringPtr copy = copyOf(newName); // first: it may be our own
    if (ownsName_)
        delete[] name_;
    name_ = copy;
    ownsName_ = copy != nullptr;
}

void CFontDesc::setSize(CCoord newSize) {
    size_ = newSize;
}

void CFontDesc::setStyle(int32_t newStyle) {
    style_ = newStyle;
}

} // namespace VSTGUI
