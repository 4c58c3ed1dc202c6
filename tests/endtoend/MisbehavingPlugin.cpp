// A plug-in that allocates in processing: the control that shows both nets to be whole. It asks for
// so much that the allocator has to ask the kernel.

#include "foundation/vst24/AudioEffectX.h"

#include <cstdlib>

namespace {

class MisbehavingPlugin final : public AudioEffectX {
public:
    explicit MisbehavingPlugin(audioMasterCallback host) : AudioEffectX(host, 1, 0) {}

    void processReplacing(float**, float**, VstInt32) override {
        constexpr std::size_t kManyBytes = 64 << 20;
        void* volatile block = std::malloc(kManyBytes); // volatile: nobody looks at it
        std::free(block);
    }
};

} // namespace

extern "C" __attribute__((visibility("default"))) AEffect* VSTPluginMain(audioMasterCallback host) {
    return (new MisbehavingPlugin(host))->getAeffect();
}
