#include "host/ProgressBar.h"

#include "host/Messages.h"

#include <cmath>
#include <cstdio>
#include <string>
#include <unistd.h>

namespace pedl {

namespace {

constexpr int kBarColumns = 40;
constexpr std::chrono::milliseconds kBetweenPictures{100};

} // namespace

ProgressBar::ProgressBar()
    : isOnTerminal_(isatty(messageDescriptor()) == 1), start_(std::chrono::steady_clock::now()),
      shown_(start_) {}

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
    const auto full = static_cast<std::size_t>(std::lround(share * kBarColumns));
    const double past = std::chrono::duration<double>(now - start_).count();
    const long left = share > 0.0 ? std::lround(past / share - past) : 0;
    const std::string bar = std::string(full, '#') + std::string(kBarColumns - full, '.');
    std::fprintf(messages(), "\r[%s] %3.0f %%  %ld:%02ld left\033[K", bar.c_str(), share * 100.0,
                 left / 60, left % 60);
}

} // namespace pedl
