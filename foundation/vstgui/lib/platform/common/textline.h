#pragma once

#include <cstddef>
#include <string>

namespace VSTGUI {

/// One line of text that is being written: caret, selection, and what keys do to them.
///
/// UTF-8. Places are byte offsets that never fall inside a character. The selection lies between
/// the caret and the anchor. Control characters become spaces, broken UTF-8 is left out.
class TextLine {
public:
    enum class Direction { Back, Forward };
    enum class Unit { Character, Word, Line };
    enum class Selection { Drop, Extend };

    explicit TextLine(std::size_t maxCharacters) : maxCharacters_(maxCharacters) {}

    const std::string& text() const { return text_; }
    std::size_t caret() const { return caret_; }
    std::size_t selectionStart() const { return caret_ < anchor_ ? caret_ : anchor_; }
    std::size_t selectionEnd() const { return caret_ < anchor_ ? anchor_ : caret_; }
    bool hasSelection() const { return caret_ != anchor_; }
    std::string selectedText() const;

    /// Replaces everything; the caret goes to the end.
    void setText(const std::string& text);
    /// Replaces the selection. What goes beyond the limit is cut off.
    /// @return whether the text changed
    bool insert(const std::string& text);
    /// Takes the selection away, else one unit beside the caret.
    bool erase(Direction direction, Unit unit);
    bool eraseSelection();

    void move(Direction direction, Unit unit, Selection selection);
    void moveTo(std::size_t place, Selection selection);
    void selectAll();
    void selectWordAt(std::size_t place);

    std::size_t next(std::size_t place) const; // one character on
    std::size_t previous(std::size_t place) const;

private:
    std::size_t target(Direction direction, Unit unit) const;
    bool isWordAt(std::size_t place) const;

    std::size_t maxCharacters_;
    std::string text_;
    std::size_t caret_ = 0;
    std::size_t anchor_ = 0;
};

/// Characters that a text field takes.
constexpr std::size_t kMostFieldCharacters = 255;

/// What a field, or any other single line, shows of a text: valid UTF-8 without line breaks and
/// other control characters.
std::string oneLine(const std::string& text, std::size_t maxCharacters = std::string::npos);

} // namespace VSTGUI
