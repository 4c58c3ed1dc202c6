#pragma once

#include "vstgui/lib/vstguibase.h"

#include <utility>

namespace pedl {

/// A reference of one's own to a counted object of the toolkit (a bitmap, a font), or to none. Used
/// as the pointer that it stands for; a copy has a reference of its own.
template <typename Object> class Counted {
public:
    Counted(Object* object = nullptr) : object_(object) { // a pointer is one, without a word
        if (object_)
            object_->remember();
    }
    Counted(const Counted& other) : Counted(other.object_) {}
    ~Counted() {
        if (object_)
            object_->forget();
    }
    Counted& operator=(Counted other) { // a copy first: it may be the one that is given back
        std::swap(object_, other.object_);
        return *this;
    }

    operator Object*() const { return object_; }
    Object* operator->() const { return object_; }

private:
    Object* object_;
};

/// Takes the creator's own reference of a new object over.
template <typename Object> Counted<Object> adopted(Object* created) {
    Counted<Object> counted(created);
    created->forget();
    return counted;
}

} // namespace pedl
