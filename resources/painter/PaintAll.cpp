#include "resources/painter/PaintAll.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace pedl::skin {

namespace {

struct Job {
    Drawing drawing;
    int scale;

    [[nodiscard]] int pixels() const {
        const SkinBitmap& size = firstBitmapOf(drawing);
        return size.width * size.height() * scale * scale;
    }
};

std::vector<Job> allJobs() {
    std::vector<Job> jobs;
    for (int drawing = 0; drawing < static_cast<int>(Drawing::kCount); ++drawing)
        for (const int scale : {1, 2})
            jobs.push_back({static_cast<Drawing>(drawing), scale});
    std::stable_sort(jobs.begin(), jobs.end(),
                     [](const Job& a, const Job& b) { return a.pixels() > b.pixels(); });
    return jobs;
}

} // namespace

void paintAll(unsigned threads, const PictureSink& sink) {
    const std::vector<Job> jobs = allJobs();
    std::atomic<std::size_t> next{0};
    std::mutex mutex;
    std::exception_ptr failure;
    const auto work = [&] {
        try {
            for (std::size_t i = next++; i < jobs.size(); i = next++)
                sink(jobs[i].drawing, jobs[i].scale, paint(jobs[i].drawing, jobs[i].scale));
        } catch (...) {
            next = jobs.size();
            const std::lock_guard guard(mutex);
            failure = std::current_exception();
        }
    };
    {
        std::vector<std::jthread> helpers;
        for (unsigned i = 1; i < threads; ++i)
            helpers.emplace_back(work);
        work();
    }
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace pedl::skin
