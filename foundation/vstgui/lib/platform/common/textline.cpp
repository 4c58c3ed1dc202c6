#include "vstgui/lib/platform/common/textline.h"

#include <algorithm>

namespace VSTGUI {

namespace {

constexpr char32_t kBroken = 0xFFFD;

bool continues(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// What may stand in a line.
std::string cleaned(const std::string& text) {
    std::string clean;
    for (std::size_t place = 0; place < text.size();) {
        const char32_t code = nextCodePoint(text, place);
        if (code == '\r' || code == kBroken)
            continue;
        const bool isControl = code < 0x20 || (code >= 0x7F && code < 0xA0);
        clean += isControl ? " " : utf8FromCodePoint(code);
    }
    return clean;
}

/// The first `count` characters.
std::string firstCharacters(const std::string& text, std::size_t count) {
    std::size_t place = 0;
    for (; count > 0 && place < text.size(); --count)
        nextCodePoint(text, place);
    return text.substr(0, place);
}

} // namespace

std::size_t countCharacters(const std::string& text) {
    const auto within = std::count_if(text.begin(), text.end(), continues);
    return text.size() - static_cast<std::size_t>(within);
}

std::string utf8FromCodePoint(char32_t code) {
    const auto byte = [](char32_t bits) { return static_cast<char>(bits); };
    const auto tail = [&](int shift) { return byte(0x80 | ((code >> shift) & 0x3F)); };
    if (code < 0x80)
        return {byte(code)};
    if (code < 0x800)
        return {byte(0xC0 | (code >> 6)), tail(0)};
    if ((code >= 0xD800 && code < 0xE000) || code > 0x10FFFF)
        return {};
    if (code < 0x10000)
        return {byte(0xE0 | (code >> 12)), tail(6), tail(0)};
    return {byte(0xF0 | (code >> 18)), tail(12), tail(6), tail(0)};
}

char32_t nextCodePoint(const std::string& text, std::size_t& place) {
    const std::size_t start = place++;
    const auto first = static_cast<unsigned char>(text[start]);
    if (first < 0x80)
        return first;
    const std::size_t tail = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    if (first < 0xC2 || first > 0xF4 || start + tail >= text.size())
        return kBroken;
    char32_t code = first & (0x3Fu >> tail);
    for (std::size_t i = 1; i <= tail; ++i) {
        if (!continues(text[start + i]))
            return kBroken;
        code = (code << 6) | (static_cast<unsigned char>(text[start + i]) & 0x3Fu);
    }
    if (utf8FromCodePoint(code).size() != tail + 1) // too long a form, or half a pair
        return kBroken;
    place = start + 1 + tail;
    return code;
}

char32_t smallLetter(char32_t code) {
    const auto within = [code](char32_t first, char32_t last) {
        return code >= first && code <= last;
    };
    const bool isShifted = within('A', 'Z') || (within(0xC0, 0xDE) && code != 0xD7) ||
                           within(0x391, 0x3A9) || within(0x410, 0x42F);
    if (isShifted)
        return code + 0x20;
    return within(0x400, 0x40F) ? code + 0x50 : code;
}

std::string TextLine::selectedText() const {
    return text_.substr(selectionStart(), selectionEnd() - selectionStart());
}

void TextLine::setText(const std::string& text) {
    text_ = firstCharacters(cleaned(text), maxCharacters_);
    caret_ = anchor_ = text_.size();
}

bool TextLine::insert(const std::string& text) {
    const bool hasErased = eraseSelection();
    const std::size_t room = maxCharacters_ - countCharacters(text_);
    const std::string fitting = firstCharacters(cleaned(text), room);
    text_.insert(caret_, fitting);
    caret_ += fitting.size();
    anchor_ = caret_;
    return hasErased || !fitting.empty();
}

bool TextLine::eraseSelection() {
    if (!hasSelection())
        return false;
    const std::size_t start = selectionStart();
    text_.erase(start, selectionEnd() - start);
    caret_ = anchor_ = start;
    return true;
}

bool TextLine::erase(Direction direction, Unit unit) {
    if (!hasSelection())
        caret_ = target(direction, unit);
    return eraseSelection();
}

void TextLine::move(Direction direction, Unit unit, Selection selection) {
    const bool leavesSelection =
        hasSelection() && unit == Unit::Character && selection == Selection::Drop;
    if (leavesSelection) // at the side where the arrow points
        moveTo(direction == Direction::Back ? selectionStart() : selectionEnd(), selection);
    else
        moveTo(target(direction, unit), selection);
}

void TextLine::moveTo(std::size_t place, Selection selection) {
    caret_ = std::min(place, text_.size());
    if (selection == Selection::Drop)
        anchor_ = caret_;
}

void TextLine::selectAll() {
    anchor_ = 0;
    caret_ = text_.size();
}

void TextLine::selectWordAt(std::size_t place) {
    if (text_.empty())
        return;
    if (place >= text_.size())
        place = previous(text_.size());
    const bool kind = isWordAt(place); // a run of letters, or of what lies between words
    std::size_t start = place;
    while (start > 0 && isWordAt(previous(start)) == kind)
        start = previous(start);
    std::size_t end = place;
    while (end < text_.size() && isWordAt(end) == kind)
        end = next(end);
    anchor_ = start;
    caret_ = end;
}

std::size_t TextLine::next(std::size_t place) const {
    if (place < text_.size())
        ++place;
    while (place < text_.size() && continues(text_[place]))
        ++place;
    return place;
}

std::size_t TextLine::previous(std::size_t place) const {
    if (place > 0)
        --place;
    while (place > 0 && continues(text_[place]))
        --place;
    return place;
}

std::size_t TextLine::target(Direction direction, Unit unit) const {
    const bool isBack = direction == Direction::Back;
    if (unit == Unit::Line)
        return isBack ? 0 : text_.size();
    if (unit == Unit::Character)
        return isBack ? previous(caret_) : next(caret_);
    // To the beginning of a word: of this one or the one before, or of the one after.
    std::size_t place = caret_;
    if (isBack) {
        while (place > 0 && !isWordAt(previous(place)))
            place = previous(place);
        while (place > 0 && isWordAt(previous(place)))
            place = previous(place);
    } else {
        while (place < text_.size() && isWordAt(place))
            place = next(place);
        while (place < text_.size() && !isWordAt(place))
            place = next(place);
    }
    return place;
}

bool TextLine::isWordAt(std::size_t place) const {
    const char c = text_[place];
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

} // namespace VSTGUI
