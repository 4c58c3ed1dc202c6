#pragma once

#include <vector>

#include "vstgui/lib/cview.h"

namespace VSTGUI {

/// Views as they are at one moment, each held until the end of the scope: what a loop walks over
/// when its body may add and remove views.
class ViewSnapshot {
public:
    explicit ViewSnapshot(std::vector<CView*> views) : views_(std::move(views)) {
        for (CView* view : views_)
            view->remember();
    }
    ~ViewSnapshot() {
        for (CView* view : views_)
            view->forget();
    }
    ViewSnapshot(const ViewSnapshot&) = delete;
    ViewSnapshot& operator=(const ViewSnapshot&) = delete;

    auto begin() const { return views_.begin(); }
    auto end() const { return views_.end(); }
    auto rbegin() const { return views_.rbegin(); } // the topmost child, the innermost parent
    auto rend() const { return views_.rend(); }
    std::size_t size() const { return views_.size(); }
    CView* operator[](std::size_t index) const { return views_[index]; }

private:
    std::vector<CView*> views_;
};

} // namespace VSTGUI
