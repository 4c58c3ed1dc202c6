#include "host/ProgressBar.h"

#include "host/Messages.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>

namespace pedl {

namespace {

constexpr int kMostBarColumns = 40;
constexpr int kFigureColumns =
    24; // brackets, per cent, the time that is left, the terminal's last one
constexpr std::chrono::milliseconds kBetweenPictures{100};

/// A line that is wider than the terminal would wrap, and leave a trace with each picture.
int barColumns() {
    winsize size{};
    if (ioctl(messageDescriptor(), TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return kMostBarColumns;
    return std::clamp(size.ws_col - kFigureColumns, 0, kMostBarColumns);
}

} // namespace

ProgressBar::ProgressBar(bool isWanted)
    : isOnTerminal_(isWanted && isatty(messageDescriptor()) == 1),
      start_(std::chrono::steady_clock::now()), shown_(start_) {}

ProgressBar::~ProgressBar() {
    if (isShown_)
        std::fputs("\r\033[K", messages());
}

void ProgressBar::show(double share) {
    const auto now = std::chrono::steady_clock::now();
    if (!isOnTerminal_ || now - shown_ < kBetweenPictures)
        return;
    shown_ = now;
    isShown_ = true;
    const auto columns = static_cast<std::size_t>(barColumns());
    const auto full = static_cast<std::size_t>(std::lround(share * static_cast<double>(columns)));
    const double past = std::chrono::duration<double>(now - start_).count();
    const long left = share > 0.0 ? std::lround(past / share - past) : 0;
    const std::string bar = std::string(full, '#') + std::string(columns - full, '.');
    std::fprintf(messages(), "\r[%s] %3.0f %%  %ld:%02ld left\033[K", bar.c_str(), share * 100.0,
                 left / 60, left % 60);
}

} // namespace pedl
