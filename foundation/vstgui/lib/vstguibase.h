#pragma once

#include <atomic>
#include <cstdint>
#include <cstring>

/// The version of the toolkit's interface that this layer follows.
#define VSTGUI_VERSION_MAJOR 4
#define VSTGUI_VERSION_MINOR 0

namespace VSTGUI {

using CCoord = double; // logical pixels; a frame's scale factor turns them into the window's
using IdStringPtr = const char*;
using UTF8StringPtr = const char*;
using UTF8StringBuffer = char*;

enum CMessageResult { kMessageUnknown = 0, kMessageNotified = 1 };

/// Root of everything that is counted.
///
/// A new object has one reference, its creator's. Counting is safe from any thread, since fonts for
/// instance are shared by editors that their hosts call from different ones; all else is for the
/// thread that calls the object's editor, unless a class says more.
class CBaseObject {
public:
    constexpr CBaseObject() = default;
    CBaseObject(const CBaseObject&) {} // a copy starts with one reference of its own
    CBaseObject& operator=(const CBaseObject&) { return *this; }
    virtual ~CBaseObject() = default;

    /// Gives one reference back; the last one deletes the object.
    virtual void forget();
    virtual void remember();
    virtual int32_t getNbReference() const { return nbReference.load(std::memory_order_relaxed); }

    /// A message from `sender`. Messages are compared as pointers, not as text.
    virtual CMessageResult notify(CBaseObject* sender, IdStringPtr message);

    /// Whether the object is of the class named `s` or derived from it.
    virtual bool isTypeOf(IdStringPtr s) const { return std::strcmp(s, "CBaseObject") == 0; }

    /// A copy with one reference, null for a class that cannot be copied.
    virtual CBaseObject* newCopy() const { return nullptr; }

private:
    std::atomic<int32_t> nbReference{1};
};

/// Holds a reference to an object (or to none) until the end of a scope.
class CBaseObjectGuard {
public:
    explicit CBaseObjectGuard(CBaseObject* o) : object_(o) {
        if (object_)
            object_->remember();
    }
    ~CBaseObjectGuard() {
        if (object_)
            object_->forget();
    }
    CBaseObjectGuard(const CBaseObjectGuard&) = delete;
    CBaseObjectGuard& operator=(const CBaseObjectGuard&) = delete;

private:
    CBaseObject* object_;
};

} // namespace VSTGUI

/// Names a class for `isTypeOf` and makes it copyable. No semicolon after it.
#define CLASS_METHODS(name, parent)                                                                \
    bool isTypeOf(VSTGUI::IdStringPtr s) const override {                                          \
        return !std::strcmp(s, #name) || parent::isTypeOf(s);                                      \
    }                                                                                              \
    VSTGUI::CBaseObject* newCopy() const override {                                                \
        return new name(*this);                                                                    \
    }

/// The same for a class without copies.
#define CLASS_METHODS_NOCOPY(name, parent)                                                         \
    bool isTypeOf(VSTGUI::IdStringPtr s) const override {                                          \
        return !std::strcmp(s, #name) || parent::isTypeOf(s);                                      \
    }                                                                                              \
    VSTGUI::CBaseObject* newCopy() const override {                                                \
        return nullptr;                                                                            \
    }

/// The same for a class that leaves copying to the classes derived from it.
#define CLASS_METHODS_VIRTUAL(name, parent)                                                        \
    bool isTypeOf(VSTGUI::IdStringPtr s) const override {                                          \
        return !std::strcmp(s, #name) || parent::isTypeOf(s);                                      \
    }                                                                                              \
    VSTGUI::CBaseObject* newCopy() const override = 0;
