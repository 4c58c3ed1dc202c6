#pragma once

#include <array>
#include <functional>
#include <string>

namespace VSTGUI {

/// Text on its way from one field or program to another.
class Clipboard {
public:
    enum class Kind {
        Copied,  // what Ctrl+C and Ctrl+X took, for Ctrl+V
        Selected // what was selected last with the mouse, for the middle button
    };
    using Receiver = std::function<void(const std::string& text)>;

    virtual ~Clipboard() = default;
    virtual void setText(Kind kind, const std::string& text) = 0;
    /// Calls `receiver` now or from a later pump, or never: the text may be another program's. Who
    /// asks may be gone by then, and the receiver has to know.
    virtual void requestText(Kind kind, Receiver receiver) = 0;
};

/// Keeps its own text only: a window without a display has no other programs around it.
class OwnClipboard : public Clipboard {
public:
    void setText(Kind kind, const std::string& text) override { textOf(kind) = text; }
    void requestText(Kind kind, Receiver receiver) override { receiver(textOf(kind)); }

private:
    std::string& textOf(Kind kind) { return texts_[kind == Kind::Copied ? 0 : 1]; }

    std::array<std::string, 2> texts_;
};

} // namespace VSTGUI
