#include "host/RenderCommand.h"

#include "host/Interrupt.h"
#include "host/RenderJob.h"

#include <algorithm>
#include <deque>
#include <future>

namespace pedl {

namespace {

/// Instances of ours that get ready at the same time: selecting a program waits for a tenth of a
/// second.
constexpr std::size_t kReadyAhead = 8;

Result<RenderReport> runPrepared(Result<RenderJob> job) {
    if (!job.ok())
        return job.problem();
    return runRender(job.value());
}

} // namespace

Result<RenderReport> render(const RenderRequest& request) {
    const Interrupt interrupt;
    return runPrepared(prepareRender(request));
}

void renderAll(const std::vector<RenderRequest>& requests, const RenderListener& listener) {
    const Interrupt interrupt;
    std::deque<std::future<Result<RenderJob>>> ready;
    std::size_t ahead = 0; // until the plug-in has shown that it is ours
    std::size_t next = 0;
    for (const RenderRequest& request : requests) {
        while (next < requests.size() && ready.size() < std::max<std::size_t>(1, ahead))
            ready.push_back(std::async(ahead > 0 ? std::launch::async : std::launch::deferred,
                                       prepareRender, std::cref(requests[next++])));
        Result<RenderJob> job = ready.front().get();
        ready.pop_front();
        if (job.ok() && job.value().plugin->isOurs())
            ahead = kReadyAhead;
        listener(request, runPrepared(std::move(job)));
        if (Interrupt::signalNumber() != 0)
            return;
    }
}

} // namespace pedl
