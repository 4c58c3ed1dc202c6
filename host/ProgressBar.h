#pragma once

#include <chrono>

namespace pedl {

/// A line on the terminal that fills up. Writes nothing where standard error is not a terminal.
class ProgressBar {
public:
    /// @param isWanted  where not, it writes nothing
    explicit ProgressBar(bool isWanted);
    ~ProgressBar(); // wipes the line
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    /// Shows `share` of the whole, 0 to 1; often enough is often enough.
    void show(double share);

private:
    bool isOnTerminal_;
    bool isShown_ = false;
    std::chrono::steady_clock::time_point start_;
    std::chrono::steady_clock::time_point shown_;
};

} // namespace pedl
