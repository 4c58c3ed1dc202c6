// A plug-in that does in processing what no plug-in may do: the control that shows a net to be
// whole. It answers the processing calls and one opcode; everything else is 0.

#include "tests/endtoend/MisbehavingPlugin.h"

#include "foundation/vst24/AEffect.h"
#include "foundation/vst24/VstOpcodes.h"

#include <cstdlib>
#include <pthread.h>
#include <sys/mman.h>
#include <time.h>
#include <unistd.h>

namespace {

using pedl::test::Misdeed;

Misdeed misdeed = Misdeed::None;
void* volatile memory = nullptr; // volatile: the compiler may drop an allocation nobody looks at
pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;

void misbehave() {
    constexpr std::size_t kBytes = 4096;
    switch (misdeed) {
    case Misdeed::None:
        break;
    case Misdeed::Allocate:
        memory = std::malloc(kBytes);
        break;
    case Misdeed::Free:
        std::free(memory);
        memory = nullptr;
        break;
    case Misdeed::Lock:
        pthread_mutex_lock(&mutex);
        pthread_mutex_unlock(&mutex);
        break;
    case Misdeed::Sleep: {
        const timespec oneMs{0, 1'000'000};
        nanosleep(&oneMs, nullptr);
        break;
    }
    case Misdeed::MapMemory:
        memory = mmap(nullptr, kBytes, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        break;
    case Misdeed::Write:
        if (write(STDOUT_FILENO, "", 0) != 0)
            std::abort();
        break;
    }
}

VstIntPtr dispatcher(AEffect* effect, VstInt32 opcode, VstInt32, VstIntPtr value, void*, float) {
    if (opcode == effSetProgram) {
        misdeed = static_cast<Misdeed>(value);
        memory = misdeed == Misdeed::Free ? std::malloc(1) : nullptr;
    }
    if (opcode == effClose)
        delete effect;
    return 0;
}

void process(AEffect*, float**, float**, VstInt32) {}
void processReplacing(AEffect*, float**, float**, VstInt32) {
    misbehave();
}
void processDoubleReplacing(AEffect*, double**, double**, VstInt32) {
    misbehave();
}
void setParameter(AEffect*, VstInt32, float) {}
float getParameter(AEffect*, VstInt32) {
    return 0.0F;
}

} // namespace

extern "C" __attribute__((visibility("default"))) AEffect* VSTPluginMain(audioMasterCallback) {
    auto* effect = new AEffect{};
    effect->magic = kEffectMagic;
    effect->dispatcher = dispatcher;
    effect->process = process;
    effect->setParameter = setParameter;
    effect->getParameter = getParameter;
    effect->numInputs = effect->numOutputs = 2;
    effect->flags = effFlagsCanReplacing | effFlagsCanDoubleReplacing;
    effect->processReplacing = processReplacing;
    effect->processDoubleReplacing = processDoubleReplacing;
    return effect;
}
