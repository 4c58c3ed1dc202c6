#include "vstgui/lib/platform/common/textline.h"

#include "foundation/text/Utf8.h"

#include <algorithm>

namespace VSTGUI {

namespace {

/// What may stand in a line.
std::string cleaned(const std::string& text) {
    std::string clean;
    for (std::string_view rest = text; !rest.empty();) {
        const char32_t code = pedl::takeAnyCharacter(rest);
        if (code == '\r' || code == pedl::kReplacementCharacter)
            continue;
        clean += pedl::isControl(code) ? " " : pedl::utf8Of(code);
    }
    return clean;
}

/// The first `count` characters.
std::string firstCharacters(const std::string& text, std::size_t count) {
    std::string_view rest = text;
    for (; count > 0 && !rest.empty(); --count)
        pedl::takeAnyCharacter(rest);
    return text.substr(0, text.size() - rest.size());
}

} // namespace

std::string oneLine(const std::string& text, std::size_t maxCharacters) {
    return firstCharacters(cleaned(text), maxCharacters);
}

std::string TextLine::selectedText() const {
    return text_.substr(selectionStart(), selectionEnd() - selectionStart());
}

void TextLine::setText(const std::string& text) {
    text_ = oneLine(text, maxCharacters_);
    caret_ = anchor_ = text_.size();
}

bool TextLine::insert(const std::string& text) {
    const bool hasErased = eraseSelection();
    const std::size_t room = maxCharacters_ - pedl::countCharacters(text_);
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
    while (place < text_.size() && pedl::continuesCharacter(text_[place]))
        ++place;
    return place;
}

std::size_t TextLine::previous(std::size_t place) const {
    if (place > 0)
        --place;
    while (place > 0 && pedl::continuesCharacter(text_[place]))
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
